#pragma once

#include "examples/EchoMessages.h"

#include "MplsUtils/LspPing/ext/LspPingExt.h"

#include <span>

namespace Examples {

/// An element without others in it, by its code and its value: hexadecimal digits, and addresses as
/// people write them.
struct Value {
   template < LspPing::LspPingCodes Code >
   constexpr Value( Code of, std::string_view value )
      : context( LspPing::lspPingContextOf< Code > ),
        code( Kiv::numberOf( of ) ),
        text( value ) {}

   LspPing::LspPingContext context;
   U32 code;
   std::string_view text;
};

void add( Writer & writer, Value const & value );

/// FECs, each of which stands in a request of its own.
std::span< Value const > registryFecs();
/// What describes a segment of a path; it stands in a Reply Path, RFC 9716 section 4.
std::span< Value const > segments();
/// Opaque values of multipoint LDP.
std::span< Value const > opaqueValues();
/// TLVs of requests, and of replies.
std::span< Value const > requestTlvs();
std::span< Value const > replyTlvs();
/// The neighbour that a proxy is to ask, RFC 7555 section 5.1.1.
std::span< Value const > nextHops();
/// Configurations of OAM functions, RFC 7759 section 2.2, by what they stand in.
std::span< Value const > bfdValues();
std::span< Value const > performanceValues();
std::span< Value const > faultValues();

} // namespace Examples
