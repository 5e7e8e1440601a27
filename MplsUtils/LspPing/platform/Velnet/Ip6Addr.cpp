#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Orlo/Digits.h"
#include "MplsUtils/LspPing/platform/Velnet/AddressText.h"

namespace Velnet {

namespace {

constexpr std::size_t groupCount = 8;

/// Eight groups of four digits and seven colons, and what the last `putHex` may write behind.
constexpr std::size_t longestText = 39 + 8;

struct Run {
   std::size_t start = 0;
   std::size_t length = 0;
};

/// The zero groups that "::" stands for: the longest run of two or more, the first of several
/// (RFC 5952 section 4.2).
Run zeroRun( Ip6Addr const & address ) noexcept {
   Run longest;
   Run current;
   for( std::size_t index = 0; index < groupCount; ++index )
      if( address.group( index ) != 0 )
         current = { index + 1, 0 };
      else if( ++current.length > longest.length )
         longest = current;
   return longest.length >= 2 ? longest : Run{ groupCount, 0 };
}

constexpr bool isIpv4Mapped( Run const & zeros, Ip6Addr const & address ) noexcept {
   return zeros.start == 0 && zeros.length == 5 && address.group( 5 ) == 0xFFFF;
}

char * putIp6Addr( char * at, Ip6Addr const & address ) noexcept {
   Run const zeros = zeroRun( address );
   if( isIpv4Mapped( zeros, address ) ) {
      constexpr std::string_view prefix = "::ffff:";
      Ip6Addr::Bytes const & bytes = address.bytes();
      at += prefix.copy( at, prefix.size() );
      return putIpAddr( at, { bytes[12], bytes[13], bytes[14], bytes[15] } );
   }
   for( std::size_t index = 0; index < groupCount; ++index ) {
      if( index == zeros.start ) {
         *at++ = ':';
         index += zeros.length;
         if( index == groupCount ) {
            *at++ = ':';
            break;
         }
      }
      if( index != 0 )
         *at++ = ':';
      at = Orlo::putHex( at, U32{ address.group( index ) }, false );
   }
   return at;
}

/// The bytes that are written before "::" and those behind it; without "::" all are before.
class Sides {
 public:
   bool full() const noexcept { return length_ == bytes_.size(); }
   bool hasGap() const noexcept { return gap_ <= bytes_.size(); }
   void gapIs() noexcept { gap_ = length_; }

   bool append( U8 byte ) noexcept {
      if( full() )
         return false;
      bytes_[length_++] = byte;
      return true;
   }

   /// The whole address, if "::" stands for one group or more or nothing is missing.
   std::optional< Ip6Addr > address() const noexcept {
      if( full() == hasGap() )
         return std::nullopt;
      Ip6Addr::Bytes whole{};
      std::size_t const missing = whole.size() - length_;
      for( std::size_t index = 0; index < length_; ++index )
         whole[index < gap_ ? index : index + missing] = bytes_[index];
      return Ip6Addr{ whole };
   }

 private:
   Ip6Addr::Bytes bytes_;
   std::size_t length_ = 0;
   std::size_t gap_ = bytes_.size() + 1;
};

} // namespace

std::optional< Ip6Addr > Ip6Addr::fromText( std::string_view text ) noexcept {
   Sides sides;
   std::size_t index = 0;
   if( text.starts_with( "::" ) ) {
      sides.gapIs();
      index = 2;
   }
   bool groupNeeded = !sides.hasGap();
   while( groupNeeded || index != text.size() ) {
      std::size_t const start = index;
      unsigned group = 0;
      while( index != text.size() && index - start < 4 && Orlo::hexDigitValue( text[index] ) < 16 )
         group = group << 4 | Orlo::hexDigitValue( text[index++] );
      if( index != text.size() && text[index] == '.' ) {
         std::optional< IpAddr > const tail = IpAddr::fromText( text.substr( start ) );
         if( !tail )
            return std::nullopt;
         for( U8 const byte : tail->bytes() )
            if( !sides.append( byte ) )
               return std::nullopt;
         return sides.address();
      }
      if( index == start || !sides.append( static_cast< U8 >( group >> 8 ) ) ||
          !sides.append( static_cast< U8 >( group ) ) )
         return std::nullopt;
      if( index == text.size() )
         break;
      if( text[index++] != ':' )
         return std::nullopt;
      groupNeeded = true;
      if( index != text.size() && text[index] == ':' ) {
         if( sides.hasGap() )
            return std::nullopt;
         sides.gapIs();
         ++index;
         groupNeeded = false;
      }
   }
   return sides.address();
}

Orlo::String Ip6Addr::stringValue() const {
   return Kiv::_fmt( "%s", *this );
}

void appendText( Orlo::StringBuilder & out, Ip6Addr const & address ) noexcept {
   out.advanceTo( putIp6Addr( out.room( longestText ), address ) );
}

void sequenceToValue( Kiv::CharRange & text, Ip6Addr * address ) {
   readAddress( text, address, "an IPv6 address" );
}

} // namespace Velnet
