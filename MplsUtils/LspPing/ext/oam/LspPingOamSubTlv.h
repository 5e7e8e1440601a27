#pragma once

#include "MplsUtils/LspPing/ext/oam/LspPingOamBits.h"

// The sub-TLVs of the MPLS OAM Functions TLV, RFC 7759 section 2.2, but for those of performance
// monitoring. Some hold others of them, which are not part of the view.
namespace LspPing {

// BFD Configuration, RFC 7759 section 2.2.1.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 100           |            length             |
// +-----+-+-+-+-+-+-+-------------+-------------------------------+
// |vers.|N|S|I|G|U|B|                  reserved                   |
// +-----+-+-+-+-+-+-+---------------------------------------------+
class LSPPING_EXT_EXPORT LspPingBfdConfigurationSubTlv
   : public Kiv::Typed< LspPingBfdConfigurationSubTlv, LspPingOamBitsSubTlv > {
 public:
   static constexpr auto element = LspPingElement::subTlv( Code::BfdConfiguration )
                                      .atLeast( 4 )
                                      .followedBy< LspPingOamFunctionSubTlvType >()
                                      .inWords( "BFD Configuration" )
                                      .definedIn( "RFC 7759 section 2.2.1" );

   /// Of BFD, three bits.
   constexpr U8 version() const noexcept { return static_cast< U8 >( bits< 0, 3 >() ); }
   constexpr void versionIs( U8 version ) noexcept { bitsAre< 0, 3 >( version ); }
   /// The ends negotiate their timers by BFD itself.
   constexpr bool nFlag() const noexcept { return bits< 3 >() != 0; }
   constexpr void nFlagIs( bool isSet ) noexcept { bitsAre< 3 >( isSet ); }
   /// The same timing in both directions.
   constexpr bool sFlag() const noexcept { return bits< 4 >() != 0; }
   constexpr void sFlagIs( bool isSet ) noexcept { bitsAre< 4 >( isSet ); }
   /// Integrity: with authentication.
   constexpr bool iFlag() const noexcept { return bits< 5 >() != 0; }
   constexpr void iFlagIs( bool isSet ) noexcept { bitsAre< 5 >( isSet ); }
   /// The sender can put BFD into the associated channel; that is preferred to UDP.
   constexpr bool gFlag() const noexcept { return bits< 6 >() != 0; }
   constexpr void gFlagIs( bool isSet ) noexcept { bitsAre< 6 >( isSet ); }
   /// The sender can put BFD into UDP.
   constexpr bool uFlag() const noexcept { return bits< 7 >() != 0; }
   constexpr void uFlagIs( bool isSet ) noexcept { bitsAre< 7 >( isSet ); }
   /// Bidirectional.
   constexpr bool bFlag() const noexcept { return bits< 8 >() != 0; }
   constexpr void bFlagIs( bool isSet ) noexcept { bitsAre< 8 >( isSet ); }
   constexpr U32 reserved() const noexcept { return bits< 9, 23 >(); }
   constexpr void reservedIs( U32 value ) noexcept { bitsAre< 9, 23 >( value ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "BfdConfiguration( version: 1, flags: NB )", or "Invalid BfdConfigurationSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingBfdConfigurationSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::version, &Self::versionIs >( "version" ),
         Kiv::field< &Self::nFlag, &Self::nFlagIs >( "nFlag" ),
         Kiv::field< &Self::sFlag, &Self::sFlagIs >( "sFlag" ),
         Kiv::field< &Self::iFlag, &Self::iFlagIs >( "iFlag" ),
         Kiv::field< &Self::gFlag, &Self::gFlagIs >( "gFlag" ),
         Kiv::field< &Self::uFlag, &Self::uFlagIs >( "uFlag" ),
         Kiv::field< &Self::bFlag, &Self::bFlagIs >( "bFlag" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingBfdConfigurationSubTlv, 8 > );

// BFD Local Discriminator, RFC 7759 section 2.2.2.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 101           |          length = 4           |
// +-------------------------------+-------------------------------+
// |                         discriminator                         |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingBfdLocalDiscriminatorSubTlv
   : public Kiv::Typed< LspPingBfdLocalDiscriminatorSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::subTlv( LspPingOamFunctionSubTlvType::BfdLocalDiscriminator )
         .length( 4 )
         .inWords( "BFD Local Discriminator" )
         .definedIn( "RFC 7759 section 2.2.2" );

   /// Of the sender's session; never 0.
   constexpr U32 discriminator() const noexcept { return discriminator_.value(); }
   constexpr void discriminatorIs( U32 number ) noexcept { discriminator_.valueIs( number ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "BfdLocalDiscriminator( 7 )", or "Invalid BfdLocalDiscriminatorSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingBfdLocalDiscriminatorSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::discriminator, &Self::discriminatorIs >( "discriminator" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 discriminator_;
};
static_assert( Kiv::isWireView< LspPingBfdLocalDiscriminatorSubTlv, 8 > );

// BFD Negotiation Timer Parameters, RFC 7759 section 2.2.3, all in microseconds.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 102           |          length = 12          |
// +-------------------------------+-------------------------------+
// |                         minTxInterval                         |
// |                         minRxInterval                         |
// |                     requiredEchoTxInterval                    |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingBfdNegotiationTimersSubTlv
   : public Kiv::Typed< LspPingBfdNegotiationTimersSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::subTlv( LspPingOamFunctionSubTlvType::BfdNegotiationTimers )
         .length( 12 )
         .inWords( "BFD Negotiation Timer Parameters" )
         .definedIn( "RFC 7759 section 2.2.3" );

   /// With symmetric timing, of both directions.
   constexpr U32 minTxInterval() const noexcept { return minTxInterval_.value(); }
   constexpr void minTxIntervalIs( U32 time ) noexcept { minTxInterval_.valueIs( time ); }
   constexpr U32 minRxInterval() const noexcept { return minRxInterval_.value(); }
   constexpr void minRxIntervalIs( U32 time ) noexcept { minRxInterval_.valueIs( time ); }
   /// 0 where the sender takes no BFD Echo.
   constexpr U32 requiredEchoTxInterval() const noexcept { return requiredEchoTxInterval_.value(); }
   constexpr void requiredEchoTxIntervalIs( U32 time ) noexcept {
      requiredEchoTxInterval_.valueIs( time );
   }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "BfdNegotiationTimers( tx interval: 10000, rx interval: 10000, echo tx interval: 0 )", or
   /// "Invalid BfdNegotiationTimersSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingBfdNegotiationTimersSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::minTxInterval, &Self::minTxIntervalIs >( "minTxInterval" ),
         Kiv::field< &Self::minRxInterval, &Self::minRxIntervalIs >( "minRxInterval" ),
         Kiv::field< &Self::requiredEchoTxInterval, &Self::requiredEchoTxIntervalIs >(
            "requiredEchoTxInterval" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 minTxInterval_;
   Velnet::NetU32 minRxInterval_;
   Velnet::NetU32 requiredEchoTxInterval_;
};
static_assert( Kiv::isWireView< LspPingBfdNegotiationTimersSubTlv, 16 > );

// BFD Authentication, RFC 7759 section 2.2.4.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 103           |          length = 4           |
// +---------------+---------------+-------------------------------+
// |   authType    |   authKeyId   |           reserved            |
// +---------------+---------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingBfdAuthenticationSubTlv
   : public Kiv::Typed< LspPingBfdAuthenticationSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::subTlv( LspPingOamFunctionSubTlvType::BfdAuthentication )
         .length( 4 )
         .inWords( "BFD Authentication" )
         .definedIn( "RFC 7759 section 2.2.4" );

   /// RFC 5880 section 4.1.
   constexpr U8 authType() const noexcept { return authType_; }
   constexpr void authTypeIs( U8 type ) noexcept { authType_ = type; }
   constexpr U8 authKeyId() const noexcept { return authKeyId_; }
   constexpr void authKeyIdIs( U8 id ) noexcept { authKeyId_ = id; }
   constexpr U16 reserved() const noexcept { return reserved_.value(); }
   constexpr void reservedIs( U16 value ) noexcept { reserved_.valueIs( value ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "BfdAuthentication( type: 5, key: 1 )", or "Invalid BfdAuthenticationSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingBfdAuthenticationSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::authType, &Self::authTypeIs >( "authType" ),
         Kiv::field< &Self::authKeyId, &Self::authKeyIdIs >( "authKeyId" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 authType_ = 0;
   U8 authKeyId_ = 0;
   Velnet::NetU16 reserved_;
};
static_assert( Kiv::isWireView< LspPingBfdAuthenticationSubTlv, 8 > );

// Traffic Class, RFC 7759 section 2.2.5: of BFD, or of fault management.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 104           |          length = 4           |
// +-----+-------------------------+-------------------------------+
// | tc  |                        reserved                         |
// +-----+---------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingOamTrafficClassSubTlv
   : public Kiv::Typed< LspPingOamTrafficClassSubTlv, LspPingOamBitsSubTlv > {
 public:
   static constexpr auto element = LspPingElement::subTlv( Code::TrafficClass )
                                      .length( 4 )
                                      .inWords( "Traffic Class" )
                                      .definedIn( "RFC 7759 section 2.2.5" );

   /// Three bits, of the label stack entry that such messages are sent with.
   constexpr U8 tc() const noexcept { return static_cast< U8 >( bits< 0, 3 >() ); }
   constexpr void tcIs( U8 tc ) noexcept { bitsAre< 0, 3 >( tc ); }
   constexpr U32 reserved() const noexcept { return bits< 3, 29 >(); }
   constexpr void reservedIs( U32 value ) noexcept { bitsAre< 3, 29 >( value ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "OamTrafficClass( 5 )", or "Invalid OamTrafficClassSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingOamTrafficClassSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::tc, &Self::tcIs >( "tc" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOamTrafficClassSubTlv, 8 > );

// Fault Management Signal, RFC 7759 section 2.2.9, as it draws the bits.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 300           |            length             |
// +-+-+-+-------------------------+-----+-------------------------+
// |E|S|T|           reserved            |      refreshTimer       |
// +-+-+-+-------------------------------+-------------------------+
class LSPPING_EXT_EXPORT LspPingFaultManagementSignalSubTlv
   : public Kiv::Typed< LspPingFaultManagementSignalSubTlv, LspPingOamBitsSubTlv > {
 public:
   static constexpr auto element = LspPingElement::subTlv( Code::FaultManagementSignal )
                                      .atLeast( 4 )
                                      .followedBy< LspPingOamFunctionSubTlvType >()
                                      .inWords( "Fault Management Signal" )
                                      .definedIn( "RFC 7759 section 2.2.9" );

   /// Alarm indication and lock report signals, RFC 6427, are enabled.
   constexpr bool eFlag() const noexcept { return bits< 0 >() != 0; }
   constexpr void eFlagIs( bool isSet ) noexcept { bitsAre< 0 >( isSet ); }
   /// The servers' end points are to send them, too.
   constexpr bool sFlag() const noexcept { return bits< 1 >() != 0; }
   constexpr void sFlagIs( bool isSet ) noexcept { bitsAre< 1 >( isSet ); }
   /// The refresh timer is to be set.
   constexpr bool tFlag() const noexcept { return bits< 2 >() != 0; }
   constexpr void tFlagIs( bool isSet ) noexcept { bitsAre< 2 >( isSet ); }
   constexpr U16 reserved() const noexcept { return static_cast< U16 >( bits< 3, 16 >() ); }
   constexpr void reservedIs( U16 value ) noexcept { bitsAre< 3, 16 >( value ); }
   /// In seconds, 13 bits.
   constexpr U16 refreshTimer() const noexcept { return static_cast< U16 >( bits< 19, 13 >() ); }
   constexpr void refreshTimerIs( U16 time ) noexcept { bitsAre< 19, 13 >( time ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "FaultManagementSignal( flags: ET, refresh timer: 20 )", or
   /// "Invalid FaultManagementSignalSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingFaultManagementSignalSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::eFlag, &Self::eFlagIs >( "eFlag" ),
         Kiv::field< &Self::sFlag, &Self::sFlagIs >( "sFlag" ),
         Kiv::field< &Self::tFlag, &Self::tFlagIs >( "tFlag" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::field< &Self::refreshTimer, &Self::refreshTimerIs >( "refreshTimer" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingFaultManagementSignalSubTlv, 8 > );

// Source MEP-ID, RFC 7759 section 2.2.10.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |          type = 400           |          length = 8           |
// +-------------------------------+-------------------------------+
// |                         sourceNodeId                          |
// +-------------------------------+-------------------------------+
// |           tunnelId            |             lspId             |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingSourceMepIdSubTlv
   : public Kiv::Typed< LspPingSourceMepIdSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element =
      LspPingElement::subTlv( LspPingOamFunctionSubTlvType::SourceMepId )
         .length( 8 )
         .inWords( "Source MEP-ID" )
         .definedIn( "RFC 7759 section 2.2.10" );

   /// Identifiers of RFC 6370.
   constexpr U32 sourceNodeId() const noexcept { return sourceNodeId_.value(); }
   constexpr void sourceNodeIdIs( U32 id ) noexcept { sourceNodeId_.valueIs( id ); }
   constexpr U16 tunnelId() const noexcept { return tunnelId_.value(); }
   constexpr void tunnelIdIs( U16 id ) noexcept { tunnelId_.valueIs( id ); }
   constexpr U16 lspId() const noexcept { return lspId_.value(); }
   constexpr void lspIdIs( U16 id ) noexcept { lspId_.valueIs( id ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "SourceMepId( node: 167772161, tunnel: 1, LSP: 2 )", or "Invalid SourceMepIdSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingSourceMepIdSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::sourceNodeId, &Self::sourceNodeIdIs >( "sourceNodeId" ),
         Kiv::field< &Self::tunnelId, &Self::tunnelIdIs >( "tunnelId" ),
         Kiv::field< &Self::lspId, &Self::lspIdIs >( "lspId" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 sourceNodeId_;
   Velnet::NetU16 tunnelId_;
   Velnet::NetU16 lspId_;
};
static_assert( Kiv::isWireView< LspPingSourceMepIdSubTlv, 12 > );

} // namespace LspPing
