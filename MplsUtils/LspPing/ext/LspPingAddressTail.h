#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"

#include <algorithm>
#include <optional>
#include <span>

namespace LspPing {

/// Bytes of an address of that type, where `ipv6` is the type of an IPv6 address: RFC 7555 and
/// RFC 7743 number it differently. Nothing for a type that there is not.
constexpr std::optional< std::size_t > lspPingAddressSize( U8 type, U8 ipv6 ) noexcept {
   if( type == 0 )
      return 0;
   if( type == 1 )
      return sizeof( Velnet::IpAddr );
   if( type == ipv6 )
      return sizeof( Velnet::Ip6Addr );
   return {};
}

/// The address in so many bytes: none unless there are 4 or 16.
constexpr Velnet::IpGenAddr lspPingAddressOf( std::span< U8 const > bytes ) noexcept {
   if( bytes.size() == sizeof( Velnet::IpAddr ) )
      return Velnet::IpAddr( bytes[0], bytes[1], bytes[2], bytes[3] );
   if( bytes.size() != sizeof( Velnet::Ip6Addr ) )
      return {};
   Velnet::Ip6Addr::Bytes address{};
   std::copy( bytes.begin(), bytes.end(), address.begin() );
   return Velnet::Ip6Addr( address );
}

/// An address as text: "'10.0.0.1'", or "none".
struct LspPingAddressText {
   Velnet::IpGenAddr address;

   friend void appendText( Orlo::StringBuilder & out, LspPingAddressText const & text ) {
      if( text.address == Velnet::IpGenAddr() ) {
         out.append( "none" );
         return;
      }
      out.append( '\'' );
      appendText( out, text.address );
      out.append( '\'' );
   }
};

/// The bytes from there on, as many as are wanted; none where there are not as many.
constexpr std::span< U8 const > lspPingPart( std::span< U8 const > bytes, std::size_t from,
                                             std::size_t count ) noexcept {
   return from <= bytes.size() && count <= bytes.size() - from ? bytes.subspan( from, count )
                                                               : std::span< U8 const >();
}

} // namespace LspPing
