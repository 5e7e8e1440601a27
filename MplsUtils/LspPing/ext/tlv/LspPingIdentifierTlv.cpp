#include "MplsUtils/LspPing/ext/tlv/LspPingIdentifierTlv.h"

#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingLsrCapabilityTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingLsrCapabilityTlv >();
constinit Kiv::AllocationTracker LspPingVendorEnterpriseNumberTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingVendorEnterpriseNumberTlv >();
constinit Kiv::AllocationTracker LspPingSourceIdTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSourceIdTlv >();
constinit Kiv::AllocationTracker LspPingDestinationIdTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDestinationIdTlv >();
constinit Kiv::AllocationTracker LspPingBfdDiscriminatorTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBfdDiscriminatorTlv >();
constinit Kiv::AllocationTracker LspPingReplyTcTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingReplyTcTlv >();

Orlo::String LspPingLsrCapabilityTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LsrCapabilityTlv" );
   return Kiv::_fmt( "LsrCapability( flags: %s )",
                     LspPingFlagText< LspPingLsrCapabilityFlags >{ flags() } );
}

Orlo::String LspPingVendorEnterpriseNumberTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid VendorEnterpriseNumberTlv" );
   return Kiv::_fmt( "VendorEnterpriseNumber( %lu )", U64{ enterpriseNumber() } );
}

Orlo::String LspPingSourceIdTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid SourceIdTlv" );
   return Kiv::_fmt( "SourceId( global: %lu, node: %lu )", U64{ globalId() }, U64{ nodeId() } );
}

Orlo::String LspPingDestinationIdTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid DestinationIdTlv" );
   return Kiv::_fmt( "DestinationId( global: %lu, node: %lu )", U64{ globalId() },
                     U64{ nodeId() } );
}

Orlo::String LspPingBfdDiscriminatorTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid BfdDiscriminatorTlv" );
   return Kiv::_fmt( "BfdDiscriminator( %lu )", U64{ discriminator() } );
}

Orlo::String LspPingReplyTcTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid ReplyTcTlv" );
   return Kiv::_fmt( "ReplyTc( %d )", tc() );
}

} // namespace LspPing
