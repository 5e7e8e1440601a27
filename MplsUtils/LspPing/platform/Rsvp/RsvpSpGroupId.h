#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Rsvp/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <iosfwd>

namespace Rsvp {

/// Which point-to-multipoint session, and which group of the sub-paths of which of its label
/// switched paths, RFC 4875 sections 19.1 and 19.2.
class LSPPING_PLATFORM_EXPORT RsvpSpGroupId {
 public:
   constexpr RsvpSpGroupId() noexcept = default;
   constexpr RsvpSpGroupId( U32 p2mpId, U16 tunnelId, Velnet::IpGenAddr const & extendedTunnelId,
                            U16 lspId, Velnet::IpGenAddr const & subGroupOriginatorId,
                            U16 subGroupId ) noexcept
      : p2mpId_{ p2mpId },
        tunnelId_{ tunnelId },
        extendedTunnelId_{ extendedTunnelId },
        lspId_{ lspId },
        subGroupOriginatorId_{ subGroupOriginatorId },
        subGroupId_{ subGroupId } {}
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit RsvpSpGroupId( Kiv::CharRange & in );

   constexpr U32 p2mpId() const noexcept { return p2mpId_; }
   constexpr void p2mpIdIs( U32 id ) noexcept { p2mpId_ = id; }
   constexpr U16 tunnelId() const noexcept { return tunnelId_; }
   constexpr void tunnelIdIs( U16 id ) noexcept { tunnelId_ = id; }
   constexpr Velnet::IpGenAddr const & extendedTunnelId() const noexcept {
      return extendedTunnelId_;
   }
   constexpr void extendedTunnelIdIs( Velnet::IpGenAddr const & id ) noexcept {
      extendedTunnelId_ = id;
   }
   constexpr U16 lspId() const noexcept { return lspId_; }
   constexpr void lspIdIs( U16 id ) noexcept { lspId_ = id; }
   /// The address of the node that made the group.
   constexpr Velnet::IpGenAddr const & subGroupOriginatorId() const noexcept {
      return subGroupOriginatorId_;
   }
   constexpr void subGroupOriginatorIdIs( Velnet::IpGenAddr const & id ) noexcept {
      subGroupOriginatorId_ = id;
   }
   constexpr U16 subGroupId() const noexcept { return subGroupId_; }
   constexpr void subGroupIdIs( U16 id ) noexcept { subGroupId_ = id; }

   constexpr bool operator==( RsvpSpGroupId const & other ) const noexcept = default;

   static consteval auto kivAttributes() {
      using Self = RsvpSpGroupId;
      return Kiv::attributes( Kiv::stored< &Self::p2mpId_ >( "p2mpId" ),
                              Kiv::stored< &Self::tunnelId_ >( "tunnelId" ),
                              Kiv::stored< &Self::extendedTunnelId_ >( "extendedTunnelId" ),
                              Kiv::stored< &Self::lspId_ >( "lspId" ),
                              Kiv::stored< &Self::subGroupOriginatorId_ >( "subGroupOriginatorId" ),
                              Kiv::stored< &Self::subGroupId_ >( "subGroupId" ) );
   }

 private:
   U32 p2mpId_ = 0;
   U16 tunnelId_ = 0;
   Velnet::IpGenAddr extendedTunnelId_;
   U16 lspId_ = 0;
   Velnet::IpGenAddr subGroupOriginatorId_;
   U16 subGroupId_ = 0;
};

/// Writes the generic text.
LSPPING_PLATFORM_EXPORT std::ostream & operator<<( std::ostream & out, RsvpSpGroupId const & id );

} // namespace Rsvp
