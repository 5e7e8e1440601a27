#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>

/// The slab allocator. Freed memory is kept for the next object of the same size class, in
/// magazines: every thread has two of each class and takes from them without a lock; full and empty
/// magazines are traded in a depot that all threads share.
namespace VelSlab {

/// Size classes are 16, 32, … 256 bytes. What is larger comes from the heap.
inline constexpr std::size_t sizeStep = 16;
inline constexpr std::size_t largestSize = 256;
inline constexpr std::size_t classCount = largestSize / sizeStep;

/// False when the library was built with AddressSanitizer: then every size comes from the heap,
/// whose checks see a use after release. How the caller was built does not matter, so that memory
/// goes back where it came from.
LSPPING_PLATFORM_EXPORT bool recycles() noexcept;

namespace internal {

inline constexpr std::size_t magazineSize = 512;

/// For each size class the place above the topmost object of the thread's loaded magazine.
/// Magazines are aligned to their size, so a full one has its top at a multiple of it; below the
/// lowest object stands a null. A thread starts with one that is full of nulls: both allocation
/// and release then take the slow path, and always do where nothing is recycled.
extern LSPPING_PLATFORM_EXPORT constinit thread_local std::array< void **, classCount > loaded
   __attribute__( ( tls_model( "initial-exec" ) ) );

LSPPING_PLATFORM_EXPORT void * allocateSlowly( std::size_t size );
LSPPING_PLATFORM_EXPORT void releaseSlowly( void * object, std::size_t size ) noexcept;

constexpr std::size_t sizeClassOf( std::size_t size ) noexcept {
   return size == 0 ? 0 : ( size - 1 ) / sizeStep;
}

} // namespace internal

/// Memory for `size` bytes, aligned to 16. Throws std::bad_alloc when there is none.
[[nodiscard]] inline void * allocate( std::size_t size ) {
   if( size > largestSize )
      return ::operator new( size );
   void **& top = internal::loaded[internal::sizeClassOf( size )];
   void * const object = top[-1];
   if( object == nullptr ) [[unlikely]]
      return internal::allocateSlowly( size );
   --top;
   return object;
}

/// Takes memory back from any thread; `size` is the one it was allocated with.
inline void release( void * object, std::size_t size ) noexcept {
   if( size > largestSize ) {
      ::operator delete( object );
      return;
   }
   if( object == nullptr )
      return;
   void **& top = internal::loaded[internal::sizeClassOf( size )];
   if( reinterpret_cast< std::uintptr_t >( top ) % internal::magazineSize == 0 ) [[unlikely]] {
      internal::releaseSlowly( object, size );
      return;
   }
   *top++ = object;
}

[[nodiscard]] inline void * allocateTracked( std::size_t size, Kiv::AllocationTracker & tracker ) {
   void * const object = allocate( size );
   tracker.allocated();
   return object;
}

inline void releaseTracked( void * object, std::size_t size,
                            Kiv::AllocationTracker & tracker ) noexcept {
   tracker.released();
   release( object, size );
}

/// How often any thread went to the depot for objects of this size.
LSPPING_PLATFORM_EXPORT U64 depotVisits( std::size_t size );

/// Empty base of a class whose objects come from the slab and are counted by its static
/// `memAllocationTracker_`: `class X final : public Orlo::Node, public VelSlab::Allocated< X >`.
template < class T >
class Allocated {
 public:
   // Its counterpart is the sized one below, which the check does not look for.
   // NOLINTNEXTLINE(cert-dcl54-cpp,misc-new-delete-overloads)
   static void * operator new( std::size_t size ) {
      return allocateTracked( size, T::memAllocationTracker_ );
   }
   static void * operator new( std::size_t, void * place ) noexcept { return place; }
   static void operator delete( void * object, std::size_t size ) noexcept {
      releaseTracked( object, size, T::memAllocationTracker_ );
   }
   static void operator delete( void *, void * ) noexcept {}

 protected:
   Allocated() noexcept = default;
   ~Allocated() = default;
};

} // namespace VelSlab
