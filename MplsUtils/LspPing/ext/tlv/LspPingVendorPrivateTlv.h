#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/ext/LspPingTail.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"

namespace LspPing {

// A TLV that a vendor defined for its own routers, RFC 8029 section 6.2.3 (and RFC 9041
// section 4.2, which gives these codes out first come, first served). Those known begin with the
// vendor's number.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |     type = 64512 to 65535     |            length             |
// +-------------------------------+-------------------------------+
// |                       enterpriseNumber                        |
// |                       the vendor's bytes                      |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingVendorPrivateTlv
   : public Kiv::Typed< LspPingVendorPrivateTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::VendorPrivate )
                                      .upTo( 65535 )
                                      .atLeast( 4 )
                                      .followedBy( LspPingBehind::tail )
                                      .inWords( "vendor private" )
                                      .definedIn( "RFC 8029 section 6.2.3" );

   /// IANA Private Enterprise Number.
   constexpr U32 enterpriseNumber() const noexcept { return enterpriseNumber_.value(); }
   constexpr void enterpriseNumberIs( U32 number ) noexcept { enterpriseNumber_.valueIs( number ); }
   /// What the vendor has to say.
   std::span< U8 const > data() const noexcept { return lspPingTail( *this ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "VendorPrivate( enterprise: 9, data: 0102 )", or "Invalid VendorPrivateTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingVendorPrivateTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::enterpriseNumber, &Self::enterpriseNumberIs >( "enterpriseNumber" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   /// With the vendor's bytes.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingVendorPrivateTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 enterpriseNumber_;
};
static_assert( Kiv::isWireView< LspPingVendorPrivateTlv, 8 > );

} // namespace LspPing
