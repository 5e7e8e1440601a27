#include "MplsUtils/LspPing/LspPingHdr.h"
#include "tests/message/MessageBytes.h"

#include <gtest/gtest.h>

namespace {

using namespace LspPing;
using namespace MessageBytes;
using Error = LspPingWriteErrorCode;
using Writer = LspPingMessageWriter;

TEST( LspPingMessageWriter, leavesTheMessageAsItWasWhereSomethingIsMisplaced ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 addLdp( writer );
                 writer.add< LspPingEchoJitterTlv >( asZeros );
              } ),
              "misplaced at 32: 00 0c 00 04 00 00 00 00" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 addLdp( writer );
                 writer.add< LspPingEchoJitterTlv >( asZeros );
              } ),
              "misplaced at 48: 00 01 00 0c " + std::string( ldp ) );
   // What is written into an element that was not opened goes nowhere else.
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto errored = writer.open( LspPingTlvType::ErrorTlv );
                 writer.add< LspPingReplyTosTlv >( asZeros );
                 auto inner = writer.open( LspPingTargetFecSubTlvType::LDPIpv6 );
                 EXPECT_FALSE( inner );
                 writer.add< LspPingReplyTosTlv >( asZeros );
                 EXPECT_FALSE( inner.bytes( Bytes{ 1 } ) );
                 EXPECT_FALSE( inner.close() );
              } ),
              "misplaced at 44: 00 09 00 08 00 0a 00 04 00 00 00 00" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
              } ),
              "nothingInIt at 32: " );
}

// RFC 8029 section 3.4.1.3, be there the TLV of the stack around it or not.
TEST( LspPingMessageWriter, writesOneFecIntoAFecStackChange ) {
   auto const changeOf = []( auto write ) {
      return written( [&]( Writer & writer ) {
                auto mapping = writer.open< LspPingDdmapTlv >();
                auto change = writer.open< LspPingFecStackChangeUnspecifiedSubTlv >();
                write( writer );
             } )
         .substr( 0, 15 );
   };
   EXPECT_EQ( changeOf( []( Writer & writer ) {
                 addLdp( writer );
                 EXPECT_FALSE( writer.error() );
                 addLdp( writer );
              } ),
              "misplaced at 72" );
   EXPECT_EQ( changeOf( []( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 addLdp( writer );
                 EXPECT_FALSE( writer.error() );
                 addLdp( writer );
              } ),
              "misplaced at 76" );
   EXPECT_EQ( changeOf( []( Writer & writer ) { writer.add< LspPingReplyTosTlv >( asZeros ); } ),
              "misplaced at 60" );
}

TEST( LspPingMessageWriter, refusesWhatContradictsTheFacts ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingEchoJitterTlv >( LspPingTlvType::Pad, asZeros );
              } ),
              "codeWrong at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingEchoJitterTlv >( []( auto & tlv ) { tlv.typeIs( 3 ); } );
              } ),
              "codeWrong at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingDdmapTlv >( []( auto & tlv ) { tlv.addrTypeIs( 3 ); } );
              } ),
              "selectorWrong at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add( LspPingContext::message, 12, Bytes{ 0, 0, 0, 1 } );
              } ),
              "00 0c 00 04 00 00 00 01" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add( LspPingContext::message, 12, Bytes{ 0, 0, 1 } );
              } ),
              "lengthWrong at 32: " );
   EXPECT_EQ(
      written( []( Writer & writer ) { writer.add( LspPingContext::message, 20, Bytes( 16 ) ); } ),
      "selectorWrong at 32: " );
   EXPECT_EQ(
      written( []( Writer & writer ) { writer.add( LspPingContext::message, 1, Bytes( 16 ) ); } ),
      "needsClass at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto element = writer.open( LspPingContext::message, 12 );
              } ),
              "needsClass at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 addLdp( writer );
                 writer.add< LspPingVpnIpv4SubTlv >( []( auto & fec ) { fec.lengthIs( 14 ); } );
              } ),
              "lengthWrong at 48: 00 01 00 0c " + std::string( ldp ) );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping = writer.open< LspPingDdmapTlv >();
                 auto labels = writer.open( LspPingDDMappingSubTlvType::LabelStack );
                 labels.label( 0x100000, 0, false, 0 );
              } ).substr( 0, 19 ),
              "labelTooLarge at 52" );
}

TEST( LspPingMessageWriter, refusesWhatIsTooLongForItsLength ) {
   auto const pad = []( std::size_t size ) {
      return written( [&]( Writer & writer ) {
         writer.add< LspPingEchoJitterTlv >( asZeros );
         writer.add( LspPingContext::message, 999, Bytes( size ) );
      } );
   };
   EXPECT_EQ( pad( 65535 ).size(), 3u * ( 8 + 4 + 65536 ) - 1 );
   EXPECT_EQ( pad( 65536 ), "tooLong at 40: 00 0c 00 04 00 00 00 00" );
   EXPECT_EQ( pad( std::size_t{ 1 } << 20 ), "tooLong at 40: 00 0c 00 04 00 00 00 00" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto errored = writer.open( LspPingTlvType::ErrorTlv );
                 for( int i = 0; i < 2; ++i )
                    writer.add( LspPingContext::message, 999, Bytes( 40000 ) );
              } ),
              "tooLong at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping = writer.open< LspPingDdmapTlv >();
                 auto change = writer.open< LspPingFecStackChangeUnspecifiedSubTlv >();
                 writer.add( LspPingContext::targetFec, 99, Bytes( 252 ) );
                 EXPECT_FALSE( change.close() );
                 EXPECT_TRUE( mapping.close() );
              } ),
              "fecTooLong at 52: 00 14 00 10 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00" );
}

TEST( LspPingMessageWriter, refusesWhatAReaderDoesNotReach ) {
   struct Nest {
      static void in( Writer & writer, U32 depth ) {
         auto errored = writer.open( LspPingTlvType::ErrorTlv );
         writer.add< LspPingReplyTosTlv >( asZeros );
         if( depth > 0 )
            in( writer, depth - 1 );
      }
   };
   std::string problem = "unread";
   std::string const text = written( [&]( Writer & writer ) {
      Nest::in( writer, 11 );
      problem = problemOf( writer.bytes() );
   } );
   // Each has 12 bytes in front of the next, and nothing may stand in the ninth.
   EXPECT_EQ( text.substr( 0, 15 ), "tooDeep at 132:" ) << text;
   EXPECT_EQ( problem, "" );
}

TEST( LspPingMessageWriter, knowsHandlesThatAreNotTheInnermostOnes ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto outer = writer.open( LspPingTlvType::ErrorTlv );
                 auto inner = writer.open( LspPingContext::message, 999 );
                 EXPECT_TRUE( outer );
                 EXPECT_FALSE( outer.bytes( Bytes{ 1 } ) );
                 EXPECT_EQ( writer.error().code, Error::notOpen );
                 EXPECT_TRUE( inner.bytes( Bytes{ 2 } ) );
                 EXPECT_TRUE( outer.close() );
                 EXPECT_FALSE( inner );
                 EXPECT_FALSE( inner.bytes( Bytes{ 3 } ) );
                 EXPECT_FALSE( inner.close() );
              } ),
              "notOpen at 40: 00 09 00 08 03 e7 00 01 02 00 00 00" );
   // One that was closed with another is not mistaken for what stands there next.
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping = writer.open< LspPingDdmapTlv >();
                 auto closed = writer.open( LspPingDDMappingSubTlvType::LabelStack );
                 EXPECT_TRUE( mapping.close() );
                 auto other = writer.open< LspPingDdmapTlv >();
                 auto labels = writer.open( LspPingDDMappingSubTlvType::LabelStack );
                 EXPECT_FALSE( closed.label( Velnet::MplsLabelEntry( 16, 0, true, 4 ) ) );
                 EXPECT_FALSE( closed.close() );
                 EXPECT_FALSE( mapping.close() );
                 EXPECT_FALSE( other.label( Velnet::MplsLabelEntry( 16, 0, true, 4 ) ) );
                 EXPECT_TRUE( labels.label( Velnet::MplsLabelEntry( 16, 0, true, 4 ) ) );
              } ).substr( 0, 14 ),
              "notOpen at 80:" );
}

TEST( LspPingMessageWriter, isNotWrittenToWhileItHasAViewFilled ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingEchoJitterTlv >( [&]( auto & tlv ) {
                    EXPECT_FALSE( writer.add< LspPingReplyTosTlv >( asZeros ) );
                    EXPECT_FALSE( writer.open( LspPingTlvType::ErrorTlv ) );
                    EXPECT_FALSE( writer.open< LspPingDdmapTlv >() );
                    tlv.jitterIs( 1 );
                 } );
              } ),
              "misplaced at 40: 00 0c 00 04 00 00 00 01" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto errored = writer.open( LspPingTlvType::ErrorTlv );
                 writer.add< LspPingEchoJitterTlv >( [&]( auto & tlv ) {
                    EXPECT_TRUE( errored );
                    EXPECT_FALSE( errored.close() );
                    EXPECT_FALSE( errored.takeBack( Error::noRoom ) );
                    tlv.jitterIs( 1 );
                 } );
              } ),
              "misplaced at 44: 00 09 00 08 00 0c 00 04 00 00 00 01" );
   // Padding comes when it has been filled.
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 writer.add< LspPingLdpIpv4SubTlv >( [&]( auto & fec ) {
                    EXPECT_EQ( writer.bytes().size(), 48u );
                    EXPECT_FALSE( stack.bytes( Bytes{ 1 } ) );
                    EXPECT_FALSE( stack.label( Velnet::MplsLabelEntry( 16, 0, true, 4 ) ) );
                    fec.prefixLenIs( 24 );
                 } );
              } ),
              "notOpen at 48: 00 01 00 0c 00 01 00 05 00 00 00 00 18 00 00 00" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping = writer.open< LspPingDdmapTlv >( [&]( auto & tlv ) {
                    EXPECT_FALSE( writer.add< LspPingReplyTosTlv >( asZeros ) );
                    tlv.mtuIs( 9 );
                 } );
              } ),
              "misplaced at 52: 00 14 00 10 00 09 01 00 00 00 00 00 00 00 00 00 00 00 00 00" );
}

TEST( LspPingMessageWriter, holdsWhatWasFilledInAgainstTheFacts ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 addLdp( writer );
                 writer.add< LspPingNilFecSubTlv >( []( auto & fec ) { fec.lengthIs( 5 ); } );
              } ),
              "lengthWrong at 48: 00 01 00 0c " + std::string( ldp ) );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping =
                    writer.open< LspPingDdmapTlv >( []( auto & tlv ) { tlv.typeIs( 2 ); } );
                 EXPECT_FALSE( mapping );
                 EXPECT_FALSE( mapping.close() );
              } ),
              "codeWrong at 32: " );
   // What is counted is not what the function says.
   EXPECT_EQ(
      written( []( Writer & writer ) {
         auto mapping = writer.open< LspPingDdmapTlv >( []( auto & tlv ) {
            tlv.lengthIs( 77 );
            tlv.subTlvLenIs( 78 );
         } );
         auto const multipath = writer.open< LspPingMultipathSubTlv >( []( auto & tlv ) {
            tlv.lengthIs( 79 );
            tlv.multipathTypeIs( 8 );
            tlv.multipathLengthIs( 80 );
         } );
      } ),
      "00 14 00 18 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 08 00 01 00 04 08 00 00 00" );
}

// As an agent does that finds no answer to put into it.
TEST( LspPingMessageWriter, takesBackAnElementWithAllThatStandsInIt ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingEchoJitterTlv >( asZeros );
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 addLdp( writer );
                 auto fec = writer.open( LspPingTargetFecSubTlvType::LDPIpv6 );
                 EXPECT_FALSE( stack.takeBack( Error::recordUnknown ) );
                 EXPECT_FALSE( fec );
                 addLdp( writer );
                 EXPECT_FALSE( stack.close() );
                 writer.errorDel();
                 EXPECT_TRUE( writer.add< LspPingReplyTosTlv >( asZeros ) );
              } ),
              "00 0c 00 04 00 00 00 00 00 0a 00 04 00 00 00 00" );
}

// A message with each way of growing, into a block of its own that ends where the span ends.
TEST( LspPingWriteError, hasANameAndWordsForEachCode ) {
   EXPECT_EQ( lspPingWriteErrorName( Error::fecTooLong ), "fecTooLong" );
   EXPECT_EQ( lspPingWriteErrorText( Error::noRoom ), "no room for it" );
   EXPECT_EQ( lspPingWriteErrorName( Error::recordContradicts ), "recordContradicts" );
   EXPECT_EQ( lspPingWriteErrorText( static_cast< Error >( 200 ) ), "nothing is wrong" );
}

} // namespace
