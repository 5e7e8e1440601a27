#include "MplsUtils/LspPing/message/LspPingMultipath.h"

#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"

#include <array>
#include <cstring>

namespace LspPing {

bool LspPingMultipath::isMapped( U8 const * address ) noexcept {
   constexpr std::array< U8, 12 > mapped{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff };
   return std::memcmp( address, mapped.data(), mapped.size() ) == 0;
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
