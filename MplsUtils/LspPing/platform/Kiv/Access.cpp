#include "MplsUtils/LspPing/platform/Kiv/Access.h"

#include "MplsUtils/LspPing/platform/Kiv/Assert.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

namespace Kiv {

namespace {

// The object that an attribute belongs to: null when it is forwarded from one that is not there.
void * ownerOf( TypeRecord const & record, Attribute const & row, void * object ) {
   return row.forwarded() ? record.operations->target( object ) : object;
}

Outcome accessEntry( CollectionRecord const & collection, void * owner, OpCode op, void * buffer ) {
   auto const & entry = *static_cast< Entry const * >( buffer );
   if( entry.key > collection.keyLimit || owner == nullptr )
      return Outcome::notPermitted;
   if( op == OpCode::write )
      collection.write( owner, entry.key, entry.value );
   else
      collection.read( owner, entry.key, entry.value );
   return Outcome::done;
}

Orlo::String described( TypeId type, Reach reach ) {
   TypeRef const known( type );
   Orlo::String text( known ? known.name() : std::string_view( "nothing" ) );
   if( reach == Reach::pointer )
      return text + " *";
   return reach == Reach::counted ? "Orlo::Ptr< " + text + " >" : text;
}

Orlo::String described( TypeRef type, std::string_view name ) {
   return Orlo::String( type.name() ).append( "." ).append( name );
}

} // namespace

FoundAttribute attributeOf( TypeRef type, Field field ) noexcept {
   for( ; type; type = type.base() ) {
      TypeRecord const & record = type.record();
      U32 const index = U32{ field.id } - record.firstId;
      if( index < record.attributeCount && ( !field.declaring || field.declaring == record.id ) )
         return { type, record.attributes + index };
   }
   return {};
}

Outcome accessInherited( TypeRef type, void * object, Field field, OpCode op, void * buffer ) {
   FoundAttribute const found = attributeOf( type, field );
   if( !found )
      return Outcome::noSuchAttribute;
   return access( found.declaring.record(), *found.attribute, object, op, buffer );
}

Outcome accessIndirectly( TypeRecord const & record, Attribute const & row, void * object,
                          OpCode op, void * buffer ) {
   if( row.collection() )
      return accessEntry( *row.collectionRecord, ownerOf( record, row, object ), op, buffer );
   if( row.callable() )
      KIV_ASSERT( static_cast< Call const * >( buffer )->count == row.signature->count );
   row.access( ownerOf( record, row, object ), op, buffer );
   return Outcome::done;
}

void * converted( TypeRef from, TypeRef to, void * object ) noexcept {
   // A derived object begins with its base: the module table checks it for every type.
   return from.isA( to ) ? object : nullptr;
}

U64 hashOf( TypeRef type, void const * object ) {
   if( !type.hashable() )
      throw UnhashableException( Orlo::String( type.name() ) );
   return type.operations().hash( object );
}

FoundAttribute attributeFor( TypeRef type, std::string_view name, Wanted wanted ) {
   FoundAttribute const found = attributeNamed( type, name );
   if( !found )
      throw AccessException( Orlo::String( type.name() ) + " has no attribute \"" +
                             Orlo::String( name ) + "\"" );
   Attribute const & row = *found.attribute;
   if( row.collection() )
      throw AccessException( described( type, name ) + " is a collection" );
   if( !row.offers( wanted.op ) )
      throw AccessException( described( type, name ) +
                             ( wanted.op == OpCode::write  ? " cannot be written"
                               : wanted.op == OpCode::read ? " cannot be read"
                                                           : " cannot be called" ) );
   if( wanted.op != OpCode::call && ( row.typeId != wanted.type || row.reach != wanted.reach ) )
      throw AccessException( described( type, name ) + " is of type " +
                             described( row.typeId, row.reach ) + ", not " +
                             described( wanted.type, wanted.reach ) );
   return found;
}

void callTyped( TypeRef type, void * object, std::string_view name, TypeId result,
                TypeId const * argumentTypes, Call const & call ) {
   FoundAttribute const found =
      attributeFor( type, name, { TypeId{}, Reach::value, OpCode::call } );
   Signature const & signature = *found.attribute->signature;
   if( call.count != signature.count )
      throw AccessException( described( type, name ) + " takes " +
                             std::to_string( signature.count ) + " arguments, not " +
                             std::to_string( call.count ) );
   for( std::size_t i = 0; i < call.count; ++i ) {
      if( argumentTypes[i] != signature.arguments[i] )
         throw AccessException( described( type, name ) + " takes as argument " +
                                std::to_string( i + 1 ) + " a " +
                                described( signature.arguments[i], Reach::value ) + ", not " +
                                described( argumentTypes[i], Reach::value ) );
   }
   if( result != signature.result )
      throw AccessException( described( type, name ) + " returns " +
                             described( signature.result, Reach::value ) + ", not " +
                             described( result, Reach::value ) );
   Call frame = call;
   access( found.declaring.record(), *found.attribute, object, OpCode::call, &frame );
}

CollectionIterator::CollectionIterator( TypeRef type, void * object, std::string_view name )
   : record_( nullptr ),
     owner_( nullptr ),
     writable_( false ) {
   FoundAttribute const found = attributeNamed( type, name );
   if( !found || !found.attribute->collection() )
      throw AccessException( described( type, name ) + " is no collection" );
   record_ = found.attribute->collectionRecord;
   writable_ = found.attribute->writable();
   owner_ = ownerOf( found.declaring.record(), *found.attribute, object );
   if( owner_ != nullptr )
      record_->iterator( owner_, storage_ );
}

CollectionIterator::CollectionIterator( CollectionIterator const & other )
   : record_( other.record_ ),
     owner_( other.owner_ ),
     writable_( other.writable_ ) {
   if( owner_ != nullptr )
      record_->iteratorCopy( other.storage_, storage_ );
}

CollectionIterator::~CollectionIterator() {
   if( owner_ != nullptr )
      record_->iteratorEnd( storage_ );
}

Outcome CollectionIterator::iterDel() {
   if( !writable_ || !iterNonnull() )
      return Outcome::notPermitted;
   record_->iterDel( owner_, storage_ );
   return Outcome::done;
}

} // namespace Kiv
