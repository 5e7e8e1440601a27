#include "MplsUtils/LspPing/ext/oam/LspPingOamSubTlv.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingBfdConfigurationSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBfdConfigurationSubTlv >();
constinit Kiv::AllocationTracker LspPingBfdLocalDiscriminatorSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBfdLocalDiscriminatorSubTlv >();
constinit Kiv::AllocationTracker LspPingBfdNegotiationTimersSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBfdNegotiationTimersSubTlv >();
constinit Kiv::AllocationTracker LspPingBfdAuthenticationSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingBfdAuthenticationSubTlv >();
constinit Kiv::AllocationTracker LspPingOamTrafficClassSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOamTrafficClassSubTlv >();
constinit Kiv::AllocationTracker LspPingFaultManagementSignalSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFaultManagementSignalSubTlv >();
constinit Kiv::AllocationTracker LspPingSourceMepIdSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSourceMepIdSubTlv >();

Orlo::String LspPingBfdConfigurationSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "BfdConfiguration",
      [this]( Orlo::StringBuilder & text ) {
         lspPingOamField( text, "version: ", version() );
         text.append( ", " );
         lspPingAppendFlagField( text, "NSIGUB", bits< 3, 6 >() );
      } );
}

Orlo::String LspPingBfdLocalDiscriminatorSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "BfdLocalDiscriminator",
      [this]( Orlo::StringBuilder & text ) { text.appendDecimal( discriminator() ); } );
}

Orlo::String LspPingBfdNegotiationTimersSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "BfdNegotiationTimers",
      [this]( Orlo::StringBuilder & text ) {
         lspPingOamField( text, "tx interval: ", minTxInterval() );
         lspPingOamField( text, ", rx interval: ", minRxInterval() );
         lspPingOamField( text, ", echo tx interval: ", requiredEchoTxInterval() );
      } );
}

Orlo::String LspPingBfdAuthenticationSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "BfdAuthentication",
      [this]( Orlo::StringBuilder & text ) {
         lspPingOamField( text, "type: ", authType() );
         lspPingOamField( text, ", key: ", authKeyId() );
      } );
}

Orlo::String LspPingOamTrafficClassSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "OamTrafficClass",
      [this]( Orlo::StringBuilder & text ) { text.appendDecimal( tc() ); } );
}

Orlo::String LspPingFaultManagementSignalSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "FaultManagementSignal",
      [this]( Orlo::StringBuilder & text ) {
         lspPingAppendFlagField( text, "EST", bits< 0, 3 >() );
         lspPingOamField( text, ", refresh timer: ", refreshTimer() );
      } );
}

Orlo::String LspPingSourceMepIdSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "SourceMepId",
      [this]( Orlo::StringBuilder & text ) {
         lspPingOamField( text, "node: ", sourceNodeId() );
         lspPingOamField( text, ", tunnel: ", tunnelId() );
         lspPingOamField( text, ", LSP: ", lspId() );
      } );
}

} // namespace LspPing
