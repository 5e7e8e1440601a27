#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlv.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingIntfAndLabelStackHdr::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIntfAndLabelStackHdr >();
constinit Kiv::AllocationTracker LspPingIntfAndLabelStackIpv4Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIntfAndLabelStackIpv4Tlv >();
constinit Kiv::AllocationTracker LspPingIntfAndLabelStackIpv4UnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIntfAndLabelStackIpv4UnnumberedTlv >();
constinit Kiv::AllocationTracker LspPingIntfAndLabelStackIpv6Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIntfAndLabelStackIpv6Tlv >();
constinit Kiv::AllocationTracker LspPingIntfAndLabelStackIpv6UnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIntfAndLabelStackIpv6UnnumberedTlv >();

} // namespace LspPing
