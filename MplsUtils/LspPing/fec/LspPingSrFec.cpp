#include "MplsUtils/LspPing/fec/LspPingSrFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingSrIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingSrIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrIpv6SubTlv >();

Orlo::String LspPingSrIpv4SubTlv::stringValue() const {
   if( !valid() )
      return {};
   return Kiv::_fmt( "SrIpv4( '%s/%d', %d )", ipPrefix(), prefixLen(), algorithm() );
}

Orlo::String LspPingSrIpv6SubTlv::stringValue() const {
   if( !valid() )
      return {};
   return Kiv::_fmt( "SrIpv6( '%s/%d', %d )", ipPrefix(), prefixLen(), algorithm() );
}

} // namespace LspPing
