#include "MplsUtils/LspPing/ext/tlv/LspPingProxyTlv.h"

#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/ext/LspPingNames.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingProxyEchoParametersIpv4Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingProxyEchoParametersIpv4Tlv >();
constinit Kiv::AllocationTracker LspPingProxyEchoParametersIpv6Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingProxyEchoParametersIpv6Tlv >();
constinit Kiv::AllocationTracker LspPingReplyToAddressIpv4Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingReplyToAddressIpv4Tlv >();
constinit Kiv::AllocationTracker LspPingReplyToAddressIpv6Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingReplyToAddressIpv6Tlv >();
constinit Kiv::AllocationTracker LspPingUpstreamNeighborAddressTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingUpstreamNeighborAddressTlv >();
constinit Kiv::AllocationTracker LspPingDownstreamNeighborAddressTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamNeighborAddressTlv >();

namespace {

template < class View >
Orlo::String parametersText( View const & view, std::string_view name ) {
   if( !view.valid() )
      return Kiv::_fmt( "Invalid %sTlv", name );
   return Kiv::_fmt( "%s( '%s', reply mode: %s, flags: %s, TTL: %d, DSCP: %d, source port: %d, "
                     "global flags: %s, payload size: %d )",
                     name, view.destinationAddr(),
                     LspPingCodeName< LspPingReplyMode, LspPingExtReplyMode >{ view.replyMode() },
                     LspPingFlagNames< LspPingProxyFlags >{ view.proxyFlags() }, view.ttl(),
                     view.requestedDscp(), view.sourceUdpPort(),
                     LspPingFlagText< LspPingHeaderFlags >{ view.globalFlags() },
                     view.mplsPayloadSize() );
}

template < class View >
Orlo::String replyToText( View const & view, std::string_view name ) {
   return view.valid() ? Kiv::_fmt( "%s( '%s' )", name, view.address() )
                       : Kiv::_fmt( "Invalid %sTlv", name );
}

template < class View >
Orlo::String neighborText( View const & view, std::string_view name ) {
   return view.valid()
             ? Kiv::_fmt( "%s( %s, local: %s )", name, LspPingAddressText{ view.neighborAddr() },
                          LspPingAddressText{ view.localAddr() } )
             : Kiv::_fmt( "Invalid %sTlv", name );
}

} // namespace

Orlo::String LspPingProxyEchoParametersIpv4Tlv::stringValue() const {
   return parametersText( *this, "ProxyEchoParametersIpv4" );
}

Orlo::String LspPingProxyEchoParametersIpv6Tlv::stringValue() const {
   return parametersText( *this, "ProxyEchoParametersIpv6" );
}

Orlo::String LspPingReplyToAddressIpv4Tlv::stringValue() const {
   return replyToText( *this, "ReplyToAddressIpv4" );
}

Orlo::String LspPingReplyToAddressIpv6Tlv::stringValue() const {
   return replyToText( *this, "ReplyToAddressIpv6" );
}

Orlo::String LspPingUpstreamNeighborAddressTlv::stringValue() const {
   return neighborText( *this, "UpstreamNeighborAddress" );
}

Orlo::String LspPingDownstreamNeighborAddressTlv::stringValue() const {
   return neighborText( *this, "DownstreamNeighborAddress" );
}

} // namespace LspPing
