#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"
#include "tests/Bytes.h"

#include <gtest/gtest.h>

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

/// What was written behind the header, after the error if there is one.
inline std::string textOf( LspPing::LspPingMessageWriter const & writer ) {
   std::string const bytes = hexOf( writer.bytes().subspan( 32 ) );
   if( !writer.error() )
      return bytes;
   return std::string( lspPingWriteErrorName( writer.error().code ) ) + " at " +
          std::to_string( writer.error().offset ) + ": " + bytes;
}

/// What `write` makes of a message whose header is written: the same in memory that grows, and in
/// a place that has room for it and is not zero.
template < class Write >
std::string written( Write write ) {
   Bytes memory;
   LspPing::LspPingMessageWriter grower( memory );
   grower.header( asRequest );
   write( grower );

   Bytes place( 200'000, 0xa5 );
   LspPing::LspPingMessageWriter writer{ std::span( place ) };
   writer.header( asRequest );
   write( writer );
   EXPECT_EQ( textOf( writer ), textOf( grower ) );
   EXPECT_EQ( hexOf( memory ), hexOf( grower.bytes() ) );
   return textOf( writer );
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
