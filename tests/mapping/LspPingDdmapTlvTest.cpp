#include "MplsUtils/LspPing/mapping/LspPingDdmapTlv.h"

#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "tests/Addresses.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

using Velnet::IpAddr;

constexpr std::string_view ipv4 = "00 14 00 10 05 dc 01 03 0a 00 00 02 0a 00 00 01 08 01 00 0c";
constexpr std::string_view ipv4Unnumbered =
   "00 14 00 10 05 dc 02 00 0a 00 00 02 00 00 00 07 08 ff 00 0c";
constexpr std::string_view ipv6 = "00 14 00 28 23 28 03 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 "
                                  "00 00 02 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 03 02 "
                                  "01 00";
constexpr std::string_view ipv6Unnumbered =
   "00 14 00 1c 23 28 04 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 80 00 00 00 03 02 01 "
   "00";

TEST( LspPingDdmapHdr, readsWhatEveryAddressTypeBeginsWith ) {
   WireBytes bytes( "00 14 00 10 05 dc 01 fe" );
   auto const & view = bytes.as< LspPingDdmapHdr >();
   EXPECT_EQ( view.type(), 20 );
   EXPECT_EQ( view.length(), 16 );
   EXPECT_EQ( view.mtu(), 1500 );
   EXPECT_EQ( view.addrType(), 1 );
   EXPECT_EQ( view.dsFlags(), 254 );
   EXPECT_EQ( view.totalLength(), 20 );
}

TEST( LspPingDdmapHdr, writesItsOwnBytesOnly ) {
   using View = LspPingDdmapHdr;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.mtuIs( 0x0102 ); } ),
              "a5 a5 a5 a5 01 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.addrTypeIs( 3 ); } ),
              "a5 a5 a5 a5 a5 a5 03 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsFlagsIs( 4 ); } ), "a5 a5 a5 a5 a5 a5 a5 04" );
}

TEST( LspPingDdmapTlv, readsEveryFieldWhereItLies ) {
   WireBytes bytes( ipv4 );
   auto const & view = bytes.as< LspPingDdmapTlv >();
   EXPECT_EQ( view.dsIpAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( view.dsIntfAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( view.retCode(), 8 );
   EXPECT_EQ( view.retSubcode(), 1 );
   EXPECT_EQ( view.subTlvLen(), 12 );
}

TEST( LspPingDdmapTlv, writesItsOwnBytesOnly ) {
   using View = LspPingDdmapTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsIpAddrIs( IpAddr( 10, 1, 2, 3 ) ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 0a 01 02 03 a5 a5 a5 a5 a5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsIntfAddrIs( IpAddr( 10, 1, 2, 3 ) ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 0a 01 02 03 a5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.retCodeIs( 8 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 08 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.retSubcodeIs( 9 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 09 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.subTlvLenIs( 0x0102 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 01 02" );
}

TEST( LspPingDdmapV6Tlv, readsEveryFieldWhereItLies ) {
   WireBytes bytes( ipv6 );
   auto const & view = bytes.as< LspPingDdmapV6Tlv >();
   EXPECT_EQ( view.mtu(), 9000 );
   EXPECT_EQ( view.dsIpAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( view.dsIntfAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( view.retCode(), 3 );
   EXPECT_EQ( view.retSubcode(), 2 );
   EXPECT_EQ( view.subTlvLen(), 256 );
}

TEST( LspPingDdmapV6Tlv, isWrittenFromAllA5ToTheBytesThatItReads ) {
   EXPECT_EQ( hexAfter< LspPingDdmapV6Tlv >( []( LspPingDdmapV6Tlv & v ) {
                 v.typeIs( 20 );
                 v.lengthIs( 40 );
                 v.mtuIs( 9000 );
                 v.addrTypeIs( 3 );
                 v.dsFlagsIs( 0 );
                 v.dsIpAddrIs( address6( "2001:db8::2" ) );
                 v.dsIntfAddrIs( address6( "2001:db8::1" ) );
                 v.retCodeIs( 3 );
                 v.retSubcodeIs( 2 );
                 v.subTlvLenIs( 256 );
              } ),
              ipv6 );
}

TEST( LspPingDdmapUnnumberedTlv, readsEveryFieldWhereItLies ) {
   WireBytes bytes( ipv4Unnumbered );
   auto const & view = bytes.as< LspPingDdmapUnnumberedTlv >();
   EXPECT_EQ( view.dsIpAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( view.dsIntfId(), 7u );
   EXPECT_EQ( view.retCode(), 8 );
   EXPECT_EQ( view.retSubcode(), 255 );
   EXPECT_EQ( view.subTlvLen(), 12 );
}

TEST( LspPingDdmapUnnumberedTlv, writesTheIndexBigEndian ) {
   using View = LspPingDdmapUnnumberedTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsIntfIdIs( 0x01020304 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04 a5 a5 a5 a5" );
}

TEST( LspPingDdmapV6UnnumberedTlv, readsEveryFieldWhereItLies ) {
   WireBytes bytes( ipv6Unnumbered );
   auto const & view = bytes.as< LspPingDdmapV6UnnumberedTlv >();
   EXPECT_EQ( view.dsIpAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( view.dsIntfId(), 0x80000000u );
   EXPECT_EQ( view.retCode(), 3 );
   EXPECT_EQ( view.retSubcode(), 2 );
   EXPECT_EQ( view.subTlvLen(), 256 );
}

TEST( LspPingDdmapV6UnnumberedTlv, isWrittenFromAllA5ToTheBytesThatItReads ) {
   EXPECT_EQ( hexAfter< LspPingDdmapV6UnnumberedTlv >( []( LspPingDdmapV6UnnumberedTlv & v ) {
                 v.typeIs( 20 );
                 v.lengthIs( 28 );
                 v.mtuIs( 9000 );
                 v.addrTypeIs( 4 );
                 v.dsFlagsIs( 0 );
                 v.dsIpAddrIs( address6( "2001:db8::2" ) );
                 v.dsIntfIdIs( 0x80000000 );
                 v.retCodeIs( 3 );
                 v.retSubcodeIs( 2 );
                 v.subTlvLenIs( 256 );
              } ),
              ipv6Unnumbered );
}

TEST( LspPingDdmapTlv, printsAddressesAndReturnCode ) {
   WireBytes bytes( ipv4 );
   EXPECT_EQ( bytes.as< LspPingDdmapTlv >().stringValue(),
              "DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: '10.0.0.1', "
              "RetCode: 8, RetSubCode: 1 )" );
}

TEST( LspPingDdmapV6Tlv, printsAddressesAndReturnCode ) {
   WireBytes bytes( ipv6 );
   EXPECT_EQ( bytes.as< LspPingDdmapV6Tlv >().stringValue(),
              "DDMAPV6Tlv( Downstream Address: '2001:db8::2', Downstream Interface Address: "
              "'2001:db8::1', RetCode: 3, RetSubCode: 2 )" );
}

TEST( LspPingDdmapUnnumberedTlv, printsTheInterfaceIndex ) {
   WireBytes bytes( ipv4Unnumbered );
   EXPECT_EQ( bytes.as< LspPingDdmapUnnumberedTlv >().stringValue(),
              "DDMAPUnnumberedTlv( Downstream Address: '10.0.0.2', Downstream Interface Index: 7, "
              "RetCode: 8, RetSubCode: 255 )" );
}

TEST( LspPingDdmapV6UnnumberedTlv, printsALargeInterfaceIndexNegative ) {
   WireBytes bytes( ipv6Unnumbered );
   EXPECT_EQ( bytes.as< LspPingDdmapV6UnnumberedTlv >().stringValue(),
              "DDMAPV6UnnumberedTlv( Downstream Address: '2001:db8::2', Downstream Interface "
              "Index: -2147483648, RetCode: 3, RetSubCode: 2 )" );
}

TEST( LspPingDdmapTlv, printsTheStartOfAnIpv6AddressWithoutComplaint ) {
   WireBytes bytes( ipv6 );
   EXPECT_EQ( bytes.as< LspPingDdmapTlv >().stringValue(),
              "DDMAPTlv( Downstream Address: '32.1.13.184', Downstream Interface Address: "
              "'0.0.0.0', RetCode: 0, RetSubCode: 0 )" );
}

TEST( LspPingDdmapTlv, isInvalidWithTheTypesNextToItsOwn ) {
   WireBytes bytes( ipv6 );
   for( U16 const type : { U16{ 19 }, U16{ 21 } } ) {
      bytes.as< LspPingTlvHdr >().typeIs( type );
      EXPECT_FALSE( bytes.as< LspPingDdmapTlv >().valid() );
      EXPECT_EQ( bytes.as< LspPingDdmapTlv >().stringValue(), "Invalid LspPingDdmapTlv" );
      EXPECT_EQ( bytes.as< LspPingDdmapV6Tlv >().stringValue(), "Invalid LspPingDdmapV6Tlv" );
      EXPECT_EQ( bytes.as< LspPingDdmapUnnumberedTlv >().stringValue(),
                 "Invalid LspPingDdmapUnnumberedTlv" );
      EXPECT_EQ( bytes.as< LspPingDdmapV6UnnumberedTlv >().stringValue(),
                 "Invalid LspPingDdmapV6UnnumberedTlv" );
   }
}

template < class View >
class LspPingDdmapViews : public testing::Test {};
using DdmapViews = testing::Types< LspPingDdmapTlv, LspPingDdmapV6Tlv, LspPingDdmapUnnumberedTlv,
                                   LspPingDdmapV6UnnumberedTlv >;
TYPED_TEST_SUITE( LspPingDdmapViews, DdmapViews );

TYPED_TEST( LspPingDdmapViews, areValidByTypeAlone ) {
   auto const byType = []( unsigned type, unsigned ) { return type == 20; };
   for( U8 const fill : someFills ) {
      WireBytes bytes( sizeof( TypeParam ), fill );
      EXPECT_EQ( validityMismatches< TypeParam >( bytes, byType ), 0u );
   }
}

TYPED_TEST( LspPingDdmapViews, areZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< TypeParam >(), WireBytes( sizeof( TypeParam ), 0 ).hex() );
   EXPECT_FALSE( TypeParam().valid() );
   EXPECT_EQ( TypeParam().stringValue().substr( 0, 20 ), "Invalid LspPingDdmap" );
}

TEST( LspPingDdmapTlv, readsAndWritesItsAttributes ) {
   EXPECT_EQ( attributeLines< LspPingDdmapHdr >(),
              ( Lines{ "130 mtu U16 rw", "131 addrType U8 rw", "132 dsFlags U8 rw" } ) );
   EXPECT_EQ( attributeLines< LspPingDdmapTlv >(),
              ( Lines{ "130 dsIpAddr Velnet::IpAddr rw", "131 dsIntfAddr Velnet::IpAddr rw",
                       "132 retCode U8 rw", "133 retSubcode U8 rw", "134 subTlvLen U16 rw",
                       "135 valid bool r", "136 stringValue Orlo::String r" } ) );
   EXPECT_EQ( attributeLines< LspPingDdmapV6UnnumberedTlv >(),
              ( Lines{ "130 dsIpAddr Velnet::Ip6Addr rw", "131 dsIntfId U32 rw",
                       "132 retCode U8 rw", "133 retSubcode U8 rw", "134 subTlvLen U16 rw",
                       "135 valid bool r", "136 stringValue Orlo::String r" } ) );
   WireBytes bytes( ipv4 );
   auto & view = bytes.as< LspPingDdmapTlv >();
   EXPECT_EQ( Kiv::read< U16 >( view, "mtu" ), 1500 );
   Kiv::write( view, "mtu", U16{ 0x0102 } );
   Kiv::write( view, "dsIntfAddr", IpAddr( 1, 2, 3, 4 ) );
   EXPECT_EQ( bytes.hex(), "00 14 00 10 01 02 01 03 0a 00 00 02 01 02 03 04 08 01 00 0c" );
   bool valid = false;
   EXPECT_EQ( outcomeOf( view, 135, Kiv::OpCode::read, valid ), Kiv::Outcome::done );
   EXPECT_TRUE( valid );
   EXPECT_EQ( outcomeOf( view, 135, Kiv::OpCode::write, valid ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( view, 137, Kiv::OpCode::read, valid ), Kiv::Outcome::noSuchAttribute );
}

TEST( LspPingDdmapTlvParser, showsAnyAddressTypeAsIpv4Numbered ) {
   WireBytes bytes( "ff ff ff 00 14 00 10 05 dc 01 03 0a 00 00 02 0a 00 00 01 08 01 00 0c" );
   auto const pkt = Velnet::pktFactory( std::span( bytes.data(), bytes.size() ) );
   auto const parser = lspPingDdmapTlvParserFactory( pkt, 3 );
   EXPECT_EQ(
      attributeLines( parser->fwkType() ),
      ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r", "132 header LspPingDdmapTlv* r",
               "133 handleHeader() void c", "134 type U16 r", "135 length U16 r", "136 mtu U16 r",
               "137 addrType U8 r", "138 dsFlags U8 r", "139 dsIpAddr Velnet::IpAddr r",
               "140 dsIntfAddr Velnet::IpAddr r", "141 retCode U8 r", "142 retSubcode U8 r",
               "143 subTlvLen U16 r", "144 valid bool r", "145 stringValue Orlo::String r",
               "146 totalLength U16 r" } ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "type" ), 20 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "length" ), 16 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "mtu" ), 1500 );
   EXPECT_EQ( Kiv::read< U8 >( *parser, "addrType" ), 1 );
   EXPECT_EQ( Kiv::read< U8 >( *parser, "dsFlags" ), 3 );
   EXPECT_EQ( Kiv::read< IpAddr >( *parser, "dsIpAddr" ), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( Kiv::read< IpAddr >( *parser, "dsIntfAddr" ), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( Kiv::read< U8 >( *parser, "retCode" ), 8 );
   EXPECT_EQ( Kiv::read< U8 >( *parser, "retSubcode" ), 1 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "subTlvLen" ), 12 );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( *parser, "stringValue" ),
              "DDMAPTlv( Downstream Address: '10.0.0.2', Downstream Interface Address: '10.0.0.1', "
              "RetCode: 8, RetSubCode: 1 )" );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 20 );
}

} // namespace
} // namespace LspPing
