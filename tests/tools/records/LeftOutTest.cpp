#include "tests/tools/records/RecordLines.h"

// What records have no place for is told, whatever the reason.
namespace {

/// Offset and words of each, a line each.
std::string leftOut( Bytes const & tlvs ) {
   Decoded const decoded( request + tlvs );
   std::string lines;
   LspPing::LspPingMessage const & message = decoded.message();
   for( LspPing::LspPingLeftOut const & lost : LspPing::LspPingMessageRecords( message ).leftOut ) {
      std::string_view const name = message.element( lost.element ).name();
      lines += std::to_string( lost.offset ) + " " +
               ( name.empty() ? std::to_string( message.element( lost.element ).code() )
                              : std::string( name ) ) +
               ": " + std::string( lost.what ) + "\n";
   }
   return lines;
}
std::string leftOutOfFec( std::size_t type, Bytes const & value ) {
   return leftOut( tlv( 1, tlv( type, value ) ) );
}

Bytes ddmap( Bytes const & subTlvs ) {
   return tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } + word( subTlvs.size() ) +
                      subTlvs );
}
Bytes dsmap( Bytes const & behind ) {
   return tlv( 2, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1 } + behind );
}

TEST( LeftOut, isNothingOfWhatIsKeptWhole ) {
   Bytes const label{ 0, 6, 0x41, 3 };
   EXPECT_EQ( leftOut( tlv( 1, ldp + nil ) + tlv( 3, { 1, 7 } ) + tlv( 10, { 8, 0, 0, 0 } ) +
                       ddmap( tlv( 1, { 8, 0, 8, 0, 127, 0, 0, 0, 0x80, 0, 0, 0 } ) +
                              tlv( 2, label ) + tlv( 3, Bytes{ 1, 0, 12, 0 } + ldp ) ) ),
              "" );
   EXPECT_EQ( leftOut( dsmap( Bytes{ 0, 0, 0, 0 } + label ) ), "" );
   EXPECT_EQ( recordsJson( tlv( 1, ldp ) ).find( "leftOut" ), std::string::npos );
}

TEST( LeftOut, areFecsWithoutAttributes ) {
   EXPECT_EQ( leftOutOfFec( 99, { 1 } ), "36 99: no attributes for this FEC\n" );
   EXPECT_EQ( leftOutOfFec( 22, Bytes( 24, 1 ) ), "36 StaticLsp: no attributes for this FEC\n" );
   EXPECT_EQ( leftOutOfFec( 37, { 2, 0, 4, 10, 0, 0, 1 } ),
              "36 P2mpPseudowire: no attributes for this FEC\n" );
   EXPECT_EQ( leftOutOfFec( 24, v6 + v6 + Bytes{ 0, 0, 0, 7, 0, 5 } ),
              "36 FEC128PseudowireIpv6: no attributes for this FEC\n" );
   EXPECT_EQ( leftOutOfFec( 44, Bytes( 24, 1 ) ),
              "36 EvpnEthernetAd: no attributes for this FEC\n" );
   EXPECT_EQ( leftOutOfFec( 20, { 0, 1, 4, 10, 0, 0, 1, 0, 7, 1, 0, 4, 0, 0, 0, 7 } ),
              "36 Mp2mpFec: no attributes for this FEC\n" );
   EXPECT_EQ( leftOutOfFec( 1, { 10, 1, 2, 0, 200 } ),
              "36 LDPIpv4: a prefix longer than its address\n" );
   EXPECT_EQ( leftOutOfFec( 15, v6 + Bytes{ 200 } ),
              "36 GenericIpv6: a prefix longer than its address\n" );
   EXPECT_EQ( leftOutOfFec( 2, v6 + Bytes{ 128, 0, 0, 0 } ), "36 LDPIpv6: not well-formed\n" );
   EXPECT_EQ( leftOutOfFec( 10, { 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 7, 0, 25 } ),
              "36 FEC128Pseudowire: not valid for its view\n" );
   EXPECT_EQ( leftOutOfFec( 8, Bytes( 14, 1 ) ), "36 L2VPNEndpoint: the numbers of the edges\n" );
   EXPECT_EQ( leftOutOfFec( 19, { 0, 1, 4, 10, 0, 0, 1, 0, 4, 9, 0, 1, 0 } ),
              "36 P2mpFec: no attribute for this opaque value\n" );
   Bytes const generic{ 1, 0, 4, 0, 0, 0, 7 };
   EXPECT_EQ( leftOutOfFec( 19, Bytes{ 0, 1, 4, 10, 0, 0, 1, 0, 14 } + generic + generic ),
              "36 P2mpFec: further opaque values\n" );
   EXPECT_EQ( leftOutOfFec( 19, Bytes{ 0, 2, 16 } + v6 + Bytes{ 0, 14 } + generic + generic ),
              "36 P2mpFec: further opaque values\n" );
   EXPECT_EQ( leftOutOfFec( 19, Bytes{ 0, 1, 16 } + v6 + Bytes{ 0, 7 } + generic ),
              "36 P2mpFec: not well-formed\n" );
   EXPECT_EQ( leftOutOfFec( 11, Bytes( 256, 9 ) ), "36 FEC129Pseudowire: a FEC of more than 255 "
                                                   "bytes\n" );
}

// Position 255 is the last.
TEST( LeftOut, areFecsBehindTheLastPosition ) {
   Bytes fecs;
   for( int count = 0; count < 257; ++count )
      fecs = fecs + nil;
   EXPECT_EQ( leftOut( tlv( 1, fecs ) ), "2084 NilFec: behind 256 FECs\n" );
   EXPECT_THAT( recordLines( tlv( 1, fecs ) ), testing::HasSubstr( ", 255: LspPing::" ) );
}

TEST( LeftOut, areFurtherElementsOfOneKind ) {
   EXPECT_EQ( leftOut( tlv( 1, nil ) + tlv( 1, ldp ) ), "44 TargetFecStack: behind another one\n" );
   Bytes const pads = tlv( 3, { 1, 7, 7, 7 } ) + tlv( 3, { 2, 8, 8, 8 } );
   EXPECT_EQ( leftOut( pads ), "40 Pad: behind another one\n" );
   EXPECT_EQ( recordLines( pads ), "   LspPing::LspPingPadInfo(padType=1, padding={0: 7, 1: 7, "
                                   "2: 7}, length=4, valid=true)\n" );
   Bytes const interface = tlv( 7, { 1, 0, 0, 0, 10, 0, 0, 1, 10, 0, 0, 2 } );
   EXPECT_EQ( leftOut( interface + interface ), "48 IntfAndLabelStack: behind another one\n" );
   EXPECT_EQ( leftOut( ddmap( {} ) + dsmap( { 0, 0, 0, 0 } ) ),
              "52 DownstreamMapping: behind mappings of the other kind\n" );
   Bytes many;
   for( int count = 0; count < 257; ++count )
      many = many + ddmap( {} );
   EXPECT_EQ( leftOut( many ), "5152 DownstreamDetailedMapping: behind 256 mappings\n" );
}

TEST( LeftOut, arePartsOfAMapping ) {
   EXPECT_EQ( leftOut( ddmap( tlv( 1, { 2, 0, 4, 0, 127, 0, 0, 1 } ) ) ),
              "52 MultipathData: multipath information that is no set\n" );
   EXPECT_EQ( leftOut( ddmap( tlv( 1, { 9, 0, 8, 0, 0, 0, 4, 0, 0x80, 0, 0, 0 } ) ) ),
              "52 MultipathData: the base label of the multipath information\n" );
   EXPECT_EQ( leftOut( ddmap( tlv( 3, Bytes{ 1, 1, 12, 0, 10, 0, 0, 9 } + ldp ) ) ),
              "52 FecStackChange: the address of the remote peer\n" );
   EXPECT_EQ( leftOut( ddmap( tlv( 3, { 2, 0, 0, 0 } ) ) ),
              "52 FecStackChange: a change without a FEC\n" );
   EXPECT_EQ( leftOut( ddmap( tlv( 3, Bytes{ 1, 0, 20, 0 } + ldp + nil ) ) ),
              "52 FecStackChange: not one FEC\n" );
   EXPECT_EQ( leftOut( ddmap( tlv( 9, { 1 } ) ) ), "52 9: no attribute for this sub-TLV\n" );
   EXPECT_EQ( leftOut( dsmap( { 4, 0, 0, 8, 127, 0, 0, 1, 127, 0, 0, 9 } ) ),
              "32 DownstreamMapping: multipath information that is no set\n" );
   EXPECT_EQ( leftOut( dsmap( { 0, 0, 0, 4, 127, 0, 0, 1 } ) ),
              "32 DownstreamMapping: not well-formed\n" );
   Bytes const nonIp{ 5, 0xdc, 5, 0, 0, 0, 0, 7, 0, 0, 0, 8, 0, 0, 0, 0 };
   EXPECT_EQ( leftOut( tlv( 20, nonIp ) + tlv( 2, nonIp ) ),
              "32 DownstreamDetailedMapping: no attributes for this address type\n"
              "52 DownstreamMapping: no attributes for this address type\n" );
}

TEST( LeftOut, isToldAsTextAndAsJson ) {
   Decoded decoded( request + tlv( 1, tlv( 99, {} ) ) );
   LspPingTool::TextPrinter printer( LspPingTool::TextPrinter::Colour::off,
                                     LspPingTool::ShowRecords::yes );
   printer.print( decoded.packet(), decoded.message() );
   EXPECT_THAT(
      std::string( printer.pending() ),
      testing::EndsWith( "   not in the records: offset 36: 99: no attributes for this FEC\n" ) );
   EXPECT_EQ( recordsJson( tlv( 1, tlv( 99, {} ) ) ),
              R"({"leftOut":[{"offset":36,"what":"99: no attributes for this FEC"}]})" );
}

// The type is kept, whatever the list is.
TEST( MappingRecords, keepTheTypeOfAListThatIsNotWhole ) {
   Bytes const old = dsmap( { 4, 0, 0, 6, 127, 0, 0, 1, 127, 0 } );
   EXPECT_THAT( recordLines( old ), testing::HasSubstr( "multipathType=4, depthLimit=0" ) );
   EXPECT_EQ( leftOut( old ), "32 DownstreamMapping: multipath information that is no set\n" );
}

// A set of no addresses is a set; the old mapping keeps it as the detailed one does.
TEST( MappingRecords, keepEmptySets ) {
   Bytes const label{ 3, 0xe8, 0x11, 3 };
   std::string const old = recordLines( dsmap( Bytes{ 8, 0, 0, 0 } + label ) );
   EXPECT_THAT( old, testing::HasSubstr( "multipathType=8, depthLimit=0, dsMultipathBaseAddr=none, "
                                         "dsMultipathBitset=LspPing::LspPingMultipathBitset("
                                         "bitset={}, size=0)" ) );
   EXPECT_THAT( recordLines( ddmap( tlv( 1, { 8, 0, 0, 0 } ) ) ),
                testing::HasSubstr( "multipathType=8, depthLimit=0, dsMultipathBaseAddr=none" ) );
}

// The family of the addresses is read in one way, for the element and for the record.
TEST( MappingRecords, takeMappedAddressesAsTheElementShowsThem ) {
   Bytes const mapped{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 127, 2, 1, 0 };
   Bytes const tlvs = ddmap( tlv( 1, Bytes{ 8, 0, 20, 0 } + mapped + Bytes{ 0xc0, 0, 0, 0 } ) );
   EXPECT_THAT( elementsOf( tlvs ),
                testing::HasSubstr( "maskedIpSetMultipath: ::ffff:127.2.1.0-::ffff:127.2.1.1 )" ) );
   EXPECT_THAT(
      recordLines( tlvs ),
      testing::HasSubstr( "dsMultipathBaseAddr=::ffff:127.2.1.0, dsMultipathBitset="
                          "LspPing::LspPingMultipathBitset(bitset={0: 192, 1: 0, 2: 0, 3: 0}, "
                          "size=4)" ) );
}

TEST( MappingRecords, keepChangesWhoseLengthLeavesOutThePadding ) {
   Bytes const bare = raw( 1, 5, { 10, 1, 2, 0, 24 } );
   std::string const fec =
      "pushTlvInfo=LspPing::LspPingFecStack(fecInfo={0: " +
      fecText( { "fecTlvType=LDPIpv4", "dstPrefix=10.1.2.0/24", "fecTlvLen=5" } ) + "})";
   EXPECT_THAT( recordLines( ddmap( tlv( 3, Bytes{ 1, 0, 9, 0 } + ldp ) ) ),
                testing::HasSubstr( fec ) );
   EXPECT_THAT( recordLines( ddmap( tlv( 3, Bytes{ 1, 0, 9, 0 } + bare ) ) ),
                testing::HasSubstr( fec ) );
}

} // namespace
