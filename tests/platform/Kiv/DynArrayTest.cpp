#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <utility>

namespace {

using Bytes = Kiv::DynArray< U8 >;

Bytes holding( std::initializer_list< std::pair< U32, U8 > > entries ) {
   Bytes array;
   for( auto const & [index, value] : entries )
      array.entryIs( index, value );
   return array;
}

std::map< U32, unsigned > walked( Bytes const & array ) {
   std::map< U32, unsigned > seen;
   for( Bytes::Iterator i = array.iterator(); i.nonnull(); i.advance() )
      seen.emplace( i.key(), i.value() );
   return seen;
}

using Walked = std::map< U32, unsigned >;

TEST( DynArray, isEmptyAtFirst ) {
   Bytes const array;
   EXPECT_TRUE( array.empty() );
   EXPECT_EQ( array.end(), 0U );
   EXPECT_EQ( array.lowest(), 0U );
   EXPECT_EQ( array.count(), 0U );
   EXPECT_EQ( array.capacity(), 0U );
   EXPECT_EQ( array.version(), 0U );
   EXPECT_FALSE( array.contains( 0 ) );
   EXPECT_EQ( array.entry( 0 ), 0 );
   EXPECT_EQ( array.entry( 0xFFFFFFFF ), 0 );
   EXPECT_FALSE( array.iterator().nonnull() );
}

TEST( DynArray, keepsEndAndLowestIndexWritten ) {
   Bytes array = holding( { { 5, 0xAB } } );
   EXPECT_EQ( array.end(), 6U );
   EXPECT_EQ( array.lowest(), 5U );
   EXPECT_EQ( array.count(), 1U );
   EXPECT_FALSE( array.contains( 4 ) );
   EXPECT_TRUE( array.contains( 5 ) );
   EXPECT_FALSE( array.contains( 6 ) );

   array.entryIs( 2, 1 );
   EXPECT_EQ( array.end(), 6U );
   EXPECT_EQ( array.lowest(), 2U );
   EXPECT_EQ( array.count(), 4U );
   EXPECT_TRUE( array.contains( 3 ) );
}

TEST( DynArray, readsEntriesNeverWrittenAsDefault ) {
   Bytes const array = holding( { { 2, 7 }, { 5, 9 } } );
   EXPECT_EQ( array.entry( 0 ), 0 );
   EXPECT_EQ( array.entry( 2 ), 7 );
   EXPECT_EQ( array.entry( 3 ), 0 );
   EXPECT_EQ( array.entry( 5 ), 9 );
   EXPECT_EQ( array.entry( 6 ), 0 );
}

TEST( DynArray, isWalkedFromLowestToEnd ) {
   EXPECT_EQ( walked( holding( { { 5, 9 }, { 2, 7 } } ) ),
              ( Walked{ { 2, 7 }, { 3, 0 }, { 4, 0 }, { 5, 9 } } ) );
}

TEST( DynArray, growsByTheToldSteps ) {
   Bytes array;
   array.entryIs( 0, 1 );
   EXPECT_EQ( array.capacity(), 4U );
   array.entryIs( 3, 1 );
   EXPECT_EQ( array.capacity(), 4U );
   array.entryIs( 4, 1 );
   EXPECT_EQ( array.capacity(), 8U );
   array.entryIs( 16, 1 );
   EXPECT_EQ( array.capacity(), 17U );
   array.entryIs( 17, 1 );
   EXPECT_EQ( array.capacity(), 34U );
   EXPECT_EQ( holding( { { 10, 1 } } ).capacity(), 14U );
}

TEST( DynArray, countsWritesInItsVersion ) {
   Bytes array = holding( { { 2, 7 }, { 2, 7 } } );
   EXPECT_EQ( array.version(), 2U );
   EXPECT_EQ( array.entryDel( 2 ), 7 );
   EXPECT_EQ( array.version(), 3U );
   EXPECT_EQ( array.entryDel( 2 ), 0 );
   EXPECT_EQ( array.entryDel( 0 ), 0 );
   EXPECT_EQ( array.entryDel( 3 ), 0 );
   EXPECT_EQ( array.version(), 3U );
}

TEST( DynArray, keepsItsRangeWhenEntriesAreDeleted ) {
   Bytes array = holding( { { 2, 7 }, { 4, 9 } } );
   EXPECT_EQ( array.entryDel( 4 ), 9 );
   EXPECT_EQ( walked( array ), ( Walked{ { 2, 7 }, { 3, 0 }, { 4, 0 } } ) );
   array.entryDelAll();
   EXPECT_EQ( walked( array ), ( Walked{ { 2, 0 }, { 3, 0 }, { 4, 0 } } ) );
   EXPECT_EQ( array.version(), 4U );
   EXPECT_FALSE( array.empty() );
}

TEST( DynArray, deletesUnderAnIterator ) {
   Bytes array = holding( { { 0, 1 }, { 1, 2 }, { 2, 3 } } );
   Bytes::Iterator at = array.iterator();
   at.advance();
   EXPECT_EQ( array.entryDel( at ), 2 );
   EXPECT_EQ( array.entryDel( at ), 0 );
   at.advance();
   EXPECT_EQ( at.value(), 3 );
   at.advance();
   EXPECT_FALSE( at.nonnull() );
   EXPECT_EQ( array.entryDel( at ), 0 );
   EXPECT_EQ( walked( array ), ( Walked{ { 0, 1 }, { 1, 0 }, { 2, 3 } } ) );
}

TEST( DynArray, growsUnderAnIterator ) {
   Bytes array = holding( { { 0, 1 } } );
   Bytes::Iterator at = array.iterator();
   array.entryIs( 100, 5 );
   EXPECT_EQ( at.value(), 1 );
   for( int step = 0; step < 100; ++step )
      at.advance();
   EXPECT_EQ( at.key(), 100U );
   EXPECT_EQ( at.value(), 5 );
}

TEST( DynArray, takesAValueOfItsOwn ) {
   Bytes array = holding( { { 3, 0x5A } } );
   array.entryIs( 1000, array.iterator().value() );
   EXPECT_EQ( array.entry( 1000 ), 0x5A );
}

TEST( DynArray, differsWhenOneIsEmpty ) {
   EXPECT_EQ( Bytes(), Bytes() );
   EXPECT_NE( Bytes(), holding( { { 0, 0 } } ) );
   EXPECT_NE( holding( { { 0, 0 } } ), Bytes() );
}

TEST( DynArray, equalsOverTheUnionOfTheRanges ) {
   EXPECT_EQ( holding( { { 0, 0x80 } } ), holding( { { 0, 0x80 }, { 1, 0 } } ) );
   EXPECT_EQ( holding( { { 3, 0 } } ), holding( { { 0, 0 } } ) );
   EXPECT_EQ( holding( { { 0, 0 }, { 5, 1 } } ), holding( { { 5, 1 } } ) );
   EXPECT_NE( holding( { { 0, 0x80 } } ), holding( { { 0, 0x80 }, { 1, 1 } } ) );
   EXPECT_NE( holding( { { 0, 0x80 }, { 1, 1 } } ), holding( { { 0, 0x80 } } ) );
   EXPECT_NE( holding( { { 0, 1 }, { 5, 1 } } ), holding( { { 5, 1 } } ) );
}

TEST( DynArray, isCopiedAndMoved ) {
   Bytes original = holding( { { 2, 7 } } );
   Bytes copy = original;
   copy.entryIs( 2, 8 );
   copy.entryIs( 4, 1 );
   EXPECT_EQ( walked( original ), ( Walked{ { 2, 7 } } ) );

   Bytes const moved = std::move( copy );
   EXPECT_EQ( walked( moved ), ( Walked{ { 2, 8 }, { 3, 0 }, { 4, 1 } } ) );

   Bytes & emptied = copy; // taken from: empty and good for new entries
   EXPECT_TRUE( emptied.empty() );
   EXPECT_EQ( emptied.count(), 0U );
   emptied.entryIs( 6, 1 );
   EXPECT_EQ( walked( emptied ), ( Walked{ { 6, 1 } } ) );
}

TEST( DynArray, agreesWithAMapOverRandomWrites ) {
   std::mt19937 random{ 11 };
   Bytes array;
   Walked model;
   for( int round = 0; round < 20'000; ++round ) {
      U32 const index = static_cast< U32 >( 100 + random() % 300 );
      U8 const value = static_cast< U8 >( random() );
      if( random() % 4 == 0 ) {
         U8 const previous = array.entryDel( index );
         ASSERT_EQ( previous, model.count( index ) != 0 ? model[index] : 0 );
         if( model.count( index ) != 0 )
            model[index] = 0;
      } else {
         array.entryIs( index, value );
         for( U32 i = index; !model.empty() && i < model.begin()->first; ++i )
            model.emplace( i, 0 );
         for( U32 i = model.empty() ? index : model.rbegin()->first; i < index; ++i )
            model.emplace( i, 0 );
         model[index] = value;
      }
   }
   EXPECT_EQ( walked( array ), model );
}

TEST( DynArray, holdsIndicesUpToItsLimit ) {
   Bytes array;
   array.entryIs( Bytes::keyLimit, 1 );
   EXPECT_EQ( array.end(), 2003003U );
   EXPECT_EQ( array.entry( 2003002 ), 1 );
   EXPECT_EQ( array.count(), 1U );
}

TEST( DynArrayDeathTest, endsTheProcessBeyondItsLimit ) {
   Bytes array;
   EXPECT_DEATH( array.entryIs( 2003003, 1 ), "assertion \"newEntries < 2003004\" failed" );
   EXPECT_DEATH( array.entryIs( 0xFFFFFFFF, 1 ), "assertion \"newEntries < 2003004\" failed" );
   array.entryIs( 1500000, 1 );
   array.entryIs( 1600000, 1 ); // there is room for twice as many now
   EXPECT_GE( array.capacity(), 2003004U );
   EXPECT_DEATH( array.entryIs( 2003003, 1 ), "assertion \"newEntries < 2003004\" failed" );
}

} // namespace
