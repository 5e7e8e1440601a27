#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Access.h"

#include <string>
#include <string_view>
#include <vector>

// A type's attributes as text, and how an access to one ends.

using Lines = std::vector< std::string >;

/// What may be done with an attribute: r(ead), w(rite), c(all).
inline std::string accessText( Kiv::Attribute const & attribute ) {
   std::string text = attribute.readable() ? "r" : "";
   text += attribute.writable() ? "w" : "";
   text += attribute.callable() ? "c" : "";
   return text;
}

/// Types of namespace LspPing stand without it.
inline std::string shortName( Kiv::TypeId id ) {
   Kiv::TypeRef const type( id );
   std::string const name( type ? type.name() : "void" );
   return name.starts_with( "LspPing::" ) ? name.substr( 9 ) : name;
}

/// "*" stands behind a pointer's type, "^" behind a counted one's.
inline std::string typeText( Kiv::BufferType type ) {
   switch( type.reach ) {
   case Kiv::Reach::value:
      break;
   case Kiv::Reach::pointer:
      return shortName( type.type ) + "*";
   case Kiv::Reach::counted:
      return shortName( type.type ) + "^";
   }
   return shortName( type.type );
}

/// "mtu U16 rw", "padding[U32] U8 rw", "tryCastToTlv(U8*,U32) void c"
inline std::string attributeText( Kiv::Attribute const & attribute ) {
   std::string text( attribute.name() );
   if( attribute.collection() )
      text += "[" + shortName( attribute.collectionRecord->keyType ) + "]";
   if( attribute.callable() ) {
      text += "(";
      for( U8 i = 0; i < attribute.signature->count; ++i )
         text += ( i == 0 ? "" : "," ) + typeText( attribute.signature->arguments[i] );
      text += ")";
   }
   return text + " " + typeText( { attribute.typeId, attribute.reach } ) + " " +
          accessText( attribute );
}

/// A type's own attributes, a line each: "130 mtu U16 rw".
inline Lines attributeLines( Kiv::TypeRef type ) {
   Lines lines;
   for( Kiv::Attribute const & attribute : type.attributes() )
      lines.push_back( std::to_string( attribute.id ) + " " + attributeText( attribute ) );
   return lines;
}

template < class T >
Lines attributeLines() {
   return attributeLines( Kiv::typeOf< T >() );
}

/// The names of a type's own attributes: "pkt, offset, header".
inline std::string attributeNames( Kiv::TypeRef type ) {
   std::string names;
   for( Kiv::Attribute const & attribute : type.attributes() )
      names.append( names.empty() ? "" : ", " ).append( attribute.name() );
   return names;
}

template < class T >
std::string attributeNames() {
   return attributeNames( Kiv::typeOf< T >() );
}

/// How an access by the attribute's bare id ends.
template < class T, class Buffer >
Kiv::Outcome outcomeOf( T & object, U16 id, Kiv::OpCode op, Buffer & buffer ) {
   return Kiv::attributeAccess( Kiv::typeOf< T >(), &object, Kiv::Field( id ), op, &buffer );
}

/// True when a tool that asks first may read the attribute.
template < class T >
bool readableNow( T const & object, std::string_view name ) {
   Kiv::FoundAttribute const found = Kiv::attributeNamed( Kiv::typeOf< T >(), name );
   return found && found.attribute->readable() &&
          ( found.attribute->guard == nullptr || found.attribute->guard( &object ) );
}
