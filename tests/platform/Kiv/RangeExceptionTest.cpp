#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <gtest/gtest.h>

namespace {

using Kiv::RangeException;

TEST( RangeException, namesItsSubjectBeforeTheProblem ) {
   RangeException const exception{ "pwId", "expected a decimal number" };
   EXPECT_STREQ( exception.what(), "pwId: expected a decimal number" );
   EXPECT_EQ( exception.subject(), "pwId" );
   EXPECT_EQ( exception.problem(), "expected a decimal number" );
}

TEST( RangeException, tellsTheProblemAloneWithoutASubject ) {
   EXPECT_STREQ( RangeException( "", "too long" ).what(), "too long" );
}

TEST( RangeException, takesTheNameOfAnOuterAttributeBeforeItsOwn ) {
   RangeException const outer = RangeException{ "pwId", "too long" }.within( "pwInfo" );
   EXPECT_STREQ( outer.what(), "pwInfo.pwId: too long" );
   EXPECT_EQ( outer.subject(), "pwInfo.pwId" );
   EXPECT_STREQ( outer.within( "fec" ).what(), "fec.pwInfo.pwId: too long" );
}

TEST( RangeException, takesTheNameOfAnAttributeWhereItHadNone ) {
   EXPECT_STREQ( RangeException( "", "too long" ).within( "pwInfo" ).what(), "pwInfo: too long" );
}

TEST( RangeException, isCaughtAsAStandardException ) {
   try {
      throw RangeException{ "label", "too long" };
   } catch( std::exception const & exception ) {
      EXPECT_STREQ( exception.what(), "label: too long" );
   }
}

TEST( UnhashableException, namesTheType ) {
   EXPECT_STREQ( Kiv::UnhashableException( "LspPing::NtpTimeU64" ).what(),
                 "LspPing::NtpTimeU64 cannot be hashed" );
}

} // namespace
