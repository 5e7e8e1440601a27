#pragma once

#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"
#include "MplsUtils/LspPing/record/LspPingDownstreamLabelEntry.h"

namespace LspPing {

/// The label stack that a downstream next hop expects, RFC 8029 section 3.4.1.2, position 0 on top.
class LSPPING_EXPORT LspPingDownstreamLabelStack
   : public LspPingRecord< LspPingDownstreamLabelStack > {
 public:
   using LabelEntries = Kiv::DynArray< LspPingDownstreamLabelEntry >;

   LspPingDownstreamLabelStack() noexcept = default;
   /// There is no text to read a stack from: an assertion.
   explicit LspPingDownstreamLabelStack( Kiv::CharRange & );

   LabelEntries const & labelEntry() const noexcept { return labelEntry_; }
   /// The shared default entry where the stack holds none.
   LspPingDownstreamLabelEntry labelEntry( U32 position ) const noexcept {
      return position < labelEntry_.end() ? labelEntry_.entry( position )
                                          : LspPingDownstreamLabelEntry::defaultEntry();
   }
   void labelEntryIs( U32 position, LspPingDownstreamLabelEntry entry ) noexcept {
      labelEntry_.entryIs( position, entry );
   }
   /// Zeroes the entry and returns what it was; the stack stays as long as it is.
   LspPingDownstreamLabelEntry labelEntryDel( U32 position ) noexcept {
      return labelEntry_.entryDel( position );
   }
   LspPingDownstreamLabelEntry labelEntryDel( LabelEntries::Iterator const & at ) noexcept {
      return labelEntry_.entryDel( at );
   }
   void labelEntryDelAll() noexcept { labelEntry_.entryDelAll(); }
   LabelEntries::Iterator labelEntryIterator() const noexcept { return labelEntry_.iterator(); }

   /// How many positions `valid()` looks at, whatever the stack holds.
   U32 size() const noexcept { return size_; }
   void sizeIs( U32 size ) noexcept { size_ = size; }

   /// True when a position below the size has its bottom-of-stack bit set, or when the size is 0.
   ///
   /// Beware: positions are counted in 8 bits. With a size of 256 or more and no such bit at
   /// positions 0 to 255 this never returns; ask `validEnds()` first where that can be.
   bool valid() const noexcept;
   /// Whether `valid()` returns.
   bool validEnds() const noexcept;

   bool operator==( LspPingDownstreamLabelStack const & other ) const noexcept {
      return this == &other || ( size_ == other.size_ && labelEntry_ == other.labelEntry_ );
   }

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamLabelStack;
      return Kiv::attributes(
         Kiv::collection< &Self::labelEntry_ >( "labelEntry" ),
         Kiv::stored< &Self::size_ >( "size" ),
         Kiv::guarded< &Self::validEnds >( Kiv::computed< &Self::valid >( "valid" ) ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   LabelEntries labelEntry_;
   U32 size_ = 0;
};

} // namespace LspPing
