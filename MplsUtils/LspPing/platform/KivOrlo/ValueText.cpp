#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include "MplsUtils/LspPing/platform/Kiv/Collections.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"

#include <ostream>

namespace KivOrlo {

namespace {

void appendCollection( Orlo::StringBuilder & out, Kiv::CollectionRecord const & collection,
                       Kiv::TypeRef valueType, void const * owner ) {
   out.append( '{' );
   Kiv::IteratorStorage storage;
   collection.iterator( owner, storage );
   for( bool first = true; collection.iterNonnull( storage ); collection.iterInc( storage ) ) {
      if( !first )
         out.append( ", " );
      first = false;
      out.appendDecimal( collection.iterKey( storage ) );
      out.append( ": " );
      appendValue( out, valueType, collection.iterObj( storage ) );
   }
   collection.iteratorEnd( storage );
   out.append( '}' );
}

// The address of a stored attribute's value, or null when it has none. Locating changes nothing,
// whatever the pointer says.
void * stored( Kiv::Attribute const & attribute, void const * object ) {
   void * place = nullptr;
   attribute.access( const_cast< void * >( object ), Kiv::Attribute::locate, &place );
   return place;
}

void appendStored( Orlo::StringBuilder & out, Kiv::Attribute const & attribute,
                   void const * object ) {
   if( void const * place = stored( attribute, object ) ) {
      appendValue( out, attribute.type(), place );
      return;
   }
   Kiv::Instance copy( attribute.type() );
   attribute.access( const_cast< void * >( object ), Kiv::OpCode::read, copy.object() );
   appendValue( out, attribute.type(), copy.object() );
}

void parseStored( Kiv::CharRange & in, Kiv::Attribute const & attribute, void * object ) {
   auto const parse = attribute.type().operations().parse;
   if( void * place = stored( attribute, object ) ) {
      parse( in, place );
      return;
   }
   Kiv::Instance parsed( attribute.type() );
   parse( in, parsed.object() );
   attribute.access( object, Kiv::OpCode::write, parsed.object() );
}

} // namespace

void appendValue( Orlo::StringBuilder & out, Kiv::TypeRef type, void const * value ) {
   if( type.operations().appendText != nullptr ) {
      type.operations().appendText( out, value );
      return;
   }
   out.append( type.name() );
   char before = '(';
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      if( !attribute.stored() )
         continue;
      out.append( before );
      if( before == ',' )
         out.append( ' ' );
      before = ',';
      out.append( attribute.name() );
      out.append( '=' );
      if( attribute.collection() )
         appendCollection( out, *attribute.collectionRecord, attribute.type(), value );
      else
         appendStored( out, attribute, value );
   }
   if( before == '(' )
      out.append( '(' );
   out.append( ')' );
}

Orlo::String valueToStrep( Kiv::TypeRef type, void const * value ) {
   Orlo::StringBuilder out;
   appendValue( out, type, value );
   return out.string();
}

std::ostream & writeValue( std::ostream & out, Kiv::TypeRef type, void const * value ) {
   Orlo::StringBuilder text;
   appendValue( text, type, value );
   return out << text.view();
}

void strepToValue( std::string_view text, Kiv::TypeRef type, void * value ) {
   KIV_ASSERT( type.operations().parse != nullptr );
   Kiv::CharRange in( text );
   Kiv::Instance parsed( type );
   type.operations().parse( in, parsed.object() );
   if( !in.atEnd() )
      throw Kiv::RangeException( Orlo::String( type.name() ),
                                 "text is left over at offset " + std::to_string( in.position() ) );
   type.operations().assign( value, parsed.object() );
}

void parseAttributes( Kiv::CharRange & in, Kiv::TypeRef type, void * object ) {
   std::string_view last;
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      if( !attribute.stored() )
         continue;
      if( last.empty() )
         in.expectOpen( type.name(), attribute.name() );
      else
         in.expectNext( attribute.name() );
      last = attribute.name();
      try {
         parseStored( in, attribute, object );
      } catch( Kiv::RangeException const & e ) {
         throw e.within( attribute.name() );
      }
   }
   try {
      in.expectClose();
   } catch( Kiv::RangeException const & e ) {
      throw e.within( last );
   }
}

} // namespace KivOrlo
