#pragma once

#include "MplsUtils/LspPing/ext/LspPingAddressTail.h"
#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/ext/LspPingTail.h"
#include "MplsUtils/LspPing/fec/LspPingPseudowireFec.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"

namespace LspPing {

// L2 VPN endpoint, RFC 8029 section 3.2.7: two VPLS edges. The length does not count the
// must-be-zero bytes.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 8            |          length = 14          |
// +-------------------------------+-------------------------------+
// |                         rd (8 bytes)                          |
// +-------------------------------+-------------------------------+
// |          senderVeId           |         receiverVeId          |
// +-------------------------------+-------------------------------+
// |            pwType             |              mbz              |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingL2VpnEndpointSubTlv
   : public Kiv::Typed< LspPingL2VpnEndpointSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::L2VPNEndpoint )
         .length( 14 )
         .definedIn( "RFC 8029 section 3.2.7" );

   /// The route distinguisher as one number, whatever its own type and parts.
   constexpr U64 rd() const noexcept { return rd_.value(); }
   constexpr void rdIs( U64 rd ) noexcept { rd_.valueIs( rd ); }
   constexpr U16 senderVeId() const noexcept { return senderVeId_.value(); }
   constexpr void senderVeIdIs( U16 id ) noexcept { senderVeId_.valueIs( id ); }
   constexpr U16 receiverVeId() const noexcept { return receiverVeId_.value(); }
   constexpr void receiverVeIdIs( U16 id ) noexcept { receiverVeId_.valueIs( id ); }
   /// Pseudowire::PseudowireType.
   constexpr U16 pwType() const noexcept { return pwType_.value(); }
   constexpr void pwTypeIs( U16 type ) noexcept { pwType_.valueIs( type ); }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz() const noexcept { return mbz_.raw(); }
   constexpr void mbzIs( U16 raw ) noexcept { mbz_.rawIs( raw ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "L2VpnEndpoint( 1, sender: 2, receiver: 3, type: ethernet )" with the route distinguisher
   /// first, or "Invalid L2VpnEndpointSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingL2VpnEndpointSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::rd, &Self::rdIs >( "rd" ),
         Kiv::field< &Self::senderVeId, &Self::senderVeIdIs >( "senderVeId" ),
         Kiv::field< &Self::receiverVeId, &Self::receiverVeIdIs >( "receiverVeId" ),
         Kiv::field< &Self::pwType, &Self::pwTypeIs >( "pwType" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ), Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU64 rd_;
   Velnet::NetU16 senderVeId_;
   Velnet::NetU16 receiverVeId_;
   Velnet::NetU16 pwType_;
   Velnet::NetU16 mbz_;
};
static_assert( Kiv::isWireView< LspPingL2VpnEndpointSubTlv, 20 > );

// FEC 128 pseudowire without its sender, RFC 8029 appendix A.1.1: deprecated.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 9            |          length = 10          |
// +-------------------------------+-------------------------------+
// |                         receiverAddr                          |
// |                             pwId                              |
// +-------------------------------+-------------------------------+
// |            pwType             |              mbz              |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingFec128DeprecatedSubTlv
   : public Kiv::Typed< LspPingFec128DeprecatedSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::FEC128PseudowireDeprecated )
         .length( 10 )
         .inWords( "FEC 128 Pseudowire - IPv4 (deprecated)" )
         .definedIn( "RFC 8029 appendix A.1.1" );

   constexpr Velnet::IpAddr receiverAddr() const noexcept { return receiverAddr_; }
   constexpr void receiverAddrIs( Velnet::IpAddr address ) noexcept { receiverAddr_ = address; }
   constexpr U32 pwId() const noexcept { return pwId_.value(); }
   constexpr void pwIdIs( U32 id ) noexcept { pwId_.valueIs( id ); }
   /// Pseudowire::PseudowireType.
   constexpr U16 pwType() const noexcept { return pwType_.value(); }
   constexpr void pwTypeIs( U16 type ) noexcept { pwType_.valueIs( type ); }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz() const noexcept { return mbz_.raw(); }
   constexpr void mbzIs( U16 raw ) noexcept { mbz_.rawIs( raw ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "Fec128Deprecated( receiver: '10.0.0.2', pseudowire: 7, type: ethernet )", or "Invalid
   /// Fec128DeprecatedSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingFec128DeprecatedSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::receiverAddr, &Self::receiverAddrIs >( "receiverAddr" ),
         Kiv::field< &Self::pwId, &Self::pwIdIs >( "pwId" ),
         Kiv::field< &Self::pwType, &Self::pwTypeIs >( "pwType" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ), Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::IpAddr receiverAddr_;
   Velnet::NetU32 pwId_;
   Velnet::NetU16 pwType_;
   Velnet::NetU16 mbz_;
};
static_assert( Kiv::isWireView< LspPingFec128DeprecatedSubTlv, 16 > );

// FEC 128 pseudowire between addresses of IPv6, RFC 6829 section 3.1, of any type.
class LSPPING_EXT_EXPORT LspPingFec128Ipv6SubTlv
   : public Kiv::Typed< LspPingFec128Ipv6SubTlv, LspPingFec128SubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::FEC128PseudowireIpv6 )
         .length( valueLength )
         .inWords( "FEC 128 Pseudowire - IPv6" )
         .definedIn( "RFC 6829 section 3.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "Fec128Ipv6( sender: '2001:db8::1', receiver: '2001:db8::2', pseudowire: 7, type: ethernet
   /// )", or "Invalid Fec128Ipv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingFec128Ipv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFec128Ipv6SubTlv, 44 > );

// FEC 129 pseudowire between addresses of IPv6, RFC 6829 section 3.2, of any type.
class LSPPING_EXT_EXPORT LspPingFec129Ipv6SubTlv
   : public Kiv::Typed< LspPingFec129Ipv6SubTlv, LspPingFec129SubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::FEC129PseudowireIpv6 )
         .atLeast( minTlvLength )
         .followedBy( LspPingBehind::identifiers )
         .inWords( "FEC 129 Pseudowire - IPv6" )
         .definedIn( "RFC 6829 section 3.2" );

   /// False too when the identifiers are three empty ones of type 0.
   bool valid() const noexcept { return element.hasCode( type() ) && hasIdentifiers(); }
   /// "Fec129Ipv6( sender: '2001:db8::1', receiver: '2001:db8::2', type: ethernet, agi 1:64 saii
   /// 1:01 taii 1:02 )", or "Invalid Fec129Ipv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingFec129Ipv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFec129Ipv6SubTlv, 38 > );

// P2MP pseudowire, RFC 8339 section 3.1: an attachment group and the root. In what the address's
// length is counted the RFC does not say; it is taken in bytes and in bits.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 37           |            length             |
// +---------------+---------------+-------------------------------+
// |    agiType    |   agiLength   |       agi, as long as that    |
// +---------------+---------------+-------------------------------+
// |   ipAddrLen   |   originatingRouter (4 or 16 bytes)           |
// +---------------+-----------------------------------------------+
class LSPPING_EXT_EXPORT LspPingP2mpPseudowireSubTlv
   : public Kiv::Typed< LspPingP2mpPseudowireSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::P2mpPseudowire )
         .atLeast( 2 )
         .followedBy( LspPingBehind::tail )
         .inWords( "P2MP Pseudowire" )
         .definedIn( "RFC 8339 section 3.1" );

   constexpr U8 agiType() const noexcept { return agiType_; }
   constexpr void agiTypeIs( U8 type ) noexcept { agiType_ = type; }
   /// In bytes.
   constexpr U8 agiLength() const noexcept { return agiLength_; }
   constexpr void agiLengthIs( U8 bytes ) noexcept { agiLength_ = bytes; }
   /// Fewer bytes where the value ends before.
   std::span< U8 const > agi() const noexcept;
   /// 4 and 16 in bytes, 32 and 128 in bits; 0 where the value ends before it.
   U8 ipAddrLen() const noexcept;
   /// Of no family where `ipAddrLen` has no such value or is not that of all that follows.
   Velnet::IpGenAddr originatingRouter() const noexcept;

   bool valid() const noexcept {
      return element.hasCode( type() ) && originatingRouter() != Velnet::IpGenAddr{};
   }
   /// "P2mpPseudowire( '10.0.0.1', AGI: 1:00000064, address length: 32 bits )", or "Invalid
   /// P2mpPseudowireSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingP2mpPseudowireSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::agiType, &Self::agiTypeIs >( "agiType" ),
         Kiv::field< &Self::agiLength, &Self::agiLengthIs >( "agiLength" ),
         Kiv::computed< &Self::ipAddrLen >( "ipAddrLen" ),
         Kiv::computed< &Self::originatingRouter >( "originatingRouter" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   /// With the attachment group and the address.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingP2mpPseudowireSubTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 agiType_ = 0;
   U8 agiLength_ = 0;
};
static_assert( Kiv::isWireView< LspPingP2mpPseudowireSubTlv, 6 > );

} // namespace LspPing
