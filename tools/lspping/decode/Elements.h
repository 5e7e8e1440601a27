#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Integers.h"
#include "MplsUtils/LspPing/platform/Kiv/TypeId.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

#include <cstddef>
#include <span>
#include <string_view>

// Every element of a message that has a meaning of its own, in one table: whoever adds a view adds
// a row.
namespace LspPingTool {

/// What an element stands in, which says what its code means.
enum class Context : U8 {
   message,
   targetFec,
   ddmap,
   p2mpResponder,
   vendorPrivate,
   opaqueValue,
};

/// What stands behind an element's fixed part.
enum class Body : U8 {
   none,
   identifiers,    ///< the three attachment identifiers of a pseudowire
   tlvs,           ///< copies of TLVs of the request
   fecs,           ///< the stack of FECs
   ddmapSubTlvs,   ///< as many bytes as the word before them says
   stackChangeFec, ///< one FEC, as many bytes as the byte at 6 says
   responderTlvs,  ///< who answers for a point-to-multipoint LSP
   vendorTlvs,     ///< if the vendor is ours
   opaqueValue,    ///< of a multipoint LDP FEC, behind its root address
   multipath,      ///< multipath information
   mappingLabels,  ///< multipath information, then labels with their protocols
   protocolLabels, ///< labels with their protocols
   labelStack,     ///< label stack entries as they are sent
};

/// A view of the library over bytes that are known to be there.
struct View {
   /// Calls `use` with the object of the type `id` that stands for the bytes: mostly the bytes
   /// themselves.
   using Use = void ( * )( void const * object, void * context );

   Kiv::TypeId id;
   /// Bytes that the view takes, and where it is laid, counted from the element's first byte.
   U8 size = 0;
   U8 offset = 0;
   /// It reads all that the element's length covers, not only its own size.
   bool readsValue = false;

   // All of them take the element's first byte. `length` is the element's length field.
   bool ( *valid )( U8 const * element, U32 length ) = nullptr;
   /// The element's line.
   void ( *appendText )( Orlo::StringBuilder & out, U8 const * element, U32 length ) = nullptr;
   void ( *visit )( U8 const * element, U32 length, Use use, void * context ) = nullptr;
};

struct ElementRow {
   Context context = Context::message;
   U16 code = 0;
   /// Value bytes without which the element says nothing; a view adds the padding that it covers.
   U16 valueLength = 0;
   /// The value has just that length, or the other one where there are two.
   bool hasFixedLength = false;
   U16 otherLength = 0;
   /// Bytes in front of the body, counted from the element's first byte.
   U8 bodyOffset = 0;
   Body body = Body::none;
   /// Which of several rows of one code it is: the byte at this place has that value. 0 for the
   /// only one, or for the one that takes what the rows before it leave.
   U8 selectorOffset = 0;
   U8 selector = 0;
   /// Not a value that the selecting byte may have.
   bool isUnknownSelector = false;
   /// Address type 5: the fixed part names interfaces by number, which no view describes.
   bool isNonIp = false;
   /// What contradicts an RFC though the length is right, in words, into `out`; false where nothing
   /// does. The element's value is there, for `valueLength` bytes at least, and a view's bytes are.
   bool ( *flaw )( Orlo::StringBuilder & out, U8 const * element, U32 length ) = nullptr;
   /// Null where the library has no view: the element is its bytes.
   View const * view = nullptr;
};

/// The row of an element, null for one that is not known. `bytes` are those of the element that are
/// there, header first. Where the selecting byte is missing, the last row of that code is taken.
ElementRow const * elementRow( Context context, U32 code, std::span< U8 const > bytes ) noexcept;

/// All rows, for tests.
std::span< ElementRow const > elementRows() noexcept;

/// The enumerator's name of an element's code; empty where it has none.
std::string_view codeName( Context context, U32 code ) noexcept;

/// The name, or else the number.
void appendCodeName( Orlo::StringBuilder & out, Context context, U32 code ) noexcept;

/// The type and the length take four bytes, those of an opaque value three.
constexpr U32 headerSize( Context context ) noexcept {
   return context == Context::opaqueValue ? 3 : 4;
}

} // namespace LspPingTool
