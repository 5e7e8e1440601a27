#include "examples/MessageBuilder.h"

#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"

#include <charconv>
#include <iostream>
#include <string_view>

// What an agent does with a message that came: reads it, keeps what it says as
// records, and prints the records. docs/agent.md explains it.
//    agentRecords          takes a reply that it builds with the library's setters
//    agentRecords HEX      takes that message

namespace {

using namespace LspPing;

/// A transit router's reply: one next hop for some addresses, reached with one label.
Examples::Bytes builtReply() {
   Examples::MessageBuilder reply;
   reply.view< LspPingHdr >( []( LspPingHdr & header ) {
      header.versionIs( 1 );
      header.messageTypeIs( static_cast< U8 >( LspPingMsgType::MplsEchoReply ) );
      header.replyModeIs( 2 );
      header.returnCodeIs( static_cast< U8 >( LspPingReturnCode::labelSwitchedAtStackDep ) );
      header.returnSubcodeIs( 1 );
      header.senderHandleIs( 0x1234 );
      header.sequenceNumberIs( 1 );
   } );
   reply.tlv(
      LspPingTlvType::TargetFecStack, [&] { reply.ldpIpv4( Velnet::IpAddr( 10, 1, 2, 0 ), 24 ); } );
   reply.detailedMapping< LspPingDdmapTlv >(
      []( LspPingDdmapTlv & mapping ) {
         mapping.mtuIs( 1500 );
         mapping.addrTypeIs( static_cast< U8 >( LspPingAddrType::ipv4Numbered ) );
         mapping.dsIpAddrIs( Velnet::IpAddr( 10, 0, 0, 2 ) );
         mapping.dsIntfAddrIs( Velnet::IpAddr( 10, 0, 0, 1 ) );
         mapping.retCodeIs( static_cast< U8 >( LspPingReturnCode::labelSwitchedAtStackDep ) );
         mapping.retSubcodeIs( 1 );
      },
      [&] {
         reply.element< LspPingMultipathSubTlv >(
            LspPingDDMappingSubTlvType::MultipathData,
            []( LspPingMultipathSubTlv & multipath ) {
               multipath.multipathTypeIs(
                  static_cast< U8 >( LspPingMultipathType::maskedIpSetMultipath ) );
               multipath.multipathLengthIs( 8 );
            },
            [&] {
               reply.view< Velnet::IpAddr >(
                  []( Velnet::IpAddr & base ) { base = Velnet::IpAddr( 127, 0, 0, 0 ); } );
               reply.view< Velnet::NetU32 >(
                  []( Velnet::NetU32 & mask ) { mask.valueIs( 0xffff0000 ); } );
            } );
         reply.tlv( LspPingDDMappingSubTlvType::LabelStack, [&] {
            reply.view< LspPingDownstreamLabelEntry >( []( LspPingDownstreamLabelEntry & label ) {
               // Label 100704 at the bottom of the stack, from LDP.
               label = LspPingDownstreamLabelEntry( 100704u << 12 | 1u << 8 | 3u );
            } );
         } );
      } );
   return reply.bytes();
}

Examples::Bytes bytesOf( std::string_view hex ) {
   Examples::Bytes bytes;
   for( ; hex.size() >= 2; hex.remove_prefix( 2 ) ) {
      U8 byte = 0;
      char const * const end = hex.data() + 2;
      if( std::from_chars( hex.data(), end, byte, 16 ).ptr != end )
         return {};
      bytes.push_back( byte );
   }
   return hex.empty() ? bytes : Examples::Bytes{};
}

template < class Record >
void print( std::optional< Record > const & record ) {
   if( record )
      std::cout << *record << '\n';
}

} // namespace

int main( int count, char ** arguments ) {
   Examples::Bytes const message = count > 1 ? bytesOf( arguments[1] ) : builtReply();
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
