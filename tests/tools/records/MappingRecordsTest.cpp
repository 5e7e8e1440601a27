#include "tests/tools/records/RecordLines.h"

namespace {

std::string const noChange = "fecStackChangeInfo=LspPing::LspPingFecStackChangeInfo("
                             "popTlvInfo=LspPing::LspPingFecStack(fecInfo={}), "
                             "pushTlvInfo=LspPing::LspPingFecStack(fecInfo={})), ";
std::string const noBits = "dsMultipathBitset=LspPing::LspPingMultipathBitset(bitset={}, size=0), ";
std::string const noLabels =
   "labelStack=LspPing::LspPingDownstreamLabelStack(labelEntry={}, size=0), ";

std::string setLine( std::string const & mappings, std::string const & kind ) {
   return "   LspPing::LspPingDownstreamMappingInfoSet(lspPingDownstreamMappingInfo={" + mappings +
          "}, mappingTlv=" + kind + ")\n";
}

Bytes ddmap( U8 addrType, Bytes const & addresses, Bytes const & subTlvs ) {
   return tlv( 20, Bytes{ 0x05, 0xdc, addrType, 1 } + addresses + Bytes{ 8, 1 } +
                      word( subTlvs.size() ) + subTlvs );
}
Bytes dsmap( U8 addrType, Bytes const & addresses, Bytes const & behind ) {
   return tlv( 2, Bytes{ 0x05, 0xdc, addrType, 1 } + addresses + behind );
}

Bytes const v4Pair{ 10, 0, 0, 2, 10, 0, 0, 1 };
Bytes const v4AndIndex{ 10, 0, 0, 2, 0, 0, 0, 17 };
Bytes const v6AndIndex = v6 + Bytes{ 0, 0, 0, 18 };

// Label 100704, traffic class 0, bottom of the stack, LDP.
Bytes const label{ 0x18, 0x96, 0x01, 3 };

TEST( MappingRecords, keepADetailedMapping ) {
   Bytes const multipath = tlv( 1, { 8, 0, 8, 0, 127, 2, 1, 0, 0x07, 0xff, 0x0f, 0xfc } );
   Bytes const labels = tlv( 2, Bytes{ 0, 0x12, 0xc0, 2 } + label );
   EXPECT_EQ(
      recordLines( ddmap( 1, v4Pair, multipath + labels ) ),
      "   LspPing::LspPingDownstreamMappingInfoSet(lspPingDownstreamMappingInfo={0: "
      "LspPing::LspPingDownstreamMappingInfo(mtu=1500, addrType=1, dsFlags=1, dsIpAddr=10.0.0.2, "
      "dsIntfAddr=10.0.0.1, multipathType=8, depthLimit=0, dsMultipathBaseAddr=127.2.1.0, "
      "dsMultipathBitset=LspPing::LspPingMultipathBitset(bitset={0: 7, 1: 255, 2: 15, 3: 252}, "
      "size=4), labelStack=LspPing::LspPingDownstreamLabelStack(labelEntry={0: "
      "LspPing::LspPingDownstreamLabelEntry(v0=0, v1=18, v2=192, v3=2), 1: "
      "LspPing::LspPingDownstreamLabelEntry(v0=24, v1=150, v2=1, v3=3)}, size=2), "
      "fecStackChangeInfo=LspPing::LspPingFecStackChangeInfo(popTlvInfo=LspPing::LspPingFecStack("
      "fecInfo={}), pushTlvInfo=LspPing::LspPingFecStack(fecInfo={})), intf=none, "
      "retCode=labelSwitchedAtStackDep, retSubcode=1, valid=true)}, "
      "mappingTlv=downstreamDetailedMap)\n" );
}

// Of a mapping without multipath and labels.
std::string detailed( std::string const & addresses, std::string const & intf ) {
   return "0: LspPing::LspPingDownstreamMappingInfo(mtu=1500, " + addresses +
          ", multipathType=0, depthLimit=0, dsMultipathBaseAddr=none, " + noBits + noLabels +
          noChange + "intf=" + intf +
          ", retCode=labelSwitchedAtStackDep, retSubcode=1, valid=true)";
}

TEST( MappingRecords, keepDetailedMappingsOfEveryAddressType ) {
   EXPECT_EQ(
      recordLines( ddmap( 1, v4Pair, {} ) ),
      setLine( detailed( "addrType=1, dsFlags=1, dsIpAddr=10.0.0.2, dsIntfAddr=10.0.0.1", "none" ),
               "downstreamDetailedMap" ) );
   EXPECT_EQ(
      recordLines( ddmap( 2, v4AndIndex, {} ) ),
      setLine( detailed( "addrType=2, dsFlags=1, dsIpAddr=10.0.0.2, dsIntfAddr=none", "17" ),
               "downstreamDetailedMap" ) );
   EXPECT_EQ(
      recordLines( ddmap( 3, v6 + v6, {} ) ),
      setLine(
         detailed( "addrType=3, dsFlags=1, dsIpAddr=2001:db8::9, dsIntfAddr=2001:db8::9", "none" ),
         "downstreamDetailedMap" ) );
   EXPECT_EQ(
      recordLines( ddmap( 4, v6AndIndex, {} ) ),
      setLine( detailed( "addrType=4, dsFlags=1, dsIpAddr=2001:db8::9, dsIntfAddr=none", "18" ),
               "downstreamDetailedMap" ) );
}

std::string simple( std::string const & addresses, std::string const & intf ) {
   return "0: LspPing::LspPingDownstreamMappingInfo(mtu=1500, " + addresses +
          ", multipathType=2, depthLimit=9, dsMultipathBaseAddr=none, " + noBits +
          "labelStack=LspPing::LspPingDownstreamLabelStack(labelEntry={0: "
          "LspPing::LspPingDownstreamLabelEntry(v0=24, v1=150, v2=1, v3=3)}, size=1), " +
          noChange + "intf=" + intf + ", retCode=noRetCode, retSubcode=0, valid=true)";
}

TEST( MappingRecords, keepMappingsOfEveryAddressType ) {
   Bytes const behind = Bytes{ 2, 9, 0, 4, 127, 0, 0, 5 } + label;
   EXPECT_EQ(
      recordLines( dsmap( 1, v4Pair, behind ) ),
      setLine( simple( "addrType=1, dsFlags=1, dsIpAddr=10.0.0.2, dsIntfAddr=10.0.0.1", "none" ),
               "downstreamMap" ) );
   EXPECT_EQ( recordLines( dsmap( 2, v4AndIndex, behind ) ),
              setLine( simple( "addrType=2, dsFlags=1, dsIpAddr=10.0.0.2, dsIntfAddr=none", "17" ),
                       "downstreamMap" ) );
   EXPECT_EQ(
      recordLines( dsmap( 3, v6 + v6, behind ) ),
      setLine(
         simple( "addrType=3, dsFlags=1, dsIpAddr=2001:db8::9, dsIntfAddr=2001:db8::9", "none" ),
         "downstreamMap" ) );
   EXPECT_EQ(
      recordLines( dsmap( 4, v6AndIndex, behind ) ),
      setLine( simple( "addrType=4, dsFlags=1, dsIpAddr=2001:db8::9, dsIntfAddr=none", "18" ),
               "downstreamMap" ) );
}

TEST( MappingRecords, keepSetsOfMultipath ) {
   Bytes const mapped{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 127, 0, 0, 8 };
   std::string const v6Set =
      recordLines( dsmap( 3, v6 + v6, Bytes{ 8, 0, 0, 20 } + mapped + Bytes{ 0x80, 0, 0, 1 } ) );
   EXPECT_THAT( v6Set, testing::HasSubstr(
                          "multipathType=8, depthLimit=0, dsMultipathBaseAddr=::ffff:127.0.0.8, "
                          "dsMultipathBitset=LspPing::LspPingMultipathBitset(bitset={0: 128, 1: 0, "
                          "2: 0, 3: 1}, size=4)" ) );
   // A label as base has no attribute.
   std::string const labels =
      recordLines( dsmap( 1, v4Pair, { 9, 0, 0, 8, 0, 0, 0x10, 0, 0x80, 0, 0, 1 } ) );
   EXPECT_THAT( labels, testing::HasSubstr(
                           "multipathType=9, depthLimit=0, dsMultipathBaseAddr=none, "
                           "dsMultipathBitset=LspPing::LspPingMultipathBitset(bitset={0: 128, 1: "
                           "0, 2: 0, 3: 1}, size=4)" ) );
}

TEST( MappingRecords, keepChangesOfTheFecStack ) {
   Bytes const push = tlv( 3, Bytes{ 1, 0, 8, 0 } + nil );
   Bytes const pop = tlv( 3, Bytes{ 2, 1, 12, 0, 10, 0, 0, 7 } + ldp );
   // With the stack's TLV around it, and a peer of IPv6.
   Bytes const popStack = tlv( 3, Bytes{ 2, 2, 12, 0 } + v6 + tlv( 1, nil ) );
   std::string const nilText = fecText( { "fecTlvType=NilFec", "mplsLabel=3", "fecTlvLen=4" } );
   std::string const ldpText =
      fecText( { "fecTlvType=LDPIpv4", "dstPrefix=10.1.2.0/24", "fecTlvLen=5" } );
   EXPECT_THAT( recordLines( ddmap( 1, v4Pair, pop + push + popStack ) ),
                testing::HasSubstr( "fecStackChangeInfo=LspPing::LspPingFecStackChangeInfo("
                                    "popTlvInfo=LspPing::LspPingFecStack(fecInfo={0: " +
                                    ldpText + ", 1: " + nilText +
                                    "}), pushTlvInfo=LspPing::LspPingFecStack(fecInfo={0: " +
                                    nilText + "})), intf=none" ) );
}

TEST( MappingRecords, areNumberedAndOfOneKind ) {
   std::string const first =
      detailed( "addrType=1, dsFlags=1, dsIpAddr=10.0.0.2, dsIntfAddr=10.0.0.1", "none" );
   std::string second =
      detailed( "addrType=2, dsFlags=1, dsIpAddr=10.0.0.2, dsIntfAddr=none", "17" );
   second[0] = '1';
   EXPECT_EQ( recordLines( ddmap( 1, v4Pair, {} ) + dsmap( 1, v4Pair, { 0, 0, 0, 0 } ) +
                           ddmap( 2, v4AndIndex, {} ) ),
              setLine( first + ", " + second, "downstreamDetailedMap" ) );
}

TEST( MappingRecords, endAt256 ) {
   Bytes many;
   for( int count = 0; count < 300; ++count )
      many = many + ddmap( 1, v4Pair, {} );
   std::string const line = recordLines( many );
   EXPECT_THAT( line, testing::HasSubstr( ", 255: LspPing::LspPingDownstreamMappingInfo(" ) );
   EXPECT_THAT( line, testing::Not( testing::HasSubstr( "256: " ) ) );
}

// Nobody asks such a stack whether it is valid: it would never answer.
TEST( MappingRecords, keepLabelStacksWithoutAnEnd ) {
   Bytes const endless = ddmap( 1, v4Pair, tlv( 2, Bytes( 4 * 300, 0 ) ) );
   EXPECT_THAT( recordLines( endless ), testing::HasSubstr( ", size=300)" ) );
   EXPECT_THAT( recordsJson( endless ), testing::HasSubstr( R"("size":300,"valid":null})" ) );
}

TEST( MappingRecords, keepWhatIsWellFormedOfAMapping ) {
   std::string const bare =
      setLine( detailed( "addrType=1, dsFlags=1, dsIpAddr=10.0.0.2, dsIntfAddr=10.0.0.1", "none" ),
               "downstreamDetailedMap" );
   // A set without a mask, one longer than its sub-TLV, a piece of a label, changes of an unknown
   // kind, with an unknown peer, and with a FEC that is none.
   for( Bytes const & broken :
        { tlv( 1, { 8, 0, 4, 0, 127, 0, 0, 1 } ), tlv( 1, { 8, 0, 9, 0, 127, 0, 0, 1, 0xff } ),
          tlv( 1, { 0, 0, 4, 0, 127, 0, 0, 1 } ), tlv( 2, { 0x18, 0x96 } ),
          tlv( 3, Bytes{ 3, 0, 8, 0 } + nil ), tlv( 3, Bytes{ 1, 3, 8, 0 } + nil ),
          tlv( 3, Bytes{ 1, 0, 9, 0 } + nil ), tlv( 3, { 1, 0, 4, 0, 0, 99, 0, 0 } ),
          tlv( 9, { 1 } ) } )
      EXPECT_EQ( recordLines( ddmap( 1, v4Pair, broken ) ), bare )
         << testing::PrintToString( broken );
}

TEST( MappingRecords, keepNothingOfWhatIsNotWellFormed ) {
   EXPECT_EQ( recordLines( ddmap( 5, v4Pair, {} ) ), "" );
   EXPECT_EQ( recordLines( ddmap( 3, v4Pair, {} ) ), "" );
   EXPECT_EQ( recordLines( dsmap( 5, v4Pair, { 0, 0, 0, 0 } ) ), "" );
   EXPECT_EQ( recordLines( dsmap( 1, v4Pair, { 0, 0 } ) ), "" );
   EXPECT_EQ( recordLines( dsmap( 1, v4Pair, { 8, 0, 0, 12, 127, 0, 0, 1, 0xff, 0, 0, 0 } ) ), "" );
   EXPECT_EQ( recordLines( dsmap( 1, v4Pair, Bytes{ 0, 0, 0, 0 } + label + Bytes{ 0 } ) ), "" );
   Bytes const whole = dsmap( 1, v4Pair, Bytes{ 2, 9, 0, 4, 127, 0, 0, 5 } + label );
   for( std::size_t size = 0; size < whole.size(); ++size )
      EXPECT_EQ( recordLines( Bytes( whole.begin(), whole.begin() + static_cast< int >( size ) ) ),
                 "" )
         << size;
}

TEST( MappingRecords, areJson ) {
   EXPECT_EQ(
      recordsJson( dsmap( 1, v4Pair, Bytes{ 8, 9, 0, 8, 127, 0, 0, 5, 0x80, 0, 0, 0 } + label ) ),
      R"({"downstreamMappings":{"lspPingDownstreamMappingInfo":{"0":{"mtu":1500,"addrType":1,)"
      R"("dsFlags":1,"dsIpAddr":"10.0.0.2","dsIntfAddr":"10.0.0.1","multipathType":8,)"
      R"("depthLimit":9,"dsMultipathBaseAddr":"127.0.0.5","dsMultipathBitset":{"bitset":{"0":128,)"
      R"("1":0,"2":0,"3":0},"size":4,"bitSize":32,"hasAnyBitsSet":true},"labelStack":)"
      R"({"labelEntry":{"0":{"v0":24,"v1":150,"v2":1,"v3":3}},"size":1,"valid":true},)"
      R"("fecStackChangeInfo":{"popTlvInfo":{"fecInfo":{}},"pushTlvInfo":{"fecInfo":{}},)"
      R"("valid":false},"intf":"none","retCode":"noRetCode","retSubcode":0,"valid":true,)"
      R"("intfIndex":"none"}},"mappingTlv":"downstreamMap"}})" );
}

} // namespace
