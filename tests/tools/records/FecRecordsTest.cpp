#include "tests/tools/records/RecordLines.h"

namespace {

Bytes stack( Bytes const & fecs ) {
   return tlv( 1, fecs );
}

std::string linesOfFec( std::size_t type, Bytes const & value ) {
   return recordLines( stack( tlv( type, value ) ) );
}

TEST( FecRecords, keepALdpPrefix ) {
   EXPECT_EQ(
      recordLines( stack( ldp ) ),
      "   LspPing::LspPingFecStack(fecInfo={0: LspPing::LspPingFecInfo(fecTlvType=LDPIpv4, "
      "dstPrefix=10.1.2.0/24, rd=0, oamStandard=ietf, algorithm=0, mplsLabel=none, "
      "rsvpSpGroupId=Rsvp::RsvpSpGroupId(p2mpId=0, tunnelId=0, extendedTunnelId=none, lspId=0, "
      "subGroupOriginatorId=none, subGroupId=0), rsvpSpId=Rsvp::RsvpSpId(tunnelEndPoint=none, "
      "tunnelId=0, extendedTunnelId=none, lspId=0), rsvpSenderAddr=none, "
      "pwInfo=LspPing::LspPingPwInfo(senderAddr=none, receiverAddr=none, pwId=0, "
      "pwGenId=agi 0: saii 0: taii 0:, pwType=0, controlWordPresent=false, activeCcType=none), "
      "opqType=GenericLsp, genericOpqVal=0, sourceAddrOpqVal=none, groupAddrOpqVal=none, "
      "peerAddr=none, fecTlvLen=5, igpProtocol=isis)})\n" );
   EXPECT_EQ( linesOfFec( 2, v6 + Bytes{ 128 } ),
              stackLine( { "fecTlvType=LDPIpv6", "dstPrefix=2001:db8::9/128", "fecTlvLen=17" } ) );
}

TEST( FecRecords, keepRsvpSessions ) {
   EXPECT_EQ( linesOfFec( 3, { 10, 0, 0, 9, 0, 0, 0, 7, 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 21 } ),
              stackLine( { "fecTlvType=RSVPIpv4Lsp",
                           "rsvpSpId=Rsvp::RsvpSpId(tunnelEndPoint=10.0.0.9, tunnelId=7, "
                           "extendedTunnelId=10.0.0.1, lspId=21)",
                           "rsvpSenderAddr=10.0.0.2", "fecTlvLen=20" } ) );
   EXPECT_EQ( linesOfFec( 17, { 0, 0, 1, 1, 0, 0, 0, 7, 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 21 } ),
              stackLine( { "fecTlvType=RSVPP2MPIpv4",
                           "rsvpSpGroupId=Rsvp::RsvpSpGroupId(p2mpId=257, tunnelId=7, "
                           "extendedTunnelId=10.0.0.1, lspId=21, subGroupOriginatorId=none, "
                           "subGroupId=0)",
                           "rsvpSenderAddr=10.0.0.2", "fecTlvLen=20" } ) );
   Bytes sender = v6;
   sender.back() = 2;
   Bytes extended = v6;
   extended.back() = 1;
   EXPECT_EQ( linesOfFec( 4, v6 + Bytes{ 0, 0, 0, 7 } + extended + sender + Bytes{ 0, 0, 0, 21 } ),
              stackLine( { "fecTlvType=RSVPIpv6Lsp",
                           "rsvpSpId=Rsvp::RsvpSpId(tunnelEndPoint=2001:db8::9, tunnelId=7, "
                           "extendedTunnelId=2001:db8::1, lspId=21)",
                           "rsvpSenderAddr=2001:db8::2", "fecTlvLen=56" } ) );
}

TEST( FecRecords, keepRouteDistinguishers ) {
   Bytes const rd{ 0, 0, 0, 100, 0, 0, 0, 1 };
   EXPECT_EQ( linesOfFec( 6, rd + Bytes{ 10, 4, 0, 0, 16 } ),
              stackLine( { "fecTlvType=VPNIpv4", "dstPrefix=10.4.0.0/16", "rd=429496729601",
                           "fecTlvLen=13" } ) );
   EXPECT_EQ( linesOfFec( 7, rd + v6 + Bytes{ 32 } ),
              stackLine( { "fecTlvType=VPNIpv6", "dstPrefix=2001:db8::9/32", "rd=429496729601",
                           "fecTlvLen=25" } ) );
   EXPECT_EQ( linesOfFec( 8, rd + Bytes{ 0, 1, 0, 2, 0, 5 } ),
              stackLine( { "fecTlvType=L2VPNEndpoint", "rd=429496729601", "pwType=ethernet",
                           "fecTlvLen=14" } ) );
}

TEST( FecRecords, keepPseudowires ) {
   EXPECT_EQ(
      linesOfFec( 10, { 10, 0, 0, 1, 10, 0, 0, 9, 0, 0, 1, 0, 0, 4 } ),
      stackLine( { "fecTlvType=FEC128Pseudowire", "senderAddr=10.0.0.1", "receiverAddr=10.0.0.9",
                   "pwId=256", "pwType=ethernetTagged", "fecTlvLen=14" } ) );
   EXPECT_EQ( linesOfFec( 11, { 10, 0, 0, 1, 10,   0,    0, 9, 0,    5,    1, 2,
                                1,  2, 1, 2, 0x20, 0x21, 1, 2, 0x30, 0x31, 0, 0 } ),
              stackLine( { "fecTlvType=FEC129Pseudowire", "senderAddr=10.0.0.1",
                           "receiverAddr=10.0.0.9", "pwGenId=agi 1:0102 saii 1:2021 taii 1:3031",
                           "pwType=ethernet", "fecTlvLen=24" } ) );
}

TEST( FecRecords, keepBgpAndGenericPrefixes ) {
   EXPECT_EQ(
      linesOfFec( 12, { 10, 5, 0, 0, 16 } ),
      stackLine( { "fecTlvType=BGPLabeledIpv4", "dstPrefix=10.5.0.0/16", "fecTlvLen=5" } ) );
   EXPECT_EQ(
      linesOfFec( 13, v6 + Bytes{ 64 } ),
      stackLine( { "fecTlvType=BGPLabeledIpv6", "dstPrefix=2001:db8::9/64", "fecTlvLen=17" } ) );
   EXPECT_EQ( linesOfFec( 14, { 10, 5, 0, 0, 16 } ),
              stackLine( { "fecTlvType=GenericIpv4", "dstPrefix=10.5.0.0/16", "fecTlvLen=5" } ) );
   EXPECT_EQ(
      linesOfFec( 15, v6 + Bytes{ 64 } ),
      stackLine( { "fecTlvType=GenericIpv6", "dstPrefix=2001:db8::9/64", "fecTlvLen=17" } ) );
}

TEST( FecRecords, keepLabels ) {
   EXPECT_EQ( linesOfFec( 16, { 0, 0, 0x30, 0 } ),
              stackLine( { "fecTlvType=NilFec", "mplsLabel=3", "fecTlvLen=4" } ) );
   EXPECT_EQ( linesOfFec( 33, { 0xff, 0xff, 0xff, 0xff } ),
              stackLine( { "fecTlvType=EntropyLabel", "mplsLabel=1048575", "fecTlvLen=4" } ) );
}

TEST( FecRecords, keepRootAndOpaqueValue ) {
   EXPECT_EQ( linesOfFec( 19, { 0, 1, 4, 10, 0, 0, 1, 0, 7, 1, 0, 4, 0, 0, 0x12, 0x67 } ),
              stackLine( { "fecTlvType=P2mpFec", "genericOpqVal=4711", "peerAddr=10.0.0.1",
                           "fecTlvLen=16" } ) );
   EXPECT_EQ(
      linesOfFec( 19,
                  Bytes{ 0, 2, 16 } + v6 + Bytes{ 0, 11, 3, 0, 8, 192, 0, 2, 17, 232, 1, 1, 1 } ),
      stackLine( { "fecTlvType=P2mpFec", "opqType=SGIpv4", "sourceAddrOpqVal=192.0.2.17",
                   "groupAddrOpqVal=232.1.1.1", "peerAddr=2001:db8::9", "fecTlvLen=32" } ) );
   // An opaque value of another kind has no attribute.
   EXPECT_EQ( linesOfFec( 19, { 0, 1, 4, 10, 0, 0, 1, 0, 4, 9, 0, 1, 0 } ), "" );
}

TEST( FecRecords, keepSegments ) {
   EXPECT_EQ( linesOfFec( 34, { 10, 0, 0, 9, 32, 1, 128, 0 } ),
              stackLine( { "fecTlvType=SRIpv4", "dstPrefix=10.0.0.9/32", "algorithm=128",
                           "fecTlvLen=8", "igpProtocol=ospf" } ) );
   EXPECT_EQ( linesOfFec( 35, v6 + Bytes{ 128, 0 } ),
              stackLine( { "fecTlvType=SRIpv6", "dstPrefix=2001:db8::9/128", "fecTlvLen=18",
                           "igpProtocol=0" } ) );
   EXPECT_EQ(
      linesOfFec( 31744, { 10, 0, 0, 9, 32, 2 } ),
      stackLine( { "fecTlvType=SRIpv4Deprecated", "dstPrefix=10.0.0.9/32", "fecTlvLen=6" } ) );
   EXPECT_EQ( linesOfFec( 31745, v6 + Bytes{ 128, 2, 1, 0 } ),
              stackLine( { "fecTlvType=SRIpv6Deprecated", "dstPrefix=2001:db8::9/128",
                           "algorithm=1", "fecTlvLen=20" } ) );
}

TEST( FecRecords, keepPositionsOfTheStack ) {
   Bytes const unknown = tlv( 99, { 1 } );
   Bytes const countsPadding = tlv( 1, { 10, 1, 2, 0, 24, 0, 0, 0 } );
   EXPECT_EQ( recordLines( stack( nil + unknown + countsPadding + ldp ) ),
              "   LspPing::LspPingFecStack(fecInfo={0: " +
                 fecText( { "fecTlvType=NilFec", "mplsLabel=3", "fecTlvLen=4" } ) + ", 3: " +
                 fecText( { "fecTlvType=LDPIpv4", "dstPrefix=10.1.2.0/24", "fecTlvLen=5" } ) +
                 "})\n" );
}

TEST( FecRecords, areOfTheFirstStackOnly ) {
   EXPECT_EQ( recordLines( stack( nil ) + stack( ldp ) ),
              stackLine( { "fecTlvType=NilFec", "mplsLabel=3", "fecTlvLen=4" } ) );
}

TEST( FecRecords, keepAFecWhosePaddingIsMissing ) {
   EXPECT_EQ( recordLines( raw( 1, 9, raw( 1, 5, { 10, 1, 2, 0, 24 } ) ) ),
              stackLine( { "fecTlvType=LDPIpv4", "dstPrefix=10.1.2.0/24", "fecTlvLen=5" } ) );
}

TEST( FecRecords, keepNothingOfWhatIsNotWellFormed ) {
   EXPECT_EQ( recordLines( {} ), "" );
   EXPECT_EQ( recordLines( stack( {} ) ), "" );
   EXPECT_EQ( linesOfFec( 1, { 10, 1, 2, 0, 33 } ), "" );
   EXPECT_EQ( linesOfFec( 2, v6 + Bytes{ 129 } ), "" );
   EXPECT_EQ( linesOfFec( 2, v6 + Bytes{ 128, 0 } ), "" );
   EXPECT_EQ( linesOfFec( 3, Bytes( 19, 0 ) ), "" );
   EXPECT_EQ( linesOfFec( 4, Bytes( 55, 0 ) ), "" );
   EXPECT_EQ( linesOfFec( 8, Bytes( 13, 0 ) ), "" );
   EXPECT_EQ( linesOfFec( 10, { 10, 0, 0, 1, 10, 0, 0, 9, 0, 0, 1, 0, 0, 1 } ), "" );
   EXPECT_EQ( linesOfFec( 19, { 0, 1, 4, 10, 0, 0, 1, 0, 8, 1, 0, 4, 0, 0, 0x12, 0x67 } ), "" );
   EXPECT_EQ( linesOfFec( 19, { 0, 1, 16, 10, 0, 0, 1, 0, 7, 1, 0, 4, 0, 0, 0x12, 0x67 } ), "" );
   EXPECT_EQ( linesOfFec( 34, { 10, 0, 0, 9, 33, 1, 0, 0 } ), "" );
   for( std::size_t length = 0; length < 16; ++length ) {
      Bytes root{ 0, 1, 4, 10, 0, 0, 1, 0, 7, 1, 0, 4, 0, 0, 0x12, 0x67 };
      root.resize( length );
      EXPECT_EQ( recordLines( raw( 1, 4 + length, raw( 19, length, root ) ) ), "" ) << length;
   }
   // Cut by the end of the message, which cuts the stack as well.
   EXPECT_EQ( recordLines( raw( 1, 24, ldp + raw( 16, 4, { 0, 0 } ) ) ), "" );
}

TEST( FecRecords, survivesEveryCutOfAStack ) {
   Bytes const whole = stack( ldp + nil );
   for( std::size_t size = 0; size < whole.size(); ++size )
      EXPECT_EQ( recordLines( Bytes( whole.begin(), whole.begin() + static_cast< int >( size ) ) ),
                 "" )
         << size;
}

} // namespace
