#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

#include "MplsUtils/LspPing/ext/tlv/LspPingContainerTlv.h"
#include "MplsUtils/LspPing/fec/LspPingP2mpFec.h"
#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"

#include <cstring>
#include <limits>

namespace LspPing {

namespace {

using Error = LspPingWriteErrorCode;

constexpr U32 longestValue = 0xffff;

// Of a multipoint LDP FEC: the root's family and length, and the bytes of the fixed part besides
// the root itself.
constexpr U32 rootFamilyOffset = 4;
constexpr U32 rootLengthOffset = 6;
constexpr U32 besidesRoot = 9;

// How many levels an element and what stands in it take.
U32 levelsOf( LspPingElementRef element ) noexcept {
   U32 inside = 0;
   for( LspPingElementRef const child : element.elements() )
      inside = std::max( inside, levelsOf( child ) );
   return 1 + inside;
}

} // namespace

// Room in the caller's memory.
U8 * LspPingMessageWriter::grown( U32 count ) noexcept {
   if( count > std::numeric_limits< U32 >::max() - size_ )
      return nullptr;
   Kiv::orOutOfMemory( "LspPing::LspPingMessageWriter",
                       [&] { memory_->resize( base_ + size_ + count ); } );
   size_ += count;
   return at( size_ - count );
}

void LspPingMessageWriter::cut( U32 size ) noexcept {
   size_ = size;
   // Shrinking allocates nothing.
   if( memory_ != nullptr )
      memory_->resize( base_ + size );
}

bool LspPingMessageWriter::refuse( Error code, U32 offset ) noexcept {
   if( !error_ )
      error_ = { code, offset };
   return false;
}

U8 * LspPingMessageWriter::headerRoom() noexcept {
   if( size_ > 0 || depth() > 0 || isFilling() ) {
      refuse( Error::misplaced );
      return nullptr;
   }
   U8 * const bytes = room( sizeof( LspPingHdr ) );
   if( bytes == nullptr )
      refuse( Error::noRoom );
   return bytes;
}

bool LspPingMessageWriter::reply( LspPingMessage const & request, LspPingReturnCode code,
                                  U8 subcode, U64 received ) noexcept {
   LspPingHdr const * const asked = request.header();
   if( asked == nullptr ||
       asked->messageType() != Kiv::numberOf( LspPingMsgType::MplsEchoRequest ) )
      return refuse( Error::noRequest );
   if( asked->replyMode() == Kiv::numberOf( LspPingReplyMode::DontReply ) )
      return refuse( Error::noReplyWanted );
   bool const isWritten = header( [&]( LspPingHdr & reply ) {
      reply.messageTypeIs( Kiv::numberOf( LspPingMsgType::MplsEchoReply ) );
      reply.replyModeIs( asked->replyMode() );
      reply.returnCodeIs( static_cast< U8 >( code ) );
      reply.returnSubcodeIs( subcode );
      reply.senderHandleIs( asked->senderHandle() );
      reply.sequenceNumberIs( asked->sequenceNumber() );
      reply.tsSentSecondsIs( asked->tsSentSeconds() );
      reply.tsSentmSecondsIs( asked->tsSentmSeconds() );
      reply.tsRcvdSecondsIs( static_cast< U32 >( received ) );
      reply.tsRcvdmSecondsIs( static_cast< U32 >( received >> 32 ) );
   } );
   if( !isWritten || code != LspPingReturnCode::tlvNotUnderstood )
      return isWritten;
   LspPingOpenElement errored = open< LspPingErroredTlvsTlv >();
   for( LspPingElementRef const tlv : request.elements() )
      if( !tlv.isUnderstood() && !add( tlv ) )
         return errored.takeBack( Error::elementCut );
   return errored.close();
}

bool LspPingMessageWriter::isMappingIpv6() const noexcept {
   for( std::size_t i = depth(); i > 0; --i ) {
      LspPingBehind const behind = levels_[i].behind();
      if( behind != LspPingBehind::subTlvs && behind != LspPingBehind::mappingLabels )
         continue;
      U8 const type = *at( levels_[i].begin + 6 );
      return type == static_cast< U8 >( LspPingAddrType::ipv6Numbered ) ||
             type == static_cast< U8 >( LspPingAddrType::ipv6Unnumbered );
   }
   return false;
}

// Whether an element may be written next.
bool LspPingMessageWriter::mayStand( LspPingContext context, U32 code ) const noexcept {
   Level const * const parent = top_;
   if( depth() == 0 )
      return context == LspPingContext::message && size_ >= sizeof( LspPingHdr );
   if( size_ < parent->content )
      return false;
   bool const isFirst = size_ == parent->content;
   switch( parent->behind() ) {
   case LspPingBehind::elements:
   case LspPingBehind::counted:
      return context == parent->facts->inside;
   case LspPingBehind::tlvs:
      return context == LspPingContext::message;
   case LspPingBehind::fecs:
      // The stack around the one FEC of a FEC stack change.
      if( !isFirst && depth() > 1 && top_[-1].behind() == LspPingBehind::stackChangeFec )
         return false;
      return context == LspPingContext::targetFec;
   case LspPingBehind::subTlvs:
      return context == LspPingContext::ddmap;
   case LspPingBehind::stackChangeFec:
      return isFirst && ( context == LspPingContext::targetFec ||
                          ( context == LspPingContext::message &&
                            code == static_cast< U32 >( LspPingTlvType::TargetFecStack ) ) );
   case LspPingBehind::responderTlvs:
      return context == LspPingContext::p2mpResponder;
   case LspPingBehind::opaqueValues:
      return context == LspPingContext::opaqueValue;
   default:
      return false;
   }
}

// Whether bytes may be written as they are: the rest of a fixed part that the view leaves out, or
// what has no parts.
bool LspPingMessageWriter::takesBytes( Level const & level, std::size_t count ) const noexcept {
   if( size_ < level.content )
      return count <= level.content - size_;
   switch( level.behind() ) {
   case LspPingBehind::nothing:
      return !level.isView;
   case LspPingBehind::padding:
   case LspPingBehind::tail:
      return true;
   default:
      return false;
   }
}

// Begins an element with `size` bytes; what stands behind them comes `content` behind its begin.
// Where it may not stand it is taken back at once, so that its handle is as good as any.
U32 LspPingMessageWriter::begin( LspPingContext context, LspPingElement const * facts, U32 code,
                                 U32 size, U32 content ) noexcept {
   if( isFilling() ) {
      refuse( Error::misplaced );
      return noId;
   }
   if( top_->isTakenBack )
      return noId;
   bool const isPlace = mayStand( context, code );
   Level & level = *++top_;
   U32 const id = nextId();
   level = { .facts = facts,
             .begin = size_,
             .context = context,
             .takes = LspPingBehind::nothing,
             .isView = false,
             .hasMultipath = false,
             .isTakenBack = false,
             .content = size_ + content,
             .id = id | slowly };
   U32 const header = lspPingHeaderSize( context );
   if( !isPlace )
      takeBack( Error::misplaced );
   else if( depth() + 1 == levels_.size() )
      takeBack( Error::tooDeep );
   else if( code > ( header == 3 ? 0xff : 0xffff ) ||
            ( facts != nullptr && !facts->hasCode( code ) ) )
      takeBack( Error::codeWrong );
   else if( room( size ) == nullptr )
      takeBack( Error::noRoom );
   else if( header == 3 )
      *at( level.begin ) = static_cast< U8 >( code );
   else
      wordIs( level.begin, code );
   return id;
}

// What is told before the view is filled.
void LspPingMessageWriter::beginView( Level & level ) noexcept {
   level.isView = true;
   LspPingElement const & facts = *level.facts;
   for( std::size_t i = 0; i < facts.selectorCount; ++i )
      *at( level.begin + facts.selectors[i].offset ) = facts.selectors[i].values[0];
   if( facts.hasFixedLength )
      wordIs( level.begin + lspPingHeaderSize( level.context ) - 2, facts.leastLength );
   if( facts.behind == LspPingBehind::opaqueValues ) {
      wordIs( level.begin + rootFamilyOffset, 1 );
      *at( level.begin + rootLengthOffset ) = sizeof( Velnet::IpAddr );
   }
}

// Holds what was filled in against the facts.
void LspPingMessageWriter::filled() noexcept {
   Level & level = *top_;
   U32 const header = lspPingHeaderSize( level.context );
   U8 const * const element = at( level.begin );
   U32 const code = header == 3 ? U32{ element[0] } : word( level.begin );
   std::span< U8 const > const bytes{ element, size_ - level.begin };
   if( !level.facts->hasCode( code ) ) {
      takeBack( Error::codeWrong );
      return;
   }
   if( level.facts->chooser != 0 ) {
      // The byte that chooses is there now.
      level.facts = &elementOf( level.context, code, bytes )->facts;
      level.content = level.begin + header + level.facts->leastLength;
      if( level.facts->hasFixedLength && word( level.begin + header - 2 ) == 0 )
         wordIs( level.begin + header - 2, level.facts->leastLength );
   }
   LspPingElement const & facts = *level.facts;
   if( facts.chooser != 0 || !facts.isSelectedBy( bytes ) ||
       ( facts.behind == LspPingBehind::opaqueValues &&
         ( word( level.begin + rootFamilyOffset ) != 1 || element[rootLengthOffset] != 4 ) ) )
      takeBack( Error::selectorWrong );
   else if( facts.hasFixedLength && !facts.hasLength( word( level.begin + header - 2 ) ) )
      takeBack( Error::lengthWrong );
}

// Of the innermost element, which stays open with nothing in the message.
bool LspPingMessageWriter::takeBack( Error why ) noexcept {
   Level & level = *top_;
   if( !level.isTakenBack ) {
      refuse( why, level.begin );
      level.isTakenBack = true;
      level.id |= slowly;
      level.takes = LspPingBehind::nothing;
      cut( level.begin );
   }
   return false;
}

// Fills in what is known only at the end.
Error LspPingMessageWriter::finish( Level const & level ) noexcept {
   if( size_ < level.content )
      return Error::tooShort;
   U32 const header = lspPingHeaderSize( level.context );
   U32 const inside = size_ - level.content;
   U32 const lengthAt = level.begin + header - 2;
   LspPingElement const * const facts = level.facts;
   // A view may cover padding, unless something follows it.
   bool const isAsFilled =
      level.isView && facts->hasFixedLength && facts->behind == LspPingBehind::nothing;
   U32 const length = isAsFilled ? word( lengthAt ) : size_ - level.begin - header;
   if( length > longestValue )
      return Error::tooLong;
   switch( level.behind() ) {
   case LspPingBehind::tlvs:
   case LspPingBehind::fecs:
      if( inside == 0 )
         return Error::nothingInIt;
      break;
   case LspPingBehind::counted:
   case LspPingBehind::subTlvs:
   case LspPingBehind::opaqueValues:
      wordIs( level.content - 2, inside );
      break;
   case LspPingBehind::multipath:
   case LspPingBehind::mappingLabels:
      if( !level.hasMultipath )
         wordIs( multipathLengthOf( level ), 0 );
      break;
   case LspPingBehind::stackChangeFec:
      if( inside > 0xff )
         return Error::fecTooLong;
      at( level.begin )[6] = static_cast< U8 >( inside );
      break;
   default:
      break;
   }
   if( facts != nullptr && facts->hasFixedLength && !facts->hasLength( length ) )
      return Error::lengthWrong;
   if( facts != nullptr && length < facts->shortestLength() )
      return Error::tooShort;
   U32 const codeExtension = facts != nullptr ? facts->codeExtension : 0;
   wordIs( lengthAt + codeExtension, length - codeExtension );
   // Opaque values follow each other without padding, RFC 6388 section 2.3.
   bool const isUnpadded =
      level.context == LspPingContext::opaqueValue || ( facts != nullptr && facts->isUnpadded );
   U32 const end =
      level.begin + ( isUnpadded ? header + length : lspPingPadded( header + length ) );
   return room( end - size_ ) == nullptr ? Error::noRoom : Error::none;
}

bool LspPingMessageWriter::closeTop() noexcept {
   Level const & level = *top_;
   if( !level.isTakenBack ) {
      if( Error const why = finish( level ); why != Error::none )
         takeBack( why );
   }
   --top_;
   return !level.isTakenBack;
}

bool LspPingMessageWriter::close( U32 id ) noexcept {
   if( topOf( id ) != nullptr )
      return closeTop();
   std::size_t place = depth();
   while( place > 0 && ( levels_[place].id & ~slowly ) != id )
      --place;
   if( place == 0 || isFilling() )
      return false;
   while( depth() > place )
      closeTop();
   return closeTop();
}

// Continues with an element without a level as with others, when it has been filled.
bool LspPingMessageWriter::addFilled( LspPingElement const & facts, U32 begin,
                                      U32 content ) noexcept {
   *++top_ = { .facts = &facts,
               .begin = begin,
               .context = facts.context,
               .takes = LspPingBehind::nothing,
               .isView = true,
               .hasMultipath = false,
               .isTakenBack = false,
               .content = content,
               .id = nextId() | slowly };
   filled();
   return closeTop();
}

U32 LspPingMessageWriter::openCode( LspPingContext context, U32 code ) noexcept {
   LspPingElementRow const * const row = elementOf( context, code, {} );
   U32 const header = lspPingHeaderSize( context );
   U32 const id = begin( context, row != nullptr ? &row->facts : nullptr, code, header, header );
   // The Pad TLV's class is no view, and some views are the header and no more.
   if( id != noId && row != nullptr && row->viewSize > header )
      takeBack( Error::needsClass );
   return id;
}

LspPingOpenElement LspPingMessageWriter::open( LspPingElementRef container ) noexcept {
   LspPingElementRow const * const row = container.row();
   std::span< U8 const > const bytes = container.bytes();
   U32 fixed = lspPingHeaderSize( container.context() );
   Error why = Error::none;
   if( !container.isWhole() )
      why = Error::elementCut;
   else if( !container.isContainer() )
      why = Error::misplaced;
   else if( row->facts.behind != LspPingBehind::opaqueValues )
      fixed = row->fixedSize();
   else if( bytes.size() > rootLengthOffset )
      fixed = besidesRoot + bytes[rootLengthOffset];
   if( why == Error::none && fixed > bytes.size() )
      why = Error::tooShort;
   U32 const id = begin( container.context(), row != nullptr ? &row->facts : nullptr,
                         container.code(), fixed, fixed );
   if( Level const * const level = topOf( id ); level != nullptr && !level->isTakenBack ) {
      if( why != Error::none )
         takeBack( why );
      else
         std::memcpy( at( level->begin ), bytes.data(), fixed );
   }
   return { *this, id, LspPingBehind::nothing, fixed };
}

bool LspPingMessageWriter::add( LspPingContext context, U32 code,
                                std::span< U8 const > value ) noexcept {
   U32 const header = lspPingHeaderSize( context );
   LspPingOpenElement element( *this, begin( context, nullptr, code, header, header ),
                               LspPingBehind::nothing, header );
   Level * const level = topOf( element.id_ );
   if( level == nullptr || level->isTakenBack || !element.bytes( value ) )
      return element.close();
   // The length may choose the class.
   U32 const lengthAt = level->begin + header - 2;
   wordIs( lengthAt, size_ - level->begin - header );
   LspPingElementRow const * const row =
      elementOf( context, code, { at( level->begin ), size_ - level->begin } );
   if( row == nullptr )
      return element.close();
   if( row->facts.codeExtension != 0 )
      wordIs( lengthAt, 0 );
   switch( row->facts.behind ) {
   case LspPingBehind::nothing:
   case LspPingBehind::padding:
   case LspPingBehind::tail:
      break;
   default:
      return takeBack( Error::needsClass );
   }
   if( row->facts.chooser != 0 )
      return takeBack( Error::selectorWrong );
   level->facts = &row->facts;
   return element.close();
}

bool LspPingMessageWriter::add( LspPingElementRef element ) noexcept {
   std::span< U8 const > const bytes = element.bytes();
   std::span< U8 const > const padded = element.paddedBytes();
   U32 const size = static_cast< U32 >( bytes.size() );
   U32 const total = element.context() == LspPingContext::opaqueValue || element.isUnpadded()
                        ? size
                        : lspPingPadded( size );
   U32 const id = begin( element.context(), nullptr, element.code(), total, total );
   Level const * const level = topOf( id );
   if( level == nullptr )
      return false;
   if( !element.isWhole() )
      takeBack( Error::elementCut );
   else if( depth() + levelsOf( element ) >= levels_.size() )
      takeBack( Error::tooDeep );
   if( !level->isTakenBack )
      std::memcpy( at( level->begin ), padded.data(),
                   std::min< std::size_t >( total, padded.size() ) );
   --top_;
   return !level->isTakenBack;
}

bool LspPingMessageWriter::add( LspPingPadTlv const & pad ) noexcept {
   LspPingOpenElement element = open( LspPingContext::message, pad.type() );
   if( !LspPingPadTlv::element.hasCode( pad.type() ) )
      return element.takeBack( Error::codeWrong );
   U8 const type = pad.padType();
   if( element.bytes( { &type, 1 } ) )
      element.bytes( pad.padding().entries() );
   return element.close();
}

} // namespace LspPing
