#include "tools/lspping/generic/AttributeText.h"

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <string_view>

namespace LspPingTool {

namespace {

bool isAddress( Kiv::Attribute const & attribute ) {
   return attribute.type().name().ends_with( "Addr" );
}

// Whether something was written is carried from the bases to the type itself.
void appendFieldsOf( Orlo::StringBuilder & out, Kiv::TypeRef type, Kiv::TypeRef above,
                     void const * object, std::string_view & separator ) {
   if( !type || type == above )
      return;
   appendFieldsOf( out, type.base(), above, object, separator );
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      if( !attribute.readable() || !attribute.writable() || attribute.collection() )
         continue;
      out.append( separator );
      separator = ", ";
      out.append( attribute.name() );
      out.append( ": " );
      std::string_view const quote = isAddress( attribute ) ? "'" : "";
      out.append( quote );
      appendAttribute( out, type, attribute, object );
      out.append( quote );
   }
}

} // namespace

void appendAttribute( Orlo::StringBuilder & out, Kiv::TypeRef declaring,
                      Kiv::Attribute const & attribute, void const * object ) {
   if( attribute.collection() )
      return;
   if( attribute.reach != Kiv::Reach::value ||
       ( attribute.guard != nullptr && !attribute.guard( object ) ) ) {
      out.append( "none" );
      return;
   }
   Kiv::Instance buffer( attribute.type() );
   // Reading changes nothing, but the one access function of a row also writes.
   Kiv::access( declaring.record(), attribute, const_cast< void * >( object ), Kiv::OpCode::read,
                buffer.object() );
   KivOrlo::appendValue( out, attribute.type(), buffer.object() );
}

void appendFields( Orlo::StringBuilder & out, Kiv::TypeRef type, Kiv::TypeRef above,
                   void const * object ) {
   constexpr std::string_view prefix = "LspPing::LspPing";
   std::string_view name = type.name();
   if( name.starts_with( prefix ) )
      name.remove_prefix( prefix.size() );
   out.append( name );
   std::string_view separator = "( ";
   appendFieldsOf( out, type, above, object, separator );
   out.append( separator == ", " ? " )" : "()" );
}

} // namespace LspPingTool
