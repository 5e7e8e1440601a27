#pragma once

// What nothing is special about is written here, where the compiler sees what is known of it. All
// else goes to the general functions, which alone know errors and memory that grows; they write
// the same bytes.

#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

namespace LspPing {

// What is known of an element's fixed part while compiling.
template < class View >
struct LspPingViewShape {
   static_assert( !std::is_same_v< View, LspPingPadTlv >,
                  "the Pad TLV is no view: open it by its code, or add it" );
   static constexpr LspPingElement const & facts = View::element;
   static constexpr U32 header = lspPingHeaderSize( facts.context );
   static constexpr U32 offset = facts.isOverValue ? header : 0;
   static constexpr U32 end = offset + sizeof( View );
   // The identifiers are part of the least length, and so is what a view itself gives.
   static constexpr U32 content =
      facts.behind == LspPingBehind::identifiers || facts.behind == LspPingBehind::tail
         ? end
         : header + facts.leastLength;
   static_assert( facts.behind == LspPingBehind::nothing || end == content,
                  "what stands behind the fixed part follows the view" );
   static constexpr U32 size = std::max( end, content );
   // With padding, where nothing stands behind.
   static constexpr U32 padded = lspPingPadded( header + facts.leastLength );

   // What the view leaves open, the general functions know.
   static constexpr bool isQuick =
      facts.chooser == 0 && facts.context != LspPingContext::opaqueValue;
   static constexpr bool isQuickLeaf =
      isQuick && facts.behind == LspPingBehind::nothing && size <= padded;
   static constexpr bool isQuickToOpen =
      isQuick && !facts.hasFixedLength && content % 4 == 0 &&
      ( facts.behind == LspPingBehind::tlvs || facts.behind == LspPingBehind::fecs ||
        facts.behind == LspPingBehind::subTlvs || facts.behind == LspPingBehind::multipath ||
        facts.behind == LspPingBehind::mappingLabels ||
        facts.behind == LspPingBehind::protocolLabels ||
        facts.behind == LspPingBehind::labelStack );

   // What stands in a new element before it is filled in.
   static void begin( U8 * element, U32 code ) noexcept {
      LspPingMessageWriter::headerIs( element, code,
                                      facts.hasFixedLength ? U32{ facts.leastLength } : 0 );
      std::memset( element + header, 0, ( isQuickLeaf ? padded : size ) - header );
      for( std::size_t i = 0; i < facts.selectorCount; ++i )
         element[facts.selectors[i].offset] = facts.selectors[i].values[0];
   }
   static bool isAsBegun( U8 const * element, U32 code ) noexcept {
      return LspPingMessageWriter::word( element ) == code &&
             ( !facts.hasFixedLength ||
               LspPingMessageWriter::word( element + 2 ) == facts.leastLength ) &&
             facts.isSelectedBy( { element, size } );
   }
};

template < class Fill >
bool LspPingMessageWriter::header( Fill fill ) noexcept {
   U8 * bytes = place_.data();
   std::size_t const limit = limit_;
   Level * const top = top_;
   if( size_ == 0 && top_ == levels_.data() && hasQuickRoom( sizeof( LspPingHdr ) ) ) [[likely]] {
      size_ = sizeof( LspPingHdr );
      limit_ = 0;
      std::memset( bytes, 0, sizeof( LspPingHdr ) );
   } else {
      bytes = headerRoom();
      if( bytes == nullptr )
         return false;
      limit_ = 0;
   }
   // The bytes are there, and the view has no alignment.
   auto & header = *reinterpret_cast< LspPingHdr * >( bytes );
   header.versionIs( 1 );
   fill( header );
   levels_[0].takes = LspPingBehind::tlvs;
   placeIs( limit, sizeof( LspPingHdr ), top );
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
      using Shape = LspPingViewShape< View >;
      U32 const number = static_cast< U32 >( code );
      if constexpr( Shape::isQuickLeaf )
         if( isQuickPlace( Shape::facts.context, Shape::padded ) && Shape::facts.hasCode( number ) )
            [[likely]]
            return addQuickly< View >( number, fill );
      return close( openView< View >( number, fill ) );
   }
}

template < LspPingElementClass View, class Code, class Fill >
LspPingOpenElement LspPingMessageWriter::open( Code code, Fill fill ) noexcept {
   using Shape = LspPingViewShape< View >;
   U32 const number = static_cast< U32 >( code );
   if constexpr( Shape::isQuickToOpen )
      if( isQuickPlace( Shape::facts.context, Shape::size ) && mayGoDeeper() &&
          Shape::facts.hasCode( number ) ) [[likely]]
         return { *this, openQuickly< View >( number, fill ), Shape::facts.behind, Shape::content };
   return { *this, openView< View >( number, fill ), Shape::facts.behind, Shape::content };
}

// An element where it may stand and there is room for it. False where the function made something
// else of it, which is to be looked at.
template < class View, class Fill >
bool LspPingMessageWriter::fillQuickly( U32 begin, U32 code, Fill & fill ) noexcept {
   using Shape = LspPingViewShape< View >;
   U8 * const element = place_.data() + begin;
   Place const own{ limit_, begin + Shape::size, top_ };
   size_ = own.size;
   limit_ = 0;
   Shape::begin( element, code );
   // The bytes are there, and views have no alignment.
   fill( *reinterpret_cast< View * >( element + Shape::offset ) );
   bool const isAsBegun = Shape::isAsBegun( element, code );
   placeIs( own.limit, own.size, own.top );
   return isAsBegun;
}

template < class View, class Fill >
bool LspPingMessageWriter::addQuickly( U32 code, Fill & fill ) noexcept {
   using Shape = LspPingViewShape< View >;
   U32 const begin = size_;
   if( !fillQuickly< View >( begin, code, fill ) ) [[unlikely]]
      return addFilled( Shape::facts, begin, begin + Shape::content );
   if constexpr( !Shape::facts.hasFixedLength )
      wordIs( place_.data() + begin + 2, Shape::size - Shape::header );
   if constexpr( Shape::size != Shape::padded )
      size_ = begin + Shape::padded;
   return true;
}

template < class View, class Fill >
U32 LspPingMessageWriter::openQuickly( U32 code, Fill & fill ) noexcept {
   using Shape = LspPingViewShape< View >;
   Place const own = place();
   U32 const id = pushQuickly( own, Shape::facts, Shape::facts.context, Shape::content, true );
   ++top_;
   if( !fillQuickly< View >( own.size, code, fill ) ) [[unlikely]]
      filled();
   return id;
}

// The level of an element at the end of the message; it is the innermost one when the place says
// so.
inline U32 LspPingMessageWriter::pushQuickly( Place const & own, LspPingElement const & facts,
                                              LspPingContext context, U32 fixed,
                                              bool isView ) noexcept {
   U32 const id = nextId();
   own.top[1] = { .facts = &facts,
                  .begin = own.size,
                  .context = context,
                  .takes = facts.behind,
                  .isView = isView,
                  .hasMultipath = false,
                  .isTakenBack = false,
                  .content = own.size + fixed,
                  .id = id };
   return id;
}

inline LspPingOpenElement LspPingMessageWriter::open( LspPingContext context, U32 code ) noexcept {
   constexpr U32 header = sizeof( LspPingTlvHdr );
   LspPingElement const * const facts = LspPingOpenedByCode::of( context, code );
   LspPingBehind const behind = facts != nullptr ? facts->behind : LspPingBehind::nothing;
   U32 id;
   if( facts != nullptr && isQuickPlace( context, header ) && mayGoDeeper() ) [[likely]] {
      Place const own = place();
      headerIs( place_.data() + own.size, code, 0 );
      id = pushQuickly( own, *facts, context, header, false );
      placeIs( own.limit, own.size + header, own.top + 1 );
   } else {
      id = openCode( context, code );
   }
   return { *this, id, behind, header };
}

template < class View, class Fill >
U32 LspPingMessageWriter::openView( U32 code, Fill & fill ) noexcept {
   using Shape = LspPingViewShape< View >;
   U32 const id = begin( Shape::facts.context, &Shape::facts, code, Shape::size, Shape::content );
   if( id == noId || top_->isTakenBack )
      return id;
   beginView( *top_ );
   std::size_t const limit = limit_;
   limit_ = 0;
   // `begin` laid the bytes, and views have no alignment.
   fill( *reinterpret_cast< View * >( at( top_->begin ) + Shape::offset ) );
   limit_ = limit;
   filled();
   return id;
}

// Closes an element that something stands in, if its length is a plain one.
inline bool LspPingMessageWriter::closeQuickly( U32 id, LspPingBehind behind, U32 fixed ) noexcept {
   constexpr U32 farFromTooLong = 0xf000;
   Place const own = place();
   Level const & level = *own.top;
   if( level.id != id || own.limit == 0 )
      return false;
   bool const isMultipath =
      behind == LspPingBehind::multipath || behind == LspPingBehind::mappingLabels;
   U32 const inside = own.size - level.begin - fixed;
   // An unpadded element may stand in it.
   if( inside - 1 >= farFromTooLong || inside % 4 != 0 || ( isMultipath && !level.hasMultipath ) )
      return false;
   U8 * const element = place_.data() + level.begin;
   wordIs( element + 2, inside + fixed - 4 );
   if( behind == LspPingBehind::subTlvs )
      wordIs( element + fixed - 2, inside );
   placeIs( own.limit, own.size, own.top - 1 );
   return true;
}

inline bool LspPingMessageWriter::labelQuickly( U32 id, LspPingBehind behind,
                                                Velnet::MplsLabelEntry entry ) noexcept {
   Place const own = place();
   if( own.top->id != id || !isForLabels( behind ) || !hasQuickRoom( sizeof entry ) )
      return false;
   std::memcpy( place_.data() + own.size, &entry, sizeof entry );
   placeIs( own.limit, own.size + sizeof entry, own.top );
   return true;
}

// Of IPv4 addresses that are nothing else in a mapping of either family.
inline bool LspPingMessageWriter::multipathSetQuickly( U32 id, LspPingBehind behind,
                                                       Velnet::IpAddr base,
                                                       std::span< U8 const > mask ) noexcept {
   constexpr std::size_t longest = 0x1000;
   Place const own = place();
   Level & level = *own.top;
   if( level.id != id || behind != LspPingBehind::multipath || level.hasMultipath ||
       base.bytes()[0] != 127 || mask.size() % 4 != 0 || mask.size() - 1 >= longest ||
       !hasQuickRoom( 4 + mask.size() ) )
      return false;
   U8 * const at = place_.data() + own.size;
   U32 const count = 4 + static_cast< U32 >( mask.size() );
   at[-4] = static_cast< U8 >( LspPingMultipathType::maskedIpSetMultipath );
   wordIs( at - 3, count );
   std::memcpy( at, base.bytes().data(), 4 );
   std::memcpy( at + 4, mask.data(), mask.size() );
   level.hasMultipath = true;
   placeIs( own.limit, own.size + count, own.top );
   return true;
}

inline LspPingOpenElement::~LspPingOpenElement() {
   close();
}

inline bool LspPingOpenElement::close() noexcept {
   if( writer_.closeQuickly( id_, behind_, fixed_ ) ) [[likely]]
      return true;
   return writer_.close( id_ );
}

inline bool LspPingOpenElement::label( Velnet::MplsLabelEntry entry ) noexcept {
   if( writer_.labelQuickly( id_, behind_, entry ) ) [[likely]]
      return true;
   return labelSlowly( writer_, id_, entry );
}

template < std::same_as< Velnet::IpAddr > Address >
bool LspPingOpenElement::multipathSet( Address base, std::span< U8 const > mask ) noexcept {
   if( writer_.multipathSetQuickly( id_, behind_, base, mask ) ) [[likely]]
      return true;
   return multipathSetSlowly( writer_, id_, base, mask );
}

inline bool LspPingOpenElement::multipathSet( Velnet::IpGenAddr const & base,
                                              std::span< U8 const > mask ) noexcept {
   return base.isIpv4() ? multipathSet( base.ipAddr(), mask )
                        : multipathSetSlowly( writer_, id_, base, mask );
}

} // namespace LspPing
