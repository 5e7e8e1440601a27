#include "MplsUtils/LspPing/ext/mapping/LspPingMappingSubTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingLabelStackSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingLabelStackSubTlv >();
constinit Kiv::AllocationTracker LspPingLocalIntfIndexSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingLocalIntfIndexSubTlv >();
constinit Kiv::AllocationTracker LspPingRemoteIntfIndexSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRemoteIntfIndexSubTlv >();

Orlo::String LspPingLabelStackSubTlv::stringValue() const {
   return Orlo::stringOf( valid() ? "LabelStack" : "Invalid LabelStackSubTlv" );
}

Orlo::String LspPingLocalIntfIndexSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LocalIntfIndexSubTlv" );
   return Kiv::_fmt( "LocalIntfIndex( %lu )", U64{ intfIndex() } );
}

Orlo::String LspPingRemoteIntfIndexSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid RemoteIntfIndexSubTlv" );
   return Kiv::_fmt( "RemoteIntfIndex( %lu )", U64{ intfIndex() } );
}

} // namespace LspPing
