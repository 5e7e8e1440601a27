#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"

#include <algorithm>
#include <mutex>
#include <pthread.h>
#include <utility>

namespace VelSlab {

namespace {

#if defined( __SANITIZE_ADDRESS__ )
constexpr bool addressSanitizer = true;
#elif !defined( __has_feature )
constexpr bool addressSanitizer = false;
#else
constexpr bool addressSanitizer = __has_feature( address_sanitizer );
#endif

/// Room for the objects that one thread holds or that are traded in the depot as one.
struct alignas( internal::magazineSize ) Magazine {
   static constexpr std::size_t capacity = internal::magazineSize / sizeof( void * ) - 3;

   bool empty() const noexcept { return top == rounds.data(); }
   bool full() const noexcept { return top == rounds.data() + capacity; }
   void push( void * object ) noexcept { *top++ = object; }

   Magazine * next = nullptr; // in the depot
   void ** top = nullptr;     // stale while the magazine is loaded
   void * floor = nullptr;    // always null: below the lowest object
   std::array< void *, capacity > rounds{};
};
static_assert( sizeof( Magazine ) == internal::magazineSize );

/// Stands for a magazine where a thread has none.
constinit Magazine noMagazine;

constexpr void ** noTop() noexcept {
   return noMagazine.rounds.data() + Magazine::capacity;
}

constexpr std::array< void **, classCount > noTops() noexcept {
   std::array< void **, classCount > tops{};
   tops.fill( noTop() );
   return tops;
}

class MagazineList {
 public:
   bool empty() const noexcept { return first_ == nullptr; }

   void push( Magazine * magazine ) noexcept {
      magazine->next = first_;
      first_ = magazine;
   }

   Magazine * pop() noexcept { return std::exchange( first_, first_->next ); }

 private:
   Magazine * first_ = nullptr;
};

/// What the threads share of one size class. Blocks are never given back.
class alignas( 64 ) Depot {
 public:
   /// A magazine with at least one object, for an empty one or for none.
   Magazine * filledFor( Magazine * empty, std::size_t size ) {
      std::lock_guard const lock( mutex_ );
      ++visits_;
      if( empty != nullptr )
         empty_.push( empty );
      return filled_.empty() ? newlyFilled( size ) : filled_.pop();
   }

   /// An empty magazine for a full one or for none; null when there is no memory for it, and then
   /// the full one stays the caller's.
   Magazine * emptyFor( Magazine * full ) noexcept {
      std::lock_guard const lock( mutex_ );
      ++visits_;
      if( empty_.empty() && !magazinesAdded() )
         return nullptr;
      if( full != nullptr )
         filled_.push( full );
      return empty_.pop();
   }

   void magazineIs( Magazine * magazine ) noexcept {
      std::lock_guard const lock( mutex_ );
      ( magazine->empty() ? empty_ : filled_ ).push( magazine );
   }

   void * object( std::size_t size ) {
      std::lock_guard const lock( mutex_ );
      ++visits_;
      if( loose_ == nullptr && !filled_.empty() )
         spread( filled_.pop() );
      if( loose_ != nullptr )
         return std::exchange( loose_, loose_->next );
      roomFor( size );
      return carved( size );
   }

   void objectIs( void * object ) noexcept {
      std::lock_guard const lock( mutex_ );
      ++visits_;
      loosen( object );
   }

   void lock() noexcept { mutex_.lock(); }
   void unlock() noexcept { mutex_.unlock(); }

   U64 visits() {
      std::lock_guard const lock( mutex_ );
      return visits_;
   }

 private:
   static constexpr std::size_t cacheLine = 64;
   static constexpr std::size_t blockSize = std::size_t{ 32 } * 1024;

   struct Loose {
      Loose * next;
   };

   struct alignas( cacheLine ) Block {
      Block * next;
   };

   void loosen( void * object ) noexcept { loose_ = ::new( object ) Loose{ loose_ }; }

   void spread( Magazine * magazine ) noexcept {
      while( !magazine->empty() )
         loosen( *--magazine->top );
      empty_.push( magazine );
   }

   bool magazinesAdded() noexcept {
      constexpr std::size_t count = 8;
      void * const memory = ::operator new( count * sizeof( Magazine ),
                                            std::align_val_t{ alignof( Magazine ) }, std::nothrow );
      if( memory == nullptr )
         return false;
      for( std::size_t i = 0; i < count; ++i ) {
         auto * const magazine =
            ::new( static_cast< std::byte * >( memory ) + i * sizeof( Magazine ) ) Magazine;
         magazine->top = magazine->rounds.data();
         empty_.push( magazine );
      }
      return true;
   }

   void roomFor( std::size_t size ) {
      if( left_ >= size )
         return;
      void * const memory = ::operator new( blockSize, std::align_val_t{ alignof( Block ) } );
      blocks_ = ::new( memory ) Block{ blocks_ };
      next_ = static_cast< std::byte * >( memory ) + sizeof( Block );
      left_ = blockSize - sizeof( Block );
   }

   void * carved( std::size_t size ) noexcept {
      left_ -= size;
      return std::exchange( next_, next_ + size );
   }

   /// Fills an empty magazine with loose objects, or else with new ones, the lowest on top. New
   /// ones start at a cache line, so that two threads' objects seldom share one.
   Magazine * newlyFilled( std::size_t size ) {
      if( empty_.empty() && !magazinesAdded() )
         throw std::bad_alloc();
      if( loose_ == nullptr ) {
         carved( left_ % cacheLine );
         roomFor( size );
      }
      Magazine * const magazine = empty_.pop();
      while( loose_ != nullptr && !magazine->full() )
         magazine->push( std::exchange( loose_, loose_->next ) );
      if( magazine->empty() ) {
         std::size_t const count = std::min( Magazine::capacity, left_ / size );
         magazine->top += count;
         for( std::size_t i = 1; i <= count; ++i )
            *( magazine->top - i ) = carved( size );
      }
      return magazine;
   }

   std::mutex mutex_;
   U64 visits_ = 0;
   MagazineList filled_;
   MagazineList empty_;
   Loose * loose_ = nullptr; // objects outside any magazine
   Block * blocks_ = nullptr;
   std::byte * next_ = nullptr; // what is not yet carved of the newest block
   std::size_t left_ = 0;
};

constinit std::array< Depot, classCount > depots;

void lockAll() noexcept {
   for( Depot & depot : depots )
      depot.lock();
}

void unlockAll() noexcept {
   for( Depot & depot : depots )
      depot.unlock();
}

// A fork waits for the depots: in the child there is nobody who could unlock them.
[[gnu::constructor]] void guardForks() noexcept {
   static_cast< void >( pthread_atfork( lockAll, unlockAll, unlockAll ) );
}

/// Each thread's second magazine of every class: full, empty, or none.
constinit thread_local std::array< Magazine *, classCount > spares{};

enum class Stage : U8 {
   before,
   during,
   after
};
constinit thread_local Stage stage = Stage::before;

constexpr std::size_t sizeOf( std::size_t sizeClass ) noexcept {
   return ( sizeClass + 1 ) * sizeStep;
}

/// Takes the loaded magazine out, with its top brought up to date; null when there is none.
Magazine * unloaded( std::size_t sizeClass ) noexcept {
   void ** const top = std::exchange( internal::loaded[sizeClass], noTop() );
   if( top == noTop() )
      return nullptr;
   // The byte below the top lies in the magazine, which is aligned to its size.
   // NOLINTNEXTLINE(performance-no-int-to-ptr)
   auto * const magazine = reinterpret_cast< Magazine * >(
      ( reinterpret_cast< std::uintptr_t >( top ) - 1 ) & ~( internal::magazineSize - 1 ) );
   magazine->top = top;
   return magazine;
}

void load( Magazine * magazine, std::size_t sizeClass ) noexcept {
   internal::loaded[sizeClass] = magazine->top;
}

/// Gives the thread's magazines back when it ends.
struct MagazineOwner {
   MagazineOwner() noexcept { stage = Stage::during; }
   ~MagazineOwner() {
      stage = Stage::after;
      for( std::size_t sizeClass = 0; sizeClass < classCount; ++sizeClass ) {
         for( Magazine * const magazine :
              { unloaded( sizeClass ), std::exchange( spares[sizeClass], nullptr ) } )
            if( magazine != nullptr )
               depots[sizeClass].magazineIs( magazine );
      }
   }
};

/// False once the thread has given its magazines back: what is destroyed after that, at the end
/// of the process above all, goes straight to the depot.
bool holdsMagazines() noexcept {
   if( stage == Stage::before )
      thread_local MagazineOwner const owner;
   return stage == Stage::during;
}

} // namespace

namespace internal {

// The model is repeated: g++ forgets it here otherwise, and a library opened after this one had
// been used could then no longer be linked to it.
constinit thread_local std::array< void **, classCount > loaded
   __attribute__( ( tls_model( "initial-exec" ) ) ) = noTops();

void * allocateSlowly( std::size_t size ) {
   if( addressSanitizer )
      return ::operator new( size );
   std::size_t const sizeClass = sizeClassOf( size );
   Depot & depot = depots[sizeClass];
   if( !holdsMagazines() )
      return depot.object( sizeOf( sizeClass ) );
   Magazine * filled = std::exchange( spares[sizeClass], nullptr );
   if( filled == nullptr || filled->empty() )
      filled = depot.filledFor( filled, sizeOf( sizeClass ) );
   spares[sizeClass] = unloaded( sizeClass );
   void * const object = *--filled->top;
   load( filled, sizeClass );
   return object;
}

void releaseSlowly( void * object, std::size_t size ) noexcept {
   if( addressSanitizer ) {
      ::operator delete( object );
      return;
   }
   std::size_t const sizeClass = sizeClassOf( size );
   Depot & depot = depots[sizeClass];
   if( !holdsMagazines() ) {
      depot.objectIs( object );
      return;
   }
   Magazine * empty = spares[sizeClass];
   if( empty == nullptr || !empty->empty() ) {
      empty = depot.emptyFor( empty );
      if( empty == nullptr ) {
         depot.objectIs( object );
         return;
      }
   }
   spares[sizeClass] = unloaded( sizeClass );
   empty->push( object );
   load( empty, sizeClass );
}

} // namespace internal

bool recycles() noexcept {
   return !addressSanitizer;
}

U64 depotVisits( std::size_t size ) {
   return size > largestSize ? 0 : depots[internal::sizeClassOf( size )].visits();
}

} // namespace VelSlab
