#include "MplsUtils/LspPing/ext/tlv/LspPingNextHopSubTlv.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingNextHopIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNextHopIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingNextHopIpv4UnnumberedSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNextHopIpv4UnnumberedSubTlv >();
constinit Kiv::AllocationTracker LspPingNextHopIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNextHopIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingNextHopIpv6UnnumberedSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNextHopIpv6UnnumberedSubTlv >();
constinit Kiv::AllocationTracker LspPingNextHopIpv4AdjSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNextHopIpv4AdjSubTlv >();
constinit Kiv::AllocationTracker LspPingNextHopIpv6AdjSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNextHopIpv6AdjSubTlv >();

namespace {

template < class View >
Orlo::String nextHopText( View const & view, std::string_view name ) {
   if( !view.valid() )
      return Kiv::_fmt( "Invalid %sSubTlv", name );
   if constexpr( requires { view.interfaceAddr(); } )
      return Kiv::_fmt( "%s( '%s', interface: '%s' )", name, view.address(), view.interfaceAddr() );
   else if constexpr( requires { view.interfaceId(); } )
      return Kiv::_fmt( "%s( '%s', interface: %lu )", name, view.address(),
                        U64{ view.interfaceId() } );
   else
      return Kiv::_fmt( "%s( '%s' )", name, view.address() );
}

} // namespace

Orlo::String LspPingNextHopIpv4SubTlv::stringValue() const {
   return nextHopText( *this, "NextHopIpv4" );
}

Orlo::String LspPingNextHopIpv4UnnumberedSubTlv::stringValue() const {
   return nextHopText( *this, "NextHopIpv4Unnumbered" );
}

Orlo::String LspPingNextHopIpv6SubTlv::stringValue() const {
   return nextHopText( *this, "NextHopIpv6" );
}

Orlo::String LspPingNextHopIpv6UnnumberedSubTlv::stringValue() const {
   return nextHopText( *this, "NextHopIpv6Unnumbered" );
}

Orlo::String LspPingNextHopIpv4AdjSubTlv::stringValue() const {
   return nextHopText( *this, "NextHopIpv4Adj" );
}

Orlo::String LspPingNextHopIpv6AdjSubTlv::stringValue() const {
   return nextHopText( *this, "NextHopIpv6Adj" );
}

} // namespace LspPing
