#pragma once

#include "examples/EchoMessages.h"
#include "examples/Encapsulation.h"
#include "examples/Samples.h"

#include "MplsUtils/LspPing/ext/LspPingExt.h"

#include <utility>

namespace Examples {

/// The frames of a sample file, in their order.
class Capture {
 public:
   /// As a request leaves its router: the destination is a loopback address, the transit routers
   /// see labels only.
   void requestIs( Bytes const & message ) {
      Bytes const packet =
         ipv4( sender, loopback, senderPort, echoPort, RouterAlert::yes, requestTtl, message );
      add( EtherType::mpls, {}, mpls( { { 100704, 2 } }, packet ) );
   }
   /// To the proxy itself, RFC 7555 section 4.1.
   void proxyRequestIs( Bytes const & message ) {
      add( EtherType::ipv4, {},
           ipv4( sender, responder, senderPort, echoPort, RouterAlert::no, replyTtl, message ) );
   }
   void replyIs( Bytes const & message ) {
      add( EtherType::ipv4, {},
           ipv4( responder, sender, echoPort, senderPort, RouterAlert::no, replyTtl, message ) );
   }
   /// As its type asks for.
   void messageIs( Bytes const & message ) {
      using namespace LspPing;
      // Each message has its header, whose alignment is 1.
      LspPingHdr const & header = *reinterpret_cast< LspPingHdr const * >( message.data() );
      if( header.messageType() == Kiv::numberOf( LspPingMsgType::MplsEchoRequest ) )
         requestIs( message );
      else if( header.messageType() == Kiv::numberOf( LspPingExtMsgType::MplsProxyPingRequest ) )
         proxyRequestIs( message );
      else
         replyIs( message );
   }
   void add( EtherType type, std::initializer_list< U16 > vlans, Bytes const & packet ) {
      Frame frame{ ethernet( type, vlans, packet ), 0 };
      frame.wireLength = frame.bytes.size();
      frames.push_back( std::move( frame ) );
   }

   std::vector< Frame > frames;
};

} // namespace Examples
