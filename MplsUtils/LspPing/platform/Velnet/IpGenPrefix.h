#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <optional>
#include <string_view>

namespace Velnet {

/// An address and the number of its leading bits that count; the other bits are kept as they are.
/// Without a family the length is 0.
class IpGenPrefix {
 public:
   /// A prefix of no family.
   constexpr IpGenPrefix() noexcept = default;
   /// Raises `Kiv::RangeException` for a length that the family does not have.
   constexpr IpGenPrefix( IpGenAddr const & address, U8 length )
      : address_{ address },
        length_{ length } {
      if( length > longest( address ) )
         lengthRangeError( length );
   }

   /// The prefix that is written so: "none", or an address of either family, a slash and the length
   /// in decimal. Nothing for any other text.
   LSPPING_PLATFORM_EXPORT static std::optional< IpGenPrefix >
   fromText( std::string_view text ) noexcept;

   constexpr IpGenAddr const & address() const noexcept { return address_; }
   /// In bits.
   constexpr U8 length() const noexcept { return length_; }

   /// The bits of an address of that family.
   static constexpr U8 longest( IpGenAddr const & address ) noexcept {
      return address.isIpv4() ? 32 : address.isIpv6() ? 128 : 0;
   }

   /// "10.0.0.0/8", or "none".
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   constexpr bool operator==( IpGenPrefix const & other ) const noexcept = default;

 private:
   [[noreturn]] LSPPING_PLATFORM_EXPORT static void lengthRangeError( U8 length );

   IpGenAddr address_;
   U8 length_ = 0;
};

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         IpGenPrefix const & prefix ) noexcept;

/// Raises `Kiv::RangeException` and leaves the prefix alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, IpGenPrefix * prefix );

} // namespace Velnet
