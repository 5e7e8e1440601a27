#include "MplsUtils/LspPing/ext/fec/LspPingStaticFec.h"

#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingStaticLspSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingStaticLspSubTlv >();
constinit Kiv::AllocationTracker LspPingStaticPseudowireSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingStaticPseudowireSubTlv >();
constinit Kiv::AllocationTracker LspPingStaticTunnelSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingStaticTunnelSubTlv >();

namespace {

template < class View >
Orlo::String sourceText( View const & view ) {
   return Kiv::_fmt( "source global id: %lu, source node id: %lu", U64{ view.sourceGlobalId() },
                     U64{ view.sourceNodeId() } );
}

template < class View >
Orlo::String destinationText( View const & view ) {
   return Kiv::_fmt( "destination global id: %lu, destination node id: %lu",
                     U64{ view.destinationGlobalId() }, U64{ view.destinationNodeId() } );
}

} // namespace

Orlo::String LspPingStaticLspSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid StaticLspSubTlv" );
   return Kiv::_fmt( "StaticLsp( %s, source tunnel: %d, LSP: %d, %s, destination tunnel: %d )",
                     sourceText( *this ), sourceTunnelNum(), lspNum(), destinationText( *this ),
                     destinationTunnelNum() );
}

Orlo::String LspPingStaticPseudowireSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid StaticPseudowireSubTlv" );
   return Kiv::_fmt( "StaticPseudowire( service: %lu, %s, source AC: %lu, %s, "
                     "destination AC: %lu )",
                     serviceId(), sourceText( *this ), U64{ sourceAcId() },
                     destinationText( *this ), U64{ destinationAcId() } );
}

Orlo::String LspPingStaticTunnelSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid StaticTunnelSubTlv" );
   return Kiv::_fmt( "StaticTunnel( %s, source tunnel: %d, %s, destination tunnel: %d, "
                     "flags: %s )",
                     sourceText( *this ), sourceTunnelNum(), destinationText( *this ),
                     destinationTunnelNum(), LspPingFlagText< LspPingTunnelFlags >{ flags() } );
}

} // namespace LspPing
