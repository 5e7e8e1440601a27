#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"
#include "MplsUtils/LspPing/message/LspPingWords.h"

#include <cstdio>
#include <vector>

// An agent that reads a message: a request for 10.1.2.0/24.
int main() {
   std::vector< U8 > bytes{ 0, 1, 0, 0, 1, 2, 0, 0, 0, 0, 0x12, 0x34, 0, 0, 0, 1 };
   bytes.resize( 32 );
   bytes.insert( bytes.end(), { 0, 1, 0, 12, 0, 1, 0, 5, 10, 1, 2, 0, 24, 0, 0, 0 } );
   LspPing::LspPingMessageReader reader;
   LspPing::LspPingMessage const & message = reader.read( bytes );
   unsigned prefixes = 0;
   for( LspPing::LspPingElementRef const tlv : message.elements() ) {
      for( LspPing::LspPingElementRef const fec : tlv.elements() )
         if( auto const * prefix = fec.as< LspPing::LspPingLdpIpv4SubTlv >() )
            prefixes += prefix->prefixLen() == 24 ? 1 : 0;
   }
   LspPing::LspPingMessageRecords const records( message );
   bool const reads = message.header() != nullptr && message.problems().empty() && prefixes == 1 &&
                      records.fecStack.has_value();
   bool const says =
      lspPingWords( LspPing::LspPingMsgType::MplsEchoRequest ) == "MPLS echo request";
   std::printf( "reads: %d, says: %d\n", reads, says );
   return reads && says ? 0 : 1;
}
