#include "tests/tools/decode/Program.h"

// That what stands on the command line reaches the commands, and that what comes back can be shown.
namespace {

class Commands : public Program {};

TEST_F( Commands, passesTheArgumentsOfValueOn ) {
   EXPECT_EQ( run( "$lspping value NtpTimeU64 'LspPing::NtpTimeU64(seconds=1, fractions=2)' "
                   "seconds=9" ),
              0 );
   EXPECT_EQ( out(), "LspPing::NtpTimeU64(seconds=9, fractions=2)\n"
                     "  seconds = 9\n"
                     "  fractions = 2\n"
                     "writes\n"
                     "  seconds: done\n"
                     "set\n" );
   EXPECT_EQ( run( "$lspping value NtpTimeU64 --json seconds=9" ), 0 );
   EXPECT_EQ( out(), R"j({"type":"LspPing::NtpTimeU64",)j"
                     R"j("text":"LspPing::NtpTimeU64(seconds=9, fractions=0)",)j"
                     R"j("attributes":{"seconds":9,"fractions":0},"isSet":true})j"
                     "\n" );
   EXPECT_EQ( err(), "" );
}

TEST_F( Commands, answersValueAndViewLineByLine ) {
   EXPECT_EQ( run( "printf 'NtpTimeU64\\nNtpTimeU64 hours=1\\nNothing\\n' | $lspping value -" ),
              1 );
   EXPECT_EQ( out(), R"j({"type":"LspPing::NtpTimeU64",)j"
                     R"j("text":"LspPing::NtpTimeU64(seconds=0, fractions=0)",)j"
                     R"j("attributes":{"seconds":0,"fractions":0},"isSet":false})j"
                     "\n"
                     R"j({"type":"LspPing::NtpTimeU64",)j"
                     R"j("text":"LspPing::NtpTimeU64(seconds=0, fractions=0)",)j"
                     R"j("attributes":{"seconds":0,"fractions":0},"isSet":false,)j"
                     R"j("writes":[{"name":"hours","outcome":2}]})j"
                     "\n"
                     R"j({"error":"no type \"Nothing\" is registered"})j"
                     "\n" );
   EXPECT_EQ( run( "echo LspPingTlvU8Hdr 030004 | $lspping view -" ), 0 );
   EXPECT_EQ( out(), R"j({"type":"LspPing::LspPingTlvU8Hdr","attributes":{"type":3,"length":4,)j"
                     R"j("totalLength":8},"writes":[],"hex":"030004"})j"
                     "\n" );
}

TEST_F( Commands, passesTheArgumentsOfViewOn ) {
   EXPECT_EQ( run( "$lspping view LspPingTlvU8Hdr 030004 type=5" ), 0 );
   EXPECT_EQ( out(), "LspPing::LspPingTlvU8Hdr\n"
                     "  type = 5\n"
                     "  length = 4\n"
                     "  totalLength = 8\n"
                     "writes\n"
                     "  type: done\n"
                     "bytes 050004\n" );
   EXPECT_EQ( run( "$lspping view --json LspPingTlvU8Hdr 030004" ), 0 );
   EXPECT_EQ( out(), R"j({"type":"LspPing::LspPingTlvU8Hdr","attributes":{"type":3,"length":4,)j"
                     R"j("totalLength":8},"writes":[],"hex":"030004"})j"
                     "\n" );
}

TEST_F( Commands, passesTheArgumentsOfTypesOn ) {
   EXPECT_EQ( run( "$lspping types LspPingTlvU8Hdr" ), 0 );
   EXPECT_EQ( out(), "LspPingHdr\n"
                     "  1 LspPing::LspPingTlvU8Hdr, pointer-interface\n"
                     "    2 rw- type: U8\n"
                     "    3 rw- length: U16\n"
                     "    4 r-- totalLength: U16\n" );
   EXPECT_EQ( run( "$lspping types LspPingTlvU8Hdr --json" ), 0 );
   EXPECT_THAT( out(),
                testing::StartsWith( R"j({"modules":[{"name":"LspPingHdr","types":[)j"
                                     R"j({"index":1,"name":"LspPing::LspPingTlvU8Hdr",)j" ) );
   EXPECT_EQ( run( "$lspping types LspPingTlvU8Hdr --markdown" ), 0 );
   EXPECT_THAT( out(), testing::HasSubstr( "\n### 1 LspPing::LspPingTlvU8Hdr\n" ) );
}

TEST_F( Commands, makesPrintableWhatItSaysOfItsArguments ) {
   EXPECT_EQ( run( "$lspping decode '/none\x1b[31m\n\x9b'" ), 3 );
   EXPECT_EQ( err(), "lspping: /none\\x1b[31m\\x0a\\x9b: No such file or directory\n" );
   std::string const path = file( "a\x1b[31m", "012\n" );
   EXPECT_EQ( run( "$lspping decode --hex '" + path + "'" ), 1 );
   EXPECT_EQ( err(), "lspping: " + path.substr( 0, path.size() - 5 ) +
                        "\\x1b[31m: packet 1, line 1, column 3: a byte needs two hexadecimal "
                        "digits\n" );
   EXPECT_EQ( run( "$lspping types 'a\x1b\u009b\u00e9'" ), 2 );
   EXPECT_EQ( err(), "lspping: no type \"a\\x1b\\xc2\\x9b\u00e9\" is registered\n" );
   EXPECT_EQ( run( "$lspping view 'a\x1b' 00" ), 2 );
   EXPECT_EQ( err(), "lspping: no type \"a\\x1b\" is registered\n" );
   EXPECT_EQ( run( "$lspping view LspPingTlvU8Hdr 030004 'type\x1b=\n'" ), 2 );
   EXPECT_EQ( err(), "lspping: \"type\\x1b=\\x0a\" is no NAME=VALUE\n" );
   EXPECT_EQ( run( "$lspping value LspPingTlvType '\x1b[31m'" ), 1 );
   EXPECT_EQ( err(), "lspping: LspPing::LspPingTlvType \"\\x1b[31m\": LspPing::LspPingTlvType: "
                     "\"\\x1b[31m\" is no name or number of it\n" );
}

TEST_F( Commands, makesPrintableWhatItSaysOfWrongUsage ) {
   EXPECT_EQ( run( "$lspping types 'a' 'b\x1b[31m\n\xff'" ), 2 );
   EXPECT_EQ( err(), "The following argument was not expected: b\\x1b[31m\\x0a\\xff\n"
                     "Run with --help for more information.\n" );
}

TEST_F( Commands, makesPrintableTheTextOfAValue ) {
   EXPECT_EQ( run( "$lspping value Orlo::String 'a\x1b[31m\n\xff\u00e9'" ), 0 );
   EXPECT_EQ( out(), "\"a\\x1b[31m\\x0a\\xff\u00e9\"\nset\n" );
   EXPECT_EQ( run( "$lspping value Orlo::String 'a\x1b\x7f\u009b\xff\u00e9' --json" ), 0 );
   EXPECT_EQ( out(), R"j({"type":"Orlo::String","text":"\"a\u001B\u007F\u009B)j"
                     "\ufffd\u00e9"
                     R"j(\"","attributes":{},"isSet":true})j"
                     "\n" );
}

TEST_F( Commands, cutsNothingOffAtANul ) {
   EXPECT_EQ( run( "printf 'a\\000b 00\\n' | $lspping view -" ), 1 );
   EXPECT_EQ( out(), R"j({"error":"no type \"a\\x00b\" is registered"})j"
                     "\n" );
}

} // namespace
