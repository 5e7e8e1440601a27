#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"

// Codes of TLVs and sub-TLVs that stand beside those of types/LspPingTlvTypes.h, RFC 9041 section 6
// and the RFCs that came after it.
namespace LspPing {

/// Top-level TLVs. From 16384 on a receiver may ignore what it does not know where the most
/// significant bit is set.
KIV_ENUMERATION( LspPingExtTlvType, U32, LsrCapability = 4, DetailedIntfAndLabelStack = 6,
                 SourceId = 13, DestinationId = 14, BfdDiscriminator = 15,
                 ReversePathTargetFecStack = 16, ReplyPath = 21, ReplyTc = 22,
                 ProxyEchoParameters = 23, ReplyToAddress = 24, UpstreamNeighborAddress = 25,
                 DownstreamNeighborAddress = 26, MplsOamFunctions = 27, BfdReversePath = 16384,
                 RelayNodeAddressStack = 32768, TimeToLive = 32769, ReplyModeOrder = 32770,
                 Egress = 32771, VendorPrivate = 64512 );

/// Sub-TLVs of the Target FEC Stack, Reverse-path Target FEC Stack and Reply Path TLVs.
KIV_ENUMERATION( LspPingExtTargetFecSubTlvType, U32, FEC128PseudowireDeprecated = 9,
                 RSVPP2MPIpv6 = 18, Mp2mpFec = 20, StaticLsp = 22, StaticPseudowire = 23,
                 FEC128PseudowireIpv6 = 24, FEC129PseudowireIpv6 = 25, RSVPIpv4Tunnel = 26,
                 RSVPIpv6Tunnel = 27, StaticTunnel = 28, MTLDPIpv4 = 31, MTLDPIpv6 = 32,
                 IgpAdjacency = 36, P2mpPseudowire = 37, PeerAdjSid = 38, PeerNodeSid = 39,
                 PeerSetSid = 40, SrP2mpPolicy = 41, EvpnMacIp = 42, EvpnInclusiveMulticast = 43,
                 EvpnEthernetAd = 44, EvpnIpPrefix = 45, SegmentLabel = 46, SegmentIpv4Node = 47,
                 SegmentIpv6Node = 48, SrPolicyIpv4 = 49, SrCandidatePathIpv4 = 50,
                 SrSegmentListIpv4 = 51, SrPolicyIpv6 = 52, SrCandidatePathIpv6 = 53,
                 SrSegmentListIpv6 = 54 );

/// Sub-TLVs of the Downstream Detailed Mapping TLV, RFC 8611 sections 8 and 9.
KIV_ENUMERATION( LspPingExtDDMappingSubTlvType, U32, LocalIntfIndex = 4, RemoteIntfIndex = 5 );

/// Opaque values of a multipoint LDP FEC, RFC 6826 section 3, RFC 6512 and RFC 7246 section 3.
KIV_ENUMERATION( LspPingExtOpaqueValueType, U32, SGIpv6 = 4, BidirIpv4 = 5, BidirIpv6 = 6,
                 Recursive = 7, VpnRecursive = 8, VpnBidirIpv4 = 9, VpnBidirIpv6 = 10,
                 VpnSGIpv4 = 250, VpnSGIpv6 = 251, Extended = 255 );

/// FEC elements of multipoint LDP, as they stand in a recursive opaque value, RFC 6388 sections
/// 2.2 and 3.2.
KIV_ENUMERATION( LspPingMldpFecType, U32, P2MP = 6, MP2MPUpstream = 7, MP2MPDownstream = 8 );

/// Sub-TLVs of the Detailed Interface and Label Stack TLV, RFC 8611 section 10.1.
KIV_ENUMERATION( LspPingDetailedIntfSubTlvType, U32, IncomingLabelStack = 1,
                 IncomingIntfIndex = 2 );

/// Sub-TLVs of the Proxy Echo Parameters TLV, RFC 7555 section 5.1.1.
KIV_ENUMERATION( LspPingProxySubTlvType, U32, NextHop = 1 );

/// Sub-TLVs of the MPLS OAM Functions TLV and of each other, RFC 7759 section 2.2.
KIV_ENUMERATION( LspPingOamFunctionSubTlvType, U32, BfdConfiguration = 100,
                 BfdLocalDiscriminator = 101, BfdNegotiationTimers = 102, BfdAuthentication = 103,
                 TrafficClass = 104, PerformanceMonitoring = 200, PmLossMeasurement = 201,
                 PmDelayMeasurement = 202, FaultManagementSignal = 300, SourceMepId = 400 );

} // namespace LspPing
