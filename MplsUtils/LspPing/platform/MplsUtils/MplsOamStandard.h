#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"

namespace MplsUtils {

/// Whose procedures a label switched path is checked with: the IETF's (RFC 8029) or the ITU-T's
/// (G.8113.1).
KIV_ENUMERATION( MplsOamStandard, U8, ietf = 0, ituT = 1 );

} // namespace MplsUtils
