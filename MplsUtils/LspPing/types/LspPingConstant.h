#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/ConstantHolder.h"
#include "MplsUtils/LspPing/platform/Kiv/Typed.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"

#include <string_view>

namespace LspPing {

/// The protocol's fixed settings.
class LSPPING_EXPORT LspPingConstant : public Kiv::Typed< LspPingConstant, Kiv::ConstantHolder > {
 public:
   static constexpr std::string_view lspPingServiceName = "lspPing";
   static constexpr U16 lspPingUdpPort = 3503;    ///< RFC 8029 section 6.1
   static constexpr U32 maxRxPktSize = 65535;     ///< bytes
   static constexpr U32 sockBufferSize = 1048576; ///< bytes

   static consteval auto kivAttributes() {
      using Self = LspPingConstant;
      return Kiv::attributes(
         Kiv::constant< &Self::lspPingServiceName, Orlo::String >( "lspPingServiceName" ),
         Kiv::constant< &Self::lspPingUdpPort, U16 >( "lspPingUdpPort" ),
         Kiv::constant< &Self::maxRxPktSize, U32 >( "maxRxPktSize" ),
         Kiv::constant< &Self::sockBufferSize, U32 >( "sockBufferSize" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};

} // namespace LspPing
