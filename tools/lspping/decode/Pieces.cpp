#include "tools/lspping/decode/Pieces.h"

#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"

#include <array>
#include <chrono>
#include <cstring>

namespace LspPingTool {

namespace {

char * putDigits( char * at, unsigned number, int count ) noexcept {
   for( int i = count; i-- > 0; number /= 10 )
      at[i] = static_cast< char >( '0' + number % 10 );
   return at + count;
}

} // namespace

void appendTime( Orlo::StringBuilder & out, TimeStamp const & time ) {
   using namespace std::chrono;
   // A capture may have any 64 bits; the text has four digits for the year.
   constexpr sys_seconds first = sys_days( year( 0 ) / 1 / 1 );
   constexpr sys_seconds last = sys_days( year( 10000 ) / 1 / 1 ) - seconds( 1 );
   sys_seconds const point{ seconds( time.seconds ) };
   if( point < first || point > last ) {
      out.append( "out of range" );
      return;
   }
   sys_days const day = floor< days >( point );
   year_month_day const date{ day };
   auto const second = static_cast< unsigned >( ( point - day ).count() );
   char * at = out.room( 40 );
   at = putDigits( at, static_cast< unsigned >( int{ date.year() } ), 4 );
   *at++ = '-';
   at = putDigits( at, unsigned{ date.month() }, 2 );
   *at++ = '-';
   at = putDigits( at, unsigned{ date.day() }, 2 );
   *at++ = 'T';
   at = putDigits( at, second / 3600, 2 );
   *at++ = ':';
   at = putDigits( at, second / 60 % 60, 2 );
   *at++ = ':';
   at = putDigits( at, second % 60, 2 );
   *at++ = '.';
   if( time.nanoseconds % 1000 == 0 )
      at = putDigits( at, time.nanoseconds / 1000, 6 );
   else
      at = putDigits( at, time.nanoseconds, 9 );
   *at++ = 'Z';
   out.advanceTo( at );
}

// The address types have no alignment, and their size was looked at.
void appendAddress( Orlo::StringBuilder & out, std::span< U8 const > address ) {
   if( address.size() == 16 )
      appendText( out, *reinterpret_cast< Velnet::Ip6Addr const * >( address.data() ) );
   else if( address.size() == 4 )
      appendText( out, *reinterpret_cast< Velnet::IpAddr const * >( address.data() ) );
}

void appendBytes( Orlo::StringBuilder & out, std::span< U8 const > bytes ) {
   char * at = out.room( 2 * bytes.size() );
   for( U8 const byte : bytes ) {
      *at++ = "0123456789abcdef"[byte >> 4];
      *at++ = "0123456789abcdef"[byte & 15];
   }
   out.advanceTo( at );
}

void appendViewText( Orlo::StringBuilder & out, Message const & message, Element const & element ) {
   element.row->view->appendText( out, message.at( element ), element.length );
}

bool showsBytes( Element const & element ) noexcept {
   if( element.isViewed )
      return !element.isValid || element.row->isUnknownSelector || element.hidesBytes;
   return element.row == nullptr || element.row->view != nullptr || element.row->body == Body::none;
}

std::vector< NamedNumber > nonIpFields( Message const & message, Element const & element ) {
   U8 const * const at = message.bytes.data() + element.offset;
   // The numbers have no alignment.
   auto const u32 = [at]( std::size_t offset ) {
      return reinterpret_cast< Velnet::NetU32 const * >( at + offset )->value();
   };
   U32 const length = reinterpret_cast< Velnet::NetU16 const * >( at + 18 )->value();
   std::vector< NamedNumber > fields{ { "ingressIfNum", u32( 8 ) }, { "egressIfNum", u32( 12 ) } };
   if( element.row->body == Body::ddmapSubTlvs )
      fields.insert( fields.end(),
                     { { "retCode", at[16] }, { "retSubcode", at[17] }, { "subTlvLen", length } } );
   else
      fields.insert(
         fields.end(),
         { { "multipathType", at[16] }, { "depthLimit", at[17] }, { "multipathLength", length } } );
   return fields;
}

Label labelAt( U8 const * bytes ) noexcept {
   U32 const upper = U32{ bytes[0] } << 16 | U32{ bytes[1] } << 8 | bytes[2];
   return { upper >> 4, static_cast< U8 >( upper >> 1 & 7 ), ( upper & 1 ) != 0, bytes[3] };
}

bool hasProtocol( Element const & element ) noexcept {
   return element.row->body != Body::labelStack;
}

void appendProtocol( Orlo::StringBuilder & out, U8 protocol ) {
   appendText( out, static_cast< LspPing::LspPingDownstreamSignalingProtocol >( protocol ) );
}

U32 Multipath::baseLabel() const noexcept {
   return U32{ bytes_[0] } << 24 | U32{ bytes_[1] } << 16 | U32{ bytes_[2] } << 8 | bytes_[3];
}

void Multipath::appendMember( Orlo::StringBuilder & out, std::size_t bit ) const {
   if( type_ == maskedLabels ) {
      out.appendDecimal( U64{ baseLabel() } + bit );
      return;
   }
   std::array< U8, 16 > address;
   std::memcpy( address.data(), bytes_.data(), addressSize_ );
   std::size_t carry = bit;
   for( std::size_t i = addressSize_; i-- > 0 && carry != 0; carry >>= 8 ) {
      carry += address[i];
      address[i] = static_cast< U8 >( carry );
   }
   appendAddress( out, std::span( address ).first( addressSize_ ) );
}

void appendMultipathType( Orlo::StringBuilder & out, U8 type ) {
   appendText( out, static_cast< LspPing::LspPingMultipathType >( type ) );
}

} // namespace LspPingTool
