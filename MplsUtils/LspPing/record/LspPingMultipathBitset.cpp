#include "MplsUtils/LspPing/record/LspPingMultipathBitset.h"

#include "MplsUtils/LspPing/platform/base/Assert.h"

#include <algorithm>

namespace LspPing {

constinit Kiv::AllocationTracker LspPingMultipathBitset::memAllocationTracker_ =
   Kiv::trackerOf< LspPingMultipathBitset >();

namespace {

constexpr U8 maskOf( U32 bitNum ) noexcept {
   return static_cast< U8 >( 0x80 >> bitNum % 8 );
}

} // namespace

LspPingMultipathBitset::LspPingMultipathBitset( Kiv::CharRange & ) {
   assertNoTextConstructor();
}

bool LspPingMultipathBitset::hasAnyBitsSet() const noexcept {
   U32 const end = std::min( size_, bitset_.end() );
   for( U32 index = bitset_.lowest(); index < end; ++index )
      if( bitset( index ) != 0 )
         return true;
   return false;
}

void LspPingMultipathBitset::setBitValue( U32 bitNum, bool value ) noexcept {
   KIV_ASSERT( bitNum < bitSize() );
   U8 const mask = maskOf( bitNum );
   unsigned const old = bitset( bitNum / 8 );
   bitsetIs( bitNum / 8, static_cast< U8 >( value ? old | mask : old & ~unsigned{ mask } ) );
}

bool LspPingMultipathBitset::isSet( U32 bitNum ) const noexcept {
   KIV_ASSERT( bitNum < bitSize() );
   return ( bitset( bitNum / 8 ) & maskOf( bitNum ) ) != 0;
}

} // namespace LspPing
