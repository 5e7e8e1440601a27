#pragma once

#include "MplsUtils/LspPing/ext/LspPingAddressTail.h"
#include "MplsUtils/LspPing/ext/LspPingTail.h"
#include "MplsUtils/LspPing/ext/tlv/LspPingAddressTlv.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"

// TLVs of the messages between an initiator and a proxy that sends echo requests for it, RFC 7555.
namespace LspPing {

// The shape of the Proxy Echo Parameters, RFC 7555 section 5.1: the request that the proxy shall
// send, or what it is asked. Sub-TLVs follow, and are not part of the view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 23           |            length             |
// +---------------+---------------+-------------------------------+
// | addrType 1, 3 |   replyMode   |          proxyFlags           |
// +---------------+---------------+-------------------------------+
// |      ttl      | requestedDscp |         sourceUdpPort         |
// +---------------+---------------+-------------------------------+
// |          globalFlags          |        mplsPayloadSize        |
// +-------------------------------+-------------------------------+
// |               destinationAddr (4 or 16 bytes)                 |
// +---------------------------------------------------------------+
template < class Address >
class LspPingProxyEchoParametersBody : public LspPingTlvHdr {
 public:
   /// Which of the views it is.
   constexpr U8 addrType() const noexcept { return addrType_; }
   constexpr void addrTypeIs( U8 type ) noexcept { addrType_ = type; }
   /// LspPingReplyMode and LspPingExtReplyMode.
   constexpr U8 replyMode() const noexcept { return replyMode_; }
   constexpr void replyModeIs( U8 mode ) noexcept { replyMode_ = mode; }
   /// LspPingProxyFlags.
   constexpr U16 proxyFlags() const noexcept { return proxyFlags_.value(); }
   constexpr void proxyFlagsIs( U16 flags ) noexcept { proxyFlags_.valueIs( flags ); }
   /// Of the topmost FEC's label.
   constexpr U8 ttl() const noexcept { return ttl_; }
   constexpr void ttlIs( U8 ttl ) noexcept { ttl_ = ttl; }
   /// Means something with `explicitDscpFlag`.
   constexpr U8 requestedDscp() const noexcept { return requestedDscp_; }
   constexpr void requestedDscpIs( U8 dscp ) noexcept { requestedDscp_ = dscp; }
   constexpr U16 sourceUdpPort() const noexcept { return sourceUdpPort_.value(); }
   constexpr void sourceUdpPortIs( U16 port ) noexcept { sourceUdpPort_.valueIs( port ); }
   /// LspPingHeaderFlags.
   constexpr U16 globalFlags() const noexcept { return globalFlags_.value(); }
   constexpr void globalFlagsIs( U16 flags ) noexcept { globalFlags_.valueIs( flags ); }
   /// Bytes that a Pad TLV shall fill the request to, the IP header's among them; 0 is no wish.
   constexpr U16 mplsPayloadSize() const noexcept { return mplsPayloadSize_.value(); }
   constexpr void mplsPayloadSizeIs( U16 bytes ) noexcept { mplsPayloadSize_.valueIs( bytes ); }
   constexpr Address destinationAddr() const noexcept { return destinationAddr_; }
   constexpr void destinationAddrIs( Address address ) noexcept { destinationAddr_ = address; }

 protected:
   static constexpr auto elementOf( LspPingAddrType type ) {
      return LspPingElement::tlv( LspPingExtTlvType::ProxyEchoParameters )
         .when( 4, type )
         .atLeast( 12 + sizeof( Address ) )
         .followedBy< LspPingProxySubTlvType >()
         .inWords( "Proxy Echo Parameters" );
   }

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingProxyEchoParametersBody;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::addrType, &Self::addrTypeIs >( "addrType" ),
         Kiv::field< &Self::replyMode, &Self::replyModeIs >( "replyMode" ),
         Kiv::field< &Self::proxyFlags, &Self::proxyFlagsIs >( "proxyFlags" ),
         Kiv::field< &Self::ttl, &Self::ttlIs >( "ttl" ),
         Kiv::field< &Self::requestedDscp, &Self::requestedDscpIs >( "requestedDscp" ),
         Kiv::field< &Self::sourceUdpPort, &Self::sourceUdpPortIs >( "sourceUdpPort" ),
         Kiv::field< &Self::globalFlags, &Self::globalFlagsIs >( "globalFlags" ),
         Kiv::field< &Self::mplsPayloadSize, &Self::mplsPayloadSizeIs >( "mplsPayloadSize" ),
         Kiv::field< &Self::destinationAddr, &Self::destinationAddrIs >( "destinationAddr" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   U8 addrType_ = 0;
   U8 replyMode_ = 0;
   Velnet::NetU16 proxyFlags_;
   U8 ttl_ = 0;
   U8 requestedDscp_ = 0;
   Velnet::NetU16 sourceUdpPort_;
   Velnet::NetU16 globalFlags_;
   Velnet::NetU16 mplsPayloadSize_;
   Address destinationAddr_;
};

// Of an address of IPv4, type 1.
class LSPPING_EXT_EXPORT LspPingProxyEchoParametersIpv4Tlv
   : public Kiv::Typed< LspPingProxyEchoParametersIpv4Tlv,
                        LspPingProxyEchoParametersBody< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingAddrType::ipv4Numbered ).definedIn( "RFC 7555 section 5.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "ProxyEchoParametersIpv4( '127.0.0.1', reply mode: ReplyIpUdp, flags: none, TTL: 255, DSCP:
   /// 0, source port: 49152, global flags: V, payload size: 0 )", or "Invalid
   /// ProxyEchoParametersIpv4Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingProxyEchoParametersIpv4Tlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingProxyEchoParametersIpv4Tlv, 20 > );

// Of an address of IPv6, type 3.
class LSPPING_EXT_EXPORT LspPingProxyEchoParametersIpv6Tlv
   : public Kiv::Typed< LspPingProxyEchoParametersIpv6Tlv,
                        LspPingProxyEchoParametersBody< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingAddrType::ipv6Numbered ).definedIn( "RFC 7555 section 5.1" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// As above, or "Invalid ProxyEchoParametersIpv6Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingProxyEchoParametersIpv6Tlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingProxyEchoParametersIpv6Tlv, 32 > );

// Reply-to Address, RFC 7555 section 5.2: what the request's source address shall be.
class LSPPING_EXT_EXPORT LspPingReplyToAddressIpv4Tlv
   : public Kiv::Typed< LspPingReplyToAddressIpv4Tlv, LspPingTypedAddressTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::ReplyToAddress )
                                      .when( addrTypeOffset, LspPingAddrType::ipv4Numbered )
                                      .length( valueLength )
                                      .inWords( "Reply-to Address" )
                                      .definedIn( "RFC 7555 section 5.2" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "ReplyToAddressIpv4( '10.0.0.1' )", or "Invalid ReplyToAddressIpv4Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingReplyToAddressIpv4Tlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingReplyToAddressIpv4Tlv, 12 > );

// The same of IPv6.
class LSPPING_EXT_EXPORT LspPingReplyToAddressIpv6Tlv
   : public Kiv::Typed< LspPingReplyToAddressIpv6Tlv, LspPingTypedAddressTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::ReplyToAddress )
                                      .when( addrTypeOffset, LspPingAddrType::ipv6Numbered )
                                      .length( valueLength )
                                      .inWords( "Reply-to Address" )
                                      .definedIn( "RFC 7555 section 5.2" );

   /// Looks at type, address type and length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.selectors[0].has( addrType() ) &&
             element.hasLength( length() );
   }
   /// "ReplyToAddressIpv6( '2001:db8::1' )", or "Invalid ReplyToAddressIpv6Tlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingReplyToAddressIpv6Tlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingReplyToAddressIpv6Tlv, 24 > );

// The shape of the neighbor addresses, RFC 7555 sections 5.3 and 5.4: of a neighbor on a multipoint
// LSP, and the proxy's own towards it. Types: 0 none, 1 IPv4, 3 IPv6.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 25, 26         |            length             |
// +---------------+---------------+-------------------------------+
// |neighborAddrTyp| localAddrType |              mbz              |
// +---------------+---------------+-------------------------------+
// |               neighborAddr (0, 4 or 16 bytes)                 |
// |                localAddr (0, 4 or 16 bytes)                   |
// +---------------------------------------------------------------+
class LspPingNeighborAddressTlv : public LspPingTlvHdr {
 public:
   constexpr U8 neighborAddrType() const noexcept { return neighborAddrType_; }
   constexpr void neighborAddrTypeIs( U8 type ) noexcept { neighborAddrType_ = type; }
   constexpr U8 localAddrType() const noexcept { return localAddrType_; }
   constexpr void localAddrTypeIs( U8 type ) noexcept { localAddrType_ = type; }
   constexpr U16 mbz() const noexcept { return mbz_.value(); }
   constexpr void mbzIs( U16 value ) noexcept { mbz_.valueIs( value ); }

 protected:
   static constexpr auto elementOf( LspPingExtTlvType code ) {
      return LspPingElement::tlv( code ).atLeast( 4 ).followedBy( LspPingBehind::tail );
   }
   static constexpr std::optional< std::size_t > sizeOf( U8 type ) noexcept {
      return lspPingAddressSize( type, Kiv::numberOf( LspPingAddrType::ipv6Numbered ) );
   }

   /// Whether the addresses are all of the tail.
   bool fits( std::span< U8 const > tail ) const noexcept {
      auto const neighbor = sizeOf( neighborAddrType_ );
      auto const local = sizeOf( localAddrType_ );
      return neighbor && local && tail.size() == *neighbor + *local;
   }
   Velnet::IpGenAddr neighborIn( std::span< U8 const > tail ) const noexcept {
      return lspPingAddressOf( lspPingPart( tail, 0, sizeOf( neighborAddrType_ ).value_or( 0 ) ) );
   }
   Velnet::IpGenAddr localIn( std::span< U8 const > tail ) const noexcept {
      auto const neighbor = sizeOf( neighborAddrType_ );
      auto const local = sizeOf( localAddrType_ );
      return neighbor && local ? lspPingAddressOf( lspPingPart( tail, *neighbor, *local ) )
                               : Velnet::IpGenAddr();
   }

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingNeighborAddressTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::neighborAddrType, &Self::neighborAddrTypeIs >( "neighborAddrType" ),
         Kiv::field< &Self::localAddrType, &Self::localAddrTypeIs >( "localAddrType" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ),
         Kiv::computed< &View::neighborAddr >( "neighborAddr" ),
         Kiv::computed< &View::localAddr >( "localAddr" ), Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   U8 neighborAddrType_ = 0;
   U8 localAddrType_ = 0;
   Velnet::NetU16 mbz_;
};

// Upstream Neighbor Address, RFC 7555 section 5.3.
class LSPPING_EXT_EXPORT LspPingUpstreamNeighborAddressTlv
   : public Kiv::Typed< LspPingUpstreamNeighborAddressTlv, LspPingNeighborAddressTlv > {
 public:
   static constexpr auto element = elementOf( LspPingExtTlvType::UpstreamNeighborAddress )
                                      .inWords( "Upstream Neighbor Address" )
                                      .definedIn( "RFC 7555 section 5.3" );

   /// None where the type says so, where there is no such type, or where it does not fit.
   Velnet::IpGenAddr neighborAddr() const noexcept { return neighborIn( lspPingTail( *this ) ); }
   Velnet::IpGenAddr localAddr() const noexcept { return localIn( lspPingTail( *this ) ); }

   bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             fits( lspPingTail( *this ) );
   }
   /// "UpstreamNeighborAddress( '10.0.0.1', local: '10.0.0.2' )", or "Invalid
   /// UpstreamNeighborAddressTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingUpstreamNeighborAddressTlv >();
   }
   /// With the addresses.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingUpstreamNeighborAddressTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingUpstreamNeighborAddressTlv, 8 > );

// Downstream Neighbor Address, RFC 7555 section 5.4.
class LSPPING_EXT_EXPORT LspPingDownstreamNeighborAddressTlv
   : public Kiv::Typed< LspPingDownstreamNeighborAddressTlv, LspPingNeighborAddressTlv > {
 public:
   static constexpr auto element = elementOf( LspPingExtTlvType::DownstreamNeighborAddress )
                                      .inWords( "Downstream Neighbor Address" )
                                      .definedIn( "RFC 7555 section 5.4" );

   /// None where the type says so, where there is no such type, or where it does not fit.
   Velnet::IpGenAddr neighborAddr() const noexcept { return neighborIn( lspPingTail( *this ) ); }
   Velnet::IpGenAddr localAddr() const noexcept { return localIn( lspPingTail( *this ) ); }

   bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             fits( lspPingTail( *this ) );
   }
   /// "DownstreamNeighborAddress( '10.0.0.1', local: '10.0.0.2' )", or "Invalid
   /// DownstreamNeighborAddressTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingDownstreamNeighborAddressTlv >();
   }
   /// With the addresses.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingDownstreamNeighborAddressTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDownstreamNeighborAddressTlv, 8 > );

} // namespace LspPing
