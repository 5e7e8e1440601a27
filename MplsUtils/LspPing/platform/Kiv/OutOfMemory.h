#pragma once

#include "MplsUtils/LspPing/platform/Export.h"

#include <new>
#include <string_view>

namespace Kiv {

/// Prints `what: out of memory` on standard error, without asking for memory, and aborts.
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
