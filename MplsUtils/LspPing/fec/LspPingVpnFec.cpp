#include "MplsUtils/LspPing/fec/LspPingVpnFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingVpnIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingVpnIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingVpnIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingVpnIpv6SubTlv >();

Orlo::String LspPingVpnIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid VpnIpv4SubTlv" );
   return Kiv::_fmt( "VpnIpv4( %lu, '%s/%d' )", rd(), ipPrefix(), prefixLen() );
}

Orlo::String LspPingVpnIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid VpnIpv6SubTlv" );
   return Kiv::_fmt( "VpnIpv6( %lu, '%s/%d' )", rd(), ipPrefix(), prefixLen() );
}

} // namespace LspPing
