#include "tools/lspping/generic/AttributeJson.h"

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"

#include <string>

namespace LspPingTool {

namespace {

// Writes a value of type T, if that is its type.
template < class T >
bool writeNumberIf( JsonWriter & json, Kiv::TypeId type, void const * value ) {
   if( type != Kiv::typeIdOf< T > )
      return false;
   T const & number = *static_cast< T const * >( value );
   if constexpr( requires { number.value(); } )
      json.Uint64( number.value() );
   else
      json.Uint64( number );
   return true;
}

// Reads an attribute of type T, if that is its type, and writes its value.
template < class T >
bool readAndWriteIf( JsonWriter & json, Kiv::TypeRef declaring, Kiv::Attribute const & attribute,
                     void * object ) {
   if( attribute.typeId != Kiv::typeIdOf< T > )
      return false;
   T buffer{};
   Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, &buffer );
   writeValue( json, Kiv::typeOf< T >(), &buffer );
   return true;
}

void writeCollection( JsonWriter & json, Kiv::TypeRef declaring, Kiv::Attribute const & attribute,
                      void * object ) {
   json.StartObject();
   Kiv::CollectionIterator element( declaring, object, attribute.name() );
   for( ; element.iterNonnull(); element.iterInc() ) {
      writeKey( json, std::to_string( element.iterKey() ) );
      writeValue( json, attribute.type(), element.iterObj() );
   }
   json.EndObject();
}

void writeMembers( JsonWriter & json, Kiv::TypeRef type, void const * object ) {
   if( Kiv::TypeRef const base = type.base() )
      writeMembers( json, base, object );
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      if( !attribute.readable() )
         continue;
      writeKey( json, attribute.name() );
      writeAttribute( json, type, attribute, object );
   }
}

void writeTarget( JsonWriter & json, Kiv::TypeRef type, void const * target ) {
   if( target == nullptr )
      json.Null();
   else
      writeAttributes( json, type, target );
}

} // namespace

void writeValue( JsonWriter & json, Kiv::TypeRef type, void const * value ) {
   Kiv::TypeId const id = type.id();
   if( writeNumberIf< U8 >( json, id, value ) || writeNumberIf< U16 >( json, id, value ) ||
       writeNumberIf< U32 >( json, id, value ) || writeNumberIf< U64 >( json, id, value ) ||
       writeNumberIf< Velnet::NetU16 >( json, id, value ) ||
       writeNumberIf< Velnet::NetU32 >( json, id, value ) ||
       writeNumberIf< Velnet::NetU64 >( json, id, value ) )
      return;
   if( id == Kiv::typeIdOf< bool > ) {
      json.Bool( *static_cast< bool const * >( value ) );
   } else if( id == Kiv::typeIdOf< double > ) {
      json.Double( *static_cast< double const * >( value ) );
   } else if( id == Kiv::typeIdOf< Orlo::String > ) {
      writeString( json, *static_cast< Orlo::String const * >( value ) );
   } else if( type.operations().appendText != nullptr ) {
      Orlo::StringBuilder text;
      type.operations().appendText( text, value );
      writeString( json, text.view() );
   } else {
      writeAttributes( json, type, value );
   }
}

void writeAttribute( JsonWriter & json, Kiv::TypeRef declaring, Kiv::Attribute const & attribute,
                     void const * constObject ) {
   if( attribute.guard != nullptr && !attribute.guard( constObject ) ) {
      json.Null();
      return;
   }
   // Reading changes nothing, but the one access function of a row also writes.
   void * object = const_cast< void * >( constObject );
   if( attribute.collection() ) {
      writeCollection( json, declaring, attribute, object );
   } else if( attribute.reach == Kiv::Reach::pointer ) {
      void * target = nullptr;
      Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, &target );
      writeTarget( json, attribute.type(), target );
   } else if( attribute.reach == Kiv::Reach::counted ) {
      Orlo::Ptr< Orlo::Node > target;
      Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, &target );
      writeTarget( json, attribute.type(), target.get() );
   } else if( !readAndWriteIf< U8 >( json, declaring, attribute, object ) &&
              !readAndWriteIf< U16 >( json, declaring, attribute, object ) &&
              !readAndWriteIf< U32 >( json, declaring, attribute, object ) &&
              !readAndWriteIf< bool >( json, declaring, attribute, object ) &&
              !readAndWriteIf< Orlo::String >( json, declaring, attribute, object ) ) {
      // What most attributes are was tried above without going through a built buffer.
      Kiv::Instance buffer( attribute.type() );
      Kiv::access( declaring.record(), attribute, object, Kiv::OpCode::read, buffer.object() );
      writeValue( json, attribute.type(), buffer.object() );
   }
}

void writeAttributes( JsonWriter & json, Kiv::TypeRef type, void const * object ) {
   json.StartObject();
   writeMembers( json, type, object );
   json.EndObject();
}

} // namespace LspPingTool
