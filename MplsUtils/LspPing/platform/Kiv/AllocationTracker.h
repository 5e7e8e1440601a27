#pragma once

#include "MplsUtils/LspPing/platform/Kiv/TypeName.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

namespace Kiv {

/// Counts the objects of one class. Each class has one, as a static constinit member, and tells it
/// of every allocation and release. Every thread counts in a block of its own, so counting costs
/// neither a lock nor a shared cache line; whoever asks pays for the sum. An object may be released
/// on another thread than the one that allocated it.
class LSPPING_PLATFORM_EXPORT AllocationTracker {
 public:
   struct Usage {
      std::string className;
      U64 live;
      U64 total;
   };

   /// The name is not copied: give a literal.
   explicit constexpr AllocationTracker( std::string_view className ) noexcept
      : className_( className ) {}
   AllocationTracker( AllocationTracker const & ) = delete;
   AllocationTracker & operator=( AllocationTracker const & ) = delete;

   constexpr std::string_view className() const noexcept { return className_; }

   void allocated() noexcept {
      if( Counts * const counts = ownCounts() ) [[likely]]
         increment( counts->allocated );
      else
         countSlowly( &Counts::allocated );
   }

   void released() noexcept {
      if( Counts * const counts = ownCounts() ) [[likely]]
         increment( counts->released );
      else
         countSlowly( &Counts::released );
   }

   /// Objects allocated and not yet released; exact while no other thread is counting.
   U64 live() const;

   /// Objects ever allocated.
   U64 total() const;

   /// Every tracker that has counted so far, in the order of their first objects. Trackers need
   /// no registration at load: one that never counted is not listed.
   static std::vector< Usage > usage();

 private:
   friend class AllocationLedger;

   struct Counts {
      std::atomic< U64 > allocated = 0;
      std::atomic< U64 > released = 0;
   };

   /// This tracker's counts in the calling thread's block; null before either has its place.
   Counts * ownCounts() const noexcept {
      U32 const slot = slot_.load( std::memory_order_relaxed );
      Counts * const block = threadBlock_;
      return slot != 0 && block != nullptr ? block + slot : nullptr;
   }

   /// Only the owning thread writes, so no locked instruction is needed; readers may look any time.
   static void increment( std::atomic< U64 > & count ) noexcept {
      count.store( count.load( std::memory_order_relaxed ) + 1, std::memory_order_relaxed );
   }

   void countSlowly( std::atomic< U64 > Counts::*side ) noexcept;

   static constinit thread_local Counts * threadBlock_
      __attribute__( ( tls_model( "initial-exec" ) ) );

   std::string_view className_;
   std::atomic< U32 > slot_ = 0; // place in every block; 0: none yet, or all were taken
   Counts unplaced_;             // what is counted without a place
};

/// The tracker of a class, under the name by which the type system knows it:
/// `constinit Kiv::AllocationTracker X::memAllocationTracker_ = Kiv::trackerOf< X >();`
template < class T >
consteval AllocationTracker trackerOf() noexcept {
   static_assert(
      Registered< T > || !requires { T::kivAttributes(); },
      "a class with attributes has no place in its module's list" );
   return AllocationTracker( typeName< T > );
}

} // namespace Kiv
