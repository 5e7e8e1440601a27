#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/ext/LspPingTail.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingTunnelTypes.h"

// The segments that name an adjacency: of an IGP, RFC 8287 section 5.3, and of BGP peers, RFC 9703
// section 4.
namespace LspPing {

// An IS-IS system id as it lies in a packet: 48 bits.
class LspPingSystemId {
 public:
   constexpr LspPingSystemId() noexcept = default;
   /// Bits of the number above these are dropped.
   constexpr explicit LspPingSystemId( U64 number ) noexcept
      : high_( static_cast< U16 >( number >> 32 ) ),
        low_( static_cast< U32 >( number ) ) {}
   constexpr explicit operator U64() const noexcept {
      return U64{ high_.value() } << 32 | low_.value();
   }

 private:
   Velnet::NetU16 high_;
   Velnet::NetU32 low_;
};

// The shape of the IGP adjacencies. The lengths count the reserved bytes, RFC 8690 section 4. The
// adjacency type says how long the interfaces are, the protocol how long the nodes.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 36           |    length = 20, 24, 44, 48    |
// +---------------+---------------+-------------------------------+
// |    adjType    |   protocol    |           reserved            |
// +---------------+---------------+-------------------------------+
// |                  localIntfId (4 or 16 bytes)                  |
// |                 remoteIntfId (4 or 16 bytes)                  |
// |               advertisingNodeId (4 or 6 bytes)                |
// |                receivingNodeId (4 or 6 bytes)                 |
// +---------------------------------------------------------------+
template < class IntfId, class NodeId >
class LspPingIgpAdjacencySubTlv : public LspPingTlvHdr {
   static constexpr bool isIpv6 = std::is_same_v< IntfId, Velnet::Ip6Addr >;
   static constexpr bool isIsis = std::is_same_v< NodeId, LspPingSystemId >;

 public:
   /// An OSPF router id, or a number of 48 bits: an IS-IS system id.
   using Node = std::conditional_t< isIsis, U64, NodeId >;

   /// LspPingAdjacencyType.
   constexpr U8 adjType() const noexcept { return adjType_; }
   constexpr void adjTypeIs( U8 type ) noexcept { adjType_ = type; }
   /// LspPingSrIgpProtocol, or LspPingExtSrIgpProtocol.
   constexpr U8 protocol() const noexcept { return protocol_; }
   constexpr void protocolIs( U8 protocol ) noexcept { protocol_ = protocol; }
   constexpr U16 reserved() const noexcept { return reserved_.value(); }
   constexpr void reservedIs( U16 value ) noexcept { reserved_.valueIs( value ); }
   /// Where the adjacency is unnumbered, the number of the link as an address.
   constexpr IntfId localIntfId() const noexcept { return localIntfId_; }
   constexpr void localIntfIdIs( IntfId id ) noexcept { localIntfId_ = id; }
   constexpr IntfId remoteIntfId() const noexcept { return remoteIntfId_; }
   constexpr void remoteIntfIdIs( IntfId id ) noexcept { remoteIntfId_ = id; }
   constexpr Node advertisingNodeId() const noexcept {
      return static_cast< Node >( advertisingNodeId_ );
   }
   constexpr void advertisingNodeIdIs( Node node ) noexcept { advertisingNodeId_ = NodeId( node ); }
   constexpr Node receivingNodeId() const noexcept {
      return static_cast< Node >( receivingNodeId_ );
   }
   constexpr void receivingNodeIdIs( Node node ) noexcept { receivingNodeId_ = NodeId( node ); }

 protected:
   static constexpr LspPingElement elementOf() {
      constexpr auto number = []( auto code ) { return Kiv::numberOf( code ); };
      using Type = LspPingAdjacencyType;
      auto const adjacency =
         LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::IgpAdjacency )
            .length( 4 + 2 * sizeof( IntfId ) + 2 * sizeof( NodeId ) )
            .inWords( "IGP-Adjacency Segment ID" );
      auto const ofType =
         isIpv6 ? adjacency.when( 4, Type::ipv6Adjacency )
                : adjacency.whenOneOf( 4, { Type::ipv4Adjacency, Type::unnumberedAdjacency,
                                            Type::parallelAdjacency } );
      return isIsis ? ofType.when( 5, LspPingSrIgpProtocol::isis )
                    : ofType.whenOneOf( 5, { number( LspPingSrIgpProtocol::ospf ),
                                             number( LspPingExtSrIgpProtocol::srIgpAny ) } );
   }
   constexpr bool isOf( LspPingElement const & element ) const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             element.selectors[0].has( adjType() ) && element.selectors[1].has( protocol() );
   }
   Orlo::String text() const;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingIgpAdjacencySubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::adjType, &Self::adjTypeIs >( "adjType" ),
         Kiv::field< &Self::protocol, &Self::protocolIs >( "protocol" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::field< &Self::localIntfId, &Self::localIntfIdIs >( "localIntfId" ),
         Kiv::field< &Self::remoteIntfId, &Self::remoteIntfIdIs >( "remoteIntfId" ),
         Kiv::field< &Self::advertisingNodeId, &Self::advertisingNodeIdIs >( "advertisingNodeId" ),
         Kiv::field< &Self::receivingNodeId, &Self::receivingNodeIdIs >( "receivingNodeId" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   U8 adjType_ = 0;
   U8 protocol_ = 0;
   Velnet::NetU16 reserved_;
   IntfId localIntfId_;
   IntfId remoteIntfId_;
   NodeId advertisingNodeId_;
   NodeId receivingNodeId_;
};

// An adjacency over IPv4, over unnumbered interfaces or over several ones, of OSPF or of any IGP.
class LSPPING_EXT_EXPORT LspPingIgpAdjacencyIpv4SubTlv
   : public Kiv::Typed< LspPingIgpAdjacencyIpv4SubTlv,
                        LspPingIgpAdjacencySubTlv< Velnet::IpAddr, Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 8287 section 5.3" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "IgpAdjacency( ipv4Adjacency, protocol: ospf, local: '10.0.0.1', remote: '10.0.0.2',
   /// advertising: '10.1.1.1', receiving: '10.1.1.2' )", or "Invalid IgpAdjacencyIpv4SubTlv". The
   /// numbers of unnumbered interfaces stand without quotes.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingIgpAdjacencyIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIgpAdjacencyIpv4SubTlv, 24 > );

// The same of IS-IS.
class LSPPING_EXT_EXPORT LspPingIgpAdjacencyIpv4IsisSubTlv
   : public Kiv::Typed< LspPingIgpAdjacencyIpv4IsisSubTlv,
                        LspPingIgpAdjacencySubTlv< Velnet::IpAddr, LspPingSystemId > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 8287 section 5.3" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "IgpAdjacency( ipv4Adjacency, protocol: isis, local: '10.0.0.1', remote: '10.0.0.2',
   /// advertising: '1921.6800.1001', receiving: '1921.6800.1002' )", or "Invalid
   /// IgpAdjacencyIpv4IsisSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingIgpAdjacencyIpv4IsisSubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIgpAdjacencyIpv4IsisSubTlv, 28 > );

// An adjacency over IPv6, of OSPF or of any IGP.
class LSPPING_EXT_EXPORT LspPingIgpAdjacencyIpv6SubTlv
   : public Kiv::Typed< LspPingIgpAdjacencyIpv6SubTlv,
                        LspPingIgpAdjacencySubTlv< Velnet::Ip6Addr, Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 8287 section 5.3" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// As over IPv4, or "Invalid IgpAdjacencyIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingIgpAdjacencyIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIgpAdjacencyIpv6SubTlv, 48 > );

// The same of IS-IS.
class LSPPING_EXT_EXPORT LspPingIgpAdjacencyIpv6IsisSubTlv
   : public Kiv::Typed< LspPingIgpAdjacencyIpv6IsisSubTlv,
                        LspPingIgpAdjacencySubTlv< Velnet::Ip6Addr, LspPingSystemId > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 8287 section 5.3" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// As over IPv4, or "Invalid IgpAdjacencyIpv6IsisSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingIgpAdjacencyIpv6IsisSubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingIgpAdjacencyIpv6IsisSubTlv, 52 > );

// What stands before the peers of an adjacency.
class LspPingPeerAdjHdr : public LspPingTlvHdr {
 public:
   /// LspPingPeerAdjType.
   constexpr U8 adjType() const noexcept { return adjType_; }
   constexpr void adjTypeIs( U8 type ) noexcept { adjType_ = type; }
   constexpr U8 reserved0() const noexcept { return reserved0_; }
   constexpr void reserved0Is( U8 value ) noexcept { reserved0_ = value; }
   constexpr U16 reserved1() const noexcept { return reserved1_.value(); }
   constexpr void reserved1Is( U16 value ) noexcept { reserved1_.valueIs( value ); }

 private:
   U8 adjType_ = 0;
   U8 reserved0_ = 0;
   Velnet::NetU16 reserved1_;
};

// Two BGP peers.
template < class Hdr >
class LspPingPeersSubTlv : public Hdr {
 public:
   constexpr U32 localAs() const noexcept { return localAs_.value(); }
   constexpr void localAsIs( U32 number ) noexcept { localAs_.valueIs( number ); }
   constexpr U32 remoteAs() const noexcept { return remoteAs_.value(); }
   constexpr void remoteAsIs( U32 number ) noexcept { remoteAs_.valueIs( number ); }
   constexpr Velnet::IpAddr localRouterId() const noexcept { return localRouterId_; }
   constexpr void localRouterIdIs( Velnet::IpAddr id ) noexcept { localRouterId_ = id; }
   constexpr Velnet::IpAddr remoteRouterId() const noexcept { return remoteRouterId_; }
   constexpr void remoteRouterIdIs( Velnet::IpAddr id ) noexcept { remoteRouterId_ = id; }

 protected:
   template < class View >
   static constexpr auto attributesOf( auto... own ) {
      using Self = LspPingPeersSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         own..., Kiv::field< &Self::localAs, &Self::localAsIs >( "localAs" ),
         Kiv::field< &Self::remoteAs, &Self::remoteAsIs >( "remoteAs" ),
         Kiv::field< &Self::localRouterId, &Self::localRouterIdIs >( "localRouterId" ),
         Kiv::field< &Self::remoteRouterId, &Self::remoteRouterIdIs >( "remoteRouterId" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::NetU32 localAs_;
   Velnet::NetU32 remoteAs_;
   Velnet::IpAddr localRouterId_;
   Velnet::IpAddr remoteRouterId_;
};

// The shape of the adjacencies of BGP peers, RFC 9703 section 4.2. An interface may be unknown: all
// zeros.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 38           |        length = 28, 52        |
// +---------------+---------------+-------------------------------+
// | adjType = 1,2 |   reserved0   |           reserved1           |
// +---------------+---------------+-------------------------------+
// |                            localAs                            |
// |                            remoteAs                           |
// |                         localRouterId                         |
// |                         remoteRouterId                        |
// |                 localIntfAddr (4 or 16 bytes)                 |
// |                remoteIntfAddr (4 or 16 bytes)                 |
// +---------------------------------------------------------------+
template < class Address >
class LspPingPeerAdjSidSubTlv : public LspPingPeersSubTlv< LspPingPeerAdjHdr > {
 public:
   constexpr Address localIntfAddr() const noexcept { return localIntfAddr_; }
   constexpr void localIntfAddrIs( Address address ) noexcept { localIntfAddr_ = address; }
   constexpr Address remoteIntfAddr() const noexcept { return remoteIntfAddr_; }
   constexpr void remoteIntfAddrIs( Address address ) noexcept { remoteIntfAddr_ = address; }

 protected:
   static constexpr auto elementOf( LspPingPeerAdjType type ) {
      return LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::PeerAdjSid )
         .when( 4, type )
         .length( 20 + 2 * sizeof( Address ) )
         .inWords( "PeerAdj SID" );
   }
   constexpr bool isOf( LspPingElement const & element ) const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             element.selectors[0].has( adjType() );
   }
   Orlo::String text() const;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingPeerAdjSidSubTlv;
      return LspPingPeersSubTlv::attributesOf< View >(
         Kiv::field< &Self::adjType, &Self::adjTypeIs >( "adjType" ),
         Kiv::field< &Self::reserved0, &Self::reserved0Is >( "reserved0" ),
         Kiv::field< &Self::reserved1, &Self::reserved1Is >( "reserved1" ),
         Kiv::field< &Self::localIntfAddr, &Self::localIntfAddrIs >( "localIntfAddr" ),
         Kiv::field< &Self::remoteIntfAddr, &Self::remoteIntfAddrIs >( "remoteIntfAddr" ) );
   }

 private:
   Address localIntfAddr_;
   Address remoteIntfAddr_;
};

class LSPPING_EXT_EXPORT LspPingPeerAdjSidIpv4SubTlv
   : public Kiv::Typed< LspPingPeerAdjSidIpv4SubTlv, LspPingPeerAdjSidSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingPeerAdjType::ipv4PeerAdj ).definedIn( "RFC 9703 section 4.2" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "PeerAdjSid( local AS: 65001, remote AS: 65002, local router: '10.1.1.1', remote router:
   /// '10.1.1.2', local interface: '10.0.0.1', remote interface: '10.0.0.2' )", or "Invalid
   /// PeerAdjSidIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingPeerAdjSidIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingPeerAdjSidIpv4SubTlv, 32 > );

class LSPPING_EXT_EXPORT LspPingPeerAdjSidIpv6SubTlv
   : public Kiv::Typed< LspPingPeerAdjSidIpv6SubTlv, LspPingPeerAdjSidSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingPeerAdjType::ipv6PeerAdj ).definedIn( "RFC 9703 section 4.2" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// As over IPv4, or "Invalid PeerAdjSidIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingPeerAdjSidIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingPeerAdjSidIpv6SubTlv, 56 > );

// A BGP peer over whatever leads to it, RFC 9703 section 4.1. The length check of section 5 asks
// for another length, and for interfaces that the format does not have.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 39           |          length = 16          |
// +-------------------------------+-------------------------------+
// |                            localAs                            |
// |                            remoteAs                           |
// |                         localRouterId                         |
// |                         remoteRouterId                        |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingPeerNodeSidSubTlv
   : public Kiv::Typed< LspPingPeerNodeSidSubTlv, LspPingPeersSubTlv< LspPingTlvHdr > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::PeerNodeSid )
         .length( 16 )
         .inWords( "PeerNode SID" )
         .definedIn( "RFC 9703 section 4.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "PeerNodeSid( local AS: 65001, remote AS: 65002, local router: '10.1.1.1', remote router:
   /// '10.1.1.2' )", or "Invalid PeerNodeSidSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingPeerNodeSidSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingPeerNodeSidSubTlv, 20 > );

// One of a set of peers.
struct LspPingRemotePeer {
   Velnet::NetU32 as;
   Velnet::IpAddr routerId;
};
static_assert( sizeof( LspPingRemotePeer ) == 8 && alignof( LspPingRemotePeer ) == 1 );

// A set of BGP peers, RFC 9703 section 4.3. The length check of section 5 is not for this format.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 40           |    length = 12 + 8 * peers    |
// +-------------------------------+-------------------------------+
// |                            localAs                            |
// |                         localRouterId                         |
// +-------------------------------+-------------------------------+
// |           peerCount           |           reserved            |
// +-------------------------------+-------------------------------+
// |                 AS of the first remote peer                   |
// |              router id of the first remote peer               |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingPeerSetSidSubTlv
   : public Kiv::Typed< LspPingPeerSetSidSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::PeerSetSid )
         .atLeast( 12 )
         .followedBy( LspPingBehind::tail )
         .inWords( "PeerSet SID" )
         .definedIn( "RFC 9703 section 4.3" );

   constexpr U32 localAs() const noexcept { return localAs_.value(); }
   constexpr void localAsIs( U32 number ) noexcept { localAs_.valueIs( number ); }
   constexpr Velnet::IpAddr localRouterId() const noexcept { return localRouterId_; }
   constexpr void localRouterIdIs( Velnet::IpAddr id ) noexcept { localRouterId_ = id; }
   /// How many peers there should be.
   constexpr U16 peerCount() const noexcept { return peerCount_.value(); }
   constexpr void peerCountIs( U16 count ) noexcept { peerCount_.valueIs( count ); }
   constexpr U16 reserved() const noexcept { return reserved_.value(); }
   constexpr void reservedIs( U16 value ) noexcept { reserved_.valueIs( value ); }
   /// Those that there are.
   std::span< LspPingRemotePeer const > peers() const noexcept;

   /// Whether there are as many peers as there should be.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) &&
             length() == element.leastLength + peerCount() * sizeof( LspPingRemotePeer );
   }
   /// "PeerSetSid( local AS: 65001, local router: '10.1.1.1', peers: 65002 '10.1.1.2', 65003
   /// '10.1.1.3' )", or "Invalid PeerSetSidSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingPeerSetSidSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::localAs, &Self::localAsIs >( "localAs" ),
         Kiv::field< &Self::localRouterId, &Self::localRouterIdIs >( "localRouterId" ),
         Kiv::field< &Self::peerCount, &Self::peerCountIs >( "peerCount" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   /// With the remote peers.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingPeerSetSidSubTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 localAs_;
   Velnet::IpAddr localRouterId_;
   Velnet::NetU16 peerCount_;
   Velnet::NetU16 reserved_;
};
static_assert( Kiv::isWireView< LspPingPeerSetSidSubTlv, 16 > );

} // namespace LspPing
