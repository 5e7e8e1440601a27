#pragma once

#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

namespace Velnet {

/// The types of module Velnet, in the order in which they are registered.
using ModuleTypes = Kiv::TypeList< NetU16, NetU32, NetU64, class IpAddr, class Ip6Addr, class Pkt,
                                   class IpGenAddr, class IntfId, class IpGenPrefix,
                                   class MplsLabel, class MplsLabelEntry, class MplsLabelStack >;

inline constexpr U16 moduleNumber = 1;

template < class T >
requires ModuleTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { moduleNumber, ModuleTypes::indexOf< T >() };
}

} // namespace Velnet
