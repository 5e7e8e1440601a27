#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Orlo/Node.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/NameTable.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <exception>
#include <string_view>
#include <tuple>

namespace Kiv {

/// Names one attribute: the type that declares it and its id there. Without a declaring type, as a
/// bare id, a type's own attributes are looked at first, then those of its bases.
struct Field {
   TypeId declaring;
   U16 id = 0;

   constexpr Field( U16 bareId ) noexcept : id( bareId ) {} // NOLINT(google-explicit-constructor)
   constexpr Field( TypeId declaringType, U16 attributeId ) noexcept
      : declaring( declaringType ),
        id( attributeId ) {}
};

/// Buffer of a read or write of a collection attribute: one element, by key.
struct Entry {
   U32 key = 0;
   void * value = nullptr; ///< an object of the collection's value type
};

/// An attribute and the type that declares it.
struct FoundAttribute {
   TypeRef declaring;
   Attribute const * attribute = nullptr;

   explicit operator bool() const noexcept { return attribute != nullptr; }
   Field field() const noexcept { return { declaring.id(), attribute->id }; }
};

/// The attribute of that name, the type's own first, then its bases'.
inline FoundAttribute attributeNamed( TypeRef type, std::string_view name ) noexcept {
   U32 const hash = nameHash( name );
   for( ; type; type = type.base() ) {
      TypeRecord const & record = type.record();
      if( record.attributeCount == 0 )
         continue;
      U8 const row = findName( record.attributeSlots, record.slotMask, hash, name,
                               [&record]( U8 i ) { return record.attributes[i].name(); } );
      if( row != noName )
         return { type, record.attributes + row };
   }
   return {};
}

/// The attribute that the field names in this type or its bases.
LSPPING_PLATFORM_EXPORT FoundAttribute attributeOf( TypeRef type, Field field ) noexcept;

// Rows that are reached by way of another object or element by element.
LSPPING_PLATFORM_EXPORT Outcome accessIndirectly( TypeRecord const & record, Attribute const & row,
                                                  void * object, OpCode op, void * buffer );
LSPPING_PLATFORM_EXPORT Outcome accessInherited( TypeRef type, void * object, Field field,
                                                 OpCode op, void * buffer );

inline Outcome access( TypeRecord const & record, Attribute const & row, void * object, OpCode op,
                       void * buffer ) {
   if( !row.offers( op ) )
      return Outcome::notPermitted;
   KIV_ASSERT( buffer != nullptr );
   if( ( row.flags &
         ( Attribute::forwardedFlag | Attribute::collectionFlag | Attribute::callableFlag ) ) != 0 )
      return accessIndirectly( record, row, object, op, buffer );
   row.access( object, op, buffer );
   return Outcome::done;
}

/// Reads, writes or calls one attribute of an object of that type.
///
/// \param buffer  Read: an object of the attribute's type that is assigned the value (a `void *` or
///    an `Orlo::Ptr< Orlo::Node >` for attributes that point, an `Entry` for collections). Write:
///    the same, holding the new value. Call: a `Call`. Null only where the access is refused.
/// \returns  what became of it; nothing is changed unless it is `done`. An id that names nothing is
///    `noSuchAttribute` whatever the code.
inline Outcome attributeAccess( TypeRef type, void * object, Field field, OpCode op,
                                void * buffer ) {
   TypeRecord const & record = type.record();
   U32 const index = U32{ field.id } - record.firstId;
   if( index < record.attributeCount && ( !field.declaring || field.declaring == record.id ) )
      return access( record, record.attributes[index], object, op, buffer );
   return accessInherited( type, object, field, op, buffer );
}

/// What stands against writing that value to a writable attribute that is no collection, as a
/// sentence; empty when nothing does. The value is an object of the attribute's type.
LSPPING_PLATFORM_EXPORT Orlo::String writeRefusal( TypeRecord const & record, Attribute const & row,
                                                   void * object, void const * value );

/// The same object as one of the other type, when that is its type or a base of it, else null.
LSPPING_PLATFORM_EXPORT void * converted( TypeRef from, TypeRef to, void * object ) noexcept;

/// Hash of a value. Raises UnhashableException for types that have none.
LSPPING_PLATFORM_EXPORT U64 hashOf( TypeRef type, void const * object );

/// Typed access went wrong: the attribute is not there, does not allow it, or has another type.
class LSPPING_PLATFORM_EXPORT AccessException : public std::exception {
 public:
   explicit AccessException( Orlo::String text ) : text_( std::move( text ) ) {}
   char const * what() const noexcept override { return text_.c_str(); }

 private:
   Orlo::String text_;
};

// What a typed access asks of the attribute that it finds; it raises AccessException otherwise.
LSPPING_PLATFORM_EXPORT FoundAttribute attributeFor( TypeRef type, std::string_view name, OpCode op,
                                                     BufferType wanted );
LSPPING_PLATFORM_EXPORT void callTyped( TypeRef type, void * object, std::string_view name,
                                        BufferType result, BufferType const * argumentTypes,
                                        Call & call );

/// The type of an object: what it says itself if it is a node, else its class.
template < class T >
TypeRef typeOf( T const & object ) noexcept {
   if constexpr( std::is_base_of_v< Orlo::Node, T > )
      return object.fwkType();
   else
      return typeOf< T >();
}

// Reading changes nothing, but the one access function of a row also writes.
template < class T >
void * untyped( T & object ) noexcept {
   return const_cast< std::remove_const_t< T > * >( &object );
}

/// Reads an attribute as a T. Raises AccessException, naming attribute and types, when it has
/// another type or cannot be read.
template < class T >
T read( TypeRef type, void const * object, std::string_view name ) {
   FoundAttribute const found = attributeFor( type, name, OpCode::read, bufferType< T >() );
   typename Buffered< T >::Buffer buffer{};
   access( found.declaring.record(), *found.attribute, const_cast< void * >( object ), OpCode::read,
           &buffer );
   if constexpr( Buffered< T >::reach == Reach::pointer )
      return static_cast< T >( buffer );
   else if constexpr( Buffered< T >::reach == Reach::counted )
      return T( static_cast< typename Buffered< T >::Type * >( buffer.get() ) );
   else
      return buffer;
}

template < class T, class Object >
T read( Object const & object, std::string_view name ) {
   return read< T >( typeOf( object ), &object, name );
}

/// Writes an attribute. Raises AccessException, naming attribute and types, when it has another
/// type or cannot be written; nothing is changed then.
template < class T, class Object >
void write( Object & object, std::string_view name, T const & value ) {
   TypeRef const type = typeOf( object );
   FoundAttribute const found = attributeFor( type, name, OpCode::write, bufferType< T >() );
   typename Buffered< T >::Buffer buffer = value;
   access( found.declaring.record(), *found.attribute, &object, OpCode::write, &buffer );
}

/// Calls an operation. Arguments and result must have its types exactly, else AccessException.
template < class Result = void, class Object, class... A >
Result call( Object & object, std::string_view name, A const &... arguments ) {
   static constexpr std::array< BufferType, sizeof...( A ) > types{ bufferType< A >()... };
   std::tuple< typename Buffered< A >::Buffer... > buffers( arguments... );
   auto const places = std::apply(
      []( auto &... buffer ) {
         return std::array< void *, sizeof...( A ) >{ static_cast< void * >( &buffer )... };
      },
      buffers );
   Call frame{ nullptr, places.data(), sizeof...( A ) };
   TypeRef const type = typeOf( object );
   if constexpr( std::is_void_v< Result > ) {
      callTyped( type, untyped( object ), name, bufferType< void >(), types.data(), frame );
   } else {
      Result result{};
      frame.result = &result;
      callTyped( type, untyped( object ), name, bufferType< Result >(), types.data(), frame );
      return result;
   }
}

/// Walks a collection attribute of any object. The object must stay while the iterator is used;
/// elements may be deleted under it.
class LSPPING_PLATFORM_EXPORT CollectionIterator {
 public:
   /// At the first element. The attribute must be a collection of the type (AccessException).
   CollectionIterator( TypeRef type, void * object, std::string_view name );
   CollectionIterator( CollectionIterator const & other );
   CollectionIterator & operator=( CollectionIterator const & ) = delete;
   ~CollectionIterator();

   /// True while there is an element under the iterator.
   bool iterNonnull() const { return owner_ != nullptr && record_->iterNonnull( storage_ ); }
   // What follows asserts that there is one.
   /// The element: an object of the collection's value type that stays the collection's.
   void const * iterObj() const;
   U32 iterKey() const;
   void iterInc();
   /// Deletes the element; the iterator can still advance. Not permitted where there is none.
   Outcome iterDel();

 private:
   CollectionRecord const * record_ = nullptr;
   void * owner_ = nullptr;
   bool writable_ = false;
   IteratorStorage storage_;
};

} // namespace Kiv
