#include "MplsUtils/LspPing/ext/fec/LspPingExtPrefixFec.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using Velnet::IpAddr;

constexpr char const * ldpIpv6 = "00 02 00 11 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 00 20 "
                                 "00 00 00";

TEST( LspPingLdpIpv6SubTlv, readsAndPrintsThePrefix ) {
   WireBytes bytes( ldpIpv6 );
   auto const & fec = bytes.as< LspPingLdpIpv6SubTlv >();
   EXPECT_EQ( fec.ipPrefix(), address6( "2001:db8::" ) );
   EXPECT_EQ( fec.prefixLen(), 32 );
   EXPECT_EQ( fec.stringValue(), "LdpIpv6( '2001:db8::/32' )" );
}

TEST( LspPingLdpIpv6SubTlv, isValidWithItsTypeAndLength ) {
   WireBytes bytes( 24, 0xa5 );
   EXPECT_EQ(
      validityMismatches< LspPingLdpIpv6SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 2 && length == 17; } ),
      0u );
   EXPECT_EQ( bytes.as< LspPingLdpIpv6SubTlv >().stringValue(), "Invalid LdpIpv6SubTlv" );
}

TEST( LspPingLdpIpv6SubTlv, isWrittenAndReadBack ) {
   EXPECT_EQ( writtenFec< LspPingLdpIpv6SubTlv >( []( auto & fec ) {
                 fec.ipPrefixIs( address6( "2001:db8::" ) );
                 fec.prefixLenIs( 32 );
              } ),
              ldpIpv6 );
   EXPECT_EQ( readFec( ldpIpv6 ), "LdpIpv6( '2001:db8::/32' )" );
}

TEST( LspPingLdpIpv6SubTlv, isNotWellFormedWithALongerPrefix ) {
   EXPECT_EQ( readFec( "00 02 00 11 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 00 81 00 00 00" ),
              "LDPIpv6: prefix length 129, at most 128" );
}

constexpr char const * mtLdpIpv4 = "00 1f 00 08 0a 01 02 00 18 00 00 02";

TEST( LspPingMtLdpIpv4SubTlv, readsAndPrintsPrefixAndTopology ) {
   WireBytes bytes( mtLdpIpv4 );
   auto const & fec = bytes.as< LspPingMtLdpIpv4SubTlv >();
   EXPECT_EQ( fec.ipPrefix(), IpAddr( 10, 1, 2, 0 ) );
   EXPECT_EQ( fec.prefixLen(), 24 );
   EXPECT_EQ( fec.mtId(), 2 );
   EXPECT_EQ( fec.stringValue(), "MtLdpIpv4( '10.1.2.0/24', topology: 2 )" );
}

TEST( LspPingMtLdpIpv4SubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingMtLdpIpv4SubTlv >( []( auto & fec ) {
                 fec.ipPrefixIs( IpAddr( 1, 2, 3, 4 ) );
                 fec.mbzIs( 6 );
              } ),
              "a5 a5 a5 a5 01 02 03 04 a5 06 a5 a5" );
   EXPECT_EQ( hexAfter< LspPingMtLdpIpv4SubTlv >( []( auto & fec ) {
                 fec.prefixLenIs( 5 );
                 fec.mtIdIs( 0x0708 );
              } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 05 a5 07 08" );
}

// The figures and the text of RFC 7307 section 4.3 differ.
TEST( LspPingMtLdpIpv4SubTlv, isValidWithEitherLength ) {
   WireBytes bytes( 12, 0xa5 );
   EXPECT_EQ( validityMismatches< LspPingMtLdpIpv4SubTlv >( bytes,
                                                            []( unsigned type, unsigned length ) {
                                                               return type == 31 && ( length == 8 ||
                                                                                      length == 5 );
                                                            } ),
              0u );
   EXPECT_EQ( bytes.as< LspPingMtLdpIpv4SubTlv >().stringValue(), "Invalid MtLdpIpv4SubTlv" );
}

TEST( LspPingMtLdpIpv4SubTlv, isReadWithTheLengthOfTheTextToo ) {
   EXPECT_EQ( readFec( mtLdpIpv4 ), "MtLdpIpv4( '10.1.2.0/24', topology: 2 )" );
   EXPECT_EQ( readFec( "00 1f 00 05 0a 01 02 00 18 00 00 02" ),
              "MtLdpIpv4( '10.1.2.0/24', topology: 2 )\n"
              "length without the topology, RFC 7307 section 4.3" );
   EXPECT_EQ( readFec( "00 1f 00 06 0a 01 02 00 18 00 00 02" ), "MTLDPIpv4: length 6, expected 8" );
   EXPECT_EQ( readFec( "00 1f 00 08 0a 01 02 00 21 00 00 02" ),
              "MTLDPIpv4: prefix length 33, at most 32" );
}

TEST( LspPingMtLdpIpv4SubTlv, isWrittenWithTheLengthOfTheFigures ) {
   EXPECT_EQ( writtenFec< LspPingMtLdpIpv4SubTlv >( []( auto & fec ) {
                 fec.ipPrefixIs( IpAddr( 10, 1, 2, 0 ) );
                 fec.prefixLenIs( 24 );
                 fec.mtIdIs( 2 );
              } ),
              mtLdpIpv4 );
}

constexpr char const * mtLdpIpv6 = "00 20 00 14 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 00 20 "
                                   "00 01 02";

TEST( LspPingMtLdpIpv6SubTlv, readsAndPrintsPrefixAndTopology ) {
   WireBytes bytes( mtLdpIpv6 );
   auto const & fec = bytes.as< LspPingMtLdpIpv6SubTlv >();
   EXPECT_EQ( fec.mtId(), 0x0102 );
   EXPECT_EQ( fec.stringValue(), "MtLdpIpv6( '2001:db8::/32', topology: 258 )" );
   EXPECT_EQ( readFec( mtLdpIpv6 ), "MtLdpIpv6( '2001:db8::/32', topology: 258 )" );
}

TEST( LspPingMtLdpIpv6SubTlv, isValidWithEitherLength ) {
   WireBytes bytes( 24, 0xa5 );
   EXPECT_EQ(
      validityMismatches< LspPingMtLdpIpv6SubTlv >(
         bytes, []( unsigned type,
                    unsigned length ) { return type == 32 && ( length == 20 || length == 17 ); } ),
      0u );
   EXPECT_EQ( bytes.as< LspPingMtLdpIpv6SubTlv >().stringValue(), "Invalid MtLdpIpv6SubTlv" );
}

} // namespace
