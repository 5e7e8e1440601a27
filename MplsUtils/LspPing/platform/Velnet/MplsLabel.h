#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <compare>

namespace Velnet {

/// An MPLS label of 20 bits (RFC 3032 section 2.1), or none.
class MplsLabel {
 public:
   static constexpr U32 max = 0xFFFFF;
   /// Just above all labels.
   static constexpr U32 unset = 0x100000;

   /// No label.
   constexpr MplsLabel() noexcept = default;
   /// Raises `Kiv::RangeException` for a number that is neither a label nor `unset`.
   constexpr explicit MplsLabel( U32 value ) : value_{ value } {
      if( value > unset )
         valueRangeError( value );
   }

   constexpr U32 value() const noexcept { return value_; }

   /// The label in decimal, or "none".
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   constexpr bool operator==( MplsLabel const & other ) const noexcept = default;
   constexpr std::strong_ordering operator<=>( MplsLabel const & other ) const noexcept = default;

 private:
   [[noreturn]] LSPPING_PLATFORM_EXPORT static void valueRangeError( U32 value );

   U32 value_ = unset;
};

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         MplsLabel const & label ) noexcept;

/// Raises `Kiv::RangeException` and leaves the label alone if there is none at the cursor. The
/// number of `unset` is taken for "none".
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, MplsLabel * label );

} // namespace Velnet
