#include "tools/lspping/decode/Records.h"

#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <utility>

namespace LspPingTool {

namespace {

using LspPing::LspPingTlvType;

bool isWhole( Element const & element ) noexcept {
   return element.present == headerSize( element.context ) + element.length;
}

// With the padding that the element's view covers, be it the message's or the walk's.
EchoRecords::Bytes bytesOf( Message const & message, Element const & element ) noexcept {
   if( !element.isCopied )
      return message.bytes.subspan( element.offset, element.occupied );
   View const & view = *element.row->view;
   return { message.at( element ), std::size_t{ view.offset } + view.size };
}

class Conversion {
 public:
   explicit Conversion( Message const & message ) : message_( message ) {}

   MessageRecords records() {
      for( std::size_t i = 0; i < message_.elements.size(); i = message_.elements[i].after ) {
         if( isWhole( message_.elements[i] ) )
            tlv( i );
      }
      return std::move( records_ );
   }

 private:
   void tlv( std::size_t index );

   // Calls `use` with each element in the one at `index`, and with its position, from 0.
   template < class Use >
   void children( std::size_t index, Use use ) {
      std::size_t position = 0;
      for( std::size_t i = index + 1; i < message_.elements[index].after;
           i = message_.elements[i].after ) {
         Element const & element = message_.elements[i];
         if( isWhole( element ) )
            tell( element, use( position, bytesOf( message_, element ) ) );
         ++position;
      }
   }

   bool tell( Element const & element, EchoRecords::Kept kept ) {
      if( !kept.lost.empty() ) {
         Orlo::StringBuilder text;
         appendCodeName( text, element.context, element.code );
         text.append( ": " );
         text.append( kept.lost );
         records_.leftOut.push_back( { element.offset, text.string() } );
      }
      return kept.isKept;
   }

   Message const & message_;
   MessageRecords records_;
};

void Conversion::tlv( std::size_t index ) {
   Element const & element = message_.elements[index];
   EchoRecords::Bytes const bytes = bytesOf( message_, element );
   switch( static_cast< LspPingTlvType >( element.code ) ) {
   case LspPingTlvType::TargetFecStack:
      // One stack is what a message is about.
      if( records_.fecStack ) {
         tell( element, { false, "behind another one" } );
         return;
      }
      children( index, [&]( std::size_t position, EchoRecords::Bytes fec ) {
         return records_.addFec( position, fec );
      } );
      return;
   case LspPingTlvType::DownstreamDetailedMapping: {
      EchoRecords::Mapping mapping;
      if( !tell( element, EchoRecords::detailedMapping( bytes, mapping ) ) )
         return;
      children( index, [&]( std::size_t, EchoRecords::Bytes subTlv ) {
         return EchoRecords::mappingSubTlv( subTlv, mapping );
      } );
      tell( element, records_.addMapping(
                        LspPing::LspPingDownstreamMappingType::downstreamDetailedMap, mapping ) );
      return;
   }
   default:
      tell( element, records_.addTlv( bytes ) );
      return;
   }
}

} // namespace

MessageRecords recordsOf( Message const & message ) {
   return Conversion( message ).records();
}

} // namespace LspPingTool
