#include "examples/RegistryValues.h"

#include <array>

namespace Examples {

using namespace LspPing;
using Fec = LspPingTargetFecSubTlvType;
using MoreFec = LspPingExtTargetFecSubTlvType;
using Opaque = LspPingExtOpaqueValueType;
using Tlv = LspPingExtTlvType;
using NextHop = LspPingProxySubTlvType;
using Oam = LspPingOamFunctionSubTlvType;

namespace {

U8 digit( char c ) {
   return static_cast< U8 >( c <= '9' ? c - '0' : c - 'a' + 10 );
}

template < class Address >
void append( Bytes & bytes, Address const & address ) {
   // An address is the bytes that are sent.
   auto const * const first = reinterpret_cast< U8 const * >( &address );
   bytes.insert( bytes.end(), first, first + sizeof address );
}

Bytes bytesOf( std::string_view text ) {
   Bytes bytes;
   while( !text.empty() ) {
      std::string_view const word = text.substr( 0, text.find( ' ' ) );
      text.remove_prefix( std::min( word.size() + 1, text.size() ) );
      if( word.find( ':' ) != word.npos )
         append( bytes, Velnet::Ip6Addr::fromText( word ).value() );
      else if( word.find( '.' ) != word.npos )
         append( bytes, Velnet::IpAddr::fromText( word ).value() );
      else
         for( std::size_t i = 0; i < word.size(); i += 2 )
            bytes.push_back( static_cast< U8 >( digit( word[i] ) << 4 | digit( word[i + 1] ) ) );
   }
   return bytes;
}

constexpr std::array fecs{
   Value( Fec::LDPIpv6, "2001:db8:2:: 30" ),
   Value( Fec::RSVPIpv6Lsp, "2001:db8::9 0000 0007 2001:db8::1 2001:db8::1 0000 0015" ),
   Value( Fec::L2VPNEndpoint, "0000006400000001 0002 0003 0005" ),
   Value( MoreFec::FEC128PseudowireDeprecated, "10.0.0.9 000003e9 0005" ),
   Value( MoreFec::RSVPP2MPIpv6, "0a000009 0000 0007 2001:db8::1 2001:db8::1 0000 0015" ),
   Value( MoreFec::StaticLsp, "00000064 0a000001 0007 0015 00000064 0a000009 0008 0000" ),
   Value( MoreFec::StaticPseudowire,
          "0000000000000065 00000064 0a000001 00000007 00000064 0a000009 00000008" ),
   Value( MoreFec::FEC128PseudowireIpv6, "2001:db8::1 2001:db8::9 000003e9 0005" ),
   Value( MoreFec::RSVPIpv4Tunnel, "10.0.0.9 0001 0007 10.0.0.1 10.0.0.1" ),
   Value( MoreFec::RSVPIpv6Tunnel, "2001:db8::9 0002 0007 2001:db8::1 2001:db8::1" ),
   Value( MoreFec::StaticTunnel, "00000064 0a000001 00000064 0a000009 0007 0008 0002 0000" ),
   Value( MoreFec::MTLDPIpv4, "10.1.2.0 18 00 0002" ),
   Value( MoreFec::MTLDPIpv6, "2001:db8:2:: 30 00 0002" ),
   // An adjacency by its type and protocol: unnumbered, parallel, IPv4 and IPv6.
   Value( MoreFec::IgpAdjacency, "00 01 0000 00000011 00000012 10.0.0.1 10.0.0.9" ),
   Value( MoreFec::IgpAdjacency, "01 00 0000 10.0.1.1 10.0.1.2 10.0.0.1 10.0.0.9" ),
   Value( MoreFec::IgpAdjacency, "04 01 0000 10.0.1.1 10.0.1.2 10.0.0.1 10.0.0.9" ),
   Value( MoreFec::IgpAdjacency, "04 02 0000 10.0.1.1 10.0.1.2 000000000001 000000000009" ),
   Value( MoreFec::IgpAdjacency, "06 01 0000 2001:db8:1::1 2001:db8:1::2 10.0.0.1 10.0.0.9" ),
   Value( MoreFec::IgpAdjacency,
          "06 02 0000 2001:db8:1::1 2001:db8:1::2 000000000001 000000000009" ),
   // The length of the root's address in bytes, and in bits.
   Value( MoreFec::P2mpPseudowire, "01 08 0000006400000001 04 10.0.0.1" ),
   Value( MoreFec::P2mpPseudowire, "01 00 80 2001:db8::1" ),
   Value( MoreFec::PeerAdjSid, "01 00 0000 0000fde9 0000fdea 10.0.0.1 10.0.0.9 10.0.1.1 10.0.1.2" ),
   Value( MoreFec::PeerAdjSid,
          "02 00 0000 0000fde9 0000fdea 10.0.0.1 10.0.0.9 2001:db8:1::1 2001:db8:1::2" ),
   Value( MoreFec::PeerNodeSid, "0000fde9 0000fdea 10.0.0.1 10.0.0.9" ),
   Value( MoreFec::PeerSetSid, "0000fde9 10.0.0.1 0002 0000 0000fdea 10.0.0.9 0000fdeb 10.0.0.10" ),
   Value( MoreFec::SrP2mpPolicy, "0001 04 00 10.0.0.1 00000064 0001" ),
   Value( MoreFec::SrP2mpPolicy, "0002 10 00 2001:db8::1 00000064 0001" ),
   Value( MoreFec::EvpnMacIp,
          "0000006400000001 0000000a 00010203040506070809 00 30 001c73000001 00 00" ),
   Value( MoreFec::EvpnMacIp,
          "0000006400000001 0000000a 00010203040506070809 00 30 001c73000001 00 20 10.1.2.3" ),
   Value( MoreFec::EvpnMacIp,
          "0000006400000001 0000000a 00010203040506070809 00 30 001c73000001 00 80 2001:db8:2::3" ),
   Value( MoreFec::EvpnInclusiveMulticast, "0000006400000001 0000000a 20 10.0.0.9" ),
   Value( MoreFec::EvpnInclusiveMulticast, "0000006400000001 0000000a 80 2001:db8::9" ),
   Value( MoreFec::EvpnEthernetAd, "0000006400000001 ffffffff 00010203040506070809 0000" ),
   Value( MoreFec::EvpnIpPrefix,
          "0000006400000001 0000000a 00000000000000000000 00 18 10.1.2.0 10.0.0.9" ),
   Value( MoreFec::EvpnIpPrefix,
          "0000006400000001 0000000a 00000000000000000000 00 30 2001:db8:2:: 2001:db8::9" ),
   Value( MoreFec::SrPolicyIpv4, "10.0.0.1 00000064 10.0.0.9" ),
   Value( MoreFec::SrCandidatePathIpv4,
          "10.0.0.1 00000064 10.0.0.9 14 00 0000 0000fde9 2001:db8::1 00000001" ),
   Value( MoreFec::SrSegmentListIpv4,
          "10.0.0.1 00000064 10.0.0.9 14 00 0000 0000fde9 2001:db8::1 00000001 00000007" ),
   Value( MoreFec::SrPolicyIpv6, "2001:db8::1 00000064 2001:db8::9" ),
   Value( MoreFec::SrCandidatePathIpv6,
          "2001:db8::1 00000064 2001:db8::9 1e 00 0000 0000fde9 2001:db8::1 00000001" ),
   Value( MoreFec::SrSegmentListIpv6,
          "2001:db8::1 00000064 2001:db8::9 1e 00 0000 0000fde9 2001:db8::1 00000001 00000007" ),
};

constexpr std::array segmentFecs{
   Value( MoreFec::SegmentLabel, "00 00 0000 189601ff" ),
};

constexpr std::array values{
   Value( Opaque::SGIpv6, "2001:db8::11 ff3e::1" ),
   Value( Opaque::BidirIpv4, "08 10.0.0.5 239.0.0.0" ),
   Value( Opaque::BidirIpv6, "10 2001:db8::5 ff0e::" ),
   Value( Opaque::VpnSGIpv4, "192.0.2.17 232.1.1.1 0000006400000001" ),
   Value( Opaque::VpnSGIpv6, "2001:db8::11 ff3e::1 0000006400000001" ),
   Value( Opaque::VpnBidirIpv4, "08 10.0.0.5 239.0.0.0 0000006400000001" ),
   Value( Opaque::VpnBidirIpv6, "10 2001:db8::5 ff0e:: 0000006400000001" ),
};

constexpr std::array ofRequests{
   Value( Tlv::LsrCapability, "00000003" ),
   Value( LspPingTlvType::VendorEnterpriseNum, "00000009" ),
   Value( Tlv::SourceId, "00000064 0a000001" ),
   Value( Tlv::DestinationId, "00000064 0a000009" ),
   Value( Tlv::BfdDiscriminator, "00000011" ),
   Value( Tlv::ReplyTc, "c0000000" ),
   Value( Tlv::TimeToLive, "ff 00 0001" ),
   Value( Tlv::ReplyModeOrder, "05 02 04" ),
   Value( Tlv::VendorPrivate, "00000009 010203" ),
   // The relays: none yet but for the initiator, and two of them.
   Value( Tlv::RelayNodeAddressStack, "c000 00 00 0000 0001 01 80 0000 10.0.0.1" ),
   Value( Tlv::RelayNodeAddressStack,
          "c000 01 00 10.0.0.9 0000 0003 00 00 0000 02 00 0000 2001:db8::5 01 80 0000 10.0.0.1" ),
};

constexpr std::array ofReplies{
   Value( Tlv::UpstreamNeighborAddress, "01 01 0000 10.0.1.1 10.0.1.2" ),
   Value( Tlv::UpstreamNeighborAddress, "00 00 0000" ),
   Value( Tlv::DownstreamNeighborAddress, "03 01 0000 2001:db8:1::2 10.0.1.1" ),
};

constexpr std::array hops{
   Value( NextHop::NextHop, "01 000000 10.0.1.2 10.0.1.1" ),
   Value( NextHop::NextHop, "02 000000 10.0.0.9 00000011" ),
   Value( NextHop::NextHop, "03 000000 2001:db8:1::2 2001:db8:1::1" ),
   Value( NextHop::NextHop, "04 000000 2001:db8::9 00000012" ),
   Value( NextHop::NextHop, "06 000000 10.0.1.2" ),
   Value( NextHop::NextHop, "07 000000 2001:db8:1::2" ),
};

constexpr std::array inBfd{
   Value( Oam::BfdLocalDiscriminator, "00000011" ),
   Value( Oam::BfdNegotiationTimers, "00002710 00002710 00000000" ),
   Value( Oam::BfdAuthentication, "05 01 0000" ),
   Value( Oam::TrafficClass, "c0000000" ),
};

constexpr std::array inPerformance{
   Value( Oam::PmLossMeasurement, "30000000 00000064 000003e8 00000005" ),
   Value( Oam::PmDelayMeasurement, "68000000 00000064 000003e8 0000000a" ),
};

constexpr std::array inFault{
   Value( Oam::TrafficClass, "e0000000" ),
};

} // namespace

void add( Writer & writer, Value const & value ) {
   writer.add( value.context, value.code, bytesOf( value.text ) );
}

std::span< Value const > registryFecs() {
   return fecs;
}

std::span< Value const > segments() {
   return segmentFecs;
}

std::span< Value const > opaqueValues() {
   return values;
}

std::span< Value const > requestTlvs() {
   return ofRequests;
}

std::span< Value const > replyTlvs() {
   return ofReplies;
}

std::span< Value const > nextHops() {
   return hops;
}

std::span< Value const > bfdValues() {
   return inBfd;
}

std::span< Value const > performanceValues() {
   return inPerformance;
}

std::span< Value const > faultValues() {
   return inFault;
}

} // namespace Examples
