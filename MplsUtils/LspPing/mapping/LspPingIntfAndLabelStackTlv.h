#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/NrcPtrInterface.h"
#include "MplsUtils/LspPing/platform/Kiv/Typed.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// What the value of every Interface and Label Stack TLV begins with, RFC 8029 section 3.7. This and
// the views below lie over the value, behind the TLV header. LspPingIntfAndLabelStackTlvContainer
// finds the one that fits.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+---------------+-------------------------------+
// |   addrType    |     mbz0      |             mbz1              |
// +---------------+---------------+-------------------------------+
class LSPPING_EXPORT LspPingIntfAndLabelStackHdr
   : public Kiv::Typed< LspPingIntfAndLabelStackHdr, Kiv::NrcPtrInterface > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::IntfAndLabelStack )
                                      .chosenBy( 4 )
                                      .atLeast( 4 )
                                      .overValue()
                                      .definedIn( "RFC 8029 section 3.7" );

   /// LspPingAddrType: which of the four views describes the rest.
   constexpr U8 addrType() const noexcept { return addrType_; }
   constexpr void addrTypeIs( U8 type ) noexcept { addrType_ = type; }
   constexpr U8 mbz0() const noexcept { return mbz0_; }
   constexpr void mbz0Is( U8 value ) noexcept { mbz0_ = value; }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz1() const noexcept { return mbz1_.raw(); }
   constexpr void mbz1Is( U16 raw ) noexcept { mbz1_.rawIs( raw ); }

   static consteval auto kivAttributes() {
      using Self = LspPingIntfAndLabelStackHdr;
      return Kiv::attributes( Kiv::field< &Self::addrType, &Self::addrTypeIs >( "addrType" ),
                              Kiv::field< &Self::mbz0, &Self::mbz0Is >( "mbz0" ),
                              Kiv::field< &Self::mbz1, &Self::mbz1Is >( "mbz1" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 addrType_ = 0;
   U8 mbz0_ = 0;
   Velnet::NetU16 mbz1_;
};
static_assert( Kiv::isWireView< LspPingIntfAndLabelStackHdr, 4 > );

// The whole fixed part. The label stack follows it and is not part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------------------------------------------------------+
// |             LspPingIntfAndLabelStackHdr (4 bytes)             |
// |                     addr (4 or 16 bytes)                      |
// |                intf (4 or 16 bytes) or intfId                 |
// +---------------------------------------------------------------+
template < class Address, class Interface >
class LspPingIntfAndLabelStackBody : public LspPingIntfAndLabelStackHdr {
 public:
   /// Of the router that answers.
   constexpr Address addr() const noexcept { return addr_; }
   constexpr void addrIs( Address address ) noexcept { addr_ = address; }

 protected:
   constexpr Interface interface() const noexcept { return interface_; }
   constexpr void interfaceIs( Interface value ) noexcept { interface_ = value; }

   static constexpr auto bodyAttributes( auto interface ) {
      using Self = LspPingIntfAndLabelStackBody;
      return Kiv::attributesAfter< LspPingIntfAndLabelStackHdr >(
         Kiv::field< &Self::addr, &Self::addrIs >( "addr" ), interface );
   }

 private:
   Address addr_;
   Interface interface_;
};

template < class Address >
class LspPingIntfAndLabelStackNumbered : public LspPingIntfAndLabelStackBody< Address, Address > {
 public:
   /// Of the interface on which the request came.
   constexpr Address intf() const noexcept { return this->interface(); }
   constexpr void intfIs( Address address ) noexcept { this->interfaceIs( address ); }

   static consteval auto kivAttributes() {
      using Self = LspPingIntfAndLabelStackNumbered;
      return Self::bodyAttributes( Kiv::field< &Self::intf, &Self::intfIs >( "intf" ) );
   }
};

template < class Address >
class LspPingIntfAndLabelStackUnnumbered
   : public LspPingIntfAndLabelStackBody< Address, Velnet::NetU32 > {
 public:
   /// Index of the interface on which the request came.
   constexpr U32 intfId() const noexcept { return this->interface().value(); }
   constexpr void intfIdIs( U32 index ) noexcept { this->interfaceIs( Velnet::NetU32( index ) ); }

   static consteval auto kivAttributes() {
      using Self = LspPingIntfAndLabelStackUnnumbered;
      return Self::bodyAttributes( Kiv::field< &Self::intfId, &Self::intfIdIs >( "intfId" ) );
   }
};

// Address type 1, IPv4 numbered.
class LSPPING_EXPORT LspPingIntfAndLabelStackIpv4Tlv
   : public Kiv::Typed< LspPingIntfAndLabelStackIpv4Tlv,
                        LspPingIntfAndLabelStackNumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingIntfAndLabelStackHdr::element.when( LspPingAddrType::ipv4Numbered )
         .atLeast( 12 )
         .followedBy( LspPingBehind::labelStack );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIntfAndLabelStackIpv4Tlv, 12 > );

// Address type 2, IPv4 unnumbered.
class LSPPING_EXPORT LspPingIntfAndLabelStackIpv4UnnumberedTlv
   : public Kiv::Typed< LspPingIntfAndLabelStackIpv4UnnumberedTlv,
                        LspPingIntfAndLabelStackUnnumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingIntfAndLabelStackHdr::element.when( LspPingAddrType::ipv4Unnumbered )
         .atLeast( 12 )
         .followedBy( LspPingBehind::labelStack );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIntfAndLabelStackIpv4UnnumberedTlv, 12 > );

// Address type 3, IPv6 numbered.
class LSPPING_EXPORT LspPingIntfAndLabelStackIpv6Tlv
   : public Kiv::Typed< LspPingIntfAndLabelStackIpv6Tlv,
                        LspPingIntfAndLabelStackNumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingIntfAndLabelStackHdr::element.when( LspPingAddrType::ipv6Numbered )
         .atLeast( 36 )
         .followedBy( LspPingBehind::labelStack );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIntfAndLabelStackIpv6Tlv, 36 > );

// Address type 4, IPv6 unnumbered.
class LSPPING_EXPORT LspPingIntfAndLabelStackIpv6UnnumberedTlv
   : public Kiv::Typed< LspPingIntfAndLabelStackIpv6UnnumberedTlv,
                        LspPingIntfAndLabelStackUnnumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingIntfAndLabelStackHdr::element.when( LspPingAddrType::ipv6Unnumbered )
         .atLeast( 24 )
         .followedBy( LspPingBehind::labelStack );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIntfAndLabelStackIpv6UnnumberedTlv, 24 > );

} // namespace LspPing
