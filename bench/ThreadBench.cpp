// Rows that need a second thread. The process has had one before anything is measured, so the
// library counts atomically throughout.
#include "bench/Counted.h"
#include "bench/Rows.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"

#include <jemalloc/jemalloc.h>
#include <sys/single_threaded.h>

#include <cstdio>
#include <new>
#include <thread>

namespace {

using Atomic = boost::thread_safe_counter;

// jemalloc is linked into this program and asked in its own, quickest form. The live objects are
// counted per thread, so that the two threads share nothing.
class JemallocParser final : public Bench::CountedParser< Atomic > {
 public:
   using CountedParser::CountedParser;

   static void * operator new( std::size_t size ) {
      void * const place = mallocx( size, 0 );
      if( place == nullptr )
         throw std::bad_alloc();
      ++live_;
      return place;
   }
   static void operator delete( void * object, std::size_t size ) noexcept {
      --live_;
      sdallocx( object, size, 0 );
   }

 private:
   static thread_local U64 live_;
};

thread_local U64 JemallocParser::live_ = 0;

// Each thread has a packet of its own, as agents that serve different sessions have.
void createOurs( benchmark::State & state ) {
   auto const packet = Velnet::pktFactory( std::vector< U8 >( 64 ) );
   for( auto _ : state ) {
      auto const parser = LspPing::lspPingHdrParserFactory( packet, 8 );
      benchmark::DoNotOptimize( parser->header() );
   }
}

void createPeer( benchmark::State & state ) {
   JemallocParser::Packet const packet( new Bench::CountedPacket< Atomic > );
   for( auto _ : state ) {
      boost::intrusive_ptr< Bench::CountedParser< Atomic > > const parser(
         new JemallocParser( packet, 8 ) );
      benchmark::DoNotOptimize( parser->header() );
   }
}

void copyOurs( benchmark::State & state ) {
   auto const packet = Velnet::pktFactory( std::vector< U8 >( 64 ) );
   for( auto _ : state ) {
      Orlo::Ptr< Velnet::Pkt > const copy( packet ); // NOLINT: the copy is what is measured
      benchmark::DoNotOptimize( copy.get() );
      benchmark::ClobberMemory();
   }
}

void copyPeer( benchmark::State & state ) {
   JemallocParser::Packet const packet( new Bench::CountedPacket< Atomic > );
   for( auto _ : state ) {
      JemallocParser::Packet const copy( packet ); // NOLINT: the copy is what is measured
      benchmark::DoNotOptimize( copy.get() );
      benchmark::ClobberMemory();
   }
}

} // namespace

int main( int argc, char ** argv ) {
   benchmark::RegisterBenchmark( "parserTwoThreads/ours", createOurs )->Threads( 2 );
   benchmark::RegisterBenchmark( "parserTwoThreads/peer", createPeer )->Threads( 2 );
   Bench::row( "handleThreads", copyOurs, copyPeer );
   benchmark::Initialize( &argc, argv );
   std::thread( [] {} ).join();
   if( __libc_single_threaded != 0 ) {
      std::fprintf( stderr, "benchThreads: the process still counts as one thread\n" );
      return 1;
   }
   benchmark::RunSpecifiedBenchmarks();
   return 0;
}
