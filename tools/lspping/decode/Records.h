#pragma once

#include "examples/EchoRecords.h"
#include "tools/lspping/decode/Message.h"

namespace LspPingTool {

/// What an agent keeps of the message: its top-level elements that are there as a whole, and of
/// those that consist of sub-TLVs the ones that are. What is not well-formed is left out.
EchoRecords::Records recordsOf( Message const & message );

/// Whether a printer shows the records, too.
enum class ShowRecords : bool {
   no,
   yes,
};

} // namespace LspPingTool
