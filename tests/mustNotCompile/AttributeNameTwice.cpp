// refused: a name stands twice among the attributes of a class and its bases
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

struct Mark : Other {
   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::computed< &Mark::mark >( "mark" ),
                              Kiv::computed< &Mark::readable >( "readable" ),
                              Kiv::stored< &Mark::mark_ >( "mark" ) );
   }
};

static_assert( table< Mark >.count == 1 );

} // namespace Probe
