#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <limits>
#include <utility>

namespace Velnet {

Pkt::Pkt( std::vector< U8 > && buffer ) {
   bufferAdd( std::move( buffer ) );
   locateData();
}

Pkt::~Pkt() = default;

Kiv::TypeRef Pkt::typeData() const {
   return Kiv::typeOf< Pkt >();
}

void Pkt::locateData() noexcept {
   Buffer & buffer = buffers_[current_];
   data_ = buffer.bytes.data() + buffer.dataStart;
   size_ = static_cast< U32 >( buffer.bytes.size() ) - buffer.dataStart;
}

void Pkt::currentBufferIs( U32 index ) {
   if( index >= bufferCount() ) {
      throw Kiv::RangeException{ "currentBuffer",
                                 Kiv::_fmt( "%lu is not below the number of buffers, %lu",
                                            U64{ index }, U64{ bufferCount() } ) };
   }
   current_ = index;
   locateData();
}

U32 Pkt::bufferAdd( std::vector< U8 > && buffer ) {
   KIV_ASSERT( buffer.size() <= std::numeric_limits< U32 >::max() );
   buffer.reserve( 1 ); // an empty buffer has an address too
   buffers_.push_back( { std::move( buffer ), 0 } );
   return bufferCount() - 1;
}

void Pkt::dataStartIs( U32 start ) {
   Buffer & buffer = buffers_[current_];
   if( start > buffer.bytes.size() ) {
      throw Kiv::RangeException{ "dataStart",
                                 Kiv::_fmt( "%lu is behind the end of the buffer's %lu bytes",
                                            U64{ start }, U64{ buffer.bytes.size() } ) };
   }
   buffer.dataStart = start;
   locateData();
}

void Pkt::strip( U32 count ) {
   if( count > size_ ) {
      throw Kiv::RangeException{ "strip", Kiv::_fmt( "%lu bytes are more than the %lu of the data",
                                                     U64{ count }, U64{ size_ } ) };
   }
   dataStartIs( dataStart() + count );
}

void Pkt::extend( U32 count ) {
   if( count > dataStart() ) {
      throw Kiv::RangeException{ "extend",
                                 Kiv::_fmt( "%lu bytes are more than the %lu before the data",
                                            U64{ count }, U64{ dataStart() } ) };
   }
   dataStartIs( dataStart() - count );
}

void Pkt::offsetOutside( U32 offset ) const {
   throw Kiv::RangeException{ "rawByte", Kiv::_fmt( "offset %lu is outside the %lu bytes of data",
                                                    U64{ offset }, U64{ size_ } ) };
}

Orlo::Ptr< Pkt > pktFactory( std::span< U8 const > bytes ) {
   return Orlo::Ptr< Pkt >::make( std::vector< U8 >( bytes.begin(), bytes.end() ) );
}

Orlo::Ptr< Pkt > pktFactory( std::vector< U8 > && buffer ) {
   return Orlo::Ptr< Pkt >::make( std::move( buffer ) );
}

} // namespace Velnet
