#include "MplsUtils/LspPing/tlv/LspPingReplyTosTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingReplyTosTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingReplyTosTlv >();

Orlo::String LspPingReplyTosTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingReplyTosTlv" );
   return Kiv::_fmt( "ReplyTosTlv( Type Of Service: %d )", tos() );
}

} // namespace LspPing
