#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// Multipath Data, RFC 8029 section 3.4.1.1. The multipath information follows and is not part of
// the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 1            |            length             |
// +---------------+---------------+---------------+---------------+
// | multipathType |        multipathLength        |      mbz      |
// +---------------+-------------------------------+---------------+
class LSPPING_EXPORT LspPingMultipathSubTlv
   : public Kiv::Typed< LspPingMultipathSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::ddmapSubTlv( LspPingDDMappingSubTlvType::MultipathData )
         .atLeast( 4 )
         .followedBy( LspPingBehind::multipath )
         .definedIn( "RFC 8029 section 3.4.1.1" );

   /// LspPingMultipathType.
   constexpr U8 multipathType() const noexcept { return multipathType_; }
   constexpr void multipathTypeIs( U8 type ) noexcept { multipathType_ = type; }
   /// Bytes of the multipath information that follows.
   constexpr U16 multipathLength() const noexcept { return multipathLength_.value(); }
   constexpr void multipathLengthIs( U16 length ) noexcept { multipathLength_.valueIs( length ); }
   constexpr U8 mbz() const noexcept { return mbz_; }
   constexpr void mbzIs( U8 value ) noexcept { mbz_ = value; }

   /// Looks at the type only.
   constexpr bool valid() const noexcept { return element.hasCode( type() ); }

   static consteval auto kivAttributes() {
      using Self = LspPingMultipathSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::multipathType, &Self::multipathTypeIs >( "multipathType" ),
         Kiv::field< &Self::multipathLength, &Self::multipathLengthIs >( "multipathLength" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ),
         Kiv::computed< &Self::valid >( "valid" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 multipathType_ = 0;
   Velnet::NetU16 multipathLength_;
   U8 mbz_ = 0;
};
static_assert( Kiv::isWireView< LspPingMultipathSubTlv, 8 > );

// What every FEC Stack Change begins with, RFC 8029 section 3.4.1.3.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 3            |            length             |
// +---------------+---------------+---------------+---------------+
// |   operType    |   addrType    |   fecTlvLen   |   reserved    |
// +---------------+---------------+---------------+---------------+
class LSPPING_EXPORT LspPingFecStackChangeSubTlv
   : public Kiv::Typed< LspPingFecStackChangeSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::ddmapSubTlv( LspPingDDMappingSubTlvType::FecStackChange )
         .chosenBy( 5 )
         .atLeast( 4 )
         .definedIn( "RFC 8029 section 3.4.1.3" );

   /// LspPingFecStackChangeSubTlvOperType.
   constexpr U8 operType() const noexcept { return operType_; }
   constexpr void operTypeIs( U8 type ) noexcept { operType_ = type; }
   /// LspPingFecStackChangeSubTlvAddressType: which of the three views describes the rest.
   constexpr U8 addrType() const noexcept { return addrType_; }
   constexpr void addrTypeIs( U8 type ) noexcept { addrType_ = type; }
   /// Bytes of the FEC TLV behind the remote peer's address.
   constexpr U8 fecTlvLen() const noexcept { return fecTlvLen_; }
   constexpr void fecTlvLenIs( U8 length ) noexcept { fecTlvLen_ = length; }
   constexpr U8 reserved() const noexcept { return reserved_; }
   constexpr void reservedIs( U8 value ) noexcept { reserved_ = value; }

   static consteval auto kivAttributes() {
      using Self = LspPingFecStackChangeSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::operType, &Self::operTypeIs >( "operType" ),
         Kiv::field< &Self::addrType, &Self::addrTypeIs >( "addrType" ),
         Kiv::field< &Self::fecTlvLen, &Self::fecTlvLenIs >( "fecTlvLen" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 operType_ = 0;
   U8 addrType_ = 0;
   U8 fecTlvLen_ = 0;
   U8 reserved_ = 0;
};
static_assert( Kiv::isWireView< LspPingFecStackChangeSubTlv, 8 > );

// With the remote peer's address. The FEC TLV follows and is not part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------------------------------------------------------+
// |             LspPingFecStackChangeSubTlv (8 bytes)             |
// |                   peerAddr (4 or 16 bytes)                    |
// +---------------------------------------------------------------+
template < class Address, U8 peerAddrType >
class LspPingFecStackChangePeer : public LspPingFecStackChangeSubTlv {
 public:
   static constexpr auto element = LspPingFecStackChangeSubTlv::element.when( peerAddrType )
                                      .atLeast( 4 + sizeof( Address ) )
                                      .followedBy( LspPingBehind::stackChangeFec );

   constexpr Address peerAddr() const noexcept { return peerAddr_; }
   constexpr void peerAddrIs( Address address ) noexcept { peerAddr_ = address; }

   /// Looks at type and address type only.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && addrType() == peerAddrType;
   }

   static consteval auto kivAttributes() {
      using Self = LspPingFecStackChangePeer;
      return Kiv::attributesAfter< LspPingFecStackChangeSubTlv >(
         Kiv::field< &Self::peerAddr, &Self::peerAddrIs >( "peerAddr" ),
         Kiv::computed< &Self::valid >( "valid" ) );
   }

 private:
   Address peerAddr_;
};

// Address type 1.
class LSPPING_EXPORT LspPingFecStackChangeV4SubTlv
   : public Kiv::Typed< LspPingFecStackChangeV4SubTlv,
                        LspPingFecStackChangePeer< Velnet::IpAddr, 1 > > {
 public:
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFecStackChangeV4SubTlv, 12 > );

// Address type 2.
class LSPPING_EXPORT LspPingFecStackChangeV6SubTlv
   : public Kiv::Typed< LspPingFecStackChangeV6SubTlv,
                        LspPingFecStackChangePeer< Velnet::Ip6Addr, 2 > > {
 public:
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFecStackChangeV6SubTlv, 24 > );

// Address type 0: no peer is named, the FEC TLV follows at once.
class LSPPING_EXPORT LspPingFecStackChangeUnspecifiedSubTlv
   : public Kiv::Typed< LspPingFecStackChangeUnspecifiedSubTlv, LspPingFecStackChangeSubTlv > {
 public:
   static constexpr auto element =
      LspPingFecStackChangeSubTlv::element.when( 0 ).followedBy( LspPingBehind::stackChangeFec );

   /// Looks at type and address type only.
   constexpr bool valid() const noexcept { return element.hasCode( type() ) && addrType() == 0; }

   static consteval auto kivAttributes() {
      using Self = LspPingFecStackChangeUnspecifiedSubTlv;
      return Kiv::attributesAfter< LspPingFecStackChangeSubTlv >(
         Kiv::computed< &Self::valid >( "valid" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFecStackChangeUnspecifiedSubTlv, 8 > );

// How many labels the responder looks up. It has the same type as Multipath Data: the TLV that
// carries a sub-TLV decides which of the two it is.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 1            |          length = 4           |
// +-------------------------------+-------------------------------+
// |       lookupLabelCount        |             flags             |
// +-------------------------------+-------------------------------+
class LSPPING_EXPORT LspPingMultiLabelSubTlv
   : public Kiv::Typed< LspPingMultiLabelSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::vendorSubTlv( LspPingVeloraVendorPrivateType::MultiLabel ).length( 4 );

   constexpr U16 lookupLabelCount() const noexcept { return lookupLabelCount_.value(); }
   constexpr void lookupLabelCountIs( U16 count ) noexcept { lookupLabelCount_.valueIs( count ); }
   constexpr U16 flags() const noexcept { return flags_.value(); }
   constexpr void flagsIs( U16 flags ) noexcept { flags_.valueIs( flags ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "MultiLabel( LookupLabelCount: 2, Flags: 0 )", or "Invalid Multi-label Sub-TLV".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingMultiLabelSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::lookupLabelCount, &Self::lookupLabelCountIs >( "lookupLabelCount" ),
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 lookupLabelCount_;
   Velnet::NetU16 flags_;
};
static_assert( Kiv::isWireView< LspPingMultiLabelSubTlv, 8 > );

} // namespace LspPing
