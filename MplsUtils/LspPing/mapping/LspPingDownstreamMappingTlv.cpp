#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlv.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDownstreamMappingHdr::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingHdr >();
constinit Kiv::AllocationTracker LspPingDownstreamMappingIpv4Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingIpv4Tlv >();
constinit Kiv::AllocationTracker LspPingDownstreamMappingIpv4UnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingIpv4UnnumberedTlv >();
constinit Kiv::AllocationTracker LspPingDownstreamMappingIpv6Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingIpv6Tlv >();
constinit Kiv::AllocationTracker LspPingDownstreamMappingIpv6UnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingIpv6UnnumberedTlv >();

} // namespace LspPing
