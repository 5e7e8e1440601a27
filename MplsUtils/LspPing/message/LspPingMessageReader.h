#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/message/LspPingMessage.h"

namespace LspPing {

/// How the bytes of a message end.
struct LspPingMessageEnd {
   /// As many of the last bytes may belong to the link, not to the message.
   std::size_t possiblePadding = 0;
   /// The message went on, but there is no more of it.
   bool isCut = false;
};

/// Finds the elements of messages, whatever their bytes are. What does not fit where it stands is a
/// problem with its offset; the reader goes on behind it where that is known. It always ends, takes
/// time in proportion to the bytes, reads none outside of them, and throws nothing; exhausted
/// memory ends the process. It holds its memory from message to message, so that reading allocates
/// nothing once a message as large was read.
class LSPPING_MESSAGE_EXPORT LspPingMessageReader {
 public:
   /// Deeper elements are not read: nobody sends them. Top-level TLVs stand at 0.
   static constexpr U32 deepest = 8;

   /// \param bytes  The message from its header on; they must stay while the answer is used.
   /// \returns  what is in them, good until the reader reads again.
   LspPingMessage const & read( std::span< U8 const > bytes, LspPingMessageEnd end = {} ) noexcept;

   /// What was read last.
   LspPingMessage const & message() const noexcept { return message_; }

 private:
   LspPingMessage message_;
};

} // namespace LspPing
