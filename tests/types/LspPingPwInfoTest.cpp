#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace LspPing {
namespace {

Velnet::IpGenAddr const sender = Velnet::IpAddr( 10, 0, 0, 1 );
Velnet::IpGenAddr const receiver = Velnet::IpAddr( 10, 0, 0, 2 );

Pseudowire::PseudowireGenId genId() {
   Pseudowire::PseudowireAttachmentIdentifier saii( 1, 2 );
   saii.valueIs( 1, 0x64 );
   return { {}, saii, {} };
}

TEST( LspPingPwInfo, hasItsDefaults ) {
   LspPingPwInfo const info;
   EXPECT_EQ( info.senderAddr(), Velnet::IpGenAddr() );
   EXPECT_EQ( info.receiverAddr(), Velnet::IpGenAddr() );
   EXPECT_EQ( info.pwId(), 0U );
   EXPECT_EQ( info.pwGenId(), Pseudowire::PseudowireGenId() );
   EXPECT_EQ( Kiv::numberOf( info.pwType() ), 0 );
   EXPECT_FALSE( info.controlWordPresent() );
   EXPECT_EQ( Kiv::numberOf( info.activeCcType() ), 0U );
   EXPECT_FALSE( info );
}

TEST( LspPingPwInfo, keepsWhatItIsConstructedWith ) {
   LspPingPwInfo info( sender, receiver, 100, genId(), Pseudowire::PseudowireType::ethernet, true );
   EXPECT_EQ( info.senderAddr(), sender );
   EXPECT_EQ( info.receiverAddr(), receiver );
   EXPECT_EQ( info.pwId(), 100U );
   EXPECT_EQ( info.pwGenId(), genId() );
   EXPECT_EQ( info.pwType(), Pseudowire::PseudowireType::ethernet );
   EXPECT_TRUE( info.controlWordPresent() );
   EXPECT_EQ( Kiv::numberOf( info.activeCcType() ), 0U );
   info.activeCcTypeIs( Pseudowire::PwPingCcType::ttlExpiry );
   std::ostringstream text;
   text << info;
   EXPECT_EQ( text.str(),
              "LspPing::LspPingPwInfo(senderAddr=10.0.0.1, receiverAddr=10.0.0.2, pwId=100, "
              "pwGenId=agi 0: saii 1:0064 taii 0:, pwType=ethernet, controlWordPresent=true, "
              "activeCcType=ttlExpiry)" );
}

TEST( LspPingPwInfo, differsInEachOfItsAttributes ) {
   LspPingPwInfo const none;
   Pseudowire::PseudowireType const noType{};
   LspPingPwInfo active;
   active.activeCcTypeIs( Pseudowire::PwPingCcType::controlWord );
   LspPingPwInfo const others[] = {
      { sender, {}, 0, {}, noType, false },
      { {}, receiver, 0, {}, noType, false },
      { {}, {}, 1, {}, noType, false },
      { {}, {}, 0, genId(), noType, false },
      { {}, {}, 0, {}, Pseudowire::PseudowireType::ppp, false },
      { {}, {}, 0, {}, noType, true },
      active,
   };
   for( LspPingPwInfo const & other : others ) {
      EXPECT_NE( other, none );
      EXPECT_TRUE( other );
      EXPECT_FALSE( LspPingPwInfo::isEq( &other, &none ) );
   }
}

TEST( LspPingPwInfo, refusesToHaveItsFixedAttributesWritten ) {
   LspPingPwInfo info( sender, receiver, 100, genId(), Pseudowire::PseudowireType::ethernet, true );
   LspPingPwInfo const before = info;
   Kiv::TypeRef const type = Kiv::typeOf< LspPingPwInfo >();
   U64 buffer[8] = {};
   for( U16 id = 2; id < 8; ++id )
      EXPECT_EQ( Kiv::attributeAccess( type, &info, id, Kiv::OpCode::write, buffer ),
                 Kiv::Outcome::notPermitted );
   EXPECT_EQ( info, before );
   EXPECT_EQ( Kiv::attributeAccess( type, &info, 9, Kiv::OpCode::write, buffer ),
              Kiv::Outcome::noSuchAttribute );
   Kiv::write( info, "activeCcType", Pseudowire::PwPingCcType::controlWord );
   EXPECT_EQ( info.activeCcType(), Pseudowire::PwPingCcType::controlWord );
}

} // namespace
} // namespace LspPing
