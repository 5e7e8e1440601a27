#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <bit>
#include <compare>
#include <optional>
#include <string_view>
#include <type_traits>

namespace Velnet {

/// An IPv4 address as it lies in a packet: four bytes in network order, at any address.
class IpAddr {
 public:
   using Bytes = std::array< U8, 4 >;

   /// 0.0.0.0
   constexpr IpAddr() noexcept = default;
   constexpr IpAddr( U8 first, U8 second, U8 third, U8 fourth ) noexcept
      : bytes_{ first, second, third, fourth } {}
   constexpr explicit IpAddr( Bytes const & bytes ) noexcept : bytes_{ bytes } {}

   /// From the number whose most significant byte is the first octet.
   static constexpr IpAddr fromHost( U32 host ) noexcept {
      if constexpr( std::endian::native == std::endian::little )
         host = __builtin_bswap32( host );
      return IpAddr{ std::bit_cast< Bytes >( host ) };
   }
   constexpr U32 host() const noexcept {
      U32 const stored = std::bit_cast< U32 >( bytes_ );
      return std::endian::native == std::endian::little ? __builtin_bswap32( stored ) : stored;
   }

   /// The address that is written "10.0.0.1": four decimal octets without leading zeros and nothing
   /// else. Nothing for any other text.
   LSPPING_PLATFORM_EXPORT static std::optional< IpAddr >
   fromText( std::string_view text ) noexcept;

   constexpr Bytes const & bytes() const noexcept { return bytes_; }

   /// "10.0.0.1"
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   constexpr bool operator==( IpAddr const & other ) const noexcept {
      return host() == other.host();
   }
   constexpr std::strong_ordering operator<=>( IpAddr const & other ) const noexcept {
      return host() <=> other.host();
   }

 private:
   Bytes bytes_{};
};
static_assert( sizeof( IpAddr ) == 4 && alignof( IpAddr ) == 1 );
static_assert( std::is_trivially_copyable_v< IpAddr > );

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         IpAddr const & address ) noexcept;

/// Raises `Kiv::RangeException` and leaves the address alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, IpAddr * address );

} // namespace Velnet
