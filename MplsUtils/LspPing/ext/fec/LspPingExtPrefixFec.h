#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/fec/LspPingPrefixFec.h"

namespace LspPing {

// LDP IPv6 prefix, RFC 8029 section 3.2.2; the shape is that of the other prefixes.
class LSPPING_EXT_EXPORT LspPingLdpIpv6SubTlv
   : public Kiv::Typed< LspPingLdpIpv6SubTlv, LspPingPrefixSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::LDPIpv6 )
                                      .length( valueLength )
                                      .definedIn( "RFC 8029 section 3.2.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "LdpIpv6( '2001:db8::/32' )", or "Invalid LdpIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingLdpIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingLdpIpv6SubTlv, 24 > );

// The shape of the multi-topology LDP prefixes, RFC 7307 sections 4.3.2 and 4.3.3. The figures give
// the lengths 8 and 20, which count the topology; the text says 5 and 17, as of the prefixes
// without one, and with these the topology stands in what would be padding.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 31, 32         |     length = 8 (5), 20 (17)   |
// +-------------------------------+-------------------------------+
// |                   ipPrefix (4 or 16 bytes)                    |
// +---------------+---------------+-------------------------------+
// |   prefixLen   |      mbz      |             mtId              |
// +---------------+---------------+-------------------------------+
template < class Address >
class LspPingMtPrefixSubTlv : public LspPingTlvHdr {
 public:
   constexpr Address ipPrefix() const noexcept { return ipPrefix_; }
   constexpr void ipPrefixIs( Address prefix ) noexcept { ipPrefix_ = prefix; }
   /// In bits.
   constexpr U8 prefixLen() const noexcept { return prefixLen_; }
   constexpr void prefixLenIs( U8 bits ) noexcept { prefixLen_ = bits; }
   constexpr U8 mbz() const noexcept { return mbz_; }
   constexpr void mbzIs( U8 value ) noexcept { mbz_ = value; }
   /// Of the topology, RFC 7307 section 3.2.
   constexpr U16 mtId() const noexcept { return mtId_.value(); }
   constexpr void mtIdIs( U16 id ) noexcept { mtId_.valueIs( id ); }

 protected:
   static constexpr auto elementOf( LspPingExtTargetFecSubTlvType code ) {
      return LspPingElement::targetFec( code )
         .length( sizeof( Address ) + 4 )
         .orLength( sizeof( Address ) + 1, "length without the topology, RFC 7307 section 4.3" );
   }

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingMtPrefixSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::ipPrefix, &Self::ipPrefixIs >( "ipPrefix" ),
         Kiv::field< &Self::prefixLen, &Self::prefixLenIs >( "prefixLen" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ),
         Kiv::field< &Self::mtId, &Self::mtIdIs >( "mtId" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address ipPrefix_;
   U8 prefixLen_ = 0;
   U8 mbz_ = 0;
   Velnet::NetU16 mtId_;
};

// MT LDP IPv4 prefix, RFC 7307 section 4.3.2.
class LSPPING_EXT_EXPORT LspPingMtLdpIpv4SubTlv
   : public Kiv::Typed< LspPingMtLdpIpv4SubTlv, LspPingMtPrefixSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtTargetFecSubTlvType::MTLDPIpv4 )
                                      .inWords( "Multi-Topology LDP IPv4 prefix" )
                                      .definedIn( "RFC 7307 section 4.3.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "MtLdpIpv4( '10.1.2.0/24', topology: 2 )", or "Invalid MtLdpIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingMtLdpIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingMtLdpIpv4SubTlv, 12 > );

// MT LDP IPv6 prefix, RFC 7307 section 4.3.3.
class LSPPING_EXT_EXPORT LspPingMtLdpIpv6SubTlv
   : public Kiv::Typed< LspPingMtLdpIpv6SubTlv, LspPingMtPrefixSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtTargetFecSubTlvType::MTLDPIpv6 )
                                      .inWords( "Multi-Topology LDP IPv6 prefix" )
                                      .definedIn( "RFC 7307 section 4.3.3" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "MtLdpIpv6( '2001:db8::/32', topology: 2 )", or "Invalid MtLdpIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingMtLdpIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingMtLdpIpv6SubTlv, 24 > );

} // namespace LspPing
