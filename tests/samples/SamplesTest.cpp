#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string contents( fs::path const & path ) {
   std::ifstream file( path, std::ios::binary );
   EXPECT_TRUE( file ) << path;
   return std::string( std::istreambuf_iterator< char >( file ), {} );
}

// Runs the program that writes the samples and compares what it wrote with the committed files.
void expectSameAsCommitted( std::string const & name ) {
   TemporaryFolder const folder;
   ASSERT_EQ( std::system( ( LSPPING_WRITE_SAMPLES " " + folder.path().string() ).c_str() ), 0 );
   std::string const written = contents( folder.path() / name );
   EXPECT_FALSE( written.empty() );
   EXPECT_TRUE( written == contents( fs::path( LSPPING_SAMPLES ) / name ) )
      << name << " is not what writeSamples writes; run it again and look at the difference";
}

} // namespace

TEST( Samples, echoMessagesAreWrittenTheSameEveryTime ) {
   expectSameAsCommitted( "echo.pcap" );
}

TEST( Samples, malformedMessagesAreWrittenTheSameEveryTime ) {
   expectSameAsCommitted( "malformed.pcap" );
}

TEST( Samples, messagesOfTheRegistriesAreWrittenTheSameEveryTime ) {
   expectSameAsCommitted( "registry.pcap" );
   expectSameAsCommitted( "registryDamaged.pcap" );
}

TEST( Samples, programSaysWhatItCannotWrite ) {
   EXPECT_NE( std::system( LSPPING_WRITE_SAMPLES " /nowhere/at/all 2> /dev/null" ), 0 );
   EXPECT_NE( std::system( LSPPING_WRITE_SAMPLES " 2> /dev/null" ), 0 );
}
