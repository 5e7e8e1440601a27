#include "MplsUtils/LspPing/message/LspPingWords.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using namespace LspPing;

template < class... A >
std::string textOf( void ( *append )( Orlo::StringBuilder &, A... ), A... arguments ) {
   Orlo::StringBuilder out;
   append( out, arguments... );
   return std::string( out.view() );
}

std::string returnCode( U8 code, U8 subcode ) {
   return textOf( &appendReturnCode, code, subcode );
}

// All values of an enumeration but those that the RFC has no meaning for have words.
template < class E >
void expectWordsForAll( std::initializer_list< E > without = {} ) {
   for( Kiv::Enumerator const & row : Kiv::EnumerationOf< E >::rows ) {
      auto const value = static_cast< E >( row.value );
      bool const isWithout = std::find( without.begin(), without.end(), value ) != without.end();
      EXPECT_EQ( lspPingWords( value ).empty(), isWithout ) << row.name();
   }
   EXPECT_EQ( lspPingWords( static_cast< E >( 4711 ) ), "" );
}

TEST( LspPingWords, areThereForEveryEnumerator ) {
   expectWordsForAll< LspPingMsgType >();
   expectWordsForAll< LspPingReplyMode >();
   expectWordsForAll< LspPingReturnCode >();
   expectWordsForAll< LspPingAddrType >();
   expectWordsForAll< LspPingMultipathType >();
   expectWordsForAll< LspPingPadType >();
   expectWordsForAll< LspPingDownstreamSignalingProtocol >();
   expectWordsForAll< LspPingFecStackChangeSubTlvOperType >();
   expectWordsForAll< LspPingDDMappingSubTlvType >();
   // Types 4 and 6 were assigned later, and have the words of their classes.
   expectWordsForAll< LspPingTlvType >( { LspPingTlvType::NotAssigned8 } );
   expectWordsForAll< LspPingTargetFecSubTlvType >( { LspPingTargetFecSubTlvType::NotAssigned } );
   expectWordsForAll< LspPingExtMsgType >();
   expectWordsForAll< LspPingExtReplyMode >();
   expectWordsForAll< LspPingExtReturnCode >();
   expectWordsForAll< LspPingExtAddrType >();
   expectWordsForAll< LspPingExtMultipathType >();
   expectWordsForAll< LspPingExtDownstreamSignalingProtocol >();
   expectWordsForAll< LspPingExtSrIgpProtocol >();
   expectWordsForAll< LspPingSrIgpProtocol >();
   expectWordsForAll< LspPingAdjacencyType >();
   expectWordsForAll< LspPingReplyPathReturnCode >();
}

TEST( LspPingWords, tellWhatIsDeprecated ) {
   EXPECT_EQ( lspPingWords( LspPingReplyMode::ReplyIpUdpRouterAlert ),
              "reply via an IPv4/IPv6 UDP packet with router alert (deprecated)" );
   EXPECT_EQ( lspPingWords( LspPingTlvType::DownstreamMapping ),
              "Downstream Mapping (deprecated)" );
}

// Some have their words in a table, and some beside their class.
TEST( LspPingWords, sayTlvs ) {
   EXPECT_EQ( lspPingWords( LspPingTlvType::Pad ), "Pad" );
   EXPECT_EQ( lspPingWords( LspPingTlvType::EchoJitter ), "Echo Jitter" );
   // Assigned since.
   EXPECT_EQ( lspPingWords( LspPingTlvType::NotAssigned6 ), "Detailed Interface and Label Stack" );
}

TEST( LspPingWords, sayAReturnCodeWithItsSubcode ) {
   EXPECT_EQ( returnCode( 8, 1 ), "label switched at stack-depth 1" );
   EXPECT_EQ( returnCode( 3, 2 ), "replying router is an egress for the FEC at stack-depth 2" );
   EXPECT_EQ( returnCode( 0, 0 ), "no return code" );
   EXPECT_EQ( returnCode( 2, 0 ), "one or more of the TLVs was not understood" );
   EXPECT_EQ( returnCode( 5, 1 ), "downstream mapping mismatch, subcode 1" );
   EXPECT_EQ( returnCode( 20, 0 ), "one or more TLVs not returned due to MTU size" );
   EXPECT_EQ( returnCode( 36, 1 ), "replying router is an egress for the address in the Egress TLV "
                                   "for the FEC at stack-depth 1" );
   EXPECT_EQ( returnCode( 200, 0 ), "return code 200" );
   EXPECT_EQ( returnCode( 200, 7 ), "return code 200, subcode 7" );
}

TEST( LspPingWords, haveADepthWhereTheRfcSaysSo ) {
   for( U32 code = 0; code < 256; ++code ) {
      bool const hasDepth = code == 3 || code == 4 || ( code >= 8 && code <= 12 ) || code == 36;
      EXPECT_EQ( lspPingHasStackDepth( static_cast< LspPingReturnCode >( code ) ), hasDepth )
         << code;
   }
}

TEST( LspPingWords, sayFlagsByTheirLetters ) {
   EXPECT_EQ( textOf( &appendHeaderFlags, U16{ 0 } ), "" );
   EXPECT_EQ( textOf( &appendHeaderFlags, U16{ 1 } ), "V" );
   EXPECT_EQ( textOf( &appendHeaderFlags, U16{ 7 } ), "RTV" );
   EXPECT_EQ( textOf( &appendHeaderFlags, U16{ 0x8009 } ), "V+0x8008" );
   EXPECT_EQ( textOf( &appendDownstreamFlags, U8{ 3 } ), "IN" );
   EXPECT_EQ( textOf( &appendDownstreamFlags, U8{ 4 } ), "E" );
   EXPECT_EQ( textOf( &appendDownstreamFlags, U8{ 0x1f } ), "GLEIN" );
   EXPECT_EQ( textOf( &appendDownstreamFlags, U8{ 0x28 } ), "L+0x20" );
}

std::string ntpTime( U32 seconds, U32 fractions ) {
   Orlo::StringBuilder out;
   appendNtpTime( out, { seconds, fractions } );
   return std::string( out.view() );
}

TEST( LspPingWords, sayTimeStampsAsDateAndTime ) {
   EXPECT_EQ( ntpTime( 0, 0 ), "none" );
   EXPECT_EQ( ntpTime( 0xed286d40, 0x40000000 ), "2026-01-31T12:00:00.250000Z" );
   EXPECT_EQ( ntpTime( 2208988800, 0 ), "1970-01-01T00:00:00.000000Z" );
   EXPECT_EQ( ntpTime( 0x80000000, 0 ), "1968-01-20T03:14:08.000000Z" );
   EXPECT_EQ( ntpTime( 0xffffffff, 0xffffffff ), "2036-02-07T06:28:15.999999Z" );
   // The next era.
   EXPECT_EQ( ntpTime( 0, 1 ), "2036-02-07T06:28:16.000000Z" );
   EXPECT_EQ( ntpTime( 0x7fffffff, 0 ), "2104-02-26T09:42:23.000000Z" );
}

} // namespace
