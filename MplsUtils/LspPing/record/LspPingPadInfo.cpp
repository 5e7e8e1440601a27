#include "MplsUtils/LspPing/record/LspPingPadInfo.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingPadInfo::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPadInfo >();

LspPingPadInfo::LspPingPadInfo( Kiv::CharRange & ) {
   assertNoTextConstructor();
}

} // namespace LspPing
