#pragma once

#include "MplsUtils/LspPing/ext/oam/LspPingOamBits.h"

// The sub-TLVs of performance monitoring, RFC 7759 sections 2.2.6 to 2.2.8; RFC 6374 says what
// their words mean.
namespace LspPing {

// Performance Monitoring, RFC 7759 section 2.2.6. The measurements follow and are not part of the
// view.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 200           |            length             |
// +-+-+-+-+-+-+-------------------+-------------------------------+
// |D|L|J|Y|K|C|                     reserved                      |
// +-+-+-+-+-+-+---------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingPerformanceMonitoringSubTlv
   : public Kiv::Typed< LspPingPerformanceMonitoringSubTlv, LspPingOamBitsSubTlv > {
 public:
   static constexpr auto element = LspPingElement::subTlv( Code::PerformanceMonitoring )
                                      .atLeast( 4 )
                                      .followedBy< LspPingOamFunctionSubTlvType >()
                                      .inWords( "Performance Monitoring" )
                                      .definedIn( "RFC 7759 section 2.2.6" );

   /// Delay is measured directly, not inferred.
   constexpr bool dFlag() const noexcept { return bits< 0 >() != 0; }
   constexpr void dFlagIs( bool isSet ) noexcept { bitsAre< 0 >( isSet ); }
   /// Loss is measured directly, not inferred.
   constexpr bool lFlag() const noexcept { return bits< 1 >() != 0; }
   constexpr void lFlagIs( bool isSet ) noexcept { bitsAre< 1 >( isSet ); }
   /// Jitter.
   constexpr bool jFlag() const noexcept { return bits< 2 >() != 0; }
   constexpr void jFlagIs( bool isSet ) noexcept { bitsAre< 2 >( isSet ); }
   /// Dyadic.
   constexpr bool yFlag() const noexcept { return bits< 3 >() != 0; }
   constexpr void yFlagIs( bool isSet ) noexcept { bitsAre< 3 >( isSet ); }
   /// Loopback.
   constexpr bool kFlag() const noexcept { return bits< 4 >() != 0; }
   constexpr void kFlagIs( bool isSet ) noexcept { bitsAre< 4 >( isSet ); }
   /// Combined: loss and delay in one message.
   constexpr bool cFlag() const noexcept { return bits< 5 >() != 0; }
   constexpr void cFlagIs( bool isSet ) noexcept { bitsAre< 5 >( isSet ); }
   constexpr U32 reserved() const noexcept { return bits< 6, 26 >(); }
   constexpr void reservedIs( U32 value ) noexcept { bitsAre< 6, 26 >( value ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "PerformanceMonitoring( flags: DL )", or "Invalid PerformanceMonitoringSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingPerformanceMonitoringSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::dFlag, &Self::dFlagIs >( "dFlag" ),
         Kiv::field< &Self::lFlag, &Self::lFlagIs >( "lFlag" ),
         Kiv::field< &Self::jFlag, &Self::jFlagIs >( "jFlag" ),
         Kiv::field< &Self::yFlag, &Self::yFlagIs >( "yFlag" ),
         Kiv::field< &Self::kFlag, &Self::kFlagIs >( "kFlag" ),
         Kiv::field< &Self::cFlag, &Self::cFlagIs >( "cFlag" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingPerformanceMonitoringSubTlv, 8 > );

// The shape of both measurements, RFC 7759 sections 2.2.7 and 2.2.8.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |        type = 201, 202        |          length = 16          |
// +-----+-+-+---------------------+-------------------------------+
// | otf |T|B|                      reserved                       |
// +-----+-+-+-----------------------------------------------------+
// |                      measurementInterval                      |
// |                         testInterval                          |
// |                           threshold                           |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingPmMeasurementSubTlv : public LspPingOamBitsSubTlv {
 public:
   /// Three bits: the format of the origin's timestamps, RFC 6374 section 3.4.
   constexpr U8 otf() const noexcept { return static_cast< U8 >( bits< 0, 3 >() ); }
   constexpr void otfIs( U8 format ) noexcept { bitsAre< 0, 3 >( format ); }
   /// Packets of one traffic class are measured.
   constexpr bool tFlag() const noexcept { return bits< 3 >() != 0; }
   constexpr void tFlagIs( bool isSet ) noexcept { bitsAre< 3 >( isSet ); }
   /// The counters count bytes, not packets.
   constexpr bool bFlag() const noexcept { return bits< 4 >() != 0; }
   constexpr void bFlagIs( bool isSet ) noexcept { bitsAre< 4 >( isSet ); }
   constexpr U32 reserved() const noexcept { return bits< 5, 27 >(); }
   constexpr void reservedIs( U32 value ) noexcept { bitsAre< 5, 27 >( value ); }
   /// Between queries, in milliseconds.
   constexpr U32 measurementInterval() const noexcept { return measurementInterval_.value(); }
   constexpr void measurementIntervalIs( U32 time ) noexcept {
      measurementInterval_.valueIs( time );
   }
   /// Between test messages, in milliseconds.
   constexpr U32 testInterval() const noexcept { return testInterval_.value(); }
   constexpr void testIntervalIs( U32 time ) noexcept { testInterval_.valueIs( time ); }

 protected:
   constexpr U32 threshold() const noexcept { return threshold_.value(); }
   constexpr void thresholdIs( U32 value ) noexcept { threshold_.valueIs( value ); }

   template < class View >
   static consteval auto attributesOf( auto threshold ) {
      using Self = LspPingPmMeasurementSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::otf, &Self::otfIs >( "otf" ),
         Kiv::field< &Self::tFlag, &Self::tFlagIs >( "tFlag" ),
         Kiv::field< &Self::bFlag, &Self::bFlagIs >( "bFlag" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::field< &Self::measurementInterval, &Self::measurementIntervalIs >(
            "measurementInterval" ),
         Kiv::field< &Self::testInterval, &Self::testIntervalIs >( "testInterval" ), threshold,
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }
   void appendFields( Orlo::StringBuilder & text ) const;

 private:
   Velnet::NetU32 measurementInterval_;
   Velnet::NetU32 testInterval_;
   Velnet::NetU32 threshold_;
};

// PM Loss Measurement, RFC 7759 section 2.2.7.
class LSPPING_EXT_EXPORT LspPingPmLossMeasurementSubTlv
   : public Kiv::Typed< LspPingPmLossMeasurementSubTlv, LspPingPmMeasurementSubTlv > {
 public:
   static constexpr auto element = LspPingElement::subTlv( Code::PmLossMeasurement )
                                      .length( 16 )
                                      .inWords( "PM Loss Measurement" )
                                      .definedIn( "RFC 7759 section 2.2.7" );

   /// Of packets lost in a measurement.
   constexpr U32 lossThreshold() const noexcept { return threshold(); }
   constexpr void lossThresholdIs( U32 packets ) noexcept { thresholdIs( packets ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "PmLossMeasurement( timestamp format: 3, flags: T, measurement interval: 100, test interval:
   /// 10, threshold: 5 )", or "Invalid PmLossMeasurementSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingPmLossMeasurementSubTlv;
      return attributesOf< Self >(
         Kiv::field< &Self::lossThreshold, &Self::lossThresholdIs >( "lossThreshold" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingPmLossMeasurementSubTlv, 20 > );

// PM Delay Measurement, RFC 7759 section 2.2.8.
class LSPPING_EXT_EXPORT LspPingPmDelayMeasurementSubTlv
   : public Kiv::Typed< LspPingPmDelayMeasurementSubTlv, LspPingPmMeasurementSubTlv > {
 public:
   static constexpr auto element = LspPingElement::subTlv( Code::PmDelayMeasurement )
                                      .length( 16 )
                                      .inWords( "PM Delay Measurement" )
                                      .definedIn( "RFC 7759 section 2.2.8" );

   /// There and back, in milliseconds.
   constexpr U32 delayThreshold() const noexcept { return threshold(); }
   constexpr void delayThresholdIs( U32 time ) noexcept { thresholdIs( time ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "PmDelayMeasurement( timestamp format: 3, flags: T, measurement interval: 1000, test
   /// interval: 10, threshold: 5 )", or "Invalid PmDelayMeasurementSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingPmDelayMeasurementSubTlv;
      return attributesOf< Self >(
         Kiv::field< &Self::delayThreshold, &Self::delayThresholdIs >( "delayThreshold" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingPmDelayMeasurementSubTlv, 20 > );

} // namespace LspPing
