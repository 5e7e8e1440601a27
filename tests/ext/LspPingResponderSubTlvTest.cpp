#include "MplsUtils/LspPing/ext/tlv/LspPingResponderSubTlv.h"
#include "tests/ext/TlvTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using Velnet::IpAddr;

template < class View, class Address >
std::string writtenResponder( Address address ) {
   return written( [&]( LspPingMessageWriter & writer ) {
      auto const responder = writer.open( LspPingTlvType::P2mpRespId );
      writer.add< View >( [&]( View & tlv ) { tlv.addressIs( address ); } );
   } );
}

constexpr char const * egressIpv4 = "00 0b 00 08 00 01 00 04 0a 00 00 01";
constexpr char const * egressIpv6 = "00 0b 00 14 00 02 00 10 20 01 0d b8 00 00 00 00 00 00 00 00 "
                                    "00 00 00 01";
constexpr char const * nodeIpv4 = "00 0b 00 08 00 03 00 04 0a 00 00 01";
constexpr char const * nodeIpv6 = "00 0b 00 14 00 04 00 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 "
                                  "00 00 01";

TEST( LspPingResponderSubTlvs, areWrittenAndReadBack ) {
   IpAddr const v4( 10, 0, 0, 1 );
   Velnet::Ip6Addr const v6 = address6( "2001:db8::1" );
   EXPECT_EQ( writtenResponder< LspPingResponderEgressIpv4SubTlv >( v4 ), egressIpv4 );
   EXPECT_EQ( writtenResponder< LspPingResponderEgressIpv6SubTlv >( v6 ), egressIpv6 );
   EXPECT_EQ( writtenResponder< LspPingResponderNodeIpv4SubTlv >( v4 ), nodeIpv4 );
   EXPECT_EQ( writtenResponder< LspPingResponderNodeIpv6SubTlv >( v6 ), nodeIpv6 );
   EXPECT_EQ( readTlvs( egressIpv4, 1 ), "ResponderEgressIpv4( '10.0.0.1' )" );
   EXPECT_EQ( readTlvs( egressIpv6, 1 ), "ResponderEgressIpv6( '2001:db8::1' )" );
   EXPECT_EQ( readTlvs( nodeIpv6, 1 ), "ResponderNodeIpv6( '2001:db8::1' )" );
   // The first one is part of the TLV's view, another one is not.
   EXPECT_EQ( readTlvs( nodeIpv4 ), "NodeAddr( Addr: '10.0.0.1' )" );
   EXPECT_EQ( readTlvs( "00 0b 00 10 00 01 00 04 0a 00 00 01 00 03 00 04 0a 00 00 02", 1 ),
              "ResponderEgressIpv4( '10.0.0.1' )\nResponderNodeIpv4( '10.0.0.2' )" );
}

TEST( LspPingResponderSubTlvs, areValidWithTheirTypeAndLength ) {
   expectValidWith< LspPingResponderEgressIpv4SubTlv >( 1, 4, "Invalid ResponderEgressIpv4SubTlv" );
   expectValidWith< LspPingResponderEgressIpv6SubTlv >( 2, 16,
                                                        "Invalid ResponderEgressIpv6SubTlv" );
   expectValidWith< LspPingResponderNodeIpv4SubTlv >( 3, 4, "Invalid ResponderNodeIpv4SubTlv" );
   expectValidWith< LspPingResponderNodeIpv6SubTlv >( 4, 16, "Invalid ResponderNodeIpv6SubTlv" );
   EXPECT_EQ( readTlvs( "00 0b 00 0c 00 01 00 08 0a 00 00 01 00 00 00 00" ),
              "EgrAddr4: length 8, expected 4" );
}

TEST( LspPingResponderSubTlvs, writeTheirOwnBytesOnly ) {
   expectSets< LspPingResponderEgressIpv4SubTlv >( &LspPingResponderEgressIpv4SubTlv::addressIs,
                                                   "address", IpAddr( 1, 2, 3, 4 ),
                                                   "a5a5a5a5 01020304" );
   expectSets< LspPingResponderNodeIpv6SubTlv >( &LspPingResponderNodeIpv6SubTlv::addressIs,
                                                 "address", address6( "2001:db8::1" ),
                                                 "a5a5a5a5 20010db8 00000000 00000000 00000001" );
}

} // namespace
