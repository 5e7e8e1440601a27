#include "MplsUtils/LspPing/platform/Velnet/IntfId.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

#include <random>
#include <type_traits>

namespace {

using Velnet::IntfId;

static_assert( IntfId{}.value() == 0xFFFFFFFF );
static_assert( IntfId{ 0xFFFFFFFF } == IntfId{} );
static_assert( IntfId{ 0 } != IntfId{} );
static_assert( IntfId{ 7 } < IntfId{ 8 } );
static_assert( !std::is_convertible_v< U32, IntfId > );

TEST( IntfId, isBuiltFromItsName ) {
   EXPECT_EQ( IntfId{ "" }, IntfId{} );
   EXPECT_EQ( IntfId{ "0" }.value(), 0u );
   EXPECT_EQ( IntfId{ "256" }.value(), 256u );
   EXPECT_EQ( IntfId{ "4294967294" }.value(), 4294967294u );
}

TEST( IntfId, refusesOtherNames ) {
   for( std::string_view const wrong : { "none", "eth0", "7a", "-1", "+1", " 1", "1 ", "0x10",
                                         "1.0", "4294967296", "99999999999999999999" } )
      EXPECT_THROW( IntfId{ wrong }, Kiv::RangeException ) << wrong;
   try {
      IntfId const id{ "eth0" };
      FAIL() << "the name was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(),
                    "Velnet::IntfId: expected the number of an interface, found \"eth0\"" );
   }
}

TEST( IntfId, printsTheNumberOrNone ) {
   EXPECT_EQ( IntfId{}.stringValue(), "none" );
   EXPECT_EQ( IntfId{ 0 }.stringValue(), "0" );
   EXPECT_EQ( IntfId{ 256 }.stringValue(), "256" );
   EXPECT_EQ( IntfId{ 4294967294 }.stringValue(), "4294967294" );
   EXPECT_EQ( Kiv::_fmt( "%s %s", IntfId{}, IntfId{ 12 } ), "none 12" );
}

TEST( IntfId, readsBackWhatItPrints ) {
   std::mt19937 random{ 12 };
   for( int round = 0; round < 20'000; ++round ) {
      IntfId const id{ round == 0 ? IntfId::none
                                  : static_cast< U32 >( random() >> random() % 32 ) };
      IntfId read{ 1 };
      Orlo::String const printed = id.stringValue() + ", x";
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, id );
      ASSERT_EQ( text.rest(), ", x" );
   }
}

TEST( IntfId, staysAsItWasWhenTheTextIsNoNumber ) {
   for( std::string_view const wrong :
        { "", " ", ",", "nothing", "None", "eth0", "-1", "4294967296" } ) {
      Kiv::CharRange text{ wrong };
      IntfId id{ 5 };
      EXPECT_THROW( sequenceToValue( text, &id ), Kiv::RangeException ) << wrong;
      EXPECT_EQ( id, IntfId{ 5 } ) << wrong;
   }
}

TEST( IntfId, isKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Velnet::IntfId" );
   ASSERT_TRUE( type );
   EXPECT_EQ( type, Kiv::typeOf< IntfId >() );
   IntfId id;
   KivOrlo::strepToValue( "12", type, &id );
   EXPECT_EQ( id, IntfId{ 12 } );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &id ), "12" );
}

} // namespace
