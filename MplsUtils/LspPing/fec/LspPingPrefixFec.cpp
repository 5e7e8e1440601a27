#include "MplsUtils/LspPing/fec/LspPingPrefixFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingLdpIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingLdpIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingGenericIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingGenericIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingGenericIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingGenericIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingBgpLuIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBgpLuIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingBgpLuIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBgpLuIpv6SubTlv >();

Orlo::String LspPingLdpIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LdpIpv4SubTlv" );
   return Kiv::_fmt( "LdpIpv4( '%s/%d' )", ipPrefix(), prefixLen() );
}

// The two Generic FECs are the only prefixes without a text for invalid bytes.
Orlo::String LspPingGenericIpv4SubTlv::stringValue() const {
   if( !valid() )
      return {};
   return Kiv::_fmt( "GenericIpv4( '%s/%d' )", ipPrefix(), prefixLen() );
}

Orlo::String LspPingGenericIpv6SubTlv::stringValue() const {
   if( !valid() )
      return {};
   return Kiv::_fmt( "GenericIpv6( '%s/%d' )", ipPrefix(), prefixLen() );
}

Orlo::String LspPingBgpLuIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid BgpLuIpv4SubTlv" );
   return Kiv::_fmt( "BgpLuIpv4( '%s/%d' )", ipPrefix(), prefixLen() );
}

Orlo::String LspPingBgpLuIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid BgpLuIpv6SubTlv" );
   return Kiv::_fmt( "BgpLuIpv6( '%s/%d' )", ipPrefix(), prefixLen() );
}

} // namespace LspPing
