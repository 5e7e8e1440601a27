#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace {

using Kiv::CharRange;

template < class T >
concept HasScalarText = requires( Orlo::StringBuilder & out, T const & value ) {
   Kiv::appendText( out, value );
};

// No conversion leads to another type's text.
enum Plain : U8 {
   plain
};
static_assert( HasScalarText< U8 > && HasScalarText< bool > && HasScalarText< double > );
static_assert( !HasScalarText< int > && !HasScalarText< Plain > && !HasScalarText< int * > );

template < class Value >
Value read( std::string_view text ) {
   CharRange range{ text };
   Value value{};
   sequenceToValue( range, &value );
   EXPECT_TRUE( range.atEnd() ) << "left over: " << range.rest();
   return value;
}

/// The error's text; the value has to stay as it was.
template < class Value >
Orlo::String failure( std::string_view text, Value const & before ) {
   CharRange range{ text };
   Value value = before;
   try {
      sequenceToValue( range, &value );
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_EQ( value, before );
      return exception.what();
   }
   return "";
}

template < class Value >
Orlo::String text( Value const & value ) {
   Orlo::StringBuilder out;
   Kiv::appendText( out, value );
   return out.string();
}

TEST( ScalarText, readsNumbersOfEveryWidth ) {
   EXPECT_EQ( read< U8 >( "255" ), 255 );
   EXPECT_EQ( read< U16 >( " 65535 " ), 65535 );
   EXPECT_EQ( read< U32 >( "4294967295" ), 4294967295 );
   EXPECT_EQ( read< U64 >( "18446744073709551615" ), 18446744073709551615U );
   EXPECT_EQ( read< U64 >( "0" ), 0U );
   EXPECT_EQ( read< U8 >( "0000000000000000000000007" ), 7 );
}

TEST( ScalarText, stopsBehindANumber ) {
   for( std::string_view const behind : { ",", ")", "}", ": x", " 8" } ) {
      Orlo::String const whole = "7" + Orlo::String{ behind };
      CharRange range{ whole };
      U8 value = 0;
      sequenceToValue( range, &value );
      EXPECT_EQ( value, 7 );
      EXPECT_EQ( range.rest(), behind );
   }
}

TEST( ScalarText, refusesNumbersThatDoNotFit ) {
   EXPECT_EQ( failure( "300", U8{ 1 } ), "\"300\" at offset 0 is more than 255" );
   EXPECT_EQ( failure( "256", U8{ 1 } ), "\"256\" at offset 0 is more than 255" );
   EXPECT_EQ( failure( "65536", U16{ 1 } ), "\"65536\" at offset 0 is more than 65535" );
   EXPECT_EQ( failure( " 4294967296", U32{ 1 } ),
              "\"4294967296\" at offset 1 is more than 4294967295" );
   EXPECT_EQ( failure( "18446744073709551616", U64{ 1 } ),
              "\"18446744073709551616\" at offset 0 is more than 18446744073709551615" );
   EXPECT_EQ( failure( "99999999999999999999", U64{ 1 } ),
              "\"99999999999999999999\" at offset 0 is more than 18446744073709551615" );
   EXPECT_EQ( failure( "18446744073709551617", U8{ 1 } ),
              "\"18446744073709551617\" at offset 0 is more than 255" );
}

TEST( ScalarText, refusesWhatIsNoDecimalNumber ) {
   EXPECT_EQ( failure( "", U32{ 1 } ),
              "expected a decimal number at offset 0, found the end of the text" );
   for( std::string_view const wrong : { "-1", "+1", "0x10", "x", "12ab", "1.5", "1-2", "," } ) {
      EXPECT_EQ( failure( wrong, U32{ 1 } ),
                 "expected a decimal number at offset 0, found \"" + Orlo::String{ wrong } + "\"" );
   }
}

TEST( ScalarText, printsAndReadsEvery16BitNumber ) {
   for( U32 number = 0; number <= 0xFFFF; ++number ) {
      U16 const value = static_cast< U16 >( number );
      ASSERT_EQ( text( value ), std::to_string( number ) );
      ASSERT_EQ( read< U16 >( text( value ) ), value );
   }
}

TEST( ScalarText, printsNumbersInDecimal ) {
   EXPECT_EQ( text( U8{ 200 } ), "200" );
   EXPECT_EQ( text( U32{ 4294967295 } ), "4294967295" );
   EXPECT_EQ( text( U64{ 18446744073709551615U } ), "18446744073709551615" );
}

TEST( ScalarText, printsAndReadsTruth ) {
   EXPECT_EQ( text( true ), "true" );
   EXPECT_EQ( text( false ), "false" );
   EXPECT_TRUE( read< bool >( " true" ) );
   EXPECT_FALSE( read< bool >( "false" ) );
   for( std::string_view const wrong : { "1", "True", "truer", "tru" } ) {
      EXPECT_EQ( failure( wrong, true ),
                 "expected true or false at offset 0, found \"" + Orlo::String{ wrong } + "\"" );
   }
}

TEST( ScalarText, printsDoublesAsShortAsTheyReadBack ) {
   EXPECT_EQ( text( 0.1 ), "0.1" );
   EXPECT_EQ( text( 0.0 ), "0" );
   EXPECT_EQ( text( -1.5 ), "-1.5" );
   EXPECT_EQ( text( 1e300 ), "1e+300" );
   EXPECT_EQ( text( 2208988800.0 ), "2208988800" );
   EXPECT_EQ( read< double >( " -1.5e3 " ), -1500.0 );
}

TEST( ScalarText, readsBackEveryDoubleThatItPrints ) {
   std::mt19937_64 random{ 2 };
   for( int round = 0; round < 100'000; ++round ) {
      double const value = std::bit_cast< double >( random() );
      if( std::isnan( value ) )
         continue;
      ASSERT_EQ( std::bit_cast< U64 >( read< double >( text( value ) ) ),
                 std::bit_cast< U64 >( value ) );
   }
   double const infinity = std::numeric_limits< double >::infinity();
   EXPECT_EQ( read< double >( text( infinity ) ), infinity );
   EXPECT_EQ( read< double >( text( -infinity ) ), -infinity );
   EXPECT_TRUE( std::isnan( read< double >( text( std::nan( "" ) ) ) ) );
}

TEST( ScalarText, refusesWhatIsNoDouble ) {
   EXPECT_EQ( failure( "1.5x", 1.0 ), "expected a decimal number at offset 0, found \"1.5x\"" );
   EXPECT_EQ( failure( "", 1.0 ),
              "expected a decimal number at offset 0, found the end of the text" );
   EXPECT_EQ( failure( "1e400", 1.0 ), "\"1e400\" at offset 0 is out of the range of a double" );
}

TEST( ScalarText, printsStringsInQuotesAndReadsThemBack ) {
   EXPECT_EQ( text( Orlo::String{ "plain" } ), "\"plain\"" );
   EXPECT_EQ( text( Orlo::String{ "a \"b\" \\c" } ), "\"a \\\"b\\\" \\\\c\"" );
   for( Orlo::String const & value :
        { Orlo::String{}, Orlo::String{ "a, b)=}" }, Orlo::String{ "\\\"\\\\\"" },
          Orlo::String{ "line\nnext", 9 }, Orlo::String( 1000, '"' ) } )
      EXPECT_EQ( read< Orlo::String >( text( value ) ), value );
}

TEST( ScalarText, refusesStringsThatAreNotQuotedAsItPrintsThem ) {
   Orlo::String const before = "before";
   EXPECT_EQ( failure( "plain", before ),
              "expected a string in double quotes at offset 0, found \"plain\"" );
   EXPECT_EQ( failure( "\"open", before ),
              "expected a closing double quote at offset 5, found the end of the text" );
   EXPECT_EQ( failure( "\"a\\n\"", before ),
              "expected \\\" or \\\\ at offset 2, found \"\\\\n\\\"\"" );
   EXPECT_EQ( failure( "\"a\\", before ), "expected \\\" or \\\\ at offset 2, found \"\\\\\"" );
}

} // namespace
