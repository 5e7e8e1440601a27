#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <gtest/gtest.h>
#include <latch>
#include <stop_token>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <type_traits>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using Kiv::AllocationTracker;

static_assert( std::is_trivially_destructible_v< AllocationTracker > );

void count( AllocationTracker & tracker, int allocated, int released ) {
   for( int i = 0; i < allocated; ++i )
      tracker.allocated();
   for( int i = 0; i < released; ++i )
      tracker.released();
}

/// What a tracker counted since this was made, so that tests may run more than once.
class Since {
 public:
   explicit Since( AllocationTracker const & tracker )
      : tracker_( tracker ),
        live_( tracker.live() ),
        total_( tracker.total() ) {}
   U64 live() const { return tracker_.live() - live_; }
   U64 total() const { return tracker_.total() - total_; }

 private:
   AllocationTracker const & tracker_;
   U64 live_;
   U64 total_;
};

constinit AllocationTracker header( "LspPing::LspPingHdr" );

TEST( AllocationTracker, knowsItsClassBeforeAnythingIsAllocated ) {
   EXPECT_EQ( header.className(), "LspPing::LspPingHdr" );
   EXPECT_EQ( header.live(), 0u );
   EXPECT_EQ( header.total(), 0u );
}

TEST( AllocationTracker, countsLiveObjectsAndAllThereWere ) {
   static constinit AllocationTracker tracker( "counted" );
   Since const since( tracker );
   count( tracker, 5, 3 );
   EXPECT_EQ( since.live(), 2u );
   EXPECT_EQ( since.total(), 5u );
   count( tracker, 0, 2 );
   EXPECT_EQ( since.live(), 0u );
   EXPECT_EQ( since.total(), 5u );
}

TEST( AllocationTracker, keepsWhatEndedThreadsCounted ) {
   static constinit AllocationTracker tracker( "threads that end" );
   Since const since( tracker );
   for( int round = 0; round < 20; ++round )
      std::thread( [] { count( tracker, 1000, 400 ); } ).join();
   EXPECT_EQ( since.total(), 20'000u );
   EXPECT_EQ( since.live(), 12'000u );
}

TEST( AllocationTracker, countsThreadsThatStillRun ) {
   static constinit AllocationTracker tracker( "threads that run" );
   Since const since( tracker );
   std::latch counted( 4 );
   std::latch read( 1 );
   std::vector< std::jthread > threads;
   for( int i = 0; i < 4; ++i ) {
      threads.emplace_back( [&] {
         count( tracker, 100'000, 99'999 );
         counted.count_down();
         read.wait();
      } );
   }
   counted.wait();
   EXPECT_EQ( since.total(), 400'000u );
   EXPECT_EQ( since.live(), 4u );
   read.count_down();
   threads.clear();
   EXPECT_EQ( since.total(), 400'000u );
   EXPECT_EQ( since.live(), 4u );
}

TEST( AllocationTracker, mayBeReadWhileOthersCount ) {
   static constinit AllocationTracker tracker( "read meanwhile" );
   Since const since( tracker );
   U64 seen = 0;
   {
      std::jthread const counting( [] { count( tracker, 200'000, 200'000 ); } );
      for( int i = 0; i < 100; ++i ) {
         U64 const total = since.total();
         EXPECT_GE( total, seen );
         EXPECT_LE( since.live(), 200'000u );
         seen = total;
      }
   }
   EXPECT_EQ( since.total(), 200'000u );
   EXPECT_EQ( since.live(), 0u );
}

TEST( AllocationTracker, matchesAReleaseOnAnotherThread ) {
   static constinit AllocationTracker tracker( "handed over" );
   Since const since( tracker );
   count( tracker, 10, 0 );
   std::thread( [] { count( tracker, 0, 7 ); } ).join();
   EXPECT_EQ( since.live(), 3u );
   EXPECT_EQ( since.total(), 10u );
   std::thread( [] { count( tracker, 5, 0 ); } ).join();
   count( tracker, 0, 8 );
   EXPECT_EQ( since.live(), 0u );
   EXPECT_EQ( since.total(), 15u );
}

constinit AllocationTracker lateTracker( "late" );

struct CountsWhenTheThreadEnds {
   ~CountsWhenTheThreadEnds() { count( lateTracker, 3, 1 ); }
};

TEST( AllocationTracker, countsAfterTheThreadsBlockWasFolded ) {
   Since const since( lateTracker );
   std::thread( [] {
      // Built before the block is, so destroyed after it.
      thread_local CountsWhenTheThreadEnds const late;
      static_cast< void >( &late );
      count( lateTracker, 10, 5 );
   } ).join();
   EXPECT_EQ( since.total(), 13u );
   EXPECT_EQ( since.live(), 7u );
}

TEST( AllocationTracker, listsThoseThatCounted ) {
   static constinit AllocationTracker used( "listed and used" );
   static constinit AllocationTracker idle( "listed but idle" );
   Since const since( used );
   count( used, 4, 1 );
   EXPECT_EQ( since.live(), 3u );
   EXPECT_EQ( idle.total(), 0u );
   std::vector< AllocationTracker::Usage > const all = AllocationTracker::usage();
   auto const named = [&]( std::string const & name ) {
      return std::find_if( all.begin(), all.end(),
                           [&]( auto const & usage ) { return usage.className == name; } );
   };
   ASSERT_NE( named( "listed and used" ), all.end() );
   EXPECT_EQ( named( "listed and used" )->live, used.live() );
   EXPECT_EQ( named( "listed and used" )->total, used.total() );
   EXPECT_EQ( named( "listed but idle" ), all.end() );
}

[[noreturn]] void askInAChild() {
   alarm( 20 ); // ends a child that waits for a lock whose owner it does not have
   static constinit AllocationTracker tracker( "counted in a child" );
   count( tracker, 3, 1 );
   std::_Exit( tracker.live() == 2 && !AllocationTracker::usage().empty() ? 0 : 1 );
}

TEST( AllocationTracker, answersInAChildThatWasForkedWhileOthersAsked ) {
   std::vector< std::jthread > asking;
   for( int i = 0; i < 3; ++i ) {
      asking.emplace_back( []( std::stop_token const & stop ) {
         while( !stop.stop_requested() ) {
            static_cast< void >( AllocationTracker::usage() );
            static_cast< void >( header.live() );
         }
      } );
   }
   for( int round = 0; round < 50; ++round ) {
      pid_t const child = fork();
      if( child == 0 )
         askInAChild();
      ASSERT_GT( child, 0 );
      int status = 0;
      ASSERT_EQ( waitpid( child, &status, 0 ), child );
      ASSERT_TRUE( WIFEXITED( status ) && WEXITSTATUS( status ) == 0 ) << "round " << round;
   }
}

template < std::size_t... index >
std::array< AllocationTracker, sizeof...( index ) > &
manyTrackers( std::index_sequence< index... > ) {
   static constinit std::array< AllocationTracker, sizeof...( index ) > trackers{ (
      static_cast< void >( index ), AllocationTracker( "one of many" ) )... };
   return trackers;
}

TEST( AllocationTracker, staysExactWithMoreClassesThanABlockHolds ) {
   auto & trackers = manyTrackers( std::make_index_sequence< 400 >() );
   std::vector< Since > const since( trackers.begin(), trackers.end() );
   for( int round = 0; round < 2; ++round ) {
      std::thread( [&] {
         for( AllocationTracker & tracker : trackers )
            count( tracker, 3, 1 );
      } ).join();
   }
   for( Since const & tracker : since ) {
      ASSERT_EQ( tracker.total(), 6u );
      ASSERT_EQ( tracker.live(), 4u );
   }
}

} // namespace
