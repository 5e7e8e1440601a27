// Answers an echo request as a transit router with one next hop, RFC 8029 section 4.4. Request and
// reply are the bytes that travel in UDP.
//    answerRequest [REQUEST] > REPLY      without a file, standard input
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

#include <fstream>
#include <iostream>

using namespace LspPing;

static constexpr struct {
   Velnet::IpAddr address{ 10, 0, 0, 9 }, arrivedOn{ 10, 0, 1, 2 };
   Velnet::IpAddr nextHop{ 10, 0, 2, 2 }, leavesOn{ 10, 0, 2, 1 };
   Velnet::MplsLabelEntry arrivedWith{ 100704, 0, true, 1 }, leavesWith{ 300, 0, true, 3 };
} router;

static void writeReply( LspPingMessageWriter & writer, LspPingMessage const & request ) {
   using enum LspPingReturnCode;
   if( LspPingReturnCode const flaw = request.sanity(); flaw != noRetCode ) {
      writer.reply( request, flaw, 0, NtpTime::ntpTime() );
      return;
   }
   writer.reply( request, labelSwitchedAtStackDep, 1, NtpTime::ntpTime() );
   for( LspPingElementRef const asked : request.elements() ) {
      if( asked.as< LspPingDdmapHdr >() == nullptr )
         continue;
      auto const mapping = writer.open< LspPingDdmapTlv >( []( auto & tlv ) {
         tlv.mtuIs( 1500 );
         tlv.dsIpAddrIs( router.nextHop );
         tlv.dsIntfAddrIs( router.leavesOn );
      } );
      writer.open( LspPingDDMappingSubTlvType::LabelStack ).label( router.leavesWith );
      // All packets take the one next hop: what was asked about is the answer.
      for( LspPingElementRef const subTlv : asked.elements() )
         if( subTlv.hasMultipath() )
            writer.add( subTlv );
   }
   auto interface = writer.open< LspPingIntfAndLabelStackIpv4Tlv >( []( auto & tlv ) {
      tlv.addrIs( router.address );
      tlv.intfIs( router.arrivedOn );
   } );
   interface.label( router.arrivedWith );
}

int main( int count, char ** arguments ) {
   std::ifstream file( count > 1 ? arguments[1] : "/dev/stdin", std::ios::binary );
   std::string text( 0x10000, '\0' ); // more than any message
   file.read( text.data(), static_cast< std::streamsize >( text.size() ) );
   std::vector< U8 > const bytes( text.begin(), text.begin() + file.gcount() );
   LspPingMessageReader reader;
   std::vector< U8 > reply;
   LspPingMessageWriter writer( reply );
   writeReply( writer, reader.read( bytes ) );
   std::string_view const flaw = lspPingWriteErrorText( writer.error().code );
   if( !file.eof() || writer.error() )
      std::cerr << "answerRequest: " << ( file.eof() ? flaw : "cannot read the request" ) << '\n';
   else if( !( std::cout << std::string( reply.begin(), reply.end() ) << std::flush ) )
      std::cerr << "answerRequest: cannot write the reply\n";
   return file.eof() && !writer.error() && std::cout ? 0 : 1;
}
