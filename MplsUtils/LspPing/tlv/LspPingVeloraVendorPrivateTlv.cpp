#include "MplsUtils/LspPing/tlv/LspPingVeloraVendorPrivateTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingVeloraVendorPrivateTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingVeloraVendorPrivateTlv >();

Orlo::String LspPingVeloraVendorPrivateTlv::stringValue() const {
   if( !valid() )
      return Kiv::_fmt( "Invalid Velora Vendor Private TLV" );
   return Kiv::_fmt( "VeloraVendorPrivate()" );
}

} // namespace LspPing
