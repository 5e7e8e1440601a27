// refused: a listed class forwards the attributes of a class that is not defined where the module's
// table is built: include its header there, or list the one that forwards as Kiv::Kept
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

class Mark;

class Reader : public Orlo::Node {
 public:
   Mark * mark() const { return nullptr; }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::computed< &Reader::mark >( "header" ) );
   }
   using KivForwardedFrom = Mark;
   static constexpr std::string_view kivForwarded = "mark";
   static void * kivTarget( void * ) { return nullptr; }
};

static_assert( table< Reader >.count == 1 );

} // namespace Probe
