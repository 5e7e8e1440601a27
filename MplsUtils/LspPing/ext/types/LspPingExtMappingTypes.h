#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"

// Address types, protocols and flags beside types/LspPingMappingTypes.h.
namespace LspPing {

/// Of the mappings and of the next hop: RFC 6426 section 2.1.1 and RFC 7555 section 5.1.1.
KIV_ENUMERATION( LspPingExtAddrType, U32, noAddress = 0, nonIp = 5, ipv4ProtocolAdj = 6,
                 ipv6ProtocolAdj = 7 );

/// RFC 8012 section 6.
KIV_ENUMERATION( LspPingExtMultipathType, U32, ipAndLabelSetMultipath = 10 );

/// RFC 8287 section 5 and RFC 9214 section 5.1.
KIV_ENUMERATION( LspPingExtSrIgpProtocol, U32, srIgpAny = 0, srIgpOspfv3 = 3 );

/// RFC 9214 section 5.2.
KIV_ENUMERATION( LspPingExtDownstreamSignalingProtocol, U32, dsInfoSignalingProtocolOspfv3 = 7 );

/// Of an IGP adjacency, RFC 8287 section 9.3.
KIV_ENUMERATION( LspPingAdjacencyType, U32, unnumberedAdjacency = 0, parallelAdjacency = 1,
                 ipv4Adjacency = 4, ipv6Adjacency = 6 );

/// Of a BGP peer's adjacency, RFC 9703 section 4.2.
KIV_ENUMERATION( LspPingPeerAdjType, U32, ipv4PeerAdj = 1, ipv6PeerAdj = 2 );

/// In the relay node address stack, RFC 7743 section 3.2.
KIV_ENUMERATION( LspPingRelayAddrType, U32, nullRelayAddr = 0, ipv4RelayAddr = 1,
                 ipv6RelayAddr = 2 );

/// Bits of a mapping's DS flags: RFC 8029 section 3.4, RFC 8012 section 4 and RFC 8611 section 5.
KIV_ENUMERATION( LspPingDownstreamFlags, U32, nFlag = 1, iFlag = 2, eFlag = 4, lFlag = 8,
                 gFlag = 16 );

/// Bits of the Reply Path TLV, RFC 7110 section 4.2.
KIV_ENUMERATION( LspPingReplyPathFlags, U32, bidirectionalFlag = 1, alternativePathFlag = 2 );

/// Bits of the tunnels' sub-TLVs, RFC 7110 section 4.3.
KIV_ENUMERATION( LspPingTunnelFlags, U32, primaryFlag = 1, secondaryFlag = 2 );

/// Bits of the Proxy Echo Parameters TLV, RFC 7555 section 5.1. RFC 7555 numbers them from the
/// least significant one, unlike all others here.
KIV_ENUMERATION( LspPingProxyFlags, U32, fecNeighborFlag = 1, mappingFlag = 2,
                 detailedMappingFlag = 4, explicitDscpFlag = 8 );

/// Bits of the MPLS OAM Functions TLV, RFC 7759 section 2.2.
KIV_ENUMERATION( LspPingOamFunctionFlags, U32, continuityCheckFlag = 2147483648,
                 connectivityVerificationFlag = 1073741824, faultManagementFlag = 536870912,
                 lossMeasurementFlag = 268435456, delayMeasurementFlag = 134217728,
                 throughputFlag = 67108864 );

/// Bits of the LSR Capability TLV, RFC 8611 section 6.
KIV_ENUMERATION( LspPingLsrCapabilityFlags, U32, downstreamLagFlag = 1, upstreamLagFlag = 2 );

/// Bits of the Incoming Interface Index sub-TLV, RFC 8611 section 10.1.2.
KIV_ENUMERATION( LspPingIntfIndexFlags, U32, lagMemberFlag = 1 );

/// Bits of the segments in a Reply Path TLV, RFC 9716 section 4.
KIV_ENUMERATION( LspPingSegmentFlags, U32, srAlgorithmFlag = 64 );

/// Bits of the Time To Live TLV, RFC 7394 section 3.1.
KIV_ENUMERATION( LspPingTimeToLiveFlags, U32, replyTtlFlag = 1 );

/// Bits of an entry of the relay node address stack, RFC 7743 section 3.2.
KIV_ENUMERATION( LspPingRelayFlags, U32, keepFlag = 128 );

} // namespace LspPing
