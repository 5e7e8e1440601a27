#include "MplsUtils/LspPing/record/LspPingFecStack.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingFecStack::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecStack >();
constinit Kiv::AllocationTracker LspPingFecStack::KivFecInfo::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecStack::KivFecInfo >();

LspPingFecStack::LspPingFecStack( Kiv::CharRange & ) {
   assertNoTextConstructor();
}

} // namespace LspPing
