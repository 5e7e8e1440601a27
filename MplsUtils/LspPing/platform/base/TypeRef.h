#pragma once

#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/TypeRecord.h"

#include <array>
#include <atomic>
#include <span>

namespace Kiv {

inline constexpr std::size_t moduleLimit = 64;

/// The registered modules by number; empty places are null.
LSPPING_PLATFORM_EXPORT extern std::array< std::atomic< ModuleTable const * >, moduleLimit >
   modulesByNumber;

/// A type found at run time. It compares by module and index and stays good while the process
/// runs: nothing is unregistered.
class TypeRef {
 public:
   constexpr TypeRef() noexcept = default;
   explicit constexpr TypeRef( TypeRecord const * record ) noexcept : record_( record ) {}
   /// The type of that id; an empty reference when its module is not loaded.
   explicit TypeRef( TypeId id ) noexcept {
      if( id.module < moduleLimit ) {
         ModuleTable const * module = modulesByNumber[id.module].load( std::memory_order_acquire );
         if( module != nullptr && id.index < module->count )
            record_ = module->types + id.index;
      }
   }

   explicit constexpr operator bool() const noexcept { return record_ != nullptr; }
   friend constexpr bool operator==( TypeRef a, TypeRef b ) noexcept { return a.id() == b.id(); }

   constexpr TypeRecord const & record() const noexcept { return *record_; }
   constexpr TypeId id() const noexcept { return record_ != nullptr ? record_->id : TypeId{}; }
   constexpr std::string_view name() const noexcept {
      return record_ != nullptr ? record_->name : std::string_view{};
   }
   constexpr Kind kind() const noexcept {
      return record_ != nullptr ? record_->kind : Kind::absent;
   }
   TypeRef base() const noexcept { return TypeRef( record_->base ); }
   /// The attributes that the type itself declares, in their order; the others belong to `base()`.
   constexpr std::span< Attribute const > attributes() const noexcept {
      return { record_->attributes, record_->attributeCount };
   }
   constexpr std::span< Enumerator const > enumerators() const noexcept {
      return { record_->enumerators, record_->enumeratorCount };
   }
   constexpr bool hashable() const noexcept { return record_->operations->hash != nullptr; }
   /// The reference must not be empty.
   // NOLINTNEXTLINE(clang-analyzer-core.NullDereference)
   constexpr Operations const & operations() const noexcept { return *record_->operations; }

   /// True when this is `other` or derives from it.
   LSPPING_PLATFORM_EXPORT bool isA( TypeRef other ) const noexcept;

 private:
   TypeRecord const * record_ = nullptr;
};

inline TypeRef Attribute::type() const noexcept {
   return TypeRef( typeId );
}

/// The reference to a type known at compile time.
template < Registered T >
TypeRef typeOf() noexcept {
   return TypeRef( typeIdOf< T > );
}

/// The registered type of that name, with its namespace; an empty reference when there is none.
LSPPING_PLATFORM_EXPORT TypeRef typeNamed( std::string_view name ) noexcept;

/// The registered modules, ordered by number.
struct ModuleRange {
   std::array< ModuleTable const *, moduleLimit > tables{};
   std::size_t count = 0;

   ModuleTable const * const * begin() const noexcept { return tables.data(); }
   ModuleTable const * const * end() const noexcept { return tables.data() + count; }
};
LSPPING_PLATFORM_EXPORT ModuleRange modules() noexcept;

/// Registers a module for the rest of the process; called once for each while its library loads.
/// The table must stay where it is. A number that is taken already is an assertion.
LSPPING_PLATFORM_EXPORT void kivModuleIs( ModuleTable const & module ) noexcept;

} // namespace Kiv
