// refused: a listed type is not defined where the module's table is built: include its header
// there, or list it as Kiv::Kept
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

static_assert( table< Other, class Mark >.count == 2 );

} // namespace Probe
