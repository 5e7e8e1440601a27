#pragma once

#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <atomic>
#include <sys/single_threaded.h>

namespace Orlo {

/// Base of everything that is shared through `Orlo::Ptr`: it counts its users. A node starts with
/// none. The count is changed plainly while the process has one thread and atomically from the
/// second thread on; the process may pass from one to the other while nodes live.
///
/// The virtual functions stand in a fixed order. The class ends in four bytes of padding that a
/// derived class's first 32-bit member takes.
class LSPPING_PLATFORM_EXPORT Node {
 public:
   /// A class whose objects mostly have one user hides this with `true`; their handles then look
   /// for it. For shared objects the look would cost more than it saves.
   static constexpr bool usuallyOneUser = false;

   Node( Node const & ) = delete;
   Node & operator=( Node const & ) = delete;
   virtual ~Node() = default;

   /// Called when the last user is gone: destroys the node. An override that keeps the node may
   /// give it users again; one that does not ends with `Node::lastUserGone()`, which is out of line
   /// so that g++ 12 does not take other handles' later uses for uses after free.
   virtual void lastUserGone();

   /// The node that tells others of changes in this one; null when there is none.
   virtual Node * publisher() const;

   /// The type that a derived class is registered as; the empty one when it is not registered.
   virtual Kiv::TypeRef typeData() const;

   Kiv::TypeRef fwkType() const { return typeData(); }

   /// Users at this moment; none while the node is being destroyed.
   U32 references() const noexcept {
      U32 const count = std::atomic_ref( count_ ).load( std::memory_order_relaxed );
      return count < destroyedCount ? count : 0;
   }

   void ref() const noexcept {
      if( oneThread() )
         ++count_;
      else
         std::atomic_ref( count_ ).fetch_add( 1, std::memory_order_relaxed );
   }

   /// With `likelyLast` a count of one is looked for first: the last user shares the node with
   /// nobody and so is spared the locked instruction.
   void unref( bool likelyLast = false ) const noexcept {
      if( oneThread() ) {
         if( --count_ != 0 )
            return;
      } else {
         std::atomic_ref const count( count_ );
         if( likelyLast && count.load( std::memory_order_acquire ) == 1 )
            count_ = 0;
         else if( count.fetch_sub( 1, std::memory_order_acq_rel ) != 1 )
            return;
      }
      // Nodes are created as non-const objects; const is only how the last user saw this one.
      const_cast< Node * >( this )->lastUserGone();
   }

 protected:
   Node() noexcept = default;

   /// From here on users that come and go do not destroy the node again. `lastUserGone()` does it
   /// before the destructor runs; the destructor of a node that may be destroyed in another way
   /// (in automatic storage, by `delete`) does it itself if it lends the node out.
   void beingDestroyedIs() noexcept { count_ = destroyedCount; }

 private:
   template < class T >
   friend class Ptr;

   static constexpr U32 destroyedCount = U32{ 1 } << 31;

   static bool oneThread() noexcept { return __libc_single_threaded != 0; }

   /// The first user of a node that no other thread can know yet.
   void firstRef() const noexcept {
      if( count_ == 0 ) [[likely]]
         count_ = 1;
      else
         ref();
   }

   mutable U32 count_ = 0;
};
static_assert( sizeof( Node ) == 16 );

} // namespace Orlo
