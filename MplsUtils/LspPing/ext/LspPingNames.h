#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

// Numbers as text, by the names of enumerators.
namespace LspPing {

/// A code by the name that the first of the enumerations has for it, else as a number.
template < class... Codes >
struct LspPingCodeName {
   U32 code = 0;

   friend void appendText( Orlo::StringBuilder & out, LspPingCodeName const & name ) {
      std::string_view known;
      ( void( known = known.empty() ? Kiv::enumType< Codes >.name( name.code ) : known ), ... );
      if( known.empty() )
         out.appendDecimal( name.code );
      else
         out.append( known );
   }
};

/// Flags that have no letters, by the names of an enumeration without their "Flag": "keep", several
/// with
/// "+" between them, bits without a name as one number behind them, "none" without any.
template < class Flags >
struct LspPingFlagNames {
   U32 bits = 0;

   friend void appendText( Orlo::StringBuilder & out, LspPingFlagNames const & flags ) {
      U32 left = flags.bits;
      bool isFirst = true;
      auto const separate = [&] {
         if( !isFirst )
            out.append( '+' );
         isFirst = false;
      };
      for( auto const & row : Kiv::EnumerationOf< Flags >::rows ) {
         if( ( flags.bits & row.value ) == 0 )
            continue;
         separate();
         out.append(
            row.name().substr( 0, row.name().size() - std::string_view( "Flag" ).size() ) );
         left &= ~row.value;
      }
      if( left != 0 ) {
         separate();
         out.append( "0x" );
         out.appendHex( left, false );
      } else if( isFirst ) {
         out.append( "none" );
      }
   }
};

} // namespace LspPing
