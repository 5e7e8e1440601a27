#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace Velnet {

/// Label stack entries from the top of the stack down. Nothing is required of their S bits.
class MplsLabelStack {
 public:
   MplsLabelStack() noexcept = default;
   MplsLabelStack( std::initializer_list< MplsLabelEntry > entries ) : entries_{ entries } {}

   std::size_t size() const noexcept { return entries_.size(); }
   bool empty() const noexcept { return entries_.empty(); }

   /// The entry at that depth, 0 being the top; the shared default entry where there is none.
   MplsLabelEntry entry( std::size_t depth ) const noexcept {
      return depth < size() ? entries_[depth] : MplsLabelEntry::defaultEntry();
   }
   /// Adds an entry below all others.
   void entryAdd( MplsLabelEntry entry ) { entries_.push_back( entry ); }
   void entryDelAll() noexcept { entries_.clear(); }

   auto begin() const noexcept { return entries_.begin(); }
   auto end() const noexcept { return entries_.end(); }

   /// "{16/0/0/255, 17/0/1/64}"
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   bool operator==( MplsLabelStack const & other ) const noexcept = default;

 private:
   std::vector< MplsLabelEntry > entries_;
};

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         MplsLabelStack const & stack ) noexcept;

/// Raises `Kiv::RangeException` and leaves the stack alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, MplsLabelStack * stack );

} // namespace Velnet
