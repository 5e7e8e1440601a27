// refused: a name stands twice among the attributes of a class and its bases
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

struct Mark : Other {
   static consteval auto kivAccessors() {
      return Kiv::attributes( Kiv::computed< &Other::mark >( "mark" ) );
   }
   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::stored< &Mark::mark_ >( "mark" ) );
   }
};

static_assert( table< Mark >.count == 1 );

} // namespace Probe
