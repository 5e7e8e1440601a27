#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/MplsUtils/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/MplsUtils/MplsOamStandard.h"
#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpGroupId.h"
#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpId.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenPrefix.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabel.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingPwInfo.h"
#include "MplsUtils/LspPing/types/LspPingRecord.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"
#include "MplsUtils/LspPing/types/LspPingTunnelTypes.h"

namespace LspPing {

/// One FEC of any kind, RFC 8029 section 3.2. `fecTlvType` tells which of the attributes count; the
/// others keep their defaults, of which not all are zero.
class LSPPING_EXPORT LspPingFecInfo : public LspPingRecord< LspPingFecInfo > {
 public:
   LspPingFecInfo() noexcept = default;
   LspPingFecInfo( LspPingTargetFecSubTlvType fecTlvType, Velnet::IpGenPrefix const & dstPrefix,
                   U64 rd, MplsUtils::MplsOamStandard oamStandard, U8 algorithm,
                   Velnet::MplsLabel mplsLabel, Rsvp::RsvpSpGroupId const & rsvpSpGroupId,
                   Rsvp::RsvpSpId const & rsvpSpId, Velnet::IpGenAddr const & rsvpSenderAddr,
                   LspPingPwInfo const & pwInfo, LspPingP2mpFecStackSubTlvType opqType,
                   U32 genericOpqVal, Velnet::IpGenAddr const & sourceAddrOpqVal,
                   Velnet::IpGenAddr const & groupAddrOpqVal, Velnet::IpGenAddr const & peerAddr,
                   U8 fecTlvLen, LspPingSrIgpProtocol igpProtocol ) noexcept;
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit LspPingFecInfo( Kiv::CharRange & in );

   LspPingTargetFecSubTlvType fecTlvType() const noexcept { return fecTlvType_; }
   void fecTlvTypeIs( LspPingTargetFecSubTlvType type ) noexcept { fecTlvType_ = type; }
   Velnet::IpGenPrefix const & dstPrefix() const noexcept { return dstPrefix_; }
   void dstPrefixIs( Velnet::IpGenPrefix const & prefix ) noexcept { dstPrefix_ = prefix; }
   /// Route distinguisher of a VPN FEC, RFC 4364 section 4.2, as one number.
   U64 rd() const noexcept { return rd_; }
   void rdIs( U64 rd ) noexcept { rd_ = rd; }
   MplsUtils::MplsOamStandard oamStandard() const noexcept { return oamStandard_; }
   void oamStandardIs( MplsUtils::MplsOamStandard standard ) noexcept { oamStandard_ = standard; }
   /// Of segment routing, RFC 8402 section 3.1.1.
   U8 algorithm() const noexcept { return algorithm_; }
   void algorithmIs( U8 algorithm ) noexcept { algorithm_ = algorithm; }
   /// Of a Nil FEC or an entropy label FEC.
   Velnet::MplsLabel mplsLabel() const noexcept { return mplsLabel_; }
   void mplsLabelIs( Velnet::MplsLabel label ) noexcept { mplsLabel_ = label; }
   Rsvp::RsvpSpGroupId const & rsvpSpGroupId() const noexcept { return rsvpSpGroupId_; }
   void rsvpSpGroupIdIs( Rsvp::RsvpSpGroupId const & id ) noexcept { rsvpSpGroupId_ = id; }
   Rsvp::RsvpSpId const & rsvpSpId() const noexcept { return rsvpSpId_; }
   void rsvpSpIdIs( Rsvp::RsvpSpId const & id ) noexcept { rsvpSpId_ = id; }
   Velnet::IpGenAddr const & rsvpSenderAddr() const noexcept { return rsvpSenderAddr_; }
   void rsvpSenderAddrIs( Velnet::IpGenAddr const & addr ) noexcept { rsvpSenderAddr_ = addr; }
   LspPingPwInfo const & pwInfo() const noexcept { return pwInfo_; }
   void pwInfoIs( LspPingPwInfo const & info ) noexcept { pwInfo_ = info; }
   /// Of a multipoint LDP FEC, RFC 6425 section 3.1.2, as are the values that follow.
   LspPingP2mpFecStackSubTlvType opqType() const noexcept { return opqType_; }
   void opqTypeIs( LspPingP2mpFecStackSubTlvType type ) noexcept { opqType_ = type; }
   U32 genericOpqVal() const noexcept { return genericOpqVal_; }
   void genericOpqValIs( U32 value ) noexcept { genericOpqVal_ = value; }
   Velnet::IpGenAddr const & sourceAddrOpqVal() const noexcept { return sourceAddrOpqVal_; }
   void sourceAddrOpqValIs( Velnet::IpGenAddr const & addr ) noexcept { sourceAddrOpqVal_ = addr; }
   Velnet::IpGenAddr const & groupAddrOpqVal() const noexcept { return groupAddrOpqVal_; }
   void groupAddrOpqValIs( Velnet::IpGenAddr const & addr ) noexcept { groupAddrOpqVal_ = addr; }
   /// The root of a multipoint FEC.
   Velnet::IpGenAddr const & peerAddr() const noexcept { return peerAddr_; }
   void peerAddrIs( Velnet::IpGenAddr const & addr ) noexcept { peerAddr_ = addr; }
   /// Bytes of the FEC's sub-TLV value.
   U8 fecTlvLen() const noexcept { return fecTlvLen_; }
   void fecTlvLenIs( U8 length ) noexcept { fecTlvLen_ = length; }
   LspPingSrIgpProtocol igpProtocol() const noexcept { return igpProtocol_; }
   void igpProtocolIs( LspPingSrIgpProtocol protocol ) noexcept { igpProtocol_ = protocol; }

   bool operator==( LspPingFecInfo const & other ) const noexcept;

   static consteval auto kivAttributes() {
      using Self = LspPingFecInfo;
      return Kiv::attributes(
         Kiv::stored< &Self::fecTlvType_ >( "fecTlvType" ),
         Kiv::stored< &Self::dstPrefix_ >( "dstPrefix" ), Kiv::stored< &Self::rd_ >( "rd" ),
         Kiv::stored< &Self::oamStandard_ >( "oamStandard" ),
         Kiv::stored< &Self::algorithm_ >( "algorithm" ),
         Kiv::stored< &Self::mplsLabel_ >( "mplsLabel" ),
         Kiv::stored< &Self::rsvpSpGroupId_ >( "rsvpSpGroupId" ),
         Kiv::stored< &Self::rsvpSpId_ >( "rsvpSpId" ),
         Kiv::stored< &Self::rsvpSenderAddr_ >( "rsvpSenderAddr" ),
         Kiv::stored< &Self::pwInfo_ >( "pwInfo" ), Kiv::stored< &Self::opqType_ >( "opqType" ),
         Kiv::stored< &Self::genericOpqVal_ >( "genericOpqVal" ),
         Kiv::stored< &Self::sourceAddrOpqVal_ >( "sourceAddrOpqVal" ),
         Kiv::stored< &Self::groupAddrOpqVal_ >( "groupAddrOpqVal" ),
         Kiv::stored< &Self::peerAddr_ >( "peerAddr" ),
         Kiv::stored< &Self::fecTlvLen_ >( "fecTlvLen" ),
         Kiv::stored< &Self::igpProtocol_ >( "igpProtocol" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   LspPingTargetFecSubTlvType fecTlvType_ = LspPingTargetFecSubTlvType::NotAssigned;
   Velnet::IpGenPrefix dstPrefix_;
   U64 rd_ = 0;
   MplsUtils::MplsOamStandard oamStandard_{};
   U8 algorithm_ = 0;
   Velnet::MplsLabel mplsLabel_; // none is 0x100000
   Rsvp::RsvpSpGroupId rsvpSpGroupId_;
   Rsvp::RsvpSpId rsvpSpId_;
   Velnet::IpGenAddr rsvpSenderAddr_;
   LspPingPwInfo pwInfo_;
   LspPingP2mpFecStackSubTlvType opqType_ = LspPingP2mpFecStackSubTlvType::GenericLsp;
   U32 genericOpqVal_ = 0;
   Velnet::IpGenAddr sourceAddrOpqVal_;
   Velnet::IpGenAddr groupAddrOpqVal_;
   Velnet::IpGenAddr peerAddr_;
   U8 fecTlvLen_ = 0;
   LspPingSrIgpProtocol igpProtocol_ = LspPingSrIgpProtocol::isis;
};

} // namespace LspPing
