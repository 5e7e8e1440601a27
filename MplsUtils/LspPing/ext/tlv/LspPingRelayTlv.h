#pragma once

#include "MplsUtils/LspPing/ext/LspPingAddressTail.h"
#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/ext/LspPingTail.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"

#include <iterator>

namespace LspPing {

/// An entry of the relay node address stack, RFC 7743 section 3.2.
struct LspPingRelayedAddress {
   /// LspPingRelayAddrType.
   U8 addrType = 0;
   /// LspPingRelayFlags.
   U8 flags = 0;
   U16 reserved = 0;
   /// None of the null type.
   Velnet::IpGenAddr address;
};

/// The entries in some bytes, from the top of the stack; they end before the first one that does
/// not fit.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+-+-------------+-------------------------------+
// |   addrType    |K|   reserved  |           reserved            |
// +---------------+-+-------------+-------------------------------+
// |                  address (0, 4 or 16 bytes)                   |
// +---------------------------------------------------------------+
class LspPingRelayedAddresses {
 public:
   class Iterator {
    public:
      constexpr explicit Iterator( std::span< U8 const > bytes ) noexcept : left_( bytes ) {}

      constexpr LspPingRelayedAddress operator*() const noexcept {
         return { left_[0], left_[1], static_cast< U16 >( left_[2] << 8 | left_[3] ),
                  lspPingAddressOf( left_.subspan( fixed, size() - fixed ) ) };
      }
      constexpr Iterator & operator++() noexcept {
         left_ = left_.subspan( size() );
         return *this;
      }
      constexpr bool operator==( std::default_sentinel_t ) const noexcept { return size() == 0; }
      /// The bytes from this entry on.
      constexpr std::span< U8 const > left() const noexcept { return left_; }

    private:
      static constexpr std::size_t fixed = 4;

      // 0 where no entry fits.
      constexpr std::size_t size() const noexcept {
         if( left_.size() < fixed )
            return 0;
         auto const address =
            lspPingAddressSize( left_[0], Kiv::numberOf( LspPingRelayAddrType::ipv6RelayAddr ) );
         return address && *address <= left_.size() - fixed ? fixed + *address : 0;
      }

      std::span< U8 const > left_;
   };

   constexpr explicit LspPingRelayedAddresses( std::span< U8 const > bytes ) noexcept
      : bytes_( bytes ) {}
   constexpr Iterator begin() const noexcept { return Iterator( bytes_ ); }
   constexpr std::default_sentinel_t end() const noexcept { return {}; }

 private:
   std::span< U8 const > bytes_;
};

// Relay Node Address Stack, RFC 7743 section 3.2: the routers that a reply takes on its way to the
// initiator. What follows the replying router's address has no fixed place.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 32768          |            length             |
// +-------------------------------+---------------+---------------+
// |      initiatorSourcePort      | replyAddrType |   reserved    |
// +-------------------------------+---------------+---------------+
// |                 replyAddr (0, 4 or 16 bytes)                  |
// +-------------------------------+-------------------------------+
// |     destinationAddrOffset     |          addressCount         |
// +-------------------------------+-------------------------------+
// |                           addresses                           |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingRelayNodeAddressStackTlv
   : public Kiv::Typed< LspPingRelayNodeAddressStackTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::RelayNodeAddressStack )
                                      .atLeast( 8 )
                                      .followedBy( LspPingBehind::tail )
                                      .inWords( "Relay Node Address Stack" )
                                      .definedIn( "RFC 7743 section 3.2" );

   /// UDP port that the reply is sent to.
   constexpr U16 initiatorSourcePort() const noexcept { return initiatorSourcePort_.value(); }
   constexpr void initiatorSourcePortIs( U16 port ) noexcept {
      initiatorSourcePort_.valueIs( port );
   }
   /// LspPingRelayAddrType.
   constexpr U8 replyAddrType() const noexcept { return replyAddrType_; }
   constexpr void replyAddrTypeIs( U8 type ) noexcept { replyAddrType_ = type; }
   constexpr U8 reserved() const noexcept { return reserved_; }
   constexpr void reservedIs( U8 value ) noexcept { reserved_ = value; }

   // Where the type is unknown or the length ends before it, an address is none and a number 0.
   /// Of the router that answers.
   Velnet::IpGenAddr replyAddr() const noexcept;
   /// From the top of the stack to the entry that the reply is sent to, in bytes.
   U16 destinationAddrOffset() const noexcept { return word( 0 ); }
   U16 addressCount() const noexcept { return word( 2 ); }
   LspPingRelayedAddresses addresses() const noexcept;

   /// As many entries as are said, and nothing else; does not look at the offset.
   bool valid() const noexcept;
   /// "RelayNodeAddressStack( '10.0.0.1', source port: 3503, destination offset: 8, relays:
   /// '10.0.0.2' keep, none )", or "Invalid RelayNodeAddressStackTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingRelayNodeAddressStackTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::initiatorSourcePort, &Self::initiatorSourcePortIs >(
            "initiatorSourcePort" ),
         Kiv::field< &Self::replyAddrType, &Self::replyAddrTypeIs >( "replyAddrType" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::computed< &Self::replyAddr >( "replyAddr" ),
         Kiv::computed< &Self::destinationAddrOffset >( "destinationAddrOffset" ),
         Kiv::computed< &Self::addressCount >( "addressCount" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   /// With the addresses.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingRelayNodeAddressStackTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   // Behind the replying router's address.
   std::span< U8 const > counted() const noexcept;
   U16 word( std::size_t at ) const noexcept;

   Velnet::NetU16 initiatorSourcePort_;
   U8 replyAddrType_ = 0;
   U8 reserved_ = 0;
};
static_assert( Kiv::isWireView< LspPingRelayNodeAddressStackTlv, 8 > );

} // namespace LspPing
