#include "tests/mapping/TlvContainers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// What its container tells of an Interface and Label Stack TLV only; LspPingTlvContainerTest.cpp
// has what it shares with the other.
namespace LspPing {
namespace {

using testing::HasSubstr;
using Velnet::IpGenAddr;
using Container = LspPingIntfAndLabelStackTlvContainer;

using LspPingIntfAndLabelStackTlvContainerDeathTest = testing::Test;

TEST( LspPingIntfAndLabelStackTlvContainerDeathTest, gettersOfAnInvalidContainerNameThemselves ) {
   WireBytes const unknown( "05 00 00 00 0a 00 00 02 0a 00 00 01" );
   auto const container = castTo< IntfAndLabelStack >( unknown );
   EXPECT_DEATH( container->isIpv4(),
                 HasSubstr( ": bool LspPing::LspPingIntfAndLabelStackTlvContainer::isIpv4() const: "
                            "assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingIntfAndLabelStackTlvContainer::"
                            "getAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getIntfAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingIntfAndLabelStackTlvContainer::"
                            "getIntfAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getIntfId(),
                 HasSubstr( ": U32 LspPing::LspPingIntfAndLabelStackTlvContainer::getIntfId() "
                            "const: assertion \"valid()\" failed" ) );
}

TEST( LspPingIntfAndLabelStackTlvContainer, namesItsAttributes ) {
   EXPECT_EQ( attributeLines< Container >(),
              ( Lines{ "130 tryCastToTlv(U8*,U32) void c", "131 isIpv4 bool r",
                       "132 getAddrType U8 r", "133 getAddr Velnet::IpGenAddr r",
                       "134 getIntfAddr Velnet::IpGenAddr r", "135 getIntfId U32 r",
                       "136 valid bool rw", "137 header LspPingIntfAndLabelStackHdr* rw",
                       "138 ipv4Tlv LspPingIntfAndLabelStackIpv4Tlv* rw",
                       "139 ipv6Tlv LspPingIntfAndLabelStackIpv6Tlv* rw",
                       "140 ipv4UnnumberedTlv LspPingIntfAndLabelStackIpv4UnnumberedTlv* rw",
                       "141 ipv6UnnumberedTlv LspPingIntfAndLabelStackIpv6UnnumberedTlv* rw" } ) );
}

TEST( LspPingIntfAndLabelStackTlvContainer, isAskedThroughItsAttributes ) {
   WireBytes const bytes( IntfAndLabelStack::unnumbered6 );
   auto const container = castTo< IntfAndLabelStack >( bytes );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getAddr" ), address6( "2001:db8::2" ) );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getIntfAddr" ), IpGenAddr() );
   EXPECT_EQ( Kiv::read< U32 >( *container, "getIntfId" ), 256u );
   EXPECT_THROW( Kiv::write( *container, "getIntfId", U32{ 1 } ), Kiv::AccessException );
}

} // namespace
} // namespace LspPing
