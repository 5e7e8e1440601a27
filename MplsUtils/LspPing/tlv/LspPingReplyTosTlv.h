#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// Reply TOS Octet, RFC 8029 section 3.9.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 10           |          length = 4           |
// +---------------+---------------+-------------------------------+
// |      tos      |     mbz0      |             mbz1              |
// +---------------+---------------+-------------------------------+
class LSPPING_EXPORT LspPingReplyTosTlv : public Kiv::Typed< LspPingReplyTosTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::ReplyTosByte )
                                      .length( 4 )
                                      .definedIn( "RFC 8029 section 3.9" );

   /// The type-of-service byte that the responder is asked to send its reply with.
   constexpr U8 tos() const noexcept { return tos_; }
   constexpr void tosIs( U8 tos ) noexcept { tos_ = tos; }
   constexpr U8 mbz0() const noexcept { return mbz0_; }
   constexpr void mbz0Is( U8 value ) noexcept { mbz0_ = value; }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz1() const noexcept { return mbz1_.raw(); }
   constexpr void mbz1Is( U16 raw ) noexcept { mbz1_.rawIs( raw ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "ReplyTosTlv( Type Of Service: 7 )", or "Invalid LspPingReplyTosTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingReplyTosTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::tos, &Self::tosIs >( "tos" ),
         Kiv::field< &Self::mbz0, &Self::mbz0Is >( "mbz0" ),
         Kiv::field< &Self::mbz1, &Self::mbz1Is >( "mbz1" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 tos_ = 0;
   U8 mbz0_ = 0;
   Velnet::NetU16 mbz1_;
};
static_assert( Kiv::isWireView< LspPingReplyTosTlv, 8 > );

} // namespace LspPing
