#include "MplsUtils/LspPing/message/LspPingProblem.h"

#include "MplsUtils/LspPing/message/LspPingMessage.h"

#include <array>
#include <cstring>

namespace LspPing {

namespace {

// In the words a '#' stands for the next number, a '~' behind "byte" for the plural that the last
// number needs. Words that begin with ':' or " " follow the element's name.
struct Words {
   LspPingProblemCode code;
   std::string_view name;
   std::string_view text;
};

#define LSPPING_PROBLEM( code, text )                                                              \
   Words {                                                                                         \
      LspPingProblemCode::code, #code, text                                                        \
   }
constexpr auto table = std::to_array< Words >( {
   LSPPING_PROBLEM( none, "nothing is wrong" ),
   LSPPING_PROBLEM( headerCut, "header: needed # bytes, had #" ),
   LSPPING_PROBLEM( headerInvalid, "header: not valid, version #, message type #" ),
   LSPPING_PROBLEM( versionUnknown, "header: version #, expected #" ),
   LSPPING_PROBLEM( noTlvs, "# byte~ behind the header are no TLVs" ),
   LSPPING_PROBLEM( tooDeep, "nested too deeply: not decoded further" ),
   LSPPING_PROBLEM( tlvsNotAligned, "TLVs are not aligned to 4 bytes" ),
   LSPPING_PROBLEM( subTlvsNotAligned, "sub-TLVs are not aligned to 4 bytes" ),
   LSPPING_PROBLEM( leftOverBehindTlv, "# byte~ left over after the last TLV: another needs #" ),
   LSPPING_PROBLEM( leftOverBehindSubTlv,
                    "# byte~ left over after the last sub-TLV: another needs #" ),
   LSPPING_PROBLEM( leftOverBehindOpaqueValue,
                    "# byte~ left over after the last opaque value: another needs #" ),
   LSPPING_PROBLEM( zerosBehindTlv, "# byte~ left over after the last TLV, all zero" ),
   LSPPING_PROBLEM( zerosBehindSubTlv, "# byte~ left over after the last sub-TLV, all zero" ),
   LSPPING_PROBLEM( zerosBehindOpaqueValue,
                    "# byte~ left over after the last opaque value, all zero" ),
   LSPPING_PROBLEM( lengthBeyond, ": length # needs # bytes, had #" ),
   LSPPING_PROBLEM( tooShort, ": length # is too short, needed #" ),
   LSPPING_PROBLEM( lengthWrong, ": length #, expected #" ),
   LSPPING_PROBLEM( lengthCountsPadding, ": length # counts the padding, expected #" ),
   LSPPING_PROBLEM( lengthUnknown, ": length # is none of those that are known" ),
   LSPPING_PROBLEM( paddingMissing, ": # byte~ of padding missing" ),
   LSPPING_PROBLEM( nothingInIt, ": nothing in it" ),
   LSPPING_PROBLEM( leftOver, ": # byte~ left over" ),
   LSPPING_PROBLEM( notValid, ": not valid" ),
   LSPPING_PROBLEM( addressTypeUnknown, ": address type # is not known" ),
   LSPPING_PROBLEM( selectorUnknown, ": # at byte # of the value is not known" ),
   LSPPING_PROBLEM( prefixTooLong, ": prefix length #, at most #" ),
   LSPPING_PROBLEM( notZero, ": bytes that must be zero are not" ),
   LSPPING_PROBLEM( noIdentifiers, ": no attachment identifiers" ),
   LSPPING_PROBLEM( identifierBeyond, ": attachment identifier of # bytes, had #" ),
   LSPPING_PROBLEM( familyUnknown, ": address family # is not known" ),
   LSPPING_PROBLEM( rootLengthWrong, ": root address of # bytes, expected #" ),
   LSPPING_PROBLEM( rootDoesNotFit, ": root address of # bytes and opaque length do not fit" ),
   LSPPING_PROBLEM( opaqueValueBeyond, ": opaque value of # bytes, had #" ),
   LSPPING_PROBLEM( subTlvsBeyond, ": sub-TLVs of # bytes, had #" ),
   LSPPING_PROBLEM( fecBeyond, ": FEC TLV of # bytes, had #" ),
   LSPPING_PROBLEM( multipathBeyond, ": multipath information of # bytes, had #" ),
   LSPPING_PROBLEM( multipathWithoutType, ": no multipath, but information of # bytes" ),
   LSPPING_PROBLEM( multipathLengthWrong, ": multipath information of # bytes for type #" ),
} );
#undef LSPPING_PROBLEM

static_assert( [] {
   for( std::size_t i = 0; i < table.size(); ++i ) {
      if( static_cast< std::size_t >( table[i].code ) != i )
         return false;
   }
   return true;
}() );

Words const & wordsOf( LspPingProblemCode code ) noexcept {
   auto const place = static_cast< std::size_t >( code );
   return table[place < table.size() ? place : 0];
}

void appendElement( Orlo::StringBuilder & out, LspPingElementRef element ) {
   if( std::string_view const name = element.name(); !name.empty() ) {
      out.append( name );
      return;
   }
   out.append( element.context() == LspPingContext::message ? "TLV " : "sub-TLV " );
   out.appendDecimal( element.code() );
}

// What the element would say if its length left the padding out.
void appendWithoutPadding( Orlo::StringBuilder & out, LspPingElementRef element ) {
   U32 const length = element.row()->facts.leastLength;
   std::array< U8, 64 > corrected;
   std::span< U8 const > const bytes = element.paddedBytes();
   LspPingElementRow const & row = *element.row();
   if( row.appendText == nullptr || bytes.size() > corrected.size() )
      return;
   std::memcpy( corrected.data(), bytes.data(), bytes.size() );
   corrected[2] = static_cast< U8 >( length >> 8 );
   corrected[3] = static_cast< U8 >( length );
   if( !row.verdict( corrected.data(), length ).isValid )
      return;
   out.append( "; without it: " );
   row.appendText( out, corrected.data() );
}

} // namespace

std::string_view lspPingProblemName( LspPingProblemCode code ) noexcept {
   return wordsOf( code ).name;
}

void LspPingMessage::appendText( Orlo::StringBuilder & out, LspPingProblem const & problem ) const {
   std::string_view const words = wordsOf( problem.code ).text;
   if( words.starts_with( ':' ) && problem.element < elementCount() )
      appendElement( out, element( problem.element ) );
   std::size_t number = 0;
   U32 last = 0;
   for( char const c : words ) {
      if( c == '#' ) {
         last = problem.numbers[number++];
         out.appendDecimal( last );
      } else if( c != '~' ) {
         out.append( c );
      } else if( last != 1 ) {
         out.append( 's' );
      }
   }
   if( problem.code == LspPingProblemCode::lengthCountsPadding )
      appendWithoutPadding( out, element( problem.element ) );
}

} // namespace LspPing
