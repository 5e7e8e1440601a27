#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// The shape of the FECs that name an RSVP-TE LSP by its session and sender, RFC 8029 sections 3.2.3
// and 3.2.4 and RFC 6425 section 3.1.1. Addresses have 4 bytes or 16, and so has what extends the
// tunnel's number.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |      type = 3, 4, 17, 18      |      length = 20, 56, 44      |
// +-------------------------------+-------------------------------+
// |                     destination or p2mpId                     |
// +-------------------------------+-------------------------------+
// |             mbz0              |           tunnelId            |
// +-------------------------------+-------------------------------+
// |                       extendedTunnelId                        |
// |                         senderAddress                         |
// +-------------------------------+-------------------------------+
// |             mbz1              |             lspId             |
// +-------------------------------+-------------------------------+
template < class Session, class Address = Velnet::IpAddr >
class LspPingRsvpSubTlv : public LspPingTlvHdr {
 public:
   /// As stored, without byte-order conversion.
   constexpr U16 mbz0() const noexcept { return mbz0_.raw(); }
   constexpr void mbz0Is( U16 raw ) noexcept { mbz0_.rawIs( raw ); }
   constexpr U16 tunnelId() const noexcept { return tunnelId_.value(); }
   constexpr void tunnelIdIs( U16 id ) noexcept { tunnelId_.valueIs( id ); }
   constexpr Address extendedTunnelId() const noexcept { return extendedTunnelId_; }
   constexpr void extendedTunnelIdIs( Address id ) noexcept { extendedTunnelId_ = id; }
   constexpr Address senderAddress() const noexcept { return senderAddress_; }
   constexpr void senderAddressIs( Address address ) noexcept { senderAddress_ = address; }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz1() const noexcept { return mbz1_.raw(); }
   constexpr void mbz1Is( U16 raw ) noexcept { mbz1_.rawIs( raw ); }
   constexpr U16 lspId() const noexcept { return lspId_.value(); }
   constexpr void lspIdIs( U16 id ) noexcept { lspId_.valueIs( id ); }

 protected:
   constexpr Session session() const noexcept { return session_; }
   constexpr void sessionIs( Session session ) noexcept { session_ = session; }

   template < class View >
   static constexpr auto attributesOf( auto session ) {
      using Self = LspPingRsvpSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         session, Kiv::field< &Self::mbz0, &Self::mbz0Is >( "mbz0" ),
         Kiv::field< &Self::tunnelId, &Self::tunnelIdIs >( "tunnelId" ),
         Kiv::field< &Self::extendedTunnelId, &Self::extendedTunnelIdIs >( "extendedTunnelId" ),
         Kiv::field< &Self::senderAddress, &Self::senderAddressIs >( "senderAddress" ),
         Kiv::field< &Self::mbz1, &Self::mbz1Is >( "mbz1" ),
         Kiv::field< &Self::lspId, &Self::lspIdIs >( "lspId" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Session session_;
   Velnet::NetU16 mbz0_;
   Velnet::NetU16 tunnelId_;
   Address extendedTunnelId_;
   Address senderAddress_;
   Velnet::NetU16 mbz1_;
   Velnet::NetU16 lspId_;
};

// RSVP IPv4 LSP, RFC 8029 section 3.2.3: a point-to-point LSP.
class LSPPING_EXPORT LspPingRsvpIpv4SubTlv
   : public Kiv::Typed< LspPingRsvpIpv4SubTlv, LspPingRsvpSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::RSVPIpv4Lsp )
         .length( 20 )
         .definedIn( "RFC 8029 section 3.2.3" );

   /// The tunnel's end point.
   constexpr Velnet::IpAddr destination() const noexcept { return session(); }
   constexpr void destinationIs( Velnet::IpAddr address ) noexcept { sessionIs( address ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "RsvpIpv4:" and five fields, each behind a tab, or "Invalid RsvpIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingRsvpIpv4SubTlv;
      return attributesOf< Self >(
         Kiv::field< &Self::destination, &Self::destinationIs >( "destination" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingRsvpIpv4SubTlv, 24 > );

// RSVP P2MP IPv4 session, RFC 6425 section 3.1.1.1: a point-to-multipoint LSP, which has a number
// of its own in place of an end point.
class LSPPING_EXPORT LspPingRsvpP2mpIpv4SubTlv
   : public Kiv::Typed< LspPingRsvpP2mpIpv4SubTlv, LspPingRsvpSubTlv< Velnet::NetU32 > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::RSVPP2MPIpv4 )
         .length( 20 )
         .definedIn( "RFC 6425 section 3.1.1.1" );

   constexpr U32 p2mpId() const noexcept { return session().value(); }
   constexpr void p2mpIdIs( U32 id ) noexcept { sessionIs( Velnet::NetU32( id ) ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "RsvpP2mpIpv4:" and five fields, each behind a tab, or "Invalid RsvpP2mpIpv4SubTlv". A
   /// `p2mpId` of 2^31 and more prints negative.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingRsvpP2mpIpv4SubTlv;
      return attributesOf< Self >( Kiv::field< &Self::p2mpId, &Self::p2mpIdIs >( "p2mpId" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingRsvpP2mpIpv4SubTlv, 24 > );

} // namespace LspPing
