#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Kiv/TypeName.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/NameTable.h"
#include "MplsUtils/LspPing/platform/base/TypeRecord.h"

#include <array>
#include <iosfwd>
#include <limits>
#include <string_view>

namespace Kiv {

/// The names of an enumeration's values, in declaration order.
struct EnumerationTable {
   // The lowest values are found by their number, the others by a search.
   static constexpr std::size_t directCount = 64;

   std::string_view typeName;
   Enumerator const * rows = nullptr;
   U8 const * direct = nullptr;
   NameSlot const * slots = nullptr;
   U16 count = 0;
   U16 slotMask = 0;
};

[[noreturn]] LSPPING_PLATFORM_EXPORT void enumerationRangeError( EnumerationTable const & table,
                                                                 std::string_view met );
[[noreturn]] LSPPING_PLATFORM_EXPORT void enumerationRangeError( EnumerationTable const & table,
                                                                 U64 met );
LSPPING_PLATFORM_EXPORT std::ostream & writeTo( std::ostream & out, std::string_view text );

/// The generic support behind every enumeration. A value without a name has its decimal number as
/// text, and text is read as a name or as a decimal number that fits: whatever prints is read back.
template < class Underlying >
class EnumType {
 public:
   explicit constexpr EnumType( EnumerationTable const & table ) noexcept : table_( table ) {}

   /// The enumerator's name; empty when the value has none.
   constexpr std::string_view name( Underlying value ) const noexcept {
      if( value < EnumerationTable::directCount ) {
         U8 const row = table_.direct[value];
         return row != noName ? table_.rows[row].name() : std::string_view{};
      }
      for( U16 row = 0; row < table_.count; ++row )
         if( table_.rows[row].value == value )
            return table_.rows[row].name();
      return {};
   }

   void appendText( Orlo::StringBuilder & out, Underlying value ) const {
      std::string_view const known = name( value );
      if( !known.empty() )
         out.append( known );
      else
         out.appendDecimal( value );
   }

   Orlo::String stringValue( Underlying value ) const {
      std::string_view const known = name( value );
      return known.empty() ? std::to_string( value ) : Orlo::stringOf( known );
   }

   std::ostream & write( std::ostream & out, Underlying value ) const {
      return writeTo( out, stringValue( value ) );
   }

   /// The value with that number. Raises RangeException when the underlying type does not hold it.
   Underlying instance( U32 number ) const {
      if( number > std::numeric_limits< Underlying >::max() )
         enumerationRangeError( table_, number );
      return static_cast< Underlying >( number );
   }

   /// The value of that name. Raises RangeException, naming the enumeration, when there is none.
   Underlying instance( std::string_view name ) const {
      U8 const row = find( name );
      if( row == noName )
         enumerationRangeError( table_, name );
      return static_cast< Underlying >( table_.rows[row].value );
   }

   /// Reads a name or a decimal number and moves the cursor behind it. Raises RangeException.
   Underlying parse( CharRange & in ) const {
      std::string_view const token = in.token();
      U8 const row = find( token );
      if( row != noName )
         return static_cast< Underlying >( table_.rows[row].value );
      U64 number = 0;
      bool decimal = !token.empty() && token.size() <= 10;
      for( char const c : token ) {
         decimal = decimal && c >= '0' && c <= '9';
         number = number * 10 + static_cast< U64 >( c - '0' );
      }
      if( !decimal || number > std::numeric_limits< Underlying >::max() )
         enumerationRangeError( table_, token );
      return static_cast< Underlying >( number );
   }

 private:
   constexpr U8 find( std::string_view name ) const noexcept {
      return findName(
         table_.slots, table_.slotMask, nameHash( name ), name,
         [this]( U8 row ) { return table_.rows[row].name(); } );
   }

   EnumerationTable const & table_;
};

} // namespace Kiv
