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

/// Which label switched path of which point-to-point session, RFC 3209 section 4.6.1.
class LSPPING_PLATFORM_EXPORT RsvpSpId {
 public:
   constexpr RsvpSpId() noexcept = default;
   constexpr RsvpSpId( Velnet::IpGenAddr const & tunnelEndPoint, U16 tunnelId,
                       Velnet::IpGenAddr const & extendedTunnelId, U16 lspId ) noexcept
      : tunnelEndPoint_{ tunnelEndPoint },
        tunnelId_{ tunnelId },
        extendedTunnelId_{ extendedTunnelId },
        lspId_{ lspId } {}
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit RsvpSpId( Kiv::CharRange & in );

   constexpr Velnet::IpGenAddr const & tunnelEndPoint() const noexcept { return tunnelEndPoint_; }
   constexpr void tunnelEndPointIs( Velnet::IpGenAddr const & address ) noexcept {
      tunnelEndPoint_ = address;
   }
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

   constexpr bool operator==( RsvpSpId const & other ) const noexcept = default;

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::stored< &RsvpSpId::tunnelEndPoint_ >( "tunnelEndPoint" ),
                              Kiv::stored< &RsvpSpId::tunnelId_ >( "tunnelId" ),
                              Kiv::stored< &RsvpSpId::extendedTunnelId_ >( "extendedTunnelId" ),
                              Kiv::stored< &RsvpSpId::lspId_ >( "lspId" ) );
   }

 private:
   Velnet::IpGenAddr tunnelEndPoint_;
   U16 tunnelId_ = 0;
   Velnet::IpGenAddr extendedTunnelId_;
   U16 lspId_ = 0;
};

/// Writes the generic text.
LSPPING_PLATFORM_EXPORT std::ostream & operator<<( std::ostream & out, RsvpSpId const & id );

} // namespace Rsvp
