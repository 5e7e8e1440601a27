#pragma once

#include "tools/lspping/decode/Message.h"

namespace LspPingTool {

/// Finds the elements of a message, whatever its bytes are. What does not fit where it stands is a
/// problem with its offset; the walk goes on behind it where that is known, and it always ends.
///
/// \param bytes  The message; they must stay while `message` is used.
/// \param possiblePadding  How many of the last bytes may belong to the link, not to the message.
/// \param message  Gets the result; what it held before goes.
void walk( std::span< U8 const > bytes, std::size_t possiblePadding, Message & message );

} // namespace LspPingTool
