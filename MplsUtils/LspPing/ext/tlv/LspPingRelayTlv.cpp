#include "MplsUtils/LspPing/ext/tlv/LspPingRelayTlv.h"

#include "MplsUtils/LspPing/ext/LspPingNames.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingRelayNodeAddressStackTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingRelayNodeAddressStackTlv >();

namespace {

// Offset and count.
constexpr std::size_t countsSize = 4;

constexpr std::optional< std::size_t > sizeOf( U8 addrType ) noexcept {
   return lspPingAddressSize( addrType, Kiv::numberOf( LspPingRelayAddrType::ipv6RelayAddr ) );
}

} // namespace

Velnet::IpGenAddr LspPingRelayNodeAddressStackTlv::replyAddr() const noexcept {
   return lspPingAddressOf(
      lspPingPart( lspPingTail( *this ), 0, sizeOf( replyAddrType_ ).value_or( 0 ) ) );
}

std::span< U8 const > LspPingRelayNodeAddressStackTlv::counted() const noexcept {
   std::span< U8 const > const tail = lspPingTail( *this );
   auto const address = sizeOf( replyAddrType_ );
   return address && *address <= tail.size() ? tail.subspan( *address ) : std::span< U8 const >();
}

U16 LspPingRelayNodeAddressStackTlv::word( std::size_t at ) const noexcept {
   std::span< U8 const > const bytes = lspPingPart( counted(), at, 2 );
   return bytes.empty() ? U16{ 0 } : static_cast< U16 >( bytes[0] << 8 | bytes[1] );
}

LspPingRelayedAddresses LspPingRelayNodeAddressStackTlv::addresses() const noexcept {
   std::span< U8 const > const bytes = counted();
   return LspPingRelayedAddresses( bytes.subspan( std::min( countsSize, bytes.size() ) ) );
}

bool LspPingRelayNodeAddressStackTlv::valid() const noexcept {
   if( !element.hasCode( type() ) || !element.hasLength( length() ) ||
       counted().size() < countsSize )
      return false;
   U32 left = addressCount();
   auto entry = addresses().begin();
   for( ; entry != std::default_sentinel && left > 0; ++entry )
      --left;
   return left == 0 && entry.left().empty();
}

Orlo::String LspPingRelayNodeAddressStackTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid RelayNodeAddressStackTlv" );
   Orlo::StringBuilder text;
   text.append( "RelayNodeAddressStack( " );
   appendText( text, LspPingAddressText{ replyAddr() } );
   Kiv::_fmtTo( text, ", source port: %d, destination offset: %d", initiatorSourcePort(),
                destinationAddrOffset() );
   std::string_view before = ", relays: ";
   for( LspPingRelayedAddress const relay : addresses() ) {
      text.append( before );
      appendText( text, LspPingAddressText{ relay.address } );
      if( relay.flags != 0 )
         Kiv::_fmtTo( text, " %s", LspPingFlagNames< LspPingRelayFlags >{ relay.flags } );
      before = ", ";
   }
   text.append( " )" );
   return std::move( text ).string();
}

} // namespace LspPing
