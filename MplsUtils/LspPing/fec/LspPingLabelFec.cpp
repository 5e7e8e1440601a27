#include "MplsUtils/LspPing/fec/LspPingLabelFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingNilFecSubTlvLabel::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNilFecSubTlvLabel >();
constinit Kiv::AllocationTracker LspPingEntropyLabelFecSubTlvLabel::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEntropyLabelFecSubTlvLabel >();
constinit Kiv::AllocationTracker LspPingNilFecSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNilFecSubTlv >();
constinit Kiv::AllocationTracker LspPingEntropyLabelFecSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEntropyLabelFecSubTlv >();

LspPingNilFecSubTlvLabel::LspPingNilFecSubTlvLabel( Kiv::CharRange & in ) {
   KivOrlo::parseAttributes( in, Kiv::typeOf< LspPingNilFecSubTlvLabel >(), this );
}

LspPingEntropyLabelFecSubTlvLabel::LspPingEntropyLabelFecSubTlvLabel( Kiv::CharRange & in ) {
   KivOrlo::parseAttributes( in, Kiv::typeOf< LspPingEntropyLabelFecSubTlvLabel >(), this );
}

std::ostream & operator<<( std::ostream & out, LspPingNilFecSubTlvLabel const & label ) {
   return KivOrlo::writeValue( out, Kiv::typeOf< LspPingNilFecSubTlvLabel >(), &label );
}

std::ostream & operator<<( std::ostream & out, LspPingEntropyLabelFecSubTlvLabel const & label ) {
   return KivOrlo::writeValue( out, Kiv::typeOf< LspPingEntropyLabelFecSubTlvLabel >(), &label );
}

Orlo::String LspPingNilFecSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid NilFecSubTlv" );
   return Kiv::_fmt( "NilFec( '0x%x' )", label() );
}

Orlo::String LspPingEntropyLabelFecSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invailid EntropyLabelFecSubTlv" );
   return Kiv::_fmt( "EntropyLabelFec( '0x%x' )", label() );
}

} // namespace LspPing
