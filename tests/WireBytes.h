#pragma once

#include "tests/Bytes.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>

/// Bytes of an element at an odd address. They end where their heap block ends, so that a sanitizer
/// sees the first access too far.
class WireBytes {
 public:
   explicit WireBytes( std::span< U8 const > bytes ) : WireBytes( bytes.size(), 0 ) {
      std::copy( bytes.begin(), bytes.end(), data() );
   }
   /// "00 14 00 10"
   explicit WireBytes( std::string_view hex ) : WireBytes( bytesOf( hex ) ) {}
   WireBytes( std::size_t size, U8 fill ) : size_( size ), block_( filled( size + 1, fill ) ) {}

   U8 * data() const noexcept { return block_.get() + 1; }
   U32 size() const noexcept { return static_cast< U32 >( size_ ); }
   std::span< U8 > bytes() const noexcept { return { data(), size_ }; }
   Bytes copy() const { return { data(), data() + size_ }; }
   std::string hex( std::size_t group = 1 ) const { return hexOf( bytes(), group ); }

   /// The view over the first bytes. Views have no alignment, and that they fit is looked at here.
   template < class View >
   View & as() const {
      if( sizeof( View ) > size_ )
         throw std::length_error( "too few bytes for the view" );
      return *reinterpret_cast< View * >( data() );
   }

 private:
   // Not inlined: g++ would warn of sizes that it thinks possible where it sees none.
   [[gnu::noinline]] static std::unique_ptr< U8[] > filled( std::size_t size, U8 fill ) {
      auto block = std::make_unique< U8[] >( size );
      std::fill_n( block.get(), size, fill );
      return block;
   }

   std::size_t size_;
   std::unique_ptr< U8[] > block_;
};

/// What the bytes around a field are filled with when they should not matter.
inline constexpr std::array< U8, 3 > someFills{ 0x00, 0xa5, 0xff };

/// What `change` makes of a view's bytes that were all 0xa5 before.
template < class View, class Change >
std::string hexAfter( Change change ) {
   WireBytes bytes( sizeof( View ), 0xa5 );
   change( bytes.as< View >() );
   return bytes.hex();
}

/// The bytes of a view that is constructed on its own, where 0xa5 stood before.
template < class View >
std::string hexOfNew( std::size_t group = 1 ) {
   WireBytes bytes( sizeof( View ), 0xa5 );
   ::new( static_cast< void * >( bytes.data() ) ) View;
   return bytes.hex( group );
}

/// In how many cases `valid()` and the expectation differ: every type at some lengths, and every
/// length at some types. The other bytes stay as they are.
template < class View, class Expected >
U32 validityMismatches( WireBytes & bytes, Expected expected ) {
   auto & view = bytes.as< View >();
   U32 mismatches = 0;
   auto const compare = [&]( unsigned type, unsigned length ) {
      view.typeIs( static_cast< U16 >( type ) );
      view.lengthIs( static_cast< U16 >( length ) );
      mismatches += view.valid() != expected( type, length ) ? 1u : 0u;
   };
   for( unsigned number = 0; number < 65536; ++number ) {
      for( unsigned length : { 0u, 3u, 4u, 5u, 8u, 16u, 0x0400u, 65535u } )
         compare( number, length );
      for( unsigned type : { 0u, 1u, 3u, 10u, 12u, 20u, 65261u, 0x0100u, 0x1400u } )
         compare( type, number );
   }
   return mismatches;
}
