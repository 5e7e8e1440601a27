#include "MplsUtils/LspPing/ext/tlv/LspPingResponderSubTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingResponderEgressIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingResponderEgressIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingResponderEgressIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingResponderEgressIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingResponderNodeIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingResponderNodeIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingResponderNodeIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingResponderNodeIpv6SubTlv >();

Orlo::String LspPingResponderEgressIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid ResponderEgressIpv4SubTlv" );
   return Kiv::_fmt( "ResponderEgressIpv4( '%s' )", address() );
}

Orlo::String LspPingResponderEgressIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid ResponderEgressIpv6SubTlv" );
   return Kiv::_fmt( "ResponderEgressIpv6( '%s' )", address() );
}

Orlo::String LspPingResponderNodeIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid ResponderNodeIpv4SubTlv" );
   return Kiv::_fmt( "ResponderNodeIpv4( '%s' )", address() );
}

Orlo::String LspPingResponderNodeIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid ResponderNodeIpv6SubTlv" );
   return Kiv::_fmt( "ResponderNodeIpv6( '%s' )", address() );
}

} // namespace LspPing
