#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlv.h"

#include "tests/Addresses.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

using Velnet::IpAddr;
using Velnet::NetU16;

TEST( LspPingDownstreamMappingHdr, readsWhatEveryAddressTypeBeginsWith ) {
   WireBytes bytes( "05 dc 01 fe" );
   auto const & view = bytes.as< LspPingDownstreamMappingHdr >();
   EXPECT_EQ( view.mtu(), NetU16( 1500 ) );
   EXPECT_EQ( view.addrType(), 1 );
   EXPECT_EQ( view.dsFlags(), 254 );
}

TEST( LspPingDownstreamMappingHdr, writesItsOwnBytesOnly ) {
   using View = LspPingDownstreamMappingHdr;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.mtuIs( NetU16( 0x0102 ) ); } ), "01 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.addrTypeIs( 3 ); } ), "a5 a5 03 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsFlagsIs( 4 ); } ), "a5 a5 a5 04" );
}

TEST( LspPingDownstreamMappingIpv4Tlv, readsEveryFieldWhereItLies ) {
   WireBytes bytes( "05 dc 01 00 0a 00 00 02 0a 00 00 01 08 09 00 0c" );
   auto const & view = bytes.as< LspPingDownstreamMappingIpv4Tlv >();
   EXPECT_EQ( view.mtu().value(), 1500 );
   EXPECT_EQ( view.dsIpAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( view.dsIntfAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( view.multipathType(), 8 );
   EXPECT_EQ( view.depthLimit(), 9 );
   EXPECT_EQ( view.multipathLength(), NetU16( 12 ) );
}

TEST( LspPingDownstreamMappingIpv4Tlv, writesItsOwnBytesOnly ) {
   using View = LspPingDownstreamMappingIpv4Tlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsIpAddrIs( IpAddr( 1, 2, 3, 4 ) ); } ),
              "a5 a5 a5 a5 01 02 03 04 a5 a5 a5 a5 a5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsIntfAddrIs( IpAddr( 1, 2, 3, 4 ) ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04 a5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.multipathTypeIs( 1 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 01 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.depthLimitIs( 2 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.multipathLengthIs( NetU16( 0x0304 ) ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 03 04" );
}

TEST( LspPingDownstreamMappingIpv4UnnumberedTlv, readsAndWritesTheIndexBigEndian ) {
   using View = LspPingDownstreamMappingIpv4UnnumberedTlv;
   WireBytes bytes( "05 dc 02 00 0a 00 00 02 00 00 01 00 08 09 00 0c" );
   auto const & view = bytes.as< View >();
   EXPECT_EQ( view.dsIpAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( view.dsIntfId(), 256u );
   EXPECT_EQ( view.multipathType(), 8 );
   EXPECT_EQ( view.depthLimit(), 9 );
   EXPECT_EQ( view.multipathLength().value(), 12 );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.dsIntfIdIs( 0x01020304 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04 a5 a5 a5 a5" );
}

TEST( LspPingDownstreamMappingIpv6Tlv, readsAndWritesEveryFieldWhereItLies ) {
   using View = LspPingDownstreamMappingIpv6Tlv;
   std::string_view const hex = "23 28 03 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 20 01 "
                                "0d b8 00 00 00 00 00 00 00 00 00 00 00 01 08 09 01 00";
   WireBytes bytes( hex );
   auto const & view = bytes.as< View >();
   EXPECT_EQ( view.mtu().value(), 9000 );
   EXPECT_EQ( view.dsIpAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( view.dsIntfAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( view.multipathType(), 8 );
   EXPECT_EQ( view.depthLimit(), 9 );
   EXPECT_EQ( view.multipathLength().value(), 256 );
   EXPECT_EQ( hexAfter< View >( []( View & v ) {
                 v.mtuIs( NetU16( 9000 ) );
                 v.addrTypeIs( 3 );
                 v.dsFlagsIs( 0 );
                 v.dsIpAddrIs( address6( "2001:db8::2" ) );
                 v.dsIntfAddrIs( address6( "2001:db8::1" ) );
                 v.multipathTypeIs( 8 );
                 v.depthLimitIs( 9 );
                 v.multipathLengthIs( NetU16( 256 ) );
              } ),
              hex );
}

TEST( LspPingDownstreamMappingIpv6UnnumberedTlv, readsAndWritesEveryFieldWhereItLies ) {
   using View = LspPingDownstreamMappingIpv6UnnumberedTlv;
   std::string_view const hex =
      "23 28 04 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 00 00 01 00 08 09 01 00";
   WireBytes bytes( hex );
   auto const & view = bytes.as< View >();
   EXPECT_EQ( view.dsIpAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( view.dsIntfId(), 256u );
   EXPECT_EQ( view.multipathType(), 8 );
   EXPECT_EQ( view.depthLimit(), 9 );
   EXPECT_EQ( view.multipathLength().value(), 256 );
   EXPECT_EQ( hexAfter< View >( []( View & v ) {
                 v.mtuIs( NetU16( 9000 ) );
                 v.addrTypeIs( 4 );
                 v.dsFlagsIs( 0 );
                 v.dsIpAddrIs( address6( "2001:db8::2" ) );
                 v.dsIntfIdIs( 256 );
                 v.multipathTypeIs( 8 );
                 v.depthLimitIs( 9 );
                 v.multipathLengthIs( NetU16( 256 ) );
              } ),
              hex );
}

TEST( LspPingDownstreamMappingTlvs, areZeroWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingDownstreamMappingHdr >(), "00 00 00 00" );
   EXPECT_EQ( hexOfNew< LspPingDownstreamMappingIpv4Tlv >(), WireBytes( 16, 0 ).hex() );
   EXPECT_EQ( hexOfNew< LspPingDownstreamMappingIpv4UnnumberedTlv >(), WireBytes( 16, 0 ).hex() );
   EXPECT_EQ( hexOfNew< LspPingDownstreamMappingIpv6Tlv >(), WireBytes( 40, 0 ).hex() );
   EXPECT_EQ( hexOfNew< LspPingDownstreamMappingIpv6UnnumberedTlv >(), WireBytes( 28, 0 ).hex() );
}

TEST( LspPingDownstreamMappingTlvs, nameTheirAttributes ) {
   EXPECT_EQ( attributeLines< LspPingDownstreamMappingHdr >(),
              ( Lines{ "2 mtu Velnet::NetU16 rw", "3 addrType U8 rw", "4 dsFlags U8 rw" } ) );
   EXPECT_EQ( attributeLines< LspPingDownstreamMappingIpv4Tlv >(),
              ( Lines{ "130 dsIpAddr Velnet::IpAddr rw", "131 dsIntfAddr Velnet::IpAddr rw",
                       "132 multipathType U8 rw", "133 depthLimit U8 rw",
                       "134 multipathLength Velnet::NetU16 rw" } ) );
   EXPECT_EQ(
      attributeLines< LspPingDownstreamMappingIpv4UnnumberedTlv >(),
      ( Lines{ "130 dsIpAddr Velnet::IpAddr rw", "131 dsIntfId U32 rw", "132 multipathType U8 rw",
               "133 depthLimit U8 rw", "134 multipathLength Velnet::NetU16 rw" } ) );
   EXPECT_EQ( attributeLines< LspPingDownstreamMappingIpv6Tlv >(),
              ( Lines{ "130 dsIpAddr Velnet::Ip6Addr rw", "131 dsIntfAddr Velnet::Ip6Addr rw",
                       "132 multipathType U8 rw", "133 depthLimit U8 rw",
                       "134 multipathLength Velnet::NetU16 rw" } ) );
   EXPECT_EQ(
      attributeLines< LspPingDownstreamMappingIpv6UnnumberedTlv >(),
      ( Lines{ "130 dsIpAddr Velnet::Ip6Addr rw", "131 dsIntfId U32 rw", "132 multipathType U8 rw",
               "133 depthLimit U8 rw", "134 multipathLength Velnet::NetU16 rw" } ) );
}

TEST( LspPingDownstreamMappingTlvs, reachTheHeadersAttributesThroughTheirBase ) {
   WireBytes bytes( "05 dc 02 00 0a 00 00 02 00 00 01 00 08 09 00 0c" );
   auto & view = bytes.as< LspPingDownstreamMappingIpv4UnnumberedTlv >();
   EXPECT_EQ( Kiv::typeOf< LspPingDownstreamMappingIpv4UnnumberedTlv >().base(),
              Kiv::typeOf< LspPingDownstreamMappingHdr >() );
   NetU16 word;
   EXPECT_EQ( outcomeOf( view, 2, Kiv::OpCode::read, word ), Kiv::Outcome::done );
   EXPECT_EQ( word, NetU16( 1500 ) );
   EXPECT_EQ( outcomeOf( view, 134, Kiv::OpCode::read, word ), Kiv::Outcome::done );
   EXPECT_EQ( word, NetU16( 12 ) );
   word.valueIs( 0x0102 );
   EXPECT_EQ( outcomeOf( view, 2, Kiv::OpCode::write, word ), Kiv::Outcome::done );
   EXPECT_EQ( outcomeOf( view, 134, Kiv::OpCode::write, word ), Kiv::Outcome::done );
   Kiv::write( view, "dsIntfId", U32{ 0x03040506 } );
   EXPECT_EQ( bytes.hex(), "01 02 02 00 0a 00 00 02 03 04 05 06 08 09 01 02" );
   EXPECT_EQ( outcomeOf( view, 134, Kiv::OpCode::call, word ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( view, 5, Kiv::OpCode::read, word ), Kiv::Outcome::noSuchAttribute );
   EXPECT_EQ( outcomeOf( view, 135, Kiv::OpCode::read, word ), Kiv::Outcome::noSuchAttribute );
}

} // namespace
} // namespace LspPing
