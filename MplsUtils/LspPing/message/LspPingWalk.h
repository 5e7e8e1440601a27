#pragma once

#include "MplsUtils/LspPing/message/LspPingMessageReader.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"

#include <array>
#include <span>

namespace LspPing {

// How the reader goes through a message. It carries the bytes that are left and compares by
// subtraction, so that no length can lead out of them.
class LspPingWalk {
 public:
   // The bytes are the message's: whoever has just stored them there has them at hand.
   LspPingWalk( std::span< U8 const > bytes, LspPingMessageEnd end,
                LspPingMessage & message ) noexcept
      : message_( message ),
        next_( message.elements_.data() ),
        end_( next_ + message.elements_.size() ),
        bytes_( bytes ),
        padding_( static_cast< U32 >( end.possiblePadding ) ),
        isCut_( end.isCut ) {}

   void message();

 private:
   using Data = LspPingElementRef::Data;
   using Code = LspPingProblemCode;

   // A piece of the message: both ends count from the message's first byte.
   struct Region {
      U32 begin;
      U32 end;
      // There should be more behind its end.
      bool isCut = false;

      U32 size() const noexcept { return end - begin; }
   };

   // The steps of a walk: aligned as they should be, or where that does not come out and the other
   // does, without any alignment.
   enum class Alignment : U8 {
      four,
      none,
   };

   // What an element's length means, and how far the next one is away.
   struct Reading {
      U32 length;
      U32 total;
      bool isOther;
   };

   [[gnu::noinline]] void slowMessage();
   void header();
   enum class Codes : U8 {
      known,
      any,
   };
   bool isPlausible( LspPingContext context, Region region, U32 step, Codes codes ) const noexcept;
   Reading readingOf( LspPingElementRow const & row, Region region, U32 length ) const noexcept;
   U32 extendedLength( LspPingElementRow const & row, Region region ) const noexcept;
   bool comesOutAsRead( LspPingContext context, Region region ) const noexcept;
   bool comesOut( LspPingContext context, Region region, Alignment alignment ) const noexcept;
   // Of LspPingQuickWalk.cpp. These go through a message of which little is to be asked, from its
   // first byte to its last, and answer false where it is to be gone through in full.
   bool quickMessage();
   bool quickElements( LspPingContext context, U8 const * next, U32 left, U32 depth );
   [[gnu::always_inline]] inline bool
   quickInside( Data & element, LspPingUsualElement const & usual, U8 const * own );

   void elements( LspPingContext context, Region region, U32 depth );
   U32 element( LspPingContext context, Region region, U32 depth, Alignment alignment );
   // These two are asked for each element, and nowhere else.
   [[gnu::always_inline]] inline void view( Data & element, LspPingElementRow const & row );
   [[gnu::always_inline]] inline void judge( Data & element, LspPingElementRow const & row,
                                             LspPingVerdict verdict );
   [[gnu::cold, gnu::noinline]] void copy( Data & element, U32 size );
   [[gnu::cold]] void unknownChoice( Data & element, LspPingElementRow const & row );
   bool lengthFits( Data const & element );
   void body( U32 index, LspPingElementRow const & row );
   void contents( U32 index, LspPingContext context, Region region );
   void counted( U32 index, LspPingContext context, Region region );
   void stackChangeFec( U32 index, Region region );
   void opaqueValues( U32 index, Region region );
   void identifiers( U32 index, Region region );
   U32 multipath( U32 index, Region region, U8 type, U32 length );
   void labels( U32 index, Region region );
   void leftOver( U32 index, Region region );
   bool isZero( Region region ) noexcept;

   U8 byte( U32 offset ) const noexcept { return bytes_[offset]; }
   U32 word( U32 offset ) const noexcept { return wordAt( bytes_.data() + offset ); }
   static U32 wordAt( U8 const * at ) noexcept {
      // The two bytes are there, and a NetU16 has no alignment.
      return reinterpret_cast< Velnet::NetU16 const * >( at )->value();
   }
   U32 offsetOf( U8 const * at ) const noexcept { return static_cast< U32 >( at - bytes_.data() ); }
   Region regionOf( U8 const * at, U32 size ) const noexcept {
      return { offsetOf( at ), offsetOf( at ) + size };
   }
   // Where its view lies.
   U8 const * begin( Data const & element ) const noexcept {
      return element.flags.isCopied ? message_.copies_.data() + element.copy
                                    : bytes_.data() + element.offset;
   }
   Data & added() {
      if( next_ == end_ ) [[unlikely]]
         grow();
      return *next_++;
   }
   U32 count() const noexcept { return static_cast< U32 >( next_ - message_.elements_.data() ); }
   [[gnu::cold, gnu::noinline]] void grow();
   Data & at( U32 index ) noexcept { return message_.elements_[index]; }

   // Far from the way of a well-formed message.
   [[gnu::cold, gnu::noinline]] void problem( Code code, U32 offset,
                                              std::array< U32, 3 > numbers = {},
                                              U32 element = LspPingProblem::noElement,
                                              U32 strayBytes = 0 ) {
      message_.problems_.push_back( { { code, numbers }, offset, element, strayBytes } );
   }
   // About an element, at its own offset.
   void problemOf( U32 index, Code code, std::array< U32, 3 > numbers = {} ) {
      problem( code, at( index ).offset, numbers, index );
   }
   void problemOf( Data const & element, Code code, std::array< U32, 3 > numbers = {} ) {
      problem( code, element.offset, numbers, indexOf( element ) );
   }
   U32 indexOf( Data const & element ) const noexcept {
      return static_cast< U32 >( &element - message_.elements_.data() );
   }

   LspPingMessage & message_;
   // Of its elements: where the next one goes, and behind the last for which there is memory.
   Data * next_;
   Data * end_;
   std::span< U8 const > bytes_;
   U32 padding_;
   bool isCut_;
   // The bytes from the first to before the second are zero.
   U32 zerosBegin_ = 0;
   U32 zerosEnd_ = 0;
   // Of the mapping that the walk is in, or was in last.
   bool isMappingIpv6_ = false;
};

} // namespace LspPing
