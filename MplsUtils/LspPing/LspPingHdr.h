#pragma once

// Module LspPingHdr: views, parsers, containers and value records.
#include "MplsUtils/LspPing/fec/LspPingLabelFec.h"
#include "MplsUtils/LspPing/fec/LspPingP2mpFec.h"
#include "MplsUtils/LspPing/fec/LspPingPrefixFec.h"
#include "MplsUtils/LspPing/fec/LspPingRsvpFec.h"
#include "MplsUtils/LspPing/fec/LspPingSrFec.h"
#include "MplsUtils/LspPing/fec/LspPingVpnFec.h"
#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/framing/NtpTime.h"
#include "MplsUtils/LspPing/mapping/LspPingDdmapTlv.h"
