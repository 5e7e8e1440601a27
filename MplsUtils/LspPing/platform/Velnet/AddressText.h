#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"

#include <cstddef>
#include <optional>
#include <string_view>

// What the two address families share in their text; not for others.
namespace Velnet {

/// "255.255.255.255" and the dot that is written behind it and not counted.
inline constexpr std::size_t longestIpAddrText = 16;

/// Writes dotted decimal at `at`, overwriting at most `longestIpAddrText` bytes; returns its end.
char * putIpAddr( char * at, IpAddr::Bytes const & bytes ) noexcept;

/// Reads the address at the cursor; `expected` says in words what has to be there.
template < class Address >
void readAddress( Kiv::CharRange & text, Address * address, std::string_view expected ) {
   text.skip();
   std::string_view const token = Kiv::CharRange{ text.rest() }.token();
   std::optional< Address > const read = Address::fromText( token );
   if( !read )
      text.failWords( "", expected );
   text.take( token );
   *address = *read;
}

} // namespace Velnet
