#include "tests/tools/decode/Program.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

namespace {

using Bytes = std::vector< unsigned char >;

Bytes operator+( Bytes first, Bytes const & second ) {
   first.insert( first.end(), second.begin(), second.end() );
   return first;
}

Bytes const header{ 0, 1, 0, 1, 1, 2, 0, 0, 0x1a, 0x2b, 0x3c, 0x4d, 0, 0, 0, 7,
                    1, 2, 3, 4, 5, 6, 7, 8, 0,    0,    0,    0,    0, 0, 0, 0 };
Bytes const target{ 0, 1, 0, 12, 0, 1, 0, 5, 10, 1, 2, 0, 24, 0, 0, 0 };
// A mapping with multipath information: a set of addresses.
Bytes const mapping{ 0, 20, 0, 32, 5, 0xdc, 1, 2, 10, 0, 1,   2, 10, 0, 1,    2,    0, 0,
                     0, 16, 0, 1,  0, 12,   8, 0, 8,  0, 127, 0, 0,  0, 0xff, 0xff, 0, 0 };

class AnswerRequest : public Program {
 protected:
   // What the tool says of the reply, without the time that the request came at.
   std::string replyTo( Bytes const & request ) {
      std::string const name = file( "request", { request.begin(), request.end() } );
      EXPECT_EQ( run( "'" LSPPING_ANSWER_REQUEST "' '" + name + "'" ), 0 ) << err();
      std::string hex;
      for( char const byte : out() ) {
         std::array< char, 3 > digits;
         std::snprintf( digits.data(), digits.size(), "%02x",
                        static_cast< unsigned char >( byte ) );
         hex += digits.data();
      }
      EXPECT_EQ( run( "$lspping decode --hex '" + file( "reply", hex ) + "'" ), 0 ) << err();
      std::string const said = out();
      std::size_t const time = said.find( "\ttsRcvdSeconds(0x" );
      std::size_t const end = said.find( '\n' );
      EXPECT_LT( time, end );
      EXPECT_NE( said.substr( time, 19 ), "\ttsRcvdSeconds(0x0)" );
      return said.substr( 0, time ) + said.substr( end );
   }
};

std::string headerOf( std::string_view code ) {
   return "1 LspPingHdr:\tver(1),\tflag(0),\tmsgType(2),\treplyMode(2),\t" + std::string( code ) +
          ",\tsenderHandle(0x1a2b3c4d),\tseqNum(0x7),\ttsSenSeconds(0x1020304),"
          "\ttsSentmSeconds(0x5060708),\n";
}
std::string const switched = headerOf( "returnCode(8),\treturnSubcode(1)" );
std::string const interface =
   "   IntfAndLabelStackIpv4Tlv( addrType: 1, mbz0: 0, mbz1: 0, addr: '10.0.0.9', intf: "
   "'10.0.1.2' )\n"
   "      Label( 100704, TC: 0, S: 1, TTL: 1 )\n";

TEST_F( AnswerRequest, tellsItsNextHopAndTheMultipathInformationThatWasAskedFor ) {
   EXPECT_EQ( replyTo( header + target + mapping ),
              switched +
                 "   DDMAPTlv( Downstream Address: '10.0.2.2', Downstream Interface Address: "
                 "'10.0.2.1', RetCode: 0, RetSubCode: 0 )\n"
                 "      LabelStack\n"
                 "         Label( 300, TC: 0, S: 1, Protocol: dsInfoSignalingProtocolLdp )\n"
                 "      MultipathSubTlv( multipathType: 8, multipathLength: 8, mbz: 0 )\n"
                 "         Multipath( maskedIpSetMultipath: 127.0.0.0-127.0.0.15 )\n" +
                 interface );
}

TEST_F( AnswerRequest, tellsNoNextHopWhereNobodyAsked ) {
   EXPECT_EQ( replyTo( header + target ), switched + interface );
   EXPECT_EQ( replyTo( header + target + Bytes{ 0x80, 0x77, 0, 0 } ), switched + interface );
}

TEST_F( AnswerRequest, saysThatARequestIsMalformed ) {
   std::string const malformed = headerOf( "returnCode(1),\treturnSubcode(0)" );
   EXPECT_EQ( replyTo( header ), malformed );
   Bytes request = header + target + mapping;
   request[39] = 4; // of the FEC's length, 5
   EXPECT_EQ( replyTo( request ), malformed );
   request[39] = 5;
   EXPECT_EQ( replyTo( Bytes( request.begin(), request.end() - 1 ) ), malformed );
   request[1] = 2;
   EXPECT_EQ( replyTo( request ), malformed );
}

TEST_F( AnswerRequest, givesBackWhatItDoesNotUnderstand ) {
   EXPECT_EQ( replyTo( header + target + Bytes{ 0, 99, 0, 1, 7, 0, 0, 0 } + mapping ),
              headerOf( "returnCode(2),\treturnSubcode(0)" ) +
                 "   ErrorTlv\n"
                 "      99( Code: 99, Length: 1, Bytes: 0063000107 )\n" );
}

TEST_F( AnswerRequest, readsStandardInput ) {
   Bytes const request = header + target;
   std::string const name = file( "request", { request.begin(), request.end() } );
   EXPECT_EQ( run( "cat '" + name + "' | '" LSPPING_ANSWER_REQUEST "'" ), 0 );
   // The header, and an Interface and Label Stack TLV with one label.
   EXPECT_EQ( out().size(), 32u + 20u );
}

TEST_F( AnswerRequest, saysWhyThereIsNoReply ) {
   auto const refusal = [this]( Bytes const & bytes ) {
      std::string const name = file( "request", { bytes.begin(), bytes.end() } );
      EXPECT_EQ( run( "'" LSPPING_ANSWER_REQUEST "' '" + name + "'" ), 1 );
      EXPECT_EQ( out(), "" );
      return err();
   };
   EXPECT_EQ( refusal( {} ), "answerRequest: no echo request to reply to\n" );
   Bytes request = header + target;
   request[5] = 1;
   EXPECT_EQ( refusal( request ), "answerRequest: the request asks for no reply\n" );
   request[4] = 2;
   EXPECT_EQ( refusal( request ), "answerRequest: no echo request to reply to\n" );
   for( std::string const name : { "/nowhere/at/all", "/tmp" } ) {
      EXPECT_EQ( run( "'" LSPPING_ANSWER_REQUEST "' " + name ), 1 );
      EXPECT_EQ( err(), "answerRequest: cannot read the request\n" );
   }
   EXPECT_EQ( run( "'" LSPPING_ANSWER_REQUEST "' '" +
                   file( "good", { header.begin(), header.end() } ) + "' > /dev/full" ),
              1 );
   EXPECT_EQ( err(), "answerRequest: cannot write the reply\n" );
}

} // namespace
