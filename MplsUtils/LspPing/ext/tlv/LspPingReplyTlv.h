#pragma once

#include "MplsUtils/LspPing/ext/LspPingTail.h"
#include "MplsUtils/LspPing/ext/tlv/LspPingAddressTlv.h"

// How the reply shall come back, and who shall send it.
namespace LspPing {

// Reply Path, RFC 7110 section 4.2. The FECs of the path follow; there need not be any.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 21           |            length             |
// +-------------------------------+-------------------------------+
// |          returnCode           |             flags             |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingReplyPathTlv
   : public Kiv::Typed< LspPingReplyPathTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::ReplyPath )
                                      .atLeast( 4 )
                                      .followedBy< LspPingTargetFecSubTlvType >()
                                      .inWords( "Reply Path" )
                                      .definedIn( "RFC 7110 section 4.2" );

   /// LspPingReplyPathReturnCode; 0 in a request.
   constexpr U16 returnCode() const noexcept { return returnCode_.value(); }
   constexpr void returnCodeIs( U16 code ) noexcept { returnCode_.valueIs( code ); }
   /// LspPingReplyPathFlags.
   constexpr U16 flags() const noexcept { return flags_.value(); }
   constexpr void flagsIs( U16 flags ) noexcept { flags_.valueIs( flags ); }

   /// The reverse path and another one are not asked for together.
   constexpr bool valid() const noexcept {
      constexpr U32 both = Kiv::numberOf( LspPingReplyPathFlags::bidirectionalFlag ) |
                           Kiv::numberOf( LspPingReplyPathFlags::alternativePathFlag );
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             ( flags() & both ) != both;
   }
   /// "ReplyPath( return code: sentViaReplyPath, flags: B )", or "Invalid
   /// ReplyPathTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingReplyPathTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::returnCode, &Self::returnCodeIs >( "returnCode" ),
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 returnCode_;
   Velnet::NetU16 flags_;
};
static_assert( Kiv::isWireView< LspPingReplyPathTlv, 8 > );

// Time To Live, RFC 7394 section 3.1. The picture there has the length 8, and draws 4 bytes.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 32769          |        length = 4 (8)         |
// +---------------+---------------+-------------------------------+
// |     value     |   reserved    |             flags             |
// +---------------+---------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingTimeToLiveTlv
   : public Kiv::Typed< LspPingTimeToLiveTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::TimeToLive )
                                      .length( 4 )
                                      .orStated( 4, "length of 8, RFC 7394 section 3.1" )
                                      .inWords( "Time To Live" )
                                      .definedIn( "RFC 7394 section 3.1" );

   /// With 0 the request is to be dropped.
   constexpr U8 value() const noexcept { return value_; }
   constexpr void valueIs( U8 value ) noexcept { value_ = value; }
   constexpr U8 reserved() const noexcept { return reserved_; }
   constexpr void reservedIs( U8 value ) noexcept { reserved_ = value; }
   /// LspPingTimeToLiveFlags.
   constexpr U16 flags() const noexcept { return flags_.value(); }
   constexpr void flagsIs( U16 flags ) noexcept { flags_.valueIs( flags ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && ( element.hasLength( length() ) ||
                                            length() == element.leastLength + element.statedMore );
   }
   /// "TimeToLive( 2, flags: R )", or "Invalid TimeToLiveTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingTimeToLiveTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::value, &Self::valueIs >( "value" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 value_ = 0;
   U8 reserved_ = 0;
   Velnet::NetU16 flags_;
};
static_assert( Kiv::isWireView< LspPingTimeToLiveTlv, 8 > );

// Reply Mode Order, RFC 7737 section 3.2: reply modes of one byte each, the preferred one first.
// No padding follows them.
class LSPPING_EXT_EXPORT LspPingReplyModeOrderTlv
   : public Kiv::Typed< LspPingReplyModeOrderTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::ReplyModeOrder )
                                      .atLeast( 1 )
                                      .unpadded( "padded to 4 bytes, unlike RFC 7737 section 3.2" )
                                      .followedBy( LspPingBehind::tail )
                                      .inWords( "Reply Mode Order" )
                                      .definedIn( "RFC 7737 section 3.2" );

   /// LspPingReplyMode and LspPingExtReplyMode.
   std::span< U8 const > modes() const noexcept { return lspPingTail( *this ); }

   /// At least one mode, which is one of a reply, and none twice but the specified path: each of
   /// these may have a Reply Path TLV.
   bool valid() const noexcept;
   /// "ReplyModeOrder( ReplyViaSpecifiedPath, ReplyIpUdp )", or "Invalid ReplyModeOrderTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingReplyModeOrderTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   /// With the modes.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingReplyModeOrderTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingReplyModeOrderTlv, 4 > );

// Egress, RFC 9655 section 3: where the path ends that a Nil FEC says nothing of. The length says
// the address's family.
class LSPPING_EXT_EXPORT LspPingEgressIpv4Tlv
   : public Kiv::Typed< LspPingEgressIpv4Tlv, LspPingAddressTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::Egress )
                                      .when( lengthOffset, valueLength )
                                      .length( valueLength )
                                      .inWords( "Egress" )
                                      .definedIn( "RFC 9655 section 3" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "EgressIpv4( '10.0.0.1' )", or "Invalid EgressIpv4Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEgressIpv4Tlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEgressIpv4Tlv, 8 > );

// The same of IPv6.
class LSPPING_EXT_EXPORT LspPingEgressIpv6Tlv
   : public Kiv::Typed< LspPingEgressIpv6Tlv, LspPingAddressTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::Egress )
                                      .when( lengthOffset, valueLength )
                                      .length( valueLength )
                                      .inWords( "Egress" )
                                      .definedIn( "RFC 9655 section 3" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "EgressIpv6( '2001:db8::1' )", or "Invalid EgressIpv6Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEgressIpv6Tlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEgressIpv6Tlv, 20 > );

} // namespace LspPing
