#include "MplsUtils/LspPing/types/LspPingConstant.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingConstant::memAllocationTracker_ =
   Kiv::trackerOf< LspPingConstant >();

} // namespace LspPing
