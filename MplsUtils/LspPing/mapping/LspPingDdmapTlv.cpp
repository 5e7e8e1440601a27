#include "MplsUtils/LspPing/mapping/LspPingDdmapTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDdmapHdr::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDdmapHdr >();
constinit Kiv::AllocationTracker LspPingDdmapTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDdmapTlv >();
constinit Kiv::AllocationTracker LspPingDdmapV6Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDdmapV6Tlv >();
constinit Kiv::AllocationTracker LspPingDdmapUnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDdmapUnnumberedTlv >();
constinit Kiv::AllocationTracker LspPingDdmapV6UnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDdmapV6UnnumberedTlv >();

Orlo::String LspPingDdmapTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingDdmapTlv" );
   return Kiv::_fmt( "DDMAPTlv( Downstream Address: '%s', Downstream Interface Address: '%s', "
                     "RetCode: %d, RetSubCode: %d )",
                     dsIpAddr(), dsIntfAddr(), retCode(), retSubcode() );
}

Orlo::String LspPingDdmapV6Tlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingDdmapV6Tlv" );
   return Kiv::_fmt( "DDMAPV6Tlv( Downstream Address: '%s', Downstream Interface Address: '%s', "
                     "RetCode: %d, RetSubCode: %d )",
                     dsIpAddr(), dsIntfAddr(), retCode(), retSubcode() );
}

Orlo::String LspPingDdmapUnnumberedTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingDdmapUnnumberedTlv" );
   return Kiv::_fmt(
      "DDMAPUnnumberedTlv( Downstream Address: '%s', Downstream Interface Index: %d, "
      "RetCode: %d, RetSubCode: %d )",
      dsIpAddr(), dsIntfId(), retCode(), retSubcode() );
}

Orlo::String LspPingDdmapV6UnnumberedTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingDdmapV6UnnumberedTlv" );
   return Kiv::_fmt(
      "DDMAPV6UnnumberedTlv( Downstream Address: '%s', Downstream Interface Index: %d, "
      "RetCode: %d, RetSubCode: %d )",
      dsIpAddr(), dsIntfId(), retCode(), retSubcode() );
}

} // namespace LspPing
