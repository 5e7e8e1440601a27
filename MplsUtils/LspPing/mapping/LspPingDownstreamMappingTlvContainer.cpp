#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlvContainer.h"

#include "MplsUtils/LspPing/platform/base/Assert.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingDownstreamMappingTlvContainer::memAllocationTracker_ =
   Kiv::trackerOf< LspPingDownstreamMappingTlvContainer >();

LspPingDownstreamMappingTlvContainer::LspPingDownstreamMappingTlvContainer() noexcept = default;

Orlo::Ptr< LspPingDownstreamMappingTlvContainer >
LspPingDownstreamMappingTlvContainer::LspPingDownstreamMappingTlvContainerIs() {
   return lspPingDownstreamMappingTlvContainerFactory();
}

Orlo::Ptr< LspPingDownstreamMappingTlvContainer > lspPingDownstreamMappingTlvContainerFactory() {
   return Orlo::Ptr< LspPingDownstreamMappingTlvContainer >::make();
}

Kiv::TypeRef LspPingDownstreamMappingTlvContainer::typeData() const {
   return Kiv::typeOf< LspPingDownstreamMappingTlvContainer >();
}

void LspPingDownstreamMappingTlvContainer::tryCastToTlv( U8 * value, U32 len ) noexcept {
   cast( value, len, UnknownAddrType::isTaken );
}

// Each getter asserts on its own, because the assertion names the function.

bool LspPingDownstreamMappingTlvContainer::isIpv4() const {
   KIV_ASSERT( valid() );
   if( !isKnown() )
      KIV_ASSERT( 0 && "Undefined address type" );
   return isOfIpv4();
}

Velnet::IpGenAddr LspPingDownstreamMappingTlvContainer::getDsIpAddr() const {
   KIV_ASSERT( valid() );
   return fromView( isIpv4(),
                    []( auto const & view ) { return Velnet::IpGenAddr( view.dsIpAddr() ); } );
}

Velnet::IpGenAddr LspPingDownstreamMappingTlvContainer::getDsIntfAddr() const {
   KIV_ASSERT( valid() );
   return ofNumbered( Velnet::IpGenAddr(), []( auto const & view ) { return view.dsIntfAddr(); } );
}

Velnet::IntfId LspPingDownstreamMappingTlvContainer::getDsIntfId() const {
   KIV_ASSERT( valid() );
   return ofUnnumbered( Velnet::IntfId(), []( auto const & view ) { return view.dsIntfId(); } );
}

U8 LspPingDownstreamMappingTlvContainer::getMultipathType() const {
   KIV_ASSERT( valid() );
   return fromView( isIpv4(), []( auto const & view ) { return view.multipathType(); } );
}

U8 LspPingDownstreamMappingTlvContainer::getDepthLimit() const {
   KIV_ASSERT( valid() );
   return fromView( isIpv4(), []( auto const & view ) { return view.depthLimit(); } );
}

Velnet::NetU16 LspPingDownstreamMappingTlvContainer::getMultipathLength() const {
   KIV_ASSERT( valid() );
   return fromView( isIpv4(), []( auto const & view ) { return view.multipathLength(); } );
}

} // namespace LspPing
