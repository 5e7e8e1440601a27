#include "MplsUtils/LspPing/tlv/LspPingEchoJitterTlv.h"

#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

TEST( LspPingEchoJitterTlv, readsAndPrintsTheTime ) {
   WireBytes bytes( "00 0c 00 04 00 00 01 f4" );
   auto const & view = bytes.as< LspPingEchoJitterTlv >();
   EXPECT_EQ( view.jitter(), 500u );
   EXPECT_TRUE( view.valid() );
   EXPECT_EQ( view.stringValue(), "EchoJitterTlv( jittertime(500) )" );
}

TEST( LspPingEchoJitterTlv, printsALargeTimeNegative ) {
   WireBytes half( "00 0c 00 04 80 00 00 00" );
   EXPECT_EQ( half.as< LspPingEchoJitterTlv >().stringValue(),
              "EchoJitterTlv( jittertime(-2147483648) )" );
   WireBytes most( "00 0c 00 04 ff ff ff ff" );
   EXPECT_EQ( most.as< LspPingEchoJitterTlv >().stringValue(), "EchoJitterTlv( jittertime(-1) )" );
   WireBytes below( "00 0c 00 04 7f ff ff ff" );
   EXPECT_EQ( below.as< LspPingEchoJitterTlv >().stringValue(),
              "EchoJitterTlv( jittertime(2147483647) )" );
}

TEST( LspPingEchoJitterTlv, writesItsOwnBytesOnly ) {
   using View = LspPingEchoJitterTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.jitterIs( 0x01020304 ); } ),
              "a5 a5 a5 a5 01 02 03 04" );
   EXPECT_EQ( hexOfNew< View >(), "00 00 00 00 00 00 00 00" );
}

TEST( LspPingEchoJitterTlv, isValidWithItsTypeAndLengthWhateverTheTime ) {
   for( U8 const fill : someFills ) {
      WireBytes bytes( 8, fill );
      EXPECT_EQ(
         validityMismatches< LspPingEchoJitterTlv >(
            bytes, []( unsigned type, unsigned length ) { return type == 12 && length == 4; } ),
         0u );
   }
}

TEST( LspPingEchoJitterTlv, printsThatItIsInvalid ) {
   WireBytes longer( "00 0c 00 08 00 00 01 f4" );
   EXPECT_EQ( longer.as< LspPingEchoJitterTlv >().stringValue(), "Invalid EchoJitterTlv" );
   EXPECT_EQ( LspPingEchoJitterTlv().stringValue(), "Invalid EchoJitterTlv" );
}

TEST( LspPingEchoJitterTlv, readsAndWritesItsAttributes ) {
   EXPECT_EQ(
      attributeLines< LspPingEchoJitterTlv >(),
      ( Lines{ "130 jitter U32 rw", "131 valid bool r", "132 stringValue Orlo::String r" } ) );
   WireBytes bytes( "00 0c 00 04 00 00 01 f4" );
   auto & view = bytes.as< LspPingEchoJitterTlv >();
   U32 jitter = 0;
   EXPECT_EQ( outcomeOf( view, 130, Kiv::OpCode::read, jitter ), Kiv::Outcome::done );
   EXPECT_EQ( jitter, 500u );
   jitter = 0x01020304;
   EXPECT_EQ( outcomeOf( view, 130, Kiv::OpCode::write, jitter ), Kiv::Outcome::done );
   EXPECT_EQ( bytes.hex(), "00 0c 00 04 01 02 03 04" );
   bool valid = false;
   EXPECT_EQ( outcomeOf( view, 131, Kiv::OpCode::write, valid ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( view, 133, Kiv::OpCode::write, valid ), Kiv::Outcome::noSuchAttribute );
}

TEST( LspPingEchoJitterTlvParser, forwardsTypeLengthAndJitter ) {
   WireBytes bytes( "ff 00 0c 00 04 00 00 01 f4" );
   auto const parser = lspPingEchoJitterTlvParserFactory(
      Velnet::pktFactory( std::span( bytes.data(), bytes.size() ) ), 1 );
   EXPECT_EQ( attributeLines( parser->fwkType() ),
              ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r",
                       "132 header LspPingEchoJitterTlv* r", "133 handleHeader() void c",
                       "134 type U16 r", "135 length U16 r", "136 jitter U32 r", "137 valid bool r",
                       "138 totalLength U16 r", "139 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "type" ), 12 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "length" ), 4 );
   EXPECT_EQ( Kiv::read< U32 >( *parser, "jitter" ), 500u );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 8 );
   EXPECT_EQ( Kiv::read< Orlo::String >( *parser, "stringValue" ),
              "EchoJitterTlv( jittertime(500) )" );
}

} // namespace
} // namespace LspPing
