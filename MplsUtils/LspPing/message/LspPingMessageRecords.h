#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/message/LspPingMessage.h"

#include <optional>
#include <string_view>
#include <vector>

namespace LspPing {

/// Something that the records have no place for, of an element that has one.
struct LspPingLeftOut {
   U32 offset;            ///< where the element begins
   U32 element;           ///< which of the message's it is
   std::string_view what; ///< in words; they stay
};

/// What an agent keeps of a message, from the views over it to plain values that can outlive it.
/// Empty where the message has no such element.
///
/// - A FEC goes into the stack under its position, counted from 0. One that is not kept leaves its
///   position free. Of several stacks, Pads, and Interface and Label Stacks, the first counts.
/// - Mappings go into one set under the next free index, from 0. The first one decides whether it
///   is a set of Downstream Mapping or of Downstream Detailed Mapping TLVs.
/// - Pops and pushes of FEC stack changes are numbered from 0 in their order, each for itself.
/// - Of the multipath information the sets have a place: a base address, and the bits.
///
/// Elements that are not there as a whole, or not well-formed, are not kept. What is lost of the
/// others is told in `leftOut`.
struct LSPPING_MESSAGE_EXPORT LspPingMessageRecords {
   std::optional< LspPingFecStack > fecStack;
   std::optional< LspPingDownstreamMappingInfoSet > downstreamMappings;
   std::optional< LspPingIntfAndLabelStackInfo > intfAndLabelStack;
   std::optional< LspPingPadInfo > pad;
   std::vector< LspPingLeftOut > leftOut;

   LspPingMessageRecords() = default;
   explicit LspPingMessageRecords( LspPingMessage const & message );
};

} // namespace LspPing
