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
