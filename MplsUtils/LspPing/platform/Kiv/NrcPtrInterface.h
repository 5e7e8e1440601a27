#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <cstddef>
#include <type_traits>

namespace Kiv {

/// Base of every type that is reached through a plain pointer and is not reference-counted: the
/// views over packet bytes, above all. It is empty, so a view is exactly its bytes.
///
/// A class and its first member must not both derive from it: the two empty bases may not share
/// an address, so the compiler moves every field by one byte. `isWireView` notices.
class NrcPtrInterface {};

/// True when T can be laid over `size` bytes of a packet at any address: nothing hidden in it, no
/// padding, no alignment, copyable as bytes.
template < class T, std::size_t size >
inline constexpr bool
   isWireView = std::is_base_of_v< NrcPtrInterface, T > && sizeof( T ) == size &&
                alignof( T ) == 1 &&
                std::is_trivially_copyable_v< T > && std::is_trivially_destructible_v< T > &&
                !std::is_polymorphic_v< T >;

} // namespace Kiv
