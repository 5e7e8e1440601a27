#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

// Names only, of parts above: a node tells its type, whose operations make nodes and read text.
namespace Orlo {
class Node;
class StringBuilder;
template < class T >
class Ptr;
} // namespace Orlo

namespace Kiv {

class AllocationTracker;
class CharRange;
class TypeRef;
struct CollectionRecord;
struct ModuleTable;
struct NameSlot;

/// What is asked of an attribute.
enum class OpCode : U32 {
   read = 0,
   write = 1,
   call = 10,
};

/// How an attribute access ended.
enum class Outcome : U32 {
   done = 0,
   notPermitted = 1,
   noSuchAttribute = 2,
};

/// What a type offers, and how its values are kept.
enum class Kind : U8 {
   value,            ///< copied, printed, parsed
   pointerInterface, ///< reached through a plain pointer: views over packet bytes
   object,           ///< a reference-counted node
   enumeration,
   constant, ///< holds constants only
   absent,   ///< a place kept for a type that this build does not have
};

/// How an attribute's buffer holds its value.
enum class Reach : U8 {
   value,   ///< the buffer is an object of the attribute's type
   pointer, ///< the buffer is a `void *` to an object of the attribute's type, not owned
   counted, ///< the buffer is an `Orlo::Ptr< Orlo::Node >`
};

/// Arguments and result of an operation, the buffer of `OpCode::call`.
struct Call {
   void * result = nullptr;            ///< object of the result's type; unused without a result
   void * const * arguments = nullptr; ///< one buffer of the argument's type each
   std::size_t count = 0;              ///< must equal the operation's number of arguments
};

/// A registered type, and how a buffer holds an object of it.
struct BufferType {
   TypeId type; ///< none for the result of an operation that returns nothing
   Reach reach = Reach::value;

   friend constexpr bool operator==( BufferType, BufferType ) noexcept = default;
};

/// Types of an operation's arguments and result.
struct Signature {
   BufferType const * arguments = nullptr;
   U8 count = 0;
   BufferType result;
};

/// What a row whose setter has conditions is asked before a write.
struct WriteQuestion {
   void const * value = nullptr; ///< the buffer of the write
   std::string refusal;          ///< what stands against it, as a sentence
};

/// One attribute of a type: a row of the table that stands beside its class.
struct Attribute {
   // Requests beyond the public operation codes that rows understand: the address of a stored
   // value, for printing and parsing in place. Null when the value has no place of its own and is
   // read and written instead.
   static constexpr OpCode locate = static_cast< OpCode >( 2 );
   // What stands against writing a value; the buffer is a `WriteQuestion`. Understood by the rows
   // with `conditionsFlag`.
   static constexpr OpCode ask = static_cast< OpCode >( 3 );

   using Access = void ( * )( void * object, OpCode op, void * buffer );
   using Guard = bool ( * )( void const * object );

   enum Flag : U8 {
      readableFlag = 1,
      writableFlag = 2,
      callableFlag = 4,
      collectionFlag = 8,
      storedFlag = 16,     // part of the value's text
      forwardedFlag = 32,  // belongs to the object that the type's `target` gives
      conditionsFlag = 64, // its setter takes a value under conditions only
   };

   char const * nameText = nullptr;
   Access access = nullptr;
   Guard guard = nullptr;
   CollectionRecord const * collectionRecord = nullptr;
   Signature const * signature = nullptr;
   char const * argumentNames = nullptr; // "time0, time1"
   TypeId typeId;
   // 32 bits although names are short: g++ 12 copies what it knows to be at most 255 bytes by
   // string instructions, which take five times as long as a call of memcpy.
   U32 nameLength = 0;
   U16 id = 0;
   U8 flags = 0;
   Reach reach = Reach::value;

   constexpr std::string_view name() const noexcept { return { nameText, nameLength }; }
   TypeRef type() const noexcept;
   constexpr bool readable() const noexcept { return flags & readableFlag; }
   constexpr bool writable() const noexcept { return flags & writableFlag; }
   constexpr bool callable() const noexcept { return flags & callableFlag; }
   constexpr bool collection() const noexcept { return flags & collectionFlag; }
   constexpr bool stored() const noexcept { return flags & storedFlag; }
   constexpr bool forwarded() const noexcept { return flags & forwardedFlag; }
   constexpr bool hasConditions() const noexcept { return flags & conditionsFlag; }

   constexpr bool offers( OpCode op ) const noexcept {
      switch( op ) {
      case OpCode::read:
         return readable();
      case OpCode::write:
         return writable();
      case OpCode::call:
         return callable();
      }
      return false;
   }
};

/// One named value of an enumeration.
struct Enumerator {
   char const * nameText = nullptr;
   U32 value = 0;
   U32 nameLength = 0; // as wide as it is: see Attribute

   constexpr std::string_view name() const noexcept { return { nameText, nameLength }; }
};

/// How objects are made of an element's bytes where the type is a copy of them and no view.
struct CopyOperations {
   /// A new object on the heap. As many bytes as `Operations::extent` tells must be there.
   void * ( *copyOf )( std::span< U8 const > bytes );
   void ( *destroy )( void * object );
};

/// What can be done with a type's objects without knowing the type; null where a kind has it not.
struct Operations {
   void ( *construct )( void * place, void const * from ) = nullptr; ///< default when from is null
   void ( *destruct )( void * object ) = nullptr;
   void ( *assign )( void * object, void const * from ) = nullptr;
   bool ( *equal )( void const *, void const * ) = nullptr;
   U64 ( *hash )( void const * ) = nullptr;
   bool ( *isSet )( void const * ) = nullptr;
   void ( *appendText )( Orlo::StringBuilder &, void const * ) = nullptr; ///< of a plain value
   void ( *parse )( CharRange &, void * ) = nullptr;
   /// Over what the node holds from an offset on; another node than one of the class that this
   /// type is created over is an assertion.
   Orlo::Ptr< Orlo::Node > ( *create )( Orlo::Ptr< Orlo::Node > const &, U32 ) = nullptr;
   Orlo::Ptr< Orlo::Node > ( *createEmpty )() = nullptr;
   void * ( *target )( void * object ) = nullptr; ///< what forwarded attributes are read from
   /// How many bytes an object over these, or copied from them, reads and writes, where that is not
   /// its size. With too few of them to tell, as many as tell.
   std::size_t ( *extent )( std::span< U8 const > bytes ) = nullptr;
   CopyOperations const * copies = nullptr;
};

/// Everything the type system knows of one type.
struct TypeRecord {
   std::string_view name;
   Attribute const * attributes = nullptr;
   NameSlot const * attributeSlots = nullptr;
   Enumerator const * enumerators = nullptr;
   Operations const * operations = nullptr;
   AllocationTracker * tracker = nullptr;
   TypeId id;
   TypeId base;       ///< the type through which inherited attributes are reached
   TypeId underlying; ///< of an enumeration
   U32 size = 0;
   U32 alignment = 0;
   U16 attributeCount = 0;
   U16 enumeratorCount = 0;
   U16 slotMask = 0;
   U8 firstId = 0;
   Kind kind = Kind::absent;
};

/// A module: one read-only table of types, registered as a whole.
struct ModuleTable {
   std::string_view name;
   TypeRecord const * types = nullptr;
   NameSlot const * typeSlots = nullptr;
   U16 id = 0;
   U16 count = 0;
   U16 slotMask = 0;
};

} // namespace Kiv
