#include "examples/EchoMessages.h"

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;

// NTP seconds of 2026-01-31 12:00:00 UTC.
static constexpr U32 sentSeconds = 3978849600;

MessageBuilder request( U32 sequenceNumber ) {
   MessageBuilder message;
   message.view< LspPingHdr >( [&]( LspPingHdr & header ) {
      header.versionIs( 1 );
      header.globalFlagsIs( numberOf( LspPingHeaderFlags::vFlag ) );
      header.messageTypeIs( numberOf( LspPingMsgType::MplsEchoRequest ) );
      header.replyModeIs( numberOf( LspPingReplyMode::ReplyIpUdp ) );
      header.senderHandleIs( 0x1a2b3c4d );
      header.sequenceNumberIs( sequenceNumber );
      header.tsSentSecondsIs( sentSeconds );
      header.tsSentmSecondsIs( 0x40000000 );
   } );
   return message;
}

MessageBuilder reply( U32 sequenceNumber, LspPingReturnCode code, U8 subcode ) {
   MessageBuilder message = request( sequenceNumber );
   auto & header = message.at< LspPingHdr >( 0 );
   header.globalFlagsIs( 0 );
   header.messageTypeIs( numberOf( LspPingMsgType::MplsEchoReply ) );
   header.returnCodeIs( static_cast< U8 >( code ) );
   header.returnSubcodeIs( subcode );
   header.tsRcvdSecondsIs( sentSeconds );
   header.tsRcvdmSecondsIs( 0x40418937 );
   return message;
}

} // namespace Examples
