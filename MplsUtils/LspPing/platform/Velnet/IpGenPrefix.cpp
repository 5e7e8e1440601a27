#include "MplsUtils/LspPing/platform/Velnet/IpGenPrefix.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/Velnet/AddressText.h"

#include <charconv>
#include <system_error>

namespace Velnet {

std::optional< IpGenPrefix > IpGenPrefix::fromText( std::string_view text ) noexcept {
   if( text == "none" )
      return IpGenPrefix{};
   std::size_t const slash = text.find( '/' );
   std::optional< IpGenAddr > const address = IpGenAddr::fromText( text.substr( 0, slash ) );
   if( slash == std::string_view::npos || !address )
      return std::nullopt;
   U8 length = 0;
   char const * const end = text.data() + text.size();
   auto const [behind, error] = std::from_chars( text.data() + slash + 1, end, length );
   bool const hasFamily = address->family() != IpGenAddr::Family::none;
   if( error != std::errc{} || behind != end || !hasFamily || length > longest( *address ) )
      return std::nullopt;
   return IpGenPrefix{ *address, length };
}

void IpGenPrefix::lengthRangeError( U8 length ) {
   throw Kiv::RangeException{ "Velnet::IpGenPrefix",
                              Kiv::_fmt( "no address of its family has %d leading bits", length ) };
}

Orlo::String IpGenPrefix::stringValue() const {
   return Kiv::_fmt( "%s", *this );
}

void appendText( Orlo::StringBuilder & out, IpGenPrefix const & prefix ) noexcept {
   appendText( out, prefix.address() );
   if( prefix.address() != IpGenAddr{} ) {
      out.append( '/' );
      out.appendDecimal( prefix.length() );
   }
}

void sequenceToValue( Kiv::CharRange & text, IpGenPrefix * prefix ) {
   readAddress( text, prefix, "an address and its prefix length or none" );
}

} // namespace Velnet
