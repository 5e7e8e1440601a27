// refused: formatNeedsAnotherArgument
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

Orlo::String text() {
   return Kiv::_fmt( "%d of %d", 1 );
}
