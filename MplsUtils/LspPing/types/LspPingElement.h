#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/types/Export.h"

#include <array>
#include <cstddef>
#include <span>

namespace LspPing {

/// What an element stands in, which says what its code means. Errored TLVs hold TLVs as a message
/// does, and a FEC stack change holds a FEC as the stack does (RFC 8029 sections 3.8 and 3.4.1.3).
enum class LspPingContext : U8 {
   message,       ///< LspPingTlvType
   targetFec,     ///< LspPingTargetFecSubTlvType
   ddmap,         ///< LspPingDDMappingSubTlvType
   p2mpResponder, ///< LspPingP2mpRespTlvType
   vendorPrivate, ///< LspPingVeloraVendorPrivateType
   opaqueValue,   ///< LspPingP2mpFecStackSubTlvType: type and length take three bytes, not four
};
inline constexpr std::size_t lspPingContextCount = 6;

/// Bytes of the header of type and length.
constexpr U32 lspPingHeaderSize( LspPingContext context ) noexcept {
   return context == LspPingContext::opaqueValue ? 3 : 4;
}

/// What stands behind an element's fixed part. Those from `tlvs` to `opaqueValues` are elements.
enum class LspPingBehind : U8 {
   nothing,
   tlvs,           ///< TLVs as in a message
   fecs,           ///< the stack of FECs
   subTlvs,        ///< of a detailed mapping: as many bytes as the word before them says
   stackChangeFec, ///< one FEC: as many bytes as the byte at 6 says
   responderTlvs,  ///< who answers for a point-to-multipoint LSP
   vendorTlvs,     ///< if the vendor is ours
   opaqueValues,   ///< of a multipoint LDP FEC, behind its root's address
   identifiers,    ///< the three attachment identifiers of a pseudowire
   multipath,      ///< multipath information: as many bytes as the word three bytes before it says
   mappingLabels,  ///< multipath information, counted in the word before it, and labels
   protocolLabels, ///< labels with their protocols
   labelStack,     ///< label stack entries as they are sent
   padding,        ///< bytes without a meaning
};

/// The facts of an element that every reader and writer needs. A class has them beside it, once:
///
///    static constexpr auto element = LspPingElement::targetFec( Fec::SRIpv4 )
///       .also( Fec::SRIpv4Deprecated ).length( 6 ).orLength( 8 );
///
/// Lengths are those of the value in bytes, offsets count from the element's first byte.
struct LspPingElement {
   static constexpr std::size_t maxCodes = 2;
   static constexpr std::size_t maxSelectors = 4;

   /// A byte that has to have a value, where several views share a code.
   struct Selector {
      U8 offset = 0;
      U8 value = 0;
   };

   LspPingContext context = LspPingContext::message;
   std::array< U16, maxCodes > codes{};
   U8 codeCount = 0;
   std::array< Selector, maxSelectors > selectors{};
   U8 selectorCount = 0;
   /// Where not 0, the element is the header that several views share, and the byte at this offset
   /// chooses between them. Its own view is laid where that byte has none of their values.
   U8 chooser = 0;
   /// Without so many bytes the element says nothing. A view may cover padding behind them.
   U16 leastLength = 0;
   /// The value has just that length, or the other one where there are two.
   bool hasFixedLength = false;
   U16 otherLength = 0;
   /// The view is laid over the value, not over the header.
   bool isOverValue = false;
   LspPingBehind behind = LspPingBehind::nothing;

   template < class Code >
   static constexpr LspPingElement tlv( Code code ) {
      return of( LspPingContext::message, code );
   }
   template < class Code >
   static constexpr LspPingElement targetFec( Code code ) {
      return of( LspPingContext::targetFec, code );
   }
   template < class Code >
   static constexpr LspPingElement ddmapSubTlv( Code code ) {
      return of( LspPingContext::ddmap, code );
   }
   template < class Code >
   static constexpr LspPingElement responderSubTlv( Code code ) {
      return of( LspPingContext::p2mpResponder, code );
   }
   template < class Code >
   static constexpr LspPingElement vendorSubTlv( Code code ) {
      return of( LspPingContext::vendorPrivate, code );
   }
   template < class Code >
   static constexpr LspPingElement opaqueValue( Code code ) {
      return of( LspPingContext::opaqueValue, code );
   }

   /// A deprecated code that lives on beside the first one.
   template < class Code >
   constexpr LspPingElement also( Code code ) const {
      LspPingElement more = *this;
      more.codes[more.codeCount++] = static_cast< U16 >( code );
      return more;
   }
   /// Only where the byte at `offset` has the value, of several elements of one code.
   template < class Value >
   constexpr LspPingElement when( U8 offset, Value value ) const {
      LspPingElement more = *this;
      more.selectors[more.selectorCount++] = { offset, static_cast< U8 >( value ) };
      return more;
   }
   constexpr LspPingElement chosenBy( U8 offset ) const {
      LspPingElement more = *this;
      more.chooser = offset;
      return more;
   }
   /// The element of a chooser's value.
   template < class Value >
   constexpr LspPingElement when( Value value ) const {
      LspPingElement more = when( chooser, value );
      more.chooser = 0;
      return more;
   }
   constexpr LspPingElement length( std::size_t bytes ) const {
      LspPingElement more = atLeast( bytes );
      more.hasFixedLength = true;
      return more;
   }
   constexpr LspPingElement orLength( std::size_t bytes ) const {
      LspPingElement more = *this;
      more.otherLength = static_cast< U16 >( bytes );
      return more;
   }
   constexpr LspPingElement atLeast( std::size_t bytes ) const {
      LspPingElement more = *this;
      more.leastLength = static_cast< U16 >( bytes );
      return more;
   }
   constexpr LspPingElement overValue() const {
      LspPingElement more = *this;
      more.isOverValue = true;
      return more;
   }
   constexpr LspPingElement followedBy( LspPingBehind what ) const {
      LspPingElement more = *this;
      more.behind = what;
      return more;
   }

   constexpr U16 code() const noexcept { return codes[0]; }
   constexpr bool hasCode( U32 code ) const noexcept {
      return code == codes[0] || ( codeCount > 1 && code == codes[1] );
   }
   /// Whether other elements stand in it, be there any or none.
   constexpr bool isContainer() const noexcept {
      return behind >= LspPingBehind::tlvs && behind <= LspPingBehind::opaqueValues;
   }
   /// Of elements of fixed length.
   constexpr bool hasLength( U32 length ) const noexcept {
      return length == leastLength || ( otherLength != 0 && length == otherLength );
   }
   /// Whether the selecting bytes are there and have their values. `bytes` are the element's.
   constexpr bool isSelectedBy( std::span< U8 const > bytes ) const noexcept {
      for( std::size_t i = 0; i < selectorCount; ++i )
         if( selectors[i].offset >= bytes.size() ||
             bytes[selectors[i].offset] != selectors[i].value )
            return false;
      return true;
   }

 private:
   template < class Code >
   static constexpr LspPingElement of( LspPingContext context, Code code ) {
      LspPingElement element;
      element.context = context;
      return element.also( code );
   }
};

} // namespace LspPing
