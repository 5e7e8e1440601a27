#include "MplsUtils/LspPing/tlv/LspPingReplyTosTlv.h"

#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

#include <bit>

namespace LspPing {
namespace {

TEST( LspPingReplyTosTlv, readsAndPrintsTheTypeOfService ) {
   WireBytes bytes( "00 0a 00 04 b8 01 02 03" );
   auto const & view = bytes.as< LspPingReplyTosTlv >();
   EXPECT_EQ( view.tos(), 184 );
   EXPECT_EQ( view.mbz0(), 1 );
   EXPECT_EQ( view.mbz1(), ( std::bit_cast< U16 >( std::array< U8, 2 >{ 2, 3 } ) ) );
   EXPECT_TRUE( view.valid() );
   EXPECT_EQ( view.stringValue(), "ReplyTosTlv( Type Of Service: 184 )" );
}

TEST( LspPingReplyTosTlv, writesItsOwnBytesOnly ) {
   using View = LspPingReplyTosTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.tosIs( 1 ); } ), "a5 a5 a5 a5 01 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.mbz0Is( 2 ); } ), "a5 a5 a5 a5 a5 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) {
                 v.mbz1Is( std::bit_cast< U16 >( std::array< U8, 2 >{ 3, 4 } ) );
              } ),
              "a5 a5 a5 a5 a5 a5 03 04" );
   EXPECT_EQ( hexOfNew< View >(), "00 00 00 00 00 00 00 00" );
}

TEST( LspPingReplyTosTlv, isValidWithItsTypeAndLengthWhateverItsBytes ) {
   for( U8 const fill : someFills ) {
      WireBytes bytes( 8, fill );
      EXPECT_EQ(
         validityMismatches< LspPingReplyTosTlv >(
            bytes, []( unsigned type, unsigned length ) { return type == 10 && length == 4; } ),
         0u );
   }
}

TEST( LspPingReplyTosTlv, printsThatItIsInvalid ) {
   WireBytes longer( "00 0a 00 08 b8 00 00 00" );
   EXPECT_FALSE( longer.as< LspPingReplyTosTlv >().valid() );
   EXPECT_EQ( longer.as< LspPingReplyTosTlv >().stringValue(), "Invalid LspPingReplyTosTlv" );
   EXPECT_EQ( LspPingReplyTosTlv().stringValue(), "Invalid LspPingReplyTosTlv" );
}

TEST( LspPingReplyTosTlv, readsAndWritesItsAttributes ) {
   EXPECT_EQ( attributeLines< LspPingReplyTosTlv >(),
              ( Lines{ "130 tos U8 rw", "131 mbz0 U8 rw", "132 mbz1 U16 rw", "133 valid bool r",
                       "134 stringValue Orlo::String r" } ) );
   WireBytes bytes( "00 0a 00 04 b8 00 00 00" );
   auto & view = bytes.as< LspPingReplyTosTlv >();
   U8 tos = 0;
   EXPECT_EQ( outcomeOf( view, 130, Kiv::OpCode::read, tos ), Kiv::Outcome::done );
   EXPECT_EQ( tos, 184 );
   tos = 7;
   EXPECT_EQ( outcomeOf( view, 130, Kiv::OpCode::write, tos ), Kiv::Outcome::done );
   EXPECT_EQ( bytes.hex(), "00 0a 00 04 07 00 00 00" );
   Orlo::String text;
   EXPECT_EQ( outcomeOf( view, 134, Kiv::OpCode::read, text ), Kiv::Outcome::done );
   EXPECT_EQ( text, "ReplyTosTlv( Type Of Service: 7 )" );
   EXPECT_EQ( outcomeOf( view, 134, Kiv::OpCode::write, text ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( view, 134, Kiv::OpCode::call, text ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( view, 135, Kiv::OpCode::call, text ), Kiv::Outcome::noSuchAttribute );
}

TEST( LspPingReplyTosTlvParser, forwardsTypeLengthAndTos ) {
   WireBytes bytes( "ff 00 0a 00 04 b8 00 00 00" );
   auto const parser = lspPingReplyTosTlvParserFactory(
      Velnet::pktFactory( std::span( bytes.data(), bytes.size() ) ), 1 );
   EXPECT_EQ(
      attributeLines( parser->fwkType() ),
      ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r", "132 header LspPingReplyTosTlv* r",
               "133 handleHeader() void c", "134 type U16 r", "135 length U16 r", "136 tos U8 r",
               "137 valid bool r", "138 stringValue Orlo::String r", "139 totalLength U16 r" } ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "type" ), 10 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "length" ), 4 );
   EXPECT_EQ( Kiv::read< U8 >( *parser, "tos" ), 184 );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( *parser, "stringValue" ),
              "ReplyTosTlv( Type Of Service: 184 )" );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 8 );
}

} // namespace
} // namespace LspPing
