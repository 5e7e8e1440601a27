#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpGroupId.h"

#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

namespace Rsvp {

RsvpSpGroupId::RsvpSpGroupId( Kiv::CharRange & in ) {
   KivOrlo::parseAttributes( in, Kiv::typeOf< RsvpSpGroupId >(), this );
}

std::ostream & operator<<( std::ostream & out, RsvpSpGroupId const & id ) {
   return KivOrlo::writeValue( out, Kiv::typeOf< RsvpSpGroupId >(), &id );
}

} // namespace Rsvp
