#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

#include <array>
#include <charconv>
#include <iostream>
#include <string_view>

// What an agent does with a message that came: reads it, keeps what it says as
// records, and prints the records. docs/agent.md explains it.
//    agentRecords          takes a reply that it builds with the library's writer
//    agentRecords HEX      takes that message

namespace {

using namespace LspPing;

/// A transit router's reply: one next hop for some addresses, reached with one label.
std::vector< U8 > builtReply() {
   std::vector< U8 > reply;
   LspPingMessageWriter writer( reply );
   writer.header( []( LspPingHdr & header ) {
      header.messageTypeIs( Kiv::numberOf( LspPingMsgType::MplsEchoReply ) );
      header.replyModeIs( Kiv::numberOf( LspPingReplyMode::ReplyIpUdp ) );
      header.returnCodeIs( Kiv::numberOf( LspPingReturnCode::labelSwitchedAtStackDep ) );
      header.returnSubcodeIs( 1 );
      header.senderHandleIs( 0x1234 );
      header.sequenceNumberIs( 1 );
   } );
   {
      auto const stack = writer.open( LspPingTlvType::TargetFecStack );
      writer.add< LspPingLdpIpv4SubTlv >( []( auto & fec ) {
         fec.ipPrefixIs( Velnet::IpAddr( 10, 1, 2, 0 ) );
         fec.prefixLenIs( 24 );
      } );
   }
   {
      auto const mapping = writer.open< LspPingDdmapTlv >( []( auto & tlv ) {
         tlv.mtuIs( 1500 );
         tlv.dsIpAddrIs( Velnet::IpAddr( 10, 0, 0, 2 ) );
         tlv.dsIntfAddrIs( Velnet::IpAddr( 10, 0, 0, 1 ) );
         tlv.retCodeIs( Kiv::numberOf( LspPingReturnCode::labelSwitchedAtStackDep ) );
         tlv.retSubcodeIs( 1 );
      } );
      writer.open< LspPingMultipathSubTlv >().multipathSet(
         Velnet::IpAddr( 127, 0, 0, 0 ), std::array< U8, 4 >{ 0xff, 0xff, 0, 0 } );
      // At the bottom of the stack, from LDP.
      writer.open( LspPingDDMappingSubTlvType::LabelStack ).label( 100704, 0, true, 3 );
   }
   return reply;
}

std::vector< U8 > bytesOf( std::string_view hex ) {
   std::vector< U8 > bytes;
   for( ; hex.size() >= 2; hex.remove_prefix( 2 ) ) {
      U8 byte = 0;
      char const * const end = hex.data() + 2;
      if( std::from_chars( hex.data(), end, byte, 16 ).ptr != end )
         return {};
      bytes.push_back( byte );
   }
   return hex.empty() ? bytes : std::vector< U8 >{};
}

template < class Record >
void print( std::optional< Record > const & record ) {
   if( record )
      std::cout << *record << '\n';
}

} // namespace

int main( int count, char ** arguments ) {
   std::vector< U8 > const message = count > 1 ? bytesOf( arguments[1] ) : builtReply();
   LspPingMessageReader reader;
   LspPingMessage const & read = reader.read( message );
   if( read.header() == nullptr ) {
      std::cerr << "agentRecords: no message of 32 bytes or more in hexadecimal\n";
      return 1;
   }
   std::cout << read.header()->stringValue() << '\n';

   LspPingMessageRecords const records( read );
   // What a record has no place for is told, not lost in silence.
   for( LspPingLeftOut const & lost : records.leftOut )
      std::cout << "not in the records: " << lost.what << '\n';
   print( records.fecStack );
   print( records.downstreamMappings );
   print( records.intfAndLabelStack );
   print( records.pad );
   if( !records.downstreamMappings )
      return 0;
   // A record answers what a view cannot: after the message has gone.
   auto next = records.downstreamMappings->lspPingDownstreamMappingInfoIterator();
   for( ; next.nonnull(); next.advance() ) {
      LspPingDownstreamMappingInfo const & mapping = next.value();
      // A stack of 256 labels without an end would keep valid() for ever.
      LspPingDownstreamLabelStack const & labels = mapping.labelStack();
      bool const isStack = labels.validEnds() && labels.valid();
      std::cout << "next hop " << mapping.dsIpAddr().stringValue() << ", labels: " << labels.size()
                << ( isStack ? "" : " (no stack)" ) << ", any address: "
                << ( mapping.dsMultipathBitset().hasAnyBitsSet() ? "yes" : "no" ) << '\n';
   }
   return 0;
}
