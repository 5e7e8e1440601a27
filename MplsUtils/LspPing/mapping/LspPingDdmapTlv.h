#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// What every Downstream Detailed Mapping TLV begins with, RFC 8029 section 3.4.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 20           |            length             |
// +-------------------------------+---------------+---------------+
// |              mtu              |   addrType    |    dsFlags    |
// +-------------------------------+---------------+---------------+
class LSPPING_EXPORT LspPingDdmapHdr : public Kiv::Typed< LspPingDdmapHdr, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::DownstreamDetailedMapping )
                                      .chosenBy( 6 )
                                      .atLeast( 4 )
                                      .definedIn( "RFC 8029 section 3.4" );

   /// Of the downstream link, in bytes.
   constexpr U16 mtu() const noexcept { return mtu_.value(); }
   constexpr void mtuIs( U16 mtu ) noexcept { mtu_.valueIs( mtu ); }
   /// LspPingAddrType: which of the four views describes the rest.
   constexpr U8 addrType() const noexcept { return addrType_; }
   constexpr void addrTypeIs( U8 type ) noexcept { addrType_ = type; }
   constexpr U8 dsFlags() const noexcept { return dsFlags_; }
   constexpr void dsFlagsIs( U8 flags ) noexcept { dsFlags_ = flags; }

   static consteval auto kivAttributes() {
      using Self = LspPingDdmapHdr;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::mtu, &Self::mtuIs >( "mtu" ),
         Kiv::field< &Self::addrType, &Self::addrTypeIs >( "addrType" ),
         Kiv::field< &Self::dsFlags, &Self::dsFlagsIs >( "dsFlags" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 mtu_;
   U8 addrType_ = 0;
   U8 dsFlags_ = 0;
};
static_assert( Kiv::isWireView< LspPingDdmapHdr, 8 > );

// The whole fixed part. The sub-TLVs follow it and are not part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------------------------------------------------------+
// |                   LspPingDdmapHdr (8 bytes)                   |
// |                   dsIpAddr (4 or 16 bytes)                    |
// |             dsIntfAddr (4 or 16 bytes) or dsIntfId            |
// +---------------+---------------+-------------------------------+
// |    retCode    |  retSubcode   |           subTlvLen           |
// +---------------+---------------+-------------------------------+
template < class Address, class Interface >
class LspPingDdmapBody : public LspPingDdmapHdr {
 public:
   constexpr Address dsIpAddr() const noexcept { return dsIpAddr_; }
   constexpr void dsIpAddrIs( Address address ) noexcept { dsIpAddr_ = address; }
   /// LspPingReturnCode for this downstream.
   constexpr U8 retCode() const noexcept { return retCode_; }
   constexpr void retCodeIs( U8 code ) noexcept { retCode_ = code; }
   constexpr U8 retSubcode() const noexcept { return retSubcode_; }
   constexpr void retSubcodeIs( U8 subcode ) noexcept { retSubcode_ = subcode; }
   /// Bytes of all the sub-TLVs that follow.
   constexpr U16 subTlvLen() const noexcept { return subTlvLen_.value(); }
   constexpr void subTlvLenIs( U16 length ) noexcept { subTlvLen_.valueIs( length ); }

   /// Looks at the type only. Whoever lays the view has looked at `addrType`.
   constexpr bool valid() const noexcept { return LspPingDdmapHdr::element.hasCode( type() ); }

 protected:
   constexpr Interface interface() const noexcept { return interface_; }
   constexpr void interfaceIs( Interface value ) noexcept { interface_ = value; }

   template < class View >
   static constexpr auto bodyAttributes( auto interface ) {
      using Self = LspPingDdmapBody;
      return Kiv::attributesAfter< LspPingDdmapHdr >(
         Kiv::field< &Self::dsIpAddr, &Self::dsIpAddrIs >( "dsIpAddr" ), interface,
         Kiv::field< &Self::retCode, &Self::retCodeIs >( "retCode" ),
         Kiv::field< &Self::retSubcode, &Self::retSubcodeIs >( "retSubcode" ),
         Kiv::field< &Self::subTlvLen, &Self::subTlvLenIs >( "subTlvLen" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address dsIpAddr_;
   Interface interface_;
   U8 retCode_ = 0;
   U8 retSubcode_ = 0;
   Velnet::NetU16 subTlvLen_;
};

template < class Address >
class LspPingDdmapNumbered : public LspPingDdmapBody< Address, Address > {
 public:
   constexpr Address dsIntfAddr() const noexcept { return this->interface(); }
   constexpr void dsIntfAddrIs( Address address ) noexcept { this->interfaceIs( address ); }

 protected:
   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingDdmapNumbered;
      return Self::template bodyAttributes< View >(
         Kiv::field< &Self::dsIntfAddr, &Self::dsIntfAddrIs >( "dsIntfAddr" ) );
   }
};

template < class Address >
class LspPingDdmapUnnumbered : public LspPingDdmapBody< Address, Velnet::NetU32 > {
 public:
   /// Interface index.
   constexpr U32 dsIntfId() const noexcept { return this->interface().value(); }
   constexpr void dsIntfIdIs( U32 index ) noexcept { this->interfaceIs( Velnet::NetU32( index ) ); }

 protected:
   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingDdmapUnnumbered;
      return Self::template bodyAttributes< View >(
         Kiv::field< &Self::dsIntfId, &Self::dsIntfIdIs >( "dsIntfId" ) );
   }
};

// Address type 1, IPv4 numbered.
class LSPPING_EXPORT LspPingDdmapTlv
   : public Kiv::Typed< LspPingDdmapTlv, LspPingDdmapNumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element = LspPingDdmapHdr::element.when( LspPingAddrType::ipv4Numbered )
                                      .atLeast( 16 )
                                      .followedBy( LspPingBehind::subTlvs );

   /// "DDMAPTlv( Downstream Address: …", or "Invalid LspPingDdmapTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingDdmapTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDdmapTlv, 20 > );

// Address type 3, IPv6 numbered.
class LSPPING_EXPORT LspPingDdmapV6Tlv
   : public Kiv::Typed< LspPingDdmapV6Tlv, LspPingDdmapNumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingDdmapHdr::element.when( LspPingAddrType::ipv6Numbered )
                                      .atLeast( 40 )
                                      .followedBy( LspPingBehind::subTlvs );

   /// "DDMAPV6Tlv( Downstream Address: …", or "Invalid LspPingDdmapV6Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingDdmapV6Tlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDdmapV6Tlv, 44 > );

// Address type 2, IPv4 unnumbered.
class LSPPING_EXPORT LspPingDdmapUnnumberedTlv
   : public Kiv::Typed< LspPingDdmapUnnumberedTlv, LspPingDdmapUnnumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element = LspPingDdmapHdr::element.when( LspPingAddrType::ipv4Unnumbered )
                                      .atLeast( 16 )
                                      .followedBy( LspPingBehind::subTlvs );

   /// "DDMAPUnnumberedTlv( …", or "Invalid LspPingDdmapUnnumberedTlv". The index prints signed.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingDdmapUnnumberedTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDdmapUnnumberedTlv, 20 > );

// Address type 4, IPv6 unnumbered.
class LSPPING_EXPORT LspPingDdmapV6UnnumberedTlv
   : public Kiv::Typed< LspPingDdmapV6UnnumberedTlv, LspPingDdmapUnnumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingDdmapHdr::element.when( LspPingAddrType::ipv6Unnumbered )
                                      .atLeast( 28 )
                                      .followedBy( LspPingBehind::subTlvs );

   /// "DDMAPV6UnnumberedTlv( …", or "Invalid LspPingDdmapV6UnnumberedTlv". The index prints
   /// signed.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingDdmapV6UnnumberedTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDdmapV6UnnumberedTlv, 32 > );

} // namespace LspPing
