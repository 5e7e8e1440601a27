#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"

#include "MplsUtils/LspPing/platform/Velnet/AddressText.h"

#include <cstring>

namespace Velnet {

namespace {

/// The decimal text of every octet with a dot behind it, and its length.
struct OctetText {
   char digits[4];
   U8 length;
};

constexpr std::array< OctetText, 256 > octetTexts = [] {
   std::array< OctetText, 256 > texts{};
   for( unsigned octet = 0; octet < 256; ++octet ) {
      OctetText & text = texts[octet];
      for( unsigned const unit : { 100U, 10U, 1U } )
         if( octet >= unit || unit == 1 )
            text.digits[text.length++] = static_cast< char >( '0' + octet / unit % 10 );
      text.digits[text.length++] = '.';
   }
   return texts;
}();

} // namespace

char * putIpAddr( char * at, IpAddr::Bytes const & bytes ) noexcept {
   for( U8 const octet : bytes ) {
      OctetText const & text = octetTexts[octet];
      std::memcpy( at, text.digits, sizeof text.digits );
      at += text.length;
   }
   return at - 1; // no dot behind the last
}

std::optional< IpAddr > IpAddr::fromText( std::string_view text ) noexcept {
   Bytes bytes;
   std::size_t index = 0;
   for( U8 & octet : bytes ) {
      if( &octet != bytes.data() && ( index == text.size() || text[index++] != '.' ) )
         return std::nullopt;
      std::size_t const start = index;
      unsigned number = 0;
      while( index != text.size() && text[index] >= '0' && text[index] <= '9' && index - start < 3 )
         number = 10 * number + static_cast< unsigned >( text[index++] - '0' );
      if( index == start || number > 255 || ( text[start] == '0' && index - start > 1 ) )
         return std::nullopt;
      octet = static_cast< U8 >( number );
   }
   if( index != text.size() )
      return std::nullopt;
   return IpAddr{ bytes };
}

Orlo::String IpAddr::stringValue() const {
   char text[longestIpAddrText];
   return { text, putIpAddr( text, bytes_ ) };
}

void appendText( Orlo::StringBuilder & out, IpAddr const & address ) noexcept {
   out.advanceTo( putIpAddr( out.room( longestIpAddrText ), address.bytes() ) );
}

void sequenceToValue( Kiv::CharRange & text, IpAddr * address ) {
   readAddress( text, address, "an IPv4 address" );
}

} // namespace Velnet
