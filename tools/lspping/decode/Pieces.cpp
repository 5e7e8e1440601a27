#include "tools/lspping/decode/Pieces.h"

#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "tools/lspping/generic/AttributeText.h"

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

ElementObject::ElementObject( LspPing::LspPingElementRef element )
   : element_( element ),
     object_( element.view() ) {
   if( object_ == nullptr ) {
      element.padInto( pad_.emplace() );
      object_ = &*pad_;
   }
}

void ElementObject::appendText( Orlo::StringBuilder & out ) const {
   if( pad_ )
      out.append( pad_->stringValue() );
   else if( !element_.appendText( out ) )
      appendFields( out, element_.type(), Kiv::typeOf< LspPing::LspPingTlvHdr >(), object_ );
}

bool showsBytes( LspPing::LspPingElementRef element ) noexcept {
   if( element.hidesBytes() )
      return true;
   if( element.isDescribed() )
      return !element.isValid();
   return element.row() == nullptr || element.row()->isDescribed() ||
          element.row()->facts.behind == LspPing::LspPingBehind::nothing;
}

void appendCodeName( Orlo::StringBuilder & out, LspPing::LspPingElementRef element ) {
   if( std::string_view const name = element.name(); !name.empty() )
      out.append( name );
   else
      out.appendDecimal( element.code() );
}

std::vector< NamedNumber > nonIpFields( LspPing::LspPingElementRef element ) {
   U8 const * const at = element.bytes().data();
   // The numbers have no alignment.
   auto const u32 = [at]( std::size_t offset ) {
      return reinterpret_cast< Velnet::NetU32 const * >( at + offset )->value();
   };
   U32 const length = reinterpret_cast< Velnet::NetU16 const * >( at + 18 )->value();
   std::vector< NamedNumber > fields{ { "ingressIfNum", u32( 8 ) }, { "egressIfNum", u32( 12 ) } };
   if( element.isContainer() )
      fields.insert( fields.end(),
                     { { "retCode", at[16] }, { "retSubcode", at[17] }, { "subTlvLen", length } } );
   else
      fields.insert(
         fields.end(),
         { { "multipathType", at[16] }, { "depthLimit", at[17] }, { "multipathLength", length } } );
   return fields;
}

void appendProtocol( Orlo::StringBuilder & out, U8 protocol ) {
   appendText( out, static_cast< LspPing::LspPingDownstreamSignalingProtocol >( protocol ) );
}

} // namespace LspPingTool
