#pragma once

#include "MplsUtils/LspPing/ext/tlv/LspPingAddressTlv.h"

// Who shall answer for a point-to-multipoint LSP: the sub-TLVs of the P2MP Responder Identifier
// TLV, RFC 6425 section 3.2.
namespace LspPing {

// IPv4 egress address, RFC 6425 section 3.2.1.
class LSPPING_EXT_EXPORT LspPingResponderEgressIpv4SubTlv
   : public Kiv::Typed< LspPingResponderEgressIpv4SubTlv, LspPingAddressTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::responderSubTlv( LspPingP2mpRespTlvType::EgrAddr4 )
         .length( valueLength )
         .inWords( "IPv4 Egress Address P2MP Responder" )
         .definedIn( "RFC 6425 section 3.2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "ResponderEgressIpv4( '10.0.0.1' )", or "Invalid ResponderEgressIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingResponderEgressIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingResponderEgressIpv4SubTlv, 8 > );

// IPv6 egress address, RFC 6425 section 3.2.1.
class LSPPING_EXT_EXPORT LspPingResponderEgressIpv6SubTlv
   : public Kiv::Typed< LspPingResponderEgressIpv6SubTlv, LspPingAddressTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::responderSubTlv( LspPingP2mpRespTlvType::EgrAddr6 )
         .length( valueLength )
         .inWords( "IPv6 Egress Address P2MP Responder" )
         .definedIn( "RFC 6425 section 3.2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "ResponderEgressIpv6( '2001:db8::1' )", or "Invalid ResponderEgressIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingResponderEgressIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingResponderEgressIpv6SubTlv, 20 > );

// IPv4 node address, RFC 6425 section 3.2.2.
class LSPPING_EXT_EXPORT LspPingResponderNodeIpv4SubTlv
   : public Kiv::Typed< LspPingResponderNodeIpv4SubTlv, LspPingAddressTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::responderSubTlv( LspPingP2mpRespTlvType::NodeAddr4 )
         .length( valueLength )
         .inWords( "IPv4 Node Address P2MP Responder" )
         .definedIn( "RFC 6425 section 3.2.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "ResponderNodeIpv4( '10.0.0.1' )", or "Invalid ResponderNodeIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingResponderNodeIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingResponderNodeIpv4SubTlv, 8 > );

// IPv6 node address, RFC 6425 section 3.2.2.
class LSPPING_EXT_EXPORT LspPingResponderNodeIpv6SubTlv
   : public Kiv::Typed< LspPingResponderNodeIpv6SubTlv, LspPingAddressTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::responderSubTlv( LspPingP2mpRespTlvType::NodeAddr6 )
         .length( valueLength )
         .inWords( "IPv6 Node Address P2MP Responder" )
         .definedIn( "RFC 6425 section 3.2.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "ResponderNodeIpv6( '2001:db8::1' )", or "Invalid ResponderNodeIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingResponderNodeIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingResponderNodeIpv6SubTlv, 20 > );

} // namespace LspPing
