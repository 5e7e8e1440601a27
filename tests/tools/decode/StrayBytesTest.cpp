#include "tests/tools/decode/Build.h"

// Bytes that are part of nothing else are shown with the problem that speaks of them.
namespace {

TEST( StrayBytes, areShownBehindTheLastElement ) {
   Decoded const decoded( request + tlv( 1, ldp ) + Bytes{ 1, 2 } );
   EXPECT_EQ( decoded.elements(),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 48: 2 bytes left over after the last TLV: another needs 4\n"
              "      Bytes( 0102 )\n" );
   EXPECT_THAT( decoded.json(), testing::HasSubstr(
                                   R"("problems":[{"offset":48,"problem":"2 bytes left over after )"
                                   R"(the last TLV: another needs 4","hex":"0102"}])" ) );
}

TEST( StrayBytes, areNotShownWhereTheWordsSayThemAll ) {
   Decoded const decoded( request + tlv( 1, ldp ) + Bytes( 5, 0 ) );
   EXPECT_EQ( decoded.elements(),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 48: 5 bytes left over after the last TLV, all zero\n" );
}

TEST( StrayBytes, areShownBehindLabels ) {
   EXPECT_EQ( elementsOf( tlv(
                 7, { 1, 0, 0, 0, 10, 0, 0, 1, 10, 0, 0, 2, 0x18, 0x96, 0x0f, 1, 0xab, 0xcd } ) ),
              "   IntfAndLabelStackIpv4Tlv( addrType: 1, mbz0: 0, mbz1: 0, addr: '10.0.0.1', "
              "intf: '10.0.0.2' )\n"
              "      Label( 100704, TC: 7, S: 1, TTL: 1 )\n"
              "   ! offset 52: IntfAndLabelStack: 2 bytes left over\n"
              "      Bytes( abcd )\n" );
}

TEST( StrayBytes, areShownBehindTheSubTlvsOfAMapping ) {
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1, 0, 8 } +
                                      tlv( 2, { 0, 6, 0x41, 3 } ) + Bytes{ 0xab } ) ),
              "   DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: "
              "'10.0.0.1', RetCode: 8, RetSubCode: 1 )\n"
              "      LabelStack\n"
              "         Label( 100, TC: 0, S: 1, Protocol: dsInfoSignalingProtocolLdp )\n"
              "   ! offset 60: DownstreamDetailedMapping: 1 byte left over\n"
              "      Bytes( ab )\n" );
}

TEST( StrayBytes, areShownBehindAnOpaqueValue ) {
   EXPECT_EQ(
      elementsOf( tlv( 1, tlv( 19, { 0, 1, 4, 10, 0, 0, 1, 0, 7, 1, 0, 4, 0, 0, 0, 7, 0xab } ) ) ),
      "   TargetFecStack\n"
      "      P2mpFecStackSubTlv( RootAddr: '10.0.0.1' )\n"
      "         OpaqueValGenSubTlv( lspId: 7 )\n"
      "   ! offset 56: P2mpFec: 1 byte left over\n"
      "      Bytes( ab )\n" );
}

TEST( StrayBytes, areShownWhereAMappingIsShorterThanItsMultipathInformation ) {
   EXPECT_EQ(
      elementsOf( tlv( 2, { 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 2, 0, 0, 8, 127, 0, 0, 1 } ) ),
      "   DownstreamMappingIpv4Tlv( mtu: 1500, addrType: 1, dsFlags: 0, dsIpAddr: "
      "'10.0.0.2', dsIntfAddr: '10.0.0.1', multipathType: 2, depthLimit: 0, "
      "multipathLength: 8 )\n"
      "   ! offset 52: DownstreamMapping: multipath information of 8 bytes, had 4\n"
      "      Bytes( 7f000001 )\n" );
}

TEST( StrayBytes, areShownBelowTheDeepestNesting ) {
   Bytes nested = tlv( 12, { 0, 0, 0, 9 } );
   for( int i = 0; i < 9; ++i )
      nested = tlv( 9, nested );
   std::string const text = elementsOf( nested );
   EXPECT_THAT( text, testing::EndsWith( "   ! offset 68: nested too deeply: not decoded further\n"
                                         "      Bytes( 000c000400000009 )\n" ) );
   EXPECT_EQ( std::count( text.begin(), text.end(), 'E' ), 9 );
   // One level less is decoded.
   EXPECT_THAT( elementsOf( Bytes( nested.begin() + 4, nested.end() ) ),
                testing::EndsWith( "EchoJitterTlv( jittertime(9) )\n" ) );
}

} // namespace
