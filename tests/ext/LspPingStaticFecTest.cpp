#include "MplsUtils/LspPing/ext/fec/LspPingStaticFec.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using namespace FecTesting;

constexpr char const * staticLsp = "00 16 00 18 ff ff ff ff 00 00 00 02 00 03 00 04 00 00 00 05 "
                                   "00 00 00 06 00 07 00 00";
constexpr char const * staticLspText =
   "StaticLsp( source global id: 4294967295, source node id: 2, source tunnel: 3, LSP: 4, "
   "destination global id: 5, destination node id: 6, destination tunnel: 7 )";

TEST( LspPingStaticLspSubTlv, readsAndPrintsTheLsp ) {
   WireBytes bytes( staticLsp );
   auto const & fec = bytes.as< LspPingStaticLspSubTlv >();
   EXPECT_EQ( fec.sourceGlobalId(), 0xffffffffu );
   EXPECT_EQ( fec.sourceNodeId(), 2u );
   EXPECT_EQ( fec.sourceTunnelNum(), 3 );
   EXPECT_EQ( fec.lspNum(), 4 );
   EXPECT_EQ( fec.destinationGlobalId(), 5u );
   EXPECT_EQ( fec.destinationNodeId(), 6u );
   EXPECT_EQ( fec.destinationTunnelNum(), 7 );
   EXPECT_EQ( fec.stringValue(), staticLspText );
   EXPECT_EQ( readFec( staticLsp ), staticLspText );
   EXPECT_EQ( readFec( std::string( "00 16 00 14" ) + std::string( staticLsp ).substr( 11, 60 ) ),
              "StaticLsp: length 20 is too short, needed 24" );
}

TEST( LspPingStaticLspSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingStaticLspSubTlv >( []( auto & fec ) {
                 fec.sourceGlobalIdIs( 0xffffffff );
                 fec.sourceNodeIdIs( 2 );
                 fec.sourceTunnelNumIs( 3 );
                 fec.lspNumIs( 4 );
                 fec.destinationGlobalIdIs( 5 );
                 fec.destinationNodeIdIs( 6 );
                 fec.destinationTunnelNumIs( 7 );
              } ),
              staticLsp );
}

TEST( LspPingStaticLspSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingStaticLspSubTlv;
   U32 const word = 0x01020304;
   U16 const half = 0x0102;
   expectSets< View >( &View::sourceGlobalIdIs, "sourceGlobalId", word,
                       "a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::sourceNodeIdIs, "sourceNodeId", word,
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::sourceTunnelNumIs, "sourceTunnelNum", half,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::lspNumIs, "lspNum", half,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50102 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::destinationGlobalIdIs, "destinationGlobalId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::destinationNodeIdIs, "destinationNodeId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::destinationTunnelNumIs, "destinationTunnelNum", half,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::mbzIs, "mbz", U16{ 0x0606 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50606" );
}

TEST( LspPingStaticLspSubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingStaticLspSubTlv >(), ( Pairs{ { 22, 24 } } ) );
   EXPECT_EQ( Laid< LspPingStaticLspSubTlv >( 0 )->stringValue(), "Invalid StaticLspSubTlv" );
}

constexpr char const * staticPseudowire =
   "00 17 00 20 ff ff ff ff ff ff ff fe 00 00 00 02 00 00 00 03 80 00 00 04 00 00 00 05 00 00 00 "
   "06 80 00 00 07";
constexpr char const * staticPseudowireText =
   "StaticPseudowire( service: 18446744073709551614, source global id: 2, source node id: 3, "
   "source AC: 2147483652, destination global id: 5, destination node id: 6, destination AC: "
   "2147483655 )";

TEST( LspPingStaticPseudowireSubTlv, readsAndPrintsThePseudowire ) {
   WireBytes bytes( staticPseudowire );
   auto const & fec = bytes.as< LspPingStaticPseudowireSubTlv >();
   EXPECT_EQ( fec.serviceId(), 0xfffffffffffffffeu );
   EXPECT_EQ( fec.sourceGlobalId(), 2u );
   EXPECT_EQ( fec.sourceNodeId(), 3u );
   EXPECT_EQ( fec.sourceAcId(), 0x80000004u );
   EXPECT_EQ( fec.destinationGlobalId(), 5u );
   EXPECT_EQ( fec.destinationNodeId(), 6u );
   EXPECT_EQ( fec.destinationAcId(), 0x80000007u );
   EXPECT_EQ( fec.stringValue(), staticPseudowireText );
   EXPECT_EQ( readFec( staticPseudowire ), staticPseudowireText );
}

TEST( LspPingStaticPseudowireSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingStaticPseudowireSubTlv >( []( auto & fec ) {
                 fec.serviceIdIs( 0xfffffffffffffffe );
                 fec.sourceGlobalIdIs( 2 );
                 fec.sourceNodeIdIs( 3 );
                 fec.sourceAcIdIs( 0x80000004 );
                 fec.destinationGlobalIdIs( 5 );
                 fec.destinationNodeIdIs( 6 );
                 fec.destinationAcIdIs( 0x80000007 );
              } ),
              staticPseudowire );
}

TEST( LspPingStaticPseudowireSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingStaticPseudowireSubTlv;
   U32 const word = 0x01020304;
   expectSets< View >( &View::serviceIdIs, "serviceId", U64{ 0x0102030405060708 },
                       "a5a5a5a5 01020304 05060708 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 "
                       "a5a5a5a5" );
   expectSets< View >( &View::sourceGlobalIdIs, "sourceGlobalId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 "
                       "a5a5a5a5" );
   expectSets< View >( &View::sourceNodeIdIs, "sourceNodeId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 "
                       "a5a5a5a5" );
   expectSets< View >( &View::sourceAcIdIs, "sourceAcId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 "
                       "a5a5a5a5" );
   expectSets< View >( &View::destinationGlobalIdIs, "destinationGlobalId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 "
                       "a5a5a5a5" );
   expectSets< View >( &View::destinationNodeIdIs, "destinationNodeId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 "
                       "a5a5a5a5" );
   expectSets< View >( &View::destinationAcIdIs, "destinationAcId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 "
                       "01020304" );
}

TEST( LspPingStaticPseudowireSubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingStaticPseudowireSubTlv >(), ( Pairs{ { 23, 32 } } ) );
   EXPECT_EQ( Laid< LspPingStaticPseudowireSubTlv >( 0 )->stringValue(),
              "Invalid StaticPseudowireSubTlv" );
}

constexpr char const * staticTunnel = "00 1c 00 18 00 00 00 01 ff ff ff ff 00 00 00 03 00 00 00 04 "
                                      "00 05 00 06 00 02 00 00";
constexpr char const * staticTunnelText =
   "StaticTunnel( source global id: 1, source node id: 4294967295, source tunnel: 5, destination "
   "global id: 3, destination node id: 4, destination tunnel: 6, flags: S )";

TEST( LspPingStaticTunnelSubTlv, readsAndPrintsTheTunnel ) {
   WireBytes bytes( staticTunnel );
   auto const & fec = bytes.as< LspPingStaticTunnelSubTlv >();
   EXPECT_EQ( fec.sourceGlobalId(), 1u );
   EXPECT_EQ( fec.sourceNodeId(), 0xffffffffu );
   EXPECT_EQ( fec.destinationGlobalId(), 3u );
   EXPECT_EQ( fec.destinationNodeId(), 4u );
   EXPECT_EQ( fec.sourceTunnelNum(), 5 );
   EXPECT_EQ( fec.destinationTunnelNum(), 6 );
   EXPECT_EQ( fec.flags(), 2 );
   EXPECT_EQ( fec.stringValue(), staticTunnelText );
   EXPECT_EQ( readFec( staticTunnel ), staticTunnelText );
}

TEST( LspPingStaticTunnelSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingStaticTunnelSubTlv >( []( auto & fec ) {
                 fec.sourceGlobalIdIs( 1 );
                 fec.sourceNodeIdIs( 0xffffffff );
                 fec.destinationGlobalIdIs( 3 );
                 fec.destinationNodeIdIs( 4 );
                 fec.sourceTunnelNumIs( 5 );
                 fec.destinationTunnelNumIs( 6 );
                 fec.flagsIs( 2 );
              } ),
              staticTunnel );
}

TEST( LspPingStaticTunnelSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingStaticTunnelSubTlv;
   U32 const word = 0x01020304;
   U16 const half = 0x0102;
   expectSets< View >( &View::sourceGlobalIdIs, "sourceGlobalId", word,
                       "a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::sourceNodeIdIs, "sourceNodeId", word,
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::destinationGlobalIdIs, "destinationGlobalId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::destinationNodeIdIs, "destinationNodeId", word,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::sourceTunnelNumIs, "sourceTunnelNum", half,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5 a5a5a5a5" );
   expectSets< View >( &View::destinationTunnelNumIs, "destinationTunnelNum", half,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50102 a5a5a5a5" );
   expectSets< View >( &View::flagsIs, "flags", half,
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::mbzIs, "mbz", U16{ 0x0606 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50606" );
}

TEST( LspPingStaticTunnelSubTlv, isValidWithItsTypeAndLengthAndNotBothFlags ) {
   EXPECT_EQ( validPairs< LspPingStaticTunnelSubTlv >(), ( Pairs{ { 28, 24 } } ) );
   Laid< LspPingStaticTunnelSubTlv > fec( staticTunnel );
   fec->flagsIs( 0x8003 );
   EXPECT_EQ( fec->stringValue(), "Invalid StaticTunnelSubTlv" );
   fec->flagsIs( 0x8000 );
   EXPECT_TRUE( fec->valid() );
}

} // namespace
