#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/message/LspPingElements.h"

#include <array>

// How the table of elements gathers what the reader's quick walk asks.
namespace LspPing {

// What the reader's quick walk knows how to read behind a fixed part.
constexpr bool lspPingIsUsual( LspPingBehind behind ) noexcept {
   using Behind = LspPingBehind;
   switch( behind ) {
   case Behind::nothing:
   case Behind::elements:
   case Behind::tlvs:
   case Behind::fecs:
   case Behind::subTlvs:
   case Behind::multipath:
   case Behind::mappingLabels:
   case Behind::protocolLabels:
   case Behind::labelStack:
      return true;
   default:
      return false;
   }
}

constexpr LspPingUsualElement lspPingUsualOf( LspPingElementRow const & row ) noexcept {
   LspPingElement const & facts = row.facts;
   U32 const most = facts.hasFixedLength ? facts.leastLength : 0xffffu;
   LspPingUsualElement usual;
   if( !lspPingIsUsual( facts.behind ) || !facts.otherReading.empty() || facts.chooser != 0 ||
       facts.selectorCount > 1 || facts.context == LspPingContext::opaqueValue ||
       row.fixedSize() > 0xff ||
       row.viewOffset() + row.viewSize > lspPingPadded( row.fixedSize() ) )
      return usual;
   usual.lengthCount = most - facts.leastLength + 1;
   usual.leastLength = facts.leastLength;
   usual.fixedSize = static_cast< U8 >( row.fixedSize() );
   usual.behind = facts.behind;
   usual.flags.isContainer = facts.isContainer();
   usual.flags.isViewed = usual.flags.isValid = row.isDescribed();
   usual.inside = facts.content();
   if( facts.selectorCount > 0 ) {
      usual.selectorAt = facts.selectors[0].offset;
      usual.selectorValue = facts.selectors[0].values[0];
   }
   return usual;
}

// A view's bytes as the facts have them, and this in all others.
template < class View >
constexpr auto lspPingFilledWith( U8 byte, LspPingElement const & facts ) noexcept {
   std::array< U8, sizeof( View ) > bytes;
   bytes.fill( byte );
   U32 const offset = facts.isOverValue ? sizeof( LspPingTlvHdr ) : 0;
   if( offset == 0 ) {
      bytes[0] = 0;
      bytes[1] = static_cast< U8 >( facts.code() );
      bytes[2] = 0;
      bytes[3] = static_cast< U8 >( facts.leastLength );
   }
   for( std::size_t i = 0; i < facts.selectorCount; ++i )
      bytes[facts.selectors[i].offset - offset] = facts.selectors[i].values[0];
   return bytes;
}

} // namespace LspPing
