// refused: a setter takes one argument, of the type that the getter gives
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

struct Mark {
   U32 mark() const { return mark_; }
   void markIs( U16 mark ) { mark_ = mark; }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::field< &Mark::mark, &Mark::markIs >( "mark" ) );
   }

   U32 mark_ = 0;
};

} // namespace Probe
