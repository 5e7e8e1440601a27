#include "examples/Capture.h"

#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"
#include "MplsUtils/LspPing/types/LspPingTunnelTypes.h"

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;
using Velnet::Ip6Addr;
using Velnet::IpAddr;
using Fec = LspPingTargetFecSubTlvType;
using Tlv = LspPingTlvType;

namespace {

// Targets of one request, one FEC after the other.
template < class Fecs >
Bytes requestFor( U32 sequenceNumber, Fecs fecs ) {
   return written( [&]( Writer & writer ) {
      request( writer, sequenceNumber );
      auto const stack = writer.open( Tlv::TargetFecStack );
      fecs( writer );
   } );
}

// For a prefix, with a TLV behind it.
template < class Write >
Bytes requestWith( U32 sequenceNumber, Write write ) {
   return written( [&]( Writer & writer ) {
      request( writer, sequenceNumber );
      ldpTarget( writer );
      write( writer );
   } );
}

// ---- headers

Bytes dontReply() {
   Bytes message = requestWith( 1, []( Writer & ) {} );
   auto & header = viewAt< LspPingHdr >( message, 0 );
   header.globalFlagsIs( numberOf( LspPingHeaderFlags::rFlag ) | 3 );
   header.replyModeIs( numberOf( LspPingReplyMode::DontReply ) );
   return message;
}

Bytes headerOnlyReply( LspPingReturnCode code ) {
   return written( [&]( Writer & writer ) { reply( writer, 2, code, 1 ); } );
}

// ---- target FECs

template < class View, class Address >
void prefix( Writer & writer, Address address, U8 bits ) {
   writer.add< View >( [&]( View & fec ) {
      fec.ipPrefixIs( address );
      fec.prefixLenIs( bits );
   } );
}

Bytes prefixFecs() {
   return requestFor(
      10,
      []( Writer & writer ) {
         ldpIpv4( writer, IpAddr( 10, 1, 2, 0 ), 24 );
         prefix< LspPingGenericIpv4SubTlv >( writer, IpAddr( 10, 4, 0, 0 ), 16 );
         prefix< LspPingGenericIpv6SubTlv >( writer, ip6( "2001:db8:4::" ), 48 );
         prefix< LspPingBgpLuIpv4SubTlv >( writer, IpAddr( 10, 5, 0, 0 ), 16 );
         prefix< LspPingBgpLuIpv6SubTlv >( writer, ip6( "2001:db8:5::" ), 64 );
      } );
}

template < class View >
void rsvpFields( View & fec ) {
   fec.tunnelIdIs( 7 );
   fec.extendedTunnelIdIs( sender );
   fec.senderAddressIs( sender );
   fec.lspIdIs( 21 );
}

Bytes rsvpTunnel() {
   return requestFor(
      11,
      []( Writer & writer ) {
         writer.add< LspPingRsvpIpv4SubTlv >( []( auto & fec ) {
            fec.destinationIs( responder );
            rsvpFields( fec );
         } );
      } );
}

Bytes rsvpTree() {
   return requestFor(
      12,
      []( Writer & writer ) {
         writer.add< LspPingRsvpP2mpIpv4SubTlv >( []( auto & fec ) {
            fec.p2mpIdIs( 0x0a000009 );
            rsvpFields( fec );
         } );
      } );
}

template < class View, class Address >
void vpn( Writer & writer, Address address, U8 bits ) {
   writer.add< View >( [&]( View & fec ) {
      fec.rdIs( 0x0000006400000001 ); // type 0, AS 100, number 1
      fec.ipPrefixIs( address );
      fec.prefixLenIs( bits );
   } );
}

Bytes vpnFecs() {
   return requestFor(
      13,
      []( Writer & writer ) {
         vpn< LspPingVpnIpv4SubTlv >( writer, IpAddr( 192, 0, 2, 0 ), 25 );
         vpn< LspPingVpnIpv6SubTlv >( writer, ip6( "2001:db8:6::" ), 56 );
      } );
}

template < class View, class Address >
void segment( Writer & writer, Fec code, U16 length, Address address, U8 bits,
              LspPingSrIgpProtocol protocol ) {
   writer.add< View >(
      code,
      [&]( View & fec ) {
         fec.lengthIs( length );
         fec.ipPrefixIs( address );
         fec.prefixLenIs( bits );
         fec.protocolIs( static_cast< U8 >( protocol ) );
      } );
}

Bytes segmentRoutingFecs() {
   return requestFor(
      14,
      []( Writer & writer ) {
         using enum LspPingSrIgpProtocol;
         segment< LspPingSrIpv4SubTlv >( writer, Fec::SRIpv4, 8, responder, 32, ospf );
         segment< LspPingSrIpv6SubTlv >( writer, Fec::SRIpv6, 20, ip6( "2001:db8::9" ), 128, isis );
      } );
}

Bytes deprecatedSegmentRoutingFecs() {
   return requestFor(
      15,
      []( Writer & writer ) {
         using enum LspPingSrIgpProtocol;
         segment< LspPingSrIpv4SubTlv >( writer, Fec::SRIpv4Deprecated, 6, responder, 32, isis );
         segment< LspPingSrIpv6SubTlv >( writer, Fec::SRIpv6Deprecated, 18, ip6( "2001:db8::9" ),
                                         128, ospf );
      } );
}

// A Nil FEC above the FEC that it hides, RFC 8029 section 3.2.17, and an entropy label below.
Bytes labelFecs() {
   return requestFor(
      16,
      []( Writer & writer ) {
         writer.add< LspPingNilFecSubTlv >( []( auto & fec ) { fec.labelIs( 1 ); } );
         ldpIpv4( writer, IpAddr( 10, 1, 2, 0 ), 24 );
         writer.add< LspPingEntropyLabelFecSubTlv >( []( auto & fec ) { fec.labelIs( 700000 ); } );
      } );
}

template < class Opaque, class Fill >
Bytes multicastLdp( U32 sequenceNumber, Fill fill ) {
   return requestFor(
      sequenceNumber,
      [&]( Writer & writer ) {
         auto const tree = writer.open< LspPingP2mpFecStackSubTlv >(
            []( auto & fec ) { fec.rootAddrIs( sender ); } );
         writer.add< Opaque >( fill );
      } );
}

Bytes multicastLdpGeneric() {
   return multicastLdp< LspPingOpaqueValGenSubTlv >(
      17, []( auto & opaque ) { opaque.lspIdIs( 4711 ); } );
}

Bytes multicastLdpGroup() {
   return multicastLdp< LspPingOpaqueValSGSubTlv >(
      18,
      []( auto & opaque ) {
         opaque.sourceAddrIs( IpAddr( 192, 0, 2, 17 ) );
         opaque.groupAddrIs( IpAddr( 232, 1, 1, 1 ) );
      } );
}

constexpr U16 ethernetPseudowire = 5; // RFC 4446 section 3.2

Bytes pseudowire128() {
   return requestFor(
      19,
      []( Writer & writer ) {
         writer.add< LspPingFec128Ipv4SubTlv >( []( auto & fec ) {
            fec.senderAddrIs( sender );
            fec.receiverAddrIs( responder );
            fec.pwIdIs( 1001 );
            fec.pwTypeIs( ethernetPseudowire );
         } );
      } );
}

Pseudowire::PseudowireAttachmentIdentifier identifier( U8 length, U8 first ) {
   Pseudowire::PseudowireAttachmentIdentifier made( 1, length );
   for( U8 i = 0; i < length; ++i )
      made.valueIs( i, static_cast< U8 >( first + i ) );
   return made;
}

Bytes pseudowire129() {
   return requestFor(
      20,
      []( Writer & writer ) {
         Pseudowire::PseudowireGenId id;
         id.agiIs( identifier( 8, 0x10 ) );
         id.saiiIs( identifier( 4, 0x20 ) );
         id.taiiIs( identifier( 4, 0x30 ) );
         auto pseudowire = writer.open< LspPingFec129Ipv4SubTlv >( []( auto & fec ) {
            fec.senderAddrIs( sender );
            fec.receiverAddrIs( responder );
            fec.pwTypeIs( ethernetPseudowire );
         } );
         pseudowire.pwGenId( id );
      } );
}

// ---- small TLVs

Bytes padded( U16 length ) {
   return requestWith(
      60,
      [&]( Writer & writer ) {
         writer.add< LspPingPadTlv >( [&]( LspPingPadTlv & tlv ) {
            tlv.padTypeIs( numberOf( LspPingPadType::copyPadding ) );
            for( U32 i = 0; i + 1 < length; ++i )
               tlv.paddingIs( i, static_cast< U8 >( 0xa0 + i ) );
         } );
      } );
}

Bytes replyTos() {
   return requestWith(
      61,
      []( Writer & writer ) {
         writer.add< LspPingReplyTosTlv >( []( auto & tlv ) { tlv.tosIs( 0xc0 ); } );
      } );
}

void echoJitter( Writer & writer ) {
   writer.add< LspPingEchoJitterTlv >( []( auto & tlv ) { tlv.jitterIs( 2000 ); } );
}

// A request to one leaf of a tree, RFC 6425 section 3.2, that may wait with its reply.
Bytes oneLeaf() {
   Bytes message = requestWith( 62, []( Writer & writer ) {
      writer.add< LspPingNodeAddrSubTlv >( []( auto & tlv ) { tlv.addrIs( responder ); } );
      echoJitter( writer );
   } );
   viewAt< LspPingHdr >( message, 0 ).globalFlagsIs( numberOf( LspPingHeaderFlags::tFlag ) );
   return message;
}

Bytes vendorPrivate() {
   return requestWith(
      63,
      []( Writer & writer ) {
         auto const tlv = writer.open< LspPingVeloraVendorPrivateTlv >( []( auto & vendor ) {
            vendor.vendorIanaIs( numberOf( LspPingVendorIana::VeloraIana ) );
         } );
         writer.add< LspPingMultiLabelSubTlv >( []( auto & subTlv ) {
            subTlv.lookupLabelCountIs( 2 );
            subTlv.flagsIs( 1 );
         } );
      } );
}

// The TLV that was not understood comes back inside of another, RFC 8029 section 3.8.
Bytes erroredTlv() {
   return written( []( Writer & writer ) {
      reply( writer, 64, LspPingReturnCode::tlvNotUnderstood, 0 );
      auto const errored = writer.open( Tlv::ErrorTlv );
      echoJitter( writer );
   } );
}

// ---- how they travel

void addOtherEncapsulations( Capture & capture ) {
   Bytes const message = requestWith( 70, []( Writer & ) {} );
   Bytes const packet =
      ipv4( sender, loopback, senderPort, echoPort, RouterAlert::yes, requestTtl, message );
   capture.add( EtherType::ipv4, {}, packet );
   capture.add( EtherType::ipv4, { 100 }, packet );
   capture.add( EtherType::mpls, { 100, 200 },
                mpls( { { 100704, 255 }, { 300, 255 }, { 17, 1 } }, packet ) );
   // Echo requests over IPv6 go to an address mapped from the IPv4 loopback, RFC 8029 section 4.3.
   Bytes const packet6 =
      ipv6( ip6( "2001:db8::1" ), ip6( "::ffff:127.0.0.1" ), senderPort, echoPort, message );
   capture.add( EtherType::ipv6, {}, packet6 );
   capture.add( EtherType::mpls, {}, mpls( { { 100704, 2 }, { 2, 1 } }, packet6 ) );
   // Label 13 says that an associated channel follows, RFC 5586: IPv4, or the message alone.
   capture.add( EtherType::mpls, {},
                mpls( { { 100704, 2 }, { 13, 1 } }, associatedChannel( 0x0021, packet ) ) );
   capture.add( EtherType::mpls, {},
                mpls( { { 100704, 2 }, { 13, 1 } }, associatedChannel( 0x0025, message ) ) );
}

} // namespace

std::vector< Frame > echoSamples() {
   Capture capture;
   capture.requestIs( dontReply() );
   for( U32 code = 0; code <= numberOf( LspPingReturnCode::lblSwitchedFecChange ); ++code )
      capture.replyIs( headerOnlyReply( LspPingReturnCode{ code } ) );

   for( auto const fecs : { prefixFecs, rsvpTunnel, rsvpTree, vpnFecs, segmentRoutingFecs,
                            deprecatedSegmentRoutingFecs, labelFecs, multicastLdpGeneric,
                            multicastLdpGroup, pseudowire128, pseudowire129 } )
      capture.requestIs( fecs() );

   for( Bytes const & mapping : mappingReplies() )
      capture.replyIs( mapping );
   capture.replyIs( erroredTlv() );

   capture.requestIs( padded( 8 ) );
   capture.requestIs( padded( 5 ) );
   for( auto const small : { replyTos, oneLeaf, vendorPrivate } )
      capture.requestIs( small() );
   addOtherEncapsulations( capture );
   return std::move( capture.frames );
}

} // namespace Examples
