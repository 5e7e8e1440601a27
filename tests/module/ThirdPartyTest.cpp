#include "tests/module/Orchard.h"

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <gtest/gtest.h>

namespace {

using namespace Orchard;
using Kiv::OpCode;
using Kiv::Outcome;

class ThirdParty : public testing::Test {
 protected:
   static void SetUpTestSuite() { registerModule(); }

   static std::string listed( Kiv::TypeRef type, void * object, std::string_view name ) {
      std::string text;
      for( Kiv::CollectionIterator i( type, object, name ); i.iterNonnull(); i.iterInc() ) {
         Kiv::Attribute const & attribute = *Kiv::attributeNamed( type, name ).attribute;
         text += std::to_string( i.iterKey() ) + ":" +
                 KivOrlo::valueToStrep( attribute.type(), i.iterObj() ) + " ";
      }
      return text;
   }
};

TEST_F( ThirdParty, registersAModuleOfItsOwn ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Orchard::Basket" );
   ASSERT_TRUE( type );
   EXPECT_EQ( type.id(), ( Kiv::TypeId{ 40, 2 } ) );
   EXPECT_EQ( Kiv::typeOf< Basket >(), type );
   bool listedAsModule = false;
   for( Kiv::ModuleTable const * module : Kiv::modules() )
      listedAsModule = listedAsModule || ( module->name == "Orchard" && module->count == 9 );
   EXPECT_TRUE( listedAsModule );
}

TEST_F( ThirdParty, keepsAPlaceWhereItsListSaysSo ) {
   static_assert( !Kiv::Registered< Hidden > );
   Kiv::TypeRef const place( Kiv::TypeId{ 40, 8 } );
   EXPECT_EQ( place.kind(), Kiv::Kind::absent );
   EXPECT_FALSE( Kiv::typeNamed( "Orchard::Hidden" ) );
}

TEST_F( ThirdParty, hasAnEnumerationWithNamesAndNumbers ) {
   Kiv::TypeRef const type = Kiv::typeOf< Fruit >();
   EXPECT_EQ( type.kind(), Kiv::Kind::enumeration );
   EXPECT_EQ( Kiv::TypeRef( type.record().underlying ).name(), "U8" );
   ASSERT_EQ( type.enumerators().size(), 3u );
   EXPECT_EQ( type.enumerators()[2].name(), "quince" );
   EXPECT_EQ( type.enumerators()[2].value, 200u );
   Fruit fruit{};
   KivOrlo::strepToValue( "pear", type, &fruit );
   EXPECT_EQ( fruit, Fruit::pear );
   KivOrlo::strepToValue( "99", type, &fruit );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &fruit ), "99" );
}

TEST_F( ThirdParty, printsAndReadsARecord ) {
   Kiv::TypeRef const type = Kiv::typeOf< Weight >();
   Kiv::Instance weight( type );
   KivOrlo::strepToValue( R"(Orchard::Weight(grams=120, fruit=quince, note="a \"ripe\" one\\"))",
                          type, weight.object() );
   EXPECT_EQ( weight.as< Weight >().grams(), 120u );
   EXPECT_EQ( weight.as< Weight >().fruit(), Fruit::quince );
   EXPECT_EQ( Kiv::read< Orlo::String >( weight.as< Weight >(), "note" ), "a \"ripe\" one\\" );
   EXPECT_EQ( KivOrlo::valueToStrep( type, weight.object() ),
              R"(Orchard::Weight(grams=120, fruit=quince, note="a \"ripe\" one\\"))" );
   EXPECT_TRUE( type.operations().isSet( weight.object() ) );
   EXPECT_EQ( Kiv::hashOf( type, weight.object() ), 121u );
}

TEST_F( ThirdParty, printsCollectionsByTheirKeys ) {
   Basket basket;
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   EXPECT_EQ( KivOrlo::valueToStrep( type, &basket ),
              "Orchard::Basket(tags={}, weights={}, deals={})" );
   U16 tag = 9;
   Kiv::Entry entry{ 1, &tag };
   EXPECT_EQ( Kiv::attributeAccess( type, &basket, 2, OpCode::write, &entry ), Outcome::done );
   Kiv::call( basket, "add", U8{ 4 }, U32{ 77 } );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &basket ),
              "Orchard::Basket(tags={1: 9}, weights={4: Orchard::Weight(grams=77, "
              "fruit=pear, note=\"\")}, deals={})" );
}

TEST_F( ThirdParty, reachesElementsByKey ) {
   Basket basket;
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   Weight weight( 50, Fruit::apple );
   Kiv::Entry entry{ 255, &weight };
   EXPECT_EQ( Kiv::attributeAccess( type, &basket, 3, OpCode::write, &entry ), Outcome::done );
   Weight read;
   entry.value = &read;
   EXPECT_EQ( Kiv::attributeAccess( type, &basket, 3, OpCode::read, &entry ), Outcome::done );
   EXPECT_EQ( read, weight );
   // A key that is not there reads as the default, and so does one that the key type cannot hold;
   // nothing can be written there.
   for( U32 const key : { 7u, 256u, 256u + 255u, 0xffffffffu } ) {
      entry.key = key;
      read = weight;
      EXPECT_EQ( Kiv::attributeAccess( type, &basket, 3, OpCode::read, &entry ), Outcome::done );
      EXPECT_EQ( read, Weight() ) << key;
   }
   EXPECT_EQ( Kiv::attributeAccess( type, &basket, 3, OpCode::write, &entry ),
              Outcome::notPermitted );
   entry.key = 1;
   EXPECT_EQ( Kiv::attributeAccess( type, &basket, 4, OpCode::write, &entry ),
              Outcome::notPermitted );
   EXPECT_EQ( Kiv::attributeAccess( type, &basket, 3, OpCode::call, &entry ),
              Outcome::notPermitted );
}

TEST_F( ThirdParty, readsElementsBeyondAnArrayAsTheDefault ) {
   Basket basket;
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   U16 tag = 9;
   Kiv::Entry entry{ 1, &tag };
   EXPECT_EQ( Kiv::attributeAccess( type, &basket, 2, OpCode::write, &entry ), Outcome::done );
   for( U32 const key : { 2u, 2003002u, 2003003u, 0xffffffffu } ) {
      entry.key = key;
      tag = 9;
      EXPECT_EQ( Kiv::attributeAccess( type, &basket, 2, OpCode::read, &entry ), Outcome::done );
      EXPECT_EQ( tag, 0 ) << key;
   }
}

TEST_F( ThirdParty, containsOnlyKeysThatTheKeyTypeCanHold ) {
   Basket basket;
   Kiv::call( basket, "add", U8{ 255 }, U32{ 1 } );
   Kiv::CollectionRecord const & weights =
      *Kiv::attributeNamed( Kiv::typeOf< Basket >(), "weights" ).attribute->collectionRecord;
   EXPECT_TRUE( weights.contains( &basket, 255 ) );
   EXPECT_FALSE( weights.contains( &basket, 254 ) );
   EXPECT_FALSE( weights.contains( &basket, 256 + 255 ) );
   EXPECT_FALSE( weights.contains( nullptr, 255 ) );
}

TEST_F( ThirdParty, walksCollectionsAndDeletesOnTheWay ) {
   Basket basket;
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   for( U8 const key : std::vector< U8 >{ 9, 1, 200, 4 } )
      Kiv::call( basket, "add", key, U32{ key } );
   Kiv::CollectionIterator i( type, &basket, "weights" );
   std::string keys;
   for( ; i.iterNonnull(); i.iterInc() ) {
      keys += std::to_string( i.iterKey() ) + " ";
      EXPECT_EQ( static_cast< Weight const * >( i.iterObj() )->grams(), i.iterKey() );
      if( i.iterKey() == 4 || i.iterKey() == 9 )
         EXPECT_EQ( i.iterDel(), Outcome::done );
   }
   EXPECT_EQ( keys, "1 4 9 200 " );
   EXPECT_EQ( i.iterDel(), Outcome::notPermitted );
   EXPECT_EQ( listed( type, &basket, "weights" ),
              "1:Orchard::Weight(grams=1, fruit=pear, note=\"\") "
              "200:Orchard::Weight(grams=200, fruit=pear, note=\"\") " );
}

using ThirdPartyDeathTest = ThirdParty;

TEST_F( ThirdPartyDeathTest, asksNothingOfAnIteratorThatIsAtTheEnd ) {
   Basket basket;
   for( char const * const collection : { "tags", "weights" } ) {
      Kiv::CollectionIterator i( Kiv::typeOf< Basket >(), &basket, collection );
      EXPECT_DEATH( i.iterObj(), "assertion \"iterNonnull\\(\\)\" failed" );
      EXPECT_DEATH( i.iterKey(), "assertion \"iterNonnull\\(\\)\" failed" );
      EXPECT_DEATH( i.iterInc(), "assertion \"iterNonnull\\(\\)\" failed" );
   }
}

TEST_F( ThirdPartyDeathTest, needsABufferForEveryAccessThatIsPermitted ) {
   Basket basket;
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   Kiv::Entry noValue;
   Kiv::Call noResult;
   // tags, weights, deals, heaviest, add
   for( OpCode const op : { OpCode::read, OpCode::write } ) {
      EXPECT_DEATH( Kiv::attributeAccess( type, &basket, 2, op, nullptr ),
                    "assertion \"buffer != nullptr\" failed" );
      EXPECT_DEATH( Kiv::attributeAccess( type, &basket, 2, op, &noValue ),
                    "assertion \"entry.value != nullptr\" failed" );
   }
   EXPECT_DEATH( Kiv::attributeAccess( type, &basket, 5, OpCode::call, nullptr ),
                 "assertion \"buffer != nullptr\" failed" );
   EXPECT_DEATH( Kiv::attributeAccess( type, &basket, 5, OpCode::call, &noResult ),
                 "assertion \"!signature.result.type \\|\\| call.result != nullptr\" failed" );
   noResult.count = 2;
   EXPECT_DEATH( Kiv::attributeAccess( type, &basket, 6, OpCode::call, &noResult ),
                 "assertion \"call.count == 0 \\|\\| call.arguments != nullptr\" failed" );
   Tree tree;
   EXPECT_DEATH( Kiv::attributeAccess( Kiv::typeOf< Tree >(), &tree, 130, OpCode::read, nullptr ),
                 "assertion \"buffer != nullptr\" failed" );
   EXPECT_DEATH( Kiv::attributeAccess( Kiv::typeOf< Tree >(), &tree, 2, OpCode::write, nullptr ),
                 "assertion \"buffer != nullptr\" failed" );
}

TEST_F( ThirdParty, copiesIteratorsThatGoOnAlone ) {
   Basket basket;
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   for( U8 const key : std::vector< U8 >{ 1, 2, 3 } )
      Kiv::call( basket, "add", key, U32{ 5 } );
   Kiv::CollectionIterator first( type, &basket, "weights" );
   first.iterInc();
   Kiv::CollectionIterator second( first );
   second.iterInc();
   EXPECT_EQ( first.iterKey(), 2u );
   EXPECT_EQ( second.iterKey(), 3u );
   EXPECT_EQ( first.iterDel(), Outcome::done );
   first.iterInc();
   EXPECT_EQ( first.iterKey(), 3u );
}

TEST_F( ThirdParty, deletesNothingWhereOnlyReadingIsAllowed ) {
   Basket basket;
   basket.dealIs( 3, Weight( 1, Fruit::pear ) );
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   Kiv::CollectionIterator i( type, &basket, "deals" );
   EXPECT_TRUE( i.iterNonnull() );
   EXPECT_EQ( i.iterDel(), Outcome::notPermitted );
   EXPECT_FALSE( listed( type, &basket, "deals" ).empty() );
}

TEST_F( ThirdParty, saysWhatIsNoCollection ) {
   Basket basket;
   Kiv::TypeRef const type = Kiv::typeOf< Basket >();
   EXPECT_THROW( Kiv::CollectionIterator( type, &basket, "heaviest" ), Kiv::AccessException );
   EXPECT_THROW( Kiv::CollectionIterator( type, &basket, "nothing" ), Kiv::AccessException );
   EXPECT_THROW( ( Kiv::read< U16 >( basket, "tags" ) ), Kiv::AccessException );
   EXPECT_EQ( ( Kiv::call< U8 >( basket, "heaviest" ) ), 0 );
}

TEST_F( ThirdParty, countsFromOneHundredAndThirtyAtEveryLevel ) {
   AppleTree tree;
   Kiv::TypeRef const type = Kiv::typeOf< AppleTree >();
   EXPECT_EQ( type.base(), Kiv::typeOf< Tree >() );
   EXPECT_EQ( type.base().base(), Kiv::typeOf< Plant >() );
   EXPECT_EQ( type.attributes()[0].id, 130 );
   EXPECT_EQ( type.base().attributes()[0].id, 130 );
   EXPECT_EQ( type.base().base().attributes()[0].id, 2 );
   U32 apples = 0;
   EXPECT_EQ( Kiv::attributeAccess( type, &tree, 130, OpCode::read, &apples ), Outcome::done );
   EXPECT_EQ( apples, 77u );
   U16 height = 500;
   EXPECT_EQ(
      Kiv::attributeAccess( type, &tree, { Kiv::typeIdOf< Tree >, 130 }, OpCode::write, &height ),
      Outcome::done );
   EXPECT_EQ( tree.height(), 500 );
   Kiv::write( tree, "age", U8{ 12 } );
   EXPECT_EQ( tree.age(), 12 );
}

TEST_F( ThirdParty, callsOperationsOfNodesByName ) {
   Orlo::Ptr< Orlo::Node > const node = Kiv::typeOf< Farm >().operations().createEmpty();
   EXPECT_EQ( ( Kiv::call< U32 >( *node, "plant", U32{ 3 }, Orlo::String( "apple" ) ) ), 6u );
   EXPECT_EQ( ( Kiv::call< U32 >( *node, "plant", U32{ 1 }, Orlo::String( "pear" ) ) ), 7u );
   EXPECT_EQ( Kiv::read< U32 >( *node, "trees" ), 7u );
   EXPECT_EQ( Kiv::read< Orlo::String >( *node, "label" ), "farm of 7" );
}

TEST_F( ThirdParty, createsANodeOverOneOfTheClassThatItAsksFor ) {
   Kiv::Operations const & operations = Kiv::typeOf< FarmReader >().operations();
   EXPECT_EQ( operations.createEmpty, nullptr );
   ASSERT_NE( operations.create, nullptr );
   auto const farm = Orlo::Ptr< Farm >::make();
   farm->treesIs( 5 );
   Orlo::Ptr< Orlo::Node > const reader = operations.create( farm, 0 );
   EXPECT_EQ( reader->fwkType(), Kiv::typeOf< FarmReader >() );
   EXPECT_EQ( Kiv::read< Farm * >( *reader, "farm" ), farm.get() );
   EXPECT_EQ( farm->references(), 1u );
   // A node of any other class, or of none that is registered, is a program's mistake.
   struct Unregistered : Orlo::Node {};
   EXPECT_DEATH( operations.create( reader, 0 ), "assertion .*fwkType.* failed" );
   EXPECT_DEATH( operations.create( Orlo::Ptr< Unregistered >::make(), 0 ),
                 "assertion .*fwkType.* failed" );
}

TEST_F( ThirdParty, tellsToolsWhatTheStateForbids ) {
   Kiv::Attribute const & row =
      *Kiv::attributeNamed( Kiv::typeOf< Farm >(), "smallTrees" ).attribute;
   auto const farm = Orlo::Ptr< Farm >::make();
   ASSERT_NE( row.guard, nullptr );
   EXPECT_TRUE( row.guard( farm.get() ) );
   farm->treesIs( 10 );
   EXPECT_FALSE( row.guard( farm.get() ) );
}

TEST_F( ThirdParty, forwardsFromAnObjectThatNeedNotBeThere ) {
   auto const neighbour = Orlo::Ptr< Farm >::make();
   auto const farm = Orlo::Ptr< Farm >::make();
   farm->treesIs( 5 );
   farm->neighbourIs( Orlo::Ptr< Orlo::Node >( neighbour.get() ) );
   auto const reader = Orlo::Ptr< FarmReader >::make( farm.get() );
   EXPECT_EQ( Kiv::read< U32 >( *reader, "trees" ), 5u );
   EXPECT_TRUE( Kiv::read< bool >( *reader, "isSmall" ) );
   EXPECT_EQ( Kiv::read< Orlo::Ptr< Farm > >( *reader, "neighbour" ).get(), neighbour.get() );
   auto const blind = Orlo::Ptr< FarmReader >::make( nullptr );
   EXPECT_EQ( Kiv::read< U32 >( *blind, "trees" ), 0u );
   EXPECT_FALSE( Kiv::read< bool >( *blind, "isSmall" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( *blind, "label" ), "" );
   EXPECT_EQ( Kiv::read< Orlo::Ptr< Farm > >( *blind, "neighbour" ).get(), nullptr );
   EXPECT_EQ( Kiv::read< Farm * >( *blind, "farm" ), nullptr );
   U16 row = 9;
   Kiv::Entry entry{ 3, &row };
   EXPECT_EQ( Kiv::attributeAccess( blind->fwkType(), blind.get(),
                                    Kiv::attributeNamed( blind->fwkType(), "rows" ).field(),
                                    OpCode::read, &entry ),
              Outcome::done );
   EXPECT_EQ( row, 0 );
   // What is forwarded is read only, whatever it is where it comes from.
   U32 trees = 1;
   EXPECT_EQ( Kiv::attributeAccess( reader->fwkType(), reader.get(), 131, OpCode::write, &trees ),
              Outcome::notPermitted );
   EXPECT_EQ( farm->trees(), 5u );
}

} // namespace
