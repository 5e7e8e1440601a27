#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Access.h"

#include <string>
#include <vector>

/// A type's own attributes, a line each: "130 mtu U16 read write". A pointer's type ends in '*'.
inline std::vector< std::string > attributeLines( Kiv::TypeRef type ) {
   std::vector< std::string > lines;
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      std::string line = std::to_string( attribute.id ) + " " + std::string( attribute.name() );
      if( attribute.type() )
         line += " " + std::string( attribute.type().name() );
      line += attribute.reach == Kiv::Reach::value ? "" : "*";
      line += attribute.readable() ? " read" : "";
      line += attribute.writable() ? " write" : "";
      line += attribute.callable() ? " call" : "";
      lines.push_back( line );
   }
   return lines;
}

template < class T >
std::vector< std::string > attributeLines() {
   return attributeLines( Kiv::typeOf< T >() );
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
