#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace Orlo {

/// "00", "01", … "99" one after the other.
inline constexpr std::array< char, 200 > twoDigits = [] {
   std::array< char, 200 > digits{};
   for( std::size_t number = 0; number < 100; ++number ) {
      digits[2 * number] = static_cast< char >( '0' + number / 10 );
      digits[2 * number + 1] = static_cast< char >( '0' + number % 10 );
   }
   return digits;
}();

/// Writes a number below 100 as two digits.
inline void putPair( char * at, std::size_t number ) noexcept {
   std::memcpy( at, &twoDigits[2 * number], 2 );
}

constexpr unsigned decimalDigits( U32 number ) noexcept {
   unsigned digits = 1;
   for( ; number >= 10'000; number /= 10'000 )
      digits += 4;
   return digits + ( number >= 10 ) + ( number >= 100 ) + ( number >= 1'000 );
}

/// Writes exactly `digits` digits, leading zeros included, at `at`; returns their end.
inline char * putDigits( char * at, U32 number, unsigned digits ) noexcept {
   char * const end = at + digits;
   char * place = end;
   while( number >= 100 ) {
      place -= 2;
      putPair( place, number % 100 );
      number /= 100;
   }
   if( number >= 10 ) {
      place -= 2;
      putPair( place, number );
   } else if( place != at ) {
      *--place = static_cast< char >( '0' + number );
   }
   while( place != at )
      *--place = '0';
   return end;
}

/// Writes at most 10 characters at `at`; returns the end of what was written.
inline char * putDecimal( char * at, U32 number ) noexcept {
   if( number < 10 ) {
      *at = static_cast< char >( '0' + number );
      return at + 1;
   }
   return putDigits( at, number, decimalDigits( number ) );
}

/// As above with at most 20 characters.
inline char * putDecimal( char * at, U64 number ) noexcept {
   constexpr U64 tenToNinth = 1'000'000'000;
   if( number <= 0xFFFFFFFF )
      return putDecimal( at, static_cast< U32 >( number ) );
   U64 const high = number / tenToNinth;
   U32 const low = static_cast< U32 >( number % tenToNinth );
   return putDigits( putDecimal( at, high ), low, 9 );
}

/// Writes up to 8 hexadecimal digits without leading zeros. All 8 bytes at `at` are overwritten,
/// whatever the number; returns the end of the digits.
inline char * putHex( char * at, U32 number, bool upperCase ) noexcept {
   unsigned const digits = ( 35U - static_cast< unsigned >( std::countl_zero( number | 1 ) ) ) / 4;
   // One nibble to a byte, the most significant digit at the lowest address.
   U64 word = number << ( 4 * ( 8 - digits ) );
   word = ( word << 16 | word ) & 0x0000FFFF0000FFFF;
   word = ( word << 8 | word ) & 0x00FF00FF00FF00FF;
   word = ( word << 4 | word ) & 0x0F0F0F0F0F0F0F0F;
   U64 const letters = ( word + 0x0606060606060606 ) >> 4 & 0x0101010101010101;
   word += 0x3030303030303030 + letters * ( upperCase ? 'A' - '9' - 1 : 'a' - '9' - 1 );
   if constexpr( std::endian::native == std::endian::little )
      word = __builtin_bswap64( word );
   std::memcpy( at, &word, sizeof word );
   return at + digits;
}

/// Writes two digits at `at`; returns their end.
constexpr char * putHexByte( char * at, U8 byte, bool upperCase = false ) noexcept {
   char const * const digits = upperCase ? "0123456789ABCDEF" : "0123456789abcdef";
   *at++ = digits[byte >> 4];
   *at++ = digits[byte & 15];
   return at;
}

/// The value of a hexadecimal digit, 16 for any other character.
constexpr U8 hexDigitValue( char character ) noexcept {
   if( character >= '0' && character <= '9' )
      return static_cast< U8 >( character - '0' );
   char const lower = static_cast< char >( character | 0x20 );
   return static_cast< U8 >( lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 16 );
}

} // namespace Orlo
