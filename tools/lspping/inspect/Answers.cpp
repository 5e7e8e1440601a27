#include "tools/lspping/inspect/Answers.h"

#include "tools/lspping/inspect/LineReader.h"
#include "tools/lspping/io/Diagnostics.h"
#include "tools/lspping/io/ExitStatus.h"
#include "tools/lspping/io/InputFile.h"
#include "tools/lspping/io/Interruption.h"
#include "tools/lspping/io/Output.h"

#include <new>

namespace LspPingTool {

namespace {

/// The answer, or what keeps from having one.
struct Answered {
   int status;
   std::string text;
};

Answered answered( Answer const & answer, std::vector< std::string > const & arguments,
                   bool json ) {
   try {
      return { exitDone, answer( arguments, json ) };
   } catch( std::bad_alloc const & ) {
      throw; // the program's end, not this answer's
   } catch( UsageError const & e ) {
      return { exitWrongUsage, e.what() };
   } catch( std::exception const & e ) {
      return { exitMalformedInput, e.what() };
   }
}

std::string errorLine( std::string_view problem ) {
   return jsonLine( [&]( JsonWriter & json ) {
             json.StartObject();
             writeKey( json, "error" );
             writeString( json, problem );
             json.EndObject();
          } ) +
          '\n';
}

int answerLines( Output & output, Answer const & answer ) {
   int status = exitDone;
   InputFile input( "-" );
   LineReader reader( input );
   while( output.state() == Output::State::open && !isInterrupted() ) {
      Answered line{ exitMalformedInput, {} };
      switch( reader.next() ) {
      case LineReader::Step::line:
         line = answered( answer, argumentsOf( reader.line() ), true );
         break;
      case LineReader::Step::tooLong:
         line.text = "line " + std::to_string( reader.number() ) + " has more than " +
                     std::to_string( LineReader::maximumLength ) + " bytes";
         break;
      case LineReader::Step::end:
         if( input.failure() == 0 || isInterrupted() )
            return status;
         tell( input.name() + ": " + systemText( input.failure() ) );
         return exitFileFailed;
      }
      // Whoever sends lines one by one waits for the answers one by one.
      if( line.status == exitDone ) {
         output.write( line.text );
      } else {
         output.write( errorLine( line.text ) );
         status = exitMalformedInput;
      }
   }
   return status;
}

} // namespace

std::string jsonLine( std::function< void( JsonWriter & ) > const & write ) {
   JsonBuffer buffer;
   JsonWriter json( buffer );
   write( json );
   return { buffer.GetString(), buffer.GetSize() };
}

void appendAttributes( std::string & out, Kiv::TypeRef type, void const * object ) {
   if( Kiv::TypeRef const base = type.base() )
      appendAttributes( out, base, object );
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      if( !attribute.readable() )
         continue;
      out.append( "  " ).append( attribute.name() ).append( " = " );
      out +=
         jsonLine( [&]( JsonWriter & json ) { writeAttribute( json, type, attribute, object ); } );
      out += '\n';
   }
}

void appendOutcomes( std::string & out, std::vector< WriteDone > const & writes ) {
   if( writes.empty() )
      return;
   out += "writes\n";
   for( WriteDone const & write : writes )
      out.append( "  " )
         .append( write.target )
         .append( ": " )
         .append( outcomeText( write.outcome ) ) += '\n';
}

std::string hexOf( std::span< U8 const > bytes ) {
   static constexpr char digits[] = "0123456789abcdef";
   std::string text;
   text.reserve( bytes.size() * 2 );
   for( U8 const byte : bytes ) {
      text += digits[byte >> 4];
      text += digits[byte & 15];
   }
   return text;
}

int answerAll( ObjectOptions const & options, Output & output, Answer const & answer ) {
   if( options.arguments.size() == 1 && options.arguments.front() == "-" )
      return answerLines( output, answer );
   Answered const all = answered( answer, options.arguments, options.json );
   if( all.status == exitDone )
      output.write( all.text );
   else
      tell( all.text );
   return all.status;
}

} // namespace LspPingTool
