#include "MplsUtils/LspPing/message/LspPingOpenElement.h"

#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

#include <cstring>

namespace LspPing {

namespace {

using Error = LspPingWriteErrorCode;
using Pseudowire::PseudowireAttachmentIdentifier;

constexpr std::size_t longestValue = 0xffff;

std::size_t sizeOf( Velnet::IpGenAddr const & address ) noexcept {
   return address.isIpv4()   ? sizeof( Velnet::IpAddr )
          : address.isIpv6() ? sizeof( Velnet::Ip6Addr )
                             : 0;
}

U8 * put( U8 * at, Velnet::IpGenAddr const & address ) noexcept {
   if( address.isIpv4() )
      std::memcpy( at, address.ipAddr().bytes().data(), sizeof( Velnet::IpAddr ) );
   else if( address.isIpv6() )
      std::memcpy( at, address.ip6Addr().bytes().data(), sizeof( Velnet::Ip6Addr ) );
   return at + sizeOf( address );
}

void putWord( U8 * at, U32 word ) noexcept {
   for( int i = 0; i < 4; ++i )
      at[i] = static_cast< U8 >( word >> ( 24 - 8 * i ) );
}

U8 * put( U8 * at, std::span< U8 const > bytes ) noexcept {
   if( !bytes.empty() )
      std::memcpy( at, bytes.data(), bytes.size() );
   return at + bytes.size();
}

U8 * put( U8 * at, PseudowireAttachmentIdentifier const & id ) noexcept {
   *at++ = id.type();
   *at++ = id.length();
   for( U8 i = 0; i < id.length(); ++i )
      *at++ = id.value( i );
   return at;
}

} // namespace

LspPingOpenElement::operator bool() const noexcept {
   for( std::size_t i = 1; i <= writer_.depth(); ++i )
      if( ( writer_.levels_[i].id & ~LspPingMessageWriter::slowly ) == id_ )
         return !writer_.levels_[i].isTakenBack;
   return false;
}

bool LspPingOpenElement::takeBack( LspPingWriteErrorCode why ) noexcept {
   if( writer_.isFilling() )
      return writer_.refuse( Error::misplaced );
   // What is open in it goes with it.
   while( *this && writer_.topOf( id_ ) == nullptr )
      writer_.closeTop();
   return writer_.topOf( id_ ) != nullptr && writer_.takeBack( why );
}

// Zeros for `count` bytes behind what there is of the innermost element; null where it has no
// place for them.
U8 * LspPingOpenElement::content( LspPingMessageWriter & writer, bool isPlace,
                                  U32 count ) noexcept {
   LspPingMessageWriter::Level const & level = *writer.top_;
   if( level.isTakenBack )
      return nullptr;
   Error why = Error::none;
   U8 * at = nullptr;
   if( !isPlace )
      why = Error::misplaced;
   else if( count > longestValue )
      why = Error::tooLong;
   else if( at = writer.room( count ); at == nullptr )
      why = Error::noRoom;
   if( why != Error::none )
      writer.takeBack( why );
   return at;
}

bool LspPingOpenElement::bytes( std::span< U8 const > bytes ) noexcept {
   auto const * const level = writer_.topOf( id_ );
   if( level == nullptr )
      return writer_.refuse( Error::notOpen );
   bool const isPlace = !level->isTakenBack && writer_.takesBytes( *level, bytes.size() );
   U8 * const at =
      content( writer_, isPlace, static_cast< U32 >( std::min( bytes.size(), longestValue + 1 ) ) );
   if( at != nullptr )
      put( at, bytes );
   return at != nullptr;
}

bool LspPingOpenElement::label( U32 label, U8 trafficClass, bool isBottomOfStack,
                                U8 last ) noexcept {
   auto const * const level = writer_.topOf( id_ );
   if( level == nullptr )
      return writer_.refuse( Error::notOpen );
   if( label > 0xfffff || trafficClass > 7 )
      return takeBack( Error::labelTooLarge );
   return this->label( Velnet::MplsLabelEntry( label, trafficClass, isBottomOfStack, last ) );
}

bool LspPingOpenElement::labelSlowly( LspPingMessageWriter & writer, U32 id,
                                      Velnet::MplsLabelEntry entry ) noexcept {
   auto const * const level = writer.topOf( id );
   if( level == nullptr )
      return writer.refuse( Error::notOpen );
   U8 * const at = content(
      writer,
      writer.size_ >= level->content && LspPingMessageWriter::isForLabels( level->behind() ), 4 );
   if( at != nullptr )
      putWord( at, entry.word() );
   return at != nullptr;
}

// Fills in type and length of the multipath information, which stand before it.
U8 * LspPingOpenElement::multipathRoom( LspPingMessageWriter & writer, U32 id,
                                        LspPingMultipathType type, std::size_t count ) noexcept {
   auto * const level = writer.topOf( id );
   if( level == nullptr ) {
      writer.refuse( Error::notOpen );
      return nullptr;
   }
   U8 * const at = content( writer,
                            writer.size_ == level->content &&
                               ( level->behind() == LspPingBehind::multipath ||
                                 level->behind() == LspPingBehind::mappingLabels ) &&
                               !level->hasMultipath,
                            static_cast< U32 >( std::min( count, longestValue + 1 ) ) );
   if( at != nullptr ) {
      *writer.at( level->content - 4 ) = static_cast< U8 >( type );
      writer.wordIs( LspPingMessageWriter::multipathLengthOf( *level ),
                     static_cast< U32 >( count ) );
      level->hasMultipath = true;
   }
   return at;
}

// Whether a reader takes it for what it is.
bool LspPingOpenElement::multipathDone( LspPingMessageWriter & writer, LspPingMultipathType type,
                                        std::size_t count, bool isIpv6 ) noexcept {
   U8 const * const begin = writer.at( writer.size_ ) - count;
   LspPingMultipath const multipath( type, { begin, count }, writer.isMappingIpv6() );
   if( multipath.isWellFormed() && ( count == 0 || multipath.isIpv6() == isIpv6 ) )
      return true;
   return writer.takeBack( Error::multipathWrong );
}

bool LspPingOpenElement::multipath( LspPingMultipathType type,
                                    std::span< U8 const > information ) noexcept {
   U8 * const at = multipathRoom( writer_, id_, type, information.size() );
   if( at == nullptr )
      return false;
   put( at, information );
   LspPingMultipath const read( type, { at, information.size() }, writer_.isMappingIpv6() );
   return multipathDone( writer_, type, information.size(), read.isIpv6() );
}

bool LspPingOpenElement::multipathAddresses(
   std::span< Velnet::IpGenAddr const > addresses ) noexcept {
   std::size_t count = 0;
   bool const isIpv6 = !addresses.empty() && addresses.front().isIpv6();
   bool isOneFamily = true;
   for( Velnet::IpGenAddr const & address : addresses ) {
      count += sizeOf( address );
      isOneFamily &= sizeOf( address ) == ( isIpv6 ? 16 : 4 );
   }
   U8 * at = multipathRoom( writer_, id_, LspPingMultipathType::ipMultipath, count );
   if( at == nullptr )
      return false;
   for( Velnet::IpGenAddr const & address : addresses )
      at = put( at, address );
   return isOneFamily ? multipathDone( writer_, LspPingMultipathType::ipMultipath, count, isIpv6 )
                      : takeBack( Error::multipathWrong );
}

bool LspPingOpenElement::multipathRanges(
   std::span< LspPingMultipath::Item const > ranges ) noexcept {
   std::size_t count = 0;
   bool const isIpv6 = !ranges.empty() && ranges.front().first.isIpv6();
   bool isOneFamily = true;
   for( LspPingMultipath::Item const & range : ranges ) {
      count += sizeOf( range.first ) + sizeOf( range.last );
      isOneFamily &= sizeOf( range.first ) == ( isIpv6 ? 16 : 4 ) &&
                     range.first.family() == range.last.family();
   }
   U8 * at = multipathRoom( writer_, id_, LspPingMultipathType::ipRangeMultipath, count );
   if( at == nullptr )
      return false;
   for( LspPingMultipath::Item const & range : ranges )
      at = put( put( at, range.first ), range.last );
   return isOneFamily
             ? multipathDone( writer_, LspPingMultipathType::ipRangeMultipath, count, isIpv6 )
             : takeBack( Error::multipathWrong );
}

bool LspPingOpenElement::multipathSetSlowly( LspPingMessageWriter & writer, U32 id,
                                             Velnet::IpGenAddr base,
                                             std::span< U8 const > mask ) noexcept {
   std::size_t const count = sizeOf( base ) + mask.size();
   U8 * const at = multipathRoom( writer, id, LspPingMultipathType::maskedIpSetMultipath, count );
   if( at == nullptr )
      return false;
   put( put( at, base ), mask );
   return sizeOf( base ) > 0 ? multipathDone( writer, LspPingMultipathType::maskedIpSetMultipath,
                                              count, base.isIpv6() )
                             : writer.takeBack( Error::multipathWrong );
}

bool LspPingOpenElement::multipathLabels( U32 base, std::span< U8 const > mask ) noexcept {
   std::size_t const count = 4 + mask.size();
   U8 * const at =
      multipathRoom( writer_, id_, LspPingMultipathType::maskedLabelSetMultipath, count );
   if( at == nullptr )
      return false;
   if( base > 0xfffff )
      return takeBack( Error::labelTooLarge );
   putWord( at, base );
   put( at + 4, mask );
   return multipathDone( writer_, LspPingMultipathType::maskedLabelSetMultipath, count, false );
}

bool LspPingOpenElement::pwGenId( Pseudowire::PseudowireGenId const & id,
                                  LspPingPaddingCount padding ) noexcept {
   auto const * const level = writer_.topOf( id_ );
   if( level == nullptr )
      return writer_.refuse( Error::notOpen );
   constexpr U8 longest = PseudowireAttachmentIdentifier::maxLength;
   // Types and lengths of zero name nothing.
   if( id == Pseudowire::PseudowireGenId() || id.agi().length() > longest ||
       id.saii().length() > longest || id.taii().length() > longest )
      return takeBack( Error::identifiersWrong );
   U32 const size = 6u + id.agi().length() + id.saii().length() + id.taii().length();
   U32 const begin = writer_.size_ - level->begin;
   U32 const zeros = padding == LspPingPaddingCount::with ? ( 4 - ( begin + size ) % 4 ) % 4 : 0;
   U8 * const at = content(
      writer_, level->behind() == LspPingBehind::identifiers && writer_.size_ == level->content,
      size + zeros );
   if( at != nullptr )
      put( put( put( at, id.agi() ), id.saii() ), id.taii() );
   return at != nullptr;
}

bool LspPingOpenElement::rootAddr( Velnet::IpGenAddr const & address ) noexcept {
   auto * const level = writer_.topOf( id_ );
   if( level == nullptr )
      return writer_.refuse( Error::notOpen );
   if( level->isTakenBack )
      return false;
   if( level->behind() != LspPingBehind::opaqueValues || writer_.size_ != level->content )
      return takeBack( Error::misplaced );
   if( sizeOf( address ) == 0 )
      return takeBack( Error::rootWrong );
   // Family, the address's length, the address and the opaque value's length.
   constexpr U32 rootAt = 7;
   writer_.cut( level->begin + rootAt );
   if( content( writer_, true, static_cast< U32 >( sizeOf( address ) + 2 ) ) == nullptr )
      return false;
   level->content = writer_.size_;
   U8 * const element = writer_.at( level->begin );
   element[5] = address.isIpv4() ? 1 : 2;
   element[6] = static_cast< U8 >( sizeOf( address ) );
   put( element + rootAt, address );
   return true;
}

} // namespace LspPing
