#include "MplsUtils/LspPing/LspPingHdr.h"

#include <gtest/gtest.h>

#include <limits>

namespace LspPing {
namespace {

struct Count {
   U64 valid = 0;
   U64 unexpected = 0;
};

// Asks a view about every pair of type and length; its other bytes stay as they are. The
// views with a type of one byte have 2^24 pairs.
template < class View, class Expected >
Count overTypesAndLengths( View & view, Expected expected ) {
   using Type = decltype( view.type() );
   Count count;
   for( U32 type = 0; type <= std::numeric_limits< Type >::max(); ++type ) {
      view.typeIs( static_cast< Type >( type ) );
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
void expectLengthAlone( U32 wanted, View view = {} ) {
   Count const count =
      overTypesAndLengths( view, [=]( U32, U32 length ) { return length == wanted; } );
   EXPECT_EQ( count.valid, 65536u );
   EXPECT_EQ( count.unexpected, 0u );
}

// One type and every length.
template < class View >
void expectTypeAlone( U32 wanted, View view = {} ) {
   Count const count = overTypesAndLengths( view, [=]( U32 type, U32 ) { return type == wanted; } );
   EXPECT_EQ( count.valid, 65536u );
   EXPECT_EQ( count.unexpected, 0u );
}

// One pair only.
template < class View >
void expectOnePair( U32 wantedType, U32 wantedLength, View view = {} ) {
   Count const count = overTypesAndLengths(
      view, [=]( U32 type, U32 length ) { return type == wantedType && length == wantedLength; } );
   EXPECT_EQ( count.valid, 1u );
   EXPECT_EQ( count.unexpected, 0u );
}

// Two types, each with the same two lengths.
template < class View >
void expectFourPairs( U32 oneType, U32 otherType, U32 oneLength, U32 otherLength ) {
   View view;
   Count const count = overTypesAndLengths( view, [=]( U32 type, U32 length ) {
      return ( type == oneType || type == otherType ) &&
             ( length == oneLength || length == otherLength );
   } );
   EXPECT_EQ( count.valid, 4u );
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

TEST( ValidOverTypeAndLength, LspPingRsvpIpv4SubTlv ) {
   expectOnePair< LspPingRsvpIpv4SubTlv >( 3, 20 );
}

TEST( ValidOverTypeAndLength, LspPingRsvpP2mpIpv4SubTlv ) {
   expectOnePair< LspPingRsvpP2mpIpv4SubTlv >( 17, 20 );
}

TEST( ValidOverTypeAndLength, LspPingVpnIpv4SubTlv ) {
   expectOnePair< LspPingVpnIpv4SubTlv >( 6, 13 );
}

TEST( ValidOverTypeAndLength, LspPingVpnIpv6SubTlv ) {
   expectOnePair< LspPingVpnIpv6SubTlv >( 7, 25 );
}

TEST( ValidOverTypeAndLength, LspPingSrIpv4SubTlv ) {
   expectFourPairs< LspPingSrIpv4SubTlv >( 34, 31744, 6, 8 );
}

TEST( ValidOverTypeAndLength, LspPingSrIpv6SubTlv ) {
   expectFourPairs< LspPingSrIpv6SubTlv >( 35, 31745, 18, 20 );
}

TEST( ValidOverTypeAndLength, LspPingNilFecSubTlv ) {
   expectOnePair< LspPingNilFecSubTlv >( 16, 4 );
}

TEST( ValidOverTypeAndLength, LspPingEntropyLabelFecSubTlv ) {
   expectOnePair< LspPingEntropyLabelFecSubTlv >( 33, 4 );
}

TEST( ValidOverTypeAndLength, LspPingNodeAddrSubTlv ) {
   LspPingNodeAddrSubTlv view;
   view.subTypeIs( 3 );
   view.subTypeLenIs( 4 );
   expectTypeAlone( 11, view );
}

TEST( ValidOverTypeAndLength, LspPingP2mpFecStackSubTlv ) {
   expectTypeAlone< LspPingP2mpFecStackSubTlv >( 19 );
}

TEST( ValidOverTypeAndLength, LspPingOpaqueValGenSubTlv ) {
   expectOnePair< LspPingOpaqueValGenSubTlv >( 1, 4 );
}

TEST( ValidOverTypeAndLength, LspPingOpaqueValSGSubTlv ) {
   expectOnePair< LspPingOpaqueValSGSubTlv >( 3, 8 );
}

TEST( ValidOverTypeAndLength, LspPingFec128Ipv4SubTlv ) {
   LspPingFec128Ipv4SubTlv view;
   view.mbzIs( 0 );
   view.pwTypeIs( 5 );
   expectOnePair( 10, 14, view );
}

// Identifiers of 1, 4 and 4 bytes are covered from length 25 on.
TEST( ValidOverTypeAndLength, LspPingFec129Ipv4SubTlv ) {
   struct {
      LspPingFec129Ipv4SubTlv view;
      U8 identifiers[15] = { 1, 1, 0x0a, 1, 4, 10, 0, 0, 1, 1, 4, 10, 0, 0, 2 };
   } subTlv;
   subTlv.view.pwTypeIs( 5 );
   Count const count = overTypesAndLengths(
      subTlv.view, []( U32 type, U32 length ) { return type == 11 && length >= 25; } );
   EXPECT_EQ( count.valid, 65511u );
   EXPECT_EQ( count.unexpected, 0u );
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

TEST( ValidOverTypeAndLength, LspPingMultipathSubTlv ) {
   expectTypeAlone< LspPingMultipathSubTlv >( 1 );
}

TEST( ValidOverTypeAndLength, LspPingFecStackChangeV4SubTlv ) {
   LspPingFecStackChangeV4SubTlv view;
   view.addrTypeIs( 1 );
   expectTypeAlone( 3, view );
}

TEST( ValidOverTypeAndLength, LspPingFecStackChangeV6SubTlv ) {
   LspPingFecStackChangeV6SubTlv view;
   view.addrTypeIs( 2 );
   expectTypeAlone( 3, view );
}

TEST( ValidOverTypeAndLength, LspPingFecStackChangeUnspecifiedSubTlv ) {
   LspPingFecStackChangeUnspecifiedSubTlv view;
   view.addrTypeIs( 0 );
   expectTypeAlone( 3, view );
}

TEST( ValidOverTypeAndLength, LspPingMultiLabelSubTlv ) {
   expectOnePair< LspPingMultiLabelSubTlv >( 1, 4 );
}

TEST( ValidOverTypeAndLength, LspPingReplyTosTlv ) {
   expectOnePair< LspPingReplyTosTlv >( 10, 4 );
}

TEST( ValidOverTypeAndLength, LspPingEchoJitterTlv ) {
   expectOnePair< LspPingEchoJitterTlv >( 12, 4 );
}

TEST( ValidOverTypeAndLength, LspPingVeloraVendorPrivateTlv ) {
   LspPingVeloraVendorPrivateTlv view;
   view.vendorIanaIs( static_cast< U32 >( LspPingVendorIana::VeloraIana ) );
   expectTypeAlone( 65261, view );
}

TEST( ValidOverTypeAndLength, LspPingPadTlv ) {
   LspPingPadTlv pad;
   pad.padTypeIs( 2 );
   Count const count = overTypesAndLengths( pad, []( U32 type, U32 ) { return type == 3; } );
   EXPECT_EQ( count.valid, 65536u );
   EXPECT_EQ( count.unexpected, 0u );
}

} // namespace
} // namespace LspPing
