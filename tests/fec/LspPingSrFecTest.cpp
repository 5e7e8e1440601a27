#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace FecTesting;
using Velnet::IpAddr;

constexpr char const * zeros12 = "00000000 00000000 00000000";
constexpr char const * zeros24 = "00000000 00000000 00000000 00000000 00000000 00000000";

TEST( LspPingSrIpv4SubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingSrIpv4SubTlv > laid( "00220008 0a010203 18010203" );
   EXPECT_EQ( laid->ipPrefix(), IpAddr( 10, 1, 2, 3 ) );
   EXPECT_EQ( laid->prefixLen(), 24 );
   EXPECT_EQ( laid->protocol(), 1 );
   EXPECT_EQ( laid->algorithm(), 2 );
   EXPECT_EQ( laid->reserved(), 3 );
   EXPECT_EQ( laid->totalLength(), 12 );
}

TEST( LspPingSrIpv4SubTlv, writesItsFieldsInPlace ) {
   using View = LspPingSrIpv4SubTlv;
   expectSets< View >( &View::ipPrefixIs, "ipPrefix", IpAddr( 10, 1, 2, 3 ),
                       "a5a5a5a5 0a010203 a5a5a5a5" );
   expectSets< View >( &View::prefixLenIs, "prefixLen", U8{ 24 }, "a5a5a5a5 a5a5a5a5 18a5a5a5" );
   expectSets< View >( &View::protocolIs, "protocol", U8{ 1 }, "a5a5a5a5 a5a5a5a5 a501a5a5" );
   expectSets< View >( &View::algorithmIs, "algorithm", U8{ 2 }, "a5a5a5a5 a5a5a5a5 a5a502a5" );
   expectSets< View >( &View::reservedIs, "reserved", U8{ 3 }, "a5a5a5a5 a5a5a5a5 a5a5a503" );
}

TEST( LspPingSrIpv4SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingSrIpv4SubTlv >( 4 ), zeros12 );
   EXPECT_EQ( textOf< LspPingSrIpv4SubTlv >( zeros12 ), "" );
}

TEST( LspPingSrIpv4SubTlv, isValidOfTwoTypesAndTwoLengths ) {
   Pairs const valid = { { 34, 6 }, { 34, 8 }, { 31744, 6 }, { 31744, 8 } };
   EXPECT_EQ( validPairs< LspPingSrIpv4SubTlv >(), valid );
   EXPECT_EQ( textOf< LspPingSrIpv4SubTlv >( "00220007 0a010200 18010000" ), "" );
}

TEST( LspPingSrIpv4SubTlv, isValidWhateverItsBody ) {
   EXPECT_EQ( textOf< LspPingSrIpv4SubTlv >( "00220008 ffffffff ffffffff" ),
              "SrIpv4( '255.255.255.255/255', 255 )" );
}

TEST( LspPingSrIpv4SubTlv, printsPrefixAndAlgorithm ) {
   EXPECT_EQ( textOf< LspPingSrIpv4SubTlv >( "00220008 0a010200 18028003" ),
              "SrIpv4( '10.1.2.0/24', 128 )" );
}

TEST( LspPingSrIpv4SubTlv, printsTheAlgorithmBeyondItsValue ) {
   EXPECT_EQ( textOf< LspPingSrIpv4SubTlv >( "7c000006 0a010200 18010700" ),
              "SrIpv4( '10.1.2.0/24', 7 )" );
}

TEST( LspPingSrIpv4SubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingSrIpv4SubTlv >(),
              ( Lines{ "130 ipPrefix Velnet::IpAddr rw", "131 prefixLen U8 rw",
                       "132 protocol U8 rw", "133 algorithm U8 rw", "134 reserved U8 rw",
                       "135 valid bool r", "136 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingSrIpv4SubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

TEST( LspPingSrIpv6SubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingSrIpv6SubTlv > laid( "00230014 20010db8 00000000 00000000 00010002 40010203" );
   EXPECT_EQ( laid->ipPrefix(), address6( "2001:db8::1:2" ) );
   EXPECT_EQ( laid->prefixLen(), 64 );
   EXPECT_EQ( laid->protocol(), 1 );
   EXPECT_EQ( laid->algorithm(), 2 );
   EXPECT_EQ( laid->reserved(), 3 );
   EXPECT_EQ( laid->totalLength(), 24 );
}

TEST( LspPingSrIpv6SubTlv, writesItsFieldsInPlace ) {
   using View = LspPingSrIpv6SubTlv;
   expectSets< View >( &View::ipPrefixIs, "ipPrefix", address6( "2001:db8::1:2" ),
                       "a5a5a5a5 20010db8 00000000 00000000 00010002 a5a5a5a5" );
   expectSets< View >( &View::prefixLenIs, "prefixLen", U8{ 64 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 40a5a5a5" );
   expectSets< View >( &View::protocolIs, "protocol", U8{ 1 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a501a5a5" );
   expectSets< View >( &View::algorithmIs, "algorithm", U8{ 2 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a502a5" );
   expectSets< View >( &View::reservedIs, "reserved", U8{ 3 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a503" );
}

TEST( LspPingSrIpv6SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingSrIpv6SubTlv >( 4 ), zeros24 );
   EXPECT_EQ( textOf< LspPingSrIpv6SubTlv >( zeros24 ), "" );
}

TEST( LspPingSrIpv6SubTlv, isValidOfTwoTypesAndTwoLengths ) {
   Pairs const valid = { { 35, 18 }, { 35, 20 }, { 31745, 18 }, { 31745, 20 } };
   EXPECT_EQ( validPairs< LspPingSrIpv6SubTlv >(), valid );
   EXPECT_EQ(
      textOf< LspPingSrIpv6SubTlv >( "00230013 20010db8 00000000 00000000 00000000 20010000" ),
      "" );
}

TEST( LspPingSrIpv6SubTlv, isValidWhateverItsBody ) {
   EXPECT_EQ(
      textOf< LspPingSrIpv6SubTlv >( "00230014 ffffffff ffffffff ffffffff ffffffff ffffffff" ),
      "SrIpv6( 'ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff/255', 255 )" );
}

TEST( LspPingSrIpv6SubTlv, printsPrefixAndAlgorithm ) {
   EXPECT_EQ(
      textOf< LspPingSrIpv6SubTlv >( "00230014 20010db8 00000000 00000000 00000000 20028003" ),
      "SrIpv6( '2001:db8::/32', 128 )" );
   EXPECT_EQ(
      textOf< LspPingSrIpv6SubTlv >( "7c010012 20010db8 00000000 00000000 00000000 20010700" ),
      "SrIpv6( '2001:db8::/32', 7 )" );
}

TEST( LspPingSrIpv6SubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingSrIpv6SubTlv >(),
              ( Lines{ "130 ipPrefix Velnet::Ip6Addr rw", "131 prefixLen U8 rw",
                       "132 protocol U8 rw", "133 algorithm U8 rw", "134 reserved U8 rw",
                       "135 valid bool r", "136 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingSrIpv6SubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

constexpr char const * parserNames = "pkt, offset, header, handleHeader, ipPrefix, prefixLen, "
                                     "algorithm, valid, stringValue, totalLength";

TEST( LspPingSrIpv4SubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingSrIpv4SubTlvParser >(), parserNames );
   Placed< LspPingSrIpv4SubTlvParser >( lspPingSrIpv4SubTlvParserFactory,
                                        "00220006 0a010203 1c028003" )
      .forwards( "ipPrefix", IpAddr( 10, 1, 2, 3 ) )
      .forwards( "prefixLen", U8{ 28 } )
      .forwards( "algorithm", U8{ 128 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 12 } )
      .forwardsText( "SrIpv4( '10.1.2.3/28', 128 )" );
}

TEST( LspPingSrIpv6SubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingSrIpv6SubTlvParser >(), parserNames );
   Placed< LspPingSrIpv6SubTlvParser >( lspPingSrIpv6SubTlvParserFactory,
                                        "00230013 20010db8 00000000 00000000 00000001 7c028003" )
      .forwards( "ipPrefix", address6( "2001:db8::1" ) )
      .forwards( "prefixLen", U8{ 124 } )
      .forwards( "algorithm", U8{ 128 } )
      .forwards( "valid", false )
      .forwards( "totalLength", U16{ 24 } )
      .forwardsText( "" );
}

} // namespace
