#pragma once

#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <cstddef>

namespace Kiv {

/// Owns one object of a type known only at run time: a copy of a given one, or the default. Small
/// ones lie within, others on the heap and in their type's allocation count.
class LSPPING_PLATFORM_EXPORT Instance {
 public:
   /// The type must be one that can be constructed (values, enumerations, views).
   explicit Instance( TypeRef type, void const * from = nullptr );
   Instance( Instance const & ) = delete;
   Instance & operator=( Instance const & ) = delete;
   ~Instance();

   TypeRef type() const noexcept { return type_; }
   void * object() noexcept { return place_; }
   void const * object() const noexcept { return place_; }
   template < class T >
   T & as() noexcept {
      return *static_cast< T * >( place_ );
   }

 private:
   static constexpr std::size_t room = 64;

   TypeRef type_;
   void * place_;
   alignas( std::max_align_t ) std::byte bytes_[room];
};

} // namespace Kiv
