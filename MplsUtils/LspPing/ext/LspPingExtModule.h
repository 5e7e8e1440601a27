#pragma once

#include "MplsUtils/LspPing/ext/types/LspPingExtMappingTypes.h"
#include "MplsUtils/LspPing/ext/types/LspPingExtMessageTypes.h"
#include "MplsUtils/LspPing/ext/types/LspPingExtTlvTypes.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"

namespace LspPing {

/// The types of module LspPingExt in their registered order: what the registries know beside the
/// modules LspPingHdr and LspPingTypes. What is new comes to the end.
using LspPingExtTypes = Kiv::TypeList<
   // enumerations, from 0; contexts are numbered by their places
   LspPingExtTlvType, LspPingExtTargetFecSubTlvType, LspPingExtDDMappingSubTlvType,
   LspPingExtOpaqueValueType, LspPingDetailedIntfSubTlvType, LspPingProxySubTlvType,
   LspPingOamFunctionSubTlvType, LspPingExtMsgType, LspPingExtReplyMode, LspPingExtReturnCode,
   LspPingReplyPathReturnCode, LspPingExtAddrType, LspPingExtMultipathType, LspPingExtSrIgpProtocol,
   LspPingExtDownstreamSignalingProtocol, LspPingAdjacencyType, LspPingPeerAdjType,
   LspPingRelayAddrType, LspPingDownstreamFlags, LspPingReplyPathFlags, LspPingTunnelFlags,
   LspPingProxyFlags, LspPingOamFunctionFlags, LspPingLsrCapabilityFlags, LspPingIntfIndexFlags,
   LspPingSegmentFlags, LspPingTimeToLiveFlags, LspPingRelayFlags,
   // fec
   class LspPingLdpIpv6SubTlv, class LspPingMtLdpIpv4SubTlv, class LspPingMtLdpIpv6SubTlv,
   // mapping
   class LspPingDdmapNonIpTlv, class LspPingDownstreamMappingNonIpTlv,
   // tlv
   class LspPingVendorPrivateTlv,
   // fec/LspPingAdjacencyFec.h, fec/LspPingSrPolicyFec.h and fec/LspPingSegmentFec.h
   class LspPingIgpAdjacencyIpv4SubTlv, class LspPingIgpAdjacencyIpv4IsisSubTlv,
   class LspPingIgpAdjacencyIpv6SubTlv, class LspPingIgpAdjacencyIpv6IsisSubTlv,
   class LspPingPeerAdjSidIpv4SubTlv, class LspPingPeerAdjSidIpv6SubTlv,
   class LspPingPeerNodeSidSubTlv, class LspPingPeerSetSidSubTlv,
   class LspPingSrP2mpPolicyIpv4SubTlv, class LspPingSrP2mpPolicyIpv6SubTlv,
   class LspPingSrPolicyIpv4SubTlv, class LspPingSrCandidatePathIpv4SubTlv,
   class LspPingSrSegmentListIpv4SubTlv, class LspPingSrPolicyIpv6SubTlv,
   class LspPingSrCandidatePathIpv6SubTlv, class LspPingSrSegmentListIpv6SubTlv,
   class LspPingSegmentLabelSubTlv, class LspPingSegmentIpv4NodeSubTlv,
   class LspPingSegmentIpv6NodeSubTlv,
   // fec/LspPingExtRsvpFec.h
   class LspPingRsvpIpv6SubTlv, class LspPingRsvpP2mpIpv6SubTlv, class LspPingRsvpTunnelIpv4SubTlv,
   class LspPingRsvpTunnelIpv6SubTlv,
   // fec/LspPingStaticFec.h
   class LspPingStaticLspSubTlv, class LspPingStaticPseudowireSubTlv,
   class LspPingStaticTunnelSubTlv,
   // fec/LspPingExtPseudowireFec.h
   class LspPingL2VpnEndpointSubTlv, class LspPingFec128DeprecatedSubTlv,
   class LspPingFec128Ipv6SubTlv, class LspPingFec129Ipv6SubTlv, class LspPingP2mpPseudowireSubTlv,
   // fec/LspPingMldpFec.h
   class LspPingP2mpFecStackIpv6SubTlv, class LspPingMp2mpFecStackIpv4SubTlv,
   class LspPingMp2mpFecStackIpv6SubTlv,
   // fec/LspPingOpaqueValues.h
   LspPingMldpFecType, class LspPingOpaqueValSGIpv6SubTlv, class LspPingOpaqueValBidirIpv4SubTlv,
   class LspPingOpaqueValBidirIpv6SubTlv, class LspPingOpaqueValVpnSGIpv4SubTlv,
   class LspPingOpaqueValVpnSGIpv6SubTlv, class LspPingOpaqueValVpnBidirIpv4SubTlv,
   class LspPingOpaqueValVpnBidirIpv6SubTlv, class LspPingOpaqueValRecursiveIpv4SubTlv,
   class LspPingOpaqueValRecursiveIpv6SubTlv, class LspPingOpaqueValVpnRecursiveIpv4SubTlv,
   class LspPingOpaqueValVpnRecursiveIpv6SubTlv, class LspPingOpaqueValExtendedSubTlv,
   // fec/LspPingEvpnFec.h
   class LspPingEvpnMacSubTlv, class LspPingEvpnMacIpv4SubTlv, class LspPingEvpnMacIpv6SubTlv,
   class LspPingEvpnInclusiveMulticastIpv4SubTlv, class LspPingEvpnInclusiveMulticastIpv6SubTlv,
   class LspPingEvpnEthernetAdSubTlv, class LspPingEvpnIpv4PrefixSubTlv,
   class LspPingEvpnIpv6PrefixSubTlv,
   // mapping: LspPingMappingSubTlv.h, LspPingDetailedIntfTlv.h
   class LspPingLabelStackSubTlv, class LspPingLocalIntfIndexSubTlv,
   class LspPingRemoteIntfIndexSubTlv, class LspPingDetailedIntfIpv4Tlv,
   class LspPingDetailedIntfIpv4UnnumberedTlv, class LspPingDetailedIntfIpv6Tlv,
   class LspPingDetailedIntfIpv6UnnumberedTlv, class LspPingIncomingLabelStackSubTlv,
   class LspPingIncomingIntfIndexSubTlv,
   // oam
   class LspPingOamFunctionsTlv, class LspPingBfdConfigurationSubTlv,
   class LspPingBfdLocalDiscriminatorSubTlv, class LspPingBfdNegotiationTimersSubTlv,
   class LspPingBfdAuthenticationSubTlv, class LspPingOamTrafficClassSubTlv,
   class LspPingPerformanceMonitoringSubTlv, class LspPingPmLossMeasurementSubTlv,
   class LspPingPmDelayMeasurementSubTlv, class LspPingFaultManagementSignalSubTlv,
   class LspPingSourceMepIdSubTlv,
   // tlv: LspPingIdentifierTlv, LspPingContainerTlv, LspPingReplyTlv,
   // LspPingProxyTlv, LspPingNextHopSubTlv, LspPingRelayTlv, LspPingResponderSubTlv
   class LspPingLsrCapabilityTlv, class LspPingVendorEnterpriseNumberTlv, class LspPingSourceIdTlv,
   class LspPingDestinationIdTlv, class LspPingBfdDiscriminatorTlv, class LspPingReplyTcTlv,
   class LspPingErroredTlvsTlv, class LspPingReversePathTargetFecStackTlv,
   class LspPingBfdReversePathTlv, class LspPingReplyPathTlv, class LspPingTimeToLiveTlv,
   class LspPingReplyModeOrderTlv, class LspPingEgressIpv4Tlv, class LspPingEgressIpv6Tlv,
   class LspPingProxyEchoParametersIpv4Tlv, class LspPingProxyEchoParametersIpv6Tlv,
   class LspPingNextHopIpv4SubTlv, class LspPingNextHopIpv4UnnumberedSubTlv,
   class LspPingNextHopIpv6SubTlv, class LspPingNextHopIpv6UnnumberedSubTlv,
   class LspPingNextHopIpv4AdjSubTlv, class LspPingNextHopIpv6AdjSubTlv,
   class LspPingReplyToAddressIpv4Tlv, class LspPingReplyToAddressIpv6Tlv,
   class LspPingUpstreamNeighborAddressTlv, class LspPingDownstreamNeighborAddressTlv,
   class LspPingRelayNodeAddressStackTlv, class LspPingResponderEgressIpv4SubTlv,
   class LspPingResponderEgressIpv6SubTlv, class LspPingResponderNodeIpv4SubTlv,
   class LspPingResponderNodeIpv6SubTlv >;

// Behind the library's, see types/LspPingModules.h.
inline constexpr U16 lspPingExtModule = 18;

template < class T >
requires LspPingExtTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { lspPingExtModule, LspPingExtTypes::indexOf< T >() };
}

template < class Codes >
requires LspPingExtTypes::contains< Codes >
constexpr LspPingContext lspPingContext( Kiv::Of< Codes > ) noexcept {
   return static_cast< LspPingContext >( LspPingTypesTypes::size +
                                         LspPingExtTypes::indexOf< Codes >() );
}

// These add codes to others.
constexpr LspPingContext lspPingContext( Kiv::Of< LspPingExtTlvType > ) noexcept {
   return LspPingContext::message;
}
constexpr LspPingContext lspPingContext( Kiv::Of< LspPingExtTargetFecSubTlvType > ) noexcept {
   return LspPingContext::targetFec;
}
constexpr LspPingContext lspPingContext( Kiv::Of< LspPingExtDDMappingSubTlvType > ) noexcept {
   return LspPingContext::ddmap;
}
constexpr LspPingContext lspPingContext( Kiv::Of< LspPingExtOpaqueValueType > ) noexcept {
   return LspPingContext::opaqueValue;
}

} // namespace LspPing
