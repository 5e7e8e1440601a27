#include "MplsUtils/LspPing/message/LspPingElementTable.h"
#include "MplsUtils/LspPing/message/LspPingWalk.h"

#include <algorithm>

namespace LspPing {

// A message of version 1 with all its bytes. What is read a second time takes no longer than twice.
bool LspPingWalk::quickMessage() {
   if( isCut_ || bytes_.size() < sizeof( LspPingHdr ) )
      return false;
   // The bytes are there, and the view has no alignment.
   auto const & header = *reinterpret_cast< LspPingHdr const * >( bytes_.data() );
   return header.version() == 1 && header.valid() &&
          quickElements( LspPingContext::message, bytes_.data() + sizeof( LspPingHdr ),
                         static_cast< U32 >( bytes_.size() - sizeof( LspPingHdr ) ), 0 );
}

// As `elements`, for a region that is read with alignment. False where that does not come out. What
// is not usual is asked of the general functions, an element or what is in it at a time.
bool LspPingWalk::quickElements( LspPingContext context, U8 const * next, U32 left, U32 depth ) {
   constexpr U32 header = sizeof( LspPingTlvHdr );
   LspPingSmallCodes const & codes = lspPingSmallCodeRows[static_cast< std::size_t >( context )];
   bool const isLast =
      context == LspPingContext::message && offsetOf( next ) + left == bytes_.size();
   U32 const link = isLast ? std::min( padding_, left ) : 0;
   U32 const least = std::max( header, link + 1 );
   while( left >= least ) {
      // The four bytes are there, and a NetU32 has no alignment.
      U32 const codeAndLength = reinterpret_cast< Velnet::NetU32 const * >( next )->value();
      U32 const code = codeAndLength >> 16;
      U32 const length = codeAndLength & 0xffff;
      U32 const total = lspPingPadded( header + length );
      if( total > left ) [[unlikely]] {
         if( header + length > left )
            return false;
         element( context, regionOf( next, left ), depth, Alignment::four );
         return true;
      }
      LspPingElementRow const * const row = usualElementOf( context, codes, code, length, next );
      if( row == nullptr ) [[unlikely]] {
         // There may be nothing but zeros from here on.
         if( codeAndLength == 0 )
            return false;
         U32 const step = element( context, regionOf( next, left ), depth, Alignment::four );
         if( step >= left )
            return true;
         next += step;
         left -= step;
         continue;
      }
      {
         Data & found = added();
         found = { .row = row,
                   .flags = row->usual.flags,
                   .offset = offsetOf( next ),
                   .code = static_cast< U16 >( code ),
                   .context = context,
                   .depth = static_cast< U8 >( depth ),
                   .length = length,
                   .present = header + length,
                   .occupied = total };
         if( row->usual.behind != LspPingBehind::nothing &&
             !quickInside( found, row->usual, next ) )
            return false;
      }
      next += total;
      left -= total;
   }
   return left <= link;
}

// What stands behind the fixed part of a usual element.
bool LspPingWalk::quickInside( Data & element, LspPingUsualElement const & usual, U8 const * own ) {
   U8 const * const begin = own + usual.fixedSize;
   U32 const size = element.present - usual.fixedSize;
   switch( usual.behind ) {
   case LspPingBehind::protocolLabels:
   case LspPingBehind::labelStack:
      if( size % 4 != 0 )
         break;
      element.flags.hasLabels = true;
      element.labelsOffset = offsetOf( begin );
      element.labelsLength = size;
      return true;
   case LspPingBehind::multipath: {
      auto const type = static_cast< LspPingMultipathType >( begin[-4] );
      LspPingMultipath const information( type, { begin, size }, isMappingIpv6_ );
      if( size == 0 || wordAt( begin - 3 ) != size || !information.isWellFormed() )
         break;
      element.flags.hasMultipath = true;
      element.flags.isMultipathIpv6 = information.readFamily();
      element.multipathType = type;
      element.multipathOffset = offsetOf( begin );
      element.multipathLength = size;
      return true;
   }
   case LspPingBehind::subTlvs:
      if( wordAt( begin - 2 ) != size )
         break;
      isMappingIpv6_ = own[6] == 3 || own[6] == 4;
      [[fallthrough]];
   case LspPingBehind::elements:
   case LspPingBehind::tlvs:
   case LspPingBehind::fecs: {
      if( size == 0 || element.depth >= LspPingMessageReader::deepest )
         break;
      // Memory for more elements may be elsewhere.
      U32 const index = indexOf( element );
      if( !quickElements( usual.inside, begin, size, element.depth + 1u ) )
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
