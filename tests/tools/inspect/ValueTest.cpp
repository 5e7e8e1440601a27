#include "tests/tools/inspect/Run.h"

#include <gtest/gtest.h>

namespace {

using InspectTest::Ran;

Ran value( std::vector< std::string > arguments, bool json = true,
           std::string const & input = "" ) {
   return InspectTest::run( &LspPingTool::runValue, std::move( arguments ), json, input );
}

TEST( Value, buildsTheDefaultOne ) {
   EXPECT_EQ( value( { "NtpTimeU64" } ).out,
              R"j({"type":"LspPing::NtpTimeU64",)j"
              R"j("text":"LspPing::NtpTimeU64(seconds=0, fractions=0)",)j"
              R"j("attributes":{"seconds":0,"fractions":0},"isSet":false})j"
              "\n" );
}

TEST( Value, buildsOneFromItsTextAndWritesIt ) {
   Ran const ran = value( { "LspPing::NtpTimeU64", "LspPing::NtpTimeU64( seconds=1,fractions=2 )",
                            "seconds=9", "minutes=4" } );
   EXPECT_EQ( ran.out, R"j({"type":"LspPing::NtpTimeU64",)j"
                       R"j("text":"LspPing::NtpTimeU64(seconds=9, fractions=2)",)j"
                       R"j("attributes":{"seconds":9,"fractions":2},"isSet":true,)j"
                       R"j("writes":[{"name":"seconds","outcome":0},)j"
                       R"j({"name":"minutes","outcome":2}]})j"
                       "\n" );
   EXPECT_EQ( ran.status, 0 );
}

TEST( Value, printsTextForPeople ) {
   EXPECT_EQ( value( { "NtpTimeU64", "seconds=1" }, false ).out,
              "LspPing::NtpTimeU64(seconds=1, fractions=0)\n"
              "  seconds = 1\n"
              "  fractions = 0\n"
              "writes\n"
              "  seconds: done\n"
              "set\n" );
   EXPECT_TRUE( value( { "NtpTimeU64" }, false ).out.ends_with( "\nempty\n" ) );
}

TEST( Value, takesEnumerationsAndPlainValues ) {
   EXPECT_EQ( value( { "LspPingTlvType", "EchoJitter" } ).out,
              R"j({"type":"LspPing::LspPingTlvType","text":"EchoJitter","attributes":{},)j"
              R"j("isSet":true})j"
              "\n" );
   EXPECT_NE( value( { "LspPingTlvType", "13" } ).out.find( R"j("text":"13")j" ),
              std::string::npos );
   EXPECT_NE( value( { "Velnet::IpAddr", "10.0.0.1" } ).out.find( R"j("text":"10.0.0.1")j" ),
              std::string::npos );
   EXPECT_NE( value( { "Orlo::String", "a=b" } ).out.find( R"j("text":"\"a=b\"")j" ),
              std::string::npos );
   EXPECT_NE( value( { "Velnet::IpGenAddr" } ).out.find( R"j("text":"none")j" ),
              std::string::npos );
}

TEST( Value, writesElementsOfCollections ) {
   Ran const ran = value( { "LspPingPadInfo", "padding[2]=7", "padding[0]=1", "length=4",
                            "padType=1", "padding[65536]=1" } );
   EXPECT_EQ( ran.err, "lspping: padding[65536]: no key above 65535\n" );
   Ran const done =
      value( { "LspPingPadInfo", "padding[2]=7", "padding[0]=1", "length=4", "padType=1" } );
   EXPECT_EQ( done.out,
              R"j({"type":"LspPing::LspPingPadInfo","text":"LspPing::LspPingPadInfo(padType=0, )j"
              R"j(padding={0: 1, 1: 0, 2: 7}, length=4, valid=false)","attributes":{"padType":0,)j"
              R"j("padding":{"0":1,"1":0,"2":7},"length":4,"valid":false},"isSet":true,)j"
              R"j("writes":[{"name":"padding[2]","outcome":0},{"name":"padding[0]","outcome":0},)j"
              R"j({"name":"length","outcome":0},{"name":"padType","outcome":1}]})j"
              "\n" );
   EXPECT_EQ( value( { "LspPingPadInfo", "padding=1" } ).err,
              "lspping: padding is a collection: NAME[KEY]=VALUE\n" );
}

TEST( Value, refusesTextForWhatHoldsACollection ) {
   for( std::string const type : { "LspPingPadInfo", "LspPingFecStack", "LspPingMultipathBitset",
                                   "LspPingDownstreamMappingInfo", "LspPingFecStackChangeInfo" } ) {
      Ran const ran = value( { type, "LspPing::" + type + "()" } );
      EXPECT_EQ( ran.status, 1 );
      EXPECT_TRUE( ran.err.ends_with( "has no text to read\n" ) ) << ran.err;
   }
   Ran const write = value( { "LspPingFecStackChangeInfo", "popTlvInfo=x" } );
   EXPECT_EQ( write.err, "lspping: popTlvInfo \"x\": LspPing::LspPingFecStack has no text to "
                         "read\n" );
}

// The stack's own check of such a size would not end.
TEST( Value, leavesOutWhatTheStateForbidsToRead ) {
   Ran const ran = value( { "LspPingDownstreamLabelStack", "size=300" } );
   EXPECT_NE( ran.out.find( R"j("attributes":{"labelEntry":{},"size":300,"valid":null})j" ),
              std::string::npos )
      << ran.out;
}

TEST( Value, namesWhatIsWrong ) {
   EXPECT_EQ( value( { "NtpTimeU64", "LspPing::NtpTimeU64(seconds=x, fractions=2)" } ).status, 1 );
   EXPECT_EQ( value( { "NtpTimeU64", "seconds=-1" } ).status, 1 );
   EXPECT_EQ( value( { "LspPingHdr" } ).err, "lspping: LspPing::LspPingHdr is no value type\n" );
   EXPECT_EQ( value( { "LspPingHdrParser" } ).status, 2 );
   EXPECT_EQ( value( {} ).status, 2 );
   EXPECT_EQ( value( { "NtpTimeU64", "seconds=1", "text" } ).status, 2 );
}

TEST( Value, answersLineByLine ) {
   Ran const ran = value( { "-" }, false,
                          "NtpTimeU64 LspPing::NtpTimeU64(seconds=1, fractions=2) fractions=3\n"
                          "NtpTimeU64 seconds=x\xff\n"
                          "Orlo::String \"two words\"\n" );
   EXPECT_EQ( ran.out, R"j({"type":"LspPing::NtpTimeU64",)j"
                       R"j("text":"LspPing::NtpTimeU64(seconds=1, fractions=3)",)j"
                       R"j("attributes":{"seconds":1,"fractions":3},"isSet":true})j"
                       "\n"
                       R"j({"error":"seconds \"x\\xff\": expected a decimal number at offset 0, )j"
                       R"j(found \"x\\xff\""})j"
                       "\n"
                       R"j({"type":"Orlo::String","text":"\"two words\"","attributes":{},)j"
                       R"j("isSet":true})j"
                       "\n" );
   EXPECT_EQ( ran.status, 1 );
}

} // namespace
