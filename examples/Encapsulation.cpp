#include "examples/Encapsulation.h"

#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"

#include <algorithm>

namespace Examples {

namespace {

// The headers below are views like the library's: their members are the bytes.
struct UdpHeader {
   Velnet::NetU16 source;
   Velnet::NetU16 destination;
   Velnet::NetU16 length;
   Velnet::NetU16 checksum;
};
static_assert( sizeof( UdpHeader ) == 8 && alignof( UdpHeader ) == 1 );

struct Ipv4Header {
   U8 versionAndWords = 0;
   U8 trafficClass = 0;
   Velnet::NetU16 length;
   Velnet::NetU16 id;
   Velnet::NetU16 fragment;
   U8 ttl = 0;
   U8 protocol = 0;
   Velnet::NetU16 checksum;
   Velnet::IpAddr source;
   Velnet::IpAddr destination;
};
static_assert( sizeof( Ipv4Header ) == 20 && alignof( Ipv4Header ) == 1 );

struct Ipv6Header {
   Velnet::NetU32 versionClassFlow;
   Velnet::NetU16 payloadLength;
   U8 nextHeader = 0;
   U8 hopLimit = 0;
   Velnet::Ip6Addr source;
   Velnet::Ip6Addr destination;
};
static_assert( sizeof( Ipv6Header ) == 40 && alignof( Ipv6Header ) == 1 );

constexpr U8 udp = 17;

void append( Bytes & bytes, std::span< U8 const > more ) {
   std::size_t const end = bytes.size();
   bytes.resize( end + more.size() );
   std::copy( more.begin(), more.end(), bytes.data() + end );
}

// A header of alignment 1: its members are the bytes.
template < class Header >
requires( alignof( Header ) == 1 ) void append( Bytes & bytes, Header const & header ) {
   append( bytes, std::span( reinterpret_cast< U8 const * >( &header ), sizeof header ) );
}

// RFC 1071, over an odd number of bytes too.
U32 sumOf( std::span< U8 const > bytes, U32 sum = 0 ) {
   for( std::size_t i = 0; i < bytes.size(); ++i )
      sum += U32{ bytes[i] } << ( i % 2 == 0 ? 8 : 0 );
   return sum;
}

Velnet::NetU16 checksum( U32 sum ) {
   while( sum >> 16 != 0 )
      sum = ( sum & 0xffff ) + ( sum >> 16 );
   return Velnet::NetU16( static_cast< U16 >( ~sum ) );
}

// The datagram, and its checksum with the two addresses.
template < class Address >
Bytes datagram( Address const & source, Address const & destination, U16 sourcePort,
                U16 destinationPort, std::span< U8 const > payload ) {
   UdpHeader header;
   auto const length = static_cast< U16 >( sizeof header + payload.size() );
   header.source.valueIs( sourcePort );
   header.destination.valueIs( destinationPort );
   header.length.valueIs( length );
   Bytes bytes;
   append( bytes, header );
   append( bytes, payload );
   U32 const pseudo = sumOf( source.bytes(), sumOf( destination.bytes(), U32{ udp } + length ) );
   Velnet::NetU16 sum = checksum( sumOf( bytes, pseudo ) );
   if( sum.value() == 0 )
      sum.valueIs( 0xffff ); // zero would mean that there is none
   auto const * from = reinterpret_cast< U8 const * >( &sum );
   std::copy( from, from + sizeof sum, bytes.begin() + offsetof( UdpHeader, checksum ) );
   return bytes;
}

} // namespace

Bytes ipv4( Velnet::IpAddr source, Velnet::IpAddr destination, U16 sourcePort, U16 destinationPort,
            RouterAlert alert, U8 ttl, std::span< U8 const > payload ) {
   static constexpr std::array< U8, 4 > routerAlert{ 0x94, 4, 0, 0 };
   std::span< U8 const > const options =
      alert == RouterAlert::yes ? std::span< U8 const >( routerAlert ) : std::span< U8 const >();
   Bytes const carried = datagram( source, destination, sourcePort, destinationPort, payload );
   std::size_t const headerSize = sizeof( Ipv4Header ) + options.size();
   Ipv4Header header;
   header.versionAndWords = static_cast< U8 >( 4 << 4 | headerSize / 4 );
   header.length.valueIs( static_cast< U16 >( headerSize + carried.size() ) );
   header.ttl = ttl;
   header.protocol = udp;
   header.source = source;
   header.destination = destination;
   Bytes bytes;
   append( bytes, header );
   append( bytes, options );
   header.checksum = checksum( sumOf( bytes ) );
   bytes.clear();
   append( bytes, header );
   append( bytes, options );
   append( bytes, carried );
   return bytes;
}

Bytes ipv6( Velnet::Ip6Addr source, Velnet::Ip6Addr destination, U16 sourcePort,
            U16 destinationPort, std::span< U8 const > payload ) {
   Bytes const carried = datagram( source, destination, sourcePort, destinationPort, payload );
   Ipv6Header header;
   header.versionClassFlow.valueIs( 6u << 28 );
   header.payloadLength.valueIs( static_cast< U16 >( carried.size() ) );
   header.nextHeader = udp;
   header.hopLimit = requestTtl;
   header.source = source;
   header.destination = destination;
   Bytes bytes;
   append( bytes, header );
   append( bytes, carried );
   return bytes;
}

Bytes associatedChannel( U16 channelType, std::span< U8 const > message ) {
   Bytes bytes;
   append( bytes, Velnet::NetU32( 1u << 28 | channelType ) );
   append( bytes, message );
   return bytes;
}

Bytes mpls( std::initializer_list< Label > labels, std::span< U8 const > payload ) {
   Bytes bytes;
   for( Label const & label : labels ) {
      Velnet::MplsLabelEntry entry;
      entry.labelIs( label.label );
      entry.bottomOfStackIs( &label == labels.end() - 1 );
      entry.ttlIs( label.ttl );
      append( bytes, Velnet::NetU32( entry.word() ) );
   }
   append( bytes, payload );
   return bytes;
}

Bytes ethernet( EtherType type, std::initializer_list< U16 > vlans,
                std::span< U8 const > payload ) {
   // Locally administered addresses.
   static constexpr std::array< U8, 12 > addresses{ 2, 0, 0, 0, 0, 2, 2, 0, 0, 0, 0, 1 };
   constexpr std::size_t shortestFrame = 60;
   Bytes bytes( addresses.begin(), addresses.end() );
   for( U16 const vlan : vlans ) {
      append( bytes, Velnet::NetU16( static_cast< U16 >( EtherType::vlan ) ) );
      append( bytes, Velnet::NetU16( vlan ) );
   }
   append( bytes, Velnet::NetU16( static_cast< U16 >( type ) ) );
   append( bytes, payload );
   bytes.resize( std::max( bytes.size(), shortestFrame ) );
   return bytes;
}

} // namespace Examples
