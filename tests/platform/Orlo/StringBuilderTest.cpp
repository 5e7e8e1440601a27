#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <random>

namespace {

using Orlo::StringBuilder;

Orlo::String decimal( U64 number ) {
   StringBuilder out;
   out.appendDecimal( number );
   return out.string();
}

Orlo::String hex( U64 number, bool upperCase ) {
   StringBuilder out;
   out.appendHex( number, upperCase );
   return out.string();
}

TEST( StringBuilder, beginsEmpty ) {
   StringBuilder const out;
   EXPECT_EQ( out.size(), 0U );
   EXPECT_EQ( out.view(), "" );
   EXPECT_EQ( out.string(), "" );
}

TEST( StringBuilder, joinsWhatIsAppended ) {
   StringBuilder out;
   out.append( "ver(" );
   out.appendDecimal( 1 );
   out.append( ')' );
   out.append( "" );
   EXPECT_EQ( out.view(), "ver(1)" );
   EXPECT_EQ( out.size(), 6U );
}

TEST( StringBuilder, beginsAnewWhenCleared ) {
   StringBuilder out;
   out.append( "gone" );
   out.clear();
   out.append( "kept" );
   EXPECT_EQ( out.string(), "kept" );
}

TEST( StringBuilder, keepsItsTextWhereverItOutgrowsItsOwnBytes ) {
   for( std::size_t const before : { 0U, 1U, 510U, 511U, 512U, 513U, 1023U, 1024U, 1025U } ) {
      for( std::size_t const more : { 1U, 2U, 511U, 512U, 513U, 5000U } ) {
         StringBuilder out;
         out.append( Orlo::String( before, 'a' ) );
         out.append( Orlo::String( more, 'b' ) );
         out.append( 'c' );
         Orlo::String const expected =
            Orlo::String( before, 'a' ) + Orlo::String( more, 'b' ) + 'c';
         EXPECT_EQ( out.view(), expected );
         EXPECT_EQ( out.string(), expected );
         EXPECT_EQ( std::move( out ).string(), expected );
      }
   }
}

TEST( StringBuilder, handsLongTextOverWithoutCopying ) {
   StringBuilder out;
   out.append( Orlo::String( 1000, 'a' ) );
   char const * const bytes = out.view().data();
   Orlo::String const text = std::move( out ).string();
   EXPECT_EQ( text.data(), bytes );
}

TEST( StringBuilder, canBeUsedAfterItsTextWasTakenOver ) {
   StringBuilder out;
   out.append( Orlo::String( 1000, 'a' ) );
   EXPECT_EQ( std::move( out ).string(), Orlo::String( 1000, 'a' ) );
   out.clear();
   out.append( Orlo::String( 700, 'b' ) );
   EXPECT_EQ( out.string(), Orlo::String( 700, 'b' ) );
}

TEST( StringBuilder, growsByOneCharacterAtATime ) {
   StringBuilder out;
   Orlo::String expected;
   for( int index = 0; index < 3000; ++index ) {
      char const character = static_cast< char >( 'a' + index % 26 );
      out.append( character );
      expected += character;
   }
   EXPECT_EQ( out.string(), expected );
}

TEST( StringBuilder, letsOthersWriteIntoItsRoom ) {
   StringBuilder out;
   out.append( Orlo::String( 510, '-' ) );
   char * const at = out.room( 4 );
   at[0] = 'a';
   at[1] = 'b';
   at[2] = 'c';
   out.advance( 3 );
   EXPECT_EQ( out.string(), Orlo::String( 510, '-' ) + "abc" );
}

TEST( StringBuilder, printsDecimalNumbers ) {
   EXPECT_EQ( decimal( 0 ), "0" );
   EXPECT_EQ( decimal( 9 ), "9" );
   EXPECT_EQ( decimal( 10 ), "10" );
   EXPECT_EQ( decimal( 4294967295 ), "4294967295" );
   EXPECT_EQ( decimal( 4294967296 ), "4294967296" );
   EXPECT_EQ( decimal( 10'000'000'000 ), "10000000000" );
   EXPECT_EQ( decimal( 18446744073709551615U ), "18446744073709551615" );
   for( U32 number = 0; number < 70'000; ++number )
      ASSERT_EQ( decimal( number ), std::to_string( number ) );
}

TEST( StringBuilder, printsDecimalNumbersAroundEveryPowerOfTen ) {
   for( U64 power = 1; power <= 1'000'000'000'000'000'000; power *= 10 )
      for( U64 const number : { power - 1, power, power + 1, power * 9, power + power / 3 } )
         EXPECT_EQ( decimal( number ), std::to_string( number ) );
}

TEST( StringBuilder, printsRandomNumbersOfEveryWidth ) {
   std::mt19937_64 random{ 1 };
   for( int round = 0; round < 100'000; ++round ) {
      U64 const number = random() >> ( random() % 64 );
      ASSERT_EQ( decimal( number ), std::to_string( number ) );
      char expected[17];
      std::snprintf( expected, sizeof expected, "%lx", number );
      ASSERT_EQ( hex( number, false ), expected );
      std::snprintf( expected, sizeof expected, "%lX", number );
      ASSERT_EQ( hex( number, true ), expected );
   }
}

TEST( StringBuilder, printsSignedNumbers ) {
   StringBuilder out;
   out.appendSigned( 0 );
   out.append( ' ' );
   out.appendSigned( -1 );
   out.append( ' ' );
   out.appendSigned( std::numeric_limits< std::int64_t >::max() );
   out.append( ' ' );
   out.appendSigned( std::numeric_limits< std::int64_t >::min() );
   EXPECT_EQ( out.view(), "0 -1 9223372036854775807 -9223372036854775808" );
}

TEST( StringBuilder, printsHexadecimalNumbersWithoutLeadingZeros ) {
   EXPECT_EQ( hex( 0, false ), "0" );
   EXPECT_EQ( hex( 0x10, false ), "10" );
   EXPECT_EQ( hex( 0xdeadbeef, false ), "deadbeef" );
   EXPECT_EQ( hex( 0xdeadbeef, true ), "DEADBEEF" );
   EXPECT_EQ( hex( 0x1'0000'0000, false ), "100000000" );
   EXPECT_EQ( hex( 0xfedcba9876543210, false ), "fedcba9876543210" );
}

} // namespace
