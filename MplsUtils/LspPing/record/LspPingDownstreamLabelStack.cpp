#include "MplsUtils/LspPing/record/LspPingDownstreamLabelStack.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDownstreamLabelStack::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamLabelStack >();

LspPingDownstreamLabelStack::LspPingDownstreamLabelStack( Kiv::CharRange & ) {
   assertNoTextConstructor();
}

bool LspPingDownstreamLabelStack::valid() const noexcept {
   if( size_ == 0 )
      return true;
   // The position wraps behind 255, so this loop may be endless. A compiler may take a loop for
   // finite and drop it unless it has effects, and a volatile read is one.
   U32 const volatile & size = size_;
   for( U8 position = 0; position < size; ++position )
      if( labelEntry( position ).bottomOfStack() )
         return true;
   return false;
}

bool LspPingDownstreamLabelStack::validEnds() const noexcept {
   if( size_ < 256 )
      return true;
   for( U32 position = 0; position < 256; ++position )
      if( labelEntry( position ).bottomOfStack() )
         return true;
   return false;
}

} // namespace LspPing
