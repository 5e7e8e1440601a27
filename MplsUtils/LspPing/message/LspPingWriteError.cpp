#include "MplsUtils/LspPing/message/LspPingWriteError.h"

#include <array>
#include <cstddef>

namespace LspPing {

namespace {

struct Words {
   LspPingWriteErrorCode code;
   std::string_view name;
   std::string_view text;
};

#define LSPPING_WRITE_ERROR( code, text )                                                          \
   Words {                                                                                         \
      LspPingWriteErrorCode::code, #code, text                                                     \
   }
constexpr auto table = std::to_array< Words >( {
   LSPPING_WRITE_ERROR( none, "nothing is wrong" ),
   LSPPING_WRITE_ERROR( noRoom, "no room for it" ),
   LSPPING_WRITE_ERROR( tooLong, "too long for its length field" ),
   LSPPING_WRITE_ERROR( fecTooLong, "a FEC of more than 255 bytes in a FEC stack change" ),
   LSPPING_WRITE_ERROR( tooShort, "too short, something is missing in it" ),
   LSPPING_WRITE_ERROR( lengthWrong, "not of the length that its code asks for" ),
   LSPPING_WRITE_ERROR( nothingInIt, "nothing in it" ),
   LSPPING_WRITE_ERROR( misplaced, "it cannot stand here" ),
   LSPPING_WRITE_ERROR( tooDeep, "nested too deeply" ),
   LSPPING_WRITE_ERROR( notOpen, "the element is closed, or another one is open in it" ),
   LSPPING_WRITE_ERROR( codeWrong, "not a code of its class" ),
   LSPPING_WRITE_ERROR( needsClass, "elements of this code are written through their class" ),
   LSPPING_WRITE_ERROR( selectorWrong, "what chooses its class was changed to another one" ),
   LSPPING_WRITE_ERROR( labelTooLarge, "a label of more than 20 bits" ),
   LSPPING_WRITE_ERROR( multipathWrong, "multipath information that would be read as another" ),
   LSPPING_WRITE_ERROR( identifiersWrong,
                        "attachment identifiers that name nothing or are too long" ),
   LSPPING_WRITE_ERROR( rootWrong, "a root without an address" ),
   LSPPING_WRITE_ERROR( elementCut, "bytes of the element are missing" ),
   LSPPING_WRITE_ERROR( recordUnknown, "nobody knows how to write such a record" ),
   LSPPING_WRITE_ERROR( recordIncomplete, "the record does not say all that is sent" ),
   LSPPING_WRITE_ERROR( recordContradicts, "the record says what such an element cannot" ),
   LSPPING_WRITE_ERROR( noRequest, "no echo request to reply to" ),
   LSPPING_WRITE_ERROR( noReplyWanted, "the request asks for no reply" ),
} );
#undef LSPPING_WRITE_ERROR

static_assert( [] {
   for( std::size_t i = 0; i < table.size(); ++i ) {
      if( static_cast< std::size_t >( table[i].code ) != i )
         return false;
   }
   return true;
}() );

Words const & wordsOf( LspPingWriteErrorCode code ) noexcept {
   auto const place = static_cast< std::size_t >( code );
   return table[place < table.size() ? place : 0];
}

} // namespace

std::string_view lspPingWriteErrorName( LspPingWriteErrorCode code ) noexcept {
   return wordsOf( code ).name;
}

std::string_view lspPingWriteErrorText( LspPingWriteErrorCode code ) noexcept {
   return wordsOf( code ).text;
}

} // namespace LspPing
