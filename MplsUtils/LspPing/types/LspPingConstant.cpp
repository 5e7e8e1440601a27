#include "MplsUtils/LspPing/types/LspPingConstant.h"

#include "MplsUtils/LspPing/platform/Kiv/TypeRef.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingConstant::memAllocationTracker_ =
   Kiv::trackerOf< LspPingConstant >();

Kiv::TypeRef LspPingConstant::fwkType() const noexcept {
   return Kiv::typeOf< LspPingConstant >();
}

} // namespace LspPing
