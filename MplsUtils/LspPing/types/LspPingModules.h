#pragma once

#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

enum class LspPingFecStackChangeSubTlvOperType : U32;
enum class LspPingFecStackChangeSubTlvAddressType : U32;

enum class LspPingVendorIana : U32;
enum class LspPingTunnelType : U8;
enum class LspPingMode : U32;
enum class LspPingMsgType : U32;
enum class LspPingHeaderFlags : U32;
enum class LspPingReplyMode : U32;
enum class LspPingReturnCode : U32;
enum class LspPingAddrType : U32;
enum class LspPingMultipathType : U32;
enum class LspPingDownstreamMappingType : U8;
enum class LspPingDownstreamMappingTlvIpAndIntfLen : U32;
enum class LspPingDownstreamSignalingProtocol : U32;
enum class LspPingIntfAndLabelStackTlvIpAndIntfLen : U32;
enum class LspPingSrIgpProtocol : U32;

/// The types of module LspPingHdr in their registered order, which other programs rely on: a type
/// never moves. The two containers, the two enumerations and the parsers have places of old; the
/// others stand around them folder by folder.
using LspPingHdrTypes = Kiv::TypeList<
   // framing, from 0
   class LspPingTlvHdr, class LspPingTlvU8Hdr, class LspPingHdr, class NtpTime, class NtpTimeU64,
   // fec, from 5
   class LspPingLdpIpv4SubTlv, class LspPingGenericIpv4SubTlv, class LspPingGenericIpv6SubTlv,
   class LspPingBgpLuIpv4SubTlv, class LspPingBgpLuIpv6SubTlv, class LspPingRsvpIpv4SubTlv,
   class LspPingRsvpP2mpIpv4SubTlv, class LspPingVpnIpv4SubTlv, class LspPingVpnIpv6SubTlv,
   class LspPingSrIpv4SubTlv, class LspPingSrIpv6SubTlv, class LspPingNilFecSubTlvLabel,
   class LspPingNilFecSubTlv, class LspPingEntropyLabelFecSubTlvLabel,
   class LspPingEntropyLabelFecSubTlv, class LspPingNodeAddrSubTlv, class LspPingP2mpFecStackSubTlv,
   class LspPingOpaqueValGenSubTlv, class LspPingOpaqueValSGSubTlv, class LspPingFec128Ipv4SubTlv,
   class LspPingFec129Ipv4SubTlv,
   // mapping, from 26
   class LspPingDownstreamMappingHdr, class LspPingDownstreamMappingIpv4Tlv,
   class LspPingDownstreamMappingIpv4UnnumberedTlv, class LspPingDownstreamMappingIpv6Tlv,
   class LspPingDownstreamMappingIpv6UnnumberedTlv, class LspPingDdmapHdr,
   class LspPingIntfAndLabelStackTlvContainer, // 32
   class LspPingDdmapTlv, class LspPingDdmapUnnumberedTlv, class LspPingDdmapV6Tlv,
   class LspPingDdmapV6UnnumberedTlv, class LspPingMultipathSubTlv,
   class LspPingFecStackChangeSubTlv,
   class LspPingDownstreamMappingTlvContainer, // 39
   class LspPingFecStackChangeV4SubTlv, class LspPingFecStackChangeV6SubTlv,
   class LspPingFecStackChangeUnspecifiedSubTlv, class LspPingMultiLabelSubTlv,
   class LspPingIntfAndLabelStackHdr, class LspPingIntfAndLabelStackIpv4Tlv,
   class LspPingIntfAndLabelStackIpv4UnnumberedTlv, class LspPingIntfAndLabelStackIpv6Tlv,
   class LspPingIntfAndLabelStackIpv6UnnumberedTlv,
   // tlv, from 49
   class LspPingPadTlv, class LspPingReplyTosTlv, class LspPingEchoJitterTlv,
   class LspPingVeloraVendorPrivateTlv,
   // record, from 53
   class LspPingFecInfo, class LspPingFecStack, class LspPingDownstreamLabelEntry,
   class LspPingDownstreamLabelStack, class LspPingMultipathBitset,
   LspPingFecStackChangeSubTlvOperType,    // 58
   LspPingFecStackChangeSubTlvAddressType, // 59
   class LspPingDownstreamMappingInfo, class LspPingDownstreamMappingInfoSet,
   class LspPingFecStackChangeInfo, class LspPingIntfAndLabelStackInfo, class LspPingPadInfo,
   // the parser family, 65 to 94
   class LspPingHdrParser, class LspPingNodeAddrSubTlvParser, class LspPingEchoJitterTlvParser,
   class LspPingP2mpFecStackSubTlvParser, class LspPingOpaqueValGenSubTlvParser,
   class LspPingOpaqueValSGSubTlvParser, class LspPingDdmapTlvParser,
   class LspPingMultipathSubTlvParser, class LspPingFecStackChangeV4SubTlvParser,
   class LspPingFecStackChangeV6SubTlvParser, class LspPingFecStackChangeUnspecifiedSubTlvParser,
   class LspPingLdpIpv4SubTlvParser, class LspPingRsvpIpv4SubTlvParser,
   class LspPingRsvpP2mpIpv4SubTlvParser, class LspPingVpnIpv4SubTlvParser,
   class LspPingVpnIpv6SubTlvParser, class LspPingFec128Ipv4SubTlvParser,
   class LspPingFec129Ipv4SubTlvParser, class LspPingSrIpv4SubTlvParser,
   class LspPingSrIpv6SubTlvParser, class LspPingNilFecSubTlvParser,
   class LspPingBgpLuIpv4SubTlvParser, class LspPingBgpLuIpv6SubTlvParser,
   class LspPingGenericIpv4SubTlvParser, class LspPingGenericIpv6SubTlvParser,
   class LspPingEntropyLabelFecSubTlvParser, class LspPingReplyTosTlvParser,
   class LspPingPadTlvParser, class LspPingVeloraVendorPrivateTlvParser,
   class LspPingMultiLabelSubTlvParser // 94: what is new comes behind it
   >;
static_assert( LspPingHdrTypes::indexOf< LspPingIntfAndLabelStackTlvContainer >() == 32 );
static_assert( LspPingHdrTypes::indexOf< LspPingDownstreamMappingTlvContainer >() == 39 );
static_assert( LspPingHdrTypes::indexOf< LspPingFecStackChangeSubTlvOperType >() == 58 );
static_assert( LspPingHdrTypes::indexOf< LspPingHdrParser >() == 65 );
static_assert( LspPingHdrTypes::indexOf< LspPingMultiLabelSubTlvParser >() == 94 );

/// The types of module LspPingTypes in their registered order.
using LspPingTypesTypes =
   Kiv::TypeList< LspPingVendorIana, LspPingTunnelType, LspPingMode, class LspPingConstant,
                  LspPingMsgType, LspPingHeaderFlags, LspPingReplyMode, LspPingTlvType,
                  LspPingP2mpRespTlvType, LspPingDDMappingSubTlvType, LspPingTargetFecSubTlvType,
                  LspPingP2mpFecStackSubTlvType, LspPingReturnCode, LspPingAddrType,
                  LspPingMultipathType, LspPingDownstreamMappingType,
                  LspPingDownstreamMappingTlvIpAndIntfLen, LspPingDownstreamSignalingProtocol,
                  LspPingIntfAndLabelStackTlvIpAndIntfLen, LspPingVeloraVendorPrivateType,
                  LspPingSrIgpProtocol, class LspPingPwInfo,
                  LspPingPadType // 22: what is new comes behind it
                  >;
static_assert( LspPingTypesTypes::indexOf< LspPingPadType >() == 22 );

// Numbers 0 to 15 are the platform's.
inline constexpr U16 lspPingHdrModule = 16;
inline constexpr U16 lspPingTypesModule = 17;

template < class T >
requires LspPingHdrTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { lspPingHdrModule, LspPingHdrTypes::indexOf< T >() };
}

template < class T >
requires LspPingTypesTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { lspPingTypesModule, LspPingTypesTypes::indexOf< T >() };
}

} // namespace LspPing
