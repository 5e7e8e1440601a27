// refused: an attribute is made of a member of a class that is neither its own nor a base of it
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

struct Mark {
   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::computed< &Other::mark >( "mark" ) );
   }
};

class Reader : public Orlo::Node {
 public:
   static consteval auto kivAttributes() { return Kiv::attributes(); }
   using KivForwardedFrom = Mark;
   static constexpr std::string_view kivForwarded = "mark";
   static void * kivTarget( void * ) { return nullptr; }
};

static_assert( table< Reader >.count == 1 );

} // namespace Probe
