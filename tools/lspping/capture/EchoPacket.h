#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

namespace LspPingTool {

/// Something wrong with a message; the offset counts from the message's first byte.
struct Problem {
   std::size_t offset;
   std::string text;

   friend bool operator==( Problem const &, Problem const & ) = default;
};

/// UTC, since 1970.
struct TimeStamp {
   std::int64_t seconds;
   U32 nanoseconds;

   friend bool operator==( TimeStamp const &, TimeStamp const & ) = default;
};

/// The G-ACh types that carry an echo message: in IPv4 or IPv6 and UDP, or bare (RFC 4385, RFC
/// 6426).
enum class ChannelType : U16 {
   ipv4 = 0x0021,
   lspPing = 0x0025,
   ipv6 = 0x0057,
};

/// One echo message and the way it was carried. The spans point into the source's own buffer and
/// are good until its next step.
struct EchoPacket {
   /// Counts every packet of the capture, also those without a message, from 1.
   U64 number = 0;
   /// Absent where the source has no clock (hex text).
   std::optional< TimeStamp > time;

   /// 4 bytes for IPv4, 16 for IPv6, none for a message without IP.
   std::span< U8 const > source;
   std::span< U8 const > destination;
   std::optional< U16 > sourcePort;
   std::optional< U16 > destinationPort;

   /// From the top of the stack.
   std::vector< Velnet::MplsLabelEntry > labels;
   std::optional< ChannelType > channelType;

   /// The bytes that are there. Empty when all of the message was lost; then `problems` says so.
   std::span< U8 const > payload;
   /// The message's length as the UDP header gives it (or the packet, where that cannot be used).
   std::size_t claimedLength = 0;
   /// How many of the last bytes may be the link's padding: a message without IP has no length of
   /// its own. They are all zero. Otherwise 0.
   std::size_t possiblePadding = 0;

   std::vector< Problem > problems;
};

} // namespace LspPingTool
