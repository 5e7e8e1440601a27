#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"
#include "tests/Bytes.h"

#include <span>
#include <string>
#include <string_view>

/// What tests of whole messages need.
namespace MessageBytes {

inline constexpr auto asZeros = []( auto & ) {};
inline constexpr auto asRequest = []( LspPing::LspPingHdr & header ) { header.messageTypeIs( 1 ); };

/// A FEC, and its bytes.
inline void addLdp( LspPing::LspPingMessageWriter & writer ) {
   writer.add< LspPing::LspPingLdpIpv4SubTlv >( []( auto & fec ) {
      fec.ipPrefixIs( Velnet::IpAddr( 10, 1, 2, 0 ) );
      fec.prefixLenIs( 24 );
   } );
}
inline constexpr std::string_view ldp = "00 01 00 05 0a 01 02 00 18 00 00 00";

/// The bytes behind the header of what `write` makes of a message whose header is written.
template < class Write >
std::string written( Write write ) {
   Bytes memory;
   LspPing::LspPingMessageWriter writer( memory );
   writer.header( asRequest );
   write( writer );
   if( writer.error() )
      return std::string( lspPingWriteErrorName( writer.error().code ) ) + " at " +
             std::to_string( writer.error().offset ) + ": " +
             hexOf( std::span( memory ).subspan( 32 ) );
   return hexOf( std::span( memory ).subspan( 32 ) );
}

/// The first problem that a reader has with the message, empty where it has none.
inline std::string problemOf( std::span< U8 const > bytes ) {
   LspPing::LspPingMessageReader reader;
   LspPing::LspPingMessage const & message = reader.read( bytes );
   if( message.problems().empty() )
      return {};
   Orlo::StringBuilder text;
   message.appendText( text, message.problems()[0] );
   return std::string( text.view() );
}

} // namespace MessageBytes
