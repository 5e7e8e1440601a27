#pragma once

#include <benchmark/benchmark.h>

#include <string>

namespace Bench {

/// Registers the two sides of one row of the table: what the library does and what it is compared
/// with. Both sides do the same work per iteration.
template < class Ours, class Peer >
int row( std::string const & name, Ours ours, Peer peer ) {
   benchmark::RegisterBenchmark( ( name + "/ours" ).c_str(), ours );
   benchmark::RegisterBenchmark( ( name + "/peer" ).c_str(), peer );
   return 0;
}

/// Runs `operation` once per iteration and keeps what it returns from being optimised away.
template < class Operation >
auto timed( Operation operation ) {
   return [operation]( benchmark::State & state ) {
      for( auto _ : state )
         benchmark::DoNotOptimize( operation() );
   };
}

} // namespace Bench
