#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// The shape of the FECs that name a plain address prefix, RFC 8029 sections 3.2.1 and 3.2.13 to
// 3.2.16. The length counts address and prefix length; the must-be-zero bytes behind them are
// padding and part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |             type              |        length = 5, 17         |
// +-------------------------------+-------------------------------+
// |                   ipPrefix (4 or 16 bytes)                    |
// +---------------+---------------+-------------------------------+
// |   prefixLen   |     mbz0      |             mbz1              |
// +---------------+---------------+-------------------------------+
template < class Address >
class LspPingPrefixSubTlv : public LspPingTlvHdr {
 public:
   constexpr Address ipPrefix() const noexcept { return ipPrefix_; }
   constexpr void ipPrefixIs( Address prefix ) noexcept { ipPrefix_ = prefix; }
   /// In bits.
   constexpr U8 prefixLen() const noexcept { return prefixLen_; }
   constexpr void prefixLenIs( U8 bits ) noexcept { prefixLen_ = bits; }
   constexpr U8 mbz0() const noexcept { return mbz0_; }
   constexpr void mbz0Is( U8 value ) noexcept { mbz0_ = value; }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz1() const noexcept { return mbz1_.raw(); }
   constexpr void mbz1Is( U16 raw ) noexcept { mbz1_.rawIs( raw ); }

 protected:
   // What counts: address and prefix length.
   static constexpr U16 valueLength = sizeof( Address ) + 1;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingPrefixSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::ipPrefix, &Self::ipPrefixIs >( "ipPrefix" ),
         Kiv::field< &Self::prefixLen, &Self::prefixLenIs >( "prefixLen" ),
         Kiv::field< &Self::mbz0, &Self::mbz0Is >( "mbz0" ),
         Kiv::field< &Self::mbz1, &Self::mbz1Is >( "mbz1" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address ipPrefix_;
   U8 prefixLen_ = 0;
   U8 mbz0_ = 0;
   Velnet::NetU16 mbz1_;
};

// LDP IPv4 prefix, RFC 8029 section 3.2.1.
class LSPPING_EXPORT LspPingLdpIpv4SubTlv
   : public Kiv::Typed< LspPingLdpIpv4SubTlv, LspPingPrefixSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::LDPIpv4 )
                                      .length( valueLength )
                                      .definedIn( "RFC 8029 section 3.2.1" );

   /// Looks at the length only, neither at the type nor at the prefix length.
   constexpr bool valid() const noexcept { return element.hasLength( length() ); }
   /// "LdpIpv4( '10.1.2.0/24' )", or "Invalid LdpIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingLdpIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingLdpIpv4SubTlv, 12 > );

// Generic IPv4 prefix, RFC 8029 section 3.2.15.
class LSPPING_EXPORT LspPingGenericIpv4SubTlv
   : public Kiv::Typed< LspPingGenericIpv4SubTlv, LspPingPrefixSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::GenericIpv4 )
         .length( valueLength )
         .definedIn( "RFC 8029 section 3.2.15" );

   /// Looks at the length only, neither at the type nor at the prefix length.
   constexpr bool valid() const noexcept { return element.hasLength( length() ); }
   /// "GenericIpv4( '10.1.2.0/24' )"; empty when invalid.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingGenericIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingGenericIpv4SubTlv, 12 > );

// Generic IPv6 prefix, RFC 8029 section 3.2.16.
class LSPPING_EXPORT LspPingGenericIpv6SubTlv
   : public Kiv::Typed< LspPingGenericIpv6SubTlv, LspPingPrefixSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::GenericIpv6 )
         .length( valueLength )
         .definedIn( "RFC 8029 section 3.2.16" );

   /// Looks at the length only, neither at the type nor at the prefix length.
   constexpr bool valid() const noexcept { return element.hasLength( length() ); }
   /// "GenericIpv6( '2001:db8::/32' )"; empty when invalid.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingGenericIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingGenericIpv6SubTlv, 24 > );

// BGP labeled IPv4 prefix, RFC 8029 section 3.2.13.
class LSPPING_EXPORT LspPingBgpLuIpv4SubTlv
   : public Kiv::Typed< LspPingBgpLuIpv4SubTlv, LspPingPrefixSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::BGPLabeledIpv4 )
         .length( valueLength )
         .definedIn( "RFC 8029 section 3.2.13" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && prefixLen() <= 32;
   }
   /// "BgpLuIpv4( '10.1.2.0/24' )", or "Invalid BgpLuIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingBgpLuIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingBgpLuIpv4SubTlv, 12 > );

// BGP labeled IPv6 prefix, RFC 8029 section 3.2.14.
class LSPPING_EXPORT LspPingBgpLuIpv6SubTlv
   : public Kiv::Typed< LspPingBgpLuIpv6SubTlv, LspPingPrefixSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::BGPLabeledIpv6 )
         .length( valueLength )
         .definedIn( "RFC 8029 section 3.2.14" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && prefixLen() <= 128;
   }
   /// "BgpLuIpv6( '2001:db8::/32' )", or "Invalid BgpLuIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingBgpLuIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingBgpLuIpv6SubTlv, 24 > );

} // namespace LspPing
