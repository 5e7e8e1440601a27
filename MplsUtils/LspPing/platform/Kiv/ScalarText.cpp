#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <charconv>
#include <limits>
#include <string_view>
#include <system_error>

namespace Kiv {

namespace {

/// The token at the cursor, which stays before it: a failure then tells where it began.
std::string_view nextToken( CharRange & text ) noexcept {
   text.skip();
   return CharRange{ text.rest() }.token();
}

constexpr bool isDigit( char character ) noexcept {
   return character >= '0' && character <= '9';
}

/// Characters that may not follow a number: "12x" is no number. A colon may, behind a key.
constexpr bool spoilsNumber( char character ) noexcept {
   return ( character >= 'a' && character <= 'z' ) || ( character >= 'A' && character <= 'Z' ) ||
          character == '_' || character == '.' || character == '-' || character == '+';
}

template < class Number >
void readNumber( CharRange & text, Number * value ) {
   text.skip();
   std::string_view const rest = text.rest();
   constexpr U64 most = std::numeric_limits< Number >::max();
   U64 number = 0;
   bool fits = true;
   std::size_t length = 0;
   for( ; length != rest.size() && isDigit( rest[length] ); ++length ) {
      U64 const digit = static_cast< U64 >( rest[length] - '0' );
      if constexpr( sizeof( Number ) < sizeof( U64 ) ) {
         // Once too large it stays so, and far from where 64 bits would wrap.
         number = fits ? number * 10 + digit : number;
         fits = number <= most;
      } else {
         fits = fits && number <= ( most - digit ) / 10;
         number = number * 10 + digit;
      }
   }
   if( length == 0 || ( length != rest.size() && spoilsNumber( rest[length] ) ) )
      text.failWords( "", "a decimal number" );
   if( !fits ) {
      throw RangeException{ "", _fmt( "%s at offset %lu is more than %lu",
                                      quoted( rest.substr( 0, length ) ), U64{ text.position() },
                                      most ) };
   }
   text.advance( length );
   *value = static_cast< Number >( number );
}

} // namespace

void sequenceToValue( CharRange & text, U8 * value ) {
   readNumber( text, value );
}
void sequenceToValue( CharRange & text, U16 * value ) {
   readNumber( text, value );
}
void sequenceToValue( CharRange & text, U32 * value ) {
   readNumber( text, value );
}
void sequenceToValue( CharRange & text, U64 * value ) {
   readNumber( text, value );
}

void sequenceToValue( CharRange & text, bool * value ) {
   std::string_view const token = nextToken( text );
   if( token != "true" && token != "false" )
      text.failWords( "", "true or false" );
   *value = token == "true";
   text.take( token );
}

void sequenceToValue( CharRange & text, double * value ) {
   std::string_view const token = nextToken( text );
   char const * const end = token.data() + token.size();
   double number = 0;
   std::from_chars_result const result = std::from_chars( token.data(), end, number );
   if( result.ec == std::errc::result_out_of_range ) {
      throw RangeException{ "", _fmt( "%s at offset %lu is out of the range of a double",
                                      quoted( token ), U64{ text.position() } ) };
   }
   if( result.ec != std::errc{} || result.ptr != end )
      text.failWords( "", "a decimal number" );
   text.take( token );
   *value = number;
}

void sequenceToValue( CharRange & text, Orlo::String * value ) {
   text.skip();
   std::string_view const rest = text.rest();
   if( !rest.starts_with( '"' ) )
      text.failWords( "", "a string in double quotes" );
   Orlo::String read;
   std::size_t index = 1;
   for( ; index < rest.size() && rest[index] != '"'; ++index ) {
      if( rest[index] == '\\' ) {
         ++index;
         if( index == rest.size() || ( rest[index] != '"' && rest[index] != '\\' ) ) {
            text.take( rest.substr( 0, index - 1 ) );
            text.failWords( "", R"(\" or \\)" );
         }
      }
      read += rest[index];
   }
   if( index >= rest.size() ) {
      text.take( rest );
      text.failWords( "", "a closing double quote" );
   }
   text.take( rest.substr( 0, index + 1 ) );
   *value = std::move( read );
}

void appendDouble( Orlo::StringBuilder & out, double value ) noexcept {
   constexpr std::size_t longest = 32; // "-2.2250738585072014e-308" has 24
   char * const at = out.room( longest );
   out.advanceTo( std::to_chars( at, at + longest, value ).ptr );
}

void appendText( Orlo::StringBuilder & out, Orlo::String const & value ) noexcept {
   out.append( '"' );
   for( char const character : value ) {
      if( character == '"' || character == '\\' )
         out.append( '\\' );
      out.append( character );
   }
   out.append( '"' );
}

} // namespace Kiv
