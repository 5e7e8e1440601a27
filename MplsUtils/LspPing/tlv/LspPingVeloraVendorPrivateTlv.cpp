#include "MplsUtils/LspPing/tlv/LspPingVeloraVendorPrivateTlv.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingVeloraVendorPrivateTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingVeloraVendorPrivateTlv >();

Orlo::String LspPingVeloraVendorPrivateTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid Velora Vendor Private TLV" );
   return Orlo::stringOf( "VeloraVendorPrivate()" );
}

} // namespace LspPing
