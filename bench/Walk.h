#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <cstddef>

namespace Bench {

/// What a walk over one message's TLVs and sub-TLVs has met.
struct Met {
   U32 elements = 0;
   U32 types = 0;    ///< sum of the types
   U32 problems = 0; ///< elements that are longer than what they are in

   friend bool operator==( Met const &, Met const & ) = default;
};

/// Through the library's views, each element checked against the bytes left.
Met walkThroughViews( U8 const * bytes, std::size_t size );
/// The same with pointers, as written by hand.
Met walkByHand( U8 const * bytes, std::size_t size );

} // namespace Bench
