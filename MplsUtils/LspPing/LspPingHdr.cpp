#include "MplsUtils/LspPing/LspPingHdr.h"

#include "MplsUtils/LspPing/platform/Kiv/Module.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "MplsUtils/LspPing/types/LspPingModuleTables.h"

namespace LspPing {

constexpr Kiv::ModuleTable lspPingHdrTable =
   Kiv::Module< LspPingHdrTypes, lspPingHdrModule >::table( "LspPingHdr" );

// Referred to, and never read.
constinit char const lspPingLinked = 0;

namespace {

// What runs when the library is loaded, in this order.
[[gnu::constructor( 201 )]] void registerLspPingHdr() noexcept {
   Kiv::kivModuleIs( lspPingHdrTable );
   Velnet::MplsLabelEntry::defaultEntryIs( 0 );
   LspPingDownstreamLabelEntry::defaultEntryIs( 0 );
}

[[gnu::constructor( 202 )]] void registerLspPingTypes() noexcept {
   Kiv::kivModuleIs( lspPingTypesTable );
}

} // namespace

} // namespace LspPing
