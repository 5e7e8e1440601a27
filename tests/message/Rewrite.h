#pragma once

#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

#include <algorithm>
#include <cstring>

/// Writes again what was read, element by element.
namespace Rewrite {

/// Whether the element is opened again and filled, and not copied. Copied are those with nothing in
/// them, and what readers take although the writer does not write it so: padding that is not zero,
/// and FEC stack changes that do not count the FEC's padding or hold several.
inline bool isOpened( LspPing::LspPingElementRef element ) {
   if( !element.isContainer() || element.elements().empty() )
      return false;
   auto const padding = element.paddedBytes().subspan( element.bytes().size() );
   if( std::any_of( padding.begin(), padding.end(), []( U8 byte ) { return byte != 0; } ) )
      return false;
   if( element.row()->facts.behind != LspPing::LspPingBehind::stackChangeFec )
      return true;
   auto children = element.elements();
   U32 const inside = element.length() + 4 - element.row()->fixedSize();
   return ++children.begin() == children.end() && inside == element.bytes()[6] &&
          ( *children.begin() ).totalLength() == inside;
}

inline void element( LspPing::LspPingMessageWriter & writer, LspPing::LspPingElementRef element ) {
   if( !isOpened( element ) ) {
      writer.add( element );
      return;
   }
   auto const open = writer.open( element );
   for( LspPing::LspPingElementRef const child : element.elements() )
      Rewrite::element( writer, child );
}

/// A message with a header.
inline void message( LspPing::LspPingMessageWriter & writer,
                     LspPing::LspPingMessage const & message ) {
   writer.header( [&]( LspPing::LspPingHdr & header ) { header = *message.header(); } );
   for( LspPing::LspPingElementRef const tlv : message.elements() )
      element( writer, tlv );
}

} // namespace Rewrite
