#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlv.h"

#include "tests/Addresses.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

using Velnet::IpAddr;

TEST( LspPingIntfAndLabelStackHdr, readsWhatEveryAddressTypeBeginsWith ) {
   WireBytes bytes( "01 02 03 04" );
   auto const & view = bytes.as< LspPingIntfAndLabelStackHdr >();
   EXPECT_EQ( view.addrType(), 1 );
   EXPECT_EQ( view.mbz0(), 2 );
   EXPECT_EQ( view.mbz1(), asStored( 3, 4 ) );
}

TEST( LspPingIntfAndLabelStackHdr, writesItsOwnBytesOnly ) {
   using View = LspPingIntfAndLabelStackHdr;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.addrTypeIs( 1 ); } ), "01 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.mbz0Is( 2 ); } ), "a5 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.mbz1Is( asStored( 3, 4 ) ); } ), "a5 a5 03 04" );
}

TEST( LspPingIntfAndLabelStackIpv4Tlv, readsAndWritesEveryFieldWhereItLies ) {
   using View = LspPingIntfAndLabelStackIpv4Tlv;
   WireBytes bytes( "01 00 00 00 0a 00 00 02 0a 00 00 01" );
   EXPECT_EQ( bytes.as< View >().addr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( bytes.as< View >().intf(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.addrIs( IpAddr( 1, 2, 3, 4 ) ); } ),
              "a5 a5 a5 a5 01 02 03 04 a5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.intfIs( IpAddr( 1, 2, 3, 4 ) ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04" );
}

TEST( LspPingIntfAndLabelStackIpv4UnnumberedTlv, readsAndWritesTheIndexBigEndian ) {
   using View = LspPingIntfAndLabelStackIpv4UnnumberedTlv;
   WireBytes bytes( "02 00 00 00 0a 00 00 02 00 00 01 00" );
   EXPECT_EQ( bytes.as< View >().addr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( bytes.as< View >().intfId(), 256u );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.intfIdIs( 0x01020304 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04" );
}

TEST( LspPingIntfAndLabelStackIpv6Tlv, readsAndWritesEveryFieldWhereItLies ) {
   using View = LspPingIntfAndLabelStackIpv6Tlv;
   std::string_view const hex = "03 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 20 01 "
                                "0d b8 00 00 00 00 00 00 00 00 00 00 00 01";
   WireBytes bytes( hex );
   EXPECT_EQ( bytes.as< View >().addr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( bytes.as< View >().intf(), address6( "2001:db8::1" ) );
   EXPECT_EQ( hexAfter< View >( []( View & v ) {
                 v.addrTypeIs( 3 );
                 v.mbz0Is( 0 );
                 v.mbz1Is( 0 );
                 v.addrIs( address6( "2001:db8::2" ) );
                 v.intfIs( address6( "2001:db8::1" ) );
              } ),
              hex );
}

TEST( LspPingIntfAndLabelStackIpv6UnnumberedTlv, readsAndWritesEveryFieldWhereItLies ) {
   using View = LspPingIntfAndLabelStackIpv6UnnumberedTlv;
   std::string_view const hex =
      "04 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 80 00 01 00";
   WireBytes bytes( hex );
   EXPECT_EQ( bytes.as< View >().addr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( bytes.as< View >().intfId(), 0x80000100u );
   EXPECT_EQ( hexAfter< View >( []( View & v ) {
                 v.addrTypeIs( 4 );
                 v.mbz0Is( 0 );
                 v.mbz1Is( 0 );
                 v.addrIs( address6( "2001:db8::2" ) );
                 v.intfIdIs( 0x80000100 );
              } ),
              hex );
}

TEST( LspPingIntfAndLabelStackTlvs, areZeroWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingIntfAndLabelStackHdr >(), "00 00 00 00" );
   EXPECT_EQ( hexOfNew< LspPingIntfAndLabelStackIpv4Tlv >(), WireBytes( 12, 0 ).hex() );
   EXPECT_EQ( hexOfNew< LspPingIntfAndLabelStackIpv4UnnumberedTlv >(), WireBytes( 12, 0 ).hex() );
   EXPECT_EQ( hexOfNew< LspPingIntfAndLabelStackIpv6Tlv >(), WireBytes( 36, 0 ).hex() );
   EXPECT_EQ( hexOfNew< LspPingIntfAndLabelStackIpv6UnnumberedTlv >(), WireBytes( 24, 0 ).hex() );
}

TEST( LspPingIntfAndLabelStackTlvs, nameTheirAttributes ) {
   EXPECT_EQ( attributeLines< LspPingIntfAndLabelStackHdr >(),
              ( Lines{ "2 addrType U8 rw", "3 mbz0 U8 rw", "4 mbz1 U16 rw" } ) );
   EXPECT_EQ( attributeLines< LspPingIntfAndLabelStackIpv4Tlv >(),
              ( Lines{ "130 addr Velnet::IpAddr rw", "131 intf Velnet::IpAddr rw" } ) );
   EXPECT_EQ( attributeLines< LspPingIntfAndLabelStackIpv4UnnumberedTlv >(),
              ( Lines{ "130 addr Velnet::IpAddr rw", "131 intfId U32 rw" } ) );
   EXPECT_EQ( attributeLines< LspPingIntfAndLabelStackIpv6Tlv >(),
              ( Lines{ "130 addr Velnet::Ip6Addr rw", "131 intf Velnet::Ip6Addr rw" } ) );
   EXPECT_EQ( attributeLines< LspPingIntfAndLabelStackIpv6UnnumberedTlv >(),
              ( Lines{ "130 addr Velnet::Ip6Addr rw", "131 intfId U32 rw" } ) );
}

TEST( LspPingIntfAndLabelStackTlvs, reachTheHeadersAttributesThroughTheirBase ) {
   WireBytes bytes( "02 00 03 04 0a 00 00 02 00 00 01 00" );
   auto & view = bytes.as< LspPingIntfAndLabelStackIpv4UnnumberedTlv >();
   U16 word = 0;
   EXPECT_EQ( outcomeOf( view, 4, Kiv::OpCode::read, word ), Kiv::Outcome::done );
   EXPECT_EQ( word, asStored( 3, 4 ) );
   U8 addrType = 9;
   EXPECT_EQ( outcomeOf( view, 2, Kiv::OpCode::write, addrType ), Kiv::Outcome::done );
   U32 index = 0;
   EXPECT_EQ( outcomeOf( view, 131, Kiv::OpCode::read, index ), Kiv::Outcome::done );
   EXPECT_EQ( index, 256u );
   index = 0x01020304;
   EXPECT_EQ( outcomeOf( view, 131, Kiv::OpCode::write, index ), Kiv::Outcome::done );
   EXPECT_EQ( bytes.hex(), "09 00 03 04 0a 00 00 02 01 02 03 04" );
   EXPECT_EQ( outcomeOf( view, 132, Kiv::OpCode::write, index ), Kiv::Outcome::noSuchAttribute );
}

} // namespace
} // namespace LspPing
