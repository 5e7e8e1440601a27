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

// What the value of every Downstream Mapping TLV begins with, RFC 8029 appendix A.2. This and the
// views below lie over the value, behind the TLV header. LspPingDownstreamMappingTlvContainer finds
// the one that fits.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+---------------+---------------+
// |              mtu              |   addrType    |    dsFlags    |
// +-------------------------------+---------------+---------------+
class LSPPING_EXPORT LspPingDownstreamMappingHdr
   : public Kiv::Typed< LspPingDownstreamMappingHdr, Kiv::NrcPtrInterface > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::DownstreamMapping )
                                      .chosenBy( 6 )
                                      .atLeast( 4 )
                                      .overValue()
                                      .definedIn( "RFC 8029 appendix A.2" );

   /// Of the downstream link, in bytes.
   constexpr Velnet::NetU16 mtu() const noexcept { return mtu_; }
   constexpr void mtuIs( Velnet::NetU16 mtu ) noexcept { mtu_ = mtu; }
   /// LspPingAddrType: which of the four views describes the rest.
   constexpr U8 addrType() const noexcept { return addrType_; }
   constexpr void addrTypeIs( U8 type ) noexcept { addrType_ = type; }
   constexpr U8 dsFlags() const noexcept { return dsFlags_; }
   constexpr void dsFlagsIs( U8 flags ) noexcept { dsFlags_ = flags; }

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamMappingHdr;
      return Kiv::attributes( Kiv::field< &Self::mtu, &Self::mtuIs >( "mtu" ),
                              Kiv::field< &Self::addrType, &Self::addrTypeIs >( "addrType" ),
                              Kiv::field< &Self::dsFlags, &Self::dsFlagsIs >( "dsFlags" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 mtu_;
   U8 addrType_ = 0;
   U8 dsFlags_ = 0;
};
static_assert( Kiv::isWireView< LspPingDownstreamMappingHdr, 4 > );

// The whole fixed part. The multipath information and the labels follow it and are not part of the
// view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------------------------------------------------------+
// |             LspPingDownstreamMappingHdr (4 bytes)             |
// |                   dsIpAddr (4 or 16 bytes)                    |
// |             dsIntfAddr (4 or 16 bytes) or dsIntfId            |
// +---------------+---------------+-------------------------------+
// | multipathType |  depthLimit   |        multipathLength        |
// +---------------+---------------+-------------------------------+
template < class Address, class Interface >
class LspPingDownstreamMappingBody : public LspPingDownstreamMappingHdr {
 public:
   constexpr Address dsIpAddr() const noexcept { return dsIpAddr_; }
   constexpr void dsIpAddrIs( Address address ) noexcept { dsIpAddr_ = address; }
   /// LspPingMultipathType.
   constexpr U8 multipathType() const noexcept { return multipathType_; }
   constexpr void multipathTypeIs( U8 type ) noexcept { multipathType_ = type; }
   /// How many labels of a stack count for the choice of a path; 0 is no limit.
   constexpr U8 depthLimit() const noexcept { return depthLimit_; }
   constexpr void depthLimitIs( U8 limit ) noexcept { depthLimit_ = limit; }
   /// Bytes of the multipath information that follows.
   constexpr Velnet::NetU16 multipathLength() const noexcept { return multipathLength_; }
   constexpr void multipathLengthIs( Velnet::NetU16 length ) noexcept { multipathLength_ = length; }

 protected:
   constexpr Interface interface() const noexcept { return interface_; }
   constexpr void interfaceIs( Interface value ) noexcept { interface_ = value; }

   static constexpr auto bodyAttributes( auto interface ) {
      using Self = LspPingDownstreamMappingBody;
      return Kiv::attributesAfter< LspPingDownstreamMappingHdr >(
         Kiv::field< &Self::dsIpAddr, &Self::dsIpAddrIs >( "dsIpAddr" ), interface,
         Kiv::field< &Self::multipathType, &Self::multipathTypeIs >( "multipathType" ),
         Kiv::field< &Self::depthLimit, &Self::depthLimitIs >( "depthLimit" ),
         Kiv::field< &Self::multipathLength, &Self::multipathLengthIs >( "multipathLength" ) );
   }

 private:
   Address dsIpAddr_;
   Interface interface_;
   U8 multipathType_ = 0;
   U8 depthLimit_ = 0;
   Velnet::NetU16 multipathLength_;
};

template < class Address >
class LspPingDownstreamMappingNumbered : public LspPingDownstreamMappingBody< Address, Address > {
 public:
   constexpr Address dsIntfAddr() const noexcept { return this->interface(); }
   constexpr void dsIntfAddrIs( Address address ) noexcept { this->interfaceIs( address ); }

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamMappingNumbered;
      return Self::bodyAttributes(
         Kiv::field< &Self::dsIntfAddr, &Self::dsIntfAddrIs >( "dsIntfAddr" ) );
   }
};

template < class Address >
class LspPingDownstreamMappingUnnumbered
   : public LspPingDownstreamMappingBody< Address, Velnet::NetU32 > {
 public:
   /// Interface index.
   constexpr U32 dsIntfId() const noexcept { return this->interface().value(); }
   constexpr void dsIntfIdIs( U32 index ) noexcept { this->interfaceIs( Velnet::NetU32( index ) ); }

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamMappingUnnumbered;
      return Self::bodyAttributes( Kiv::field< &Self::dsIntfId, &Self::dsIntfIdIs >( "dsIntfId" ) );
   }
};

// Address type 1, IPv4 numbered.
class LSPPING_EXPORT LspPingDownstreamMappingIpv4Tlv
   : public Kiv::Typed< LspPingDownstreamMappingIpv4Tlv,
                        LspPingDownstreamMappingNumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingDownstreamMappingHdr::element.when( LspPingAddrType::ipv4Numbered )
         .atLeast( 16 )
         .followedBy( LspPingBehind::mappingLabels );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDownstreamMappingIpv4Tlv, 16 > );

// Address type 2, IPv4 unnumbered.
class LSPPING_EXPORT LspPingDownstreamMappingIpv4UnnumberedTlv
   : public Kiv::Typed< LspPingDownstreamMappingIpv4UnnumberedTlv,
                        LspPingDownstreamMappingUnnumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingDownstreamMappingHdr::element.when( LspPingAddrType::ipv4Unnumbered )
         .atLeast( 16 )
         .followedBy( LspPingBehind::mappingLabels );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDownstreamMappingIpv4UnnumberedTlv, 16 > );

// Address type 3, IPv6 numbered.
class LSPPING_EXPORT LspPingDownstreamMappingIpv6Tlv
   : public Kiv::Typed< LspPingDownstreamMappingIpv6Tlv,
                        LspPingDownstreamMappingNumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingDownstreamMappingHdr::element.when( LspPingAddrType::ipv6Numbered )
         .atLeast( 40 )
         .followedBy( LspPingBehind::mappingLabels );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDownstreamMappingIpv6Tlv, 40 > );

// Address type 4, IPv6 unnumbered.
class LSPPING_EXPORT LspPingDownstreamMappingIpv6UnnumberedTlv
   : public Kiv::Typed< LspPingDownstreamMappingIpv6UnnumberedTlv,
                        LspPingDownstreamMappingUnnumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingDownstreamMappingHdr::element.when( LspPingAddrType::ipv6Unnumbered )
         .atLeast( 28 )
         .followedBy( LspPingBehind::mappingLabels );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDownstreamMappingIpv6UnnumberedTlv, 28 > );

} // namespace LspPing
