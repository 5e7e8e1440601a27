#pragma once

#include "tools/lspping/capture/EchoPacket.h"
#include "tools/lspping/decode/Elements.h"

#include <span>
#include <vector>

namespace LspPingTool {

/// A TLV, a sub-TLV or an opaque value. All offsets count from the message's first byte.
struct Element {
   /// Null for a code that is not known here.
   ElementRow const * row = nullptr;
   U32 offset = 0;
   /// As the element says: of its value, and with header and padding, without a limit to 16 bits.
   U32 length = 0;
   U32 totalLength = 0;
   /// How much of header and value is there; less than the length says in a cut element.
   U32 present = 0;
   /// With the padding that is there, up to where the next element can begin.
   U32 occupied = 0;
   U32 code = 0;
   /// Its descendants are the elements from the next one up to here.
   U32 after = 0;
   /// Where a zero-padded copy begins for a view that takes padding which is not there.
   U32 copy = 0;
   Context context = Context::message;
   U8 depth = 0;
   /// The row's view can be laid over the bytes, and what its `valid` says.
   bool isViewed = false;
   bool isValid = false;
   bool isCopied = false;
   /// The length would be right without the padding.
   bool countsPadding = false;
   /// There is more in it than its view and what it contains say.
   bool hidesBytes = false;

   /// Multipath information, where it is there.
   bool hasMultipath = false;
   U8 multipathType = 0;
   bool multipathIsIpv6 = false;
   U32 multipathOffset = 0;
   U32 multipathLength = 0;
   /// Labels of four bytes each, with a protocol or a time to live behind the 24 bits.
   bool hasLabels = false;
   U32 labelsOffset = 0;
   U32 labelCount = 0;
};

/// What a walk finds in a message. One object serves one message after the other: what it holds
/// grows to the largest message and stays.
struct Message {
   static constexpr U32 headerLength = 32;

   std::span< U8 const > bytes;
   /// The header view can be laid over the bytes.
   bool hasHeader = false;
   bool isHeaderValid = false;
   /// In the order of the bytes, an element in front of what it contains.
   std::vector< Element > elements;
   std::vector< Problem > problems;
   std::vector< U8 > copies;

   /// The element's first byte: as many follow as its view takes.
   U8 const * at( Element const & element ) const noexcept {
      return element.isCopied ? copies.data() + element.copy : bytes.data() + element.offset;
   }
   /// Its own bytes that are there.
   std::span< U8 const > bytesOf( Element const & element ) const noexcept {
      return bytes.subspan( element.offset, element.present );
   }
   std::span< U8 const > bytesOf( Problem const & problem ) const noexcept {
      return bytes.subspan( problem.offset, problem.strayBytes );
   }
};

} // namespace LspPingTool
