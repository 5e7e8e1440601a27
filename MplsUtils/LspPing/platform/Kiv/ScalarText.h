#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <concepts>
#include <string_view>

// The text of the plain types that attributes have: numbers in decimal, `true` and `false`, strings
// in double quotes with \" and \\. Every text that is printed can be read back.
namespace Kiv {

// Each reads one value at the cursor. What is not such a value, or does not fit, raises
// RangeException without a subject, and the value is left as it was.
LSPPING_PLATFORM_EXPORT void sequenceToValue( CharRange & text, U8 * value );
LSPPING_PLATFORM_EXPORT void sequenceToValue( CharRange & text, U16 * value );
LSPPING_PLATFORM_EXPORT void sequenceToValue( CharRange & text, U32 * value );
LSPPING_PLATFORM_EXPORT void sequenceToValue( CharRange & text, U64 * value );
LSPPING_PLATFORM_EXPORT void sequenceToValue( CharRange & text, bool * value );
LSPPING_PLATFORM_EXPORT void sequenceToValue( CharRange & text, double * value );
LSPPING_PLATFORM_EXPORT void sequenceToValue( CharRange & text, Orlo::String * value );

// Templates, or a pointer would be taken for a bool and an enumeration for its number.
template < class Number >
requires std::same_as< Number, U8 > || std::same_as< Number, U16 > || std::same_as< Number, U32 > ||
   std::same_as< Number, U64 >
void appendText( Orlo::StringBuilder & out, Number value ) noexcept {
   out.appendDecimal( value );
}

template < std::same_as< bool > Bool >
void appendText( Orlo::StringBuilder & out, Bool value ) noexcept {
   out.append( value ? std::string_view{ "true" } : std::string_view{ "false" } );
}

/// The shortest decimal text that reads back as the same number.
LSPPING_PLATFORM_EXPORT void appendDouble( Orlo::StringBuilder & out, double value ) noexcept;

template < std::same_as< double > Double >
void appendText( Orlo::StringBuilder & out, Double value ) noexcept {
   appendDouble( out, value );
}

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         Orlo::String const & value ) noexcept;

} // namespace Kiv
