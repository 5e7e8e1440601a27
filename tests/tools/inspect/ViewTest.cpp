#include "tests/tools/inspect/Run.h"

#include <gtest/gtest.h>

namespace {

using InspectTest::Ran;

Ran view( std::vector< std::string > arguments, bool json = true, std::string const & input = "" ) {
   return InspectTest::run( &LspPingTool::runView, std::move( arguments ), json, input );
}

std::string zeros( std::size_t bytes ) {
   return std::string( 2 * bytes, '0' );
}

TEST( View, showsEveryReadableAttributeAndTheBytes ) {
   Ran const ran = view( { "LspPing::LspPingTlvHdr", "00010005" } );
   EXPECT_EQ( ran.out, R"j({"type":"LspPing::LspPingTlvHdr","attributes":{"typeNbo":256,)j"
                       R"j("lengthNbo":1280,"type":1,"length":5,"totalLength":12},"writes":[],)j"
                       R"j("hex":"00010005"})j"
                       "\n" );
   EXPECT_EQ( ran.status, 0 );
   EXPECT_EQ( ran.err, "" );
}

TEST( View, takesTypesWithoutTheirNamespaceAndBytesInAnyDress ) {
   Ran const expected = view( { "LspPing::LspPingTlvHdr", "0001feed" } );
   EXPECT_EQ( view( { "LspPingTlvHdr", "0001FEED" } ).out, expected.out );
   EXPECT_EQ( view( { "LspPingTlvHdr", "00:01:fe:ed" } ).out, expected.out );
   EXPECT_EQ( view( { "LspPingTlvHdr", " 00 01-Fe eD " } ).out, expected.out );
}

TEST( View, writesInOrderAndReportsEachOutcome ) {
   Ran const ran = view( { "LspPingTlvHdr", "00010005", "length=7", "nothing=1", "totalLength=3",
                           "length=8", "typeNbo=513" } );
   EXPECT_EQ(
      ran.out,
      R"j({"type":"LspPing::LspPingTlvHdr","attributes":{"typeNbo":513,"lengthNbo":2048,)j"
      R"j("type":258,"length":8,"totalLength":12},"writes":[{"name":"length","outcome":0},)j"
      R"j({"name":"nothing","outcome":2},{"name":"totalLength","outcome":1},)j"
      R"j({"name":"length","outcome":0},{"name":"typeNbo","outcome":0}],"hex":"01020008"})j"
      "\n" );
   EXPECT_EQ( ran.status, 0 );
}

TEST( View, showsInheritedAttributesFirst ) {
   Ran const ran = view( { "LspPingLdpIpv4SubTlv", "00010005"
                                                   "0a010200"
                                                   "18000000" } );
   EXPECT_EQ( ran.out,
              R"j({"type":"LspPing::LspPingLdpIpv4SubTlv","attributes":{"typeNbo":256,)j"
              R"j("lengthNbo":1280,"type":1,"length":5,"totalLength":12,"ipPrefix":"10.1.2.0",)j"
              R"j("prefixLen":24,"mbz0":0,"mbz1":0,"valid":true,)j"
              R"j("stringValue":"LdpIpv4( '10.1.2.0/24' )"},"writes":[],)j"
              R"j("hex":"000100050a01020018000000"})j"
              "\n" );
}

TEST( View, printsTextForPeople ) {
   Ran const ran = view( { "LspPingTlvU8Hdr", "030004", "length=6", "colour=red" }, false );
   EXPECT_EQ( ran.out, "LspPing::LspPingTlvU8Hdr\n"
                       "  type = 3\n"
                       "  length = 6\n"
                       "  totalLength = 12\n"
                       "writes\n"
                       "  length: done\n"
                       "  colour: no such attribute\n"
                       "bytes 030006\n" );
}

TEST( View, laysAViewAtAnOffset ) {
   Ran const ran = view( { "LspPingTlvU8Hdr@2", "ffff030004ff", "type=9" } );
   EXPECT_EQ( ran.out, R"j({"type":"LspPing::LspPingTlvU8Hdr","attributes":{"type":9,"length":4,)j"
                       R"j("totalLength":8},"writes":[{"name":"type","outcome":0}],)j"
                       R"j("hex":"ffff090004ff"})j"
                       "\n" );
}

TEST( View, buildsParsersInAPacketAndForwardsTheirViews ) {
   Ran const ran = view( { "LspPingEchoJitterTlvParser@3",
                           "a5a5a5"
                           "000c0004"
                           "000001f4"
                           "a5",
                           "jitter=1", "handleHeader=1" } );
   EXPECT_EQ( ran.out,
              R"j({"type":"LspPing::LspPingEchoJitterTlvParser","attributes":{"pkt":{"size":12},)j"
              R"j("offset":3,"header":{"typeNbo":3072,"lengthNbo":1024,"type":12,"length":4,)j"
              R"j("totalLength":8,"jitter":500,"valid":true,)j"
              R"j("stringValue":"EchoJitterTlv( jittertime(500) )"},"type":12,"length":4,)j"
              R"j("jitter":500,"valid":true,"totalLength":8,)j"
              R"j("stringValue":"EchoJitterTlv( jittertime(500) )"},)j"
              R"j("writes":[{"name":"jitter","outcome":1},{"name":"handleHeader","outcome":1}],)j"
              R"j("hex":"a5a5a5000c0004000001f4a5"})j"
              "\n" );
}

TEST( View, castsContainersAndLeavesOutWhatTheirStateForbids ) {
   Ran const empty = view( { "LspPingIntfAndLabelStackTlvContainer", "" } );
   EXPECT_EQ( empty.out,
              R"j({"type":"LspPing::LspPingIntfAndLabelStackTlvContainer","attributes":{)j"
              R"j("isIpv4":null,"getAddrType":null,"getAddr":null,"getIntfAddr":null,)j"
              R"j("getIntfId":null,"valid":false,"header":null,"ipv4Tlv":null,"ipv6Tlv":null,)j"
              R"j("ipv4UnnumberedTlv":null,"ipv6UnnumberedTlv":null},"writes":[],"hex":""})j"
              "\n" );
   Ran const cast = view( { "LspPingIntfAndLabelStackTlvContainer", "020000000a00000100000007",
                            "tryCastToTlv=1", "header=null" } );
   EXPECT_EQ( cast.out,
              R"j({"type":"LspPing::LspPingIntfAndLabelStackTlvContainer","attributes":{)j"
              R"j("isIpv4":null,"getAddrType":null,"getAddr":null,"getIntfAddr":null,)j"
              R"j("getIntfId":null,"valid":true,"header":null,"ipv4Tlv":null,"ipv6Tlv":null,)j"
              R"j("ipv4UnnumberedTlv":{"addrType":2,"mbz0":0,"mbz1":0,"addr":"10.0.0.1",)j"
              R"j("intfId":7},"ipv6UnnumberedTlv":null},)j"
              R"j("writes":[{"name":"tryCastToTlv","outcome":1},{"name":"header","outcome":0}],)j"
              R"j("hex":"020000000a00000100000007"})j"
              "\n" );
}

TEST( View, showsThePadTlvThatItsParserCopies ) {
   std::string const pad = "00030004"
                           "01ab000c";
   Ran const parser = view( { "LspPingPadTlvParser", pad, "padding[0]=1" } );
   EXPECT_NE( parser.out.find( R"j("padding":{"0":171,"1":0,"2":12},"valid":true,)j"
                               R"j("stringValue":"PadTlv( PadType: 1, Size: 4, Padding: )j"
                               R"j(0xAB 0x0 0xC )","totalLength":8},)j"
                               R"j("writes":[{"name":"padding[0]","outcome":1}])j" ),
              std::string::npos )
      << parser.out;
   Ran const object = view( { "LspPingPadTlv", pad, "padding[4]=9", "padType=2" } );
   EXPECT_NE( object.out.find( R"j("padType":2,"padding":{"0":171,"1":0,"2":12,"3":0,"4":9})j" ),
              std::string::npos )
      << object.out;
   EXPECT_EQ( view( { "LspPingPadTlvParser", "0003000501ab000c" } ).err,
              "lspping: LspPing::LspPingPadTlvParser needs 9 bytes, there are 8\n" );
   EXPECT_EQ( view( { "LspPingPadTlvParser@1", "ff0003000501" } ).err,
              "lspping: LspPing::LspPingPadTlvParser needs 9 bytes, there are 5\n" );
   EXPECT_EQ( view( { "LspPingPadTlvParser", "00030000" } ).err,
              "lspping: LspPing::LspPingPadTlvParser needs 5 bytes, there are 4\n" );
   EXPECT_EQ( view( { "LspPingPadTlv", "0003000501ab000c" } ).err,
              "lspping: LspPing::LspPingPadTlv needs 9 bytes, there are 8\n" );
   EXPECT_EQ( view( { "LspPingPadTlv", "0003000001" } ).status, 0 );
   // The writes change the copy, which has no bytes that could be too few.
   EXPECT_EQ( view( { "LspPingPadTlv", pad, "length=200" } ).status, 0 );
}

// What is behind the fixed part is read and written as far as the length tells; the setter's own
// check of the length would end the program.
TEST( View, writesThePseudowireIdentifiersWhereThereIsRoom ) {
   std::string const id = "pwGenId=agi 1:0a0b saii 2: taii 3:0c";
   std::string const head = "000b00140a0000010a0000020005";
   Ran const written = view( { "LspPingFec129Ipv4SubTlv", head + zeros( 10 ), id } );
   EXPECT_TRUE(
      written.out.ends_with( R"j("hex":"000b00140a0000010a000002000501020a0b020003010c00"})j"
                             "\n" ) )
      << written.out << written.err;
   Ran const tooShort =
      view( { "LspPingFec129Ipv4SubTlv", "000b0010" + head.substr( 8 ) + zeros( 10 ), id } );
   EXPECT_EQ( tooShort.status, 1 );
   EXPECT_TRUE( tooShort.err.ends_with( "needs 20 bytes of value, the length is 16\n" ) )
      << tooShort.err;
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", head + zeros( 9 ), id } ).status, 1 );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", head + zeros( 10 ), "length=24", id } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 28 bytes, there are 24\n" );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", head + zeros( 10 ),
                      "pwGenId=agi 1:0102030405060708+2 "
                      "saii 0: taii 0:" } )
                 .err,
              "lspping: pwGenId \"agi 1:0102030405060708+2 saii 0: taii 0:\": an identifier has 8 "
              "bytes\n" );
   // Only what is there at the end counts for the others.
   EXPECT_EQ(
      view( { "LspPingFec129Ipv4SubTlv", head + zeros( 10 ), "length=24", "length=20" } ).status,
      0 );
}

// What its length covers, a view reads; so it has to be there.
TEST( View, wantsAsManyBytesAsTheLengthTells ) {
   std::string const head = "000b00140a0000010a0000020005";
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", head + "01020a0b020003010c00" } ).status, 0 );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", head + "01020a0b020003010c" } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 24 bytes, there are 23\n" );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", head } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 24 bytes, there are 14\n" );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv@1", "ff" + head } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 24 bytes, there are 14\n" );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlvParser@1", "ff" + head } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlvParser needs 24 bytes, there are 14\n" );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", "000bffff" + head.substr( 8 ) } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 65539 bytes, there are 14\n" );
   EXPECT_EQ( view( { "-" }, true, "LspPingFec129Ipv4SubTlv " + head + "\n" ).out,
              R"j({"error":"LspPing::LspPingFec129Ipv4SubTlv needs 24 bytes, there are 14"})j"
              "\n" );
}

// A length that leaves no room for the identifiers covers none of them.
TEST( View, wantsNoMoreThanTheFixedPartForALengthWithoutIdentifiers ) {
   Ran const ran = view( { "LspPingFec129Ipv4SubTlv", "000b000f0a0000010a0000020005" } );
   EXPECT_EQ( ran.status, 0 );
   EXPECT_NE( ran.out.find( R"j("pwGenId":"agi 0: saii 0: taii 0:")j" ), std::string::npos )
      << ran.out << ran.err;
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", "000b00100a0000010a0000020005" } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 20 bytes, there are 14\n" );
}

TEST( View, wantsTheBytesOfALengthThatWasWritten ) {
   std::string const bytes = "000b00140a0000010a000002000501020a0b020003010c00";
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", bytes, "length=21" } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 25 bytes, there are 24\n" );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv", bytes, "length=65535", "length=20" } ).status, 0 );
   EXPECT_EQ( view( { "LspPingFec129Ipv4SubTlv@1", "ff" + bytes, "lengthNbo=65535" } ).err,
              "lspping: LspPing::LspPingFec129Ipv4SubTlv needs 65539 bytes, there are 24\n" );
}

TEST( View, wantsAsManyBytesAsTheViewHas ) {
   for( std::size_t bytes = 0; bytes < 32; ++bytes ) {
      Ran const ran = view( { "LspPingHdr", zeros( bytes ) } );
      EXPECT_EQ( ran.status, 1 );
      EXPECT_EQ( ran.out, "" );
      EXPECT_EQ( ran.err, "lspping: LspPing::LspPingHdr needs 32 bytes, there are " +
                             std::to_string( bytes ) + "\n" );
   }
   EXPECT_EQ( view( { "LspPingHdr", zeros( 32 ) } ).status, 0 );
   EXPECT_EQ( view( { "LspPingHdrParser@1", zeros( 32 ) } ).err,
              "lspping: LspPing::LspPingHdrParser needs 32 bytes, there are 31\n" );
   EXPECT_EQ( view( { "LspPingHdr@40", zeros( 32 ) } ).err,
              "lspping: offset 40 is behind the 32 bytes\n" );
}

TEST( View, namesAttributeAndValueThatDoNotFit ) {
   Ran const number = view( { "LspPingTlvHdr", "00010005", "length=65536" } );
   EXPECT_EQ( number.status, 1 );
   EXPECT_EQ( number.out, "" );
   EXPECT_TRUE( number.err.starts_with( "lspping: length \"65536\": " ) ) << number.err;
   Ran const address = view( { "LspPingLdpIpv4SubTlv", zeros( 12 ), "ipPrefix=10.0.0" } );
   EXPECT_TRUE( address.err.starts_with( "lspping: ipPrefix \"10.0.0\": " ) ) << address.err;
   EXPECT_EQ( view( { "LspPingTlvHdr", "00010005", "length[1]=5" } ).err,
              "lspping: length is no collection: NAME=VALUE\n" );
   EXPECT_EQ( view( { "LspPingTlvHdr", "00010005", "length=5 " } ).status, 0 );
   EXPECT_EQ( view( { "LspPingTlvHdr", "00010005", "length=5x" } ).status, 1 );
}

TEST( View, saysWhatIsWrongWithItsArguments ) {
   EXPECT_EQ( view( { "NoSuchType", "00" } ).status, 2 );
   EXPECT_EQ( view( { "NoSuchType", "00" } ).err,
              "lspping: no type \"NoSuchType\" is registered\n" );
   EXPECT_EQ( view( { "", "00" } ).status, 2 );
   EXPECT_EQ( view( { "LspPingHdr" } ).status, 2 );
   EXPECT_EQ( view( { "LspPingHdr@x", zeros( 32 ) } ).err, "lspping: \"x\" is no offset\n" );
   EXPECT_EQ( view( { "LspPingHdr@", zeros( 32 ) } ).status, 2 );
   EXPECT_EQ( view( { "LspPingHdr", zeros( 32 ), "version" } ).err,
              "lspping: \"version\" is no NAME=VALUE\n" );
   EXPECT_EQ( view( { "NtpTimeU64", zeros( 8 ) } ).err,
              "lspping: LspPing::NtpTimeU64 is no view, parser or container\n" );
   EXPECT_EQ( view( { "LspPingHdr", "0x00" } ).status, 1 );
   EXPECT_EQ( view( { "LspPingTlvHdr", "0001000" } ).err,
              "lspping: no byte of two hexadecimal digits at character 7 of the bytes\n" );
}

TEST( View, takesBlanksInTheLastArgumentOfALine ) {
   Ran const ran = view( { "-" }, false,
                         "LspPingFec129Ipv4SubTlv 000b0014 0a000001 0a000002 0005 0000000000"
                         "0000000000 pwGenId=agi 1:0a0b saii 2: taii 3:0c pwType=4\n" );
   EXPECT_TRUE( ran.out.ends_with( R"j("writes":[{"name":"pwGenId","outcome":0},)j"
                                   R"j({"name":"pwType","outcome":0}],)j"
                                   R"j("hex":"000b00140a0000010a000002000401020a0b020003010c00"})j"
                                   "\n" ) )
      << ran.out;
}

TEST( View, answersLineByLine ) {
   Ran const ran = view( { "-" }, false,
                         "LspPingTlvU8Hdr 030004\n"
                         "LspPingHdr 00\r\n"
                         "\n"
                         "  LspPingTlvU8Hdr@1   00030004 length=1\n"
                         "Nothing 00\n"
                         "LspPingTlvU8Hdr 030004" );
   EXPECT_EQ( ran.out,
              R"j({"type":"LspPing::LspPingTlvU8Hdr","attributes":{"type":3,"length":4,)j"
              R"j("totalLength":8},"writes":[],"hex":"030004"})j"
              "\n"
              R"j({"error":"LspPing::LspPingHdr needs 32 bytes, there are 1"})j"
              "\n"
              R"j({"error":"view wants TYPE[@OFFSET] HEX [NAME=VALUE]..."})j"
              "\n"
              R"j({"type":"LspPing::LspPingTlvU8Hdr","attributes":{"type":3,"length":1,)j"
              R"j("totalLength":4},"writes":[{"name":"length","outcome":0}],"hex":"00030001"})j"
              "\n"
              R"j({"error":"no type \"Nothing\" is registered"})j"
              "\n"
              R"j({"type":"LspPing::LspPingTlvU8Hdr","attributes":{"type":3,"length":4,)j"
              R"j("totalLength":8},"writes":[],"hex":"030004"})j"
              "\n" );
   EXPECT_EQ( ran.status, 1 );
   EXPECT_EQ( ran.err, "" );
}

} // namespace
