#include "MplsUtils/LspPing/tlv/LspPingVeloraVendorPrivateTlv.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingVeloraVendorPrivateTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingVeloraVendorPrivateTlv >();

Orlo::String LspPingVeloraVendorPrivateTlv::stringValue() const {
   return valid() ? "VeloraVendorPrivate()" : "Invalid Velora Vendor Private TLV";
}

} // namespace LspPing
