#include "examples/EchoMessages.h"

#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "MplsUtils/LspPing/types/LspPingTunnelTypes.h"

#include <initializer_list>

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;
using Velnet::IpAddr;
using Tlv = LspPingTlvType;

namespace {

// One entry of a downstream label stack; the protocol stands where the time to live would.
void downstreamLabel( MessageBuilder & message, U32 label, bool bottom,
                      LspPingDownstreamSignalingProtocol protocol ) {
   message.view< Velnet::MplsLabelEntry >( [&]( Velnet::MplsLabelEntry & entry ) {
      entry.labelIs( label );
      entry.bottomOfStackIs( bottom );
      entry.ttlIs( static_cast< U8 >( protocol ) );
   } );
}

template < class View, class Fill >
MessageBuilder downstreamMapping( LspPingAddrType addrType, Fill fill ) {
   MessageBuilder message = reply( 30, LspPingReturnCode::labelSwitchedAtStackDep, 1 );
   message.tlv( Tlv::DownstreamMapping, [&] {
      message.view< View >( [&]( View & mapping ) {
         mapping.mtuIs( Velnet::NetU16( 1500 ) );
         mapping.addrTypeIs( static_cast< U8 >( addrType ) );
         mapping.multipathTypeIs( numberOf( LspPingMultipathType::ipMultipath ) );
         mapping.depthLimitIs( 0 );
         mapping.multipathLengthIs( Velnet::NetU16( sizeof( IpAddr ) ) );
         fill( mapping );
      } );
      message.view< IpAddr >( []( IpAddr & address ) { address = loopback; } );
      using enum LspPingDownstreamSignalingProtocol;
      downstreamLabel( message, 100704, false, dsInfoSignalingProtocolLdp );
      downstreamLabel( message, 300, true, dsInfoSignalingProtocolBgp );
   } );
   return message;
}

MessageBuilder downstreamMappingIpv4() {
   return downstreamMapping< LspPingDownstreamMappingIpv4Tlv >(
      LspPingAddrType::ipv4Numbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( IpAddr( 10, 0, 1, 2 ) );
         mapping.dsIntfAddrIs( IpAddr( 10, 0, 1, 1 ) );
      } );
}

MessageBuilder downstreamMappingIpv4Unnumbered() {
   return downstreamMapping< LspPingDownstreamMappingIpv4UnnumberedTlv >(
      LspPingAddrType::ipv4Unnumbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( responder );
         mapping.dsIntfIdIs( 17 );
      } );
}

MessageBuilder downstreamMappingIpv6() {
   return downstreamMapping< LspPingDownstreamMappingIpv6Tlv >(
      LspPingAddrType::ipv6Numbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( ip6( "2001:db8:1::2" ) );
         mapping.dsIntfAddrIs( ip6( "2001:db8:1::1" ) );
      } );
}

MessageBuilder downstreamMappingIpv6Unnumbered() {
   return downstreamMapping< LspPingDownstreamMappingIpv6UnnumberedTlv >(
      LspPingAddrType::ipv6Unnumbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( ip6( "2001:db8::9" ) );
         mapping.dsIntfIdIs( 18 );
      } );
}

// Multipath information of words: addresses, a label or a mask.
void multipath( MessageBuilder & message, LspPingMultipathType type,
                std::initializer_list< U32 > words ) {
   message.element< LspPingMultipathSubTlv >(
      LspPingDDMappingSubTlvType::MultipathData,
      [&]( auto & data ) {
         data.multipathTypeIs( static_cast< U8 >( type ) );
         data.multipathLengthIs( static_cast< U16 >( words.size() * sizeof( U32 ) ) );
      },
      [&] {
         for( U32 const word : words )
            message.view< Velnet::NetU32 >( [&]( auto & written ) { written.valueIs( word ); } );
      } );
}

void addressRange( MessageBuilder & message ) {
   multipath( message, LspPingMultipathType::ipRangeMultipath, { 0x7f000001, 0x7f000010 } );
}

void labelStack( MessageBuilder & message ) {
   message.tlv(
      LspPingDDMappingSubTlvType::LabelStack,
      [&] {
         using enum LspPingDownstreamSignalingProtocol;
         downstreamLabel( message, 100704, false, dsInfoSignalingProtocolLdp );
         downstreamLabel( message, 300, true, dsInfoSignalingProtocolBgp );
      } );
}

// The FEC that the responder pushes or pops comes with the sub-TLV.
template < class View, class Fill >
void fecStackChange( MessageBuilder & message, LspPingFecStackChangeSubTlvOperType operation,
                     LspPingFecStackChangeSubTlvAddressType addrType, Fill fill ) {
   std::size_t const start = message.size();
   message.element< View >(
      LspPingDDMappingSubTlvType::FecStackChange,
      [&]( View & change ) {
         change.operTypeIs( static_cast< U8 >( operation ) );
         change.addrTypeIs( static_cast< U8 >( addrType ) );
         fill( change );
      },
      [&] {
         std::size_t const fec = message.size();
         message.ldpIpv4( IpAddr( 10, 7, 0, 0 ), 16 );
         message.at< View >( start ).fecTlvLenIs( static_cast< U8 >( message.size() - fec ) );
      } );
}

template < class View, class Fill, class SubTlvs >
MessageBuilder detailedMapping( LspPingAddrType addrType, Fill fill, SubTlvs subTlvs ) {
   MessageBuilder message = reply( 40, LspPingReturnCode::seeDdmTlv, 1 );
   message.detailedMapping< View >(
      [&]( View & mapping ) {
         mapping.mtuIs( 9000 );
         mapping.addrTypeIs( static_cast< U8 >( addrType ) );
         mapping.retCodeIs( numberOf( LspPingReturnCode::labelSwitchedAtStackDep ) );
         mapping.retSubcodeIs( 1 );
         fill( mapping );
      },
      [&] { subTlvs( message ); } );
   return message;
}

MessageBuilder detailedMappingIpv4() {
   return detailedMapping< LspPingDdmapTlv >(
      LspPingAddrType::ipv4Numbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( IpAddr( 10, 0, 1, 2 ) );
         mapping.dsIntfAddrIs( IpAddr( 10, 0, 1, 1 ) );
      },
      []( MessageBuilder & message ) {
         labelStack( message );
         addressRange( message );
      } );
}

MessageBuilder detailedMappingIpv4Unnumbered() {
   return detailedMapping< LspPingDdmapUnnumberedTlv >(
      LspPingAddrType::ipv4Unnumbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( responder );
         mapping.dsIntfIdIs( 17 );
      },
      []( MessageBuilder & message ) { labelStack( message ); } );
}

MessageBuilder detailedMappingIpv6() {
   return detailedMapping< LspPingDdmapV6Tlv >(
      LspPingAddrType::ipv6Numbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( ip6( "2001:db8:1::2" ) );
         mapping.dsIntfAddrIs( ip6( "2001:db8:1::1" ) );
      },
      []( MessageBuilder & message ) {
         labelStack( message );
         addressRange( message );
      } );
}

MessageBuilder detailedMappingIpv6Unnumbered() {
   return detailedMapping< LspPingDdmapV6UnnumberedTlv >(
      LspPingAddrType::ipv6Unnumbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( ip6( "2001:db8::9" ) );
         mapping.dsIntfIdIs( 18 );
      },
      []( MessageBuilder & message ) { addressRange( message ); } );
}

// A mapping of a neighbour at 10.0.1.2 with other sub-TLVs.
template < class SubTlvs >
MessageBuilder detailedMappingWith( SubTlvs subTlvs ) {
   return detailedMapping< LspPingDdmapTlv >(
      LspPingAddrType::ipv4Numbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( IpAddr( 10, 0, 1, 2 ) );
         mapping.dsIntfAddrIs( IpAddr( 10, 0, 1, 1 ) );
      },
      subTlvs );
}

MessageBuilder detailedMappingOfAddresses() {
   return detailedMappingWith( []( MessageBuilder & message ) {
      multipath( message, LspPingMultipathType::ipMultipath, { 0x7f000001, 0x7f000007 } );
      labelStack( message );
   } );
}

// A base and a bit for each address from there on, RFC 8029 section 3.4.1.1.1.
MessageBuilder detailedMappingOfAddressSet() {
   return detailedMappingWith( []( MessageBuilder & message ) {
      labelStack( message );
      multipath( message, LspPingMultipathType::maskedIpSetMultipath, { 0x7f020100, 0x87ff0ffc } );
   } );
}

MessageBuilder detailedMappingOfLabelSet() {
   return detailedMappingWith( []( MessageBuilder & message ) {
      labelStack( message );
      multipath( message, LspPingMultipathType::maskedLabelSetMultipath, { 700000, 0xc0000001 } );
   } );
}

MessageBuilder fecStackChangeOfUnknownPeer() {
   return detailedMappingWith( []( MessageBuilder & message ) {
      fecStackChange< LspPingFecStackChangeUnspecifiedSubTlv >(
         message, LspPingFecStackChangeSubTlvOperType::Pop,
         LspPingFecStackChangeSubTlvAddressType::Unspecified, []( auto & ) {} );
   } );
}

// A responder that tunnels on: one FEC goes, two come.
MessageBuilder fecStackChanges() {
   return detailedMapping< LspPingDdmapTlv >(
      LspPingAddrType::ipv4Numbered,
      []( auto & mapping ) {
         mapping.dsIpAddrIs( IpAddr( 10, 0, 1, 2 ) );
         mapping.dsIntfAddrIs( IpAddr( 10, 0, 1, 1 ) );
         mapping.retCodeIs( numberOf( LspPingReturnCode::lblSwitchedFecChange ) );
      },
      []( MessageBuilder & message ) {
         using enum LspPingFecStackChangeSubTlvOperType;
         using AddrType = LspPingFecStackChangeSubTlvAddressType;
         fecStackChange< LspPingFecStackChangeV4SubTlv >(
            message, Pop, AddrType::IPv4, []( auto & change ) { change.peerAddrIs( responder ); } );
         fecStackChange< LspPingFecStackChangeV6SubTlv >(
            message, Push, AddrType::IPv6,
            []( auto & change ) { change.peerAddrIs( ip6( "2001:db8::7" ) ); } );
         fecStackChange< LspPingFecStackChangeUnspecifiedSubTlv >(
            message, Push, AddrType::Unspecified, []( auto & ) {} );
      } );
}

template < class View, class Fill >
MessageBuilder intfAndLabelStack( LspPingAddrType addrType, Fill fill ) {
   MessageBuilder message = reply( 50, LspPingReturnCode::repRouterEgress, 1 );
   message.tlv( Tlv::IntfAndLabelStack, [&] {
      message.view< View >( [&]( View & stack ) {
         stack.addrTypeIs( static_cast< U8 >( addrType ) );
         fill( stack );
      } );
      message.view< Velnet::MplsLabelEntry >( []( Velnet::MplsLabelEntry & entry ) {
         entry.labelIs( 100704 );
         entry.trafficClassIs( 6 );
         entry.bottomOfStackIs( true );
         entry.ttlIs( 255 );
      } );
   } );
   return message;
}

MessageBuilder intfAndLabelStackIpv4() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv4Tlv >(
      LspPingAddrType::ipv4Numbered,
      []( auto & stack ) {
         stack.addrIs( responder );
         stack.intfIs( IpAddr( 10, 0, 1, 2 ) );
      } );
}

MessageBuilder intfAndLabelStackIpv4Unnumbered() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv4UnnumberedTlv >(
      LspPingAddrType::ipv4Unnumbered,
      []( auto & stack ) {
         stack.addrIs( responder );
         stack.intfIdIs( 17 );
      } );
}

MessageBuilder intfAndLabelStackIpv6() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv6Tlv >(
      LspPingAddrType::ipv6Numbered,
      []( auto & stack ) {
         stack.addrIs( ip6( "2001:db8::9" ) );
         stack.intfIs( ip6( "2001:db8:1::2" ) );
      } );
}

MessageBuilder intfAndLabelStackIpv6Unnumbered() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv6UnnumberedTlv >(
      LspPingAddrType::ipv6Unnumbered,
      []( auto & stack ) {
         stack.addrIs( ip6( "2001:db8::9" ) );
         stack.intfIdIs( 18 );
      } );
}

} // namespace

std::vector< MessageBuilder > mappingReplies() {
   return { downstreamMappingIpv4(),
            downstreamMappingIpv4Unnumbered(),
            downstreamMappingIpv6(),
            downstreamMappingIpv6Unnumbered(),
            detailedMappingIpv4(),
            detailedMappingIpv4Unnumbered(),
            detailedMappingIpv6(),
            detailedMappingIpv6Unnumbered(),
            detailedMappingOfAddresses(),
            detailedMappingOfAddressSet(),
            detailedMappingOfLabelSet(),
            fecStackChanges(),
            fecStackChangeOfUnknownPeer(),
            intfAndLabelStackIpv4(),
            intfAndLabelStackIpv4Unnumbered(),
            intfAndLabelStackIpv6(),
            intfAndLabelStackIpv6Unnumbered() };
}

} // namespace Examples
