#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <iosfwd>
#include <string_view>

namespace KivOrlo {

/// The generic text of a registered value: a plain value's own text, or the type's name and the
/// stored attributes in their order, `LspPing::NtpTimeU64(seconds=1, fractions=2)`. Collections are
/// `{0: …, 1: …}`, strings stand in double quotes.
LSPPING_PLATFORM_EXPORT Orlo::String valueToStrep( Kiv::TypeRef type, void const * value );

LSPPING_PLATFORM_EXPORT void appendValue( Orlo::StringBuilder & out, Kiv::TypeRef type,
                                          void const * value );

/// Writes the generic text, for a value's `operator<<`.
LSPPING_PLATFORM_EXPORT std::ostream & writeValue( std::ostream & out, Kiv::TypeRef type,
                                                   void const * value );

/// Reads a value from its generic text and assigns it. Raises Kiv::RangeException, naming the
/// attribute, for text that is none; all of the text must be used up. `value` is unchanged then.
LSPPING_PLATFORM_EXPORT void strepToValue( std::string_view text, Kiv::TypeRef type, void * value );

/// Reads a record's stored attributes, strictly in their order, into an object that its text
/// constructor has just set to defaults. Raises Kiv::RangeException naming the attribute.
LSPPING_PLATFORM_EXPORT void parseAttributes( Kiv::CharRange & in, Kiv::TypeRef type,
                                              void * object );

} // namespace KivOrlo
