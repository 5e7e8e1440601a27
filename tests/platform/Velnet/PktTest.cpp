#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <utility>

namespace {

using Velnet::Pkt;
using Velnet::pktFactory;

Orlo::Ptr< Pkt > pktOf( std::vector< U8 > bytes ) {
   return pktFactory( std::move( bytes ) );
}

Orlo::String failure( std::function< void() > const & act ) {
   try {
      act();
   } catch( Kiv::RangeException const & exception ) {
      return exception.what();
   }
   return "";
}

TEST( Pkt, copiesTheBytesItIsGiven ) {
   std::array< U8, 3 > bytes{ 1, 2, 3 };
   Orlo::Ptr< Pkt > const pkt = pktFactory( std::span< U8 const >( bytes ) );
   bytes[0] = 9;
   ASSERT_EQ( pkt->size(), 3U );
   EXPECT_NE( pkt->data(), bytes.data() );
   EXPECT_EQ( pkt->data()[0], 1 );
   EXPECT_EQ( pkt->data()[2], 3 );
}

TEST( Pkt, takesABufferOverWithoutCopying ) {
   std::vector< U8 > buffer{ 1, 2, 3 };
   U8 const * const bytes = buffer.data();
   Orlo::Ptr< Pkt > const pkt = pktFactory( std::move( buffer ) );
   EXPECT_EQ( pkt->data(), bytes );
   EXPECT_EQ( pkt->size(), 3U );
   EXPECT_EQ( pkt->references(), 1U );
}

TEST( Pkt, holdsNoDataWhenGivenNone ) {
   Orlo::Ptr< Pkt > const pkt = pktFactory( std::span< U8 const >{} );
   EXPECT_EQ( pkt->size(), 0U );
   EXPECT_NE( pkt->data(), nullptr );
   EXPECT_EQ( failure( [&] { pkt->rawByte( 0 ); } ),
              "rawByte: offset 0 is outside the 0 bytes of data" );
}

TEST( Pkt, readsSingleBytesInsideTheDataOnly ) {
   Orlo::Ptr< Pkt > const pkt = pktOf( { 0x11, 0x22, 0x33 } );
   EXPECT_EQ( pkt->rawByte( 0 ), 0x11 );
   EXPECT_EQ( pkt->rawByte( 2 ), 0x33 );
   EXPECT_EQ( failure( [&] { pkt->rawByte( 3 ); } ),
              "rawByte: offset 3 is outside the 3 bytes of data" );
   EXPECT_EQ( failure( [&] { pkt->rawByte( 0xFFFFFFFF ); } ),
              "rawByte: offset 4294967295 is outside the 3 bytes of data" );
}

TEST( Pkt, stripsHeadersAndGivesThemBack ) {
   Orlo::Ptr< Pkt > const pkt = pktOf( { 0, 1, 2, 3, 4 } );
   U8 const * const start = pkt->data();
   pkt->strip( 2 );
   EXPECT_EQ( pkt->dataStart(), 2U );
   EXPECT_EQ( pkt->data(), start + 2 );
   EXPECT_EQ( pkt->size(), 3U );
   EXPECT_EQ( pkt->rawByte( 0 ), 2 );
   EXPECT_EQ( failure( [&] { pkt->rawByte( 3 ); } ),
              "rawByte: offset 3 is outside the 3 bytes of data" );
   pkt->strip( 3 );
   EXPECT_EQ( pkt->size(), 0U );
   EXPECT_EQ( pkt->data(), start + 5 );
   pkt->extend( 4 );
   EXPECT_EQ( pkt->rawByte( 0 ), 1 );
   EXPECT_EQ( pkt->size(), 4U );
   pkt->dataStartIs( 0 );
   EXPECT_EQ( pkt->data(), start );
   EXPECT_EQ( pkt->size(), 5U );
}

TEST( Pkt, keepsTheDataStartInsideTheBuffer ) {
   Orlo::Ptr< Pkt > const pkt = pktOf( { 0, 1, 2, 3, 4 } );
   pkt->strip( 2 );
   EXPECT_EQ( failure( [&] { pkt->strip( 4 ); } ),
              "strip: 4 bytes are more than the 3 of the data" );
   EXPECT_EQ( failure( [&] { pkt->strip( 0xFFFFFFFF ); } ),
              "strip: 4294967295 bytes are more than the 3 of the data" );
   EXPECT_EQ( failure( [&] { pkt->extend( 3 ); } ),
              "extend: 3 bytes are more than the 2 before the data" );
   EXPECT_EQ( failure( [&] { pkt->dataStartIs( 6 ); } ),
              "dataStart: 6 is behind the end of the buffer's 5 bytes" );
   EXPECT_EQ( pkt->dataStart(), 2U );
   EXPECT_EQ( pkt->rawByte( 0 ), 2 );
}

TEST( Pkt, readsFromTheBufferThatIsCurrent ) {
   Orlo::Ptr< Pkt > const pkt = pktOf( { 1, 2 } );
   U8 const * const first = pkt->data();
   EXPECT_EQ( pkt->bufferAdd( { 11, 12, 13 } ), 1U );
   EXPECT_EQ( pkt->bufferAdd( {} ), 2U );
   EXPECT_EQ( pkt->bufferCount(), 3U );
   EXPECT_EQ( pkt->currentBuffer(), 0U );
   EXPECT_EQ( pkt->data(), first );
   pkt->currentBufferIs( 1 );
   EXPECT_EQ( pkt->currentBuffer(), 1U );
   EXPECT_EQ( pkt->size(), 3U );
   EXPECT_EQ( pkt->rawByte( 2 ), 13 );
   pkt->currentBufferIs( 0 );
   EXPECT_EQ( pkt->data(), first );
   EXPECT_EQ( pkt->size(), 2U );
   EXPECT_EQ( failure( [&] { pkt->currentBufferIs( 3 ); } ),
              "currentBuffer: 3 is not below the number of buffers, 3" );
   EXPECT_EQ( pkt->data(), first );
}

TEST( Pkt, remembersTheDataStartOfEachBuffer ) {
   Orlo::Ptr< Pkt > const pkt = pktOf( { 1, 2, 3 } );
   pkt->bufferAdd( { 11, 12, 13, 14 } );
   pkt->strip( 1 );
   pkt->currentBufferIs( 1 );
   EXPECT_EQ( pkt->dataStart(), 0U );
   pkt->strip( 3 );
   EXPECT_EQ( pkt->rawByte( 0 ), 14 );
   pkt->currentBufferIs( 0 );
   EXPECT_EQ( pkt->rawByte( 0 ), 2 );
   pkt->currentBufferIs( 1 );
   EXPECT_EQ( pkt->rawByte( 0 ), 14 );
}

TEST( Pkt, letsItsBytesBeWrittenInPlace ) {
   Orlo::Ptr< Pkt > const pkt = pktOf( { 0xa5, 0xa5, 0xa5 } );
   pkt->strip( 1 );
   pkt->data()[0] = 7;
   pkt->extend( 1 );
   EXPECT_EQ( pkt->rawByte( 0 ), 0xa5 );
   EXPECT_EQ( pkt->rawByte( 1 ), 7 );
   EXPECT_EQ( pkt->rawByte( 2 ), 0xa5 );
}

} // namespace
