#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Pseudowire/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireGenId.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireTypes.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingRecord.h"

namespace LspPing {

/// The pseudowire of a FEC 128 or FEC 129, RFC 8029 sections 3.2.9 and 3.2.10, and how its messages
/// are told from its data. All but the latter is fixed once the record is constructed.
class LSPPING_EXPORT LspPingPwInfo : public LspPingRecord< LspPingPwInfo > {
 public:
   constexpr LspPingPwInfo() noexcept = default;
   constexpr LspPingPwInfo( Velnet::IpGenAddr const & senderAddr,
                            Velnet::IpGenAddr const & receiverAddr, U32 pwId,
                            Pseudowire::PseudowireGenId const & pwGenId,
                            Pseudowire::PseudowireType pwType, bool controlWordPresent ) noexcept
      : senderAddr_( senderAddr ),
        receiverAddr_( receiverAddr ),
        pwId_( pwId ),
        pwGenId_( pwGenId ),
        pwType_( pwType ),
        controlWordPresent_( controlWordPresent ) {}
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit LspPingPwInfo( Kiv::CharRange & in );

   constexpr Velnet::IpGenAddr const & senderAddr() const noexcept { return senderAddr_; }
   constexpr Velnet::IpGenAddr const & receiverAddr() const noexcept { return receiverAddr_; }
   /// Of a FEC 128; a FEC 129 has `pwGenId`.
   constexpr U32 pwId() const noexcept { return pwId_; }
   constexpr Pseudowire::PseudowireGenId const & pwGenId() const noexcept { return pwGenId_; }
   constexpr Pseudowire::PseudowireType pwType() const noexcept { return pwType_; }
   constexpr bool controlWordPresent() const noexcept { return controlWordPresent_; }
   constexpr Pseudowire::PwPingCcType activeCcType() const noexcept { return activeCcType_; }
   constexpr void activeCcTypeIs( Pseudowire::PwPingCcType type ) noexcept { activeCcType_ = type; }

   bool operator==( LspPingPwInfo const & other ) const noexcept;

   static consteval auto kivAttributes() {
      using Self = LspPingPwInfo;
      return Kiv::attributes(
         Kiv::storedReadOnly< &Self::senderAddr_ >( "senderAddr" ),
         Kiv::storedReadOnly< &Self::receiverAddr_ >( "receiverAddr" ),
         Kiv::storedReadOnly< &Self::pwId_ >( "pwId" ),
         Kiv::storedReadOnly< &Self::pwGenId_ >( "pwGenId" ),
         Kiv::storedReadOnly< &Self::pwType_ >( "pwType" ),
         Kiv::storedReadOnly< &Self::controlWordPresent_ >( "controlWordPresent" ),
         Kiv::stored< &Self::activeCcType_ >( "activeCcType" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::IpGenAddr senderAddr_;
   Velnet::IpGenAddr receiverAddr_;
   U32 pwId_ = 0;
   Pseudowire::PseudowireGenId pwGenId_;
   Pseudowire::PseudowireType pwType_{};
   bool controlWordPresent_ = false;
   Pseudowire::PwPingCcType activeCcType_{};
};

} // namespace LspPing
