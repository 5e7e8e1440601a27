#include "tests/message/MessageBytes.h"

#include <gtest/gtest.h>

namespace {

using namespace LspPing;
using namespace MessageBytes;
using enum LspPingReturnCode;
using Error = LspPingWriteErrorCode;
using Writer = LspPingMessageWriter;

// A request for a FEC, and what stands behind it.
Bytes requestWith( std::initializer_list< U8 > tlvs ) {
   Bytes request{ 0, 1,  0,  1,  1,  3,  7,  8,  1,  2,  3,  4,  5,  6,  7,  8,
                  9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24,
                  0, 1,  0,  12, 0,  1,  0,  5,  10, 1,  2,  0,  24, 0,  0,  0 };
   for( U8 const byte : tlvs )
      request.push_back( byte );
   return request;
}

LspPingReturnCode sanityOf( Bytes const & request ) {
   LspPingMessageReader reader;
   return reader.read( request ).sanity();
}

// The reply, and before it the reason where something is not written.
std::string replyTo( Bytes const & request, LspPingReturnCode code ) {
   LspPingMessageReader reader;
   Bytes memory;
   Writer writer( memory );
   bool const isWritten = writer.reply( reader.read( request ), code, 2, 0xa1a2a3a4'b1b2b3b4 );
   EXPECT_EQ( isWritten, !writer.error() );
   return std::string( lspPingWriteErrorName( writer.error().code ) ) + ": " + hexOf( memory );
}

TEST( LspPingMessage, isSaneWhereItIsWellFormedAndUnderstood ) {
   EXPECT_EQ( sanityOf( requestWith( {} ) ), noRetCode );
   EXPECT_EQ( sanityOf( requestWith( { 0, 10, 0, 4, 7, 0, 0, 0 } ) ), noRetCode );
   EXPECT_EQ( sanityOf( requestWith( { 0 } ) ), malFormEchoRequest );
   // Malformed comes first.
   EXPECT_EQ( sanityOf( requestWith( { 0, 99, 0, 5 } ) ), malFormEchoRequest );
}

TEST( LspPingMessage, isNotUnderstoodWithAnElementThatMayNotBeIgnored ) {
   EXPECT_EQ( sanityOf( requestWith( { 0x7f, 0xff, 0, 0 } ) ), tlvNotUnderstood );
   EXPECT_EQ( sanityOf( requestWith( { 0x80, 0x77, 0, 0 } ) ), noRetCode );
   // A FEC of a second stack.
   EXPECT_EQ( sanityOf( requestWith( { 0, 1, 0, 4, 0x7f, 0xff, 0, 0 } ) ), tlvNotUnderstood );
   EXPECT_EQ( sanityOf( requestWith( { 0, 1, 0, 4, 0x80, 0x00, 0, 0 } ) ), noRetCode );
}

// RFC 8029 section 4.3.
TEST( LspPingMessage, isMalformedWithoutATarget ) {
   Bytes request = requestWith( {} );
   request.resize( 32 );
   EXPECT_EQ( sanityOf( request ), malFormEchoRequest );
   request.resize( 31 );
   EXPECT_EQ( sanityOf( request ), malFormEchoRequest );
   EXPECT_EQ( sanityOf( {} ), malFormEchoRequest );
}

std::string const header =
   "00 01 00 00 02 03 08 02 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10 "
   "b1 b2 b3 b4 a1 a2 a3 a4";

TEST( LspPingMessageWriter, laysTheHeaderOfAReply ) {
   EXPECT_EQ( replyTo( requestWith( { 0, 99, 0, 0 } ), labelSwitchedAtStackDep ),
              "none: " + header );
   Bytes const request = requestWith( {} );
   LspPingMessageReader reader;
   LspPingMessage const & message = reader.read( request );
   Bytes memory;
   Writer writer( memory );
   EXPECT_TRUE( writer.reply( message, noRetCode, 0, 0 ) );
   EXPECT_FALSE( writer.reply( message, noRetCode, 0, 0 ) );
   EXPECT_EQ( writer.error(), ( LspPingWriteError{ Error::misplaced, 32 } ) );
   EXPECT_EQ( memory.size(), 32u );
}

TEST( LspPingMessageWriter, repliesWithTheTlvsThatAreNotUnderstood ) {
   std::string refusal = header;
   refusal.replace( 18, 2, "02" );
   EXPECT_EQ( replyTo( requestWith( { 0, 99, 0, 1, 7, 0,  0, 0, 0,    10, 0, 4, 7, 0, 0, 0, //
                                      0, 1,  0, 4, 0, 98, 0, 0, 0x80, 1,  0, 0 } ),
                       tlvNotUnderstood ),
              "none: " + refusal + " 00 09 00 10 00 63 00 01 07 00 00 00 00 01 00 04 00 62 00 00" );
   // There is none.
   EXPECT_EQ( replyTo( requestWith( {} ), tlvNotUnderstood ), "nothingInIt: " + refusal );
   // One is not whole.
   EXPECT_EQ( replyTo( requestWith( { 0, 99, 0, 0, 0, 99, 0, 5 } ), tlvNotUnderstood ),
              "elementCut: " + refusal );
}

TEST( LspPingMessageWriter, repliesToNothingButARequestThatWantsAReply ) {
   Bytes request = requestWith( {} );
   request[5] = 1;
   EXPECT_EQ( replyTo( request, labelSwitchedAtStackDep ), "noReplyWanted: " );
   request[4] = 2;
   EXPECT_EQ( replyTo( request, labelSwitchedAtStackDep ), "noRequest: " );
   request.resize( 31 );
   EXPECT_EQ( replyTo( request, labelSwitchedAtStackDep ), "noRequest: " );
}

} // namespace
