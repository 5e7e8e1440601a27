#include "MplsUtils/LspPing/ext/tlv/LspPingProxyTlv.h"
#include "MplsUtils/LspPing/ext/tlv/LspPingNextHopSubTlv.h"
#include "tests/ext/TlvTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using FecTesting::Laid;
using Velnet::IpAddr;

constexpr char const * ipv4Parameters =
   "00 17 00 10 01 02 80 09 ff 2e c0 00 00 05 05 dc 7f 00 00 01";
constexpr char const * ipv4Text =
   "ProxyEchoParametersIpv4( '127.0.0.1', reply mode: ReplyIpUdp, flags: "
   "fecNeighbor+explicitDscp+0x8000, TTL: 255, DSCP: 46, source port: 49152, global flags: "
   "RV, payload size: 1500 )";

TEST( LspPingProxyEchoParametersIpv4Tlv, readsAndPrintsItsFields ) {
   Laid< LspPingProxyEchoParametersIpv4Tlv > tlv( ipv4Parameters );
   EXPECT_EQ( tlv->addrType(), 1 );
   EXPECT_EQ( tlv->replyMode(), 2 );
   EXPECT_EQ( tlv->proxyFlags(), 0x8009 );
   EXPECT_EQ( tlv->ttl(), 255 );
   EXPECT_EQ( tlv->requestedDscp(), 46 );
   EXPECT_EQ( tlv->sourceUdpPort(), 49152 );
   EXPECT_EQ( tlv->globalFlags(), 5 );
   EXPECT_EQ( tlv->mplsPayloadSize(), 1500 );
   EXPECT_EQ( tlv->destinationAddr(), IpAddr( 127, 0, 0, 1 ) );
   EXPECT_EQ( tlv->stringValue(), ipv4Text );
   tlv->replyModeIs( 5 );
   EXPECT_NE( tlv->stringValue().find( "reply mode: ReplyViaSpecifiedPath," ), Orlo::String::npos );
}

TEST( LspPingProxyEchoParametersIpv4Tlv, writesItsOwnBytesOnly ) {
   using View = LspPingProxyEchoParametersIpv4Tlv;
   expectSets< View >( &View::addrTypeIs, "addrType", U8{ 1 },
                       "a5a5a5a5 01a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::replyModeIs, "replyMode", U8{ 1 },
                       "a5a5a5a5 a501a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::proxyFlagsIs, "proxyFlags", U16{ 0x0102 },
                       "a5a5a5a5 a5a50102 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::ttlIs, "ttl", U8{ 1 },
                       "a5a5a5a5 a5a5a5a5 01a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::requestedDscpIs, "requestedDscp", U8{ 1 },
                       "a5a5a5a5 a5a5a5a5 a501a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::sourceUdpPortIs, "sourceUdpPort", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a50102 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::globalFlagsIs, "globalFlags", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5 a5a5a5a5" );
   expectSets< View >( &View::mplsPayloadSizeIs, "mplsPayloadSize", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50102 a5a5a5a5" );
   expectSets< View >( &View::destinationAddrIs, "destinationAddr", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
}

template < class View >
void expectValidFrom( U8 addrType, unsigned least, std::string_view invalid ) {
   for( U8 const fill : { U8{ 0xa5 }, addrType } ) {
      WireBytes bytes( sizeof( View ), fill );
      EXPECT_EQ( bytes.as< View >().stringValue(), invalid );
      EXPECT_EQ( validityMismatches< View >( bytes,
                                             [&]( unsigned type, unsigned length ) {
                                                return type == 23 && length >= least &&
                                                       fill == addrType;
                                             } ),
                 0u );
   }
}

TEST( LspPingProxyEchoParametersTlvs, areValidWithTheirTypeAddressTypeAndLength ) {
   expectValidFrom< LspPingProxyEchoParametersIpv4Tlv >( 1, 16,
                                                         "Invalid ProxyEchoParametersIpv4Tlv" );
   expectValidFrom< LspPingProxyEchoParametersIpv6Tlv >( 3, 28,
                                                         "Invalid ProxyEchoParametersIpv6Tlv" );
}

TEST( LspPingProxyEchoParametersTlvs, areWrittenAndReadBackByTheirAddressType ) {
   EXPECT_EQ( writtenTlv< LspPingProxyEchoParametersIpv4Tlv >( []( auto & tlv ) {
                 tlv.replyModeIs( 2 );
                 tlv.proxyFlagsIs( 0x8009 );
                 tlv.ttlIs( 255 );
                 tlv.requestedDscpIs( 46 );
                 tlv.sourceUdpPortIs( 49152 );
                 tlv.globalFlagsIs( 5 );
                 tlv.mplsPayloadSizeIs( 1500 );
                 tlv.destinationAddrIs( IpAddr( 127, 0, 0, 1 ) );
              } ),
              ipv4Parameters );
   EXPECT_EQ( readTlvs( ipv4Parameters ), ipv4Text );
   constexpr char const * ipv6Parameters =
      "00 17 00 1c 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ff ff 7f 00 "
      "00 01";
   EXPECT_EQ( writtenTlv< LspPingProxyEchoParametersIpv6Tlv >(
                 []( auto & tlv ) { tlv.destinationAddrIs( address6( "::ffff:127.0.0.1" ) ); } ),
              ipv6Parameters );
   EXPECT_EQ( readTlvs( ipv6Parameters ),
              "ProxyEchoParametersIpv6( '::ffff:127.0.0.1', reply mode: 0, flags: none, TTL: 0, "
              "DSCP: 0, source port: 0, global flags: none, payload size: 0 )" );
   EXPECT_EQ(
      writtenTlv< LspPingProxyEchoParametersIpv4Tlv >( []( auto & tlv ) { tlv.addrTypeIs( 3 ); } ),
      "selectorWrong" );
   EXPECT_EQ( readTlvs( "00 17 00 04 02 00 00 00" ),
              "ProxyEchoParameters: 2 at byte 0 of the value is not known" );
   EXPECT_EQ( readTlvs( "00 17 00 04 01 00 00 00" ),
              "ProxyEchoParameters: length 4 is too short, needed 16" );
}

TEST( LspPingProxyEchoParametersTlvs, holdNextHops ) {
   std::string const whole = written( []( LspPingMessageWriter & writer ) {
      auto const open = writer.open< LspPingProxyEchoParametersIpv4Tlv >();
      writer.add< LspPingNextHopIpv4AdjSubTlv >(
         []( auto & hop ) { hop.addressIs( IpAddr( 10, 0, 0, 1 ) ); } );
      writer.add< LspPingNextHopIpv4UnnumberedSubTlv >( []( auto & hop ) {
         hop.addressIs( IpAddr( 10, 0, 0, 2 ) );
         hop.interfaceIdIs( 0x80000007 );
      } );
   } );
   EXPECT_EQ( whole, "00 17 00 2c 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                     "00 01 00 08 06 00 00 00 0a 00 00 01 "
                     "00 01 00 0c 02 00 00 00 0a 00 00 02 80 00 00 07" );
   EXPECT_EQ( readTlvs( whole, 1 ), "NextHopIpv4Adj( '10.0.0.1' )\n"
                                    "NextHopIpv4Unnumbered( '10.0.0.2', interface: 2147483655 )" );
}

TEST( LspPingReplyToAddressTlvs, areWrittenAndReadBackByTheirAddressType ) {
   constexpr char const * ipv4 = "00 18 00 08 01 00 00 00 0a 00 00 01";
   constexpr char const * ipv6 =
      "00 18 00 14 03 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01";
   EXPECT_EQ( writtenTlv< LspPingReplyToAddressIpv4Tlv >(
                 []( auto & tlv ) { tlv.addressIs( IpAddr( 10, 0, 0, 1 ) ); } ),
              ipv4 );
   EXPECT_EQ( writtenTlv< LspPingReplyToAddressIpv6Tlv >(
                 []( auto & tlv ) { tlv.addressIs( address6( "2001:db8::1" ) ); } ),
              ipv6 );
   EXPECT_EQ( readTlvs( ipv4 ), "ReplyToAddressIpv4( '10.0.0.1' )" );
   EXPECT_EQ( readTlvs( ipv6 ), "ReplyToAddressIpv6( '2001:db8::1' )" );
   EXPECT_EQ( readTlvs( "00 18 00 08 02 00 00 00 0a 00 00 01" ),
              "ReplyToAddress: 2 at byte 0 of the value is not known" );
   EXPECT_EQ( readTlvs( "00 18 00 0c 01 00 00 00 0a 00 00 01 00 00 00 00" ),
              "ReplyToAddress: length 12, expected 8" );
}

TEST( LspPingReplyToAddressTlvs, areValidWithTheirTypeAddressTypeAndLength ) {
   using View = LspPingReplyToAddressIpv4Tlv;
   Laid< View > tlv( "00 18 00 08 01 00 00 00 0a 00 00 01" );
   EXPECT_TRUE( tlv->valid() );
   tlv->addrTypeIs( 3 );
   EXPECT_FALSE( tlv->valid() );
   EXPECT_EQ( tlv->stringValue(), "Invalid ReplyToAddressIpv4Tlv" );
   expectSets< View >( &View::mbz0Is, "mbz0", U8{ 1 }, "a5a5a5a5 a501a5a5 a5a5a5a5" );
   expectSets< View >( &View::mbz1Is, "mbz1", U16{ 0x0102 }, "a5a5a5a5 a5a50102 a5a5a5a5" );
   expectSets< View >( &View::addressIs, "address", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 01020304" );
}

constexpr char const * upstream =
   "00 19 00 18 01 03 00 00 0a 00 00 01 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02";

TEST( LspPingUpstreamNeighborAddressTlv, readsAndPrintsBothAddresses ) {
   Whole< LspPingUpstreamNeighborAddressTlv > const tlv( upstream );
   EXPECT_EQ( tlv->neighborAddrType(), 1 );
   EXPECT_EQ( tlv->localAddrType(), 3 );
   EXPECT_EQ( tlv->neighborAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( tlv->localAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( tlv->stringValue(), "UpstreamNeighborAddress( '10.0.0.1', local: '2001:db8::2' )" );
}

TEST( LspPingUpstreamNeighborAddressTlv, writesItsOwnBytesOnly ) {
   using View = LspPingUpstreamNeighborAddressTlv;
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.neighborAddrTypeIs( 1 ); } ),
              "a5 a5 a5 a5 01 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.localAddrTypeIs( 1 ); } ),
              "a5 a5 a5 a5 a5 01 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.mbzIs( 0x0102 ); } ),
              "a5 a5 a5 a5 a5 a5 01 02" );
}

// Every type of either address with every length up to that of two of IPv6 and more.
TEST( LspPingNeighborAddressTlvs, areValidWhereTheAddressesAreTheirTail ) {
   auto const sizeOf = []( int type ) {
      constexpr std::array< int, 4 > sizes{ 0, 4, -1, 16 };
      return type < 4 ? sizes[static_cast< std::size_t >( type )] : -1;
   };
   U32 valid = 0;
   for( int neighbor = 0; neighbor < 256; ++neighbor )
      for( int local = 0; local < 256; local += neighbor < 5 ? 1 : 63 )
         for( int tail = 0; tail < 40; ++tail ) {
            WireBytes bytes( static_cast< std::size_t >( 8 + tail ), U8{ 1 } );
            auto & tlv = bytes.as< LspPingDownstreamNeighborAddressTlv >();
            tlv.typeIs( 26 );
            tlv.lengthIs( static_cast< U16 >( 4 + tail ) );
            tlv.neighborAddrTypeIs( static_cast< U8 >( neighbor ) );
            tlv.localAddrTypeIs( static_cast< U8 >( local ) );
            bool const isKnown = sizeOf( neighbor ) >= 0 && sizeOf( local ) >= 0;
            bool const fits = isKnown && sizeOf( neighbor ) + sizeOf( local ) == tail;
            ASSERT_EQ( tlv.valid(), fits ) << neighbor << ' ' << local << ' ' << tail;
            ASSERT_EQ( tlv.neighborAddr() != Velnet::IpGenAddr(),
                       sizeOf( neighbor ) > 0 && sizeOf( neighbor ) <= tail );
            ASSERT_EQ( tlv.localAddr() != Velnet::IpGenAddr(),
                       isKnown && sizeOf( local ) > 0 &&
                          sizeOf( neighbor ) + sizeOf( local ) <= tail );
            valid += fits ? 1 : 0;
         }
   EXPECT_EQ( valid, 9u );
   EXPECT_FALSE( Whole< LspPingUpstreamNeighborAddressTlv >( "00 1a 00 04 00 00 00 00" )->valid() );
   EXPECT_FALSE( Whole< LspPingUpstreamNeighborAddressTlv >( "00 19 00 03 00 00 00 00" )->valid() );
}

TEST( LspPingNeighborAddressTlvs, areWrittenAndReadBack ) {
   EXPECT_EQ( writtenWithTail< LspPingUpstreamNeighborAddressTlv >(
                 []( auto & tlv ) {
                    tlv.neighborAddrTypeIs( 1 );
                    tlv.localAddrTypeIs( 3 );
                 },
                 "0a 00 00 01 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02" ),
              upstream );
   EXPECT_EQ( readTlvs( upstream ), "UpstreamNeighborAddress( '10.0.0.1', local: '2001:db8::2' )" );
   EXPECT_EQ( readTlvs( "00 1a 00 08 00 01 00 00 0a 00 00 01" ),
              "DownstreamNeighborAddress( none, local: '10.0.0.1' )" );
   EXPECT_EQ( readTlvs( "00 1a 00 08 01 01 00 00 0a 00 00 01" ),
              "DownstreamNeighborAddress: not valid" );
   EXPECT_EQ( readTlvs( "00 1a 00 0c 01 01 00 00 0a 00 00 01" ),
              "DownstreamNeighborAddress: length 12 needs 16 bytes, had 12" );
}

} // namespace
