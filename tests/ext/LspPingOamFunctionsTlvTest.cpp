#include "MplsUtils/LspPing/ext/oam/LspPingOamFunctionsTlv.h"
#include "MplsUtils/LspPing/ext/oam/LspPingOamPmSubTlv.h"
#include "MplsUtils/LspPing/ext/oam/LspPingOamSubTlv.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using FecTesting::Laid;

// In a TLV of its own, at a depth; `hex` is that of the sub-TLVs.
std::string readSubTlvs( std::string_view hex, U32 depth = 1 ) {
   Bytes const subTlvs = bytesOf( hex );
   return readTlvs( hexOf( Bytes{ 0, 27 } + word( 4 + subTlvs.size() ) + Bytes( 4 ) + subTlvs ),
                    depth );
}

// The same, as it is written.
template < class View, class Fill >
std::string writtenSubTlv( Fill fill ) {
   std::string const hex = written( [&]( LspPingMessageWriter & writer ) {
      auto const tlv = writer.open< LspPingOamFunctionsTlv >();
      writer.add< View >( fill );
   } );
   return hex.size() > 24 ? hex.substr( 24 ) : hex;
}

template < class View >
void expectValidWith( unsigned code, unsigned least, bool isFixed = true ) {
   WireBytes bytes( sizeof( View ), 0xa5 );
   EXPECT_EQ( validityMismatches< View >( bytes,
                                          [&]( unsigned type, unsigned length ) {
                                             return type == code &&
                                                    ( isFixed ? length == least : length >= least );
                                          } ),
              0u );
   auto & view = bytes.as< View >();
   view.typeIs( static_cast< U16 >( code ) );
   view.lengthIs( static_cast< U16 >( least ) );
   EXPECT_TRUE( view.valid() );
}

TEST( LspPingOamFunctionsTlv, namesItsFlags ) {
   Laid< LspPingOamFunctionsTlv > tlv( "00 1b 00 04 80 00 00 00" );
   EXPECT_EQ( tlv->functionFlags(), Kiv::numberOf( LspPingOamFunctionFlags::continuityCheckFlag ) );
   auto const textOf = [&]( U32 flags ) {
      tlv->functionFlagsIs( flags );
      return tlv->stringValue();
   };
   EXPECT_EQ( textOf( 0x80000000 ), "OamFunctions( flags: continuityCheck )" );
   EXPECT_EQ( textOf( 0xfc000000 ),
              "OamFunctions( flags: continuityCheck+connectivityVerification+faultManagement+"
              "lossMeasurement+delayMeasurement+throughput )" );
   EXPECT_EQ( textOf( 0x24000001 ), "OamFunctions( flags: faultManagement+throughput+0x1 )" );
   EXPECT_EQ( textOf( 0x10 ), "OamFunctions( flags: 0x10 )" );
   EXPECT_EQ( textOf( 0 ), "OamFunctions( flags: none )" );
   tlv->typeIs( 28 );
   EXPECT_EQ( tlv->stringValue(), "Invalid OamFunctionsTlv" );
}

TEST( LspPingOamFunctionsTlv, writesItsOwnBytesOnly ) {
   expectSets< LspPingOamFunctionsTlv >( &LspPingOamFunctionsTlv::functionFlagsIs, "functionFlags",
                                         U32{ 0x01020304 }, "a5a5a5a5 01020304" );
}

TEST( LspPingOamFunctionsTlv, isValidFromItsFlagsOn ) {
   expectValidWith< LspPingOamFunctionsTlv >( 27, 4, false );
}

// With all its sub-TLVs, as an agent that configures everything would send them.
constexpr char const * all =
   "00 1b 00 80 fc 00 00 00 "
   "00 64 00 2c 30 80 00 00 00 65 00 04 00 00 00 07 00 66 00 0c 00 00 27 10 00 00 4e 20 00 00 00 "
   "00 00 67 00 04 05 01 00 00 00 68 00 04 a0 00 00 00 "
   "00 c8 00 2c c0 00 00 00 "
   "00 c9 00 10 70 00 00 00 00 00 00 64 00 00 00 0a 00 00 00 05 "
   "00 ca 00 10 60 00 00 00 00 00 03 e8 00 00 00 0a ff ff ff ff "
   "01 2c 00 0c a0 00 00 14 00 68 00 04 e0 00 00 00 "
   "01 90 00 08 0a 00 00 01 00 01 00 02";

TEST( LspPingOamFunctionsTlv, isReadWithWhatStandsInIt ) {
   EXPECT_EQ( readTlvs( all ),
              "OamFunctions( flags: continuityCheck+connectivityVerification+faultManagement+"
              "lossMeasurement+delayMeasurement+throughput )" );
   EXPECT_EQ( readTlvs( all, 1 ), "BfdConfiguration( version: 1, flags: NB )\n"
                                  "PerformanceMonitoring( flags: DL )\n"
                                  "FaultManagementSignal( flags: ET, refresh timer: 20 )\n"
                                  "SourceMepId( node: 167772161, tunnel: 1, LSP: 2 )" );
   EXPECT_EQ(
      readTlvs( all, 2 ),
      "BfdLocalDiscriminator( 7 )\n"
      "BfdNegotiationTimers( tx interval: 10000, rx interval: 20000, echo tx interval: 0 )\n"
      "BfdAuthentication( type: 5, key: 1 )\n"
      "OamTrafficClass( 5 )\n"
      "PmLossMeasurement( timestamp format: 3, flags: T, measurement interval: 100, test "
      "interval: 10, threshold: 5 )\n"
      "PmDelayMeasurement( timestamp format: 3, flags: none, measurement interval: 1000, "
      "test interval: 10, threshold: 4294967295 )\n"
      "OamTrafficClass( 7 )" );
}

TEST( LspPingOamFunctionsTlv, isWrittenWithWhatStandsInIt ) {
   EXPECT_EQ( written( []( LspPingMessageWriter & writer ) {
                 auto const tlv = writer.open< LspPingOamFunctionsTlv >(
                    []( auto & view ) { view.functionFlagsIs( 0x80000000 ); } );
                 auto const bfd = writer.open< LspPingBfdConfigurationSubTlv >( []( auto & view ) {
                    view.versionIs( 1 );
                    view.bFlagIs( true );
                 } );
                 writer.add< LspPingBfdLocalDiscriminatorSubTlv >(
                    []( auto & view ) { view.discriminatorIs( 7 ); } );
              } ),
              "00 1b 00 14 80 00 00 00 00 64 00 0c 20 80 00 00 00 65 00 04 00 00 00 07" );
}

TEST( LspPingOamFunctionsTlv, tellsWhatIsWrongInIt ) {
   EXPECT_EQ( readTlvs( "00 1b 00 02 80 00 00 00" ),
              "MplsOamFunctions: length 2 is too short, needed 4" );
   EXPECT_EQ( readSubTlvs( "00 65 00 03 00 00 07 00" ),
              "BfdLocalDiscriminator: length 3 is too short, needed 4" );
   EXPECT_EQ( readSubTlvs( "00 65 00 08 00 00 00 07 00 00 00 00" ),
              "BfdLocalDiscriminator: length 8, expected 4" );
   EXPECT_EQ( readSubTlvs( "00 64 00 0c 00 00 00 00 00 65 00 08 00 00 00 07" ),
              "BfdLocalDiscriminator: length 8 needs 12 bytes, had 8\n"
              "BfdLocalDiscriminator: length 8, expected 4" );
}

TEST( LspPingBfdConfigurationSubTlv, readsEachBitWhereItLies ) {
   Laid< LspPingBfdConfigurationSubTlv > bfd( "00 64 00 04 f5 7f ff fe" );
   EXPECT_EQ( bfd->version(), 7 );
   EXPECT_TRUE( bfd->nFlag() );
   EXPECT_FALSE( bfd->sFlag() );
   EXPECT_TRUE( bfd->iFlag() );
   EXPECT_FALSE( bfd->gFlag() );
   EXPECT_TRUE( bfd->uFlag() );
   EXPECT_FALSE( bfd->bFlag() );
   EXPECT_EQ( bfd->reserved(), 0x7ffffeu );
   EXPECT_EQ( bfd->stringValue(), "BfdConfiguration( version: 7, flags: NIU )" );
   expectValidWith< LspPingBfdConfigurationSubTlv >( 100, 4, false );
   EXPECT_EQ( Laid< LspPingBfdConfigurationSubTlv >( U8{ 0xa5 } )->stringValue(),
              "Invalid BfdConfigurationSubTlv" );
}

// 0xa5a5a5a5 has the bits 0, 2, 5, 7, 8 and so on.
TEST( LspPingBfdConfigurationSubTlv, writesItsOwnBitsOnly ) {
   using View = LspPingBfdConfigurationSubTlv;
   expectSets< View >( &View::versionIs, "version", U8{ 2 }, "a5a5a5a5 45a5a5a5" );
   expectSets< View >( &View::nFlagIs, "nFlag", true, "a5a5a5a5 b5a5a5a5" );
   expectSets< View >( &View::sFlagIs, "sFlag", true, "a5a5a5a5 ada5a5a5" );
   expectSets< View >( &View::iFlagIs, "iFlag", false, "a5a5a5a5 a1a5a5a5" );
   expectSets< View >( &View::gFlagIs, "gFlag", true, "a5a5a5a5 a7a5a5a5" );
   expectSets< View >( &View::uFlagIs, "uFlag", false, "a5a5a5a5 a4a5a5a5" );
   expectSets< View >( &View::bFlagIs, "bFlag", false, "a5a5a5a5 a525a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U32{ 0x010203 }, "a5a5a5a5 a5810203" );
   // What does not fit stays out of the others' bits.
   EXPECT_EQ( hexAfter< View >( []( auto & view ) { view.versionIs( 0xff ); } ),
              "a5 a5 a5 a5 e5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( auto & view ) { view.reservedIs( 0xffffffff ); } ),
              "a5 a5 a5 a5 a5 ff ff ff" );
}

TEST( LspPingBfdLocalDiscriminatorSubTlv, isReadAndWritten ) {
   using View = LspPingBfdLocalDiscriminatorSubTlv;
   constexpr char const * hex = "00 65 00 04 ff ff ff fe";
   EXPECT_EQ( Laid< View >( hex )->discriminator(), 0xfffffffeu );
   EXPECT_EQ( readSubTlvs( hex ), "BfdLocalDiscriminator( 4294967294 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) { view.discriminatorIs( 0xfffffffe ); } ),
              hex );
   expectSets< View >( &View::discriminatorIs, "discriminator", U32{ 0x01020304 },
                       "a5a5a5a5 01020304" );
   expectValidWith< View >( 101, 4 );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid BfdLocalDiscriminatorSubTlv" );
}

TEST( LspPingBfdNegotiationTimersSubTlv, isReadAndWritten ) {
   using View = LspPingBfdNegotiationTimersSubTlv;
   constexpr char const * hex = "00 66 00 0c 00 00 00 01 00 00 00 02 ff ff ff ff";
   Laid< View > timers( hex );
   EXPECT_EQ( timers->minTxInterval(), 1u );
   EXPECT_EQ( timers->minRxInterval(), 2u );
   EXPECT_EQ( timers->requiredEchoTxInterval(), 0xffffffffu );
   EXPECT_EQ( readSubTlvs( hex ),
              "BfdNegotiationTimers( tx interval: 1, rx interval: 2, echo tx interval: "
              "4294967295 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) {
                 view.minTxIntervalIs( 1 );
                 view.minRxIntervalIs( 2 );
                 view.requiredEchoTxIntervalIs( 0xffffffff );
              } ),
              hex );
   expectSets< View >( &View::minTxIntervalIs, "minTxInterval", U32{ 0x01020304 },
                       "a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::minRxIntervalIs, "minRxInterval", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::requiredEchoTxIntervalIs, "requiredEchoTxInterval", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
   expectValidWith< View >( 102, 12 );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid BfdNegotiationTimersSubTlv" );
}

TEST( LspPingBfdAuthenticationSubTlv, isReadAndWritten ) {
   using View = LspPingBfdAuthenticationSubTlv;
   constexpr char const * hex = "00 67 00 04 05 c8 00 00";
   EXPECT_EQ( Laid< View >( hex )->authType(), 5 );
   EXPECT_EQ( Laid< View >( hex )->authKeyId(), 200 );
   EXPECT_EQ( readSubTlvs( hex ), "BfdAuthentication( type: 5, key: 200 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) {
                 view.authTypeIs( 5 );
                 view.authKeyIdIs( 200 );
              } ),
              hex );
   expectSets< View >( &View::authTypeIs, "authType", U8{ 1 }, "a5a5a5a5 01a5a5a5" );
   expectSets< View >( &View::authKeyIdIs, "authKeyId", U8{ 1 }, "a5a5a5a5 a501a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U16{ 0x0102 }, "a5a5a5a5 a5a50102" );
   expectValidWith< View >( 103, 4 );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid BfdAuthenticationSubTlv" );
}

TEST( LspPingOamTrafficClassSubTlv, isReadAndWritten ) {
   using View = LspPingOamTrafficClassSubTlv;
   constexpr char const * hex = "00 68 00 04 c0 00 00 00";
   EXPECT_EQ( Laid< View >( hex )->tc(), 6 );
   EXPECT_EQ( readSubTlvs( hex ), "OamTrafficClass( 6 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) { view.tcIs( 6 ); } ), hex );
   expectSets< View >( &View::tcIs, "tc", U8{ 2 }, "a5a5a5a5 45a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U32{ 0x01020304 }, "a5a5a5a5 a1020304" );
   expectValidWith< View >( 104, 4 );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid OamTrafficClassSubTlv" );
}

TEST( LspPingPerformanceMonitoringSubTlv, isReadAndWritten ) {
   using View = LspPingPerformanceMonitoringSubTlv;
   constexpr char const * hex = "00 c8 00 04 a8 00 00 00";
   Laid< View > pm( hex );
   EXPECT_TRUE( pm->dFlag() && pm->jFlag() && pm->kFlag() );
   EXPECT_FALSE( pm->lFlag() || pm->yFlag() || pm->cFlag() );
   EXPECT_EQ( pm->reserved(), 0u );
   EXPECT_EQ( readSubTlvs( hex ), "PerformanceMonitoring( flags: DJK )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) {
                 view.dFlagIs( true );
                 view.jFlagIs( true );
                 view.kFlagIs( true );
              } ),
              hex );
   expectSets< View >( &View::dFlagIs, "dFlag", false, "a5a5a5a5 25a5a5a5" );
   expectSets< View >( &View::lFlagIs, "lFlag", true, "a5a5a5a5 e5a5a5a5" );
   expectSets< View >( &View::jFlagIs, "jFlag", false, "a5a5a5a5 85a5a5a5" );
   expectSets< View >( &View::yFlagIs, "yFlag", true, "a5a5a5a5 b5a5a5a5" );
   expectSets< View >( &View::kFlagIs, "kFlag", true, "a5a5a5a5 ada5a5a5" );
   expectSets< View >( &View::cFlagIs, "cFlag", false, "a5a5a5a5 a1a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U32{ 0x01020304 }, "a5a5a5a5 a5020304" );
   expectValidWith< View >( 200, 4, false );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid PerformanceMonitoringSubTlv" );
}

template < class View >
void expectMeasurement( unsigned code, auto thresholdIs, std::string_view threshold ) {
   expectSets< View >( &View::otfIs, "otf", U8{ 2 },
                       "a5a5a5a5 45a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::tFlagIs, "tFlag", true,
                       "a5a5a5a5 b5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::bFlagIs, "bFlag", true,
                       "a5a5a5a5 ada5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U32{ 0x01020304 },
                       "a5a5a5a5 a1020304 a5a5a5a5 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::measurementIntervalIs, "measurementInterval", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::testIntervalIs, "testInterval", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( thresholdIs, threshold, U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304" );
   expectValidWith< View >( code, 16 );
}

TEST( LspPingPmLossMeasurementSubTlv, isReadAndWritten ) {
   using View = LspPingPmLossMeasurementSubTlv;
   constexpr char const * hex = "00 c9 00 10 78 00 00 00 00 00 00 64 00 00 00 0a ff ff ff ff";
   Laid< View > loss( hex );
   EXPECT_EQ( loss->otf(), 3 );
   EXPECT_TRUE( loss->tFlag() && loss->bFlag() );
   EXPECT_EQ( loss->lossThreshold(), 0xffffffffu );
   EXPECT_EQ( readSubTlvs( hex ),
              "PmLossMeasurement( timestamp format: 3, flags: TB, measurement interval: 100, test "
              "interval: 10, threshold: 4294967295 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) {
                 view.otfIs( 3 );
                 view.tFlagIs( true );
                 view.bFlagIs( true );
                 view.measurementIntervalIs( 100 );
                 view.testIntervalIs( 10 );
                 view.lossThresholdIs( 0xffffffff );
              } ),
              hex );
   expectMeasurement< View >( 201, &View::lossThresholdIs, "lossThreshold" );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid PmLossMeasurementSubTlv" );
}

TEST( LspPingPmDelayMeasurementSubTlv, isReadAndWritten ) {
   using View = LspPingPmDelayMeasurementSubTlv;
   constexpr char const * hex = "00 ca 00 10 20 00 00 00 00 00 00 01 00 00 00 02 00 00 00 03";
   EXPECT_EQ( Laid< View >( hex )->delayThreshold(), 3u );
   EXPECT_EQ( readSubTlvs( hex ),
              "PmDelayMeasurement( timestamp format: 1, flags: none, measurement interval: 1, test "
              "interval: 2, threshold: 3 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) {
                 view.otfIs( 1 );
                 view.measurementIntervalIs( 1 );
                 view.testIntervalIs( 2 );
                 view.delayThresholdIs( 3 );
              } ),
              hex );
   expectMeasurement< View >( 202, &View::delayThresholdIs, "delayThreshold" );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid PmDelayMeasurementSubTlv" );
}

TEST( LspPingFaultManagementSignalSubTlv, isReadAndWritten ) {
   using View = LspPingFaultManagementSignalSubTlv;
   constexpr char const * hex = "01 2c 00 04 c0 00 00 14";
   Laid< View > signal( hex );
   EXPECT_TRUE( signal->eFlag() && signal->sFlag() );
   EXPECT_FALSE( signal->tFlag() );
   EXPECT_EQ( signal->refreshTimer(), 20 );
   EXPECT_EQ( readSubTlvs( hex ), "FaultManagementSignal( flags: ES, refresh timer: 20 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) {
                 view.eFlagIs( true );
                 view.sFlagIs( true );
                 view.refreshTimerIs( 20 );
              } ),
              hex );
   expectSets< View >( &View::eFlagIs, "eFlag", false, "a5a5a5a5 25a5a5a5" );
   expectSets< View >( &View::sFlagIs, "sFlag", true, "a5a5a5a5 e5a5a5a5" );
   expectSets< View >( &View::tFlagIs, "tFlag", false, "a5a5a5a5 85a5a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U16{ 0xffff }, "a5a5a5a5 bfffe5a5" );
   expectSets< View >( &View::refreshTimerIs, "refreshTimer", U16{ 0x1fff }, "a5a5a5a5 a5a5bfff" );
   expectValidWith< View >( 300, 4, false );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid FaultManagementSignalSubTlv" );
}

TEST( LspPingSourceMepIdSubTlv, isReadAndWritten ) {
   using View = LspPingSourceMepIdSubTlv;
   constexpr char const * hex = "01 90 00 08 ff ff ff ff 00 01 80 02";
   EXPECT_EQ( Laid< View >( hex )->sourceNodeId(), 0xffffffffu );
   EXPECT_EQ( readSubTlvs( hex ), "SourceMepId( node: 4294967295, tunnel: 1, LSP: 32770 )" );
   EXPECT_EQ( writtenSubTlv< View >( []( auto & view ) {
                 view.sourceNodeIdIs( 0xffffffff );
                 view.tunnelIdIs( 1 );
                 view.lspIdIs( 32770 );
              } ),
              hex );
   expectSets< View >( &View::sourceNodeIdIs, "sourceNodeId", U32{ 0x01020304 },
                       "a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::tunnelIdIs, "tunnelId", U16{ 0x0102 }, "a5a5a5a5 a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::lspIdIs, "lspId", U16{ 0x0102 }, "a5a5a5a5 a5a5a5a5 a5a50102" );
   expectValidWith< View >( 400, 8 );
   EXPECT_EQ( Laid< View >( U8{ 0xa5 } )->stringValue(), "Invalid SourceMepIdSubTlv" );
}

} // namespace
