#include "MplsUtils/LspPing/types/LspPingPwInfo.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingPwInfo::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPwInfo >();

LspPingPwInfo::LspPingPwInfo( Kiv::CharRange & in ) {
   parse( in );
}

bool LspPingPwInfo::operator==( LspPingPwInfo const & other ) const noexcept {
   return this == &other ||
          ( pwId_ == other.pwId_ && pwType_ == other.pwType_ &&
            controlWordPresent_ == other.controlWordPresent_ &&
            activeCcType_ == other.activeCcType_ && senderAddr_ == other.senderAddr_ &&
            receiverAddr_ == other.receiverAddr_ && pwGenId_ == other.pwGenId_ );
}

} // namespace LspPing
