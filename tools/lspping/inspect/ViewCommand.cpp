#include "tools/lspping/inspect/Answers.h"
#include "tools/lspping/inspect/Commands.h"
#include "tools/lspping/inspect/Subject.h"

namespace LspPingTool {

namespace {

std::string answerView( std::vector< std::string > const & arguments, bool json ) {
   if( arguments.size() < 2 )
      throw UsageError( "view wants TYPE[@OFFSET] HEX [NAME=VALUE]..." );
   std::string_view name = arguments[0];
   U32 offset = 0;
   if( std::size_t const at = name.find( '@' ); at != std::string_view::npos ) {
      offset = numberGiven( name.substr( at + 1 ), "offset" );
      name = name.substr( 0, at );
   }
   Kiv::TypeRef const type = typeGiven( name );
   std::vector< WriteGiven > const writes = writesGiven( arguments, 2 );
   Subject const subject( type, bytesGiven( arguments[1] ), offset );
   std::vector< WriteDone > const done =
      applyWrites( type, subject.object(), writes, [&] { subject.checkBytes(); } );
   subject.checkBytes();

   if( json )
      return jsonLine( [&]( JsonWriter & line ) {
                line.StartObject();
                writeKey( line, "type" );
                writeString( line, type.name() );
                writeKey( line, "attributes" );
                writeAttributes( line, type, subject.object() );
                writeOutcomes( line, done );
                writeKey( line, "hex" );
                writeString( line, hexOf( subject.bytes() ) );
                line.EndObject();
             } ) +
             '\n';
   std::string text( type.name() );
   text += '\n';
   appendAttributes( text, type, subject.object() );
   appendOutcomes( text, done );
   return text + "bytes " + hexOf( subject.bytes() ) + '\n';
}

} // namespace

int runView( ObjectOptions const & options, Output & output ) {
   return answerAll( options, output, answerView );
}

} // namespace LspPingTool
