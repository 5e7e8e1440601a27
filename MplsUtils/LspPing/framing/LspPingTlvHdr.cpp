#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingTlvHdr::memAllocationTracker_ =
   Kiv::trackerOf< LspPingTlvHdr >();
constinit Kiv::AllocationTracker LspPingTlvU8Hdr::memAllocationTracker_ =
   Kiv::trackerOf< LspPingTlvU8Hdr >();

} // namespace LspPing
