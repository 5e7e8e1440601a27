#include "tools/lspping/decode/Judge.h"

#include <array>
#include <cstring>

namespace LspPingTool {

namespace {

bool lengthFits( Message & message, Element & element ) {
   ElementRow const & row = *element.row;
   U32 const length = row.valueLength;
   if( !row.hasFixedLength || element.length == length || element.length == row.otherLength )
      return true;
   // Routers are seen to count the padding: what would the element be without?
   element.countsPadding = element.length == roundedUp( length );
   if( !element.countsPadding ) {
      addProblem( message, element.offset, &element, ": length ", element.length, ", expected ",
                  length );
      return false;
   }
   Orlo::StringBuilder reading;
   if( row.view != nullptr ) {
      std::array< U8, 64 > corrected;
      std::memcpy( corrected.data(), message.at( element ), row.view->size );
      corrected[2] = static_cast< U8 >( length >> 8 );
      corrected[3] = static_cast< U8 >( length );
      if( row.view->valid( corrected.data(), length ) ) {
         reading.append( "; without it: " );
         row.view->appendText( reading, corrected.data(), length );
      }
   }
   addProblem( message, element.offset, &element, ": length ", element.length,
               " counts the padding, expected ", length, reading.view() );
   return false;
}

} // namespace

void judge( Message & message, Element & element ) {
   ElementRow const & row = *element.row;
   if( row.isUnknownSelector ) {
      addProblem( message, element.offset, &element, ": address type ",
                  U32{ message.bytes[element.offset + ( &row - 1 )->selectorOffset] },
                  " is not known" );
      return;
   }
   if( !lengthFits( message, element ) || row.flaw == nullptr )
      return;
   Orlo::StringBuilder flaw;
   if( row.flaw( flaw, message.at( element ), element.length ) ) {
      addProblem( message, element.offset, &element, ": ", flaw.view() );
      element.hidesBytes = true;
   }
}

void appendPiece( Orlo::StringBuilder & text, Element const * element ) {
   if( codeName( element->context, element->code ).empty() )
      text.append( element->context == Context::message ? "TLV " : "sub-TLV " );
   appendCodeName( text, element->context, element->code );
}

} // namespace LspPingTool
