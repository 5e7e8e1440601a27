#pragma once

// Module LspPingTypes: the protocol's enumerations and constants.
#include "MplsUtils/LspPing/types/LspPingConstant.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"
#include "MplsUtils/LspPing/types/LspPingPwInfo.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"
#include "MplsUtils/LspPing/types/LspPingTunnelTypes.h"
#include "MplsUtils/LspPing/types/LspPingVendorIana.h"
