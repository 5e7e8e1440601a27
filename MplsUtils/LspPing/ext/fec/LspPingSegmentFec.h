#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"

// The segments of a path for the reply, RFC 9716 section 4. They have their codes among the FECs
// and stand in the Reply Path TLV only.
namespace LspPing {

// A segment by its label (Type-A), RFC 9716 section 4.1. The A flag says nothing here.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 46           |          length = 8           |
// +---------------+---------------+-------------------------------+
// |     flags     |   reserved0   |           reserved1           |
// +---------------+---------------+-------+-----+-+---------------+
// |              sid: label               | TC  |S|      TTL      |
// +---------------------------------------+-----+-+---------------+
class LSPPING_EXT_EXPORT LspPingSegmentLabelSubTlv
   : public Kiv::Typed< LspPingSegmentLabelSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::SegmentLabel )
         .length( 8 )
         .inWords( "SID only, in the form of MPLS label" )
         .definedIn( "RFC 9716 section 4.1" );

   /// LspPingSegmentFlags.
   constexpr U8 flags() const noexcept { return flags_; }
   constexpr void flagsIs( U8 flags ) noexcept { flags_ = flags; }
   constexpr U8 reserved0() const noexcept { return reserved0_; }
   constexpr void reserved0Is( U8 value ) noexcept { reserved0_ = value; }
   constexpr U16 reserved1() const noexcept { return reserved1_.value(); }
   constexpr void reserved1Is( U16 value ) noexcept { reserved1_.valueIs( value ); }
   /// Traffic class 0 and TTL 255 leave the choice to the receiver.
   constexpr Velnet::MplsLabelEntry sid() const noexcept { return sid_; }
   constexpr void sidIs( Velnet::MplsLabelEntry sid ) noexcept { sid_ = sid; }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "SegmentLabel( 16, TC: 0, S: 0, TTL: 255 )", or "Invalid SegmentLabelSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingSegmentLabelSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::field< &Self::reserved0, &Self::reserved0Is >( "reserved0" ),
         Kiv::field< &Self::reserved1, &Self::reserved1Is >( "reserved1" ),
         Kiv::field< &Self::sid, &Self::sidIs >( "sid" ), Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 flags_ = 0;
   U8 reserved0_ = 0;
   Velnet::NetU16 reserved1_;
   Velnet::MplsLabelEntry sid_;
};
static_assert( Kiv::isWireView< LspPingSegmentLabelSubTlv, 12 > );

// The shape of the segments by a node's address (Type-C and Type-D), RFC 9716 sections 4.2 and 4.3.
// With the longer length a SID follows: a label stack entry, which is not part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 47, 48         |    length = 8, 12, 20, 24     |
// +---------------+---------------+---------------+---------------+
// |     flags     |           reserved            |  srAlgorithm  |
// +---------------+-------------------------------+---------------+
// |                     node (4 or 16 bytes)                      |
// +---------------------------------------------------------------+
template < class Address >
class LspPingSegmentNodeSubTlv : public LspPingTlvHdr {
 public:
   /// LspPingSegmentFlags.
   constexpr U8 flags() const noexcept { return flags_; }
   constexpr void flagsIs( U8 flags ) noexcept { flags_ = flags; }
   constexpr U16 reserved() const noexcept { return reserved_.value(); }
   constexpr void reservedIs( U16 value ) noexcept { reserved_.valueIs( value ); }
   /// Says something only with the A flag.
   constexpr U8 srAlgorithm() const noexcept { return srAlgorithm_; }
   constexpr void srAlgorithmIs( U8 algorithm ) noexcept { srAlgorithm_ = algorithm; }
   constexpr Address node() const noexcept { return node_; }
   constexpr void nodeIs( Address node ) noexcept { node_ = node; }
   /// The A flag.
   constexpr bool hasSrAlgorithm() const noexcept {
      return ( flags() & Kiv::numberOf( LspPingSegmentFlags::srAlgorithmFlag ) ) != 0;
   }

 protected:
   static constexpr auto elementOf( LspPingExtTargetFecSubTlvType code ) {
      constexpr std::size_t alone = 4 + sizeof( Address );
      return LspPingElement::targetFec( code )
         .length( alone )
         .orLength( alone + sizeof( Velnet::MplsLabelEntry ) )
         .followedBy( LspPingBehind::labelStack );
   }
   Orlo::String text( std::string_view name ) const;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingSegmentNodeSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::field< &Self::srAlgorithm, &Self::srAlgorithmIs >( "srAlgorithm" ),
         Kiv::field< &Self::node, &Self::nodeIs >( "node" ),
         Kiv::computed< &Self::hasSrAlgorithm >( "hasSrAlgorithm" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   U8 flags_ = 0;
   Velnet::NetU16 reserved_;
   U8 srAlgorithm_ = 0;
   Address node_;
};

class LSPPING_EXT_EXPORT LspPingSegmentIpv4NodeSubTlv
   : public Kiv::Typed< LspPingSegmentIpv4NodeSubTlv, LspPingSegmentNodeSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtTargetFecSubTlvType::SegmentIpv4Node )
         .inWords( "IPv4 Node Address with an optional SID for SR-MPLS" )
         .definedIn( "RFC 9716 section 4.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "SegmentIpv4Node( '10.0.0.1', algorithm: 128 )", without the A flag "SegmentIpv4Node(
   /// '10.0.0.1' )", or "Invalid SegmentIpv4NodeSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSegmentIpv4NodeSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSegmentIpv4NodeSubTlv, 12 > );

class LSPPING_EXT_EXPORT LspPingSegmentIpv6NodeSubTlv
   : public Kiv::Typed< LspPingSegmentIpv6NodeSubTlv,
                        LspPingSegmentNodeSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtTargetFecSubTlvType::SegmentIpv6Node )
         .inWords( "IPv6 Node Address with an optional SID for SR-MPLS" )
         .definedIn( "RFC 9716 section 4.3" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "SegmentIpv6Node( '2001:db8::1', algorithm: 128 )", without the A flag "SegmentIpv6Node(
   /// '2001:db8::1' )", or "Invalid SegmentIpv6NodeSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSegmentIpv6NodeSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSegmentIpv6NodeSubTlv, 24 > );

} // namespace LspPing
