#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"

// Shapes of what is an address and little else.
namespace LspPing {

//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |             type              |        length = 4, 16         |
// +-------------------------------+-------------------------------+
// |                    address (4 or 16 bytes)                    |
// +---------------------------------------------------------------+
template < class Address >
class LspPingAddressTlv : public LspPingTlvHdr {
 public:
   constexpr Address address() const noexcept { return address_; }
   constexpr void addressIs( Address address ) noexcept { address_ = address; }

 protected:
   static constexpr std::size_t valueLength = sizeof( Address );
   /// Of the length's low byte.
   static constexpr U8 lengthOffset = 3;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingAddressTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::address, &Self::addressIs >( "address" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address address_;
};

//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |             type              |            length             |
// +---------------+---------------+-------------------------------+
// |   addrType    |     mbz0      |             mbz1              |
// +---------------+---------------+-------------------------------+
// |                    address (4 or 16 bytes)                    |
// +---------------------------------------------------------------+
template < class Address >
class LspPingTypedAddressTlv : public LspPingTlvHdr {
 public:
   /// Which of the views it is.
   constexpr U8 addrType() const noexcept { return addrType_; }
   constexpr void addrTypeIs( U8 type ) noexcept { addrType_ = type; }
   constexpr U8 mbz0() const noexcept { return mbz0_; }
   constexpr void mbz0Is( U8 value ) noexcept { mbz0_ = value; }
   constexpr U16 mbz1() const noexcept { return mbz1_.value(); }
   constexpr void mbz1Is( U16 value ) noexcept { mbz1_.valueIs( value ); }
   constexpr Address address() const noexcept { return address_; }
   constexpr void addressIs( Address address ) noexcept { address_ = address; }

 protected:
   static constexpr U8 addrTypeOffset = 4;
   static constexpr std::size_t valueLength = 4 + sizeof( Address );

   /// \param more  The fields behind the address.
   template < class View >
   static consteval auto attributesOf( auto... more ) {
      using Self = LspPingTypedAddressTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::addrType, &Self::addrTypeIs >( "addrType" ),
         Kiv::field< &Self::mbz0, &Self::mbz0Is >( "mbz0" ),
         Kiv::field< &Self::mbz1, &Self::mbz1Is >( "mbz1" ),
         Kiv::field< &Self::address, &Self::addressIs >( "address" ), more...,
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   U8 addrType_ = 0;
   U8 mbz0_ = 0;
   Velnet::NetU16 mbz1_;
   Address address_;
};

} // namespace LspPing
