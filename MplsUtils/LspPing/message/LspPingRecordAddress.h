#pragma once

#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"

// What the conversions from records to elements have in common; not for users of the library.
namespace LspPing {

/// Whether the record has an address of the family that the element has a place for, and if so,
/// the address.
inline bool addressOf( Velnet::IpGenAddr const & from, Velnet::IpAddr & to ) noexcept {
   if( !from.isIpv4() )
      return false;
   to = from.ipAddr();
   return true;
}
inline bool addressOf( Velnet::IpGenAddr const & from, Velnet::Ip6Addr & to ) noexcept {
   if( !from.isIpv6() )
      return false;
   to = from.ip6Addr();
   return true;
}

} // namespace LspPing
