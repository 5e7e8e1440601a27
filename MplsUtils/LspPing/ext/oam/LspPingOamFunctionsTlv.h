#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"

namespace LspPing {

// MPLS OAM Functions, RFC 7759 section 2.2: what an LSP's ends are to watch it with. The sub-TLVs
// say how, and are not part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 27           |            length             |
// +-------------------------------+-------------------------------+
// |                         functionFlags                         |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingOamFunctionsTlv
   : public Kiv::Typed< LspPingOamFunctionsTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::MplsOamFunctions )
                                      .atLeast( 4 )
                                      .followedBy< LspPingOamFunctionSubTlvType >()
                                      .inWords( "MPLS OAM Functions" )
                                      .definedIn( "RFC 7759 section 2.2" );

   /// LspPingOamFunctionFlags.
   constexpr U32 functionFlags() const noexcept { return functionFlags_.value(); }
   constexpr void functionFlagsIs( U32 flags ) noexcept { functionFlags_.valueIs( flags ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "OamFunctions( flags: continuityCheck+throughput )", with what has no name as a number, or
   /// "Invalid OamFunctionsTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingOamFunctionsTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::functionFlags, &Self::functionFlagsIs >( "functionFlags" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 functionFlags_;
};
static_assert( Kiv::isWireView< LspPingOamFunctionsTlv, 8 > );

} // namespace LspPing
