// refused: formatLeavesAnArgumentOver
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

Orlo::String text() {
   return Kiv::_fmt( "%d", 1, 2 );
}
