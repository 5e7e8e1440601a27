#include "tools/lspping/generic/AttributeJson.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::string written( std::string_view text ) {
   LspPingTool::JsonBuffer buffer;
   LspPingTool::JsonWriter json( buffer );
   LspPingTool::writeString( json, text );
   return buffer.GetString();
}

// Every ASCII character, at every place within and behind the first eight bytes.
TEST( JsonWriter, escapesWhatJsonAsksFor ) {
   for( int code = 0; code < 127; ++code ) {
      for( std::size_t place = 0; place < 11; ++place ) {
         std::string text = "abcdefghijk";
         text[place] = static_cast< char >( code );
         rapidjson::StringBuffer expected;
         rapidjson::Writer< rapidjson::StringBuffer >( expected )
            .String( text.data(), static_cast< rapidjson::SizeType >( text.size() ) );
         EXPECT_EQ( written( text ), expected.GetString() ) << code;
      }
   }
}

TEST( JsonWriter, escapesTheControlCharactersThatJsonWouldLeave ) {
   EXPECT_EQ( written( "\x7f" ), R"("\u007F")" );
   EXPECT_EQ( written( "abcdefg\x7fhi" ), R"("abcdefg\u007Fhi")" );
   EXPECT_EQ( written( "\u0080\u009b1m\u00a0" ), "\"\\u0080\\u009B1m\u00a0\"" );
}

TEST( JsonWriter, keepsTextOfAnyScript ) {
   std::string const text = "\u00a0\u00e9 \u07ff\u0800\ufffd\U00010000 \U0010ffff";
   for( std::size_t before = 0; before < 9; ++before ) {
      std::string const moved = std::string( before, 'x' ) + text;
      EXPECT_EQ( written( moved ), '"' + moved + '"' );
   }
}

TEST( JsonWriter, replacesEachByteThatIsNoUtf8 ) {
   for( std::size_t before = 0; before < 9; ++before ) {
      std::string const x( before, 'x' );
      EXPECT_EQ( written( x + "\xff" ), '"' + x + "\ufffd\"" );
      EXPECT_EQ( written( x + "\xe2\x82z\x80" ), '"' + x + "\ufffd\ufffdz\ufffd\"" );
      EXPECT_EQ( written( x + "\xc3(\xed\xa0\x80" ), '"' + x + "\ufffd(\ufffd\ufffd\ufffd\"" );
   }
}

// rapidjson's own allocator would hand out null, and the writer would write there.
TEST( JsonWriter, raisesWhatOperatorNewDoesWithoutMemory ) {
   constexpr std::size_t tooMuch = SIZE_MAX / 4;
   EXPECT_THROW( LspPingTool::JsonAllocator().Malloc( tooMuch ), std::bad_alloc );
   LspPingTool::JsonBuffer buffer;
   buffer.Put( 'a' );
   EXPECT_THROW( buffer.Push( tooMuch ), std::bad_alloc );
   EXPECT_STREQ( buffer.GetString(), "a" );
}

} // namespace
