#include "MplsUtils/LspPing/ext/mapping/LspPingDetailedIntfTlv.h"

#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDetailedIntfIpv4Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDetailedIntfIpv4Tlv >();
constinit Kiv::AllocationTracker LspPingDetailedIntfIpv4UnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDetailedIntfIpv4UnnumberedTlv >();
constinit Kiv::AllocationTracker LspPingDetailedIntfIpv6Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDetailedIntfIpv6Tlv >();
constinit Kiv::AllocationTracker LspPingDetailedIntfIpv6UnnumberedTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDetailedIntfIpv6UnnumberedTlv >();
constinit Kiv::AllocationTracker LspPingIncomingLabelStackSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIncomingLabelStackSubTlv >();
constinit Kiv::AllocationTracker LspPingIncomingIntfIndexSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIncomingIntfIndexSubTlv >();

Orlo::String LspPingDetailedIntfIpv4Tlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid DetailedIntfIpv4Tlv" );
   return Kiv::_fmt( "DetailedIntfIpv4( '%s', interface: '%s' )", addr(), intf() );
}

Orlo::String LspPingDetailedIntfIpv4UnnumberedTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid DetailedIntfIpv4UnnumberedTlv" );
   return Kiv::_fmt( "DetailedIntfIpv4Unnumbered( '%s', interface: %lu )", addr(),
                     U64{ intfId() } );
}

Orlo::String LspPingDetailedIntfIpv6Tlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid DetailedIntfIpv6Tlv" );
   return Kiv::_fmt( "DetailedIntfIpv6( '%s', interface: '%s' )", addr(), intf() );
}

Orlo::String LspPingDetailedIntfIpv6UnnumberedTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid DetailedIntfIpv6UnnumberedTlv" );
   return Kiv::_fmt( "DetailedIntfIpv6Unnumbered( '%s', interface: %lu )", addr(),
                     U64{ intfId() } );
}

Orlo::String LspPingIncomingLabelStackSubTlv::stringValue() const {
   return Orlo::stringOf( valid() ? "IncomingLabelStack" : "Invalid IncomingLabelStackSubTlv" );
}

Orlo::String LspPingIncomingIntfIndexSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid IncomingIntfIndexSubTlv" );
   Orlo::StringBuilder text;
   text.append( "IncomingIntfIndex( " );
   text.appendDecimal( intfIndex() );
   text.append( ", " );
   lspPingAppendFlagField( text, "M", intfFlags() );
   text.append( " )" );
   return std::move( text ).string();
}

} // namespace LspPing
