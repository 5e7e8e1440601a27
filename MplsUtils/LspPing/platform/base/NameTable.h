#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

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

template < class Word >
constexpr U64 nameDifference( std::string_view a, std::string_view b, std::size_t at ) noexcept {
   return nameWord< Word >( a.data() + at ) ^ nameWord< Word >( b.data() + at );
}

/// Equality of names. A call of memcmp would take longer than the comparison, which takes the names
/// by words from both ends on; in the middle the words overlap.
constexpr bool sameName( std::string_view a, std::string_view b ) noexcept {
   std::size_t const size = a.size();
   if( size != b.size() )
      return false;
   U64 difference = 0;
   if( size >= 8 ) {
      std::size_t const last = size - 8;
      difference = nameDifference< U64 >( a, b, 0 ) | nameDifference< U64 >( a, b, last );
      if( size > 16 ) {
         difference |= nameDifference< U64 >( a, b, 8 ) | nameDifference< U64 >( a, b, last - 8 );
         for( std::size_t at = 16; at + 16 < size; at += 8 )
            difference |= nameDifference< U64 >( a, b, at );
      }
   } else if( size >= 4 ) {
      difference = nameDifference< U32 >( a, b, 0 ) | nameDifference< U32 >( a, b, size - 4 );
   } else if( size > 0 ) {
      difference = nameDifference< U8 >( a, b, 0 ) | nameDifference< U8 >( a, b, size / 2 ) |
                   nameDifference< U8 >( a, b, size - 1 );
   }
   return difference == 0;
}

constexpr std::size_t nameSlotCount( std::size_t names ) noexcept {
   return std::bit_ceil( 4 * names + 1 );
}

inline constexpr U8 noName = 0xff;

/// A place in a table of names: the number of a name, or `noName`, and eight bits of its hash, so
/// that other names are hardly ever compared.
struct NameSlot {
   U8 number = noName;
   U8 tag = 0;
};

constexpr U8 nameTag( U32 hash ) noexcept {
   return static_cast< U8 >( hash >> 24 );
}

/// Builds the slots of a table of names; a name stands at its hash or in the next free slot.
/// `nameAt( i )` gives the name of number i; an empty one is left out.
template < std::size_t names, class NameAt >
constexpr auto nameSlots( NameAt nameAt ) {
   static_assert( names < noName, "the numbers of names are kept in one byte each" );
   std::array< NameSlot, nameSlotCount( names ) > slots{};
   for( std::size_t i = 0; i < names; ++i ) {
      if( nameAt( i ).empty() )
         continue;
      U32 const hash = nameHash( nameAt( i ) );
      std::size_t at = hash % slots.size();
      while( slots[at].number != noName )
         at = ( at + 1 ) % slots.size();
      slots[at] = { static_cast< U8 >( i ), nameTag( hash ) };
   }
   return slots;
}

/// The number of `name`, or `noName`. `mask` is the count of slots less one.
template < class NameAt >
constexpr U8 findName( NameSlot const * slots, U32 mask, U32 hash, std::string_view name,
                       NameAt nameAt ) noexcept {
   for( U32 at = hash & mask;; at = ( at + 1 ) & mask ) {
      NameSlot const slot = slots[at];
      if( slot.number == noName ||
          ( slot.tag == nameTag( hash ) && sameName( nameAt( slot.number ), name ) ) )
         return slot.number;
   }
}

} // namespace Kiv
