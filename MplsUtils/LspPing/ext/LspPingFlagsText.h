#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

namespace LspPing {

/// Letters of single bits, the most significant one first, and the rest as a number: "RV+0x10".
/// \param letters  Beginning with that of the least significant bit.
inline void appendFlags( Orlo::StringBuilder & out, std::string_view letters, U32 flags ) {
   for( std::size_t bit = letters.size(); bit-- > 0; )
      if( ( flags >> bit & 1 ) != 0 )
         out.append( letters[bit] );
   if( U32 const rest = flags >> letters.size() << letters.size() ) {
      out.append( "+0x" );
      out.appendHex( rest, false );
   }
}

} // namespace LspPing
