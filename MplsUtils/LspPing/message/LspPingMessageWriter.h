#pragma once

#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "MplsUtils/LspPing/message/LspPingOpenElement.h"
#include "MplsUtils/LspPing/message/LspPingWriteError.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <vector>

namespace LspPing {

/// A class with the facts of an element beside it.
template < class View >
concept LspPingElementClass = requires {
   { View::element.code() };
};

/// Writes a message from its header to its last TLV. Codes, lengths, what counts the bytes of
/// something else, and padding are filled in from the facts beside the classes:
///
///    LspPingMessageWriter writer( place );
///    writer.header( []( LspPingHdr & hdr ) { hdr.messageTypeIs( 2 ); } );
///    {
///       auto stack = writer.open( LspPingTlvType::TargetFecStack );
///       writer.add< LspPingNilFecSubTlv >( []( auto & fec ) { fec.labelIs( 3 ); } );
///    }
///    send( writer.bytes() );
///
/// What cannot be written is not: the element is taken back from where it was opened, and the
/// message stays as it was before. The call answers false, and `error()` keeps the first reason;
/// the writer can be used further. Memory that runs out while it grows ends the process.
///
/// The functions that fill get zeros, apart from what is filled in. They must not throw, nor keep
/// what they get, nor write to the message otherwise.
class LSPPING_MESSAGE_EXPORT LspPingMessageWriter {
 public:
   using Error = LspPingWriteErrorCode;

   /// Into the caller's bytes, and none outside of them. What lies behind the message may change.
   explicit LspPingMessageWriter( std::span< U8 > place ) noexcept
      : place_( place.first( std::min< std::size_t >( place.size(), 0xffffffff ) ) ) {}
   /// Behind what is in the caller's memory, which grows. Both stay as long as the writer.
   explicit LspPingMessageWriter( std::vector< U8 > & memory ) noexcept
      : memory_( &memory ),
        base_( memory.size() ) {}
   LspPingMessageWriter( LspPingMessageWriter const & ) = delete;
   LspPingMessageWriter & operator=( LspPingMessageWriter const & ) = delete;
   ~LspPingMessageWriter() = default;

   /// The message so far, whose lengths are right when nothing is open. Good until something is
   /// written.
   std::span< U8 const > bytes() const noexcept { return { at( 0 ), size_ }; }
   /// The first thing that was not written.
   LspPingWriteError error() const noexcept { return error_; }
   void errorDel() noexcept { error_ = {}; }

   /// The message's first 32 bytes, once. The version is 1 unless `fill( LspPingHdr & )` says
   /// otherwise.
   template < class Fill >
   bool header( Fill fill ) noexcept;
   /// The header of the reply to a request that was read, RFC 8029 section 4.5, and with
   /// `tlvNotUnderstood` the TLVs that are not, in an Errored TLVs TLV (section 3.8). The request
   /// must not lie in memory that this writer lets grow. \param received  When the request came, as
   /// NtpTime::ntpTime() gives it.
   bool reply( LspPingMessage const & request, LspPingReturnCode code, U8 subcode,
               U64 received ) noexcept;

   /// An element with nothing behind the fixed part, as `fill( View & )` fills it. It may choose
   /// the length where two are allowed.
   template < LspPingElementClass View, class Fill >
   bool add( Fill fill ) noexcept {
      return add< View >( View::element.code(), fill );
   }
   /// \param code  One of those of the class.
   template < LspPingElementClass View, class Code, class Fill >
   bool add( Code code, Fill fill ) noexcept;
   /// An element with just this value. \see open( LspPingContext, U32 )
   bool add( LspPingContext context, U32 code, std::span< U8 const > value ) noexcept;
   /// A copy of an element that was read, with all that stands in it. Its message must not lie in
   /// memory that this writer lets grow.
   bool add( LspPingElementRef element ) noexcept;
   /// The padding's bytes tell the length, whatever the object says.
   bool add( LspPingPadTlv const & pad ) noexcept;

   /// An element that is written further until it is closed. Others that are written meanwhile
   /// stand in it.
   template < LspPingElementClass View, class Fill >
   [[nodiscard]] LspPingOpenElement open( Fill fill ) noexcept {
      return open< View >( View::element.code(), fill );
   }
   template < LspPingElementClass View >
   [[nodiscard]] LspPingOpenElement open() noexcept {
      return open< View >( []( View & ) {} );
   }
   template < LspPingElementClass View, class Code, class Fill >
   [[nodiscard]] LspPingOpenElement open( Code code, Fill fill ) noexcept {
      return { *this, openView< View >( static_cast< U32 >( code ), fill ) };
   }
   /// One that no class describes, be its code known or not.
   [[nodiscard]] LspPingOpenElement open( LspPingContext context, U32 code ) noexcept;
   template < LspPingCodes Code >
   [[nodiscard]] LspPingOpenElement open( Code code ) noexcept {
      return open( lspPingContextOf< Code >, static_cast< U32 >( code ) );
   }
   /// A container like one that was read: the fixed part is as it was, and nothing in it yet.
   [[nodiscard]] LspPingOpenElement open( LspPingElementRef container ) noexcept;

   // From records, as LspPingMessageRecords makes them. What a record does not say, or says
   // although such an element has no place for it, is an error.

   /// A FEC, in a stack or a FEC stack change. `fecTlvLen` is the length, unless it is 0.
   bool add( LspPingFecInfo const & fec ) noexcept;
   /// A Target FEC Stack TLV. The keys are the positions: 0, 1 and so on.
   bool fecStack( LspPingFecStack const & stack ) noexcept;
   /// A TLV for each, in the order of the keys; all or none. The FEC stack changes name no peer.
   bool mappings( LspPingDownstreamMappingInfoSet const & set ) noexcept;
   bool interface( LspPingIntfAndLabelStackInfo const & info ) noexcept;
   bool pad( LspPingPadInfo const & info ) noexcept;

 private:
   friend class LspPingOpenElement;

   // An element that is open. Offsets count from the message's first byte.
   struct Level {
      // Null for a code that nobody knows.
      LspPingElement const * facts;
      U32 id;
      U32 begin;
      // What stands behind the fixed part.
      U32 content;
      LspPingContext context;
      // The fixed part is a view's.
      bool isView;
      bool hasMultipath;
      // It was taken back, and nothing is written until it is closed.
      bool isTakenBack;

      LspPingBehind behind() const noexcept {
         return facts != nullptr ? facts->behind : LspPingBehind::nothing;
      }
   };
   static constexpr U32 noId = 0;

   template < class View, class Fill >
   U32 openView( U32 code, Fill & fill ) noexcept;

   U8 * at( U32 offset ) const noexcept {
      return memory_ != nullptr ? memory_->data() + base_ + offset : place_.data() + offset;
   }
   U32 word( U32 offset ) const noexcept { return U32{ at( offset )[0] } << 8 | at( offset )[1]; }
   void wordIs( U32 offset, U32 value ) noexcept {
      at( offset )[0] = static_cast< U8 >( value >> 8 );
      at( offset )[1] = static_cast< U8 >( value );
   }
   // Zeros behind the message; null where they do not fit.
   U8 * room( U32 count ) noexcept {
      if( memory_ != nullptr )
         return grown( count );
      if( count > place_.size() - size_ )
         return nullptr;
      U8 * const zeros = place_.data() + size_;
      if( count > 0 )
         std::memset( zeros, 0, count );
      size_ += count;
      return zeros;
   }
   U8 * grown( U32 count ) noexcept;
   void cut( U32 size ) noexcept;
   bool refuse( Error code ) noexcept { return refuse( code, size_ ); }
   bool refuse( Error code, U32 offset ) noexcept;

   Level * top() noexcept { return depth_ > 0 ? &levels_[depth_ - 1] : nullptr; }
   Level const * top() const noexcept { return depth_ > 0 ? &levels_[depth_ - 1] : nullptr; }
   // The level of a handle, if it is the innermost one that is open.
   Level * topOf( U32 id ) noexcept {
      Level * const level = top();
      return id != noId && level != nullptr && level->id == id ? level : nullptr;
   }
   bool isOurs( Level const & level ) const noexcept;
   bool isMappingIpv6() const noexcept;
   // Before the information stand in the sub-TLV its type, its length and a byte, in the TLV its
   // type, a byte and its length.
   static U32 multipathLengthOf( Level const & level ) noexcept {
      return level.content - ( level.behind() == LspPingBehind::multipath ? 3 : 2 );
   }
   bool mayStand( LspPingContext context, U32 code ) const noexcept;
   bool takesBytes( Level const & level, std::size_t count ) const noexcept;
   U32 begin( LspPingContext context, LspPingElement const * facts, U32 code, U32 size,
              U32 content ) noexcept;
   void beginView( Level & level ) noexcept;
   void filled() noexcept;
   bool takeBack( Error why ) noexcept;
   Error finish( Level const & level ) noexcept;
   bool closeTop() noexcept;
   bool close( U32 id ) noexcept;
   U8 * headerRoom() noexcept;

   std::span< U8 > place_;
   std::vector< U8 > * memory_ = nullptr;
   std::size_t base_ = 0;
   U32 size_ = 0;
   U32 depth_ = 0;
   U32 lastId_ = noId;
   bool isFilling_ = false;
   LspPingWriteError error_;
   // One more than may stand: it is taken back. Only those below `depth_` are something.
   std::array< Level, LspPingMessageReader::deepest + 2 > levels_;
};

template < class Fill >
bool LspPingMessageWriter::header( Fill fill ) noexcept {
   U8 * const bytes = headerRoom();
   if( bytes == nullptr )
      return false;
   // The bytes are there, and the view has no alignment.
   auto & header = *reinterpret_cast< LspPingHdr * >( bytes );
   header.versionIs( 1 );
   isFilling_ = true;
   fill( header );
   isFilling_ = false;
   return true;
}

template < LspPingElementClass View, class Code, class Fill >
bool LspPingMessageWriter::add( Code code, Fill fill ) noexcept {
   static_assert( View::element.behind != LspPingBehind::identifiers,
                  "the identifiers are missing: open the element and write them" );
   if constexpr( std::is_same_v< View, LspPingPadTlv > ) {
      View pad;
      pad.typeIs( static_cast< U16 >( code ) );
      fill( pad );
      return add( pad );
   } else {
      U32 const id = openView< View >( static_cast< U32 >( code ), fill );
      return close( id );
   }
}

template < class View, class Fill >
U32 LspPingMessageWriter::openView( U32 code, Fill & fill ) noexcept {
   static_assert( !std::is_same_v< View, LspPingPadTlv >,
                  "the Pad TLV is no view: open it by its code, or add it" );
   constexpr LspPingElement const & facts = View::element;
   constexpr U32 header = lspPingHeaderSize( facts.context );
   constexpr U32 offset = facts.isOverValue ? header : 0;
   constexpr U32 end = offset + sizeof( View );
   // The identifiers are part of the least length.
   constexpr U32 content =
      facts.behind == LspPingBehind::identifiers ? end : header + facts.leastLength;
   static_assert( facts.behind == LspPingBehind::nothing || end == content,
                  "what stands behind the fixed part follows the view" );
   U32 const id = begin( facts.context, &facts, code, std::max( end, content ), content );
   Level * const level = top();
   if( id == noId || level->isTakenBack )
      return id;
   beginView( *level );
   isFilling_ = true;
   // `begin` laid the bytes, and views have no alignment.
   fill( *reinterpret_cast< View * >( at( level->begin ) + offset ) );
   isFilling_ = false;
   filled();
   return id;
}

} // namespace LspPing
