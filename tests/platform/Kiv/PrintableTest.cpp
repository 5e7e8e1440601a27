#include "MplsUtils/LspPing/platform/Kiv/Printable.h"

#include <gtest/gtest.h>

namespace {

using Kiv::printable;
using Kiv::utf8Length;
using namespace std::string_view_literals;

TEST( Printable, leavesTextOfAnyScriptAsItIs ) {
   EXPECT_EQ( printable( "" ), "" );
   EXPECT_EQ( printable( "/tmp/a b~\\x\"1\"" ), "/tmp/a b~\\x\"1\"" );
   EXPECT_EQ( printable( "\u00a0\u00e9\u07ff\u0800\ud7ff\ue000\U00010000\U0010ffff" ),
              "\u00a0\u00e9\u07ff\u0800\ud7ff\ue000\U00010000\U0010ffff" );
}

TEST( Printable, escapesEveryControlCharacter ) {
   EXPECT_EQ( printable( "\0\a\n\x1b[31m\x1f\x7f"sv ), "\\x00\\x07\\x0a\\x1b[31m\\x1f\\x7f" );
   EXPECT_EQ( printable( "\u0080\u009b31m\u009f" ), "\\xc2\\x80\\xc2\\x9b31m\\xc2\\x9f" );
}

TEST( Printable, escapesEachByteThatIsNoUtf8 ) {
   EXPECT_EQ( printable( "\xff" ), "\\xff" );
   EXPECT_EQ( printable( "a\x9b\xc3(\xc3\xa9" ), "a\\x9b\\xc3(\u00e9" );
   EXPECT_EQ( printable( "\xe2\x82" ), "\\xe2\\x82" );
   EXPECT_EQ( printable( "\xe2\x82\n" ), "\\xe2\\x82\\x0a" );
}

TEST( Printable, goesThroughTwiceUnchanged ) {
   std::string const once = printable( "\x1b\xff\\\n\u009b" );
   EXPECT_EQ( printable( once ), once );
}

TEST( Utf8Length, isThatOfTheFirstCharacter ) {
   EXPECT_EQ( utf8Length( "\0"sv ), 1U );
   EXPECT_EQ( utf8Length( "a\xff" ), 1U );
   EXPECT_EQ( utf8Length( "\xc2\x80z" ), 2U );
   EXPECT_EQ( utf8Length( "\xe0\xa0\x80z" ), 3U );
   EXPECT_EQ( utf8Length( "\xed\x9f\xbfz" ), 3U );
   EXPECT_EQ( utf8Length( "\xf0\x90\x80\x80z" ), 4U );
   EXPECT_EQ( utf8Length( "\xf4\x8f\xbf\xbfz" ), 4U );
}

// Cut, continued by something else, longer than needed, a surrogate, above U+10FFFF.
TEST( Utf8Length, isNoneOfWhatIsNotUtf8 ) {
   for( std::string_view const text : { ""sv,
                                        "\x80"sv,
                                        "\xbf"sv,
                                        "\xc0\x80"sv,
                                        "\xc1\xbf"sv,
                                        "\xc2"sv,
                                        "\xc2z"sv,
                                        "\xdf\xc0"sv,
                                        "\xe0\x9f\xbf"sv,
                                        "\xe1\x80"sv,
                                        "\xe1\x80z"sv,
                                        "\xe1z\x80"sv,
                                        "\xed\xa0\x80"sv,
                                        "\xf0\x8f\xbf\xbf"sv,
                                        "\xf1\x80\x80"sv,
                                        "\xf1\x80\x80z"sv,
                                        "\xf1\x80z\x80"sv,
                                        "\xf4\x90\x80\x80"sv,
                                        "\xf5\x80\x80\x80"sv,
                                        "\xff"sv } )
      EXPECT_EQ( utf8Length( text ), 0U ) << printable( text );
}

} // namespace
