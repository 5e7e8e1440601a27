#include "MplsUtils/LspPing/platform/Kiv/Module.h"
#include "MplsUtils/LspPing/platform/MplsUtils/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/MplsUtils/MplsOamStandard.h"
#include "MplsUtils/LspPing/platform/Pseudowire/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireAttachmentIdentifier.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireGenId.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireTypes.h"
#include "MplsUtils/LspPing/platform/Rsvp/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpGroupId.h"
#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpId.h"
#include "MplsUtils/LspPing/platform/Velnet/IntfId.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenPrefix.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabel.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelStack.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

// The module tables of the platform's own value types.

template <>
struct Kiv::SpelledName< Velnet::NetU16 > {
   static constexpr std::string_view value = "Velnet::NetU16";
};
template <>
struct Kiv::SpelledName< Velnet::NetU32 > {
   static constexpr std::string_view value = "Velnet::NetU32";
};
template <>
struct Kiv::SpelledName< Velnet::NetU64 > {
   static constexpr std::string_view value = "Velnet::NetU64";
};

namespace {

constexpr Kiv::ModuleTable kivModule =
   Kiv::Module< Kiv::ModuleTypes, Kiv::moduleNumber >::table( "Kiv" );
constexpr Kiv::ModuleTable velnetModule =
   Kiv::Module< Velnet::ModuleTypes, Velnet::moduleNumber >::table( "Velnet" );
constexpr Kiv::ModuleTable pseudowireModule =
   Kiv::Module< Pseudowire::ModuleTypes, Pseudowire::moduleNumber >::table( "Pseudowire" );
constexpr Kiv::ModuleTable rsvpModule =
   Kiv::Module< Rsvp::ModuleTypes, Rsvp::moduleNumber >::table( "Rsvp" );
constexpr Kiv::ModuleTable mplsUtilsModule =
   Kiv::Module< MplsUtils::ModuleTypes, MplsUtils::moduleNumber >::table( "MplsUtils" );

// The lowest priority that is not the implementation's own: before the libraries on top.
[[gnu::constructor( 101 )]] void registerModules() noexcept {
   Kiv::kivModuleIs( kivModule );
   Kiv::kivModuleIs( velnetModule );
   Kiv::kivModuleIs( pseudowireModule );
   Kiv::kivModuleIs( rsvpModule );
   Kiv::kivModuleIs( mplsUtilsModule );
}

} // namespace
