#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"

#include <array>
#include <cstddef>
#include <mutex>
#include <new>
#include <pthread.h>

namespace Kiv {

// The model is repeated: g++ forgets it here otherwise, and a library opened after this one had
// been used could then no longer be linked to it.
constinit thread_local AllocationTracker::Counts * AllocationTracker::threadBlock_
   __attribute__( ( tls_model( "initial-exec" ) ) ) = nullptr;

/// Hands out the slots and knows every thread's block. It is never destroyed, so that objects may
/// still come and go while the process ends.
class AllocationLedger {
 public:
   using Counts = AllocationTracker::Counts;

   static constexpr std::size_t slotCount = 256;

   U32 slotOf( AllocationTracker & tracker ) noexcept;
   void blockIs() noexcept;
   void blockDel() noexcept;
   void count( AllocationTracker & tracker, std::atomic< U64 > Counts::*side ) noexcept;
   AllocationTracker::Usage usage( AllocationTracker const & tracker );
   std::vector< AllocationTracker::Usage > usage();

   void lock() noexcept { mutex_.lock(); }
   void unlock() noexcept { mutex_.unlock(); }

 private:
   struct alignas( 64 ) Block {
      std::array< Counts, slotCount > counts{};
      Block * previous = nullptr;
      Block * next = nullptr;
   };

   // A tracker goes when its shared object is unloaded, so the list keeps a copy of the name.
   struct Name {
      std::array< char, 80 > text{};
      std::size_t length = 0;
   };

   AllocationTracker::Usage slotUsage( U32 slot, std::string_view className ) const;

   std::mutex mutex_;
   Block * blocks_ = nullptr;
   U32 usedSlots_ = 1;
   std::array< Counts, slotCount >
      shared_{}; // what ended threads, and threads as they end, counted
   std::array< Name, slotCount > names_{};
};

namespace {

constinit AllocationLedger ledger;

// A fork waits for the ledger: in the child there is nobody who could unlock it.
[[gnu::constructor]] void guardForks() noexcept {
   static_cast< void >(
      pthread_atfork( [] { ledger.lock(); }, [] { ledger.unlock(); }, [] { ledger.unlock(); } ) );
}

constinit thread_local bool threadEnding = false;

/// Folds the thread's block into the shared one when the thread ends.
struct BlockOwner {
   BlockOwner() noexcept { ledger.blockIs(); }
   ~BlockOwner() { ledger.blockDel(); }
};

} // namespace

U32 AllocationLedger::slotOf( AllocationTracker & tracker ) noexcept {
   U32 slot = tracker.slot_.load( std::memory_order_relaxed );
   if( slot != 0 )
      return slot;
   std::lock_guard const lock( mutex_ );
   slot = tracker.slot_.load( std::memory_order_relaxed );
   if( slot == 0 && usedSlots_ < slotCount ) {
      slot = usedSlots_++;
      Name & name = names_[slot];
      name.length = tracker.className_.copy( name.text.data(), name.text.size() );
      tracker.slot_.store( slot, std::memory_order_relaxed );
   }
   return slot;
}

void AllocationLedger::blockIs() noexcept {
   auto * const block = new( std::nothrow ) Block;
   if( block == nullptr )
      return;
   std::lock_guard const lock( mutex_ );
   block->next = blocks_;
   if( blocks_ != nullptr )
      blocks_->previous = block;
   blocks_ = block;
   AllocationTracker::threadBlock_ = block->counts.data();
}

void AllocationLedger::blockDel() noexcept {
   threadEnding = true;
   Counts * const counts = AllocationTracker::threadBlock_;
   AllocationTracker::threadBlock_ = nullptr;
   if( counts == nullptr )
      return;
   Block * block = nullptr;
   {
      std::lock_guard const lock( mutex_ );
      for( block = blocks_; block->counts.data() != counts; )
         block = block->next;
      for( U32 slot = 1; slot < usedSlots_; ++slot ) {
         Counts & shared = shared_[slot];
         Counts const & own = block->counts[slot];
         shared.allocated.fetch_add( own.allocated.load( std::memory_order_relaxed ),
                                     std::memory_order_relaxed );
         shared.released.fetch_add( own.released.load( std::memory_order_relaxed ),
                                    std::memory_order_relaxed );
      }
      ( block->previous != nullptr ? block->previous->next : blocks_ ) = block->next;
      if( block->next != nullptr )
         block->next->previous = block->previous;
   }
   delete block;
}

void AllocationLedger::count( AllocationTracker & tracker,
                              std::atomic< U64 > Counts::*side ) noexcept {
   U32 const slot = slotOf( tracker );
   Counts & counts = slot != 0 ? shared_[slot] : tracker.unplaced_;
   ( counts.*side ).fetch_add( 1, std::memory_order_relaxed );
}

// Releases are summed before allocations, and a difference below zero is taken as zero: threads
// may be counting meanwhile.
AllocationTracker::Usage AllocationLedger::slotUsage( U32 slot, std::string_view className ) const {
   auto const sum = [&]( std::atomic< U64 > Counts::*side ) {
      U64 total = ( shared_[slot].*side ).load( std::memory_order_relaxed );
      for( Block const * block = blocks_; block != nullptr; block = block->next )
         total += ( block->counts[slot].*side ).load( std::memory_order_relaxed );
      return total;
   };
   U64 const released = sum( &Counts::released );
   U64 const allocated = sum( &Counts::allocated );
   return { std::string( className ), allocated > released ? allocated - released : 0, allocated };
}

AllocationTracker::Usage AllocationLedger::usage( AllocationTracker const & tracker ) {
   std::lock_guard const lock( mutex_ );
   U32 const slot = tracker.slot_.load( std::memory_order_relaxed );
   if( slot != 0 )
      return slotUsage( slot, tracker.className_ );
   U64 const released = tracker.unplaced_.released.load( std::memory_order_relaxed );
   U64 const allocated = tracker.unplaced_.allocated.load( std::memory_order_relaxed );
   return { std::string( tracker.className_ ), allocated > released ? allocated - released : 0,
            allocated };
}

std::vector< AllocationTracker::Usage > AllocationLedger::usage() {
   std::vector< AllocationTracker::Usage > all;
   std::lock_guard const lock( mutex_ );
   for( U32 slot = 1; slot < usedSlots_; ++slot ) {
      Name const & name = names_[slot];
      all.push_back( slotUsage( slot, { name.text.data(), name.length } ) );
   }
   return all;
}

void AllocationTracker::countSlowly( std::atomic< U64 > Counts::*side ) noexcept {
   ledger.slotOf( *this );
   if( !threadEnding )
      thread_local BlockOwner const owner;
   if( Counts * const counts = ownCounts() )
      increment( counts->*side );
   else
      ledger.count( *this, side );
}

U64 AllocationTracker::live() const {
   return ledger.usage( *this ).live;
}

U64 AllocationTracker::total() const {
   return ledger.usage( *this ).total;
}

std::vector< AllocationTracker::Usage > AllocationTracker::usage() {
   return ledger.usage();
}

} // namespace Kiv
