#pragma once

#include "MplsUtils/LspPing/ext/mapping/LspPingMappingSubTlv.h"
#include "MplsUtils/LspPing/ext/tlv/LspPingContainerTlv.h"
#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/message/LspPingProblem.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/TypeId.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"

#include <span>
#include <string_view>

namespace LspPing {

struct LspPingVerdict {
   bool isValid = false;
   bool isFlawed = false;
};

/// What a reader says of an element besides its place. One store writes them all.
struct LspPingElementFlags {
   /// The class that describes it lies over its bytes, and what that says of itself.
   bool isViewed = false;
   bool isValid = false;
   /// Other elements stand in it, be there any or none.
   bool isContainer = false;
   /// The bytes are a copy, with padding that is not there.
   bool isCopied = false;
   bool hidesBytes = false;
   bool hasMultipath = false;
   bool hasLabels = false;
   bool isMultipathIpv6 : 1 = false;
   /// An RFC contradicts itself about the element, and the less usual reading was taken.
   bool isOtherReading : 1 = false;
};
static_assert( sizeof( LspPingElementFlags ) == 8 );

/// What the reader compares of a usual element, gathered from its row. Where all that holds, the
/// element is what `flags` say and nothing is wrong with its fixed part; else there is more to ask.
/// Offsets count from the element's first byte.
struct LspPingUsualElement {
   LspPingElementFlags flags;
   /// Of so many lengths, `leastLength` is the first; of none, where there is always more to ask.
   U32 lengthCount = 0;
   U16 leastLength = 0;
   /// Up to what stands behind the fixed part.
   U8 fixedSize = 0;
   LspPingBehind behind = LspPingBehind::nothing;
   /// Of elements behind it.
   LspPingContext inside = LspPingContext::message;
   /// The byte that selects the row: without one the first byte of the code, which is 0.
   U8 selectorAt = 0;
   U8 selectorValue = 0;
   /// A prefix is not longer: without one, whatever the first byte of the code is.
   U8 prefixAt = 0;
   U8 longestPrefix = 0xff;
};

/// An element that can stand in a message, as the table has it: its facts, which stand beside its
/// class, and the view. Elements with several codes have a row for each.
/// What is asked of each stands first, and in one line of the processor's cache.
struct alignas( 64 ) LspPingElementRow {
   LspPingUsualElement usual{};
   /// With one code, the row's.
   LspPingElement facts;
   /// None where no class describes the element.
   Kiv::TypeId type{};
   /// Bytes of the view; 0 without one, and for the Pad TLV, whose class holds a copy of the value.
   U16 viewSize = 0;
   /// The view's operations take all that the length covers, not only the view's own size.
   bool readsValue = false;

   // Both take the element's first byte and its length; as many bytes are there as `viewSize` and
   // `facts.leastLength` ask for.
   /// Whether the view is valid, and whether there is a flaw.
   LspPingVerdict ( *verdict )( U8 const * element, U32 length ) = nullptr;
   /// What contradicts an RFC although the length is right. The view's `valid` is not asked where
   /// it looks at less than the RFC does, or at more.
   LspPingFlaw ( *flaw )( U8 const * element, U32 length ) = nullptr;
   /// The view's own text; null where it has none.
   void ( *appendText )( Orlo::StringBuilder & out, U8 const * element ) = nullptr;

   constexpr U16 code() const noexcept { return facts.code(); }
   constexpr U32 headerSize() const noexcept { return lspPingHeaderSize( facts.context ); }
   constexpr bool isDescribed() const noexcept { return static_cast< bool >( type ); }
   constexpr U32 viewOffset() const noexcept { return facts.isOverValue ? headerSize() : 0; }
   /// Up to what stands behind the fixed part, counted from the element's first byte.
   constexpr U32 fixedSize() const noexcept { return headerSize() + facts.leastLength; }
   /// Fewer bytes of header and value say nothing.
   constexpr U32 shortestSize() const noexcept { return headerSize() + facts.shortestLength(); }
};

/// The usual containers and labels of which no class says more than the header. A writer opens them
/// by their codes alone.
struct LspPingOpenedByCode {
   static constexpr LspPingElement fecStack =
      LspPingElement::tlv( LspPingTlvType::TargetFecStack ).followedBy( LspPingBehind::fecs );
   static constexpr LspPingElement erroredTlvs = LspPingErroredTlvsTlv::element;
   static constexpr LspPingElement responders =
      LspPingElement::tlv( LspPingTlvType::P2mpRespId ).followedBy( LspPingBehind::responderTlvs );
   static constexpr LspPingElement labelStack = LspPingLabelStackSubTlv::element;

   /// The one with that code; null for any other.
   static constexpr LspPingElement const * of( LspPingContext context, U32 code ) noexcept {
      for( LspPingElement const * facts : { &fecStack, &erroredTlvs, &responders, &labelStack } )
         if( facts->context == context && facts->code() == code )
            return facts;
      return nullptr;
   }
};

/// The row of an element, null for one that is not known. `bytes` are those of the element that
/// are there, header first: where a selecting byte is missing, the row that needs none is taken.
LSPPING_MESSAGE_EXPORT LspPingElementRow const * elementOf( LspPingContext context, U32 code,
                                                            std::span< U8 const > bytes ) noexcept;

/// All rows: by context and code, those with selectors first.
LSPPING_MESSAGE_EXPORT std::span< LspPingElementRow const > lspPingElements() noexcept;

/// The facts beside a class, all its codes among them; null for a class that is no element.
LSPPING_MESSAGE_EXPORT LspPingElement const * lspPingElementOf( Kiv::TypeId type ) noexcept;

/// The enumerator's name, or the codes' enumeration's where the context has no name of its own.
LSPPING_MESSAGE_EXPORT std::string_view lspPingContextName( LspPingContext context ) noexcept;
/// The enumerator's name.
LSPPING_MESSAGE_EXPORT std::string_view lspPingBehindName( LspPingBehind behind ) noexcept;

/// The enumerator's name of a code, empty where it has none.
LSPPING_MESSAGE_EXPORT std::string_view lspPingCodeName( LspPingContext context,
                                                         U32 code ) noexcept;

} // namespace LspPing
