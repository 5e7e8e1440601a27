#include "MplsUtils/LspPing/ext/fec/LspPingEvpnFec.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using Velnet::IpAddr;

constexpr LspPingEvpnSegment::Esi esi{ 0, 1, 2, 3, 4, 5, 6, 7, 8, 0x9a };
constexpr LspPingEvpnMac::Mac mac{ 0, 0x1c, 0x73, 0, 0, 1 };

template < class View >
U32 mismatches( std::string_view hex, unsigned type, unsigned length ) {
   WireBytes bytes( hex );
   return validityMismatches< View >(
      bytes, [&]( unsigned t, unsigned l ) { return t == type && l == length; } );
}

constexpr char const * macOnly =
   "00 2a 00 20 00 01 00 00 00 00 00 07 00 00 00 64 00 01 02 03 04 05 06 07 08 9a 00 30 "
   "00 1c 73 00 00 01 00 00";
constexpr char const * macOnlyText =
   "EvpnMac( RD: 281474976710663, tag: 100, ESI: '00:01:02:03:04:05:06:07:08:9a', "
   "MAC: '00:1c:73:00:00:01' )";

TEST( LspPingEvpnMacSubTlv, readsAndPrintsItsFields ) {
   WireBytes bytes( macOnly );
   auto const & fec = bytes.as< LspPingEvpnMacSubTlv >();
   EXPECT_EQ( fec.rd(), 0x0001000000000007u );
   EXPECT_EQ( fec.ethernetTag(), 100u );
   EXPECT_EQ( fec.esi(), esi );
   EXPECT_EQ( fec.esiText(), "00:01:02:03:04:05:06:07:08:9a" );
   EXPECT_EQ( fec.mbz0(), 0 );
   EXPECT_EQ( fec.macLen(), 48 );
   EXPECT_EQ( fec.mac(), mac );
   EXPECT_EQ( fec.macText(), "00:1c:73:00:00:01" );
   EXPECT_EQ( fec.mbz1(), 0 );
   EXPECT_EQ( fec.ipLen(), 0 );
   EXPECT_EQ( fec.stringValue(), macOnlyText );
   EXPECT_EQ( readFec( macOnly ), macOnlyText );
}

TEST( LspPingEvpnMacSubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingEvpnMacSubTlv >( []( auto & fec ) {
                 fec.rdIs( 0x0102030405060708 );
                 fec.esiIs( esi );
                 fec.macLenIs( 48 );
                 fec.mbz1Is( 9 );
              } ),
              "a5 a5 a5 a5 01 02 03 04 05 06 07 08 a5 a5 a5 a5 00 01 02 03 04 05 06 07 08 9a a5 "
              "30 a5 a5 a5 a5 a5 a5 09 a5" );
   EXPECT_EQ( hexAfter< LspPingEvpnMacSubTlv >( []( auto & fec ) {
                 fec.ethernetTagIs( 0x01020304 );
                 fec.mbz0Is( 8 );
                 fec.macIs( mac );
                 fec.ipLenIs( 7 );
              } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 08 "
              "a5 00 1c 73 00 00 01 a5 07" );
}

TEST( LspPingEvpnMacSubTlv, isValidWithItsLengths ) {
   EXPECT_EQ( mismatches< LspPingEvpnMacSubTlv >( macOnly, 42, 32 ), 0u );
   WireBytes bytes( macOnly );
   auto & fec = bytes.as< LspPingEvpnMacSubTlv >();
   fec.macLenIs( 6 );
   EXPECT_EQ( fec.stringValue(), "Invalid EvpnMacSubTlv" );
   fec.macLenIs( 48 );
   fec.ipLenIs( 32 );
   EXPECT_FALSE( fec.valid() );
   // What must be zero is not looked at, as the RFC says.
   fec.ipLenIs( 0 );
   fec.mbz0Is( 1 );
   fec.mbz1Is( 1 );
   EXPECT_TRUE( fec.valid() );
}

TEST( LspPingEvpnMacSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingEvpnMacSubTlv >( []( auto & fec ) {
                 fec.rdIs( 0x0001000000000007 );
                 fec.ethernetTagIs( 100 );
                 fec.esiIs( esi );
                 fec.macLenIs( 48 );
                 fec.macIs( mac );
              } ),
              macOnly );
}

// `macOnly` with another length, a byte set, and bytes behind.
std::string macWith( U8 length, std::size_t at, U8 byte, std::string_view behind = "" ) {
   Bytes bytes = bytesOf( macOnly );
   bytes[3] = length;
   bytes.at( at ) = byte;
   return readFec( hexOf( bytes ) + " " + std::string( behind ) );
}

TEST( LspPingEvpnMacIp, isReadWithTheAddressThatItsLengthSays ) {
   EXPECT_EQ( macWith( 36, 35, 32, "0a 00 00 01" ),
              "EvpnMacIpv4( RD: 281474976710663, tag: 100, ESI: '00:01:02:03:04:05:06:07:08:9a', "
              "MAC: '00:1c:73:00:00:01', IP: '10.0.0.1' )" );
   EXPECT_EQ( macWith( 48, 35, 128, "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01" ),
              "EvpnMacIpv6( RD: 281474976710663, tag: 100, ESI: '00:01:02:03:04:05:06:07:08:9a', "
              "MAC: '00:1c:73:00:00:01', IP: '2001:db8::1' )" );
}

TEST( LspPingEvpnMacIp, isToldWhereDamaged ) {
   EXPECT_EQ( macWith( 32, 27, 6 ), "EvpnMacIp: not valid" );
   EXPECT_EQ( macWith( 32, 35, 4 ), "EvpnMacIp: 4 at byte 31 of the value is not known" );
   EXPECT_EQ( macWith( 32, 35, 32 ), "EvpnMacIp: length 32 is too short, needed 36" );
   EXPECT_EQ( macWith( 36, 35, 0, "0a 00 00 01" ), "EvpnMacIp: length 36, expected 32" );
}

TEST( LspPingEvpnMacIpv4SubTlv, readsAndWritesTheAddress ) {
   WireBytes bytes( 40, 0xa5 );
   auto & fec = bytes.as< LspPingEvpnMacIpv4SubTlv >();
   fec.ipAddrIs( IpAddr( 1, 2, 3, 4 ) );
   EXPECT_EQ( bytes.hex().substr( 3 * 34 ), "a5 a5 01 02 03 04" );
   EXPECT_EQ( fec.ipAddr(), IpAddr( 1, 2, 3, 4 ) );
   fec.macLenIs( 48 );
   fec.ipLenIs( 32 );
   EXPECT_EQ( mismatches< LspPingEvpnMacIpv4SubTlv >( bytes.hex(), 42, 36 ), 0u );
   EXPECT_EQ( fec.stringValue(), "Invalid EvpnMacIpv4SubTlv" );
}

TEST( LspPingEvpnMacIpv6SubTlv, readsAndWritesTheAddress ) {
   WireBytes bytes( 52, 0xa5 );
   auto & fec = bytes.as< LspPingEvpnMacIpv6SubTlv >();
   fec.ipAddrIs( address6( "2001:db8::1" ) );
   EXPECT_EQ( bytes.hex().substr( 3 * 34 ),
              "a5 a5 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01" );
   fec.macLenIs( 48 );
   fec.ipLenIs( 128 );
   EXPECT_EQ( mismatches< LspPingEvpnMacIpv6SubTlv >( bytes.hex(), 42, 48 ), 0u );
   EXPECT_EQ( fec.stringValue(), "Invalid EvpnMacIpv6SubTlv" );
}

constexpr char const * multicastIpv4 =
   "00 2b 00 11 00 00 00 00 00 00 00 07 ff ff ff ff 20 0a 00 00 01 00 00 00";
constexpr char const * multicastIpv4Text =
   "EvpnInclusiveMulticastIpv4( RD: 7, tag: 4294967295, router: '10.0.0.1' )";

TEST( LspPingEvpnInclusiveMulticastIpv4SubTlv, readsAndPrintsItsFields ) {
   WireBytes bytes( multicastIpv4 );
   auto const & fec = bytes.as< LspPingEvpnInclusiveMulticastIpv4SubTlv >();
   EXPECT_EQ( fec.ethernetTag(), 0xffffffffu );
   EXPECT_EQ( fec.ipLen(), 32 );
   EXPECT_EQ( fec.routerAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.stringValue(), multicastIpv4Text );
   EXPECT_EQ( readFec( multicastIpv4 ), multicastIpv4Text );
   EXPECT_EQ( mismatches< LspPingEvpnInclusiveMulticastIpv4SubTlv >( multicastIpv4, 43, 17 ), 0u );
   EXPECT_EQ( LspPingEvpnInclusiveMulticastIpv4SubTlv().stringValue(),
              "Invalid EvpnInclusiveMulticastIpv4SubTlv" );
}

TEST( LspPingEvpnInclusiveMulticastIpv4SubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingEvpnInclusiveMulticastIpv4SubTlv >( []( auto & fec ) {
                 fec.rdIs( 7 );
                 fec.ethernetTagIs( 0xffffffff );
                 fec.routerAddrIs( IpAddr( 10, 0, 0, 1 ) );
              } ),
              multicastIpv4 );
   EXPECT_EQ( hexAfter< LspPingEvpnInclusiveMulticastIpv4SubTlv >( []( auto & fec ) {
                 fec.ipLenIs( 1 );
              } ).substr( 3 * 15 ),
              "a5 01 a5 a5 a5 a5" );
}

TEST( LspPingEvpnInclusiveMulticastIpv4SubTlv, isToldWhereDamaged ) {
   EXPECT_EQ( readFec( "00 2b 00 11 00 00 00 00 00 00 00 07 00 00 00 00 04 0a 00 00 01 00 00 00" ),
              "EvpnInclusiveMulticast: 4 at byte 12 of the value is not known" );
   EXPECT_EQ( readFec( "00 2b 00 14 00 00 00 00 00 00 00 07 00 00 00 00 20 0a 00 00 01 00 00 00" ),
              "EvpnInclusiveMulticast: length 20 counts the padding, expected 17; without it: "
              "EvpnInclusiveMulticastIpv4( RD: 7, tag: 0, router: '10.0.0.1' )" );
   EXPECT_EQ( readFec( "00 2b 00 04 00 00 00 00" ),
              "EvpnInclusiveMulticast: length 4 is too short, needed 13" );
}

constexpr char const * multicastIpv6 =
   "00 2b 00 1d 00 00 00 00 00 00 00 07 00 00 00 01 80 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 "
   "00 01 00 00 00";

TEST( LspPingEvpnInclusiveMulticastIpv6SubTlv, readsAndPrintsItsFields ) {
   EXPECT_EQ( readFec( multicastIpv6 ),
              "EvpnInclusiveMulticastIpv6( RD: 7, tag: 1, router: '2001:db8::1' )" );
   EXPECT_EQ( mismatches< LspPingEvpnInclusiveMulticastIpv6SubTlv >( multicastIpv6, 43, 29 ), 0u );
   WireBytes bytes( multicastIpv6 );
   auto & fec = bytes.as< LspPingEvpnInclusiveMulticastIpv6SubTlv >();
   EXPECT_EQ( fec.routerAddr(), address6( "2001:db8::1" ) );
   fec.ipLenIs( 32 );
   EXPECT_EQ( fec.stringValue(), "Invalid EvpnInclusiveMulticastIpv6SubTlv" );
}

constexpr char const * ethernetAd =
   "00 2c 00 18 00 00 00 00 00 00 00 07 00 00 00 64 00 01 02 03 04 05 06 07 08 9a 00 00";
constexpr char const * ethernetAdText =
   "EvpnEthernetAd( RD: 7, tag: 100, ESI: '00:01:02:03:04:05:06:07:08:9a' )";

TEST( LspPingEvpnEthernetAdSubTlv, readsAndPrintsItsFields ) {
   WireBytes bytes( ethernetAd );
   auto const & fec = bytes.as< LspPingEvpnEthernetAdSubTlv >();
   EXPECT_EQ( fec.esi(), esi );
   EXPECT_EQ( fec.mbz(), 0 );
   EXPECT_EQ( fec.stringValue(), ethernetAdText );
   EXPECT_EQ( readFec( ethernetAd ), ethernetAdText );
   EXPECT_EQ( mismatches< LspPingEvpnEthernetAdSubTlv >( ethernetAd, 44, 24 ), 0u );
   EXPECT_EQ( LspPingEvpnEthernetAdSubTlv().stringValue(), "Invalid EvpnEthernetAdSubTlv" );
}

TEST( LspPingEvpnEthernetAdSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingEvpnEthernetAdSubTlv >( []( auto & fec ) {
                 fec.rdIs( 7 );
                 fec.ethernetTagIs( 100 );
                 fec.esiIs( esi );
              } ),
              ethernetAd );
   EXPECT_EQ( hexAfter< LspPingEvpnEthernetAdSubTlv >( []( auto & fec ) {
                 fec.mbzIs( 0x0102 );
              } ).substr( 3 * 25 ),
              "a5 01 02" );
   EXPECT_EQ( readFec( "00 2c 00 04 00 00 00 00" ),
              "EvpnEthernetAd: length 4 is too short, needed 24" );
}

constexpr char const * prefixIpv4 =
   "00 2d 00 20 00 00 00 00 00 00 00 07 00 00 00 64 00 01 02 03 04 05 06 07 08 9a 00 10 "
   "0a 01 00 00 0a 00 00 01";
constexpr char const * prefixIpv4Text =
   "EvpnIpv4Prefix( RD: 7, tag: 100, ESI: '00:01:02:03:04:05:06:07:08:9a', "
   "prefix: '10.1.0.0/16', gateway: '10.0.0.1' )";

TEST( LspPingEvpnIpv4PrefixSubTlv, readsAndPrintsItsFields ) {
   WireBytes bytes( prefixIpv4 );
   auto & fec = bytes.as< LspPingEvpnIpv4PrefixSubTlv >();
   EXPECT_EQ( fec.mbz(), 0 );
   EXPECT_EQ( fec.prefixLen(), 16 );
   EXPECT_EQ( fec.ipPrefix(), IpAddr( 10, 1, 0, 0 ) );
   EXPECT_EQ( fec.gatewayAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.stringValue(), prefixIpv4Text );
   EXPECT_EQ( readFec( prefixIpv4 ), prefixIpv4Text );
   EXPECT_EQ( mismatches< LspPingEvpnIpv4PrefixSubTlv >( prefixIpv4, 45, 32 ), 0u );
   fec.prefixLenIs( 33 );
   EXPECT_EQ( fec.stringValue(), "Invalid EvpnIpv4PrefixSubTlv" );
}

TEST( LspPingEvpnIpv4PrefixSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingEvpnIpv4PrefixSubTlv >( []( auto & fec ) {
                 fec.rdIs( 7 );
                 fec.ethernetTagIs( 100 );
                 fec.esiIs( esi );
                 fec.prefixLenIs( 16 );
                 fec.ipPrefixIs( IpAddr( 10, 1, 0, 0 ) );
                 fec.gatewayAddrIs( IpAddr( 10, 0, 0, 1 ) );
              } ),
              prefixIpv4 );
   EXPECT_EQ( hexAfter< LspPingEvpnIpv4PrefixSubTlv >( []( auto & fec ) {
                 fec.mbzIs( 1 );
                 fec.gatewayAddrIs( IpAddr( 1, 2, 3, 4 ) );
              } ).substr( 3 * 25 ),
              "a5 01 a5 a5 a5 a5 a5 01 02 03 04" );
}

TEST( LspPingEvpnIpv4PrefixSubTlv, isToldWhereDamaged ) {
   Bytes bytes = bytesOf( prefixIpv4 );
   bytes[27] = 33;
   EXPECT_EQ( readFec( hexOf( bytes ) ), "EvpnIpPrefix: prefix length 33, at most 32" );
   bytes[27] = 16;
   bytes[3] = 31;
   EXPECT_EQ( readFec( hexOf( bytes ) ),
              "EvpnIpPrefix: length 31 is none of those that are known" );
}

constexpr char const * prefixIpv6 =
   "00 2d 00 38 00 00 00 00 00 00 00 07 00 00 00 64 00 01 02 03 04 05 06 07 08 9a 00 20 "
   "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 00 fe 80 00 00 00 00 00 00 00 00 00 00 00 00 00 "
   "01";

TEST( LspPingEvpnIpv6PrefixSubTlv, readsAndPrintsItsFields ) {
   EXPECT_EQ( readFec( prefixIpv6 ),
              "EvpnIpv6Prefix( RD: 7, tag: 100, ESI: '00:01:02:03:04:05:06:07:08:9a', "
              "prefix: '2001:db8::/32', gateway: 'fe80::1' )" );
   EXPECT_EQ( mismatches< LspPingEvpnIpv6PrefixSubTlv >( prefixIpv6, 45, 56 ), 0u );
   Bytes bytes = bytesOf( prefixIpv6 );
   bytes[27] = 129;
   EXPECT_EQ( readFec( hexOf( bytes ) ), "EvpnIpPrefix: prefix length 129, at most 128" );
}

} // namespace
