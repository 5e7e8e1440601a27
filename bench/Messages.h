#pragma once

#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

#include <array>
#include <span>
#include <vector>

namespace Bench {

/// What a transit router's reply says.
struct Reply {
   U32 handle = 0;
   U32 sequence = 0;
   Velnet::IpAddr prefix;
   Velnet::IpAddr vpnPrefix;
   Velnet::IpAddr nextHop;
   Velnet::IpAddr interface;
   Velnet::IpAddr multipathBase;
   std::span< U8 const > multipathMask;
   std::span< Velnet::MplsLabelEntry const > labels;
};

/// Header, FEC stack of two FECs, Downstream Detailed Mapping with a label stack and multipath
/// information. The size of the message, 0 where it does not fit.
std::size_t writeThroughLibrary( std::span< U8 > place, Reply const & reply );
/// The same with stores, as written by hand, each element checked against the room left.
std::size_t writeByHand( std::span< U8 > place, Reply const & reply );

/// What reading by hand finds: all elements with their places, and what is wrong.
struct ByHand {
   struct Element {
      U16 type;
      U8 depth;
      U32 offset;
      U32 length;
      U32 after; ///< the first element that does not stand in it
   };
   struct Problem {
      U32 code;
      U32 offset;
   };
   std::vector< Element > elements;
   std::vector< Problem > problems;
};

/// Reads a message and folds what an agent looks at into one number; the problems are counted, too.
U32 readThroughLibrary( LspPing::LspPingMessageReader & reader, std::span< U8 const > bytes );
/// The same with pointers, as written by hand.
U32 readByHand( ByHand & found, std::span< U8 const > bytes );

/// Replies of several shapes, so that the branches are not learnt by heart.
std::span< Reply const > replies();
/// As they are sent.
std::vector< std::vector< U8 > > const & replyMessages();

} // namespace Bench
