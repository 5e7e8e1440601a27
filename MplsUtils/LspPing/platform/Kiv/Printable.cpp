#include "MplsUtils/LspPing/platform/Kiv/Printable.h"

#include <utility>

namespace Kiv {

namespace {

constexpr bool isControl( std::string_view sequence ) noexcept {
   auto const first = static_cast< unsigned char >( sequence[0] );
   // U+0080 to U+009F are controls as well: some terminals take U+009B for an escape sequence.
   return first < 0x20 || first == 0x7F ||
          ( first == 0xC2 && static_cast< unsigned char >( sequence[1] ) < 0xA0 );
}

} // namespace

std::size_t utf8Length( std::string_view text ) noexcept {
   auto const byte = [text]( std::size_t index ) -> unsigned {
      return index < text.size() ? static_cast< unsigned char >( text[index] ) : 0;
   };
   auto const continues = [&byte]( std::size_t index ) { return byte( index ) >> 6 == 2; };
   if( text.empty() )
      return 0;
   unsigned const first = byte( 0 );
   if( first < 0x80 )
      return 1;
   unsigned const second = byte( 1 );
   // Neither what a shorter sequence says, nor surrogates, nor what is above U+10FFFF.
   if( first >= 0xC2 && first <= 0xDF )
      return continues( 1 ) ? 2 : 0;
   if( first >> 4 == 0xE ) {
      bool const isChar = ( first != 0xE0 || second >= 0xA0 ) && ( first != 0xED || second < 0xA0 );
      return isChar && continues( 1 ) && continues( 2 ) ? 3 : 0;
   }
   if( first >= 0xF0 && first <= 0xF4 ) {
      bool const isChar = ( first != 0xF0 || second >= 0x90 ) && ( first != 0xF4 || second < 0x90 );
      return isChar && continues( 1 ) && continues( 2 ) && continues( 3 ) ? 4 : 0;
   }
   return 0;
}

void appendPrintable( Orlo::StringBuilder & out, std::string_view text ) noexcept {
   while( !text.empty() ) {
      std::size_t const length = utf8Length( text );
      std::string_view const sequence = text.substr( 0, length == 0 ? 1 : length );
      if( length != 0 && !isControl( sequence ) ) {
         out.append( sequence );
      } else {
         for( char const character : sequence ) {
            auto const byte = static_cast< unsigned char >( character );
            out.append( byte < 0x10 ? "\\x0" : "\\x" );
            out.appendHex( byte, false );
         }
      }
      text.remove_prefix( sequence.size() );
   }
}

Orlo::String printable( std::string_view text ) {
   Orlo::StringBuilder out;
   appendPrintable( out, text );
   return std::move( out ).string();
}

} // namespace Kiv
