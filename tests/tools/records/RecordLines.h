#pragma once

#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"
#include "tests/tools/decode/Build.h"

#include <initializer_list>
#include <string>
#include <string_view>

// The records of messages put together by hand, as the tool shows them.

/// The lines of the records that the message has.
inline std::string recordLines( Bytes const & tlvs ) {
   Decoded decoded( request + tlvs );
   LspPingTool::TextPrinter printer( LspPingTool::TextPrinter::Colour::off,
                                     LspPingTool::ShowRecords::yes );
   printer.print( decoded.packet(), decoded.message() );
   std::string lines;
   std::string_view left = printer.pending();
   while( !left.empty() ) {
      std::string_view const line = left.substr( 0, left.find( '\n' ) + 1 );
      if( line.starts_with( "   LspPing::" ) )
         lines += line;
      left.remove_prefix( line.size() );
   }
   return lines;
}

/// What stands behind `"records":`, to the end of the message's object.
inline std::string recordsJson( Bytes const & tlvs ) {
   Decoded decoded( request + tlvs );
   LspPingTool::JsonPrinter printer( LspPingTool::ShowRecords::yes );
   printer.print( decoded.packet(), decoded.message() );
   std::string const line( printer.pending() );
   std::string const key = R"(,"records":)";
   std::size_t const at = line.rfind( key );
   return at == std::string::npos || !line.ends_with( "}\n" )
             ? "no records: " + line
             : line.substr( at + key.size(), line.size() - 2 - at - key.size() );
}

/// The text of a FEC of which only these attributes differ from what they are by default.
inline std::string fecText( std::initializer_list< std::string_view > changes ) {
   std::string text =
      "LspPing::LspPingFecInfo(fecTlvType=NotAssigned, dstPrefix=none, rd=0, oamStandard=ietf, "
      "algorithm=0, mplsLabel=none, rsvpSpGroupId=Rsvp::RsvpSpGroupId(p2mpId=0, tunnelId=0, "
      "extendedTunnelId=none, lspId=0, subGroupOriginatorId=none, subGroupId=0), "
      "rsvpSpId=Rsvp::RsvpSpId(tunnelEndPoint=none, tunnelId=0, extendedTunnelId=none, lspId=0), "
      "rsvpSenderAddr=none, pwInfo=LspPing::LspPingPwInfo(senderAddr=none, receiverAddr=none, "
      "pwId=0, pwGenId=agi 0: saii 0: taii 0:, pwType=0, controlWordPresent=false, "
      "activeCcType=none), opqType=GenericLsp, genericOpqVal=0, sourceAddrOpqVal=none, "
      "groupAddrOpqVal=none, peerAddr=none, fecTlvLen=0, igpProtocol=isis)";
   for( std::string_view const change : changes ) {
      // The attribute's value ends at the next comma, that of a record behind its closing bracket.
      std::string const name = std::string( change.substr( 0, change.find( '=' ) + 1 ) );
      std::size_t const at = text.find( name );
      EXPECT_NE( at, std::string::npos ) << name;
      bool const isRecord = change.back() == ')';
      std::size_t const end = isRecord ? text.find( ')', at ) + 1 : text.find_first_of( ",)", at );
      text.replace( at, end - at, change );
   }
   return text;
}

/// The line of a stack of one FEC.
inline std::string stackLine( std::initializer_list< std::string_view > changes ) {
   return "   LspPing::LspPingFecStack(fecInfo={0: " + fecText( changes ) + "})\n";
}

/// 2001:db8::9
inline Bytes const v6{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9 };
