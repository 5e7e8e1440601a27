#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace Kiv {

// The compiler spells a type's qualified name inside the signature of a function template, so a
// class need not repeat its own name. The aliases of the language's own types are named by hand.
template < class T >
struct SpelledName {
   static constexpr std::string_view signature() noexcept {
      constexpr std::string_view text = __PRETTY_FUNCTION__;
      constexpr std::size_t from = text.find( "T = " ) + 4;
      constexpr std::size_t to = text.find_first_of( ";]", from );
      return text.substr( from, to - from );
   }
   static constexpr auto characters = [] {
      std::array< char, signature().size() > result{};
      signature().copy( result.data(), result.size() );
      return result;
   }();
   static constexpr std::string_view value{ characters.data(), characters.size() };
};

template <>
struct SpelledName< bool > {
   static constexpr std::string_view value = "bool";
};
template <>
struct SpelledName< double > {
   static constexpr std::string_view value = "double";
};
template <>
struct SpelledName< U8 > {
   static constexpr std::string_view value = "U8";
};
template <>
struct SpelledName< U16 > {
   static constexpr std::string_view value = "U16";
};
template <>
struct SpelledName< U32 > {
   static constexpr std::string_view value = "U32";
};
template <>
struct SpelledName< U64 > {
   static constexpr std::string_view value = "U64";
};
template <>
struct SpelledName< std::string > {
   static constexpr std::string_view value = "Orlo::String";
};

/// A type's name as the type system knows it: its namespaces, then its class name.
template < class T >
inline constexpr std::string_view typeName = SpelledName< T >::value;

} // namespace Kiv
