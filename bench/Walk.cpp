#include "bench/Walk.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/mapping/LspPingDdmapTlv.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <algorithm>
#include <span>

namespace Bench {

using namespace LspPing;

namespace {

constexpr U32 fecStackType = Kiv::numberOf( LspPingTlvType::TargetFecStack );
constexpr U32 mappingType = Kiv::numberOf( LspPingTlvType::DownstreamDetailedMapping );

using Bytes = std::span< U8 const >;

// Calls `visit` with every element of `left` and the bytes of its value.
template < class Visit >
void walk( Bytes left, Met & met, Visit visit ) {
   while( left.size() >= sizeof( LspPingTlvHdr ) ) {
      // Four bytes are there.
      auto const & header = *reinterpret_cast< LspPingTlvHdr const * >( left.data() );
      std::size_t const length = header.length();
      if( length > left.size() - sizeof header ) {
         ++met.problems;
         return;
      }
      ++met.elements;
      met.types += header.type();
      visit( header, left.subspan( sizeof header, length ) );
      // The last one may lack its padding.
      std::size_t const whole = ( length + 7 ) & ~std::size_t{ 3 };
      left = left.subspan( std::min( whole, left.size() ) );
   }
   met.problems += !left.empty();
}

constexpr std::size_t fixedSize( U8 addrType ) noexcept {
   switch( addrType ) {
   case 1:
   case 2:
      return sizeof( LspPingDdmapTlv );
   case 3:
      return sizeof( LspPingDdmapV6Tlv );
   case 4:
      return sizeof( LspPingDdmapV6UnnumberedTlv );
   default:
      return 0;
   }
}

} // namespace

Met walkThroughViews( U8 const * bytes, std::size_t size ) {
   Met met;
   auto const leaf = []( LspPingTlvHdr const &, Bytes ) {};
   walk( Bytes( bytes, size ).subspan( sizeof( LspPingHdr ) ), met,
         [&]( LspPingTlvHdr const & tlv, Bytes value ) {
            if( tlv.type() == fecStackType ) {
               walk( value, met, leaf );
            } else if( tlv.type() == mappingType && value.size() >= 4 ) {
               std::size_t const fixed =
                  fixedSize( static_cast< LspPingDdmapHdr const & >( tlv ).addrType() );
               if( fixed != 0 && fixed - sizeof tlv <= value.size() )
                  walk( value.subspan( fixed - sizeof tlv ), met, leaf );
            }
         } );
   return met;
}

namespace {

U32 at16( U8 const * p ) noexcept {
   return U32{ p[0] } << 8 | p[1];
}

void subTlvsByHand( U8 const * p, U8 const * end, Met & met ) {
   while( end - p >= 4 ) {
      U32 const length = at16( p + 2 );
      if( length > end - p - 4 ) {
         ++met.problems;
         return;
      }
      ++met.elements;
      met.types += at16( p );
      U32 const whole = ( length + 7 ) & ~3u;
      p = whole < end - p ? p + whole : end;
   }
   if( p != end )
      ++met.problems;
}

} // namespace

Met walkByHand( U8 const * bytes, std::size_t size ) {
   Met met;
   U8 const * p = bytes + 32;
   U8 const * const end = bytes + size;
   while( end - p >= 4 ) {
      U32 const type = at16( p );
      U32 const length = at16( p + 2 );
      if( length > end - p - 4 ) {
         ++met.problems;
         return met;
      }
      ++met.elements;
      met.types += type;
      if( type == 1 ) {
         subTlvsByHand( p + 4, p + 4 + length, met );
      } else if( type == 20 && length >= 4 ) {
         static constexpr U8 fixedOf[] = { 0, 20, 20, 44, 32 };
         U32 const fixed = p[6] <= 4 ? fixedOf[p[6]] : 0;
         if( fixed != 0 && fixed - 4 <= length )
            subTlvsByHand( p + fixed, p + 4 + length, met );
      }
      U32 const whole = ( length + 7 ) & ~3u;
      p = whole < end - p ? p + whole : end;
   }
   if( p != end )
      ++met.problems;
   return met;
}

} // namespace Bench
