#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

int main() {
   Velnet::IpAddr const address( 10, 1, 2, 3 );
   bool const shown = Kiv::_fmt( "%s/%d", address, 24u ) == "10.1.2.3/24";
   // Nothing of LSP Ping came along.
   return shown && !Kiv::typeNamed( "LspPing::LspPingHdr" ) ? 0 : 1;
}
