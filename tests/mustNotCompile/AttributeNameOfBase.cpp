// refused: a name stands twice among the attributes of a class and its bases
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

struct Middle : Other {
   static consteval auto kivAttributes() {
      return Kiv::attributesAfter< Other >( Kiv::computed< &Middle::readable >( "readable" ) );
   }
};

struct Mark : Middle {
   static consteval auto kivAttributes() {
      return Kiv::attributesAfter< Middle >( Kiv::stored< &Mark::mark_ >( "mark" ) );
   }
};

static_assert( table< Middle, Mark >.count == 2 );

} // namespace Probe
