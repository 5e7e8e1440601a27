#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

// What the tool says of the samples is stored beside them, as it was reviewed against the RFCs.
namespace {

namespace fs = std::filesystem;

std::string contents( fs::path const & path ) {
   std::ifstream file( path, std::ios::binary );
   EXPECT_TRUE( file ) << path;
   return std::string( std::istreambuf_iterator< char >( file ), {} );
}

std::string quoted( fs::path const & path ) {
   return "'" + path.string() + "'";
}

// The status that a command ends with.
int run( std::string const & command ) {
   int const status = std::system( command.c_str() );
   return WIFEXITED( status ) ? WEXITSTATUS( status ) : -1;
}

// A folder of its own for each test, gone when the test is over.
class DecodedSamples : public testing::Test {
 protected:
   // Decodes a sample from the project's folder, so that the names it tells of are the stored ones.
   int decode( std::string const & arguments ) const {
      return run( "cd " LSPPING_SOURCE " && " LSPPING_PROGRAM " decode " + arguments + " > " +
                  quoted( out() ) + " 2> " + quoted( err() ) );
   }

   void expectStored( fs::path const & said, std::string const & name ) const {
      fs::path const stored = fs::path( LSPPING_SOURCE ) / "samples" / name;
      if( contents( said ) == contents( stored ) )
         return;
      fs::path const difference = folder_.path() / "difference";
      run( "diff -u " + quoted( stored ) + " " + quoted( said ) + " > " + quoted( difference ) );
      ADD_FAILURE()
         << name << " is not what the tool says now:\n"
         << contents( difference )
         << "Where that is right, build the target renewSamples and review what changed.";
   }

   fs::path out() const { return folder_.path() / "out"; }
   fs::path err() const { return folder_.path() / "err"; }

 private:
   TemporaryFolder folder_;
};

} // namespace

TEST_F( DecodedSamples, textOfTheWellFormed ) {
   EXPECT_EQ( decode( "samples/echo.pcap" ), 0 );
   expectStored( out(), "echo.txt" );
   EXPECT_EQ( contents( err() ), "" );
}

TEST_F( DecodedSamples, jsonOfTheWellFormed ) {
   EXPECT_EQ( decode( "--json samples/echo.pcap" ), 0 );
   expectStored( out(), "echo.jsonl" );
   EXPECT_EQ( contents( err() ), "" );
}

TEST_F( DecodedSamples, textOfTheMalformed ) {
   EXPECT_EQ( decode( "samples/malformed.pcap" ), 1 );
   expectStored( out(), "malformed.txt" );
   expectStored( err(), "malformed.err" );
}

TEST_F( DecodedSamples, jsonOfTheMalformed ) {
   EXPECT_EQ( decode( "--json samples/malformed.pcap" ), 1 );
   expectStored( out(), "malformed.jsonl" );
   expectStored( err(), "malformed.err" );
}

TEST_F( DecodedSamples, textOfTheRegistries ) {
   EXPECT_EQ( decode( "samples/registry.pcap" ), 0 );
   expectStored( out(), "registry.txt" );
   EXPECT_EQ( contents( err() ), "" );
}

TEST_F( DecodedSamples, jsonOfTheRegistries ) {
   EXPECT_EQ( decode( "--json samples/registry.pcap" ), 0 );
   expectStored( out(), "registry.jsonl" );
   EXPECT_EQ( contents( err() ), "" );
}

TEST_F( DecodedSamples, textOfTheRegistriesDamaged ) {
   EXPECT_EQ( decode( "samples/registryDamaged.pcap" ), 1 );
   expectStored( out(), "registryDamaged.txt" );
   expectStored( err(), "registryDamaged.err" );
}

TEST_F( DecodedSamples, jsonOfTheRegistriesDamaged ) {
   EXPECT_EQ( decode( "--json samples/registryDamaged.pcap" ), 1 );
   expectStored( out(), "registryDamaged.jsonl" );
   expectStored( err(), "registryDamaged.err" );
}

// No bytes are left that nobody describes.
TEST_F( DecodedSamples, wellFormedShowNoBytes ) {
   for( std::string const sample : { "echo", "registry" } ) {
      decode( "samples/" + sample + ".pcap" );
      EXPECT_NE( contents( out() ), "" );
      EXPECT_EQ( contents( out() ).find( "Bytes" ), std::string::npos ) << sample;
   }
}

// Each message of the well-formed samples is what it says to be.
TEST_F( DecodedSamples, wellFormedHaveNoProblem ) {
   for( std::string const sample : { "echo", "registry" } ) {
      decode( "--json samples/" + sample + ".pcap" );
      std::istringstream lines( contents( out() ) );
      int messages = 0;
      for( std::string line; std::getline( lines, line ); ++messages ) {
         // The header's view knows requests and replies only; the reader knows proxies, too.
         EXPECT_NE( line.find( "\"length\":32,\"valid\":true" ), std::string::npos ) << line;
         std::string const tlvs = line.substr( line.find( "\"tlvs\":" ) );
         EXPECT_EQ( tlvs.find( "\"valid\":false" ), std::string::npos ) << line;
         EXPECT_NE( line.find( "\"problems\":[]" ), std::string::npos ) << line;
      }
      EXPECT_GT( messages, 0 );
   }
}

TEST_F( DecodedSamples, damagedHaveAProblemEach ) {
   decode( "--json samples/registryDamaged.pcap" );
   std::istringstream lines( contents( out() ) );
   int messages = 0;
   for( std::string line; std::getline( lines, line ); ++messages )
      EXPECT_EQ( line.find( "\"problems\":[]" ), std::string::npos ) << line;
   EXPECT_GT( messages, 0 );
}
