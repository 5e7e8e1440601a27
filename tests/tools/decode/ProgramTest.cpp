#include "tests/tools/decode/Program.h"

#include "tools/lspping/decode/Decode.h"
#include "tools/lspping/io/Output.h"

#include <algorithm>
#include <sys/stat.h>

// What `decode` says and how it ends.
namespace {

TEST_F( Program, decodesHexText ) {
   EXPECT_EQ( run( "$lspping decode --hex " + file( "a", requestHex + "\n" ) ), 0 );
   EXPECT_EQ( out(), decodedRequest );
   EXPECT_EQ( err(), "" );
}

TEST_F( Program, decodesStandardInput ) {
   EXPECT_EQ( run( "echo '" + requestHex + "' | $lspping decode --hex -" ), 0 );
   EXPECT_EQ( out(), decodedRequest );
   EXPECT_EQ( err(), "" );
}

TEST_F( Program, printsAnObjectALine ) {
   EXPECT_EQ( run( "printf '" + requestHex + "\\n" + requestHex +
                   "\\n' | "
                   "$lspping decode --hex --json -" ),
              0 );
   EXPECT_EQ( std::count( out().begin(), out().end(), '\n' ), 2 );
   EXPECT_THAT( out(), testing::StartsWith( R"({"packet":1,"time":null,)" ) );
   EXPECT_THAT( out(), testing::HasSubstr( "\n{\"packet\":2,\"time\":null," ) );
   EXPECT_THAT( out(), testing::EndsWith( "\"problems\":[]}\n" ) );
}

TEST_F( Program, tellsProblemsWithFilePacketAndOffset ) {
   std::string const path = file( "a", requestHex + " ff\n" + requestHex + "\n" );
   EXPECT_EQ( run( "$lspping decode --hex " + path ), 1 );
   EXPECT_EQ( err(), "lspping: " + path +
                        ": packet 1, offset 48: 1 byte left over after the last TLV: another needs "
                        "4\n" );
   EXPECT_EQ( out(), decodedRequest +
                        "   ! offset 48: 1 byte left over after the last TLV: another needs 4\n"
                        "      Bytes( ff )\n"
                        "2" +
                        decodedRequest.substr( 1 ) );
}

TEST_F( Program, goesOnBehindOddDigits ) {
   std::string const path = file( "a", "012\n" + requestHex + "\n" );
   EXPECT_EQ( run( "$lspping decode --hex " + path ), 1 );
   EXPECT_EQ( err(), "lspping: " + path +
                        ": packet 1, line 1, column 3: a byte needs two hexadecimal digits\n" );
   EXPECT_EQ( out(), "2" + decodedRequest.substr( 1 ) );
}

TEST_F( Program, goesOnBehindFilesThatFail ) {
   std::string const path = file( "a", requestHex + "\n" );
   EXPECT_EQ( run( "$lspping decode --hex /nonexistent / " + path ), 3 );
   EXPECT_EQ( err(), "lspping: /nonexistent: No such file or directory\n"
                     "lspping: /: Is a directory\n" );
   EXPECT_EQ( out(), decodedRequest );
}

TEST_F( Program, endsWithTheHighestStatus ) {
   std::string const bad = file( "a", "0\n" );
   EXPECT_EQ( run( "$lspping decode --hex /nonexistent " + bad ), 3 );
   EXPECT_EQ( run( "$lspping decode --hex " + bad + " /nonexistent" ), 3 );
}

// In a child that gives up its rights first: root reads everything.
TEST_F( Program, tellsAFileWithoutPermission ) {
   std::string const path = file( "a", requestHex + "\n" );
   ASSERT_EQ( ::chmod( path.c_str(), 0 ), 0 );
   EXPECT_EXIT(
      {
         if( ::geteuid() == 0 && ::seteuid( 65534 ) != 0 )
            std::abort();
         LspPingTool::DecodeOptions options;
         options.files = { path };
         options.isHex = true;
         // At once: a leak check would want the rights that were given up.
         LspPingTool::Output output;
         std::_Exit( LspPingTool::decode( options, output ) );
      },
      testing::ExitedWithCode( 3 ), "lspping: " + path + ": Permission denied\n" );
}

TEST_F( Program, failsOnWhatIsNoCapture ) {
   std::string const path = file( "a", "This is a letter, not a capture.\n" );
   EXPECT_EQ( run( "$lspping decode " + path ), 3 );
   EXPECT_THAT( err(), testing::StartsWith( "lspping: " + path + ": " ) );
   EXPECT_EQ( out(), "" );
}

TEST_F( Program, failsWhenItCannotWrite ) {
   std::string const path = file( "a", requestHex + "\n" );
   EXPECT_EQ( run( "$lspping decode --hex " + path + " >/dev/full" ), 3 );
   EXPECT_EQ( err(), "lspping: standard output: No space left on device\n" );
}

TEST_F( Program, endsQuietlyWhenNobodyReads ) {
   std::string lines;
   for( int i = 0; i < 20000; ++i )
      lines += requestHex + "\n";
   std::string const path = file( "a", lines );
   std::string const status = file( "status", "" );
   EXPECT_EQ( run( "{ $lspping decode --hex " + path + "; echo $? >" + status + "; } | head -n 1" ),
              0 );
   EXPECT_EQ( contentsOf( status ), "0\n" );
   EXPECT_EQ( err(), "" );
   EXPECT_EQ( std::count( out().begin(), out().end(), '\n' ), 1 );
}

TEST_F( Program, refusesWrongUsage ) {
   EXPECT_EQ( run( "$lspping" ), 2 );
   EXPECT_EQ( run( "$lspping decode" ), 2 );
   EXPECT_EQ( run( "$lspping decode --nonsense -" ), 2 );
   EXPECT_EQ( run( "$lspping nonsense" ), 2 );
   EXPECT_EQ( out(), "" );
   EXPECT_NE( err(), "" );
   EXPECT_EQ( run( "$lspping decode --help" ), 0 );
   EXPECT_EQ( err(), "" );
}

TEST_F( Program, hasNoColourInAFile ) {
   EXPECT_EQ( run( "echo 00 | $lspping decode --hex -" ), 1 );
   EXPECT_EQ( out().find( '\033' ), std::string::npos );
}

#ifdef LSPPING_CAPTURES
// Each capture once by its name and once through standard input.
class Captures : public Program {
 protected:
   void expectMessages( std::string const & name, std::ptrdiff_t count ) {
      std::string const path = LSPPING_CAPTURES "/" + name;

      ASSERT_EQ( run( "$lspping decode --json '" + path + "'" ), 0 );
      EXPECT_EQ( err(), "" );
      EXPECT_EQ( std::count( out().begin(), out().end(), '\n' ), count );
      std::istringstream lines( out() );
      for( std::string line; std::getline( lines, line ); )
         EXPECT_THAT( line, testing::EndsWith( R"("problems":[]})" ) );
      ASSERT_EQ( run( "$lspping decode '" + path + "'" ), 0 );
      std::string const named = out();
      ASSERT_EQ( run( "$lspping decode - <'" + path + "'" ), 0 );
      EXPECT_EQ( out(), named );
   }
};

TEST_F( Captures, haveAReplyWithoutTlvs ) {
   expectMessages( "tcpdump_lsp-ping-timestamp.pcap", 1 );
   EXPECT_EQ( out(), "1 2020-09-18T01:24:11.327631Z 30.0.0.2:3503 > 1.1.1.1:39381 LspPingHdr:"
                     "\tver(1),\tflag(0),\tmsgType(2),\treplyMode(2),\treturnCode(3),"
                     "\treturnSubcode(0),\tsenderHandle(0x0),\tseqNum(0x1),"
                     "\ttsSenSeconds(0xe30e8abb),\ttsSentmSeconds(0x53893faf),"
                     "\ttsRcvdSeconds(0xe30e8abb),\ttsRcvdmSeconds(0x53d8f0c7)\n" );
}

TEST_F( Captures, haveLdpFecs ) {
   expectMessages( "tcpdump_lspping-fec-ldp.pcap", 10 );
   EXPECT_THAT( out(), testing::HasSubstr( "\n      LdpIpv4( '12.1.1.1/32' )\n" ) );
}

TEST_F( Captures, haveRsvpFecs ) {
   expectMessages( "tcpdump_lspping-fec-rsvp.pcap", 10 );
   EXPECT_THAT( out(), testing::HasSubstr( "\n      RsvpIpv4:\tdestination(12.1.1.1),"
                                           "\ttunnelId(21362),\textendedTunnelId(12.4.4.4),"
                                           "\tsenderAddress(12.4.4.4),\tlspId(16)\n" ) );
}

TEST_F( Captures, haveVlansAndPads ) {
   expectMessages( "mpls_ospf.pcapng", 70 );
   EXPECT_THAT( out(), testing::HasSubstr( "\n   PadTlv( PadType: 2, Size: 48, Padding: 0x41 " ) );
}
#endif

} // namespace
