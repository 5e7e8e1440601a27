#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/fec/LspPingP2mpFec.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"

namespace LspPing {

// What names an LSP of multipoint LDP, behind the header of a FEC of the stack (RFC 6425 section
// 3.1.2.1) or of one inside an opaque value: the root of the tree. The opaque values behind the
// view tell the root's trees apart.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 19, 20         |            length             |
// +-------------------------------+---------------+---------------+
// |            family             | addrLen = 4,16|               |
// +-------------------------------+---------------+               |
// |                  rootAddr (4 or 16 bytes)                     |
// |                                               +---------------+
// |                                               |   opaqueLen   |
// +---------------+-------------------------------+---------------+
// |  continued    |  opaque values ...
// +---------------+----
template < class Header, class Address >
class LspPingMldpRoot : public Header {
 public:
   /// Address family number of the root: 1 for IPv4, 2 for IPv6.
   constexpr U16 family() const noexcept { return family_.value(); }
   constexpr void familyIs( U16 family ) noexcept { family_.valueIs( family ); }
   /// Of the root's address, in bytes.
   constexpr U8 addrLen() const noexcept { return addrLen_; }
   constexpr void addrLenIs( U8 bytes ) noexcept { addrLen_ = bytes; }
   constexpr Address rootAddr() const noexcept { return rootAddr_; }
   constexpr void rootAddrIs( Address address ) noexcept { rootAddr_ = address; }
   /// Of the opaque values, in bytes.
   constexpr U16 opaqueLen() const noexcept { return opaqueLen_.value(); }
   constexpr void opaqueLenIs( U16 bytes ) noexcept { opaqueLen_.valueIs( bytes ); }

 protected:
   /// Facts beside those of the header, whose bytes are `before` the family.
   static constexpr auto elementOf( LspPingElement const & header, std::size_t before = 4 ) {
      return header.when( static_cast< U8 >( before + 2 ), sizeof( Address ) )
         .atLeast( before - lspPingHeaderSize( header.context ) + 5 + sizeof( Address ) )
         .template followedByCounted< LspPingP2mpFecStackSubTlvType >();
   }
   constexpr bool hasRoot() const noexcept {
      return family() == ( sizeof( Address ) == 4 ? 1 : 2 ) && addrLen() == sizeof( Address );
   }

   /// \param header  The rows of the header's own fields.
   template < class View, class Base, class... Rows >
   static constexpr auto attributesOf( Rows... header ) {
      using Self = LspPingMldpRoot;
      return Kiv::attributesAfter< Base >(
         header..., Kiv::field< &Self::family, &Self::familyIs >( "family" ),
         Kiv::field< &Self::addrLen, &Self::addrLenIs >( "addrLen" ),
         Kiv::field< &Self::rootAddr, &Self::rootAddrIs >( "rootAddr" ),
         Kiv::field< &Self::opaqueLen, &Self::opaqueLenIs >( "opaqueLen" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::NetU16 family_;
   U8 addrLen_ = 0;
   Address rootAddr_;
   Velnet::NetU16 opaqueLen_;
};

// Multicast P2MP LDP FEC Stack with a root of IPv6, beside LspPingP2mpFecStackSubTlv.
class LSPPING_EXT_EXPORT LspPingP2mpFecStackIpv6SubTlv
   : public Kiv::Typed< LspPingP2mpFecStackIpv6SubTlv,
                        LspPingMldpRoot< LspPingTlvHdr, Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingElement::targetFec( LspPingTargetFecSubTlvType::P2mpFec ) )
         .definedIn( "RFC 6425 section 3.1.2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && hasRoot();
   }
   /// "P2mpFecStackIpv6( root: '2001:db8::1' )", or "Invalid P2mpFecStackIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingP2mpFecStackIpv6SubTlv, LspPingTlvHdr >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingP2mpFecStackIpv6SubTlv, 25 > );

// Multicast MP2MP LDP FEC Stack with a root of IPv4.
class LSPPING_EXT_EXPORT LspPingMp2mpFecStackIpv4SubTlv
   : public Kiv::Typed< LspPingMp2mpFecStackIpv4SubTlv,
                        LspPingMldpRoot< LspPingTlvHdr, Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::Mp2mpFec ) )
         .inWords( "Multicast MP2MP LDP FEC Stack" )
         .definedIn( "RFC 6425 section 3.1.2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && hasRoot();
   }
   /// "Mp2mpFecStackIpv4( root: '10.0.0.1' )", or "Invalid Mp2mpFecStackIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingMp2mpFecStackIpv4SubTlv, LspPingTlvHdr >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingMp2mpFecStackIpv4SubTlv, 13 > );

// Multicast MP2MP LDP FEC Stack with a root of IPv6.
class LSPPING_EXT_EXPORT LspPingMp2mpFecStackIpv6SubTlv
   : public Kiv::Typed< LspPingMp2mpFecStackIpv6SubTlv,
                        LspPingMldpRoot< LspPingTlvHdr, Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::Mp2mpFec ) )
         .inWords( "Multicast MP2MP LDP FEC Stack" )
         .definedIn( "RFC 6425 section 3.1.2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && hasRoot();
   }
   /// "Mp2mpFecStackIpv6( root: '2001:db8::1' )", or "Invalid Mp2mpFecStackIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingMp2mpFecStackIpv6SubTlv, LspPingTlvHdr >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingMp2mpFecStackIpv6SubTlv, 25 > );

} // namespace LspPing
