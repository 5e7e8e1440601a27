#pragma once

#include "tools/lspping/decode/Printer.h"
#include "tools/lspping/generic/AttributeJson.h"

namespace LspPingTool {

/// For programs: one JSON object a line, as docs/json.md describes it.
class JsonPrinter final : public Printer {
 public:
   explicit JsonPrinter( ShowRecords records = ShowRecords::no )
      : json_( out_ ),
        hasRecords_( records == ShowRecords::yes ) {}

   void print( EchoPacket const & packet, LspPing::LspPingMessage const & message ) override;
   std::string_view pending() const override { return { out_.GetString(), out_.GetSize() }; }
   void clear() override { out_.Clear(); }

 private:
   void packetMembers( EchoPacket const & packet );
   void header( LspPing::LspPingMessage const & message );
   void elements( LspPing::LspPingElementRange elements );
   void element( LspPing::LspPingElementRef element );
   void startLabel( Velnet::MplsLabelEntry label );
   void labels( LspPing::LspPingElementRef element );
   void multipath( LspPing::LspPingElementRef element );
   void multipathInformation( LspPing::LspPingMultipath const & multipath );
   void records( LspPing::LspPingMessage const & message );
   void problems( EchoPacket const & packet, LspPing::LspPingMessage const & message );

   void member( std::string_view key, U64 number );
   void member( std::string_view key, std::string_view text );
   void bytesMember( std::string_view key, std::span< U8 const > bytes );
   void addressMember( std::string_view key, std::span< U8 const > address );
   void addressMember( std::string_view key, Velnet::IpGenAddr const & address );

   JsonBuffer out_;
   JsonWriter json_;
   Orlo::StringBuilder text_;
   bool hasRecords_;
};

} // namespace LspPingTool
