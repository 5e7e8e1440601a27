#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

namespace Rsvp {

/// The types of module Rsvp, in the order in which they are registered.
using ModuleTypes = Kiv::TypeList< class RsvpSpId, class RsvpSpGroupId >;

inline constexpr U16 moduleNumber = 3;

template < class T >
requires ModuleTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { moduleNumber, ModuleTypes::indexOf< T >() };
}

} // namespace Rsvp
