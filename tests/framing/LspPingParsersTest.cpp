#include "MplsUtils/LspPing/LspPingHdr.h"

#include <gtest/gtest.h>

#include <numeric>
#include <thread>
#include <vector>

namespace {

using namespace LspPing;

std::vector< U8 > requestBytes( std::size_t before = 0, std::size_t after = 0 ) {
   std::vector< U8 > bytes( before + 32 + after, 0 );
   bytes[before + 1] = 1;
   bytes[before + 4] = 1;
   bytes[before + 5] = 2;
   bytes[before + 15] = 77;
   return bytes;
}

TEST( LspPingHdrParser, showsTheHeaderAtTheStartOfThePacket ) {
   auto const parser = lspPingHdrParserFactory( Velnet::pktFactory( requestBytes() ), 0 );
   EXPECT_TRUE( parser->header()->valid() );
   EXPECT_EQ( parser->header()->version(), 1 );
   EXPECT_EQ( parser->header()->replyMode(), 2 );
   EXPECT_EQ( parser->header()->sequenceNumber(), 77u );
   EXPECT_EQ( parser->offset(), 0u );
   EXPECT_EQ( static_cast< void * >( parser->header() ),
              static_cast< void * >( parser->pkt()->data() ) );
}

TEST( LspPingHdrParser, showsTheHeaderAtAnyOffset ) {
   for( U32 const offset : { 1u, 7u, 28u, 42u } ) {
      auto const parser = LspPingHdrParser::LspPingHdrParserIs(
         Velnet::pktFactory( requestBytes( offset ) ), offset );
      EXPECT_TRUE( parser->header()->valid() );
      EXPECT_EQ( parser->header()->sequenceNumber(), 77u );
      EXPECT_EQ( parser->offset(), offset );
   }
}

TEST( LspPingHdrParser, writesThroughToThePacket ) {
   auto const pkt = Velnet::pktFactory( requestBytes( 3 ) );
   auto const parser = lspPingHdrParserFactory( pkt, 3 );
   parser->header()->sequenceNumberIs( 0x01020304 );
   EXPECT_EQ( pkt->rawByte( 3 + 12 ), 1 );
   EXPECT_EQ( pkt->rawByte( 3 + 15 ), 4 );
}

// The address is made, and nothing is read from it.
TEST( LspPingHdrParser, isCreatedPastTheEndOfThePacket ) {
   auto const pkt = Velnet::pktFactory( requestBytes() );
   for( U32 const offset : { 1u, 32u, 33u, 100000u, 0xffffffffu } ) {
      auto const parser = lspPingHdrParserFactory( pkt, offset );
      EXPECT_EQ( parser->offset(), offset );
      EXPECT_EQ( reinterpret_cast< std::uintptr_t >( parser->header() ),
                 reinterpret_cast< std::uintptr_t >( pkt->data() ) + offset );
   }
}

TEST( LspPingHdrParser, keepsItsPlaceUntilToldThatTheDataStartMoved ) {
   auto const pkt = Velnet::pktFactory( requestBytes( 14 ) );
   auto const parser = lspPingHdrParserFactory( pkt, 0 );
   LspPingHdr * const before = parser->header();
   EXPECT_FALSE( before->valid() );
   pkt->strip( 14 );
   EXPECT_EQ( parser->header(), before );
   parser->handleHeader();
   EXPECT_EQ( reinterpret_cast< U8 * >( parser->header() ),
              reinterpret_cast< U8 * >( before ) + 14 );
   EXPECT_TRUE( parser->header()->valid() );
   EXPECT_EQ( parser->offset(), 0u );
   EXPECT_EQ( pkt->references(), 2u );
}

TEST( LspPingHdrParser, followsThePacketToAnotherBuffer ) {
   auto const pkt = Velnet::pktFactory( std::vector< U8 >( 40, 0 ) );
   auto const parser = lspPingHdrParserFactory( pkt, 2 );
   pkt->currentBufferIs( pkt->bufferAdd( requestBytes( 2 ) ) );
   EXPECT_FALSE( parser->header()->valid() );
   parser->handleHeader();
   EXPECT_TRUE( parser->header()->valid() );
}

TEST( LspPingHdrParser, keepsThePacketAliveAndLetsItGo ) {
   auto pkt = Velnet::pktFactory( requestBytes() );
   Velnet::Pkt * const watched = pkt.get();
   auto parser = lspPingHdrParserFactory( pkt, 0 );
   EXPECT_EQ( watched->references(), 2u );
   pkt.reset();
   EXPECT_EQ( watched->references(), 1u );
   EXPECT_TRUE( parser->header()->valid() );
   pkt = parser->pkt();
   auto const second = parser;
   EXPECT_EQ( parser->references(), 2u );
   EXPECT_EQ( watched->references(), 2u );
   parser.reset();
   EXPECT_EQ( watched->references(), 2u );
}

TEST( LspPingHdrParser, releasesThePacketWithItsLastReference ) {
   auto const pkt = Velnet::pktFactory( requestBytes() );
   {
      auto const parser = lspPingHdrParserFactory( pkt, 0 );
      auto const copy = parser;
      EXPECT_EQ( pkt->references(), 2u );
   }
   EXPECT_EQ( pkt->references(), 1u );
}

TEST( LspPingHdrParser, countsItsObjects ) {
   auto const pkt = Velnet::pktFactory( requestBytes() );
   U64 const live = LspPingHdrParser::memAllocationTracker_.live();
   U64 const total = LspPingHdrParser::memAllocationTracker_.total();
   {
      auto const first = lspPingHdrParserFactory( pkt, 0 );
      auto const second = lspPingHdrParserFactory( pkt, 0 );
      EXPECT_EQ( LspPingHdrParser::memAllocationTracker_.live(), live + 2 );
      EXPECT_EQ( LspPingEchoJitterTlvParser::memAllocationTracker_.live(), 0u );
   }
   EXPECT_EQ( LspPingHdrParser::memAllocationTracker_.live(), live );
   EXPECT_EQ( LspPingHdrParser::memAllocationTracker_.total(), total + 2 );
}

TEST( LspPingHdrParser, isSharedBetweenThreads ) {
   auto const pkt = Velnet::pktFactory( requestBytes() );
   {
      auto const parser = lspPingHdrParserFactory( pkt, 0 );
      std::vector< std::thread > threads;
      std::atomic< int > valid = 0;
      for( int i = 0; i < 4; ++i )
         threads.emplace_back( [&parser, &valid] {
            for( int round = 0; round < 20000; ++round ) {
               auto const copy = parser;
               valid += copy->header()->valid() ? 1 : 0;
            }
         } );
      for( std::thread & thread : threads )
         thread.join();
      EXPECT_EQ( valid, 80000 );
      EXPECT_EQ( parser->references(), 1u );
   }
   EXPECT_EQ( pkt->references(), 1u );
}

template < class Parser >
class ParserFamily : public testing::Test {};

// Of every kind one, whose view lies in the packet.
using Parsers = testing::Types< LspPingHdrParser, LspPingEchoJitterTlvParser, LspPingDdmapTlvParser,
                                LspPingLdpIpv4SubTlvParser, LspPingOpaqueValGenSubTlvParser,
                                LspPingMultipathSubTlvParser, LspPingNilFecSubTlvParser >;
TYPED_TEST_SUITE( ParserFamily, Parsers );

TYPED_TEST( ParserFamily, isOneSizeAndPointsIntoThePacket ) {
   EXPECT_EQ( sizeof( TypeParam ), sizeof( LspPingHdrParser ) );
   EXPECT_LE( sizeof( TypeParam ), 40u );
   auto const pkt = Velnet::pktFactory( std::vector< U8 >( 64, 0xa5 ) );
   auto const parser = Orlo::Ptr< TypeParam >::make( pkt, 5u );
   EXPECT_EQ( static_cast< void * >( parser->header() ), static_cast< void * >( pkt->data() + 5 ) );
   EXPECT_EQ( parser->publisher(), nullptr );
   EXPECT_EQ( parser->fwkType(), Kiv::typeOf< TypeParam >() );
   EXPECT_EQ( parser->fwkType().id().module, 16 );
}

// A chain of elements is walked by their total lengths, as agents do it.
TEST( Parsers, followAMessageByTotalLengths ) {
   std::vector< U8 > bytes = requestBytes( 0, 20 );
   U8 const tlvs[] = { 0, 12, 0, 4, 0, 0, 1, 244, // Echo Jitter, 500
                       0, 3,  0, 2, 1, 9, 0, 0,   // Pad of two bytes, then padding
                       0, 10, 0, 0 };             // Reply TOS without its value
   std::copy( std::begin( tlvs ), std::end( tlvs ), bytes.begin() + 32 );
   auto const pkt = Velnet::pktFactory( std::move( bytes ) );
   std::vector< U16 > types;
   for( U32 offset = 32; pkt->size() - offset >= sizeof( LspPingTlvHdr ); ) {
      auto const & header = *reinterpret_cast< LspPingTlvHdr const * >( pkt->data() + offset );
      types.push_back( header.type() );
      offset += header.totalLength();
   }
   EXPECT_EQ( types, ( std::vector< U16 >{ 12, 3, 10 } ) );
   EXPECT_EQ( lspPingEchoJitterTlvParserFactory( pkt, 32 )->header()->jitter(), 500u );
}

} // namespace
