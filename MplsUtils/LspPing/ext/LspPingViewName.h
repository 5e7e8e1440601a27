#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/platform/Kiv/TypeName.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

#include <string_view>

// What views that share their words call themselves in a text.
namespace LspPing {

/// "EvpnMacSubTlv" of LspPing::LspPingEvpnMacSubTlv.
template < class View >
constexpr std::string_view lspPingViewName() noexcept {
   constexpr std::string_view before = "LspPing::LspPing";
   static_assert( Kiv::typeName< View >.starts_with( before ) );
   return Kiv::typeName< View >.substr( before.size() );
}

/// "EvpnMac" of LspPing::LspPingEvpnMacSubTlv.
template < class View >
constexpr std::string_view lspPingShortName() noexcept {
   constexpr std::string_view name = lspPingViewName< View >();
   return name.substr( 0, name.rfind( "SubTlv" ) );
}

/// "Invalid EvpnMacSubTlv"
template < class View >
Orlo::String lspPingInvalid( View const & ) noexcept {
   Orlo::StringBuilder text;
   text.append( "Invalid " );
   text.append( lspPingViewName< View >() );
   return std::move( text ).string();
}

} // namespace LspPing
