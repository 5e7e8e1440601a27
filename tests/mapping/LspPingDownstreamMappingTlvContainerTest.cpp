#include "tests/mapping/TlvContainers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

// What its container tells of a Downstream Mapping TLV only; LspPingTlvContainerTest.cpp has what
// it shares with the other.
namespace LspPing {
namespace {

using testing::HasSubstr;
using Velnet::IpGenAddr;
using Velnet::NetU16;
using Container = LspPingDownstreamMappingTlvContainer;

TEST( LspPingDownstreamMappingTlvContainer, answersForEachAddressType ) {
   struct {
      std::string_view value;
      U16 mtu;
      U8 dsFlags, multipathType, depthLimit;
      U16 multipathLength;
   } const rows[] = {
      { DownstreamMapping::numbered4, 1500, 3, 8, 9, 8 },
      { DownstreamMapping::unnumbered4, 1500, 3, 8, 9, 8 },
      { DownstreamMapping::numbered6, 9000, 0, 2, 7, 256 },
      { DownstreamMapping::unnumbered6, 9000, 0, 4, 5, 256 },
   };
   for( auto const & row : rows ) {
      WireBytes const bytes( row.value );
      auto const container = castTo< DownstreamMapping >( bytes );
      EXPECT_EQ( container->getMtu(), NetU16( row.mtu ) ) << row.value;
      EXPECT_EQ( container->getDsFlags(), row.dsFlags ) << row.value;
      EXPECT_EQ( container->getMultipathType(), row.multipathType ) << row.value;
      EXPECT_EQ( container->getDepthLimit(), row.depthLimit ) << row.value;
      EXPECT_EQ( container->getMultipathLength().value(), row.multipathLength ) << row.value;
   }
}

TEST( LspPingDownstreamMappingTlvContainer, answersInNetworkByteOrder ) {
   WireBytes const bytes( DownstreamMapping::numbered4 );
   NetU16 const length = castTo< DownstreamMapping >( bytes )->getMultipathLength();
   EXPECT_EQ( std::memcmp( bytes.data() + 14, "\x00\x08", 2 ), 0 );
   EXPECT_EQ( std::memcmp( &length, bytes.data() + 14, 2 ), 0 );
}

TEST( LspPingDownstreamMappingTlvContainer, namesNoInterfaceThatIsNumbered ) {
   WireBytes const bytes( DownstreamMapping::numbered4 );
   EXPECT_EQ( castTo< DownstreamMapping >( bytes )->getDsIntfId(), Velnet::IntfId( "" ) );
}

TEST( LspPingDownstreamMappingTlvContainer, answersWhatItsHeaderHasForAnUnknownAddressType ) {
   for( unsigned type = 0; type < 256; type += type == 0 ? 5 : 1 ) {
      WireBytes const bytes( "05 dc 09 03" );
      bytes.data()[2] = static_cast< U8 >( type );
      auto const container = castTo< DownstreamMapping >( bytes );
      ASSERT_TRUE( container->valid() );
      ASSERT_EQ( container->getMtu().value(), 1500 );
      ASSERT_EQ( container->getDsFlags(), 3 );
   }
}

using LspPingDownstreamMappingTlvContainerDeathTest = testing::Test;

TEST( LspPingDownstreamMappingTlvContainerDeathTest, gettersOfAnInvalidContainerNameThemselves ) {
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   EXPECT_DEATH( container->isIpv4(),
                 HasSubstr( ": bool LspPing::LspPingDownstreamMappingTlvContainer::isIpv4() const: "
                            "assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDsIpAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDsIpAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDsIntfAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDsIntfAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDsIntfId(),
                 HasSubstr( ": Velnet::IntfId LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDsIntfId() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getMultipathType(),
                 HasSubstr( ": U8 LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getMultipathType() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDepthLimit(),
                 HasSubstr( ": U8 LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDepthLimit() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getMultipathLength(),
                 HasSubstr( ": Velnet::NetU16 LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getMultipathLength() const: assertion \"valid()\" failed" ) );
}

TEST( LspPingDownstreamMappingTlvContainerDeathTest,
      gettersThatNeedAViewRefuseUnknownAddressTypes ) {
   WireBytes const bytes( "05 dc 09 03" );
   auto const container = castTo< DownstreamMapping >( bytes );
   auto const refusal =
      HasSubstr( ": bool LspPing::LspPingDownstreamMappingTlvContainer::isIpv4() const: assertion "
                 "\"0 && \"Undefined address type\"\" failed" );
   EXPECT_DEATH( container->getMultipathType(), refusal );
   EXPECT_DEATH( container->getDepthLimit(), refusal );
   EXPECT_DEATH( container->getMultipathLength(), refusal );
}

TEST( LspPingDownstreamMappingTlvContainer, namesItsAttributes ) {
   EXPECT_EQ(
      attributeLines< Container >(),
      ( Lines{ "130 tryCastToTlv(U8*,U32) void c", "131 isIpv4 bool r",
               "132 getMtu Velnet::NetU16 r", "133 getAddrType U8 r", "134 getDsFlags U8 r",
               "135 getDsIpAddr Velnet::IpGenAddr r", "136 getDsIntfAddr Velnet::IpGenAddr r",
               "137 getDsIntfId Velnet::IntfId r", "138 getMultipathType U8 r",
               "139 getDepthLimit U8 r", "140 getMultipathLength Velnet::NetU16 r",
               "141 valid bool rw", "142 header LspPingDownstreamMappingHdr* rw",
               "143 ipv4Tlv LspPingDownstreamMappingIpv4Tlv* rw",
               "144 ipv6Tlv LspPingDownstreamMappingIpv6Tlv* rw",
               "145 ipv4UnnumberedTlv LspPingDownstreamMappingIpv4UnnumberedTlv* rw",
               "146 ipv6UnnumberedTlv LspPingDownstreamMappingIpv6UnnumberedTlv* rw" } ) );
}

TEST( LspPingDownstreamMappingTlvContainer, isAskedThroughItsAttributes ) {
   WireBytes const bytes( DownstreamMapping::unnumbered6 );
   auto const container = castTo< DownstreamMapping >( bytes );
   EXPECT_EQ( Kiv::read< NetU16 >( *container, "getMtu" ).value(), 9000 );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getDsFlags" ), 0 );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getDsIpAddr" ), address6( "2001:db8::2" ) );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getDsIntfAddr" ), IpGenAddr() );
   EXPECT_EQ( Kiv::read< Velnet::IntfId >( *container, "getDsIntfId" ), Velnet::IntfId( 7 ) );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getMultipathType" ), 4 );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getDepthLimit" ), 5 );
   EXPECT_EQ( Kiv::read< NetU16 >( *container, "getMultipathLength" ).value(), 256 );
}

} // namespace
} // namespace LspPing
