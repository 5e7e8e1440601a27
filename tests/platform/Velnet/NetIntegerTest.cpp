#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>

namespace {

using Velnet::NetU16;
using Velnet::NetU32;
using Velnet::NetU64;

static_assert( NetU16{}.value() == 0 && NetU32{}.value() == 0 && NetU64{}.value() == 0 );
static_assert( NetU32{ 0x01020304 }.value() == 0x01020304 );
static_assert( std::bit_cast< std::array< U8, 4 > >( NetU32{ 0x01020304 } ) ==
               std::array< U8, 4 >{ 1, 2, 3, 4 } );
static_assert( NetU16{ 1 } < NetU16{ 256 } && NetU16{ 256 } == NetU16{ 256 } );
static_assert( std::is_trivially_copyable_v< NetU64 > );

TEST( NetInteger, storesEvery16BitValueBigEndian ) {
   for( U32 number = 0; number <= 0xFFFF; ++number ) {
      U16 const value = static_cast< U16 >( number );
      U8 bytes[2] = { 0xa5, 0xa5 };
      NetU16 stored;
      stored.valueIs( value );
      std::memcpy( bytes, &stored, sizeof bytes );
      ASSERT_EQ( bytes[0], number >> 8 );
      ASSERT_EQ( bytes[1], number & 0xFF );
      ASSERT_EQ( stored.value(), value );
      U16 raw = 0;
      std::memcpy( &raw, bytes, sizeof raw );
      ASSERT_EQ( stored.raw(), raw );
      NetU16 copied;
      copied.rawIs( raw );
      ASSERT_EQ( copied, stored );
   }
}

TEST( NetInteger, liesAtAnyAddressOfAPacket ) {
   WireBytes const packet( "a5 a5 12 34 de ad be ef 01 02 03 04 05 06 07 08" );
   // Alignment 1: a view's field may be read wherever its bytes lie, here at odd addresses.
   EXPECT_EQ( reinterpret_cast< NetU16 const * >( packet.data() + 2 )->value(), 0x1234 );
   EXPECT_EQ( reinterpret_cast< NetU32 const * >( packet.data() + 4 )->value(), 0xdeadbeef );
   EXPECT_EQ( reinterpret_cast< NetU64 const * >( packet.data() + 8 )->value(),
              0x0102030405060708U );
   reinterpret_cast< NetU64 * >( packet.data() + 8 )->valueIs( 0xfffefdfcfbfaf9f8 );
   EXPECT_EQ( packet.hex(), "a5 a5 12 34 de ad be ef ff fe fd fc fb fa f9 f8" );
}

TEST( NetInteger, readsItsRawBitsAsTheHostDoes ) {
   U8 const bytes[4] = { 0, 0, 0, 1 };
   NetU32 number;
   std::memcpy( &number, bytes, sizeof bytes );
   EXPECT_EQ( number.value(), 1U );
   U32 const raw = std::endian::native == std::endian::little ? 0x01000000 : 1;
   EXPECT_EQ( number.raw(), raw );
   number.rawIs( raw << 1 );
   EXPECT_EQ( number.value(), 2U );
}

TEST( NetInteger, isOrderedByTheHostsNumber ) {
   EXPECT_LT( NetU32{ 0x000000ff }, NetU32{ 0x00000100 } );
   EXPECT_GT( NetU32{ 0xff000000 }, NetU32{ 0x00ffffff } );
   EXPECT_NE( NetU64{ 1 }, NetU64{ 1ULL << 56 } );
}

TEST( NetInteger, printsAndReadsTheHostsNumberInDecimal ) {
   EXPECT_EQ( Kiv::_fmt( "%s %s %s", NetU16{ 65534 }, NetU32{ 4294967295 },
                         NetU64{ 18446744073709551615U } ),
              "65534 4294967295 18446744073709551615" );
   Kiv::CharRange text{ " 65534, 16909060,72623859790382856" };
   NetU16 small;
   NetU32 middle;
   NetU64 large;
   sequenceToValue( text, &small );
   ASSERT_TRUE( text.take( ',' ) );
   sequenceToValue( text, &middle );
   ASSERT_TRUE( text.take( ',' ) );
   sequenceToValue( text, &large );
   EXPECT_EQ( small, NetU16{ 65534 } );
   EXPECT_EQ( middle, NetU32{ 0x01020304 } );
   EXPECT_EQ( large, NetU64{ 0x0102030405060708 } );
}

TEST( NetInteger, staysAsItWasWhenTheTextDoesNotFit ) {
   Kiv::CharRange text{ "65536" };
   NetU16 number{ 7 };
   try {
      sequenceToValue( text, &number );
      FAIL() << "65536 was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(), "\"65536\" at offset 0 is more than 65535" );
   }
   EXPECT_EQ( number, NetU16{ 7 } );
}

TEST( NetInteger, spreadsNeighboursOverTheLowBitsOfTheHash ) {
   std::set< U64 > hashes;
   std::array< unsigned, 256 > buckets{};
   for( U32 number = 0; number < 65'536; ++number ) {
      U64 const hash = NetU32{ number }.hash();
      hashes.insert( hash );
      ++buckets[hash & 0xFF];
   }
   EXPECT_EQ( hashes.size(), 65'536U );
   for( unsigned const count : buckets ) {
      EXPECT_GT( count, 128U );
      EXPECT_LT( count, 512U );
   }
   EXPECT_EQ( NetU32{ 7 }.hash(), NetU32{ 7 }.hash() );
}

} // namespace
