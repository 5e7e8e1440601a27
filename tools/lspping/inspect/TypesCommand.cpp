#include "MplsUtils/LspPing/message/LspPingElements.h"
#include "MplsUtils/LspPing/message/LspPingWords.h"
#include "MplsUtils/LspPing/platform/Kiv/Collections.h"
#include "tools/lspping/inspect/Answers.h"
#include "tools/lspping/inspect/Commands.h"
#include "tools/lspping/inspect/Registry.h"
#include "tools/lspping/io/ExitStatus.h"
#include "tools/lspping/io/Output.h"

namespace LspPingTool {

namespace {

void writeNamed( JsonWriter & json, std::string_view key, std::string_view text ) {
   writeKey( json, key );
   writeString( json, text );
}

void writeNamed( JsonWriter & json, std::string_view key, bool value ) {
   writeKey( json, key );
   json.Bool( value );
}

// A type's name, or null where there is none.
void writeTypeName( JsonWriter & json, std::string_view key, Kiv::TypeId id ) {
   writeKey( json, key );
   if( Kiv::TypeRef const type{ id } )
      writeString( json, type.name() );
   else
      json.Null();
}

void writeAttributeRow( JsonWriter & json, Kiv::Attribute const & attribute ) {
   json.StartObject();
   writeNamed( json, "name", attribute.name() );
   writeKey( json, "id" );
   json.Uint( attribute.id );
   writeTypeName( json, "type", attribute.typeId );
   writeNamed( json, "readable", attribute.readable() );
   writeNamed( json, "writable", attribute.writable() );
   writeNamed( json, "callable", attribute.callable() );
   writeNamed( json, "collection", attribute.collection() );
   json.EndObject();
}

// Whether, where and how the type is an element of a message.
void writeElement( JsonWriter & json, Kiv::TypeId type ) {
   LspPing::LspPingElement const * element = LspPing::lspPingElementOf( type );
   if( element == nullptr )
      return;
   auto const writeNumber = [&json]( std::string_view key, U32 number ) {
      writeKey( json, key );
      json.Uint( number );
   };
   writeKey( json, "element" );
   json.StartObject();
   writeNamed( json, "context", LspPing::lspPingContextName( element->context ) );
   writeKey( json, "codes" );
   json.StartArray();
   for( std::size_t i = 0; i < element->codeCount; ++i )
      json.Uint( element->codes[i] );
   json.EndArray();
   if( element->isCodeRange )
      writeNumber( "lastCode", element->codes[1] );
   writeNumber( "leastLength", element->leastLength );
   writeKey( json, "lengths" );
   json.StartArray();
   if( element->hasFixedLength )
      json.Uint( element->leastLength );
   if( element->otherLength != 0 )
      json.Uint( element->otherLength );
   if( element->hasFixedLength && element->statedMore != 0 )
      json.Uint( static_cast< U32 >( element->leastLength + element->statedMore ) );
   json.EndArray();
   writeKey( json, "selectors" );
   json.StartArray();
   for( std::size_t i = 0; i < element->selectorCount; ++i ) {
      json.StartObject();
      LspPing::LspPingElement::Selector const & selector = element->selectors[i];
      writeNumber( "offset", selector.offset );
      if( selector.valueCount == 1 ) {
         writeNumber( "value", selector.values[0] );
      } else {
         writeKey( json, "values" );
         json.StartArray();
         for( std::size_t value = 0; value < selector.valueCount; ++value )
            json.Uint( selector.values[value] );
         json.EndArray();
      }
      json.EndObject();
   }
   json.EndArray();
   writeNamed( json, "behind", LspPing::lspPingBehindName( element->behind ) );
   if( element->behind == LspPing::LspPingBehind::elements ||
       element->behind == LspPing::LspPingBehind::counted )
      writeNamed( json, "inside", LspPing::lspPingContextName( element->inside ) );
   auto const writeGiven = [&json]( std::string_view key, std::string_view text ) {
      if( !text.empty() )
         writeNamed( json, key, text );
   };
   writeGiven( "words", LspPing::lspPingElementWords( element->context, element->code() ) );
   writeGiven( "rfc", element->rfc );
   json.EndObject();
}

void writeType( JsonWriter & json, Kiv::TypeRef type ) {
   Kiv::TypeRecord const & record = type.record();
   json.StartObject();
   writeKey( json, "index" );
   json.Uint( record.id.index );
   writeNamed( json, "name", record.name );
   writeNamed( json, "kind", kindText( record.kind ) );
   writeTypeName( json, "base", record.base );
   writeNamed( json, "hashable", type.hashable() );
   writeKey( json, "attributes" );
   json.StartArray();
   for( Kiv::Attribute const & attribute : type.attributes() )
      writeAttributeRow( json, attribute );
   json.EndArray();
   writeTypeName( json, "underlying", record.underlying );
   writeKey( json, "enumerators" );
   json.StartArray();
   for( Kiv::Enumerator const & enumerator : type.enumerators() ) {
      json.StartObject();
      writeNamed( json, "name", enumerator.name() );
      writeKey( json, "value" );
      json.Uint( enumerator.value );
      json.EndObject();
   }
   json.EndArray();
   writeElement( json, record.id );
   json.EndObject();
}

std::string registryJson( std::vector< ModuleShown > const & modules ) {
   return jsonLine( [&]( JsonWriter & json ) {
             json.StartObject();
             writeKey( json, "modules" );
             json.StartArray();
             for( ModuleShown const & shown : modules ) {
                json.StartObject();
                writeNamed( json, "name", shown.module->name );
                writeKey( json, "types" );
                json.StartArray();
                for( Kiv::TypeRef const type : shown.types )
                   writeType( json, type );
                json.EndArray();
                json.EndObject();
             }
             json.EndArray();
             json.EndObject();
          } ) +
          '\n';
}

std::string accessText( Kiv::Attribute const & attribute ) {
   std::string text = "---";
   if( attribute.readable() )
      text[0] = 'r';
   if( attribute.writable() )
      text[1] = 'w';
   if( attribute.callable() )
      text[2] = 'c';
   return text;
}

void appendDetails( std::string & out, Kiv::TypeRef type ) {
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      out += "    " + std::to_string( attribute.id ) + " " + accessText( attribute ) + " " +
             std::string( attribute.name() );
      if( attribute.collection() )
         out +=
            "[" + std::string( Kiv::TypeRef( attribute.collectionRecord->keyType ).name() ) + "]";
      out += ": " + typeText( { attribute.typeId, attribute.reach } );
      if( attribute.callable() ) {
         std::string_view separator = "(";
         for( ArgumentShown const & argument : argumentsShown( attribute ) ) {
            out.append( separator ).append( typeText( argument.type ) ).append( " " );
            out.append( argument.name );
            separator = ", ";
         }
         out += separator == "(" ? "()" : ")";
      }
      out += '\n';
   }
   for( Kiv::Enumerator const & enumerator : type.enumerators() )
      out += "    " + std::string( enumerator.name() ) + " = " +
             std::to_string( enumerator.value ) + '\n';
}

// The attributes only for what was asked for by name: all of them fill many screens.
std::string registryText( std::vector< ModuleShown > const & modules, bool details ) {
   std::string out;
   for( ModuleShown const & shown : modules ) {
      out += std::string( shown.module->name ) + '\n';
      for( Kiv::TypeRef const type : shown.types ) {
         out += "  " + std::to_string( type.id().index ) + " " + std::string( type.name() ) + ", " +
                std::string( kindText( type.kind() ) );
         if( Kiv::TypeRef const base = type.base() )
            out += ", base " + std::string( base.name() );
         out += '\n';
         if( details )
            appendDetails( out, type );
      }
   }
   return out;
}

} // namespace

int runTypes( TypesOptions const & options, Output & output ) {
   if( options.elements && !options.name.empty() )
      throw UsageError( "--elements takes no NAME" );
   std::vector< ModuleShown > const modules = modulesShown( options.name );
   std::string text;
   if( options.json )
      text = registryJson( modules );
   else if( options.elements )
      text = elementsMarkdown();
   else if( options.markdown )
      text = registryMarkdown( modules );
   else
      text = registryText( modules, !options.name.empty() );
   output.write( text );
   return exitDone;
}

} // namespace LspPingTool
