#include "bench/Rows.h"
#include "bench/Walk.h"

#include <cstdlib>
#include <initializer_list>
#include <vector>

namespace {

using Message = std::vector< U8 >;

void append( Message & message, U16 type, std::size_t length ) {
   for( std::size_t const half : { std::size_t{ type }, length } ) {
      message.push_back( static_cast< U8 >( half >> 8 ) );
      message.push_back( static_cast< U8 >( half ) );
   }
   message.resize( message.size() + ( ( length + 3 ) & ~std::size_t{ 3 } ) );
}

// A TLV of `fixed` bytes and then sub-TLVs of the given lengths, whose types are 1, 2, …
void append( Message & message, U16 type, std::size_t fixed,
             std::initializer_list< std::size_t > lengths ) {
   std::size_t const start = message.size();
   append( message, type, fixed );
   U16 subType = 1;
   for( std::size_t const length : lengths )
      append( message, subType++, length );
   std::size_t const length = message.size() - start - 4;
   message[start + 2] = static_cast< U8 >( length >> 8 );
   message[start + 3] = static_cast< U8 >( length );
   if( type == 20 )
      message[start + 6] = 1;
}

// Messages of several shapes in turn, so that the branches are not learnt by heart.
std::vector< Message > const & messages() {
   static std::vector< Message > const all = [] {
      std::vector< Message > made( 61, Message( 32 ) );
      for( std::size_t i = 0; i < made.size(); ++i ) {
         append( made[i], 1, 0, { 5 } );
         if( i % 2 != 0 )
            append( made[i], 1, 0, { 5, 20, 17 } );
         if( i % 3 != 0 )
            append( made[i], 20, 16, { 8, 8, 12 } );
         if( i % 5 != 0 )
            append( made[i], 3, i );
         append( made[i], 10, 4 );
         if( i % 7 == 0 )
            made[i].pop_back();
         if( Bench::walkThroughViews( made[i].data(), made[i].size() ) !=
             Bench::walkByHand( made[i].data(), made[i].size() ) )
            std::abort();
      }
      return made;
   }();
   return all;
}

template < auto walk >
U32 all() {
   U32 sum = 0;
   for( Message const & message : messages() ) {
      Bench::Met const met = walk( message.data(), message.size() );
      sum += met.elements + met.types + met.problems;
   }
   return sum;
}

int const walks = Bench::row( "walk", Bench::timed( all< Bench::walkThroughViews > ),
                              Bench::timed( all< Bench::walkByHand > ) );

} // namespace
