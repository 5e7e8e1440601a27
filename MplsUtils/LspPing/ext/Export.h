#pragma once

#include "MplsUtils/LspPing/types/Export.h"

// What `libLspPingExt.so` offers to others.
#define LSPPING_EXT_EXPORT __attribute__( ( visibility( "default" ) ) )

namespace LspPing {

// As `lspPingLinked`: what includes a header of this library keeps it linked, although its types
// may be reached by name alone.
extern LSPPING_EXT_EXPORT char const lspPingExtLinked;
#ifndef LspPingExt_EXPORTS // the library's own objects
[[gnu::used, gnu::retain,
  gnu::visibility( "hidden" )]] inline constexpr char const * lspPingExtReference =
   &lspPingExtLinked;
#endif

} // namespace LspPing
