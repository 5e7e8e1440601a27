#include "tools/lspping/inspect/Writes.h"

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <algorithm>

namespace LspPingTool {

namespace {

// A message has no more bytes, so no list needs more places; a list grows to cover its highest key.
constexpr U32 highestKey = 65535;

bool holdsCollection( Kiv::TypeRef type ) {
   if( type.operations().appendText != nullptr )
      return false;
   return std::ranges::any_of( type.attributes(), []( Kiv::Attribute const & attribute ) {
      return attribute.stored() &&
             ( attribute.collection() || holdsCollection( attribute.type() ) );
   } );
}

Kiv::Outcome applyWrite( Kiv::TypeRef type, void * object, WriteGiven const & write,
                         std::function< void() > const & isThere ) {
   Kiv::FoundAttribute const found = Kiv::attributeNamed( type, write.name );
   if( !found )
      return Kiv::Outcome::noSuchAttribute;
   auto const access = [&]( void * buffer ) {
      return Kiv::attributeAccess( type, object, found.field(), Kiv::OpCode::write, buffer );
   };
   Kiv::Attribute const & attribute = *found.attribute;
   // What is refused is refused before the buffer is looked at.
   if( !attribute.writable() )
      return access( nullptr );
   if( attribute.collection() != write.key.has_value() )
      throw InputError( write.name + ( attribute.collection() ? " is a collection: NAME[KEY]=VALUE"
                                                              : " is no collection: NAME=VALUE" ) );
   if( attribute.reach == Kiv::Reach::pointer ) {
      if( write.value != "null" )
         throw InputError( write.name + ": a pointer can be set to null only, not to \"" +
                           write.value + '"' );
      void * nothing = nullptr;
      return access( &nothing );
   }
   Kiv::Instance value( attribute.type() );
   valueFromText( attribute.type(), write.value, value.object(), write.target() );
   if( attribute.hasConditions() ) {
      isThere();
      Orlo::String const refusal =
         Kiv::writeRefusal( found.declaring.record(), attribute, object, value.object() );
      if( !refusal.empty() )
         throw InputError( write.target() + " \"" + write.value + "\": " + refusal );
   }
   if( !attribute.collection() )
      return access( value.object() );
   if( *write.key > highestKey )
      throw InputError( write.target() + ": no key above " + std::to_string( highestKey ) );
   Kiv::Entry entry{ *write.key, value.object() };
   return access( &entry );
}

} // namespace

bool isParsable( Kiv::TypeRef type ) {
   return type.operations().parse != nullptr && !holdsCollection( type );
}

void valueFromText( Kiv::TypeRef type, std::string_view text, void * value,
                    std::string const & subject ) {
   if( type == Kiv::typeOf< Orlo::String >() && !text.starts_with( '"' ) ) {
      *static_cast< Orlo::String * >( value ) = text;
      return;
   }
   std::string const given = " \"" + std::string( text ) + "\": ";
   if( !isParsable( type ) )
      throw InputError( subject + given + std::string( type.name() ) + " has no text to read" );
   try {
      KivOrlo::strepToValue( text, type, value );
   } catch( Kiv::RangeException const & e ) {
      throw InputError( subject + given + e.what() );
   }
}

std::vector< WriteDone > applyWrites( Kiv::TypeRef type, void * object,
                                      std::vector< WriteGiven > const & writes,
                                      std::function< void() > const & isThere ) {
   std::vector< WriteDone > done;
   done.reserve( writes.size() );
   for( WriteGiven const & write : writes )
      done.push_back( { write.target(), applyWrite( type, object, write, isThere ) } );
   return done;
}

void writeOutcomes( JsonWriter & json, std::vector< WriteDone > const & writes ) {
   writeKey( json, "writes" );
   json.StartArray();
   for( WriteDone const & write : writes ) {
      json.StartObject();
      writeKey( json, "name" );
      writeString( json, write.target );
      writeKey( json, "outcome" );
      json.Uint( static_cast< unsigned >( write.outcome ) );
      json.EndObject();
   }
   json.EndArray();
}

std::string_view outcomeText( Kiv::Outcome outcome ) {
   switch( outcome ) {
   case Kiv::Outcome::done:
      return "done";
   case Kiv::Outcome::notPermitted:
      return "not permitted";
   case Kiv::Outcome::noSuchAttribute:
      return "no such attribute";
   }
   return "unknown";
}

} // namespace LspPingTool
