// refused: a name stands twice among the attributes of a class and its bases
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

class Reader : public Orlo::Node {
 public:
   U32 mark() const { return 0; }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::computed< &Reader::mark >( "mark" ) );
   }
   using KivForwardedFrom = Other;
   static constexpr std::string_view kivForwarded = "mark";
   static void * kivTarget( void * ) { return nullptr; }
};

static_assert( table< Other, Reader >.count == 2 );

} // namespace Probe
