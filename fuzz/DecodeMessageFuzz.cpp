#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "tests/WireBytes.h"
#include "tools/lspping/decode/JsonPrinter.h"
#include "tools/lspping/decode/TextPrinter.h"

#include <cstdlib>
#include <rapidjson/reader.h>

// Any bytes are a message: it is decoded without reading past its end, in order, and both printers
// can show what was found.

namespace {

// Elements stand in the order of their bytes, and each inside what contains it.
bool isOrdered( LspPing::LspPingElementRange elements, std::size_t begin, std::size_t size ) {
   for( LspPing::LspPingElementRef const element : elements ) {
      std::size_t const end = element.offset() + element.bytes().size();
      if( element.offset() < begin || end > size )
         return false;
      if( !isOrdered( element.elements(), element.offset() + 1, size ) )
         return false;
      begin = element.offset() + 1;
   }
   return true;
}

bool isSound( LspPing::LspPingMessage const & message ) {
   for( LspPing::LspPingProblem const & problem : message.problems() ) {
      Orlo::StringBuilder text;
      message.appendText( text, problem );
      if( text.size() == 0 || problem.offset + problem.strayBytes > message.bytes().size() )
         return false;
   }
   return isOrdered( message.elements(), 32, message.bytes().size() );
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput( U8 const * data, std::size_t size ) {
   if( size == 0 )
      return 0;
   // The first byte says how much of the end may be padding: only zeros may.
   std::size_t padding = 0;
   while( padding < data[0] && padding + 1 < size && data[size - 1 - padding] == 0 )
      ++padding;
   WireBytes const bytes( std::span( data + 1, size - 1 ) );

   static LspPing::LspPingMessageReader reader;
   LspPing::LspPingMessage const & message =
      reader.read( bytes.bytes(), { padding, ( data[0] & 1 ) != 0 } );
   if( !isSound( message ) )
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
