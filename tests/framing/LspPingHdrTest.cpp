#include "MplsUtils/LspPing/framing/LspPingHdr.h"

#include "tests/WireBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

using LspPing::LspPingHdr;

Bytes const request{
   0x00, 0x01, 0x00, 0x00, 0x01, 0x02, 0x00, 0x00, // version, flags, type, mode, codes
   0x00, 0x00, 0x12, 0x34, 0x00, 0x00, 0x00, 0x01, // sender's handle, sequence number
   0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // sent
   0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // received
};
Bytes const zeros( 32, 0 );

class LspPingHdrTest : public testing::Test {
 protected:
   void lay( Bytes const & bytes ) { bytes_ = WireBytes( bytes ); }
   LspPingHdr & header() { return bytes_.as< LspPingHdr >(); }
   Bytes bytes() const { return bytes_.copy(); }

 private:
   WireBytes bytes_{ 32, 0 };
};

TEST_F( LspPingHdrTest, readsItsFieldsInTheirPlaces ) {
   Bytes counted( 32 );
   for( std::size_t i = 0; i < counted.size(); ++i )
      counted[i] = static_cast< U8 >( i + 1 );
   lay( counted );
   EXPECT_EQ( header().version(), 0x0102 );
   EXPECT_EQ( header().globalFlags(), 0x0304 );
   EXPECT_EQ( header().messageType(), 5 );
   EXPECT_EQ( header().replyMode(), 6 );
   EXPECT_EQ( header().returnCode(), 7 );
   EXPECT_EQ( header().returnSubcode(), 8 );
   EXPECT_EQ( header().senderHandle(), 0x090a0b0cu );
   EXPECT_EQ( header().sequenceNumber(), 0x0d0e0f10u );
   EXPECT_EQ( header().tsSentSeconds(), 0x11121314u );
   EXPECT_EQ( header().tsSentmSeconds(), 0x15161718u );
   EXPECT_EQ( header().tsRcvdSeconds(), 0x191a1b1cu );
   EXPECT_EQ( header().tsRcvdmSeconds(), 0x1d1e1f20u );
   U32 raw;
   std::memcpy( &raw, &counted[8], 4 );
   EXPECT_EQ( header().senderHandleNbo(), raw );
   std::memcpy( &raw, &counted[28], 4 );
   EXPECT_EQ( header().tsRcvdmSecondsNbo(), raw );
   U16 raw16;
   std::memcpy( &raw16, &counted[0], 2 );
   EXPECT_EQ( header().versionNbo(), raw16 );
}

TEST_F( LspPingHdrTest, writesItsFieldsInTheirPlaces ) {
   lay( Bytes( 32, 0xa5 ) );
   header().versionIs( 0x0102 );
   header().globalFlagsIs( 0x0304 );
   header().messageTypeIs( 5 );
   header().replyModeIs( 6 );
   header().returnCodeIs( 7 );
   header().returnSubcodeIs( 8 );
   header().senderHandleIs( 0x090a0b0c );
   header().sequenceNumberIs( 0x0d0e0f10 );
   header().tsSentSecondsIs( 0x11121314 );
   header().tsSentmSecondsIs( 0x15161718 );
   header().tsRcvdSecondsIs( 0x191a1b1c );
   Bytes expected( 32 );
   for( std::size_t i = 0; i < expected.size(); ++i )
      expected[i] = i < 28 ? static_cast< U8 >( i + 1 ) : U8{ 0xa5 };
   EXPECT_EQ( bytes(), expected );
   header().tsRcvdmSecondsIs( 0x1d1e1f20 );
   EXPECT_EQ( bytes()[28], 0x1d );
   EXPECT_EQ( bytes()[31], 0x20 );
}

TEST_F( LspPingHdrTest, isZeroWhenStandingAlone ) {
   EXPECT_EQ( hexOfNew< LspPingHdr >(), hexOf( zeros ) );
}

// 16 bits of version and 8 of message type decide, and nothing else does.
TEST_F( LspPingHdrTest, isValidByVersionAndMessageTypeOnly ) {
   lay( zeros );
   for( U32 version = 0; version <= 0xffff; ++version ) {
      header().versionIs( static_cast< U16 >( version ) );
      for( U16 const type : { U16{ 0 }, U16{ 1 }, U16{ 2 }, U16{ 3 }, U16{ 255 } } ) {
         header().messageTypeIs( static_cast< U8 >( type ) );
         bool const expected = ( version == 1 || version == 2 ) && ( type == 1 || type == 2 );
         ASSERT_EQ( header().valid(), expected ) << version << " " << type;
      }
   }
   header().versionIs( 2 );
   for( U16 type = 0; type <= 255; ++type ) {
      header().messageTypeIs( static_cast< U8 >( type ) );
      EXPECT_EQ( header().valid(), type == 1 || type == 2 );
   }
}

TEST_F( LspPingHdrTest, isValidWhateverTheOtherFieldsHold ) {
   std::mt19937 random( 8029 );
   for( int round = 0; round < 1000; ++round ) {
      Bytes any( 32 );
      for( U8 & byte : any )
         byte = static_cast< U8 >( random() );
      any[0] = 0;
      any[1] = static_cast< U8 >( 1 + round % 2 );
      any[4] = static_cast< U8 >( 1 + round / 2 % 2 );
      lay( any );
      EXPECT_TRUE( header().valid() );
   }
}

TEST_F( LspPingHdrTest, isNotValidForVersionThreeOrMessageTypeZeroOrThree ) {
   lay( request );
   EXPECT_TRUE( header().valid() );
   header().versionIs( 3 );
   EXPECT_FALSE( header().valid() );
   header().versionIs( 2 );
   header().messageTypeIs( 2 );
   EXPECT_TRUE( header().valid() );
   header().messageTypeIs( 0 );
   EXPECT_FALSE( header().valid() );
   header().messageTypeIs( 3 );
   EXPECT_FALSE( header().valid() );
}

TEST_F( LspPingHdrTest, printsItsTwelveFields ) {
   lay( request );
   EXPECT_EQ( header().stringValue(),
              "LspPingHdr:\tver(1),\tflag(0),\tmsgType(1),\treplyMode(2),\treturnCode(0),"
              "\treturnSubcode(0),\tsenderHandle(0x1234),\tseqNum(0x1),\ttsSenSeconds(0x0),"
              "\ttsSentmSeconds(0x0),\ttsRcvdSeconds(0x0),\ttsRcvdmSeconds(0x0)" );
}

TEST_F( LspPingHdrTest, printsTheLargestFields ) {
   Bytes all( 32, 0xff );
   all[0] = 0;
   all[1] = 2;
   all[4] = 2;
   lay( all );
   EXPECT_EQ( header().stringValue(),
              "LspPingHdr:\tver(2),\tflag(65535),\tmsgType(2),\treplyMode(255),\treturnCode(255),"
              "\treturnSubcode(255),\tsenderHandle(0xffffffff),\tseqNum(0xffffffff),"
              "\ttsSenSeconds(0xffffffff),\ttsSentmSeconds(0xffffffff),"
              "\ttsRcvdSeconds(0xffffffff),\ttsRcvdmSeconds(0xffffffff)" );
}

TEST_F( LspPingHdrTest, printsAFixedTextWhenInvalid ) {
   lay( request );
   header().versionIs( 3 );
   EXPECT_EQ( header().stringValue(), "Invalid LspPingHdr" );
   lay( zeros );
   EXPECT_EQ( header().stringValue(), "Invalid LspPingHdr" );
}

} // namespace
