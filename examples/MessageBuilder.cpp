#include "examples/MessageBuilder.h"

namespace Examples {

using namespace LspPing;

MessageBuilder & MessageBuilder::pad( LspPingPadTlv const & tlv ) {
   return element< LspPingTlvHdr >(
      LspPingTlvType::Pad, [&]( LspPingTlvHdr & header ) { header.lengthIs( tlv.length() ); },
      [&] {
         bytes_.push_back( tlv.padType() );
         for( U32 i = 0; i + 1 < tlv.length(); ++i )
            bytes_.push_back( tlv.padding( i ) );
      } );
}

MessageBuilder & MessageBuilder::ldpIpv4( Velnet::IpAddr prefix, U8 bits ) {
   return element< LspPingLdpIpv4SubTlv >(
      LspPingTargetFecSubTlvType::LDPIpv4,
      [&]( LspPingLdpIpv4SubTlv & fec ) {
         fec.lengthIs( 5 );
         fec.ipPrefixIs( prefix );
         fec.prefixLenIs( bits );
      } );
}

} // namespace Examples
