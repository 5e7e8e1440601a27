#pragma once

#include "examples/EchoRecords.h"

#include <cstddef>

// How the records' functions look at bytes: nothing is read that was not seen to be there.
namespace EchoRecords {

// Null where the view does not fit. Views have no alignment: they can be laid wherever their bytes
// are.
template < class View >
View const * laid( Bytes bytes ) noexcept {
   return bytes.size() < sizeof( View ) ? nullptr
                                        : reinterpret_cast< View const * >( bytes.data() );
}

// Only where the bytes are known to be there.
template < class Value >
Value valueAt( Bytes bytes, std::size_t offset ) noexcept {
   return *laid< Value >( bytes.subspan( offset ) );
}

// Header and value, without padding; empty if the value is not all there.
inline Bytes withoutPadding( Bytes element ) noexcept {
   auto const * header = laid< LspPing::LspPingTlvHdr >( element );
   if( header == nullptr || header->length() > element.size() - sizeof( *header ) )
      return {};
   return element.first( sizeof( *header ) + header->length() );
}

constexpr Kept keptWhole{ true, {} };
constexpr Kept keptWithout( std::string_view lost ) noexcept {
   return { true, lost };
}
constexpr Kept notKept( std::string_view why ) noexcept {
   return { false, why };
}
constexpr Kept notWellFormed = notKept( "not well-formed" );

} // namespace EchoRecords
