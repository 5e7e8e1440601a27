#include "MplsUtils/LspPing/ext/fec/LspPingExtRsvpFec.h"

#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingRsvpIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRsvpIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingRsvpP2mpIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRsvpP2mpIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingRsvpTunnelIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRsvpTunnelIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingRsvpTunnelIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRsvpTunnelIpv6SubTlv >();

namespace {

template < class View >
Orlo::String tunnelText( View const & tunnel, std::string_view name ) {
   if( !tunnel.valid() )
      return Kiv::_fmt( "Invalid %sSubTlv", name );
   return Kiv::_fmt( "%s( destination: '%s', flags: %s, tunnel: %d, extended tunnel: '%s', "
                     "sender: '%s' )",
                     name, tunnel.destination(),
                     LspPingFlagText< LspPingTunnelFlags >{ tunnel.flags() }, tunnel.tunnelId(),
                     tunnel.extendedTunnelId(), tunnel.senderAddress() );
}

} // namespace

Orlo::String LspPingRsvpIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid RsvpIpv6SubTlv" );
   return Kiv::_fmt( "RsvpIpv6( destination: '%s', tunnel: %d, extended tunnel: '%s', "
                     "sender: '%s', LSP: %d )",
                     destination(), tunnelId(), extendedTunnelId(), senderAddress(), lspId() );
}

Orlo::String LspPingRsvpP2mpIpv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid RsvpP2mpIpv6SubTlv" );
   return Kiv::_fmt( "RsvpP2mpIpv6( P2MP id: %lu, tunnel: %d, extended tunnel: '%s', "
                     "sender: '%s', LSP: %d )",
                     U64{ p2mpId() }, tunnelId(), extendedTunnelId(), senderAddress(), lspId() );
}

Orlo::String LspPingRsvpTunnelIpv4SubTlv::stringValue() const {
   return tunnelText( *this, "RsvpTunnelIpv4" );
}

Orlo::String LspPingRsvpTunnelIpv6SubTlv::stringValue() const {
   return tunnelText( *this, "RsvpTunnelIpv6" );
}

} // namespace LspPing
