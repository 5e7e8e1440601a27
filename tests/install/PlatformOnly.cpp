#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"

int main() {
   Velnet::IpAddr const address( 10, 1, 2, 3 );
   return Kiv::_fmt( "%s/%d", address, 24u ) == "10.1.2.3/24" ? 0 : 1;
}
