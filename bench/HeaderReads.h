#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

namespace Bench {

/// The twelve fields of the echo header at `bytes`, folded into one number.
U32 headerThroughView( U8 const * bytes );
/// The same as written by hand: copy and swap.
U32 headerByHand( U8 const * bytes );

} // namespace Bench
