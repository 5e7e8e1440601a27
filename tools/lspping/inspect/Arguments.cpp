#include "tools/lspping/inspect/Arguments.h"

#include "tools/lspping/io/HexBytes.h"

#include <cctype>
#include <charconv>

namespace LspPingTool {

namespace {

bool isNameCharacter( char c ) {
   return std::isalnum( static_cast< unsigned char >( c ) ) != 0 || c == '_';
}

bool isBlank( char c ) {
   return std::isspace( static_cast< unsigned char >( c ) ) != 0;
}

std::optional< U32 > numberOf( std::string_view text ) {
   U32 number = 0;
   auto const [end, error] = std::from_chars( text.data(), text.data() + text.size(), number );
   if( error != std::errc{} || end != text.data() + text.size() )
      return std::nullopt;
   return number;
}

} // namespace

Kiv::TypeRef typeGiven( std::string_view name ) {
   // What has a namespace is asked for as it stands first, then as a name of LspPing's.
   Kiv::TypeRef type = Kiv::typeNamed( name );
   if( !type )
      type = Kiv::typeNamed( std::string( "LspPing::" ).append( name ) );
   // Places that are kept for types to come have no name.
   if( type.kind() != Kiv::Kind::absent )
      return type;
   throw UsageError( "no type \"" + std::string( name ) + "\" is registered" );
}

U32 numberGiven( std::string_view text, std::string_view what ) {
   std::optional< U32 > const number = numberOf( text );
   if( !number )
      throw UsageError( "\"" + std::string( text ) + "\" is no " + std::string( what ) );
   return *number;
}

std::vector< U8 > bytesGiven( std::string_view hex ) {
   HexBytes bytes( hex.size() );
   HexBytes::Fault fault = HexBytes::Fault::none;
   for( std::size_t i = 0; i < hex.size() && fault == HexBytes::Fault::none; ++i )
      fault = bytes.take( hex[i] );
   if( fault == HexBytes::Fault::none )
      fault = bytes.end();
   if( fault != HexBytes::Fault::none )
      throw InputError( "no byte of two hexadecimal digits at character " +
                        std::to_string( bytes.column() ) + " of the bytes" );
   return bytes.bytes();
}

std::string WriteGiven::target() const {
   return key ? name + '[' + std::to_string( *key ) + ']' : name;
}

std::optional< WriteGiven > writeGiven( std::string_view text ) {
   std::size_t end = 0;
   while( end < text.size() && isNameCharacter( text[end] ) )
      ++end;
   WriteGiven write;
   write.name = text.substr( 0, end );
   text.remove_prefix( end );
   if( write.name.empty() )
      return std::nullopt;
   if( text.starts_with( '[' ) ) {
      std::size_t const close = text.find( ']' );
      if( close == std::string_view::npos )
         return std::nullopt;
      write.key = numberOf( text.substr( 1, close - 1 ) );
      if( !write.key )
         return std::nullopt;
      text.remove_prefix( close + 1 );
   }
   if( !text.starts_with( '=' ) )
      return std::nullopt;
   write.value = text.substr( 1 );
   return write;
}

std::vector< WriteGiven > writesGiven( std::vector< std::string > const & arguments,
                                       std::size_t first ) {
   std::vector< WriteGiven > writes;
   for( std::size_t i = first; i < arguments.size(); ++i ) {
      std::optional< WriteGiven > write = writeGiven( arguments[i] );
      if( !write )
         throw UsageError( "\"" + arguments[i] + "\" is no NAME=VALUE" );
      writes.push_back( std::move( *write ) );
   }
   return writes;
}

std::vector< std::string > argumentsOf( std::string_view line ) {
   std::vector< std::string > arguments;
   auto const add = [&arguments]( std::string && argument ) {
      if( argument.empty() )
         return;
      if( arguments.size() < 2 || writeGiven( argument ) )
         arguments.push_back( std::move( argument ) );
      else
         arguments.back().append( " " ).append( argument );
   };
   std::string argument;
   unsigned depth = 0;
   bool quoted = false;
   for( std::size_t i = 0; i < line.size(); ++i ) {
      char const c = line[i];
      if( !quoted && depth == 0 && isBlank( c ) ) {
         add( std::move( argument ) );
         argument.clear();
         continue;
      }
      argument += c;
      if( quoted && c == '\\' && i + 1 < line.size() )
         argument += line[++i];
      else if( c == '"' )
         quoted = !quoted;
      else if( !quoted && ( c == '(' || c == '{' ) )
         ++depth;
      else if( !quoted && depth > 0 && ( c == ')' || c == '}' ) )
         --depth;
   }
   add( std::move( argument ) );
   return arguments;
}

} // namespace LspPingTool
