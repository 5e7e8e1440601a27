#include "MplsUtils/LspPing/ext/fec/LspPingSegmentFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingSegmentLabelSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSegmentLabelSubTlv >();
constinit Kiv::AllocationTracker LspPingSegmentIpv4NodeSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSegmentIpv4NodeSubTlv >();
constinit Kiv::AllocationTracker LspPingSegmentIpv6NodeSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSegmentIpv6NodeSubTlv >();

Orlo::String LspPingSegmentLabelSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid SegmentLabelSubTlv" );
   return Kiv::_fmt( "SegmentLabel( %d, TC: %d, S: %d, TTL: %d )", sid().label(),
                     sid().trafficClass(), U8{ sid().bottomOfStack() }, sid().ttl() );
}

template < class Address >
Orlo::String LspPingSegmentNodeSubTlv< Address >::text( std::string_view name ) const {
   return hasSrAlgorithm() ? Kiv::_fmt( "%s( '%s', algorithm: %d )", name, node(), srAlgorithm() )
                           : Kiv::_fmt( "%s( '%s' )", name, node() );
}

Orlo::String LspPingSegmentIpv4NodeSubTlv::stringValue() const {
   return valid() ? text( "SegmentIpv4Node" ) : Orlo::stringOf( "Invalid SegmentIpv4NodeSubTlv" );
}

Orlo::String LspPingSegmentIpv6NodeSubTlv::stringValue() const {
   return valid() ? text( "SegmentIpv6Node" ) : Orlo::stringOf( "Invalid SegmentIpv6NodeSubTlv" );
}

} // namespace LspPing
