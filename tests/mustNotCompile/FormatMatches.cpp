// accepted
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

Orlo::String text() {
   return Kiv::_fmt( "%d %x %X %lu %s %%", 1, U8{ 2 }, U16{ 3 }, U64{ 4 }, "5" );
}
