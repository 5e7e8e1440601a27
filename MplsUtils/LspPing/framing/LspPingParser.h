#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Orlo/Node.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"

namespace LspPing {

/// What every parser is: a view tied to its place in a packet. The parser keeps the packet alive
/// and points at the view; whether the bytes are there and mean anything is the caller's to know:
/// no offset is checked and no byte is read.
class LSPPING_EXPORT LspPingParser : public Orlo::Node {
 public:
   /// Bytes from the start of the packet's current data, as given at construction.
   U32 offset() const noexcept { return offset_; }
   Orlo::Ptr< Velnet::Pkt > const & pkt() const noexcept { return pkt_; }

   /// Mostly a parser has one user, the agent that reads through it.
   static constexpr bool usuallyOneUser = true;

 protected:
   /// Points at the packet's current data start plus the offset. The packet must not be null.
   LspPingParser( Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset ) noexcept
      : offset_( offset ),
        pkt_( pkt ),
        header_( pkt->data() + offset ) {}
   ~LspPingParser() override = default;

   void * place() const noexcept { return header_; }
   void placeIs( void * header ) noexcept { header_ = header; }
   /// Finds that place again.
   void handlePlace() noexcept;

 private:
   U32 offset_;
   Orlo::Ptr< Velnet::Pkt > pkt_;
   void * header_;
};
static_assert( sizeof( LspPingParser ) <= 40 );

} // namespace LspPing
