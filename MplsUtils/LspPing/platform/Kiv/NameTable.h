#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Integers.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace Kiv {

// Up to eight bytes of a name as one word, the missing ones zero.
constexpr U64 nameWord( char const * bytes, std::size_t count ) noexcept {
   U64 word = 0;
   if( std::is_constant_evaluated() ) {
      for( std::size_t i = 0; i < count; ++i ) {
         std::size_t const place = std::endian::native == std::endian::little ? i : 7 - i;
         word |= U64{ static_cast< U8 >( bytes[i] ) } << ( 8 * place );
      }
   } else {
      std::memcpy( &word, bytes, count );
   }
   return word;
}

/// Hash of a name, the same at compile time and at run time of one machine; every byte counts.
constexpr U32 nameHash( std::string_view name ) noexcept {
   char const * bytes = name.data();
   std::size_t left = name.size();
   U64 sum = left;
   for( ; left > 8; left -= 8, bytes += 8 )
      sum = std::rotl( sum, 23 ) ^ nameWord( bytes, 8 );
   // A whole word that overlaps the one before is quicker to load than the odd bytes at the end.
   sum = std::rotl( sum, 23 ) ^
         ( name.size() >= 8 ? nameWord( bytes + left - 8, 8 ) : nameWord( bytes, left ) );
   return static_cast< U32 >( ( sum * 0x9e3779b97f4a7c15u ) >> 32 );
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
      if( number == noName || nameAt( number ) == name )
         return number;
   }
}

} // namespace Kiv
