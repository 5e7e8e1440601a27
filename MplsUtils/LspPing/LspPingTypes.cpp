#include "MplsUtils/LspPing/LspPingTypes.h"

#include "MplsUtils/LspPing/platform/Kiv/Module.h"
#include "MplsUtils/LspPing/types/LspPingModuleTables.h"

namespace LspPing {

constexpr Kiv::ModuleTable lspPingTypesTable =
   Kiv::Module< LspPingTypesTypes, lspPingTypesModule >::table( "LspPingTypes" );

} // namespace LspPing
