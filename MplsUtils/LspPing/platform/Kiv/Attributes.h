#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Collections.h"
#include "MplsUtils/LspPing/platform/Kiv/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/base/TypeRecord.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>

// How a class names its attributes to the type system, once, in a function beside its members:
//
//    static consteval auto kivAttributes() {
//       return Kiv::attributesAfter< LspPingTlvHdr >(
//          Kiv::field< &LspPingProbeTlv::mark, &LspPingProbeTlv::markIs >( "mark" ),
//          Kiv::computed< &LspPingProbeTlv::valid >( "valid" ) );
//    }
//
// Every row is a name and one plain function, made from the members given as template arguments.
// The compiler refuses a setter that takes another type than the getter gives, and, where the
// module's table is built, a name that stands twice and a member of a class that is no base.

namespace Kiv {

// What a member pointer or function pointer takes and gives.
template < class T >
struct Callable;
template < class C, class R, class... A >
struct CallableOf {
   using Class = C;
   using Result = R;
   static constexpr std::size_t count = sizeof...( A );
   template < class F >
   static constexpr auto expand( F f ) {
      return f( Of< std::remove_cvref_t< A > >{}... );
   }
};
template < class C, class R, class... A >
struct Callable< R ( C::* )( A... ) > : CallableOf< C, R, A... > {};
template < class C, class R, class... A >
struct Callable< R ( C::* )( A... ) noexcept > : CallableOf< C, R, A... > {};
template < class C, class R, class... A >
struct Callable< R ( C::* )( A... ) const > : CallableOf< C, R, A... > {};
template < class C, class R, class... A >
struct Callable< R ( C::* )( A... ) const noexcept > : CallableOf< C, R, A... > {};
template < class R, class... A >
struct Callable< R ( * )( A... ) > : CallableOf< void, R, A... > {};
template < class R, class... A >
struct Callable< R ( * )( A... ) noexcept > : CallableOf< void, R, A... > {};
template < class C, class T >
requires std::is_object_v< T >
struct Callable< T C::* > : CallableOf< C, T > {
};

// How the value of a C++ type lies in an attribute's buffer.
template < class T >
struct Buffered {
   using Type = T;
   using Buffer = T;
   static constexpr Reach reach = Reach::value;
};
template < class T >
struct Buffered< T * > {
   using Type = std::remove_const_t< T >;
   using Buffer = void *;
   static constexpr Reach reach = Reach::pointer;
};
template < class T >
struct Buffered< Orlo::Ptr< T > > {
   using Type = T;
   using Buffer = Orlo::Ptr< Orlo::Node >;
   static constexpr Reach reach = Reach::counted;
};

template < auto getter >
using ValueOf = std::remove_cvref_t< typename Callable< decltype( getter ) >::Result >;

inline constexpr std::nullptr_t none = nullptr;

// An object that is not there, behind a parser's null header, reads as zero, false or empty.
template < auto getter, auto setter >
void accessField( void * object, OpCode op, void * buffer ) {
   using Class = typename Callable< decltype( getter ) >::Class;
   using Value = ValueOf< getter >;
   using Buffer = typename Buffered< Value >::Buffer;
   auto * self = static_cast< Class * >( object );
   auto & value = *static_cast< Buffer * >( buffer );
   if constexpr( !std::is_null_pointer_v< decltype( setter ) > ) {
      if( op == OpCode::write ) {
         if constexpr( Buffered< Value >::reach == Reach::pointer )
            std::invoke( setter, *self, static_cast< Value >( value ) );
         else
            std::invoke( setter, *self, std::as_const( value ) );
         return;
      }
   }
   if( self != nullptr )
      value = std::invoke( getter, *self );
   else
      value = Buffer{};
}

template < auto getter, auto setter, auto refusal >
void accessConditionalField( void * object, OpCode op, void * buffer ) {
   if( op == Attribute::ask ) {
      using Class = typename Callable< decltype( refusal ) >::Class;
      auto & question = *static_cast< WriteQuestion * >( buffer );
      question.refusal = std::invoke( refusal, *static_cast< Class const * >( object ),
                                      *static_cast< ValueOf< getter > const * >( question.value ) );
   } else {
      accessField< getter, setter >( object, op, buffer );
   }
}

template < auto member >
void accessStored( void * object, OpCode op, void * buffer ) {
   using Class = typename Callable< decltype( member ) >::Class;
   using Value = ValueOf< member >;
   auto & stored = static_cast< Class * >( object )->*member;
   if( op == Attribute::locate )
      *static_cast< void ** >( buffer ) = &stored;
   else if( op == OpCode::write )
      stored = *static_cast< Value const * >( buffer );
   else
      *static_cast< Value * >( buffer ) = stored;
}

// A part of the value's text that has no place of its own to point at.
template < auto getter, auto setter >
void accessStoredField( void * object, OpCode op, void * buffer ) {
   if( op == Attribute::locate )
      *static_cast< void ** >( buffer ) = nullptr;
   else
      accessField< getter, setter >( object, op, buffer );
}

template < auto value, class Value >
void accessConstant( void *, OpCode, void * buffer ) {
   *static_cast< Value * >( buffer ) = *value;
}

template < class T >
T argumentAt( Call const & call, std::size_t index ) {
   if constexpr( Buffered< T >::reach == Reach::pointer )
      return static_cast< T >( *static_cast< void ** >( call.arguments[index] ) );
   else
      return *static_cast< T const * >( call.arguments[index] );
}

template < auto function, class... A, std::size_t... index >
auto callWith( void * object, Call const & call, std::index_sequence< index... >, Of< A >... ) ->
   typename Callable< decltype( function ) >::Result {
   using Class = typename Callable< decltype( function ) >::Class;
   if constexpr( std::is_void_v< Class > )
      return function( argumentAt< A >( call, index )... );
   else
      return ( static_cast< Class * >( object )->*function )( argumentAt< A >( call, index )... );
}

// Arguments and result were checked against the operation's signature.
template < auto function >
void callOperation( void * object, OpCode, void * buffer ) {
   using Operation = Callable< decltype( function ) >;
   using Result = std::remove_cvref_t< typename Operation::Result >;
   [[maybe_unused]] auto const & call = *static_cast< Call const * >( buffer );
   auto const run = [&]< class... A >( Of< A >... types ) {
      return callWith< function >( object, call, std::index_sequence_for< A... >(), types... );
   };
   if constexpr( std::is_void_v< Result > )
      Operation::expand( run );
   else
      *static_cast< Result * >( call.result ) = Operation::expand( run );
}

template < class T >
constexpr BufferType bufferType() {
   using Bare = std::remove_cvref_t< T >;
   if constexpr( std::is_void_v< T > )
      return {};
   else
      return { typeIdOf< typename Buffered< Bare >::Type >, Buffered< Bare >::reach };
}

template < auto function >
inline constexpr auto
   argumentTypes = Callable< decltype( function ) >::expand( []< class... A >( Of< A >... ) {
      return std::array< BufferType, sizeof...( A ) >{ bufferType< A >()... };
   } );

template < auto function >
inline constexpr Signature signatureOf{
   argumentTypes< function >.data(), static_cast< U8 >( argumentTypes< function >.size() ),
   bufferType< typename Callable< decltype( function ) >::Result >()
};

template < class Value >
constexpr Attribute row( std::string_view name, Attribute::Access access, unsigned flags ) {
   Attribute attribute;
   attribute.nameText = name.data();
   attribute.nameLength = static_cast< U32 >( name.size() );
   attribute.access = access;
   attribute.typeId = bufferType< Value >().type;
   attribute.reach = bufferType< Value >().reach;
   attribute.flags = static_cast< U8 >( flags );
   return attribute;
}

// A row as its class gives it. Of which classes it takes members only the compiler knows: the table
// holds the attribute.
template < class... Owners >
struct Row : Attribute {};

template < auto... members >
using RowOf = Row< typename Callable< decltype( members ) >::Class... >;

template < auto getter, auto setter >
inline constexpr bool
   takesWhatIsGiven = Callable< decltype( setter ) >::expand( []< class... A >( Of< A >... ) {
      return std::is_same_v< void( A... ), void( ValueOf< getter > ) >;
   } );

template < auto getter, auto setter >
constexpr RowOf< getter, setter > fieldRow( std::string_view name, Attribute::Access access,
                                            unsigned flags ) {
   static_assert( takesWhatIsGiven< getter, setter >,
                  "a setter takes one argument, of the type that the getter gives" );
   return { row< ValueOf< getter > >( name, access,
                                      flags | Attribute::readableFlag | Attribute::writableFlag ) };
}

/// An attribute read through a getter and written through a setter.
template < auto getter, auto setter >
constexpr auto field( std::string_view name ) {
   return fieldRow< getter, setter >( name, &accessField< getter, setter >, 0 );
}

/// A field whose setter takes a value under conditions only, else the program ends. `refusal` says
/// what stands against a value, and nothing (empty) if the setter takes it: `writeRefusal` asks it.
template < auto getter, auto setter, auto refusal >
constexpr auto conditionalField( std::string_view name ) {
   return fieldRow< getter, setter >( name, &accessConditionalField< getter, setter, refusal >,
                                      Attribute::conditionsFlag );
}

/// An attribute, or an operation without arguments, that can only be read.
template < auto getter >
constexpr RowOf< getter > computed( std::string_view name ) {
   return { row< ValueOf< getter > >( name, &accessField< getter, none >,
                                      Attribute::readableFlag ) };
}

/// A data member that is part of a value's text and can be read and written.
template < auto member >
constexpr RowOf< member > stored( std::string_view name ) {
   return { row< ValueOf< member > >( name, &accessStored< member >,
                                      Attribute::readableFlag | Attribute::writableFlag |
                                         Attribute::storedFlag ) };
}

/// A data member that is part of a value's text; only construction sets it.
template < auto member >
constexpr RowOf< member > storedReadOnly( std::string_view name ) {
   return { row< ValueOf< member > >( name, &accessStored< member >,
                                      Attribute::readableFlag | Attribute::storedFlag ) };
}

/// An attribute read through a getter and written through a setter that is part of a value's text,
/// such as some bits of a stored word.
template < auto getter, auto setter >
constexpr auto storedField( std::string_view name ) {
   return fieldRow< getter, setter >( name, &accessStoredField< getter, setter >,
                                      Attribute::storedFlag );
}

/// A constant, read as a value of type Value.
template < auto value, class Value >
constexpr Row<> constant( std::string_view name ) {
   return { row< Value >( name, &accessConstant< value, Value >, Attribute::readableFlag ) };
}

/// An operation that takes arguments or returns nothing: it is called, and refuses to be read.
/// `argumentNames` are separated by ", ".
template < auto function >
constexpr RowOf< function > operation( std::string_view name, char const * argumentNames = "" ) {
   RowOf< function > attribute;
   attribute.nameText = name.data();
   attribute.nameLength = static_cast< U32 >( name.size() );
   attribute.access = &callOperation< function >;
   attribute.signature = &signatureOf< function >;
   attribute.argumentNames = argumentNames;
   attribute.typeId = signatureOf< function >.result.type;
   attribute.reach = signatureOf< function >.result.reach;
   attribute.flags = Attribute::callableFlag;
   return attribute;
}

/// A data member that is a collection (`Kiv::DynArray`, `Kiv::RbTreeMap`), reached by iteration
/// and by key.
template < auto member >
constexpr RowOf< member > collection( std::string_view name, bool writable = true ) {
   RowOf< member > attribute;
   attribute.nameText = name.data();
   attribute.nameLength = static_cast< U32 >( name.size() );
   attribute.collectionRecord = &collectionRecordOf< member >;
   attribute.typeId = typeIdOf< typename ValueOf< member >::Value >;
   attribute.flags =
      static_cast< U8 >( Attribute::collectionFlag | Attribute::storedFlag |
                         Attribute::readableFlag | ( writable ? Attribute::writableFlag : 0 ) );
   return attribute;
}

/// An attribute that the object's state may forbid to read: tools ask `guard` first, a call
/// through the generic interface runs into the getter's assertion all the same.
template < auto guard, class... Owners >
constexpr auto guarded( Row< Owners... > guardedRow ) {
   using Class = typename Callable< decltype( guard ) >::Class;
   Row< Class, Owners... > attribute{ guardedRow };
   attribute.guard = []( void const * object ) -> bool {
      return ( static_cast< Class const * >( object )->*guard )();
   };
   return attribute;
}

/// A class's own attributes in their order, and the class whose attributes come before them.
template < class Base_, class... Rows >
struct AttributeTable {
   using Base = Base_;
   static constexpr std::size_t size = sizeof...( Rows );
   std::array< Attribute, size > rows;
};

template < class... Rows >
constexpr auto attributes( Rows... rows ) {
   return AttributeTable< void, Rows... >{ { rows... } };
}

template < class Base, class... Rows >
constexpr auto attributesAfter( Rows... rows ) {
   return AttributeTable< Base, Rows... >{ { rows... } };
}

} // namespace Kiv
