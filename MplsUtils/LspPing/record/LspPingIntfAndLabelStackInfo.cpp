#include "MplsUtils/LspPing/record/LspPingIntfAndLabelStackInfo.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingIntfAndLabelStackInfo::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIntfAndLabelStackInfo >();

LspPingIntfAndLabelStackInfo::LspPingIntfAndLabelStackInfo( Kiv::CharRange & in ) {
   parse( in );
}

bool LspPingIntfAndLabelStackInfo::operator==(
   LspPingIntfAndLabelStackInfo const & other ) const noexcept {
   return this == &other || ( intfId_ == other.intfId_ && addrType_ == other.addrType_ &&
                              valid_ == other.valid_ && addr_ == other.addr_ &&
                              intfAddr_ == other.intfAddr_ && labelStack_ == other.labelStack_ );
}

} // namespace LspPing
