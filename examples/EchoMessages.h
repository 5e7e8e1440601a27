#pragma once

#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"

#include <string_view>
#include <vector>

// What the messages have in common.
namespace Examples {

using Bytes = std::vector< U8 >;
using Writer = LspPing::LspPingMessageWriter;

inline constexpr Velnet::IpAddr sender( 10, 0, 0, 1 );
inline constexpr Velnet::IpAddr responder( 10, 0, 0, 9 );
inline constexpr Velnet::IpAddr loopback( 127, 0, 0, 1 );
inline constexpr U16 senderPort = 49152;

inline Velnet::Ip6Addr ip6( std::string_view text ) {
   return Velnet::Ip6Addr::fromText( text ).value();
}

/// Ends the program where something was not written: a sample is what its function says.
void check( Writer const & writer );

/// The message that `write( Writer & )` writes.
template < class Write >
Bytes written( Write write ) {
   Bytes bytes;
   Writer writer( bytes );
   write( writer );
   check( writer );
   return bytes;
}

/// The header of a request, or of the reply to one.
void request( Writer & writer, U32 sequenceNumber );
void reply( Writer & writer, U32 sequenceNumber, LspPing::LspPingReturnCode code, U8 subcode );

/// The FEC of an IPv4 prefix that nearly every message carries.
void ldpIpv4( Writer & writer, Velnet::IpAddr prefix, U8 bits );
/// A stack of one such FEC.
void ldpTarget( Writer & writer );

/// A view over a message that is changed after it was written, so that it breaks a rule.
template < class View >
View & viewAt( Bytes & bytes, std::size_t offset ) {
   // Views have alignment 1, and `offset` is where one was written.
   return *reinterpret_cast< View * >( bytes.data() + offset );
}

/// Replies that tell of neighbours and of how a request came in.
std::vector< Bytes > mappingReplies();

/// Messages with the elements that the registries know and few send.
std::vector< Bytes > registryMessages();

} // namespace Examples
