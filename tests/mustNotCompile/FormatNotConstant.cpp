// refused: (not a constant expression|is not usable in a constant expression)
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

Orlo::String text( char const ( &format )[3] ) {
   return Kiv::_fmt( format, 1 );
}
