#include "tools/lspping/decode/JsonPrinter.h"
#include "tools/lspping/decode/TextPrinter.h"
#include "tools/lspping/decode/Walk.h"

#include <cstdlib>
#include <memory>
#include <rapidjson/reader.h>

// Any bytes are a message: it is decoded without reading past its end, in order, and both printers
// can show what was found.

namespace {

// Elements stand in the order of their bytes, and each inside what contains it.
bool isOrdered( LspPingTool::Message const & message ) {
   for( std::size_t i = 0; i < message.elements.size(); ++i ) {
      LspPingTool::Element const & element = message.elements[i];
      if( element.after <= i || element.after > message.elements.size() )
         return false;
      if( element.offset + element.present > message.bytes.size() )
         return false;
      if( i + 1 < element.after && message.elements[i + 1].offset <= element.offset )
         return false;
      if( element.after < message.elements.size() &&
          message.elements[element.after].offset <= element.offset )
         return false;
   }
   for( LspPingTool::Problem const & problem : message.problems ) {
      if( problem.offset > message.bytes.size() || problem.text.empty() )
         return false;
   }
   return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput( U8 const * data, std::size_t size ) {
   if( size == 0 )
      return 0;
   // The first byte says how much of the end may be padding: only zeros may.
   std::size_t padding = 0;
   while( padding < data[0] && padding + 1 < size && data[size - 1 - padding] == 0 )
      ++padding;
   // A block of its own, so that the first byte too far is seen; one off any alignment.
   std::unique_ptr< U8[] > const block( new U8[size] );
   std::copy( data, data + size, block.get() );

   static LspPingTool::Message message;
   LspPingTool::walk( { block.get() + 1, size - 1 }, { padding, ( data[0] & 1 ) != 0 }, message );
   if( !isOrdered( message ) )
      std::abort();

   LspPingTool::EchoPacket packet;
   LspPingTool::TextPrinter text( LspPingTool::TextPrinter::Colour::off,
                                  LspPingTool::ShowRecords::yes );
   text.print( packet, message );
   if( text.pending().empty() || text.pending().back() != '\n' )
      std::abort();
   LspPingTool::JsonPrinter json( LspPingTool::ShowRecords::yes );
   json.print( packet, message );
   std::string const line( json.pending() );
   rapidjson::StringStream stream( line.c_str() );
   rapidjson::BaseReaderHandler<> handler;
   if( !rapidjson::Reader().Parse( stream, handler ) )
      std::abort();
   return 0;
}
