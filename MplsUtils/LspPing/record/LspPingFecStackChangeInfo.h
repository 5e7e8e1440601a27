#pragma once

#include "MplsUtils/LspPing/platform/Kiv/WholeAssignment.h"
#include "MplsUtils/LspPing/record/LspPingFecStack.h"

namespace LspPing {

/// Which FECs a transit router takes from the target FEC stack and which it puts onto it, RFC 8029
/// section 3.4.1.3.
class LSPPING_EXPORT LspPingFecStackChangeInfo : public LspPingRecord< LspPingFecStackChangeInfo > {
 public:
   LspPingFecStackChangeInfo() noexcept = default;
   /// Ends in the assertion of the first stack, which has no text.
   explicit LspPingFecStackChangeInfo( Kiv::CharRange & in );
   KIV_WHOLE_ASSIGNMENT( LspPingFecStackChangeInfo );

   LspPingFecStack const & popTlvInfo() const noexcept { return popTlvInfo_; }
   void popTlvInfoIs( LspPingFecStack const & stack ) { popTlvInfo_ = stack; }
   LspPingFecStack const & pushTlvInfo() const noexcept { return pushTlvInfo_; }
   void pushTlvInfoIs( LspPingFecStack const & stack ) { pushTlvInfo_ = stack; }

   /// True when there is a change at all.
   bool valid() const noexcept {
      return !popTlvInfo_.fecInfo().empty() || !pushTlvInfo_.fecInfo().empty();
   }

   bool operator==( LspPingFecStackChangeInfo const & other ) const {
      return this == &other ||
             ( popTlvInfo_ == other.popTlvInfo_ && pushTlvInfo_ == other.pushTlvInfo_ );
   }

   static consteval auto kivAttributes() {
      using Self = LspPingFecStackChangeInfo;
      return Kiv::attributes( Kiv::stored< &Self::popTlvInfo_ >( "popTlvInfo" ),
                              Kiv::stored< &Self::pushTlvInfo_ >( "pushTlvInfo" ),
                              Kiv::computed< &Self::valid >( "valid" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   LspPingFecStack popTlvInfo_;
   LspPingFecStack pushTlvInfo_;
};

} // namespace LspPing
