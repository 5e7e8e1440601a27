#include "examples/EchoMessages.h"

#include <array>

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;
using Velnet::IpAddr;

namespace {

Velnet::IpGenAddr const firstAddress = loopback;

void labels( LspPingOpenElement & element ) {
   using enum LspPingDownstreamSignalingProtocol;
   element.label( 100704, 0, false, numberOf( dsInfoSignalingProtocolLdp ) );
   element.label( 300, 0, true, numberOf( dsInfoSignalingProtocolBgp ) );
}

template < class View, class Fill >
Bytes downstreamMapping( Fill fill ) {
   return written( [&]( Writer & writer ) {
      reply( writer, 30, LspPingReturnCode::labelSwitchedAtStackDep, 1 );
      auto mapping = writer.open< View >( [&]( View & tlv ) {
         tlv.mtuIs( Velnet::NetU16( 1500 ) );
         fill( tlv );
      } );
      mapping.multipathAddresses( { &firstAddress, 1 } );
      labels( mapping );
   } );
}

Bytes downstreamMappingIpv4() {
   return downstreamMapping< LspPingDownstreamMappingIpv4Tlv >( []( auto & mapping ) {
      mapping.dsIpAddrIs( IpAddr( 10, 0, 1, 2 ) );
      mapping.dsIntfAddrIs( IpAddr( 10, 0, 1, 1 ) );
   } );
}

Bytes downstreamMappingIpv4Unnumbered() {
   return downstreamMapping< LspPingDownstreamMappingIpv4UnnumberedTlv >( []( auto & mapping ) {
      mapping.dsIpAddrIs( responder );
      mapping.dsIntfIdIs( 17 );
   } );
}

Bytes downstreamMappingIpv6() {
   return downstreamMapping< LspPingDownstreamMappingIpv6Tlv >( []( auto & mapping ) {
      mapping.dsIpAddrIs( ip6( "2001:db8:1::2" ) );
      mapping.dsIntfAddrIs( ip6( "2001:db8:1::1" ) );
   } );
}

Bytes downstreamMappingIpv6Unnumbered() {
   return downstreamMapping< LspPingDownstreamMappingIpv6UnnumberedTlv >( []( auto & mapping ) {
      mapping.dsIpAddrIs( ip6( "2001:db8::9" ) );
      mapping.dsIntfIdIs( 18 );
   } );
}

void addressRange( Writer & writer ) {
   LspPingMultipath::Item const range{ loopback, IpAddr( 127, 0, 0, 16 ) };
   writer.open< LspPingMultipathSubTlv >().multipathRanges( { &range, 1 } );
}

void labelStack( Writer & writer ) {
   auto stack = writer.open( LspPingDDMappingSubTlvType::LabelStack );
   labels( stack );
}

// The FEC that the responder pushes or pops comes with the sub-TLV.
template < class View, class Fill >
void fecStackChange( Writer & writer, LspPingFecStackChangeSubTlvOperType operation, Fill fill ) {
   auto const change = writer.open< View >( [&]( View & subTlv ) {
      subTlv.operTypeIs( static_cast< U8 >( operation ) );
      fill( subTlv );
   } );
   ldpIpv4( writer, IpAddr( 10, 7, 0, 0 ), 16 );
}

template < class View, class Fill, class SubTlvs >
Bytes detailedMapping( Fill fill, SubTlvs subTlvs ) {
   return written( [&]( Writer & writer ) {
      reply( writer, 40, LspPingReturnCode::seeDdmTlv, 1 );
      auto const mapping = writer.open< View >( [&]( View & tlv ) {
         tlv.mtuIs( 9000 );
         tlv.retCodeIs( numberOf( LspPingReturnCode::labelSwitchedAtStackDep ) );
         tlv.retSubcodeIs( 1 );
         fill( tlv );
      } );
      subTlvs( writer );
   } );
}

void neighbour( LspPingDdmapTlv & mapping ) {
   mapping.dsIpAddrIs( IpAddr( 10, 0, 1, 2 ) );
   mapping.dsIntfAddrIs( IpAddr( 10, 0, 1, 1 ) );
}

// A mapping of a neighbour at 10.0.1.2.
template < class SubTlvs >
Bytes detailedMappingWith( SubTlvs subTlvs ) {
   return detailedMapping< LspPingDdmapTlv >( neighbour, subTlvs );
}

Bytes detailedMappingIpv4() {
   return detailedMappingWith( []( Writer & writer ) {
      labelStack( writer );
      addressRange( writer );
   } );
}

Bytes detailedMappingIpv4Unnumbered() {
   return detailedMapping< LspPingDdmapUnnumberedTlv >(
      []( auto & mapping ) {
         mapping.dsIpAddrIs( responder );
         mapping.dsIntfIdIs( 17 );
      },
      labelStack );
}

Bytes detailedMappingIpv6() {
   return detailedMapping< LspPingDdmapV6Tlv >(
      []( auto & mapping ) {
         mapping.dsIpAddrIs( ip6( "2001:db8:1::2" ) );
         mapping.dsIntfAddrIs( ip6( "2001:db8:1::1" ) );
      },
      []( Writer & writer ) {
         labelStack( writer );
         addressRange( writer );
      } );
}

Bytes detailedMappingIpv6Unnumbered() {
   return detailedMapping< LspPingDdmapV6UnnumberedTlv >(
      []( auto & mapping ) {
         mapping.dsIpAddrIs( ip6( "2001:db8::9" ) );
         mapping.dsIntfIdIs( 18 );
      },
      addressRange );
}

Bytes detailedMappingOfAddresses() {
   return detailedMappingWith( []( Writer & writer ) {
      std::array< Velnet::IpGenAddr, 2 > const addresses{ loopback, IpAddr( 127, 0, 0, 7 ) };
      writer.open< LspPingMultipathSubTlv >().multipathAddresses( addresses );
      labelStack( writer );
   } );
}

// A base and a bit for each address from there on, RFC 8029 section 3.4.1.1.1.
Bytes detailedMappingOfAddressSet() {
   return detailedMappingWith( []( Writer & writer ) {
      labelStack( writer );
      writer.open< LspPingMultipathSubTlv >().multipathSet(
         IpAddr( 127, 2, 1, 0 ), std::array< U8, 4 >{ 0x87, 0xff, 0x0f, 0xfc } );
   } );
}

Bytes detailedMappingOfLabelSet() {
   return detailedMappingWith( []( Writer & writer ) {
      labelStack( writer );
      writer.open< LspPingMultipathSubTlv >().multipathLabels(
         700000, std::array< U8, 4 >{ 0xc0, 0x00, 0x00, 0x01 } );
   } );
}

Bytes fecStackChangeOfUnknownPeer() {
   return detailedMappingWith( []( Writer & writer ) {
      fecStackChange< LspPingFecStackChangeUnspecifiedSubTlv >(
         writer, LspPingFecStackChangeSubTlvOperType::Pop, []( auto & ) {} );
   } );
}

// A responder that tunnels on: one FEC goes, two come.
Bytes fecStackChanges() {
   return detailedMapping< LspPingDdmapTlv >(
      []( auto & mapping ) {
         neighbour( mapping );
         mapping.retCodeIs( numberOf( LspPingReturnCode::lblSwitchedFecChange ) );
      },
      []( Writer & writer ) {
         using enum LspPingFecStackChangeSubTlvOperType;
         fecStackChange< LspPingFecStackChangeV4SubTlv >(
            writer, Pop, []( auto & change ) { change.peerAddrIs( responder ); } );
         fecStackChange< LspPingFecStackChangeV6SubTlv >(
            writer, Push, []( auto & change ) { change.peerAddrIs( ip6( "2001:db8::7" ) ); } );
         fecStackChange< LspPingFecStackChangeUnspecifiedSubTlv >(
            writer, Push, []( auto & ) {} );
      } );
}

template < class View, class Fill >
Bytes intfAndLabelStack( Fill fill ) {
   return written( [&]( Writer & writer ) {
      reply( writer, 50, LspPingReturnCode::repRouterEgress, 1 );
      writer.open< View >( fill ).label( 100704, 6, true, 255 );
   } );
}

Bytes intfAndLabelStackIpv4() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv4Tlv >( []( auto & stack ) {
      stack.addrIs( responder );
      stack.intfIs( IpAddr( 10, 0, 1, 2 ) );
   } );
}

Bytes intfAndLabelStackIpv4Unnumbered() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv4UnnumberedTlv >( []( auto & stack ) {
      stack.addrIs( responder );
      stack.intfIdIs( 17 );
   } );
}

Bytes intfAndLabelStackIpv6() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv6Tlv >( []( auto & stack ) {
      stack.addrIs( ip6( "2001:db8::9" ) );
      stack.intfIs( ip6( "2001:db8:1::2" ) );
   } );
}

Bytes intfAndLabelStackIpv6Unnumbered() {
   return intfAndLabelStack< LspPingIntfAndLabelStackIpv6UnnumberedTlv >( []( auto & stack ) {
      stack.addrIs( ip6( "2001:db8::9" ) );
      stack.intfIdIs( 18 );
   } );
}

} // namespace

std::vector< Bytes > mappingReplies() {
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
