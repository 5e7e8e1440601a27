#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"

// TLVs that are what stands in them. Their texts are their names alone.
namespace LspPing {

// Errored TLVs, RFC 8029 section 3.8: those of the request that the responder did not understand,
// as they were.
class LSPPING_EXT_EXPORT LspPingErroredTlvsTlv
   : public Kiv::Typed< LspPingErroredTlvsTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::ErrorTlv )
                                      .followedBy( LspPingBehind::tlvs )
                                      .definedIn( "RFC 8029 section 3.8" );

   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "ErrorTlv", or "Invalid ErroredTlvsTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingErroredTlvsTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingErroredTlvsTlv, 4 > );

// Reverse-path Target FEC Stack, RFC 6426 section 3.4: of the LSP that the reply came back on.
class LSPPING_EXT_EXPORT LspPingReversePathTargetFecStackTlv
   : public Kiv::Typed< LspPingReversePathTargetFecStackTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::tlv( LspPingExtTlvType::ReversePathTargetFecStack )
         .followedBy( LspPingBehind::fecs )
         .inWords( "Reverse-path Target FEC Stack" )
         .definedIn( "RFC 6426 section 3.4" );

   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "ReversePathTargetFecStack", or "Invalid ReversePathTargetFecStackTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingReversePathTargetFecStackTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingReversePathTargetFecStackTlv, 4 > );

// BFD Reverse Path, RFC 9612 section 3.1: the FECs of the path that the egress shall send its BFD
// control packets on. None withdraws a path that was asked for before.
class LSPPING_EXT_EXPORT LspPingBfdReversePathTlv
   : public Kiv::Typed< LspPingBfdReversePathTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::BfdReversePath )
                                      .followedBy< LspPingTargetFecSubTlvType >()
                                      .inWords( "BFD Reverse Path" )
                                      .definedIn( "RFC 9612 section 3.1" );

   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "BfdReversePath", or "Invalid BfdReversePathTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingBfdReversePathTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingBfdReversePathTlv, 4 > );

} // namespace LspPing
