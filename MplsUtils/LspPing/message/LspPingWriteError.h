#pragma once

#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <string_view>

namespace LspPing {

/// Why something was not written, for programs. The words stand beside it in the table of the
/// source file.
enum class LspPingWriteErrorCode : U8 {
   none,
   noRoom,
   tooLong,
   fecTooLong,
   tooShort,
   lengthWrong,
   nothingInIt,
   misplaced,
   tooDeep,
   notOpen,
   codeWrong,
   needsClass,
   selectorWrong,
   labelTooLarge,
   multipathWrong,
   identifiersWrong,
   rootWrong,
   elementCut,
   recordUnknown,
   recordIncomplete,
   recordContradicts,
   noRequest,
   noReplyWanted,
};

/// The enumerator's name.
LSPPING_MESSAGE_EXPORT std::string_view
lspPingWriteErrorName( LspPingWriteErrorCode code ) noexcept;
/// The same in words, such as "no room for it".
LSPPING_MESSAGE_EXPORT std::string_view
lspPingWriteErrorText( LspPingWriteErrorCode code ) noexcept;

/// The first thing that a writer did not write.
struct LspPingWriteError {
   LspPingWriteErrorCode code = LspPingWriteErrorCode::none;
   /// Where the element begins that is not there, from the message's first byte.
   U32 offset = 0;

   constexpr explicit operator bool() const noexcept { return code != LspPingWriteErrorCode::none; }
   friend constexpr bool operator==( LspPingWriteError, LspPingWriteError ) noexcept = default;
};

} // namespace LspPing
