#pragma once

#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <string_view>

namespace LspPing {

/// What can be wrong with a message, for programs. The words stand beside it in the table of the
/// source file.
enum class LspPingProblemCode : U8 {
   none,
   headerCut,
   headerInvalid,
   versionUnknown,
   noTlvs,
   tooDeep,
   tlvsNotAligned,
   subTlvsNotAligned,
   leftOverBehindTlv,
   leftOverBehindSubTlv,
   leftOverBehindOpaqueValue,
   zerosBehindTlv,
   zerosBehindSubTlv,
   zerosBehindOpaqueValue,
   lengthBeyond,
   tooShort,
   lengthWrong,
   lengthCountsPadding,
   lengthUnknown,
   paddingMissing,
   nothingInIt,
   leftOver,
   notValid,
   addressTypeUnknown,
   selectorUnknown,
   prefixTooLong,
   notZero,
   noIdentifiers,
   identifierBeyond,
   familyUnknown,
   rootLengthWrong,
   rootDoesNotFit,
   opaqueValueBeyond,
   subTlvsBeyond,
   fecBeyond,
   multipathBeyond,
   multipathWithoutType,
   multipathLengthWrong,
};

/// The enumerator's name.
LSPPING_MESSAGE_EXPORT std::string_view lspPingProblemName( LspPingProblemCode code ) noexcept;

/// A problem by its code and the numbers that its words have.
struct LspPingProblemWords {
   LspPingProblemCode code = LspPingProblemCode::none;
   std::array< U32, 3 > numbers{};
};

/// What an element says against the RFCs; none where it does not.
struct LspPingFlaw : LspPingProblemWords {
   /// Where in the element, and how many bytes from there on it is about that nothing else shows:
   /// those that are padding, but part of a view.
   U32 place = 0;
   U32 placeBytes = 0;

   constexpr explicit operator bool() const noexcept { return code != LspPingProblemCode::none; }
};

/// One thing that is wrong with a message.
struct LspPingProblem : LspPingProblemWords {
   static constexpr U32 noElement = 0xffffffff;

   /// From the message's first byte.
   U32 offset = 0;
   /// Which of the message's elements it is about.
   U32 element = noElement;
   /// As many bytes from the offset on are part of nothing else.
   U32 strayBytes = 0;
};

} // namespace LspPing
