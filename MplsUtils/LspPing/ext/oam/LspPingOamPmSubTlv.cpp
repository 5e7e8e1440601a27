#include "MplsUtils/LspPing/ext/oam/LspPingOamPmSubTlv.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingPerformanceMonitoringSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPerformanceMonitoringSubTlv >();
constinit Kiv::AllocationTracker LspPingPmLossMeasurementSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPmLossMeasurementSubTlv >();
constinit Kiv::AllocationTracker LspPingPmDelayMeasurementSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPmDelayMeasurementSubTlv >();

Orlo::String LspPingPerformanceMonitoringSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "PerformanceMonitoring",
      [this]( Orlo::StringBuilder & text ) {
         lspPingAppendFlagField( text, "DLJYKC", bits< 0, 6 >() );
      } );
}

void LspPingPmMeasurementSubTlv::appendFields( Orlo::StringBuilder & text ) const {
   lspPingOamField( text, "timestamp format: ", otf() );
   text.append( ", " );
   lspPingAppendFlagField( text, "TB", bits< 3, 2 >() );
   lspPingOamField( text, ", measurement interval: ", measurementInterval() );
   lspPingOamField( text, ", test interval: ", testInterval() );
   lspPingOamField( text, ", threshold: ", threshold() );
}

Orlo::String LspPingPmLossMeasurementSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "PmLossMeasurement", [this]( Orlo::StringBuilder & text ) { appendFields( text ); } );
}

Orlo::String LspPingPmDelayMeasurementSubTlv::stringValue() const {
   return lspPingOamText(
      *this, "PmDelayMeasurement", [this]( Orlo::StringBuilder & text ) { appendFields( text ); } );
}

} // namespace LspPing
