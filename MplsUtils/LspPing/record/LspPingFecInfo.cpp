#include "MplsUtils/LspPing/record/LspPingFecInfo.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingFecInfo::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFecInfo >();

LspPingFecInfo::LspPingFecInfo(
   LspPingTargetFecSubTlvType fecTlvType, Velnet::IpGenPrefix const & dstPrefix, U64 rd,
   MplsUtils::MplsOamStandard oamStandard, U8 algorithm, Velnet::MplsLabel mplsLabel,
   Rsvp::RsvpSpGroupId const & rsvpSpGroupId, Rsvp::RsvpSpId const & rsvpSpId,
   Velnet::IpGenAddr const & rsvpSenderAddr, LspPingPwInfo const & pwInfo,
   LspPingP2mpFecStackSubTlvType opqType, U32 genericOpqVal,
   Velnet::IpGenAddr const & sourceAddrOpqVal, Velnet::IpGenAddr const & groupAddrOpqVal,
   Velnet::IpGenAddr const & peerAddr, U8 fecTlvLen, LspPingSrIgpProtocol igpProtocol ) noexcept
   : fecTlvType_( fecTlvType ),
     dstPrefix_( dstPrefix ),
     rd_( rd ),
     oamStandard_( oamStandard ),
     algorithm_( algorithm ),
     mplsLabel_( mplsLabel ),
     rsvpSpGroupId_( rsvpSpGroupId ),
     rsvpSpId_( rsvpSpId ),
     rsvpSenderAddr_( rsvpSenderAddr ),
     pwInfo_( pwInfo ),
     opqType_( opqType ),
     genericOpqVal_( genericOpqVal ),
     sourceAddrOpqVal_( sourceAddrOpqVal ),
     groupAddrOpqVal_( groupAddrOpqVal ),
     peerAddr_( peerAddr ),
     fecTlvLen_( fecTlvLen ),
     igpProtocol_( igpProtocol ) {}

LspPingFecInfo::LspPingFecInfo( Kiv::CharRange & in ) {
   parse( in );
}

// What is cheap to compare comes first.
bool LspPingFecInfo::operator==( LspPingFecInfo const & other ) const noexcept {
   return this == &other ||
          ( fecTlvType_ == other.fecTlvType_ && rd_ == other.rd_ &&
            oamStandard_ == other.oamStandard_ && algorithm_ == other.algorithm_ &&
            opqType_ == other.opqType_ && genericOpqVal_ == other.genericOpqVal_ &&
            fecTlvLen_ == other.fecTlvLen_ && igpProtocol_ == other.igpProtocol_ &&
            dstPrefix_ == other.dstPrefix_ && mplsLabel_ == other.mplsLabel_ &&
            rsvpSpGroupId_ == other.rsvpSpGroupId_ && rsvpSpId_ == other.rsvpSpId_ &&
            rsvpSenderAddr_ == other.rsvpSenderAddr_ && pwInfo_ == other.pwInfo_ &&
            sourceAddrOpqVal_ == other.sourceAddrOpqVal_ &&
            groupAddrOpqVal_ == other.groupAddrOpqVal_ && peerAddr_ == other.peerAddr_ );
}

} // namespace LspPing
