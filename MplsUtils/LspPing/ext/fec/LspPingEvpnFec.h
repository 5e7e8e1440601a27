#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"

#include <array>

// FECs of Ethernet VPNs, RFC 9489 section 4. The RFC says that a route distinguisher has ten bytes,
// and draws eight.
namespace LspPing {

// What all of them begin with.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |        type = 42 to 45        |            length             |
// +-------------------------------+-------------------------------+
// |                         rd (8 bytes)                          |
// +---------------------------------------------------------------+
// |                          ethernetTag                          |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingEvpnInstance : public LspPingTlvHdr {
 public:
   /// The route distinguisher as one number, whatever its own type and parts.
   constexpr U64 rd() const noexcept { return rd_.value(); }
   constexpr void rdIs( U64 rd ) noexcept { rd_.valueIs( rd ); }
   /// A VLAN, or a service instance; 0 for none.
   constexpr U32 ethernetTag() const noexcept { return ethernetTag_.value(); }
   constexpr void ethernetTagIs( U32 tag ) noexcept { ethernetTag_.valueIs( tag ); }

 protected:
   /// \param behind  The rows of what follows.
   template < class View, class... Rows >
   static constexpr auto attributesOf( Rows... behind ) {
      using Self = LspPingEvpnInstance;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::rd, &Self::rdIs >( "rd" ),
         Kiv::field< &Self::ethernetTag, &Self::ethernetTagIs >( "ethernetTag" ), behind...,
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::NetU64 rd_;
   Velnet::NetU32 ethernetTag_;
};

// Behind that, in all but one.
//
// +---------------------------------------------------------------+
// |                        esi (10 bytes)                         |
// |                               +-------------------------------+
// |                               |
// +-------------------------------+
class LSPPING_EXT_EXPORT LspPingEvpnSegment : public LspPingEvpnInstance {
 public:
   using Esi = std::array< U8, 10 >;

   /// Ethernet segment identifier.
   constexpr Esi const & esi() const noexcept { return esi_; }
   constexpr void esiIs( Esi const & esi ) noexcept { esi_ = esi; }
   /// "00:01:02:03:04:05:06:07:08:09"
   Orlo::String esiText() const;

 protected:
   /// \param behind  The rows of what follows.
   template < class View, class... Rows >
   static constexpr auto attributesOf( Rows... behind ) {
      return LspPingEvpnInstance::attributesOf< View >(
         Kiv::computed< &LspPingEvpnSegment::esiText >( "esi" ), behind... );
   }

 private:
   Esi esi_{};
};

// The shape of MAC/IP, RFC 9489 section 4.1, behind the segment. The address may be missing.
//
//                                 +---------------+---------------+
//                                 |     mbz0      |  macLen = 48  |
// +-------------------------------+---------------+---------------+
// |                         mac (6 bytes)                         |
// |                               +---------------+---------------+
// |                               |     mbz1      |     ipLen     |
// +-------------------------------+---------------+---------------+
// |                  ipAddr (0, 4 or 16 bytes)                    |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingEvpnMac : public LspPingEvpnSegment {
 public:
   using Mac = std::array< U8, 6 >;

   constexpr U8 mbz0() const noexcept { return mbz0_; }
   constexpr void mbz0Is( U8 value ) noexcept { mbz0_ = value; }
   /// In bits.
   constexpr U8 macLen() const noexcept { return macLen_; }
   constexpr void macLenIs( U8 bits ) noexcept { macLen_ = bits; }
   constexpr Mac const & mac() const noexcept { return mac_; }
   constexpr void macIs( Mac const & mac ) noexcept { mac_ = mac; }
   /// "00:1c:73:00:00:01"
   Orlo::String macText() const;
   constexpr U8 mbz1() const noexcept { return mbz1_; }
   constexpr void mbz1Is( U8 value ) noexcept { mbz1_ = value; }
   /// In bits.
   constexpr U8 ipLen() const noexcept { return ipLen_; }
   constexpr void ipLenIs( U8 bits ) noexcept { ipLen_ = bits; }

 protected:
   static constexpr auto elementOf( std::size_t addressSize ) {
      return LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::EvpnMacIp )
         .when( 35, 8 * addressSize )
         .length( 32 + addressSize )
         .inWords( "EVPN MAC/IP" );
   }
   constexpr bool hasLengths( std::size_t addressSize ) const noexcept {
      return macLen() == 8 * sizeof( Mac ) && ipLen() == 8 * addressSize;
   }

   /// \param behind  The rows of what follows.
   template < class View, class... Rows >
   static constexpr auto attributesOf( Rows... behind ) {
      using Self = LspPingEvpnMac;
      return LspPingEvpnSegment::attributesOf< View >(
         Kiv::field< &Self::mbz0, &Self::mbz0Is >( "mbz0" ),
         Kiv::field< &Self::macLen, &Self::macLenIs >( "macLen" ),
         Kiv::computed< &Self::macText >( "mac" ),
         Kiv::field< &Self::mbz1, &Self::mbz1Is >( "mbz1" ),
         Kiv::field< &Self::ipLen, &Self::ipLenIs >( "ipLen" ), behind... );
   }

 private:
   U8 mbz0_ = 0;
   U8 macLen_ = 0;
   Mac mac_{};
   U8 mbz1_ = 0;
   U8 ipLen_ = 0;
};

template < class Address >
class LspPingEvpnMacIp : public LspPingEvpnMac {
 public:
   constexpr Address ipAddr() const noexcept { return ipAddr_; }
   constexpr void ipAddrIs( Address address ) noexcept { ipAddr_ = address; }

 protected:
   static constexpr std::size_t addressSize = sizeof( Address );

   template < class View >
   static constexpr auto attributesOf() {
      using Self = LspPingEvpnMacIp;
      return LspPingEvpnMac::attributesOf< View >(
         Kiv::field< &Self::ipAddr, &Self::ipAddrIs >( "ipAddr" ) );
   }

 private:
   Address ipAddr_;
};

// The shape of Inclusive Multicast, RFC 9489 section 4.2, behind the Ethernet tag.
//
// +---------------+-----------------------------------------------+
// |     ipLen     |           routerAddr (4 or 16 bytes)          |
// +---------------+                                               |
// |                                                               |
// +---------------------------------------------------------------+
template < class Address >
class LspPingEvpnInclusiveMulticast : public LspPingEvpnInstance {
 public:
   /// In bits.
   constexpr U8 ipLen() const noexcept { return ipLen_; }
   constexpr void ipLenIs( U8 bits ) noexcept { ipLen_ = bits; }
   /// The originating router.
   constexpr Address routerAddr() const noexcept { return routerAddr_; }
   constexpr void routerAddrIs( Address address ) noexcept { routerAddr_ = address; }

 protected:
   static constexpr std::size_t addressSize = sizeof( Address );
   static constexpr auto elementOf() {
      return LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::EvpnInclusiveMulticast )
         .when( 16, 8 * addressSize )
         .length( 13 + addressSize )
         .inWords( "EVPN Inclusive Multicast" );
   }

   template < class View >
   static constexpr auto attributesOf() {
      using Self = LspPingEvpnInclusiveMulticast;
      return LspPingEvpnInstance::attributesOf< View >(
         Kiv::field< &Self::ipLen, &Self::ipLenIs >( "ipLen" ),
         Kiv::field< &Self::routerAddr, &Self::routerAddrIs >( "routerAddr" ) );
   }

 private:
   U8 ipLen_ = 0;
   Address routerAddr_;
};

// The shape of IP Prefix, RFC 9489 section 4.4, behind the segment. The length says the family.
//
//                                 +---------------+---------------+
//                                 |      mbz      |   prefixLen   |
// +-------------------------------+---------------+---------------+
// |                   ipPrefix (4 or 16 bytes)                    |
// |                  gatewayAddr (4 or 16 bytes)                  |
// +---------------------------------------------------------------+
template < class Address >
class LspPingEvpnPrefix : public LspPingEvpnSegment {
 public:
   constexpr U8 mbz() const noexcept { return mbz_; }
   constexpr void mbzIs( U8 value ) noexcept { mbz_ = value; }
   /// In bits.
   constexpr U8 prefixLen() const noexcept { return prefixLen_; }
   constexpr void prefixLenIs( U8 bits ) noexcept { prefixLen_ = bits; }
   constexpr Address ipPrefix() const noexcept { return ipPrefix_; }
   constexpr void ipPrefixIs( Address prefix ) noexcept { ipPrefix_ = prefix; }
   constexpr Address gatewayAddr() const noexcept { return gatewayAddr_; }
   constexpr void gatewayAddrIs( Address address ) noexcept { gatewayAddr_ = address; }

 protected:
   static constexpr std::size_t valueLength = 24 + 2 * sizeof( Address );
   static constexpr auto elementOf() {
      return LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::EvpnIpPrefix )
         .when( 3, valueLength )
         .length( valueLength )
         .inWords( "EVPN IP Prefix" );
   }

   template < class View >
   static constexpr auto attributesOf() {
      using Self = LspPingEvpnPrefix;
      return LspPingEvpnSegment::attributesOf< View >(
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ),
         Kiv::field< &Self::prefixLen, &Self::prefixLenIs >( "prefixLen" ),
         Kiv::field< &Self::ipPrefix, &Self::ipPrefixIs >( "ipPrefix" ),
         Kiv::field< &Self::gatewayAddr, &Self::gatewayAddrIs >( "gatewayAddr" ) );
   }

 private:
   U8 mbz_ = 0;
   U8 prefixLen_ = 0;
   Address ipPrefix_;
   Address gatewayAddr_;
};

// MAC/IP without an address, RFC 9489 section 4.1.
class LSPPING_EXT_EXPORT LspPingEvpnMacSubTlv
   : public Kiv::Typed< LspPingEvpnMacSubTlv, LspPingEvpnMac > {
 public:
   static constexpr auto element = elementOf( 0 ).definedIn( "RFC 9489 section 4.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && hasLengths( 0 );
   }
   /// "EvpnMac( RD: 7, tag: 100, ESI: '..', MAC: '00:1c:73:00:00:01' )", or "Invalid
   /// EvpnMacSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEvpnMacSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEvpnMacSubTlv, 36 > );

// MAC/IP with an address of IPv4, RFC 9489 section 4.1.
class LSPPING_EXT_EXPORT LspPingEvpnMacIpv4SubTlv
   : public Kiv::Typed< LspPingEvpnMacIpv4SubTlv, LspPingEvpnMacIp< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf( addressSize ).definedIn( "RFC 9489 section 4.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             hasLengths( addressSize );
   }
   /// "EvpnMacIpv4( RD: 7, tag: 100, ESI: '..', MAC: '00:1c:73:00:00:01', IP: '10.0.0.1' )", or
   /// "Invalid EvpnMacIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEvpnMacIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEvpnMacIpv4SubTlv, 40 > );

// MAC/IP with an address of IPv6, RFC 9489 section 4.1.
class LSPPING_EXT_EXPORT LspPingEvpnMacIpv6SubTlv
   : public Kiv::Typed< LspPingEvpnMacIpv6SubTlv, LspPingEvpnMacIp< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf( addressSize ).definedIn( "RFC 9489 section 4.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             hasLengths( addressSize );
   }
   /// "EvpnMacIpv6( RD: 7, tag: 100, ESI: '..', MAC: '00:1c:73:00:00:01', IP: '2001:db8::1' )", or
   /// "Invalid EvpnMacIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEvpnMacIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEvpnMacIpv6SubTlv, 52 > );

// Inclusive Multicast of a router of IPv4, RFC 9489 section 4.2.
class LSPPING_EXT_EXPORT LspPingEvpnInclusiveMulticastIpv4SubTlv
   : public Kiv::Typed< LspPingEvpnInclusiveMulticastIpv4SubTlv,
                        LspPingEvpnInclusiveMulticast< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 9489 section 4.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             ipLen() == 8 * addressSize;
   }
   /// "EvpnInclusiveMulticastIpv4( RD: 7, tag: 100, router: '10.0.0.1' )", or
   /// "Invalid EvpnInclusiveMulticastIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingEvpnInclusiveMulticastIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEvpnInclusiveMulticastIpv4SubTlv, 21 > );

// Inclusive Multicast of a router of IPv6, RFC 9489 section 4.2.
class LSPPING_EXT_EXPORT LspPingEvpnInclusiveMulticastIpv6SubTlv
   : public Kiv::Typed< LspPingEvpnInclusiveMulticastIpv6SubTlv,
                        LspPingEvpnInclusiveMulticast< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 9489 section 4.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             ipLen() == 8 * addressSize;
   }
   /// "EvpnInclusiveMulticastIpv6( RD: 7, tag: 100, router: '2001:db8::1' )", or
   /// "Invalid EvpnInclusiveMulticastIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingEvpnInclusiveMulticastIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEvpnInclusiveMulticastIpv6SubTlv, 33 > );

// Ethernet Auto-Discovery, RFC 9489 section 4.3: behind the segment come two bytes of zero.
class LSPPING_EXT_EXPORT LspPingEvpnEthernetAdSubTlv
   : public Kiv::Typed< LspPingEvpnEthernetAdSubTlv, LspPingEvpnSegment > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::EvpnEthernetAd )
         .length( 24 )
         .inWords( "EVPN Ethernet Auto-Discovery" )
         .definedIn( "RFC 9489 section 4.3" );

   constexpr U16 mbz() const noexcept { return mbz_.value(); }
   constexpr void mbzIs( U16 value ) noexcept { mbz_.valueIs( value ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "EvpnEthernetAd( RD: 7, tag: 100, ESI: '..' )", or "Invalid EvpnEthernetAdSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingEvpnEthernetAdSubTlv;
      return attributesOf< Self >( Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 mbz_;
};
static_assert( Kiv::isWireView< LspPingEvpnEthernetAdSubTlv, 28 > );

// IP Prefix of IPv4, RFC 9489 section 4.4.
class LSPPING_EXT_EXPORT LspPingEvpnIpv4PrefixSubTlv
   : public Kiv::Typed< LspPingEvpnIpv4PrefixSubTlv, LspPingEvpnPrefix< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 9489 section 4.4" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             prefixLen() <= 8 * sizeof( ipPrefix() );
   }
   /// "EvpnIpv4Prefix( RD: 7, tag: 100, ESI: '..', prefix: '10.1.0.0/16', gateway: '10.0.0.1' )",
   /// or "Invalid EvpnIpv4PrefixSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEvpnIpv4PrefixSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEvpnIpv4PrefixSubTlv, 36 > );

// IP Prefix of IPv6, RFC 9489 section 4.4.
class LSPPING_EXT_EXPORT LspPingEvpnIpv6PrefixSubTlv
   : public Kiv::Typed< LspPingEvpnIpv6PrefixSubTlv, LspPingEvpnPrefix< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 9489 section 4.4" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             prefixLen() <= 8 * sizeof( ipPrefix() );
   }
   /// "EvpnIpv6Prefix( RD: 7, tag: 100, ESI: '..', prefix: '2001:db8::/32', gateway: 'fe80::1' )",
   /// or "Invalid EvpnIpv6PrefixSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEvpnIpv6PrefixSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEvpnIpv6PrefixSubTlv, 60 > );

} // namespace LspPing
