#pragma once

#include <optional>
#include <string>

#include "tools/lspping/capture/EchoPacket.h"
#include "tools/lspping/io/ExitStatus.h"

namespace LspPingTool {

/// Why a source could not go on. It comes as a step and not as an exception: the steps after it go
/// on. Counts are from 1, the offset from 0; absent where they mean nothing or cannot be had.
///
/// An input of which nothing can be had is a failed file: it cannot be opened or read, it is no
/// capture, its link type is not known. One that is read and turns out to be broken on the way (cut
/// in mid-packet, a damaged record, a bad line) is malformed, and what stands before is delivered.
struct ReadError {
   ExitStatus status = exitFileFailed;
   std::string file;
   std::string text;
   std::optional< U64 > packet;
   /// Where in the file the reading stopped; in a cut file that is its end.
   std::optional< U64 > offset;
   std::optional< U64 > line;
   std::optional< U64 > column;

   /// For people: "FILE: packet 7, byte 1234: TEXT".
   std::string message() const;
};

/// Echo messages one after the other, from wherever. Errors come between the messages in the order
/// of the input, and the next step may be asked for after any of them; `end` is the only end.
class EchoSource {
 public:
   enum class Step {
      message,
      error,
      end,
   };

   EchoSource() = default;
   EchoSource( EchoSource const & ) = delete;
   EchoSource & operator=( EchoSource const & ) = delete;
   virtual ~EchoSource() = default;

   virtual Step next() = 0;

   /// Meaningful after the step `message`.
   EchoPacket const & packet() const noexcept { return packet_; }
   /// Meaningful after the step `error`.
   ReadError const & error() const noexcept { return error_; }

   /// How far the input was read, and its size where it has one: for showing progress.
   virtual U64 bytesRead() const noexcept = 0;
   virtual std::optional< U64 > bytesTotal() const noexcept = 0;

 protected:
   EchoPacket packet_;
   ReadError error_;
};

} // namespace LspPingTool
