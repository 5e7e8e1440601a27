#pragma once

#include "MplsUtils/LspPing/platform/Kiv/RbTreeMap.h"
#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"
#include "MplsUtils/LspPing/record/LspPingFecInfo.h"

namespace LspPing {

/// The FECs of a Target FEC Stack, RFC 8029 section 3.2, by their position.
class LSPPING_EXPORT LspPingFecStack : public LspPingRecord< LspPingFecStack > {
 public:
   /// One FEC in its place. A copy of the stack has entries of its own.
   class LSPPING_EXPORT KivFecInfo final : public Kiv::MapEntry< U8, LspPingFecInfo >,
                                           public VelSlab::Allocated< KivFecInfo > {
    public:
      using MapEntry::MapEntry;
      static Kiv::AllocationTracker memAllocationTracker_;
   };
   using FecInfoMap = Kiv::RbTreeMap< U8, LspPingFecInfo, KivFecInfo >;

   LspPingFecStack() noexcept = default;
   /// There is no text to read a stack from: an assertion.
   explicit LspPingFecStack( Kiv::CharRange & );

   FecInfoMap const & fecInfo() const noexcept { return fecInfo_; }
   /// A copy; a default record where there is none.
   LspPingFecInfo fecInfo( U8 key ) const { return fecInfo_.entry( key ); }
   void fecInfoIs( U8 key, LspPingFecInfo const & value ) { fecInfo_.entryIs( key, value ); }
   /// Returns what was removed; a default record where there was nothing.
   LspPingFecInfo fecInfoDel( U8 key ) { return fecInfo_.entryDel( key ); }
   LspPingFecInfo fecInfoDel( FecInfoMap::Iterator const & at ) { return fecInfo_.entryDel( at ); }
   void fecInfoDelAll() noexcept { fecInfo_.entryDelAll(); }
   /// Ascending by position.
   FecInfoMap::Iterator fecInfoIterator() const noexcept { return fecInfo_.iterator(); }

   bool operator==( LspPingFecStack const & other ) const {
      return this == &other || fecInfo_ == other.fecInfo_;
   }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::collection< &LspPingFecStack::fecInfo_ >( "fecInfo" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   FecInfoMap fecInfo_;
};

} // namespace LspPing
