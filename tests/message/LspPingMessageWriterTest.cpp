#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/ext/LspPingExt.h"
#include "tests/WireBytes.h"
#include "tests/message/MessageBytes.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace LspPing;
using namespace MessageBytes;
using Error = LspPingWriteErrorCode;
using Velnet::IpAddr;
using Writer = LspPingMessageWriter;

TEST( LspPingMessageWriter, laysTheHeader ) {
   Bytes memory{ 0xee };
   Writer writer( memory );
   EXPECT_TRUE( writer.header( []( LspPingHdr & header ) {
      EXPECT_EQ( header.version(), 1 );
      header.messageTypeIs( 2 );
      header.senderHandleIs( 0x01020304 );
   } ) );
   EXPECT_EQ( hexOf( memory ), "ee 00 01 00 00 02 00 00 00 01 02 03 04 00 00 00 00 00 00 00 00 00 "
                               "00 00 00 00 00 00 00 00 00 00 00" );
   EXPECT_EQ( writer.bytes().data(), memory.data() + 1 );
   EXPECT_EQ( writer.bytes().size(), 32u );
}

TEST( LspPingMessageWriter, writesNothingBeforeTheHeaderAndTheHeaderOnce ) {
   Bytes memory;
   Writer writer( memory );
   EXPECT_FALSE( writer.add< LspPingEchoJitterTlv >( asZeros ) );
   EXPECT_EQ( writer.error(), ( LspPingWriteError{ Error::misplaced, 0 } ) );
   EXPECT_TRUE( memory.empty() );
   EXPECT_TRUE( writer.header( asRequest ) );
   EXPECT_FALSE( writer.header( asRequest ) );
   EXPECT_EQ( memory.size(), 32u );

   Bytes place( 100 );
   Writer placed{ std::span( place ) };
   EXPECT_FALSE( placed.add< LspPingEchoJitterTlv >( asZeros ) );
   EXPECT_FALSE( placed.open( LspPingTlvType::ErrorTlv ) );
   EXPECT_FALSE( placed.open< LspPingDdmapTlv >() );
   EXPECT_FALSE( placed.add< LspPingMultiLabelSubTlv >( asZeros ) );
   EXPECT_EQ( placed.error(), ( LspPingWriteError{ Error::misplaced, 0 } ) );
   EXPECT_TRUE( placed.bytes().empty() );
   EXPECT_TRUE( placed.header( asRequest ) );
   EXPECT_FALSE( placed.header( asRequest ) );
   EXPECT_EQ( placed.bytes().size(), 32u );
}

TEST( LspPingMessageWriter, fillsInCodeLengthSelectorsAndPadding ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 addLdp( writer );
                 EXPECT_TRUE( stack.close() );
                 EXPECT_FALSE( stack.close() );
              } ),
              "00 01 00 0c " + std::string( ldp ) );
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingDownstreamMappingIpv4UnnumberedTlv >( []( auto & tlv ) {
                    EXPECT_EQ( tlv.addrType(), 2 );
                    tlv.mtuIs( Velnet::NetU16( 1500 ) );
                    tlv.dsIntfIdIs( 7 );
                    tlv.multipathLengthIs( Velnet::NetU16( 99 ) );
                 } );
              } ),
              "00 02 00 10 05 dc 02 00 00 00 00 00 00 00 00 07 00 00 00 00" );
}

TEST( LspPingMessageWriter, lengthsMayBeOfEitherSizeWhereThereAreTwo ) {
   auto const sr = []( U16 length ) {
      return written( [&]( Writer & writer ) {
         auto stack = writer.open( LspPingTlvType::TargetFecStack );
         writer.add< LspPingSrIpv4SubTlv >( LspPingTargetFecSubTlvType::SRIpv4Deprecated,
                                            [&]( auto & fec ) {
                                               EXPECT_EQ( fec.length(), 6 );
                                               fec.lengthIs( length );
                                               fec.algorithmIs( 9 );
                                            } );
      } );
   };
   EXPECT_EQ( sr( 6 ), "00 01 00 0c 7c 00 00 06 00 00 00 00 00 00 09 00" );
   EXPECT_EQ( sr( 8 ), "00 01 00 0c 7c 00 00 08 00 00 00 00 00 00 09 00" );
   EXPECT_EQ( sr( 7 ).substr( 0, 17 ), "lengthWrong at 36" );
}

TEST( LspPingMessageWriter, countsSubTlvsFecsLabelsAndMultipathInformation ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping = writer.open< LspPingDdmapTlv >( []( auto & tlv ) {
                    tlv.subTlvLenIs( 3 );
                    tlv.retCodeIs( 8 );
                 } );
                 {
                    auto multipath = writer.open< LspPingMultipathSubTlv >();
                    U8 const mask[]{ 0xf0, 0, 0, 1 };
                    EXPECT_TRUE( multipath.multipathSet( IpAddr( 127, 0, 0, 1 ), mask ) );
                 }
                 {
                    auto labels = writer.open( LspPingDDMappingSubTlvType::LabelStack );
                    EXPECT_TRUE( labels.label( 100000, 5, true, 3 ) );
                 }
                 auto change = writer.open< LspPingFecStackChangeV4SubTlv >( []( auto & view ) {
                    view.operTypeIs( 2 );
                    view.peerAddrIs( IpAddr( 10, 0, 0, 9 ) );
                 } );
                 addLdp( writer );
              } ),
              "00 14 00 40 00 00 01 00 00 00 00 00 00 00 00 00 08 00 00 30 "
              "00 01 00 0c 08 00 08 00 7f 00 00 01 f0 00 00 01 "
              "00 02 00 04 18 6a 0b 03 "
              "00 03 00 14 02 01 0c 00 0a 00 00 09 " +
                 std::string( ldp ) );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping = writer.open< LspPingDownstreamMappingIpv6Tlv >();
                 Velnet::IpGenAddr const one( IpAddr( 127, 0, 0, 1 ) );
                 Velnet::IpGenAddr const two( IpAddr( 127, 0, 0, 2 ) );
                 Velnet::IpGenAddr const both[]{ one, two };
                 mapping.multipathAddresses( both );
                 mapping.label( Velnet::MplsLabelEntry( 0x00018140 ) );
              } ),
              "00 02 00 34 00 00 03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
              "00 00 00 00 00 00 00 00 00 00 00 00 02 00 00 08 7f 00 00 01 7f 00 00 02 "
              "00 01 81 40" );
}

TEST( LspPingMessageWriter, writesEachKindOfMultipathInformation ) {
   auto const of = []( auto write ) {
      return written( [&]( Writer & writer ) {
                auto mapping = writer.open< LspPingDdmapV6Tlv >();
                auto multipath = writer.open< LspPingMultipathSubTlv >();
                write( multipath );
             } )
         .substr( 3 * 44 );
   };
   Velnet::IpGenAddr const ipv4( IpAddr( 127, 0, 0, 1 ) );
   Velnet::IpGenAddr const ipv6 = *Velnet::IpGenAddr::fromText( "::ffff:127.0.0.1" );
   U8 const mask[]{ 1, 2, 3, 4 };
   EXPECT_EQ( of( [&]( auto & multipath ) {
                 LspPingMultipath::Item const range{ ipv4, ipv4 };
                 multipath.multipathRanges( { &range, 1 } );
              } ),
              "00 01 00 0c 04 00 08 00 7f 00 00 01 7f 00 00 01" );
   EXPECT_EQ( of( [&]( auto & multipath ) { multipath.multipathSet( ipv6, mask ); } ),
              "00 01 00 18 08 00 14 00 00 00 00 00 00 00 00 00 00 00 ff ff 7f 00 00 01 01 02 03 "
              "04" );
   EXPECT_EQ( of( [&]( auto & multipath ) { multipath.multipathLabels( 24001, mask ); } ),
              "00 01 00 0c 09 00 08 00 00 00 5d c1 01 02 03 04" );
   EXPECT_EQ(
      of( [&]( auto & multipath ) { multipath.multipath( LspPingMultipathType( 11 ), mask ); } ),
      "00 01 00 08 0b 00 04 00 01 02 03 04" );
}

TEST( LspPingMessageWriter, refusesMultipathInformationThatIsReadAsAnother ) {
   auto const errorOf = []( auto write ) {
      Bytes memory;
      Writer writer( memory );
      writer.header( asRequest );
      auto mapping = writer.open< LspPingDdmapTlv >();
      auto multipath = writer.open< LspPingMultipathSubTlv >();
      EXPECT_FALSE( write( multipath ) );
      EXPECT_FALSE( multipath.close() );
      EXPECT_EQ( memory.size(), 52u );
      return lspPingWriteErrorName( writer.error().code );
   };
   Velnet::IpGenAddr const ipv4( IpAddr( 127, 0, 0, 1 ) );
   // Not IPv4-mapped, in a mapping of IPv4.
   Velnet::IpGenAddr const ipv6 = *Velnet::IpGenAddr::fromText( "2001:db8::1" );
   Velnet::IpGenAddr const both[]{ ipv4, ipv6 };
   U8 const mask[]{ 1, 2, 3, 4 };
   using Open = LspPingOpenElement;
   EXPECT_EQ( errorOf( [&]( Open & open ) { return open.multipathAddresses( both ); } ),
              "multipathWrong" );
   EXPECT_EQ( errorOf( [&]( Open & open ) { return open.multipathSet( ipv6, mask ); } ),
              "multipathWrong" );
   EXPECT_EQ( errorOf( [&]( Open & open ) { return open.multipathSet( {}, mask ); } ),
              "multipathWrong" );
   EXPECT_EQ( errorOf( [&]( Open & open ) { return open.multipathSet( ipv4, {} ); } ),
              "multipathWrong" );
   EXPECT_EQ( errorOf( [&]( Open & open ) {
                 return open.multipath( LspPingMultipathType::noMultipath, mask );
              } ),
              "multipathWrong" );
   EXPECT_EQ( errorOf( [&]( Open & open ) { return open.multipathLabels( 0x100000, mask ); } ),
              "labelTooLarge" );
   EXPECT_EQ( errorOf( [&]( Open & open ) {
                 return open.multipathLabels( 1, mask ) && open.multipathLabels( 1, mask );
              } ),
              "misplaced" );
}

TEST( LspPingMessageWriter, writesOpaqueValuesWithoutPaddingBehindARootOfEitherFamily ) {
   auto const values = []( Writer & writer ) {
      writer.add< LspPingOpaqueValGenSubTlv >( []( auto & value ) { value.lspIdIs( 7 ); } );
      writer.add( LspPingContext::opaqueValue, 2, Bytes{ 0xaa, 0xbb } );
   };
   EXPECT_EQ( written( [&]( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 auto fec = writer.open< LspPingP2mpFecStackSubTlv >(
                    []( auto & view ) { view.rootAddrIs( IpAddr( 10, 0, 0, 1 ) ); } );
                 values( writer );
              } ),
              "00 01 00 1c 00 13 00 15 00 01 04 0a 00 00 01 00 0c "
              "01 00 04 00 00 00 07 02 00 02 aa bb 00 00 00" );
   EXPECT_EQ( written( [&]( Writer & writer ) {
                 auto stack = writer.open( LspPingTlvType::TargetFecStack );
                 auto fec = writer.open< LspPingP2mpFecStackSubTlv >();
                 fec.rootAddr( *Velnet::IpGenAddr::fromText( "2001:db8::1" ) );
                 values( writer );
              } ),
              "00 01 00 28 00 13 00 21 00 02 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 "
              "00 0c 01 00 04 00 00 00 07 02 00 02 aa bb 00 00 00" );
}

TEST( LspPingMessageWriter, writesTheIdentifiersOfAPseudowire ) {
   using Id = Pseudowire::PseudowireAttachmentIdentifier;
   Id agi( 1, 1 );
   agi.valueIs( 0, 0x77 );
   auto const fec129 = [&]( LspPingPaddingCount padding ) {
      return written( [&]( Writer & writer ) {
         auto stack = writer.open( LspPingTlvType::TargetFecStack );
         auto fec =
            writer.open< LspPingFec129Ipv4SubTlv >( []( auto & view ) { view.pwTypeIs( 5 ); } );
         EXPECT_TRUE( fec.pwGenId( { agi, Id( 2, 0 ), Id( 3, 0 ) }, padding ) );
      } );
   };
   EXPECT_EQ( fec129( LspPingPaddingCount::without ),
              "00 01 00 18 00 0b 00 11 00 00 00 00 00 00 00 00 00 05 01 01 77 02 00 03 00 00 00 "
              "00" );
   EXPECT_EQ( fec129( LspPingPaddingCount::with ),
              "00 01 00 18 00 0b 00 14 00 00 00 00 00 00 00 00 00 05 01 01 77 02 00 03 00 00 00 "
              "00" );
   auto const errorOf = []( Pseudowire::PseudowireGenId const & id ) {
      return written( [&]( Writer & writer ) {
         auto fec = writer.open( LspPingTlvType::TargetFecStack );
         writer.open< LspPingFec129Ipv4SubTlv >().pwGenId( id );
      } );
   };
   EXPECT_EQ( errorOf( {} ), "identifiersWrong at 36: " );
   EXPECT_EQ( errorOf( { Id( 1, 9 ), {}, {} } ), "identifiersWrong at 36: " );
}

TEST( LspPingMessageWriter, writesPadsFromAnObjectAndFromBytes ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingPadTlv >( []( LspPingPadTlv & pad ) {
                    pad.padTypeIs( 2 );
                    pad.paddingIs( 1, 0xab );
                 } );
                 auto pad = writer.open( LspPingTlvType::Pad );
                 pad.bytes( Bytes{ 1 } );
                 pad.bytes( Bytes{ 9, 9, 9, 9 } );
              } ),
              "00 03 00 03 02 00 ab 00 00 03 00 05 01 09 09 09 09 00 00 00" );
   EXPECT_EQ( written( []( Writer & writer ) { auto pad = writer.open( LspPingTlvType::Pad ); } ),
              "tooShort at 32: " );
}

TEST( LspPingMessageWriter, writesTheContainersThatHaveNothingOfTheirOwn ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 {
                    auto errored = writer.open( LspPingTlvType::ErrorTlv );
                    writer.add< LspPingReplyTosTlv >( []( auto & tlv ) { tlv.tosIs( 0xb8 ); } );
                 }
                 auto responder = writer.open( LspPingTlvType::P2mpRespId );
                 writer.add< LspPingResponderEgressIpv4SubTlv >(
                    []( auto & tlv ) { tlv.addressIs( Velnet::IpAddr( 10, 0, 0, 1 ) ); } );
              } ),
              "00 09 00 08 00 0a 00 04 b8 00 00 00 00 0b 00 08 00 01 00 04 0a 00 00 01" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto vendor = writer.open< LspPingVeloraVendorPrivateTlv >( []( auto & tlv ) {
                    tlv.vendorIanaIs( static_cast< U32 >( LspPingVendorIana::VeloraIana ) );
                 } );
                 writer.add< LspPingMultiLabelSubTlv >(
                    []( auto & tlv ) { tlv.lookupLabelCountIs( 2 ); } );
              } ).substr( 24 ),
              "00 01 00 04 00 02 00 00" );
   // Another vendor's bytes are its own.
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto vendor = writer.open< LspPingVendorPrivateTlv >(
                    65261, []( auto & tlv ) { tlv.enterpriseNumberIs( 9 ); } );
                 vendor.bytes( Bytes{ 1, 2, 3 } );
              } ),
              "fe ed 00 07 00 00 00 09 01 02 03 00" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto vendor = writer.open< LspPingVeloraVendorPrivateTlv >(
                    []( auto & tlv ) { tlv.vendorIanaIs( 9 ); } );
              } ),
              "selectorWrong at 32: " );
}

// An address type that has no view of its own, RFC 6426 section 2.1.1: the fixed part goes on.
TEST( LspPingMessageWriter, writesTheRestOfAFixedPartThatTheViewLeavesOut ) {
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping =
                    writer.open< LspPingDdmapHdr >( []( auto & tlv ) { tlv.addrTypeIs( 5 ); } );
                 mapping.bytes( Bytes{ 0, 0, 0, 1, 0, 0, 0, 2, 8, 1, 0, 0 } );
                 auto multipath = writer.open< LspPingMultipathSubTlv >();
              } ),
              "00 14 00 18 00 00 05 00 00 00 00 01 00 00 00 02 08 01 00 08 00 01 00 04 00 00 00 "
              "00" );
   EXPECT_EQ( written( []( Writer & writer ) {
                 auto mapping =
                    writer.open< LspPingDdmapHdr >( []( auto & tlv ) { tlv.addrTypeIs( 5 ); } );
                 mapping.bytes( Bytes{ 0, 0, 0, 1 } );
              } ),
              "tooShort at 32: " );
   EXPECT_EQ( written( []( Writer & writer ) {
                 writer.add< LspPingDdmapHdr >( []( auto & tlv ) { tlv.addrTypeIs( 77 ); } );
              } ),
              "selectorWrong at 32: " );
}

TEST( LspPingMessageWriter, copiesElementsWithAllThatStandsInThem ) {
   std::string const whole = written( []( Writer & writer ) {
      auto errored = writer.open( LspPingTlvType::ErrorTlv );
      auto stack = writer.open( LspPingTlvType::TargetFecStack );
      addLdp( writer );
   } );
   Bytes memory;
   Writer writer( memory );
   writer.header( asRequest );
   {
      auto errored = writer.open( LspPingTlvType::ErrorTlv );
      auto stack = writer.open( LspPingTlvType::TargetFecStack );
      addLdp( writer );
   }
   LspPingMessageReader reader;
   LspPingMessage const & message = reader.read( memory );
   EXPECT_EQ(
      written( [&]( Writer & other ) { EXPECT_TRUE( other.add( *message.elements().begin() ) ); } ),
      whole );
   LspPingElementRef const fec = message.element( 2 );
   EXPECT_EQ( written( [&]( Writer & other ) { EXPECT_FALSE( other.add( fec ) ); } ),
              "misplaced at 32: " );
   EXPECT_EQ( written( [&]( Writer & other ) {
                 auto errored = other.open( *message.elements().begin() );
                 auto stack = other.open( message.element( 1 ) );
                 other.add( fec );
              } ),
              whole );
   LspPingMessageReader cutReader;
   LspPingMessage const & cut = cutReader.read( std::span( memory ).first( 44 ) );
   EXPECT_EQ( written( [&]( Writer & other ) { other.add( *cut.elements().begin() ); } ),
              "elementCut at 32: " );
}

TEST( LspPingMessageWriter, writesIntoSpansOfEverySizeAndNeverOutsideOfThem ) {
   auto const write = []( Writer & writer ) {
      writer.header( asRequest );
      {
         auto stack = writer.open( LspPingTlvType::TargetFecStack );
         addLdp( writer );
         auto fec = writer.open< LspPingP2mpFecStackSubTlv >();
         fec.rootAddr( *Velnet::IpGenAddr::fromText( "2001:db8::1" ) );
         writer.add< LspPingOpaqueValGenSubTlv >( asZeros );
      }
      {
         auto mapping = writer.open< LspPingDdmapV6Tlv >();
         auto multipath = writer.open< LspPingMultipathSubTlv >();
         multipath.multipathLabels( 16, Bytes( 8 ) );
      }
      auto pad = writer.open( LspPingTlvType::Pad );
      pad.bytes( Bytes{ 1, 2 } );
   };
   Bytes whole;
   Writer grower( whole );
   write( grower );
   ASSERT_FALSE( grower.error() );
   for( std::size_t size = 0; size <= whole.size(); ++size ) {
      WireBytes const block( size, 0xa5 );
      Writer writer( block.bytes() );
      write( writer );
      if( size == whole.size() ) {
         EXPECT_EQ( hexOf( writer.bytes() ), hexOf( whole ) );
         EXPECT_FALSE( writer.error() );
         continue;
      }
      EXPECT_EQ( writer.error().code, Error::noRoom ) << size;
      EXPECT_LE( writer.bytes().size(), size );
      if( size >= 32 )
         EXPECT_EQ( problemOf( writer.bytes() ), "" ) << size;
   }
}

} // namespace
