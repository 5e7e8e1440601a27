#include "MplsUtils/LspPing/LspPingHdr.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

struct Count {
   U64 valid = 0;
   U64 unexpected = 0;
};

// Asks a view, whose other bytes are zero, about every pair of type and length.
template < class View, class Expected >
Count overTypesAndLengths( Expected expected ) {
   Count count;
   View view;
   for( U32 type = 0; type <= 0xffff; ++type ) {
      view.typeIs( static_cast< U16 >( type ) );
      for( U32 length = 0; length <= 0xffff; ++length ) {
         view.lengthIs( static_cast< U16 >( length ) );
         bool const valid = view.valid();
         count.valid += valid;
         count.unexpected += valid != expected( type, length );
      }
   }
   return count;
}

// Every type and one length.
template < class View >
void expectLengthAlone( U32 wanted ) {
   Count const count =
      overTypesAndLengths< View >( [=]( U32, U32 length ) { return length == wanted; } );
   EXPECT_EQ( count.valid, 65536u );
   EXPECT_EQ( count.unexpected, 0u );
}

// One type and every length.
template < class View >
void expectTypeAlone( U32 wanted ) {
   Count const count =
      overTypesAndLengths< View >( [=]( U32 type, U32 ) { return type == wanted; } );
   EXPECT_EQ( count.valid, 65536u );
   EXPECT_EQ( count.unexpected, 0u );
}

// One pair only.
template < class View >
void expectOnePair( U32 wantedType, U32 wantedLength ) {
   Count const count = overTypesAndLengths< View >(
      [=]( U32 type, U32 length ) { return type == wantedType && length == wantedLength; } );
   EXPECT_EQ( count.valid, 1u );
   EXPECT_EQ( count.unexpected, 0u );
}

TEST( ValidOverTypeAndLength, LspPingLdpIpv4SubTlv ) {
   expectLengthAlone< LspPingLdpIpv4SubTlv >( 5 );
}

TEST( ValidOverTypeAndLength, LspPingGenericIpv4SubTlv ) {
   expectLengthAlone< LspPingGenericIpv4SubTlv >( 5 );
}

TEST( ValidOverTypeAndLength, LspPingGenericIpv6SubTlv ) {
   expectLengthAlone< LspPingGenericIpv6SubTlv >( 17 );
}

TEST( ValidOverTypeAndLength, LspPingBgpLuIpv4SubTlv ) {
   expectOnePair< LspPingBgpLuIpv4SubTlv >( 12, 5 );
}

TEST( ValidOverTypeAndLength, LspPingBgpLuIpv6SubTlv ) {
   expectOnePair< LspPingBgpLuIpv6SubTlv >( 13, 17 );
}

TEST( ValidOverTypeAndLength, LspPingDdmapTlv ) {
   expectTypeAlone< LspPingDdmapTlv >( 20 );
}

TEST( ValidOverTypeAndLength, LspPingDdmapUnnumberedTlv ) {
   expectTypeAlone< LspPingDdmapUnnumberedTlv >( 20 );
}

TEST( ValidOverTypeAndLength, LspPingDdmapV6Tlv ) {
   expectTypeAlone< LspPingDdmapV6Tlv >( 20 );
}

TEST( ValidOverTypeAndLength, LspPingDdmapV6UnnumberedTlv ) {
   expectTypeAlone< LspPingDdmapV6UnnumberedTlv >( 20 );
}

} // namespace
} // namespace LspPing
