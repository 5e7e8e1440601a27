#include "MplsUtils/LspPing/ext/fec/LspPingAdjacencyFec.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using Velnet::IpAddr;

constexpr char const * ipv4Ospf = "00 24 00 14 04 01 00 00 0a 00 00 01 0a 00 00 02 0a 01 01 01 0a "
                                  "01 01 02";
constexpr char const * ipv4OspfText =
   "IgpAdjacency( ipv4Adjacency, protocol: ospf, local: '10.0.0.1', remote: '10.0.0.2', "
   "advertising: '10.1.1.1', receiving: '10.1.1.2' )";
constexpr char const * ipv4Isis = "00 24 00 18 04 02 00 00 0a 00 00 01 0a 00 00 02 19 21 68 00 10 "
                                  "01 19 21 68 00 10 02";
constexpr char const * ipv6Ospf =
   "00 24 00 2c 06 01 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 20 01 0d b8 00 00 00 "
   "00 00 00 00 00 00 00 00 02 0a 01 01 01 0a 01 01 02";
constexpr char const * ipv6Isis =
   "00 24 00 30 06 02 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 20 01 0d b8 00 00 00 "
   "00 00 00 00 00 00 00 00 02 19 21 68 00 10 01 19 21 68 00 10 02";

TEST( LspPingIgpAdjacencySubTlv, readsInterfacesAndNodes ) {
   WireBytes bytes( ipv4Ospf );
   auto const & fec = bytes.as< LspPingIgpAdjacencyIpv4SubTlv >();
   EXPECT_EQ( fec.adjType(), Kiv::numberOf( LspPingAdjacencyType::ipv4Adjacency ) );
   EXPECT_EQ( fec.protocol(), Kiv::numberOf( LspPingSrIgpProtocol::ospf ) );
   EXPECT_EQ( fec.localIntfId(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.remoteIntfId(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( fec.advertisingNodeId(), IpAddr( 10, 1, 1, 1 ) );
   EXPECT_EQ( fec.receivingNodeId(), IpAddr( 10, 1, 1, 2 ) );
   EXPECT_EQ( fec.stringValue(), ipv4OspfText );
   WireBytes isis( ipv6Isis );
   auto const & long6 = isis.as< LspPingIgpAdjacencyIpv6IsisSubTlv >();
   EXPECT_EQ( long6.remoteIntfId(), address6( "2001:db8::2" ) );
   EXPECT_EQ( long6.advertisingNodeId(), 0x192168001001u );
   EXPECT_EQ( long6.receivingNodeId(), 0x192168001002u );
}

TEST( LspPingIgpAdjacencySubTlv, isReadInTheFormOfItsTypeAndProtocol ) {
   EXPECT_EQ( readFec( ipv4Ospf ), ipv4OspfText );
   EXPECT_EQ( readFec( ipv4Isis ),
              "IgpAdjacency( ipv4Adjacency, protocol: isis, local: '10.0.0.1', remote: '10.0.0.2', "
              "advertising: '1921.6800.1001', receiving: '1921.6800.1002' )" );
   EXPECT_EQ( readFec( ipv6Ospf ),
              "IgpAdjacency( ipv6Adjacency, protocol: ospf, local: '2001:db8::1', remote: "
              "'2001:db8::2', advertising: '10.1.1.1', receiving: '10.1.1.2' )" );
   EXPECT_EQ( readFec( ipv6Isis ),
              "IgpAdjacency( ipv6Adjacency, protocol: isis, local: '2001:db8::1', remote: "
              "'2001:db8::2', advertising: '1921.6800.1001', receiving: '1921.6800.1002' )" );
}

TEST( LspPingIgpAdjacencySubTlv, isReadOverUnnumberedAndSeveralInterfacesToo ) {
   EXPECT_EQ(
      readFec( "00 24 00 14 00 00 00 00 80 00 00 07 00 00 00 08 00 00 00 00 00 00 00 00" ),
      "IgpAdjacency( unnumberedAdjacency, protocol: srIgpAny, local: 2147483655, remote: 8, "
      "advertising: '0.0.0.0', receiving: '0.0.0.0' )" );
   EXPECT_EQ( readFec( "00 24 00 14 01 01 00 00 00 00 00 00 00 00 00 00 0a 01 01 01 0a 01 01 02" ),
              "IgpAdjacency( parallelAdjacency, protocol: ospf, local: '0.0.0.0', remote: "
              "'0.0.0.0', advertising: '10.1.1.1', receiving: '10.1.1.2' )" );
}

TEST( LspPingIgpAdjacencySubTlv, isNotReadInAnotherForm ) {
   EXPECT_EQ( readFec( "00 24 00 14 05 01 00 00 0a 00 00 01 0a 00 00 02 0a 01 01 01 0a 01 01 02" ),
              "IgpAdjacency: 5 at byte 0 of the value is not known" );
   EXPECT_EQ( readFec( "00 24 00 14 04 03 00 00 0a 00 00 01 0a 00 00 02 0a 01 01 01 0a 01 01 02" ),
              "IgpAdjacency: 3 at byte 1 of the value is not known" );
   EXPECT_EQ( readFec( "00 24 00 01 04 00 00 00" ),
              "IgpAdjacency: length 1 is too short, needed 2" );
   EXPECT_EQ( readFec( "00 24 00 14 04 02 00 00 0a 00 00 01 0a 00 00 02 0a 01 01 01 0a 01 01 02" ),
              "IgpAdjacency: length 20 is too short, needed 24" );
   EXPECT_EQ( readFec( "00 24 00 18 04 01 00 00 0a 00 00 01 0a 00 00 02 0a 01 01 01 0a 01 01 02 00 "
                       "00 00 00" ),
              "IgpAdjacency: length 24, expected 20" );
}

TEST( LspPingIgpAdjacencySubTlv, isValidWithTypeLengthAndWhatChoosesTheForm ) {
   WireBytes bytes( 52, 0xa5 );
   auto & fec = bytes.as< LspPingIgpAdjacencyIpv4SubTlv >();
   fec.adjTypeIs( 1 );
   fec.protocolIs( 0 );
   auto const isOf = []( unsigned expected ) {
      return [=]( unsigned type, unsigned length ) { return type == 36 && length == expected; };
   };
   EXPECT_EQ( validityMismatches< LspPingIgpAdjacencyIpv4SubTlv >( bytes, isOf( 20 ) ), 0u );
   fec.protocolIs( 2 );
   EXPECT_EQ( validityMismatches< LspPingIgpAdjacencyIpv4IsisSubTlv >( bytes, isOf( 24 ) ), 0u );
   fec.typeIs( 36 );
   fec.lengthIs( 20 );
   EXPECT_EQ( fec.stringValue(), "Invalid IgpAdjacencyIpv4SubTlv" );
   fec.adjTypeIs( 6 );
   EXPECT_EQ( validityMismatches< LspPingIgpAdjacencyIpv6IsisSubTlv >( bytes, isOf( 48 ) ), 0u );
   EXPECT_EQ( bytes.as< LspPingIgpAdjacencyIpv4IsisSubTlv >().stringValue(),
              "Invalid IgpAdjacencyIpv4IsisSubTlv" );
   fec.protocolIs( 1 );
   EXPECT_EQ( validityMismatches< LspPingIgpAdjacencyIpv6SubTlv >( bytes, isOf( 44 ) ), 0u );
   EXPECT_EQ( bytes.as< LspPingIgpAdjacencyIpv6SubTlv >().stringValue(),
              "Invalid IgpAdjacencyIpv6SubTlv" );
   EXPECT_EQ( bytes.as< LspPingIgpAdjacencyIpv6IsisSubTlv >().stringValue(),
              "Invalid IgpAdjacencyIpv6IsisSubTlv" );
}

TEST( LspPingIgpAdjacencySubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingIgpAdjacencyIpv4IsisSubTlv;
   expectSets< View >( &View::adjTypeIs, "adjType", U8{ 1 },
                       "a5a5a5a5 01a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::protocolIs, "protocol", U8{ 2 },
                       "a5a5a5a5 a502a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U16{ 0x0304 },
                       "a5a5a5a5 a5a50304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::localIntfIdIs, "localIntfId", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::remoteIntfIdIs, "remoteIntfId", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::advertisingNodeIdIs, "advertisingNodeId", U64{ 0x010203040506 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 0506a5a5 a5a5a5a5" );
   expectSets< View >( &View::receivingNodeIdIs, "receivingNodeId", U64{ 0x010203040506 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50102 03040506" );
}

TEST( LspPingIgpAdjacencySubTlv, dropsWhatASystemIdHasNoBitsFor ) {
   EXPECT_EQ( U64{ LspPingSystemId( 0xffff010203040506 ) }, 0x010203040506u );
}

template < class View >
std::string writtenAdjacency( U8 adjType, U8 protocol ) {
   return writtenFec< View >( [&]( View & fec ) {
      fec.adjTypeIs( adjType );
      fec.protocolIs( protocol );
      if constexpr( sizeof( View ) < 40 ) {
         fec.localIntfIdIs( IpAddr( 10, 0, 0, 1 ) );
         fec.remoteIntfIdIs( IpAddr( 10, 0, 0, 2 ) );
      } else {
         fec.localIntfIdIs( address6( "2001:db8::1" ) );
         fec.remoteIntfIdIs( address6( "2001:db8::2" ) );
      }
      if constexpr( std::is_same_v< typename View::Node, U64 > ) {
         fec.advertisingNodeIdIs( 0x192168001001 );
         fec.receivingNodeIdIs( 0x192168001002 );
      } else {
         fec.advertisingNodeIdIs( IpAddr( 10, 1, 1, 1 ) );
         fec.receivingNodeIdIs( IpAddr( 10, 1, 1, 2 ) );
      }
   } );
}

TEST( LspPingIgpAdjacencySubTlv, isWrittenWithTheLengthOfItsForm ) {
   EXPECT_EQ( writtenAdjacency< LspPingIgpAdjacencyIpv4SubTlv >( 4, 1 ), ipv4Ospf );
   EXPECT_EQ( writtenAdjacency< LspPingIgpAdjacencyIpv4IsisSubTlv >( 4, 2 ), ipv4Isis );
   EXPECT_EQ( writtenAdjacency< LspPingIgpAdjacencyIpv6SubTlv >( 6, 1 ), ipv6Ospf );
   EXPECT_EQ( writtenAdjacency< LspPingIgpAdjacencyIpv6IsisSubTlv >( 6, 2 ), ipv6Isis );
   EXPECT_EQ( writtenAdjacency< LspPingIgpAdjacencyIpv4SubTlv >( 4, 2 ), "selectorWrong" );
   EXPECT_EQ( writtenAdjacency< LspPingIgpAdjacencyIpv4SubTlv >( 6, 1 ), "selectorWrong" );
}

constexpr char const * peerAdjIpv4 =
   "00 26 00 1c 01 00 00 00 00 00 fd e9 ff ff ff fe 0a 01 01 01 0a "
   "01 01 02 0a 00 00 01 0a 00 00 02";
constexpr char const * peerAdjIpv6 =
   "00 26 00 34 02 00 00 00 00 00 fd e9 ff ff ff fe 0a 01 01 01 0a 01 01 02 20 01 0d b8 00 00 00 "
   "00 00 00 00 00 00 00 00 01 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02";

TEST( LspPingPeerAdjSidSubTlv, readsPeersAndInterfaces ) {
   WireBytes bytes( peerAdjIpv4 );
   auto const & fec = bytes.as< LspPingPeerAdjSidIpv4SubTlv >();
   EXPECT_EQ( fec.localAs(), 65001u );
   EXPECT_EQ( fec.remoteAs(), 4294967294u );
   EXPECT_EQ( fec.localRouterId(), IpAddr( 10, 1, 1, 1 ) );
   EXPECT_EQ( fec.remoteRouterId(), IpAddr( 10, 1, 1, 2 ) );
   EXPECT_EQ( fec.localIntfAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.remoteIntfAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( readFec( peerAdjIpv4 ),
              "PeerAdjSid( local AS: 65001, remote AS: 4294967294, local router: '10.1.1.1', "
              "remote router: '10.1.1.2', local interface: '10.0.0.1', remote interface: "
              "'10.0.0.2' )" );
   EXPECT_EQ( readFec( peerAdjIpv6 ),
              "PeerAdjSid( local AS: 65001, remote AS: 4294967294, local router: '10.1.1.1', "
              "remote router: '10.1.1.2', local interface: '2001:db8::1', remote interface: "
              "'2001:db8::2' )" );
}

TEST( LspPingPeerAdjSidSubTlv, isNotReadInAnotherForm ) {
   EXPECT_EQ( readFec( "00 26 00 04 03 00 00 00" ),
              "PeerAdjSid: 3 at byte 0 of the value is not known" );
   EXPECT_EQ( readFec( "00 26 00 04 02 00 00 00" ),
              "PeerAdjSid: length 4 is too short, needed 52" );
}

TEST( LspPingPeerAdjSidSubTlv, isValidWithTypeLengthAndAdjacencyType ) {
   WireBytes bytes( 56, 0xa5 );
   auto & fec = bytes.as< LspPingPeerAdjSidIpv4SubTlv >();
   fec.adjTypeIs( 1 );
   EXPECT_EQ(
      validityMismatches< LspPingPeerAdjSidIpv4SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 38 && length == 28; } ),
      0u );
   fec.adjTypeIs( 2 );
   EXPECT_EQ(
      validityMismatches< LspPingPeerAdjSidIpv6SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 38 && length == 52; } ),
      0u );
   EXPECT_EQ( bytes.as< LspPingPeerAdjSidIpv6SubTlv >().stringValue(),
              "Invalid PeerAdjSidIpv6SubTlv" );
   fec.typeIs( 38 );
   fec.lengthIs( 28 );
   EXPECT_EQ( fec.stringValue(), "Invalid PeerAdjSidIpv4SubTlv" );
}

TEST( LspPingPeerAdjSidSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingPeerAdjSidIpv4SubTlv;
   expectSets< View >( &View::adjTypeIs, "adjType", U8{ 1 },
                       "a5a5a5a5 01a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::reserved0Is, "reserved0", U8{ 2 },
                       "a5a5a5a5 a502a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::reserved1Is, "reserved1", U16{ 0x0304 },
                       "a5a5a5a5 a5a50304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::localAsIs, "localAs", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::remoteAsIs, "remoteAs", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::localRouterIdIs, "localRouterId", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::remoteRouterIdIs, "remoteRouterId", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::localIntfAddrIs, "localIntfAddr", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::remoteIntfAddrIs, "remoteIntfAddr", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
}

void fillPeers( auto & fec ) {
   fec.localAsIs( 65001 );
   fec.remoteAsIs( 4294967294 );
   fec.localRouterIdIs( IpAddr( 10, 1, 1, 1 ) );
   fec.remoteRouterIdIs( IpAddr( 10, 1, 1, 2 ) );
}

TEST( LspPingPeerAdjSidSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingPeerAdjSidIpv4SubTlv >( []( auto & fec ) {
                 fillPeers( fec );
                 fec.localIntfAddrIs( IpAddr( 10, 0, 0, 1 ) );
                 fec.remoteIntfAddrIs( IpAddr( 10, 0, 0, 2 ) );
              } ),
              peerAdjIpv4 );
   EXPECT_EQ( writtenFec< LspPingPeerAdjSidIpv6SubTlv >( []( auto & fec ) {
                 fillPeers( fec );
                 fec.localIntfAddrIs( address6( "2001:db8::1" ) );
                 fec.remoteIntfAddrIs( address6( "2001:db8::2" ) );
              } ),
              peerAdjIpv6 );
}

constexpr char const * peerNode = "00 27 00 10 00 00 fd e9 ff ff ff fe 0a 01 01 01 0a 01 01 02";

TEST( LspPingPeerNodeSidSubTlv, readsPrintsAndWritesThePeers ) {
   WireBytes bytes( peerNode );
   auto const & fec = bytes.as< LspPingPeerNodeSidSubTlv >();
   EXPECT_EQ( fec.localAs(), 65001u );
   EXPECT_EQ( fec.remoteRouterId(), IpAddr( 10, 1, 1, 2 ) );
   EXPECT_EQ( readFec( peerNode ),
              "PeerNodeSid( local AS: 65001, remote AS: 4294967294, local router: '10.1.1.1', "
              "remote router: '10.1.1.2' )" );
   EXPECT_EQ(
      writtenFec< LspPingPeerNodeSidSubTlv >( []( auto & written ) { fillPeers( written ); } ),
      peerNode );
}

// RFC 9703 section 4.1 says 16, and section 5 at least 20.
TEST( LspPingPeerNodeSidSubTlv, isValidWithTheLengthOfItsFormat ) {
   WireBytes bytes( 20, 0xa5 );
   EXPECT_EQ(
      validityMismatches< LspPingPeerNodeSidSubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 39 && length == 16; } ),
      0u );
   EXPECT_EQ( bytes.as< LspPingPeerNodeSidSubTlv >().stringValue(), "Invalid PeerNodeSidSubTlv" );
}

constexpr char const * peerSet =
   "00 28 00 1c 00 00 fd e9 0a 01 01 01 00 02 00 00 00 00 fd ea 0a 01 "
   "01 02 00 00 fd eb 0a 01 01 03";

TEST( LspPingPeerSetSidSubTlv, readsAndPrintsThePeers ) {
   WireBytes bytes( peerSet );
   auto const & fec = bytes.as< LspPingPeerSetSidSubTlv >();
   EXPECT_EQ( fec.localAs(), 65001u );
   EXPECT_EQ( fec.localRouterId(), IpAddr( 10, 1, 1, 1 ) );
   EXPECT_EQ( fec.peerCount(), 2u );
   ASSERT_EQ( fec.peers().size(), 2u );
   EXPECT_EQ( fec.peers()[1].as.value(), 65003u );
   EXPECT_EQ( fec.peers()[1].routerId, IpAddr( 10, 1, 1, 3 ) );
   EXPECT_EQ( readFec( peerSet ),
              "PeerSetSid( local AS: 65001, local router: '10.1.1.1', peers: 65002 '10.1.1.2', "
              "65003 '10.1.1.3' )" );
   EXPECT_EQ( readFec( "00 28 00 0c 00 00 fd e9 0a 01 01 01 00 00 00 00" ),
              "PeerSetSid( local AS: 65001, local router: '10.1.1.1', peers: )" );
}

TEST( LspPingPeerSetSidSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingPeerSetSidSubTlv;
   expectSets< View >( &View::localAsIs, "localAs", U32{ 0x01020304 },
                       "a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::localRouterIdIs, "localRouterId", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::peerCountIs, "peerCount", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50102" );
}

TEST( LspPingPeerSetSidSubTlv, isValidWithTheLengthOfItsPeers ) {
   WireBytes bytes( 16, 0xa5 );
   for( U32 const count : { 0u, 1u, 2u, 8000u } ) {
      bytes.as< LspPingPeerSetSidSubTlv >().peerCountIs( static_cast< U16 >( count ) );
      EXPECT_EQ(
         validityMismatches< LspPingPeerSetSidSubTlv >(
            bytes, [=]( unsigned type,
                        unsigned length ) { return type == 40 && length == 12u + 8u * count; } ),
         0u );
   }
   // So many would need more than the length can say.
   bytes.as< LspPingPeerSetSidSubTlv >().peerCountIs( 0x2000 );
   EXPECT_EQ( validityMismatches< LspPingPeerSetSidSubTlv >(
                 bytes, []( unsigned, unsigned ) { return false; } ),
              0u );
   EXPECT_EQ( bytes.as< LspPingPeerSetSidSubTlv >().stringValue(), "Invalid PeerSetSidSubTlv" );
}

// Whatever the count says, the peers end where the value does.
TEST( LspPingPeerSetSidSubTlv, hasThePeersThatAreThere ) {
   WireBytes bytes( peerSet );
   auto & fec = bytes.as< LspPingPeerSetSidSubTlv >();
   fec.peerCountIs( 0xffff );
   EXPECT_EQ( fec.peers().size(), 2u );
   fec.lengthIs( 27 );
   EXPECT_EQ( fec.peers().size(), 1u );
   fec.lengthIs( 12 );
   EXPECT_EQ( fec.peers().size(), 0u );
   fec.lengthIs( 0 );
   EXPECT_EQ( fec.peers().size(), 0u );
}

TEST( LspPingPeerSetSidSubTlv, isNotWellFormedWithAnotherCount ) {
   EXPECT_EQ( readFec( "00 28 00 14 00 00 fd e9 0a 01 01 01 00 02 00 00 00 00 fd ea 0a 01 01 02" ),
              "PeerSetSid: not valid" );
   EXPECT_EQ( readFec( "00 28 00 0e 00 00 fd e9 0a 01 01 01 00 00 00 00 00 00 00 00" ),
              "PeerSetSid: not valid" );
   EXPECT_EQ( readFec( "00 28 00 08 00 00 fd e9 0a 01 01 01" ),
              "PeerSetSid: length 8 is too short, needed 12" );
}

TEST( LspPingPeerSetSidSubTlv, isWrittenWithItsPeers ) {
   EXPECT_EQ( writtenFecs( []( LspPingMessageWriter & writer ) {
                 auto set = writer.open< LspPingPeerSetSidSubTlv >( []( auto & fec ) {
                    fec.localAsIs( 65001 );
                    fec.localRouterIdIs( IpAddr( 10, 1, 1, 1 ) );
                    fec.peerCountIs( 2 );
                 } );
                 set.bytes( bytesOf( "00 00 fd ea 0a 01 01 02 00 00 fd eb 0a 01 01 03" ) );
              } ),
              peerSet );
}

} // namespace
