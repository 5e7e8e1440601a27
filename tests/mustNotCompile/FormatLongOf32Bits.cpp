// refused: formatArgumentMustBe64BitUnsigned
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

Orlo::String text() {
   return Kiv::_fmt( "%lu", U32{ 1 } );
}
