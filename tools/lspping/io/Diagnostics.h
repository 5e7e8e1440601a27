#pragma once

#include <string>
#include <string_view>

namespace LspPingTool {

/// What the system says to an `errno`.
std::string systemText( int failure );

/// A line on standard error: the program's name and the text, made printable.
void tell( std::string_view text );

/// The same when there is no memory to build a line in.
void tellOutOfMemory() noexcept;

} // namespace LspPingTool
