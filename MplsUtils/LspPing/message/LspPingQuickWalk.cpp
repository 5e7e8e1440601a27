#include "MplsUtils/LspPing/message/LspPingElementTable.h"
#include "MplsUtils/LspPing/message/LspPingWalk.h"

#include <algorithm>

namespace LspPing {

// A message of version 1 with all its bytes. What is read a second time takes no longer than twice.
bool LspPingWalk::quickMessage() {
   LspPingHdr const * const header = message_.header();
   return header != nullptr && header->version() == 1 && header->valid() && !isCut_ &&
          quickElements( LspPingContext::message, sizeof( LspPingHdr ),
                         static_cast< U32 >( bytes_.size() ), 0 );
}

// As `elements`, for a region that is read with alignment. False where that does not come out. What
// is not usual is asked of the general functions, an element or what is in it at a time.
bool LspPingWalk::quickElements( LspPingContext context, U32 begin, U32 end, U32 depth ) {
   constexpr U32 header = sizeof( LspPingTlvHdr );
   LspPingSmallCodes const & codes = lspPingSmallCodeRows[static_cast< std::size_t >( context )];
   bool const isLast = context == LspPingContext::message && end == bytes_.size();
   U32 const link = isLast ? std::min( padding_, end ) : 0;
   U32 const least = std::max( header, link + 1 );
   U32 left = end - begin;
   while( left >= least ) {
      U8 const * const bytes = bytes_.data() + begin;
      // The four bytes are there, and a NetU32 has no alignment.
      U32 const codeAndLength = reinterpret_cast< Velnet::NetU32 const * >( bytes )->value();
      U32 const code = codeAndLength >> 16;
      U32 const length = codeAndLength & 0xffff;
      U32 const total = lspPingPadded( header + length );
      if( total > left ) [[unlikely]] {
         if( header + length > left )
            return false;
         element( context, { begin, end }, depth, Alignment::four );
         return true;
      }
      LspPingElementRow const * const row = usualElementOf( context, codes, code, length, bytes );
      if( row == nullptr ) [[unlikely]] {
         // There may be nothing but zeros from here on.
         if( codeAndLength == 0 )
            return false;
         element( context, { begin, end }, depth, Alignment::four );
      } else {
         Data & found = added();
         found = { .row = row,
                   .flags = row->usual.flags,
                   .offset = begin,
                   .code = static_cast< U16 >( code ),
                   .context = context,
                   .depth = static_cast< U8 >( depth ),
                   .length = length,
                   .present = header + length,
                   .occupied = total };
         if( row->usual.behind != LspPingBehind::nothing && !quickInside( found, row->usual ) )
            return false;
      }
      begin += total;
      left -= total;
   }
   return left <= link;
}

// What stands behind the fixed part of a usual element.
bool LspPingWalk::quickInside( Data & element, LspPingUsualElement const & usual ) {
   U32 const begin = element.offset + usual.fixedSize;
   U32 const size = element.present - usual.fixedSize;
   switch( usual.behind ) {
   case LspPingBehind::protocolLabels:
   case LspPingBehind::labelStack:
      if( size % 4 != 0 )
         break;
      element.flags.hasLabels = true;
      element.labelsOffset = begin;
      element.labelsLength = size;
      return true;
   case LspPingBehind::multipath: {
      auto const type = static_cast< LspPingMultipathType >( byte( begin - 4 ) );
      LspPingMultipath const information( type, bytes_.subspan( begin, size ), isMappingIpv6_ );
      if( size == 0 || word( begin - 3 ) != size || !information.isWellFormed() )
         break;
      element.flags.hasMultipath = true;
      element.flags.isMultipathIpv6 = information.isIpv6();
      element.multipathType = type;
      element.multipathOffset = begin;
      element.multipathLength = size;
      return true;
   }
   case LspPingBehind::subTlvs:
      if( word( begin - 2 ) != size )
         break;
      isMappingIpv6_ = byte( element.offset + 6 ) == 3 || byte( element.offset + 6 ) == 4;
      [[fallthrough]];
   case LspPingBehind::elements:
   case LspPingBehind::tlvs:
   case LspPingBehind::fecs: {
      if( size == 0 || element.depth >= LspPingMessageReader::deepest )
         break;
      // Memory for more elements may be elsewhere.
      U32 const index = indexOf( element );
      if( !quickElements( usual.inside, begin, begin + size, element.depth + 1u ) )
         return false;
      at( index ).span = count() - index;
      return true;
   }
   default:
      break;
   }
   U32 const index = indexOf( element );
   body( index, *element.row );
   at( index ).span = count() - index;
   return true;
}

} // namespace LspPing
