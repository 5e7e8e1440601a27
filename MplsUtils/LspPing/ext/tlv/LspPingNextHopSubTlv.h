#pragma once

#include "MplsUtils/LspPing/ext/tlv/LspPingAddressTlv.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"

namespace LspPing {

// The shapes of the Next Hop, RFC 7555 section 5.1.1: where the proxy shall send the request. What
// the address type says of the interface stands behind the address. The text speaks of types 5 and
// 6 as those without one, the table of 6 and 7.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------------------------------------------------------+
// |      LspPingTypedAddressTlv (12 or 24 bytes), type = 1        |
// |       interfaceAddr (4 or 16 bytes), interfaceId or none      |
// +---------------------------------------------------------------+
template < class Address >
class LspPingNextHopAdj : public LspPingTypedAddressTlv< Address > {
 protected:
   static constexpr auto elementOf( auto type, std::size_t interfaceSize = 0 ) {
      using Base = LspPingTypedAddressTlv< Address >;
      return LspPingElement::subTlv( LspPingProxySubTlvType::NextHop )
         .when( Base::addrTypeOffset, type )
         .length( Base::valueLength + interfaceSize )
         .inWords( "Next Hop" );
   }
};

template < class Address >
class LspPingNextHopNumbered : public LspPingNextHopAdj< Address > {
 public:
   constexpr Address interfaceAddr() const noexcept { return interfaceAddr_; }
   constexpr void interfaceAddrIs( Address address ) noexcept { interfaceAddr_ = address; }

 protected:
   static constexpr auto elementOf( auto type ) {
      return LspPingNextHopAdj< Address >::elementOf( type, sizeof( Address ) );
   }

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingNextHopNumbered;
      return LspPingNextHopAdj< Address >::template attributesOf< View >(
         Kiv::field< &Self::interfaceAddr, &Self::interfaceAddrIs >( "interfaceAddr" ) );
   }

 private:
   Address interfaceAddr_;
};

template < class Address >
class LspPingNextHopUnnumbered : public LspPingNextHopAdj< Address > {
 public:
   /// Interface index.
   constexpr U32 interfaceId() const noexcept { return interfaceId_.value(); }
   constexpr void interfaceIdIs( U32 index ) noexcept { interfaceId_.valueIs( index ); }

 protected:
   static constexpr auto elementOf( auto type ) {
      return LspPingNextHopAdj< Address >::elementOf( type, sizeof( U32 ) );
   }

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingNextHopUnnumbered;
      return LspPingNextHopAdj< Address >::template attributesOf< View >(
         Kiv::field< &Self::interfaceId, &Self::interfaceIdIs >( "interfaceId" ) );
   }

 private:
   Velnet::NetU32 interfaceId_;
};

// Address type 1, IPv4 numbered.
class LSPPING_EXT_EXPORT LspPingNextHopIpv4SubTlv
   : public Kiv::Typed< LspPingNextHopIpv4SubTlv, LspPingNextHopNumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingAddrType::ipv4Numbered ).definedIn( "RFC 7555 section 5.1.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "NextHopIpv4( '10.0.0.1', interface: '10.0.0.2' )", or "Invalid NextHopIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingNextHopIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingNextHopIpv4SubTlv, 16 > );

// Address type 2, IPv4 unnumbered.
class LSPPING_EXT_EXPORT LspPingNextHopIpv4UnnumberedSubTlv
   : public Kiv::Typed< LspPingNextHopIpv4UnnumberedSubTlv,
                        LspPingNextHopUnnumbered< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingAddrType::ipv4Unnumbered ).definedIn( "RFC 7555 section 5.1.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "NextHopIpv4Unnumbered( '10.0.0.1', interface: 7 )", or "Invalid
   /// NextHopIpv4UnnumberedSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingNextHopIpv4UnnumberedSubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingNextHopIpv4UnnumberedSubTlv, 16 > );

// Address type 3, IPv6 numbered.
class LSPPING_EXT_EXPORT LspPingNextHopIpv6SubTlv
   : public Kiv::Typed< LspPingNextHopIpv6SubTlv, LspPingNextHopNumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingAddrType::ipv6Numbered ).definedIn( "RFC 7555 section 5.1.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "NextHopIpv6( '2001:db8::1', interface: '2001:db8::2' )", or "Invalid
   /// NextHopIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingNextHopIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingNextHopIpv6SubTlv, 40 > );

// Address type 4, IPv6 unnumbered.
class LSPPING_EXT_EXPORT LspPingNextHopIpv6UnnumberedSubTlv
   : public Kiv::Typed< LspPingNextHopIpv6UnnumberedSubTlv,
                        LspPingNextHopUnnumbered< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingAddrType::ipv6Unnumbered ).definedIn( "RFC 7555 section 5.1.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "NextHopIpv6Unnumbered( '2001:db8::1', interface: 7 )", or "Invalid
   /// NextHopIpv6UnnumberedSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingNextHopIpv6UnnumberedSubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingNextHopIpv6UnnumberedSubTlv, 28 > );

// Address type 6, IPv4 protocol adjacency.
class LSPPING_EXT_EXPORT LspPingNextHopIpv4AdjSubTlv
   : public Kiv::Typed< LspPingNextHopIpv4AdjSubTlv, LspPingNextHopAdj< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtAddrType::ipv4ProtocolAdj ).definedIn( "RFC 7555 section 5.1.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "NextHopIpv4Adj( '10.0.0.1' )", or "Invalid NextHopIpv4AdjSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingNextHopIpv4AdjSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingNextHopIpv4AdjSubTlv, 12 > );

// Address type 7, IPv6 protocol adjacency.
class LSPPING_EXT_EXPORT LspPingNextHopIpv6AdjSubTlv
   : public Kiv::Typed< LspPingNextHopIpv6AdjSubTlv, LspPingNextHopAdj< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtAddrType::ipv6ProtocolAdj ).definedIn( "RFC 7555 section 5.1.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "NextHopIpv6Adj( '2001:db8::1' )", or "Invalid NextHopIpv6AdjSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingNextHopIpv6AdjSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingNextHopIpv6AdjSubTlv, 24 > );

} // namespace LspPing
