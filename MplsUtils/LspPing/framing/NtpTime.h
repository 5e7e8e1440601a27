#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Kiv/NrcPtrInterface.h"
#include "MplsUtils/LspPing/platform/Kiv/System.h"
#include "MplsUtils/LspPing/platform/Kiv/Typed.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"

#include <iosfwd>

namespace LspPing {

/// A 64-bit NTP time stamp, RFC 5905 section 6: a value, not a view. Whole seconds count from
/// 1 January 1900 modulo 2^32, fractions are units of 2^-32 s.
class LSPPING_EXPORT NtpTimeU64 : public Kiv::Typed< NtpTimeU64 > {
 public:
   constexpr NtpTimeU64() noexcept = default;
   constexpr NtpTimeU64( U32 seconds, U32 fractions ) noexcept
      : seconds_( seconds ),
        fractions_( fractions ) {}
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit NtpTimeU64( Kiv::CharRange & in );

   constexpr U32 seconds() const noexcept { return seconds_; }
   constexpr void secondsIs( U32 seconds ) noexcept { seconds_ = seconds; }
   constexpr U32 fractions() const noexcept { return fractions_; }
   constexpr void fractionsIs( U32 fractions ) noexcept { fractions_ = fractions; }

   /// Equality of two objects of this type, for the type system.
   static bool isEq( void const * a, void const * b ) noexcept;
   constexpr bool operator==( NtpTimeU64 const & other ) const noexcept {
      return seconds_ == other.seconds_ && fractions_ == other.fractions_;
   }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::stored< &NtpTimeU64::seconds_ >( "seconds" ),
                              Kiv::stored< &NtpTimeU64::fractions_ >( "fractions" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U32 seconds_ = 0;
   U32 fractions_ = 0;
};

/// Writes the generic text.
LSPPING_EXPORT std::ostream & operator<<( std::ostream & out, NtpTimeU64 const & time );

/// Makes NTP time stamps from the system's clock and measures the time between two.
class LSPPING_EXPORT NtpTime : public Kiv::Typed< NtpTime, Kiv::NrcPtrInterface > {
 public:
   /// The current NTP time in whole seconds, modulo 2^32.
   static U32 ntpSeconds() noexcept;
   /// The fraction of the current NTP time in units of 2^-32 s, in steps of a microsecond.
   static U32 ntpFraction() noexcept;
   /// One reading of the clock: the seconds in the low 32 bits, the fraction in the high ones.
   static U64 ntpTime() noexcept;
   /// The current NTP time in seconds, fraction included.
   static double time() noexcept;
   /// Microseconds from `time0` to `time1`, cut to 32 bits. A `time1` that is earlier by whole
   /// seconds gives a large number, not a negative one.
   static U32 elapsedTime( NtpTimeU64 const & time0, NtpTimeU64 const & time1 ) noexcept;
   /// A fraction of a second in units of 2^-32 s, cut to whole microseconds.
   static U32 fractionToU32( Kiv::Seconds s ) noexcept;

   static consteval auto kivAttributes() {
      using Kiv::operation;
      return Kiv::attributes( operation< &NtpTime::ntpSeconds >( "ntpSeconds" ),
                              operation< &NtpTime::ntpFraction >( "ntpFraction" ),
                              operation< &NtpTime::ntpTime >( "ntpTime" ),
                              operation< &NtpTime::time >( "time" ),
                              operation< &NtpTime::elapsedTime >( "elapsedTime", "time0, time1" ),
                              operation< &NtpTime::fractionToU32 >( "fractionToU32", "s" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};

} // namespace LspPing
