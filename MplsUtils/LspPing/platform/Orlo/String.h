#pragma once

#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"

#include <string>
#include <string_view>

namespace Orlo {

using String = std::string;

/// A copy of the text. Exhausted memory ends the process, as wherever a text is built.
inline String stringOf( std::string_view text ) noexcept {
   return Kiv::orOutOfMemory(
      "Orlo::String", [text] { return String( text ); } );
}

} // namespace Orlo
