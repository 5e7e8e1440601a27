#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Pseudowire/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireGenId.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <cstddef>
#include <span>

namespace LspPing {

// What both FECs of a pseudowire begin with: the two provider edges between which it runs.
class LspPingPseudowireSubTlv : public LspPingTlvHdr {
 public:
   constexpr Velnet::IpAddr senderAddr() const noexcept { return senderAddr_; }
   constexpr void senderAddrIs( Velnet::IpAddr address ) noexcept { senderAddr_ = address; }
   constexpr Velnet::IpAddr receiverAddr() const noexcept { return receiverAddr_; }
   constexpr void receiverAddrIs( Velnet::IpAddr address ) noexcept { receiverAddr_ = address; }

 protected:
   // Ethernet tagged mode and Ethernet, RFC 4446 section 3.2. No other type is taken for valid.
   static constexpr bool isEthernet( U16 pwType ) noexcept { return pwType == 4 || pwType == 5; }

   template < class View, class... Rows >
   static consteval auto attributesOf( Rows... rows ) {
      using Self = LspPingPseudowireSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::senderAddr, &Self::senderAddrIs >( "senderAddr" ),
         Kiv::field< &Self::receiverAddr, &Self::receiverAddrIs >( "receiverAddr" ), rows...,
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::IpAddr senderAddr_;
   Velnet::IpAddr receiverAddr_;
};

// FEC 128 pseudowire, RFC 8029 section 3.2.9.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 10           |          length = 14          |
// +-------------------------------+-------------------------------+
// |                          senderAddr                           |
// +---------------------------------------------------------------+
// |                         receiverAddr                          |
// +---------------------------------------------------------------+
// |                             pwId                              |
// +-------------------------------+-------------------------------+
// |            pwType             |              mbz              |
// +-------------------------------+-------------------------------+
class LSPPING_EXPORT LspPingFec128Ipv4SubTlv
   : public Kiv::Typed< LspPingFec128Ipv4SubTlv, LspPingPseudowireSubTlv > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::FEC128Pseudowire )
         .length( 14 )
         .definedIn( "RFC 8029 section 3.2.9" );

   constexpr U32 pwId() const noexcept { return pwId_.value(); }
   constexpr void pwIdIs( U32 id ) noexcept { pwId_.valueIs( id ); }
   constexpr U16 pwType() const noexcept { return pwType_.value(); }
   constexpr void pwTypeIs( U16 type ) noexcept { pwType_.valueIs( type ); }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz() const noexcept { return mbz_.raw(); }
   constexpr void mbzIs( U16 raw ) noexcept { mbz_.rawIs( raw ); }

   /// Unlike in almost every other view, a must-be-zero field that is not makes this one invalid.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && mbz() == 0 &&
             isEthernet( pwType() );
   }
   /// The addresses, pwId and pwType, or "Invalid Fec128Ipv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingFec128Ipv4SubTlv;
      return attributesOf< Self >( Kiv::field< &Self::pwId, &Self::pwIdIs >( "pwId" ),
                                   Kiv::field< &Self::pwType, &Self::pwTypeIs >( "pwType" ),
                                   Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 pwId_;
   Velnet::NetU16 pwType_;
   Velnet::NetU16 mbz_;
};
static_assert( Kiv::isWireView< LspPingFec128Ipv4SubTlv, 20 > );

// FEC 129 pseudowire, RFC 8029 section 3.2.10. The view is the part up to pwType. The three
// identifiers behind it are read and written where the length field says that there are bytes.
// Zeros behind them fill the value to a multiple of four. The RFC's length does not count them;
// here it does: writing asks for a length that covers them, reading takes either.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 11           |            length             |
// +-------------------------------+-------------------------------+
// |                          senderAddr                           |
// +---------------------------------------------------------------+
// |                         receiverAddr                          |
// +-------------------------------+---------------+---------------+
// |            pwType             |   AGI type    |  AGI length   |
// +-------------------------------+---------------+---------------+
// |                    AGI value (0 to 8 bytes)                   |
// +---------------+---------------+-------------------------------+
// |   SAII type   |  SAII length  |   SAII value (0 to 8 bytes)   |
// +---------------+---------------+-------------------------------+
// |   TAII type   |  TAII length  |   TAII value (0 to 8 bytes)   |
// +---------------+---------------+-------------------------------+
class LSPPING_EXPORT LspPingFec129Ipv4SubTlv
   : public Kiv::Typed< LspPingFec129Ipv4SubTlv, LspPingPseudowireSubTlv > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::FEC129Pseudowire )
         .atLeast( 16 )
         .followedBy( LspPingBehind::identifiers )
         .definedIn( "RFC 8029 section 3.2.10" );

   /// The value's length when all three identifiers are empty.
   static constexpr U16 minTlvLength = 16;

   constexpr U16 pwType() const noexcept { return pwType_.value(); }
   constexpr void pwTypeIs( U16 type ) noexcept { pwType_.valueIs( type ); }

   /// The identifiers behind the view, or three empty ones when an identifier is longer than eight
   /// bytes or the length field does not cover all of them. Bytes that it does not cover are not
   /// read.
   Pseudowire::PseudowireGenId pwGenId() const noexcept;
   /// Writes the identifiers and the zeros behind them. The length field must already say that
   /// there is room for them: it is not written.
   void pwGenIdIs( Pseudowire::PseudowireGenId const & pwGenId ) noexcept;
   /// Why `pwGenIdIs` must not be called with that; empty when nothing stands against it.
   Orlo::String pwGenIdRefusal( Pseudowire::PseudowireGenId const & pwGenId ) const;
   /// Bytes that the identifiers' values take; 0 when they cannot be read.
   U16 additionalTlvLength() const noexcept;

   /// False too when the identifiers are three empty ones of type 0.
   bool valid() const noexcept;
   /// The addresses, pwType and the identifiers, or "Invalid Fec129Ipv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingFec129Ipv4SubTlv;
      return attributesOf< Self >(
         Kiv::field< &Self::pwType, &Self::pwTypeIs >( "pwType" ),
         Kiv::conditionalField< &Self::pwGenId, &Self::pwGenIdIs, &Self::pwGenIdRefusal >(
            "pwGenId" ),
         Kiv::constant< &Self::minTlvLength, U16 >( "minTlvLength" ),
         Kiv::computed< &Self::additionalTlvLength >( "additionalTlvLength" ) );
   }
   /// With the identifiers, as far as the length field may cover them.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept;
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 pwType_;
};
static_assert( Kiv::isWireView< LspPingFec129Ipv4SubTlv, 14 > );

} // namespace LspPing
