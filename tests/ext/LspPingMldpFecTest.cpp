#include "MplsUtils/LspPing/ext/fec/LspPingMldpFec.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using Velnet::IpAddr;

constexpr char const * p2mpIpv6 =
   "00 13 00 1c 00 02 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 00 07 "
   "01 00 04 00 00 00 07";

TEST( LspPingP2mpFecStackIpv6SubTlv, readsAndPrintsTheRoot ) {
   WireBytes bytes( p2mpIpv6 );
   auto const & fec = bytes.as< LspPingP2mpFecStackIpv6SubTlv >();
   EXPECT_EQ( fec.family(), 2 );
   EXPECT_EQ( fec.addrLen(), 16 );
   EXPECT_EQ( fec.rootAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( fec.opaqueLen(), 7 );
   EXPECT_EQ( fec.stringValue(), "P2mpFecStackIpv6( root: '2001:db8::1' )" );
}

TEST( LspPingP2mpFecStackIpv6SubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingP2mpFecStackIpv6SubTlv >( []( auto & fec ) {
                 fec.familyIs( 0x0102 );
                 fec.opaqueLenIs( 0x0304 );
              } ),
              "a5 a5 a5 a5 01 02 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 03 04" );
   EXPECT_EQ( hexAfter< LspPingP2mpFecStackIpv6SubTlv >( []( auto & fec ) {
                 fec.addrLenIs( 3 );
                 fec.rootAddrIs( address6( "102:304:506:708:90a:b0c:d0e:f10" ) );
              } ),
              "a5 a5 a5 a5 a5 a5 03 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10 a5 a5" );
}

TEST( LspPingP2mpFecStackIpv6SubTlv, isValidOfItsTypeWhereFamilyAndLengthAgree ) {
   WireBytes bytes( p2mpIpv6 );
   EXPECT_EQ(
      validityMismatches< LspPingP2mpFecStackIpv6SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 19 && length >= 21; } ),
      0u );
   WireBytes other( p2mpIpv6 );
   auto & fec = other.as< LspPingP2mpFecStackIpv6SubTlv >();
   fec.familyIs( 1 );
   EXPECT_EQ( fec.stringValue(), "Invalid P2mpFecStackIpv6SubTlv" );
   fec.familyIs( 2 );
   fec.addrLenIs( 4 );
   EXPECT_FALSE( fec.valid() );
}

TEST( LspPingP2mpFecStackIpv6SubTlv, isWrittenAndReadBack ) {
   EXPECT_EQ( written( []( LspPingMessageWriter & writer ) {
                 auto const stack = writer.open( LspPingTlvType::TargetFecStack );
                 auto const fec = writer.open< LspPingP2mpFecStackIpv6SubTlv >( []( auto & view ) {
                    view.familyIs( 2 );
                    view.rootAddrIs( address6( "2001:db8::1" ) );
                 } );
                 writer.add< LspPingOpaqueValGenSubTlv >( []( auto & id ) { id.lspIdIs( 7 ); } );
              } ),
              std::string( "00 01 00 20 " ) + p2mpIpv6 );
   EXPECT_EQ( readFec( p2mpIpv6 ), "P2mpFecStackIpv6( root: '2001:db8::1' )" );
}

TEST( LspPingP2mpFecStackIpv6SubTlv, isWhatTheViewOfIpv4BecomesWithSuchARoot ) {
   std::string const hex = written( []( LspPingMessageWriter & writer ) {
      auto const stack = writer.open( LspPingTlvType::TargetFecStack );
      auto fec = writer.open< LspPingP2mpFecStackSubTlv >();
      fec.rootAddr( *Velnet::IpGenAddr::fromText( "2001:db8::1" ) );
      writer.add< LspPingOpaqueValGenSubTlv >( []( auto & id ) { id.lspIdIs( 7 ); } );
   } );
   EXPECT_EQ( hex, std::string( "00 01 00 20 " ) + p2mpIpv6 );
   EXPECT_EQ( readTlvs( hex, 2 ), "OpaqueValGenSubTlv( lspId: 7 )" );
}

// What is no root of IPv6 stays with the view that has no selector.
TEST( LspPingP2mpFecStackIpv6SubTlv, leavesOtherRootsToTheOtherView ) {
   EXPECT_EQ( readFec( "00 13 00 10 00 01 04 0a 00 00 01 00 07 01 00 04 00 00 00 07" ),
              "P2mpFecStackSubTlv( RootAddr: '10.0.0.1' )" );
   EXPECT_EQ( readFec( "00 13 00 09 00 02 10 20 01 0d b8 00 00 00 00 00" ),
              "P2mpFec: root address of 16 bytes and opaque length do not fit" );
   EXPECT_EQ( readFec( "00 13 00 09 00 02 04 0a 00 00 01 00 00 00 00 00" ),
              "P2mpFec: root address of 4 bytes, expected 16" );
}

TEST( LspPingP2mpFecStackIpv6SubTlv, isToldWhereDamaged ) {
   std::string damaged( p2mpIpv6 );
   damaged[16] = '1'; // the family
   EXPECT_EQ( readFec( damaged ), "P2mpFec: root address of 16 bytes, expected 4" );
   damaged[16] = '3';
   EXPECT_EQ( readFec( damaged ), "P2mpFec: address family 3 is not known" );
   damaged[16] = '2';
   damaged[73] = '8'; // the opaque length
   EXPECT_EQ( readFec( damaged ), "P2mpFec: opaque value of 8 bytes, had 7" );
   damaged[73] = '6';
   EXPECT_EQ( readFec( damaged ), "P2mpFec: 1 byte left over\n"
                                  "GenericLsp: length 4 needs 7 bytes, had 6" );
}

constexpr char const * mp2mpIpv4 = "00 14 00 10 00 01 04 0a 00 00 01 00 07 01 00 04 00 00 00 07";

TEST( LspPingMp2mpFecStackIpv4SubTlv, readsAndPrintsTheRoot ) {
   WireBytes bytes( mp2mpIpv4 );
   auto const & fec = bytes.as< LspPingMp2mpFecStackIpv4SubTlv >();
   EXPECT_EQ( fec.rootAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.opaqueLen(), 7 );
   EXPECT_EQ( fec.stringValue(), "Mp2mpFecStackIpv4( root: '10.0.0.1' )" );
}

TEST( LspPingMp2mpFecStackIpv4SubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingMp2mpFecStackIpv4SubTlv >( []( auto & fec ) {
                 fec.rootAddrIs( IpAddr( 1, 2, 3, 4 ) );
                 fec.addrLenIs( 9 );
              } ),
              "a5 a5 a5 a5 a5 a5 09 01 02 03 04 a5 a5" );
}

TEST( LspPingMp2mpFecStackIpv4SubTlv, isValidOfItsTypeWhereFamilyAndLengthAgree ) {
   WireBytes bytes( mp2mpIpv4 );
   EXPECT_EQ(
      validityMismatches< LspPingMp2mpFecStackIpv4SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 20 && length >= 9; } ),
      0u );
   auto & fec = bytes.as< LspPingMp2mpFecStackIpv4SubTlv >();
   fec.typeIs( 20 );
   fec.familyIs( 2 );
   EXPECT_EQ( fec.stringValue(), "Invalid Mp2mpFecStackIpv4SubTlv" );
}

TEST( LspPingMp2mpFecStackIpv4SubTlv, isWrittenAndReadBack ) {
   EXPECT_EQ( written( []( LspPingMessageWriter & writer ) {
                 auto const stack = writer.open( LspPingTlvType::TargetFecStack );
                 auto const fec = writer.open< LspPingMp2mpFecStackIpv4SubTlv >( []( auto & view ) {
                    view.familyIs( 1 );
                    view.rootAddrIs( IpAddr( 10, 0, 0, 1 ) );
                 } );
                 writer.add< LspPingOpaqueValGenSubTlv >( []( auto & id ) { id.lspIdIs( 7 ); } );
              } ),
              std::string( "00 01 00 14 " ) + mp2mpIpv4 );
   EXPECT_EQ( readFec( mp2mpIpv4 ), "Mp2mpFecStackIpv4( root: '10.0.0.1' )" );
   EXPECT_EQ( readTlvs( std::string( "00 01 00 14 " ) + mp2mpIpv4, 2 ),
              "OpaqueValGenSubTlv( lspId: 7 )" );
}

TEST( LspPingMp2mpFecStackIpv4SubTlv, isToldWhereDamaged ) {
   EXPECT_EQ( readFec( "00 14 00 09 00 01 05 0a 00 00 01 00 00 00 00 00" ),
              "Mp2mpFec: 5 at byte 2 of the value is not known" );
   EXPECT_EQ( readFec( "00 14 00 09 00 02 04 0a 00 00 01 00 00 00 00 00" ),
              "Mp2mpFec: root address of 4 bytes, expected 16" );
   EXPECT_EQ( readFec( "00 14 00 08 00 01 04 0a 00 00 01 00" ),
              "Mp2mpFec: length 8 is too short, needed 9" );
   EXPECT_EQ( readFec( "00 14 00 02 00 01 00 00" ), "Mp2mpFec: length 2 is too short, needed 3" );
   EXPECT_EQ( readFec( "00 14 00 0a 00 01 04 0a 00 00 01 00 00 55 00 00" ),
              "Mp2mpFec: 1 byte left over" );
}

constexpr char const * mp2mpIpv6 =
   "00 14 00 15 00 02 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 00 00 00 00 00";

TEST( LspPingMp2mpFecStackIpv6SubTlv, readsAndPrintsTheRoot ) {
   WireBytes bytes( mp2mpIpv6 );
   auto const & fec = bytes.as< LspPingMp2mpFecStackIpv6SubTlv >();
   EXPECT_EQ( fec.rootAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( fec.stringValue(), "Mp2mpFecStackIpv6( root: '2001:db8::1' )" );
   EXPECT_EQ( readFec( mp2mpIpv6 ), "Mp2mpFecStackIpv6( root: '2001:db8::1' )" );
}

TEST( LspPingMp2mpFecStackIpv6SubTlv, isValidOfItsTypeWhereFamilyAndLengthAgree ) {
   WireBytes bytes( mp2mpIpv6 );
   EXPECT_EQ(
      validityMismatches< LspPingMp2mpFecStackIpv6SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 20 && length >= 21; } ),
      0u );
   auto & fec = bytes.as< LspPingMp2mpFecStackIpv6SubTlv >();
   fec.typeIs( 20 );
   fec.familyIs( 1 );
   EXPECT_EQ( fec.stringValue(), "Invalid Mp2mpFecStackIpv6SubTlv" );
}

} // namespace
