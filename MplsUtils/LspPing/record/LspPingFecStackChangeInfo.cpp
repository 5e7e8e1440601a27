#include "MplsUtils/LspPing/record/LspPingFecStackChangeInfo.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingFecStackChangeInfo::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecStackChangeInfo >();

LspPingFecStackChangeInfo::LspPingFecStackChangeInfo( Kiv::CharRange & in ) {
   parse( in );
}

} // namespace LspPing
