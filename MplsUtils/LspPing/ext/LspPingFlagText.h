#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

#include <array>
#include <bit>
#include <string_view>

namespace LspPing {

/// The letters of an enumeration of flags in which each name begins with its letter and the lowest
/// bits are taken: that of the highest bit first, as `lspPingAppendFlags` wants them.
template < class Flags >
inline constexpr auto lspPingFlagLetters = [] {
   constexpr auto & rows = Kiv::EnumerationOf< Flags >::rows;
   std::array< char, rows.size() > letters{};
   for( Kiv::Enumerator const & row : rows ) {
      auto const bit = static_cast< std::size_t >( std::countr_zero( row.value ) );
      letters[rows.size() - 1 - bit] = static_cast< char >( row.name().front() - 'a' + 'A' );
   }
   return letters;
}();

/// Flags by their letters, the last one for the lowest bit; the others as one number behind them,
/// "V+0x8". Nothing without any.
inline void lspPingAppendFlags( Orlo::StringBuilder & out, std::string_view letters, U32 flags ) {
   for( std::size_t i = 0; i < letters.size(); ++i )
      if( ( flags >> ( letters.size() - 1 - i ) & 1 ) != 0 )
         out.append( letters[i] );
   if( U32 const rest = flags >> letters.size() << letters.size() ) {
      out.append( "+0x" );
      out.appendHex( rest, false );
   }
}

/// An enumeration's flags as text: "AB", "B+0x8", or "none".
template < class Flags >
struct LspPingFlagText {
   U32 flags = 0;

   friend void appendText( Orlo::StringBuilder & out, LspPingFlagText const & text ) {
      constexpr auto & letters = lspPingFlagLetters< Flags >;
      if( text.flags == 0 )
         out.append( "none" );
      lspPingAppendFlags( out, { letters.data(), letters.size() }, text.flags );
   }
};

/// As a field of a view's text: "flags: NB", or "flags: none".
inline void lspPingAppendFlagField( Orlo::StringBuilder & out, std::string_view letters,
                                    U32 flags ) {
   out.append( flags == 0 ? "flags: none" : "flags: " );
   lspPingAppendFlags( out, letters, flags );
}

} // namespace LspPing
