#include "MplsUtils/LspPing/platform/base/NameTable.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// A copy that ends where its memory ends, at an odd address.
class Exact {
 public:
   explicit Exact( std::string_view text )
      : bytes_( std::span( reinterpret_cast< U8 const * >( text.data() ), text.size() ) ) {}
   std::string_view view() const {
      return { reinterpret_cast< char const * >( bytes_.data() ), bytes_.size() };
   }

 private:
   WireBytes bytes_;
};

constexpr std::array< std::string_view, 5 > names{ "a", "", "version", "tsSentmSecondsNbo",
                                                   "LspPing::LspPingTlvHdr" };
constexpr auto slots = Kiv::nameSlots< names.size() >( []( std::size_t i ) { return names[i]; } );

U8 found( std::string_view name ) {
   return Kiv::findName(
      slots.data(), slots.size() - 1, Kiv::nameHash( name ), name,
      []( U8 i ) { return names[i]; } );
}

} // namespace

TEST( NameTable, tellsNamesApartThatDifferInAnyOneByte ) {
   for( std::size_t size = 0; size <= 70; ++size ) {
      std::string const text( size, 'n' );
      EXPECT_TRUE( Kiv::sameName( Exact( text ).view(), Exact( text ).view() ) ) << size;
      EXPECT_FALSE( Kiv::sameName( Exact( text ).view(), Exact( text + 'n' ).view() ) ) << size;
      for( std::size_t at = 0; at < size; ++at ) {
         std::string other = text;
         other[at] = 'm';
         EXPECT_FALSE( Kiv::sameName( Exact( text ).view(), Exact( other ).view() ) )
            << size << " at " << at;
      }
   }
}

TEST( NameTable, hashesAtRunTimeAsWhileCompiling ) {
   constexpr std::array hashes{ Kiv::nameHash( names[0] ), Kiv::nameHash( names[1] ),
                                Kiv::nameHash( names[2] ), Kiv::nameHash( names[3] ),
                                Kiv::nameHash( names[4] ) };
   for( std::size_t i = 0; i < names.size(); ++i )
      EXPECT_EQ( Kiv::nameHash( Exact( names[i] ).view() ), hashes[i] ) << names[i];
}

TEST( NameTable, findsEveryNameButTheEmptyOne ) {
   EXPECT_EQ( found( "a" ), 0 );
   EXPECT_EQ( found( "" ), Kiv::noName );
   EXPECT_EQ( found( "version" ), 2 );
   EXPECT_EQ( found( "tsSentmSecondsNbo" ), 3 );
   EXPECT_EQ( found( "LspPing::LspPingTlvHdr" ), 4 );
   EXPECT_EQ( found( "LspPing::LspPingTlvHds" ), Kiv::noName );
   EXPECT_EQ( found( "b" ), Kiv::noName );
}
