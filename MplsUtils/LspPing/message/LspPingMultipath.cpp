#include "MplsUtils/LspPing/message/LspPingMultipath.h"

#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace LspPing {

bool LspPingMultipath::isMapped( U8 const * address ) noexcept {
   constexpr std::array< U8, 12 > mapped{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff };
   return std::memcmp( address, mapped.data(), mapped.size() ) == 0;
}

// What is there of a section: a head of a type, a length and zeros, and the information. The third
// one has no type, and its length stands there.
struct LspPingMultipath::Section {
   static constexpr std::size_t headSize = 4;

   std::span< U8 const > information;
   std::span< U8 const > rest;
   LspPingMultipathType type = LspPingMultipathType::noMultipath;
   bool isWhole = false;
};

LspPingMultipath::Section LspPingMultipath::sectionAt( std::size_t i ) const noexcept {
   constexpr std::size_t last = 2;
   Section section;
   section.rest = bytes_;
   for( std::size_t at = 0; at <= i; ++at ) {
      std::span< U8 const > const bytes = section.rest;
      if( bytes.size() < Section::headSize )
         return {};
      U8 const * const lengthAt = bytes.data() + ( at == last ? 0 : 1 );
      // The two bytes are there, and a NetU16 has no alignment.
      std::size_t const length = reinterpret_cast< Velnet::NetU16 const * >( lengthAt )->value();
      std::span< U8 const > const behind = bytes.subspan( Section::headSize );
      section.isWhole = length <= behind.size();
      section.information = behind.first( std::min( length, behind.size() ) );
      section.rest = behind.subspan( section.information.size() );
      if( at != last )
         section.type = static_cast< LspPingMultipathType >( bytes[0] );
   }
   return section;
}

LspPingMultipath LspPingMultipath::ip() const noexcept {
   Section const section = sectionAt( 0 );
   return { section.type, section.information, isIpv6_ };
}

LspPingMultipath LspPingMultipath::labels() const noexcept {
   Section const section = sectionAt( 1 );
   return { section.type, section.information, isIpv6_ };
}

LspPingAssociatedLabels LspPingMultipath::associatedLabels() const noexcept {
   return LspPingAssociatedLabels( sectionAt( 2 ).information );
}

// A section that is cut leaves nothing for those behind it, which are not whole then.
bool LspPingMultipath::areSectionsWellFormed() const noexcept {
   Section const associated = sectionAt( 2 );
   if( !associated.isWhole || !associated.rest.empty() || associated.information.size() % 3 != 0 )
      return false;
   LspPingMultipath const addresses = ip();
   LspPingMultipath const others = labels();
   auto const isLeftOut = []( LspPingMultipath const & section ) {
      return section.type_ == LspPingMultipathType::noMultipath;
   };
   return ( isLeftOut( addresses ) || addresses.isList() ||
            addresses.type_ == LspPingMultipathType::maskedIpSetMultipath ) &&
          ( isLeftOut( others ) || others.isLabels() ) && addresses.isWellFormed() &&
          others.isWellFormed();
}

U32 LspPingMultipath::baseLabel() const noexcept {
   // Four bytes are there in a set, and the type has no alignment.
   return reinterpret_cast< Velnet::NetU32 const * >( bytes_.data() )->value();
}

// The base moved on.
Velnet::IpGenAddr LspPingMultipath::member( std::size_t bit ) const noexcept {
   std::array< U8, sizeof( Velnet::Ip6Addr ) > bytes;
   std::memcpy( bytes.data(), bytes_.data(), unit() );
   std::size_t carry = bit;
   for( std::size_t i = unit(); i-- > 0 && carry != 0; carry >>= 8 ) {
      carry += bytes[i];
      bytes[i] = static_cast< U8 >( carry );
   }
   if( isIpv6_ )
      return *reinterpret_cast< Velnet::Ip6Addr const * >( bytes.data() );
   return *reinterpret_cast< Velnet::IpAddr const * >( bytes.data() );
}

std::size_t LspPingMultipath::Iterator::count() const noexcept {
   LspPingMultipath const & m = *multipath_;
   if( m.isSet() )
      return 8 * ( m.bytes_.size() - m.unit() );
   if( !m.isList() )
      return 0;
   bool const isRanges = m.type_ == LspPingMultipathType::ipRangeMultipath;
   return m.addressCount() / ( isRanges ? 2 : 1 );
}

void LspPingMultipath::Iterator::findRun() noexcept {
   last_ = first_ + 1;
   if( !multipath_->isSet() )
      return;
   std::size_t const end = count();
   while( first_ < end && !multipath_->contains( first_ ) )
      ++first_;
   last_ = first_;
   while( last_ < end && multipath_->contains( last_ ) )
      ++last_;
}

LspPingMultipath::Iterator & LspPingMultipath::Iterator::operator++() noexcept {
   first_ = last_;
   findRun();
   return *this;
}

LspPingMultipath::Item LspPingMultipath::Iterator::operator*() const noexcept {
   LspPingMultipath const & m = *multipath_;
   if( m.type_ == LspPingMultipathType::ipRangeMultipath )
      return { m.address( 2 * first_ ), m.address( 2 * first_ + 1 ) };
   if( m.isList() )
      return { m.address( first_ ), m.address( first_ ) };
   if( m.isLabels() )
      return { {}, {}, U64{ m.baseLabel() } + first_, U64{ m.baseLabel() } + last_ - 1 };
   return { m.member( first_ ), m.member( last_ - 1 ) };
}

} // namespace LspPing
