#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// The shape of the segment routing FECs that name an IGP prefix, RFC 8287 sections 5.1 and 5.2.
// With the shorter length, algorithm and reserved lie behind the value, in its padding.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |  type = 34, 35, 31744, 31745  |    length = 6, 8, 18, 20      |
// +-------------------------------+-------------------------------+
// |                   ipPrefix (4 or 16 bytes)                    |
// +---------------+---------------+---------------+---------------+
// |   prefixLen   |   protocol    |   algorithm   |   reserved    |
// +---------------+---------------+---------------+---------------+
template < class Address >
class LspPingSrSubTlv : public LspPingTlvHdr {
 public:
   constexpr Address ipPrefix() const noexcept { return ipPrefix_; }
   constexpr void ipPrefixIs( Address prefix ) noexcept { ipPrefix_ = prefix; }
   /// In bits.
   constexpr U8 prefixLen() const noexcept { return prefixLen_; }
   constexpr void prefixLenIs( U8 bits ) noexcept { prefixLen_ = bits; }
   /// LspPingSrIgpProtocol.
   constexpr U8 protocol() const noexcept { return protocol_; }
   constexpr void protocolIs( U8 protocol ) noexcept { protocol_ = protocol; }
   constexpr U8 algorithm() const noexcept { return algorithm_; }
   constexpr void algorithmIs( U8 algorithm ) noexcept { algorithm_ = algorithm; }
   constexpr U8 reserved() const noexcept { return reserved_; }
   constexpr void reservedIs( U8 value ) noexcept { reserved_ = value; }

 protected:
   // Without and with what is behind the protocol.
   static constexpr std::size_t shortLength = sizeof( Address ) + 2;
   static constexpr std::size_t longLength = sizeof( Address ) + 4;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingSrSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::ipPrefix, &Self::ipPrefixIs >( "ipPrefix" ),
         Kiv::field< &Self::prefixLen, &Self::prefixLenIs >( "prefixLen" ),
         Kiv::field< &Self::protocol, &Self::protocolIs >( "protocol" ),
         Kiv::field< &Self::algorithm, &Self::algorithmIs >( "algorithm" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address ipPrefix_;
   U8 prefixLen_ = 0;
   U8 protocol_ = 0;
   U8 algorithm_ = 0;
   U8 reserved_ = 0;
};

// IPv4 IGP-prefix segment, RFC 8287 section 5.1.
class LSPPING_EXPORT LspPingSrIpv4SubTlv
   : public Kiv::Typed< LspPingSrIpv4SubTlv, LspPingSrSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::SRIpv4 )
                                      .also( LspPingTargetFecSubTlvType::SRIpv4Deprecated )
                                      .length( shortLength )
                                      .orLength( longLength )
                                      .definedIn( "RFC 8287 section 5.1" );

   /// Takes the assigned type and the one that was used before it was assigned.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "SrIpv4( '10.1.2.0/24', 0 )" with the algorithm last; empty when invalid.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSrIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrIpv4SubTlv, 12 > );

// IPv6 IGP-prefix segment, RFC 8287 section 5.2.
class LSPPING_EXPORT LspPingSrIpv6SubTlv
   : public Kiv::Typed< LspPingSrIpv6SubTlv, LspPingSrSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::SRIpv6 )
                                      .also( LspPingTargetFecSubTlvType::SRIpv6Deprecated )
                                      .length( shortLength )
                                      .orLength( longLength )
                                      .definedIn( "RFC 8287 section 5.2" );

   /// Takes the assigned type and the one that was used before it was assigned.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "SrIpv6( '2001:db8::/32', 0 )" with the algorithm last; empty when invalid.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSrIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrIpv6SubTlv, 24 > );

} // namespace LspPing
