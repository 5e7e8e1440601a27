#include "tests/tools/decode/Program.h"

// How the program ends where memory does, which a limit on its address space brings about. The
// sanitizers' own memory leaves no room for such a limit.
namespace {

#if defined( __SANITIZE_ADDRESS__ ) || defined( __SANITIZE_THREAD__ )
constexpr bool canBeLimited = false;
#elif defined( __has_feature )
#if __has_feature( address_sanitizer ) || __has_feature( thread_sanitizer )
constexpr bool canBeLimited = false;
#else
constexpr bool canBeLimited = true;
#endif
#else
constexpr bool canBeLimited = true;
#endif

class Memory : public Program {
 protected:
   void SetUp() override {
      if( !canBeLimited )
         GTEST_SKIP() << "under a sanitizer";
      // The least with which the program gets as far as its own code, in kB.
      while( runWithin( least_, "$lspping types LspPingTlvU8Hdr" ) != 0 )
         ASSERT_LT( least_ += 2000, 200000 );
   }

   int runWithin( int limit, std::string const & command ) {
      return run( "ulimit -v " + std::to_string( limit ) + "; " + command );
   }

   /// Within any memory the call says all, as it does with as much as it likes, or tells that there
   /// is too little. The answer is how often it told.
   int timesWithoutMemory( std::string const & call, int most, int step ) {
      EXPECT_EQ( run( "$lspping " + call ), 0 );
      std::string const all = out();
      int count = 0;
      for( int limit = least_; limit < most; limit += step ) {
         int const status = runWithin( limit, "$lspping " + call );
         if( status == 0 ) {
            EXPECT_EQ( out(), all );
            EXPECT_EQ( err(), "" );
            continue;
         }
         ++count;
         EXPECT_EQ( status, 3 ) << limit;
         EXPECT_EQ( err(), "lspping: out of memory\n" ) << limit;
         EXPECT_TRUE( all.starts_with( out() ) ) << limit;
      }
      return count;
   }

   int least() const { return least_; }

 private:
   int least_ = 4000;
};

TEST_F( Memory, endsInOrderWithoutEnoughForALine ) {
   std::string const text( 12'000'000, 'x' );
   std::string const lines = file( "lines", "Orlo::String a\nOrlo::String " + text + "\n" );
   EXPECT_GT( timesWithoutMemory( "value - <" + lines, least() + 250000, 24000 ), 5 );
   std::string const bytes =
      file( "bytes", "LspPingTlvU8Hdr 030004" + std::string( 12'000'000, '0' ) + "\n" );
   EXPECT_GT( timesWithoutMemory( "view - <" + bytes, least() + 150000, 24000 ), 1 );
}

TEST_F( Memory, endsInOrderWithoutEnoughForAMessage ) {
   // One Pad TLV that fills the message.
   std::string const pad = "0003ffd401" + std::string( 2 * 0xffd3, 'a' );
   std::string const path =
      file( "a", "0001000001020000000012340000000100000000000000000000000000000000" + pad + "\n" );
   EXPECT_GT( timesWithoutMemory( "decode --hex --json " + path, least() + 5000, 200 ), 0 );
   EXPECT_GT( timesWithoutMemory( "decode --hex --records " + path, least() + 5000, 200 ), 0 );
}

// The file is whole; only there is no room for its one long block.
TEST_F( Memory, tellsThatALongBlockOfACaptureFindsNone ) {
   std::string const header( "\x0a\x0d\x0d\x0a\x1c\0\0\0\x4d\x3c\x2b\x1a\x01\0\0\0"
                             "\xff\xff\xff\xff\xff\xff\xff\xff\x1c\0\0\0"
                             "\x01\0\0\0\x14\0\0\0\x01\0\0\0\0\0\x01\0\x14\0\0\0",
                             48 );
   std::string const length( "\0\0\xf0\0", 4 );
   std::string const path = file( "a", header + std::string( "\xff\0\0\0", 4 ) + length +
                                          std::string( 0xf00000 - 12, '\0' ) + length );
   EXPECT_EQ( run( "$lspping decode " + path ), 0 );
   EXPECT_EQ( runWithin( least() + 5000, "$lspping decode " + path ), 3 );
   EXPECT_EQ( err(), "lspping: " + path + ": packet 1, byte 56: out of memory\n" );
   EXPECT_EQ( out(), "" );
}

TEST_F( Memory, answersTheLinesBehindOneThatIsTooLong ) {
   EXPECT_EQ( runWithin( least() + 60000,
                         "{ echo 'Orlo::String a'; head -c 100000000 /dev/zero; echo; "
                         "echo 'Orlo::String b'; head -c 17000000 /dev/zero; } | "
                         "$lspping value -" ),
              1 );
   EXPECT_EQ( out(), R"({"type":"Orlo::String","text":"\"a\"","attributes":{},"isSet":true})"
                     "\n"
                     R"({"error":"line 2 has more than 16777216 bytes"})"
                     "\n"
                     R"({"type":"Orlo::String","text":"\"b\"","attributes":{},"isSet":true})"
                     "\n"
                     R"({"error":"line 4 has more than 16777216 bytes"})"
                     "\n" );
   EXPECT_EQ( err(), "" );
}

} // namespace
