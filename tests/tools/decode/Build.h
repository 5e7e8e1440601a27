#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "tests/WireBytes.h"
#include "tools/lspping/decode/JsonPrinter.h"
#include "tools/lspping/decode/TextPrinter.h"

// Messages put together by hand, and what the tool makes of them.

/// An echo request of version 1, reply mode 2, handle 0x1234, sequence number 1, no time stamps.
inline Bytes const request =
   Bytes{ 0, 1, 0, 0, 1, 2, 0, 0, 0, 0, 0x12, 0x34, 0, 0, 0, 1 } + Bytes( 16, 0 );

/// Type, length and value as they are told, without padding.
inline Bytes raw( std::size_t type, std::size_t length, Bytes const & value ) {
   return word( type ) + word( length ) + value;
}
/// A well-formed TLV or sub-TLV, padded.
inline Bytes tlv( std::size_t type, Bytes const & value ) {
   Bytes result = raw( type, value.size(), value );
   result.resize( ( result.size() + 3 ) / 4 * 4 );
   return result;
}

/// LDP IPv4 FEC 10.1.2.0/24, and the Nil FEC with label 3.
inline Bytes const ldp = tlv( 1, { 10, 1, 2, 0, 24 } );
inline Bytes const nil = tlv( 16, { 0, 0, 0x30, 0 } );

struct Problem {
   std::size_t offset;
   std::string text;
   std::size_t strayBytes = 0;

   friend bool operator==( Problem const &, Problem const & ) = default;
};

/// The message in a block of the heap of just its size, at an odd address, walked.
class Decoded {
 public:
   explicit Decoded( Bytes const & bytes, LspPing::LspPingMessageEnd end = {} ) : bytes_( bytes ) {
      packet_.number = 1;
      packet_.payload = bytes_.bytes();
      reader_->read( packet_.payload, end );
   }

   LspPingTool::EchoPacket & packet() { return packet_; }
   LspPing::LspPingMessage const & message() const { return reader_->message(); }
   /// Offset, words and stray bytes of each.
   std::vector< Problem > problems() const {
      std::vector< Problem > result;
      for( LspPing::LspPingProblem const & problem : message().problems() ) {
         Orlo::StringBuilder text;
         message().appendText( text, problem );
         result.push_back( { problem.offset, text.string(), problem.strayBytes } );
      }
      return result;
   }

   std::string text() const {
      LspPingTool::TextPrinter printer( LspPingTool::TextPrinter::Colour::off );
      printer.print( packet_, message() );
      return std::string( printer.pending() );
   }
   /// Without the message's own line.
   std::string elements() const {
      std::string const all = text();
      return all.substr( all.find( '\n' ) + 1 );
   }
   std::string json() const {
      LspPingTool::JsonPrinter printer;
      printer.print( packet_, message() );
      return std::string( printer.pending() );
   }

 private:
   WireBytes bytes_;
   LspPingTool::EchoPacket packet_;
   std::unique_ptr< LspPing::LspPingMessageReader > reader_ =
      std::make_unique< LspPing::LspPingMessageReader >();
};

inline std::string elementsOf( Bytes const & tlvs ) {
   return Decoded( request + tlvs ).elements();
}
