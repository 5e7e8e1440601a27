#pragma once

#include "MplsUtils/LspPing/platform/Orlo/Node.h"

#include <concepts>
#include <cstddef>
#include <utility>

namespace Orlo {

/// A node type whose handles serve as handles to T.
template < class Derived, class T >
concept ConvertibleTo = std::convertible_to< Derived *, T * >;

/// Counted pointer to a node: the node lives as long as one of them refers to it. One handle must
/// not be changed by two threads at once; handles to the same node may be.
template < class T >
class Ptr {
 public:
   using element_type = T;

   constexpr Ptr() noexcept = default;
   constexpr Ptr( std::nullptr_t ) noexcept {}
   Ptr( T * node ) noexcept : node_( node ) { ref(); }
   Ptr( Ptr const & other ) noexcept : node_( other.node_ ) { ref(); }
   Ptr( Ptr && other ) noexcept : node_( std::exchange( other.node_, nullptr ) ) {}

   template < ConvertibleTo< T > Derived >
   Ptr( Ptr< Derived > const & other ) noexcept : node_( other.node_ ) {
      ref();
   }

   template < ConvertibleTo< T > Derived >
   Ptr( Ptr< Derived > && other ) noexcept : node_( std::exchange( other.node_, nullptr ) ) {}

   ~Ptr() {
      if( node_ != nullptr )
         node_->unref( T::usuallyOneUser );
   }

   // The old node goes last: its destruction may reach this very handle.
   Ptr & operator=( Ptr other ) noexcept {
      swap( other );
      return *this;
   }

   /// A new T with this handle as its first user.
   template < class... Arguments >
   static Ptr make( Arguments &&... arguments ) {
      Ptr ptr;
      ptr.node_ = new T( std::forward< Arguments >( arguments )... );
      ptr.node_->firstRef();
      return ptr;
   }

   void reset() noexcept { Ptr().swap( *this ); }
   void reset( T * node ) noexcept { Ptr( node ).swap( *this ); }
   void swap( Ptr & other ) noexcept { std::swap( node_, other.node_ ); }
   friend void swap( Ptr & a, Ptr & b ) noexcept { a.swap( b ); }

   T * get() const noexcept { return node_; }
   T * operator->() const noexcept { return node_; }
   T & operator*() const noexcept { return *node_; }
   explicit operator bool() const noexcept { return node_ != nullptr; }

   template < class U >
   friend bool operator==( Ptr const & a, Ptr< U > const & b ) noexcept {
      return a.get() == b.get();
   }
   friend bool operator==( Ptr const & a, T const * b ) noexcept { return a.get() == b; }
   friend bool operator==( Ptr const & a, std::nullptr_t ) noexcept { return a.get() == nullptr; }

 private:
   template < class U >
   friend class Ptr;

   void ref() const noexcept {
      if( node_ != nullptr )
         node_->ref();
   }

   T * node_ = nullptr;
};

} // namespace Orlo
