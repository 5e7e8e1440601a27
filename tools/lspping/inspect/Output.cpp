#include "tools/lspping/inspect/Output.h"

#include "tools/lspping/ExitStatus.h"

#include <cstdlib>

namespace LspPingTool {

namespace {

// Reads a line without its end. False at the end of the file, or when it failed.
class LineReader {
 public:
   explicit LineReader( std::FILE * in ) : in_( in ) {}
   LineReader( LineReader const & ) = delete;
   LineReader & operator=( LineReader const & ) = delete;
   ~LineReader() { std::free( line_ ); }

   bool next() {
      length_ = ::getline( &line_, &room_, in_ );
      return length_ >= 0;
   }
   std::string_view line() const {
      std::string_view const all( line_, static_cast< std::size_t >( length_ ) );
      return all.substr( 0, all.find_last_not_of( "\r\n" ) + 1 );
   }

 private:
   std::FILE * in_;
   char * line_ = nullptr;
   std::size_t room_ = 0;
   ssize_t length_ = 0;
};

// What was given need not be UTF-8, and JSON must be.
std::string errorLine( std::string problem ) {
   for( char & c : problem )
      c = static_cast< unsigned char >( c ) < 0x80 ? c : '?';
   return jsonLine( [&]( JsonWriter & json ) {
             json.StartObject();
             writeKey( json, "error" );
             writeString( json, problem );
             json.EndObject();
          } ) +
          '\n';
}

int answerLines( std::FILE * in, std::FILE * out, std::FILE * err, Answer const & answer ) {
   int code = exitDone;
   LineReader reader( in );
   while( reader.next() ) {
      std::string text;
      try {
         text = answer( argumentsOf( reader.line() ), true );
      } catch( std::exception const & e ) {
         text = errorLine( e.what() );
         code = exitMalformedInput;
      }
      // Whoever sends lines one by one waits for the answers one by one.
      if( !put( out, text ) || std::fflush( out ) != 0 )
         return exitFileFailed;
   }
   if( std::ferror( in ) != 0 ) {
      static_cast< void >( put( err, "lspping: standard input cannot be read\n" ) );
      return exitFileFailed;
   }
   return code;
}

} // namespace

std::string jsonLine( std::function< void( JsonWriter & ) > const & write ) {
   rapidjson::StringBuffer buffer;
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

int answerAll( ObjectOptions const & options, std::FILE * in, std::FILE * out, std::FILE * err,
               Answer const & answer ) {
   if( options.arguments.size() == 1 && options.arguments.front() == "-" )
      return answerLines( in, out, err, answer );
   auto const failed = [err]( std::exception const & e, int code ) {
      static_cast< void >( put( err, "lspping: " + std::string( e.what() ) + '\n' ) );
      return code;
   };
   try {
      std::string const text = answer( options.arguments, options.json );
      return put( out, text ) ? exitDone : exitFileFailed;
   } catch( UsageError const & e ) {
      return failed( e, exitWrongUsage );
   } catch( std::exception const & e ) {
      return failed( e, exitMalformedInput );
   }
}

bool put( std::FILE * out, std::string const & text ) {
   return std::fwrite( text.data(), 1, text.size(), out ) == text.size();
}

} // namespace LspPingTool
