#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlvContainer.h"

#include "MplsUtils/LspPing/platform/base/Assert.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingIntfAndLabelStackTlvContainer::memAllocationTracker_ =
   Kiv::trackerOf< LspPingIntfAndLabelStackTlvContainer >();

LspPingIntfAndLabelStackTlvContainer::LspPingIntfAndLabelStackTlvContainer() noexcept = default;

Orlo::Ptr< LspPingIntfAndLabelStackTlvContainer >
LspPingIntfAndLabelStackTlvContainer::LspPingIntfAndLabelStackTlvContainerIs() {
   return lspPingIntfAndLabelStackTlvContainerFactory();
}

Orlo::Ptr< LspPingIntfAndLabelStackTlvContainer > lspPingIntfAndLabelStackTlvContainerFactory() {
   return Orlo::Ptr< LspPingIntfAndLabelStackTlvContainer >::make();
}

Kiv::TypeRef LspPingIntfAndLabelStackTlvContainer::typeData() const {
   return Kiv::typeOf< LspPingIntfAndLabelStackTlvContainer >();
}

void LspPingIntfAndLabelStackTlvContainer::tryCastToTlv( U8 * value, U32 len ) noexcept {
   cast( value, len, UnknownAddrType::isRefused );
}

// Each getter asserts on its own, because the assertion names the function.

bool LspPingIntfAndLabelStackTlvContainer::isIpv4() const {
   KIV_ASSERT( valid() );
   if( !isKnown() )
      KIV_ASSERT( 0 && "Undefined address type" );
   return isOfIpv4();
}

Velnet::IpGenAddr LspPingIntfAndLabelStackTlvContainer::getAddr() const {
   KIV_ASSERT( valid() );
   return fromView( isIpv4(),
                    []( auto const & view ) { return Velnet::IpGenAddr( view.addr() ); } );
}

Velnet::IpGenAddr LspPingIntfAndLabelStackTlvContainer::getIntfAddr() const {
   KIV_ASSERT( valid() );
   return ofNumbered( Velnet::IpGenAddr(), []( auto const & view ) { return view.intf(); } );
}

U32 LspPingIntfAndLabelStackTlvContainer::getIntfId() const {
   KIV_ASSERT( valid() );
   return ofUnnumbered( U32{ 0 }, []( auto const & view ) { return view.intfId(); } );
}

} // namespace LspPing
