#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"

#include "MplsUtils/LspPing/platform/Velnet/AddressText.h"

namespace Velnet {

std::optional< IpGenAddr > IpGenAddr::fromText( std::string_view text ) noexcept {
   if( text == "none" )
      return IpGenAddr{};
   if( text.find( ':' ) != std::string_view::npos )
      return Ip6Addr::fromText( text );
   return IpAddr::fromText( text );
}

Orlo::String IpGenAddr::stringValue() const {
   return isIpv4() ? ipAddr().stringValue() : isIpv6() ? ip6Addr().stringValue() : "none";
}

void appendText( Orlo::StringBuilder & out, IpGenAddr const & address ) noexcept {
   if( address.isIpv4() )
      appendText( out, address.ipAddr() );
   else if( address.isIpv6() )
      appendText( out, address.ip6Addr() );
   else
      out.append( "none" );
}

void sequenceToValue( Kiv::CharRange & text, IpGenAddr * address ) {
   readAddress( text, address, "an IP address or none" );
}

} // namespace Velnet
