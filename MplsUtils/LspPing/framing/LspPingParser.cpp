#include "MplsUtils/LspPing/framing/LspPingParser.h"

#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"

namespace LspPing {

// The packet's reference goes here, and after it the node itself.
LspPingParser::~LspPingParser() = default;

void LspPingParser::handlePlace() noexcept {
   // Nobody may take the packet away while its data start is looked up.
   Orlo::Ptr< Velnet::Pkt > const held = pkt_;
   header_ = held->data() + offset_;
}

void * LspPingParser::allocate( std::size_t size, Kiv::AllocationTracker & tracker ) {
   return VelSlab::allocateTracked( size, tracker );
}

void LspPingParser::release( void * object, std::size_t size,
                             Kiv::AllocationTracker & tracker ) noexcept {
   VelSlab::releaseTracked( object, size, tracker );
}

} // namespace LspPing
