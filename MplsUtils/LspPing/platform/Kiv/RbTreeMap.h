#pragma once

#include "MplsUtils/LspPing/platform/Orlo/Node.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <concepts>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>

namespace Kiv {

/// One entry of an `RbTreeMap`: lives as long as the map or an iterator holds it.
template < class K, class V >
class MapEntry : public Orlo::Node {
 public:
   static constexpr bool usuallyOneUser = true; // the map

   MapEntry( K key, V const & value ) : key_( key ), value_( value ) {}

   K key() const noexcept { return key_; }
   V const & value() const noexcept { return value_; }

 private:
   template < std::unsigned_integral, class, class >
   friend class RbTreeMap;

   K key_;
   V value_;
};

/// An ordered map whose entries are counted nodes. Writing a key that is there keeps its node; a
/// copy of the map has nodes of its own. The tree is the standard library's red-black tree.
///
/// \tparam Entry  the class of the nodes, where the owner wants one of its own.
template < std::unsigned_integral K, class V, class Entry = MapEntry< K, V > >
class RbTreeMap {
   using Tree = std::map< K, Orlo::Ptr< Entry > >;

 public:
   using Key = K;
   using Value = V;
   static constexpr U32 keyLimit = std::numeric_limits< K >::max(); ///< the highest key

   /// Walks in ascending order of keys and keeps the entry under it alive. To advance it looks for
   /// the next higher key, so entries may come and go meanwhile, the one under it included.
   class Iterator {
    public:
      bool nonnull() const noexcept { return entry_ != nullptr; }
      K key() const noexcept { return entry_->key(); }
      V const & value() const noexcept { return entry_->value(); }
      Orlo::Ptr< Entry > const & entry() const noexcept { return entry_; }
      void advance() noexcept { enter( map_->tree_.upper_bound( key() ) ); }

    private:
      friend class RbTreeMap;
      explicit Iterator( RbTreeMap const & map ) noexcept : map_( &map ) {
         enter( map.tree_.begin() );
      }
      void enter( typename Tree::const_iterator place ) noexcept {
         entry_ = place != map_->tree_.end() ? place->second : nullptr;
      }

      RbTreeMap const * map_;
      Orlo::Ptr< Entry > entry_;
   };

   RbTreeMap() noexcept = default;
   RbTreeMap( RbTreeMap const & other ) : version_( other.version_ ) {
      for( auto const & [key, entry] : other.tree_ )
         tree_.emplace_hint( tree_.end(), key, copyOf( *entry ) );
   }
   RbTreeMap( RbTreeMap && ) noexcept = default;
   ~RbTreeMap() = default;

   /// When memory runs out, std::bad_alloc leaves the map as it was.
   RbTreeMap & operator=( RbTreeMap const & other ) {
      if( this != &other )
         *this = RbTreeMap( other );
      return *this;
   }
   RbTreeMap & operator=( RbTreeMap && other ) noexcept {
      RbTreeMap taken( std::move( other ) ); // may be this very map
      tree_.swap( taken.tree_ );
      version_ = taken.version_;
      return *this;
   }

   /// The map must stay where it is while the iterator is used; it may change.
   Iterator iterator() const noexcept { return Iterator( *this ); }

   bool empty() const noexcept { return tree_.empty(); }
   std::size_t count() const noexcept { return tree_.size(); }
   /// Goes up with every entry written or removed.
   U64 version() const noexcept { return version_; }
   bool contains( K key ) const noexcept { return tree_.find( key ) != tree_.end(); }

   /// A copy of the value, the default where there is no such entry.
   V entry( K key ) const {
      auto const place = tree_.find( key );
      return place != tree_.end() ? place->second->value_ : V();
   }

   void entryIs( K key, V const & value ) {
      auto const place = tree_.lower_bound( key );
      if( place != tree_.end() && place->first == key )
         place->second->value_ = value;
      else
         tree_.emplace_hint( place, key, Orlo::Ptr< Entry >::make( key, value ) );
      ++version_;
   }

   /// Removes the entry and returns its value, the default where there is none.
   V entryDel( K key ) { return remove( tree_.find( key ) ); }

   /// As above for the very entry under the iterator: another one that took its key stays.
   V entryDel( Iterator const & at ) {
      if( !at.nonnull() )
         return V();
      auto const place = tree_.find( at.key() );
      return place != tree_.end() && place->second == at.entry_ ? remove( place ) : V();
   }
   void entryDelAll() noexcept {
      version_ += count();
      tree_.clear();
   }

   friend bool operator==( RbTreeMap const & a, RbTreeMap const & b ) {
      if( a.count() != b.count() )
         return false;
      for( auto i = a.tree_.begin(), j = b.tree_.begin(); i != a.tree_.end(); ++i, ++j )
         if( i->first != j->first || !( i->second->value() == j->second->value() ) )
            return false;
      return true;
   }

 private:
   static Orlo::Ptr< Entry > copyOf( Entry const & entry ) {
      return Orlo::Ptr< Entry >::make( entry.key_, entry.value_ );
   }

   V remove( typename Tree::iterator place ) {
      if( place == tree_.end() )
         return V();
      // An iterator may still hold the entry, so its value is copied rather than moved.
      V value = place->second->value_;
      tree_.erase( place );
      ++version_;
      return value;
   }

   Tree tree_;
   U64 version_ = 0;
};

} // namespace Kiv
