#include "MplsUtils/LspPing/LspPingHdr.h"
#include "tests/AttributeLines.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

namespace LspPing {
namespace {

// A Pad TLV behind three other bytes and before one more.
std::vector< U8 > const packetBytes = { 0xA5, 0xA5, 0xA5, 0,    3,    0,   5,
                                        1,    0xAB, 0x00, 0x0C, 0xFF, 0xA5 };

// Takes over the object that the parser built.
std::unique_ptr< LspPingPadTlv > taken( Orlo::Ptr< LspPingPadTlvParser > const & parser ) {
   return std::unique_ptr< LspPingPadTlv >( parser->header() );
}

LspPingPadTlv pad( U16 type, U16 length, U8 padType, std::initializer_list< U8 > bytes ) {
   LspPingPadTlv tlv;
   tlv.typeIs( type );
   tlv.lengthIs( length );
   tlv.padTypeIs( padType );
   U32 index = 0;
   for( U8 const byte : bytes )
      tlv.paddingIs( index++, byte );
   return tlv;
}

TEST( LspPingPadTlv, isZeroAndEmptyAtFirst ) {
   LspPingPadTlv const tlv;
   EXPECT_EQ( tlv.type(), 0 );
   EXPECT_EQ( tlv.length(), 0 );
   EXPECT_EQ( tlv.padType(), 0 );
   EXPECT_TRUE( tlv.padding().empty() );
   EXPECT_FALSE( tlv.valid() );
   EXPECT_EQ( tlv.stringValue(), "Invalid LspPingPadTlv" );
}

TEST( LspPingPadTlv, keepsTheWireLayoutOfItsFirstFiveBytes ) {
   LspPingPadTlv const tlv = pad( 0x0102, 0x0304, 0x05, {} );
   U8 bytes[5];
   std::memcpy( bytes, static_cast< void const * >( &tlv ), sizeof bytes );
   EXPECT_EQ( std::vector< U8 >( bytes, bytes + 5 ), ( std::vector< U8 >{ 1, 2, 3, 4, 5 } ) );
}

TEST( LspPingPadTlv, isValidForTypeThreeAndPadTypesOneAndTwo ) {
   for( unsigned padType = 0; padType < 256; ++padType ) {
      LspPingPadTlv const tlv = pad( 3, 0, static_cast< U8 >( padType ), {} );
      EXPECT_EQ( tlv.valid(), padType == 1 || padType == 2 ) << padType;
   }
   for( U32 type = 0; type < 65536; ++type )
      EXPECT_EQ( pad( static_cast< U16 >( type ), 1, 1, {} ).valid(), type == 3 ) << type;
   EXPECT_TRUE( pad( 3, 0xFFFF, 1, {} ).valid() );
}

TEST( LspPingPadTlv, printsAsManyBytesAsTheLengthTells ) {
   EXPECT_EQ( pad( 3, 4, 1, { 0xAB, 0x00, 0x0C } ).stringValue(),
              "PadTlv( PadType: 1, Size: 4, Padding: 0xAB 0x0 0xC )" );
   EXPECT_EQ( pad( 3, 2, 1, { 0xAB, 0x00, 0x0C } ).stringValue(),
              "PadTlv( PadType: 1, Size: 2, Padding: 0xAB )" );
   EXPECT_EQ( pad( 3, 4, 2, { 0xFF } ).stringValue(),
              "PadTlv( PadType: 2, Size: 4, Padding: 0xFF 0x0 0x0 )" );
   EXPECT_EQ( pad( 3, 1, 2, { 1 } ).stringValue(), "PadTlv( PadType: 2, Size: 1, Padding: )" );
   EXPECT_EQ( pad( 3, 0, 2, { 1 } ).stringValue(), "PadTlv( PadType: 2, Size: 0, Padding: )" );
   EXPECT_EQ( pad( 3, 4, 3, { 1 } ).stringValue(), "Invalid LspPingPadTlv" );
}

TEST( LspPingPadTlv, printsTheLongestPadding ) {
   Orlo::String expected = "PadTlv( PadType: 1, Size: 65535, Padding: ";
   for( int i = 0; i < 65534; ++i )
      expected += "0x0 ";
   EXPECT_EQ( pad( 3, 0xFFFF, 1, {} ).stringValue(), expected + ")" );
}

TEST( LspPingPadTlv, deletesBytesByWritingZero ) {
   LspPingPadTlv tlv = pad( 3, 5, 1, { 1, 2, 3, 4 } );
   EXPECT_EQ( tlv.paddingDel( 1 ), 2 );
   EXPECT_EQ( tlv.paddingDel( 1 ), 0 );
   EXPECT_EQ( tlv.paddingDel( 4 ), 0 );
   LspPingPadTlv::KivPadding::Iterator at = tlv.padding().iterator();
   EXPECT_EQ( tlv.paddingDel( at ), 1 );
   at.advance();
   at.advance();
   EXPECT_EQ( at.value(), 3 );
   EXPECT_EQ( tlv.padding().end(), 4U );
   EXPECT_EQ( tlv.padding().version(), 6U );
   tlv.paddingDelAll();
   EXPECT_EQ( tlv.padding().end(), 4U );
   EXPECT_EQ( tlv.padding().version(), 8U );
   EXPECT_EQ( tlv.stringValue(), "PadTlv( PadType: 1, Size: 5, Padding: 0x0 0x0 0x0 0x0 )" );
}

TEST( LspPingPadTlv, isMadeOnTheHeapAndCounted ) {
   U64 const live = LspPingPadTlv::memAllocationTracker_.live();
   {
      std::unique_ptr< LspPingPadTlv > const first = lspPingPadTlvFactory();
      std::unique_ptr< LspPingPadTlv > const second = LspPingPadTlv::LspPingPadTlvIs();
      EXPECT_EQ( LspPingPadTlv::memAllocationTracker_.live(), live + 2 );
      EXPECT_EQ( first->length(), 0 );
      EXPECT_TRUE( second->padding().empty() );
   }
   EXPECT_EQ( LspPingPadTlv::memAllocationTracker_.live(), live );
}

TEST( LspPingPadTlv, isReachedByAttribute ) {
   LspPingPadTlv tlv = pad( 3, 4, 1, { 0xAB, 0x00, 0x0C } );
   EXPECT_EQ( Kiv::read< U16 >( tlv, "length" ), 4 );
   Kiv::write< U8 >( tlv, "padType", 2 );
   EXPECT_EQ( Kiv::read< U8 >( tlv, "padType" ), 2 );
   EXPECT_TRUE( Kiv::read< bool >( tlv, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( tlv, "stringValue" ), tlv.stringValue() );
   EXPECT_THROW( Kiv::write< bool >( tlv, "valid", false ), Kiv::AccessException );

   Kiv::TypeRef const type = Kiv::typeOf< LspPingPadTlv >();
   Kiv::Field const padding = Kiv::attributeNamed( type, "padding" ).field();
   EXPECT_EQ( padding.id, 131 );
   U8 byte = 0x77;
   Kiv::Entry entry{ 1, &byte };
   EXPECT_EQ( Kiv::attributeAccess( type, &tlv, padding, Kiv::OpCode::write, &entry ),
              Kiv::Outcome::done );
   entry.key = 2;
   EXPECT_EQ( Kiv::attributeAccess( type, &tlv, padding, Kiv::OpCode::read, &entry ),
              Kiv::Outcome::done );
   EXPECT_EQ( byte, 0x0C );
   entry.key = 2003003; // no byte to read; a write is refused here: the array would end the process
   EXPECT_EQ( Kiv::attributeAccess( type, &tlv, padding, Kiv::OpCode::read, &entry ),
              Kiv::Outcome::done );
   EXPECT_EQ( byte, 0 );
   EXPECT_EQ( Kiv::attributeAccess( type, &tlv, padding, Kiv::OpCode::write, &entry ),
              Kiv::Outcome::notPermitted );

   std::vector< unsigned > walked;
   Kiv::CollectionIterator at( type, &tlv, "padding" );
   for( ; at.iterNonnull(); at.iterInc() ) {
      walked.push_back( *static_cast< U8 const * >( at.iterObj() ) );
      if( at.iterKey() == 1 )
         EXPECT_EQ( at.iterDel(), Kiv::Outcome::done );
   }
   EXPECT_EQ( walked, ( std::vector< unsigned >{ 0xAB, 0x77, 0x0C } ) );
   EXPECT_EQ( tlv.padding( 1 ), 0 );
}

TEST( LspPingPadTlv, hashesItsAddress ) {
   LspPingPadTlv const a, b;
   Kiv::TypeRef const type = Kiv::typeOf< LspPingPadTlv >();
   EXPECT_EQ( Kiv::hashOf( type, &a ), Kiv::hashOf( type, &a ) );
   EXPECT_NE( Kiv::hashOf( type, &a ), Kiv::hashOf( type, &b ) );
}

TEST( LspPingPadTlvParser, copiesThePaddingOutOfThePacket ) {
   Orlo::Ptr< Velnet::Pkt > const pkt = Velnet::pktFactory( packetBytes );
   std::unique_ptr< LspPingPadTlv > const tlv = taken( lspPingPadTlvParserFactory( pkt, 3 ) );
   EXPECT_EQ( tlv->type(), 3 );
   EXPECT_EQ( tlv->length(), 5 );
   EXPECT_EQ( tlv->padType(), 1 );
   EXPECT_EQ( tlv->padding().lowest(), 0U );
   EXPECT_EQ( tlv->padding().end(), 4U );
   EXPECT_EQ( tlv->stringValue(), "PadTlv( PadType: 1, Size: 5, Padding: 0xAB 0x0 0xC 0xFF )" );
   pkt->data()[8] = 0x11;
   EXPECT_EQ( tlv->padding( 0 ), 0xAB );
}

// As if each byte were set in turn: with room for four at first, then for twice as many.
TEST( LspPingPadTlvParser, writesThePaddingByteByByte ) {
   Orlo::Ptr< Velnet::Pkt > const pkt =
      Velnet::pktFactory( std::vector< U8 >{ 0, 3, 0, 6, 1, 9, 8, 7, 6, 5 } );
   Orlo::Ptr< LspPingPadTlvParser > const parser = lspPingPadTlvParserFactory( pkt, 0 );
   std::unique_ptr< LspPingPadTlv > const tlv( parser->header() );
   EXPECT_EQ( tlv->padding().version(), 5u );
   EXPECT_EQ( tlv->padding().capacity(), 8u );
   EXPECT_EQ( tlv->padding().count(), 5u );
}

TEST( LspPingPadTlvParser, countsFromTheDataStart ) {
   Orlo::Ptr< Velnet::Pkt > const pkt = Velnet::pktFactory( packetBytes );
   pkt->dataStartIs( 2 );
   EXPECT_EQ( taken( LspPingPadTlvParser::LspPingPadTlvParserIs( pkt, 1 ) )->stringValue(),
              "PadTlv( PadType: 1, Size: 5, Padding: 0xAB 0x0 0xC 0xFF )" );
}

TEST( LspPingPadTlvParser, copiesWhateverThePadType ) {
   std::vector< U8 > const bytes = { 0xFF, 0xFE, 0, 3, 9, 0x12, 0x34 };
   auto const tlv = taken( lspPingPadTlvParserFactory( Velnet::pktFactory( bytes ), 0 ) );
   EXPECT_EQ( tlv->type(), 0xFFFE );
   EXPECT_EQ( tlv->padding( 0 ), 0x12 );
   EXPECT_EQ( tlv->padding( 1 ), 0x34 );
}

TEST( LspPingPadTlvParser, copiesNoByteForLengthsZeroAndOne ) {
   for( U8 const length : { U8{ 0 }, U8{ 1 } } ) {
      std::vector< U8 > const bytes = { 0, 3, 0, length, 2 };
      auto const tlv = taken( lspPingPadTlvParserFactory( Velnet::pktFactory( bytes ), 0 ) );
      EXPECT_TRUE( tlv->padding().empty() );
      EXPECT_EQ( tlv->padType(), 2 );
   }
}

TEST( LspPingPadTlvParser, leavesItsObjectToTheCaller ) {
   U64 const objects = LspPingPadTlv::memAllocationTracker_.live();
   U64 const parsers = LspPingPadTlvParser::memAllocationTracker_.live();
   Orlo::Ptr< Velnet::Pkt > const pkt = Velnet::pktFactory( packetBytes );
   Orlo::Ptr< LspPingPadTlvParser > parser = lspPingPadTlvParserFactory( pkt, 3 );
   EXPECT_EQ( pkt->references(), 2U );
   auto const first = taken( parser );
   parser->handleHeader();
   auto const second = taken( parser );
   EXPECT_NE( first, second );
   EXPECT_EQ( LspPingPadTlv::memAllocationTracker_.live(), objects + 2 );
   parser.reset();
   EXPECT_EQ( pkt->references(), 1U );
   EXPECT_EQ( LspPingPadTlvParser::memAllocationTracker_.live(), parsers );
   EXPECT_EQ( LspPingPadTlv::memAllocationTracker_.live(), objects + 2 );
   EXPECT_EQ( first->stringValue(), second->stringValue() );
}

TEST( LspPingPadTlvParser, forwardsToItsObject ) {
   Orlo::Ptr< LspPingPadTlvParser > const parser =
      lspPingPadTlvParserFactory( Velnet::pktFactory( packetBytes ), 3 );
   auto const tlv = taken( parser );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "type" ), 3 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "length" ), 5 );
   EXPECT_EQ( Kiv::read< U8 >( *parser, "padType" ), 1 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 12 );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( *parser, "stringValue" ), tlv->stringValue() );
   EXPECT_THROW( Kiv::write< U8 >( *parser, "padType", 2 ), Kiv::AccessException );

   EXPECT_EQ( attributeNames( parser->fwkType() ),
              "pkt, offset, header, handleHeader, type, length, padType, padding, valid, "
              "stringValue, totalLength" );

   Kiv::CollectionIterator at( parser->fwkType(), parser.get(), "padding" );
   EXPECT_EQ( *static_cast< U8 const * >( at.iterObj() ), 0xAB );
   EXPECT_EQ( at.iterDel(), Kiv::Outcome::notPermitted );
   EXPECT_EQ( tlv->padding( 0 ), 0xAB );
   Kiv::Field const padding = Kiv::attributeNamed( parser->fwkType(), "padding" ).field();
   U8 byte = 1;
   Kiv::Entry entry{ 3, &byte };
   EXPECT_EQ(
      Kiv::attributeAccess( parser->fwkType(), parser.get(), padding, Kiv::OpCode::write, &entry ),
      Kiv::Outcome::notPermitted );
   EXPECT_EQ(
      Kiv::attributeAccess( parser->fwkType(), parser.get(), padding, Kiv::OpCode::read, &entry ),
      Kiv::Outcome::done );
   EXPECT_EQ( byte, 0xFF );
}

TEST( LspPingPadTlvParserDeathTest, endsTheProcessWhereTheLengthRunsPastThePacket ) {
   for( U32 cut = 0; cut < 9; ++cut ) {
      std::vector< U8 > const bytes( packetBytes.begin() + 3, packetBytes.begin() + 3 + cut );
      EXPECT_DEATH( lspPingPadTlvParserFactory( Velnet::pktFactory( bytes ), 0 ), "terminate" );
   }
}

} // namespace
} // namespace LspPing
