#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"

// What the echo header and the reply path say beside types/LspPingMessageTypes.h.
namespace LspPing {

/// RFC 7555 section 3 and RFC 7743 section 3.1.
KIV_ENUMERATION( LspPingExtMsgType, U32, MplsProxyPingRequest = 3, MplsProxyPingReply = 4,
                 MplsRelayedEchoReply = 5 );

/// RFC 7110 section 4.1.
KIV_ENUMERATION( LspPingExtReplyMode, U32, ReplyViaSpecifiedPath = 5 );

/// RFC 7555 section 7.2, RFC 7743 section 3.3, RFC 7759 section 4.4, RFC 8287 section 7.4, RFC 9655
/// section 4, RFC 9489 section 6 and RFC 9612 section 3.2.
KIV_ENUMERATION( LspPingExtReturnCode, U32, proxyNotAuthorized = 16, proxyParamsNeedChange = 17,
                 echoRequestNotSent = 18, hasMappingForTopmostFec = 19, tlvsNotReturnedMtu = 20,
                 bfdVersionUnsupported = 21, bfdEncapsulationUnsupported = 22,
                 bfdAuthTypeUnsupported = 23, bfdAuthKeyMismatch = 24,
                 timestampFormatUnsupported = 25, delayModeUnsupported = 26,
                 lossModeUnsupported = 27, delayVariationUnsupported = 28,
                 dyadicModeUnsupported = 29, loopbackModeUnsupported = 30,
                 combinedModeUnsupported = 31, faultSignalingUnsupported = 32,
                 faultAssociationNotCreated = 33, pmConfigurationError = 34,
                 fecNotOfIncomingIntf = 35, repRouterEgressForAddress = 36, egressBumDropped = 37,
                 egressBumForwarded = 38, inappropriateFec = 192, reversePathNotFound = 193 );

/// RFC 7110 section 4.2 and RFC 9716 section 5.1.
KIV_ENUMERATION( LspPingReplyPathReturnCode, U32, noReplyPathReturnCode = 0, malformedReplyPath = 1,
                 replyPathSubTlvNotUnderstood = 2, sentViaReplyPath = 3, sentViaOtherLsp = 4,
                 sentViaIp = 5, useReplyPathFromReply = 6, dynamicReplyPathNotAllowed = 7 );

} // namespace LspPing
