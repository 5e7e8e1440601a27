#include "bench/Messages.h"

#include <cstring>

namespace Bench {

using namespace LspPing;

U32 readThroughLibrary( LspPingMessageReader & reader, std::span< U8 const > bytes ) {
   LspPingMessage const & message = reader.read( bytes );
   U32 sum = static_cast< U32 >( message.problems().size() ) + message.elementCount();
   if( LspPingHdr const * const header = message.header() )
      sum += header->senderHandle() + header->sequenceNumber() + header->returnCode();
   for( LspPingElementRef const tlv : message.elements() ) {
      for( LspPingElementRef const inner : tlv.elements() ) {
         if( auto const * const ldp = inner.as< LspPingLdpIpv4SubTlv >() )
            sum += ldp->ipPrefix().host() + ldp->prefixLen();
         else if( auto const * const vpn = inner.as< LspPingVpnIpv4SubTlv >() )
            sum += vpn->ipPrefix().host() + vpn->prefixLen() + static_cast< U32 >( vpn->rd() );
         LspPingLabels const labels = inner.labels();
         for( std::size_t i = 0; i < labels.size(); ++i )
            sum += labels[i].label() + labels[i].ttl();
         if( LspPingMultipath const multipath = inner.multipath(); multipath.isSet() )
            sum += multipath.baseAddress().ipAddr().host() +
                   static_cast< U32 >( multipath.mask().size() );
      }
      if( auto const * const mapping = tlv.as< LspPingDdmapTlv >() )
         sum += mapping->mtu() + mapping->dsIpAddr().host() + mapping->dsIntfAddr().host() +
                mapping->retCode();
   }
   return sum;
}

namespace {

U32 at16( U8 const * p ) noexcept {
   U16 raw;
   std::memcpy( &raw, p, sizeof raw );
   return __builtin_bswap16( raw );
}

U32 at32( U8 const * p ) noexcept {
   U32 raw;
   std::memcpy( &raw, p, sizeof raw );
   return __builtin_bswap32( raw );
}

enum Problem : U32 {
   cut = 1,
   wrongHeader,
   leftOver,
   lengthBeyond,
   lengthWrong,
   paddingMissing,
   notValid,
   empty,
};

// Where each element is and what is wrong with it, in one pass.
struct Reader {
   ByHand & found;
   U8 const * begin;
   U8 const * end;

   void problem( U32 code, U8 const * at ) {
      found.problems.push_back( { code, static_cast< U32 >( at - begin ) } );
   }

   void fec( U8 const * p, U32 type, U32 length ) {
      switch( type ) {
      case 1:
         if( length != 5 )
            problem( lengthWrong, p );
         else if( p[8] > 32 )
            problem( notValid, p );
         return;
      case 6:
         if( length != 13 )
            problem( lengthWrong, p );
         else if( p[16] > 32 )
            problem( notValid, p );
         return;
      }
   }

   void subTlv( U8 const * p, U32 type, U32 length ) {
      if( type == 2 ) {
         if( length % 4 != 0 )
            problem( leftOver, p );
      } else if( type == 1 ) {
         if( length < 4 ) {
            problem( lengthWrong, p );
            return;
         }
         U32 const information = at16( p + 5 );
         if( information > length - 4 )
            problem( lengthBeyond, p );
         else if( information < length - 4 )
            problem( leftOver, p );
         else if( information != 0 && ( p[4] == 0 || information % 4 != 0 ||
                                        ( ( p[4] == 8 || p[4] == 9 ) && information <= 4 ) ||
                                        ( p[4] == 4 && information % 8 != 0 ) ) )
            problem( notValid, p );
      }
   }

   void tlv( U8 const * p, U32 type, U32 length, U32 depth ) {
      U8 const * const valueEnd = p + 4 + length;
      if( type == 1 ) {
         if( length == 0 )
            problem( empty, p );
         else
            walk( p + 4, valueEnd, 1, depth + 1 );
      } else if( type == 20 ) {
         static constexpr U32 fixedOf[] = { 0, 20, 20, 44, 32 };
         U32 const fixed = length >= 4 && p[6] <= 4 ? fixedOf[p[6]] : 0;
         if( fixed == 0 || fixed - 4 > length ) {
            problem( notValid, p );
            return;
         }
         U32 const subTlvs = at16( p + fixed - 2 );
         if( subTlvs > valueEnd - p - fixed ) {
            problem( lengthBeyond, p );
            return;
         }
         if( subTlvs < valueEnd - p - fixed )
            problem( leftOver, p + fixed + subTlvs );
         walk( p + fixed, p + fixed + subTlvs, 20, depth + 1 );
      }
   }

   void walk( U8 const * p, U8 const * last, U32 inside, U32 depth ) {
      while( p != last ) {
         U32 const left = static_cast< U32 >( last - p );
         if( left < 4 ) {
            problem( leftOver, p );
            return;
         }
         U32 const type = at16( p );
         U32 const length = at16( p + 2 );
         std::size_t const index = found.elements.size();
         found.elements.push_back( { static_cast< U16 >( type ), static_cast< U8 >( depth ),
                                     static_cast< U32 >( p - begin ), length, 0 } );
         if( length > left - 4 ) {
            problem( lengthBeyond, p );
            found.elements[index].after = static_cast< U32 >( found.elements.size() );
            return;
         }
         if( inside == 0 )
            tlv( p, type, length, depth );
         else if( inside == 1 )
            fec( p, type, length );
         else
            subTlv( p, type, length );
         found.elements[index].after = static_cast< U32 >( found.elements.size() );
         U32 const whole = ( length + 7 ) & ~3u;
         if( whole > left ) {
            problem( paddingMissing, p );
            return;
         }
         p += whole;
      }
   }
};

} // namespace

U32 readByHand( ByHand & found, std::span< U8 const > bytes ) {
   found.elements.clear();
   found.problems.clear();
   U8 const * const p = bytes.data();
   Reader reader{ found, p, p + bytes.size() };
   U32 sum = 0;
   if( bytes.size() < 32 ) {
      reader.problem( cut, p );
   } else {
      if( at16( p ) != 1 || p[4] < 1 || p[4] > 2 )
         reader.problem( wrongHeader, p );
      reader.walk( p + 32, reader.end, 0, 0 );
      sum += at32( p + 8 ) + at32( p + 12 ) + p[6];
   }
   sum += static_cast< U32 >( found.problems.size() + found.elements.size() );
   // What stands where is known now; an element is whole where it has no problem.
   for( std::size_t i = 0; i < found.elements.size(); i = found.elements[i].after ) {
      ByHand::Element const & tlv = found.elements[i];
      U8 const * const at = p + tlv.offset;
      for( std::size_t k = i + 1; k < tlv.after; k = found.elements[k].after ) {
         ByHand::Element const & inner = found.elements[k];
         U8 const * const own = p + inner.offset;
         if( tlv.type == 1 && inner.type == 1 && inner.length == 5 ) {
            sum += at32( own + 4 ) + own[8];
         } else if( tlv.type == 1 && inner.type == 6 && inner.length == 13 ) {
            sum += at32( own + 12 ) + own[16] + at32( own + 8 );
         } else if( tlv.type == 20 && inner.type == 2 ) {
            for( U32 n = 0; n + 4 <= inner.length; n += 4 ) {
               U32 const label = at32( own + 4 + n );
               sum += ( label >> 12 ) + ( label & 0xff );
            }
         } else if( tlv.type == 20 && inner.type == 1 && inner.length > 8 && own[4] == 8 ) {
            sum += at32( own + 8 ) + at16( own + 5 ) - 4;
         }
      }
      if( tlv.type == 20 && tlv.length >= 16 && at[6] == 1 )
         sum += at16( at + 4 ) + at32( at + 8 ) + at32( at + 12 ) + at[16];
   }
   return sum;
}

} // namespace Bench
