#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// Echo Jitter, RFC 6425 section 3.3.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 12           |          length = 4           |
// +-------------------------------+-------------------------------+
// |                            jitter                             |
// +---------------------------------------------------------------+
class LSPPING_EXPORT LspPingEchoJitterTlv
   : public Kiv::Typed< LspPingEchoJitterTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::EchoJitter )
                                      .length( 4 )
                                      .inWords( "Echo Jitter" )
                                      .definedIn( "RFC 6425 section 3.3" );

   /// The time over which the responders spread their replies, in milliseconds.
   constexpr U32 jitter() const noexcept { return jitter_.value(); }
   constexpr void jitterIs( U32 jitter ) noexcept { jitter_.valueIs( jitter ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "EchoJitterTlv( jittertime(500) )", or "Invalid EchoJitterTlv". The time prints signed.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingEchoJitterTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::jitter, &Self::jitterIs >( "jitter" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 jitter_;
};
static_assert( Kiv::isWireView< LspPingEchoJitterTlv, 8 > );

} // namespace LspPing
