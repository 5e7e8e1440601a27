#include "MplsUtils/LspPing/tlv/LspPingEchoJitterTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingEchoJitterTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEchoJitterTlv >();

Orlo::String LspPingEchoJitterTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid EchoJitterTlv" );
   return Kiv::_fmt( "EchoJitterTlv( jittertime(%d) )", jitter() );
}

} // namespace LspPing
