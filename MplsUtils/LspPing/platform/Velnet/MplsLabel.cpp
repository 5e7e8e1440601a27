#include "MplsUtils/LspPing/platform/Velnet/MplsLabel.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"
#include "MplsUtils/LspPing/platform/Velnet/NoneText.h"

#include <string>

namespace Velnet {

void MplsLabel::valueRangeError( U32 value ) {
   throw Kiv::RangeException{ "Velnet::MplsLabel",
                              Kiv::_fmt( "%lu is more than %lu", U64{ value }, U64{ max } ) };
}

Orlo::String MplsLabel::stringValue() const {
   return value_ == unset ? "none" : std::to_string( value_ );
}

void appendText( Orlo::StringBuilder & out, MplsLabel const & label ) noexcept {
   if( label.value() == MplsLabel::unset )
      out.append( "none" );
   else
      out.appendDecimal( label.value() );
}

void sequenceToValue( Kiv::CharRange & text, MplsLabel * label ) {
   if( takeNone( text ) ) {
      *label = MplsLabel{};
      return;
   }
   Kiv::CharRange ahead{ text };
   U32 value = 0;
   Kiv::sequenceToValue( ahead, &value );
   if( value > MplsLabel::unset )
      text.failWords( "", "a label of 20 bits or none" );
   text = ahead;
   *label = MplsLabel{ value };
}

} // namespace Velnet
