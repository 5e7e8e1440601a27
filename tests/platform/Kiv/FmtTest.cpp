#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string_view>

namespace Garden {

struct Tree {
   U32 height;
};

void appendText( Orlo::StringBuilder & out, Tree const & tree ) {
   out.append( "tree of " );
   out.appendDecimal( tree.height );
}

enum class Season : U8 {
   spring,
   autumn
};

void appendText( Orlo::StringBuilder & out, Season const & season ) {
   out.append( season == Season::spring ? "spring" : "autumn" );
}

struct Hedge {
   std::size_t length;
};

void appendText( Orlo::StringBuilder & out, Hedge const & hedge ) {
   out.append( Orlo::String( hedge.length, '#' ) );
}

} // namespace Garden

namespace {

using Kiv::_fmt;

TEST( Fmt, keepsLiteralText ) {
   EXPECT_EQ( _fmt( "" ), "" );
   EXPECT_EQ( _fmt( "Invalid LspPingHdr" ), "Invalid LspPingHdr" );
   EXPECT_EQ( _fmt( "a\tb\nc" ), "a\tb\nc" );
}

TEST( Fmt, printsPercentSigns ) {
   EXPECT_EQ( _fmt( "%%" ), "%" );
   EXPECT_EQ( _fmt( "100%%" ), "100%" );
   EXPECT_EQ( _fmt( "%%%%d" ), "%%d" );
   EXPECT_EQ( _fmt( "%d%% of %%%d", 5, 6 ), "5% of %6" );
}

TEST( Fmt, printsDecimalsAsSigned32BitNumbers ) {
   EXPECT_EQ( _fmt( "%d", 0 ), "0" );
   EXPECT_EQ( _fmt( "%d", U32{ 2147483647 } ), "2147483647" );
   EXPECT_EQ( _fmt( "%d", U32{ 2147483648 } ), "-2147483648" );
   EXPECT_EQ( _fmt( "%d", U32{ 4294967295 } ), "-1" );
   EXPECT_EQ( _fmt( "%d", -17 ), "-17" );
   EXPECT_EQ( _fmt( "%d", std::numeric_limits< int >::min() ), "-2147483648" );
}

TEST( Fmt, printsSmallIntegersAsTheyAre ) {
   EXPECT_EQ( _fmt( "%d", U8{ 255 } ), "255" );
   EXPECT_EQ( _fmt( "%d", U16{ 65535 } ), "65535" );
   EXPECT_EQ( _fmt( "%d", std::int8_t{ -128 } ), "-128" );
   EXPECT_EQ( _fmt( "%d", std::int16_t{ -1 } ), "-1" );
   EXPECT_EQ( _fmt( "%x", std::int8_t{ -1 } ), "ff" );
}

TEST( Fmt, printsEvery16BitValueInEveryForm ) {
   for( U32 value = 0; value <= 0xFFFF; ++value ) {
      U16 const number = static_cast< U16 >( value );
      char expected[32];
      std::snprintf( expected, sizeof expected, "%u,%x,%X.", value, value, value );
      ASSERT_EQ( _fmt( "%d,%x,%X.", number, number, number ), expected );
   }
}

TEST( Fmt, printsHexadecimalsInTheCaseAsked ) {
   EXPECT_EQ( _fmt( "0x%x", U32{ 0 } ), "0x0" );
   EXPECT_EQ( _fmt( "0x%x 0x%X", U32{ 0xABCDEF01 }, U32{ 0xABCDEF01 } ), "0xabcdef01 0xABCDEF01" );
}

TEST( Fmt, prints64BitNumbers ) {
   EXPECT_EQ( _fmt( "%lu", U64{ 0 } ), "0" );
   EXPECT_EQ( _fmt( "(%lu)", U64{ 18446744073709551615U } ), "(18446744073709551615)" );
}

TEST( Fmt, printsWhateverHasAText ) {
   Orlo::String const text = "string";
   std::string_view const view = "view";
   char const * const pointer = "pointer";
   EXPECT_EQ( _fmt( "%s %s %s %s", text, view, pointer, "literal" ),
              "string view pointer literal" );
   EXPECT_EQ( _fmt( "[%s]", Orlo::String{} ), "[]" );
   EXPECT_EQ( _fmt( "[%s]", std::string_view{} ), "[]" );
   EXPECT_EQ( _fmt( "%s in %s, %d", Garden::Tree{ 12 }, Garden::Season::autumn, 3 ),
              "tree of 12 in autumn, 3" );
}

TEST( Fmt, printsTextsLongerThanTheBuildersOwnBytes ) {
   Orlo::String const text( 2000, 'x' );
   EXPECT_EQ( _fmt( "<%s|%s>", text, text ), "<" + text + "|" + text + ">" );
   for( std::size_t length = 380; length < 560; ++length ) {
      Orlo::String const hedge( length, '#' );
      ASSERT_EQ( _fmt( "a %s, b %s: %d", Garden::Hedge{ length }, hedge, 7 ),
                 "a " + hedge + ", b " + hedge + ": 7" );
   }
}

TEST( Fmt, printsLiteralsOfEveryLengthAroundItsBlockSize ) {
   EXPECT_EQ( _fmt( "0123456789012345678901234567890%d", 1 ), "01234567890123456789012345678901" );
   EXPECT_EQ( _fmt( "01234567890123456789012345678901%d", 1 ),
              "012345678901234567890123456789011" );
   EXPECT_EQ(
      _fmt( "012345678901234567890123456789012%d0123456789012345678901234567890123456789", 1 ),
      "01234567890123456789012345678901210123456789012345678901234567890123456789" );
   EXPECT_EQ( _fmt( "%d012345678901234567890123456789%d0", 1, 2 ),
              "101234567890123456789012345678920" );
}

TEST( Fmt, appendsToWhatABuilderHolds ) {
   Orlo::StringBuilder out;
   out.append( "before " );
   Kiv::_fmtTo( out, "%d of %d", 1, 2 );
   Kiv::_fmtTo( out, " after" );
   EXPECT_EQ( out.view(), "before 1 of 2 after" );
}

TEST( Fmt, appendsWhereABuildersOwnBytesEnd ) {
   for( std::size_t before = 400; before < 530; ++before ) {
      Orlo::StringBuilder out;
      out.append( Orlo::String( before, '-' ) );
      Kiv::_fmtTo( out, "%d, %x and %s", U32{ 2147483648 }, U32{ 0xffffffff }, "text" );
      ASSERT_EQ( out.view(), Orlo::String( before, '-' ) + "-2147483648, ffffffff and text" );
   }
}

TEST( Fmt, printsTheEchoHeadersTwelveFields ) {
   EXPECT_EQ( _fmt( "LspPingHdr:\tver(%d),\tflag(%d),\tmsgType(%d),\treplyMode(%d),"
                    "\treturnCode(%d),\treturnSubcode(%d),\tsenderHandle(0x%x),\tseqNum(0x%x),"
                    "\ttsSenSeconds(0x%x),\ttsSentmSeconds(0x%x),\ttsRcvdSeconds(0x%x),"
                    "\ttsRcvdmSeconds(0x%x)",
                    U16{ 1 }, U16{ 0 }, U8{ 1 }, U8{ 2 }, U8{ 0 }, U8{ 0 }, U32{ 0x1234 }, U32{ 1 },
                    U32{ 0xe1234567 }, U32{ 0x80000000 }, U32{ 0 }, U32{ 0xffffffff } ),
              "LspPingHdr:\tver(1),\tflag(0),\tmsgType(1),\treplyMode(2),\treturnCode(0),"
              "\treturnSubcode(0),\tsenderHandle(0x1234),\tseqNum(0x1),\ttsSenSeconds(0xe1234567),"
              "\ttsSentmSeconds(0x80000000),\ttsRcvdSeconds(0x0),\ttsRcvdmSeconds(0xffffffff)" );
}

} // namespace
