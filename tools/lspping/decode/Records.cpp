#include "tools/lspping/decode/Records.h"

#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <algorithm>

namespace LspPingTool {

namespace {

using LspPing::LspPingTlvType;

bool isWhole( Element const & element ) noexcept {
   return element.present == headerSize( element.context ) + element.length;
}

// With the padding that the element's view covers, be it the message's or the walk's.
EchoRecords::Bytes bytesOf( Message const & message, Element const & element ) noexcept {
   std::size_t size = element.present;
   if( element.isViewed ) {
      View const & view = *element.row->view;
      size = std::max< std::size_t >( size, view.offset + view.size );
   }
   return { message.at( element ), size };
}

// Calls `use` with each element in the one at `index`, and with its position, from 0.
template < class Use >
void children( Message const & message, std::size_t index, Use use ) {
   std::size_t position = 0;
   for( std::size_t i = index + 1; i < message.elements[index].after;
        i = message.elements[i].after ) {
      if( isWhole( message.elements[i] ) )
         use( position, bytesOf( message, message.elements[i] ) );
      ++position;
   }
}

void tlv( Message const & message, std::size_t index, EchoRecords::Records & records ) {
   Element const & element = message.elements[index];
   EchoRecords::Bytes const bytes = bytesOf( message, element );
   switch( static_cast< LspPingTlvType >( element.code ) ) {
   case LspPingTlvType::TargetFecStack:
      // One stack is what a message is about.
      if( !records.fecStack ) {
         children( message, index, [&]( std::size_t position, EchoRecords::Bytes fec ) {
            records.addFec( position, fec );
         } );
      }
      return;
   case LspPingTlvType::DownstreamDetailedMapping: {
      EchoRecords::Mapping mapping;
      if( !EchoRecords::detailedMapping( bytes, mapping ) )
         return;
      children( message, index, [&]( std::size_t, EchoRecords::Bytes subTlv ) {
         EchoRecords::mappingSubTlv( subTlv, mapping );
      } );
      records.addMapping( LspPing::LspPingDownstreamMappingType::downstreamDetailedMap, mapping );
      return;
   }
   default:
      records.addTlv( bytes );
      return;
   }
}

} // namespace

EchoRecords::Records recordsOf( Message const & message ) {
   EchoRecords::Records records;
   for( std::size_t i = 0; i < message.elements.size(); i = message.elements[i].after ) {
      if( isWhole( message.elements[i] ) )
         tlv( message, i, records );
   }
   return records;
}

} // namespace LspPingTool
