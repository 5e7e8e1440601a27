#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/Printable.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <algorithm>

namespace Kiv {

namespace {

constexpr bool startsWord( char character ) noexcept {
   return ( character >= 'a' && character <= 'z' ) || ( character >= 'A' && character <= 'Z' ) ||
          character == '_';
}

constexpr bool continuesWord( char character ) noexcept {
   return startsWord( character ) || ( character >= '0' && character <= '9' ) || character == ':';
}

constexpr bool endsToken( char character ) noexcept {
   return CharRange::isBlank( character ) || character == ',' || character == ')' ||
          character == '}' || character == '=';
}

constexpr std::size_t longestQuote = 32;

} // namespace

std::string_view CharRange::word() noexcept {
   if( atEnd() || !startsWord( text_[position_] ) )
      return {};
   std::size_t const start = position_;
   do {
      ++position_;
   } while( position_ != text_.size() && continuesWord( text_[position_] ) );
   return text_.substr( start, position_ - start );
}

std::string_view CharRange::token() noexcept {
   skip();
   std::size_t const start = position_;
   while( position_ != text_.size() && !endsToken( text_[position_] ) )
      ++position_;
   return text_.substr( start, position_ - start );
}

// Quicker than taking any word and comparing it afterwards.
bool CharRange::takeWord( std::string_view expected ) noexcept {
   std::string_view const text = rest();
   if( !text.starts_with( expected ) ||
       ( text.size() != expected.size() && continuesWord( text[expected.size()] ) ) )
      return false;
   position_ += expected.size();
   return true;
}

void CharRange::expectName( std::string_view name ) {
   skip();
   std::size_t const start = position_;
   if( takeWord( name ) && take( '=' ) )
      return;
   position_ = start;
   fail( name, Orlo::String{ name } + "=" );
}

void CharRange::expectOpen( std::string_view type, std::string_view firstName ) {
   skip();
   if( !takeWord( type ) )
      fail( type, type );
   if( !take( '(' ) )
      fail( firstName, "(" );
   expectName( firstName );
}

void CharRange::expectNext( std::string_view name ) {
   if( !take( ',' ) )
      fail( name, "," );
   expectName( name );
}

void CharRange::expectClose() {
   if( !take( ')' ) )
      fail( "", ")" );
}

void CharRange::fail( std::string_view subject, std::string_view expected ) const {
   failWords( subject, quoted( expected ) );
}

void CharRange::failWords( std::string_view subject, std::string_view expected ) const {
   Orlo::String const found = rest().empty() ? "the end of the text" : quoted( rest() );
   throw RangeException{ Orlo::String{ subject }, _fmt( "expected %s at offset %lu, found %s",
                                                        expected, U64{ position_ }, found ) };
}

Orlo::String quoted( std::string_view text ) {
   std::size_t shown = std::min( text.size(), longestQuote );
   // Not in the middle of a character.
   for( int i = 0; i < 3 && shown < text.size() && ( text[shown] & 0xC0 ) == 0x80; ++i )
      --shown;
   std::string_view left = text.substr( 0, shown );
   Orlo::StringBuilder out;
   out.append( '"' );
   for( ;; ) {
      std::size_t const plain = std::min( left.find_first_of( "\"\\" ), left.size() );
      appendPrintable( out, left.substr( 0, plain ) );
      if( plain == left.size() )
         break;
      out.append( '\\' );
      out.append( left[plain] );
      left.remove_prefix( plain + 1 );
   }
   out.append( shown < text.size() ? "\"..." : "\"" );
   return std::move( out ).string();
}

} // namespace Kiv
