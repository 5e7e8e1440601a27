#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpId.h"

#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

namespace Rsvp {

RsvpSpId::RsvpSpId( Kiv::CharRange & in ) {
   KivOrlo::parseAttributes( in, Kiv::typeOf< RsvpSpId >(), this );
}

std::ostream & operator<<( std::ostream & out, RsvpSpId const & id ) {
   return KivOrlo::writeValue( out, Kiv::typeOf< RsvpSpId >(), &id );
}

} // namespace Rsvp
