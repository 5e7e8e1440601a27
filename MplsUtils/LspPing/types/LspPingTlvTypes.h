#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/types/Export.h"

// Codes of TLVs and sub-TLVs, RFC 9041 section 6.
namespace LspPing {

/// Top-level TLVs; 65261 lies in the range for vendors' private use.
KIV_ENUMERATION( LspPingTlvType, U32, TargetFecStack = 1, DownstreamMapping = 2, Pad = 3,
                 NotAssigned4 = 4, VendorEnterpriseNum = 5, NotAssigned6 = 6, IntfAndLabelStack = 7,
                 NotAssigned8 = 8, ErrorTlv = 9, ReplyTosByte = 10, DownstreamDetailedMapping = 20,
                 P2mpRespId = 11, EchoJitter = 12, VeloraVendorPrivate = 65261 );

/// Sub-TLVs of the P2MP Responder Identifier TLV, RFC 6425 section 3.2.
KIV_ENUMERATION( LspPingP2mpRespTlvType, U32, EgrAddr4 = 1, EgrAddr6 = 2, NodeAddr4 = 3,
                 NodeAddr6 = 4 );

/// Sub-TLVs of the Downstream Detailed Mapping TLV, RFC 8029 section 3.4.1.
KIV_ENUMERATION( LspPingDDMappingSubTlvType, U32, MultipathData = 1, LabelStack = 2,
                 FecStackChange = 3 );

/// Sub-TLVs of the Target FEC Stack TLV: the FECs that can be tested, RFC 8029 section 3.2.
KIV_ENUMERATION( LspPingTargetFecSubTlvType, U32, LDPIpv4 = 1, LDPIpv6 = 2, RSVPIpv4Lsp = 3,
                 RSVPIpv6Lsp = 4, NotAssigned = 5, VPNIpv4 = 6, VPNIpv6 = 7, L2VPNEndpoint = 8,
                 FEC128Pseudowire = 10, FEC129Pseudowire = 11, BGPLabeledIpv4 = 12,
                 BGPLabeledIpv6 = 13, GenericIpv4 = 14, GenericIpv6 = 15, NilFec = 16,
                 RSVPP2MPIpv4 = 17, P2mpFec = 19, EntropyLabel = 33, SRIpv4 = 34, SRIpv6 = 35,
                 SRIpv4Deprecated = 31744, SRIpv6Deprecated = 31745 );

/// Opaque values of a multipoint LDP FEC, RFC 6388 section 2.3 and RFC 6826 section 3.
KIV_ENUMERATION( LspPingP2mpFecStackSubTlvType, U32, GenericLsp = 1, SGIpv4 = 3 );

/// What the Pad TLV asks the responder to do with the padding, RFC 8029 section 3.5.
KIV_ENUMERATION( LspPingPadType, U32, dropPadding = 1, copyPadding = 2 );

/// Sub-types inside the vendor private TLV.
KIV_ENUMERATION( LspPingVeloraVendorPrivateType, U32, MultiLabel = 1 );

} // namespace LspPing
