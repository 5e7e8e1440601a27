#include "MplsUtils/LspPing/framing/NtpTime.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>

namespace {

using LspPing::NtpTime;
using LspPing::NtpTimeU64;

// Cut toward zero into 64 bits, then to the low 32, in arithmetic that cannot overflow.
U32 low32( long double value ) {
   long double const whole = std::trunc( value );
   long double const modulo = whole - 4294967296.0L * std::floor( whole / 4294967296.0L );
   return static_cast< U32 >( modulo );
}

double clockTime = 0;
Kiv::Seconds testClock() {
   return clockTime;
}

class NtpTimeTest : public testing::Test {
 protected:
   NtpTimeTest() : previous_( Kiv::System::clockIs( &testClock ) ) {}
   ~NtpTimeTest() override { Kiv::System::clockIs( previous_ ); }

 private:
   Kiv::System::Clock previous_;
};

TEST_F( NtpTimeTest, countsFrom1900 ) {
   clockTime = 0.0;
   EXPECT_EQ( NtpTime::time(), 2208988800.0 );
   EXPECT_EQ( NtpTime::ntpSeconds(), 2208988800u );
   EXPECT_EQ( NtpTime::ntpFraction(), 0u );
   clockTime = 1.5;
   EXPECT_EQ( NtpTime::time(), 2208988801.5 );
   EXPECT_EQ( NtpTime::ntpSeconds(), 2208988801u );
   EXPECT_EQ( NtpTime::ntpFraction(), 2147483648u );
}

TEST_F( NtpTimeTest, packsSecondsLowAndFractionHigh ) {
   clockTime = 1700000000.25;
   EXPECT_EQ( NtpTime::ntpTime(), U64{ 1073741824 } << 32 | 3908988800u );
   EXPECT_EQ( static_cast< U32 >( NtpTime::ntpTime() ), NtpTime::ntpSeconds() );
   EXPECT_EQ( static_cast< U32 >( NtpTime::ntpTime() >> 32 ), NtpTime::ntpFraction() );
}

TEST_F( NtpTimeTest, readsTheClockOnceForBothHalves ) {
   static int readings;
   readings = 0;
   Kiv::System::clockIs( +[]() -> Kiv::Seconds {
      ++readings;
      return 100.0;
   } );
   NtpTime::ntpTime();
   EXPECT_EQ( readings, 1 );
}

// From 2036 on the seconds no longer fit; what is subtracted for the fraction is cut all the same.
TEST_F( NtpTimeTest, keepsTheLowBitsOfSecondsThatDoNotFit ) {
   clockTime = 4294967296.0 - 2208988800.0 + 7.5;
   EXPECT_EQ( NtpTime::ntpSeconds(), 7u );
   // 4294967296.5 s in whole microseconds, cut to 32 bits, and those as a fraction, cut again.
   U32 const microseconds = low32( 4294967296.5L * 1000000.0L );
   EXPECT_EQ( NtpTime::ntpFraction(), low32( microseconds / 1000000.0L * 4294967296.0L ) );
}

TEST_F( NtpTimeTest, staysDefinedForAnyClock ) {
   for( double const time :
        { -1e300, 1e300, -1.0, -3000000000.0, 1e15, 1e19, std::numeric_limits< double >::infinity(),
          -std::numeric_limits< double >::infinity(),
          std::numeric_limits< double >::quiet_NaN() } ) {
      clockTime = time;
      U64 const packed = NtpTime::ntpTime();
      EXPECT_EQ( static_cast< U32 >( packed ), NtpTime::ntpSeconds() ) << time;
      EXPECT_EQ( static_cast< U32 >( packed >> 32 ), NtpTime::ntpFraction() ) << time;
   }
   clockTime = -3000000000.0;
   EXPECT_EQ( NtpTime::ntpSeconds(), static_cast< U32 >( -791011200 ) );
}

TEST_F( NtpTimeTest, cutsSecondsAndFractionOfAnyTimeOfTheFirstEra ) {
   std::mt19937_64 random( 1900 );
   std::uniform_real_distribution< double > times( -2208988800.0, 2085978495.0 );
   for( int round = 0; round < 100000; ++round ) {
      clockTime = times( random );
      double const ntp = clockTime + 2208988800.0;
      ASSERT_EQ( NtpTime::ntpSeconds(), static_cast< U32 >( std::floor( ntp ) ) );
      double const fraction = ntp - std::floor( ntp );
      double const microseconds = std::floor( fraction * 1000000.0 );
      ASSERT_EQ( NtpTime::ntpFraction(),
                 static_cast< U32 >( std::floor( microseconds / 1000000.0 * 4294967296.0 ) ) );
   }
}

TEST( NtpTime, convertsFractionsInWholeMicroseconds ) {
   EXPECT_EQ( NtpTime::fractionToU32( 0.0 ), 0u );
   EXPECT_EQ( NtpTime::fractionToU32( 0.5 ), 2147483648u );
   EXPECT_EQ( NtpTime::fractionToU32( 0.25 ), 1073741824u );
   EXPECT_EQ( NtpTime::fractionToU32( 0.0000005 ), 0u );
   EXPECT_EQ( NtpTime::fractionToU32( 0.000001 ), 4294u );
   EXPECT_EQ( NtpTime::fractionToU32( 0.0000019 ), 4294u );
   EXPECT_EQ( NtpTime::fractionToU32( 0.999999 ), 4294963001u );
}

// A whole second is no fraction: the result is cut to 32 bits.
TEST( NtpTime, cutsFractionsOfASecondAndMore ) {
   EXPECT_EQ( NtpTime::fractionToU32( 1.0 ), 0u );
   EXPECT_EQ( NtpTime::fractionToU32( 1.5 ), 2147483648u );
   EXPECT_EQ( NtpTime::fractionToU32( 4294.967296 ), 0u );
   EXPECT_EQ( NtpTime::fractionToU32( -0.000001 ),
              low32( 4294967295.0L / 1000000.0L * 4294967296.0L ) );
}

TEST( NtpTime, convertsAnyDoubleWithoutUndefinedBehaviour ) {
   std::mt19937_64 random( 2 );
   for( int round = 0; round < 200000; ++round ) {
      double const any = std::bit_cast< double >( random() );
      U32 const fraction = NtpTime::fractionToU32( any );
      double const product = any * 1000000.0;
      if( !( std::abs( product ) < 9e18 ) )
         continue;
      double const microseconds = low32( product );
      ASSERT_EQ( fraction, low32( microseconds / 1000000.0 * 4294967296.0 ) ) << any;
   }
}

TEST( NtpTime, measuresMicroseconds ) {
   EXPECT_EQ( NtpTime::elapsedTime( { 10, 0 }, { 11, 2147483648u } ), 1500000u );
   EXPECT_EQ( NtpTime::elapsedTime( { 10, 2147483648u }, { 11, 0 } ), 500000u );
   EXPECT_EQ( NtpTime::elapsedTime( { 10, 5 }, { 10, 5 } ), 0u );
   EXPECT_EQ( NtpTime::elapsedTime( { 4294967295u, 0 }, { 1, 0 } ), 2000000u );
}

TEST( NtpTime, wrapsWhenTheLaterStampIsEarlier ) {
   EXPECT_EQ( NtpTime::elapsedTime( { 11, 0 }, { 10, 0 } ), 4293967296u );
   // Earlier by a fraction only: the seconds are equal, so the product is negative and is cut.
   EXPECT_EQ( NtpTime::elapsedTime( { 10, 2147483648u }, { 10, 0 } ),
              static_cast< U32 >( -500000 ) );
}

TEST( NtpTime, measuresBetweenAnyStamps ) {
   std::mt19937_64 random( 5905 );
   for( int round = 0; round < 200000; ++round ) {
      auto const any = [&random] { return static_cast< U32 >( random() ); };
      NtpTimeU64 const first( any(), any() );
      NtpTimeU64 const second( any(), any() );
      double const fractions =
         static_cast< double >( second.fractions() ) - static_cast< double >( first.fractions() );
      double const seconds = static_cast< U32 >( second.seconds() - first.seconds() );
      double const elapsed = ( fractions * 2.3283064365386963e-10 + seconds ) * 1000000.0;
      ASSERT_EQ( NtpTime::elapsedTime( first, second ), low32( elapsed ) );
   }
}

TEST( NtpTimeU64, isEqualByBothFields ) {
   NtpTimeU64 const time( 1, 2 );
   EXPECT_EQ( NtpTimeU64(), NtpTimeU64( 0, 0 ) );
   EXPECT_EQ( time, NtpTimeU64( 1, 2 ) );
   EXPECT_NE( time, NtpTimeU64( 1, 3 ) );
   EXPECT_NE( time, NtpTimeU64( 2, 2 ) );
   NtpTimeU64 const same( 1, 2 );
   NtpTimeU64 const other( 1, 3 );
   EXPECT_TRUE( NtpTimeU64::isEq( &time, &time ) );
   EXPECT_TRUE( NtpTimeU64::isEq( &time, &same ) );
   EXPECT_FALSE( NtpTimeU64::isEq( &time, &other ) );
}

TEST( NtpTimeU64, lookLikeThePackedTimeInMemory ) {
   static_assert( sizeof( NtpTimeU64 ) == 8 );
   NtpTimeU64 const time( 7, 9 );
   if( std::endian::native == std::endian::little )
      EXPECT_EQ( std::bit_cast< U64 >( time ), U64{ 9 } << 32 | 7 );
}

TEST( NtpTimeU64, printsItsTypeAndFields ) {
   std::ostringstream out;
   out << NtpTimeU64( 1, 2 ) << NtpTimeU64( 4294967295u, 4294967295u );
   EXPECT_EQ( out.str(), "LspPing::NtpTimeU64(seconds=1, fractions=2)"
                         "LspPing::NtpTimeU64(seconds=4294967295, fractions=4294967295)" );
}

TEST( NtpTimeU64, readsWhatItPrints ) {
   std::mt19937_64 random( 3 );
   for( int round = 0; round < 1000; ++round ) {
      NtpTimeU64 const time( static_cast< U32 >( random() ), static_cast< U32 >( random() ) );
      std::ostringstream out;
      out << time;
      std::string const text = out.str();
      Kiv::CharRange in( text );
      EXPECT_EQ( NtpTimeU64( in ), time );
      EXPECT_TRUE( in.atEnd() );
   }
}

TEST( NtpTimeU64, leavesTheCursorBehindItsText ) {
   Kiv::CharRange in( "LspPing::NtpTimeU64(seconds=1, fractions=2), more" );
   EXPECT_EQ( NtpTimeU64( in ), NtpTimeU64( 1, 2 ) );
   EXPECT_EQ( in.rest(), ", more" );
}

TEST( NtpTimeU64, refusesTextNamingTheAttribute ) {
   struct Case {
      std::string_view text;
      std::string_view subject;
   };
   for( Case const & one : {
           Case{ "LspPing::NtpTimeU64(seconds=, fractions=2)", "seconds" },
           Case{ "LspPing::NtpTimeU64(seconds=-1, fractions=2)", "seconds" },
           Case{ "LspPing::NtpTimeU64(seconds=4294967296, fractions=2)", "seconds" },
           Case{ "LspPing::NtpTimeU64(seconds=1, fractions=two)", "fractions" },
           Case{ "LspPing::NtpTimeU64(fractions=2, seconds=1)", "seconds" },
           Case{ "LspPing::NtpTimeU64(seconds=1 fractions=2)", "fractions" },
        } ) {
      Kiv::CharRange in( one.text );
      try {
         NtpTimeU64 const time( in );
         ADD_FAILURE() << one.text << " gave " << time;
      } catch( Kiv::RangeException const & e ) {
         EXPECT_EQ( e.subject(), one.subject ) << one.text << ": " << e.what();
      }
   }
   for( std::string_view const text :
        { "", "NtpTimeU64(seconds=1, fractions=2)", "LspPing::NtpTimeU64(seconds=1, fractions=2",
          "LspPing::NtpTimeU64(seconds=1, fractions=2, more=3)" } ) {
      Kiv::CharRange in( text );
      EXPECT_THROW( NtpTimeU64{ in }, Kiv::RangeException ) << text;
   }
}

} // namespace
