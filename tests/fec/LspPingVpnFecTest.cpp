#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace FecTesting;
using Velnet::IpAddr;

constexpr char const * zeros20 = "00000000 00000000 00000000 00000000 00000000";
constexpr char const * zeros32 =
   "00000000 00000000 00000000 00000000 00000000 00000000 00000000 00000000";

TEST( LspPingVpnIpv4SubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingVpnIpv4SubTlv > laid( "0006000d 01020304 05060708 0a010203 18011234" );
   EXPECT_EQ( laid->rd(), 0x0102030405060708u );
   EXPECT_EQ( laid->ipPrefix(), IpAddr( 10, 1, 2, 3 ) );
   EXPECT_EQ( laid->prefixLen(), 24 );
   EXPECT_EQ( laid->mbz0(), 1 );
   EXPECT_EQ( laid->mbz1(), asStored( 0x12, 0x34 ) );
   EXPECT_EQ( laid->totalLength(), 20 );
   EXPECT_TRUE( laid->valid() ) << "must-be-zero bytes do not count";
}

TEST( LspPingVpnIpv4SubTlv, writesItsFieldsInPlace ) {
   using View = LspPingVpnIpv4SubTlv;
   expectSets< View >( &View::rdIs, "rd", U64{ 0x0102030405060708 },
                       "a5a5a5a5 01020304 05060708 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::ipPrefixIs, "ipPrefix", IpAddr( 10, 1, 2, 3 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 0a010203 a5a5a5a5" );
   expectSets< View >( &View::prefixLenIs, "prefixLen", U8{ 24 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 18a5a5a5" );
   expectSets< View >( &View::mbz0Is, "mbz0", U8{ 7 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a507a5a5" );
   expectSets< View >( &View::mbz1Is, "mbz1", asStored( 0x12, 0x34 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a51234" );
}

TEST( LspPingVpnIpv4SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingVpnIpv4SubTlv >( 4 ), zeros20 );
   EXPECT_EQ( textOf< LspPingVpnIpv4SubTlv >( zeros20 ), "Invalid VpnIpv4SubTlv" );
}

TEST( LspPingVpnIpv4SubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingVpnIpv4SubTlv >(), ( Pairs{ { 6, 13 } } ) );
   EXPECT_EQ( textOf< LspPingVpnIpv4SubTlv >( "0007000d 00010000 00640001 0a000000 08000000" ),
              "Invalid VpnIpv4SubTlv" );
}

TEST( LspPingVpnIpv4SubTlv, isValidUpToPrefixLength32 ) {
   Laid< LspPingVpnIpv4SubTlv > laid( "0006000d 00010000 00640001 0a000000 00000000" );
   for( unsigned bits = 0; bits < 256; ++bits ) {
      laid->prefixLenIs( static_cast< U8 >( bits ) );
      EXPECT_EQ( laid->valid(), bits <= 32 ) << bits;
   }
   EXPECT_EQ( textOf< LspPingVpnIpv4SubTlv >( "0006000d 00010000 00640001 0a000000 21000000" ),
              "Invalid VpnIpv4SubTlv" );
}

TEST( LspPingVpnIpv4SubTlv, printsTheRouteDistinguisherAsOneUnsignedNumber ) {
   EXPECT_EQ( textOf< LspPingVpnIpv4SubTlv >( "0006000d 00010000 00640001 0a000000 08000000" ),
              "VpnIpv4( 281474983264257, '10.0.0.0/8' )" );
   EXPECT_EQ( textOf< LspPingVpnIpv4SubTlv >( "0006000d ffffffff ffffffff 0a000001 20000000" ),
              "VpnIpv4( 18446744073709551615, '10.0.0.1/32' )" );
   EXPECT_EQ( textOf< LspPingVpnIpv4SubTlv >( "0006000d 00000000 00000000 00000000 00000000" ),
              "VpnIpv4( 0, '0.0.0.0/0' )" );
}

TEST( LspPingVpnIpv4SubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingVpnIpv4SubTlv >(),
              ( Lines{ "130 rd U64 rw", "131 ipPrefix Velnet::IpAddr rw", "132 prefixLen U8 rw",
                       "133 mbz0 U8 rw", "134 mbz1 U16 rw", "135 valid bool r",
                       "136 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingVpnIpv4SubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

TEST( LspPingVpnIpv6SubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingVpnIpv6SubTlv > laid(
      "00070019 01020304 05060708 20010db8 00000000 00000000 00010002 40011234" );
   EXPECT_EQ( laid->rd(), 0x0102030405060708u );
   EXPECT_EQ( laid->ipPrefix(), address6( "2001:db8::1:2" ) );
   EXPECT_EQ( laid->prefixLen(), 64 );
   EXPECT_EQ( laid->mbz0(), 1 );
   EXPECT_EQ( laid->mbz1(), asStored( 0x12, 0x34 ) );
   EXPECT_EQ( laid->totalLength(), 32 );
   EXPECT_TRUE( laid->valid() ) << "must-be-zero bytes do not count";
}

TEST( LspPingVpnIpv6SubTlv, writesItsFieldsInPlace ) {
   using View = LspPingVpnIpv6SubTlv;
   expectSets< View >( &View::rdIs, "rd", U64{ 0x0102030405060708 },
                       "a5a5a5a5 01020304 05060708 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::ipPrefixIs, "ipPrefix", address6( "2001:db8::1:2" ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 20010db8 00000000 00000000 00010002 a5a5a5a5" );
   expectSets< View >( &View::prefixLenIs, "prefixLen", U8{ 64 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 40a5a5a5" );
   expectSets< View >( &View::mbz0Is, "mbz0", U8{ 7 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a507a5a5" );
   expectSets< View >( &View::mbz1Is, "mbz1", asStored( 0x12, 0x34 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a51234" );
}

TEST( LspPingVpnIpv6SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingVpnIpv6SubTlv >( 4 ), zeros32 );
   EXPECT_EQ( textOf< LspPingVpnIpv6SubTlv >( zeros32 ), "Invalid VpnIpv6SubTlv" );
}

TEST( LspPingVpnIpv6SubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingVpnIpv6SubTlv >(), ( Pairs{ { 7, 25 } } ) );
}

TEST( LspPingVpnIpv6SubTlv, isValidUpToPrefixLength128 ) {
   Laid< LspPingVpnIpv6SubTlv > laid(
      "00070019 00010000 00640001 20010db8 00000000 00000000 00000000 00000000" );
   for( unsigned bits = 0; bits < 256; ++bits ) {
      laid->prefixLenIs( static_cast< U8 >( bits ) );
      EXPECT_EQ( laid->valid(), bits <= 128 ) << bits;
   }
   EXPECT_EQ( textOf< LspPingVpnIpv6SubTlv >(
                 "00070019 00010000 00640001 20010db8 00000000 00000000 00000000 81000000" ),
              "Invalid VpnIpv6SubTlv" );
}

TEST( LspPingVpnIpv6SubTlv, printsTheRouteDistinguisherAsOneUnsignedNumber ) {
   EXPECT_EQ( textOf< LspPingVpnIpv6SubTlv >(
                 "00070019 00010000 00640001 20010db8 00000000 00000000 00000000 20000000" ),
              "VpnIpv6( 281474983264257, '2001:db8::/32' )" );
   EXPECT_EQ( textOf< LspPingVpnIpv6SubTlv >(
                 "00070019 ffffffff ffffffff 20010db8 00000000 00000000 00000001 80000000" ),
              "VpnIpv6( 18446744073709551615, '2001:db8::1/128' )" );
}

TEST( LspPingVpnIpv6SubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingVpnIpv6SubTlv >(),
              ( Lines{ "130 rd U64 rw", "131 ipPrefix Velnet::Ip6Addr rw", "132 prefixLen U8 rw",
                       "133 mbz0 U8 rw", "134 mbz1 U16 rw", "135 valid bool r",
                       "136 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingVpnIpv6SubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

constexpr char const * parserNames = "pkt, offset, header, handleHeader, rd, ipPrefix, prefixLen, "
                                     "valid, stringValue, totalLength";

TEST( LspPingVpnIpv4SubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingVpnIpv4SubTlvParser >(), parserNames );
   Placed< LspPingVpnIpv4SubTlvParser >( lspPingVpnIpv4SubTlvParserFactory,
                                         "0006000d ffffffff fffffffe 0a000001 1e000000" )
      .forwards( "rd", U64{ 0xfffffffffffffffe } )
      .forwards( "ipPrefix", IpAddr( 10, 0, 0, 1 ) )
      .forwards( "prefixLen", U8{ 30 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 20 } )
      .forwardsText( "VpnIpv4( 18446744073709551614, '10.0.0.1/30' )" );
}

TEST( LspPingVpnIpv6SubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingVpnIpv6SubTlvParser >(), parserNames );
   Placed< LspPingVpnIpv6SubTlvParser >(
      lspPingVpnIpv6SubTlvParserFactory,
      "00070019 00000000 00000007 20010db8 00000000 00000000 00000001 7e000000" )
      .forwards( "rd", U64{ 7 } )
      .forwards( "ipPrefix", address6( "2001:db8::1" ) )
      .forwards( "prefixLen", U8{ 126 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 32 } )
      .forwardsText( "VpnIpv6( 7, '2001:db8::1/126' )" );
}

} // namespace
