#pragma once

#include "tools/lspping/decode/Message.h"

namespace LspPingTool {

/// How the bytes of a message end.
struct MessageEnd {
   /// As many of the last bytes may belong to the link, not to the message.
   std::size_t possiblePadding = 0;
   /// The message went on, but the capture has no more of it.
   bool isCut = false;
};

/// Finds the elements of a message, whatever its bytes are. What does not fit where it stands is a
/// problem with its offset; the walk goes on behind it where that is known, and it always ends. It
/// takes time in proportion to the bytes.
///
/// \param bytes  The message; they must stay while `message` is used.
/// \param message  Gets the result; what it held before goes.
void walk( std::span< U8 const > bytes, MessageEnd end, Message & message );

/// The same for a message as it came.
inline void walk( EchoPacket const & packet, Message & message ) {
   walk( packet.payload, { packet.possiblePadding, packet.payload.size() < packet.claimedLength },
         message );
}

} // namespace LspPingTool
