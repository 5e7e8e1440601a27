#pragma once

#include "MplsUtils/LspPing/message/LspPingMessage.h"
#include "tools/lspping/capture/EchoPacket.h"

#include <string_view>

namespace LspPingTool {

/// Puts decoded messages into a form for the output and keeps it until it is taken.
class Printer {
 public:
   Printer() = default;
   Printer( Printer const & ) = delete;
   Printer & operator=( Printer const & ) = delete;
   virtual ~Printer() = default;

   virtual void print( EchoPacket const & packet, LspPing::LspPingMessage const & message ) = 0;

   /// What was printed since the last `clear`; good until the printer is used again.
   virtual std::string_view pending() const = 0;
   virtual void clear() = 0;
};

/// Whether a printer shows the records, too.
enum class ShowRecords : bool {
   no,
   yes,
};

} // namespace LspPingTool
