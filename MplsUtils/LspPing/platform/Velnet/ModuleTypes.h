#pragma once

#include "MplsUtils/LspPing/platform/Kiv/TypeId.h"

namespace Velnet {

template < class T >
class NetInteger;

/// The types of module Velnet, in the order in which they are registered.
using ModuleTypes = Kiv::TypeList< NetInteger< U16 >, NetInteger< U32 >, NetInteger< U64 >,
                                   class IpAddr, class Ip6Addr, class Pkt >;

inline constexpr U16 moduleNumber = 1;

template < class T >
   requires ModuleTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { moduleNumber, ModuleTypes::indexOf< T >() };
}

} // namespace Velnet
