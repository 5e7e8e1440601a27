#pragma once

#include "MplsUtils/LspPing/platform/base/Export.h"

#include <new>
#include <string_view>

namespace Kiv {

/// Ends the process when memory runs out where no exception can leave. It must not ask for memory.
using OutOfMemoryHandler = void ( * )( std::string_view what );

/// From here on that handler is asked first; null is none. For programs that end in a way of their
/// own.
LSPPING_PLATFORM_EXPORT void outOfMemoryHandlerIs( OutOfMemoryHandler handler ) noexcept;

/// Where no handler ends the process, prints `what: out of memory` on standard error, without
/// asking for memory, and aborts.
[[noreturn]] LSPPING_PLATFORM_EXPORT void outOfMemory( std::string_view what ) noexcept;

/// What `make` gives; memory that runs out in it ends the process.
template < class Make >
auto orOutOfMemory( std::string_view what, Make make ) noexcept {
   try {
      return make();
   } catch( std::bad_alloc const & ) {
      outOfMemory( what );
   }
}

} // namespace Kiv
