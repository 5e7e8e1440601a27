#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <compare>
#include <string_view>

namespace Velnet {

/// The index of an interface, or of none.
class IntfId {
 public:
   static constexpr U32 none = 0xFFFFFFFF;

   /// No interface.
   constexpr IntfId() noexcept = default;
   constexpr explicit IntfId( U32 value ) noexcept : value_{ value } {}
   /// The empty name is no interface, decimal digits are the interface of that index. Raises
   /// `Kiv::RangeException` for any other name.
   LSPPING_PLATFORM_EXPORT explicit IntfId( std::string_view name );

   constexpr U32 value() const noexcept { return value_; }

   /// The index in decimal, or "none".
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   constexpr bool operator==( IntfId const & other ) const noexcept = default;
   constexpr std::strong_ordering operator<=>( IntfId const & other ) const noexcept = default;

 private:
   U32 value_ = none;
};

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out, IntfId const & id ) noexcept;

/// Raises `Kiv::RangeException` and leaves the id alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, IntfId * id );

} // namespace Velnet
