#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <latch>
#include <new>
#include <set>
#include <stop_token>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

std::vector< void * > allocated( std::size_t size, int count ) {
   std::vector< void * > objects;
   for( int i = 0; i < count; ++i ) {
      void * const object = VelSlab::allocate( size );
      std::memset( object, 0xa5, size );
      objects.push_back( object );
   }
   return objects;
}

void release( std::vector< void * > const & objects, std::size_t size ) {
   for( void * const object : objects )
      VelSlab::release( object, size );
}

/// What is said of recycled memory does not hold where every object comes from the heap.
class RecyclingSlab : public testing::Test {
 protected:
   void SetUp() override {
      if( !VelSlab::recycles() )
         GTEST_SKIP() << "AddressSanitizer builds take every object from the heap";
   }
};

TEST( Slab, givesEverySizeRoomOfItsOwn ) {
   for( std::size_t size = 1; size <= VelSlab::largestSize + 40; ++size ) {
      std::vector< std::byte * > objects;
      for( int i = 0; i < 150; ++i ) {
         auto * const object = static_cast< std::byte * >( VelSlab::allocate( size ) );
         ASSERT_EQ( reinterpret_cast< std::uintptr_t >( object ) % 16, 0u );
         std::memset( object, 0xa5, size );
         objects.push_back( object );
      }
      std::sort( objects.begin(), objects.end() );
      for( std::size_t i = 1; i < objects.size(); ++i )
         ASSERT_GE( objects[i] - objects[i - 1], static_cast< std::ptrdiff_t >( size ) );
      for( std::byte * const object : objects )
         VelSlab::release( object, size );
   }
}

TEST( Slab, takesSizeZeroAndNull ) {
   void * const object = VelSlab::allocate( 0 );
   ASSERT_NE( object, nullptr );
   VelSlab::release( object, 0 );
   VelSlab::release( nullptr, 32 );
   void * const next = VelSlab::allocate( 32 );
   EXPECT_NE( next, nullptr );
   VelSlab::release( next, 32 );
}

TEST_F( RecyclingSlab, givesTheLastReleasedObjectFirst ) {
   std::vector< void * > const objects = allocated( 48, 3 );
   release( objects, 48 );
   std::vector< void * > const again = allocated( 48, 3 );
   EXPECT_EQ( again, ( std::vector< void * >{ objects[2], objects[1], objects[0] } ) );
   release( again, 48 );
}

TEST_F( RecyclingSlab, reusesWhatWasReleasedHoweverMuch ) {
   std::vector< void * > const objects = allocated( 64, 5000 );
   release( objects, 64 );
   std::set< void * > const before( objects.begin(), objects.end() );
   EXPECT_EQ( before.size(), 5000u );
   std::vector< void * > const again = allocated( 64, 5000 );
   EXPECT_EQ( std::set< void * >( again.begin(), again.end() ), before );
   release( again, 64 );
}

TEST_F( RecyclingSlab, returnsTheMagazinesOfAThreadThatEnds ) {
   std::set< void * > fromThread;
   std::thread( [&] {
      std::vector< void * > const objects = allocated( 80, 100 );
      fromThread.insert( objects.begin(), objects.end() );
      release( objects, 80 );
   } ).join();
   // More than other tests left free, so that the thread's own are reached.
   std::vector< void * > const again = allocated( 80, 1000 );
   auto const reused = std::count_if( again.begin(), again.end(), [&]( void * object ) {
      return fromThread.count( object ) == 1;
   } );
   EXPECT_EQ( reused, 100 );
   release( again, 80 );
}

TEST( Slab, takesObjectsBackOnAnotherThread ) {
   for( int round = 0; round < 10; ++round ) {
      std::vector< void * > const objects = allocated( 96, 1000 );
      std::thread( [&] { release( objects, 96 ); } ).join();
   }
}

TEST_F( RecyclingSlab, doesNotGrowWhenOneThreadAllocatesAndAnotherReleases ) {
   std::set< void * > all;
   for( int round = 0; round < 50; ++round ) {
      std::vector< void * > const objects = allocated( 112, 1000 );
      all.insert( objects.begin(), objects.end() );
      std::thread( [&] { release( objects, 112 ); } ).join();
   }
   EXPECT_LT( all.size(), 1300u );
}

// A thread that keeps what it has in its magazines needs the depot only to begin with.
TEST_F( RecyclingSlab, letsThreadsWorkWithoutTheDepot ) {
   U64 const before = VelSlab::depotVisits( 128 );
   std::latch start( 2 );
   auto const work = [&] {
      start.arrive_and_wait();
      for( int i = 0; i < 20'000; ++i )
         release( allocated( 128, 5 ), 128 );
   };
   std::thread one( work );
   std::thread two( work );
   one.join();
   two.join();
   EXPECT_GE( VelSlab::depotVisits( 128 ) - before, 2u );
   EXPECT_LE( VelSlab::depotVisits( 128 ) - before, 4u );
}

// Going to and fro over the edge of one magazine swaps the thread's two and asks nobody.
TEST_F( RecyclingSlab, doesNotVisitTheDepotAtAMagazinesEdge ) {
   std::thread( [] {
      for( int held = 0; held < 200; ++held ) {
         std::vector< void * > const first = allocated( 144, held );
         release( allocated( 144, 10 ), 144 );
         U64 const before = VelSlab::depotVisits( 144 );
         for( int i = 0; i < 1000; ++i )
            release( allocated( 144, 10 ), 144 );
         EXPECT_EQ( VelSlab::depotVisits( 144 ), before ) << held;
         release( first, 144 );
      }
   } ).join();
}

std::vector< void * > leftForLater;

struct UsesTheSlabWhenTheThreadEnds {
   ~UsesTheSlabWhenTheThreadEnds() {
      release( leftForLater, 160 );
      release( allocated( 160, 100 ), 160 );
   }
};

TEST( Slab, servesAThreadThatHasGivenItsMagazinesBack ) {
   std::thread( [] {
      // Built before the thread's magazines are, so destroyed after them.
      thread_local UsesTheSlabWhenTheThreadEnds const late;
      static_cast< void >( &late );
      leftForLater = allocated( 160, 100 );
   } ).join();
   std::vector< void * > const objects = allocated( 160, 300 );
   EXPECT_EQ( std::set< void * >( objects.begin(), objects.end() ).size(), 300u );
   release( objects, 160 );
}

// After some rounds of the same use no object is a new one: all come back, whichever way they go.
template < class Use >
void expectNoneLost( Use use ) {
   std::set< void * > seen;
   std::size_t afterSome = 0;
   for( int round = 0; round < 20; ++round ) {
      std::vector< void * > const objects = use();
      seen.insert( objects.begin(), objects.end() );
      if( round == 4 )
         afterSome = seen.size();
   }
   EXPECT_EQ( seen.size(), afterSome );
}

TEST_F( RecyclingSlab, losesNoObjectOfAThreadThatGoesOn ) {
   expectNoneLost( [] {
      std::vector< void * > const objects = allocated( 192, 1000 );
      release( objects, 192 );
      return objects;
   } );
}

TEST_F( RecyclingSlab, losesNoObjectOfAThreadThatEnds ) {
   expectNoneLost( [] {
      std::vector< void * > objects;
      std::thread( [&] {
         objects = allocated( 208, 1000 );
         release( objects, 208 );
      } ).join();
      return objects;
   } );
}

struct ReturnsLate {
   std::vector< void * > objects;
   ~ReturnsLate() {
      std::vector< void * > const more = allocated( 224, 300 ); // those of the magazines, too
      release( objects, 224 );
      release( more, 224 );
   }
};

TEST_F( RecyclingSlab, losesNoObjectThatComesBackAfterTheMagazines ) {
   expectNoneLost( [] {
      std::vector< void * > objects;
      std::thread( [&] {
         // Built before the thread's magazines are, so destroyed after them.
         thread_local ReturnsLate late;
         objects = allocated( 224, 1000 );
         late.objects = objects;
         release( allocated( 224, 100 ), 224 );
      } ).join();
      return objects;
   } );
}

TEST( Slab, servesAChildThatWasForkedWhileOthersWereAtTheDepot ) {
   std::vector< std::jthread > visiting;
   for( int i = 0; i < 3; ++i ) {
      visiting.emplace_back( []( std::stop_token const & stop ) {
         while( !stop.stop_requested() )
            static_cast< void >( VelSlab::depotVisits( 176 ) );
      } );
   }
   for( int round = 0; round < 50; ++round ) {
      pid_t const child = fork();
      if( child == 0 ) {
         alarm( 20 ); // ends a child that waits for a lock whose owner it does not have
         release( allocated( 176, 500 ), 176 );
         std::_Exit( 0 );
      }
      ASSERT_GT( child, 0 );
      int status = 0;
      ASSERT_EQ( waitpid( child, &status, 0 ), child );
      ASSERT_TRUE( WIFEXITED( status ) && WEXITSTATUS( status ) == 0 ) << "round " << round;
   }
}

TEST( Slab, keepsObjectsApartAcrossThreadsThatTradeThem ) {
   constexpr int threadCount = 4;
   constexpr int objectCount = 500;
   for( int round = 0; round < 10; ++round ) {
      std::array< std::vector< void * >, threadCount > made;
      std::latch traded( threadCount );
      std::vector< std::jthread > threads;
      for( std::size_t self = 0; self < threadCount; ++self ) {
         threads.emplace_back( [&, self] {
            made[self] = allocated( 32, objectCount );
            for( void * const object : made[self] )
               std::memcpy( object, &self, sizeof( self ) );
            traded.arrive_and_wait();
            std::size_t const other = ( self + 1 ) % threadCount;
            for( void * const object : made[other] ) {
               std::size_t owner = 0;
               std::memcpy( &owner, object, sizeof( owner ) );
               EXPECT_EQ( owner, other );
               VelSlab::release( object, 32 );
            }
         } );
      }
   }
}

#if defined( __SANITIZE_THREAD__ )
constexpr bool threadSanitizer = true;
#elif !defined( __has_feature )
constexpr bool threadSanitizer = false;
#else
constexpr bool threadSanitizer = __has_feature( thread_sanitizer );
#endif

[[noreturn]] void exhaustMemory() {
   constexpr std::size_t limit = std::size_t{ 128 } << 20;
   std::vector< void * > objects;
   objects.reserve( limit / 256 );
   rlimit const addressSpace{ limit, limit };
   if( setrlimit( RLIMIT_AS, &addressSpace ) != 0 )
      std::_Exit( 1 );
   for( int round = 0; round < 2; ++round ) {
      try {
         for( ;; )
            objects.push_back( VelSlab::allocate( 256 ) );
      } catch( std::bad_alloc const & ) {
         if( objects.size() < 100'000 || objects.size() == objects.capacity() )
            std::_Exit( 2 );
      }
      std::sort( objects.begin(), objects.end() );
      if( std::adjacent_find( objects.begin(), objects.end() ) != objects.end() )
         std::_Exit( 3 );
      release( objects, 256 );
      objects.clear();
   }
   std::_Exit( 0 );
}

TEST( SlabDeathTest, throwsBadAllocWithoutMemoryAndGoesOnWhenSomeIsReleased ) {
   if( threadSanitizer || !VelSlab::recycles() )
      GTEST_SKIP() << "a sanitizer needs more address space than the limit";
   testing::FLAGS_gtest_death_test_style = "threadsafe";
   EXPECT_EXIT( exhaustMemory(), testing::ExitedWithCode( 0 ), "" );
}

TEST( SlabDeathTest, letsAddressSanitizerSeeAUseAfterRelease ) {
   if( VelSlab::recycles() )
      GTEST_SKIP() << "only AddressSanitizer sees it";
   char * const volatile object = static_cast< char * >( VelSlab::allocate( 32 ) );
   VelSlab::release( object, 32 );
   EXPECT_DEATH( object[3] = 1, "heap-use-after-free" );
}

struct Counted : VelSlab::Allocated< Counted > {
   explicit Counted( bool fails = false ) {
      if( fails )
         throw std::bad_alloc();
   }
   std::array< char, 40 > bytes{};
   static Kiv::AllocationTracker memAllocationTracker_;
};

constinit Kiv::AllocationTracker Counted::memAllocationTracker_( "Counted" );

TEST( SlabAllocated, tellsTheTrackerOfItsClass ) {
   Kiv::AllocationTracker const & tracker = Counted::memAllocationTracker_;
   U64 const total = tracker.total();
   auto const * const first = new Counted;
   auto const * const second = new Counted;
   EXPECT_EQ( tracker.live(), 2u );
   delete first;
   EXPECT_EQ( tracker.live(), 1u );
   EXPECT_THROW( delete new Counted( true ), std::bad_alloc );
   EXPECT_EQ( tracker.live(), 1u );
   delete second;
   EXPECT_EQ( tracker.live(), 0u );
   EXPECT_EQ( tracker.total() - total, 3u );
}

TEST( SlabAllocated, givesTheMemoryOfADeletedObjectToTheNext ) {
   if( !VelSlab::recycles() )
      GTEST_SKIP() << "AddressSanitizer builds take every object from the heap";
   auto const * const first = new Counted;
   auto const * const place = static_cast< void const * >( first );
   delete first;
   auto const * const second = new Counted;
   EXPECT_EQ( second, place );
   delete second;
}

TEST( SlabAllocated, canBePlaced ) {
   alignas( Counted ) std::array< std::byte, sizeof( Counted ) > place;
   U64 const total = Counted::memAllocationTracker_.total();
   auto * const counted = new( place.data() ) Counted;
   EXPECT_EQ( static_cast< void * >( counted ), place.data() );
   counted->~Counted();
   EXPECT_EQ( Counted::memAllocationTracker_.total(), total );
}

} // namespace
