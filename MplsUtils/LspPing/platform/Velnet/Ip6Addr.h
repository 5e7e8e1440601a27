#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <compare>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace Velnet {

/// An IPv6 address as it lies in a packet: sixteen bytes in network order, at any address.
class Ip6Addr {
 public:
   using Bytes = std::array< U8, 16 >;

   /// ::
   constexpr Ip6Addr() noexcept = default;
   constexpr explicit Ip6Addr( Bytes const & bytes ) noexcept : bytes_{ bytes } {}

   /// The address that is written so in one of the forms of RFC 4291 section 2.2, without prefix
   /// length or zone. Nothing for any other text.
   LSPPING_PLATFORM_EXPORT static std::optional< Ip6Addr >
   fromText( std::string_view text ) noexcept;

   constexpr Bytes const & bytes() const noexcept { return bytes_; }

   /// One of the eight 16-bit groups in host order.
   constexpr U16 group( std::size_t index ) const noexcept {
      return static_cast< U16 >( bytes_[2 * index] << 8 | bytes_[2 * index + 1] );
   }

   /// The form of RFC 5952: lower case, the longest run of zero groups as "::", an IPv4-mapped
   /// address as "::ffff:10.0.0.1".
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   constexpr bool operator==( Ip6Addr const & other ) const noexcept = default;
   /// In network order.
   constexpr std::strong_ordering operator<=>( Ip6Addr const & other ) const noexcept = default;

 private:
   Bytes bytes_{};
};
static_assert( sizeof( Ip6Addr ) == 16 && alignof( Ip6Addr ) == 1 );
static_assert( std::is_trivially_copyable_v< Ip6Addr > );

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         Ip6Addr const & address ) noexcept;

/// Raises `Kiv::RangeException` and leaves the address alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, Ip6Addr * address );

} // namespace Velnet
