#pragma once

#include "examples/MessageBuilder.h"

#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"

#include <string_view>
#include <vector>

// What the well-formed messages have in common.
namespace Examples {

inline constexpr Velnet::IpAddr sender( 10, 0, 0, 1 );
inline constexpr Velnet::IpAddr responder( 10, 0, 0, 9 );
inline constexpr Velnet::IpAddr loopback( 127, 0, 0, 1 );
inline constexpr U16 senderPort = 49152;

inline Velnet::Ip6Addr ip6( std::string_view text ) {
   return Velnet::Ip6Addr::fromText( text ).value();
}

/// The header of a request, or of the reply to one.
MessageBuilder request( U32 sequenceNumber );
MessageBuilder reply( U32 sequenceNumber, LspPing::LspPingReturnCode code, U8 subcode );

/// Replies that tell of neighbours and of how a request came in.
std::vector< MessageBuilder > mappingReplies();

} // namespace Examples
