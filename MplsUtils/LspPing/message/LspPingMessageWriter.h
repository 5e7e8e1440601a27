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
      : place_( place.first( std::min< std::size_t >( place.size(), 0xffffffff ) ) ),
        limit_( std::max( place_.size(), noQuickRoom ) ) {
      levels_[0] = messageLevel;
   }
   /// Behind what is in the caller's memory, which grows. Both stay as long as the writer.
   explicit LspPingMessageWriter( std::vector< U8 > & memory ) noexcept
      : memory_( &memory ),
        base_( memory.size() ) {
      levels_[0] = messageLevel;
   }
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
   [[nodiscard]] LspPingOpenElement open( Code code, Fill fill ) noexcept;
   /// One of which no class describes more than the header, be its code known or not.
   [[nodiscard]] inline LspPingOpenElement open( LspPingContext context, U32 code ) noexcept;
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
   template < class View >
   friend struct LspPingViewShape;

   // An element that is open, or the message itself. Offsets count from the message's first byte.
   // Members that are stored one by one do not stand side by side: g++ would collect them first.
   struct Level {
      // Null for a code that nobody knows.
      LspPingElement const * facts;
      U32 begin;
      LspPingContext context;
      // What may be written next without being asked further; `nothing` with `slowly`, and before
      // the header.
      LspPingBehind takes;
      // The fixed part is a view's.
      bool isView;
      bool hasMultipath;
      // What stands behind the fixed part.
      U32 content;
      // It was taken back, and nothing is written until it is closed.
      bool isTakenBack;
      // With `slowly`, only the general functions write to it and close it.
      U32 id;

      LspPingBehind behind() const noexcept {
         return facts != nullptr ? facts->behind : LspPingBehind::nothing;
      }
   };
   static constexpr U32 noId = 0;
   static constexpr U32 slowly = 0x80000000;
   static constexpr Level messageLevel{ .facts = nullptr,
                                        .begin = 0,
                                        .context = LspPingContext::message,
                                        .takes = LspPingBehind::nothing,
                                        .isView = false,
                                        .hasMultipath = false,
                                        .content = sizeof( LspPingHdr ),
                                        .isTakenBack = false,
                                        .id = slowly };
   // Fewer bytes than anything takes.
   static constexpr std::size_t noQuickRoom = 1;
   // The innermost level in which one more may be opened and have something in it.
   static constexpr std::size_t deepestQuick = LspPingMessageReader::deepest;

   template < class View, class Fill >
   U32 openView( U32 code, Fill & fill ) noexcept;

   U8 * at( U32 offset ) const noexcept {
      return memory_ != nullptr ? memory_->data() + base_ + offset : place_.data() + offset;
   }
   static U32 word( U8 const * at ) noexcept {
      Velnet::NetU16 word;
      std::memcpy( &word, at, sizeof word );
      return word.value();
   }
   static void wordIs( U8 * at, U32 value ) noexcept {
      Velnet::NetU16 const word( static_cast< U16 >( value ) );
      std::memcpy( at, &word, sizeof word );
   }
   static void headerIs( U8 * at, U32 code, U32 length ) noexcept {
      Velnet::NetU32 const header( code << 16 | length );
      std::memcpy( at, &header, sizeof header );
   }
   U32 word( U32 offset ) const noexcept { return word( at( offset ) ); }
   void wordIs( U32 offset, U32 value ) noexcept { wordIs( at( offset ), value ); }
   bool isFilling() const noexcept { return limit_ == 0; }
   static constexpr bool isForLabels( LspPingBehind behind ) noexcept {
      return behind == LspPingBehind::labelStack || behind == LspPingBehind::protocolLabels ||
             behind == LspPingBehind::mappingLabels;
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

   std::size_t depth() const noexcept {
      return static_cast< std::size_t >( top_ - levels_.data() );
   }
   // The level of a handle, if it is the innermost one that is open.
   Level * topOf( U32 id ) noexcept {
      return id != noId && !isFilling() && ( top_->id & ~slowly ) == id ? top_ : nullptr;
   }
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
   bool addFilled( LspPingElement const & facts, U32 begin, U32 content ) noexcept;
   U32 openCode( LspPingContext context, U32 code, LspPingElementRow const * row ) noexcept;
   bool takeBack( Error why ) noexcept;
   Error finish( Level const & level ) noexcept;
   bool closeTop() noexcept;
   bool close( U32 id ) noexcept;
   U8 * headerRoom() noexcept;

   // Of LspPingQuickWriting.h. What answers false, or is asked for where these do not hold, is for
   // the general functions.
   // Whether the caller's place has so many bytes behind the message, and nothing is being filled.
   bool hasQuickRoom( std::size_t count ) const noexcept { return size_ + count <= limit_; }
   // Behind what an element of a context stands, where nothing more need be known of it.
   static constexpr LspPingBehind quickPlaceOf( LspPingContext context ) noexcept {
      constexpr auto nowhere = static_cast< LspPingBehind >( 0xff );
      switch( context ) {
      case LspPingContext::message:
         return LspPingBehind::tlvs;
      case LspPingContext::targetFec:
         return LspPingBehind::fecs;
      case LspPingContext::ddmap:
         return LspPingBehind::subTlvs;
      case LspPingContext::p2mpResponder:
         return LspPingBehind::responderTlvs;
      default:
         return nowhere;
      }
   }
   // Whether an element is what its surroundings take, and there is room.
   bool isQuickPlace( LspPingContext context, std::size_t size ) const noexcept {
      return top_->takes == quickPlaceOf( context ) && hasQuickRoom( size );
   }
   // Whether something may stand in what is opened next.
   bool mayGoDeeper() const noexcept { return top_ < &levels_[deepestQuick]; }
   static bool isQuickToOpen( LspPingElementRow const & row ) noexcept;
   U32 nextId() noexcept { return lastId_ = ( lastId_ + 1 ) & ~slowly; }
   U32 pushQuickly( LspPingElement const & facts, LspPingContext context, U32 fixed,
                    bool isView ) noexcept;
   template < class View, class Fill >
   bool fillQuickly( U32 begin, U32 code, Fill & fill ) noexcept;
   template < class View, class Fill >
   U32 openQuickly( U32 code, Fill & fill ) noexcept;
   template < class View, class Fill >
   bool addQuickly( U32 code, Fill & fill ) noexcept;
   bool closeQuickly( U32 id, LspPingBehind behind, U32 fixed ) noexcept;
   bool labelQuickly( U32 id, Velnet::MplsLabelEntry entry ) noexcept;
   bool multipathSetQuickly( U32 id, LspPingBehind behind, Velnet::IpGenAddr const & base,
                             std::span< U8 const > mask ) noexcept;

   std::span< U8 > place_;
   std::vector< U8 > * memory_ = nullptr;
   std::size_t base_ = 0;
   // What the message may grow to where nobody needs to look further: 0 while a function fills.
   std::size_t limit_ = noQuickRoom;
   U32 size_ = 0;
   U32 lastId_ = noId;
   LspPingWriteError error_;
   // The message, those that may stand, and one more: it is taken back. What lies behind `top_` is
   // nothing.
   std::array< Level, LspPingMessageReader::deepest + 3 > levels_;
   Level * top_ = levels_.data();
};

} // namespace LspPing

#include "MplsUtils/LspPing/message/LspPingQuickWriting.h"
