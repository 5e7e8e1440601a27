#pragma once

#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

namespace Kiv {

/// The types of module Kiv: the language's own, in which fields and arguments are given.
using ModuleTypes = TypeList< bool, U8, U16, U32, U64, double, Orlo::String >;

inline constexpr U16 moduleNumber = 0;

template < class T >
requires ModuleTypes::contains< T >
constexpr TypeId kivTypeId( Of< T > ) noexcept {
   return { moduleNumber, ModuleTypes::indexOf< T >() };
}

} // namespace Kiv
