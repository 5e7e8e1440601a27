#pragma once

#include "MplsUtils/LspPing/platform/Kiv/TypeRef.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string_view>

namespace LspPingTool {

/// Writes JSON into memory. Nearly all that the tool writes is text without anything to escape, so
/// that is copied eight bytes at a time.
class JsonWriter : public rapidjson::Writer< rapidjson::StringBuffer > {
 public:
   explicit JsonWriter( rapidjson::StringBuffer & out ) : Writer( out ) {}

   /// A string or a key, as the place asks for.
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

/// Writes an object of all readable attributes, the inherited ones first.
void writeAttributes( JsonWriter & json, Kiv::TypeRef type, void const * object );

} // namespace LspPingTool
