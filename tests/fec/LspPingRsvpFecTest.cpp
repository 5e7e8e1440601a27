#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace FecTesting;
using Velnet::IpAddr;

constexpr char const * zeros = "00000000 00000000 00000000 00000000 00000000 00000000";

// What the two views have in common.
template < class View >
void expectReadsSharedFields() {
   Laid< View > laid( "00000014 00000000 12340102 0a000001 0a000002 56780304" );
   EXPECT_EQ( laid->mbz0(), asStored( 0x12, 0x34 ) );
   EXPECT_EQ( laid->tunnelId(), 0x0102 );
   EXPECT_EQ( laid->extendedTunnelId(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( laid->senderAddress(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( laid->mbz1(), asStored( 0x56, 0x78 ) );
   EXPECT_EQ( laid->lspId(), 0x0304 );
   EXPECT_EQ( laid->totalLength(), 24 );
}

template < class View >
void expectSetsSharedFields() {
   expectSets< View >( &View::mbz0Is, "mbz0", asStored( 0x12, 0x34 ),
                       "a5a5a5a5 a5a5a5a5 1234a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::tunnelIdIs, "tunnelId", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a50102 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::extendedTunnelIdIs, "extendedTunnelId", IpAddr( 10, 0, 0, 1 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 0a000001 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::senderAddressIs, "senderAddress", IpAddr( 10, 0, 0, 2 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 0a000002 a5a5a5a5" );
   expectSets< View >( &View::mbz1Is, "mbz1", asStored( 0x56, 0x78 ),
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 5678a5a5" );
   expectSets< View >( &View::lspIdIs, "lspId", U16{ 0x0304 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50304" );
}

TEST( LspPingRsvpIpv4SubTlv, readsAndWritesItsFieldsInPlace ) {
   Laid< LspPingRsvpIpv4SubTlv > laid( "00030014 c0000201 00000001 0a000001 0a000002 00000002" );
   EXPECT_EQ( laid->destination(), IpAddr( 192, 0, 2, 1 ) );
   expectReadsSharedFields< LspPingRsvpIpv4SubTlv >();
   expectSets< LspPingRsvpIpv4SubTlv >( &LspPingRsvpIpv4SubTlv::destinationIs, "destination",
                                        IpAddr( 192, 0, 2, 1 ),
                                        "a5a5a5a5 c0000201 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSetsSharedFields< LspPingRsvpIpv4SubTlv >();
}

TEST( LspPingRsvpIpv4SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingRsvpIpv4SubTlv >( 4 ), zeros );
   EXPECT_EQ( textOf< LspPingRsvpIpv4SubTlv >( zeros ), "Invalid RsvpIpv4SubTlv" );
}

TEST( LspPingRsvpIpv4SubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingRsvpIpv4SubTlv >(), ( Pairs{ { 3, 20 } } ) );
   EXPECT_EQ(
      textOf< LspPingRsvpIpv4SubTlv >( "00030010 c0000201 00000001 0a000001 0a000002 00000002" ),
      "Invalid RsvpIpv4SubTlv" );
}

TEST( LspPingRsvpIpv4SubTlv, isValidWhateverItsBody ) {
   EXPECT_TRUE(
      isValid< LspPingRsvpIpv4SubTlv >( "00030014 00000000 12340000 00000000 00000000 00000000" ) );
   EXPECT_TRUE(
      isValid< LspPingRsvpIpv4SubTlv >( "00030014 00000000 00000000 00000000 00000000 56780000" ) );
   EXPECT_TRUE(
      isValid< LspPingRsvpIpv4SubTlv >( "00030014 ffffffff ffffffff ffffffff ffffffff ffffffff" ) );
}

TEST( LspPingRsvpIpv4SubTlv, printsItsFieldsBehindTabs ) {
   EXPECT_EQ(
      textOf< LspPingRsvpIpv4SubTlv >( "00030014 c0000201 00000102 0a000001 0a000002 00000304" ),
      "RsvpIpv4:\tdestination(192.0.2.1),\ttunnelId(258),\textendedTunnelId(10.0.0.1),"
      "\tsenderAddress(10.0.0.2),\tlspId(772)" );
   EXPECT_EQ(
      textOf< LspPingRsvpIpv4SubTlv >( "00030014 ffffffff ffffffff ffffffff ffffffff ffffffff" ),
      "RsvpIpv4:\tdestination(255.255.255.255),\ttunnelId(65535),"
      "\textendedTunnelId(255.255.255.255),\tsenderAddress(255.255.255.255),"
      "\tlspId(65535)" );
}

TEST( LspPingRsvpIpv4SubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingRsvpIpv4SubTlv >(),
              ( Lines{ "130 destination Velnet::IpAddr rw", "131 mbz0 U16 rw",
                       "132 tunnelId U16 rw", "133 extendedTunnelId Velnet::IpAddr rw",
                       "134 senderAddress Velnet::IpAddr rw", "135 mbz1 U16 rw", "136 lspId U16 rw",
                       "137 valid bool r", "138 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingRsvpIpv4SubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

TEST( LspPingRsvpP2mpIpv4SubTlv, readsAndWritesItsFieldsInPlace ) {
   Laid< LspPingRsvpP2mpIpv4SubTlv > laid(
      "00110014 01020304 00000001 0a000001 0a000002 00000002" );
   EXPECT_EQ( laid->p2mpId(), 0x01020304u );
   expectReadsSharedFields< LspPingRsvpP2mpIpv4SubTlv >();
   expectSets< LspPingRsvpP2mpIpv4SubTlv >(
      &LspPingRsvpP2mpIpv4SubTlv::p2mpIdIs, "p2mpId", U32{ 0x01020304 },
      "a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSetsSharedFields< LspPingRsvpP2mpIpv4SubTlv >();
}

TEST( LspPingRsvpP2mpIpv4SubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingRsvpP2mpIpv4SubTlv >( 4 ), zeros );
   EXPECT_EQ( textOf< LspPingRsvpP2mpIpv4SubTlv >( zeros ), "Invalid RsvpP2mpIpv4SubTlv" );
}

TEST( LspPingRsvpP2mpIpv4SubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingRsvpP2mpIpv4SubTlv >(), ( Pairs{ { 17, 20 } } ) );
}

TEST( LspPingRsvpP2mpIpv4SubTlv, isWhatAPointToPointFecOfType17Is ) {
   std::string_view const hex = "00110014 00000007 00000001 0a000001 0a000002 00000002";
   EXPECT_EQ( textOf< LspPingRsvpIpv4SubTlv >( hex ), "Invalid RsvpIpv4SubTlv" );
   EXPECT_TRUE( isValid< LspPingRsvpP2mpIpv4SubTlv >( hex ) );
}

TEST( LspPingRsvpP2mpIpv4SubTlv, isValidWhateverItsBody ) {
   EXPECT_TRUE( isValid< LspPingRsvpP2mpIpv4SubTlv >(
      "00110014 00000000 12340000 00000000 00000000 56780000" ) );
   EXPECT_TRUE( isValid< LspPingRsvpP2mpIpv4SubTlv >(
      "00110014 ffffffff ffffffff ffffffff ffffffff ffffffff" ) );
}

TEST( LspPingRsvpP2mpIpv4SubTlv, printsItsFieldsBehindTabs ) {
   EXPECT_EQ( textOf< LspPingRsvpP2mpIpv4SubTlv >(
                 "00110014 00000007 00000102 0a000001 0a000002 00000304" ),
              "RsvpP2mpIpv4:\tp2mpId(7),\ttunnelId(258),\textendedTunnelId(10.0.0.1),"
              "\tsenderAddress(10.0.0.2),\tlspId(772)" );
}

TEST( LspPingRsvpP2mpIpv4SubTlv, printsALargeIdentifierNegative ) {
   EXPECT_EQ( textOf< LspPingRsvpP2mpIpv4SubTlv >(
                 "00110014 ffffffff 00000001 00000000 00000000 00000002" ),
              "RsvpP2mpIpv4:\tp2mpId(-1),\ttunnelId(1),\textendedTunnelId(0.0.0.0),"
              "\tsenderAddress(0.0.0.0),\tlspId(2)" );
   EXPECT_EQ( textOf< LspPingRsvpP2mpIpv4SubTlv >(
                 "00110014 80000000 00000001 00000000 00000000 00000002" ),
              "RsvpP2mpIpv4:\tp2mpId(-2147483648),\ttunnelId(1),\textendedTunnelId(0.0.0.0),"
              "\tsenderAddress(0.0.0.0),\tlspId(2)" );
   EXPECT_EQ( textOf< LspPingRsvpP2mpIpv4SubTlv >(
                 "00110014 7fffffff 00000001 00000000 00000000 00000002" ),
              "RsvpP2mpIpv4:\tp2mpId(2147483647),\ttunnelId(1),\textendedTunnelId(0.0.0.0),"
              "\tsenderAddress(0.0.0.0),\tlspId(2)" );
}

TEST( LspPingRsvpP2mpIpv4SubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingRsvpP2mpIpv4SubTlv >(),
              ( Lines{ "130 p2mpId U32 rw", "131 mbz0 U16 rw", "132 tunnelId U16 rw",
                       "133 extendedTunnelId Velnet::IpAddr rw",
                       "134 senderAddress Velnet::IpAddr rw", "135 mbz1 U16 rw", "136 lspId U16 rw",
                       "137 valid bool r", "138 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingRsvpP2mpIpv4SubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

TEST( LspPingRsvpIpv4SubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingRsvpIpv4SubTlvParser >(),
              "pkt, offset, header, handleHeader, destination, tunnelId, extendedTunnelId, "
              "senderAddress, lspId, valid, stringValue, totalLength" );
   Placed< LspPingRsvpIpv4SubTlvParser >( lspPingRsvpIpv4SubTlvParserFactory,
                                          "00030014 c0000201 00000102 0a000001 0a000002 00000304" )
      .forwards( "destination", IpAddr( 192, 0, 2, 1 ) )
      .forwards( "tunnelId", U16{ 0x0102 } )
      .forwards( "extendedTunnelId", IpAddr( 10, 0, 0, 1 ) )
      .forwards( "senderAddress", IpAddr( 10, 0, 0, 2 ) )
      .forwards( "lspId", U16{ 0x0304 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 24 } )
      .forwardsText(
         "RsvpIpv4:\tdestination(192.0.2.1),\ttunnelId(258),\textendedTunnelId(10.0.0.1),"
         "\tsenderAddress(10.0.0.2),\tlspId(772)" );
}

TEST( LspPingRsvpP2mpIpv4SubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingRsvpP2mpIpv4SubTlvParser >(),
              "pkt, offset, header, handleHeader, p2mpId, tunnelId, extendedTunnelId, "
              "senderAddress, lspId, valid, stringValue, totalLength" );
   Placed< LspPingRsvpP2mpIpv4SubTlvParser >(
      lspPingRsvpP2mpIpv4SubTlvParserFactory,
      "00110014 01020304 00000102 0a000001 0a000002 00000304" )
      .forwards( "p2mpId", U32{ 0x01020304 } )
      .forwards( "tunnelId", U16{ 0x0102 } )
      .forwards( "extendedTunnelId", IpAddr( 10, 0, 0, 1 ) )
      .forwards( "senderAddress", IpAddr( 10, 0, 0, 2 ) )
      .forwards( "lspId", U16{ 0x0304 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 24 } )
      .forwardsText( "RsvpP2mpIpv4:\tp2mpId(16909060),\ttunnelId(258),"
                     "\textendedTunnelId(10.0.0.1),\tsenderAddress(10.0.0.2),\tlspId(772)" );
}

} // namespace
