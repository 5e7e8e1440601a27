#include "tests/tools/decode/Child.h"

#include "tests/tools/capture/Build.h"

// What the program has said when its input makes it wait, and when a signal ends it.
namespace {

std::string const line = requestHex + "\n";

/// The same message with another number in front.
std::string decodedAs( int number ) {
   return std::to_string( number ) + decodedRequest.substr( 1 );
}

class Interruption : public Program {
 protected:
   /// A text of so many messages, far more than a pipe takes.
   std::string manyLines( int count = 2000 ) {
      std::string lines;
      for( int i = 0; i < count; ++i )
         lines += line;
      return file( "lines", lines );
   }
};

TEST_F( Interruption, showsEachMessageOfTextAsItComes ) {
   Child child( { "decode", "--hex", "-" } );
   for( int number = 1; number <= 3; ++number ) {
      child.write( line );
      EXPECT_EQ( child.read( decodedRequest.size() ), decodedAs( number ) );
   }
   child.endInput();
   child.endsWith( 0 );
}

TEST_F( Interruption, showsEachMessageOfACaptureAsItComes ) {
   Bytes const request =
      Bytes{ 0, 1, 0, 0, 1, 2, 0, 0, 0, 0, 0x12, 0x34, 0, 0, 0, 1 } + Bytes( 16 );
   Bytes const record = pcapRecord( ethernet( 0x0800, ipv4( udp( request ) ) ) );
   Child child( { "decode", "--json", "-" } );
   child.write( pcapHeader( 1 ) + record );
   std::string const first = child.read( 100 );
   EXPECT_THAT( first, testing::StartsWith( R"({"packet":1,"time":"2026-01-31T12:00:00.)" ) );
   child.waitUntilItSleeps();
   child.write( record );
   child.endInput();
   EXPECT_THAT( child.readAll(), testing::HasSubstr( "\n{\"packet\":2,\"time\":\"2026-" ) );
   child.endsWith( 0 );
}

TEST_F( Interruption, endsByTheSignalThatCameWhileItWaited ) {
   for( std::vector< std::string > const & arguments :
        { std::vector< std::string >{ "decode", "--hex", "-" },
          { "decode", "-" },
          { "view", "-" },
          { "value", "-" } } ) {
      for( int const signal : { SIGINT, SIGTERM, SIGHUP } ) {
         Child child( arguments );
         child.waitUntilItSleeps();
         child.signal( signal );
         EXPECT_EQ( child.readAll(), "" );
         child.endsBy( signal );
      }
   }
}

TEST_F( Interruption, saysNothingOfAnInputThatItLeft ) {
   EXPECT_EQ( run( "{ printf '" + line +
                   "00'; sleep 1; } | timeout -s TERM 0.3 $lspping decode "
                   "--hex - /nonexistent" ),
              124 );
   EXPECT_EQ( out(), decodedRequest );
   EXPECT_EQ( err(), "" );
   EXPECT_EQ( run( "{ printf Nothing; sleep 1; } | timeout -s TERM 0.3 $lspping view -" ), 124 );
   EXPECT_EQ( out(), "" );
   EXPECT_EQ( err(), "" );
}

// Wherever in the text the pipe became full, the message is written to its end.
TEST_F( Interruption, writesWhatItDecodedToTheEndOfAMessage ) {
   for( int const signal : { SIGINT, SIGTERM, SIGHUP } ) {
      Child child( { "decode", "--hex", manyLines() } );
      child.waitUntilItSleeps();
      child.signal( signal );
      std::string const said = child.readAll();
      child.endsBy( signal );
      std::string expected;
      for( int number = 1; expected.size() < said.size(); ++number )
         expected += decodedAs( number );
      EXPECT_GT( said.size(), 65536U );
      EXPECT_LT( said.size(), 300'000U );
      EXPECT_EQ( said, expected );
   }
}

TEST_F( Interruption, doesNotWaitForAReaderThatTakesNothing ) {
   Child child( { "decode", "--hex", manyLines() } );
   child.waitUntilItSleeps();
   child.signal( SIGTERM );
   child.endsBy( SIGTERM );
}

// What is written here at once is more than a pipe takes.
TEST_F( Interruption, doesNotWaitForAReaderThatStops ) {
   Child child( { "types", "--json" } );
   child.waitUntilItSleeps();
   child.signal( SIGTERM );
   child.waitUntilItSleeps();
   EXPECT_EQ( child.read( 10000 ).size(), 10000U );
   child.endsBy( SIGTERM );
}

std::string const answer = R"({"type":"Orlo::String","text":"\"a\"","attributes":{},"isSet":true})"
                           "\n";

// It waits for its reader with an answer of which the pipe has taken nothing.
TEST_F( Interruption, writesAnAnswerToItsEnd ) {
   Child child( { "value", "-" } );
   std::string lines;
   for( int i = 0; i < 2000; ++i )
      lines += "Orlo::String a\n";
   child.write( lines );
   child.waitUntilItSleeps();
   child.signal( SIGTERM );
   child.waitUntilItSleeps();
   std::string const said = child.readAll();
   child.endsBy( SIGTERM );
   EXPECT_GT( said.size(), 60000U );
   std::string expected;
   while( expected.size() < said.size() )
      expected += answer;
   EXPECT_EQ( said, expected );
   EXPECT_LT( said.size(), 2000 * answer.size() );
}

TEST_F( Interruption, answersTheLinesThatItRead ) {
   Child child( { "value", "-" } );
   child.write( std::string( "Orlo::String a\nOrlo::String a\nOrlo::Str" ) );
   EXPECT_EQ( child.read( 2 * answer.size() ), answer + answer );
   child.signal( SIGTERM );
   EXPECT_EQ( child.readAll(), "" );
   child.endsBy( SIGTERM );
}

TEST_F( Interruption, leavesIgnoredSignalsIgnored ) {
   Child child( { "decode", "--hex", "-" }, SIGHUP );
   child.write( line );
   EXPECT_EQ( child.read( decodedRequest.size() ), decodedRequest );
   child.signal( SIGHUP );
   child.write( line );
   EXPECT_EQ( child.read( decodedRequest.size() ), decodedAs( 2 ) );
   child.endInput();
   child.endsWith( 0 );
}

} // namespace
