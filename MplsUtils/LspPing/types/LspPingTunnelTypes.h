#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/types/Export.h"

// What is tested, and how, on the agent's side.
namespace LspPing {

KIV_ENUMERATION( LspPingMode, U32, modeLspPing = 1, modeLspTraceRoute = 2 );

KIV_ENUMERATION( LspPingTunnelType, U8, tunnelUnknown = 0, tunnelModeRaw = 1,
                 tunnelStaticConfig = 2, tunnelLdpIpv4 = 3, tunnelMldp = 4, tunnelRsvpIpv4 = 5,
                 tunnelSrIpv4 = 6, tunnelSrIpv6 = 7, tunnelOspfSrIpv4 = 8, tunnelPwLdp = 9,
                 tunnelBgpLuIpv4 = 10, tunnelBgpLuIpv6 = 11, tunnelVpnIpv4 = 12, tunnelVpnIpv6 = 13,
                 tunnelGenericIpv4 = 14, tunnelRsvpP2mpIpv4 = 15 );

/// IGP codes of the segment routing FECs, RFC 8287 section 5.
KIV_ENUMERATION( LspPingSrIgpProtocol, U32, ospf = 1, isis = 2 );

} // namespace LspPing
