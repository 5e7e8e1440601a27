// accepted
#include "tests/mustNotCompile/Probe.h"

namespace Probe {

template < class Value >
struct Shape : Other {
   Value const & value() const { return value_; }
   void valueIs( Value const & value ) { value_ = value; }

   Value value_{};
};

// Members of its own, of a base that is a template and of that one's base.
struct Mark : Shape< U16 > {
   Other * other() const { return nullptr; }
   void otherIs( Other * ) {}
   static U32 count( U32 less ) { return 7 - less; }
   static constexpr U32 limit = 9;

   static consteval auto kivAttributes() {
      return Kiv::attributesAfter< Other >(
         Kiv::field< &Mark::value, &Mark::valueIs >( "value" ),
         Kiv::field< &Mark::other, &Mark::otherIs >( "other" ),
         Kiv::guarded< &Mark::readable >( Kiv::storedReadOnly< &Mark::mark_ >( "stored" ) ),
         Kiv::operation< &Mark::count >( "count", "less" ),
         Kiv::constant< &Mark::limit, U32 >( "limit" ) );
   }
};

class Reader : public Orlo::Node {
 public:
   static consteval auto kivAttributes() { return Kiv::attributes(); }
   using KivForwardedFrom = Mark;
   static constexpr std::string_view kivForwarded = "mark, value, stored";
   static void * kivTarget( void * ) { return nullptr; }
};

static_assert( table< Other, Mark, Reader, Kiv::Kept< class Later > >.count == 4 );

} // namespace Probe
