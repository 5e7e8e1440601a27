#include "examples/EchoMessages.h"
#include "examples/Encapsulation.h"
#include "examples/Samples.h"

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
MessageBuilder requestFor( U32 sequenceNumber, Fecs fecs ) {
   MessageBuilder message = request( sequenceNumber );
   message.tlv( Tlv::TargetFecStack, [&] { fecs( message ); } );
   return message;
}

void withLdpTarget( MessageBuilder & message ) {
   message.tlv(
      Tlv::TargetFecStack, [&] { message.ldpIpv4( IpAddr( 10, 1, 2, 0 ), 24 ); } );
}

// ---- headers

MessageBuilder dontReply() {
   MessageBuilder message = request( 1 );
   auto & header = message.at< LspPingHdr >( 0 );
   header.globalFlagsIs( numberOf( LspPingHeaderFlags::rFlag ) | 3 );
   header.replyModeIs( numberOf( LspPingReplyMode::DontReply ) );
   withLdpTarget( message );
   return message;
}

MessageBuilder headerOnlyReply( LspPingReturnCode code ) {
   return reply( 2, code, 1 );
}

// ---- target FECs

template < class View, class Address >
void prefix( MessageBuilder & message, Fec code, Address address, U8 bits ) {
   message.element< View >(
      code,
      [&]( View & fec ) {
         fec.lengthIs( sizeof( Address ) + 1 ); // the bytes behind the prefix length are padding
         fec.ipPrefixIs( address );
         fec.prefixLenIs( bits );
      } );
}

MessageBuilder prefixFecs() {
   return requestFor(
      10,
      []( MessageBuilder & message ) {
         message.ldpIpv4( IpAddr( 10, 1, 2, 0 ), 24 );
         prefix< LspPingGenericIpv4SubTlv >( message, Fec::GenericIpv4, IpAddr( 10, 4, 0, 0 ), 16 );
         prefix< LspPingGenericIpv6SubTlv >( message, Fec::GenericIpv6, ip6( "2001:db8:4::" ), 48 );
         prefix< LspPingBgpLuIpv4SubTlv >( message, Fec::BGPLabeledIpv4, IpAddr( 10, 5, 0, 0 ),
                                           16 );
         prefix< LspPingBgpLuIpv6SubTlv >( message, Fec::BGPLabeledIpv6, ip6( "2001:db8:5::" ),
                                           64 );
      } );
}

template < class View >
void rsvpFields( View & fec ) {
   fec.tunnelIdIs( 7 );
   fec.extendedTunnelIdIs( sender );
   fec.senderAddressIs( sender );
   fec.lspIdIs( 21 );
}

MessageBuilder rsvpTunnel() {
   return requestFor(
      11,
      []( MessageBuilder & message ) {
         message.element< LspPingRsvpIpv4SubTlv >(
            Fec::RSVPIpv4Lsp,
            []( auto & fec ) {
               fec.destinationIs( responder );
               rsvpFields( fec );
            } );
      } );
}

MessageBuilder rsvpTree() {
   return requestFor(
      12,
      []( MessageBuilder & message ) {
         message.element< LspPingRsvpP2mpIpv4SubTlv >(
            Fec::RSVPP2MPIpv4,
            []( auto & fec ) {
               fec.p2mpIdIs( 0x0a000009 );
               rsvpFields( fec );
            } );
      } );
}

template < class View, class Address >
void vpn( MessageBuilder & message, Fec code, U16 length, Address address, U8 bits ) {
   message.element< View >(
      code,
      [&]( View & fec ) {
         fec.lengthIs( length );
         fec.rdIs( 0x0000006400000001 ); // type 0, AS 100, number 1
         fec.ipPrefixIs( address );
         fec.prefixLenIs( bits );
      } );
}

MessageBuilder vpnFecs() {
   return requestFor(
      13,
      []( MessageBuilder & message ) {
         vpn< LspPingVpnIpv4SubTlv >( message, Fec::VPNIpv4, 13, IpAddr( 192, 0, 2, 0 ), 25 );
         vpn< LspPingVpnIpv6SubTlv >( message, Fec::VPNIpv6, 25, ip6( "2001:db8:6::" ), 56 );
      } );
}

template < class View, class Address >
void segment( MessageBuilder & message, Fec code, U16 length, Address address, U8 bits,
              LspPingSrIgpProtocol protocol ) {
   message.element< View >(
      code,
      [&]( View & fec ) {
         fec.lengthIs( length );
         fec.ipPrefixIs( address );
         fec.prefixLenIs( bits );
         fec.protocolIs( static_cast< U8 >( protocol ) );
      } );
}

MessageBuilder segmentRoutingFecs() {
   return requestFor(
      14,
      []( MessageBuilder & message ) {
         using enum LspPingSrIgpProtocol;
         segment< LspPingSrIpv4SubTlv >( message, Fec::SRIpv4, 8, responder, 32, ospf );
         segment< LspPingSrIpv6SubTlv >( message, Fec::SRIpv6, 20, ip6( "2001:db8::9" ), 128,
                                         isis );
      } );
}

MessageBuilder deprecatedSegmentRoutingFecs() {
   return requestFor(
      15,
      []( MessageBuilder & message ) {
         using enum LspPingSrIgpProtocol;
         segment< LspPingSrIpv4SubTlv >( message, Fec::SRIpv4Deprecated, 6, responder, 32, isis );
         segment< LspPingSrIpv6SubTlv >( message, Fec::SRIpv6Deprecated, 18, ip6( "2001:db8::9" ),
                                         128, ospf );
      } );
}

// A Nil FEC above the FEC that it hides, RFC 8029 section 3.2.17, and an entropy label below.
MessageBuilder labelFecs() {
   return requestFor(
      16,
      []( MessageBuilder & message ) {
         message.element< LspPingNilFecSubTlv >(
            Fec::NilFec, []( auto & fec ) { fec.labelIs( 1 ); } );
         message.ldpIpv4( IpAddr( 10, 1, 2, 0 ), 24 );
         message.element< LspPingEntropyLabelFecSubTlv >(
            Fec::EntropyLabel, []( auto & fec ) { fec.labelIs( 700000 ); } );
      } );
}

template < class Opaque, class Fill >
MessageBuilder multicastLdp( U32 sequenceNumber, Fill fill ) {
   return requestFor(
      sequenceNumber,
      [&]( MessageBuilder & message ) {
         message.element< LspPingP2mpFecStackSubTlv >(
            Fec::P2mpFec,
            []( auto & fec ) {
               fec.familyIs( 1 );
               fec.addrLenIs( sizeof( IpAddr ) );
               fec.rootAddrIs( sender );
               fec.opaqueLenIs( sizeof( Opaque ) );
            },
            [&] {
               message.view< Opaque >( [&]( Opaque & opaque ) {
                  opaque.lengthIs( sizeof opaque - sizeof( LspPingTlvU8Hdr ) );
                  fill( opaque );
               } );
            } );
      } );
}

MessageBuilder multicastLdpGeneric() {
   return multicastLdp< LspPingOpaqueValGenSubTlv >(
      17,
      []( auto & opaque ) {
         opaque.typeIs( numberOf( LspPingP2mpFecStackSubTlvType::GenericLsp ) );
         opaque.lspIdIs( 4711 );
      } );
}

MessageBuilder multicastLdpGroup() {
   return multicastLdp< LspPingOpaqueValSGSubTlv >(
      18,
      []( auto & opaque ) {
         opaque.typeIs( numberOf( LspPingP2mpFecStackSubTlvType::SGIpv4 ) );
         opaque.sourceAddrIs( IpAddr( 192, 0, 2, 17 ) );
         opaque.groupAddrIs( IpAddr( 232, 1, 1, 1 ) );
      } );
}

constexpr U16 ethernetPseudowire = 5; // RFC 4446 section 3.2

MessageBuilder pseudowire128() {
   return requestFor(
      19,
      []( MessageBuilder & message ) {
         message.element< LspPingFec128Ipv4SubTlv >(
            Fec::FEC128Pseudowire,
            []( auto & fec ) {
               fec.lengthIs( 14 );
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

MessageBuilder pseudowire129() {
   return requestFor(
      20,
      []( MessageBuilder & message ) {
         // Six bytes of types and lengths, then the values.
         constexpr U8 groupLength = 8;
         constexpr U8 individualLength = 4;
         constexpr std::size_t identifiers = 6 + groupLength + 2 * individualLength;
         std::size_t const start = message.size();
         message.element< LspPingFec129Ipv4SubTlv >(
            Fec::FEC129Pseudowire,
            []( auto & fec ) {
               fec.senderAddrIs( sender );
               fec.receiverAddrIs( responder );
               fec.pwTypeIs( ethernetPseudowire );
            },
            [&] { message.room( identifiers ); } );
         // The length is known now, which says how much room the identifiers have.
         Pseudowire::PseudowireGenId id;
         id.agiIs( identifier( groupLength, 0x10 ) );
         id.saiiIs( identifier( individualLength, 0x20 ) );
         id.taiiIs( identifier( individualLength, 0x30 ) );
         message.at< LspPingFec129Ipv4SubTlv >( start ).pwGenIdIs( id );
      } );
}

// ---- small TLVs

MessageBuilder padded( U16 length ) {
   MessageBuilder message = request( 60 );
   withLdpTarget( message );
   LspPingPadTlv tlv;
   tlv.lengthIs( length );
   tlv.padTypeIs( numberOf( LspPingPadType::copyPadding ) );
   for( U32 i = 0; i + 1 < length; ++i )
      tlv.paddingIs( i, static_cast< U8 >( 0xa0 + i ) );
   return message.pad( tlv );
}

MessageBuilder replyTos() {
   MessageBuilder message = request( 61 );
   withLdpTarget( message );
   message.element< LspPingReplyTosTlv >( Tlv::ReplyTosByte,
                                          []( auto & tlv ) { tlv.tosIs( 0xc0 ); } );
   return message;
}

// A request to one leaf of a tree, RFC 6425 section 3.2, that may wait with its reply.
MessageBuilder oneLeaf() {
   MessageBuilder message = request( 62 );
   message.at< LspPingHdr >( 0 ).globalFlagsIs( numberOf( LspPingHeaderFlags::tFlag ) );
   withLdpTarget( message );
   message.element< LspPingNodeAddrSubTlv >(
      Tlv::P2mpRespId,
      []( auto & tlv ) {
         tlv.subTypeIs( numberOf( LspPingP2mpRespTlvType::NodeAddr4 ) );
         tlv.subTypeLenIs( sizeof( IpAddr ) );
         tlv.addrIs( responder );
      } );
   message.element< LspPingEchoJitterTlv >( Tlv::EchoJitter,
                                            []( auto & tlv ) { tlv.jitterIs( 2000 ); } );
   return message;
}

MessageBuilder vendorPrivate() {
   MessageBuilder message = request( 63 );
   withLdpTarget( message );
   message.element< LspPingVeloraVendorPrivateTlv >(
      Tlv::VeloraVendorPrivate,
      []( auto & tlv ) { tlv.vendorIanaIs( numberOf( LspPingVendorIana::VeloraIana ) ); },
      [&] {
         message.element< LspPingMultiLabelSubTlv >( LspPingVeloraVendorPrivateType::MultiLabel,
                                                     []( auto & subTlv ) {
                                                        subTlv.lookupLabelCountIs( 2 );
                                                        subTlv.flagsIs( 1 );
                                                     } );
      } );
   return message;
}

// The TLV that was not understood comes back inside of another, RFC 8029 section 3.8.
MessageBuilder erroredTlv() {
   MessageBuilder message = reply( 64, LspPingReturnCode::tlvNotUnderstood, 0 );
   message.tlv( Tlv::ErrorTlv, [&] {
      message.element< LspPingEchoJitterTlv >( Tlv::EchoJitter,
                                               []( auto & tlv ) { tlv.jitterIs( 2000 ); } );
   } );
   return message;
}

// ---- how they travel

class Capture {
 public:
   /// As a request leaves its router: the destination is a loopback address, the transit routers
   /// see labels only.
   void requestIs( MessageBuilder const & message ) {
      Bytes const packet = ipv4( sender, loopback, senderPort, echoPort, RouterAlert::yes,
                                 requestTtl, message.bytes() );
      add( EtherType::mpls, {}, mpls( { { 100704, 2 } }, packet ) );
   }
   void replyIs( MessageBuilder const & message ) {
      add( EtherType::ipv4, {},
           ipv4( responder, sender, echoPort, senderPort, RouterAlert::no, replyTtl,
                 message.bytes() ) );
   }
   void add( EtherType type, std::initializer_list< U16 > vlans, Bytes const & packet ) {
      Frame frame{ ethernet( type, vlans, packet ), 0 };
      frame.wireLength = frame.bytes.size();
      frames.push_back( std::move( frame ) );
   }

   std::vector< Frame > frames;
};

void addOtherEncapsulations( Capture & capture ) {
   MessageBuilder message = request( 70 );
   withLdpTarget( message );
   Bytes const packet =
      ipv4( sender, loopback, senderPort, echoPort, RouterAlert::yes, requestTtl, message.bytes() );
   capture.add( EtherType::ipv4, {}, packet );
   capture.add( EtherType::ipv4, { 100 }, packet );
   capture.add( EtherType::mpls, { 100, 200 },
                mpls( { { 100704, 255 }, { 300, 255 }, { 17, 1 } }, packet ) );
   // Echo requests over IPv6 go to an address mapped from the IPv4 loopback, RFC 8029 section 4.3.
   Bytes const packet6 = ipv6( ip6( "2001:db8::1" ), ip6( "::ffff:127.0.0.1" ), senderPort,
                               echoPort, message.bytes() );
   capture.add( EtherType::ipv6, {}, packet6 );
   capture.add( EtherType::mpls, {}, mpls( { { 100704, 2 }, { 2, 1 } }, packet6 ) );
   // Label 13 says that an associated channel follows, RFC 5586: IPv4, or the message alone.
   capture.add( EtherType::mpls, {},
                mpls( { { 100704, 2 }, { 13, 1 } }, associatedChannel( 0x0021, packet ) ) );
   capture.add(
      EtherType::mpls, {},
      mpls( { { 100704, 2 }, { 13, 1 } }, associatedChannel( 0x0025, message.bytes() ) ) );
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

   for( MessageBuilder const & mapping : mappingReplies() )
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
