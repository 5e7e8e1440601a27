#pragma once

#include "MplsUtils/LspPing/platform/Orlo/Digits.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

// Formatted text whose format string is checked against its arguments while compiling:
//
//    %d    an integer of at most 32 bits, printed as a signed 32-bit decimal number: a U32 of 2^31
//          and more prints negative, smaller types print as they are
//    %x %X an integer of at most 32 bits in lower-case, upper-case hexadecimal
//    %lu   a 64-bit unsigned integer, decimal
//    %s    anything that has a text: strings, and types with
//          `void appendText( Orlo::StringBuilder &, T const & )` in their namespace
//    %%    a percent sign
namespace Kiv {

namespace FormatDetail {

void appendText() = delete; // keeps the look-up below to the namespaces of the arguments

template < class T >
concept Text = std::convertible_to< T const &, std::string_view >;

template < class T >
concept Appendable =
   !Text< T > && std::is_class_v< T > && requires( Orlo::StringBuilder & out, T const & value ) {
   appendText( out, value );
};

template < class T >
concept AppendableEnum = std::is_enum_v< T > &&
   requires( Orlo::StringBuilder & out, T const & value ) {
   appendText( out, value );
};

template < class T >
concept Integer = std::integral< T > && !std::same_as< T, bool > && !std::same_as< T, char > &&
                  !std::same_as< T, wchar_t > && !std::same_as< T, char8_t > &&
                  !std::same_as< T, char16_t > && !std::same_as< T, char32_t >;

template < class T >
concept Integer32 = Integer< T > && sizeof( T ) <= 4;

template < class T >
concept Unsigned64 = Integer< T > && std::unsigned_integral< T > && sizeof( T ) == 8;

// What the compiler names when it refuses a format. None is ever defined.
void formatNeedsAnotherArgument();
void formatLeavesAnArgumentOver();
void formatConversionUnknown();
void formatArgumentMustBeIntegerOfAtMost32Bits();
void formatArgumentMustBe64BitUnsigned();
void formatArgumentHasNoText();

enum class Conversion : U8 {
   end,
   decimal,
   hexLower,
   hexUpper,
   decimal64,
   text
};

/// Literal text and the conversion behind it.
struct Piece {
   U16 start = 0;
   U16 length = 0;
   Conversion conversion = Conversion::end;
   bool hasPercents = false; // each "%%" in it stands for "%"
};

template < class T >
consteval void checkArgument( Conversion conversion ) {
   switch( conversion ) {
   case Conversion::end:
      formatLeavesAnArgumentOver();
      break;
   case Conversion::decimal:
   case Conversion::hexLower:
   case Conversion::hexUpper:
      if( !Integer32< T > )
         formatArgumentMustBeIntegerOfAtMost32Bits();
      break;
   case Conversion::decimal64:
      if( !Unsigned64< T > )
         formatArgumentMustBe64BitUnsigned();
      break;
   case Conversion::text:
      if( !Text< T > && !Appendable< T > && !AppendableEnum< T > )
         formatArgumentHasNoText();
      break;
   }
}

/// Copying in blocks of this size may write as many bytes behind the text.
inline constexpr std::size_t slack = 32;

/// The bytes that one argument can need.
template < class T >
constexpr std::size_t bound( [[maybe_unused]] T const & argument ) noexcept {
   if constexpr( Text< T > )
      return std::string_view( argument ).size();
   else
      return 20;
}

inline char * putWithPercents( char * at, char const * literal, std::size_t length ) noexcept {
   for( std::size_t index = 0; index < length; ++index ) {
      *at++ = literal[index];
      index += literal[index] == '%';
   }
   return at;
}

/// A format's characters.
struct Source {
   char const * text;
   U16 length;

   /// Writes the literal text of one piece.
   [[gnu::always_inline]] char * put( char * at, Piece const & piece ) const noexcept {
      char const * const literal = text + piece.start;
      if( piece.hasPercents ) [[unlikely]]
         return putWithPercents( at, literal, piece.length );
      if( piece.length <= slack && piece.start + slack <= length ) [[likely]] {
         // A block of fixed size, all of it inside the format, is quicker than the exact length.
         std::memcpy( at, literal, slack );
      } else {
         std::memcpy( at, literal, piece.length );
      }
      return at + piece.length;
   }
};

// One piece and its number. Not inlined: a format of a dozen fields would take kilobytes of code
// to save a few nanoseconds.
[[gnu::noinline]] inline char * putNumber( char * at, Source source, Piece const & piece,
                                           U32 number ) noexcept {
   at = source.put( at, piece );
   if( piece.conversion != Conversion::decimal )
      return Orlo::putHex( at, number, piece.conversion == Conversion::hexUpper );
   if( number >= 0x80000000 ) {
      *at++ = '-';
      number = 0 - number;
   }
   return Orlo::putDecimal( at, number );
}

[[gnu::noinline]] inline char * putNumber( char * at, Source source, Piece const & piece,
                                           U64 number ) noexcept {
   return Orlo::putDecimal( source.put( at, piece ), number );
}

[[gnu::noinline]] inline char * putText( char * at, Source source, Piece const & piece,
                                         std::string_view text ) noexcept {
   at = source.put( at, piece );
   if( !text.empty() )
      std::memcpy( at, text.data(), text.size() );
   return at + text.size();
}

} // namespace FormatDetail

/// A format that fits arguments of the types Args, taken apart while compiling.
template < class... Args >
class FormatString {
 public:
   template < std::size_t size >
   consteval FormatString( char const ( &format )[size] )
      : source_{ format, static_cast< U16 >( size - 1 ) } {
      static_assert( size <= 0x10000 );
      using enum FormatDetail::Conversion;
      std::size_t count = 0;
      FormatDetail::Piece piece;
      std::size_t index = 0;
      while( index < size - 1 ) {
         if( format[index] != '%' ) {
            ++index;
            continue;
         }
         char const letter = format[index + 1];
         if( letter == '%' ) {
            piece.hasPercents = true;
            index += 2;
            continue;
         }
         piece.length = static_cast< U16 >( index - piece.start );
         index += 2;
         if( letter == 'd' ) {
            piece.conversion = decimal;
         } else if( letter == 'x' ) {
            piece.conversion = hexLower;
         } else if( letter == 'X' ) {
            piece.conversion = hexUpper;
         } else if( letter == 's' ) {
            piece.conversion = text;
         } else if( letter == 'l' && format[index] == 'u' ) {
            piece.conversion = decimal64;
            ++index;
         } else {
            FormatDetail::formatConversionUnknown();
         }
         if( count == sizeof...( Args ) )
            FormatDetail::formatNeedsAnotherArgument();
         pieces_[count++] = piece;
         piece = {};
         piece.start = static_cast< U16 >( index );
      }
      piece.length = static_cast< U16 >( index - piece.start );
      pieces_[count] = piece;
      std::size_t argument = 0;
      ( FormatDetail::checkArgument< Args >( pieces_[argument++].conversion ), ... );
   }

   /// Appends the text to `out`.
   [[gnu::always_inline]] void write( Orlo::StringBuilder & out,
                                      Args const &... arguments ) const noexcept {
      std::size_t needed = std::size_t{ source_.length } + FormatDetail::slack;
      ( ( needed += FormatDetail::bound( arguments ) ), ... );
      char * at = out.room( needed );
      FormatDetail::Piece const * piece = pieces_.data();
      ( ( at = putArgument( out, at, *piece++, needed, arguments ) ), ... );
      out.advanceTo( source_.put( at, *piece ) );
   }

 private:
   template < class T >
   [[gnu::always_inline]] char * putArgument( Orlo::StringBuilder & out, char * at,
                                              FormatDetail::Piece const & piece, std::size_t needed,
                                              T const & argument ) const noexcept {
      if constexpr( FormatDetail::Integer32< T > ) {
         // In hexadecimal a negative number has the digits of its own width only.
         U32 const number = piece.conversion == FormatDetail::Conversion::decimal
                               ? static_cast< U32 >( argument )
                               : static_cast< std::make_unsigned_t< T > >( argument );
         return FormatDetail::putNumber( at, source_, piece, number );
      } else if constexpr( FormatDetail::Unsigned64< T > ) {
         return FormatDetail::putNumber( at, source_, piece, U64{ argument } );
      } else if constexpr( FormatDetail::Text< T > ) {
         return FormatDetail::putText( at, source_, piece, argument );
      } else {
         out.advanceTo( source_.put( at, piece ) );
         appendText( out, argument );
         return out.room( needed );
      }
   }

   FormatDetail::Source source_;
   std::array< FormatDetail::Piece, sizeof...( Args ) + 1 > pieces_;
};

/// Appends formatted text to `out`.
template < class... Args >
[[gnu::always_inline]] inline void _fmtTo( Orlo::StringBuilder & out,
                                           FormatString< std::type_identity_t< Args >... > format,
                                           Args const &... arguments ) noexcept {
   format.write( out, arguments... );
}

/// Formatted text; one allocation at the most, unless an argument's text makes it outgrow the
/// builder's own bytes. Exhausted memory ends the process.
template < class... Args >
Orlo::String _fmt( FormatString< std::type_identity_t< Args >... > format,
                   Args const &... arguments ) noexcept {
   Orlo::StringBuilder out;
   format.write( out, arguments... );
   return std::move( out ).string();
}

} // namespace Kiv
