#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"

// The text of a value that is not there; for the value types of this folder.
namespace Velnet {

/// Consumes the word "none" if it is next.
inline bool takeNone( Kiv::CharRange & text ) noexcept {
   text.skip();
   return Kiv::CharRange{ text.rest() }.token() == "none" && text.take( "none" );
}

} // namespace Velnet
