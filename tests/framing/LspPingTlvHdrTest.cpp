#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <memory>
#include <new>

namespace {

using LspPing::LspPingTlvHdr;
using LspPing::LspPingTlvU8Hdr;

// A view over bytes at an odd address, with nothing of ours behind them.
template < class View >
class Laid {
 public:
   explicit Laid( std::array< U8, sizeof( View ) > const & bytes )
      : block_( std::make_unique< U8[] >( sizeof( View ) + 1 ) ) {
      std::memcpy( block_.get() + 1, bytes.data(), bytes.size() );
   }
   // The block holds as many bytes as the view has, and views have no alignment.
   View * operator->() const { return reinterpret_cast< View * >( block_.get() + 1 ); }
   std::array< U8, sizeof( View ) > bytes() const {
      std::array< U8, sizeof( View ) > copy;
      std::memcpy( copy.data(), block_.get() + 1, copy.size() );
      return copy;
   }

 private:
   std::unique_ptr< U8[] > block_;
};

using Bytes4 = std::array< U8, 4 >;
using Bytes3 = std::array< U8, 3 >;

TEST( LspPingTlvHdr, readsTypeAndLengthInBothOrders ) {
   Laid< LspPingTlvHdr > const header( Bytes4{ 0x00, 0x01, 0xfe, 0xed } );
   EXPECT_EQ( header->type(), 1 );
   EXPECT_EQ( header->length(), 0xfeed );
   EXPECT_EQ( header->typeNbo(), std::endian::native == std::endian::little ? 256 : 1 );
   EXPECT_EQ( header->lengthNbo(), std::endian::native == std::endian::little ? 0xedfe : 0xfeed );
}

TEST( LspPingTlvHdr, writesItsFieldsAndNothingElse ) {
   Laid< LspPingTlvHdr > const header( Bytes4{ 0xa5, 0xa5, 0xa5, 0xa5 } );
   header->typeIs( 0x1234 );
   EXPECT_EQ( header.bytes(), ( Bytes4{ 0x12, 0x34, 0xa5, 0xa5 } ) );
   header->lengthIs( 0x5678 );
   EXPECT_EQ( header.bytes(), ( Bytes4{ 0x12, 0x34, 0x56, 0x78 } ) );
   U16 raw;
   std::memcpy( &raw, "\xaa\xbb", 2 );
   header->typeNboIs( raw );
   EXPECT_EQ( header.bytes(), ( Bytes4{ 0xaa, 0xbb, 0x56, 0x78 } ) );
   header->lengthNboIs( raw );
   EXPECT_EQ( header.bytes(), ( Bytes4{ 0xaa, 0xbb, 0xaa, 0xbb } ) );
   EXPECT_EQ( header->typeNbo(), raw );
}

TEST( LspPingTlvHdr, isZeroWhenStandingAlone ) {
   alignas( LspPingTlvHdr ) std::array< U8, sizeof( LspPingTlvHdr ) > place;
   place.fill( 0xa5 );
   auto const * header = new( place.data() ) LspPingTlvHdr;
   EXPECT_EQ( header->type(), 0 );
   EXPECT_EQ( header->length(), 0 );
   EXPECT_EQ( header->totalLength(), 4 );
   EXPECT_EQ( place, ( Bytes4{ 0, 0, 0, 0 } ) );
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
   Laid< LspPingTlvHdr > const header( Bytes4{ 0xa5, 0xa5, 0xa5, 0xa5 } );
   for( U32 number = 0; number <= 0xffff; ++number ) {
      U16 const value = static_cast< U16 >( number );
      header->typeIs( value );
      header->lengthIs( static_cast< U16 >( ~value ) );
      U8 const high = static_cast< U8 >( number >> 8 );
      U8 const low = static_cast< U8 >( number );
      Bytes4 const bytes{ high, low, static_cast< U8 >( ~high ), static_cast< U8 >( ~low ) };
      ASSERT_EQ( header.bytes(), bytes );
      ASSERT_EQ( header->type(), number );
   }
}

TEST( LspPingTlvU8Hdr, readsAByteOfTypeAndAnUnalignedLength ) {
   Laid< LspPingTlvU8Hdr > const header( Bytes3{ 0x03, 0x12, 0x34 } );
   EXPECT_EQ( header->type(), 3 );
   EXPECT_EQ( header->length(), 0x1234 );
}

TEST( LspPingTlvU8Hdr, writesItsFieldsAndNothingElse ) {
   Laid< LspPingTlvU8Hdr > const header( Bytes3{ 0xa5, 0xa5, 0xa5 } );
   header->lengthIs( 0x0102 );
   EXPECT_EQ( header.bytes(), ( Bytes3{ 0xa5, 0x01, 0x02 } ) );
   header->typeIs( 0x7f );
   EXPECT_EQ( header.bytes(), ( Bytes3{ 0x7f, 0x01, 0x02 } ) );
}

TEST( LspPingTlvU8Hdr, isZeroWhenStandingAlone ) {
   std::array< U8, sizeof( LspPingTlvU8Hdr ) > place;
   place.fill( 0xa5 );
   new( place.data() ) LspPingTlvU8Hdr;
   EXPECT_EQ( place, ( Bytes3{ 0, 0, 0 } ) );
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
