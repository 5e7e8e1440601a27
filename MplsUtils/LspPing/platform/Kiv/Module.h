#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Kiv/ConstantHolder.h"
#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/platform/Kiv/NrcPtrInterface.h"
#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"
#include "MplsUtils/LspPing/platform/Kiv/TypeName.h"
#include "MplsUtils/LspPing/platform/Orlo/Node.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/NameTable.h"
#include "MplsUtils/LspPing/platform/base/TypeRecord.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <span>
#include <utility>

// Turns the list of a module's types into its table. Included by the one source file of each
// module that holds the table, where all the classes are complete.

namespace Kiv {

template < class T >
concept HasAttributes = requires {
   T::kivAttributes();
};

template < class T >
concept HasText = requires( Orlo::StringBuilder & out, T const & value ) {
   appendText( out, value );
};

template < class T >
concept ReadFromText = requires( CharRange & in, T * value ) {
   sequenceToValue( in, value );
};

template < class T >
constexpr Kind kindOf() {
   if constexpr( std::is_enum_v< T > )
      return Kind::enumeration;
   else if constexpr( std::is_base_of_v< NrcPtrInterface, T > )
      return Kind::pointerInterface;
   else if constexpr( std::is_base_of_v< Orlo::Node, T > )
      return Kind::object;
   else if constexpr( std::is_base_of_v< ConstantHolder, T > )
      return Kind::constant;
   else
      return Kind::value;
}

// A pointer-interface type hashes its address; the low bits of addresses vary most, so their
// order is turned round.
inline U64 pointerHash( void const * object ) noexcept {
   U64 bits = reinterpret_cast< std::uintptr_t >( object );
   bits = ( bits & 0x5555555555555555u ) << 1 | ( bits >> 1 & 0x5555555555555555u );
   bits = ( bits & 0x3333333333333333u ) << 2 | ( bits >> 2 & 0x3333333333333333u );
   bits = ( bits & 0x0f0f0f0f0f0f0f0fu ) << 4 | ( bits >> 4 & 0x0f0f0f0f0f0f0f0fu );
   return __builtin_bswap64( bits );
}

// What T::kivCreate takes says how objects of T are created: over a node of one class and an offset
// into it, or of nothing.
template < class T, class Under >
constexpr void createIs( Operations & o, Orlo::Ptr< T > ( * )( Orlo::Ptr< Under > const &, U32 ) ) {
   o.create = []( Orlo::Ptr< Orlo::Node > const & pkt, U32 offset ) -> Orlo::Ptr< Orlo::Node > {
      KIV_ASSERT( pkt != nullptr );
      KIV_ASSERT( pkt->fwkType().isA( typeOf< Under >() ) );
      return T::kivCreate( static_cast< Under * >( pkt.get() ), offset );
   };
}

template < class T >
constexpr void createIs( Operations & o, Orlo::Ptr< T > ( * )() ) {
   o.createEmpty = []() -> Orlo::Ptr< Orlo::Node > { return T::kivCreate(); };
}

template < class T >
inline constexpr CopyOperations copyOperationsFor{
   []( std::span< U8 const > bytes ) -> void * { return T::kivCopyOf( bytes ).release(); },
   []( void * object ) { delete static_cast< T * >( object ); }
};

template < class T >
constexpr Operations operationsFor() {
   constexpr Kind kind = kindOf< T >();
   Operations o;
   if constexpr( kind == Kind::object ) {
      if constexpr( requires { T::kivTarget; } )
         o.target = T::kivTarget;
      if constexpr( requires { T::kivCreate; } )
         createIs< T >( o, T::kivCreate );
   } else if constexpr( kind != Kind::constant ) {
      if constexpr( std::is_copy_constructible_v< T > ) {
         o.construct = []( void * place, void const * from ) {
            if( from != nullptr )
               ::new( place ) T( *static_cast< T const * >( from ) );
            else
               ::new( place ) T();
         };
         o.assign = []( void * object, void const * from ) {
            *static_cast< T * >( object ) = *static_cast< T const * >( from );
         };
      } else if constexpr( std::is_default_constructible_v< T > ) {
         o.construct = []( void * place, void const * ) { ::new( place ) T(); };
      }
      o.destruct = []( void * object ) { std::destroy_at( static_cast< T * >( object ) ); };
      if constexpr( requires { T::kivExtent; } )
         o.extent = T::kivExtent;
      if constexpr( requires { T::kivCopyOf; } )
         o.copies = &copyOperationsFor< T >;
      if constexpr( kind == Kind::pointerInterface )
         o.hash = pointerHash;
      else if constexpr( requires( T const & value ) { value.kivHash(); } )
         o.hash = []( void const * value ) -> U64 {
            return static_cast< T const * >( value )->kivHash();
         };
      if constexpr( kind != Kind::pointerInterface && std::equality_comparable< T > )
         o.equal = []( void const * a, void const * b ) -> bool {
            return *static_cast< T const * >( a ) == *static_cast< T const * >( b );
         };
      if constexpr( kind == Kind::value && std::is_class_v< T > &&
                    requires( T const & value ) { value.operator bool(); } )
         o.isSet = []( void const * value ) -> bool {
            return static_cast< bool >( *static_cast< T const * >( value ) );
         };
      if constexpr( HasText< T > )
         o.appendText = []( Orlo::StringBuilder & out, void const * value ) {
            appendText( out, *static_cast< T const * >( value ) );
         };
      if constexpr( std::is_constructible_v< T, CharRange & > )
         o.parse = []( CharRange & in, void * value ) { *static_cast< T * >( value ) = T( in ); };
      else if constexpr( ReadFromText< T > )
         o.parse = []( CharRange & in, void * value ) {
            sequenceToValue( in, static_cast< T * >( value ) );
         };
   }
   return o;
}

template < class T >
inline constexpr Operations operationsOf = operationsFor< T >();

// The class whose attributes come before those of T, or void.
template < HasAttributes T >
using BaseOf = typename decltype( T::kivAttributes() )::Base;

// The attributes of a class and of all its bases, found by name, for those that forward them.
template < class T >
constexpr bool findAttribute( std::string_view name, Attribute & found ) {
   if constexpr( requires { T::kivAccessors(); } ) {
      for( Attribute const & row : T::kivAccessors().rows ) {
         if( row.name() == name ) {
            found = row;
            return true;
         }
      }
   }
   for( Attribute const & row : T::kivAttributes().rows ) {
      if( row.name() == name ) {
         found = row;
         return true;
      }
   }
   using Base = BaseOf< T >;
   if constexpr( !std::is_void_v< Base > )
      return findAttribute< Base >( name, found );
   return false;
}

// Rows of `Via` (names separated by ", ") as read-only attributes of a type that forwards them.
template < class Via, std::size_t n >
constexpr void forwardAttributes( std::string_view names, std::array< Attribute, n > & rows,
                                  std::size_t first ) {
   for( std::size_t i = first; i < n; ++i ) {
      std::size_t const end = names.find( ',' );
      Attribute row;
      if( !findAttribute< Via >( names.substr( 0, end ), row ) )
         throw "the view has no attribute of a forwarded name";
      row.flags = static_cast< U8 >(
         ( row.flags & ( Attribute::readableFlag | Attribute::collectionFlag ) ) |
         Attribute::forwardedFlag );
      rows[i] = row;
      if( end != std::string_view::npos )
         names.remove_prefix( names.find_first_not_of( ", ", end ) );
   }
}

constexpr std::size_t nameCount( std::string_view names ) {
   std::size_t count = 1;
   for( char const c : names )
      count += c == ',' ? 1 : 0;
   return count;
}

// A class that forwards names what it forwards; its own attributes come first.
template < HasAttributes T >
constexpr auto allRowsOf() {
   constexpr auto own = T::kivAttributes();
   if constexpr( requires { T::kivForwarded; } ) {
      std::array< Attribute, own.size + nameCount( T::kivForwarded ) > rows{};
      std::copy( own.rows.begin(), own.rows.end(), rows.begin() );
      forwardAttributes< typename T::KivForwardedFrom >( T::kivForwarded, rows, own.size );
      return rows;
   } else {
      return own.rows;
   }
}

template < class T >
constexpr U8 firstAttributeId() {
   return !std::is_void_v< BaseOf< T > > || kindOf< T >() == Kind::object ||
                kindOf< T >() == Kind::constant
             ? 130
             : 2;
}

template < class T >
inline constexpr auto attributeRows = [] {
   auto rows = allRowsOf< T >();
   U16 id = firstAttributeId< T >();
   for( Attribute & row : rows )
      row.id = id++;
   return rows;
}();

template < class T >
[[gnu::visibility( "hidden" )]] inline constexpr auto
   attributeSlots = nameSlots< attributeRows< T >.size() >( []( std::size_t i ) {
      return attributeRows< T >[i].name();
   } );

// Whether a row of T may use a member of Owner: it takes the object's address for that of an Owner.
// What belongs to no class uses no object.
template < class T, class Owner >
inline constexpr bool mayUse = std::is_void_v< Owner > || std::is_base_of_v< Owner, T >;

template < class T, class... Owners >
constexpr void checkRow( Of< Row< Owners... > > ) {
   static_assert(
      ( mayUse< T, Owners > && ... ),
      "an attribute is made of a member of a class that is neither its own nor a base of it" );
}

template < class T, class Base, class... Rows >
constexpr void checkRows( AttributeTable< Base, Rows... > const & ) {
   ( checkRow< T >( Of< Rows >{} ), ... );
}

// Compares lengths first: this runs in the compiler, for every two rows.
constexpr bool hasNameOf( std::span< Attribute const > rows, Attribute const & other ) {
   return std::any_of(
      rows.begin(), rows.end(),
      [&other]( Attribute const & row ) {
         return row.nameLength == other.nameLength && row.name() == other.name();
      } );
}

template < class T >
constexpr bool baseHasNameOf( Attribute const & row ) {
   using Base = BaseOf< T >;
   if constexpr( requires { T::kivAccessors(); } ) {
      if( hasNameOf( T::kivAccessors().rows, row ) )
         return true;
   }
   if constexpr( !std::is_void_v< Base > )
      return hasNameOf( attributeRows< Base >, row ) || baseHasNameOf< Base >( row );
   return false;
}

// The first row whose name stands before it already, or how many rows there are.
template < class T >
constexpr std::size_t repeatedRow() {
   std::span< Attribute const > const rows = attributeRows< T >;
   std::size_t row = 0;
   while( row < rows.size() && !hasNameOf( rows.first( row ), rows[row] ) &&
          !baseHasNameOf< T >( rows[row] ) )
      ++row;
   return row;
}

template < class T, std::size_t row >
constexpr void checkNames() {
   static_assert( row == attributeRows< T >.size(),
                  "a name stands twice among the attributes of a class and its bases" );
}

template < class T >
constexpr void checkAttributes() {
   checkRows< T >( T::kivAttributes() );
   if constexpr( requires { T::kivAccessors(); } )
      checkRows< T >( T::kivAccessors() );
   checkNames< T, repeatedRow< T >() >();
   if constexpr( requires { T::kivForwarded; } )
      checkAttributes< typename T::KivForwardedFrom >();
}

template < class T >
constexpr TypeRecord recordOf( TypeId id ) {
   TypeRecord r;
   r.id = id;
   r.name = typeName< T >;
   r.kind = kindOf< T >();
   r.operations = &operationsOf< T >;
   r.size = sizeof( T );
   r.alignment = alignof( T );
   if constexpr( requires { T::memAllocationTracker_; } )
      r.tracker = &T::memAllocationTracker_;
   if constexpr( std::is_enum_v< T > ) {
      r.enumerators = EnumerationOf< T >::rows.data();
      r.enumeratorCount = static_cast< U16 >( EnumerationOf< T >::rows.size() );
      r.underlying = typeIdOf< std::underlying_type_t< T > >;
   } else if constexpr( HasAttributes< T > ) {
      checkAttributes< T >();
      using Base = BaseOf< T >;
      if constexpr( !std::is_void_v< Base > ) {
         // Accesses that are forwarded to the base use the object's own address.
         static_assert( std::is_base_of_v< Base, T > );
         r.base = typeIdOf< Base >;
      }
      r.attributes = attributeRows< T >.data();
      r.attributeCount = static_cast< U16 >( attributeRows< T >.size() );
      r.attributeSlots = attributeSlots< T >.data();
      r.slotMask = static_cast< U16 >( attributeSlots< T >.size() - 1 );
      r.firstId = firstAttributeId< T >();
   }
   return r;
}

template < class T >
constexpr bool isDefined() {
   if constexpr( std::is_enum_v< T > )
      return requires {
         kivEnumerators( Of< T >{} );
      };
   else
      return requires {
         sizeof( T );
      };
}

// Whether the class is defined whose attributes T forwards, if it forwards any.
template < class T >
constexpr bool isTargetDefined() {
   if constexpr( requires { typename T::KivForwardedFrom; } )
      return isDefined< typename T::KivForwardedFrom >();
   else
      return true;
}

template < class T >
constexpr TypeRecord placeOf( Of< T >, TypeId id ) {
   constexpr bool defined = isDefined< T >();
   static_assert( defined, "a listed type is not defined where the module's table is built: "
                           "include its header there, or list it as Kiv::Kept" );
   if constexpr( defined ) {
      constexpr bool targetDefined = isTargetDefined< T >();
      static_assert( targetDefined, "a listed class forwards the attributes of a class that is not "
                                    "defined where the module's table is built: include its header "
                                    "there, or list the one that forwards as Kiv::Kept" );
      if constexpr( targetDefined )
         return recordOf< T >( id );
   }
   return {};
}

template < class T >
constexpr TypeRecord placeOf( Of< Kept< T > >, TypeId id ) {
   TypeRecord absent;
   absent.id = id;
   return absent;
}

template < class List >
struct TypeTable;
template < class... Ts >
struct TypeTable< TypeList< Ts... > > {
   static constexpr std::size_t size = sizeof...( Ts );

   static constexpr std::array< TypeRecord, size > build( U16 module ) {
      U16 next = 0;
      return { placeOf( Of< Ts >{}, TypeId{ module, next++ } )... };
   }
};

/// The table of the module of that number, whose types are those of the list.
template < class List, U16 module >
struct Module {
   static constexpr std::array< TypeRecord, List::size > types = TypeTable< List >::build( module );
   static constexpr auto slots =
      nameSlots< List::size >( []( std::size_t i ) { return types[i].name; } );

   static constexpr ModuleTable table( std::string_view name ) {
      return { name, types.data(), slots.data(), module, List::size, slots.size() - 1 };
   }
};

} // namespace Kiv
