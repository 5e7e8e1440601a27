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
template < class Address, class Hdr = LspPingTlvHdr >
class LspPingPseudowireSubTlv : public Hdr {
 public:
   constexpr Address senderAddr() const noexcept { return senderAddr_; }
   constexpr void senderAddrIs( Address address ) noexcept { senderAddr_ = address; }
   constexpr Address receiverAddr() const noexcept { return receiverAddr_; }
   constexpr void receiverAddrIs( Address address ) noexcept { receiverAddr_ = address; }

 protected:
   // Ethernet tagged mode and Ethernet, RFC 4446 section 3.2. Those of IPv4 take no other type.
   static constexpr bool isEthernet( U16 pwType ) noexcept { return pwType == 4 || pwType == 5; }

   template < class View, class... Rows >
   static consteval auto attributesWith( Rows... rows ) {
      using Self = LspPingPseudowireSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::senderAddr, &Self::senderAddrIs >( "senderAddr" ),
         Kiv::field< &Self::receiverAddr, &Self::receiverAddrIs >( "receiverAddr" ), rows...,
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address senderAddr_;
   Address receiverAddr_;
};

// The shape of FEC 128 pseudowires, RFC 8029 section 3.2.9 and RFC 6829 section 3.1.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 10, 24         |        length = 14, 38        |
// +-------------------------------+-------------------------------+
// |                  senderAddr (4 or 16 bytes)                   |
// +---------------------------------------------------------------+
// |                 receiverAddr (4 or 16 bytes)                  |
// +---------------------------------------------------------------+
// |                             pwId                              |
// +-------------------------------+-------------------------------+
// |            pwType             |              mbz              |
// +-------------------------------+-------------------------------+
template < class Address >
class LspPingFec128SubTlv : public LspPingPseudowireSubTlv< Address > {
 public:
   constexpr U32 pwId() const noexcept { return pwId_.value(); }
   constexpr void pwIdIs( U32 id ) noexcept { pwId_.valueIs( id ); }
   constexpr U16 pwType() const noexcept { return pwType_.value(); }
   constexpr void pwTypeIs( U16 type ) noexcept { pwType_.valueIs( type ); }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz() const noexcept { return mbz_.raw(); }
   constexpr void mbzIs( U16 raw ) noexcept { mbz_.rawIs( raw ); }

 protected:
   // What counts: all but the must-be-zero bytes at the end.
   static constexpr U16 valueLength = 2 * sizeof( Address ) + 6;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingFec128SubTlv;
      return Self::template attributesWith< View >(
         Kiv::field< &Self::pwId, &Self::pwIdIs >( "pwId" ),
         Kiv::field< &Self::pwType, &Self::pwTypeIs >( "pwType" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ) );
   }

 private:
   Velnet::NetU32 pwId_;
   Velnet::NetU16 pwType_;
   Velnet::NetU16 mbz_;
};

// FEC 128 pseudowire, RFC 8029 section 3.2.9.
class LSPPING_EXPORT LspPingFec128Ipv4SubTlv
   : public Kiv::Typed< LspPingFec128Ipv4SubTlv, LspPingFec128SubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::FEC128Pseudowire )
         .length( valueLength )
         .definedIn( "RFC 8029 section 3.2.9" );

   /// Unlike in almost every other view, a must-be-zero field that is not makes this one invalid.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && mbz() == 0 &&
             isEthernet( pwType() );
   }
   /// The addresses, pwId and pwType, or "Invalid Fec128Ipv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingFec128Ipv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFec128Ipv4SubTlv, 20 > );

// What stands behind a FEC 129's own bytes: the three identifiers. They are read and written where
// the length field says that there are bytes. `minLength` is the value's length when all three are
// empty.
class LSPPING_EXPORT LspPingAttachmentSubTlv : public LspPingTlvHdr {
 protected:
   Pseudowire::PseudowireGenId pwGenIdBehind( U16 minLength ) const noexcept;
   void pwGenIdBehindIs( U16 minLength, Pseudowire::PseudowireGenId const & pwGenId ) noexcept;
   Orlo::String pwGenIdRefusalBehind( U16 minLength,
                                      Pseudowire::PseudowireGenId const & pwGenId ) const;
   /// Bytes that the identifiers' values take.
   static U16 valueBytes( Pseudowire::PseudowireGenId const & pwGenId ) noexcept;
};

// The shape of FEC 129 pseudowires, RFC 8029 section 3.2.10 and RFC 6829 section 3.2. The view is
// the part up to pwType. Zeros behind the identifiers fill the value to a multiple of four. The
// RFC's length does not count them; here it does: writing asks for a length that covers them,
// reading takes either.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 11, 25         |            length             |
// +-------------------------------+-------------------------------+
// |                  senderAddr (4 or 16 bytes)                   |
// +---------------------------------------------------------------+
// |                 receiverAddr (4 or 16 bytes)                  |
// +-------------------------------+---------------+---------------+
// |            pwType             |   AGI type    |  AGI length   |
// +-------------------------------+---------------+---------------+
// |                    AGI value (0 to 8 bytes)                   |
// +---------------+---------------+-------------------------------+
// |   SAII type   |  SAII length  |   SAII value (0 to 8 bytes)   |
// +---------------+---------------+-------------------------------+
// |   TAII type   |  TAII length  |   TAII value (0 to 8 bytes)   |
// +---------------+---------------+-------------------------------+
template < class Address >
class LspPingFec129SubTlv : public LspPingPseudowireSubTlv< Address, LspPingAttachmentSubTlv > {
 public:
   /// The value's length when all three identifiers are empty.
   static constexpr U16 minTlvLength = 2 * sizeof( Address ) + 8;

   constexpr U16 pwType() const noexcept { return pwType_.value(); }
   constexpr void pwTypeIs( U16 type ) noexcept { pwType_.valueIs( type ); }

   /// The identifiers behind the view, or three empty ones when an identifier is longer than eight
   /// bytes or the length field does not cover all of them. Bytes that it does not cover are not
   /// read.
   Pseudowire::PseudowireGenId pwGenId() const noexcept {
      return this->pwGenIdBehind( minTlvLength );
   }
   /// Writes the identifiers and the zeros behind them. The length field must already say that
   /// there is room for them: it is not written.
   void pwGenIdIs( Pseudowire::PseudowireGenId const & pwGenId ) noexcept {
      this->pwGenIdBehindIs( minTlvLength, pwGenId );
   }
   /// Why `pwGenIdIs` must not be called with that; empty when nothing stands against it.
   Orlo::String pwGenIdRefusal( Pseudowire::PseudowireGenId const & pwGenId ) const {
      return this->pwGenIdRefusalBehind( minTlvLength, pwGenId );
   }
   /// Bytes that the identifiers' values take; 0 when they cannot be read.
   U16 additionalTlvLength() const noexcept { return this->valueBytes( pwGenId() ); }

   /// With the identifiers, as far as the length field may cover them.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      if( bytes.size() < sizeof( LspPingFec129SubTlv ) )
         return sizeof( LspPingFec129SubTlv );
      // They are there, and a view has no alignment.
      auto const & view = *reinterpret_cast< LspPingFec129SubTlv const * >( bytes.data() );
      return view.length() < minTlvLength ? sizeof( view )
                                          : sizeof( LspPingTlvHdr ) + view.length();
   }

 protected:
   // Identifiers are decoded only if the length covers them; what does not decode is the default.
   bool hasIdentifiers() const noexcept { return pwGenId() != Pseudowire::PseudowireGenId{}; }

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingFec129SubTlv;
      return Self::template attributesWith< View >(
         Kiv::field< &Self::pwType, &Self::pwTypeIs >( "pwType" ),
         Kiv::conditionalField< &Self::pwGenId, &Self::pwGenIdIs, &Self::pwGenIdRefusal >(
            "pwGenId" ),
         Kiv::constant< &Self::minTlvLength, U16 >( "minTlvLength" ),
         Kiv::computed< &Self::additionalTlvLength >( "additionalTlvLength" ) );
   }

 private:
   Velnet::NetU16 pwType_;
};

// FEC 129 pseudowire, RFC 8029 section 3.2.10.
class LSPPING_EXPORT LspPingFec129Ipv4SubTlv
   : public Kiv::Typed< LspPingFec129Ipv4SubTlv, LspPingFec129SubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::FEC129Pseudowire )
         .atLeast( minTlvLength )
         .followedBy( LspPingBehind::identifiers )
         .definedIn( "RFC 8029 section 3.2.10" );

   /// False too when the identifiers are three empty ones of type 0.
   bool valid() const noexcept;
   /// The addresses, pwType and the identifiers, or "Invalid Fec129Ipv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingFec129Ipv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFec129Ipv4SubTlv, 14 > );

} // namespace LspPing
