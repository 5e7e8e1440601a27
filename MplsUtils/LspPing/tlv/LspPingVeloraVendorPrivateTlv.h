#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"
#include "MplsUtils/LspPing/types/LspPingVendorIana.h"

namespace LspPing {

// A TLV of the range for vendors' private use, RFC 8029 section 6.2.2. The sub-TLVs follow
// the enterprise number and are not part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 65261          |            length             |
// +-------------------------------+-------------------------------+
// |                          vendorIana                           |
// +---------------------------------------------------------------+
class LSPPING_EXPORT LspPingVeloraVendorPrivateTlv
   : public Kiv::Typed< LspPingVeloraVendorPrivateTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::VeloraVendorPrivate )
                                      .whenWord( 4, LspPingVendorIana::VeloraIana )
                                      .atLeast( 4 )
                                      .followedBy< LspPingVeloraVendorPrivateType >()
                                      .definedIn( "RFC 8029 section 6.2.2" );

   /// IANA Private Enterprise Number of the vendor that defines what follows.
   constexpr U32 vendorIana() const noexcept { return vendorIana_.value(); }
   constexpr void vendorIanaIs( U32 number ) noexcept { vendorIana_.valueIs( number ); }

   /// The length is not looked at.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) &&
             vendorIana() == static_cast< U32 >( LspPingVendorIana::VeloraIana );
   }
   /// "VeloraVendorPrivate()", or "Invalid Velora Vendor Private TLV".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingVeloraVendorPrivateTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::vendorIana, &Self::vendorIanaIs >( "vendorIana" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 vendorIana_;
};
static_assert( Kiv::isWireView< LspPingVeloraVendorPrivateTlv, 8 > );

} // namespace LspPing
