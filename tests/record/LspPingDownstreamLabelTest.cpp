#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace LspPing {
namespace {

using Entry = LspPingDownstreamLabelEntry;

static_assert( Entry().word() == 0 );
static_assert( Entry( 0x12, 0x34, 0x56, 0x78 ).word() == 0x12345678 );
static_assert( Entry( 0x12345678 ) == Entry( 0x12, 0x34, 0x56, 0x78 ) );
static_assert( Entry( 0x100 ).bottomOfStack() && !Entry( 0xFFFFFEFF ).bottomOfStack() );

constexpr Entry bottom( 0x00064100 ); // label 100, S
constexpr Entry inner( 0x00064040 );  // label 100

TEST( LspPingDownstreamLabelEntry, keepsItsBytesInWireOrder ) {
   Entry entry( 0x12345678 );
   EXPECT_EQ( entry.v0(), 0x12 );
   EXPECT_EQ( entry.v1(), 0x34 );
   EXPECT_EQ( entry.v2(), 0x56 );
   EXPECT_EQ( entry.v3(), 0x78 );
   entry.v0Is( 1 );
   entry.v1Is( 2 );
   entry.v2Is( 3 );
   entry.v3Is( 4 );
   EXPECT_EQ( entry.word(), 0x01020304U );
   Kiv::write< U8 >( entry, "v2", 0xFF );
   EXPECT_EQ( entry.word(), 0x0102FF04U );
   EXPECT_EQ( Kiv::read< U8 >( entry, "v3" ), 4 );
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< Entry >(), &entry ),
              "LspPing::LspPingDownstreamLabelEntry(v0=1, v1=2, v2=255, v3=4)" );
}

TEST( LspPingDownstreamLabelEntry, differsInEachByte ) {
   for( unsigned bit = 0; bit < 32; ++bit )
      EXPECT_NE( Entry( 1u << bit ), Entry() );
}

TEST( LspPingDownstreamLabelEntry, hashesItsNetworkOrderWord ) {
   Entry const entry( 0x12345678 );
   EXPECT_EQ( Kiv::hashOf( Kiv::typeOf< Entry >(), &entry ), Velnet::NetU32( 0x12345678 ).hash() );
}

TEST( LspPingDownstreamLabelEntry, hasASharedDefaultOfWordZero ) {
   EXPECT_EQ( Entry::defaultEntry().word(), 0U );
   EXPECT_EQ( Velnet::MplsLabelEntry::defaultEntry().word(), 0U );
   EXPECT_EQ( &Entry::defaultEntry(), &Entry::defaultEntry() );
}

TEST( LspPingDownstreamLabelEntry, givesItsSharedDefaultWhereAStackHoldsNone ) {
   Entry::defaultEntryIs( 0xABCDEF01 );
   LspPingDownstreamLabelStack stack;
   stack.labelEntryIs( 1, inner );
   EXPECT_EQ( stack.labelEntry( 2 ).word(), 0xABCDEF01U );
   EXPECT_EQ( stack.labelEntry( 0 ).word(), 0U ); // held, though never written
   Entry::defaultEntryIs( 0 );
   EXPECT_EQ( stack.labelEntry( 2 ), Entry() );
}

TEST( LspPingDownstreamLabelStack, isValidWithoutPositions ) {
   LspPingDownstreamLabelStack stack;
   EXPECT_TRUE( stack.valid() );
   stack.labelEntryIs( 0, inner );
   EXPECT_TRUE( stack.valid() );
}

TEST( LspPingDownstreamLabelStack, needsABottomOfStackBelowItsSize ) {
   LspPingDownstreamLabelStack stack;
   stack.sizeIs( 2 );
   EXPECT_FALSE( stack.valid() );
   stack.labelEntryIs( 0, inner );
   stack.labelEntryIs( 1, inner );
   EXPECT_FALSE( stack.valid() );
   stack.labelEntryIs( 2, bottom );
   EXPECT_FALSE( stack.valid() );
   stack.labelEntryIs( 1, bottom );
   EXPECT_TRUE( stack.valid() );
   EXPECT_TRUE( Kiv::read< bool >( stack, "valid" ) );
   stack.sizeIs( 1 );
   EXPECT_FALSE( stack.valid() );
}

TEST( LspPingDownstreamLabelStack, looksAtTwoHundredFiftySixPositionsAtMost ) {
   LspPingDownstreamLabelStack stack;
   stack.sizeIs( 255 );
   EXPECT_FALSE( stack.valid() );
   stack.labelEntryIs( 255, bottom );
   EXPECT_FALSE( stack.valid() );
   for( U32 const size : { 256u, 257u, 0xFFFFFFFFu } ) {
      stack.sizeIs( size );
      EXPECT_TRUE( stack.validEnds() );
      EXPECT_TRUE( stack.valid() );
   }
}

// A process of its own that asks for valid(), which must not return. True when it is still at it
// after a second.
bool stillRunningAfterASecond( LspPingDownstreamLabelStack const & stack ) {
   pid_t const child = fork();
   if( child == 0 )
      _exit( stack.valid() ? 1 : 2 );
   if( child < 0 )
      throw std::runtime_error( "no process to be had" );
   std::this_thread::sleep_for( std::chrono::seconds( 1 ) );
   int status = 0;
   bool const running = waitpid( child, &status, WNOHANG ) == 0;
   if( running ) {
      kill( child, SIGKILL );
      waitpid( child, &status, 0 );
   }
   return running;
}

TEST( LspPingDownstreamLabelStack, isExaminedForEverFromTwoHundredFiftySixPositionsOn ) {
   LspPingDownstreamLabelStack stack;
   stack.sizeIs( 256 );
   EXPECT_FALSE( stack.validEnds() );
   EXPECT_TRUE( stillRunningAfterASecond( stack ) );
   stack.labelEntryIs( 256, bottom ); // out of the counter's reach
   stack.sizeIs( 300 );
   EXPECT_FALSE( stack.validEnds() );
   EXPECT_TRUE( stillRunningAfterASecond( stack ) );
   stack.sizeIs( 255 ); // so the way of looking is right
   EXPECT_FALSE( stillRunningAfterASecond( stack ) );
}

TEST( LspPingDownstreamLabelStack, guardsValidForGenericTools ) {
   Kiv::Attribute const & valid =
      *Kiv::attributeNamed( Kiv::typeOf< LspPingDownstreamLabelStack >(), "valid" ).attribute;
   LspPingDownstreamLabelStack stack;
   ASSERT_NE( valid.guard, nullptr );
   EXPECT_TRUE( valid.guard( &stack ) );
   stack.sizeIs( 255 );
   EXPECT_TRUE( valid.guard( &stack ) );
   stack.sizeIs( 256 );
   EXPECT_FALSE( valid.guard( &stack ) );
   stack.labelEntryIs( 17, bottom );
   EXPECT_TRUE( valid.guard( &stack ) );
}

TEST( LspPingDownstreamLabelStack, deletesByZeroing ) {
   LspPingDownstreamLabelStack stack;
   for( U32 position = 0; position < 3; ++position )
      stack.labelEntryIs( position, Entry( position + 1 ) );
   U64 const version = stack.labelEntry().version();
   EXPECT_EQ( stack.labelEntryDel( 5 ), Entry() );
   EXPECT_EQ( stack.labelEntry().version(), version );
   EXPECT_EQ( stack.labelEntryDel( 1 ), Entry( 2 ) );
   EXPECT_EQ( stack.labelEntryDel( 1 ), Entry() );
   EXPECT_EQ( stack.labelEntry().version(), version + 1 );
   EXPECT_EQ( stack.labelEntry().end(), 3U );
   EXPECT_EQ( stack.labelEntryDel( stack.labelEntryIterator() ), Entry( 1 ) );
   stack.labelEntryDelAll();
   EXPECT_EQ( stack.labelEntry( 2 ), Entry() );
   EXPECT_EQ( stack.labelEntry().end(), 3U );
   EXPECT_TRUE( stack );
   EXPECT_NE( stack, LspPingDownstreamLabelStack() );
}

TEST( LspPingDownstreamLabelStack, growsOverZeroEntries ) {
   LspPingDownstreamLabelStack stack;
   stack.labelEntryIs( 3, bottom );
   EXPECT_EQ( stack.labelEntry( 0 ), Entry() );
   EXPECT_EQ( stack.labelEntry( 3 ), bottom );
   EXPECT_EQ( stack.labelEntry( 4 ), Entry() );
   EXPECT_EQ( stack.labelEntry().end(), 4U );
}

TEST( LspPingDownstreamLabelStack, comparesSizeAndEntries ) {
   LspPingDownstreamLabelStack a, b;
   a.sizeIs( 1 );
   EXPECT_NE( a, b );
   b.sizeIs( 1 );
   EXPECT_EQ( a, b );
   a.labelEntryIs( 0, Entry() );
   EXPECT_NE( a, b ); // one is empty, the other all zero
   b.labelEntryIs( 4, Entry() );
   EXPECT_EQ( a, b );
   b.labelEntryIs( 2, bottom );
   EXPECT_NE( a, b );
   LspPingDownstreamLabelStack const copy = b;
   b.labelEntryDel( 2 );
   EXPECT_EQ( copy.labelEntry( 2 ), bottom );
}

TEST( LspPingDownstreamLabelStack, printsItsPositions ) {
   LspPingDownstreamLabelStack stack;
   stack.labelEntryIs( 0, bottom );
   stack.sizeIs( 1 );
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingDownstreamLabelStack >(), &stack ),
              "LspPing::LspPingDownstreamLabelStack(labelEntry={0: "
              "LspPing::LspPingDownstreamLabelEntry(v0=0, v1=6, v2=65, v3=0)}, size=1)" );
}

TEST( LspPingDownstreamLabelStackDeathTest, endsTheProcessBeyondTheArraysLimit ) {
   LspPingDownstreamLabelStack stack;
   EXPECT_DEATH( stack.labelEntryIs( 2003003, bottom ),
                 "assertion \"newEntries < 2003004\" failed" );
}

} // namespace
} // namespace LspPing
