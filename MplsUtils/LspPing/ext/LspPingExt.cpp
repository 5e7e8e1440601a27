#include "MplsUtils/LspPing/ext/LspPingExt.h"

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/platform/Kiv/Module.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

namespace LspPing {

// Referred to, and never read.
constinit char const lspPingExtLinked = 0;

namespace {

constexpr Kiv::ModuleTable table =
   Kiv::Module< LspPingExtTypes, lspPingExtModule >::table( "LspPingExt" );

// Runs when the library is loaded, behind those that it needs.
[[gnu::constructor( 203 )]] void registerLspPingExt() noexcept {
   Kiv::kivModuleIs( table );
}

} // namespace

} // namespace LspPing
