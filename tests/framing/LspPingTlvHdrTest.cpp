#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"

#include "tests/WireBytes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>

namespace {

using LspPing::LspPingTlvHdr;
using LspPing::LspPingTlvU8Hdr;

TEST( LspPingTlvHdr, readsTypeAndLengthInBothOrders ) {
   WireBytes const bytes( "00 01 fe ed" );
   auto & header = bytes.as< LspPingTlvHdr >();
   EXPECT_EQ( header.type(), 1 );
   EXPECT_EQ( header.length(), 0xfeed );
   EXPECT_EQ( header.typeNbo(), std::endian::native == std::endian::little ? 256 : 1 );
   EXPECT_EQ( header.lengthNbo(), std::endian::native == std::endian::little ? 0xedfe : 0xfeed );
}

TEST( LspPingTlvHdr, writesItsFieldsAndNothingElse ) {
   WireBytes const bytes( "a5 a5 a5 a5" );
   auto & header = bytes.as< LspPingTlvHdr >();
   header.typeIs( 0x1234 );
   EXPECT_EQ( bytes.hex(), "12 34 a5 a5" );
   header.lengthIs( 0x5678 );
   EXPECT_EQ( bytes.hex(), "12 34 56 78" );
   U16 raw;
   std::memcpy( &raw, "\xaa\xbb", 2 );
   header.typeNboIs( raw );
   EXPECT_EQ( bytes.hex(), "aa bb 56 78" );
   header.lengthNboIs( raw );
   EXPECT_EQ( bytes.hex(), "aa bb aa bb" );
   EXPECT_EQ( header.typeNbo(), raw );
}

TEST( LspPingTlvHdr, isZeroWhenStandingAlone ) {
   EXPECT_EQ( hexOfNew< LspPingTlvHdr >(), "00 00 00 00" );
   LspPingTlvHdr const header;
   EXPECT_EQ( header.type(), 0 );
   EXPECT_EQ( header.length(), 0 );
   EXPECT_EQ( header.totalLength(), 4 );
}

TEST( LspPingTlvHdr, roundsTheTotalLengthUpToFour ) {
   LspPingTlvHdr header;
   U16 const lengths[] = { 0, 1, 2, 3, 4, 5, 8, 9 };
   U16 const totals[] = { 4, 8, 8, 8, 8, 12, 12, 16 };
   for( std::size_t i = 0; i < std::size( lengths ); ++i ) {
      header.lengthIs( lengths[i] );
      EXPECT_EQ( header.totalLength(), totals[i] ) << lengths[i];
   }
}

TEST( LspPingTlvHdr, wrapsTheTotalLengthAtSixteenBits ) {
   LspPingTlvHdr header;
   header.lengthIs( 65528 );
   EXPECT_EQ( header.totalLength(), 65532 );
   header.lengthIs( 65529 );
   EXPECT_EQ( header.totalLength(), 0 );
   header.lengthIs( 65532 );
   EXPECT_EQ( header.totalLength(), 0 );
   header.lengthIs( 65533 );
   EXPECT_EQ( header.totalLength(), 4 );
   header.lengthIs( 65535 );
   EXPECT_EQ( header.totalLength(), 4 );
}

// Header, value and as much padding as the next multiple of four wants, counted one by one.
TEST( LspPingTlvHdr, hasATotalLengthForEveryLength ) {
   LspPingTlvHdr header;
   for( U32 length = 0; length <= 0xffff; ++length ) {
      U32 total = 4 + length;
      while( total % 4 != 0 )
         ++total;
      header.lengthIs( static_cast< U16 >( length ) );
      ASSERT_EQ( header.totalLength(), total % 65536 ) << length;
   }
}

TEST( LspPingTlvHdr, keepsEveryTypeAndLength ) {
   WireBytes const bytes( "a5 a5 a5 a5" );
   auto & header = bytes.as< LspPingTlvHdr >();
   for( U32 number = 0; number <= 0xffff; ++number ) {
      U16 const value = static_cast< U16 >( number );
      header.typeIs( value );
      header.lengthIs( static_cast< U16 >( ~value ) );
      U8 const high = static_cast< U8 >( number >> 8 );
      U8 const low = static_cast< U8 >( number );
      Bytes const expected{ high, low, static_cast< U8 >( ~high ), static_cast< U8 >( ~low ) };
      ASSERT_EQ( bytes.copy(), expected );
      ASSERT_EQ( header.type(), number );
   }
}

TEST( LspPingTlvU8Hdr, readsAByteOfTypeAndAnUnalignedLength ) {
   WireBytes const bytes( "03 12 34" );
   auto & header = bytes.as< LspPingTlvU8Hdr >();
   EXPECT_EQ( header.type(), 3 );
   EXPECT_EQ( header.length(), 0x1234 );
}

TEST( LspPingTlvU8Hdr, writesItsFieldsAndNothingElse ) {
   WireBytes const bytes( "a5 a5 a5" );
   auto & header = bytes.as< LspPingTlvU8Hdr >();
   header.lengthIs( 0x0102 );
   EXPECT_EQ( bytes.hex(), "a5 01 02" );
   header.typeIs( 0x7f );
   EXPECT_EQ( bytes.hex(), "7f 01 02" );
}

TEST( LspPingTlvU8Hdr, isZeroWhenStandingAlone ) {
   EXPECT_EQ( hexOfNew< LspPingTlvU8Hdr >(), "00 00 00" );
}

TEST( LspPingTlvU8Hdr, roundsTheTotalLengthUpToFour ) {
   LspPingTlvU8Hdr header;
   U16 const lengths[] = { 0, 1, 2, 3, 4, 5, 6 };
   U16 const totals[] = { 4, 4, 8, 8, 8, 8, 12 };
   for( std::size_t i = 0; i < std::size( lengths ); ++i ) {
      header.lengthIs( lengths[i] );
      EXPECT_EQ( header.totalLength(), totals[i] ) << lengths[i];
   }
   for( U32 length = 0; length <= 0xffff; ++length ) {
      U32 total = 3 + length;
      while( total % 4 != 0 )
         ++total;
      header.lengthIs( static_cast< U16 >( length ) );
      ASSERT_EQ( header.totalLength(), total % 65536 ) << length;
   }
}

} // namespace
