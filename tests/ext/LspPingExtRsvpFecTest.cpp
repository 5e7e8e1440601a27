#include "MplsUtils/LspPing/ext/fec/LspPingExtRsvpFec.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using namespace FecTesting;
using Velnet::IpAddr;

std::string const address1 = "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01";
std::string const address2 = "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02";
std::string const address3 = "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 03";

std::string const rsvpIpv6 =
   "00 04 00 38 " + address1 + " 00 00 00 07 " + address2 + " " + address3 + " 00 00 00 09";
constexpr char const * rsvpIpv6Text =
   "RsvpIpv6( destination: '2001:db8::1', tunnel: 7, extended tunnel: '2001:db8::2', "
   "sender: '2001:db8::3', LSP: 9 )";

TEST( LspPingRsvpIpv6SubTlv, readsAndPrintsTheLsp ) {
   WireBytes bytes( rsvpIpv6 );
   auto const & fec = bytes.as< LspPingRsvpIpv6SubTlv >();
   EXPECT_EQ( fec.destination(), address6( "2001:db8::1" ) );
   EXPECT_EQ( fec.tunnelId(), 7 );
   EXPECT_EQ( fec.extendedTunnelId(), address6( "2001:db8::2" ) );
   EXPECT_EQ( fec.senderAddress(), address6( "2001:db8::3" ) );
   EXPECT_EQ( fec.lspId(), 9 );
   EXPECT_EQ( fec.stringValue(), rsvpIpv6Text );
   EXPECT_EQ( readFec( rsvpIpv6 ), rsvpIpv6Text );
}

// All fields but those that are zero.
template < class View >
void fillLsp( View & fec ) {
   fec.tunnelIdIs( 7 );
   fec.extendedTunnelIdIs( address6( "2001:db8::2" ) );
   fec.senderAddressIs( address6( "2001:db8::3" ) );
   fec.lspIdIs( 9 );
}

TEST( LspPingRsvpIpv6SubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingRsvpIpv6SubTlv >( []( auto & fec ) {
                 fec.destinationIs( address6( "2001:db8::1" ) );
                 fillLsp( fec );
              } ),
              rsvpIpv6 );
}

TEST( LspPingRsvpIpv6SubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingRsvpIpv6SubTlv;
   std::string const a5 = "a5a5a5a5";
   auto const words = [&]( int count ) {
      std::string text;
      for( int i = 0; i < count; ++i )
         text += ( i > 0 ? " " : "" ) + a5;
      return text;
   };
   expectSets< View >( &View::destinationIs, "destination", address6( "1:203::4" ),
                       a5 + " 00010203 00000000 00000000 00000004 " + words( 10 ) );
   expectSets< View >( &View::tunnelIdIs, "tunnelId", U16{ 0x0102 },
                       words( 5 ) + " a5a50102 " + words( 9 ) );
   expectSets< View >( &View::extendedTunnelIdIs, "extendedTunnelId", address6( "1:203::4" ),
                       words( 6 ) + " 00010203 00000000 00000000 00000004 " + words( 5 ) );
   expectSets< View >( &View::senderAddressIs, "senderAddress", address6( "1:203::4" ),
                       words( 10 ) + " 00010203 00000000 00000000 00000004 " + a5 );
   expectSets< View >( &View::lspIdIs, "lspId", U16{ 0x0102 }, words( 14 ) + " a5a50102" );
}

TEST( LspPingRsvpIpv6SubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingRsvpIpv6SubTlv >(), ( Pairs{ { 4, 56 } } ) );
   EXPECT_EQ( Laid< LspPingRsvpIpv6SubTlv >( 0 )->stringValue(), "Invalid RsvpIpv6SubTlv" );
}

std::string const p2mpValue =
   "ff ff ff fe 00 00 00 07 " + address2 + " " + address3 + " 00 00 00 09";
constexpr char const * p2mpText =
   "RsvpP2mpIpv6( P2MP id: 4294967294, tunnel: 7, extended tunnel: '2001:db8::2', "
   "sender: '2001:db8::3', LSP: 9 )";

TEST( LspPingRsvpP2mpIpv6SubTlv, readsAndPrintsTheLsp ) {
   WireBytes bytes( "00 12 00 2c " + p2mpValue );
   auto const & fec = bytes.as< LspPingRsvpP2mpIpv6SubTlv >();
   EXPECT_EQ( fec.p2mpId(), 0xfffffffeu );
   EXPECT_EQ( fec.tunnelId(), 7 );
   EXPECT_EQ( fec.extendedTunnelId(), address6( "2001:db8::2" ) );
   EXPECT_EQ( fec.senderAddress(), address6( "2001:db8::3" ) );
   EXPECT_EQ( fec.lspId(), 9 );
   EXPECT_EQ( fec.stringValue(), p2mpText );
   EXPECT_EQ( readFec( "00 12 00 2c " + p2mpValue ), p2mpText );
}

// RFC 6425 section 3.1.1 states 12 bytes more than it draws.
TEST( LspPingRsvpP2mpIpv6SubTlv, isReadWithTheLengthThatIsStated ) {
   std::string const reading = "\nlength long by 12, RFC 6425 section 3.1.1";
   EXPECT_EQ( readFec( "00 12 00 38 " + p2mpValue ), p2mpText + reading );
   EXPECT_EQ( readFec( "00 12 00 38 " + p2mpValue + " " + rsvpIpv6 ),
              p2mpText + reading + "\n" + rsvpIpv6Text );
   EXPECT_EQ( readFec( "00 12 00 38 " + p2mpValue + " 00 00 00 00 00 00 00 00 00 00 00 00" ),
              "RSVPP2MPIpv6: length 56, expected 44" );
   EXPECT_EQ( readFec( "00 12 00 30 " + p2mpValue + " 00 00 00 00" ),
              "RSVPP2MPIpv6: length 48, expected 44" );
}

TEST( LspPingRsvpP2mpIpv6SubTlv, isWrittenWithTheLengthThatIsDrawn ) {
   EXPECT_EQ( writtenFec< LspPingRsvpP2mpIpv6SubTlv >( []( auto & fec ) {
                 fec.p2mpIdIs( 0xfffffffe );
                 fillLsp( fec );
              } ),
              "00 12 00 2c " + p2mpValue );
}

TEST( LspPingRsvpP2mpIpv6SubTlv, isValidWithItsTypeAndEitherLength ) {
   EXPECT_EQ( validPairs< LspPingRsvpP2mpIpv6SubTlv >(), ( Pairs{ { 18, 44 }, { 18, 56 } } ) );
   EXPECT_EQ( Laid< LspPingRsvpP2mpIpv6SubTlv >( 0 )->stringValue(), "Invalid RsvpP2mpIpv6SubTlv" );
}

constexpr char const * tunnelIpv4 = "00 1a 00 10 0a 00 00 01 00 01 00 07 0a 00 00 02 0a 00 00 03";

TEST( LspPingRsvpTunnelIpv4SubTlv, readsAndPrintsTheTunnel ) {
   WireBytes bytes( tunnelIpv4 );
   auto const & fec = bytes.as< LspPingRsvpTunnelIpv4SubTlv >();
   EXPECT_EQ( fec.destination(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.flags(), 1 );
   EXPECT_EQ( fec.tunnelId(), 7 );
   EXPECT_EQ( fec.extendedTunnelId(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( fec.senderAddress(), IpAddr( 10, 0, 0, 3 ) );
   constexpr char const * text = "RsvpTunnelIpv4( destination: '10.0.0.1', flags: P, tunnel: 7, "
                                 "extended tunnel: '10.0.0.2', sender: '10.0.0.3' )";
   EXPECT_EQ( fec.stringValue(), text );
   EXPECT_EQ( readFec( tunnelIpv4 ), text );
}

TEST( LspPingRsvpTunnelIpv4SubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingRsvpTunnelIpv4SubTlv >( []( auto & fec ) {
                 fec.destinationIs( IpAddr( 10, 0, 0, 1 ) );
                 fec.flagsIs( 1 );
                 fec.tunnelIdIs( 7 );
                 fec.extendedTunnelIdIs( IpAddr( 10, 0, 0, 2 ) );
                 fec.senderAddressIs( IpAddr( 10, 0, 0, 3 ) );
              } ),
              tunnelIpv4 );
}

TEST( LspPingRsvpTunnelIpv4SubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingRsvpTunnelIpv4SubTlv;
   expectSets< View >( &View::destinationIs, "destination", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::flagsIs, "flags", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 0102a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::tunnelIdIs, "tunnelId", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a50102 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::extendedTunnelIdIs, "extendedTunnelId", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::senderAddressIs, "senderAddress", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
}

TEST( LspPingRsvpTunnelIpv4SubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingRsvpTunnelIpv4SubTlv >(), ( Pairs{ { 26, 16 } } ) );
   EXPECT_EQ( Laid< LspPingRsvpTunnelIpv4SubTlv >( 0 )->stringValue(),
              "Invalid RsvpTunnelIpv4SubTlv" );
}

std::string flagsText( U16 flags ) {
   Laid< LspPingRsvpTunnelIpv4SubTlv > fec( tunnelIpv4 );
   fec->flagsIs( flags );
   std::string const text( fec->stringValue() );
   std::size_t const begin = text.find( "flags: " );
   return begin == std::string::npos
             ? text
             : text.substr( begin + 7, text.find( ',', begin ) - begin - 7 );
}

// RFC 7110 section 4.3.1.
TEST( LspPingRsvpTunnelIpv4SubTlv, isOfPrimaryOrSecondaryLspsAndNotOfBoth ) {
   EXPECT_EQ( flagsText( 0 ), "none" );
   EXPECT_EQ( flagsText( 1 ), "P" );
   EXPECT_EQ( flagsText( 2 ), "S" );
   EXPECT_EQ( flagsText( 0x8002 ), "S+0x8000" );
   EXPECT_EQ( flagsText( 3 ), "Invalid RsvpTunnelIpv4SubTlv" );
   EXPECT_EQ( readFec( "00 1a 00 10 0a 00 00 01 00 03 00 07 0a 00 00 02 0a 00 00 03" ),
              "RSVPIpv4Tunnel: not valid" );
}

std::string const tunnelIpv6 =
   "00 1b 00 34 " + address1 + " 00 02 00 07 " + address2 + " " + address3;

TEST( LspPingRsvpTunnelIpv6SubTlv, readsAndPrintsTheTunnel ) {
   WireBytes bytes( tunnelIpv6 );
   auto const & fec = bytes.as< LspPingRsvpTunnelIpv6SubTlv >();
   EXPECT_EQ( fec.destination(), address6( "2001:db8::1" ) );
   EXPECT_EQ( fec.flags(), 2 );
   EXPECT_EQ( fec.tunnelId(), 7 );
   EXPECT_EQ( fec.extendedTunnelId(), address6( "2001:db8::2" ) );
   EXPECT_EQ( fec.senderAddress(), address6( "2001:db8::3" ) );
   constexpr char const * text =
      "RsvpTunnelIpv6( destination: '2001:db8::1', flags: S, tunnel: 7, extended tunnel: "
      "'2001:db8::2', sender: '2001:db8::3' )";
   EXPECT_EQ( fec.stringValue(), text );
   EXPECT_EQ( readFec( tunnelIpv6 + " " + tunnelIpv4 ),
              text + std::string( "\n" ) +
                 std::string( textOf< LspPingRsvpTunnelIpv4SubTlv >( tunnelIpv4 ) ) );
   EXPECT_EQ( readFec( "00 1b 00 10 0a 00 00 01 00 01 00 07 0a 00 00 02 0a 00 00 03" ),
              "RSVPIpv6Tunnel: length 16 is too short, needed 52" );
}

TEST( LspPingRsvpTunnelIpv6SubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingRsvpTunnelIpv6SubTlv >( []( auto & fec ) {
                 fec.destinationIs( address6( "2001:db8::1" ) );
                 fec.flagsIs( 2 );
                 fec.tunnelIdIs( 7 );
                 fec.extendedTunnelIdIs( address6( "2001:db8::2" ) );
                 fec.senderAddressIs( address6( "2001:db8::3" ) );
              } ),
              tunnelIpv6 );
}

TEST( LspPingRsvpTunnelIpv6SubTlv, isValidWithItsTypeAndLengthAndNotBothFlags ) {
   EXPECT_EQ( validPairs< LspPingRsvpTunnelIpv6SubTlv >(), ( Pairs{ { 27, 52 } } ) );
   Laid< LspPingRsvpTunnelIpv6SubTlv > fec( tunnelIpv6 );
   fec->flagsIs( 3 );
   EXPECT_EQ( fec->stringValue(), "Invalid RsvpTunnelIpv6SubTlv" );
}

} // namespace
