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
   class LspPingSourceMepIdSubTlv >;

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
