#pragma once

#include "examples/EchoRecords.h"
#include "tools/lspping/decode/Message.h"

namespace LspPingTool {

/// What an agent keeps of a message.
struct MessageRecords : EchoRecords::Records {
   /// What the records have no place for, of the elements that have one: where it begins and, in
   /// words, what it is.
   std::vector< Problem > leftOut;
};

/// Of the top-level elements that are there as a whole, and of those that consist of sub-TLVs the
/// ones that are.
MessageRecords recordsOf( Message const & message );

/// Whether a printer shows the records, too.
enum class ShowRecords : bool {
   no,
   yes,
};

} // namespace LspPingTool
