#include "tests/module/ExpectedTypes.h"

namespace {

constexpr std::string_view view = "pointer-interface";
constexpr std::string_view value = "value";
constexpr std::string_view object = "object";
constexpr std::string_view enumeration = "enumeration";

constexpr std::string_view prefix4 = "ipPrefix Velnet::IpAddr rw, prefixLen U8 rw, mbz0 U8 rw, "
                                     "mbz1 U16 rw, valid bool r, stringValue Orlo::String r";
constexpr std::string_view prefix6 = "ipPrefix Velnet::Ip6Addr rw, prefixLen U8 rw, mbz0 U8 rw, "
                                     "mbz1 U16 rw, valid bool r, stringValue Orlo::String r";
constexpr std::string_view labelWord = "labelNbo U32 rw, mbz U32 rw";

// clang-format off
constexpr ExpectedType hdrTypes[] = {
   { 0, "LspPingTlvHdr", view, "", 4,
     "typeNbo U16 rw, lengthNbo U16 rw, type U16 rw, length U16 rw, totalLength U16 r" },
   { 1, "LspPingTlvU8Hdr", view, "", 3, "type U8 rw, length U16 rw, totalLength U16 r" },
   { 2, "LspPingHdr", view, "", 32,
     "versionNbo U16 rw, globalFlagsNbo U16 rw, messageType U8 rw, replyMode U8 rw, "
     "returnCode U8 rw, returnSubcode U8 rw, senderHandleNbo U32 rw, sequenceNumberNbo U32 rw, "
     "tsSentSecondsNbo U32 rw, tsSentmSecondsNbo U32 rw, tsRcvdSecondsNbo U32 rw, "
     "tsRcvdmSecondsNbo U32 rw, version U16 rw, globalFlags U16 rw, senderHandle U32 rw, "
     "sequenceNumber U32 rw, tsSentSeconds U32 rw, tsSentmSeconds U32 rw, tsRcvdSeconds U32 rw, "
     "tsRcvdmSeconds U32 rw, valid bool r, stringValue Orlo::String r" },
   { 3, "NtpTime", view, "", 0,
     "ntpSeconds() U32 c, ntpFraction() U32 c, ntpTime() U64 c, time() double c, "
     "elapsedTime(NtpTimeU64,NtpTimeU64) U32 c, fractionToU32(double) U32 c" },
   { 4, "NtpTimeU64", value, "", 0, "seconds U32 rw, fractions U32 rw" },
   { 5, "LspPingLdpIpv4SubTlv", view, "LspPingTlvHdr", 12, prefix4 },
   { 6, "LspPingGenericIpv4SubTlv", view, "LspPingTlvHdr", 12, prefix4 },
   { 7, "LspPingGenericIpv6SubTlv", view, "LspPingTlvHdr", 24, prefix6 },
   { 8, "LspPingBgpLuIpv4SubTlv", view, "LspPingTlvHdr", 12, prefix4 },
   { 9, "LspPingBgpLuIpv6SubTlv", view, "LspPingTlvHdr", 24, prefix6 },
   { 10, "LspPingRsvpIpv4SubTlv", view, "LspPingTlvHdr", 24,
     "destination Velnet::IpAddr rw, mbz0 U16 rw, tunnelId U16 rw, "
     "extendedTunnelId Velnet::IpAddr rw, senderAddress Velnet::IpAddr rw, mbz1 U16 rw, "
     "lspId U16 rw, valid bool r, stringValue Orlo::String r" },
   { 11, "LspPingRsvpP2mpIpv4SubTlv", view, "LspPingTlvHdr", 24,
     "p2mpId U32 rw, mbz0 U16 rw, tunnelId U16 rw, extendedTunnelId Velnet::IpAddr rw, "
     "senderAddress Velnet::IpAddr rw, mbz1 U16 rw, lspId U16 rw, valid bool r, "
     "stringValue Orlo::String r" },
   { 12, "LspPingVpnIpv4SubTlv", view, "LspPingTlvHdr", 20,
     "rd U64 rw, ipPrefix Velnet::IpAddr rw, prefixLen U8 rw, mbz0 U8 rw, mbz1 U16 rw, "
     "valid bool r, stringValue Orlo::String r" },
   { 13, "LspPingVpnIpv6SubTlv", view, "LspPingTlvHdr", 32,
     "rd U64 rw, ipPrefix Velnet::Ip6Addr rw, prefixLen U8 rw, mbz0 U8 rw, mbz1 U16 rw, "
     "valid bool r, stringValue Orlo::String r" },
   { 14, "LspPingSrIpv4SubTlv", view, "LspPingTlvHdr", 12,
     "ipPrefix Velnet::IpAddr rw, prefixLen U8 rw, protocol U8 rw, algorithm U8 rw, "
     "reserved U8 rw, valid bool r, stringValue Orlo::String r" },
   { 15, "LspPingSrIpv6SubTlv", view, "LspPingTlvHdr", 24,
     "ipPrefix Velnet::Ip6Addr rw, prefixLen U8 rw, protocol U8 rw, algorithm U8 rw, "
     "reserved U8 rw, valid bool r, stringValue Orlo::String r" },
   { 16, "LspPingNilFecSubTlvLabel", value, "", 0, labelWord },
   { 17, "LspPingNilFecSubTlv", view, "LspPingTlvHdr", 8,
     "labelField LspPingNilFecSubTlvLabel rw, label U32 rw, valid bool r, "
     "stringValue Orlo::String r" },
   { 18, "LspPingEntropyLabelFecSubTlvLabel", value, "", 0, labelWord },
   { 19, "LspPingEntropyLabelFecSubTlv", view, "LspPingTlvHdr", 8,
     "labelField LspPingEntropyLabelFecSubTlvLabel rw, label U32 rw, valid bool r, "
     "stringValue Orlo::String r" },
   { 20, "LspPingNodeAddrSubTlv", view, "LspPingTlvHdr", 12,
     "subType U16 rw, subTypeLen U16 rw, addr Velnet::IpAddr rw, valid bool r, "
     "stringValue Orlo::String r" },
   { 21, "LspPingP2mpFecStackSubTlv", view, "LspPingTlvHdr", 13,
     "family U16 rw, addrLen U8 rw, rootAddr Velnet::IpAddr rw, opaqueLen U16 rw, valid bool r, "
     "stringValue Orlo::String r" },
   { 22, "LspPingOpaqueValGenSubTlv", view, "", 7,
     "lspId U32 rw, valid bool r, stringValue Orlo::String r" },
   { 23, "LspPingOpaqueValSGSubTlv", view, "", 11,
     "sourceAddr Velnet::IpAddr rw, groupAddr Velnet::IpAddr rw, valid bool r, "
     "stringValue Orlo::String r" },
   { 24, "LspPingFec128Ipv4SubTlv", view, "LspPingTlvHdr", 20,
     "senderAddr Velnet::IpAddr rw, receiverAddr Velnet::IpAddr rw, pwId U32 rw, pwType U16 rw, "
     "mbz U16 rw, valid bool r, stringValue Orlo::String r" },
   { 25, "LspPingFec129Ipv4SubTlv", view, "LspPingTlvHdr", 14,
     "senderAddr Velnet::IpAddr rw, receiverAddr Velnet::IpAddr rw, pwType U16 rw, "
     "pwGenId Pseudowire::PseudowireGenId rw, minTlvLength U16 r, additionalTlvLength U16 r, "
     "valid bool r, stringValue Orlo::String r" },
   { 26, "LspPingDownstreamMappingHdr", view, "", 4,
     "mtu Velnet::NetU16 rw, addrType U8 rw, dsFlags U8 rw" },
   { 27, "LspPingDownstreamMappingIpv4Tlv", view, "LspPingDownstreamMappingHdr", 16,
     "dsIpAddr Velnet::IpAddr rw, dsIntfAddr Velnet::IpAddr rw, "
     "multipathType U8 rw, depthLimit U8 rw, multipathLength Velnet::NetU16 rw" },
   { 28, "LspPingDownstreamMappingIpv4UnnumberedTlv", view, "LspPingDownstreamMappingHdr", 16,
     "dsIpAddr Velnet::IpAddr rw, dsIntfId U32 rw, "
     "multipathType U8 rw, depthLimit U8 rw, multipathLength Velnet::NetU16 rw" },
   { 29, "LspPingDownstreamMappingIpv6Tlv", view, "LspPingDownstreamMappingHdr", 40,
     "dsIpAddr Velnet::Ip6Addr rw, dsIntfAddr Velnet::Ip6Addr rw, "
     "multipathType U8 rw, depthLimit U8 rw, multipathLength Velnet::NetU16 rw" },
   { 30, "LspPingDownstreamMappingIpv6UnnumberedTlv", view, "LspPingDownstreamMappingHdr", 28,
     "dsIpAddr Velnet::Ip6Addr rw, dsIntfId U32 rw, "
     "multipathType U8 rw, depthLimit U8 rw, multipathLength Velnet::NetU16 rw" },
   { 31, "LspPingDdmapHdr", view, "LspPingTlvHdr", 8, "mtu U16 rw, addrType U8 rw, dsFlags U8 rw" },
   { 32, "LspPingIntfAndLabelStackTlvContainer", object, "", 0,
     "tryCastToTlv(U8*,U32) void c, isIpv4 bool r, getAddrType U8 r, getAddr Velnet::IpGenAddr r, "
     "getIntfAddr Velnet::IpGenAddr r, getIntfId U32 r, valid bool rw, "
     "header LspPingIntfAndLabelStackHdr* rw, ipv4Tlv LspPingIntfAndLabelStackIpv4Tlv* rw, "
     "ipv6Tlv LspPingIntfAndLabelStackIpv6Tlv* rw, "
     "ipv4UnnumberedTlv LspPingIntfAndLabelStackIpv4UnnumberedTlv* rw, "
     "ipv6UnnumberedTlv LspPingIntfAndLabelStackIpv6UnnumberedTlv* rw" },
   { 33, "LspPingDdmapTlv", view, "LspPingDdmapHdr", 20,
     "dsIpAddr Velnet::IpAddr rw, dsIntfAddr Velnet::IpAddr rw, retCode U8 rw, retSubcode U8 rw, "
     "subTlvLen U16 rw, valid bool r, stringValue Orlo::String r" },
   { 34, "LspPingDdmapUnnumberedTlv", view, "LspPingDdmapHdr", 20,
     "dsIpAddr Velnet::IpAddr rw, dsIntfId U32 rw, retCode U8 rw, retSubcode U8 rw, "
     "subTlvLen U16 rw, valid bool r, stringValue Orlo::String r" },
   { 35, "LspPingDdmapV6Tlv", view, "LspPingDdmapHdr", 44,
     "dsIpAddr Velnet::Ip6Addr rw, dsIntfAddr Velnet::Ip6Addr rw, retCode U8 rw, "
     "retSubcode U8 rw, subTlvLen U16 rw, valid bool r, stringValue Orlo::String r" },
   { 36, "LspPingDdmapV6UnnumberedTlv", view, "LspPingDdmapHdr", 32,
     "dsIpAddr Velnet::Ip6Addr rw, dsIntfId U32 rw, retCode U8 rw, retSubcode U8 rw, "
     "subTlvLen U16 rw, valid bool r, stringValue Orlo::String r" },
   { 37, "LspPingMultipathSubTlv", view, "LspPingTlvHdr", 8,
     "multipathType U8 rw, multipathLength U16 rw, mbz U8 rw, valid bool r" },
   { 38, "LspPingFecStackChangeSubTlv", view, "LspPingTlvHdr", 8,
     "operType U8 rw, addrType U8 rw, fecTlvLen U8 rw, reserved U8 rw" },
   { 39, "LspPingDownstreamMappingTlvContainer", object, "", 0,
     "tryCastToTlv(U8*,U32) void c, isIpv4 bool r, getMtu Velnet::NetU16 r, getAddrType U8 r, "
     "getDsFlags U8 r, getDsIpAddr Velnet::IpGenAddr r, getDsIntfAddr Velnet::IpGenAddr r, "
     "getDsIntfId Velnet::IntfId r, getMultipathType U8 r, getDepthLimit U8 r, "
     "getMultipathLength Velnet::NetU16 r, valid bool rw, header LspPingDownstreamMappingHdr* rw, "
     "ipv4Tlv LspPingDownstreamMappingIpv4Tlv* rw, ipv6Tlv LspPingDownstreamMappingIpv6Tlv* rw, "
     "ipv4UnnumberedTlv LspPingDownstreamMappingIpv4UnnumberedTlv* rw, "
     "ipv6UnnumberedTlv LspPingDownstreamMappingIpv6UnnumberedTlv* rw" },
   { 40, "LspPingFecStackChangeV4SubTlv", view, "LspPingFecStackChangeSubTlv", 12,
     "peerAddr Velnet::IpAddr rw, valid bool r" },
   { 41, "LspPingFecStackChangeV6SubTlv", view, "LspPingFecStackChangeSubTlv", 24,
     "peerAddr Velnet::Ip6Addr rw, valid bool r" },
   { 42, "LspPingFecStackChangeUnspecifiedSubTlv", view, "LspPingFecStackChangeSubTlv", 8,
     "valid bool r" },
   { 43, "LspPingMultiLabelSubTlv", view, "LspPingTlvHdr", 8,
     "lookupLabelCount U16 rw, flags U16 rw, valid bool r, stringValue Orlo::String r" },
   { 44, "LspPingIntfAndLabelStackHdr", view, "", 4, "addrType U8 rw, mbz0 U8 rw, mbz1 U16 rw" },
   { 45, "LspPingIntfAndLabelStackIpv4Tlv", view, "LspPingIntfAndLabelStackHdr", 12,
     "addr Velnet::IpAddr rw, intf Velnet::IpAddr rw" },
   { 46, "LspPingIntfAndLabelStackIpv4UnnumberedTlv", view, "LspPingIntfAndLabelStackHdr", 12,
     "addr Velnet::IpAddr rw, intfId U32 rw" },
   { 47, "LspPingIntfAndLabelStackIpv6Tlv", view, "LspPingIntfAndLabelStackHdr", 36,
     "addr Velnet::Ip6Addr rw, intf Velnet::Ip6Addr rw" },
   { 48, "LspPingIntfAndLabelStackIpv6UnnumberedTlv", view, "LspPingIntfAndLabelStackHdr", 24,
     "addr Velnet::Ip6Addr rw, intfId U32 rw" },
   { 49, "LspPingPadTlv", view, "LspPingTlvHdr", 0,
     "padType U8 rw, padding[U32] U8 rw, valid bool r, stringValue Orlo::String r" },
   { 50, "LspPingReplyTosTlv", view, "LspPingTlvHdr", 8,
     "tos U8 rw, mbz0 U8 rw, mbz1 U16 rw, valid bool r, stringValue Orlo::String r" },
   { 51, "LspPingEchoJitterTlv", view, "LspPingTlvHdr", 8,
     "jitter U32 rw, valid bool r, stringValue Orlo::String r" },
   { 52, "LspPingVeloraVendorPrivateTlv", view, "LspPingTlvHdr", 8,
     "vendorIana U32 rw, valid bool r, stringValue Orlo::String r" },
   { 53, "LspPingFecInfo", value, "", 0,
     "fecTlvType LspPingTargetFecSubTlvType rw, dstPrefix Velnet::IpGenPrefix rw, rd U64 rw, "
     "oamStandard MplsUtils::MplsOamStandard rw, algorithm U8 rw, mplsLabel Velnet::MplsLabel rw, "
     "rsvpSpGroupId Rsvp::RsvpSpGroupId rw, rsvpSpId Rsvp::RsvpSpId rw, "
     "rsvpSenderAddr Velnet::IpGenAddr rw, pwInfo LspPingPwInfo rw, "
     "opqType LspPingP2mpFecStackSubTlvType rw, genericOpqVal U32 rw, "
     "sourceAddrOpqVal Velnet::IpGenAddr rw, groupAddrOpqVal Velnet::IpGenAddr rw, "
     "peerAddr Velnet::IpGenAddr rw, fecTlvLen U8 rw, igpProtocol LspPingSrIgpProtocol rw" },
   { 54, "LspPingFecStack", value, "", 0, "fecInfo[U8] LspPingFecInfo rw" },
   { 55, "LspPingDownstreamLabelEntry", value, "", 0, "v0 U8 rw, v1 U8 rw, v2 U8 rw, v3 U8 rw" },
   { 56, "LspPingDownstreamLabelStack", value, "", 0,
     "labelEntry[U32] LspPingDownstreamLabelEntry rw, size U32 rw, valid bool r" },
   { 57, "LspPingMultipathBitset", value, "", 0,
     "bitset[U32] U8 rw, size U32 rw, bitSize U32 r, hasAnyBitsSet bool r, "
     "setBitValue(U32,bool) void c, setBit(U32) void c, clearBit(U32) void c, isSet(U32) bool c" },
   { 58, "LspPingFecStackChangeSubTlvOperType", enumeration, "", 0, "" },
   { 59, "LspPingFecStackChangeSubTlvAddressType", enumeration, "", 0, "" },
   { 60, "LspPingDownstreamMappingInfo", value, "", 0,
     "mtu U16 r, addrType U8 r, dsFlags U8 r, dsIpAddr Velnet::IpGenAddr r, "
     "dsIntfAddr Velnet::IpGenAddr r, multipathType U8 r, depthLimit U8 r, "
     "dsMultipathBaseAddr Velnet::IpGenAddr r, dsMultipathBitset LspPingMultipathBitset r, "
     "labelStack LspPingDownstreamLabelStack r, fecStackChangeInfo LspPingFecStackChangeInfo r, "
     "intf Velnet::IntfId r, retCode LspPingReturnCode r, retSubcode U8 r, valid bool r, "
     "intfIndex Velnet::IntfId r, checkMultipathType() void c" },
   { 61, "LspPingDownstreamMappingInfoSet", value, "", 0,
     "lspPingDownstreamMappingInfo[U8] LspPingDownstreamMappingInfo rw, "
     "mappingTlv LspPingDownstreamMappingType r" },
   { 62, "LspPingFecStackChangeInfo", value, "", 0,
     "popTlvInfo LspPingFecStack rw, pushTlvInfo LspPingFecStack rw, valid bool r" },
   { 63, "LspPingIntfAndLabelStackInfo", value, "", 0,
     "addrType U8 r, addr Velnet::IpGenAddr r, intfAddr Velnet::IpGenAddr r, intfId U32 r, "
     "labelStack Velnet::MplsLabelStack r, valid bool r" },
   { 64, "LspPingPadInfo", value, "", 0,
     "padType U8 r, padding[U32] U8 rw, length U32 rw, valid bool r" },
   { 65, "LspPingHdrParser", object, "", 0,
     "LspPingHdr: version, globalFlags, messageType, replyMode, returnCode, returnSubcode, "
     "senderHandle, sequenceNumber, tsSentSeconds, tsSentmSeconds, tsRcvdSeconds, "
     "tsRcvdmSeconds, valid, stringValue" },
   { 66, "LspPingNodeAddrSubTlvParser", object, "", 0,
     "LspPingNodeAddrSubTlv: type, subType, subTypeLen, addr, valid, totalLength, stringValue" },
   { 67, "LspPingEchoJitterTlvParser", object, "", 0,
     "LspPingEchoJitterTlv: type, length, jitter, valid, totalLength, stringValue" },
   { 68, "LspPingP2mpFecStackSubTlvParser", object, "", 0,
     "LspPingP2mpFecStackSubTlv: type, family, addrLen, rootAddr, opaqueLen, valid, "
     "stringValue, totalLength" },
   { 69, "LspPingOpaqueValGenSubTlvParser", object, "", 0,
     "LspPingOpaqueValGenSubTlv: type, length, lspId, valid, stringValue, totalLength" },
   { 70, "LspPingOpaqueValSGSubTlvParser", object, "", 0,
     "LspPingOpaqueValSGSubTlv: type, length, sourceAddr, groupAddr, valid, stringValue, "
     "totalLength" },
   { 71, "LspPingDdmapTlvParser", object, "", 0,
     "LspPingDdmapTlv: type, length, mtu, addrType, dsFlags, dsIpAddr, dsIntfAddr, retCode, "
     "retSubcode, subTlvLen, valid, stringValue, totalLength" },
   { 72, "LspPingMultipathSubTlvParser", object, "", 0,
     "LspPingMultipathSubTlv: type, length, multipathType, multipathLength, valid" },
   { 73, "LspPingFecStackChangeV4SubTlvParser", object, "", 0,
     "LspPingFecStackChangeV4SubTlv: type, operType, addrType, fecTlvLen, reserved, peerAddr, "
     "valid" },
   { 74, "LspPingFecStackChangeV6SubTlvParser", object, "", 0,
     "LspPingFecStackChangeV6SubTlv: type, operType, addrType, fecTlvLen, reserved, peerAddr, "
     "valid" },
   { 75, "LspPingFecStackChangeUnspecifiedSubTlvParser", object, "", 0,
     "LspPingFecStackChangeUnspecifiedSubTlv: type, operType, addrType, fecTlvLen, reserved, "
     "valid" },
   { 76, "LspPingLdpIpv4SubTlvParser", object, "", 0,
     "LspPingLdpIpv4SubTlv: ipPrefix, prefixLen, valid, stringValue, totalLength" },
   { 77, "LspPingRsvpIpv4SubTlvParser", object, "", 0,
     "LspPingRsvpIpv4SubTlv: destination, tunnelId, extendedTunnelId, senderAddress, lspId, "
     "valid, stringValue, totalLength" },
   { 78, "LspPingRsvpP2mpIpv4SubTlvParser", object, "", 0,
     "LspPingRsvpP2mpIpv4SubTlv: p2mpId, tunnelId, extendedTunnelId, senderAddress, lspId, "
     "valid, stringValue, totalLength" },
   { 79, "LspPingVpnIpv4SubTlvParser", object, "", 0,
     "LspPingVpnIpv4SubTlv: rd, ipPrefix, prefixLen, valid, stringValue, totalLength" },
   { 80, "LspPingVpnIpv6SubTlvParser", object, "", 0,
     "LspPingVpnIpv6SubTlv: rd, ipPrefix, prefixLen, valid, stringValue, totalLength" },
   { 81, "LspPingFec128Ipv4SubTlvParser", object, "", 0,
     "LspPingFec128Ipv4SubTlv: senderAddr, receiverAddr, pwId, pwType, valid, stringValue, "
     "totalLength" },
   { 82, "LspPingFec129Ipv4SubTlvParser", object, "", 0,
     "LspPingFec129Ipv4SubTlv: senderAddr, receiverAddr, pwType, pwGenId, valid, stringValue, "
     "totalLength" },
   { 83, "LspPingSrIpv4SubTlvParser", object, "", 0,
     "LspPingSrIpv4SubTlv: ipPrefix, prefixLen, algorithm, valid, stringValue, totalLength" },
   { 84, "LspPingSrIpv6SubTlvParser", object, "", 0,
     "LspPingSrIpv6SubTlv: ipPrefix, prefixLen, algorithm, valid, stringValue, totalLength" },
   { 85, "LspPingNilFecSubTlvParser", object, "", 0,
     "LspPingNilFecSubTlv: label, valid, stringValue, totalLength" },
   { 86, "LspPingBgpLuIpv4SubTlvParser", object, "", 0,
     "LspPingBgpLuIpv4SubTlv: ipPrefix, prefixLen, valid, stringValue, totalLength" },
   { 87, "LspPingBgpLuIpv6SubTlvParser", object, "", 0,
     "LspPingBgpLuIpv6SubTlv: ipPrefix, prefixLen, valid, stringValue, totalLength" },
   { 88, "LspPingGenericIpv4SubTlvParser", object, "", 0,
     "LspPingGenericIpv4SubTlv: ipPrefix, prefixLen, valid, stringValue, totalLength" },
   { 89, "LspPingGenericIpv6SubTlvParser", object, "", 0,
     "LspPingGenericIpv6SubTlv: ipPrefix, prefixLen, valid, stringValue, totalLength" },
   { 90, "LspPingEntropyLabelFecSubTlvParser", object, "", 0,
     "LspPingEntropyLabelFecSubTlv: label, valid, stringValue, totalLength" },
   { 91, "LspPingReplyTosTlvParser", object, "", 0,
     "LspPingReplyTosTlv: type, length, tos, valid, stringValue, totalLength" },
   { 92, "LspPingPadTlvParser", object, "", 0,
     "LspPingPadTlv: type, length, padType, padding, valid, stringValue, totalLength" },
   { 93, "LspPingVeloraVendorPrivateTlvParser", object, "", 0,
     "LspPingVeloraVendorPrivateTlv: valid, stringValue, totalLength" },
   { 94, "LspPingMultiLabelSubTlvParser", object, "", 0,
     "LspPingMultiLabelSubTlv: lookupLabelCount, flags, valid, stringValue, totalLength" },
};

constexpr ExpectedType typesTypes[] = {
   { 0, "LspPingVendorIana", enumeration, "", 0, "" },
   { 1, "LspPingTunnelType", enumeration, "", 0, "" },
   { 2, "LspPingMode", enumeration, "", 0, "" },
   { 3, "LspPingConstant", "constant", "", 0,
     "lspPingServiceName Orlo::String r, lspPingUdpPort U16 r, maxRxPktSize U32 r, "
     "sockBufferSize U32 r" },
   { 4, "LspPingMsgType", enumeration, "", 0, "" },
   { 5, "LspPingHeaderFlags", enumeration, "", 0, "" },
   { 6, "LspPingReplyMode", enumeration, "", 0, "" },
   { 7, "LspPingTlvType", enumeration, "", 0, "" },
   { 8, "LspPingP2mpRespTlvType", enumeration, "", 0, "" },
   { 9, "LspPingDDMappingSubTlvType", enumeration, "", 0, "" },
   { 10, "LspPingTargetFecSubTlvType", enumeration, "", 0, "" },
   { 11, "LspPingP2mpFecStackSubTlvType", enumeration, "", 0, "" },
   { 12, "LspPingReturnCode", enumeration, "", 0, "" },
   { 13, "LspPingAddrType", enumeration, "", 0, "" },
   { 14, "LspPingMultipathType", enumeration, "", 0, "" },
   { 15, "LspPingDownstreamMappingType", enumeration, "", 0, "" },
   { 16, "LspPingDownstreamMappingTlvIpAndIntfLen", enumeration, "", 0, "" },
   { 17, "LspPingDownstreamSignalingProtocol", enumeration, "", 0, "" },
   { 18, "LspPingIntfAndLabelStackTlvIpAndIntfLen", enumeration, "", 0, "" },
   { 19, "LspPingVeloraVendorPrivateType", enumeration, "", 0, "" },
   { 20, "LspPingSrIgpProtocol", enumeration, "", 0, "" },
   { 21, "LspPingPwInfo", value, "", 0,
     "senderAddr Velnet::IpGenAddr r, receiverAddr Velnet::IpGenAddr r, pwId U32 r, "
     "pwGenId Pseudowire::PseudowireGenId r, pwType Pseudowire::PseudowireType r, "
     "controlWordPresent bool r, activeCcType Pseudowire::PwPingCcType rw" },
   { 22, "LspPingPadType", enumeration, "", 0, "" },
};
// clang-format on

} // namespace

std::span< ExpectedType const > const expectedHdrTypes = hdrTypes;
std::span< ExpectedType const > const expectedTypesTypes = typesTypes;
