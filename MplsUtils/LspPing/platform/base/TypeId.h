#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <cstddef>
#include <type_traits>

namespace Kiv {

/// Identifies a type at run time: the number of its module and its index in that module's table.
/// Module numbers 0 to 15 belong to the platform; a library on top picks free ones of its own.
struct TypeId {
   static constexpr U16 none = 0xffff;

   U16 module = none;
   U16 index = none;

   explicit constexpr operator bool() const noexcept { return module != none; }
   friend constexpr bool operator==( TypeId, TypeId ) noexcept = default;
};

/// Names a type to the functions that its namespace offers the type system.
template < class T >
struct Of {};

/// Stands in a module's list for a type that this build does not have: it keeps the place, so that
/// the types behind it stay at theirs, and gives T no id.
template < class T >
struct Kept {};

/// The types of a module in the order in which they are registered.
template < class... Ts >
struct TypeList {
   static constexpr std::size_t size = sizeof...( Ts );

   template < class T >
   static constexpr bool contains = ( std::is_same_v< T, Ts > || ... );

   template < class T >
   static constexpr U16 indexOf() noexcept {
      U16 index = 0;
      static_cast< void >( ( ( std::is_same_v< T, Ts > ? false : ( ++index, true ) ) && ... ) );
      return index;
   }
};

template < class T >
concept Registered = requires {
   kivTypeId( Of< T >{} );
};

/// The id of a registered type, known at compile time.
template < Registered T >
inline constexpr TypeId typeIdOf = kivTypeId( Of< T >{} );

} // namespace Kiv
