#include "MplsUtils/LspPing/mapping/LspPingDdmapSubTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingMultipathSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingMultipathSubTlv >();
constinit Kiv::AllocationTracker LspPingFecStackChangeSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecStackChangeSubTlv >();
constinit Kiv::AllocationTracker LspPingFecStackChangeV4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecStackChangeV4SubTlv >();
constinit Kiv::AllocationTracker LspPingFecStackChangeV6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecStackChangeV6SubTlv >();
constinit Kiv::AllocationTracker LspPingFecStackChangeUnspecifiedSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecStackChangeUnspecifiedSubTlv >();
constinit Kiv::AllocationTracker LspPingMultiLabelSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingMultiLabelSubTlv >();

Orlo::String LspPingMultiLabelSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid Multi-label Sub-TLV" );
   return Kiv::_fmt( "MultiLabel( LookupLabelCount: %d, Flags: %d )", lookupLabelCount(), flags() );
}

} // namespace LspPing
