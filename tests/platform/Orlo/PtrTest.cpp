#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"

#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

namespace {

using Orlo::Node;
using Orlo::Ptr;

struct Base : Node {
   explicit Base( int & alive ) : alive_( alive ) { ++alive_; }
   ~Base() override { --alive_; }
   int & alive_;
};

struct Derived : Base {
   using Base::Base;
   int value_ = 7;
};

struct Unrelated : Node {};

static_assert( sizeof( Ptr< Base > ) == 8 );
static_assert( std::is_nothrow_copy_constructible_v< Ptr< Base > > );
static_assert( std::is_nothrow_move_constructible_v< Ptr< Base > > );
static_assert( std::is_nothrow_move_assignable_v< Ptr< Base > > );
static_assert( std::is_nothrow_swappable_v< Ptr< Base > > );
static_assert( std::is_convertible_v< Ptr< Derived >, Ptr< Base > > );
static_assert( std::is_convertible_v< Ptr< Derived >, Ptr< Base const > > );
static_assert( !std::is_convertible_v< Ptr< Base >, Ptr< Derived > > );
static_assert( !std::is_convertible_v< Ptr< Base const >, Ptr< Base > > );
static_assert( !std::is_convertible_v< Ptr< Unrelated >, Ptr< Base > > );
static_assert( !std::is_convertible_v< Ptr< Base >, bool > );

class PtrTest : public testing::Test {
 protected:
   ~PtrTest() override { EXPECT_EQ( alive_, 0 ); }
   int alive_ = 0;
};

TEST_F( PtrTest, isNullUnlessGivenANode ) {
   Ptr< Base > const none;
   Ptr< Base > const null = nullptr;
   Ptr< Base > const fromPointer( static_cast< Base * >( nullptr ) );
   EXPECT_FALSE( none );
   EXPECT_EQ( none, nullptr );
   EXPECT_EQ( none, null );
   EXPECT_EQ( null, fromPointer );
   Ptr< Base > const copy = none;
   EXPECT_EQ( copy.get(), nullptr );
}

TEST_F( PtrTest, refersToTheNodeItWasGiven ) {
   auto * const node = new Derived( alive_ );
   Ptr< Derived > const ptr( node );
   EXPECT_TRUE( ptr );
   EXPECT_EQ( ptr.get(), node );
   EXPECT_EQ( &*ptr, node );
   EXPECT_EQ( ptr->value_, 7 );
   EXPECT_EQ( ptr, node );
   EXPECT_NE( ptr, nullptr );
   EXPECT_EQ( node->references(), 1u );
}

TEST_F( PtrTest, makesANodeWithOneUser ) {
   auto const ptr = Ptr< Derived >::make( alive_ );
   EXPECT_EQ( ptr->references(), 1u );
   EXPECT_EQ( alive_, 1 );
}

struct KnownFromTheStart : Node {
   explicit KnownFromTheStart( Ptr< KnownFromTheStart > & known ) { known = this; }
};

TEST_F( PtrTest, makesANodeThatHandsItselfOutMeanwhile ) {
   Ptr< KnownFromTheStart > known;
   auto const ptr = Ptr< KnownFromTheStart >::make( known );
   EXPECT_EQ( ptr, known );
   EXPECT_EQ( ptr->references(), 2u );
}

TEST_F( PtrTest, sharesWhenCopiedAndHandsOverWhenMoved ) {
   auto first = Ptr< Derived >::make( alive_ );
   Ptr< Derived > second = first;
   EXPECT_EQ( first, second );
   EXPECT_EQ( first->references(), 2u );
   Ptr< Derived > const third = std::move( first );
   EXPECT_EQ( first, nullptr );
   EXPECT_EQ( third->references(), 2u );
   Ptr< Derived > fourth;
   fourth = std::move( second );
   EXPECT_EQ( second, nullptr );
   EXPECT_EQ( fourth, third );
   EXPECT_EQ( third->references(), 2u );
}

TEST_F( PtrTest, convertsToItsBase ) {
   auto derived = Ptr< Derived >::make( alive_ );
   Ptr< Base > const copied = derived;
   EXPECT_EQ( copied, derived );
   EXPECT_EQ( derived->references(), 2u );
   Ptr< Base const > const moved = std::move( derived );
   EXPECT_EQ( derived, nullptr );
   EXPECT_EQ( moved, copied );
   EXPECT_EQ( moved->references(), 2u );
}

TEST_F( PtrTest, survivesAssignmentToItself ) {
   auto ptr = Ptr< Derived >::make( alive_ );
   Ptr< Derived > & same = ptr;
   ptr = same;
   EXPECT_EQ( ptr->references(), 1u );
   ptr = std::move( same );
   EXPECT_EQ( ptr->references(), 1u );
   ptr = ptr.get();
   EXPECT_EQ( ptr->references(), 1u );
   EXPECT_EQ( alive_, 1 );
}

TEST_F( PtrTest, releasesTheOldNodeOnAssignmentAndReset ) {
   auto ptr = Ptr< Derived >::make( alive_ );
   ptr = Ptr< Derived >::make( alive_ );
   EXPECT_EQ( alive_, 1 );
   ptr.reset( new Derived( alive_ ) );
   EXPECT_EQ( alive_, 1 );
   EXPECT_EQ( ptr->references(), 1u );
   ptr = nullptr;
   EXPECT_EQ( alive_, 0 );
   ptr = Ptr< Derived >::make( alive_ );
   ptr.reset();
   EXPECT_EQ( ptr, nullptr );
   EXPECT_EQ( alive_, 0 );
}

TEST_F( PtrTest, swapsWithoutTouchingTheCounts ) {
   auto first = Ptr< Derived >::make( alive_ );
   Ptr< Derived > second;
   Derived const * const node = first.get();
   swap( first, second );
   EXPECT_EQ( first, nullptr );
   EXPECT_EQ( second, node );
   EXPECT_EQ( node->references(), 1u );
}

// The chain hangs on the handle that is being assigned to.
struct Link : Node {
   Ptr< Link > next_;
};

TEST_F( PtrTest, mayBeAssignedFromWhatItsOwnNodeKeeps ) {
   auto chain = Ptr< Link >::make();
   chain->next_ = Ptr< Link >::make();
   Link const * const second = chain->next_.get();
   chain = chain->next_;
   EXPECT_EQ( chain, second );
   EXPECT_EQ( chain->references(), 1u );
   chain->next_ = Ptr< Link >::make();
   chain = std::move( chain->next_ );
   EXPECT_EQ( chain->references(), 1u );
}

} // namespace
