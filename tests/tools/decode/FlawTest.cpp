#include "tests/tools/decode/Build.h"

// What an element says against the RFCs, and what only our views do not take for valid.
namespace {

Bytes const v6{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 };

std::vector< Problem > problemsOfFec( std::size_t type, Bytes const & value ) {
   return Decoded( request + tlv( 1, tlv( type, value ) ) ).problems();
}
std::vector< Problem > oneAt36( std::string const & text ) {
   return { { 36, text } };
}
std::vector< Problem > const none;

TEST( Flaws, areLengthsThatCountThePadding ) {
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 2, v6 + Bytes{ 0x80, 0, 0, 0 } ) ) ),
              "   TargetFecStack\n"
              "      Invalid LdpIpv6SubTlv\n"
              "         Bytes( 0002001420010db800000000000000000000000180000000 )\n"
              "   ! offset 36: LDPIpv6: length 20 counts the padding, expected 17; without it: "
              "LdpIpv6( '2001:db8::1/128' )\n" );
   EXPECT_EQ( problemsOfFec( 8, Bytes( 16, 1 ) ),
              oneAt36( "L2VPNEndpoint: length 16 counts the padding, expected 14; without it: "
                       "L2VpnEndpoint( 72340172838076673, sender: 257, receiver: 257, type: "
                       "257 )" ) );
   EXPECT_EQ( problemsOfFec( 10, { 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 7, 0, 5, 0, 0 } ),
              oneAt36( "FEC128Pseudowire: length 16 counts the padding, expected 14; without it: "
                       "Fec128Ipv4:\tsender(10.0.0.1),\treceiver(10.0.0.2),\tpwId(7),"
                       "\tpwType(5)" ) );
   // A pseudowire that the view does not know has no text.
   EXPECT_EQ( problemsOfFec( 10, { 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 7, 0, 1, 0, 0 } ),
              oneAt36( "FEC128Pseudowire: length 16 counts the padding, expected 14" ) );
}

TEST( Flaws, areOtherLengths ) {
   EXPECT_EQ( problemsOfFec( 2, v6 + Bytes{ 128, 0 } ),
              oneAt36( "LDPIpv6: length 18, expected 17" ) );
   EXPECT_EQ( problemsOfFec( 4, Bytes( 60, 0 ) ),
              oneAt36( "RSVPIpv6Lsp: length 60, expected 56" ) );
   EXPECT_EQ( problemsOfFec( 34, { 10, 0, 0, 1, 32, 1, 0 } ),
              oneAt36( "SRIpv4: length 7, expected 6" ) );
   EXPECT_EQ( problemsOfFec( 34, { 10, 0, 0, 1, 32, 1, 0, 0 } ), none );
   EXPECT_EQ( Decoded( request + tlv( 11, tlv( 2, Bytes( 20, 1 ) ) ) ).problems(),
              oneAt36( "EgrAddr6: length 20, expected 16" ) );
}

TEST( Flaws, arePrefixesLongerThanTheirAddress ) {
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 1, { 10, 1, 2, 0, 200 } ) ) ),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/200' )\n"
              "         Bytes( 000100050a010200c8 )\n"
              "   ! offset 36: LDPIpv4: prefix length 200, at most 32\n" );
   EXPECT_EQ( problemsOfFec( 2, v6 + Bytes{ 129 } ),
              oneAt36( "LDPIpv6: prefix length 129, at most 128" ) );
   EXPECT_EQ( problemsOfFec( 14, { 10, 1, 2, 0, 33 } ),
              oneAt36( "GenericIpv4: prefix length 33, at most 32" ) );
   EXPECT_EQ( problemsOfFec( 15, v6 + Bytes{ 129 } ),
              oneAt36( "GenericIpv6: prefix length 129, at most 128" ) );
   EXPECT_EQ( problemsOfFec( 7, Bytes( 8, 0 ) + v6 + Bytes{ 129 } ),
              oneAt36( "VPNIpv6: prefix length 129, at most 128" ) );
   EXPECT_EQ( problemsOfFec( 34, { 10, 1, 2, 0, 33, 1, 0, 0 } ),
              oneAt36( "SRIpv4: prefix length 33, at most 32" ) );
   EXPECT_EQ( problemsOfFec( 35, v6 + Bytes{ 128, 1, 0, 0 } ), none );
}

TEST( Flaws, areRootsThatAreNoAddressOfTheirFamily ) {
   Bytes const opaque{ 0, 7, 1, 0, 4, 0, 0, 0, 7 };
   EXPECT_EQ( problemsOfFec( 19, Bytes{ 0, 1, 5, 10, 0, 0, 1, 9 } + opaque ),
              oneAt36( "P2mpFec: root address of 5 bytes, expected 4" ) );
   EXPECT_EQ( problemsOfFec( 19, Bytes{ 0, 2, 4, 10, 0, 0, 1 } + opaque ),
              oneAt36( "P2mpFec: root address of 4 bytes, expected 16" ) );
   EXPECT_EQ( problemsOfFec( 19, Bytes{ 0, 7, 4, 10, 0, 0, 1 } + opaque ),
              oneAt36( "P2mpFec: address family 7 is not known" ) );
   // A root of IPv6 has its own view.
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 19, Bytes{ 0, 2, 16 } + v6 + opaque ) ) ),
              "   TargetFecStack\n"
              "      P2mpFecStackIpv6( root: '2001:db8::1' )\n"
              "         OpaqueValGenSubTlv( lspId: 7 )\n" );
}

TEST( Flaws, areNotTheVersionsThatOnlyTheViewKnows ) {
   Bytes next = request;
   next[1] = 2;
   EXPECT_EQ( Decoded( next ).problems(),
              ( std::vector< Problem >{ { 0, "header: version 2, expected 1" } } ) );
   EXPECT_EQ( Decoded( request ).problems(), none );
}

// RFC 8029 names more pseudowires than the views take for valid.
TEST( Flaws, areNotPseudowiresThatTheViewsDoNotKnow ) {
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 10, { 10, 0, 0, 1, 10, 0, 0, 2, 0, 0, 0, 7, 0, 25 } ) ) ),
              "   TargetFecStack\n"
              "      Invalid Fec128Ipv4SubTlv\n"
              "         Bytes( 000a000e0a0000010a000002000000070019 )\n" );
   Bytes const ends{ 10, 0, 0, 1, 10, 0, 0, 2 };
   EXPECT_EQ( problemsOfFec( 11, ends + Bytes{ 0, 25, 1, 0, 1, 2, 7, 7, 1, 2, 8, 8 } ), none );
   // Identifiers of type 2 take twelve bytes, RFC 5003 section 3.2.
   Bytes const twelve{ 2, 12, 0, 0, 0, 1, 10, 0, 0, 1, 0, 0, 0, 7 };
   Bytes const value = ends + Bytes{ 0, 5, 1, 0 } + twelve + twelve;
   EXPECT_EQ( problemsOfFec( 11, value ), none );
   EXPECT_EQ( Decoded( request + tlv( 1, raw( 11, value.size(), value ) ) ).problems(), none );
}

TEST( Flaws, areIdentifiersThatDoNotFit ) {
   Bytes const ends{ 10, 0, 0, 1, 10, 0, 0, 2, 0, 5 };
   EXPECT_EQ( problemsOfFec( 11, ends + Bytes{ 1, 0, 1, 9, 7, 7, 7, 7, 7, 7 } ),
              ( std::vector< Problem >{
                 { 52, "FEC129Pseudowire: attachment identifier of 11 bytes, had 8" } } ) );
   EXPECT_EQ( problemsOfFec( 11, ends + Bytes{ 1, 0, 1, 2, 7, 7, 1 } ),
              ( std::vector< Problem >{
                 { 56, "FEC129Pseudowire: attachment identifier of 2 bytes, had 1" } } ) );
   EXPECT_EQ( problemsOfFec( 11, ends + Bytes( 6, 0 ) ),
              oneAt36( "FEC129Pseudowire: no attachment identifiers" ) );
   // What is left over is told, the padding is not.
   Bytes const identifiers{ 1, 1, 9, 1, 1, 9, 1, 1, 9 };
   EXPECT_EQ( problemsOfFec( 11, ends + identifiers ), none );
   EXPECT_EQ( problemsOfFec( 11, ends + identifiers + Bytes( 1, 0 ) ), none );
   EXPECT_EQ( problemsOfFec( 11, ends + identifiers + Bytes( 2, 3 ) ),
              ( std::vector< Problem >{ { 59, "FEC129Pseudowire: 2 bytes left over", 2 } } ) );
}

Bytes changeOf( Bytes const & subTlv ) {
   return tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } + word( subTlv.size() ) +
                      subTlv );
}

// RFC 8029 section 3.4.1.3 does not say whether the FEC's length counts its padding.
TEST( Flaws, areNotChangesWhoseLengthLeavesOutThePadding ) {
   Bytes const bare = raw( 1, 5, { 10, 1, 2, 0, 24 } );
   std::string const shown =
      "   DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: '10.0.0.1', "
      "RetCode: 8, RetSubCode: 1 )\n"
      "      FecStackChangeUnspecifiedSubTlv( operType: 1, addrType: 0, fecTlvLen: 9, "
      "reserved: 0 )\n"
      "         LdpIpv4( '10.1.2.0/24' )\n";
   EXPECT_EQ( elementsOf( changeOf( tlv( 3, Bytes{ 1, 0, 9, 0 } + ldp ) ) ), shown );
   EXPECT_EQ( elementsOf( changeOf( tlv( 3, Bytes{ 1, 0, 9, 0 } + bare ) ) ), shown );
   // Not there at all, and more than the padding.
   EXPECT_EQ( elementsOf( changeOf( raw( 3, 13, Bytes{ 1, 0, 9, 0 } + bare ) ) ),
              shown + "   ! offset 60: LDPIpv4: 3 bytes of padding missing\n"
                      "   ! offset 52: FecStackChange: 3 bytes of padding missing\n" );
   EXPECT_EQ( elementsOf( changeOf( tlv( 3, Bytes{ 1, 0, 9, 0 } + ldp + Bytes{ 7 } ) ) ),
              shown + "   ! offset 72: FecStackChange: 1 byte left over\n"
                      "      Bytes( 07 )\n" );
   // The FEC is longer than it is said to be.
   EXPECT_EQ( elementsOf( changeOf( tlv( 3, Bytes{ 1, 0, 9, 0 } + raw( 1, 8, Bytes( 8, 1 ) ) ) ) ),
              "   DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: "
              "'10.0.0.1', RetCode: 8, RetSubCode: 1 )\n"
              "      FecStackChangeUnspecifiedSubTlv( operType: 1, addrType: 0, fecTlvLen: 9, "
              "reserved: 0 )\n"
              "         Invalid LdpIpv4SubTlv\n"
              "            Bytes( 000100080101010101 )\n"
              "   ! offset 69: FecStackChange: 3 bytes left over\n"
              "      Bytes( 010101 )\n"
              "   ! offset 60: LDPIpv4: length 8 needs 12 bytes, had 9\n"
              "   ! offset 60: LDPIpv4: length 8 counts the padding, expected 5; without it: "
              "LdpIpv4( '1.1.1.1/1' )\n" );
}

} // namespace
