#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"
#include "tests/message/MessageBytes.h"
#include "tests/message/RandomMessage.h"

#include <gtest/gtest.h>
#include <map>

namespace {

using namespace LspPing;
using namespace MessageBytes;
using Fec = LspPingTargetFecSubTlvType;
using Velnet::IpAddr;
using Writer = LspPingMessageWriter;

// The FEC of a stack that the record is written as, or the error.
std::string fecOf( LspPingFecInfo const & info ) {
   return written( [&]( Writer & writer ) {
      auto const stack = writer.open( LspPingTlvType::TargetFecStack );
      writer.add( LspPingContext::targetFec, 99, {} );
      writer.add( info );
   } );
}

LspPingFecInfo ldpInfo() {
   LspPingFecInfo info;
   info.fecTlvTypeIs( Fec::LDPIpv4 );
   info.dstPrefixIs( { IpAddr( 10, 1, 2, 0 ), 24 } );
   return info;
}

TEST( LspPingRecordWriting, writesAFecThroughItsView ) {
   EXPECT_EQ( fecOf( ldpInfo() ), "00 01 00 10 00 63 00 00 00 01 00 05 0a 01 02 00 18 00 00 00" );
   LspPingFecInfo sr;
   sr.fecTlvTypeIs( Fec::SRIpv4Deprecated );
   sr.dstPrefixIs( { IpAddr( 10, 1, 2, 3 ), 32 } );
   sr.algorithmIs( 1 );
   sr.igpProtocolIs( LspPingSrIgpProtocol::isis );
   sr.fecTlvLenIs( 8 );
   EXPECT_EQ( fecOf( sr ), "00 01 00 10 00 63 00 00 7c 00 00 08 0a 01 02 03 20 02 01 00" );
}

TEST( LspPingRecordWriting, tellsWhatAFecDoesNotSay ) {
   std::string const before = " at 40: 00 01 00 04 00 63 00 00";
   EXPECT_EQ( fecOf( {} ), "recordUnknown" + before );
   LspPingFecInfo info = ldpInfo();
   info.fecTlvTypeIs( Fec::GenericIpv6 );
   EXPECT_EQ( fecOf( info ), "recordIncomplete" + before );
   info = ldpInfo();
   info.fecTlvLenIs( 6 );
   EXPECT_EQ( fecOf( info ), "recordContradicts" + before );
   // No numbers of the edges.
   info.fecTlvTypeIs( Fec::L2VPNEndpoint );
   EXPECT_EQ( fecOf( info ), "recordIncomplete" + before );
   info.fecTlvTypeIs( Fec::NilFec );
   info.fecTlvLenIs( 0 );
   EXPECT_EQ( fecOf( info ), "recordIncomplete" + before );
   info.fecTlvTypeIs( Fec::P2mpFec );
   EXPECT_EQ( fecOf( info ), "rootWrong" + before );
   info.opqTypeIs( LspPingP2mpFecStackSubTlvType( 9 ) );
   EXPECT_EQ( fecOf( info ), "recordUnknown" + before );
   info.fecTlvTypeIs( Fec::FEC129Pseudowire );
   EXPECT_EQ( fecOf( info ), "recordIncomplete" + before );
}

TEST( LspPingRecordWriting, writesAStackWhosePositionsFollowEachOther ) {
   LspPingFecStack stack;
   stack.fecInfoIs( 0, ldpInfo() );
   stack.fecInfoIs( 1, ldpInfo() );
   EXPECT_EQ( written( [&]( Writer & writer ) { EXPECT_TRUE( writer.fecStack( stack ) ); } ),
              "00 01 00 18 00 01 00 05 0a 01 02 00 18 00 00 00 00 01 00 05 0a 01 02 00 18 00 00 "
              "00" );
   stack.fecInfoIs( 3, ldpInfo() );
   EXPECT_EQ( written( [&]( Writer & writer ) { EXPECT_FALSE( writer.fecStack( stack ) ); } ),
              "recordIncomplete at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) { EXPECT_FALSE( writer.fecStack( {} ) ); } ),
              "nothingInIt at 32: " );
}

TEST( LspPingRecordWriting, writesAPad ) {
   LspPingPadInfo pad( 2, true );
   pad.lengthIs( 4 );
   pad.paddingIs( 1, 0xab );
   EXPECT_EQ( written( [&]( Writer & writer ) { EXPECT_TRUE( writer.pad( pad ) ); } ),
              "00 03 00 04 02 00 ab 00" );
   pad.lengthIs( 2 );
   EXPECT_EQ( written( [&]( Writer & writer ) { EXPECT_FALSE( writer.pad( pad ) ); } ),
              "recordContradicts at 32: " );
   pad.lengthIs( 70000 );
   EXPECT_EQ( written( [&]( Writer & writer ) { EXPECT_FALSE( writer.pad( pad ) ); } ),
              "tooLong at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) { EXPECT_FALSE( writer.pad( LspPingPadInfo() ) ); } ),
              "recordIncomplete at 32: " );
}

TEST( LspPingRecordWriting, writesAnInterfaceAndLabelStack ) {
   auto const of = []( LspPingIntfAndLabelStackInfo const & info ) {
      return written( [&]( Writer & writer ) { writer.interface( info ); } );
   };
   Velnet::MplsLabelStack const labels{ Velnet::MplsLabelEntry( 0x00018140 ) };
   EXPECT_EQ( of( { 2, IpAddr( 10, 0, 0, 1 ), {}, 7, labels, true } ),
              "00 07 00 10 02 00 00 00 0a 00 00 01 00 00 00 07 00 01 81 40" );
   EXPECT_EQ( of( { 1, IpAddr( 10, 0, 0, 1 ), {}, 7, labels, true } ), "recordIncomplete at 32: " );
   EXPECT_EQ( of( { 1, IpAddr( 10, 0, 0, 1 ), IpAddr( 10, 0, 0, 2 ), 7, labels, true } ),
              "recordContradicts at 32: " );
   EXPECT_EQ( of( { 3, IpAddr( 10, 0, 0, 1 ), {}, 0, labels, true } ), "recordIncomplete at 32: " );
   EXPECT_EQ( of( { 9, IpAddr( 10, 0, 0, 1 ), {}, 7, labels, true } ), "recordUnknown at 32: " );
   EXPECT_EQ( of( { 2, IpAddr( 10, 0, 0, 1 ), {}, 7, labels, false } ),
              "recordIncomplete at 32: " );
}

// A mapping with everything that its kind has a place for.
LspPingDownstreamMappingInfoSet mapping( LspPingDownstreamMappingType kind, U8 multipathType,
                                         LspPingReturnCode code ) {
   LspPingMultipathBitset bits( 4 );
   bits.bitsetIs( 0, 0xc0 );
   LspPingDownstreamLabelStack labels;
   labels.labelEntryIs( 0, { 0, 1, 0x81, 3 } );
   labels.sizeIs( 1 );
   LspPingFecStackChangeInfo changes;
   if( kind == LspPingDownstreamMappingType::downstreamDetailedMap ) {
      LspPingFecStack popped;
      popped.fecInfoIs( 0, ldpInfo() );
      changes.popTlvInfoIs( popped );
   }
   LspPingDownstreamMappingInfoSet set( kind );
   set.lspPingDownstreamMappingInfoIs( 0, { 1500,
                                            1,
                                            2,
                                            IpAddr( 10, 0, 0, 1 ),
                                            IpAddr( 10, 0, 0, 2 ),
                                            multipathType,
                                            0,
                                            IpAddr( 127, 0, 0, 0 ),
                                            bits,
                                            labels,
                                            changes,
                                            {},
                                            code,
                                            0,
                                            true } );
   return set;
}

TEST( LspPingRecordWriting, writesMappingsOfBothKinds ) {
   using Kind = LspPingDownstreamMappingType;
   auto const of = []( LspPingDownstreamMappingInfoSet const & set ) {
      return written( [&]( Writer & writer ) { writer.mappings( set ); } );
   };
   EXPECT_EQ( of( mapping( Kind::downstreamMap, 8, LspPingReturnCode::noRetCode ) ),
              "00 02 00 1c 05 dc 01 02 0a 00 00 01 0a 00 00 02 08 00 00 08 7f 00 00 00 c0 00 00 00 "
              "00 01 81 03" );
   EXPECT_EQ( of( mapping( Kind::downstreamDetailedMap, 8, LspPingReturnCode::seeDdmTlv ) ),
              "00 14 00 3c 05 dc 01 02 0a 00 00 01 0a 00 00 02 0e 00 00 2c "
              "00 01 00 0c 08 00 08 00 7f 00 00 00 c0 00 00 00 00 02 00 04 00 01 81 03 "
              "00 03 00 10 02 00 0c 00 00 01 00 05 0a 01 02 00 18 00 00 00" );
   // The base label is in no record, and a Downstream Mapping has no return code.
   EXPECT_EQ( of( mapping( Kind::downstreamDetailedMap, 9, LspPingReturnCode::noRetCode ) ),
              "recordIncomplete at 52: " );
   EXPECT_EQ( of( mapping( Kind::downstreamMap, 8, LspPingReturnCode::seeDdmTlv ) ),
              "recordContradicts at 32: " );
}

TEST( LspPingRecordWriting, writesAllMappingsOrNone ) {
   using Kind = LspPingDownstreamMappingType;
   auto set = mapping( Kind::downstreamMap, 8, LspPingReturnCode::noRetCode );
   set.lspPingDownstreamMappingInfoIs( 1, {} );
   EXPECT_EQ( written( [&]( Writer & writer ) {
                 writer.add< LspPingEchoJitterTlv >( []( auto & ) {} );
                 EXPECT_FALSE( writer.mappings( set ) );
              } ),
              "recordUnknown at 72: 00 0c 00 04 00 00 00 00" );
}

// The set of the first one is not that of the type of the second.
TEST( LspPingRecordWriting, keepsNothingOfAMultipathSubTlvBeforeAnother ) {
   Bytes memory;
   Writer writer( memory );
   writer.header( asRequest );
   {
      auto const mapping = writer.open< LspPingDdmapTlv >();
      writer.open< LspPingMultipathSubTlv >().multipathSet( IpAddr( 127, 0, 0, 0 ), Bytes( 4, 1 ) );
      writer.add< LspPingMultipathSubTlv >( []( auto & subTlv ) { subTlv.multipathTypeIs( 2 ); } );
   }
   LspPingMessageReader reader;
   LspPingMessageRecords const records( reader.read( memory ) );
   LspPingDownstreamMappingInfo const info =
      records.downstreamMappings->lspPingDownstreamMappingInfo( 0 );
   EXPECT_EQ( info.multipathType(), 2u );
   EXPECT_EQ( info.dsMultipathBitset().size(), 0u );
   EXPECT_EQ( info.dsMultipathBaseAddr(), Velnet::IpGenAddr() );
}

bool isSame( LspPingMessageRecords const & a, LspPingMessageRecords const & b ) {
   return a.fecStack == b.fecStack && a.downstreamMappings == b.downstreamMappings &&
          a.intfAndLabelStack == b.intfAndLabelStack && a.pad == b.pad;
}

// Records of random messages become elements that make the same records again. What the record
// does not have was told when it was made, and is told again.
TEST( LspPingRecordWriting, givesElementsThatMakeTheSameRecords ) {
   std::map< std::string_view, U32 > outcomes;
   for( U64 seed = 0; seed < 80000; ++seed ) {
      Bytes memory;
      Writer first( memory );
      RandomMessage( seed ).write( first );
      LspPingMessageReader reader;
      LspPingMessageRecords const records( reader.read( memory ) );
      Bytes again;
      Writer writer( again );
      writer.header( asRequest );
      // Each on its own, so that one that is not written leaves the others.
      LspPingMessageRecords expected;
      auto const write = [&]( auto const & record, auto & kept, bool isWritten ) {
         ++outcomes[lspPingWriteErrorName( writer.error().code )];
         EXPECT_EQ( isWritten, !writer.error() );
         writer.errorDel();
         if( isWritten )
            kept = record;
         else
            EXPECT_FALSE( records.leftOut.empty() ) << "seed " << seed;
      };
      if( records.fecStack )
         write( records.fecStack, expected.fecStack, writer.fecStack( *records.fecStack ) );
      if( records.downstreamMappings )
         write( records.downstreamMappings, expected.downstreamMappings,
                writer.mappings( *records.downstreamMappings ) );
      if( records.intfAndLabelStack )
         write( records.intfAndLabelStack, expected.intfAndLabelStack,
                writer.interface( *records.intfAndLabelStack ) );
      if( records.pad )
         write( records.pad, expected.pad, writer.pad( *records.pad ) );
      LspPingMessageRecords const made( reader.read( again ) );
      ASSERT_TRUE( isSame( made, expected ) ) << "seed " << seed << ": " << hexOf( memory );
      EXPECT_EQ( problemOf( again ), "" );
   }
   EXPECT_GT( outcomes["none"], 10000u );
   EXPECT_GT( outcomes["recordIncomplete"], 100u );
   EXPECT_GT( outcomes["recordContradicts"], 1u );
   EXPECT_EQ( outcomes.size(), 3u );
}

} // namespace
