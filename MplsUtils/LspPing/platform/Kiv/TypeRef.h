#pragma once

namespace Kiv {

class TypeRecord;

/// Names a registered type. It is a value: two of the same type compare equal, and the empty one
/// names no type.
class TypeRef {
 public:
   constexpr TypeRef() noexcept = default;
   explicit constexpr TypeRef( TypeRecord const * record ) noexcept : record_( record ) {}

   friend constexpr bool operator==( TypeRef, TypeRef ) noexcept = default;

 private:
   TypeRecord const * record_ = nullptr;
};

} // namespace Kiv
