#pragma once

#include <span>

#include "tools/lspping/capture/EchoPacket.h"

namespace LspPingTool {

/// One captured packet: the bytes that were kept, and how many there were on the wire.
struct Frame {
   std::span< U8 const > bytes;
   std::size_t wireLength;
};

/// Finds the echo message of a packet. `packet` gets everything but number and time, its former
/// contents go; what it holds afterwards is meaningful only when the answer is true.
///
/// A message is the payload of a UDP datagram from or to port 3503, as long as it has a byte, or
/// what follows the associated channel header of type 0x0025. A packet whose message is cut, even
/// down to nothing, still counts and has a problem; one that is cut before its ports does not.
using Dissector = bool ( * )( Frame const & frame, EchoPacket & packet );

/// The dissector for packets of a link type (libpcap's DLT_ number), null for one we do not know.
Dissector dissectorOf( int linkType ) noexcept;

/// The same in one step; false for an unknown link type.
bool dissect( int linkType, Frame const & frame, EchoPacket & packet );

} // namespace LspPingTool
