#include "MplsUtils/LspPing/ext/fec/LspPingExtPseudowireFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireTypes.h"

#include <algorithm>

namespace LspPing {

constinit Kiv::AllocationTracker LspPingL2VpnEndpointSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingL2VpnEndpointSubTlv >();
constinit Kiv::AllocationTracker LspPingFec128DeprecatedSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFec128DeprecatedSubTlv >();
constinit Kiv::AllocationTracker LspPingFec128Ipv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFec128Ipv6SubTlv >();
constinit Kiv::AllocationTracker LspPingFec129Ipv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingFec129Ipv6SubTlv >();
constinit Kiv::AllocationTracker LspPingP2mpPseudowireSubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingP2mpPseudowireSubTlv >();

using Pseudowire::PseudowireType;

Orlo::String LspPingL2VpnEndpointSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid L2VpnEndpointSubTlv" );
   return Kiv::_fmt( "L2VpnEndpoint( %lu, sender: %d, receiver: %d, type: %s )", rd(), senderVeId(),
                     receiverVeId(), PseudowireType{ pwType() } );
}

Orlo::String LspPingFec128DeprecatedSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid Fec128DeprecatedSubTlv" );
   return Kiv::_fmt( "Fec128Deprecated( receiver: '%s', pseudowire: %lu, type: %s )",
                     receiverAddr(), U64{ pwId() }, PseudowireType{ pwType() } );
}

Orlo::String LspPingFec128Ipv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid Fec128Ipv6SubTlv" );
   return Kiv::_fmt( "Fec128Ipv6( sender: '%s', receiver: '%s', pseudowire: %lu, type: %s )",
                     senderAddr(), receiverAddr(), U64{ pwId() }, PseudowireType{ pwType() } );
}

Orlo::String LspPingFec129Ipv6SubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid Fec129Ipv6SubTlv" );
   return Kiv::_fmt( "Fec129Ipv6( sender: '%s', receiver: '%s', type: %s, %s )", senderAddr(),
                     receiverAddr(), PseudowireType{ pwType() }, pwGenId() );
}

std::span< U8 const > LspPingP2mpPseudowireSubTlv::agi() const noexcept {
   std::span< U8 const > const tail = lspPingTail( *this );
   return tail.first( std::min< std::size_t >( agiLength(), tail.size() ) );
}

U8 LspPingP2mpPseudowireSubTlv::ipAddrLen() const noexcept {
   std::span< U8 const > const tail = lspPingTail( *this );
   return agiLength() < tail.size() ? tail[agiLength()] : U8{ 0 };
}

Velnet::IpGenAddr LspPingP2mpPseudowireSubTlv::originatingRouter() const noexcept {
   std::span< U8 const > const tail = lspPingTail( *this );
   if( agiLength() >= tail.size() )
      return {};
   std::span< U8 const > const address = tail.subspan( agiLength() + std::size_t{ 1 } );
   if( ipAddrLen() != address.size() && ipAddrLen() != 8 * address.size() )
      return {};
   return lspPingAddressOf( address );
}

Orlo::String LspPingP2mpPseudowireSubTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid P2mpPseudowireSubTlv" );
   Orlo::StringBuilder text;
   text.append( Kiv::_fmt( "P2mpPseudowire( '%s', AGI: %d:", originatingRouter(), agiType() ) );
   text.appendHexBytes( agi() );
   text.append(
      Kiv::_fmt( ", address length: %d %s )", ipAddrLen(), ipAddrLen() > 16 ? "bits" : "bytes" ) );
   return std::move( text ).string();
}

} // namespace LspPing
