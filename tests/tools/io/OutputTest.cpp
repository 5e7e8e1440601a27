#include "tools/lspping/io/Output.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using LspPingTool::Output;

TEST( Output, keepsTheStatusOfWhatIsWritten ) {
   int ends[2];
   ASSERT_EQ( ::pipe( ends ), 0 );
   Output output( ends[1] );
   EXPECT_FALSE( output.isTerminal() );
   output.write( "ab" );
   output.write( "c" );
   EXPECT_EQ( output.state(), Output::State::open );
   EXPECT_EQ( output.finish( 1 ), 1 );
   char text[4];
   EXPECT_EQ( ::read( ends[0], text, sizeof text ), 3 );
   // It was closed.
   EXPECT_EQ( ::read( ends[0], text, sizeof text ), 0 );
   ::close( ends[0] );
}

TEST( Output, failsWhenItCannotBeClosed ) {
   testing::internal::CaptureStderr();
   int const file = ::open( "/dev/null", O_WRONLY );
   Output output( file );
   output.write( "a" );
   ::close( file );
   EXPECT_EQ( output.finish( 0 ), 3 );
   EXPECT_EQ( testing::internal::GetCapturedStderr(),
              "lspping: standard output: Bad file descriptor\n" );
}

TEST( Output, failsWithoutRoom ) {
   Output output( ::open( "/dev/full", O_WRONLY ) );
   output.write( "a" );
   EXPECT_EQ( output.state(), Output::State::failed );
   EXPECT_EQ( output.failure(), ENOSPC );
   testing::internal::CaptureStderr();
   EXPECT_EQ( output.finish( 2 ), 3 );
   EXPECT_EQ( testing::internal::GetCapturedStderr(),
              "lspping: standard output: No space left on device\n" );
}

TEST( Output, isClosedWhenNobodyReads ) {
   int ends[2];
   ASSERT_EQ( ::pipe( ends ), 0 );
   ::close( ends[0] );
   Output output( ends[1] );
   output.write( "a" );
   EXPECT_EQ( output.state(), Output::State::closed );
   EXPECT_EQ( output.finish( 1 ), 1 );
   ::close( ends[1] );
}

} // namespace
