#pragma once

#include "MplsUtils/LspPing/platform/base/Export.h"

namespace Kiv {

/// Prints `file:line: function: assertion "condition" failed` on standard error and aborts.
[[noreturn]] LSPPING_PLATFORM_EXPORT void assertionFailed( char const * file, int line,
                                                           char const * function,
                                                           char const * condition ) noexcept;

} // namespace Kiv

/// A check of the caller's contract. It is never compiled out: a broken contract ends the process
/// with the condition as its text.
#define KIV_ASSERT( condition )                                                                    \
   ( ( condition )                                                                                 \
        ? static_cast< void >( 0 )                                                                 \
        : ::Kiv::assertionFailed( __FILE__, __LINE__, __PRETTY_FUNCTION__, #condition ) )
