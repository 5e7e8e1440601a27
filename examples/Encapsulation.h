#pragma once

#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <initializer_list>
#include <span>
#include <vector>

// What an echo message travels in. Each function puts its header before the payload.
namespace Examples {

using Bytes = std::vector< U8 >;

inline constexpr U16 echoPort = 3503;

enum class EtherType : U16 {
   ipv4 = 0x0800,
   vlan = 0x8100,
   ipv6 = 0x86dd,
   mpls = 0x8847
};

/// With the router alert option a transit router looks at the packet, RFC 2113.
enum class RouterAlert {
   no,
   yes
};

/// One label and the time to live that it has.
struct Label {
   U32 label;
   U8 ttl;
};

/// The time to live in the IP header. A request must not travel on by IP, RFC 8029 section 4.3; a
/// reply has to, section 4.5.
inline constexpr U8 requestTtl = 1;
inline constexpr U8 replyTtl = 255;

/// UDP over IPv4; both checksums are right.
Bytes ipv4( Velnet::IpAddr source, Velnet::IpAddr destination, U16 sourcePort, U16 destinationPort,
            RouterAlert alert, U8 ttl, std::span< U8 const > payload );

/// UDP over IPv6; the checksum, which IPv6 demands, is right.
Bytes ipv6( Velnet::Ip6Addr source, Velnet::Ip6Addr destination, U16 sourcePort,
            U16 destinationPort, std::span< U8 const > payload );

/// The message itself in the associated channel, RFC 5586.
Bytes associatedChannel( U16 channelType, std::span< U8 const > message );

/// A label stack, its top first.
Bytes mpls( std::initializer_list< Label > labels, std::span< U8 const > payload );

/// An Ethernet frame with as many VLAN tags, the outer one first.
Bytes ethernet( EtherType type, std::initializer_list< U16 > vlans, std::span< U8 const > payload );

} // namespace Examples
