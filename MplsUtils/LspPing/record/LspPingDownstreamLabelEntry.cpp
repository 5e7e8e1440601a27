#include "MplsUtils/LspPing/record/LspPingDownstreamLabelEntry.h"

namespace LspPing {

namespace {

constinit LspPingDownstreamLabelEntry sharedDefault;

} // namespace

constinit Kiv::AllocationTracker LspPingDownstreamLabelEntry::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamLabelEntry >();

LspPingDownstreamLabelEntry::LspPingDownstreamLabelEntry( Kiv::CharRange & in ) {
   parse( in );
}

LspPingDownstreamLabelEntry const & LspPingDownstreamLabelEntry::defaultEntry() noexcept {
   return sharedDefault;
}

void LspPingDownstreamLabelEntry::defaultEntryIs( U32 word ) noexcept {
   sharedDefault = LspPingDownstreamLabelEntry( word );
}

} // namespace LspPing
