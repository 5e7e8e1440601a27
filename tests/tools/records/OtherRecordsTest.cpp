#include "tests/tools/records/RecordLines.h"
#include "tools/lspping/capture/CaptureReader.h"

#include <array>
#include <cstdio>

namespace {

Bytes const entries{ 0x18, 0x96, 0x0c, 255, 0, 1, 1, 64 };
std::string const stackText = "labelStack={100704/6/0/255, 16/0/1/64}, valid=true)\n";

TEST( IntfAndLabelStackRecords, areOfEveryAddressType ) {
   std::string const begin = "   LspPing::LspPingIntfAndLabelStackInfo(";
   EXPECT_EQ( recordLines( tlv( 7, Bytes{ 1, 0, 0, 0, 10, 0, 0, 9, 10, 0, 1, 2 } + entries ) ),
              begin + "addrType=1, addr=10.0.0.9, intfAddr=10.0.1.2, intfId=0, " + stackText );
   EXPECT_EQ( recordLines( tlv( 7, Bytes{ 2, 0, 0, 0, 10, 0, 0, 9, 0, 0, 0, 17 } + entries ) ),
              begin + "addrType=2, addr=10.0.0.9, intfAddr=none, intfId=17, " + stackText );
   EXPECT_EQ( recordLines( tlv( 7, Bytes{ 3, 0, 0, 0 } + v6 + v6 + entries ) ),
              begin + "addrType=3, addr=2001:db8::9, intfAddr=2001:db8::9, intfId=0, " +
                 stackText );
   EXPECT_EQ( recordLines( tlv( 7, Bytes{ 4, 0, 0, 0 } + v6 + Bytes{ 0, 0, 0, 18 } + entries ) ),
              begin + "addrType=4, addr=2001:db8::9, intfAddr=none, intfId=18, " + stackText );
}

TEST( IntfAndLabelStackRecords, keepNothingOfWhatIsNotWellFormed ) {
   Bytes const fixedPart{ 1, 0, 0, 0, 10, 0, 0, 9, 10, 0, 1, 2 };
   EXPECT_EQ( recordLines( tlv( 7, { 1, 0, 0, 0, 10, 0, 0, 9, 10, 0, 1 } ) ), "" );
   EXPECT_EQ( recordLines( tlv( 7, { 5, 0, 0, 0, 10, 0, 0, 9, 10, 0, 1, 2 } ) ), "" );
   EXPECT_EQ( recordLines( tlv( 7, fixedPart + Bytes{ 0x18, 0x96 } ) ), "" );
   EXPECT_EQ( recordLines( raw( 7, 16, fixedPart ) ), "" );
}

TEST( PadRecords, keepTypeBytesAndLength ) {
   EXPECT_EQ( recordLines( tlv( 3, { 2, 0xab, 0, 12 } ) ),
              "   LspPing::LspPingPadInfo(padType=2, padding={0: 171, 1: 0, 2: 12}, length=4, "
              "valid=true)\n" );
   EXPECT_EQ( recordLines( tlv( 3, { 1 } ) ),
              "   LspPing::LspPingPadInfo(padType=1, padding={}, length=1, valid=true)\n" );
}

TEST( PadRecords, keepNothingOfWhatIsNotWellFormed ) {
   EXPECT_EQ( recordLines( tlv( 3, { 3, 0 } ) ), "" );
   EXPECT_EQ( recordLines( tlv( 3, {} ) ), "" );
   EXPECT_EQ( recordLines( raw( 3, 8, { 1, 0, 0 } ) ), "" );
}

TEST( Records, standBehindTheElementsAndBeforeTheProblems ) {
   Decoded decoded( request + tlv( 3, { 1 } ) + tlv( 3, { 9 } ) );
   LspPingTool::TextPrinter printer( LspPingTool::TextPrinter::Colour::off,
                                     LspPingTool::ShowRecords::yes );
   printer.print( decoded.packet(), decoded.message() );
   std::string const text( printer.pending() );
   EXPECT_EQ( text.substr( text.find( '\n' ) + 1 ),
              "   PadTlv( PadType: 1, Size: 1, Padding: )\n"
              "   Invalid LspPingPadTlv\n"
              "      Bytes( 0003000109 )\n"
              "   LspPing::LspPingPadInfo(padType=1, padding={}, length=1, valid=true)\n"
              "   not in the records: offset 40: Pad: behind another one\n"
              "   ! offset 40: Pad: not valid\n" );
}

TEST( Records, areShownOnlyWhenAskedFor ) {
   Decoded const decoded( request + tlv( 1, ldp ) );
   EXPECT_THAT( decoded.text(), testing::Not( testing::HasSubstr( "LspPing::" ) ) );
   EXPECT_THAT( decoded.json(), testing::Not( testing::HasSubstr( "records" ) ) );
}

TEST( Records, areJson ) {
   EXPECT_EQ( recordsJson( {} ), "{}" );
   EXPECT_EQ(
      recordsJson( tlv( 1, ldp ) + tlv( 3, { 2, 7 } ) +
                   tlv( 7, Bytes{ 2, 0, 0, 0, 10, 0, 0, 9, 0, 0, 0, 17 } + entries ) ),
      R"({"fecStack":{"fecInfo":{"0":{"fecTlvType":"LDPIpv4","dstPrefix":"10.1.2.0/24","rd":0,)"
      R"("oamStandard":"ietf","algorithm":0,"mplsLabel":"none","rsvpSpGroupId":{"p2mpId":0,)"
      R"("tunnelId":0,"extendedTunnelId":"none","lspId":0,"subGroupOriginatorId":"none",)"
      R"("subGroupId":0},"rsvpSpId":{"tunnelEndPoint":"none","tunnelId":0,)"
      R"("extendedTunnelId":"none","lspId":0},"rsvpSenderAddr":"none","pwInfo":)"
      R"({"senderAddr":"none","receiverAddr":"none","pwId":0,"pwGenId":"agi 0: saii 0: taii 0:",)"
      R"("pwType":"0","controlWordPresent":false,"activeCcType":"none"},"opqType":"GenericLsp",)"
      R"("genericOpqVal":0,"sourceAddrOpqVal":"none","groupAddrOpqVal":"none","peerAddr":"none",)"
      R"("fecTlvLen":5,"igpProtocol":"isis"}}},"intfAndLabelStack":{"addrType":2,)"
      R"("addr":"10.0.0.9","intfAddr":"none","intfId":17,)"
      R"("labelStack":"{100704/6/0/255, 16/0/1/64}","valid":true},)"
      R"("pad":{"padType":2,"padding":{"0":7},"length":2,"valid":true}})" );
}

#ifdef LSPPING_AGENT_RECORDS
// Standard output of a command.
std::string outputOf( std::string const & command ) {
   std::string text;
   std::FILE * const pipe = ::popen( command.c_str(), "r" );
   if( pipe == nullptr )
      return "no pipe";
   std::array< char, 4096 > block;
   for( std::size_t size; ( size = std::fread( block.data(), 1, block.size(), pipe ) ) > 0; )
      text.append( block.data(), size );
   ::pclose( pipe );
   return text;
}

TEST( AgentRecords, printsTheRecordsThatTheToolPrints ) {
   Bytes const tlvs = tlv( 1, nil + ldp ) + tlv( 3, { 2, 7 } );
   std::string hex;
   for( U8 const byte : request + tlvs ) {
      std::array< char, 3 > digits;
      std::snprintf( digits.data(), digits.size(), "%02x", byte );
      hex += digits.data();
   }
   std::string const output = outputOf( LSPPING_AGENT_RECORDS " " + hex );
   std::string lines;
   std::string_view left = std::string_view( output ).substr( output.find( '\n' ) + 1 );
   for( ; !left.empty(); left.remove_prefix( left.find( '\n' ) + 1 ) )
      lines += "   " + std::string( left.substr( 0, left.find( '\n' ) + 1 ) );
   EXPECT_EQ( lines, recordLines( tlvs ) );
}

TEST( AgentRecords, printsWhatItsPageSays ) {
   std::string const output = outputOf( LSPPING_AGENT_RECORDS );
   ASSERT_THAT( output, testing::StartsWith( "LspPingHdr:" ) );
   std::string const page = outputOf( "cat '" LSPPING_AGENT_PAGE "'" );
   std::string_view left = output;
   for( ; !left.empty(); left.remove_prefix( left.find( '\n' ) + 1 ) ) {
      std::string const line( left.substr( 0, left.find( '\n' ) + 1 ) );
      EXPECT_THAT( page, testing::HasSubstr( "\n    " + line ) );
   }
}

TEST( AgentRecords, refusesWhatIsNoMessage ) {
   EXPECT_EQ( outputOf( LSPPING_AGENT_RECORDS " 0001 2>&1; echo $?" ),
              "agentRecords: no message of 32 bytes or more in hexadecimal\n1\n" );
   EXPECT_EQ( outputOf( LSPPING_AGENT_RECORDS " 0x 2>&1; echo $?" ),
              "agentRecords: no message of 32 bytes or more in hexadecimal\n1\n" );
}
#endif

#ifdef LSPPING_CAPTURES
// How many messages of a capture have each of the records.
struct Counts {
   int messages = 0;
   int fecStacks = 0;
   int mappings = 0;
   int interfaces = 0;
   int pads = 0;

   bool operator==( Counts const & ) const = default;
};
void PrintTo( Counts const & counts, std::ostream * out ) {
   *out << counts.messages << ' ' << counts.fecStacks << ' ' << counts.mappings << ' '
        << counts.interfaces << ' ' << counts.pads;
}

Counts countsOf( std::string const & capture ) {
   LspPingTool::CaptureReader reader( LSPPING_CAPTURES "/" + capture );
   LspPing::LspPingMessageReader messages;
   Counts counts;
   for( auto step = reader.next(); step != LspPingTool::EchoSource::Step::end;
        step = reader.next() ) {
      if( step != LspPingTool::EchoSource::Step::message )
         continue;
      LspPingTool::EchoPacket const & packet = reader.packet();
      LspPing::LspPingMessageRecords const records( messages.read( packet.payload ) );
      ++counts.messages;
      counts.fecStacks += records.fecStack.has_value();
      counts.mappings += records.downstreamMappings.has_value();
      counts.interfaces += records.intfAndLabelStack.has_value();
      counts.pads += records.pad.has_value();
   }
   return counts;
}

// Messages, FEC stacks, mappings, interfaces, pads.
TEST( Captures, giveTheRecordsOfTheirTlvs ) {
   EXPECT_EQ( countsOf( "mpls_ospf.pcapng" ), ( Counts{ 70, 70, 0, 0, 70 } ) );
   EXPECT_EQ( countsOf( "tcpdump_lsp-ping-timestamp.pcap" ), ( Counts{ 1, 0, 0, 0, 0 } ) );
   EXPECT_EQ( countsOf( "tcpdump_lspping-fec-ldp.pcap" ), ( Counts{ 10, 5, 0, 0, 0 } ) );
   EXPECT_EQ( countsOf( "tcpdump_lspping-fec-rsvp.pcap" ), ( Counts{ 10, 5, 0, 0, 0 } ) );
}
#endif

} // namespace
