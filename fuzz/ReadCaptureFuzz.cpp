#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "tools/lspping/capture/CaptureReader.h"
#include "tools/lspping/capture/HexReader.h"
#include "tools/lspping/decode/JsonPrinter.h"
#include "tools/lspping/decode/TextPrinter.h"

#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

// Any bytes are a file: it is read as a capture and as hexadecimal text to its end, and every
// message in it is walked and printed, its time and way with it.

namespace {

void print( LspPingTool::Printer && printer, LspPingTool::EchoPacket const & packet,
            LspPing::LspPingMessage const & message ) {
   printer.print( packet, message );
   if( !printer.pending().ends_with( '\n' ) )
      std::abort();
}

void readAll( LspPingTool::EchoSource && source ) {
   static LspPing::LspPingMessageReader reader;
   for( ;; ) {
      switch( source.next() ) {
      case LspPingTool::EchoSource::Step::message: {
         LspPing::LspPingMessage const & message = reader.read( source.packet().payload );
         print( LspPingTool::TextPrinter( LspPingTool::TextPrinter::Colour::off ), source.packet(),
                message );
         print( LspPingTool::JsonPrinter(), source.packet(), message );
         break;
      }
      case LspPingTool::EchoSource::Step::error:
         if( source.error().message().empty() )
            std::abort();
         break;
      case LspPingTool::EchoSource::Step::end:
         return;
      }
   }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput( U8 const * data, std::size_t size ) {
   static int const file = ::memfd_create( "input", 0 );
   static std::string const path = "/proc/self/fd/" + std::to_string( file );
   if( file < 0 || ::ftruncate( file, 0 ) != 0 ||
       ::pwrite( file, data, size, 0 ) != static_cast< ssize_t >( size ) )
      std::abort();
   readAll( LspPingTool::CaptureReader( path ) );
   readAll( LspPingTool::HexReader( path ) );
   return 0;
}
