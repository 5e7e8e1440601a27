#include "tools/lspping/capture/EchoSource.h"

namespace LspPingTool {

std::string ReadError::message() const {
   std::string result = file + ": ";
   char const * separator = "";
   auto append = [&]( char const * name, std::optional< U64 > const & value ) {
      if( value ) {
         result += separator;
         result += name;
         result += std::to_string( *value );
         separator = ", ";
      }
   };
   append( "packet ", packet );
   append( "byte ", offset );
   append( "line ", line );
   append( "column ", column );
   if( *separator != '\0' )
      result += ": ";
   return result + text;
}

} // namespace LspPingTool
