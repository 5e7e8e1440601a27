#include "MplsUtils/LspPing/platform/base/Assert.h"

#include <cstdio>
#include <cstdlib>

namespace Kiv {

void assertionFailed( char const * file, int line, char const * function,
                      char const * condition ) noexcept {
   static_cast< void >( std::fprintf( stderr, "%s:%d: %s: assertion \"%s\" failed\n", file, line,
                                      function, condition ) );
   std::abort();
}

} // namespace Kiv
