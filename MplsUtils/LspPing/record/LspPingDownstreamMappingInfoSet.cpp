#include "MplsUtils/LspPing/record/LspPingDownstreamMappingInfoSet.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDownstreamMappingInfoSet::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingInfoSet >();
constinit Kiv::AllocationTracker
   LspPingDownstreamMappingInfoSet::KivLspPingDownstreamMappingInfo::memAllocationTracker_ =
      Kiv::trackerOf< LspPingDownstreamMappingInfoSet::KivLspPingDownstreamMappingInfo >();

LspPingDownstreamMappingInfoSet::LspPingDownstreamMappingInfoSet( Kiv::CharRange & ) {
   assertNoTextConstructor();
}

} // namespace LspPing
