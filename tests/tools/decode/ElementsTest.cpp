#include "tests/tools/decode/Build.h"

namespace {

TEST( Elements, showTheDetailedMappingOfEveryAddressType ) {
   Bytes const v6{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 };
   Bytes const tail{ 8, 1, 0, 0 };
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1 } + tail ) ),
              "   DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: "
              "'10.0.0.1', RetCode: 8, RetSubCode: 1 )\n" );
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 2, 0, 10, 0, 0, 2, 0, 0, 0, 7 } + tail ) ),
              "   DDMAPUnnumberedTlv( Downstream Address: '10.0.0.2', Downstream Interface Index: "
              "7, RetCode: 8, RetSubCode: 1 )\n" );
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 3, 0 } + v6 + v6 + tail ) ),
              "   DDMAPV6Tlv( Downstream Address: '2001:db8::1', Downstream Interface Address: "
              "'2001:db8::1', RetCode: 8, RetSubCode: 1 )\n" );
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 4, 0 } + v6 + Bytes{ 0, 0, 0, 7 } + tail ) ),
              "   DDMAPV6UnnumberedTlv( Downstream Address: '2001:db8::1', Downstream Interface "
              "Index: 7, RetCode: 8, RetSubCode: 1 )\n" );
}

TEST( Elements, tellAnAddressTypeThatIsNotKnown ) {
   EXPECT_EQ( elementsOf( tlv( 20, { 5, 0xdc, 9, 0, 1, 2, 3, 4 } ) + tlv( 12, { 0, 0, 0, 9 } ) ),
              "   DdmapHdr( mtu: 1500, addrType: 9, dsFlags: 0 )\n"
              "      Bytes( 0014000805dc090001020304 )\n"
              "   EchoJitterTlv( jittertime(9) )\n"
              "   ! offset 32: DownstreamDetailedMapping: address type 9 is not known\n" );
}

// Each container has its own way with an address type that it does not know.
TEST( Elements, areAsValidAsTheirContainersSay ) {
   EXPECT_THAT(
      Decoded( request + tlv( 2, { 5, 0xdc, 9, 0 } ) ).json(),
      testing::HasSubstr( R"("type":"LspPing::LspPingDownstreamMappingHdr","valid":true)" ) );
   EXPECT_THAT(
      Decoded( request + tlv( 7, { 9, 0, 0, 0 } ) ).json(),
      testing::HasSubstr( R"("type":"LspPing::LspPingIntfAndLabelStackHdr","valid":false)" ) );
}

// RFC 6426 section 2.1.1: interfaces by their numbers, of the downstream node and of this one.
TEST( Elements, showMappingsWithoutIp ) {
   Decoded const detailed( request +
                           tlv( 20, { 5, 0xdc, 5, 0, 0, 0, 0, 7, 0, 0, 0, 8, 15, 1, 0, 0 } ) );
   EXPECT_EQ( detailed.elements(), "   DDMAPNonIpTlv( Ingress Interface: 7, Egress Interface: 8, "
                                   "RetCode: 15, RetSubCode: 1 )\n" );
   EXPECT_THAT( detailed.json(),
                testing::HasSubstr( R"("ingressIfNum":7,"egressIfNum":8,"retCode":15,)"
                                    R"("retSubcode":1,"subTlvLen":0,)" ) );
   EXPECT_EQ(
      elementsOf( tlv( 2, { 5, 0xdc, 5, 0, 0, 0, 0, 7, 0, 0, 0, 8, 0, 3, 0, 0, 0, 6, 0x41, 3 } ) ),
      "   DownstreamMappingNonIpTlv( Ingress Interface: 7, Egress Interface: 8, MultipathType: 0, "
      "DepthLimit: 3 )\n"
      "      Label( 100, TC: 0, S: 1, Protocol: dsInfoSignalingProtocolLdp )\n" );
   EXPECT_EQ( elementsOf( tlv( 20, { 5, 0xdc, 5, 0, 0, 0, 0, 7 } ) ),
              "   DownstreamDetailedMapping( Code: 20, Length: 8, Bytes: 0014000805dc050000000007 "
              ")\n"
              "   ! offset 32: DownstreamDetailedMapping: length 8 is too short, needed 16\n" );
}

TEST( Elements, showTheSubTlvsOfADetailedMapping ) {
   Bytes const multipath = tlv( 1, { 8, 0, 8, 0, 127, 2, 1, 0, 0x87, 0xff, 0x0f, 0xfc } );
   Bytes const labels = tlv( 2, { 0x18, 0x96, 0x0e, 3, 0, 6, 0x41, 9 } );
   Bytes const change = tlv( 3, Bytes{ 1, 1, 12, 0, 10, 0, 0, 9 } + ldp );
   Bytes const pop = tlv( 3, { 2, 0, 0, 0 } );
   Bytes const subTlvs = multipath + labels + change + pop;
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } +
                                      word( subTlvs.size() ) + subTlvs ) ),
              "   DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: "
              "'10.0.0.1', RetCode: 8, RetSubCode: 1 )\n"
              "      MultipathSubTlv( multipathType: 8, multipathLength: 8, mbz: 0 )\n"
              "         Multipath( maskedIpSetMultipath: 127.2.1.0, 127.2.1.5-127.2.1.15, "
              "127.2.1.20-127.2.1.29 )\n"
              "      LabelStack\n"
              "         Label( 100704, TC: 7, S: 0, Protocol: dsInfoSignalingProtocolLdp )\n"
              "         Label( 100, TC: 0, S: 1, Protocol: 9 )\n"
              "      FecStackChangeV4SubTlv( operType: 1, addrType: 1, fecTlvLen: 12, reserved: 0, "
              "peerAddr: '10.0.0.9' )\n"
              "         LdpIpv4( '10.1.2.0/24' )\n"
              "      FecStackChangeUnspecifiedSubTlv( operType: 2, addrType: 0, fecTlvLen: 0, "
              "reserved: 0 )\n" );
}

TEST( Elements, takeTheWholeStackInAStackChange ) {
   Bytes const change = tlv( 3, Bytes{ 1, 0, 16, 0 } + tlv( 1, ldp ) );
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } +
                                      word( change.size() ) + change ) ),
              "   DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: "
              "'10.0.0.1', RetCode: 8, RetSubCode: 1 )\n"
              "      FecStackChangeUnspecifiedSubTlv( operType: 1, addrType: 0, fecTlvLen: 16, "
              "reserved: 0 )\n"
              "         TargetFecStack\n"
              "            LdpIpv4( '10.1.2.0/24' )\n" );
}

std::string multipathOf( U8 type, Bytes const & information ) {
   Bytes const sub =
      tlv( 1, Bytes{ type } + word( information.size() ) + Bytes{ 0 } + information );
   std::string const all = elementsOf( tlv(
      20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } + word( sub.size() ) + sub ) );
   std::size_t const at = all.find( "         Multipath(" );
   return at == std::string::npos ? "" : all.substr( at );
}

TEST( Elements, showMultipathInformationByItsType ) {
   EXPECT_EQ( multipathOf( 0, {} ), "" );
   EXPECT_EQ( multipathOf( 2, { 127, 0, 0, 1, 127, 0, 0, 9 } ),
              "         Multipath( ipMultipath: 127.0.0.1, 127.0.0.9 )\n" );
   EXPECT_EQ( multipathOf( 4, { 127, 0, 0, 1, 127, 0, 0, 9 } ),
              "         Multipath( ipRangeMultipath: 127.0.0.1-127.0.0.9 )\n" );
   EXPECT_EQ( multipathOf( 9, { 0, 0, 4, 0x80, 0x50, 0, 0, 1 } ),
              "         Multipath( maskedLabelSetMultipath: 1153, 1155, 1183 )\n" );
   Bytes const mapped{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 127, 2, 1, 0 };
   EXPECT_EQ( multipathOf( 8, mapped + Bytes{ 0xc0, 0, 0, 0 } ),
              "         Multipath( maskedIpSetMultipath: ::ffff:127.2.1.0-::ffff:127.2.1.1 )\n" );
   EXPECT_EQ( multipathOf( 4, { 127, 0, 0, 1, 127, 0 } ),
              "         Multipath( ipRangeMultipath: 127.0.0.1 )\n"
              "   ! offset 60: MultipathData: multipath information of 6 bytes for type 4\n"
              "      Bytes( 7f0000017f00 )\n" );
}

// RFC 8012 section 6.
TEST( Elements, showThePartsOfMultipathInformation ) {
   Bytes const ip{ 2, 0, 8, 0, 127, 0, 0, 1, 127, 0, 0, 9 };
   Bytes const labels{ 9, 0, 8, 0, 0, 0, 4, 0x80, 0x50, 0, 0, 1 };
   Bytes const associated{ 0, 6, 0, 0, 0, 0, 16, 0x0f, 0xff, 0xff };
   EXPECT_EQ( multipathOf( 10, ip + labels + associated ),
              "         Multipath( ipAndLabelSetMultipath: IP( ipMultipath: 127.0.0.1, 127.0.0.9 "
              "), labels( maskedLabelSetMultipath: 1153, 1155, 1183 ), associated( 16, 1048575 ) "
              ")\n" );
   EXPECT_EQ( multipathOf( 10, Bytes( 12 ) ),
              "         Multipath( ipAndLabelSetMultipath: IP( noMultipath ), labels( noMultipath "
              "), associated( ) )\n" );
   // One in another is shown as bytes.
   EXPECT_EQ( multipathOf( 10, Bytes{ 10, 0, 4, 0, 10, 0, 0, 0 } ),
              "         Multipath( ipAndLabelSetMultipath: IP( ipAndLabelSetMultipath: 0a000000 ), "
              "labels( noMultipath ), associated( ) )\n"
              "   ! offset 60: MultipathData: multipath information of 8 bytes for type 10\n"
              "      Bytes( 0a0004000a000000 )\n" );
   Bytes const sub = tlv( 1, Bytes{ 10, 0, 34, 0 } + ip + labels + associated );
   EXPECT_THAT(
      Decoded( request + tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } +
                                     word( sub.size() ) + sub ) )
         .json(),
      testing::HasSubstr(
         R"("multipath":{"type":"ipAndLabelSetMultipath","ip":{"type":"ipMultipath",)"
         R"("addresses":["127.0.0.1","127.0.0.9"]},"labels":{"type":"maskedLabelSetMultipath",)"
         R"("base":1152,"mask":"50000001"},"associated":[16,1048575]})" ) );
}

TEST( Elements, tellMultipathInformationThatDoesNotFitItsType ) {
   auto const problemOf = []( U8 type, std::size_t length ) {
      std::string const all = multipathOf( type, Bytes( length, 1 ) );
      std::size_t const at = all.find( "!" );
      return at == std::string::npos ? "" : all.substr( at, all.find( '\n', at ) - at );
   };
   auto const told = []( U8 type, std::size_t length ) {
      return "! offset 60: MultipathData: multipath information of " + std::to_string( length ) +
             " bytes for type " + std::to_string( type );
   };
   EXPECT_EQ( problemOf( 0, 4 ),
              "! offset 60: MultipathData: no multipath, but information of 4 bytes" );
   EXPECT_EQ( problemOf( 2, 4 ), "" );
   EXPECT_EQ( problemOf( 2, 6 ), told( 2, 6 ) );
   EXPECT_EQ( problemOf( 4, 8 ), "" );
   EXPECT_EQ( problemOf( 4, 4 ), told( 4, 4 ) );
   EXPECT_EQ( problemOf( 8, 8 ), "" );
   EXPECT_EQ( problemOf( 8, 4 ), told( 8, 4 ) );
   EXPECT_EQ( problemOf( 8, 9 ), told( 8, 9 ) );
   EXPECT_EQ( problemOf( 9, 8 ), "" );
   EXPECT_EQ( problemOf( 9, 4 ), told( 9, 4 ) );
   EXPECT_EQ( problemOf( 9, 6 ), told( 9, 6 ) );
}

TEST( Elements, showTheOldMappingWithItsLabels ) {
   EXPECT_EQ( elementsOf( tlv( 2, { 5, 0xdc, 1,   0, 10, 0, 0, 2, 10,   0, 0, 1, 2,    0,
                                    0, 4,    127, 0, 0,  1, 0, 6, 0x41, 3, 0, 0, 0x31, 4 } ) ),
              "   DownstreamMappingIpv4Tlv( mtu: 1500, addrType: 1, dsFlags: 0, dsIpAddr: "
              "'10.0.0.2', dsIntfAddr: '10.0.0.1', multipathType: 2, depthLimit: 0, "
              "multipathLength: 4 )\n"
              "      Multipath( ipMultipath: 127.0.0.1 )\n"
              "      Label( 100, TC: 0, S: 1, Protocol: dsInfoSignalingProtocolLdp )\n"
              "      Label( 3, TC: 0, S: 1, Protocol: dsInfoSignalingProtocolRsvpTe )\n" );
}

TEST( Elements, showTheStackThatARequestCameWith ) {
   EXPECT_EQ(
      elementsOf( tlv( 7, { 2, 0, 0, 0, 10, 0, 0, 1, 0, 0, 1, 0, 0x18, 0x96, 0x0f, 0xff } ) ),
      "   IntfAndLabelStackIpv4UnnumberedTlv( addrType: 2, mbz0: 0, mbz1: 0, addr: "
      "'10.0.0.1', intfId: 256 )\n"
      "      Label( 100704, TC: 7, S: 1, TTL: 255 )\n" );
}

TEST( Elements, showMultipointFecsWithTheirOpaqueValue ) {
   Bytes const root{ 0, 1, 4, 10, 0, 0, 1 };
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 19, root + word( 7 ) + Bytes{ 1, 0, 4, 0, 0, 0, 7 } ) ) ),
              "   TargetFecStack\n"
              "      P2mpFecStackSubTlv( RootAddr: '10.0.0.1' )\n"
              "         OpaqueValGenSubTlv( lspId: 7 )\n" );
   EXPECT_EQ( elementsOf( tlv(
                 1, tlv( 19, root + word( 11 ) + Bytes{ 3, 0, 8, 10, 0, 0, 5, 232, 0, 0, 1 } ) ) ),
              "   TargetFecStack\n"
              "      P2mpFecStackSubTlv( RootAddr: '10.0.0.1' )\n"
              "         OpaqueValSGSubTlv( SourceAddr: '10.0.0.5' GroupAddr: '232.0.0.1' )\n" );
}

TEST( Elements, showAResponderByItsViewOrByItsSubTlv ) {
   EXPECT_EQ( elementsOf( tlv( 11, tlv( 3, { 10, 0, 0, 1 } ) ) ),
              "   NodeAddr( Addr: '10.0.0.1' )\n" );
   EXPECT_EQ( elementsOf( tlv( 11, tlv( 1, { 10, 0, 0, 1 } ) ) ),
              "   P2mpRespId\n"
              "      ResponderEgressIpv4( '10.0.0.1' )\n" );
}

TEST( Elements, showSubTlvsOfOurVendorOnly ) {
   Bytes const label = tlv( 1, { 0, 2, 0x80, 0 } );
   EXPECT_EQ( elementsOf( tlv( 65261, Bytes{ 0, 0, 0x7e, 0xd9 } + label ) ),
              "   VeloraVendorPrivate()\n"
              "      MultiLabel( LookupLabelCount: 2, Flags: 32768 )\n" );
   EXPECT_EQ( elementsOf( tlv( 65261, { 0, 0, 0, 9, 1, 2 } ) ),
              "   VendorPrivate( enterprise: 9, data: 0102 )\n" );
   // What looks like one of ours is not taken for it.
   EXPECT_EQ( elementsOf( tlv( 65261, Bytes{ 0, 0, 0, 9 } + label ) ),
              "   VendorPrivate( enterprise: 9, data: 0001000400028000 )\n" );
}

// The generalized FEC is read as far as its length says: never beyond the bytes that are there.
TEST( Elements, showPseudowires ) {
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 10, { 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 7, 0, 5 } ) ) ),
              "   TargetFecStack\n"
              "      Fec128Ipv4:\tsender(10.0.0.1),\treceiver(10.0.0.2),\tpwId(7),\tpwType(5)\n" );
   Bytes const value{ 10, 0, 0, 1, 10, 0, 0, 2, 0, 5, 1, 0, 1, 4, 0, 0, 0, 1, 1, 0 };
   std::string const whole = elementsOf( tlv( 1, tlv( 11, value ) ) );
   EXPECT_THAT( whole,
                testing::StartsWith( "   TargetFecStack\n      Fec129Ipv4:\tsender(10.0.0.1),"
                                     "\treceiver(10.0.0.2),\tpwType(5),\tpwGenId(" ) );
   EXPECT_EQ( std::count( whole.begin(), whole.end(), '\n' ), 2 );
   Bytes const cut( value.begin(), value.end() - 4 );
   EXPECT_EQ( elementsOf( tlv( 1, raw( 11, 20, cut ) ) ),
              "   TargetFecStack\n"
              "      FEC129Pseudowire( Code: 11, Length: 20, Bytes: "
              "000b00140a0000010a0000020005010001040000 )\n"
              "   ! offset 36: FEC129Pseudowire: length 20 needs 24 bytes, had 20\n" );
}

// Address type 4 is IPv6 for its multipath information too.
TEST( Elements, takeTheFamilyOfAMappingForItsMultipathInformation ) {
   Bytes const v6{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 };
   Bytes const six = tlv( 1, Bytes{ 2 } + word( 16 ) + Bytes{ 0 } + v6 );
   Bytes const four = tlv( 1, Bytes{ 2 } + word( 16 ) + Bytes{ 0 } +
                                 Bytes{ 127, 0, 0, 1, 127, 0, 0, 2, 127, 0, 0, 3, 127, 0, 0, 4 } );
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 4, 0 } + v6 + Bytes{ 0, 0, 0, 7, 8, 1 } +
                                      word( six.size() + four.size() ) + six + four ) ),
              "   DDMAPV6UnnumberedTlv( Downstream Address: '2001:db8::1', Downstream Interface "
              "Index: 7, RetCode: 8, RetSubCode: 1 )\n"
              "      MultipathSubTlv( multipathType: 2, multipathLength: 16, mbz: 0 )\n"
              "         Multipath( ipMultipath: 2001:db8::1 )\n"
              "      MultipathSubTlv( multipathType: 2, multipathLength: 16, mbz: 0 )\n"
              "         Multipath( ipMultipath: 127.0.0.1, 127.0.0.2, 127.0.0.3, 127.0.0.4 )\n" );
}

// The old mapping has its address type at the same place.
TEST( Elements, takeTheFamilyOfAnOldMappingForItsMultipathInformation ) {
   Bytes const v6{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 };
   Bytes const list = Bytes{ 2, 0, 0, 16 } + v6;
   EXPECT_THAT( elementsOf( tlv( 2, Bytes{ 5, 0xdc, 4, 0 } + v6 + Bytes{ 0, 0, 0, 7 } + list ) ),
                testing::HasSubstr( "Multipath( ipMultipath: 2001:db8::1 )\n" ) );
   EXPECT_THAT( elementsOf( tlv( 2, Bytes{ 5, 0xdc, 3, 0 } + v6 + v6 + list ) ),
                testing::HasSubstr( "Multipath( ipMultipath: 2001:db8::1 )\n" ) );
   EXPECT_THAT( elementsOf( tlv( 2, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1 } + list ) ),
                testing::HasSubstr( "Multipath( ipMultipath: 32.1.13.184, 0.0.0.0, 0.0.0.0, "
                                    "0.0.0.1 )\n" ) );
}

} // namespace
