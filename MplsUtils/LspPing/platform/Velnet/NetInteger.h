#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <bit>
#include <compare>
#include <type_traits>

namespace Velnet {

/// An unsigned integer as it lies in a packet: big-endian, at any address. Its text is the host's
/// number in decimal.
template < class T >
class NetInteger {
   static_assert( std::is_same_v< T, U16 > || std::is_same_v< T, U32 > ||
                  std::is_same_v< T, U64 > );

 public:
   constexpr NetInteger() noexcept = default;
   constexpr explicit NetInteger( T value ) noexcept { valueIs( value ); }

   /// The number in host order.
   constexpr T value() const noexcept { return swapped( raw() ); }
   constexpr void valueIs( T value ) noexcept { rawIs( swapped( value ) ); }

   /// The stored bytes, bit for bit, as the host reads them.
   constexpr T raw() const noexcept { return std::bit_cast< T >( bytes_ ); }
   constexpr void rawIs( T raw ) noexcept { bytes_ = std::bit_cast< Bytes >( raw ); }

   /// A hash of the stored word: no two numbers have the same, and of a word of up to 32 bits each
   /// bit reaches the low bits of the hash.
   constexpr U64 hash() const noexcept {
      U64 const product = raw() * U64{ 0x9E3779B97F4A7C15 };
      return product ^ product >> 32;
   }

   constexpr bool operator==( NetInteger const & other ) const noexcept {
      return raw() == other.raw();
   }
   /// By host value.
   constexpr std::strong_ordering operator<=>( NetInteger const & other ) const noexcept {
      return value() <=> other.value();
   }

 private:
   using Bytes = std::array< U8, sizeof( T ) >;

   static constexpr T swapped( T number ) noexcept {
      if constexpr( std::endian::native == std::endian::big )
         return number;
      else if constexpr( sizeof( T ) == 2 )
         return __builtin_bswap16( number );
      else if constexpr( sizeof( T ) == 4 )
         return __builtin_bswap32( number );
      else
         return __builtin_bswap64( number );
   }

   Bytes bytes_{};
};

using NetU16 = NetInteger< U16 >;
using NetU32 = NetInteger< U32 >;
using NetU64 = NetInteger< U64 >;

static_assert( sizeof( NetU16 ) == 2 && alignof( NetU16 ) == 1 );
static_assert( sizeof( NetU32 ) == 4 && alignof( NetU32 ) == 1 );
static_assert( sizeof( NetU64 ) == 8 && alignof( NetU64 ) == 1 );
static_assert( std::is_trivially_copyable_v< NetU16 > && std::is_trivially_copyable_v< NetU32 > &&
               std::is_trivially_copyable_v< NetU64 > );

template < class T >
void appendText( Orlo::StringBuilder & out, NetInteger< T > const & number ) noexcept {
   out.appendDecimal( number.value() );
}

/// Raises `Kiv::RangeException` and leaves the number alone if there is none that fits.
template < class T >
void sequenceToValue( Kiv::CharRange & text, NetInteger< T > * number ) {
   T value = 0;
   Kiv::sequenceToValue( text, &value );
   number->valueIs( value );
}

} // namespace Velnet
