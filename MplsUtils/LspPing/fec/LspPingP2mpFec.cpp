#include "MplsUtils/LspPing/fec/LspPingP2mpFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingP2mpFecStackSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingP2mpFecStackSubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValGenSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValGenSubTlv >();
constinit Kiv::AllocationTracker LspPingOpaqueValSGSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOpaqueValSGSubTlv >();
constinit Kiv::AllocationTracker LspPingNodeAddrSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingNodeAddrSubTlv >();

Orlo::String LspPingP2mpFecStackSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingP2mpFecStackSubTlv" );
   return Kiv::_fmt( "P2mpFecStackSubTlv( RootAddr: '%s' )", rootAddr() );
}

Orlo::String LspPingOpaqueValGenSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingOpaqueValGenSubTlv" );
   return Kiv::_fmt( "OpaqueValGenSubTlv( lspId: %d )", lspId() );
}

Orlo::String LspPingOpaqueValSGSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingOpaqueValSGSubTlv" );
   return Kiv::_fmt( "OpaqueValSGSubTlv( SourceAddr: '%s' GroupAddr: '%s' )", sourceAddr(),
                     groupAddr() );
}

Orlo::String LspPingNodeAddrSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid NodeAddrSubTlv" );
   return Kiv::_fmt( "NodeAddr( Addr: '%s' )", addr() );
}

} // namespace LspPing
