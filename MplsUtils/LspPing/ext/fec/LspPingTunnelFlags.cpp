#include "MplsUtils/LspPing/ext/fec/LspPingTunnelFlags.h"

#include "MplsUtils/LspPing/ext/LspPingFlagsText.h"

namespace LspPing {

Orlo::String lspPingTunnelFlagsText( U16 flags ) {
   if( flags == 0 )
      return Orlo::stringOf( "none" );
   Orlo::StringBuilder text;
   appendFlags( text, "PS", flags );
   return std::move( text ).string();
}

} // namespace LspPing
