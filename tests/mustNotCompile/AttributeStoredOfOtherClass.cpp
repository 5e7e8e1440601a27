// refused: an attribute is made of a member of a class that is neither its own nor a base of it
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

struct Mark {
   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::stored< &Other::mark_ >( "mark" ) );
   }
};

static_assert( table< Mark >.count == 1 );

} // namespace Probe
