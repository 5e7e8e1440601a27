#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Integers.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace Kiv {

// Bytes of a name as one word, the same at compile time and at run time of one machine.
template < class Word >
constexpr U64 nameWord( char const * bytes ) noexcept {
   Word word = 0;
   if( std::is_constant_evaluated() ) {
      for( std::size_t i = 0; i < sizeof word; ++i ) {
         std::size_t const place =
            std::endian::native == std::endian::little ? i : sizeof word - 1 - i;
         word =
            static_cast< Word >( word | Word{ static_cast< U8 >( bytes[i] ) } << ( 8 * place ) );
      }
   } else {
      std::memcpy( &word, bytes, sizeof word );
   }
   return word;
}

/// Hash of a name: its length and three words of it. Names of one table differ in their second
/// half, if anywhere, so the words lie in the middle, behind it and at the end; that they do not
/// cover long names costs one more comparison at the worst.
constexpr U32 nameHash( std::string_view name ) noexcept {
   char const * const bytes = name.data();
   std::size_t const size = name.size();
   U64 sum = size;
   if( size >= 8 ) {
      std::size_t const last = size - 8;
      sum ^= std::rotl( nameWord< U64 >( bytes + last / 2 ), 23 ) ^
             std::rotl( nameWord< U64 >( bytes + last - last / 4 ), 46 ) ^
             nameWord< U64 >( bytes + last );
   } else if( size >= 4 ) {
      sum ^= nameWord< U32 >( bytes ) << 32 ^ nameWord< U32 >( bytes + size - 4 );
   } else if( size > 0 ) {
      sum ^= nameWord< U8 >( bytes ) << 24 ^ nameWord< U8 >( bytes + size / 2 ) << 16 ^
             nameWord< U8 >( bytes + size - 1 ) << 8;
   }
   return static_cast< U32 >( ( sum * 0x9e3779b97f4a7c15u ) >> 32 );
}

/// Equality of names. They are short, and a call of memcmp would take longer than the comparison.
constexpr bool sameName( std::string_view a, std::string_view b ) noexcept {
   std::size_t const size = a.size();
   if( size != b.size() )
      return false;
   if( size < 8 || std::is_constant_evaluated() )
      return a == b;
   std::size_t const last = size - 8;
   for( std::size_t at = 0; at < last; at += 8 ) {
      if( nameWord< U64 >( a.data() + at ) != nameWord< U64 >( b.data() + at ) )
         return false;
   }
   return nameWord< U64 >( a.data() + last ) == nameWord< U64 >( b.data() + last );
}

constexpr std::size_t nameSlotCount( std::size_t names ) noexcept {
   return std::bit_ceil( 2 * names + 1 );
}

inline constexpr U8 noName = 0xff;

/// Builds the slots of a table of names: each slot holds the number of a name or `noName`, a name
/// stands at its hash or in the next free slot. `nameAt( i )` gives the name of number i; an empty
/// one is left out.
template < std::size_t names, class NameAt >
constexpr auto nameSlots( NameAt nameAt ) {
   static_assert( names < noName, "the numbers of names are kept in one byte each" );
   std::array< U8, nameSlotCount( names ) > slots{};
   slots.fill( noName );
   for( std::size_t i = 0; i < names; ++i ) {
      if( nameAt( i ).empty() )
         continue;
      std::size_t at = nameHash( nameAt( i ) ) % slots.size();
      while( slots[at] != noName )
         at = ( at + 1 ) % slots.size();
      slots[at] = static_cast< U8 >( i );
   }
   return slots;
}

/// The number of `name`, or `noName`. `mask` is the count of slots less one.
template < class NameAt >
constexpr U8 findName( U8 const * slots, U32 mask, U32 hash, std::string_view name,
                       NameAt nameAt ) noexcept {
   for( U32 at = hash & mask;; at = ( at + 1 ) & mask ) {
      U8 const number = slots[at];
      if( number == noName || sameName( nameAt( number ), name ) )
         return number;
   }
}

} // namespace Kiv
