#include "bench/HeaderReads.h"
#include "bench/Rows.h"

#include <vector>

namespace {

// A few kilobytes of headers, each at an odd address, so that nothing is known before it is read.
std::vector< U8 > const & headers() {
   static std::vector< U8 > const bytes = [] {
      std::vector< U8 > filled( 64 * 33 );
      U32 state = 1;
      for( U8 & byte : filled ) {
         state = state * 1664525 + 1013904223;
         byte = static_cast< U8 >( state >> 24 );
      }
      return filled;
   }();
   return bytes;
}

template < auto read >
U32 all() {
   U32 sum = 0;
   for( U8 const *at = headers().data(), *end = at + headers().size(); at != end; at += 33 )
      sum += read( at + 1 );
   return sum;
}

int const headerFields =
   Bench::row( "headerFields", Bench::timed( all< Bench::headerThroughView > ),
               Bench::timed( all< Bench::headerByHand > ) );

} // namespace
