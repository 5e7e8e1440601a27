#include "tools/lspping/decode/Decode.h"

#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "tools/lspping/capture/CaptureReader.h"
#include "tools/lspping/capture/HexReader.h"
#include "tools/lspping/decode/JsonPrinter.h"
#include "tools/lspping/decode/Progress.h"
#include "tools/lspping/decode/TextPrinter.h"
#include "tools/lspping/io/Diagnostics.h"
#include "tools/lspping/io/ExitStatus.h"
#include "tools/lspping/io/Interruption.h"
#include "tools/lspping/io/Output.h"

#include <algorithm>
#include <memory>
#include <unistd.h>

namespace LspPingTool {

namespace {

constexpr std::size_t blockSize = 65536;

class Decoder {
 public:
   Decoder( DecodeOptions const & options, Output & output )
      : isHex_( options.isHex ),
        output_( output ),
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
      // Whoever sends messages one by one sees them one by one.
      BeforeWait const beforeWait = [this] { flush(); };
      std::unique_ptr< EchoSource > source;
      if( isHex_ )
         source = std::make_unique< HexReader >( path, beforeWait );
      else
         source = std::make_unique< CaptureReader >( path, beforeWait );
      name_ = path == "-" ? "standard input" : path;
      while( goesOn() ) {
         switch( source->next() ) {
         case EchoSource::Step::message:
            message( source->packet() );
            progress_.show( *source, name_ );
            break;
         case EchoSource::Step::error:
            // An input that was left is not one that failed.
            if( !isInterrupted() ) {
               diagnose( source->error().message() );
               statusIs( static_cast< int >( source->error().kind ) );
            }
            break;
         case EchoSource::Step::end:
            return;
         }
      }
   }

   bool goesOn() const noexcept {
      return output_.state() == Output::State::open && !isInterrupted();
   }

   /// Messages that were begun and not finished are left out.
   void flush() {
      output_.write( printer_->pending().substr( 0, finished_ ) );
      printer_->clear();
      finished_ = 0;
   }

   int finish() {
      flush();
      progress_.hide();
      return status_;
   }

 private:
   void message( EchoPacket const & packet ) {
      LspPing::LspPingMessage const & message = reader_.read(
         packet.payload, { packet.possiblePadding, packet.payload.size() < packet.claimedLength } );
      printer_->print( packet, message );
      finished_ = printer_->pending().size();
      if( output_.isTerminal() || printer_->pending().size() >= blockSize )
         flush();
      for( Problem const & problem : packet.problems )
         this->problem( packet, problem.offset, problem.text );
      for( LspPing::LspPingProblem const & problem : message.problems() ) {
         Orlo::StringBuilder text;
         message.appendText( text, problem );
         this->problem( packet, problem.offset, text.view() );
      }
   }

   void problem( EchoPacket const & packet, std::size_t offset, std::string_view text ) {
      statusIs( exitMalformedInput );
      if( tellsProblems_ )
         diagnose( name_ + ": packet " + std::to_string( packet.number ) + ", offset " +
                   std::to_string( offset ) + ": " + std::string( text ) );
   }

   void diagnose( std::string const & text ) {
      progress_.hide();
      tell( text );
   }

   void statusIs( int status ) { status_ = std::max( status_, status ); }

   bool isHex_;
   Output & output_;
   Progress progress_;
   bool tellsProblems_;
   std::unique_ptr< Printer > printer_;
   std::size_t finished_ = 0; ///< of what the printer has
   std::string name_;
   LspPing::LspPingMessageReader reader_;
   int status_ = exitDone;
};

} // namespace

int decode( DecodeOptions const & options, Output & output ) {
   Decoder decoder( options, output );
   try {
      for( std::string const & path : options.files )
         if( decoder.goesOn() )
            decoder.file( path );
   } catch( ... ) {
      static_cast< void >( decoder.finish() );
      throw;
   }
   return decoder.finish();
}

} // namespace LspPingTool
