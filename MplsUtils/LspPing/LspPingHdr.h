#pragma once

// Module LspPingHdr: views, parsers, containers and value records.
#include "MplsUtils/LspPing/fec/LspPingPrefixFec.h"
#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/framing/NtpTime.h"
#include "MplsUtils/LspPing/mapping/LspPingDdmapSubTlv.h"
#include "MplsUtils/LspPing/mapping/LspPingDdmapTlv.h"
#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlv.h"
#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlvContainer.h"
#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlv.h"
#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlvContainer.h"
#include "MplsUtils/LspPing/tlv/LspPingEchoJitterTlv.h"
#include "MplsUtils/LspPing/tlv/LspPingReplyTosTlv.h"
#include "MplsUtils/LspPing/tlv/LspPingVeloraVendorPrivateTlv.h"
