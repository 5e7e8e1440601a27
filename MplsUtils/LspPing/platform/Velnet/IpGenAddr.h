#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <compare>
#include <optional>
#include <string_view>

namespace Velnet {

/// An address of either family, or of none.
class IpGenAddr {
 public:
   /// The IANA address family numbers.
   enum class Family : U8 {
      none = 0,
      ipv4 = 1,
      ipv6 = 2
   };

   /// An address of no family.
   constexpr IpGenAddr() noexcept = default;
   constexpr IpGenAddr( IpAddr const & address ) noexcept : family_{ Family::ipv4 } {
      for( std::size_t index = 0; index < address.bytes().size(); ++index )
         bytes_[index] = address.bytes()[index];
   }
   constexpr IpGenAddr( Ip6Addr const & address ) noexcept
      : family_{ Family::ipv6 },
        bytes_{ address.bytes() } {}

   /// The address that is written so: "none", or what either family takes. Nothing for any other
   /// text.
   LSPPING_PLATFORM_EXPORT static std::optional< IpGenAddr >
   fromText( std::string_view text ) noexcept;

   constexpr Family family() const noexcept { return family_; }
   constexpr bool isIpv4() const noexcept { return family_ == Family::ipv4; }
   constexpr bool isIpv6() const noexcept { return family_ == Family::ipv6; }

   /// Only of an address of that family.
   constexpr IpAddr ipAddr() const noexcept {
      KIV_ASSERT( isIpv4() );
      return { bytes_[0], bytes_[1], bytes_[2], bytes_[3] };
   }
   constexpr Ip6Addr ip6Addr() const noexcept {
      KIV_ASSERT( isIpv6() );
      return Ip6Addr{ bytes_ };
   }

   /// "10.0.0.1", "2001:db8::1" or "none"
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   constexpr bool operator==( IpGenAddr const & other ) const noexcept = default;
   /// No family before IPv4 before IPv6, then in network order.
   constexpr std::strong_ordering operator<=>( IpGenAddr const & other ) const noexcept = default;

 private:
   Family family_ = Family::none;
   Ip6Addr::Bytes bytes_{}; // what the family does not use is zero
};

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         IpGenAddr const & address ) noexcept;

/// Raises `Kiv::RangeException` and leaves the address alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, IpGenAddr * address );

} // namespace Velnet
