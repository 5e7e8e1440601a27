#include "MplsUtils/LspPing/fec/LspPingRsvpFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingRsvpIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRsvpIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingRsvpP2mpIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRsvpP2mpIpv4SubTlv >();

Orlo::String LspPingRsvpIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid RsvpIpv4SubTlv" );
   return Kiv::_fmt( "RsvpIpv4:\tdestination(%s),\ttunnelId(%d),\textendedTunnelId(%s),"
                     "\tsenderAddress(%s),\tlspId(%d)",
                     destination(), tunnelId(), extendedTunnelId(), senderAddress(), lspId() );
}

Orlo::String LspPingRsvpP2mpIpv4SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid RsvpP2mpIpv4SubTlv" );
   return Kiv::_fmt( "RsvpP2mpIpv4:\tp2mpId(%d),\ttunnelId(%d),\textendedTunnelId(%s),"
                     "\tsenderAddress(%s),\tlspId(%d)",
                     p2mpId(), tunnelId(), extendedTunnelId(), senderAddress(), lspId() );
}

} // namespace LspPing
