#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Seconds.h"
#include "MplsUtils/LspPing/platform/base/Export.h"

namespace Kiv {

/// What the process asks of the machine it runs on.
class System {
 public:
   /// A clock tells seconds since 1 January 1970 UTC. It may be read by several threads at once.
   using Clock = Seconds ( * )();

   /// Seconds since 1 January 1970 UTC.
   LSPPING_PLATFORM_EXPORT static Seconds currentTimeUtc();

   /// From now on all threads read this clock; none (nullptr) is the machine's own. Returns the
   /// clock that was read so far, so that a test can put it back.
   LSPPING_PLATFORM_EXPORT static Clock clockIs( Clock clock ) noexcept;
};

} // namespace Kiv
