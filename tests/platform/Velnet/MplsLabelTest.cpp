#include "MplsUtils/LspPing/platform/Velnet/MplsLabel.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

namespace {

using Velnet::MplsLabel;

static_assert( MplsLabel{}.value() == 0x100000 );
static_assert( MplsLabel{ 0x100000 } == MplsLabel{} );
static_assert( MplsLabel{ 0 } != MplsLabel{} );
static_assert( MplsLabel{ 0xFFFFF } < MplsLabel{} );

TEST( MplsLabel, printsTheLabelOrNone ) {
   EXPECT_EQ( MplsLabel{}.stringValue(), "none" );
   EXPECT_EQ( MplsLabel{ 0 }.stringValue(), "0" );
   EXPECT_EQ( MplsLabel{ 1048575 }.stringValue(), "1048575" );
   EXPECT_EQ( Kiv::_fmt( "%s %s", MplsLabel{}, MplsLabel{ 16 } ), "none 16" );
}

TEST( MplsLabel, readsBackEveryLabel ) {
   for( U32 value = 0; value <= MplsLabel::unset; ++value ) {
      MplsLabel const label{ value };
      MplsLabel read{ 3 };
      Orlo::String const printed = label.stringValue() + ", x";
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, label );
      ASSERT_EQ( text.rest(), ", x" );
   }
}

TEST( MplsLabel, takesTheNumberOfUnsetForNone ) {
   Kiv::CharRange text{ "1048576" };
   MplsLabel label{ 3 };
   sequenceToValue( text, &label );
   EXPECT_EQ( label, MplsLabel{} );
   EXPECT_TRUE( text.atEnd() );
}

TEST( MplsLabel, refusesNumbersThatAreNoLabel ) {
   EXPECT_THROW( MplsLabel{ 0xFFFFFFFF }, Kiv::RangeException );
   try {
      MplsLabel const label{ 0x100001 };
      FAIL() << "the label was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(), "Velnet::MplsLabel: 1048577 is more than 1048575" );
   }
}

TEST( MplsLabel, staysAsItWasWhenTheTextIsNoLabel ) {
   for( std::string_view const wrong :
        { "", ",", "none.", "None", "-1", "1048577", "4294967295", "4294967296", "16a", "0x10" } ) {
      Kiv::CharRange text{ wrong };
      MplsLabel label{ 3 };
      EXPECT_THROW( sequenceToValue( text, &label ), Kiv::RangeException ) << wrong;
      EXPECT_EQ( label, MplsLabel{ 3 } ) << wrong;
   }
   try {
      Kiv::CharRange text{ " 1048577)" };
      MplsLabel label;
      sequenceToValue( text, &label );
      FAIL() << "the label was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(),
                    "expected a label of 20 bits or none at offset 1, found \"1048577)\"" );
   }
}

TEST( MplsLabel, isKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Velnet::MplsLabel" );
   ASSERT_EQ( type, Kiv::typeOf< MplsLabel >() );
   MplsLabel label;
   KivOrlo::strepToValue( "16", type, &label );
   EXPECT_EQ( label, MplsLabel{ 16 } );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &label ), "16" );
}

} // namespace
