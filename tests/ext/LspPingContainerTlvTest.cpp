#include "MplsUtils/LspPing/ext/tlv/LspPingContainerTlv.h"
#include "MplsUtils/LspPing/ext/tlv/LspPingReplyTlv.h"
#include "tests/ext/TlvTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;

// With any length: what stands in it is nothing of the view's.
template < class View >
void expectValidWithType( unsigned wanted, std::string_view invalid ) {
   WireBytes bytes( sizeof( View ), 0xa5 );
   EXPECT_EQ( bytes.as< View >().stringValue(), invalid );
   EXPECT_EQ( validityMismatches< View >(
                 bytes, [&]( unsigned type, unsigned ) { return type == wanted; } ),
              0u );
}

void addNil( LspPingMessageWriter & writer ) {
   writer.add< LspPingNilFecSubTlv >( []( auto & fec ) { fec.labelIs( 3 ); } );
}

template < class View >
std::string writtenAround( void ( *write )( LspPingMessageWriter & ) ) {
   return MessageBytes::written( [&]( LspPingMessageWriter & writer ) {
      auto const open = writer.open< View >();
      write( writer );
   } );
}

void addTos( LspPingMessageWriter & writer ) {
   writer.add< LspPingReplyTosTlv >( []( auto & tlv ) { tlv.tosIs( 0xb8 ); } );
}

TEST( LspPingErroredTlvsTlv, isWrittenAroundTlvsByItsClassOrByItsCode ) {
   constexpr char const * errored = "00 09 00 08 00 0a 00 04 b8 00 00 00";
   EXPECT_EQ( writtenAround< LspPingErroredTlvsTlv >( addTos ), errored );
   EXPECT_EQ( MessageBytes::written( []( LspPingMessageWriter & writer ) {
                 auto const open = writer.open( LspPingTlvType::ErrorTlv );
                 addTos( writer );
              } ),
              errored );
   EXPECT_EQ( readTlvs( errored ), "ErrorTlv" );
   EXPECT_EQ( readTlvs( errored, 1 ), "ReplyTosTlv( Type Of Service: 184 )" );
   EXPECT_EQ( writtenAround< LspPingErroredTlvsTlv >( []( auto & ) {} ), "nothingInIt at 32: " );
   EXPECT_EQ( readTlvs( "00 09 00 00" ), "ErrorTlv: nothing in it" );
   expectValidWithType< LspPingErroredTlvsTlv >( 9, "Invalid ErroredTlvsTlv" );
}

// What stands in it may be without padding: its own follows.
TEST( LspPingErroredTlvsTlv, isPaddedBehindATlvThatIsNot ) {
   constexpr char const * errored = "00 09 00 06 80 02 00 02 02 04 00 00";
   auto const addOrder = []( LspPingMessageWriter & writer ) {
      auto order = writer.open< LspPingReplyModeOrderTlv >();
      order.bytes( Bytes{ 2, 4 } );
   };
   EXPECT_EQ( writtenAround< LspPingErroredTlvsTlv >( addOrder ), errored );
   EXPECT_EQ( MessageBytes::written( [&]( LspPingMessageWriter & writer ) {
                 auto const open = writer.open( LspPingTlvType::ErrorTlv );
                 addOrder( writer );
              } ),
              errored );
   EXPECT_EQ( readTlvs( errored, 1 ), "ReplyModeOrder( ReplyIpUdp, ReplyViaAppCtrlChannel )" );
}

TEST( LspPingReversePathTargetFecStackTlv, isWrittenAroundFecs ) {
   constexpr char const * stack = "00 10 00 08 00 10 00 04 00 00 30 00";
   EXPECT_EQ( writtenAround< LspPingReversePathTargetFecStackTlv >( addNil ), stack );
   EXPECT_EQ( readTlvs( stack ), "ReversePathTargetFecStack" );
   EXPECT_EQ( readTlvs( stack, 1 ), "NilFec( '0x3' )" );
   EXPECT_EQ( readTlvs( "00 10 00 00" ), "ReversePathTargetFecStack: nothing in it" );
   EXPECT_EQ( writtenAround< LspPingReversePathTargetFecStackTlv >( addTos ), "misplaced at 36: " );
   expectValidWithType< LspPingReversePathTargetFecStackTlv >(
      16, "Invalid ReversePathTargetFecStackTlv" );
}

// RFC 9612 section 3.1: without FECs it withdraws the path.
TEST( LspPingBfdReversePathTlv, isWrittenAroundFecsOrNothing ) {
   constexpr char const * path = "40 00 00 10 00 10 00 04 00 00 30 00 00 10 00 04 00 00 30 00";
   EXPECT_EQ( writtenAround< LspPingBfdReversePathTlv >( []( auto & writer ) {
                 addNil( writer );
                 addNil( writer );
              } ),
              path );
   EXPECT_EQ( readTlvs( path ), "BfdReversePath" );
   EXPECT_EQ( readTlvs( path, 1 ), "NilFec( '0x3' )\nNilFec( '0x3' )" );
   EXPECT_EQ( writtenAround< LspPingBfdReversePathTlv >( []( auto & ) {} ), "40 00 00 00" );
   EXPECT_EQ( readTlvs( "40 00 00 00" ), "BfdReversePath" );
   expectValidWithType< LspPingBfdReversePathTlv >( 16384, "Invalid BfdReversePathTlv" );
}

} // namespace
