#include "MplsUtils/LspPing/ext/fec/LspPingAdjacencyFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingIgpAdjacencyIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIgpAdjacencyIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingIgpAdjacencyIpv4IsisSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIgpAdjacencyIpv4IsisSubTlv >();
constinit Kiv::AllocationTracker LspPingIgpAdjacencyIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIgpAdjacencyIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingIgpAdjacencyIpv6IsisSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIgpAdjacencyIpv6IsisSubTlv >();
constinit Kiv::AllocationTracker LspPingPeerAdjSidIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPeerAdjSidIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingPeerAdjSidIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPeerAdjSidIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingPeerNodeSidSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPeerNodeSidSubTlv >();
constinit Kiv::AllocationTracker LspPingPeerSetSidSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPeerSetSidSubTlv >();

namespace {

// "1921.6800.1001"
void appendText( Orlo::StringBuilder & out, LspPingSystemId const & id ) {
   std::span< U8 const > const bytes( reinterpret_cast< U8 const * >( &id ), sizeof id );
   for( std::size_t i = 0; i < bytes.size(); i += 2 ) {
      if( i > 0 )
         out.append( '.' );
      out.appendHexBytes( bytes.subspan( i, 2 ) );
   }
}

void appendQuoted( Orlo::StringBuilder & out, auto const & value ) {
   out.append( '\'' );
   appendText( out, value );
   out.append( '\'' );
}

template < class Hdr >
Orlo::String peersText( LspPingPeersSubTlv< Hdr > const & peers ) {
   return Kiv::_fmt( "local AS: %lu, remote AS: %lu, local router: '%s', remote router: '%s'",
                     U64{ peers.localAs() }, U64{ peers.remoteAs() }, peers.localRouterId(),
                     peers.remoteRouterId() );
}

} // namespace

template < class IntfId, class NodeId >
Orlo::String LspPingIgpAdjacencySubTlv< IntfId, NodeId >::text() const {
   auto const adjacency = static_cast< LspPingAdjacencyType >( adjType() );
   Orlo::StringBuilder out;
   auto const appendIntf = [&]( std::string_view name, IntfId id ) {
      out.append( name );
      if constexpr( !isIpv6 ) {
         if( adjacency == LspPingAdjacencyType::unnumberedAdjacency )
            return out.appendDecimal( id.host() );
      }
      appendQuoted( out, id );
   };
   out.append( "IgpAdjacency( " );
   appendText( out, adjacency );
   out.append( ", protocol: " );
   if( protocol() == Kiv::numberOf( LspPingExtSrIgpProtocol::srIgpAny ) )
      appendText( out, LspPingExtSrIgpProtocol::srIgpAny );
   else
      appendText( out, static_cast< LspPingSrIgpProtocol >( protocol() ) );
   appendIntf( ", local: ", localIntfId() );
   appendIntf( ", remote: ", remoteIntfId() );
   out.append( ", advertising: " );
   appendQuoted( out, advertisingNodeId_ );
   out.append( ", receiving: " );
   appendQuoted( out, receivingNodeId_ );
   out.append( " )" );
   return std::move( out ).string();
}

Orlo::String LspPingIgpAdjacencyIpv4SubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid IgpAdjacencyIpv4SubTlv" );
}

Orlo::String LspPingIgpAdjacencyIpv4IsisSubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid IgpAdjacencyIpv4IsisSubTlv" );
}

Orlo::String LspPingIgpAdjacencyIpv6SubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid IgpAdjacencyIpv6SubTlv" );
}

Orlo::String LspPingIgpAdjacencyIpv6IsisSubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid IgpAdjacencyIpv6IsisSubTlv" );
}

template < class Address >
Orlo::String LspPingPeerAdjSidSubTlv< Address >::text() const {
   return Kiv::_fmt( "PeerAdjSid( %s, local interface: '%s', remote interface: '%s' )",
                     peersText( *this ), localIntfAddr(), remoteIntfAddr() );
}

Orlo::String LspPingPeerAdjSidIpv4SubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid PeerAdjSidIpv4SubTlv" );
}

Orlo::String LspPingPeerAdjSidIpv6SubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid PeerAdjSidIpv6SubTlv" );
}

Orlo::String LspPingPeerNodeSidSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid PeerNodeSidSubTlv" );
   return Kiv::_fmt( "PeerNodeSid( %s )", peersText( *this ) );
}

std::span< LspPingRemotePeer const > LspPingPeerSetSidSubTlv::peers() const noexcept {
   // The bytes of the tail are there, and a peer has no alignment.
   auto const tail = lspPingTail( *this );
   return { reinterpret_cast< LspPingRemotePeer const * >( tail.data() ),
            tail.size() / sizeof( LspPingRemotePeer ) };
}

Orlo::String LspPingPeerSetSidSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid PeerSetSidSubTlv" );
   Orlo::StringBuilder out;
   out.append( "PeerSetSid( local AS: " );
   out.appendDecimal( localAs() );
   out.append( ", local router: " );
   appendQuoted( out, localRouterId() );
   out.append( ", peers:" );
   std::string_view separator = " ";
   for( LspPingRemotePeer const & peer : peers() ) {
      out.append( separator );
      separator = ", ";
      out.appendDecimal( peer.as.value() );
      out.append( ' ' );
      appendQuoted( out, peer.routerId );
   }
   out.append( " )" );
   return std::move( out ).string();
}

} // namespace LspPing
