#include "MplsUtils/LspPing/ext/tlv/LspPingReplyTlv.h"
#include "tests/ext/TlvTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using FecTesting::Laid;
using Velnet::IpAddr;

constexpr char const * replyPath = "00 15 00 0c 00 03 00 02 00 10 00 04 00 00 30 00";

TEST( LspPingReplyPathTlv, readsAndPrintsCodeAndFlags ) {
   Laid< LspPingReplyPathTlv > tlv( "00 15 00 04 00 05 00 01" );
   EXPECT_EQ( tlv->returnCode(), 5 );
   EXPECT_EQ( tlv->flags(), 1 );
   EXPECT_EQ( tlv->stringValue(), "ReplyPath( return code: sentViaIp, flags: B )" );
   tlv->returnCodeIs( 0xfffc );
   tlv->flagsIs( 0x8002 );
   EXPECT_EQ( tlv->stringValue(), "ReplyPath( return code: 65532, flags: A+0x8000 )" );
}

TEST( LspPingReplyPathTlv, isValidWithoutBothFlags ) {
   for( U8 const flags : std::array< U8, 5 >{ 0, 1, 2, 3, 0xff } ) {
      WireBytes bytes( 8, flags );
      EXPECT_EQ( validityMismatches< LspPingReplyPathTlv >( bytes,
                                                            [&]( unsigned type, unsigned length ) {
                                                               return type == 21 && length >= 4 &&
                                                                      ( flags & 3 ) != 3;
                                                            } ),
                 0u );
   }
   EXPECT_EQ( Laid< LspPingReplyPathTlv >( "00 15 00 04 00 00 00 03" )->stringValue(),
              "Invalid ReplyPathTlv" );
   EXPECT_EQ( readTlvs( "00 15 00 04 00 00 00 03" ), "ReplyPath: not valid" );
}

TEST( LspPingReplyPathTlv, writesItsOwnBytesOnly ) {
   using View = LspPingReplyPathTlv;
   expectSets< View >( &View::returnCodeIs, "returnCode", U16{ 0x0102 }, "a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::flagsIs, "flags", U16{ 0x0102 }, "a5a5a5a5 a5a50102" );
}

TEST( LspPingReplyPathTlv, isWrittenAroundFecsOrNothing ) {
   auto const fill = []( auto & tlv ) {
      tlv.returnCodeIs( 3 );
      tlv.flagsIs( 2 );
   };
   EXPECT_EQ( written( [&]( LspPingMessageWriter & writer ) {
                 auto const path = writer.open< LspPingReplyPathTlv >( fill );
                 writer.add< LspPingNilFecSubTlv >( []( auto & fec ) { fec.labelIs( 3 ); } );
              } ),
              replyPath );
   EXPECT_EQ( readTlvs( replyPath ), "ReplyPath( return code: sentViaReplyPath, flags: A )" );
   EXPECT_EQ( readTlvs( replyPath, 1 ), "NilFec( '0x3' )" );
   EXPECT_EQ( written( [&]( LspPingMessageWriter & writer ) {
                 auto const path = writer.open< LspPingReplyPathTlv >( fill );
              } ),
              "00 15 00 04 00 03 00 02" );
   EXPECT_EQ( readTlvs( "00 15 00 04 00 00 00 00" ),
              "ReplyPath( return code: noReplyPathReturnCode, flags: none )" );
   EXPECT_EQ( readTlvs( "00 15 00 02 00 00 00 00" ), "ReplyPath: length 2 is too short, needed 4" );
}

constexpr char const * timeToLive = "80 01 00 04 02 00 00 01";
constexpr char const * timeToLiveText = "TimeToLive( 2, flags: R )";
constexpr char const * statedReading = "\nlength of 8, RFC 7394 section 3.1";

TEST( LspPingTimeToLiveTlv, readsAndPrintsValueAndFlags ) {
   Laid< LspPingTimeToLiveTlv > tlv( timeToLive );
   EXPECT_EQ( tlv->value(), 2 );
   EXPECT_EQ( tlv->flags(), 1 );
   EXPECT_EQ( tlv->stringValue(), timeToLiveText );
   WireBytes bytes( 8, 0xa5 );
   EXPECT_EQ( bytes.as< LspPingTimeToLiveTlv >().stringValue(), "Invalid TimeToLiveTlv" );
   EXPECT_EQ( validityMismatches< LspPingTimeToLiveTlv >( bytes,
                                                          []( unsigned type, unsigned length ) {
                                                             return type == 32769 &&
                                                                    ( length == 4 || length == 8 );
                                                          } ),
              0u );
}

TEST( LspPingTimeToLiveTlv, writesItsOwnBytesOnly ) {
   using View = LspPingTimeToLiveTlv;
   expectSets< View >( &View::valueIs, "value", U8{ 1 }, "a5a5a5a5 01a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U8{ 1 }, "a5a5a5a5 a501a5a5" );
   expectSets< View >( &View::flagsIs, "flags", U16{ 0x0102 }, "a5a5a5a5 a5a50102" );
}

TEST( LspPingTimeToLiveTlv, isWrittenWithTheLengthOfWhatIsDrawn ) {
   EXPECT_EQ( writtenTlv< LspPingTimeToLiveTlv >( []( auto & tlv ) {
                 tlv.valueIs( 2 );
                 tlv.flagsIs( 1 );
              } ),
              timeToLive );
   EXPECT_EQ( writtenTlv< LspPingTimeToLiveTlv >( []( auto & tlv ) { tlv.lengthIs( 8 ); } ),
              "lengthWrong" );
}

// RFC 7394 section 3.1 draws four bytes of value below a length of 8.
TEST( LspPingTimeToLiveTlv, isReadWithEitherLengthAtTheEndAndBeforeAnother ) {
   std::string const drawn = timeToLive;
   std::string const stated = "80 01 00 08 02 00 00 01";
   std::string const text = timeToLiveText;
   EXPECT_EQ( readTlvs( drawn ), text );
   EXPECT_EQ( readTlvs( drawn + jitter ), text + jitterText );
   EXPECT_EQ( readTlvs( stated ), text + statedReading );
   EXPECT_EQ( readTlvs( stated + jitter ), text + statedReading + jitterText );
   EXPECT_EQ( readTlvs( stated + " " + stated + jitter ),
              text + statedReading + "\n" + text + statedReading + jitterText );
   // The FEC would do as a TLV of its own.
   EXPECT_EQ( readTlvs( stated + " 00 01 00 0c 00 01 00 05 0a 01 02 00 18 00 00 00" + jitter ),
              text + statedReading + "\nTargetFecStack" + jitterText );
   // Where another one ends is not clear either.
   std::string const order = " 80 02 00 03 05 02 04";
   EXPECT_EQ( readTlvs( stated + order + jitter ),
              text + statedReading +
                 "\nReplyModeOrder( ReplyViaSpecifiedPath, ReplyIpUdp, ReplyViaAppCtrlChannel )" +
                 jitterText );
   // Eight bytes of value that are there are eight.
   EXPECT_EQ( readTlvs( stated + " 00 00 00 00" + jitter ), "TimeToLive: length 8, expected 4" );
   EXPECT_EQ( readTlvs( stated + " 00 00 00 00" ), "TimeToLive: length 8, expected 4" );
}

TEST( LspPingReplyModeOrderTlv, readsAndPrintsItsModes ) {
   Whole< LspPingReplyModeOrderTlv > const tlv( "80 02 00 05 05 02 05 04 c8" );
   EXPECT_EQ( hexOf( tlv->modes() ), "05 02 05 04 c8" );
   EXPECT_EQ( tlv->stringValue(), "ReplyModeOrder( ReplyViaSpecifiedPath, ReplyIpUdp, "
                                  "ReplyViaSpecifiedPath, ReplyViaAppCtrlChannel, 200 )" );
}

// RFC 7737 section 3.2, items 6, 7 and 9.
TEST( LspPingReplyModeOrderTlv, isValidWithModesThatMayStandInIt ) {
   using Tlv = Whole< LspPingReplyModeOrderTlv >;
   EXPECT_TRUE( Tlv( "80 02 00 01 02" )->valid() );
   EXPECT_TRUE( Tlv( "80 02 00 04 05 05 02 05" )->valid() );
   EXPECT_FALSE( Tlv( "80 02 00 00" )->valid() );
   EXPECT_FALSE( Tlv( "80 02 00 01 01" )->valid() );
   EXPECT_FALSE( Tlv( "80 02 00 03 02 03 02" )->valid() );
   EXPECT_FALSE( Tlv( "80 02 00 02 00 00" )->valid() );
   EXPECT_FALSE( Tlv( "80 02 00 03 02 03 01" )->valid() );
   EXPECT_FALSE( Tlv( "80 03 00 01 02" )->valid() );
   EXPECT_EQ( Tlv( "80 02 00 02 04 04" )->stringValue(), "Invalid ReplyModeOrderTlv" );
   EXPECT_EQ( readTlvs( "80 02 00 02 04 04" ), "ReplyModeOrder: not valid" );
}

TEST( LspPingReplyModeOrderTlv, isWrittenWithoutPadding ) {
   auto const asNew = []( auto & ) {};
   using View = LspPingReplyModeOrderTlv;
   EXPECT_EQ( writtenWithTail< View >( asNew, "05 02 04" ), "80 02 00 03 05 02 04" );
   EXPECT_EQ( writtenWithTail< View >( asNew, "05" ), "80 02 00 01 05" );
   EXPECT_EQ( writtenWithTail< View >( asNew, "" ), "tooShort" );
   EXPECT_EQ( writtenTlv< View >( asNew ), "tooShort" );
   EXPECT_EQ( readTlvs( "80 02 00 00" ), "ReplyModeOrder: length 0 is too short, needed 1" );
   // Others follow at once.
   EXPECT_EQ( written( []( LspPingMessageWriter & writer ) {
                 {
                    auto order = writer.open< View >();
                    order.bytes( Bytes{ 5 } );
                    order.bytes( Bytes{ 2, 4 } );
                 }
                 writer.add< LspPingEchoJitterTlv >( []( auto & tlv ) { tlv.jitterIs( 9 ); } );
              } ),
              "80 02 00 03 05 02 04 00 0c 00 04 00 00 00 09" );
}

struct Order {
   std::string bytes;
   std::string text;
   std::size_t padding;
};

Order orderOf( std::size_t count ) {
   constexpr std::array< U8, 5 > modes{ 5, 2, 5, 4, 3 };
   constexpr std::array< std::string_view, 5 > names{
      "ReplyViaSpecifiedPath", "ReplyIpUdp", "ReplyViaSpecifiedPath", "ReplyViaAppCtrlChannel",
      "ReplyIpUdpRouterAlert",
   };
   Order order{ "80 02 00 0" + std::to_string( count ), "ReplyModeOrder( ", ( 8 - count ) % 4 };
   for( std::size_t i = 0; i < count; ++i ) {
      order.bytes += " 0" + std::to_string( modes[i] );
      order.text += std::string( i == 0 ? "" : ", " ) + std::string( names[i] );
   }
   order.text += " )";
   return order;
}

std::string paddingOf( Order const & order ) {
   std::string padding;
   for( std::size_t i = 0; i < order.padding; ++i )
      padding += " 00";
   return padding;
}

constexpr char const * paddedReading = "\npadded to 4 bytes, unlike RFC 7737 section 3.2";

class ReplyModeOrderOfLength : public testing::TestWithParam< std::size_t > {};

TEST_P( ReplyModeOrderOfLength, isReadWithoutPadding ) {
   Order const order = orderOf( GetParam() );
   EXPECT_EQ( readTlvs( order.bytes ), order.text );
   EXPECT_EQ( readTlvs( order.bytes + jitter ), order.text + jitterText );
   EXPECT_EQ( readTlvs( order.bytes + jitter + jitter ), order.text + jitterText + jitterText );
   std::string const before = std::string( jitter ).substr( 1 ) + " ";
   std::string const text = std::string( jitterText ).substr( 1 ) + "\n";
   EXPECT_EQ( readTlvs( before + order.bytes + jitter ), text + order.text + jitterText );
}

TEST_P( ReplyModeOrderOfLength, isReadWithPadding ) {
   Order const order = orderOf( GetParam() );
   std::string const bytes = order.bytes + paddingOf( order );
   std::string const text = order.text + ( order.padding != 0 ? paddedReading : "" );
   EXPECT_EQ( readTlvs( bytes ), text );
   EXPECT_EQ( readTlvs( bytes + jitter ), text + jitterText );
   EXPECT_EQ( readTlvs( bytes + jitter + jitter ), text + jitterText + jitterText );
}

INSTANTIATE_TEST_SUITE_P( LspPingReplyModeOrderTlv, ReplyModeOrderOfLength,
                          testing::Values( 1, 2, 3, 4, 5 ) );

constexpr char const * egressIpv4 = "80 03 00 04 0a 00 00 01";
constexpr char const * egressIpv6 = "80 03 00 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01";

TEST( LspPingEgressTlvs, areWrittenAndReadBackByTheirLength ) {
   EXPECT_EQ( writtenTlv< LspPingEgressIpv4Tlv >(
                 []( auto & tlv ) { tlv.addressIs( IpAddr( 10, 0, 0, 1 ) ); } ),
              egressIpv4 );
   EXPECT_EQ( writtenTlv< LspPingEgressIpv6Tlv >(
                 []( auto & tlv ) { tlv.addressIs( address6( "2001:db8::1" ) ); } ),
              egressIpv6 );
   EXPECT_EQ( readTlvs( egressIpv4 ), "EgressIpv4( '10.0.0.1' )" );
   EXPECT_EQ( readTlvs( egressIpv6 ), "EgressIpv6( '2001:db8::1' )" );
   EXPECT_EQ( readTlvs( "80 03 00 08 0a 00 00 01 00 00 00 00" ),
              "Egress: length 8 is none of those that are known" );
   EXPECT_EQ( writtenTlv< LspPingEgressIpv4Tlv >( []( auto & tlv ) { tlv.lengthIs( 16 ); } ),
              "selectorWrong" );
}

TEST( LspPingEgressTlvs, areWrittenFromTheirBytesByTheirLength ) {
   auto const ofBytes = []( std::size_t count ) {
      return written( [&]( LspPingMessageWriter & writer ) {
         writer.add( LspPingContext::message, 32771, Bytes( count, 7 ) );
      } );
   };
   EXPECT_EQ( ofBytes( 4 ), "80 03 00 04 07 07 07 07" );
   EXPECT_EQ( ofBytes( 16 ), "80 03 00 10 07 07 07 07 07 07 07 07 07 07 07 07 07 07 07 07" );
   EXPECT_EQ( ofBytes( 8 ), "selectorWrong" );
}

TEST( LspPingEgressTlvs, areValidWithTheirTypeAndLength ) {
   expectValidWith< LspPingEgressIpv4Tlv >( 32771, 4, "Invalid EgressIpv4Tlv" );
   expectValidWith< LspPingEgressIpv6Tlv >( 32771, 16, "Invalid EgressIpv6Tlv" );
   expectSets< LspPingEgressIpv4Tlv >( &LspPingEgressIpv4Tlv::addressIs, "address",
                                       IpAddr( 1, 2, 3, 4 ), "a5a5a5a5 01020304" );
}

} // namespace
