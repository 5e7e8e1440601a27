// refused: a class with attributes has no place in its module's list
#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"

namespace Forgotten {

struct Mark {
   static consteval int kivAttributes() { return 0; }
   static Kiv::AllocationTracker memAllocationTracker_;
};

constinit Kiv::AllocationTracker Mark::memAllocationTracker_ = Kiv::trackerOf< Mark >();

} // namespace Forgotten
