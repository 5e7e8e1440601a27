// refused: formatArgumentMustBeIntegerOfAtMost32Bits
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

Orlo::String text() {
   return Kiv::_fmt( "%x", U64{ 1 } );
}
