#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/ext/fec/LspPingTunnelFlags.h"
#include "MplsUtils/LspPing/fec/LspPingRsvpFec.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"

namespace LspPing {

// RSVP IPv6 LSP, RFC 8029 section 3.2.4; the shape is that of the one of IPv4.
class LSPPING_EXT_EXPORT LspPingRsvpIpv6SubTlv
   : public Kiv::Typed< LspPingRsvpIpv6SubTlv,
                        LspPingRsvpSubTlv< Velnet::Ip6Addr, Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::RSVPIpv6Lsp )
         .length( 56 )
         .definedIn( "RFC 8029 section 3.2.4" );

   /// The tunnel's end point.
   constexpr Velnet::Ip6Addr destination() const noexcept { return session(); }
   constexpr void destinationIs( Velnet::Ip6Addr address ) noexcept { sessionIs( address ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "RsvpIpv6( destination: '2001:db8::1', tunnel: 7, extended tunnel: '2001:db8::2', sender:
   /// '2001:db8::2', LSP: 9 )", or "Invalid RsvpIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingRsvpIpv6SubTlv;
      return attributesOf< Self >(
         Kiv::field< &Self::destination, &Self::destinationIs >( "destination" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingRsvpIpv6SubTlv, 60 > );

// RSVP P2MP IPv6 session, RFC 6425 section 3.1.1.2: what is drawn there has 44 bytes, and section
// 3.1.1 states 56.
class LSPPING_EXT_EXPORT LspPingRsvpP2mpIpv6SubTlv
   : public Kiv::Typed< LspPingRsvpP2mpIpv6SubTlv,
                        LspPingRsvpSubTlv< Velnet::NetU32, Velnet::Ip6Addr > > {
 public:
   static constexpr U16 drawnLength = 44;
   static constexpr U16 statedLength = 56;
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::RSVPP2MPIpv6 )
         .length( drawnLength )
         .orStated( statedLength - drawnLength, "length long by 12, RFC 6425 section 3.1.1" )
         .inWords( "RSVP P2MP IPv6 Session" )
         .definedIn( "RFC 6425 section 3.1.1.2" );

   constexpr U32 p2mpId() const noexcept { return session().value(); }
   constexpr void p2mpIdIs( U32 id ) noexcept { sessionIs( Velnet::NetU32( id ) ); }

   /// With the length as drawn or as stated.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && ( length() == drawnLength || length() == statedLength );
   }
   /// "RsvpP2mpIpv6( P2MP id: 5, tunnel: 7, extended tunnel: '2001:db8::2', sender: '2001:db8::2',
   /// LSP: 9 )", or "Invalid RsvpP2mpIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingRsvpP2mpIpv6SubTlv;
      return attributesOf< Self >( Kiv::field< &Self::p2mpId, &Self::p2mpIdIs >( "p2mpId" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingRsvpP2mpIpv6SubTlv, 48 > );

// The shape of the RSVP-TE tunnels, any LSP of which may be the way back, RFC 7110 sections 4.3.1
// and 4.3.2.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 26, 27         |        length = 16, 52        |
// +-------------------------------+-------------------------------+
// |                  destination (4 or 16 bytes)                  |
// +-------------------------------+-------------------------------+
// |             flags             |           tunnelId            |
// +-------------------------------+-------------------------------+
// |               extendedTunnelId (4 or 16 bytes)                |
// |                 senderAddress (4 or 16 bytes)                 |
// +---------------------------------------------------------------+
template < class Address >
class LspPingRsvpTunnelSubTlv : public LspPingTlvHdr {
 public:
   /// The tunnel's end point.
   constexpr Address destination() const noexcept { return destination_; }
   constexpr void destinationIs( Address address ) noexcept { destination_ = address; }
   /// LspPingTunnelFlags.
   constexpr U16 flags() const noexcept { return flags_.value(); }
   constexpr void flagsIs( U16 flags ) noexcept { flags_.valueIs( flags ); }
   constexpr U16 tunnelId() const noexcept { return tunnelId_.value(); }
   constexpr void tunnelIdIs( U16 id ) noexcept { tunnelId_.valueIs( id ); }
   constexpr Address extendedTunnelId() const noexcept { return extendedTunnelId_; }
   constexpr void extendedTunnelIdIs( Address id ) noexcept { extendedTunnelId_ = id; }
   constexpr Address senderAddress() const noexcept { return senderAddress_; }
   constexpr void senderAddressIs( Address address ) noexcept { senderAddress_ = address; }

 protected:
   static constexpr U16 valueLength = 3 * sizeof( Address ) + 4;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingRsvpTunnelSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::destination, &Self::destinationIs >( "destination" ),
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::field< &Self::tunnelId, &Self::tunnelIdIs >( "tunnelId" ),
         Kiv::field< &Self::extendedTunnelId, &Self::extendedTunnelIdIs >( "extendedTunnelId" ),
         Kiv::field< &Self::senderAddress, &Self::senderAddressIs >( "senderAddress" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address destination_;
   Velnet::NetU16 flags_;
   Velnet::NetU16 tunnelId_;
   Address extendedTunnelId_;
   Address senderAddress_;
};

// IPv4 RSVP Tunnel, RFC 7110 section 4.3.1.
class LSPPING_EXT_EXPORT LspPingRsvpTunnelIpv4SubTlv
   : public Kiv::Typed< LspPingRsvpTunnelIpv4SubTlv, LspPingRsvpTunnelSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::RSVPIpv4Tunnel )
         .length( valueLength )
         .inWords( "IPv4 RSVP Tunnel" )
         .definedIn( "RFC 7110 section 4.3.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             lspPingAreTunnelFlags( flags() );
   }
   /// "RsvpTunnelIpv4( destination: '10.0.0.1', flags: P, tunnel: 7, extended tunnel: '10.0.0.2',
   /// sender: '10.0.0.2' )", or "Invalid RsvpTunnelIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingRsvpTunnelIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingRsvpTunnelIpv4SubTlv, 20 > );

// IPv6 RSVP Tunnel, RFC 7110 section 4.3.2.
class LSPPING_EXT_EXPORT LspPingRsvpTunnelIpv6SubTlv
   : public Kiv::Typed< LspPingRsvpTunnelIpv6SubTlv, LspPingRsvpTunnelSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::RSVPIpv6Tunnel )
         .length( valueLength )
         .inWords( "IPv6 RSVP Tunnel" )
         .definedIn( "RFC 7110 section 4.3.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             lspPingAreTunnelFlags( flags() );
   }
   /// "RsvpTunnelIpv6( destination: '2001:db8::1', flags: none, tunnel: 7, extended tunnel:
   /// '2001:db8::2', sender: '2001:db8::2' )", or "Invalid RsvpTunnelIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingRsvpTunnelIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingRsvpTunnelIpv6SubTlv, 56 > );

} // namespace LspPing
