#include "MplsUtils/LspPing/tlv/LspPingPadTlv.h"

#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

#include <algorithm>
#include <utility>

namespace LspPing {

constinit Kiv::AllocationTracker LspPingPadTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingPadTlv >();

std::unique_ptr< LspPingPadTlv > LspPingPadTlv::LspPingPadTlvIs() {
   return lspPingPadTlvFactory();
}

std::unique_ptr< LspPingPadTlv > lspPingPadTlvFactory() {
   return std::make_unique< LspPingPadTlv >();
}

Orlo::String LspPingPadTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid LspPingPadTlv" );
   Orlo::StringBuilder text;
   text.append( "PadTlv( PadType: " );
   text.appendDecimal( padType() );
   text.append( ", Size: " );
   text.appendDecimal( length() );
   text.append( ", Padding: " );
   for( U32 i = 0; i + 1 < length(); ++i ) {
      text.append( "0x" );
      text.appendHex( padding( i ), true );
      text.append( ' ' );
   }
   text.append( ')' );
   return std::move( text ).string();
}

void LspPingPadTlv::bytesAre( std::span< U8 const > bytes ) noexcept {
   // The header's bytes are there, and a view has no alignment.
   static_cast< LspPingTlvHdr & >( *this ) =
      *reinterpret_cast< LspPingTlvHdr const * >( bytes.data() );
   padType_ = bytes[sizeof( LspPingTlvHdr )];
   std::span< U8 const > const padding = bytes.subspan( sizeof( LspPingTlvHdr ) + 1 );
   std::size_t const told = std::max< std::size_t >( length(), 1 ) - 1;
   for( std::size_t i = 0; i < std::min( padding.size(), told ); ++i )
      paddingIs( static_cast< U32 >( i ), padding[i] );
}

std::unique_ptr< LspPingPadTlv > LspPingPadTlv::kivCopyOf( std::span< U8 const > bytes ) {
   auto pad = lspPingPadTlvFactory();
   pad->bytesAre( bytes );
   return pad;
}

std::size_t LspPingPadTlv::kivExtent( std::span< U8 const > bytes ) noexcept {
   std::size_t const least = sizeof( LspPingTlvHdr ) + sizeof( padType_ );
   if( bytes.size() < least )
      return least;
   // The header's bytes are there, and a view has no alignment.
   auto const & header = *reinterpret_cast< LspPingTlvHdr const * >( bytes.data() );
   return std::max( least, sizeof( header ) + header.length() );
}

LspPingPadTlvParser::LspPingPadTlvParser( Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset )
   : LspPingParser( pkt, offset ) {
   handleHeader();
}

// Copies as many bytes as the length tells. One outside the packet's data raises an error that
// ends the process here. The object of an earlier call is left to whoever took it.
void LspPingPadTlvParser::handleHeader() noexcept {
   Orlo::Ptr< Velnet::Pkt > const held = pkt();
   auto const element = [&]( std::size_t size ) -> std::span< U8 const > {
      if( offset() + size > held->size() )
         static_cast< void >( held->rawByte( std::max( offset(), held->size() ) ) );
      return { held->data() + offset(), size };
   };
   LspPingPadTlv * const tlv = lspPingPadTlvFactory().release();
   placeIs( tlv );
   std::size_t const least = LspPingPadTlv::kivExtent( {} );
   tlv->bytesAre( element( LspPingPadTlv::kivExtent( element( least ) ) ) );
}

} // namespace LspPing
