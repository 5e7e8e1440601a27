#include "MplsUtils/LspPing/platform/Kiv/System.h"

#include <atomic>
#include <chrono>

namespace Kiv {

namespace {

constinit std::atomic< System::Clock > readClock{ nullptr };

} // namespace

Seconds System::currentTimeUtc() {
   if( Clock const clock = readClock.load( std::memory_order_acquire ) )
      return clock();
   return std::chrono::duration< Seconds >( std::chrono::system_clock::now().time_since_epoch() )
      .count();
}

System::Clock System::clockIs( Clock clock ) noexcept {
   return readClock.exchange( clock, std::memory_order_acq_rel );
}

} // namespace Kiv
