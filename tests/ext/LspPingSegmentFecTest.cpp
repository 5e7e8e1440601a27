#include "MplsUtils/LspPing/ext/fec/LspPingSegmentFec.h"
#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using Velnet::IpAddr;
using Velnet::MplsLabelEntry;

constexpr char const * segmentLabel = "00 2e 00 08 40 00 00 00 f4 24 0a ff";

TEST( LspPingSegmentLabelSubTlv, readsPrintsAndWritesTheSid ) {
   WireBytes bytes( segmentLabel );
   auto const & fec = bytes.as< LspPingSegmentLabelSubTlv >();
   EXPECT_EQ( fec.flags(), 0x40 );
   EXPECT_EQ( fec.sid(), MplsLabelEntry( 1000000, 5, false, 255 ) );
   EXPECT_EQ( readFec( segmentLabel ), "SegmentLabel( 1000000, TC: 5, S: 0, TTL: 255 )" );
   EXPECT_EQ( writtenFec< LspPingSegmentLabelSubTlv >( []( auto & written ) {
                 written.flagsIs( 0x40 );
                 written.sidIs( MplsLabelEntry( 1000000, 5, false, 255 ) );
              } ),
              segmentLabel );
}

TEST( LspPingSegmentLabelSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingSegmentLabelSubTlv;
   expectSets< View >( &View::flagsIs, "flags", U8{ 1 }, "a5a5a5a5 01a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::reserved0Is, "reserved0", U8{ 2 }, "a5a5a5a5 a502a5a5 a5a5a5a5" );
   expectSets< View >( &View::reserved1Is, "reserved1", U16{ 0x0304 },
                       "a5a5a5a5 a5a50304 a5a5a5a5" );
   expectSets< View >( &View::sidIs, "sid", MplsLabelEntry( 0x01020304 ),
                       "a5a5a5a5 a5a5a5a5 01020304" );
}

TEST( LspPingSegmentLabelSubTlv, isValidWithItsTypeAndLength ) {
   WireBytes bytes( 12, 0xa5 );
   EXPECT_EQ(
      validityMismatches< LspPingSegmentLabelSubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 46 && length == 8; } ),
      0u );
   EXPECT_EQ( bytes.as< LspPingSegmentLabelSubTlv >().stringValue(), "Invalid SegmentLabelSubTlv" );
}

constexpr char const * ipv4Alone = "00 2f 00 08 00 00 00 80 0a 00 00 01";
constexpr char const * ipv4WithSid = "00 2f 00 0c 40 00 00 80 0a 00 00 01 f4 24 0a ff";
constexpr char const * ipv6Alone = "00 30 00 14 40 00 00 01 20 01 0d b8 00 00 00 00 00 00 00 00 00 "
                                   "00 00 01";
constexpr char const * ipv6WithSid =
   "00 30 00 18 00 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 "
   "00 00 01 f4 24 0a ff";

TEST( LspPingSegmentNodeSubTlv, readsNodeAndAlgorithm ) {
   WireBytes bytes( ipv4WithSid );
   auto const & fec = bytes.as< LspPingSegmentIpv4NodeSubTlv >();
   EXPECT_EQ( fec.flags(), 0x40 );
   EXPECT_EQ( fec.srAlgorithm(), 128 );
   EXPECT_TRUE( fec.hasSrAlgorithm() );
   EXPECT_EQ( fec.node(), IpAddr( 10, 0, 0, 1 ) );
   WireBytes alone( ipv6Alone );
   EXPECT_EQ( alone.as< LspPingSegmentIpv6NodeSubTlv >().node(), address6( "2001:db8::1" ) );
}

// Without its flag the algorithm has no meaning.
TEST( LspPingSegmentNodeSubTlv, printsTheAlgorithmThatCounts ) {
   EXPECT_EQ( readFec( ipv4Alone ), "SegmentIpv4Node( '10.0.0.1' )" );
   EXPECT_EQ( readFec( ipv4WithSid ), "SegmentIpv4Node( '10.0.0.1', algorithm: 128 )" );
   EXPECT_EQ( readFec( ipv6Alone ), "SegmentIpv6Node( '2001:db8::1', algorithm: 1 )" );
   EXPECT_EQ( readFec( ipv6WithSid ), "SegmentIpv6Node( '2001:db8::1' )" );
   // All the other flags.
   WireBytes bytes( ipv4Alone );
   bytes.as< LspPingSegmentIpv4NodeSubTlv >().flagsIs( 0xbf );
   EXPECT_FALSE( bytes.as< LspPingSegmentIpv4NodeSubTlv >().hasSrAlgorithm() );
}

TEST( LspPingSegmentNodeSubTlv, isValidWithAndWithoutASid ) {
   WireBytes bytes( 24, 0xa5 );
   EXPECT_EQ(
      validityMismatches< LspPingSegmentIpv4NodeSubTlv >(
         bytes, []( unsigned type,
                    unsigned length ) { return type == 47 && ( length == 8 || length == 12 ); } ),
      0u );
   EXPECT_EQ(
      validityMismatches< LspPingSegmentIpv6NodeSubTlv >(
         bytes, []( unsigned type,
                    unsigned length ) { return type == 48 && ( length == 20 || length == 24 ); } ),
      0u );
   EXPECT_EQ( bytes.as< LspPingSegmentIpv4NodeSubTlv >().stringValue(),
              "Invalid SegmentIpv4NodeSubTlv" );
   EXPECT_EQ( bytes.as< LspPingSegmentIpv6NodeSubTlv >().stringValue(),
              "Invalid SegmentIpv6NodeSubTlv" );
}

TEST( LspPingSegmentNodeSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingSegmentIpv4NodeSubTlv;
   expectSets< View >( &View::flagsIs, "flags", U8{ 1 }, "a5a5a5a5 01a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U16{ 0x0203 }, "a5a5a5a5 a50203a5 a5a5a5a5" );
   expectSets< View >( &View::srAlgorithmIs, "srAlgorithm", U8{ 4 }, "a5a5a5a5 a5a5a504 a5a5a5a5" );
   expectSets< View >( &View::nodeIs, "node", IpAddr( 1, 2, 3, 4 ), "a5a5a5a5 a5a5a5a5 01020304" );
}

// The labels that the reader finds behind a node.
std::string sidsOf( std::string_view hex ) {
   Bytes const bytes = messageOfFecs( hex );
   LspPingMessageReader reader;
   LspPingMessage const & message = reader.read( bytes );
   if( message.elementCount() != 2 )
      return "not one FEC";
   LspPingLabels const labels = message.element( 1 ).labels();
   std::string text;
   for( std::size_t i = 0; i < labels.size(); ++i )
      text += std::string( labels[i].stringValue().c_str() ) + ' ';
   return text;
}

// What is told of the FEC that is in no record.
std::string leftOut( std::string_view hex ) {
   Bytes const bytes = messageOfFecs( hex );
   LspPingMessageReader reader;
   LspPingMessageRecords const records( reader.read( bytes ) );
   return records.leftOut.size() == 1 ? std::string( records.leftOut[0].what ) : "not one";
}

TEST( LspPingSegmentNodeSubTlv, isInNoRecord ) {
   EXPECT_EQ( leftOut( ipv4Alone ), "no attributes for this FEC" );
   EXPECT_EQ( leftOut( ipv4WithSid ), "no attributes for this FEC" );
}

TEST( LspPingSegmentNodeSubTlv, isReadWithItsSid ) {
   EXPECT_EQ( sidsOf( ipv4Alone ), "" );
   EXPECT_EQ( sidsOf( ipv4WithSid ), "1000000/5/0/255 " );
   EXPECT_EQ( sidsOf( ipv6Alone ), "" );
   EXPECT_EQ( sidsOf( ipv6WithSid ), "1000000/5/0/255 " );
   EXPECT_EQ( readFec( "00 2f 00 10 00 00 00 00 0a 00 00 01 f4 24 0a ff f4 24 0a ff" ),
              "SegmentIpv4Node: length 16, expected 8" );
   EXPECT_EQ( readFec( "00 2f 00 07 00 00 00 00 0a 00 00 00" ),
              "SegmentIpv4Node: length 7 is too short, needed 8" );
   EXPECT_EQ( readFec( "00 30 00 0c 00 00 00 00 0a 00 00 01 f4 24 0a ff" ),
              "SegmentIpv6Node: length 12 is too short, needed 20" );
}

// A node with so many SIDs, which is told so many bytes of length.
template < class View >
std::string writtenNode( auto node, U32 sids, U8 flags, U8 algorithm, U16 length ) {
   return writtenFecs( [&]( LspPingMessageWriter & writer ) {
      auto segment = writer.open< View >( [&]( View & fec ) {
         fec.flagsIs( flags );
         fec.srAlgorithmIs( algorithm );
         fec.nodeIs( node );
         fec.lengthIs( length );
      } );
      for( ; sids > 0; --sids )
         segment.label( 1000000, 5, false, 255 );
   } );
}

// The length is that of what was written, whatever was told before.
TEST( LspPingSegmentNodeSubTlv, isWrittenWithAndWithoutASid ) {
   IpAddr const node( 10, 0, 0, 1 );
   using Ipv4 = LspPingSegmentIpv4NodeSubTlv;
   for( U16 const length : { U16{ 8 }, U16{ 12 } } ) {
      EXPECT_EQ( writtenNode< Ipv4 >( node, 0, 0, 128, length ), ipv4Alone );
      EXPECT_EQ( writtenNode< Ipv4 >( node, 1, 0x40, 128, length ), ipv4WithSid );
      EXPECT_EQ( writtenNode< Ipv4 >( node, 2, 0, 0, length ), "lengthWrong" );
   }
   EXPECT_EQ( writtenFec< Ipv4 >( [&]( auto & fec ) {
                 fec.srAlgorithmIs( 128 );
                 fec.nodeIs( node );
              } ),
              ipv4Alone );
   auto const node6 = address6( "2001:db8::1" );
   using Ipv6 = LspPingSegmentIpv6NodeSubTlv;
   EXPECT_EQ( writtenNode< Ipv6 >( node6, 0, 0x40, 1, 20 ), ipv6Alone );
   EXPECT_EQ( writtenNode< Ipv6 >( node6, 1, 0, 0, 20 ), ipv6WithSid );
}

} // namespace
