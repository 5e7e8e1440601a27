#include "tests/tools/decode/Build.h"

namespace {

// Where an element is cut, so are its contents: that they do not come out says nothing of how they
// are aligned.
TEST( CutElements, areNotTakenForUnaligned ) {
   EXPECT_EQ( elementsOf( raw( 1, 32, ldp + Bytes{ 0 } ) ),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 32: TargetFecStack: length 32 needs 36 bytes, had 17\n"
              "   ! offset 48: 1 byte left over after the last sub-TLV: another needs 4\n"
              "      Bytes( 00 )\n" );
   // Without alignment it would come out.
   EXPECT_EQ( elementsOf( raw( 1, 0xffff,
                               raw( 12, 5, { 0xb4, 0xeb, 0x70, 0x26, 11 } ) + Bytes( 3, 0 ) +
                                  raw( 12, 0, {} ) + raw( 0x0fa9, 0x61be, { 0, 11, 0, 8 } ) ) ),
              "   TargetFecStack\n"
              "      BgpLuIpv4( '180.235.112.38/11' )\n"
              "      BGPLabeledIpv4( Code: 12, Length: 0, Bytes: 000c0000 )\n"
              "      4009( Code: 4009, Length: 25022, Bytes: 0fa961be000b0008 )\n"
              "   ! offset 32: TargetFecStack: length 65535 needs 65539 bytes, had 28\n"
              "   ! offset 48: BGPLabeledIpv4: length 0 is too short, needed 5\n"
              "   ! offset 52: sub-TLV 4009: length 25022 needs 25026 bytes, had 8\n" );
}

TEST( CutElements, areNotTakenForUnalignedWhereTheCaptureCuts ) {
   // A Pad of three bytes and the first of the next TLV: without alignment nothing would be left.
   Bytes const bytes = request + tlv( 3, { 1, 7, 7 } ) + Bytes{ 0, 12, 0 };
   EXPECT_EQ( Decoded( bytes, { .isCut = true } ).elements(),
              "   PadTlv( PadType: 1, Size: 3, Padding: 0x7 0x7 )\n"
              "   ! offset 40: 3 bytes left over after the last TLV: another needs 4\n"
              "      Bytes( 000c00 )\n" );
   Bytes const unpadded =
      request + raw( 3, 3, { 1, 7, 7 } ) + raw( 3, 6, { 2, 1, 2, 3, 4, 5 } ) + raw( 3, 1, { 2 } );
   EXPECT_THAT( Decoded( unpadded ).elements(),
                testing::HasSubstr( "   ! offset 32: TLVs are not aligned to 4 bytes\n" ) );
   EXPECT_THAT( Decoded( unpadded, { .isCut = true } ).elements(),
                testing::Not( testing::HasSubstr( "aligned" ) ) );
}

TEST( CutElements, areCutAsMuchAsTheirMappingSays ) {
   // Sub-TLVs of 16 bytes, of which 9 are there; without alignment they would come out.
   Bytes const subTlvs = raw( 9, 1, { 7 } ) + raw( 9, 0, {} );
   EXPECT_EQ( elementsOf( tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } +
                                      word( 16 ) + subTlvs ) ),
              "   DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: "
              "'10.0.0.1', RetCode: 8, RetSubCode: 1 )\n"
              "      9( Code: 9, Length: 1, Bytes: 0009000107 )\n"
              "   ! offset 50: DownstreamDetailedMapping: sub-TLVs of 16 bytes, had 9\n"
              "   ! offset 60: 1 byte left over after the last sub-TLV: another needs 4\n"
              "      Bytes( 00 )\n" );
}

// The view takes two bytes of padding; the first is the algorithm, and it is there.
TEST( CutElements, keepThePaddingThatIsThere ) {
   Bytes const segment = raw( 31744, 6, { 10, 9, 0, 0, 16, 1, 77 } );
   EXPECT_EQ( elementsOf( raw( 1, 12, segment ) ),
              "   TargetFecStack\n"
              "      SrIpv4( '10.9.0.0/16', 77 )\n"
              "   ! offset 32: TargetFecStack: length 12 needs 16 bytes, had 15\n"
              "   ! offset 36: SRIpv4Deprecated: 1 byte of padding missing\n" );
   EXPECT_EQ( elementsOf(
                 raw( 1, 19, raw( 10, 14, { 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 100, 0, 5, 9 } ) ) ),
              "   TargetFecStack\n"
              "      Invalid Fec128Ipv4SubTlv\n"
              "         Bytes( 000a000e0a0000010a000002000000640005 )\n"
              "   ! offset 54: FEC128Pseudowire: bytes that must be zero are not\n"
              "      Bytes( 09 )\n"
              "   ! offset 36: FEC128Pseudowire: 1 byte of padding missing\n"
              "   ! offset 32: TargetFecStack: 1 byte of padding missing\n" );
}

} // namespace
