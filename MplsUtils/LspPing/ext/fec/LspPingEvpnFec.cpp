#include "MplsUtils/LspPing/ext/fec/LspPingEvpnFec.h"

#include "MplsUtils/LspPing/ext/LspPingViewName.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

namespace {

// "00:1c:73"
struct Colons {
   std::span< U8 const > bytes;
};

void appendText( Orlo::StringBuilder & out, Colons const & colons ) {
   for( U8 const & byte : colons.bytes ) {
      if( &byte != colons.bytes.data() )
         out.append( ':' );
      out.appendHexBytes( { &byte, 1 } );
   }
}

Orlo::String textOf( Colons const & colons ) {
   return Kiv::_fmt( "%s", colons );
}

template < class View >
Orlo::String textOf( View const & fec ) {
   if( !fec.valid() )
      return lspPingInvalid( fec );
   Orlo::StringBuilder text;
   Kiv::_fmtTo( text, "%s( RD: %lu, tag: %lu", lspPingShortName< View >(), fec.rd(),
                U64{ fec.ethernetTag() } );
   if constexpr( requires { fec.esi(); } )
      Kiv::_fmtTo( text, ", ESI: '%s'", Colons{ fec.esi() } );
   if constexpr( requires { fec.mac(); } )
      Kiv::_fmtTo( text, ", MAC: '%s'", Colons{ fec.mac() } );
   if constexpr( requires { fec.ipAddr(); } )
      Kiv::_fmtTo( text, ", IP: '%s'", fec.ipAddr() );
   if constexpr( requires { fec.routerAddr(); } )
      Kiv::_fmtTo( text, ", router: '%s'", fec.routerAddr() );
   if constexpr( requires { fec.ipPrefix(); } )
      Kiv::_fmtTo( text, ", prefix: '%s/%d', gateway: '%s'", fec.ipPrefix(), fec.prefixLen(),
                   fec.gatewayAddr() );
   text.append( " )" );
   return std::move( text ).string();
}

} // namespace

Orlo::String LspPingEvpnSegment::esiText() const {
   return textOf( Colons{ esi() } );
}
Orlo::String LspPingEvpnMac::macText() const {
   return textOf( Colons{ mac() } );
}

constinit Kiv::AllocationTracker LspPingEvpnMacSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnMacSubTlv >();
constinit Kiv::AllocationTracker LspPingEvpnMacIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnMacIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingEvpnMacIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnMacIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingEvpnInclusiveMulticastIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnInclusiveMulticastIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingEvpnInclusiveMulticastIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnInclusiveMulticastIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingEvpnEthernetAdSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnEthernetAdSubTlv >();
constinit Kiv::AllocationTracker LspPingEvpnIpv4PrefixSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnIpv4PrefixSubTlv >();
constinit Kiv::AllocationTracker LspPingEvpnIpv6PrefixSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEvpnIpv6PrefixSubTlv >();

Orlo::String LspPingEvpnMacSubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingEvpnMacIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingEvpnMacIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingEvpnInclusiveMulticastIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingEvpnInclusiveMulticastIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingEvpnEthernetAdSubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingEvpnIpv4PrefixSubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingEvpnIpv6PrefixSubTlv::stringValue() const {
   return textOf( *this );
}

} // namespace LspPing
