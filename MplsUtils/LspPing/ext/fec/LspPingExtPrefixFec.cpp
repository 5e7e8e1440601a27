#include "MplsUtils/LspPing/ext/fec/LspPingExtPrefixFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingLdpIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingLdpIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingMtLdpIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingMtLdpIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingMtLdpIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingMtLdpIpv6SubTlv >();

Orlo::String LspPingLdpIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LdpIpv6SubTlv" );
   return Kiv::_fmt( "LdpIpv6( '%s/%d' )", ipPrefix(), prefixLen() );
}

Orlo::String LspPingMtLdpIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid MtLdpIpv4SubTlv" );
   return Kiv::_fmt( "MtLdpIpv4( '%s/%d', topology: %d )", ipPrefix(), prefixLen(), mtId() );
}

Orlo::String LspPingMtLdpIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid MtLdpIpv6SubTlv" );
   return Kiv::_fmt( "MtLdpIpv6( '%s/%d', topology: %d )", ipPrefix(), prefixLen(), mtId() );
}

} // namespace LspPing
