#include "MplsUtils/LspPing/framing/NtpTime.h"

#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

namespace LspPing {

constinit Kiv::AllocationTracker NtpTime::memAllocationTracker_ = Kiv::trackerOf< NtpTime >();
constinit Kiv::AllocationTracker NtpTimeU64::memAllocationTracker_ = Kiv::trackerOf< NtpTimeU64 >();

namespace {

constexpr double ntpEpochOffset = 2208988800.0; // seconds from 1900 to 1970
constexpr double microsecondsPerSecond = 1000000.0;
constexpr double fractionsPerSecond = 4294967296.0;
constexpr double secondsPerFraction = 2.3283064365386963e-10;

// Cuts toward zero and keeps the low 32 bits. A double that 64 bits cannot hold, or that is not a
// number, has no such bits; it gives zero rather than undefined behaviour.
U32 low32( double value ) noexcept {
   constexpr double limit = 9223372036854775808.0;
   if( !( value > -limit && value < limit ) )
      return 0;
   return static_cast< U32 >( static_cast< std::int64_t >( value ) );
}

U32 fractionOf( double ntpTime ) noexcept {
   // The seconds are cut to 32 bits first, so from 2036 on this is more than a fraction; its low
   // 32 bits of microseconds are kept all the same.
   return NtpTime::fractionToU32( ntpTime - low32( ntpTime ) );
}

} // namespace

NtpTimeU64::NtpTimeU64( Kiv::CharRange & in ) {
   KivOrlo::parseAttributes( in, Kiv::typeOf< NtpTimeU64 >(), this );
}

bool NtpTimeU64::isEq( void const * a, void const * b ) noexcept {
   return a == b ||
          *static_cast< NtpTimeU64 const * >( a ) == *static_cast< NtpTimeU64 const * >( b );
}

std::ostream & operator<<( std::ostream & out, NtpTimeU64 const & time ) {
   return KivOrlo::writeValue( out, Kiv::typeOf< NtpTimeU64 >(), &time );
}

double NtpTime::time() noexcept {
   return Kiv::System::currentTimeUtc() + ntpEpochOffset;
}

U32 NtpTime::ntpSeconds() noexcept {
   return low32( time() );
}

U32 NtpTime::ntpFraction() noexcept {
   return fractionOf( time() );
}

U64 NtpTime::ntpTime() noexcept {
   double const now = time();
   return low32( now ) | U64{ fractionOf( now ) } << 32;
}

U32 NtpTime::fractionToU32( Kiv::Seconds s ) noexcept {
   U32 const microseconds = low32( s * microsecondsPerSecond );
   return low32( microseconds / microsecondsPerSecond * fractionsPerSecond );
}

U32 NtpTime::elapsedTime( NtpTimeU64 const & time0, NtpTimeU64 const & time1 ) noexcept {
   U32 const seconds = time1.seconds() - time0.seconds();
   double const fractions1 = time1.fractions();
   double const fractions0 = time0.fractions();
   double const fractions = fractions1 - fractions0;
   return low32( ( fractions * secondsPerFraction + seconds ) * microsecondsPerSecond );
}

} // namespace LspPing
