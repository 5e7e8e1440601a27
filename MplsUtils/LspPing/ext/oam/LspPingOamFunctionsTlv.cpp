#include "MplsUtils/LspPing/ext/oam/LspPingOamFunctionsTlv.h"

#include "MplsUtils/LspPing/ext/LspPingNames.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingOamFunctionsTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOamFunctionsTlv >();

Orlo::String LspPingOamFunctionsTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid OamFunctionsTlv" );
   return Kiv::_fmt( "OamFunctions( flags: %s )",
                     LspPingFlagNames< LspPingOamFunctionFlags >{ functionFlags() } );
}

} // namespace LspPing
