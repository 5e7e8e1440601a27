#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/MplsUtils/MplsOamStandard.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

std::string errorOfName( std::string_view name ) {
   try {
      MplsUtils::MplsOamStandardInstance( Orlo::String( name ) );
   } catch( Kiv::RangeException const & e ) {
      return e.what();
   }
   return "no error";
}

TEST( EnumType, quotesTheNameThatItDoesNotHave ) {
   EXPECT_EQ( errorOfName( "itu" ),
              "MplsUtils::MplsOamStandard: \"itu\" is no name or number of it" );
   EXPECT_EQ( errorOfName( "\x1b[31m\0\n\"\\\xff"sv ),
              "MplsUtils::MplsOamStandard: \"\\x1b[31m\\x00\\x0a\\\"\\\\\\xff\" is no name or "
              "number of it" );
   EXPECT_EQ( errorOfName( "0123456789012345678901234567890123456789" ),
              "MplsUtils::MplsOamStandard: \"01234567890123456789012345678901\"... is no name or "
              "number of it" );
}

TEST( EnumType, quotesTheTextThatIsNeitherNameNorNumber ) {
   Kiv::CharRange text( "\x1b[31m"sv );
   MplsUtils::MplsOamStandard value{};
   try {
      sequenceToValue( text, &value );
      ADD_FAILURE() << "no error";
   } catch( Kiv::RangeException const & e ) {
      EXPECT_STREQ( e.what(),
                    "MplsUtils::MplsOamStandard: \"\\x1b[31m\" is no name or number of it" );
   }
}

} // namespace
