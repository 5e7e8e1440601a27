#include "MplsUtils/LspPing/message/LspPingMessageReader.h"

#include "MplsUtils/LspPing/message/LspPingElementTable.h"
#include "MplsUtils/LspPing/message/LspPingWalk.h"
#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"

#include <algorithm>
#include <cstring>

namespace LspPing {

namespace {

constexpr U32 headerLength = sizeof( LspPingHdr );
constexpr U32 beyondAll = 0xffffffff;

// Whether one of the views of the row's code takes the value of a byte.
bool isKnown( LspPingElementRow const & row, U32 offset, U32 value ) noexcept {
   auto const takes = [&]( LspPingElement::Selector const & selector ) {
      return selector.offset == offset && selector.has( static_cast< U8 >( value ) );
   };
   auto const rows = lspPingElements();
   return std::any_of( rows.begin(), rows.end(), [&]( LspPingElementRow const & other ) {
      auto const & selectors = other.facts.selectors;
      return other.facts.context == row.facts.context && other.code() == row.code() &&
             std::any_of( selectors.begin(), selectors.begin() + other.facts.selectorCount, takes );
   } );
}

} // namespace

void LspPingWalk::message() {
   if( !quickMessage() ) {
      message_.problems_.clear();
      message_.copies_.clear();
      next_ = message_.elements_.data();
      isMappingIpv6_ = false;
      slowMessage();
   }
   message_.count_ = count();
}

void LspPingWalk::slowMessage() {
   U32 const size = static_cast< U32 >( bytes_.size() );
   header();
   if( size <= headerLength )
      return;
   Region const tlvs{ headerLength, size, isCut_ };
   // Behind the header of another version, only what looks like TLVs to its end is taken for them.
   U32 const version = message_.header()->version();
   if( version != 1 && version != 2 &&
       !comesOut( LspPingContext::message, tlvs, Alignment::four ) ) {
      problem( Code::noTlvs, headerLength, { tlvs.size() }, LspPingProblem::noElement,
               tlvs.size() );
      return;
   }
   elements( LspPingContext::message, tlvs, 0 );
}

void LspPingWalk::header() {
   LspPingHdr const * const header = message_.header();
   if( header == nullptr )
      problem( Code::headerCut, 0, { headerLength, static_cast< U32 >( bytes_.size() ) } );
   else if( !message_.isHeaderValid() )
      problem( Code::headerInvalid, 0, { header->version(), header->messageType() } );
   else if( header->version() != 1 )
      problem( Code::versionUnknown, 0, { header->version(), 1 } );
}

void LspPingWalk::grow() {
   constexpr std::size_t fewest = 16;
   std::size_t const size = message_.elements_.size();
   message_.elements_.resize( std::max( fewest, 2 * size ) );
   next_ = message_.elements_.data() + size;
   end_ = message_.elements_.data() + message_.elements_.size();
}

// The last element's padding may be missing.
bool LspPingWalk::comesOut( LspPingContext context, Region region,
                            Alignment alignment ) const noexcept {
   U32 const header = lspPingHeaderSize( context );
   bool const isLast = context == LspPingContext::message && region.end == bytes_.size();
   U32 const link = isLast ? padding_ : 0;
   U32 lengthAt = region.begin + header - 2;
   for( U32 left = region.size(); left > link; ) {
      if( left < header )
         return false;
      U32 const length = word( lengthAt );
      if( length > left - header )
         return false;
      U32 const step = header + ( alignment == Alignment::four ? lspPingPadded( length ) : length );
      if( step >= left )
         return true;
      left -= step;
      lengthAt += step;
   }
   return true;
}

// As above, aligned, with elements about which an RFC contradicts itself.
bool LspPingWalk::comesOutAsRead( LspPingContext context, Region region ) const noexcept {
   U32 const header = lspPingHeaderSize( context );
   bool const isLast = context == LspPingContext::message && region.end == bytes_.size();
   U32 const link = isLast ? padding_ : 0;
   bool hasReadings = false;
   while( region.size() > link ) {
      U32 const left = region.size();
      if( left < header )
         return false;
      U32 const code = word( region.begin );
      U32 const length = word( region.begin + header - 2 );
      LspPingElementRow const * const row = quickElementOf(
         context, code, bytes_.subspan( region.begin, std::min( header + length, left ) ) );
      Reading reading{ length, lspPingPadded( header + length ), false };
      if( row != nullptr && !row->facts.otherReading.empty() ) {
         reading = readingOf( *row, region, length );
         hasReadings = true;
      }
      if( reading.length > left - header )
         return false;
      if( reading.total >= left )
         return hasReadings;
      region.begin += reading.total;
   }
   return hasReadings;
}

void LspPingWalk::elements( LspPingContext context, Region region, U32 depth ) {
   if( depth > LspPingMessageReader::deepest ) {
      problem( Code::tooDeep, region.begin, {}, LspPingProblem::noElement, region.size() );
      return;
   }
   U32 const header = lspPingHeaderSize( context );
   bool const isTlv = context == LspPingContext::message;
   bool const isOpaque = context == LspPingContext::opaqueValue;
   Alignment alignment = Alignment::four;
   // Opaque values follow each other without padding, RFC 6388 section 2.3.
   if( isOpaque ) {
      alignment = Alignment::none;
   } else if( !region.isCut && !comesOut( context, region, Alignment::four ) &&
              !comesOutAsRead( context, region ) && comesOut( context, region, Alignment::none ) ) {
      alignment = Alignment::none;
      problem( isTlv ? Code::tlvsNotAligned : Code::subTlvsNotAligned, region.begin );
   }
   while( region.begin < region.end ) {
      U32 const left = region.size();
      if( isTlv && region.end == bytes_.size() && left <= padding_ )
         return;
      if( left < header ) {
         problem( isTlv      ? Code::leftOverBehindTlv
                  : isOpaque ? Code::leftOverBehindOpaqueValue
                             : Code::leftOverBehindSubTlv,
                  region.begin, { left, header }, LspPingProblem::noElement, left );
         return;
      }
      if( byte( region.begin ) == 0 && word( region.begin + header - 2 ) == 0 &&
          isZero( region ) ) {
         problem( isTlv      ? Code::zerosBehindTlv
                  : isOpaque ? Code::zerosBehindOpaqueValue
                             : Code::zerosBehindSubTlv,
                  region.begin, { left } );
         return;
      }
      U32 const step = element( context, region, depth, alignment );
      if( step >= left )
         return;
      region.begin += step;
   }
}

// One element at the region's begin, where its header is there. The answer is how far the next one
// is away; never nothing.
U32 LspPingWalk::element( LspPingContext context, Region region, U32 depth, Alignment alignment ) {
   U32 const header = lspPingHeaderSize( context );
   U32 const left = region.size();
   U32 const code = header == 3 ? U32{ byte( region.begin ) } : word( region.begin );
   U32 length = word( region.begin + header - 2 );
   LspPingElementRow const * const row = quickElementOf(
      context, code, bytes_.subspan( region.begin, std::min( header + length, left ) ) );
   if( header == 3 && row != nullptr && row->facts.codeExtension != 0 )
      length = extendedLength( *row, region );
   bool isOtherReading = false;
   U32 total = lspPingPadded( header + length );
   if( row != nullptr && !row->facts.otherReading.empty() ) [[unlikely]] {
      Reading const reading = readingOf( *row, region, length );
      isOtherReading = reading.isOther;
      length = reading.length;
      total = reading.total;
   }
   U32 const whole = header + length;
   U32 const present = std::min( whole, left );

   U32 const index = count();
   Data & element = added();
   element = {};
   element.row = row;
   element.offset = region.begin;
   element.length = length;
   element.code = static_cast< U16 >( code );
   element.present = present;
   element.occupied = alignment == Alignment::none ? present : std::min( left, total );
   element.context = context;
   element.depth = static_cast< U8 >( depth );
   element.flags.isOtherReading = isOtherReading;

   bool const isCut = whole > left;
   if( isCut )
      problemOf( index, Code::lengthBeyond, { length, whole, left } );
   if( row != nullptr ) {
      view( element, *row );
      if( row->facts.behind != LspPingBehind::nothing ) {
         body( index, *row );
         at( index ).span = count() - index;
      }
   }
   if( isCut )
      return beyondAll;
   if( alignment == Alignment::none )
      return whole;
   if( total > left )
      problemOf( index, Code::paddingMissing, { total - left } );
   return total;
}

// Of a code that goes on where the length usually is.
U32 LspPingWalk::extendedLength( LspPingElementRow const & row, Region region ) const noexcept {
   U32 const more = row.facts.codeExtension;
   U32 const header = row.headerSize() + more;
   return region.size() < header ? more : more + word( region.begin + header - 2 );
}

// Whether elements of the context, or nothing, begin behind as many bytes. A few are looked at, so
// that the walk stays linear.
bool LspPingWalk::isPlausible( LspPingContext context, Region region, U32 step,
                               Codes codes ) const noexcept {
   constexpr int few = 4;
   U32 const header = lspPingHeaderSize( context );
   for( int i = 0; i < few && step != region.size(); ++i ) {
      if( step > region.size() || region.size() - step < header )
         return false;
      region.begin += step;
      U32 const code = header == 3 ? U32{ byte( region.begin ) } : word( region.begin );
      U32 const whole = header + word( region.begin + header - 2 );
      LspPingElementRow const * const row = quickElementOf(
         context, code, bytes_.subspan( region.begin, std::min( whole, region.size() ) ) );
      // Where that one ends is a question of its own.
      if( row != nullptr && !row->facts.otherReading.empty() )
         return true;
      if( whole > region.size() || code == 0 || ( codes == Codes::known && row == nullptr ) )
         return false;
      step = std::min( lspPingPadded( whole ), region.size() );
   }
   return true;
}

// An element about which an RFC contradicts itself, as its bytes and what follows say.
LspPingWalk::Reading LspPingWalk::readingOf( LspPingElementRow const & row, Region region,
                                             U32 length ) const noexcept {
   LspPingElement const & facts = row.facts;
   U32 const header = row.headerSize();
   auto const stepOf = [&]( U32 value ) { return lspPingPadded( header + value ); };
   Reading const asWritten{ length, stepOf( length ),
                            facts.otherReadingLength != 0 && length == facts.otherReadingLength };
   if( facts.isUnpadded ) {
      U32 const whole = header + length;
      bool const isPadded = asWritten.total != whole &&
                            !isPlausible( facts.context, region, whole, Codes::known ) &&
                            isPlausible( facts.context, region, asWritten.total, Codes::known );
      return { length, isPadded ? asWritten.total : whole, isPadded };
   }
   U32 const other = length - static_cast< U32 >( int{ facts.statedMore } );
   // As it is written, a fixed length is wrong whatever follows.
   if( facts.statedMore == 0 || other < facts.leastLength || other > 0xffff ||
       ( facts.hasFixedLength
            ? other != facts.leastLength
            : isPlausible( facts.context, region, asWritten.total, Codes::any ) ) ||
       !isPlausible( facts.context, region, stepOf( other ), Codes::known ) )
      return asWritten;
   return { other, stepOf( other ), true };
}

// Lays the row's view over the element if its bytes are there, in place or as a copy with padding.
void LspPingWalk::view( Data & element, LspPingElementRow const & row ) {
   if( element.length < row.facts.shortestLength() ) {
      problemOf( element, Code::tooShort, { element.length, row.facts.shortestLength() } );
      return;
   }
   if( element.present <
       ( row.readsValue ? row.headerSize() + element.length : row.shortestSize() ) )
      return;
   if( row.isDescribed() ) {
      if( U32 const size = row.viewOffset() + row.viewSize; size > element.occupied )
         copy( element, size );
      // The Pad TLV's object is a copy of all the value.
      element.flags.isViewed =
         row.viewSize != 0 || element.present == row.headerSize() + element.length;
      if( !element.flags.isViewed )
         return;
   }
   LspPingVerdict verdict;
   if( row.verdict != nullptr ) {
      verdict = row.verdict( begin( element ), element.length );
      element.flags.isValid = verdict.isValid;
   }
   if( verdict.isFlawed || row.facts.chooser != 0 || row.facts.hasFixedLength )
      judge( element, row, verdict );
}

void LspPingWalk::copy( Data & element, U32 size ) {
   element.flags.isCopied = true;
   element.copy = static_cast< U32 >( message_.copies_.size() );
   message_.copies_.resize( message_.copies_.size() + size );
   std::memcpy( message_.copies_.data() + element.copy, bytes_.data() + element.offset,
                element.occupied );
}

void LspPingWalk::judge( Data & element, LspPingElementRow const & row, LspPingVerdict verdict ) {
   if( row.facts.chooser != 0 ) {
      unknownChoice( element, row );
      return;
   }
   if( !lengthFits( element ) || !verdict.isFlawed )
      return;
   LspPingFlaw const flaw = row.flaw( begin( element ), element.length );
   problem( flaw.code, element.offset + flaw.place, flaw.numbers, indexOf( element ),
            std::min( flaw.placeBytes, element.occupied - flaw.place ) );
   element.flags.hidesBytes = true;
}

// The byte that chooses between views has none of their values.
void LspPingWalk::unknownChoice( Data & element, LspPingElementRow const & row ) {
   U32 const header = row.headerSize();
   U32 chooser = row.facts.chooser;
   if( !row.isDescribed() && row.facts.otherChooser != 0 &&
       isKnown( row, chooser, byte( element.offset + chooser ) ) )
      chooser = row.facts.otherChooser;
   U32 const chosen = byte( element.offset + chooser );
   if( row.isDescribed() && row.facts.otherChooser == 0 )
      problemOf( element, Code::addressTypeUnknown, { chosen } );
   else if( row.isDescribed() )
      problemOf( element, Code::notValid );
   else if( chooser < header ) // the length itself
      problemOf( element, Code::lengthUnknown, { element.length } );
   else
      problemOf( element, Code::selectorUnknown, { chosen, chooser - header } );
   element.flags.hidesBytes = true;
}

bool LspPingWalk::lengthFits( Data const & element ) {
   LspPingElement const & facts = element.row->facts;
   if( !facts.hasFixedLength || facts.hasLength( element.length ) )
      return true;
   // Routers are seen to count the padding, which opaque values do not have.
   bool const countsPadding = facts.context != LspPingContext::opaqueValue &&
                              element.length == lspPingPadded( facts.leastLength );
   problemOf( element, countsPadding ? Code::lengthCountsPadding : Code::lengthWrong,
              { element.length, facts.leastLength } );
   return false;
}

// What stands behind the fixed part.
void LspPingWalk::body( U32 index, LspPingElementRow const & row ) {
   Data & element = at( index );
   // Of a FEC 129 the identifiers are part of what has to be there.
   U32 const fixed =
      row.facts.behind == LspPingBehind::identifiers ? row.viewSize : row.fixedSize();
   element.flags.isContainer = row.facts.isContainer();
   if( element.present < fixed || ( row.isDescribed() && !element.flags.isViewed ) )
      return;
   U32 const begin = element.offset + fixed;
   Region const region{ begin, element.offset + element.present,
                        element.present < row.headerSize() + element.length };
   switch( row.facts.behind ) {
   case LspPingBehind::nothing:
   case LspPingBehind::padding:
   case LspPingBehind::tail:
      return;
   case LspPingBehind::elements:
      elements( row.facts.inside, region, element.depth + 1u );
      return;
   case LspPingBehind::tlvs:
      contents( index, LspPingContext::message, region );
      return;
   case LspPingBehind::fecs:
      contents( index, LspPingContext::targetFec, region );
      return;
   case LspPingBehind::responderTlvs:
      // A view that describes one of them takes it with it.
      elements( LspPingContext::p2mpResponder, region, element.depth + 1u );
      return;
   case LspPingBehind::counted:
      counted( index, row.facts.inside, region );
      return;
   case LspPingBehind::subTlvs:
      isMappingIpv6_ = byte( element.offset + 6 ) == 3 || byte( element.offset + 6 ) == 4;
      counted( index, LspPingContext::ddmap, region );
      return;
   case LspPingBehind::stackChangeFec:
      stackChangeFec( index, region );
      return;
   case LspPingBehind::opaqueValues:
      opaqueValues( index, region );
      return;
   case LspPingBehind::identifiers:
      identifiers( index, region );
      return;
   case LspPingBehind::multipath:
      leftOver( index,
                { multipath( index, region, byte( begin - 4 ), word( begin - 3 ) ), region.end } );
      return;
   case LspPingBehind::mappingLabels:
      isMappingIpv6_ = byte( element.offset + 6 ) == 3 || byte( element.offset + 6 ) == 4;
      labels( index,
              { multipath( index, region, byte( begin - 4 ), word( begin - 2 ) ), region.end } );
      return;
   case LspPingBehind::protocolLabels:
   case LspPingBehind::labelStack:
      labels( index, region );
      return;
   }
}

// A container of nothing else, which is not for nothing.
void LspPingWalk::contents( U32 index, LspPingContext context, Region region ) {
   if( region.size() == 0 )
      problemOf( index, Code::nothingInIt );
   else
      elements( context, region, at( index ).depth + 1u );
}

// Elements of as many bytes as the word before them says.
void LspPingWalk::counted( U32 index, LspPingContext context, Region region ) {
   U32 const length = word( region.begin - 2 );
   if( length > region.size() ) {
      problem( context == LspPingContext::opaqueValue ? Code::opaqueValueBeyond
                                                      : Code::subTlvsBeyond,
               region.begin - 2, { length, region.size() }, index );
      region.isCut = true;
   } else {
      leftOver( index, { region.begin + length, region.end } );
      region = { region.begin, region.begin + length };
   }
   elements( context, region, at( index ).depth + 1u );
}

// One FEC, and perhaps the TLV of the whole stack around it: the RFC uses the word for both.
void LspPingWalk::stackChangeFec( U32 index, Region region ) {
   Data const & element = at( index );
   U32 const depth = element.depth + 1u;
   U32 const length = byte( element.offset + 6 );
   if( length > region.size() ) {
      problem( Code::fecBeyond, element.offset + 6, { length, region.size() }, index );
   } else {
      // The length may leave out the FEC's padding, RFC 8029 section 3.4.1.3: it follows all the
      // same, inside or as the padding of the sub-TLV.
      U32 own = length;
      if( length >= 4 && 4 + word( region.begin + 2 ) == length )
         own =
            std::min( lspPingPadded( length ), element.offset + element.occupied - region.begin );
      if( region.begin + own < region.end )
         leftOver( index, { region.begin + own, region.end } );
      region.end = region.begin + own;
   }
   bool const isStack = region.size() >= 8 && word( region.begin ) == 1 &&
                        word( region.begin + 2 ) != 5 &&
                        word( region.begin + 2 ) == 4 + lspPingPadded( word( region.begin + 6 ) );
   if( region.size() > 0 )
      elements( isStack ? LspPingContext::message : LspPingContext::targetFec, region, depth );
}

// Where the root address has another size than that of IPv4, the opaque value is elsewhere than the
// view says.
void LspPingWalk::opaqueValues( U32 index, Region region ) {
   Data & element = at( index );
   U32 const depth = element.depth + 1u;
   U32 const rootLengthAt = element.offset + 6;
   U32 const rootLength = byte( rootLengthAt );
   U32 const begin = rootLengthAt + 3 + rootLength;
   // The view shows an address of IPv4, whatever there is.
   if( rootLength != 4 || begin > region.end )
      element.flags.hidesBytes = true;
   if( begin > region.end ) {
      problem( Code::rootDoesNotFit, rootLengthAt, { rootLength }, index );
      return;
   }
   U32 const length = word( begin - 2 );
   region.begin = begin;
   if( length > region.size() ) {
      problem( Code::opaqueValueBeyond, begin - 2, { length, region.size() }, index );
   } else {
      leftOver( index, { begin + length, region.end } );
      region.end = begin + length;
   }
   elements( LspPingContext::opaqueValue, region, depth );
}

// Three times a type, a length and a value, RFC 8029 section 3.2.10. The length may count the
// padding behind them.
void LspPingWalk::identifiers( U32 index, Region region ) {
   U32 begin = region.begin;
   for( int count = 0; count < 3; ++count ) {
      U32 const left = region.end - begin;
      U32 const needed = left < 2 ? 2 : 2u + byte( begin + 1 );
      if( needed > left ) {
         problem( Code::identifierBeyond, begin, { needed, left }, index );
         return;
      }
      begin += needed;
   }
   U32 const offset = at( index ).offset;
   if( region.end - offset != lspPingPadded( begin - offset ) )
      leftOver( index, { begin, region.end } );
}

// The answer is where the multipath information ends.
U32 LspPingWalk::multipath( U32 index, Region region, U8 type, U32 length ) {
   if( length > region.size() ) {
      problem( Code::multipathBeyond, region.begin, { length, region.size() }, index,
               region.size() );
      return region.end;
   }
   if( length == 0 )
      return region.begin;
   Data & element = at( index );
   element.flags.hasMultipath = true;
   element.multipathType = static_cast< LspPingMultipathType >( type );
   element.multipathOffset = region.begin;
   element.multipathLength = length;
   LspPingMultipath const multipath( element.multipathType, bytes_.subspan( region.begin, length ),
                                     isMappingIpv6_ );
   element.flags.isMultipathIpv6 = multipath.readFamily();
   if( type == 0 )
      problem( Code::multipathWithoutType, region.begin, { length }, index );
   else if( !multipath.isWellFormed() )
      problem( Code::multipathLengthWrong, region.begin, { length, type }, index, length );
   return region.begin + length;
}

void LspPingWalk::labels( U32 index, Region region ) {
   Data & element = at( index );
   element.flags.hasLabels = true;
   element.labelsOffset = region.begin;
   element.labelsLength = region.size() & ~U32{ 3 };
   leftOver( index, { region.begin + element.labelsLength, region.end } );
}

void LspPingWalk::leftOver( U32 index, Region region ) {
   if( region.size() > 0 )
      problem( Code::leftOver, region.begin, { region.size() }, index, region.size() );
}

// Asked again and again on the way through zeros, it looks at each byte once.
bool LspPingWalk::isZero( Region region ) noexcept {
   if( region.begin < zerosBegin_ || region.begin >= zerosEnd_ ) {
      auto const from = bytes_.begin() + region.begin;
      auto const set = std::find_if( from, bytes_.end(), []( U8 byte ) { return byte != 0; } );
      zerosBegin_ = region.begin;
      zerosEnd_ = static_cast< U32 >( set - bytes_.begin() );
   }
   return region.end <= zerosEnd_;
}

LspPingMessage const & LspPingMessageReader::read( std::span< U8 const > bytes,
                                                   LspPingMessageEnd end ) noexcept {
   message_.bytes_ = bytes;
   message_.count_ = 0;
   message_.problems_.clear();
   message_.copies_.clear();
   Kiv::orOutOfMemory( "LspPing::LspPingMessageReader",
                       [&] { LspPingWalk( bytes, end, message_ ).message(); } );
   return message_;
}

} // namespace LspPing
