#include "MplsUtils/LspPing/ext/fec/LspPingOpaqueValues.h"

#include "MplsUtils/LspPing/ext/LspPingViewName.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

namespace {

template < class View >
Orlo::String textOf( View const & value ) noexcept {
   if( !value.valid() )
      return lspPingInvalid( value );
   Orlo::StringBuilder text;
   if constexpr( requires { value.sourceAddr(); } )
      Kiv::_fmtTo( text, "%s( source: '%s', group: '%s'", lspPingShortName< View >(),
                   value.sourceAddr(), value.groupAddr() );
   else if constexpr( requires { value.rpAddr(); } )
      Kiv::_fmtTo( text, "%s( group: '%s/%d', RP: '%s'", lspPingShortName< View >(),
                   value.groupAddr(), value.maskLen(), value.rpAddr() );
   else
      Kiv::_fmtTo( text, "%s( %s, root: '%s'", lspPingShortName< View >(),
                   static_cast< LspPingMldpFecType >( value.fecType() ), value.rootAddr() );
   if constexpr( requires { value.rd(); } )
      Kiv::_fmtTo( text, ", RD: %lu", value.rd() );
   text.append( " )" );
   return std::move( text ).string();
}

} // namespace

constinit Kiv::AllocationTracker LspPingOpaqueValSGIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValSGIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValBidirIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValBidirIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValBidirIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValBidirIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValVpnSGIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValVpnSGIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValVpnSGIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValVpnSGIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValVpnBidirIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValVpnBidirIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValVpnBidirIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValVpnBidirIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValRecursiveIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValRecursiveIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValRecursiveIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValRecursiveIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValVpnRecursiveIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValVpnRecursiveIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValVpnRecursiveIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValVpnRecursiveIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValExtendedSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValExtendedSubTlv >();

Orlo::String LspPingOpaqueValSGIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValBidirIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValBidirIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValVpnSGIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValVpnSGIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValVpnBidirIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValVpnBidirIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValRecursiveIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValRecursiveIpv6SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValVpnRecursiveIpv4SubTlv::stringValue() const {
   return textOf( *this );
}
Orlo::String LspPingOpaqueValVpnRecursiveIpv6SubTlv::stringValue() const {
   return textOf( *this );
}

Orlo::String LspPingOpaqueValExtendedSubTlv::stringValue() const {
   if( !valid() )
      return lspPingInvalid( *this );
   Orlo::StringBuilder text;
   Kiv::_fmtTo( text, "OpaqueValExtended( type: %d, data: ", extendedType() );
   text.appendHexBytes( data() );
   text.append( " )" );
   return std::move( text ).string();
}

} // namespace LspPing
