#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

namespace Pseudowire {

enum class PseudowireType : U16;
enum class PwPingCcType : U32;

/// The types of module Pseudowire, in the order in which they are registered.
using ModuleTypes =
   Kiv::TypeList< class PseudowireAttachmentIdentifierIndex, class PseudowireAttachmentIdentifier,
                  class PseudowireGenId, PseudowireType, PwPingCcType >;

inline constexpr U16 moduleNumber = 2;

template < class T >
requires ModuleTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { moduleNumber, ModuleTypes::indexOf< T >() };
}

} // namespace Pseudowire
