#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace FecTesting;
using Velnet::Ip6Addr;
using Velnet::IpAddr;

constexpr char const * zeros12 = "00000000 00000000 00000000";
constexpr char const * zeros24 = "00000000 00000000 00000000 00000000 00000000 00000000";

Lines const ip4Rows = { "130 ipPrefix Velnet::IpAddr rw",
                        "131 prefixLen U8 rw",
                        "132 mbz0 U8 rw",
                        "133 mbz1 U16 rw",
                        "134 valid bool r",
                        "135 stringValue Orlo::String r" };
Lines const ip6Rows = { "130 ipPrefix Velnet::Ip6Addr rw",
                        "131 prefixLen U8 rw",
                        "132 mbz0 U8 rw",
                        "133 mbz1 U16 rw",
                        "134 valid bool r",
                        "135 stringValue Orlo::String r" };

template < class View >
void expectSetsIp4Fields() {
   expectSets< View >( &View::typeIs, "type", U16{ 0x0102 }, "0102a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::lengthIs, "length", U16{ 0x0102 }, "a5a50102 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::ipPrefixIs, "ipPrefix", IpAddr( 10, 1, 2, 0 ),
                       "a5a5a5a5 0a010200 a5a5a5a5" );
   expectSets< View >( &View::prefixLenIs, "prefixLen", U8{ 24 }, "a5a5a5a5 a5a5a5a5 18a5a5a5" );
   expectSets< View >( &View::mbz0Is, "mbz0", U8{ 7 }, "a5a5a5a5 a5a5a5a5 a507a5a5" );
   expectSets< View >( &View::mbz1Is, "mbz1", asStored( 0x12, 0x34 ),
                       "a5a5a5a5 a5a5a5a5 a5a51234" );
}

template < class View >
void expectSetsIp6Fields() {
   expectSets< View >( &View::ipPrefixIs, "ipPrefix", address6( "2001:db8::1:2" ),
                       "a5a5a5a5 20010db8 00000000 00000000 00010002 a5a5a5a5" );
   expectSets< View >( &View::prefixLenIs, "prefixLen", U8{ 64 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 40a5a5a5" );
   expectSets< View >( &View::mbz0Is, "mbz0", U8{ 7 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a507a5a5" );
   expectSets< View >( &View::mbz1Is, "mbz1", asStored( 0x12, 0x34 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a51234" );
}

template < class View >
void expectReadsIp4Fields( std::string_view type ) {
   Laid< View > laid( std::string( type ) + "0005 0a010203 18011234" );
   EXPECT_EQ( laid->ipPrefix(), IpAddr( 10, 1, 2, 3 ) );
   EXPECT_EQ( laid->prefixLen(), 24 );
   EXPECT_EQ( laid->mbz0(), 1 );
   EXPECT_EQ( laid->mbz1(), asStored( 0x12, 0x34 ) );
   EXPECT_EQ( laid->totalLength(), 12 );
   EXPECT_TRUE( laid->valid() ) << "must-be-zero bytes do not count";
}

template < class View >
void expectReadsIp6Fields( std::string_view type ) {
   Laid< View > laid( std::string( type ) + "0011 20010db8 00000000 00000000 00010002 40011234" );
   EXPECT_EQ( laid->ipPrefix(), address6( "2001:db8::1:2" ) );
   EXPECT_EQ( laid->prefixLen(), 64 );
   EXPECT_EQ( laid->mbz0(), 1 );
   EXPECT_EQ( laid->mbz1(), asStored( 0x12, 0x34 ) );
   EXPECT_EQ( laid->totalLength(), 24 );
   EXPECT_TRUE( laid->valid() ) << "must-be-zero bytes do not count";
}

template < class View >
Pairs validPairsOfPrefix( U8 prefixLen ) {
   View view;
   view.prefixLenIs( prefixLen );
   return validPairs( view );
}

TEST( LspPingLdpIpv4SubTlv, readsAndWritesItsFieldsInPlace ) {
   expectReadsIp4Fields< LspPingLdpIpv4SubTlv >( "0001" );
   expectSetsIp4Fields< LspPingLdpIpv4SubTlv >();
}

TEST( LspPingLdpIpv4SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingLdpIpv4SubTlv >( 4 ), zeros12 );
   EXPECT_EQ( textOf< LspPingLdpIpv4SubTlv >( zeros12 ), "Invalid LdpIpv4SubTlv" );
}

TEST( LspPingLdpIpv4SubTlv, isValidWhateverItsType ) {
   EXPECT_EQ( validPairs< LspPingLdpIpv4SubTlv >(), everyTypeWith( 5 ) );
   EXPECT_EQ( textOf< LspPingLdpIpv4SubTlv >( "000e0005 0a010200 18000000" ),
              "LdpIpv4( '10.1.2.0/24' )" );
}

TEST( LspPingLdpIpv4SubTlv, isValidWhateverItsPrefixLength ) {
   EXPECT_EQ( textOf< LspPingLdpIpv4SubTlv >( "00010005 0a010200 18000000" ),
              "LdpIpv4( '10.1.2.0/24' )" );
   EXPECT_EQ( textOf< LspPingLdpIpv4SubTlv >( "00010005 0a010200 c8000000" ),
              "LdpIpv4( '10.1.2.0/200' )" );
   EXPECT_EQ( textOf< LspPingLdpIpv4SubTlv >( "00010005 ffffffff ffffffff" ),
              "LdpIpv4( '255.255.255.255/255' )" );
   EXPECT_EQ( textOf< LspPingLdpIpv4SubTlv >( "00010008 0a010200 18000000" ),
              "Invalid LdpIpv4SubTlv" );
}

TEST( LspPingGenericIpv4SubTlv, readsAndWritesItsFieldsInPlace ) {
   expectReadsIp4Fields< LspPingGenericIpv4SubTlv >( "000e" );
   expectSetsIp4Fields< LspPingGenericIpv4SubTlv >();
}

TEST( LspPingGenericIpv4SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingGenericIpv4SubTlv >( 4 ), zeros12 );
   EXPECT_EQ( textOf< LspPingGenericIpv4SubTlv >( zeros12 ), "" );
}

TEST( LspPingGenericIpv4SubTlv, isValidWhateverItsTypeAndPrefixLength ) {
   EXPECT_EQ( validPairs< LspPingGenericIpv4SubTlv >(), everyTypeWith( 5 ) );
   EXPECT_EQ( validPairsOfPrefix< LspPingGenericIpv4SubTlv >( 255 ), everyTypeWith( 5 ) );
   EXPECT_EQ( textOf< LspPingGenericIpv4SubTlv >( "000e0005 0a010200 c8000000" ),
              "GenericIpv4( '10.1.2.0/200' )" );
   EXPECT_EQ( textOf< LspPingGenericIpv4SubTlv >( "00010005 0a010200 18000000" ),
              "GenericIpv4( '10.1.2.0/24' )" );
}

TEST( LspPingGenericIpv4SubTlv, hasNoTextWhenInvalid ) {
   EXPECT_EQ( textOf< LspPingGenericIpv4SubTlv >( "000e0006 0a010200 18000000" ), "" );
}

TEST( LspPingGenericIpv6SubTlv, readsAndWritesItsFieldsInPlace ) {
   expectReadsIp6Fields< LspPingGenericIpv6SubTlv >( "000f" );
   expectSetsIp6Fields< LspPingGenericIpv6SubTlv >();
}

TEST( LspPingGenericIpv6SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingGenericIpv6SubTlv >( 4 ), zeros24 );
   EXPECT_EQ( textOf< LspPingGenericIpv6SubTlv >( zeros24 ), "" );
}

TEST( LspPingGenericIpv6SubTlv, isValidWhateverItsTypeAndPrefixLength ) {
   EXPECT_EQ( validPairs< LspPingGenericIpv6SubTlv >(), everyTypeWith( 17 ) );
   EXPECT_EQ( validPairsOfPrefix< LspPingGenericIpv6SubTlv >( 255 ), everyTypeWith( 17 ) );
   EXPECT_EQ(
      textOf< LspPingGenericIpv6SubTlv >( "000f0011 20010db8 00000000 00000000 00000000 20000000" ),
      "GenericIpv6( '2001:db8::/32' )" );
   EXPECT_EQ(
      textOf< LspPingGenericIpv6SubTlv >( "00000011 20010db8 00000000 00000000 00000000 c8000000" ),
      "GenericIpv6( '2001:db8::/200' )" );
}

TEST( LspPingGenericIpv6SubTlv, hasNoTextWhenInvalid ) {
   EXPECT_EQ(
      textOf< LspPingGenericIpv6SubTlv >( "000f0005 20010db8 00000000 00000000 00000000 20000000" ),
      "" );
}

TEST( LspPingBgpLuIpv4SubTlv, readsAndWritesItsFieldsInPlace ) {
   expectReadsIp4Fields< LspPingBgpLuIpv4SubTlv >( "000c" );
   expectSetsIp4Fields< LspPingBgpLuIpv4SubTlv >();
}

TEST( LspPingBgpLuIpv4SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingBgpLuIpv4SubTlv >( 4 ), zeros12 );
   EXPECT_EQ( textOf< LspPingBgpLuIpv4SubTlv >( zeros12 ), "Invalid BgpLuIpv4SubTlv" );
}

TEST( LspPingBgpLuIpv4SubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingBgpLuIpv4SubTlv >(), ( Pairs{ { 12, 5 } } ) );
   EXPECT_EQ( textOf< LspPingBgpLuIpv4SubTlv >( "000c0005 0a010200 18000000" ),
              "BgpLuIpv4( '10.1.2.0/24' )" );
   EXPECT_EQ( textOf< LspPingBgpLuIpv4SubTlv >( "000d0005 0a010200 18000000" ),
              "Invalid BgpLuIpv4SubTlv" );
}

TEST( LspPingBgpLuIpv4SubTlv, isValidUpToPrefixLength32 ) {
   Laid< LspPingBgpLuIpv4SubTlv > laid( "000c0005 0a010200 00000000" );
   for( unsigned bits = 0; bits < 256; ++bits ) {
      laid->prefixLenIs( static_cast< U8 >( bits ) );
      EXPECT_EQ( laid->valid(), bits <= 32 ) << bits;
   }
   EXPECT_EQ( textOf< LspPingBgpLuIpv4SubTlv >( "000c0005 0a010203 20000000" ),
              "BgpLuIpv4( '10.1.2.3/32' )" );
   EXPECT_EQ( textOf< LspPingBgpLuIpv4SubTlv >( "000c0005 0a010203 21000000" ),
              "Invalid BgpLuIpv4SubTlv" );
}

TEST( LspPingBgpLuIpv6SubTlv, readsAndWritesItsFieldsInPlace ) {
   expectReadsIp6Fields< LspPingBgpLuIpv6SubTlv >( "000d" );
   expectSetsIp6Fields< LspPingBgpLuIpv6SubTlv >();
}

TEST( LspPingBgpLuIpv6SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingBgpLuIpv6SubTlv >( 4 ), zeros24 );
   EXPECT_EQ( textOf< LspPingBgpLuIpv6SubTlv >( zeros24 ), "Invalid BgpLuIpv6SubTlv" );
}

TEST( LspPingBgpLuIpv6SubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingBgpLuIpv6SubTlv >(), ( Pairs{ { 13, 17 } } ) );
   EXPECT_EQ(
      textOf< LspPingBgpLuIpv6SubTlv >( "000d0011 20010db8 00000000 00000000 00000000 20000000" ),
      "BgpLuIpv6( '2001:db8::/32' )" );
   EXPECT_EQ(
      textOf< LspPingBgpLuIpv6SubTlv >( "000c0011 20010db8 00000000 00000000 00000000 20000000" ),
      "Invalid BgpLuIpv6SubTlv" );
}

TEST( LspPingBgpLuIpv6SubTlv, isValidUpToPrefixLength128 ) {
   Laid< LspPingBgpLuIpv6SubTlv > laid( "000d0011 20010db8 00000000 00000000 00000000 00000000" );
   for( unsigned bits = 0; bits < 256; ++bits ) {
      laid->prefixLenIs( static_cast< U8 >( bits ) );
      EXPECT_EQ( laid->valid(), bits <= 128 ) << bits;
   }
   EXPECT_EQ(
      textOf< LspPingBgpLuIpv6SubTlv >( "000d0011 20010db8 00000000 00000000 00000001 80000000" ),
      "BgpLuIpv6( '2001:db8::1/128' )" );
   EXPECT_EQ(
      textOf< LspPingBgpLuIpv6SubTlv >( "000d0011 20010db8 00000000 00000000 00000001 81000000" ),
      "Invalid BgpLuIpv6SubTlv" );
}

TEST( PrefixFecs, nameTheirAttributesInOneOrder ) {
   EXPECT_EQ( attributeLines< LspPingLdpIpv4SubTlv >(), ip4Rows );
   EXPECT_EQ( attributeLines< LspPingGenericIpv4SubTlv >(), ip4Rows );
   EXPECT_EQ( attributeLines< LspPingGenericIpv6SubTlv >(), ip6Rows );
   EXPECT_EQ( attributeLines< LspPingBgpLuIpv4SubTlv >(), ip4Rows );
   EXPECT_EQ( attributeLines< LspPingBgpLuIpv6SubTlv >(), ip6Rows );
   EXPECT_EQ( Kiv::typeOf< LspPingLdpIpv4SubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

constexpr char const * parserNames = "pkt, offset, header, handleHeader, ipPrefix, prefixLen, "
                                     "valid, stringValue, totalLength";

template < class Parser >
void expectIp4Parser( typename Placed< Parser >::Factory factory, std::string_view header,
                      std::string_view text ) {
   EXPECT_EQ( attributeNames< Parser >(), parserNames );
   Placed< Parser >( factory, std::string( header ) + "0a010203 1c000000" )
      .forwards( "ipPrefix", IpAddr( 10, 1, 2, 3 ) )
      .forwards( "prefixLen", U8{ 28 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 12 } )
      .forwardsText( text );
}

template < class Parser >
void expectIp6Parser( typename Placed< Parser >::Factory factory, std::string_view header,
                      std::string_view text ) {
   EXPECT_EQ( attributeNames< Parser >(), parserNames );
   Placed< Parser >( factory,
                     std::string( header ) + "20010db8 00000000 00000000 00000001 7c000000" )
      .forwards( "ipPrefix", address6( "2001:db8::1" ) )
      .forwards( "prefixLen", U8{ 124 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 24 } )
      .forwardsText( text );
}

TEST( PrefixFecParsers, forwardWhatTheirViewsSay ) {
   expectIp4Parser< LspPingLdpIpv4SubTlvParser >( lspPingLdpIpv4SubTlvParserFactory, "00010005",
                                                  "LdpIpv4( '10.1.2.3/28' )" );
   expectIp4Parser< LspPingGenericIpv4SubTlvParser >( lspPingGenericIpv4SubTlvParserFactory,
                                                      "000e0005", "GenericIpv4( '10.1.2.3/28' )" );
   expectIp4Parser< LspPingBgpLuIpv4SubTlvParser >( lspPingBgpLuIpv4SubTlvParserFactory, "000c0005",
                                                    "BgpLuIpv4( '10.1.2.3/28' )" );
   expectIp6Parser< LspPingGenericIpv6SubTlvParser >(
      lspPingGenericIpv6SubTlvParserFactory, "000f0011", "GenericIpv6( '2001:db8::1/124' )" );
   expectIp6Parser< LspPingBgpLuIpv6SubTlvParser >( lspPingBgpLuIpv6SubTlvParserFactory, "000d0011",
                                                    "BgpLuIpv6( '2001:db8::1/124' )" );
}

TEST( PrefixFecParsers, forwardThatAViewIsInvalid ) {
   Placed< LspPingBgpLuIpv4SubTlvParser >( lspPingBgpLuIpv4SubTlvParserFactory,
                                           "000cfff9 0a010203 21000000" )
      .forwards( "valid", false )
      .forwards( "totalLength", U16{ 0 } )
      .forwardsText( "Invalid BgpLuIpv4SubTlv" );
}

} // namespace
