#pragma once

#include "tools/lspping/decode/Message.h"

namespace LspPingTool {

constexpr U32 roundedUp( U32 length ) noexcept {
   return ( length + 3 ) & ~U32{ 3 };
}

constexpr std::string_view bytesWord( U32 count ) noexcept {
   return count == 1 ? " byte" : " bytes";
}

// The pieces of a problem's text: words, numbers, and elements by the names of their codes.
inline void appendPiece( Orlo::StringBuilder & text, std::string_view piece ) {
   text.append( piece );
}
inline void appendPiece( Orlo::StringBuilder & text, U32 number ) {
   text.appendDecimal( number );
}
void appendPiece( Orlo::StringBuilder & text, Element const * element );

/// Problems are rare; their text is put together here and nowhere kept otherwise.
template < class... Pieces >
void addProblem( Message & message, U32 offset, Pieces... pieces ) {
   Orlo::StringBuilder text;
   ( appendPiece( text, pieces ), ... );
   message.problems.push_back( { offset, text.string() } );
}

/// Tells what an element with a row says against the RFCs, whatever it contains. Its value must be
/// there as far as its row asks, and its view be laid if it has one. The view's `valid` is not
/// asked: some look at less than the RFCs do, some at more.
void judge( Message & message, Element & element );

} // namespace LspPingTool
