#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <type_traits>

namespace Velnet {

// One label stack entry as it lies in a packet, RFC 3032 section 2.1.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------------------------------+-----+-+---------------+
// |                 label                 |  TC |S|      TTL      |
// +---------------------------------------+-----+-+---------------+
class MplsLabelEntry {
 public:
   /// All bits zero.
   constexpr MplsLabelEntry() noexcept = default;
   /// From the word in host order.
   constexpr explicit MplsLabelEntry( U32 word ) noexcept : word_{ word } {}

   /// The label must fit into 20 bits, the traffic class into 3.
   constexpr MplsLabelEntry( U32 label, U8 trafficClass, bool bottomOfStack, U8 ttl ) noexcept
      : word_{ label << 12 | U32{ trafficClass } << 9 | U32{ bottomOfStack } << 8 | ttl } {
      KIV_ASSERT( label <= 0xFFFFF && trafficClass <= 7 );
   }

   constexpr U32 word() const noexcept { return word_.value(); }
   constexpr void wordIs( U32 word ) noexcept { word_.valueIs( word ); }

   constexpr U32 label() const noexcept { return word() >> 12; }
   constexpr void labelIs( U32 label ) noexcept {
      KIV_ASSERT( label <= 0xFFFFF );
      wordIs( ( word() & 0xFFF ) | label << 12 );
   }
   constexpr U8 trafficClass() const noexcept { return word() >> 9 & 7; }
   constexpr void trafficClassIs( U8 trafficClass ) noexcept {
      KIV_ASSERT( trafficClass <= 7 );
      wordIs( ( word() & ~( 7u << 9 ) ) | U32{ trafficClass } << 9 );
   }
   constexpr bool bottomOfStack() const noexcept { return word() >> 8 & 1; }
   constexpr void bottomOfStackIs( bool bottom ) noexcept {
      wordIs( ( word() & ~( 1u << 8 ) ) | U32{ bottom } << 8 );
   }
   constexpr U8 ttl() const noexcept { return static_cast< U8 >( word() ); }
   constexpr void ttlIs( U8 ttl ) noexcept { wordIs( ( word() & ~0xFFu ) | ttl ); }

   /// What a stack has at a position that it does not hold. It is set while libraries are loaded,
   /// not later: readers take no lock.
   LSPPING_PLATFORM_EXPORT static MplsLabelEntry const & defaultEntry() noexcept;
   LSPPING_PLATFORM_EXPORT static void defaultEntryIs( U32 word ) noexcept;

   /// "16/0/1/255": label, traffic class, bottom of stack, TTL.
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   constexpr bool operator==( MplsLabelEntry const & other ) const noexcept = default;

 private:
   NetU32 word_;
};
static_assert( sizeof( MplsLabelEntry ) == 4 && alignof( MplsLabelEntry ) == 1 );
static_assert( std::is_trivially_copyable_v< MplsLabelEntry > );

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         MplsLabelEntry const & entry ) noexcept;

/// Raises `Kiv::RangeException` and leaves the entry alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, MplsLabelEntry * entry );

} // namespace Velnet
