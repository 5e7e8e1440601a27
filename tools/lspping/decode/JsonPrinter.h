#pragma once

#include "tools/lspping/decode/Printer.h"
#include "tools/lspping/decode/Records.h"
#include "tools/lspping/generic/AttributeJson.h"

namespace LspPingTool {

/// For programs: one JSON object a line, as docs/json.md describes it.
class JsonPrinter final : public Printer {
 public:
   explicit JsonPrinter( ShowRecords records = ShowRecords::no )
      : json_( out_ ),
        hasRecords_( records == ShowRecords::yes ) {}

   void print( EchoPacket const & packet, Message const & message ) override;
   std::string_view pending() const override { return { out_.GetString(), out_.GetSize() }; }
   void clear() override { out_.Clear(); }

 private:
   void packetMembers( EchoPacket const & packet );
   void header( Message const & message );
   void elements( Message const & message, std::size_t begin, std::size_t end );
   void element( Message const & message, std::size_t index );
   void labels( Message const & message, Element const & element );
   void multipath( Message const & message, Element const & element );
   void records( Message const & message );
   void problems( EchoPacket const & packet, Message const & message );

   void member( std::string_view key, U64 number );
   void member( std::string_view key, std::string_view text );
   void bytesMember( std::string_view key, std::span< U8 const > bytes );
   void addressMember( std::string_view key, std::span< U8 const > address );

   JsonBuffer out_;
   JsonWriter json_;
   Orlo::StringBuilder text_;
   bool hasRecords_;
};

} // namespace LspPingTool
