#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"

// The Detailed Interface and Label Stack TLV and its sub-TLVs, RFC 8611 section 10.
namespace LspPing {

// The shape of all address types, over the whole TLV. The sub-TLVs follow and are not part of the
// view. The RFC's table of lengths says 4 more than is drawn.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 6            |            length             |
// +---------------+---------------+-------------------------------+
// |   addrType    |   reserved0   |           reserved1           |
// +---------------+---------------+-------------------------------+
// |                     addr (4 or 16 bytes)                      |
// |                intf (4 or 16 bytes) or intfId                 |
// +---------------------------------------------------------------+
template < class Address, class Interface >
class LspPingDetailedIntfBody : public LspPingTlvHdr {
 public:
   /// LspPingAddrType.
   constexpr U8 addrType() const noexcept { return addrType_; }
   constexpr void addrTypeIs( U8 type ) noexcept { addrType_ = type; }
   constexpr U8 reserved0() const noexcept { return reserved0_; }
   constexpr void reserved0Is( U8 value ) noexcept { reserved0_ = value; }
   constexpr U16 reserved1() const noexcept { return reserved1_.value(); }
   constexpr void reserved1Is( U16 value ) noexcept { reserved1_.valueIs( value ); }
   /// Of the router that answers.
   constexpr Address addr() const noexcept { return addr_; }
   constexpr void addrIs( Address address ) noexcept { addr_ = address; }

 protected:
   constexpr Interface interface() const noexcept { return interface_; }
   constexpr void interfaceIs( Interface value ) noexcept { interface_ = value; }

   static constexpr auto elementOf( LspPingAddrType type ) {
      return LspPingElement::tlv( LspPingExtTlvType::DetailedIntfAndLabelStack )
         .when( sizeof( LspPingTlvHdr ), type )
         .definedIn( "RFC 8611 section 10" )
         .atLeast( 4 + sizeof( Address ) + sizeof( Interface ) )
         .orStated( 4, "length too long by 4, RFC 8611 section 10" )
         .template followedBy< LspPingDetailedIntfSubTlvType >()
         .inWords( "Detailed Interface and Label Stack" );
   }
   template < class View >
   static consteval auto attributesOf( auto interface ) {
      using Self = LspPingDetailedIntfBody;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::addrType, &Self::addrTypeIs >( "addrType" ),
         Kiv::field< &Self::reserved0, &Self::reserved0Is >( "reserved0" ),
         Kiv::field< &Self::reserved1, &Self::reserved1Is >( "reserved1" ),
         Kiv::field< &Self::addr, &Self::addrIs >( "addr" ), interface,
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   U8 addrType_ = 0;
   U8 reserved0_ = 0;
   Velnet::NetU16 reserved1_;
   Address addr_;
   Interface interface_;
};

template < class Address >
class LspPingDetailedIntfNumbered : public LspPingDetailedIntfBody< Address, Address > {
 public:
   /// Of the interface on which the request came.
   constexpr Address intf() const noexcept { return this->interface(); }
   constexpr void intfIs( Address address ) noexcept { this->interfaceIs( address ); }

 protected:
   template < class View >
   static consteval auto attributes() {
      using Self = LspPingDetailedIntfNumbered;
      return Self::template attributesOf< View >(
         Kiv::field< &Self::intf, &Self::intfIs >( "intf" ) );
   }
};

template < class Address >
class LspPingDetailedIntfUnnumbered : public LspPingDetailedIntfBody< Address, Velnet::NetU32 > {
 public:
   /// Index of the interface on which the request came.
   constexpr U32 intfId() const noexcept { return this->interface().value(); }
   constexpr void intfIdIs( U32 index ) noexcept { this->interfaceIs( Velnet::NetU32( index ) ); }

 protected:
   template < class View >
   static consteval auto attributes() {
      using Self = LspPingDetailedIntfUnnumbered;
      return Self::template attributesOf< View >(
         Kiv::field< &Self::intfId, &Self::intfIdIs >( "intfId" ) );
   }
};

// Address type 1, IPv4 numbered.
class LSPPING_EXT_EXPORT LspPingDetailedIntfIpv4Tlv
   : public Kiv::Typed< LspPingDetailedIntfIpv4Tlv,
                        LspPingDetailedIntfNumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf( LspPingAddrType::ipv4Numbered );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "DetailedIntfIpv4( '10.0.0.9', interface: '10.0.0.1' )", or "Invalid DetailedIntfIpv4Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributes< LspPingDetailedIntfIpv4Tlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDetailedIntfIpv4Tlv, 16 > );

// Address type 2, IPv4 unnumbered.
class LSPPING_EXT_EXPORT LspPingDetailedIntfIpv4UnnumberedTlv
   : public Kiv::Typed< LspPingDetailedIntfIpv4UnnumberedTlv,
                        LspPingDetailedIntfUnnumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf( LspPingAddrType::ipv4Unnumbered );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "DetailedIntfIpv4Unnumbered( '10.0.0.9', interface: 7 )", or
   /// "Invalid DetailedIntfIpv4UnnumberedTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributes< LspPingDetailedIntfIpv4UnnumberedTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDetailedIntfIpv4UnnumberedTlv, 16 > );

// Address type 3, IPv6 numbered.
class LSPPING_EXT_EXPORT LspPingDetailedIntfIpv6Tlv
   : public Kiv::Typed< LspPingDetailedIntfIpv6Tlv,
                        LspPingDetailedIntfNumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf( LspPingAddrType::ipv6Numbered );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "DetailedIntfIpv6( '2001:db8::9', interface: '2001:db8::1' )", or
   /// "Invalid DetailedIntfIpv6Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributes< LspPingDetailedIntfIpv6Tlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDetailedIntfIpv6Tlv, 40 > );

// Address type 4, IPv6 unnumbered.
class LSPPING_EXT_EXPORT LspPingDetailedIntfIpv6UnnumberedTlv
   : public Kiv::Typed< LspPingDetailedIntfIpv6UnnumberedTlv,
                        LspPingDetailedIntfUnnumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf( LspPingAddrType::ipv6Unnumbered );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "DetailedIntfIpv6Unnumbered( '2001:db8::9', interface: 7 )", or
   /// "Invalid DetailedIntfIpv6UnnumberedTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributes< LspPingDetailedIntfIpv6UnnumberedTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDetailedIntfIpv6UnnumberedTlv, 28 > );

// Incoming Label Stack, RFC 8611 section 10.1.1. The label stack entries follow and are not part of
// the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 1            |            length             |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingIncomingLabelStackSubTlv
   : public Kiv::Typed< LspPingIncomingLabelStackSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::subTlv( LspPingDetailedIntfSubTlvType::IncomingLabelStack )
         .followedBy( LspPingBehind::labelStack )
         .inWords( "Incoming Label Stack" )
         .definedIn( "RFC 8611 section 10.1.1" );

   /// Looks at the type only.
   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "IncomingLabelStack", or "Invalid IncomingLabelStackSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingIncomingLabelStackSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIncomingLabelStackSubTlv, 4 > );

// Incoming Interface Index, RFC 8611 section 10.1.2.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 2            |          length = 8           |
// +-------------------------------+-------------------------------+
// |           intfFlags           |           reserved            |
// +-------------------------------+-------------------------------+
// |                           intfIndex                           |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingIncomingIntfIndexSubTlv
   : public Kiv::Typed< LspPingIncomingIntfIndexSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::subTlv( LspPingDetailedIntfSubTlvType::IncomingIntfIndex )
         .length( 8 )
         .inWords( "Incoming Interface Index" )
         .definedIn( "RFC 8611 section 10.1.2" );

   /// LspPingIntfIndexFlags.
   constexpr U16 intfFlags() const noexcept { return intfFlags_.value(); }
   constexpr void intfFlagsIs( U16 flags ) noexcept { intfFlags_.valueIs( flags ); }
   constexpr U16 reserved() const noexcept { return reserved_.value(); }
   constexpr void reservedIs( U16 value ) noexcept { reserved_.valueIs( value ); }
   /// As the router that answers counts them.
   constexpr U32 intfIndex() const noexcept { return intfIndex_.value(); }
   constexpr void intfIndexIs( U32 index ) noexcept { intfIndex_.valueIs( index ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "IncomingIntfIndex( 7, flags: M )", or "Invalid IncomingIntfIndexSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingIncomingIntfIndexSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::intfFlags, &Self::intfFlagsIs >( "intfFlags" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::field< &Self::intfIndex, &Self::intfIndexIs >( "intfIndex" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 intfFlags_;
   Velnet::NetU16 reserved_;
   Velnet::NetU32 intfIndex_;
};
static_assert( Kiv::isWireView< LspPingIncomingIntfIndexSubTlv, 12 > );

} // namespace LspPing
