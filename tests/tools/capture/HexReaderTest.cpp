#include "tools/lspping/capture/HexReader.h"

#include <fcntl.h>

#include "tests/tools/capture/Build.h"

using namespace LspPingTool;
using Step = EchoSource::Step;

namespace {

/// All of a text: the bytes of each message and the text of each error (without the file's name).
struct ReadText {
   explicit ReadText( std::string const & text ) {
      TemporaryFile file( text );
      HexReader reader( file.path() );
      for( Step step = reader.next(); step != Step::end; step = reader.next() ) {
         if( step == Step::message ) {
            auto const payload = reader.packet().payload;
            EXPECT_EQ( reader.packet().claimedLength, payload.size() );
            messages.emplace_back( payload.begin(), payload.end() );
            numbers.push_back( reader.packet().number );
         } else {
            EXPECT_EQ( reader.error().status, exitMalformedInput );
            EXPECT_EQ( reader.error().file, file.path() );
            errors.push_back( reader.error().message().substr( file.path().size() ) );
         }
      }
      EXPECT_EQ( reader.next(), Step::end );
   }

   std::vector< Bytes > messages;
   std::vector< U64 > numbers;
   std::vector< std::string > errors;
};

using Messages = std::vector< Bytes >;
using Numbers = std::vector< U64 >;
using Errors = std::vector< std::string >;

} // namespace

TEST( HexReader, readsOneMessageALine ) {
   ReadText const read( "0001a5\n\nFFfe\n  \n# a comment\n7f" );
   EXPECT_EQ( read.messages, ( Messages{ { 0, 1, 0xa5 }, { 0xff, 0xfe }, { 0x7f } } ) );
   EXPECT_EQ( read.numbers, ( Numbers{ 1, 2, 3 } ) );
   EXPECT_EQ( read.errors, Errors{} );
}

TEST( HexReader, takesSeparatorsPrefixesAndComments ) {
   ReadText const read( "00:01-a5 ff\t10\r\n"
                        "0x0001 0Xa5:0xFF # the rest is g\n"
                        ":: --\n"
                        "0x00" );
   EXPECT_EQ( read.messages,
              ( Messages{ { 0, 1, 0xa5, 0xff, 0x10 }, { 0, 1, 0xa5, 0xff }, { 0 } } ) );
   EXPECT_EQ( read.errors, Errors{} );
}

TEST( HexReader, namesTheOddDigitAndGoesOn ) {
   ReadText const read( "01\n0102 3\n0 1\n02 0x3 04\n0x\n05" );
   EXPECT_EQ( read.messages, ( Messages{ { 1 }, { 5 } } ) );
   EXPECT_EQ( read.numbers, ( Numbers{ 1, 6 } ) );
   EXPECT_EQ( read.errors,
              ( Errors{ ": packet 2, line 2, column 6: a byte needs two hexadecimal digits",
                        ": packet 3, line 3, column 1: a byte needs two hexadecimal digits",
                        ": packet 4, line 4, column 6: a byte needs two hexadecimal digits",
                        ": packet 5, line 5, column 3: a byte needs two hexadecimal digits" } ) );
}

TEST( HexReader, namesTheForeignCharacterAndGoesOn ) {
   ReadText const read( "zz\n01 g2\n010g\n010x02\n0xx\n01 \xc3\xa9\n01,02\n03\n" );
   EXPECT_EQ( read.messages, ( Messages{ { 3 } } ) );
   EXPECT_EQ( read.errors,
              ( Errors{ ": packet 1, line 1, column 1: 'z' is no hexadecimal digit",
                        ": packet 2, line 2, column 4: 'g' is no hexadecimal digit",
                        ": packet 3, line 3, column 4: 'g' is no hexadecimal digit",
                        ": packet 4, line 4, column 4: 'x' is no hexadecimal digit",
                        ": packet 5, line 5, column 3: 'x' is no hexadecimal digit",
                        ": packet 6, line 6, column 4: a byte of value 195 is no hexadecimal digit",
                        ": packet 7, line 7, column 3: ',' is no hexadecimal digit" } ) );
}

TEST( HexReader, boundsAMessage ) {
   std::string longest;
   for( std::size_t i = 0; i < HexReader::maximumLength; ++i )
      longest += "5a";
   ReadText const read( longest + "\n" + longest + "5a5a\n01\n" );
   EXPECT_EQ( read.messages, ( Messages{ Bytes( 65535, 0x5a ), { 1 } } ) );
   EXPECT_EQ(
      read.errors,
      ( Errors{ ": packet 2, line 2, column 131071: a message of more than 65535 bytes" } ) );
}

TEST( HexReader, hasNeitherTimeNorAddresses ) {
   TemporaryFile file( std::string( "00" ) );
   HexReader reader( file.path() );
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_FALSE( reader.packet().time );
   EXPECT_TRUE( reader.packet().source.empty() );
   EXPECT_FALSE( reader.packet().sourcePort );
   EXPECT_EQ( reader.bytesRead(), 2U );
   EXPECT_EQ( reader.bytesTotal(), 2U );
}

TEST( HexReader, hasNoMessagesInAnEmptyFile ) {
   ReadText const read( "" );
   EXPECT_EQ( read.messages, Messages{} );
   EXPECT_EQ( read.errors, Errors{} );
}

TEST( HexReader, failsWhereThereIsNothingToRead ) {
   for( auto const & [path, text] :
        { std::pair{ "/nonexistent/a.hex", "/nonexistent/a.hex: No such file or directory" },
          std::pair{ "/", "/: Is a directory" } } ) {
      HexReader reader( path );
      ASSERT_EQ( reader.next(), Step::error );
      EXPECT_EQ( reader.error().status, exitFileFailed );
      EXPECT_EQ( reader.error().message(), text );
      EXPECT_EQ( reader.next(), Step::end );
   }
}

TEST( HexReader, readsStandardInputFromAPipe ) {
   StandardInput input( pipeOf( { '0', '1', '\n', '0', '2' } ) );
   HexReader reader( "-" );
   EXPECT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.packet().payload[0], 2 );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST( HexReader, failsOnADeviceThatCannotBeRead ) {
   StandardInput input( ::open( "/dev/null", O_WRONLY ) );
   HexReader reader( "-" );
   ASSERT_EQ( reader.next(), Step::error );
   EXPECT_EQ( reader.error().status, exitFileFailed );
   EXPECT_EQ( reader.error().message(), "standard input: Bad file descriptor" );
   EXPECT_EQ( reader.next(), Step::end );
}
