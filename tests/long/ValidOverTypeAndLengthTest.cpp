#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

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

template < class View, class Expected >
void expectPairs( U64 pairs, View & view, Expected expected ) {
   Count const count = overTypesAndLengths( view, expected );
   EXPECT_EQ( count.valid, pairs );
   EXPECT_EQ( count.unexpected, 0u );
}

// A view, and what is claimed of it.
struct Row {
   std::string_view view;
   void ( *check )();

   friend void PrintTo( Row const & row, std::ostream * out ) { *out << row.view; }
};

constexpr auto asNew = []( auto & ) {};

// Every type and one length.
template < class View, U32 wanted >
Row ofLength() {
   return { Kiv::typeOf< View >().name(),
            [] {
               View view;
               expectPairs(
                  65536, view, []( U32, U32 length ) { return length == wanted; } );
            } };
}

// One type and every length. `prepare` sets what else decides.
template < class View, U32 wanted, auto prepare = asNew >
Row ofType() {
   return { Kiv::typeOf< View >().name(),
            [] {
               View view;
               prepare( view );
               expectPairs(
                  65536, view, []( U32 type, U32 ) { return type == wanted; } );
            } };
}

// One pair only. `prepare` sets what else decides.
template < class View, U32 wantedType, U32 wantedLength, auto prepare = asNew >
Row ofPair() {
   return { Kiv::typeOf< View >().name(),
            [] {
               View view;
               prepare( view );
               expectPairs(
                  1, view,
                  []( U32 type, U32 length ) {
                     return type == wantedType && length == wantedLength;
                  } );
            } };
}

// Two types, each with the same two lengths.
template < class View, U32 oneType, U32 otherType, U32 oneLength, U32 otherLength >
Row ofFourPairs() {
   return { Kiv::typeOf< View >().name(),
            [] {
               View view;
               expectPairs(
                  4, view,
                  []( U32 type, U32 length ) {
                     return ( type == oneType || type == otherType ) &&
                            ( length == oneLength || length == otherLength );
                  } );
            } };
}

// Identifiers of 1, 4 and 4 bytes are covered from length 25 on.
void expectFec129() {
   struct {
      LspPingFec129Ipv4SubTlv view;
      U8 identifiers[15] = { 1, 1, 0x0a, 1, 4, 10, 0, 0, 1, 1, 4, 10, 0, 0, 2 };
   } subTlv;
   subTlv.view.pwTypeIs( 5 );
   expectPairs( 65511, subTlv.view,
                []( U32 type, U32 length ) { return type == 11 && length >= 25; } );
}

template < auto addrType >
constexpr auto withAddrType = []( auto & view ) { view.addrTypeIs( addrType ); };

std::vector< Row > rows() {
   return {
      ofLength< LspPingLdpIpv4SubTlv, 5 >(),
      ofLength< LspPingGenericIpv4SubTlv, 5 >(),
      ofLength< LspPingGenericIpv6SubTlv, 17 >(),
      ofPair< LspPingBgpLuIpv4SubTlv, 12, 5 >(),
      ofPair< LspPingBgpLuIpv6SubTlv, 13, 17 >(),
      ofPair< LspPingRsvpIpv4SubTlv, 3, 20 >(),
      ofPair< LspPingRsvpP2mpIpv4SubTlv, 17, 20 >(),
      ofPair< LspPingVpnIpv4SubTlv, 6, 13 >(),
      ofPair< LspPingVpnIpv6SubTlv, 7, 25 >(),
      ofFourPairs< LspPingSrIpv4SubTlv, 34, 31744, 6, 8 >(),
      ofFourPairs< LspPingSrIpv6SubTlv, 35, 31745, 18, 20 >(),
      ofPair< LspPingNilFecSubTlv, 16, 4 >(),
      ofPair< LspPingEntropyLabelFecSubTlv, 33, 4 >(),
      ofType< LspPingNodeAddrSubTlv, 11,
              []( auto & view ) {
                 view.subTypeIs( 3 );
                 view.subTypeLenIs( 4 );
              } >(),
      ofType< LspPingP2mpFecStackSubTlv, 19 >(),
      ofPair< LspPingOpaqueValGenSubTlv, 1, 4 >(),
      ofPair< LspPingOpaqueValSGSubTlv, 3, 8 >(),
      ofPair< LspPingFec128Ipv4SubTlv, 10, 14,
              []( auto & view ) {
                 view.mbzIs( 0 );
                 view.pwTypeIs( 5 );
              } >(),
      { Kiv::typeOf< LspPingFec129Ipv4SubTlv >().name(), &expectFec129 },
      ofType< LspPingDdmapTlv, 20 >(),
      ofType< LspPingDdmapUnnumberedTlv, 20 >(),
      ofType< LspPingDdmapV6Tlv, 20 >(),
      ofType< LspPingDdmapV6UnnumberedTlv, 20 >(),
      ofType< LspPingMultipathSubTlv, 1 >(),
      ofType< LspPingFecStackChangeV4SubTlv, 3, withAddrType< 1 > >(),
      ofType< LspPingFecStackChangeV6SubTlv, 3, withAddrType< 2 > >(),
      ofType< LspPingFecStackChangeUnspecifiedSubTlv, 3, withAddrType< 0 > >(),
      ofPair< LspPingMultiLabelSubTlv, 1, 4 >(),
      ofPair< LspPingReplyTosTlv, 10, 4 >(),
      ofPair< LspPingEchoJitterTlv, 12, 4 >(),
      ofType< LspPingVeloraVendorPrivateTlv, 65261,
              []( auto & view ) {
                 view.vendorIanaIs( static_cast< U32 >( LspPingVendorIana::VeloraIana ) );
              } >(),
      ofType< LspPingPadTlv, 3, []( auto & view ) { view.padTypeIs( 2 ); } >(),
   };
}

class ValidOverTypeAndLength : public testing::TestWithParam< Row > {};

TEST_P( ValidOverTypeAndLength, isAsClaimed ) {
   GetParam().check();
}

// LspPing::LspPingPadTlv is the test of LspPingPadTlv.
std::string nameOf( testing::TestParamInfo< Row > const & test ) {
   return std::string( test.param.view.substr( test.param.view.rfind( ':' ) + 1 ) );
}

INSTANTIATE_TEST_SUITE_P( Views, ValidOverTypeAndLength, testing::ValuesIn( rows() ), nameOf );

} // namespace
} // namespace LspPing
