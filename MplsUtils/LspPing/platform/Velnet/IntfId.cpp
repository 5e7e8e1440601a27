#include "MplsUtils/LspPing/platform/Velnet/IntfId.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"
#include "MplsUtils/LspPing/platform/Velnet/NoneText.h"

#include <charconv>
#include <string>

namespace Velnet {

IntfId::IntfId( std::string_view name ) {
   if( name.empty() )
      return;
   char const * const end = name.data() + name.size();
   auto const [behind, error] = std::from_chars( name.data(), end, value_ );
   if( error != std::errc{} || behind != end ) {
      throw Kiv::RangeException{ "Velnet::IntfId", "expected the number of an interface, found " +
                                                      Kiv::quoted( name ) };
   }
}

Orlo::String IntfId::stringValue() const {
   return value_ == none ? "none" : std::to_string( value_ );
}

void appendText( Orlo::StringBuilder & out, IntfId const & id ) noexcept {
   if( id.value() == IntfId::none )
      out.append( "none" );
   else
      out.appendDecimal( id.value() );
}

void sequenceToValue( Kiv::CharRange & text, IntfId * id ) {
   if( takeNone( text ) ) {
      *id = IntfId{};
   } else {
      U32 value = 0;
      Kiv::sequenceToValue( text, &value );
      *id = IntfId{ value };
   }
}

} // namespace Velnet
