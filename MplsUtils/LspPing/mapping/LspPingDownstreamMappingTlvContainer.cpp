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
   switch( getAddrType() ) {
   case 1:
   case 2:
      return true;
   case 3:
   case 4:
      return false;
   default:
      KIV_ASSERT( 0 && "Undefined address type" );
   }
}

Velnet::IpGenAddr LspPingDownstreamMappingTlvContainer::getDsIpAddr() const {
   KIV_ASSERT( valid() );
   return fromView( isIpv4(),
                    []( auto const & view ) { return Velnet::IpGenAddr( view.dsIpAddr() ); } );
}

Velnet::IpGenAddr LspPingDownstreamMappingTlvContainer::getDsIntfAddr() const {
   KIV_ASSERT( valid() );
   if( !isNumbered() )
      return Velnet::IpGenAddr();
   return isIpv4() ? Velnet::IpGenAddr( ipv4Tlv()->dsIntfAddr() )
                   : Velnet::IpGenAddr( ipv6Tlv()->dsIntfAddr() );
}

Velnet::IntfId LspPingDownstreamMappingTlvContainer::getDsIntfId() const {
   KIV_ASSERT( valid() );
   switch( getAddrType() ) {
   case 2:
      return Velnet::IntfId( ipv4UnnumberedTlv()->dsIntfId() );
   case 4:
      return Velnet::IntfId( ipv6UnnumberedTlv()->dsIntfId() );
   default:
      return Velnet::IntfId();
   }
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
