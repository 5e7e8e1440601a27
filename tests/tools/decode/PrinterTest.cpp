#include "tests/tools/decode/Build.h"

#include "MplsUtils/LspPing/platform/base/Integers.h"

namespace {

Bytes const source{ 10, 0, 0, 1 };
Bytes const destination{ 127, 0, 0, 1 };

Decoded requestOnTheWire() {
   Decoded decoded( request + tlv( 1, ldp ) + tlv( 99, { 0xab } ) );
   LspPingTool::EchoPacket & packet = decoded.packet();
   packet.number = 17;
   packet.time = LspPingTool::TimeStamp{ 1769860800, 1000 };
   packet.source = source;
   packet.destination = destination;
   packet.sourcePort = 4529;
   packet.destinationPort = 3503;
   packet.labels = { { 100704, 7, true, 255 } };
   return decoded;
}

TEST( TextPrinter, printsARequest ) {
   EXPECT_EQ( requestOnTheWire().text(),
              "17 2026-01-31T12:00:00.000001Z 10.0.0.1:4529 > 127.0.0.1:3503 [100704 tc 7 s 1 ttl "
              "255] LspPingHdr:\tver(1),\tflag(0),\tmsgType(1),\treplyMode(2),\treturnCode(0),"
              "\treturnSubcode(0),\tsenderHandle(0x1234),\tseqNum(0x1),\ttsSenSeconds(0x0),"
              "\ttsSentmSeconds(0x0),\ttsRcvdSeconds(0x0),\ttsRcvdmSeconds(0x0)\n"
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   99( Code: 99, Length: 1, Bytes: 00630001ab )\n" );
}

TEST( TextPrinter, printsAddressesOfIpv6InBrackets ) {
   Bytes const v6{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 };
   Decoded decoded = Decoded( Bytes{ 0 } );
   decoded.packet().source = v6;
   decoded.packet().destination = v6;
   decoded.packet().sourcePort = 3503;
   decoded.packet().destinationPort = 1;
   EXPECT_EQ( decoded.text(), "1 [2001:db8::1]:3503 > [2001:db8::1]:1 no LspPingHdr( Bytes: 00 )\n"
                              "   ! offset 0: header: needed 32 bytes, had 1\n" );
}

TEST( TextPrinter, printsNanosecondsWhereThereAre ) {
   Decoded decoded = Decoded( request );
   decoded.packet().time = LspPingTool::TimeStamp{ 951782400, 999999999 };
   EXPECT_EQ( decoded.text().substr( 0, 33 ), "1 2000-02-29T00:00:00.999999999Z " );
}

TEST( TextPrinter, printsTheSourcesProblemsAndTheMessages ) {
   Decoded decoded = Decoded( Bytes{ 0 } );
   decoded.packet().problems.push_back( { 1, "cut" } );
   EXPECT_EQ( decoded.text(), "1 no LspPingHdr( Bytes: 00 )\n"
                              "   ! offset 1: cut\n"
                              "   ! offset 0: header: needed 32 bytes, had 1\n" );
}

TEST( TextPrinter, colours ) {
   LspPingTool::TextPrinter printer( LspPingTool::TextPrinter::Colour::on );
   LspPingTool::EchoPacket packet;
   LspPing::LspPingMessageReader reader;
   LspPing::LspPingMessage const & message = reader.read( {} );
   printer.print( packet, message );
   EXPECT_EQ( printer.pending(), "\033[1m0 no LspPingHdr( Bytes:  )\033[0m\n"
                                 "   \033[31m! offset 0: header: needed 32 bytes, had 0\033[0m\n" );
}

std::string const headerText =
   R"x("LspPingHdr:\tver(1),\tflag(0),\tmsgType(1),\treplyMode(2),\treturnCode(0),\treturnSubcode(0),)x"
   R"x(\tsenderHandle(0x1234),\tseqNum(0x1),\ttsSenSeconds(0x0),\ttsSentmSeconds(0x0),)x"
   R"x(\ttsRcvdSeconds(0x0),\ttsRcvdmSeconds(0x0)")x";

std::string const header =
   R"x("message":{"type":"LspPing::LspPingHdr","offset":0,"length":32,"valid":true,"text":)x" +
   headerText +
   R"x(,"attributes":{"versionNbo":256,"globalFlagsNbo":0,"messageType":1,"replyMode":2,)x"
   R"x("returnCode":0,"returnSubcode":0,"senderHandleNbo":873594880,"sequenceNumberNbo":16777216,)x"
   R"x("tsSentSecondsNbo":0,"tsSentmSecondsNbo":0,"tsRcvdSecondsNbo":0,"tsRcvdmSecondsNbo":0,)x"
   R"x("version":1,"globalFlags":0,"senderHandle":4660,"sequenceNumber":1,"tsSentSeconds":0,)x"
   R"x("tsSentmSeconds":0,"tsRcvdSeconds":0,"tsRcvdmSeconds":0,"valid":true,"stringValue":)x" +
   headerText + "}}";

TEST( JsonPrinter, printsARequest ) {
   EXPECT_EQ(
      requestOnTheWire().json(),
      R"x({"packet":17,"time":"2026-01-31T12:00:00.000001Z","src":"10.0.0.1","dst":"127.0.0.1",)x"
      R"x("srcPort":4529,"dstPort":3503,"labels":[{"label":100704,"tc":7,"bos":true,"ttl":255}],)x" +
         header +
         R"x(,"tlvs":[{"code":1,"name":"TargetFecStack","offset":32,"length":12,"totalLength":16,)x"
         R"x("subTlvs":[{"code":1,"name":"LDPIpv4","offset":36,"length":5,"totalLength":12,)x"
         R"x("type":"LspPing::LspPingLdpIpv4SubTlv","valid":true,"text":"LdpIpv4( '10.1.2.0/24' )",)x"
         R"x("attributes":{"typeNbo":256,"lengthNbo":1280,"type":1,"length":5,"totalLength":12,)x"
         R"x("ipPrefix":"10.1.2.0","prefixLen":24,"mbz0":0,"mbz1":0,"valid":true,)x"
         R"x("stringValue":"LdpIpv4( '10.1.2.0/24' )"}}]},)x"
         R"x({"code":99,"name":"99","offset":48,"length":1,"totalLength":8,"hex":"00630001ab"}],)x"
         R"x("problems":[]})x"
         "\n" );
}

TEST( JsonPrinter, printsWhatIsNotThereAsNull ) {
   EXPECT_EQ( Decoded( Bytes{ 0, 1 } ).json(),
              R"x({"packet":1,"time":null,"src":null,"dst":null,"srcPort":null,"dstPort":null,)x"
              R"x("labels":[],"message":{"offset":0,"length":2,"hex":"0001"},"tlvs":[],)x"
              R"x("problems":[{"offset":0,"problem":"header: needed 32 bytes, had 2"}]})x"
              "\n" );
}

TEST( JsonPrinter, printsTheLabelsAndAddressesOfAReply ) {
   Bytes reply = request;
   reply[4] = 2;
   Bytes const subTlvs =
      tlv( 1, { 8, 0, 8, 0, 127, 2, 1, 0, 0x87, 0xff, 0x0f, 0xfc } ) + tlv( 2, { 0, 6, 0x41, 3 } );
   std::string const line =
      Decoded( reply + tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } +
                                   word( subTlvs.size() ) + subTlvs ) )
         .json();
   std::size_t const at = line.find( R"x("tlvs":)x" );
   EXPECT_EQ(
      line.substr( at ),
      R"x("tlvs":[{"code":20,"name":"DownstreamDetailedMapping","offset":32,"length":40,)x"
      R"x("totalLength":44,"type":"LspPing::LspPingDdmapTlv","valid":true,)x"
      R"x("text":"DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: )x"
      R"x('10.0.0.1', RetCode: 8, RetSubCode: 1 )","attributes":{"typeNbo":5120,"lengthNbo":10240,)x"
      R"x("type":20,"length":40,"totalLength":44,"mtu":1500,"addrType":1,"dsFlags":0,)x"
      R"x("dsIpAddr":"10.0.0.2","dsIntfAddr":"10.0.0.1","retCode":8,"retSubcode":1,)x"
      R"x("subTlvLen":24,"valid":true,"stringValue":"DDMAPTlv( Downstream Address: '10.0.0.2', )x"
      R"x(Downstream Interface Address: '10.0.0.1', RetCode: 8, RetSubCode: 1 )"},)x"
      R"x("subTlvs":[{"code":1,"name":"MultipathData","offset":52,"length":12,"totalLength":16,)x"
      R"x("type":"LspPing::LspPingMultipathSubTlv","valid":true,)x"
      R"x("text":"MultipathSubTlv( multipathType: 8, multipathLength: 8, mbz: 0 )",)x"
      R"x("attributes":{"typeNbo":256,"lengthNbo":3072,"type":1,"length":12,"totalLength":16,)x"
      R"x("multipathType":8,"multipathLength":8,"mbz":0,"valid":true},)x"
      R"x("multipath":{"type":"maskedIpSetMultipath","base":"127.2.1.0","mask":"87ff0ffc"}},)x"
      R"x({"code":2,"name":"LabelStack","offset":68,"length":4,"totalLength":8,)x"
      R"x("type":"LspPing::LspPingLabelStackSubTlv","valid":true,"text":"LabelStack",)x"
      R"x("attributes":{"typeNbo":512,"lengthNbo":1024,"type":2,"length":4,"totalLength":8,)x"
      R"x("valid":true,"stringValue":"LabelStack"},)x"
      R"x("labels":[{"label":100,"tc":0,"bos":true,"protocol":"dsInfoSignalingProtocolLdp"}]}]}],)x"
      R"x("problems":[]})x"
      "\n" );
}

} // namespace
