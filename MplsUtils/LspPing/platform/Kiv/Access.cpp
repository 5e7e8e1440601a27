#include "MplsUtils/LspPing/platform/Kiv/Access.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"

namespace Kiv {

namespace {

// The object that an attribute belongs to: null when it is forwarded from one that is not there.
void * ownerOf( TypeRecord const & record, Attribute const & row, void * object ) {
   return row.forwarded() ? record.operations->target( object ) : object;
}

Outcome accessEntry( CollectionRecord const & collection, void * owner, OpCode op, void * buffer ) {
   auto const & entry = *static_cast< Entry const * >( buffer );
   KIV_ASSERT( entry.value != nullptr );
   if( op == OpCode::read )
      collection.read( owner, entry.key, entry.value );
   else if( owner != nullptr && entry.key <= collection.keyLimit )
      collection.write( owner, entry.key, entry.value );
   else
      return Outcome::notPermitted;
   return Outcome::done;
}

void checkCall( Call const & call, Signature const & signature ) {
   KIV_ASSERT( call.count == signature.count );
   KIV_ASSERT( call.count == 0 || call.arguments != nullptr );
   KIV_ASSERT( !signature.result.type || call.result != nullptr );
}

Orlo::String described( BufferType wanted ) {
   TypeRef const known( wanted.type );
   Orlo::String text( known ? known.name() : std::string_view( "nothing" ) );
   switch( wanted.reach ) {
   case Reach::value:
      break;
   case Reach::pointer:
      return text + " *";
   case Reach::counted:
      return "Orlo::Ptr< " + text + " >";
   }
   return text;
}

std::string_view refused( OpCode op ) {
   switch( op ) {
   case OpCode::read:
      return " cannot be read";
   case OpCode::write:
      return " cannot be written";
   case OpCode::call:
      return " cannot be called";
   }
   return " does not offer that";
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
      checkCall( *static_cast< Call const * >( buffer ), *row.signature );
   row.access( ownerOf( record, row, object ), op, buffer );
   return Outcome::done;
}

Orlo::String writeRefusal( TypeRecord const & record, Attribute const & row, void * object,
                           void const * value ) {
   WriteQuestion question{ value, {} };
   if( row.hasConditions() )
      row.access( ownerOf( record, row, object ), Attribute::ask, &question );
   return question.refusal;
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

FoundAttribute attributeFor( TypeRef type, std::string_view name, OpCode op, BufferType wanted ) {
   FoundAttribute const found = attributeNamed( type, name );
   if( !found )
      throw AccessException(
         Orlo::String( type.name() ).append( " has no attribute \"" ).append( name ) + '"' );
   Attribute const & row = *found.attribute;
   if( row.collection() )
      throw AccessException( described( type, name ) + " is a collection" );
   if( !row.offers( op ) )
      throw AccessException( described( type, name ).append( refused( op ) ) );
   BufferType const has{ row.typeId, row.reach };
   if( op != OpCode::call && has != wanted )
      throw AccessException( described( type, name ) + " is of type " + described( has ) +
                             ", not " + described( wanted ) );
   return found;
}

void callTyped( TypeRef type, void * object, std::string_view name, BufferType result,
                BufferType const * argumentTypes, Call & call ) {
   FoundAttribute const found = attributeFor( type, name, OpCode::call, result );
   Signature const & signature = *found.attribute->signature;
   if( call.count != signature.count )
      throw AccessException( described( type, name ) + " takes " +
                             std::to_string( signature.count ) + " arguments, not " +
                             std::to_string( call.count ) );
   for( std::size_t i = 0; i < call.count; ++i ) {
      if( argumentTypes[i] != signature.arguments[i] )
         throw AccessException(
            described( type, name ) + " takes as argument " + std::to_string( i + 1 ) + " " +
            described( signature.arguments[i] ) + ", not " + described( argumentTypes[i] ) );
   }
   if( result != signature.result )
      throw AccessException( described( type, name ) + " returns " + described( signature.result ) +
                             ", not " + described( result ) );
   access( found.declaring.record(), *found.attribute, object, OpCode::call, &call );
}

CollectionIterator::CollectionIterator( TypeRef type, void * object, std::string_view name ) {
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

void const * CollectionIterator::iterObj() const {
   KIV_ASSERT( iterNonnull() );
   return record_->iterObj( storage_ );
}

U32 CollectionIterator::iterKey() const {
   KIV_ASSERT( iterNonnull() );
   return record_->iterKey( storage_ );
}

void CollectionIterator::iterInc() {
   KIV_ASSERT( iterNonnull() );
   record_->iterInc( storage_ );
}

Outcome CollectionIterator::iterDel() {
   if( !writable_ || !iterNonnull() )
      return Outcome::notPermitted;
   record_->iterDel( owner_, storage_ );
   return Outcome::done;
}

} // namespace Kiv
