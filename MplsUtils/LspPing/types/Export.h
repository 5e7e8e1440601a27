#pragma once

// What the library exports from its shared object; everything else stays hidden.
#define LSPPING_EXPORT __attribute__( ( visibility( "default" ) ) )

namespace LspPing {

// Types that are reached by name alone leave no symbol behind, and a linker drops a library of
// which it needs none. So every object that includes a header of the library refers to it.
extern LSPPING_EXPORT char const lspPingLinked;
#ifndef LspPing_EXPORTS // the library's own objects
[[gnu::used, gnu::retain,
  gnu::visibility( "hidden" )]] inline constexpr char const * lspPingReference = &lspPingLinked;
#endif

} // namespace LspPing
