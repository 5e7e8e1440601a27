#include "MplsUtils/LspPing/message/LspPingWords.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

std::string timeText( std::int64_t seconds, U32 nanoseconds = 0 ) {
   Orlo::StringBuilder out;
   LspPing::appendUtc( out, seconds, nanoseconds );
   return std::string( out.view() );
}

TEST( LspPingUtc, hasTheDigitsThatTheClockHas ) {
   EXPECT_EQ( timeText( 1769860800, 1000 ), "2026-01-31T12:00:00.000001Z" );
   EXPECT_EQ( timeText( 1769860800, 1001 ), "2026-01-31T12:00:00.000001001Z" );
   EXPECT_EQ( timeText( 0 ), "1970-01-01T00:00:00.000000Z" );
}

TEST( LspPingUtc, goesBackBehindTheEpoch ) {
   EXPECT_EQ( timeText( -1, 999'999'999 ), "1969-12-31T23:59:59.999999999Z" );
   EXPECT_EQ( timeText( -2203891200 ), "1900-03-01T00:00:00.000000Z" );
}

// The Gregorian calendar before there was one, and its leap days.
TEST( LspPingUtc, isRightInEveryYearOfFourDigits ) {
   EXPECT_EQ( timeText( -62167219200 ), "0000-01-01T00:00:00.000000Z" );
   EXPECT_EQ( timeText( -62162121600 ), "0000-02-29T00:00:00.000000Z" );
   EXPECT_EQ( timeText( -62135596801 ), "0000-12-31T23:59:59.000000Z" );
   EXPECT_EQ( timeText( -12219292801 ), "1582-10-14T23:59:59.000000Z" );
   EXPECT_EQ( timeText( 951782400 ), "2000-02-29T00:00:00.000000Z" );
   EXPECT_EQ( timeText( 4107542399 ), "2100-02-28T23:59:59.000000Z" );
   EXPECT_EQ( timeText( 253402300799, 999'999'999 ), "9999-12-31T23:59:59.999999999Z" );
}

// Some of these are a plausible year once they are cut to fewer bits.
TEST( LspPingUtc, isOutOfRangeInEveryOther ) {
   for( std::int64_t const seconds :
        { std::int64_t{ -62167219201 }, std::int64_t{ 253402300800 }, std::int64_t{ 2069983296000 },
          std::int64_t{ 1 } << 62, -( std::int64_t{ 1 } << 62 ),
          std::numeric_limits< std::int64_t >::max(), std::numeric_limits< std::int64_t >::min() } )
      EXPECT_EQ( timeText( seconds, 999'999'999 ), "out of range" ) << seconds;
}

} // namespace
