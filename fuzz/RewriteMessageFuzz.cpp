#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "tests/WireBytes.h"
#include "tests/message/Rewrite.h"

#include <cstdlib>

// A message that is well-formed becomes the same bytes when it is written again, into a block that
// is just as large, and no byte behind a smaller one.

extern "C" int LLVMFuzzerTestOneInput( U8 const * data, std::size_t size ) {
   // The last two bytes say how much room there is for a second try.
   if( size < 2 )
      return 0;
   std::span< U8 const > const bytes( data, size - 2 );
   std::size_t const less = std::size_t{ data[size - 2] } << 8 | data[size - 1];

   static LspPing::LspPingMessageReader reader;
   LspPing::LspPingMessage const & message = reader.read( bytes );
   if( message.problems().empty() ) {
      WireBytes const block( bytes.size(), 0xa5 );
      LspPing::LspPingMessageWriter writer( block.bytes() );
      Rewrite::message( writer, message );
      if( writer.error() ||
          !std::equal( bytes.begin(), bytes.end(), writer.bytes().begin(), writer.bytes().end() ) )
         std::abort();
   }
   // Of any message what is whole can be copied, in any room.
   if( message.header() == nullptr )
      return 0;
   std::size_t const room = less < bytes.size() ? less : bytes.size();
   WireBytes const block( room, 0xa5 );
   LspPing::LspPingMessageWriter writer( block.bytes() );
   Rewrite::message( writer, message );
   if( writer.bytes().size() > room )
      std::abort();
   return 0;
}
