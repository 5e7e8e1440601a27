#include "MplsUtils/LspPing/ext/tlv/LspPingContainerTlv.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingErroredTlvsTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingErroredTlvsTlv >();
constinit Kiv::AllocationTracker LspPingReversePathTargetFecStackTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingReversePathTargetFecStackTlv >();
constinit Kiv::AllocationTracker LspPingBfdReversePathTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBfdReversePathTlv >();

Orlo::String LspPingErroredTlvsTlv::stringValue() const {
   return Orlo::stringOf( valid() ? "ErrorTlv" : "Invalid ErroredTlvsTlv" );
}

Orlo::String LspPingReversePathTargetFecStackTlv::stringValue() const {
   return Orlo::stringOf( valid() ? "ReversePathTargetFecStack"
                                  : "Invalid ReversePathTargetFecStackTlv" );
}

Orlo::String LspPingBfdReversePathTlv::stringValue() const {
   return Orlo::stringOf( valid() ? "BfdReversePath" : "Invalid BfdReversePathTlv" );
}

} // namespace LspPing
