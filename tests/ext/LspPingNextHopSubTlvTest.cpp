#include "MplsUtils/LspPing/ext/tlv/LspPingNextHopSubTlv.h"
#include "MplsUtils/LspPing/ext/tlv/LspPingProxyTlv.h"
#include "tests/ext/TlvTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using Velnet::IpAddr;

// Behind the header and the fixed part of the TLV that it stands in.
template < class View, class Fill >
std::string writtenHop( Fill fill ) {
   std::string const hex = written( [&]( LspPingMessageWriter & writer ) {
      auto const parameters = writer.open< LspPingProxyEchoParametersIpv4Tlv >();
      writer.add< View >( fill );
   } );
   constexpr std::size_t before = 3 * sizeof( LspPingProxyEchoParametersIpv4Tlv );
   return hex.size() > before ? hex.substr( before ) : hex;
}

std::string readHop( std::string_view hex ) {
   U8 const size = static_cast< U8 >( 16 + bytesOf( hex ).size() );
   return readTlvs( "00 17 " + hexOf( Bytes{ 0, size } ) +
                       " 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 " + std::string( hex ),
                    1 );
}

// 2001:db8::1 and 2001:db8::2
constexpr char const * first6 = "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01";
constexpr char const * second6 = " 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02";

TEST( LspPingNextHopSubTlvs, areWrittenAndReadBackByTheirAddressType ) {
   auto const asIpv4 = []( auto & hop ) { hop.addressIs( IpAddr( 10, 0, 0, 1 ) ); };
   auto const asIpv6 = []( auto & hop ) { hop.addressIs( address6( "2001:db8::1" ) ); };

   std::string const ipv4 = "00 01 00 0c 01 00 00 00 0a 00 00 01 0a 00 00 02";
   EXPECT_EQ( writtenHop< LspPingNextHopIpv4SubTlv >( [&]( auto & hop ) {
                 asIpv4( hop );
                 hop.interfaceAddrIs( IpAddr( 10, 0, 0, 2 ) );
              } ),
              ipv4 );
   EXPECT_EQ( readHop( ipv4 ), "NextHopIpv4( '10.0.0.1', interface: '10.0.0.2' )" );

   std::string const ipv4Unnumbered = "00 01 00 0c 02 00 00 00 0a 00 00 01 00 00 00 07";
   EXPECT_EQ( writtenHop< LspPingNextHopIpv4UnnumberedSubTlv >( [&]( auto & hop ) {
                 asIpv4( hop );
                 hop.interfaceIdIs( 7 );
              } ),
              ipv4Unnumbered );
   EXPECT_EQ( readHop( ipv4Unnumbered ), "NextHopIpv4Unnumbered( '10.0.0.1', interface: 7 )" );

   std::string const ipv6 = std::string( "00 01 00 24 03 00 00 00 " ) + first6 + second6;
   EXPECT_EQ( writtenHop< LspPingNextHopIpv6SubTlv >( [&]( auto & hop ) {
                 asIpv6( hop );
                 hop.interfaceAddrIs( address6( "2001:db8::2" ) );
              } ),
              ipv6 );
   EXPECT_EQ( readHop( ipv6 ), "NextHopIpv6( '2001:db8::1', interface: '2001:db8::2' )" );

   std::string const ipv6Unnumbered =
      std::string( "00 01 00 18 04 00 00 00 " ) + first6 + " 80 00 00 07";
   EXPECT_EQ( writtenHop< LspPingNextHopIpv6UnnumberedSubTlv >( [&]( auto & hop ) {
                 asIpv6( hop );
                 hop.interfaceIdIs( 0x80000007 );
              } ),
              ipv6Unnumbered );
   EXPECT_EQ( readHop( ipv6Unnumbered ),
              "NextHopIpv6Unnumbered( '2001:db8::1', interface: 2147483655 )" );

   std::string const ipv4Adj = "00 01 00 08 06 00 00 00 0a 00 00 01";
   EXPECT_EQ( writtenHop< LspPingNextHopIpv4AdjSubTlv >( asIpv4 ), ipv4Adj );
   EXPECT_EQ( readHop( ipv4Adj ), "NextHopIpv4Adj( '10.0.0.1' )" );

   std::string const ipv6Adj = std::string( "00 01 00 14 07 00 00 00 " ) + first6;
   EXPECT_EQ( writtenHop< LspPingNextHopIpv6AdjSubTlv >( asIpv6 ), ipv6Adj );
   EXPECT_EQ( readHop( ipv6Adj ), "NextHopIpv6Adj( '2001:db8::1' )" );
}

TEST( LspPingNextHopSubTlvs, areNothingWithAnotherAddressTypeOrLength ) {
   EXPECT_EQ( readHop( "00 01 00 0c 05 00 00 00 0a 00 00 01 0a 00 00 02" ),
              "NextHop: 5 at byte 0 of the value is not known" );
   EXPECT_EQ( readHop( "00 01 00 08 01 00 00 00 0a 00 00 01" ),
              "NextHop: length 8 is too short, needed 12" );
   EXPECT_EQ( readHop( "00 01 00 0c 06 00 00 00 0a 00 00 01 0a 00 00 02" ),
              "NextHop: length 12, expected 8" );
   EXPECT_EQ( writtenHop< LspPingNextHopIpv4SubTlv >( []( auto & hop ) { hop.addrTypeIs( 2 ); } ),
              "selectorWrong" );
}

template < class View >
void expectValidFor( U8 addrType, unsigned wanted, std::string_view invalid ) {
   for( U8 const fill : { U8{ 0xa5 }, addrType } ) {
      WireBytes bytes( sizeof( View ), fill );
      EXPECT_EQ( bytes.as< View >().stringValue(), invalid );
      EXPECT_EQ( validityMismatches< View >( bytes,
                                             [&]( unsigned type, unsigned length ) {
                                                return type == 1 && length == wanted &&
                                                       fill == addrType;
                                             } ),
                 0u );
   }
}

TEST( LspPingNextHopSubTlvs, areValidWithTheirTypeAddressTypeAndLength ) {
   expectValidFor< LspPingNextHopIpv4SubTlv >( 1, 12, "Invalid NextHopIpv4SubTlv" );
   expectValidFor< LspPingNextHopIpv4UnnumberedSubTlv >( 2, 12,
                                                         "Invalid NextHopIpv4UnnumberedSubTlv" );
   expectValidFor< LspPingNextHopIpv6SubTlv >( 3, 36, "Invalid NextHopIpv6SubTlv" );
   expectValidFor< LspPingNextHopIpv6UnnumberedSubTlv >( 4, 24,
                                                         "Invalid NextHopIpv6UnnumberedSubTlv" );
   expectValidFor< LspPingNextHopIpv4AdjSubTlv >( 6, 8, "Invalid NextHopIpv4AdjSubTlv" );
   expectValidFor< LspPingNextHopIpv6AdjSubTlv >( 7, 20, "Invalid NextHopIpv6AdjSubTlv" );
}

TEST( LspPingNextHopSubTlvs, writeTheirOwnBytesOnly ) {
   using Numbered = LspPingNextHopIpv4SubTlv;
   expectSets< Numbered >( &Numbered::addressIs, "address", IpAddr( 1, 2, 3, 4 ),
                           "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< Numbered >( &Numbered::interfaceAddrIs, "interfaceAddr", IpAddr( 1, 2, 3, 4 ),
                           "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
   using Unnumbered = LspPingNextHopIpv4UnnumberedSubTlv;
   expectSets< Unnumbered >( &Unnumbered::interfaceIdIs, "interfaceId", U32{ 0x01020304 },
                             "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
}

} // namespace
