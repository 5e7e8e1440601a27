#include "tools/lspping/inspect/Registry.h"

#include "tools/lspping/inspect/Arguments.h"

namespace LspPingTool {

std::vector< ModuleShown > modulesShown( std::string_view name ) {
   std::vector< ModuleShown > shown;
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      if( !name.empty() && name != module->name )
         continue;
      ModuleShown one{ module, {} };
      for( U16 index = 0; index < module->count; ++index ) {
         Kiv::TypeRef const type( module->types + index );
         if( type.kind() != Kiv::Kind::absent )
            one.types.push_back( type );
      }
      shown.push_back( std::move( one ) );
   }
   if( !shown.empty() )
      return shown;
   Kiv::TypeRef const type = typeGiven( name );
   for( Kiv::ModuleTable const * module : Kiv::modules() )
      if( module->id == type.id().module )
         shown.push_back( { module, { type } } );
   return shown;
}

std::string_view kindText( Kiv::Kind kind ) {
   switch( kind ) {
   case Kiv::Kind::value:
      return "value";
   case Kiv::Kind::pointerInterface:
      return "pointer-interface";
   case Kiv::Kind::object:
      return "object";
   case Kiv::Kind::enumeration:
      return "enumeration";
   case Kiv::Kind::constant:
      return "constant";
   case Kiv::Kind::absent:
      break;
   }
   return "absent";
}

std::vector< ArgumentShown > argumentsShown( Kiv::Attribute const & attribute ) {
   std::vector< ArgumentShown > arguments;
   if( attribute.signature == nullptr )
      return arguments;
   std::string_view names = attribute.argumentNames;
   for( U8 i = 0; i < attribute.signature->count; ++i ) {
      std::size_t const end = names.find( ", " );
      arguments.push_back( { names.substr( 0, end ), attribute.signature->arguments[i] } );
      names.remove_prefix( end == std::string_view::npos ? names.size() : end + 2 );
   }
   return arguments;
}

std::string typeText( Kiv::BufferType type ) {
   Kiv::TypeRef const known( type.type );
   if( !known )
      return "void";
   std::string name( known.name() );
   switch( type.reach ) {
   case Kiv::Reach::value:
      break;
   case Kiv::Reach::pointer:
      return name + " *";
   case Kiv::Reach::counted:
      return "Orlo::Ptr< " + name + " >";
   }
   return name;
}

} // namespace LspPingTool
