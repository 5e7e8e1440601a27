#include "tests/module/Subjects.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace ModuleTest {

namespace {

Orlo::String addressText( Random & random ) {
   Orlo::String text = std::to_string( random() % 256 );
   for( int i = 0; i < 3; ++i )
      text += "." + std::to_string( random() % 256 );
   return text;
}

// The low bits of a random number, as many as the type has.
Orlo::String numberText( Kiv::TypeRef type, Random & random ) {
   static std::map< std::string_view, int > const bits = {
      { "U8", 8 },
      { "U16", 16 },
      { "U32", 32 },
      { "U64", 64 },
      { "Velnet::NetU16", 16 },
      { "Velnet::NetU32", 32 },
      { "Velnet::NetU64", 64 },
   };
   auto const found = bits.find( type.name() );
   if( found == bits.end() )
      return {};
   return std::to_string( random() >> ( 64 - found->second ) );
}

Orlo::String randomText( Kiv::TypeRef type, Random & random ) {
   if( Orlo::String number = numberText( type, random ); !number.empty() )
      return number;
   if( type.kind() == Kiv::Kind::enumeration )
      return numberText( Kiv::TypeRef( type.record().underlying ), random );
   if( type.name() == "bool" )
      return random() % 2 != 0 ? "true" : "false";
   if( type.name() == "Velnet::IpAddr" || type.name() == "Velnet::IpGenAddr" )
      return addressText( random );
   if( type.name() == "Velnet::Ip6Addr" )
      return "2001:db8::" + std::to_string( random() % 9000 + 1 );
   if( type.name() == "Velnet::IpGenPrefix" )
      return "10." + std::to_string( random() % 256 ) + ".0.0/16";
   return {};
}

} // namespace

std::vector< Kiv::TypeRef > libraryTypes() {
   std::vector< Kiv::TypeRef > types;
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      if( !module->name.starts_with( "LspPing" ) )
         continue;
      for( U16 index = 0; index < module->count; ++index )
         if( module->types[index].kind != Kiv::Kind::absent )
            types.emplace_back( module->types + index );
   }
   return types;
}

bool isWireView( Kiv::TypeRef type ) {
   return type.kind() == Kiv::Kind::pointerInterface && type.record().alignment == 1;
}

std::vector< Kiv::FoundAttribute > allAttributes( Kiv::TypeRef type ) {
   std::vector< Kiv::FoundAttribute > all;
   for( ; type; type = type.base() )
      for( Kiv::Attribute const & attribute : type.attributes() )
         all.push_back( { type, &attribute } );
   return all;
}

std::unique_ptr< Kiv::Instance > randomValue( Kiv::TypeRef type, Random & random ) {
   auto value = std::make_unique< Kiv::Instance >( type );
   Orlo::String const text = randomText( type, random );
   if( !text.empty() ) {
      KivOrlo::strepToValue( text, type, value->object() );
      return value;
   }
   // A record is as random as what can be written in it.
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      if( !attribute.writable() || attribute.reach != Kiv::Reach::value )
         continue;
      std::unique_ptr< Kiv::Instance > const part = randomValue( attribute.type(), random );
      Kiv::Entry entry{ static_cast< U32 >( random() % 4 ), part->object() };
      void * const buffer =
         attribute.collection() ? static_cast< void * >( &entry ) : part->object();
      EXPECT_EQ(
         Kiv::attributeAccess( type, value->object(), attribute.id, Kiv::OpCode::write, buffer ),
         Kiv::Outcome::done );
   }
   return value;
}

Orlo::String readings( Kiv::TypeRef type, void const * constObject ) {
   void * object = const_cast< void * >( constObject );
   Orlo::String text;
   for( Kiv::FoundAttribute const & found : allAttributes( type ) ) {
      Kiv::Attribute const & attribute = *found.attribute;
      if( !attribute.readable() || ( attribute.guard != nullptr && !attribute.guard( object ) ) )
         continue;
      text.append( attribute.name() ).append( "=" );
      if( attribute.collection() ) {
         Kiv::CollectionIterator element( found.declaring, object, attribute.name() );
         for( ; element.iterNonnull(); element.iterInc() )
            text += std::to_string( element.iterKey() ) + ":" +
                    KivOrlo::valueToStrep( attribute.type(), element.iterObj() ) + " ";
      } else if( attribute.reach == Kiv::Reach::pointer ) {
         void * target = nullptr;
         Kiv::attributeAccess( type, object, found.field(), Kiv::OpCode::read, &target );
         text += target == nullptr ? "null" : "there";
      } else if( attribute.reach == Kiv::Reach::counted ) {
         Orlo::Ptr< Orlo::Node > target;
         Kiv::attributeAccess( type, object, found.field(), Kiv::OpCode::read, &target );
         text += target.get() == nullptr ? "null" : "there";
      } else {
         Kiv::Instance value( attribute.type() );
         Kiv::attributeAccess( type, object, found.field(), Kiv::OpCode::read, value.object() );
         text += KivOrlo::valueToStrep( attribute.type(), value.object() );
      }
      text += '\n';
   }
   return text;
}

} // namespace ModuleTest
