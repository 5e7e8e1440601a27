#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <bit>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Bytes written by hand, and as text.

using Bytes = std::vector< U8 >;

inline Bytes operator+( Bytes left, Bytes const & right ) {
   left.insert( left.end(), right.begin(), right.end() );
   return left;
}

/// Both bytes of a value in network byte order.
inline Bytes word( std::size_t value ) {
   return { static_cast< U8 >( value >> 8 ), static_cast< U8 >( value ) };
}

/// "00 0f 2a" as three bytes; where the blanks stand is for the reader.
inline Bytes bytesOf( std::string_view hex ) {
   Bytes bytes;
   bool isSecond = false;
   for( char const c : hex ) {
      if( c == ' ' )
         continue;
      std::size_t const digit = std::string_view( "0123456789abcdef" ).find( c );
      if( digit == std::string_view::npos )
         throw std::invalid_argument( "no hexadecimal digit: " + std::string( hex ) );
      if( isSecond )
         bytes.back() = static_cast< U8 >( bytes.back() * 16 + digit );
      else
         bytes.push_back( static_cast< U8 >( digit ) );
      isSecond = !isSecond;
   }
   if( isSecond )
      throw std::invalid_argument( "half a byte: " + std::string( hex ) );
   return bytes;
}

/// With a blank between groups of bytes: 1 as in a dump, 4 as the words stand in the pictures.
inline std::string hexOf( std::span< U8 const > bytes, std::size_t group = 1 ) {
   constexpr std::string_view digits = "0123456789abcdef";
   std::string text;
   for( std::size_t i = 0; i < bytes.size(); ++i ) {
      if( i > 0 && i % group == 0 )
         text += ' ';
      text += digits[bytes[i] >> 4];
      text += digits[bytes[i] & 15];
   }
   return text;
}

/// Two bytes as a field gives them that is copied as stored.
inline U16 asStored( U8 first, U8 second ) {
   return std::bit_cast< U16 >( std::array< U8, 2 >{ first, second } );
}
