#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/types/Export.h"

// What the downstream mapping and interface TLVs say, RFC 8029 sections 3.4, 3.7 and appendix A.
namespace LspPing {

KIV_ENUMERATION( LspPingAddrType, U32, ipv4Numbered = 1, ipv4Unnumbered = 2, ipv6Numbered = 3,
                 ipv6Unnumbered = 4 );

KIV_ENUMERATION( LspPingMultipathType, U32, noMultipath = 0, ipMultipath = 2, ipRangeMultipath = 4,
                 maskedIpSetMultipath = 8, maskedLabelSetMultipath = 9 );

KIV_ENUMERATION( LspPingDownstreamMappingType, U8, downstreamDetailedMap = 0, downstreamMap = 1 );

/// Bytes of the fixed part of a Downstream Mapping TLV's value, by address type.
KIV_ENUMERATION( LspPingDownstreamMappingTlvIpAndIntfLen, U32, ipv4DsLen = 16,
                 ipv6NumberedDsLen = 40, ipv6UnnumberedDsLen = 28 );

/// Bytes of the address part of an Interface and Label Stack TLV's value, by address type.
KIV_ENUMERATION( LspPingIntfAndLabelStackTlvIpAndIntfLen, U32, ipv4IfLen = 12,
                 ipv6NumberedIfLen = 36, ipv6UnnumberedIfLen = 24 );

/// The protocol that distributed a downstream label, RFC 8029 section 3.4.1.2.
KIV_ENUMERATION( LspPingDownstreamSignalingProtocol, U32, dsInfoSignalingProtocolUnknown = 0,
                 dsInfoSignalingProtocolStatic = 1, dsInfoSignalingProtocolBgp = 2,
                 dsInfoSignalingProtocolLdp = 3, dsInfoSignalingProtocolRsvpTe = 4,
                 dsInfoSignalingProtocolOspf = 5, dsInfoSignalingProtocolIsis = 6 );

/// RFC 8029 section 3.4.1.3.
KIV_ENUMERATION( LspPingFecStackChangeSubTlvOperType, U32, Push = 1, Pop = 2 );
KIV_ENUMERATION( LspPingFecStackChangeSubTlvAddressType, U32, Unspecified = 0, IPv4 = 1, IPv6 = 2 );

} // namespace LspPing
