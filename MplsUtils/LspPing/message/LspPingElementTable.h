#pragma once

#include "MplsUtils/LspPing/message/LspPingElements.h"

#include <array>

// The table of elements as the reader looks into it. Programs ask `elementOf`.
namespace LspPing {

/// Nearly all codes are small, and are looked up by number.
inline constexpr std::size_t lspPingSmallCodeCount = 64;
inline constexpr U8 lspPingNoRow = 0xff;

/// Contexts with elements have small numbers.
inline constexpr std::size_t lspPingContextCount = 48;
/// By code: which row is the first, or `lspPingNoRow`.
using LspPingSmallCodes = std::array< U8, lspPingSmallCodeCount >;
/// By context. It is hidden, and so in reach without a table of addresses.
[[gnu::visibility( "hidden" )]] extern std::array< LspPingSmallCodes, lspPingContextCount > const
   lspPingSmallCodeRows;
/// `lspPingElements().data()`
[[gnu::visibility( "hidden" )]] extern LspPingElementRow const * const lspPingRows;

/// As `elementOf`, quick for an element whose code has one row.
inline LspPingElementRow const * quickElementOf( LspPingContext context, U32 code,
                                                 std::span< U8 const > bytes ) noexcept {
   if( code < lspPingSmallCodeCount ) {
      U8 const first = lspPingSmallCodeRows[static_cast< std::size_t >( context )][code];
      if( first == lspPingNoRow )
         return nullptr;
      if( LspPingElementRow const & row = lspPingRows[first]; row.facts.selectorCount == 0 )
         return &row;
   }
   return elementOf( context, code, bytes );
}

/// As `elementOf`, for a header of four bytes and a value that is there; null where the row does
/// not say all of the fixed part.
inline LspPingElementRow const * usualElementOf( LspPingContext context,
                                                 LspPingSmallCodes const & firstRows, U32 code,
                                                 U32 length, U8 const * element ) noexcept {
   if( code >= firstRows.size() )
      return nullptr;
   U8 const first = firstRows[code];
   if( first == lspPingNoRow )
      return nullptr;
   // All lengths below the least are beyond the count.
   auto const hasLength = [length]( LspPingUsualElement const & usual ) {
      return length - usual.leastLength < usual.lengthCount;
   };
   LspPingElementRow const * row = &lspPingRows[first];
   if( !hasLength( row->usual ) )
      return nullptr;
   if( element[row->usual.selectorAt] != row->usual.selectorValue ) {
      row = elementOf( context, code, { element, 4 + length } );
      if( row == nullptr || !hasLength( row->usual ) )
         return nullptr;
   }
   return element[row->usual.prefixAt] <= row->usual.longestPrefix ? row : nullptr;
}

} // namespace LspPing
