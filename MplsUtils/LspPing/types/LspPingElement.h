#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <type_traits>

namespace LspPing {

/// What an element stands in, which says what its code means: the enumeration of the codes, by its
/// place in module LspPingTypes, or behind those by its place in another module. These have names;
/// every other enumeration makes a context as well. Errored TLVs hold TLVs as a message does, and a
/// FEC stack change holds a FEC as the stack does (RFC 8029 sections 3.8 and 3.4.1.3).
enum class LspPingContext : U8 {
   message = LspPingTypesTypes::indexOf< LspPingTlvType >(),
   targetFec = LspPingTypesTypes::indexOf< LspPingTargetFecSubTlvType >(),
   ddmap = LspPingTypesTypes::indexOf< LspPingDDMappingSubTlvType >(),
   p2mpResponder = LspPingTypesTypes::indexOf< LspPingP2mpRespTlvType >(),
   vendorPrivate = LspPingTypesTypes::indexOf< LspPingVeloraVendorPrivateType >(),
   /// Type and length take three bytes, not four.
   opaqueValue = LspPingTypesTypes::indexOf< LspPingP2mpFecStackSubTlvType >(),
};

template < class Codes >
requires LspPingTypesTypes::contains< Codes >
constexpr LspPingContext lspPingContext( Kiv::Of< Codes > ) noexcept {
   return static_cast< LspPingContext >( LspPingTypesTypes::indexOf< Codes >() );
}

/// An enumeration of codes. Other modules say of theirs which context they make, or which they add
/// codes to.
template < class Codes >
concept LspPingCodes = std::is_enum_v< Codes > && requires {
   lspPingContext( Kiv::Of< Codes >{} );
};

template < LspPingCodes Codes >
inline constexpr LspPingContext lspPingContextOf = lspPingContext( Kiv::Of< Codes >{} );

template < class Codes, LspPingContext context >
concept LspPingCodesIn = LspPingCodes< Codes > && lspPingContextOf< Codes >
== context;

/// Bytes of the header of type and length.
constexpr U32 lspPingHeaderSize( LspPingContext context ) noexcept {
   return context == LspPingContext::opaqueValue ? 3 : 4;
}

/// What stands behind an element's fixed part. Those from `elements` to `opaqueValues` are
/// elements.
enum class LspPingBehind : U8 {
   nothing,
   elements,       ///< to the end of the value, with the codes of `inside`
   tlvs,           ///< TLVs as in a message
   fecs,           ///< the stack of FECs
   counted,        ///< with the codes of `inside`: as many bytes as the word before them says
   subTlvs,        ///< of a detailed mapping: as many bytes as the word before them says
   stackChangeFec, ///< one FEC: as many bytes as the byte at 6 says
   responderTlvs,  ///< who answers for a point-to-multipoint LSP
   opaqueValues,   ///< of a multipoint LDP FEC, behind its root's address
   identifiers,    ///< the three attachment identifiers of a pseudowire
   multipath,      ///< multipath information: as many bytes as the word three bytes before it says
   mappingLabels,  ///< multipath information, counted in the word before it, and labels
   protocolLabels, ///< labels with their protocols
   labelStack,     ///< label stack entries as they are sent
   padding,        ///< bytes without a meaning
   tail,           ///< to the end of the value, what the view itself gives: lists, addresses
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

   /// A byte that has to have one of the values, where several views share a code.
   struct Selector {
      static constexpr std::size_t maxValues = 4;

      U8 offset = 0;
      U8 valueCount = 0;
      std::array< U8, maxValues > values{};

      constexpr bool has( U8 value ) const noexcept {
         for( std::size_t i = 0; i < valueCount; ++i )
            if( values[i] == value )
               return true;
         return false;
      }
   };

   LspPingContext context = LspPingContext::message;
   std::array< U16, maxCodes > codes{};
   U8 codeCount = 0;
   /// All codes from the first to the second, where nothing else has them.
   bool isCodeRange = false;
   std::array< Selector, maxSelectors > selectors{};
   U8 selectorCount = 0;
   /// Where not 0, the element is the header that several views share, and the byte at this offset
   /// chooses between them. Its own view is laid where that byte has none of their values.
   U8 chooser = 0;
   /// Where not 0, this byte chooses as well, and neither of them is an address type.
   U8 otherChooser = 0;
   /// Without so many bytes the element says nothing. A view may cover padding behind them.
   U16 leastLength = 0;
   /// The value has just that length, or the other one where there are two.
   bool hasFixedLength = false;
   U16 otherLength = 0;
   /// By so much the length that the RFC states differs from what it draws. It is taken for that
   /// where the bytes say so: what follows comes out with the one and not with the other.
   std::int8_t statedMore = 0;
   /// So many bytes between code and length go on with the code, RFC 6388 section 2.3. What stands
   /// behind the header of the context, the length among it, is taken for the value.
   U8 codeExtension = 0;
   /// No padding follows, unless the bytes say so.
   bool isUnpadded = false;
   /// What to say of the less usual reading: that of the stated length, of this other length, or
   /// of padding where there should be none.
   std::string_view otherReading;
   U16 otherReadingLength = 0;
   /// The view is laid over the value, not over the header.
   bool isOverValue = false;
   LspPingBehind behind = LspPingBehind::nothing;
   /// Of `LspPingBehind::elements` and `counted`.
   LspPingContext inside = LspPingContext::message;
   /// The code as people say it, where `message/LspPingWords.cpp` does not.
   std::string_view words;
   /// Where it is defined: "RFC 8029 section 3.2.1".
   std::string_view rfc;

   template < LspPingCodesIn< LspPingContext::message > Code >
   static constexpr LspPingElement tlv( Code code ) {
      return subTlv( code );
   }
   template < LspPingCodesIn< LspPingContext::targetFec > Code >
   static constexpr LspPingElement targetFec( Code code ) {
      return subTlv( code );
   }
   template < LspPingCodesIn< LspPingContext::ddmap > Code >
   static constexpr LspPingElement ddmapSubTlv( Code code ) {
      return subTlv( code );
   }
   template < LspPingCodesIn< LspPingContext::p2mpResponder > Code >
   static constexpr LspPingElement responderSubTlv( Code code ) {
      return subTlv( code );
   }
   template < LspPingCodesIn< LspPingContext::vendorPrivate > Code >
   static constexpr LspPingElement vendorSubTlv( Code code ) {
      return subTlv( code );
   }
   template < LspPingCodesIn< LspPingContext::opaqueValue > Code >
   static constexpr LspPingElement opaqueValue( Code code ) {
      return subTlv( code );
   }
   /// Of what is followed by elements with such codes.
   template < LspPingCodes Code >
   static constexpr LspPingElement subTlv( Code code ) {
      return of( lspPingContextOf< Code >, static_cast< U32 >( code ) );
   }

   /// All codes in the range, as far as nothing else has them.
   template < class Code >
   constexpr LspPingElement upTo( Code last ) const {
      LspPingElement more = *this;
      more.codes[1] = static_cast< U16 >( last );
      more.isCodeRange = true;
      return more;
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
      return whenOneOf( offset, { value } );
   }
   template < class Value >
   constexpr LspPingElement whenOneOf( U8 offset, std::initializer_list< Value > values ) const {
      LspPingElement more = *this;
      more.chooser = more.otherChooser = 0;
      Selector & selector = more.selectors[more.selectorCount++];
      selector.offset = offset;
      for( Value const value : values )
         selector.values[selector.valueCount++] = static_cast< U8 >( value );
      return more;
   }
   /// Only where the four bytes from `offset` on have the value.
   template < class Value >
   constexpr LspPingElement whenWord( U8 offset, Value value ) const {
      U32 const word = static_cast< U32 >( value );
      LspPingElement more = *this;
      for( U8 i = 0; i < 4; ++i )
         more = more.when( static_cast< U8 >( offset + i ), word >> ( 24 - 8 * i ) & 0xff );
      return more;
   }
   constexpr LspPingElement chosenBy( U8 offset, U8 otherOffset = 0 ) const {
      LspPingElement more = *this;
      more.chooser = offset;
      more.otherChooser = otherOffset;
      return more;
   }
   /// The element of a chooser's value.
   template < class Value >
   constexpr LspPingElement when( Value value ) const {
      return when( chooser, value );
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
   /// The RFC contradicts itself and means this length, too, which is told in words.
   constexpr LspPingElement orLength( std::size_t bytes, std::string_view reading ) const {
      LspPingElement more = orLength( bytes );
      more.otherReading = reading;
      more.otherReadingLength = more.otherLength;
      return more;
   }
   /// The RFC states a length that differs from its picture.
   constexpr LspPingElement orStated( int more, std::string_view reading ) const {
      LspPingElement with = *this;
      with.statedMore = static_cast< std::int8_t >( more );
      with.otherReading = reading;
      return with;
   }
   /// The code goes on for so many bytes, and the length comes then.
   constexpr LspPingElement extendedCode( U8 bytes ) const {
      LspPingElement more = atLeast( bytes );
      more.codeExtension = bytes;
      return more;
   }
   /// \param reading  What to say where padding follows all the same.
   constexpr LspPingElement unpadded( std::string_view reading ) const {
      LspPingElement more = *this;
      more.isUnpadded = true;
      more.otherReading = reading;
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
   /// Elements with these codes, to the end of the value.
   template < LspPingCodes Codes >
   constexpr LspPingElement followedBy() const {
      LspPingElement more = followedBy( LspPingBehind::elements );
      more.inside = lspPingContextOf< Codes >;
      return more;
   }
   /// The same, as many bytes as the word before them says.
   template < LspPingCodes Codes >
   constexpr LspPingElement followedByCounted() const {
      LspPingElement more = followedBy< Codes >();
      more.behind = LspPingBehind::counted;
      return more;
   }
   constexpr LspPingElement definedIn( std::string_view source ) const {
      LspPingElement more = *this;
      more.rfc = source;
      return more;
   }
   constexpr LspPingElement inWords( std::string_view text ) const {
      LspPingElement more = *this;
      more.words = text;
      return more;
   }

   constexpr U16 code() const noexcept { return codes[0]; }
   constexpr bool hasCode( U32 code ) const noexcept {
      if( isCodeRange )
         return code >= codes[0] && code <= codes[1];
      return code == codes[0] || ( codeCount > 1 && code == codes[1] );
   }
   constexpr bool hasLength( U32 length ) const noexcept {
      if( !hasFixedLength )
         return length >= leastLength;
      return length == leastLength || ( otherLength != 0 && length == otherLength );
   }
   /// The least one of the lengths.
   constexpr U16 shortestLength() const noexcept {
      return otherLength != 0 && otherLength < leastLength ? otherLength : leastLength;
   }
   /// Whether other elements stand in it.
   constexpr bool isContainer() const noexcept {
      return behind >= LspPingBehind::elements && behind <= LspPingBehind::opaqueValues;
   }
   /// What stands in it, of a container.
   constexpr LspPingContext content() const noexcept {
      switch( behind ) {
      case LspPingBehind::fecs:
      case LspPingBehind::stackChangeFec:
         return LspPingContext::targetFec;
      case LspPingBehind::subTlvs:
         return LspPingContext::ddmap;
      case LspPingBehind::responderTlvs:
         return LspPingContext::p2mpResponder;
      case LspPingBehind::opaqueValues:
         return LspPingContext::opaqueValue;
      case LspPingBehind::elements:
      case LspPingBehind::counted:
         return inside;
      default:
         return LspPingContext::message;
      }
   }
   /// Whether the selecting bytes are there and have their values. `bytes` are the element's.
   constexpr bool isSelectedBy( std::span< U8 const > bytes ) const noexcept {
      for( std::size_t i = 0; i < selectorCount; ++i )
         if( selectors[i].offset >= bytes.size() ||
             !selectors[i].has( bytes[selectors[i].offset] ) )
            return false;
      return true;
   }

 private:
   static constexpr LspPingElement of( LspPingContext context, U32 code ) {
      LspPingElement element;
      element.context = context;
      element.codes[element.codeCount++] = static_cast< U16 >( code );
      return element;
   }
};

} // namespace LspPing
