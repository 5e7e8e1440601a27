// Calls each of the two functions once, over the same 32 bytes at an odd address, for callgrind.
#include "bench/HeaderReads.h"

#include <array>
#include <cstdio>

int main() {
   std::array< U8, 33 > bytes{};
   for( std::size_t i = 0; i < bytes.size(); ++i )
      bytes[i] = static_cast< U8 >( 7 * i );
   U32 const throughView = Bench::headerThroughView( bytes.data() + 1 );
   U32 const byHand = Bench::headerByHand( bytes.data() + 1 );
   if( throughView != byHand ) {
      std::fprintf( stderr, "headerReads: the two do not read the same\n" );
      return 1;
   }
   return 0;
}
