#include "bench/Counted.h"
#include "bench/Rows.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"

#include <boost/pool/pool.hpp>

#include <new>

namespace {

using Plain = boost::thread_unsafe_counter;

// The pool and the count of live objects belong to the class, as the library's slab and tracker do.
class PooledParser final : public Bench::CountedParser< Plain > {
 public:
   using CountedParser::CountedParser;

   static void * operator new( std::size_t ) {
      void * const place = pool_.malloc();
      if( place == nullptr )
         throw std::bad_alloc();
      ++live_;
      return place;
   }
   static void operator delete( void * object ) noexcept {
      --live_;
      pool_.free( object );
   }

 private:
   static boost::pool<> pool_;
   static U64 live_;
};

boost::pool<> PooledParser::pool_( sizeof( PooledParser ) );
U64 PooledParser::live_ = 0;

Orlo::Ptr< Velnet::Pkt > const & packet() {
   static Orlo::Ptr< Velnet::Pkt > const held = Velnet::pktFactory( std::vector< U8 >( 64 ) );
   return held;
}

PooledParser::Packet const & comparedPacket() {
   static PooledParser::Packet const held( new Bench::CountedPacket< Plain > );
   return held;
}

void createOurs( benchmark::State & state ) {
   Orlo::Ptr< Velnet::Pkt > const & held = packet();
   for( auto _ : state ) {
      auto const parser = LspPing::lspPingHdrParserFactory( held, 8 );
      benchmark::DoNotOptimize( parser->header() );
   }
}

void createPeer( benchmark::State & state ) {
   PooledParser::Packet const & held = comparedPacket();
   for( auto _ : state ) {
      boost::intrusive_ptr< Bench::CountedParser< Plain > > const parser(
         new PooledParser( held, 8 ) );
      benchmark::DoNotOptimize( parser->header() );
   }
}

int const create = Bench::row( "parser", createOurs, createPeer );

void copyOurs( benchmark::State & state ) {
   Orlo::Ptr< Velnet::Pkt > const & held = packet();
   for( auto _ : state ) {
      Orlo::Ptr< Velnet::Pkt > const copy( held ); // NOLINT: the copy is what is measured
      benchmark::DoNotOptimize( copy.get() );
      benchmark::ClobberMemory();
   }
}

void copyPeer( benchmark::State & state ) {
   PooledParser::Packet const & held = comparedPacket();
   for( auto _ : state ) {
      PooledParser::Packet const copy( held ); // NOLINT: the copy is what is measured
      benchmark::DoNotOptimize( copy.get() );
      benchmark::ClobberMemory();
   }
}

int const copy = Bench::row( "handle", copyOurs, copyPeer );

} // namespace
