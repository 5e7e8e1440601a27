#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

namespace MplsUtils {

enum class MplsOamStandard : U8;

/// The types of module MplsUtils, in the order in which they are registered.
using ModuleTypes = Kiv::TypeList< MplsOamStandard >;

inline constexpr U16 moduleNumber = 4;

template < class T >
requires ModuleTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { moduleNumber, ModuleTypes::indexOf< T >() };
}

} // namespace MplsUtils
