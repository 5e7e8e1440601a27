#include "tools/lspping/capture/Dissect.h"

#include <algorithm>

namespace LspPingTool {

namespace {

constexpr U16 lspPingPort = 3503;

/// What is left of a packet. A layer that knows its own length narrows it, so that neither padding
/// nor a check sum behind it is taken for its contents.
class Rest {
 public:
   explicit Rest( Frame const & frame )
      : bytes_( frame.bytes ),
        onWire_( std::max( frame.wireLength, frame.bytes.size() ) ) {}

   std::span< U8 const > bytes() const { return bytes_; }
   /// Never less than what was captured.
   std::size_t onWire() const { return onWire_; }
   bool isCut() const { return bytes_.size() < onWire_; }
   bool has( std::size_t count ) const { return count <= bytes_.size(); }

   // The reads and `skip` need `has` of what they take, in network byte order.
   U8 u8( std::size_t at ) const { return bytes_[at]; }
   U16 u16( std::size_t at ) const { return static_cast< U16 >( u8( at ) << 8 | u8( at + 1 ) ); }
   U32 u32( std::size_t at ) const { return U32{ u16( at ) } << 16 | u16( at + 2 ); }

   void skip( std::size_t count ) {
      bytes_ = bytes_.subspan( count );
      onWire_ -= count;
   }

   /// A length beyond the packet narrows nothing: what it takes away is seen further up.
   void narrow( std::size_t length ) {
      onWire_ = std::min( onWire_, length );
      bytes_ = bytes_.first( std::min( bytes_.size(), length ) );
   }

 private:
   std::span< U8 const > bytes_;
   std::size_t onWire_;
};

void cutIsReported( EchoPacket & packet ) {
   packet.problems.push_back(
      { packet.payload.size(), "the capture holds " + std::to_string( packet.payload.size() ) +
                                  " of the message's " + std::to_string( packet.claimedLength ) +
                                  " bytes" } );
}

bool udp( Rest rest, bool isFragment, EchoPacket & packet ) {
   if( !rest.has( 4 ) || ( rest.u16( 0 ) != lspPingPort && rest.u16( 2 ) != lspPingPort ) )
      return false;
   packet.sourcePort = rest.u16( 0 );
   packet.destinationPort = rest.u16( 2 );
   if( !rest.has( 8 ) ) {
      if( rest.onWire() <= 8 )
         return false;
      packet.claimedLength = rest.onWire() - 8;
      cutIsReported( packet );
      return true;
   }
   std::size_t const length = rest.u16( 4 );
   rest.skip( 8 );
   if( length < 8 ) {
      packet.payload = rest.bytes();
      packet.claimedLength = rest.onWire();
      if( rest.onWire() == 0 )
         return false;
      packet.problems.push_back(
         { 0, "The UDP length is " + std::to_string( length ) + ", less than the UDP header" } );
      if( rest.isCut() )
         cutIsReported( packet );
      return true;
   }
   packet.claimedLength = length - 8;
   std::size_t const carried = rest.onWire();
   rest.narrow( packet.claimedLength );
   packet.payload = rest.bytes();
   if( packet.claimedLength > carried ) {
      packet.problems.push_back(
         { packet.payload.size(),
           isFragment ? "The IP packet is a fragment with " + std::to_string( carried ) +
                           " of the message's " + std::to_string( packet.claimedLength ) + " bytes"
                      : "The UDP length is " + std::to_string( length ) + ", but the packet has " +
                           std::to_string( carried + 8 ) + " bytes for it" } );
   }
   if( rest.isCut() )
      cutIsReported( packet );
   return packet.claimedLength != 0;
}

/// RFC 791.
bool ipv4( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 20 ) || rest.u8( 0 ) >> 4 != 4 )
      return false;
   std::size_t const headerLength = ( rest.u8( 0 ) & 0x0fU ) * std::size_t{ 4 };
   // 0 where the network card was to split the packet: then it goes as far as the frame does.
   std::size_t const totalLength = rest.u16( 2 );
   unsigned const fragment = rest.u16( 6 );
   bool const hasPorts = rest.u8( 9 ) == 17 && ( fragment & 0x1fffU ) == 0;
   if( headerLength < 20 || !rest.has( headerLength ) || !hasPorts ||
       ( totalLength != 0 && totalLength < headerLength ) )
      return false;
   packet.source = rest.bytes().subspan( 12, 4 );
   packet.destination = rest.bytes().subspan( 16, 4 );
   if( totalLength != 0 )
      rest.narrow( totalLength );
   rest.skip( headerLength );
   return udp( rest, ( fragment & 0x2000U ) != 0, packet );
}

/// RFC 8200; extension headers until UDP is met.
bool ipv6( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 40 ) || rest.u8( 0 ) >> 4 != 6 )
      return false;
   // 0 in a jumbogram, which is too long for a UDP length that counts.
   std::size_t const payloadLength = rest.u16( 4 );
   U8 nextHeader = rest.u8( 6 );
   packet.source = rest.bytes().subspan( 8, 16 );
   packet.destination = rest.bytes().subspan( 24, 16 );
   rest.skip( 40 );
   if( payloadLength != 0 )
      rest.narrow( payloadLength );
   bool isFragment = false;
   while( nextHeader != 17 ) {
      if( !rest.has( 8 ) )
         return false;
      std::size_t length = 8;
      switch( nextHeader ) {
      case 0:  // hop-by-hop options: the router alert
      case 43: // routing
      case 60: // destination options
         length = ( rest.u8( 1 ) + 1U ) * std::size_t{ 8 };
         break;
      case 44: // fragment
         if( rest.u16( 2 ) >> 3 != 0 )
            return false;
         isFragment = isFragment || ( rest.u16( 2 ) & 1 ) != 0;
         break;
      case 51: // authentication header, RFC 4302 section 2.2: counts words, less two
         length = ( rest.u8( 1 ) + 2U ) * std::size_t{ 4 };
         break;
      default:
         return false;
      }
      if( !rest.has( length ) )
         return false;
      nextHeader = rest.u8( 0 );
      rest.skip( length );
   }
   return udp( rest, isFragment, packet );
}

/// The header of RFC 4385 section 5 and RFC 5586 section 2.1: nibble 1, version 0, reserved, type.
bool associatedChannel( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 4 ) || rest.u8( 0 ) != 0x10 )
      return false;
   auto const type = static_cast< ChannelType >( rest.u16( 2 ) );
   packet.channelType = type;
   rest.skip( 4 );
   switch( type ) {
   case ChannelType::ipv4:
      return ipv4( rest, packet );
   case ChannelType::ipv6:
      return ipv6( rest, packet );
   case ChannelType::lspPing:
      packet.payload = rest.bytes();
      packet.claimedLength = rest.onWire();
      if( rest.isCut() )
         cutIsReported( packet );
      return packet.claimedLength != 0;
   }
   return false;
}

/// What nothing but its first four bits describes.
bool byFirstNibble( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 1 ) )
      return false;
   switch( rest.u8( 0 ) >> 4 ) {
   case 4:
      return ipv4( rest, packet );
   case 6:
      return ipv6( rest, packet );
   default:
      return false;
   }
}

bool mpls( Rest rest, EchoPacket & packet ) {
   for( bool isBottom = false; !isBottom; rest.skip( 4 ) ) {
      if( !rest.has( 4 ) )
         return false;
      isBottom = packet.labels.emplace_back( rest.u32( 0 ) ).bottomOfStack();
   }
   return associatedChannel( rest, packet ) || byFirstNibble( rest, packet );
}

bool byEtherType( Rest rest, U16 type, EchoPacket & packet ) {
   // A frame is filled up to 64 bytes with its check sum, of which the header has 14. The check sum
   // is seldom kept, but a tag that the card took out may leave as much behind.
   bool const mayBePadded = rest.onWire() <= 50 && !rest.isCut();
   while( type == 0x8100 || type == 0x88a8 || type == 0x9100 || type == 0x9200 ) {
      if( !rest.has( 4 ) )
         return false;
      type = rest.u16( 2 );
      rest.skip( 4 );
   }
   switch( type ) {
   case 0x0800:
      return ipv4( rest, packet );
   case 0x86dd:
      return ipv6( rest, packet );
   case 0x8847:
   case 0x8848:
      if( !mpls( rest, packet ) )
         return false;
      if( mayBePadded && packet.channelType == ChannelType::lspPing ) {
         auto const last = std::find_if( packet.payload.rbegin(), packet.payload.rend(),
                                         []( U8 byte ) { return byte != 0; } );
         packet.possiblePadding = static_cast< std::size_t >( last - packet.payload.rbegin() );
      }
      return true;
   default:
      return false;
   }
}

bool ethernet( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 14 ) )
      return false;
   U16 const type = rest.u16( 12 );
   rest.skip( 14 );
   return byEtherType( rest, type, packet );
}

/// Linux cooked, version 1: the protocol ends the header.
bool linuxCooked( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 16 ) )
      return false;
   U16 const type = rest.u16( 14 );
   rest.skip( 16 );
   return byEtherType( rest, type, packet );
}

/// Version 2: the protocol begins it.
bool linuxCooked2( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 20 ) )
      return false;
   U16 const type = rest.u16( 0 );
   rest.skip( 20 );
   return byEtherType( rest, type, packet );
}

/// RFC 1661 and RFC 1662, with or without address and control; or, by another address, the HDLC of
/// some vendors with an Ethernet type.
bool ppp( Rest rest, EchoPacket & packet ) {
   if( rest.has( 4 ) && ( rest.u16( 0 ) == 0x0f00 || rest.u16( 0 ) == 0x8f00 ) ) {
      U16 const type = rest.u16( 2 );
      rest.skip( 4 );
      return byEtherType( rest, type, packet );
   }
   if( rest.has( 2 ) && rest.u16( 0 ) == 0xff03 )
      rest.skip( 2 );
   if( !rest.has( 2 ) )
      return false;
   // A protocol may be compressed to its last byte, which is odd as no first byte is (RFC 1661
   // section 6.5).
   bool const isCompressed = ( rest.u8( 0 ) & 1 ) != 0;
   unsigned const protocol = isCompressed ? rest.u8( 0 ) : rest.u16( 0 );
   rest.skip( isCompressed ? 1 : 2 );
   switch( protocol ) {
   case 0x0021:
      return ipv4( rest, packet );
   case 0x0057:
      return ipv6( rest, packet );
   case 0x0281:
   case 0x0283:
      return mpls( rest, packet );
   default:
      return false;
   }
}

/// An address family in the byte order of whoever captured, so the first or the last byte tells:
/// 2 is IPv4 everywhere, and IPv6 has a number in each system.
bool loopback( Rest rest, EchoPacket & packet ) {
   if( !rest.has( 4 ) )
      return false;
   U32 const family = rest.u32( 0 );
   rest.skip( 4 );
   switch( ( family & 0xffffU ) != 0 ? family : family >> 24 ) {
   case 2:
      return ipv4( rest, packet );
   case 10:
   case 24:
   case 28:
   case 30:
      return ipv6( rest, packet );
   default:
      return false;
   }
}

template < bool ( *layer )( Rest, EchoPacket & ) >
bool from( Frame const & frame, EchoPacket & packet ) {
   packet.source = {};
   packet.destination = {};
   packet.sourcePort.reset();
   packet.destinationPort.reset();
   packet.labels.clear();
   packet.channelType.reset();
   packet.payload = {};
   packet.claimedLength = 0;
   packet.possiblePadding = 0;
   packet.problems.clear();
   return layer( Rest( frame ), packet );
}

struct LinkType {
   int number;
   Dissector dissector;
};

constexpr LinkType linkTypes[] = {
   { 0, from< loopback > },       // NULL
   { 1, from< ethernet > },       // EN10MB
   { 9, from< ppp > },            // PPP
   { 12, from< byFirstNibble > }, // RAW; its number differs between systems
   { 14, from< byFirstNibble > },
   { 50, from< ppp > }, // PPP_SERIAL
   { 101, from< byFirstNibble > },
   { 104, from< ppp > },          // C_HDLC
   { 108, from< loopback > },     // LOOP
   { 113, from< linuxCooked > },  // LINUX_SLL
   { 219, from< mpls > },         // MPLS
   { 228, from< ipv4 > },         // IPV4
   { 229, from< ipv6 > },         // IPV6
   { 276, from< linuxCooked2 > }, // LINUX_SLL2
};

} // namespace

Dissector dissectorOf( int linkType ) noexcept {
   for( LinkType const & row : linkTypes )
      if( row.number == linkType )
         return row.dissector;
   return nullptr;
}

bool dissect( int linkType, Frame const & frame, EchoPacket & packet ) {
   Dissector const dissector = dissectorOf( linkType );
   return dissector != nullptr && dissector( frame, packet );
}

} // namespace LspPingTool
