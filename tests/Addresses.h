#pragma once

#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"

#include <string_view>

/// Ends the test where the text is no address.
inline Velnet::Ip6Addr address6( std::string_view text ) {
   return Velnet::Ip6Addr::fromText( text ).value();
}
