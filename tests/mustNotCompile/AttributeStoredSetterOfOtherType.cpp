// refused: a setter takes one argument, of the type that the getter gives
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

struct Mark {
   U16 mark() const { return 0; }
   void markIs( U32 const & mark ) { mark_ = mark; }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::storedField< &Mark::mark, &Mark::markIs >( "mark" ) );
   }

   U32 mark_ = 0;
};

} // namespace Probe
