#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"
#include "tools/lspping/io/Failure.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace LspPingTool {

/// The registered type of that name, which may come without "LspPing::". Raises UsageError.
Kiv::TypeRef typeGiven( std::string_view name );

/// A decimal number that fits. Raises UsageError naming `what`.
U32 numberGiven( std::string_view text, std::string_view what );

/// Bytes of two digits each; blanks, ':' and '-' may stand between bytes. Raises InputError.
std::vector< U8 > bytesGiven( std::string_view hex );

/// `NAME=VALUE`, or `NAME[KEY]=VALUE` for an element of a collection.
struct WriteGiven {
   std::string name;
   std::optional< U32 > key;
   std::string value;

   /// The name with the key, as it was given.
   std::string target() const;
};
/// Nothing if the text has not that form.
std::optional< WriteGiven > writeGiven( std::string_view text );
/// Raises UsageError if one of them has not that form.
std::vector< WriteGiven > writesGiven( std::vector< std::string > const & arguments,
                                       std::size_t first );

/// The arguments on a line: separated by blanks, except for those in double quotes, parentheses and
/// braces. Quotes are kept. From the third on, what is no NAME=VALUE belongs to the argument before
/// it, for values whose text has blanks.
std::vector< std::string > argumentsOf( std::string_view line );

} // namespace LspPingTool
