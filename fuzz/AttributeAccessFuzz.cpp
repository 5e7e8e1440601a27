#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "tests/WireBytes.h"

#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

// Any sequence of generic reads and writes on any view or record: each ends with the outcome that
// the attribute's row tells, and what is refused changes nothing.

namespace {

std::vector< Kiv::TypeRef > types() {
   std::vector< Kiv::TypeRef > found;
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      for( U16 i = 0; i < module->count; ++i ) {
         Kiv::TypeRef const type( module->types + i );
         if( type.operations().construct != nullptr && !type.attributes().empty() )
            found.push_back( type );
      }
   }
   return found;
}

struct Input {
   std::span< U8 const > bytes;

   U8 next() {
      if( bytes.empty() )
         return 0;
      U8 const byte = bytes.front();
      bytes = bytes.subspan( 1 );
      return byte;
   }
   U16 next16() { return static_cast< U16 >( next() << 8 | next() ); }
};

bool isPlain( Kiv::TypeRef type ) {
   return type.kind() == Kiv::Kind::value && type.record().alignment <= 8 &&
          type.operations().appendText != nullptr && type.record().size <= 8 &&
          type.attributes().empty() && type.name() != "bool" && type.name() != "Orlo::String" &&
          !type.name().starts_with( "Velnet::M" );
}

void accessElement( Kiv::TypeRef type, void * object, Kiv::FoundAttribute const & found,
                    Kiv::OpCode op, Input & input ) {
   Kiv::Instance value( found.attribute->type() );
   Kiv::Entry entry{ input.next16(), value.object() };
   Kiv::Outcome const outcome = Kiv::attributeAccess( type, object, found.field(), op, &entry );
   bool const fits = entry.key <= found.attribute->collectionRecord->keyLimit;
   bool const wanted = found.attribute->offers( op ) && ( fits || op == Kiv::OpCode::read );
   if( ( outcome == Kiv::Outcome::done ) != wanted )
      std::abort();
}

void accessValue( Kiv::TypeRef type, void * object, Kiv::FoundAttribute const & found,
                  Kiv::OpCode op, Input & input ) {
   Kiv::Attribute const & attribute = *found.attribute;
   // Its setter asserts that there is room, which the caller has to see to.
   if( op == Kiv::OpCode::write && attribute.name() == "pwGenId" && attribute.writable() )
      return;
   if( op == Kiv::OpCode::read && attribute.guard != nullptr && !attribute.guard( object ) )
      return;
   Kiv::Instance value( attribute.type() );
   if( op == Kiv::OpCode::write && isPlain( attribute.type() ) )
      for( U32 i = 0; i < attribute.type().record().size; ++i )
         static_cast< U8 * >( value.object() )[i] = input.next();
   Kiv::Outcome const outcome =
      Kiv::attributeAccess( type, object, found.field(), op, value.object() );
   if( ( outcome == Kiv::Outcome::done ) != attribute.offers( op ) )
      std::abort();
}

void accessOnce( Kiv::TypeRef type, void * object, Input & input ) {
   static constexpr Kiv::OpCode ops[] = { Kiv::OpCode::read, Kiv::OpCode::write,
                                          static_cast< Kiv::OpCode >( 2 ), Kiv::OpCode::call,
                                          static_cast< Kiv::OpCode >( 99 ) };
   U8 const choice = input.next();
   Kiv::OpCode const op = ops[choice % std::size( ops )];
   // Mostly an attribute that there is, now and then any id.
   U16 id = input.next();
   if( choice < 224 )
      id = static_cast< U16 >( type.record().firstId + id % type.attributes().size() );
   Kiv::FoundAttribute const found = Kiv::attributeOf( type, id );
   if( !found ) {
      if( Kiv::attributeAccess( type, object, id, op, nullptr ) != Kiv::Outcome::noSuchAttribute )
         std::abort();
   } else if( found.attribute->collection() ) {
      accessElement( type, object, found, op, input );
   } else if( !found.attribute->callable() && found.attribute->reach == Kiv::Reach::value ) {
      accessValue( type, object, found, op, input );
   } else if( op != Kiv::OpCode::call && found.attribute->callable() ) {
      if( Kiv::attributeAccess( type, object, id, op, nullptr ) != Kiv::Outcome::notPermitted )
         std::abort();
   }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput( U8 const * data, std::size_t size ) {
   static std::vector< Kiv::TypeRef > const all = types();
   Input input{ { data, size } };
   Kiv::TypeRef const type = all[input.next() % all.size()];
   bool const isView = type.kind() == Kiv::Kind::pointerInterface && type.record().alignment == 1;
   if( !isView ) {
      Kiv::Instance object( type );
      while( !input.bytes.empty() )
         accessOnce( type, object.object(), input );
      return 0;
   }
   // The view with a part of no fixed length reads at most 30 bytes behind its own, and none that
   // its length field does not cover.
   constexpr std::size_t behind = 64;
   WireBytes const view( type.record().size + behind, 0 );
   for( U8 & byte : view.bytes() )
      byte = input.next();
   while( !input.bytes.empty() )
      accessOnce( type, view.data(), input );
   return 0;
}
