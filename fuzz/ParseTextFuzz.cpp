#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <cstdlib>
#include <string_view>
#include <vector>

// Any text is read as a value of any type that has a text: it is refused by a range error, or it is
// a value whose own text reads back as the same value.

namespace {

bool holdsCollection( Kiv::TypeRef type ) {
   for( Kiv::Attribute const & attribute : type.attributes() )
      if( attribute.stored() && ( attribute.collection() || holdsCollection( attribute.type() ) ) )
         return true;
   return false;
}

std::vector< Kiv::TypeRef > parsableTypes() {
   std::vector< Kiv::TypeRef > types;
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      for( U16 i = 0; i < module->count; ++i ) {
         Kiv::TypeRef const type( module->types + i );
         if( type.kind() != Kiv::Kind::absent && type.operations().parse != nullptr &&
             type.operations().construct != nullptr && !holdsCollection( type ) )
            types.push_back( type );
      }
   }
   return types;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput( U8 const * data, std::size_t size ) {
   static std::vector< Kiv::TypeRef > const types = parsableTypes();
   if( size == 0 )
      return 0;
   Kiv::TypeRef const type = types[data[0] % types.size()];
   // Half of the inputs start behind the name, which a fuzzer would not find soon.
   std::string text( reinterpret_cast< char const * >( data + 1 ), size - 1 );
   if( data[0] >= 128 )
      text.insert( 0, type.name() );
   Kiv::Instance value( type );
   Orlo::String const before = KivOrlo::valueToStrep( type, value.object() );
   try {
      KivOrlo::strepToValue( text, type, value.object() );
   } catch( Kiv::RangeException const & ) {
      if( KivOrlo::valueToStrep( type, value.object() ) != before )
         std::abort();
      return 0;
   }
   Orlo::String const printed = KivOrlo::valueToStrep( type, value.object() );
   Kiv::Instance again( type );
   KivOrlo::strepToValue( printed, type, again.object() );
   if( KivOrlo::valueToStrep( type, again.object() ) != printed )
      std::abort();
   return 0;
}
