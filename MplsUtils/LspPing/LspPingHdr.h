#pragma once

// Module LspPingHdr: views, parsers, containers and value records.
#include "MplsUtils/LspPing/fec/LspPingPrefixFec.h"
#include "MplsUtils/LspPing/fec/LspPingPseudowireFec.h"
#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/framing/NtpTime.h"
#include "MplsUtils/LspPing/mapping/LspPingDdmapTlv.h"
