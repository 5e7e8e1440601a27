#include "examples/Capture.h"

#include "MplsUtils/LspPing/message/LspPingMessageReader.h"

#include <algorithm>

namespace Examples {

using namespace LspPing;

namespace {

// The byte that chooses between the forms of a code; not the length.
LspPingElement::Selector const * selectorOf( LspPingElementRef element ) {
   LspPingElement const & facts = element.row()->facts;
   for( std::size_t i = 0; i < facts.selectorCount; ++i )
      if( facts.selectors[i].offset >= lspPingHeaderSize( element.context() ) )
         return &facts.selectors[i];
   return nullptr;
}

// None of the forms has it.
Bytes withUnknownSelector( Bytes message, LspPingElementRef element ) {
   message[element.offset() + selectorOf( element )->offset] = 99;
   return message;
}

Bytes withLength( Bytes message, LspPingElementRef element, U32 length ) {
   // The length ends the header.
   std::size_t const end = element.offset() + lspPingHeaderSize( element.context() );
   message[end - 2] = static_cast< U8 >( length >> 8 );
   message[end - 1] = static_cast< U8 >( length );
   return message;
}

// Another length, to be rounded up to the same bytes where the element is padded: what stands
// behind it stays where it is.
Bytes withWrongLength( Bytes const & message, LspPingElementRef element ) {
   LspPingElementRow const & row = *element.row();
   U32 const length = element.length();
   if( row.facts.hasFixedLength )
      return withLength( message, element,
                         length % 4 == 1 && row.headerSize() == 4 ? length + 1 : length - 1 );
   return withLength( message, element,
                      row.facts.leastLength != 0 ? row.facts.leastLength - 1u : length - 1 );
}

// The last byte of the tail is none of the element's any more. Empty where a view takes any tail.
Bytes withShorterTail( Bytes const & message, LspPingElementRef element ) {
   LspPingElementRow const & row = *element.row();
   if( row.facts.behind != LspPingBehind::tail || element.length() <= row.facts.leastLength )
      return {};
   Bytes damaged = withLength( message, element, element.length() - 1 );
   bool const isNoticed =
      !row.verdict( damaged.data() + element.offset(), element.length() - 1 ).isValid;
   return isNoticed ? damaged : Bytes();
}

Bytes cutOff( Bytes message, LspPingElementRef element ) {
   message.resize( element.offset() + lspPingHeaderSize( element.context() ) +
                   element.length() / 2 );
   return message;
}

} // namespace

std::vector< Frame > registryDamagedSamples() {
   std::vector< Bytes > messages = registryMessages();
   std::vector< Bytes > const mappings = mappingReplies();
   messages.insert( messages.end(), mappings.begin(), mappings.end() );
   Capture capture;
   LspPingMessageReader reader;
   std::vector< LspPingElementRow const * > seen;
   for( Bytes const & message : messages ) {
      LspPingMessage const & read = reader.read( message );
      for( U32 i = 0; i < read.elementCount(); ++i ) {
         LspPingElementRef const element = read.element( i );
         if( !element.isDescribed() || std::ranges::count( seen, element.row() ) != 0 )
            continue;
         if( selectorOf( element ) != nullptr )
            capture.messageIs( withUnknownSelector( message, element ) );
         if( Bytes const damaged = withShorterTail( message, element ); !damaged.empty() )
            capture.messageIs( damaged );
         capture.messageIs( seen.size() % 2 == 0 ? withWrongLength( message, element )
                                                 : cutOff( message, element ) );
         seen.push_back( element.row() );
      }
   }
   return std::move( capture.frames );
}

} // namespace Examples
