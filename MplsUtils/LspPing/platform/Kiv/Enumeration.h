#pragma once

// One page for the one macro that declares an enumeration. It is a macro because the enumerators'
// names are wanted as text and because two functions carry the enumeration's name in theirs; all
// that it expands to is a line each into templates.

#include "MplsUtils/LspPing/platform/Kiv/EnumType.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

namespace Kiv {

// Reads "first = 1, second = 2" as the preprocessor leaves it. A list that the compiler accepts as
// enumerators but that has a value without a plain decimal number does not compile.
template < std::size_t n >
constexpr auto enumeratorRows( std::string_view list ) {
   std::array< Enumerator, n > rows{};
   for( Enumerator & row : rows ) {
      list.remove_prefix( list.find_first_not_of( ' ' ) );
      std::size_t const nameEnd = list.find( ' ' );
      row.nameText = list.data();
      row.nameLength = static_cast< U32 >( nameEnd );
      list.remove_prefix( list.find( '=' ) + 1 );
      list.remove_prefix( list.find_first_not_of( ' ' ) );
      std::size_t const numberEnd = list.find( ',' );
      std::string_view const number = list.substr( 0, numberEnd );
      for( char const c : number ) {
         if( c < '0' || c > '9' )
            throw "an enumerator's value is written as a decimal number";
         row.value = row.value * 10 + static_cast< U32 >( c - '0' );
      }
      list.remove_prefix( numberEnd == std::string_view::npos ? list.size() : numberEnd + 1 );
   }
   return rows;
}

constexpr std::size_t enumeratorCount( std::string_view list ) {
   std::size_t count = 0;
   for( char const c : list )
      count += c == '=' ? 1 : 0;
   return count;
}

template < class E >
struct EnumerationOf {
   static constexpr std::string_view list = kivEnumerators( Of< E >{} );
   static constexpr auto rows = enumeratorRows< enumeratorCount( list ) >( list );
   static constexpr auto slots =
      nameSlots< rows.size() >( []( std::size_t i ) { return rows[i].name(); } );
   static constexpr auto direct = [] {
      std::array< U8, EnumerationTable::directCount > result{};
      result.fill( noName );
      for( std::size_t i = 0; i < rows.size(); ++i ) {
         if( rows[i].value < result.size() )
            result[rows[i].value] = static_cast< U8 >( i );
      }
      return result;
   }();
   static constexpr EnumerationTable table{
      typeName< E >, rows.data(), direct.data(), slots.data(), rows.size(), slots.size() - 1,
   };
};

template < class E >
inline constexpr EnumType< std::underlying_type_t< E > > enumType{ EnumerationOf< E >::table };

template < class E >
constexpr std::underlying_type_t< E > numberOf( E value ) noexcept {
   return static_cast< std::underlying_type_t< E > >( value );
}

} // namespace Kiv

/// Declares `enum class Name : Underlying` with the enumerators that follow, each written as
/// `name = decimal number`, and its functions:
///
///    Name NameInstance( U32 number )                    raises RangeException if it does not fit
///    Name NameInstance( Orlo::String const & name )     raises RangeException for an unknown name
///    Orlo::String stringValue( Name )                   the name, or the number where none is
///    std::ostream & operator<<( std::ostream &, Name const & )
///    void sequenceToValue( Kiv::CharRange &, Name * )   name or number; raises RangeException
#define KIV_ENUMERATION( Name, Underlying, ... )                                                   \
   enum class Name : Underlying {                                                                  \
      __VA_ARGS__                                                                                  \
   };                                                                                              \
   KIV_ENUMERATION_FUNCTIONS( Name, __VA_ARGS__ )

// A level of its own, so that a macro among the values is expanded before the list becomes text.
#define KIV_ENUMERATION_FUNCTIONS( Name, ... )                                                     \
   constexpr std::string_view kivEnumerators( ::Kiv::Of< Name > ) noexcept {                       \
      return #__VA_ARGS__;                                                                         \
   }                                                                                               \
   inline Name Name##Instance( U32 number ) {                                                      \
      return static_cast< Name >( ::Kiv::enumType< Name >.instance( number ) );                    \
   }                                                                                               \
   inline Name Name##Instance( ::Orlo::String const & name ) {                                     \
      return static_cast< Name >( ::Kiv::enumType< Name >.instance( name ) );                      \
   }                                                                                               \
   inline ::Orlo::String stringValue( Name value ) {                                               \
      return ::Kiv::enumType< Name >.stringValue( ::Kiv::numberOf( value ) );                      \
   }                                                                                               \
   inline std::ostream & operator<<( std::ostream & out, Name const & value ) {                    \
      return ::Kiv::enumType< Name >.write( out, ::Kiv::numberOf( value ) );                       \
   }                                                                                               \
   inline void sequenceToValue( ::Kiv::CharRange & in, Name * value ) {                            \
      *value = static_cast< Name >( ::Kiv::enumType< Name >.parse( in ) );                         \
   }                                                                                               \
   inline void appendText( ::Orlo::StringBuilder & out, Name value ) {                             \
      ::Kiv::enumType< Name >.appendText( out, ::Kiv::numberOf( value ) );                         \
   }                                                                                               \
   static_assert( true )
