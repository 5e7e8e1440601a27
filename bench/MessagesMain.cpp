// Reads and writes the messages on both sides, for callgrind. What happens once only has happened
// before.
#include "bench/Messages.h"

#include <cstdio>

int main() {
   LspPing::LspPingMessageReader reader;
   Bench::ByHand found;
   std::array< U8, 1500 > place;
   U32 difference = 0;
   for( std::vector< U8 > const & message : Bench::replyMessages() )
      difference +=
         Bench::readThroughLibrary( reader, message ) - Bench::readByHand( found, message );
   for( Bench::Reply const & reply : Bench::replies() )
      difference += static_cast< U32 >( Bench::writeThroughLibrary( place, reply ) -
                                        Bench::writeByHand( place, reply ) );
   if( difference != 0 )
      std::fprintf( stderr, "messages: the two do not do the same\n" );
   return difference == 0 ? 0 : 1;
}
