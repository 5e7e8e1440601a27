#include "MplsUtils/LspPing/ext/mapping/LspPingNonIpMapping.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDdmapNonIpTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDdmapNonIpTlv >();
constinit Kiv::AllocationTracker LspPingDownstreamMappingNonIpTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingNonIpTlv >();

Orlo::String LspPingDdmapNonIpTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingDdmapNonIpTlv" );
   return Kiv::_fmt( "DDMAPNonIpTlv( Ingress Interface: %lu, Egress Interface: %lu, RetCode: %d, "
                     "RetSubCode: %d )",
                     U64{ ingressIfNum() }, U64{ egressIfNum() }, retCode(), retSubcode() );
}

Orlo::String LspPingDownstreamMappingNonIpTlv::stringValue() const {
   return Kiv::_fmt( "DownstreamMappingNonIpTlv( Ingress Interface: %lu, Egress Interface: %lu, "
                     "MultipathType: %d, DepthLimit: %d )",
                     U64{ ingressIfNum() }, U64{ egressIfNum() }, multipathType(), depthLimit() );
}

} // namespace LspPing
