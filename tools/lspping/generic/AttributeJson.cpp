#include "tools/lspping/generic/AttributeJson.h"

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/Printable.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>

namespace LspPingTool {

namespace {

// Writes a value of type T, if that is its type.
template < class T >
bool writeNumberIf( JsonWriter & json, Kiv::TypeId type, void const * value ) {
   if( type != Kiv::typeIdOf< T > )
      return false;
   T const & number = *static_cast< T const * >( value );
   if constexpr( requires { number.value(); } )
      json.Uint64( number.value() );
   else
      json.Uint64( number );
   return true;
}

// Reads an attribute of type T, if that is its type, and writes its value.
template < class T >
bool readAndWriteIf( JsonWriter & json, Kiv::TypeRef declaring, Kiv::Attribute const & attribute,
                     void * object ) {
   if( attribute.typeId != Kiv::typeIdOf< T > )
      return false;
   T buffer{};
   Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, &buffer );
   writeValue( json, Kiv::typeOf< T >(), &buffer );
   return true;
}

void writeCollection( JsonWriter & json, Kiv::TypeRef declaring, Kiv::Attribute const & attribute,
                      void * object ) {
   json.StartObject();
   Kiv::CollectionIterator element( declaring, object, attribute.name() );
   for( ; element.iterNonnull(); element.iterInc() ) {
      writeKey( json, std::to_string( element.iterKey() ) );
      writeValue( json, attribute.type(), element.iterObj() );
   }
   json.EndObject();
}

void writeMembers( JsonWriter & json, Kiv::TypeRef type, void const * object, KnownText known ) {
   if( Kiv::TypeRef const base = type.base() )
      writeMembers( json, base, object, known );
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      if( !attribute.readable() )
         continue;
      writeKey( json, attribute.name() );
      if( &attribute == known.attribute )
         writeString( json, known.text );
      else
         writeAttribute( json, type, attribute, object );
   }
}

void writeTarget( JsonWriter & json, Kiv::TypeRef type, void const * target ) {
   if( target == nullptr )
      json.Null();
   else
      writeAttributes( json, type, target );
}

// Whether a byte of the eight is a control character, a quote, a backslash or none of ASCII.
bool needsEscape( U64 block ) noexcept {
   constexpr U64 ones = 0x0101010101010101;
   constexpr U64 highs = 0x80 * ones;
   U64 const quote = block ^ ( '"' * ones );
   U64 const backslash = block ^ ( '\\' * ones );
   return ( ( ( block - 0x20 * ones ) | ( quote - ones ) | ( backslash - ones ) | ( block + ones ) |
              block ) &
            highs ) != 0;
}

char * putUnicodeEscape( char * at, unsigned code ) noexcept {
   for( char const character : { '\\', 'u', '0', '0' } )
      *at++ = character;
   return Orlo::putHexByte( at, static_cast< U8 >( code ), true );
}

char * putAscii( char * at, char character ) noexcept {
   static constexpr std::string_view controls = "uuuuuuuubtnufruuuuuuuuuuuuuuuuuu";
   auto const code = static_cast< unsigned char >( character );
   if( code == 0x7f || ( code < 0x20 && controls[code] == 'u' ) )
      return putUnicodeEscape( at, code );
   if( code < 0x20 || character == '"' || character == '\\' )
      *at++ = '\\';
   *at++ = code < 0x20 ? controls[code] : character;
   return at;
}

// Writes the first character of the text, or U+FFFD for a first byte that begins none, and takes it
// away.
char * putCharacter( char * at, std::string_view & text ) noexcept {
   std::size_t const length = Kiv::utf8Length( text );
   auto const second = static_cast< unsigned char >( length == 2 ? text[1] : '\0' );
   if( length == 1 ) {
      at = putAscii( at, text[0] );
   } else if( text[0] == '\xC2' && length == 2 && second < 0xA0 ) {
      at = putUnicodeEscape( at, second );
   } else {
      std::string_view const all = length == 0 ? "\xEF\xBF\xBD" : text.substr( 0, length );
      at = std::copy( all.begin(), all.end(), at );
   }
   text.remove_prefix( std::max( length, std::size_t{ 1 } ) );
   return at;
}

} // namespace

void * JsonAllocator::Realloc( void * block, std::size_t, std::size_t size ) {
   if( size == 0 ) {
      Free( block );
      return nullptr;
   }
   void * const result = std::realloc( block, size );
   if( result == nullptr )
      throw std::bad_alloc();
   return result;
}

void JsonWriter::text( std::string_view text ) {
   Prefix( rapidjson::kStringType );
   // The longest escape has six characters.
   std::size_t const room = 6 * text.size() + 2;
   char * const begin = os_->Push( room );
   char * at = begin;
   *at++ = '"';
   while( !text.empty() ) {
      if( text.size() >= sizeof( U64 ) ) {
         U64 block;
         std::memcpy( &block, text.data(), sizeof block );
         if( !needsEscape( block ) ) {
            std::memcpy( at, &block, sizeof block );
            at += sizeof block;
            text.remove_prefix( sizeof block );
            continue;
         }
      }
      // All of the eight one by one, and whatever of the last character is behind them.
      char const * const blockEnd = text.data() + std::min( text.size(), sizeof( U64 ) );
      while( !text.empty() && text.data() < blockEnd )
         at = putCharacter( at, text );
   }
   *at++ = '"';
   os_->Pop( room - static_cast< std::size_t >( at - begin ) );
   EndValue( true );
}

void writeValue( JsonWriter & json, Kiv::TypeRef type, void const * value ) {
   Kiv::TypeId const id = type.id();
   if( writeNumberIf< U8 >( json, id, value ) || writeNumberIf< U16 >( json, id, value ) ||
       writeNumberIf< U32 >( json, id, value ) || writeNumberIf< U64 >( json, id, value ) ||
       writeNumberIf< Velnet::NetU16 >( json, id, value ) ||
       writeNumberIf< Velnet::NetU32 >( json, id, value ) ||
       writeNumberIf< Velnet::NetU64 >( json, id, value ) )
      return;
   if( id == Kiv::typeIdOf< bool > ) {
      json.Bool( *static_cast< bool const * >( value ) );
   } else if( id == Kiv::typeIdOf< double > ) {
      json.Double( *static_cast< double const * >( value ) );
   } else if( id == Kiv::typeIdOf< Orlo::String > ) {
      writeString( json, *static_cast< Orlo::String const * >( value ) );
   } else if( type.operations().appendText != nullptr ) {
      Orlo::StringBuilder text;
      type.operations().appendText( text, value );
      writeString( json, text.view() );
   } else {
      writeAttributes( json, type, value );
   }
}

void writeAttribute( JsonWriter & json, Kiv::TypeRef declaring, Kiv::Attribute const & attribute,
                     void const * constObject ) {
   if( attribute.guard != nullptr && !attribute.guard( constObject ) ) {
      json.Null();
      return;
   }
   // Reading changes nothing, but the one access function of a row also writes.
   void * object = const_cast< void * >( constObject );
   if( attribute.collection() ) {
      writeCollection( json, declaring, attribute, object );
   } else if( attribute.reach == Kiv::Reach::pointer ) {
      void * target = nullptr;
      Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, &target );
      writeTarget( json, attribute.type(), target );
   } else if( attribute.reach == Kiv::Reach::counted ) {
      Orlo::Ptr< Orlo::Node > target;
      Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, &target );
      writeTarget( json, attribute.type(), target.get() );
   } else if( !readAndWriteIf< U8 >( json, declaring, attribute, object ) &&
              !readAndWriteIf< U16 >( json, declaring, attribute, object ) &&
              !readAndWriteIf< U32 >( json, declaring, attribute, object ) &&
              !readAndWriteIf< bool >( json, declaring, attribute, object ) &&
              !readAndWriteIf< Orlo::String >( json, declaring, attribute, object ) ) {
      // What most attributes are was tried above without going through a built buffer.
      Kiv::Instance buffer( attribute.type() );
      Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, buffer.object() );
      writeValue( json, attribute.type(), buffer.object() );
   }
}

void writeAttributes( JsonWriter & json, Kiv::TypeRef type, void const * object, KnownText known ) {
   json.StartObject();
   writeMembers( json, type, object, known );
   json.EndObject();
}

} // namespace LspPingTool
