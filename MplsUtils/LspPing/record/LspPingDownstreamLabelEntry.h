#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingRecord.h"

#include <type_traits>

namespace LspPing {

// One entry of a downstream label stack, its four bytes as on the wire, RFC 8029 section 3.4.1.2.
// v3 is the TTL of a label stack entry, but in a Label Stack sub-TLV the label's protocol.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+---------------+-------+-----+-+---------------+
// |      v0       |      v1       |       v2      |      v3       |
// |                 label                 |  TC |S|               |
// +---------------------------------------+-----+-+---------------+
class LSPPING_EXPORT LspPingDownstreamLabelEntry
   : public LspPingRecord< LspPingDownstreamLabelEntry > {
 public:
   /// All bits zero.
   constexpr LspPingDownstreamLabelEntry() noexcept = default;
   /// From the bytes in the order of the wire.
   constexpr LspPingDownstreamLabelEntry( U8 v0, U8 v1, U8 v2, U8 v3 ) noexcept
      : v0_( v0 ),
        v1_( v1 ),
        v2_( v2 ),
        v3_( v3 ) {}
   /// From the word in host order.
   constexpr explicit LspPingDownstreamLabelEntry( U32 word ) noexcept
      : v0_( static_cast< U8 >( word >> 24 ) ),
        v1_( static_cast< U8 >( word >> 16 ) ),
        v2_( static_cast< U8 >( word >> 8 ) ),
        v3_( static_cast< U8 >( word ) ) {}
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit LspPingDownstreamLabelEntry( Kiv::CharRange & in );

   constexpr U8 v0() const noexcept { return v0_; }
   constexpr void v0Is( U8 byte ) noexcept { v0_ = byte; }
   constexpr U8 v1() const noexcept { return v1_; }
   constexpr void v1Is( U8 byte ) noexcept { v1_ = byte; }
   constexpr U8 v2() const noexcept { return v2_; }
   constexpr void v2Is( U8 byte ) noexcept { v2_ = byte; }
   constexpr U8 v3() const noexcept { return v3_; }
   constexpr void v3Is( U8 byte ) noexcept { v3_ = byte; }
   /// In host order.
   constexpr U32 word() const noexcept {
      return U32{ v0_ } << 24 | U32{ v1_ } << 16 | U32{ v2_ } << 8 | v3_;
   }
   constexpr bool bottomOfStack() const noexcept { return ( word() & 0x100 ) != 0; }

   /// What a stack has at a position that it does not hold. It is set while libraries are loaded,
   /// not later: readers take no lock.
   static LspPingDownstreamLabelEntry const & defaultEntry() noexcept;
   static void defaultEntryIs( U32 word ) noexcept;

   constexpr bool operator==( LspPingDownstreamLabelEntry const & other ) const noexcept {
      return word() == other.word();
   }
   U64 kivHash() const noexcept { return Velnet::NetU32( word() ).hash(); }

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamLabelEntry;
      return Kiv::attributes( Kiv::stored< &Self::v0_ >( "v0" ), Kiv::stored< &Self::v1_ >( "v1" ),
                              Kiv::stored< &Self::v2_ >( "v2" ),
                              Kiv::stored< &Self::v3_ >( "v3" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 v0_ = 0;
   U8 v1_ = 0;
   U8 v2_ = 0;
   U8 v3_ = 0;
};
static_assert( sizeof( LspPingDownstreamLabelEntry ) == 4 );
static_assert( std::is_trivially_copyable_v< LspPingDownstreamLabelEntry > );

} // namespace LspPing
