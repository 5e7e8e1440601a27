#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// The shape of the FECs that name a prefix inside a VPN, RFC 8029 sections 3.2.5 and 3.2.6. The
// length counts route distinguisher, address and prefix length; the must-be-zero bytes behind them
// are padding and part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 6, 7          |        length = 13, 25        |
// +-------------------------------+-------------------------------+
// |                         rd (8 bytes)                          |
// |                   ipPrefix (4 or 16 bytes)                    |
// +---------------+---------------+-------------------------------+
// |   prefixLen   |     mbz0      |             mbz1              |
// +---------------+---------------+-------------------------------+
template < class Address >
class LspPingVpnSubTlv : public LspPingTlvHdr {
 public:
   /// The route distinguisher as one number, whatever its own type and parts.
   constexpr U64 rd() const noexcept { return rd_.value(); }
   constexpr void rdIs( U64 rd ) noexcept { rd_.valueIs( rd ); }
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
   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingVpnSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::rd, &Self::rdIs >( "rd" ),
         Kiv::field< &Self::ipPrefix, &Self::ipPrefixIs >( "ipPrefix" ),
         Kiv::field< &Self::prefixLen, &Self::prefixLenIs >( "prefixLen" ),
         Kiv::field< &Self::mbz0, &Self::mbz0Is >( "mbz0" ),
         Kiv::field< &Self::mbz1, &Self::mbz1Is >( "mbz1" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::NetU64 rd_;
   Address ipPrefix_;
   U8 prefixLen_ = 0;
   U8 mbz0_ = 0;
   Velnet::NetU16 mbz1_;
};

// VPN IPv4 prefix, RFC 8029 section 3.2.5.
class LSPPING_EXPORT LspPingVpnIpv4SubTlv
   : public Kiv::Typed< LspPingVpnIpv4SubTlv, LspPingVpnSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::VPNIpv4 )
                                      .length( 13 )
                                      .definedIn( "RFC 8029 section 3.2.5" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && prefixLen() <= 32;
   }
   /// "VpnIpv4( 281474983264257, '10.0.0.0/8' )", or "Invalid VpnIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingVpnIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingVpnIpv4SubTlv, 20 > );

// VPN IPv6 prefix, RFC 8029 section 3.2.6.
class LSPPING_EXPORT LspPingVpnIpv6SubTlv
   : public Kiv::Typed< LspPingVpnIpv6SubTlv, LspPingVpnSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::VPNIpv6 )
                                      .length( 25 )
                                      .definedIn( "RFC 8029 section 3.2.6" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && prefixLen() <= 128;
   }
   /// "VpnIpv6( 281474983264257, '2001:db8::/32' )", or "Invalid VpnIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingVpnIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingVpnIpv6SubTlv, 32 > );

} // namespace LspPing
