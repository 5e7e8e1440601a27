#include "MplsUtils/LspPing/platform/MplsUtils/MplsOamStandard.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/MplsUtils/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

namespace {

using MplsUtils::MplsOamStandard;

TEST( MplsOamStandard, isTheIetfsByDefault ) {
   EXPECT_EQ( MplsOamStandard{}, MplsOamStandard::ietf );
   EXPECT_EQ( stringValue( MplsOamStandard{} ), "ietf" );
   EXPECT_EQ( stringValue( MplsOamStandard::ituT ), "ituT" );
}

TEST( MplsOamStandard, readsBackEveryValue ) {
   for( U32 number = 0; number <= 0xFF; ++number ) {
      MplsOamStandard const value{ static_cast< U8 >( number ) };
      MplsOamStandard read{ 77 };
      Orlo::String const printed = stringValue( value );
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, value );
   }
   EXPECT_THROW( MplsUtils::MplsOamStandardInstance( 256 ), Kiv::RangeException );
}

TEST( MplsOamStandard, isKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "MplsUtils::MplsOamStandard" );
   ASSERT_EQ( type, Kiv::typeOf< MplsOamStandard >() );
   EXPECT_EQ( type.record().size, 1u );
}

} // namespace
