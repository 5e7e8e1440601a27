#include "tools/lspping/decode/Decode.h"

#include "tools/lspping/ExitStatus.h"
#include "tools/lspping/capture/CaptureReader.h"
#include "tools/lspping/capture/HexReader.h"
#include "tools/lspping/decode/JsonPrinter.h"
#include "tools/lspping/decode/Output.h"
#include "tools/lspping/decode/Progress.h"
#include "tools/lspping/decode/TextPrinter.h"
#include "tools/lspping/decode/Walk.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <unistd.h>

namespace LspPingTool {

namespace {

constexpr std::size_t blockSize = 65536;

class Decoder {
 public:
   explicit Decoder( DecodeOptions const & options )
      : isHex_( options.isHex ),
        progress_( !output_.isTerminal() ),
        // On one terminal the text itself shows the problems, right below their message.
        tellsProblems_( options.isJson || !output_.isTerminal() ||
                        ::isatty( STDERR_FILENO ) != 1 ) {
      ShowRecords const records = options.hasRecords ? ShowRecords::yes : ShowRecords::no;
      if( options.isJson ) {
         printer_ = std::make_unique< JsonPrinter >( records );
      } else {
         printer_ = std::make_unique< TextPrinter >(
            mayColour( output_ ) ? TextPrinter::Colour::on : TextPrinter::Colour::off, records );
      }
   }

   void file( std::string const & path ) {
      std::unique_ptr< EchoSource > source;
      if( isHex_ )
         source = std::make_unique< HexReader >( path );
      else
         source = std::make_unique< CaptureReader >( path );
      name_ = path == "-" ? "standard input" : path;
      while( output_.state() == Output::State::open ) {
         switch( source->next() ) {
         case EchoSource::Step::message:
            message( source->packet() );
            progress_.show( *source, name_ );
            break;
         case EchoSource::Step::error:
            tell( source->error().message() );
            statusIs( static_cast< int >( source->error().kind ) );
            break;
         case EchoSource::Step::end:
            return;
         }
      }
   }

   int finish() {
      flush();
      progress_.hide();
      if( output_.state() == Output::State::closed )
         return exitDone;
      if( output_.state() == Output::State::failed ) {
         (void)std::fprintf( stderr, "lspping: standard output: %s\n",
                             systemText( output_.failure() ).c_str() );
         return exitFileFailed;
      }
      return status_;
   }

   bool isOpen() const noexcept { return output_.state() == Output::State::open; }

 private:
   void message( EchoPacket const & packet ) {
      walk( packet, message_ );
      printer_->print( packet, message_ );
      if( output_.isTerminal() || printer_->pending().size() >= blockSize )
         flush();
      problems( packet, packet.problems );
      problems( packet, message_.problems );
   }

   void problems( EchoPacket const & packet, std::vector< Problem > const & list ) {
      if( list.empty() )
         return;
      statusIs( exitMalformedInput );
      if( !tellsProblems_ )
         return;
      for( Problem const & problem : list ) {
         tell( name_ + ": packet " + std::to_string( packet.number ) + ", offset " +
               std::to_string( problem.offset ) + ": " + problem.text );
      }
   }

   void tell( std::string const & text ) {
      progress_.hide();
      (void)std::fprintf( stderr, "lspping: %s\n", text.c_str() );
   }

   void flush() {
      output_.write( printer_->pending() );
      printer_->clear();
   }

   void statusIs( int status ) { status_ = std::max( status_, status ); }

   bool isHex_;
   Output output_;
   Progress progress_;
   bool tellsProblems_;
   std::unique_ptr< Printer > printer_;
   std::string name_;
   Message message_;
   int status_ = exitDone;
};

} // namespace

int decode( DecodeOptions const & options ) {
   Decoder decoder( options );
   for( std::string const & path : options.files ) {
      if( decoder.isOpen() )
         decoder.file( path );
   }
   return decoder.finish();
}

} // namespace LspPingTool
