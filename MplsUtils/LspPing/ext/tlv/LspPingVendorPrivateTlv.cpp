#include "MplsUtils/LspPing/ext/tlv/LspPingVendorPrivateTlv.h"

#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingVendorPrivateTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingVendorPrivateTlv >();

Orlo::String LspPingVendorPrivateTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid VendorPrivateTlv" );
   Orlo::StringBuilder text;
   text.append( "VendorPrivate( enterprise: " );
   text.appendDecimal( enterpriseNumber() );
   text.append( ", data: " );
   text.appendHexBytes( data() );
   text.append( " )" );
   return std::move( text ).string();
}

} // namespace LspPing
