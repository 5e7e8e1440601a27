#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

namespace Kiv {

// The type system reaches every collection through one record of plain functions. A collection
// class offers:
//
//    using Key, Value, Iterator;      Iterator: nonnull(), key(), value(), advance(); copyable
//    static constexpr U32 keyLimit;   the highest key
//    Iterator iterator() const;       at the first element
//    std::size_t count() const;  U64 version() const;  bool contains( Key ) const;
//    Value entry( Key ) const;        the default value where there is none
//    void entryIs( Key, Value const & );
//    Value entryDel( Key );  Value entryDel( Iterator const & );  void entryDelAll();

/// Room for any collection's iterator.
struct IteratorStorage {
   static constexpr std::size_t size = 48;
   alignas( void * ) std::byte bytes[size];
};

/// What can be done with a collection member of an object without knowing its class. No element has
/// a key above `keyLimit`, and none has an owner that is not there: `contains` is false and `read`
/// gives the default value. Only what is there is written, and only up to that key.
struct CollectionRecord {
   TypeId keyType;
   U32 keyLimit; ///< the highest key
   std::size_t ( *count )( void const * owner );
   U64 ( *version )( void const * owner );
   bool ( *contains )( void const * owner, U32 key );
   void ( *read )( void const * owner, U32 key, void * value );
   void ( *write )( void * owner, U32 key, void const * value );

   void ( *iterator )( void const * owner, IteratorStorage & );
   void ( *iteratorCopy )( IteratorStorage const &, IteratorStorage & );
   void ( *iteratorEnd )( IteratorStorage & );
   bool ( *iterNonnull )( IteratorStorage const & );
   void const * ( *iterObj )( IteratorStorage const & );
   U32 ( *iterKey )( IteratorStorage const & );
   void ( *iterInc )( IteratorStorage & );
   void ( *iterDel )( void * owner, IteratorStorage const & );
};

template < class T >
struct MemberOf;
template < class C, class T >
struct MemberOf< T C::* > {
   using Owner = C;
   using Member = T;
};

template < auto member >
struct CollectionAccess {
   using Owner = typename MemberOf< decltype( member ) >::Owner;
   using Collection = typename MemberOf< decltype( member ) >::Member;
   using Key = typename Collection::Key;
   using Value = typename Collection::Value;
   using Iterator = typename Collection::Iterator;
   static_assert( sizeof( Iterator ) <= IteratorStorage::size );
   static_assert( alignof( Iterator ) <= alignof( IteratorStorage ) );

   static Collection const & of( void const * owner ) {
      return static_cast< Owner const * >( owner )->*member;
   }
   static Collection & of( void * owner ) { return static_cast< Owner * >( owner )->*member; }
   static bool mayHold( void const * owner, U32 key ) {
      return owner != nullptr && key <= Collection::keyLimit;
   }
   // The storage holds an Iterator from `iterator` or `iteratorCopy` until `iteratorEnd`.
   static Iterator & in( IteratorStorage & s ) {
      return *std::launder( reinterpret_cast< Iterator * >( s.bytes ) );
   }
   static Iterator const & in( IteratorStorage const & s ) {
      return *std::launder( reinterpret_cast< Iterator const * >( s.bytes ) );
   }

   static constexpr CollectionRecord record{
      .keyType = typeIdOf< Key >,
      .keyLimit = Collection::keyLimit,
      .count = []( void const * owner ) -> std::size_t { return of( owner ).count(); },
      .version = []( void const * owner ) -> U64 { return of( owner ).version(); },
      .contains = []( void const * owner, U32 key ) -> bool {
         return mayHold( owner, key ) && of( owner ).contains( static_cast< Key >( key ) );
      },
      .read =
         []( void const * owner, U32 key, void * value ) {
            *static_cast< Value * >( value ) =
               mayHold( owner, key ) ? of( owner ).entry( static_cast< Key >( key ) ) : Value();
         },
      .write =
         []( void * owner, U32 key, void const * value ) {
            of( owner ).entryIs( static_cast< Key >( key ),
                                 *static_cast< Value const * >( value ) );
         },
      .iterator =
         []( void const * owner, IteratorStorage & s ) {
            ::new( s.bytes ) Iterator( of( owner ).iterator() );
         },
      .iteratorCopy = []( IteratorStorage const & from,
                          IteratorStorage & to ) { ::new( to.bytes ) Iterator( in( from ) ); },
      .iteratorEnd = []( IteratorStorage & s ) { std::destroy_at( &in( s ) ); },
      .iterNonnull = []( IteratorStorage const & s ) -> bool { return in( s ).nonnull(); },
      .iterObj = []( IteratorStorage const & s ) -> void const * { return &in( s ).value(); },
      .iterKey = []( IteratorStorage const & s ) -> U32 { return in( s ).key(); },
      .iterInc = []( IteratorStorage & s ) { in( s ).advance(); },
      .iterDel = []( void * owner, IteratorStorage const & s ) { of( owner ).entryDel( in( s ) ); },
   };
};

template < auto member >
inline constexpr CollectionRecord const & collectionRecordOf = CollectionAccess< member >::record;

} // namespace Kiv
