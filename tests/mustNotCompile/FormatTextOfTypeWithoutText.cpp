// refused: formatArgumentHasNoText
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

struct Mute {};

Orlo::String text() {
   return Kiv::_fmt( "%s", Mute{} );
}
