#include "MplsUtils/LspPing/ext/mapping/LspPingDetailedIntfTlv.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using FecTesting::Laid;
using Velnet::Ip6Addr;
using Velnet::IpAddr;

constexpr char const * ipv4 = "00 06 00 0c 01 00 00 00 0a 00 00 09 0a 00 00 01";
constexpr char const * ipv4Unnumbered = "00 06 00 0c 02 00 00 00 0a 00 00 09 ff ff ff ff";
constexpr char const * ipv6 = "00 06 00 24 03 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 "
                              "00 09 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01";
constexpr char const * ipv6Unnumbered = "00 06 00 18 04 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 "
                                        "00 00 00 00 09 00 00 00 07";

TEST( LspPingDetailedIntfTlvs, areReadByTheirAddressType ) {
   EXPECT_EQ( readTlvs( ipv4 ), "DetailedIntfIpv4( '10.0.0.9', interface: '10.0.0.1' )" );
   EXPECT_EQ( readTlvs( ipv4Unnumbered ),
              "DetailedIntfIpv4Unnumbered( '10.0.0.9', interface: 4294967295 )" );
   EXPECT_EQ( readTlvs( ipv6 ), "DetailedIntfIpv6( '2001:db8::9', interface: '2001:db8::1' )" );
   EXPECT_EQ( readTlvs( ipv6Unnumbered ),
              "DetailedIntfIpv6Unnumbered( '2001:db8::9', interface: 7 )" );
   Laid< LspPingDetailedIntfIpv6Tlv > tlv( ipv6 );
   EXPECT_EQ( tlv->addrType(), 3 );
   EXPECT_EQ( tlv->addr(), address6( "2001:db8::9" ) );
   EXPECT_EQ( tlv->intf(), address6( "2001:db8::1" ) );
}

TEST( LspPingDetailedIntfTlvs, areWrittenWithTheirAddressType ) {
   EXPECT_EQ( writtenTlv< LspPingDetailedIntfIpv4Tlv >( []( auto & view ) {
                 view.addrIs( IpAddr( 10, 0, 0, 9 ) );
                 view.intfIs( IpAddr( 10, 0, 0, 1 ) );
              } ),
              ipv4 );
   EXPECT_EQ( writtenTlv< LspPingDetailedIntfIpv4UnnumberedTlv >( []( auto & view ) {
                 view.addrIs( IpAddr( 10, 0, 0, 9 ) );
                 view.intfIdIs( 0xffffffff );
              } ),
              ipv4Unnumbered );
   EXPECT_EQ( writtenTlv< LspPingDetailedIntfIpv6Tlv >( []( auto & view ) {
                 view.addrIs( address6( "2001:db8::9" ) );
                 view.intfIs( address6( "2001:db8::1" ) );
              } ),
              ipv6 );
   EXPECT_EQ( writtenTlv< LspPingDetailedIntfIpv6UnnumberedTlv >( []( auto & view ) {
                 view.addrIs( address6( "2001:db8::9" ) );
                 view.intfIdIs( 7 );
              } ),
              ipv6Unnumbered );
   EXPECT_EQ(
      writtenTlv< LspPingDetailedIntfIpv4Tlv >( []( auto & view ) { view.addrTypeIs( 3 ); } ),
      "selectorWrong" );
}

TEST( LspPingDetailedIntfTlvs, writeTheirOwnBytesOnly ) {
   using Numbered = LspPingDetailedIntfIpv4Tlv;
   expectSets< Numbered >( &Numbered::addrTypeIs, "addrType", U8{ 1 },
                           "a5a5a5a5 01a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< Numbered >( &Numbered::reserved0Is, "reserved0", U8{ 1 },
                           "a5a5a5a5 a501a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< Numbered >( &Numbered::reserved1Is, "reserved1", U16{ 0x0102 },
                           "a5a5a5a5 a5a50102 a5a5a5a5 a5a5a5a5" );
   expectSets< Numbered >( &Numbered::addrIs, "addr", IpAddr( 1, 2, 3, 4 ),
                           "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< Numbered >( &Numbered::intfIs, "intf", IpAddr( 1, 2, 3, 4 ),
                           "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
   using Unnumbered = LspPingDetailedIntfIpv6UnnumberedTlv;
   expectSets< Unnumbered >( &Unnumbered::addrIs, "addr", address6( "1:2:3:4:5:6:7:8" ),
                             "a5a5a5a5 a5a5a5a5 00010002 00030004 00050006 00070008 a5a5a5a5" );
   expectSets< Unnumbered >( &Unnumbered::intfIdIs, "intfId", U32{ 0x01020304 },
                             "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
}

template < class View >
void expectValidFrom( unsigned least, std::string_view invalid ) {
   WireBytes bytes( sizeof( View ), 0xa5 );
   EXPECT_EQ(
      validityMismatches< View >(
         bytes, [&]( unsigned type, unsigned length ) { return type == 6 && length >= least; } ),
      0u );
   EXPECT_EQ( bytes.as< View >().stringValue(), invalid );
   auto & view = bytes.as< View >();
   view.typeIs( 6 );
   for( unsigned const length : { least - 1, least, least + 4 } ) {
      view.lengthIs( static_cast< U16 >( length ) );
      EXPECT_EQ( view.valid(), length >= least );
   }
}

TEST( LspPingDetailedIntfTlvs, areValidFromTheirFixedPartOn ) {
   expectValidFrom< LspPingDetailedIntfIpv4Tlv >( 12, "Invalid DetailedIntfIpv4Tlv" );
   expectValidFrom< LspPingDetailedIntfIpv4UnnumberedTlv >(
      12, "Invalid DetailedIntfIpv4UnnumberedTlv" );
   expectValidFrom< LspPingDetailedIntfIpv6Tlv >( 36, "Invalid DetailedIntfIpv6Tlv" );
   expectValidFrom< LspPingDetailedIntfIpv6UnnumberedTlv >(
      24, "Invalid DetailedIntfIpv6UnnumberedTlv" );
}

TEST( LspPingDetailedIntfTlvs, tellWhatIsWrong ) {
   EXPECT_EQ( readTlvs( "00 06 00 0c 07 00 00 00 0a 00 00 09 0a 00 00 01" ),
              "DetailedIntfAndLabelStack: 7 at byte 0 of the value is not known" );
   EXPECT_EQ( readTlvs( "00 06 00 08 01 00 00 00 0a 00 00 09" ),
              "DetailedIntfAndLabelStack: length 8 is too short, needed 12" );
}

constexpr char const * subTlvs = "00 01 00 08 00 01 80 40 00 02 01 40 00 02 00 08 00 01 00 00 ff "
                                 "ff ff fe";
constexpr char const * subTlvTexts = "IncomingLabelStack\n"
                                     "IncomingIntfIndex( 4294967294, flags: M )";

TEST( LspPingDetailedIntfTlvs, holdTheLabelStackAndTheInterface ) {
   std::string const tail = " 0a 00 00 09 0a 00 00 01 " + std::string( subTlvs );
   EXPECT_EQ( readTlvs( "00 06 00 24 01 00 00 00" + tail, 1 ), subTlvTexts );
   LspPingMessageReader reader;
   Bytes const header{ 0, 1, 0, 0, 1 };
   Bytes const message = header + Bytes( 27 ) + bytesOf( "00 06 00 24 01 00 00 00" + tail );
   LspPingLabels const labels = reader.read( message ).element( 1 ).labels();
   ASSERT_EQ( labels.size(), 2u );
   EXPECT_FALSE( labels.hasProtocol() );
   EXPECT_EQ( labels[0].label(), 24u );
   EXPECT_EQ( labels[1].label(), 32u );
   EXPECT_EQ( labels[1].ttl(), 64 );
}

// RFC 8611 states lengths that are 4 more than what it draws.
TEST( LspPingDetailedIntfTlvs, areReadWithTheLengthOfTheTableToo ) {
   std::string const reading = "\nlength too long by 4, RFC 8611 section 10";
   std::string const fixed = "00 00 00 0a 00 00 09 0a 00 00 01";
   EXPECT_EQ( readTlvs( "00 06 00 10 01 " + fixed ),
              "DetailedIntfIpv4( '10.0.0.9', interface: '10.0.0.1' )" + reading );
   EXPECT_EQ( readTlvs( "00 06 00 28 01 " + fixed + " " + subTlvs, 1 ), subTlvTexts );
   EXPECT_EQ( readTlvs( "00 06 00 10 01 " + fixed + " 00 0c 00 04 00 00 00 07" ),
              "DetailedIntfIpv4( '10.0.0.9', interface: '10.0.0.1' )" + reading +
                 "\nEchoJitterTlv( jittertime(7) )" );
   // What fits as it is written is not read otherwise.
   EXPECT_EQ(
      readTlvs( "00 06 00 10 01 " + fixed + " 00 01 00 00 00 0c 00 04 00 00 00 07" ),
      "DetailedIntfIpv4( '10.0.0.9', interface: '10.0.0.1' )\nEchoJitterTlv( jittertime(7) )" );
}

TEST( LspPingDetailedIntfTlvs, areWrittenWithWhatStandsInThem ) {
   EXPECT_EQ( written( []( LspPingMessageWriter & writer ) {
                 auto const tlv = writer.open< LspPingDetailedIntfIpv4Tlv >( []( auto & view ) {
                    view.addrIs( IpAddr( 10, 0, 0, 9 ) );
                    view.intfIs( IpAddr( 10, 0, 0, 1 ) );
                 } );
                 {
                    auto stack = writer.open< LspPingIncomingLabelStackSubTlv >();
                    stack.label( 24, 0, false, 64 );
                    stack.label( 32, 0, true, 64 );
                 }
                 writer.add< LspPingIncomingIntfIndexSubTlv >( []( auto & view ) {
                    view.intfFlagsIs( 1 );
                    view.intfIndexIs( 0xfffffffe );
                 } );
              } ),
              "00 06 00 24 01 00 00 00 0a 00 00 09 0a 00 00 01 " + std::string( subTlvs ) );
}

TEST( LspPingIncomingLabelStackSubTlv, mayBeOpenedByItsCode ) {
   EXPECT_EQ( written( []( LspPingMessageWriter & writer ) {
                 auto const tlv = writer.open< LspPingDetailedIntfIpv4Tlv >();
                 auto stack = writer.open( LspPingDetailedIntfSubTlvType::IncomingLabelStack );
                 stack.label( 24, 0, true, 64 );
              } ),
              "00 06 00 14 01 00 00 00 00 00 00 00 00 00 00 00 00 01 00 04 00 01 81 40" );
}

TEST( LspPingIncomingLabelStackSubTlv, isValidWithItsType ) {
   WireBytes bytes( 4, 0xa5 );
   EXPECT_EQ( validityMismatches< LspPingIncomingLabelStackSubTlv >(
                 bytes, []( unsigned type, unsigned ) { return type == 1; } ),
              0u );
   EXPECT_EQ( bytes.as< LspPingIncomingLabelStackSubTlv >().stringValue(),
              "Invalid IncomingLabelStackSubTlv" );
}

TEST( LspPingIncomingLabelStackSubTlv, tellsHalfALabel ) {
   EXPECT_EQ( readTlvs( "00 06 00 18 01 00 00 00 0a 00 00 09 0a 00 00 01 00 01 00 06 00 01 80 40 "
                        "00 02 00 00" ),
              "IncomingLabelStack: 2 bytes left over" );
}

TEST( LspPingIncomingIntfIndexSubTlv, readsAndPrintsIndexAndFlags ) {
   Laid< LspPingIncomingIntfIndexSubTlv > view( "00 02 00 08 00 00 00 00 00 00 00 07" );
   EXPECT_EQ( view->intfIndex(), 7u );
   EXPECT_EQ( view->stringValue(), "IncomingIntfIndex( 7, flags: none )" );
   view->intfFlagsIs( 0x8001 );
   EXPECT_EQ( view->stringValue(), "IncomingIntfIndex( 7, flags: M+0x8000 )" );
   view->typeIs( 3 );
   EXPECT_EQ( view->stringValue(), "Invalid IncomingIntfIndexSubTlv" );
}

TEST( LspPingIncomingIntfIndexSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingIncomingIntfIndexSubTlv;
   expectSets< View >( &View::intfFlagsIs, "intfFlags", U16{ 0x0102 },
                       "a5a5a5a5 0102a5a5 a5a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U16{ 0x0102 }, "a5a5a5a5 a5a50102 a5a5a5a5" );
   expectSets< View >( &View::intfIndexIs, "intfIndex", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 01020304" );
}

TEST( LspPingIncomingIntfIndexSubTlv, isValidWithItsTypeAndLength ) {
   WireBytes bytes( 12, 0xa5 );
   EXPECT_EQ( validityMismatches< LspPingIncomingIntfIndexSubTlv >(
                 bytes, []( unsigned type, unsigned length ) { return type == 2 && length == 8; } ),
              0u );
}

} // namespace
