#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireAttachmentIdentifier.h"
#include "MplsUtils/LspPing/platform/base/Export.h"

namespace Pseudowire {

/// The generalized identifier of a pseudowire, RFC 4447 section 5.3: the attachment group (AGI) and
/// the individual identifiers of the source (SAII) and the target (TAII) in that group.
class PseudowireGenId {
 public:
   /// Three empty identifiers.
   constexpr PseudowireGenId() noexcept = default;
   constexpr PseudowireGenId( PseudowireAttachmentIdentifier const & agi,
                              PseudowireAttachmentIdentifier const & saii,
                              PseudowireAttachmentIdentifier const & taii ) noexcept
      : agi_{ agi },
        saii_{ saii },
        taii_{ taii } {}

   constexpr PseudowireAttachmentIdentifier const & agi() const noexcept { return agi_; }
   constexpr void agiIs( PseudowireAttachmentIdentifier const & agi ) noexcept { agi_ = agi; }
   constexpr PseudowireAttachmentIdentifier const & saii() const noexcept { return saii_; }
   constexpr void saiiIs( PseudowireAttachmentIdentifier const & saii ) noexcept { saii_ = saii; }
   constexpr PseudowireAttachmentIdentifier const & taii() const noexcept { return taii_; }
   constexpr void taiiIs( PseudowireAttachmentIdentifier const & taii ) noexcept { taii_ = taii; }

   /// "agi 1:00000064 saii 2:0a000001 taii 2:0a000002"
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   static constexpr bool isEq( PseudowireGenId const & a, PseudowireGenId const & b ) noexcept {
      return a == b;
   }
   constexpr bool operator==( PseudowireGenId const & other ) const noexcept = default;

 private:
   PseudowireAttachmentIdentifier agi_;
   PseudowireAttachmentIdentifier saii_;
   PseudowireAttachmentIdentifier taii_;
};

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         PseudowireGenId const & id ) noexcept;

/// Raises `Kiv::RangeException` and leaves the id alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text, PseudowireGenId * id );

} // namespace Pseudowire
