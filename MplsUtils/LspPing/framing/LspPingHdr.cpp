#include "MplsUtils/LspPing/framing/LspPingHdr.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingHdr::memAllocationTracker_ = Kiv::trackerOf< LspPingHdr >();

Orlo::String LspPingHdr::stringValue() const {
   return valid() ? fieldsText() : Orlo::stringOf( "Invalid LspPingHdr" );
}

Orlo::String LspPingHdr::fieldsText() const {
   // "tsSenSeconds" is the label that log readers know.
   return Kiv::_fmt( "LspPingHdr:\tver(%d),\tflag(%d),\tmsgType(%d),\treplyMode(%d),"
                     "\treturnCode(%d),\treturnSubcode(%d),\tsenderHandle(0x%x),\tseqNum(0x%x),"
                     "\ttsSenSeconds(0x%x),\ttsSentmSeconds(0x%x),\ttsRcvdSeconds(0x%x),"
                     "\ttsRcvdmSeconds(0x%x)",
                     version(), globalFlags(), messageType(), replyMode(), returnCode(),
                     returnSubcode(), senderHandle(), sequenceNumber(), tsSentSeconds(),
                     tsSentmSeconds(), tsRcvdSeconds(), tsRcvdmSeconds() );
}

} // namespace LspPing
