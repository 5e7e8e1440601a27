// refused: formatConversionUnknown
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

Orlo::String text() {
   return Kiv::_fmt( "%ld", U64{ 1 } );
}
