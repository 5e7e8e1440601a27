#include "tests/tools/decode/Program.h"

#include <string_view>

// How every command ends when what it writes is lost, or nobody reads it.
namespace {

class Ending : public Program {
 protected:
   Ending() : request_( file( "request", requestHex + "\n" ) ) {}

   /// One call of each command that has something to write.
   std::vector< std::string > calls() const {
      return {
         "decode --hex " + request_,
         "decode --hex --json " + request_,
         "view LspPingTlvU8Hdr 030004",
         "view LspPingTlvU8Hdr 030004 --json",
         "view - <" + lines_,
         "value NtpTimeU64",
         "value NtpTimeU64 --json",
         "value - <" + values_,
         "types",
         "types --json",
         "types --markdown",
         "--help",
         "decode --help",
      };
   }

   /// The status that the call ends with where the reader of its pipe is gone before it writes.
   std::string statusWithoutReader( std::string const & call ) {
      std::string const status = file( "status", "" );
      run( "{ sleep 0.1; $lspping " + call + "; echo $? >" + status + "; } | :" );
      return contentsOf( status );
   }

 private:
   std::string request_;
   std::string lines_ = file( "lines", "LspPingTlvU8Hdr 030004\n" );
   std::string values_ = file( "values", "NtpTimeU64\n" );
};

TEST_F( Ending, failsWithoutRoomOnTheDevice ) {
   for( std::string const & call : calls() ) {
      EXPECT_EQ( run( "$lspping " + call + " >/dev/full" ), 3 ) << call;
      EXPECT_EQ( err(), "lspping: standard output: No space left on device\n" ) << call;
   }
}

TEST_F( Ending, failsWithoutStandardOutput ) {
   for( std::string const & call : calls() ) {
      EXPECT_EQ( run( "$lspping " + call + " >&-" ), 3 ) << call;
      EXPECT_EQ( err(), "lspping: standard output: Bad file descriptor\n" ) << call;
   }
}

TEST_F( Ending, tellsALostOutputAndWhatWasWrongWithTheInput ) {
   std::string const bad = file( "bad", requestHex + "\n012\n" );
   EXPECT_EQ( run( "$lspping decode --hex " + bad + " >/dev/full" ), 3 );
   EXPECT_EQ( err(), "lspping: " + bad +
                        ": packet 2, line 2, column 3: a byte needs two hexadecimal digits\n"
                        "lspping: standard output: No space left on device\n" );
   EXPECT_EQ( run( "echo nonsense | $lspping value - >/dev/full" ), 3 );
   EXPECT_EQ( err(), "lspping: standard output: No space left on device\n" );
}

// A file that is opened must not take the place of a standard descriptor that is closed.
TEST_F( Ending, doesNotTakeAFileForStandardInput ) {
   std::string const path = file( "a", requestHex + "\n" );
   EXPECT_EQ( run( "$lspping decode --hex " + path + " - <&-" ), 3 );
   EXPECT_EQ( out(), decodedRequest );
   EXPECT_EQ( err(), "lspping: standard input: Bad file descriptor\n" );
   EXPECT_EQ( run( "$lspping view - <&-" ), 3 );
   EXPECT_EQ( err(), "lspping: standard input: Bad file descriptor\n" );
}

TEST_F( Ending, failsWhenABatchCannotBeRead ) {
   for( std::string const command : { "view", "value" } ) {
      EXPECT_EQ( run( "$lspping " + command + " - </" ), 3 );
      EXPECT_EQ( out(), "" );
      EXPECT_EQ( err(), "lspping: standard input: Is a directory\n" );
   }
}

TEST_F( Ending, isQuietWhenNobodyReads ) {
   for( std::string const & call : calls() ) {
      EXPECT_EQ( statusWithoutReader( call ), "0\n" ) << call;
      EXPECT_EQ( err(), "" ) << call;
   }
}

TEST_F( Ending, keepsItsStatusWhenNobodyReads ) {
   std::string const bad = file( "bad", requestHex + " ff\n" );
   EXPECT_EQ( statusWithoutReader( "decode --hex " + bad + " 2>&-" ), "1\n" );
   std::string const lines = file( "badLines", "Nothing 00\nLspPingTlvU8Hdr 030004\n" );
   EXPECT_EQ( statusWithoutReader( "view - <" + lines ), "1\n" );
   EXPECT_EQ( statusWithoutReader( "value - <" + lines ), "1\n" );
}

// What `types` says fills more than a pipe, so its reader goes in the middle of it.
TEST_F( Ending, isQuietWhenItsReaderStops ) {
   std::string const status = file( "status", "" );
   EXPECT_EQ( run( "{ $lspping types --json; echo $? >" + status + "; } | head -c 10" ), 0 );
   EXPECT_EQ( contentsOf( status ), "0\n" );
   EXPECT_EQ( out(), "{\"modules\"" );
   EXPECT_EQ( err(), "" );
   EXPECT_EQ( run( "yes NtpTimeU64 | { timeout 20 $lspping value -; echo $? >" + status +
                   "; } | head -c 10" ),
              0 );
   EXPECT_EQ( contentsOf( status ), "0\n" );
   EXPECT_EQ( err(), "" );
}

} // namespace
