#include "examples/EchoMessages.h"

#include <cstdlib>
#include <iostream>

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;

// NTP seconds of 2026-01-31 12:00:00 UTC.
static constexpr U32 sentSeconds = 3978849600;

void check( Writer const & writer ) {
   if( !writer.error() )
      return;
   std::cerr << "a sample was not written, at " << writer.error().offset << ": "
             << lspPingWriteErrorText( writer.error().code ) << '\n';
   std::exit( 3 );
}

// What a request has, and a reply copies.
static void sentFields( LspPingHdr & header, U32 sequenceNumber ) {
   header.replyModeIs( numberOf( LspPingReplyMode::ReplyIpUdp ) );
   header.senderHandleIs( 0x1a2b3c4d );
   header.sequenceNumberIs( sequenceNumber );
   header.tsSentSecondsIs( sentSeconds );
   header.tsSentmSecondsIs( 0x40000000 );
}

void request( Writer & writer, U32 sequenceNumber ) {
   writer.header( [&]( LspPingHdr & header ) {
      header.globalFlagsIs( numberOf( LspPingHeaderFlags::vFlag ) );
      header.messageTypeIs( numberOf( LspPingMsgType::MplsEchoRequest ) );
      sentFields( header, sequenceNumber );
   } );
}

void reply( Writer & writer, U32 sequenceNumber, LspPingReturnCode code, U8 subcode ) {
   writer.header( [&]( LspPingHdr & header ) {
      header.messageTypeIs( numberOf( LspPingMsgType::MplsEchoReply ) );
      sentFields( header, sequenceNumber );
      header.returnCodeIs( static_cast< U8 >( code ) );
      header.returnSubcodeIs( subcode );
      header.tsRcvdSecondsIs( sentSeconds );
      header.tsRcvdmSecondsIs( 0x40418937 );
   } );
}

void ldpIpv4( Writer & writer, Velnet::IpAddr prefix, U8 bits ) {
   writer.add< LspPingLdpIpv4SubTlv >( [&]( auto & fec ) {
      fec.ipPrefixIs( prefix );
      fec.prefixLenIs( bits );
   } );
}

void ldpTarget( Writer & writer ) {
   auto const stack = writer.open( LspPingTlvType::TargetFecStack );
   ldpIpv4( writer, Velnet::IpAddr( 10, 1, 2, 0 ), 24 );
}

} // namespace Examples
