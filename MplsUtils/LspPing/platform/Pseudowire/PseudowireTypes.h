#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"

namespace Pseudowire {

/// What a pseudowire carries, RFC 4446 section 3.2; types without a name here are numbers.
KIV_ENUMERATION( PseudowireType, U16, ethernetTagged = 4, ethernet = 5, hdlc = 6, ppp = 7 );

/// How messages of connectivity verification are told from data, RFC 5085 section 5: by the control
/// word, by the router alert label, or by the TTL of the pseudowire label that expires.
KIV_ENUMERATION( PwPingCcType, U32, none = 0, controlWord = 1, routerAlert = 2, ttlExpiry = 4 );

} // namespace Pseudowire
