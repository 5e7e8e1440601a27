#include "MplsUtils/LspPing/platform/Kiv/RbTreeMap.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

// An entry that tells how many of its kind there are.
class CountedEntry : public Kiv::MapEntry< U8, std::string > {
 public:
   CountedEntry( U8 key, std::string const & value ) : MapEntry( key, value ) { ++live; }
   ~CountedEntry() override { --live; }

   static int live;
};
int CountedEntry::live = 0;

using Map = Kiv::RbTreeMap< U8, std::string, CountedEntry >;
using Walked = std::vector< std::pair< int, std::string > >;

static_assert( Map::keyLimit == 255 );
static_assert( Kiv::RbTreeMap< U32, int >::keyLimit == 0xFFFFFFFF );
static_assert( std::is_nothrow_move_constructible_v< Map > );
static_assert( std::is_nothrow_move_assignable_v< Map > );

Map holding( std::initializer_list< std::pair< U8, std::string > > entries ) {
   Map map;
   for( auto const & [key, value] : entries )
      map.entryIs( key, value );
   return map;
}

Walked walked( Map const & map ) {
   Walked seen;
   for( Map::Iterator i = map.iterator(); i.nonnull(); i.advance() )
      seen.emplace_back( i.key(), i.value() );
   return seen;
}

// After each test every entry is gone.
class RbTreeMap : public testing::Test {
 protected:
   ~RbTreeMap() override { EXPECT_EQ( CountedEntry::live, 0 ); }
};

TEST_F( RbTreeMap, isEmptyAtFirst ) {
   Map const map;
   EXPECT_TRUE( map.empty() );
   EXPECT_EQ( map.count(), 0U );
   EXPECT_EQ( map.version(), 0U );
   EXPECT_FALSE( map.contains( 0 ) );
   EXPECT_EQ( map.entry( 7 ), "" );
   EXPECT_FALSE( map.iterator().nonnull() );
}

TEST_F( RbTreeMap, isWalkedInAscendingOrder ) {
   EXPECT_EQ( walked( holding( { { 200, "c" }, { 0, "a" }, { 255, "d" }, { 7, "b" } } ) ),
              ( Walked{ { 0, "a" }, { 7, "b" }, { 200, "c" }, { 255, "d" } } ) );
}

TEST_F( RbTreeMap, keepsTheNodeOfAKeyWrittenAgain ) {
   Map map = holding( { { 2, "a" } } );
   Map::Iterator const at = map.iterator();
   map.entryIs( 2, "b" );
   EXPECT_EQ( map.count(), 1U );
   EXPECT_EQ( map.entry( 2 ), "b" );
   EXPECT_EQ( at.value(), "b" );
   EXPECT_EQ( map.iterator().entry(), at.entry() );
   EXPECT_EQ( map.version(), 2U );
}

TEST_F( RbTreeMap, returnsWhatItRemoves ) {
   Map map = holding( { { 2, "a" }, { 3, "b" } } );
   EXPECT_EQ( map.entryDel( 2 ), "a" );
   EXPECT_EQ( map.version(), 3U );
   EXPECT_EQ( map.entryDel( 2 ), "" );
   EXPECT_EQ( map.version(), 3U );
   EXPECT_EQ( walked( map ), ( Walked{ { 3, "b" } } ) );
}

TEST_F( RbTreeMap, removesDuringAWalk ) {
   Map map = holding( { { 1, "a" }, { 2, "b" }, { 3, "c" }, { 4, "d" } } );
   std::string removed;
   for( Map::Iterator i = map.iterator(); i.nonnull(); i.advance() )
      if( i.key() % 2 == 0 )
         removed += map.entryDel( i );
   EXPECT_EQ( removed, "bd" );
   EXPECT_EQ( walked( map ), ( Walked{ { 1, "a" }, { 3, "c" } } ) );
}

TEST_F( RbTreeMap, keepsARemovedEntryForItsIterator ) {
   Map map = holding( { { 1, "a" }, { 2, "b" }, { 3, "c" } } );
   Map::Iterator at = map.iterator();
   map.entryDel( 1 );
   map.entryDel( 2 );
   EXPECT_EQ( CountedEntry::live, 2 );
   EXPECT_TRUE( at.nonnull() );
   EXPECT_EQ( at.key(), 1 );
   EXPECT_EQ( at.value(), "a" );
   at.advance();
   EXPECT_EQ( at.value(), "c" );
   EXPECT_EQ( CountedEntry::live, 1 );
   map.entryDelAll();
   at.advance();
   EXPECT_FALSE( at.nonnull() );
   EXPECT_EQ( CountedEntry::live, 0 );
}

TEST_F( RbTreeMap, meetsEntriesAddedDuringAWalk ) {
   Map map = holding( { { 1, "a" }, { 9, "z" } } );
   Map::Iterator at = map.iterator();
   map.entryIs( 0, "before" );
   map.entryIs( 5, "behind" );
   at.advance();
   EXPECT_EQ( at.value(), "behind" );
}

TEST_F( RbTreeMap, removesOnlyTheVeryEntryUnderTheIterator ) {
   Map map = holding( { { 1, "a" } } );
   Map::Iterator at = map.iterator();
   map.entryDel( 1 );
   map.entryIs( 1, "new" );
   EXPECT_EQ( map.entryDel( at ), "" );
   EXPECT_EQ( walked( map ), ( Walked{ { 1, "new" } } ) );
   at.advance();
   EXPECT_FALSE( at.nonnull() );
   EXPECT_EQ( map.entryDel( at ), "" );
   EXPECT_EQ( map.count(), 1U );
}

TEST_F( RbTreeMap, comparesKeysAndValues ) {
   Map const map = holding( { { 1, "a" }, { 2, "b" } } );
   EXPECT_EQ( map, holding( { { 2, "b" }, { 1, "a" } } ) );
   EXPECT_NE( map, holding( { { 1, "a" } } ) );
   EXPECT_NE( map, holding( { { 1, "a" }, { 3, "b" } } ) );
   EXPECT_NE( map, holding( { { 1, "a" }, { 2, "c" } } ) );
   EXPECT_NE( map, Map() );
   EXPECT_EQ( Map(), Map() );
}

TEST_F( RbTreeMap, copiesItsNodes ) {
   Map original = holding( { { 1, "a" }, { 2, "b" } } );
   Map copy = original;
   EXPECT_EQ( CountedEntry::live, 4 );
   EXPECT_EQ( copy, original );
   EXPECT_NE( copy.iterator().entry(), original.iterator().entry() );
   copy.entryIs( 1, "changed" );
   copy.entryDel( 2 );
   EXPECT_EQ( walked( original ), ( Walked{ { 1, "a" }, { 2, "b" } } ) );

   copy = original;
   original.entryIs( 2, "changed" );
   EXPECT_EQ( walked( copy ), ( Walked{ { 1, "a" }, { 2, "b" } } ) );
   Map const & same = copy;
   copy = same;
   EXPECT_EQ( walked( copy ), ( Walked{ { 1, "a" }, { 2, "b" } } ) );
}

TEST_F( RbTreeMap, takesItsNodesAlongWhenMoved ) {
   Map original = holding( { { 1, "a" } } );
   Orlo::Ptr< CountedEntry > const node = original.iterator().entry();
   Map moved = std::move( original );
   EXPECT_EQ( moved.iterator().entry(), node );
   Map & emptied = original;
   EXPECT_TRUE( emptied.empty() );
   emptied = std::move( moved );
   EXPECT_EQ( emptied.iterator().entry(), node );
   EXPECT_EQ( CountedEntry::live, 1 );
}

TEST_F( RbTreeMap, survivesAssignmentUnderAnIterator ) {
   Map map = holding( { { 1, "a" }, { 2, "b" } } );
   Map::Iterator at = map.iterator();
   map = holding( { { 1, "x" }, { 8, "y" } } );
   EXPECT_EQ( at.value(), "a" );
   at.advance();
   EXPECT_EQ( at.key(), 8 );
   EXPECT_EQ( at.value(), "y" );
}

TEST_F( RbTreeMap, takesAValueOfItsOwn ) {
   Map map = holding( { { 1, "a" } } );
   map.entryIs( 1, map.iterator().value() );
   map.entryIs( 2, map.iterator().value() );
   EXPECT_EQ( walked( map ), ( Walked{ { 1, "a" }, { 2, "a" } } ) );
}

TEST_F( RbTreeMap, agreesWithAnArrayOverRandomChanges ) {
   std::mt19937 random{ 12 };
   Map map;
   std::array< std::string, 256 > model; // "" is not there
   Map::Iterator at = map.iterator();
   for( int round = 0; round < 50'000; ++round ) {
      U8 const key = static_cast< U8 >( random() );
      switch( random() % 4 ) {
      case 0:
         ASSERT_EQ( map.entryDel( key ), std::exchange( model[key], "" ) );
         break;
      case 1:
         if( at.nonnull() )
            at.advance();
         else
            at = map.iterator();
         if( at.nonnull() )
            ASSERT_EQ( at.value(), model[at.key()] );
         break;
      default:
         model[key] = std::to_string( round );
         map.entryIs( key, model[key] );
      }
   }
   Walked expected;
   for( int key = 0; key < 256; ++key )
      if( !model[static_cast< std::size_t >( key )].empty() )
         expected.emplace_back( key, model[static_cast< std::size_t >( key )] );
   EXPECT_EQ( walked( map ), expected );
   EXPECT_FALSE( expected.empty() );
}

} // namespace
