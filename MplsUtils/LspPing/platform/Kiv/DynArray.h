#pragma once

#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <type_traits>
#include <vector>

namespace Kiv {

/// A dense array that grows to the highest index written and never shrinks. Entries that were not
/// written read as T's default. Writing an index of 2003003 or more is an assertion; exhausted
/// memory ends the process.
template < class T >
class DynArray {
   static_assert( std::is_trivially_copyable_v< T > && !std::is_same_v< T, bool > );

 public:
   using Key = U32;
   using Value = T;
   static constexpr U32 keyLimit = 2003002; ///< the highest index

   /// Walks from the lowest index written to the end, entries in between included.
   class Iterator {
    public:
      bool nonnull() const noexcept { return index_ < array_->end(); }
      U32 key() const noexcept { return index_; }
      T const & value() const noexcept { return array_->entries_[index_]; }
      void advance() noexcept { ++index_; }

    private:
      friend class DynArray;
      explicit Iterator( DynArray const & array ) noexcept
         : array_( &array ),
           index_( array.lowest() ) {}

      DynArray const * array_;
      U32 index_;
   };

   /// The array must stay where it is while the iterator is used; it may change.
   Iterator iterator() const noexcept { return Iterator( *this ); }

   bool empty() const noexcept { return entries_.empty(); }
   /// One past the highest index written, 0 when none was.
   U32 end() const noexcept { return static_cast< U32 >( entries_.size() ); }
   U32 lowest() const noexcept { return empty() ? 0 : lowest_; }
   std::size_t count() const noexcept { return end() - lowest(); }
   /// Entries that fit without growing.
   std::size_t capacity() const noexcept { return entries_.capacity(); }
   /// Goes up with every write; a deletion that has nothing to change writes nothing.
   U64 version() const noexcept { return version_; }
   bool contains( U32 index ) const noexcept { return index >= lowest() && index < end(); }

   T entry( U32 index ) const noexcept { return index < end() ? entries_[index] : T(); }

   void entryIs( U32 index, T const & value ) noexcept {
      T const kept = value; // may lie in the memory that growing releases
      if( empty() || index < lowest_ )
         lowest_ = index;
      if( index >= end() )
         endIs( index );
      entries_[index] = kept;
      ++version_;
   }

   /// All of them from index 0 on; those below `lowest()` are the default.
   std::span< T const > entries() const noexcept { return entries_; }

   /// Sets the entry to the default, the end stays. Returns what it was.
   T entryDel( U32 index ) noexcept {
      T const previous = entry( index );
      if( !( previous == T() ) )
         entryIs( index, T() );
      return previous;
   }
   T entryDel( Iterator const & at ) noexcept { return at.nonnull() ? entryDel( at.key() ) : T(); }
   void entryDelAll() noexcept {
      for( U32 index = lowest(); index < end(); ++index )
         entryDel( index );
   }

   /// An empty array differs from every other one; else what one array does not hold counts as the
   /// default.
   friend bool operator==( DynArray const & a, DynArray const & b ) noexcept {
      if( a.empty() != b.empty() )
         return false;
      DynArray const & shorter = a.end() < b.end() ? a : b;
      DynArray const & longer = a.end() < b.end() ? b : a;
      auto const rest = longer.entries_.begin() + shorter.end();
      return std::equal( shorter.entries_.begin(), shorter.entries_.end(),
                         longer.entries_.begin() ) &&
             std::all_of( rest, longer.entries_.end(),
                          []( T const & entry ) { return entry == T(); } );
   }

 private:
   // Capacity doubles, so that filling an array byte by byte stays linear.
   void endIs( std::size_t index ) noexcept {
      std::size_t const newEntries = index + 1;
      KIV_ASSERT( newEntries < 2003004 );
      orOutOfMemory( "Kiv::DynArray", [&] {
         if( newEntries > capacity() )
            entries_.reserve( empty() ? index + 4 : std::max( 2 * capacity(), newEntries ) );
         entries_.resize( newEntries );
      } );
   }

   std::vector< T > entries_; // from index 0, those below lowest_ included
   U32 lowest_ = 0;           // means nothing while there are no entries
   U64 version_ = 0;
};

} // namespace Kiv
