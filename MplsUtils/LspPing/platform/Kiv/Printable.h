#pragma once

#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"

#include <cstddef>
#include <string_view>

// Text from outside, as messages show it: nothing in it moves a cursor, ends a line or is cut.
namespace Kiv {

/// Bytes of the UTF-8 sequence (RFC 3629) that the text begins with; 0 where it begins with none.
LSPPING_PLATFORM_EXPORT std::size_t utf8Length( std::string_view text ) noexcept;

/// Appends the text with `\x1b` for every byte of a control character (those above ASCII too) and
/// for every byte that is no UTF-8. What is printable stays as it is, a backslash too, so a text
/// that went through here before goes through unchanged.
LSPPING_PLATFORM_EXPORT void appendPrintable( Orlo::StringBuilder & out,
                                              std::string_view text ) noexcept;

LSPPING_PLATFORM_EXPORT Orlo::String printable( std::string_view text );

} // namespace Kiv
