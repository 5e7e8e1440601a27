#pragma once

#include "MplsUtils/LspPing/platform/base/TypeRecord.h"
#include "MplsUtils/LspPing/types/Export.h"

namespace LspPing {

// The two modules' tables, which loading the library registers.
extern Kiv::ModuleTable const lspPingHdrTable;
extern Kiv::ModuleTable const lspPingTypesTable;

} // namespace LspPing
