#include "MplsUtils/LspPing/platform/Orlo/Node.h"
#include "MplsUtils/LspPing/platform/Kiv/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <sys/single_threaded.h>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

using Orlo::Node;
using Orlo::Ptr;

static_assert( sizeof( Node ) == 16 );
static_assert( std::has_virtual_destructor_v< Node > );
static_assert( !std::is_copy_constructible_v< Node > && !std::is_copy_assignable_v< Node > );

/// Placed like a parser: a number in the node's tail padding, a handle and a plain pointer.
struct Placed : Node, VelSlab::Allocated< Placed > {
   Placed( Ptr< Node > const & kept, U32 offset ) : offset_( offset ), kept_( kept ) {}

   U32 offset_;
   Ptr< Node > kept_;
   void * header_ = nullptr;
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( sizeof( Placed ) == 32 );

constinit Kiv::AllocationTracker Placed::memAllocationTracker_( "Placed" );

/// Writes down what happens to it.
struct Noted : Node {
   Noted( std::string & notes, std::string name ) : notes_( notes ), name_( std::move( name ) ) {}
   ~Noted() override { notes_ += "~" + name_ + " "; }

   std::string & notes_;
   std::string name_;
   Ptr< Node > kept_;
};

TEST( Node, startsWithoutUsers ) {
   std::string notes;
   Noted const noted( notes, "node" );
   EXPECT_EQ( noted.references(), 0u );
}

TEST( Node, hasNoPublisherAndNoTypeOfItsOwn ) {
   std::string notes;
   Noted const noted( notes, "node" );
   EXPECT_EQ( noted.publisher(), nullptr );
   EXPECT_EQ( noted.typeData(), Kiv::TypeRef() );
   EXPECT_EQ( noted.fwkType(), Kiv::TypeRef() );
}

// Any registered type will do.
struct Typed : Node {
   Kiv::TypeRef typeData() const override { return Kiv::typeOf< U32 >(); }
};

TEST( Node, hasTheTypeThatTheMostDerivedClassGives ) {
   Typed const typed;
   Node const & node = typed;
   EXPECT_EQ( node.fwkType(), Kiv::typeOf< U32 >() );
   EXPECT_NE( node.fwkType(), Kiv::TypeRef() );
}

TEST( Node, isDestroyedWithItsLastUser ) {
   std::string notes;
   Ptr< Node > first( new Noted( notes, "node" ) );
   EXPECT_EQ( first->references(), 1u );
   Ptr< Node > second = first;
   EXPECT_EQ( first->references(), 2u );
   first.reset();
   EXPECT_EQ( notes, "" );
   EXPECT_EQ( second->references(), 1u );
   second.reset();
   EXPECT_EQ( notes, "~node " );
}

TEST( Node, releasesWhatItKeepsAfterItsOwnDestructorRan ) {
   std::string notes;
   auto outer = Ptr< Noted >::make( notes, "outer" );
   outer->kept_ = Ptr< Noted >::make( notes, "inner" );
   outer.reset();
   EXPECT_EQ( notes, "~outer ~inner " );
}

TEST( Node, outlivesAHolderWhenSomebodyElseKeepsIt ) {
   std::string notes;
   auto inner = Ptr< Noted >::make( notes, "inner" );
   auto outer = Ptr< Noted >::make( notes, "outer" );
   outer->kept_ = inner;
   EXPECT_EQ( inner->references(), 2u );
   outer.reset();
   EXPECT_EQ( notes, "~outer " );
   EXPECT_EQ( inner->references(), 1u );
}

struct LendsItselfWhenDestroyed : Node {
   explicit LendsItselfWhenDestroyed( int & destroyed, bool marks = false )
      : destroyed_( destroyed ),
        marks_( marks ) {}
   ~LendsItselfWhenDestroyed() override {
      if( marks_ )
         beingDestroyedIs();
      for( int i = 0; i < 3; ++i ) {
         Ptr< Node > const lent( this );
         Ptr< Node > const again = lent;
      }
      EXPECT_EQ( references(), 0u );
      ++destroyed_;
   }

   int & destroyed_;
   bool marks_;
};

TEST( Node, isDestroyedOnceThoughItsDestructorLendsItOut ) {
   int destroyed = 0;
   Ptr< Node >( new LendsItselfWhenDestroyed( destroyed ) ).reset();
   EXPECT_EQ( destroyed, 1 );
   { LendsItselfWhenDestroyed const automatic( destroyed, true ); }
   EXPECT_EQ( destroyed, 2 );
}

struct ComesBack : Node {
   explicit ComesBack( Ptr< ComesBack > & home ) : home_( home ) {}

   void lastUserGone() override {
      ++timesWithoutUser_;
      EXPECT_EQ( references(), 0u );
      if( timesWithoutUser_ <= 2 )
         home_ = this;
      else
         Node::lastUserGone();
   }

   Ptr< ComesBack > & home_;
   int timesWithoutUser_ = 0;
};

TEST( Node, mayBeKeptByItsLastUserGone ) {
   Ptr< ComesBack > home;
   auto user = Ptr< ComesBack >::make( home );
   ComesBack const * const node = user.get();
   user.reset();
   EXPECT_EQ( home, node );
   EXPECT_EQ( home->references(), 1u );
   user = std::move( home );
   user.reset();
   EXPECT_EQ( home->timesWithoutUser_, 2 );
   user = std::move( home );
   user.reset();
   EXPECT_EQ( home, nullptr );
}

TEST( Node, comesFromTheSlabAndIsCounted ) {
   Kiv::AllocationTracker const & tracker = Placed::memAllocationTracker_;
   U64 const total = tracker.total();
   std::string notes;
   {
      Ptr< Node > const kept = Ptr< Noted >::make( notes, "kept" );
      auto const placed = Ptr< Placed >::make( kept, 7u );
      EXPECT_EQ( placed->offset_, 7u );
      EXPECT_EQ( kept->references(), 2u );
      EXPECT_EQ( tracker.live(), 1u );
   }
   EXPECT_EQ( notes, "~kept " );
   EXPECT_EQ( tracker.live(), 0u );
   EXPECT_EQ( tracker.total() - total, 1u );
}

/// As `Noted`, for handles that look for the last user first.
struct MostlyAlone : Noted {
   using Noted::Noted;
   static constexpr bool usuallyOneUser = true;
};

template < class T >
class SharedNode : public testing::Test {};
using NodeKinds = testing::Types< Noted, MostlyAlone >;
TYPED_TEST_SUITE( SharedNode, NodeKinds );

TYPED_TEST( SharedNode, keepsAnExactCountUnderEightThreads ) {
   std::string notes;
   Ptr< TypeParam > shared( new TypeParam( notes, "shared" ) );
   std::vector< std::jthread > threads;
   for( int i = 0; i < 8; ++i ) {
      threads.emplace_back( [own = shared] {
         for( int round = 0; round < 20'000; ++round ) {
            Ptr< TypeParam > const first = own;
            Ptr< Node > const second = first;
            Ptr< TypeParam > third( first.get() );
            third = first;
         }
      } );
   }
   threads.clear();
   EXPECT_EQ( shared->references(), 1u );
   EXPECT_EQ( notes, "" );
   shared.reset();
   EXPECT_EQ( notes, "~shared " );
}

TYPED_TEST( SharedNode, isDestroyedOnceWhicheverThreadIsLast ) {
   std::string notes;
   std::string expected;
   for( int round = 0; round < 200; ++round ) {
      std::vector< std::jthread > threads;
      Ptr< TypeParam > shared( new TypeParam( notes, "shared" ) );
      for( int i = 0; i < 3; ++i ) {
         threads.emplace_back( [own = shared]() mutable {
            EXPECT_EQ( own->name_, "shared" );
            own.reset();
         } );
      }
      shared.reset();
      threads.clear();
      expected += "~shared ";
   }
   EXPECT_EQ( notes, expected );
}

/// Counts made plainly go on atomically when the second thread starts, and after it ended.
[[noreturn]] void goFromOneThreadToSeveral() {
   std::string notes;
   auto const check = []( bool holds, int status ) {
      if( !holds )
         std::_Exit( status );
   };
   Ptr< Noted > first( new Noted( notes, "node" ) );
   Ptr< Noted > second = first;
   check( __libc_single_threaded != 0, 1 );
   check( first->references() == 2, 2 );
   {
      std::vector< std::jthread > threads;
      for( int i = 0; i < 4; ++i ) {
         threads.emplace_back( [own = second] {
            for( int round = 0; round < 10'000; ++round )
               Ptr< Noted > const copy = own;
         } );
      }
      check( __libc_single_threaded == 0, 3 );
      second.reset();
   }
   check( first->references() == 1, 4 );
   second = first;
   check( first->references() == 2 && notes.empty(), 5 );
   first.reset();
   second.reset();
   check( notes == "~node ", 6 );
   std::_Exit( 0 );
}

// In a process of its own, since other tests have started threads in this one.
TEST( NodeDeathTest, keepsItsUsersWhenTheProcessGetsMoreThreads ) {
   testing::FLAGS_gtest_death_test_style = "threadsafe";
   EXPECT_EXIT( goFromOneThreadToSeveral(), testing::ExitedWithCode( 0 ), "" );
}

} // namespace
