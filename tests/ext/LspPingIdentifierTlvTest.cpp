#include "MplsUtils/LspPing/ext/tlv/LspPingIdentifierTlv.h"
#include "tests/ext/TlvTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using FecTesting::Laid;

TEST( LspPingLsrCapabilityTlv, readsAndPrintsItsFlags ) {
   Laid< LspPingLsrCapabilityTlv > tlv( "00 04 00 04 00 00 00 03" );
   EXPECT_EQ( tlv->flags(), 3u );
   EXPECT_EQ( tlv->stringValue(), "LsrCapability( flags: UD )" );
   tlv->flagsIs( 0x80000002 );
   EXPECT_EQ( tlv->stringValue(), "LsrCapability( flags: U+0x80000000 )" );
   tlv->flagsIs( 0x10 );
   EXPECT_EQ( tlv->stringValue(), "LsrCapability( flags: +0x10 )" );
   tlv->flagsIs( 0 );
   EXPECT_EQ( tlv->stringValue(), "LsrCapability( flags: none )" );
}

TEST( LspPingLsrCapabilityTlv, isValidWithItsTypeAndLength ) {
   expectValidWith< LspPingLsrCapabilityTlv >( 4, 4, "Invalid LsrCapabilityTlv" );
   expectSets< LspPingLsrCapabilityTlv >( &LspPingLsrCapabilityTlv::flagsIs, "flags",
                                          U32{ 0x01020304 }, "a5a5a5a5 01020304" );
}

TEST( LspPingLsrCapabilityTlv, isWrittenAndReadBack ) {
   EXPECT_EQ( writtenTlv< LspPingLsrCapabilityTlv >( []( auto & tlv ) { tlv.flagsIs( 1 ); } ),
              "00 04 00 04 00 00 00 01" );
   EXPECT_EQ( readTlvs( "00 04 00 04 00 00 00 01" ), "LsrCapability( flags: D )" );
   EXPECT_EQ( readTlvs( "00 04 00 08 00 00 00 01 00 00 00 00" ),
              "LsrCapability: length 8, expected 4" );
}

TEST( LspPingVendorEnterpriseNumberTlv, readsAndPrintsTheNumber ) {
   Laid< LspPingVendorEnterpriseNumberTlv > tlv( "00 05 00 04 ff 00 00 09" );
   EXPECT_EQ( tlv->enterpriseNumber(), 0xff000009u );
   EXPECT_EQ( tlv->stringValue(), "VendorEnterpriseNumber( 4278190089 )" );
   expectValidWith< LspPingVendorEnterpriseNumberTlv >( 5, 4, "Invalid VendorEnterpriseNumberTlv" );
   expectSets< LspPingVendorEnterpriseNumberTlv >(
      &LspPingVendorEnterpriseNumberTlv::enterpriseNumberIs, "enterpriseNumber", U32{ 0x01020304 },
      "a5a5a5a5 01020304" );
}

// RFC 8029 section 3.6: always 4.
TEST( LspPingVendorEnterpriseNumberTlv, isWrittenAndReadBack ) {
   EXPECT_EQ( writtenTlv< LspPingVendorEnterpriseNumberTlv >(
                 []( auto & tlv ) { tlv.enterpriseNumberIs( 9 ); } ),
              "00 05 00 04 00 00 00 09" );
   EXPECT_EQ( readTlvs( "00 05 00 04 00 00 00 09" ), "VendorEnterpriseNumber( 9 )" );
   EXPECT_EQ( readTlvs( "00 05 00 05 00 00 00 09 01 00 00 00" ),
              "VendorEnterpriseNum: length 5, expected 4" );
}

constexpr char const * sourceId = "00 0d 00 08 00 00 00 01 80 00 00 02";

TEST( LspPingSourceIdTlv, readsAndPrintsTheNode ) {
   Laid< LspPingSourceIdTlv > tlv( sourceId );
   EXPECT_EQ( tlv->globalId(), 1u );
   EXPECT_EQ( tlv->nodeId(), 0x80000002u );
   EXPECT_EQ( tlv->stringValue(), "SourceId( global: 1, node: 2147483650 )" );
   expectValidWith< LspPingSourceIdTlv >( 13, 8, "Invalid SourceIdTlv" );
}

TEST( LspPingSourceIdTlv, writesItsOwnBytesOnly ) {
   using View = LspPingSourceIdTlv;
   expectSets< View >( &View::globalIdIs, "globalId", U32{ 0x01020304 },
                       "a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::nodeIdIs, "nodeId", U32{ 0x01020304 }, "a5a5a5a5 a5a5a5a5 01020304" );
}

TEST( LspPingSourceIdTlv, isWrittenAndReadBack ) {
   EXPECT_EQ( writtenTlv< LspPingSourceIdTlv >( []( auto & tlv ) {
                 tlv.globalIdIs( 1 );
                 tlv.nodeIdIs( 0x80000002 );
              } ),
              sourceId );
   EXPECT_EQ( readTlvs( sourceId ), "SourceId( global: 1, node: 2147483650 )" );
   EXPECT_EQ( readTlvs( "00 0d 00 04 00 00 00 01" ), "SourceId: length 4 is too short, needed 8" );
}

TEST( LspPingDestinationIdTlv, isTheSameOfTheOtherEnd ) {
   constexpr char const * destinationId = "00 0e 00 08 00 00 00 01 00 00 00 02";
   EXPECT_EQ( Laid< LspPingDestinationIdTlv >( destinationId )->nodeId(), 2u );
   expectValidWith< LspPingDestinationIdTlv >( 14, 8, "Invalid DestinationIdTlv" );
   EXPECT_EQ( writtenTlv< LspPingDestinationIdTlv >( []( auto & tlv ) {
                 tlv.globalIdIs( 1 );
                 tlv.nodeIdIs( 2 );
              } ),
              destinationId );
   EXPECT_EQ( readTlvs( destinationId ), "DestinationId( global: 1, node: 2 )" );
}

TEST( LspPingBfdDiscriminatorTlv, readsAndPrintsTheDiscriminator ) {
   constexpr char const * bfd = "00 0f 00 04 80 00 00 07";
   EXPECT_EQ( Laid< LspPingBfdDiscriminatorTlv >( bfd )->discriminator(), 0x80000007u );
   expectValidWith< LspPingBfdDiscriminatorTlv >( 15, 4, "Invalid BfdDiscriminatorTlv" );
   expectSets< LspPingBfdDiscriminatorTlv >( &LspPingBfdDiscriminatorTlv::discriminatorIs,
                                             "discriminator", U32{ 0x01020304 },
                                             "a5a5a5a5 01020304" );
   EXPECT_EQ( writtenTlv< LspPingBfdDiscriminatorTlv >(
                 []( auto & tlv ) { tlv.discriminatorIs( 0x80000007 ); } ),
              bfd );
   EXPECT_EQ( readTlvs( bfd ), "BfdDiscriminator( 2147483655 )" );
}

TEST( LspPingReplyTcTlv, readsAndPrintsTheTrafficClass ) {
   constexpr char const * replyTc = "00 16 00 04 a0 00 00 01";
   Laid< LspPingReplyTcTlv > tlv( replyTc );
   EXPECT_EQ( tlv->tc(), 5 );
   EXPECT_EQ( tlv->mbz(), 1u );
   EXPECT_EQ( tlv->stringValue(), "ReplyTc( 5 )" );
   expectValidWith< LspPingReplyTcTlv >( 22, 4, "Invalid ReplyTcTlv" );
   EXPECT_EQ( writtenTlv< LspPingReplyTcTlv >( []( auto & view ) {
                 view.tcIs( 5 );
                 view.mbzIs( 1 );
              } ),
              replyTc );
   EXPECT_EQ( readTlvs( replyTc ), "ReplyTc( 5 )" );
}

TEST( LspPingReplyTcTlv, writesItsOwnBitsOnly ) {
   using View = LspPingReplyTcTlv;
   expectSets< View >( &View::tcIs, "tc", U8{ 2 }, "a5a5a5a5 45a5a5a5" );
   expectSets< View >( &View::mbzIs, "mbz", U32{ 0x1f020304 }, "a5a5a5a5 bf020304" );
   // What does not fit is dropped.
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.tcIs( 0xff ); } ),
              "a5 a5 a5 a5 e5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.mbzIs( 0xe0000000 ); } ),
              "a5 a5 a5 a5 a0 00 00 00" );
}

} // namespace
