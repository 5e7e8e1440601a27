#include "tests/module/Orchard.h"

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Module.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

namespace Orchard {

namespace {

constexpr Kiv::ModuleTable table = Kiv::Module< ModuleTypes, moduleNumber >::table( "Orchard" );

} // namespace

void registerModule() {
   [[maybe_unused]] static bool const once = ( Kiv::kivModuleIs( table ), true );
}

Weight::Weight( Kiv::CharRange & in ) {
   KivOrlo::parseAttributes( in, Kiv::typeOf< Weight >(), this );
}

U8 Basket::heaviest() const {
   U8 key = 0;
   U32 grams = 0;
   for( auto i = weights_.iterator(); i.nonnull(); i.advance() ) {
      if( i.value().grams() > grams ) {
         grams = i.value().grams();
         key = i.key();
      }
   }
   return key;
}

Kiv::TypeRef Farm::typeData() const {
   return Kiv::typeOf< Farm >();
}

void Farm::neighbourIs( Orlo::Ptr< Orlo::Node > const & farm ) {
   neighbour_ = Orlo::Ptr< Farm >( static_cast< Farm * >( farm.get() ) );
}

U32 Farm::plant( U32 more, Orlo::String const & what ) {
   trees_ += what == "apple" ? 2 * more : more;
   return trees_;
}

Kiv::TypeRef FarmReader::typeData() const {
   return Kiv::typeOf< FarmReader >();
}

} // namespace Orchard
