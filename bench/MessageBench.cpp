#include "bench/Messages.h"
#include "bench/Rows.h"

#include <memory>

namespace {

template < auto read, class Reader >
auto reading() {
   return Bench::timed( [reader = std::make_shared< Reader >()] {
      U32 sum = 0;
      for( std::vector< U8 > const & message : Bench::replyMessages() )
         sum += read( *reader, message );
      return sum;
   } );
}

template < auto write >
std::size_t writing() {
   static std::array< U8, 1500 > place;
   std::size_t sum = 0;
   for( Bench::Reply const & reply : Bench::replies() ) {
      sum += write( place, reply );
      benchmark::ClobberMemory();
   }
   return sum;
}

int const reads =
   Bench::row( "messageRead", reading< Bench::readThroughLibrary, LspPing::LspPingMessageReader >(),
               reading< Bench::readByHand, Bench::ByHand >() );
int const writes =
   Bench::row( "messageWrite", Bench::timed( writing< Bench::writeThroughLibrary > ),
               Bench::timed( writing< Bench::writeByHand > ) );

} // namespace
