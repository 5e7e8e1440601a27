#pragma once

#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace LspPingTool {

// NOLINTBEGIN(readability-identifier-naming): rapidjson asks for these names.
/// Memory for rapidjson, which writes to whatever it is given, null too: without memory this raises
/// std::bad_alloc.
class JsonAllocator {
 public:
   static constexpr bool kNeedFree = true;

   void * Malloc( std::size_t size ) { return Realloc( nullptr, 0, size ); }
   void * Realloc( void * block, std::size_t, std::size_t size );
   static void Free( void * block ) noexcept { std::free( block ); }
};
// NOLINTEND(readability-identifier-naming)

using JsonBuffer = rapidjson::GenericStringBuffer< rapidjson::UTF8<>, JsonAllocator >;

/// Writes JSON into memory. Nearly all that the tool writes is text without anything to escape, so
/// that is copied eight bytes at a time.
class JsonWriter
   : public rapidjson::Writer< JsonBuffer, rapidjson::UTF8<>, rapidjson::UTF8<>, JsonAllocator > {
 public:
   explicit JsonWriter( JsonBuffer & out ) : Writer( out ) {}

   /// A string or a key, as the place asks for. Each byte that is no UTF-8 becomes U+FFFD; control
   /// characters are escaped, DEL and those above ASCII too, for the sake of terminals.
   void text( std::string_view text );
};

inline void writeKey( JsonWriter & json, std::string_view key ) {
   json.text( key );
}

inline void writeString( JsonWriter & json, std::string_view text ) {
   json.text( text );
}

/// Writes a registered value: numbers as numbers (network-order integers as the host reads them),
/// booleans as booleans, whatever has a text of its own as a string, and other values as objects of
/// their attributes.
void writeValue( JsonWriter & json, Kiv::TypeRef type, void const * value );

/// Writes one attribute's value, read through the generic access. What the object's state forbids
/// to read is null.
void writeAttribute( JsonWriter & json, Kiv::TypeRef declaring, Kiv::Attribute const & attribute,
                     void const * object );

/// An attribute whose value, a text, is at hand already.
struct KnownText {
   Kiv::Attribute const * attribute = nullptr;
   std::string_view text;
};

/// Writes an object of all readable attributes, the inherited ones first.
void writeAttributes( JsonWriter & json, Kiv::TypeRef type, void const * object,
                      KnownText known = {} );

} // namespace LspPingTool
