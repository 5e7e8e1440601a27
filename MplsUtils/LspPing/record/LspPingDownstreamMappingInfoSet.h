#pragma once

#include "MplsUtils/LspPing/platform/Kiv/RbTreeMap.h"
#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"
#include "MplsUtils/LspPing/record/LspPingDownstreamMappingInfo.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"

namespace LspPing {

/// All the downstream next hops that one reply tells, by an index of the agent's, and the kind of
/// TLV they come from.
class LSPPING_EXPORT LspPingDownstreamMappingInfoSet
   : public LspPingRecord< LspPingDownstreamMappingInfoSet > {
 public:
   /// One next hop under its index. A copy of the set has entries of its own.
   class LSPPING_EXPORT KivLspPingDownstreamMappingInfo final
      : public Kiv::MapEntry< U8, LspPingDownstreamMappingInfo >,
        public VelSlab::Allocated< KivLspPingDownstreamMappingInfo > {
    public:
      using MapEntry::MapEntry;
      static Kiv::AllocationTracker memAllocationTracker_;
   };
   using InfoMap =
      Kiv::RbTreeMap< U8, LspPingDownstreamMappingInfo, KivLspPingDownstreamMappingInfo >;

   /// Of Downstream Detailed Mapping TLVs.
   LspPingDownstreamMappingInfoSet() noexcept = default;
   explicit LspPingDownstreamMappingInfoSet( LspPingDownstreamMappingType mappingTlv ) noexcept
      : mappingTlv_( mappingTlv ) {}
   /// There is no text to read a set from: an assertion.
   explicit LspPingDownstreamMappingInfoSet( Kiv::CharRange & );

   InfoMap const & lspPingDownstreamMappingInfo() const noexcept { return info_; }
   /// A copy; a default record where there is none.
   LspPingDownstreamMappingInfo lspPingDownstreamMappingInfo( U8 key ) const {
      return info_.entry( key );
   }
   void lspPingDownstreamMappingInfoIs( U8 key, LspPingDownstreamMappingInfo const & value ) {
      info_.entryIs( key, value );
   }
   /// Returns what was removed; a default record where there was nothing.
   LspPingDownstreamMappingInfo lspPingDownstreamMappingInfoDel( U8 key ) {
      return info_.entryDel( key );
   }
   LspPingDownstreamMappingInfo lspPingDownstreamMappingInfoDel( InfoMap::Iterator const & at ) {
      return info_.entryDel( at );
   }
   void lspPingDownstreamMappingInfoDelAll() noexcept { info_.entryDelAll(); }
   /// Ascending by index.
   InfoMap::Iterator lspPingDownstreamMappingInfoIterator() const noexcept {
      return info_.iterator();
   }

   LspPingDownstreamMappingType mappingTlv() const noexcept { return mappingTlv_; }

   bool operator==( LspPingDownstreamMappingInfoSet const & other ) const {
      return this == &other || ( mappingTlv_ == other.mappingTlv_ && info_ == other.info_ );
   }

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamMappingInfoSet;
      return Kiv::attributes( Kiv::collection< &Self::info_ >( "lspPingDownstreamMappingInfo" ),
                              Kiv::storedReadOnly< &Self::mappingTlv_ >( "mappingTlv" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   InfoMap info_;
   LspPingDownstreamMappingType mappingTlv_ = LspPingDownstreamMappingType::downstreamDetailedMap;
};

} // namespace LspPing
