#pragma once

#include "MplsUtils/LspPing/ext/types/LspPingExtMappingTypes.h"

// What the tunnels of RFC 7110 section 4.3 share: which of a tunnel's LSPs is the way back.
namespace LspPing {

/// Not both, RFC 7110 section 4.3.1; with neither, it may be any of them.
constexpr bool lspPingAreTunnelFlags( U16 flags ) noexcept {
   constexpr U32 both = static_cast< U32 >( LspPingTunnelFlags::primaryFlag ) |
                        static_cast< U32 >( LspPingTunnelFlags::secondaryFlag );
   return ( flags & both ) != both;
}

} // namespace LspPing
