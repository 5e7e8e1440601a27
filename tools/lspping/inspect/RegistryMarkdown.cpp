#include "MplsUtils/LspPing/platform/Kiv/Collections.h"
#include "tools/lspping/inspect/Registry.h"

namespace LspPingTool {

namespace {

std::string code( std::string_view text ) {
   return "`" + std::string( text ) + "`";
}

std::string attributeTypeText( Kiv::Attribute const & attribute ) {
   std::string const type = typeText( { attribute.typeId, attribute.reach } );
   if( attribute.collection() )
      return code( Kiv::TypeRef( attribute.collectionRecord->keyType ).name() ) + " to " +
             code( type );
   if( attribute.signature == nullptr )
      return code( type );
   std::string text = type + "(";
   std::string_view separator = " ";
   for( ArgumentShown const & argument : argumentsShown( attribute ) ) {
      text.append( separator ).append( typeText( argument.type ) ).append( " " );
      text.append( argument.name );
      separator = ", ";
   }
   return code( text + ( separator == " " ? ")" : " )" ) );
}

std::string permissions( Kiv::Attribute const & attribute ) {
   std::string text;
   auto const add = [&text]( bool permitted, std::string_view what ) {
      if( !permitted )
         return;
      text.append( text.empty() ? "" : ", " ).append( what );
   };
   add( attribute.readable(), "read" );
   add( attribute.writable(), "write" );
   add( attribute.callable(), "call" );
   return text;
}

void appendAttributes( std::string & out, Kiv::TypeRef type ) {
   if( type.attributes().empty() )
      return;
   out += "\n| Id | Attribute | Type | Access |\n|---|---|---|---|\n";
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      out += "| " + std::to_string( attribute.id ) + " | " + code( attribute.name() ) + " | " +
             attributeTypeText( attribute ) + " | " + permissions( attribute ) + " |\n";
   }
}

void appendEnumerators( std::string & out, Kiv::TypeRef type ) {
   if( type.enumerators().empty() )
      return;
   out += "\n| Enumerator | Value |\n|---|---|\n";
   for( Kiv::Enumerator const & enumerator : type.enumerators() )
      out += "| " + code( enumerator.name() ) + " | " + std::to_string( enumerator.value ) + " |\n";
}

void appendType( std::string & out, Kiv::TypeRef type ) {
   Kiv::TypeRecord const & record = type.record();
   out += "\n### " + std::to_string( record.id.index ) + " " + std::string( record.name ) + "\n\n";
   out += kindText( record.kind );
   if( Kiv::TypeRef const underlying( record.underlying ); underlying )
      out += ", held in " + code( underlying.name() );
   if( Kiv::TypeRef const base = type.base() )
      out += ", base " + code( base.name() );
   if( record.kind != Kiv::Kind::constant )
      out += ", " + std::to_string( record.size ) + ( record.size == 1 ? " byte" : " bytes" );
   if( type.hashable() )
      out += ", hashable";
   out += '\n';
   appendAttributes( out, type );
   appendEnumerators( out, type );
}

} // namespace

std::string registryMarkdown( std::vector< ModuleShown > const & modules ) {
   std::string out =
      "# Registered types\n\n"
      "What `lspping types --markdown` prints: every module with its types at their places, and\n"
      "each type's own attributes, which for a parser include some of its view's, to be read. The\n"
      "attributes of a base are reached through it, and those of a view that its parser does not\n"
      "have through the pointer that `header` gives. Reading an attribute that is called, or\n"
      "writing one that can only be read, is refused.\n";
   for( ModuleShown const & shown : modules ) {
      out += "\n## " + std::string( shown.module->name ) + "\n\nModule " +
             std::to_string( shown.module->id ) + ".\n";
      for( Kiv::TypeRef const type : shown.types )
         appendType( out, type );
   }
   return out;
}

} // namespace LspPingTool
