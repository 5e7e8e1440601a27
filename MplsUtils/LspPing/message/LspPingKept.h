#pragma once

#include "MplsUtils/LspPing/message/LspPingMessage.h"

#include <string_view>

// What the conversions from elements to records have in common; not for users of the library.
namespace LspPing {

/// What became of an element: `isKept` when its record was written, and in words what the record
/// has no place for, or why it was not written. Empty where nothing is lost.
struct LspPingKept {
   bool isKept = false;
   std::string_view lost;

   static constexpr LspPingKept whole() noexcept { return { true, {} }; }
   static constexpr LspPingKept without( std::string_view lost ) noexcept { return { true, lost }; }
   static constexpr LspPingKept refused( std::string_view why ) noexcept { return { false, why }; }
   static constexpr LspPingKept notWellFormed() noexcept { return { false, "not well-formed" }; }
};

class LspPingFecInfo;

/// A FEC of a stack, RFC 8029 section 3.2. What its kind does not have keeps its default.
LspPingKept fecInfoOf( LspPingElementRef fec, LspPingFecInfo & info );

} // namespace LspPing
