#include "MplsUtils/LspPing/message/LspPingElementTable.h"
#include "MplsUtils/LspPing/message/LspPingWalk.h"

namespace LspPing {

// As `elements`, for a region that is read with alignment. False where that does not come out: then
// the message is to be read again from its first TLV, which takes no longer than once more. What is
// not usual is asked of the general functions, an element or what is in it at a time.
bool LspPingWalk::quickElements( LspPingContext context, Region region, U32 depth ) {
   bool const isLast = context == LspPingContext::message && region.end == bytes_.size();
   U32 const link = isLast ? padding_ : 0;
   while( region.size() > link ) {
      U32 const left = region.size();
      if( left < sizeof( LspPingTlvHdr ) )
         return false;
      U8 const * const bytes = bytes_.data() + region.begin;
      // The four bytes are there, and a NetU32 has no alignment.
      U32 const header = reinterpret_cast< Velnet::NetU32 const * >( bytes )->value();
      U32 const length = header & 0xffff;
      U32 const whole = sizeof( LspPingTlvHdr ) + length;
      U32 const total = lspPingPadded( whole );
      // Zeros may be left over, all of them.
      if( whole > left || header == 0 )
         return false;
      LspPingElementRow const * const row =
         total <= left ? usualElementOf( context, header >> 16, length, bytes ) : nullptr;
      if( row == nullptr ) {
         element( context, region, depth, Alignment::four );
         if( total >= left )
            return true;
      } else {
         U32 const index = message_.elementCount();
         added() = { .row = row,
                     .flags = row->usual.flags,
                     .offset = region.begin,
                     .length = length,
                     .present = whole,
                     .occupied = total,
                     .code = static_cast< U16 >( header >> 16 ),
                     .context = context,
                     .depth = static_cast< U8 >( depth ) };
         if( row->usual.behind != LspPingBehind::nothing && !quickInside( index, *row ) )
            return false;
      }
      region.begin += total;
   }
   return true;
}

// What stands behind the fixed part of a usual element.
bool LspPingWalk::quickInside( U32 index, LspPingElementRow const & row ) {
   Data & element = at( index );
   LspPingUsualElement const & usual = row.usual;
   Region const region{ element.offset + usual.fixedSize, element.offset + element.present };
   switch( usual.behind ) {
   case LspPingBehind::protocolLabels:
   case LspPingBehind::labelStack:
      if( region.size() % 4 != 0 )
         break;
      element.flags.hasLabels = true;
      element.labelsOffset = region.begin;
      element.labelsLength = region.size();
      return true;
   case LspPingBehind::multipath: {
      auto const type = static_cast< LspPingMultipathType >( byte( region.begin - 4 ) );
      LspPingMultipath const multipath( type, bytes_.subspan( region.begin, region.size() ),
                                        isMappingIpv6_ );
      if( region.size() == 0 || word( region.begin - 3 ) != region.size() ||
          !multipath.isWellFormed() )
         break;
      element.flags.hasMultipath = true;
      element.flags.isMultipathIpv6 = multipath.isIpv6();
      element.multipathType = type;
      element.multipathOffset = region.begin;
      element.multipathLength = region.size();
      return true;
   }
   case LspPingBehind::elements:
   case LspPingBehind::tlvs:
   case LspPingBehind::fecs:
   case LspPingBehind::subTlvs:
      if( region.size() == 0 || element.depth >= LspPingMessageReader::deepest )
         break;
      if( usual.behind == LspPingBehind::subTlvs ) {
         if( word( region.begin - 2 ) != region.size() )
            break;
         isMappingIpv6_ = byte( element.offset + 6 ) == 3 || byte( element.offset + 6 ) == 4;
      }
      if( !quickElements( usual.inside, region, element.depth + 1u ) )
         return false;
      at( index ).span = message_.elementCount() - index;
      return true;
   default:
      break;
   }
   body( index, row );
   at( index ).span = message_.elementCount() - index;
   return true;
}

} // namespace LspPing
