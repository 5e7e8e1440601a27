#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/types/Export.h"

// What the echo header says, RFC 8029 section 3.
namespace LspPing {

KIV_ENUMERATION( LspPingMsgType, U32, MplsEchoRequest = 1, MplsEchoReply = 2 );

/// Bits of the header's global flags; T is RFC 6425 section 3.4, R is RFC 6426 section 2.1.
KIV_ENUMERATION( LspPingHeaderFlags, U32, rFlag = 4, tFlag = 2, vFlag = 1 );

KIV_ENUMERATION( LspPingReplyMode, U32, DontReply = 1, ReplyIpUdp = 2, ReplyIpUdpRouterAlert = 3,
                 ReplyViaAppCtrlChannel = 4 );

/// RFC 8029 section 3.1.
KIV_ENUMERATION( LspPingReturnCode, U32, noRetCode = 0, malFormEchoRequest = 1,
                 tlvNotUnderstood = 2, repRouterEgress = 3, noMappingForFec = 4,
                 dsMappingMismatch = 5, usIntfUnknown = 6, reservedRetCode = 7,
                 labelSwitchedAtStackDep = 8, labelSwitchedNoMplsFwd = 9, labelMappingMismatch = 10,
                 noLabelEntryAtStackDep = 11, protocolIntfMismatch = 12, premTermination = 13,
                 seeDdmTlv = 14, lblSwitchedFecChange = 15 );

} // namespace LspPing
