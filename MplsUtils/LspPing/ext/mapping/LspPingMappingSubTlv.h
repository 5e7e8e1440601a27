#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"

// Sub-TLVs of the Downstream Detailed Mapping TLV, beside those of mapping/LspPingDdmapSubTlv.h.
namespace LspPing {

// Label Stack, RFC 8029 section 3.4.1.2. The labels follow, each with its protocol, and are not
// part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 2            |            length             |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingLabelStackSubTlv
   : public Kiv::Typed< LspPingLabelStackSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::ddmapSubTlv( LspPingDDMappingSubTlvType::LabelStack )
         .followedBy( LspPingBehind::protocolLabels )
         .definedIn( "RFC 8029 section 3.4.1.2" );

   /// Looks at the type only.
   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "LabelStack", or "Invalid LabelStackSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingLabelStackSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingLabelStackSubTlv, 4 > );

// The shape of both interface indexes, RFC 8611 sections 8 and 9.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 4, 5          |          length = 4           |
// +-------------------------------+-------------------------------+
// |                           intfIndex                           |
// +---------------------------------------------------------------+
class LspPingIntfIndexSubTlv : public LspPingTlvHdr {
 public:
   constexpr U32 intfIndex() const noexcept { return intfIndex_.value(); }
   constexpr void intfIndexIs( U32 index ) noexcept { intfIndex_.valueIs( index ); }

 protected:
   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingIntfIndexSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::intfIndex, &Self::intfIndexIs >( "intfIndex" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::NetU32 intfIndex_;
};

// Local Interface Index, RFC 8611 section 8: of an egress interface, as the responder counts them.
class LSPPING_EXT_EXPORT LspPingLocalIntfIndexSubTlv
   : public Kiv::Typed< LspPingLocalIntfIndexSubTlv, LspPingIntfIndexSubTlv > {
 public:
   static constexpr auto element =
      LspPingElement::ddmapSubTlv( LspPingExtDDMappingSubTlvType::LocalIntfIndex )
         .length( 4 )
         .inWords( "Local Interface Index" )
         .definedIn( "RFC 8611 section 8" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "LocalIntfIndex( 7 )", or "Invalid LocalIntfIndexSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingLocalIntfIndexSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingLocalIntfIndexSubTlv, 8 > );

// Remote Interface Index, RFC 8611 section 9: of an ingress interface, as the router downstream
// counts them.
class LSPPING_EXT_EXPORT LspPingRemoteIntfIndexSubTlv
   : public Kiv::Typed< LspPingRemoteIntfIndexSubTlv, LspPingIntfIndexSubTlv > {
 public:
   static constexpr auto element =
      LspPingElement::ddmapSubTlv( LspPingExtDDMappingSubTlvType::RemoteIntfIndex )
         .length( 4 )
         .inWords( "Remote Interface Index" )
         .definedIn( "RFC 8611 section 9" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "RemoteIntfIndex( 7 )", or "Invalid RemoteIntfIndexSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingRemoteIntfIndexSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingRemoteIntfIndexSubTlv, 8 > );

} // namespace LspPing
