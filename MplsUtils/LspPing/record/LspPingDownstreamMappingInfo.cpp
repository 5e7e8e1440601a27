#include "MplsUtils/LspPing/record/LspPingDownstreamMappingInfo.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDownstreamMappingInfo::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingInfo >();

LspPingDownstreamMappingInfo::LspPingDownstreamMappingInfo(
   U16 mtu, U8 addrType, U8 dsFlags, Velnet::IpGenAddr const & dsIpAddr,
   Velnet::IpGenAddr const & dsIntfAddr, U8 multipathType, U8 depthLimit,
   Velnet::IpGenAddr const & dsMultipathBaseAddr, LspPingMultipathBitset const & dsMultipathBitset,
   LspPingDownstreamLabelStack const & labelStack,
   LspPingFecStackChangeInfo const & fecStackChangeInfo, Velnet::IntfId intf,
   LspPingReturnCode retCode, U8 retSubcode, bool valid )
   : mtu_( mtu ),
     addrType_( addrType ),
     dsFlags_( dsFlags ),
     dsIpAddr_( dsIpAddr ),
     dsIntfAddr_( dsIntfAddr ),
     multipathType_( multipathType ),
     depthLimit_( depthLimit ),
     dsMultipathBaseAddr_( dsMultipathBaseAddr ),
     dsMultipathBitset_( dsMultipathBitset ),
     labelStack_( labelStack ),
     fecStackChangeInfo_( fecStackChangeInfo ),
     intf_( intf ),
     retCode_( retCode ),
     retSubcode_( retSubcode ),
     valid_( valid ) {}

LspPingDownstreamMappingInfo::LspPingDownstreamMappingInfo( Kiv::CharRange & in ) {
   parse( in );
}

void LspPingDownstreamMappingInfo::checkMultipathType() noexcept {
   if( dsMultipathBitset_.hasAnyBitsSet() )
      return;
   dsMultipathBitset_.sizeIs( 0 );
   multipathType_ = 0;
}

bool LspPingDownstreamMappingInfo::operator==( LspPingDownstreamMappingInfo const & other ) const {
   return this == &other ||
          ( mtu_ == other.mtu_ && addrType_ == other.addrType_ && dsFlags_ == other.dsFlags_ &&
            multipathType_ == other.multipathType_ && depthLimit_ == other.depthLimit_ &&
            retCode_ == other.retCode_ && retSubcode_ == other.retSubcode_ &&
            valid_ == other.valid_ && dsIpAddr_ == other.dsIpAddr_ &&
            dsIntfAddr_ == other.dsIntfAddr_ &&
            dsMultipathBaseAddr_ == other.dsMultipathBaseAddr_ &&
            dsMultipathBitset_ == other.dsMultipathBitset_ && labelStack_ == other.labelStack_ &&
            fecStackChangeInfo_ == other.fecStackChangeInfo_ && intf_ == other.intf_ );
}

} // namespace LspPing
