#include "MplsUtils/LspPing/ext/fec/LspPingMldpFec.h"

#include "MplsUtils/LspPing/ext/LspPingViewName.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

namespace {

template < class View >
Orlo::String textOf( View const & fec ) noexcept {
   if( !fec.valid() )
      return lspPingInvalid( fec );
   return Kiv::_fmt( "%s( root: '%s' )", lspPingShortName< View >(), fec.rootAddr() );
}

} // namespace

constinit Kiv::AllocationTracker LspPingP2mpFecStackIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingP2mpFecStackIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingMp2mpFecStackIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingMp2mpFecStackIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingMp2mpFecStackIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingMp2mpFecStackIpv6SubTlv >();

Orlo::String LspPingP2mpFecStackIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingMp2mpFecStackIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingMp2mpFecStackIpv6SubTlv::stringValue() const {
   return textOf( *this );
}

} // namespace LspPing
