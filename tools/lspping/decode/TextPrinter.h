#pragma once

#include "tools/lspping/decode/Printer.h"

namespace LspPingTool {

/// For people: one line a message, then one line an element, indented as nested, then
/// the records if they are asked for, then the problems.
class TextPrinter final : public Printer {
 public:
   enum class Colour : bool {
      off,
      on,
   };
   explicit TextPrinter( Colour colour, ShowRecords records = ShowRecords::no )
      : hasColour_( colour == Colour::on ),
        hasRecords_( records == ShowRecords::yes ) {}

   void print( EchoPacket const & packet, LspPing::LspPingMessage const & message ) override;
   std::string_view pending() const override { return out_.view(); }
   void clear() override { out_.clear(); }

 private:
   void messageLine( EchoPacket const & packet, LspPing::LspPingMessage const & message );
   void endpoint( std::span< U8 const > address, std::optional< U16 > port );
   void elementLine( LspPing::LspPingElementRef element );
   void labelLines( LspPing::LspPingElementRef element );
   void bytesLine( U32 level, std::span< U8 const > bytes );
   void multipathLine( LspPing::LspPingElementRef element );
   void multipathSections( LspPing::LspPingMultipath const & multipath );
   void multipathInformation( LspPing::LspPingMultipath const & multipath );
   void recordLines( LspPing::LspPingMessage const & message );
   void problemLine( std::size_t offset, std::string_view text );
   void indent( U32 level );
   void colour( std::string_view sequence );

   Orlo::StringBuilder out_;
   bool hasColour_;
   bool hasRecords_;
};

} // namespace LspPingTool
