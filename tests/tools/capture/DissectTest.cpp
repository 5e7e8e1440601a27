#include "tests/tools/capture/Dissected.h"

using namespace LspPingTool;

namespace {

constexpr int ethernetLink = 1;
constexpr int rawLink = 101;

/// An IPv6 extension header of the length that both of its ways of counting agree on.
Bytes extension( U8 nextHeader, std::initializer_list< U8 > rest ) {
   return Bytes{ nextHeader } + Bytes( rest );
}

} // namespace

TEST( Dissect, readsIpv4OverEthernet ) {
   Dissected result( ethernetLink, ethernet( 0x0800, ipv4( udp( message ) ) ) );
   isPlainMessage( result );
   EXPECT_EQ( result.source(), ( Bytes{ 10, 0, 0, 1 } ) );
   EXPECT_EQ( result.destination(), ( Bytes{ 127, 0, 0, 1 } ) );
   EXPECT_EQ( result.packet.sourcePort, 4529 );
   EXPECT_EQ( result.packet.destinationPort, 3503 );
   EXPECT_TRUE( result.packet.labels.empty() );
   EXPECT_FALSE( result.packet.channelType );
   EXPECT_EQ( result.packet.possiblePadding, 0U );
}

TEST( Dissect, readsIpv6OverEthernet ) {
   Dissected result( ethernetLink, ethernet( 0x86dd, ipv6( 17, udp( message ) ) ) );
   isPlainMessage( result );
   EXPECT_EQ( result.source(),
              ( Bytes{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 } ) );
   EXPECT_EQ( result.destination(),
              ( Bytes{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 127, 0, 0, 1 } ) );
}

TEST( Dissect, takesAReplyByItsSourcePort ) {
   Bytes const reply = word( 3503 ) + word( 4529 ) + word( 16 ) + word( 0 ) + message;
   Dissected result( rawLink, ipv4( reply ) );
   isPlainMessage( result );
   EXPECT_EQ( result.packet.sourcePort, 3503 );
}

TEST( Dissect, passesOverWhatIsNoMessage ) {
   EXPECT_FALSE( Dissected( rawLink, ipv4( udp( message, 16, 3504 ) ) ).isMessage );
   EXPECT_FALSE( Dissected( rawLink, ipv4( udp( {} ) ) ).isMessage );
   Bytes tcp = ipv4( udp( message ) );
   tcp[9] = 6;
   EXPECT_FALSE( Dissected( rawLink, tcp ).isMessage );
   EXPECT_FALSE( Dissected( ethernetLink, ethernet( 0x0806, ipv4( udp( message ) ) ) ).isMessage );
   EXPECT_FALSE( Dissected( ethernetLink, ethernet( 0x86dd, ipv4( udp( message ) ) ) ).isMessage );
   EXPECT_FALSE(
      Dissected( ethernetLink, ethernet( 0x0800, ipv6( 17, udp( message ) ) ) ).isMessage );
}

TEST( Dissect, takesAPayloadOfOneByte ) {
   Dissected result( rawLink, ipv4( udp( { 0x5a } ) ) );
   EXPECT_TRUE( result.isMessage );
   EXPECT_EQ( result.payload(), Bytes{ 0x5a } );
}

TEST( Dissect, passesEveryVlanTag ) {
   Bytes const packet = ipv4( udp( message ) );
   for( std::size_t type : { 0x8100U, 0x88a8U, 0x9100U, 0x9200U } ) {
      isPlainMessage(
         Dissected( ethernetLink, ethernet( type, Bytes{ 0x20, 5 } + word( 0x0800 ) + packet ) ) );
   }
   Bytes const nested = Bytes{ 0, 5 } + word( 0x9100 ) + Bytes{ 0, 6 } + word( 0x8100 ) +
                        Bytes{ 0, 7 } + word( 0x0800 ) + packet;
   isPlainMessage( Dissected( ethernetLink, ethernet( 0x88a8, nested ) ) );
}

TEST( Dissect, readsLinuxCookedVersion1 ) {
   Bytes const header{ 0, 0, 0, 1, 0, 6, 2, 0, 0, 0, 0, 1, 0, 0 };
   isPlainMessage( Dissected( 113, header + word( 0x0800 ) + ipv4( udp( message ) ) ) );
   isPlainMessage(
      Dissected( 113, header + word( 0x8847 ) + bottomLabel + ipv4( udp( message ) ) ) );
}

TEST( Dissect, readsLinuxCookedVersion2 ) {
   Bytes const header{ 0, 0, 0, 0, 0, 3, 0, 1, 0, 6, 2, 0, 0, 0, 0, 1, 0, 0 };
   isPlainMessage( Dissected( 276, word( 0x86dd ) + header + ipv6( 17, udp( message ) ) ) );
}

TEST( Dissect, readsPppWithAndWithoutAddressAndControl ) {
   Bytes const four = ipv4( udp( message ) );
   Bytes const six = ipv6( 17, udp( message ) );
   for( int linkType : { 9, 50 } ) {
      for( Bytes const & start : { Bytes{}, Bytes{ 0xff, 0x03 } } ) {
         isPlainMessage( Dissected( linkType, start + word( 0x0021 ) + four ) );
         isPlainMessage( Dissected( linkType, start + word( 0x0057 ) + six ) );
         isPlainMessage( Dissected( linkType, start + word( 0x0281 ) + bottomLabel + four ) );
         isPlainMessage( Dissected( linkType, start + word( 0x0283 ) + bottomLabel + six ) );
         isPlainMessage( Dissected( linkType, start + Bytes{ 0x21 } + four ) );
      }
      EXPECT_FALSE( Dissected( linkType, word( 0xc021 ) + four ).isMessage );
   }
}

TEST( Dissect, readsHdlcWithAnEtherType ) {
   Bytes const packet = word( 0x8847 ) + bottomLabel + ipv4( udp( message ) );
   isPlainMessage( Dissected( 50, word( 0x0f00 ) + packet ) );
   isPlainMessage( Dissected( 104, word( 0x8f00 ) + packet ) );
}

TEST( Dissect, readsRawIp ) {
   for( int linkType : { 12, 14, 101 } ) {
      isPlainMessage( Dissected( linkType, ipv4( udp( message ) ) ) );
      isPlainMessage( Dissected( linkType, ipv6( 17, udp( message ) ) ) );
   }
   isPlainMessage( Dissected( 228, ipv4( udp( message ) ) ) );
   isPlainMessage( Dissected( 229, ipv6( 17, udp( message ) ) ) );
   EXPECT_FALSE( Dissected( 228, ipv6( 17, udp( message ) ) ).isMessage );
   EXPECT_FALSE( Dissected( 229, ipv4( udp( message ) ) ).isMessage );
}

TEST( Dissect, readsLoopbackInBothByteOrders ) {
   Bytes const four = ipv4( udp( message ) );
   Bytes const six = ipv6( 17, udp( message ) );
   for( int linkType : { 0, 108 } ) {
      isPlainMessage( Dissected( linkType, Bytes{ 2, 0, 0, 0 } + four ) );
      isPlainMessage( Dissected( linkType, Bytes{ 0, 0, 0, 2 } + four ) );
      for( U8 family : { U8{ 10 }, U8{ 24 }, U8{ 28 }, U8{ 30 } } ) {
         isPlainMessage( Dissected( linkType, Bytes{ family, 0, 0, 0 } + six ) );
         isPlainMessage( Dissected( linkType, Bytes{ 0, 0, 0, family } + six ) );
      }
      EXPECT_FALSE( Dissected( linkType, Bytes{ 0, 0, 0, 7 } + four ).isMessage );
   }
}

TEST( Dissect, knowsNoOtherLinkType ) {
   EXPECT_EQ( dissectorOf( 127 ), nullptr );
   EXPECT_EQ( dissectorOf( -1 ), nullptr );
   EXPECT_FALSE( Dissected( 127, ipv4( udp( message ) ) ).isMessage );
}

TEST( Dissect, keepsTheLabelStackFromTheTop ) {
   // Label 16 with TTL 64, the router alert, and label 100704.
   Bytes const stack = Bytes{ 0x00, 0x01, 0x00, 0x40, 0x00, 0x00, 0x1a, 0x01 } + bottomLabel;
   std::vector< Velnet::MplsLabelEntry > const entries{ { 16, 0, false, 64 },
                                                        { 1, 5, false, 1 },
                                                        { 100704, 7, true, 255 } };
   for( std::size_t type : { 0x8847U, 0x8848U } ) {
      Dissected result( ethernetLink, ethernet( type, stack + ipv4( udp( message ) ) ) );
      isPlainMessage( result );
      EXPECT_EQ( result.packet.labels, entries );
   }
   Dissected six( 219, stack + ipv6( 17, udp( message ) ) );
   isPlainMessage( six );
   EXPECT_EQ( six.packet.labels, entries );
}

TEST( Dissect, needsTheBottomOfTheStack ) {
   EXPECT_FALSE( Dissected( 219, { 0x18, 0x96, 0x0e, 0xff } ).isMessage );
   EXPECT_FALSE( Dissected( 219, bottomLabel ).isMessage );
}

TEST( Dissect, readsTheAssociatedChannel ) {
   // The label of the generic associated channel, 13.
   Bytes const gal = Bytes{ 0x00, 0x01, 0x00, 0x40, 0x00, 0x00, 0xd1, 0x01 };
   Dissected four( 219, gal + Bytes{ 0x10, 0, 0, 0x21 } + ipv4( udp( message ) ) );
   isPlainMessage( four );
   EXPECT_EQ( four.packet.channelType, ChannelType::ipv4 );
   EXPECT_EQ( four.packet.labels.back(), Velnet::MplsLabelEntry( 13, 0, true, 1 ) );

   Dissected six( 219, bottomLabel + Bytes{ 0x10, 0, 0, 0x57 } + ipv6( 17, udp( message ) ) );
   isPlainMessage( six );
   EXPECT_EQ( six.packet.channelType, ChannelType::ipv6 );

   Dissected bare( 219, gal + Bytes{ 0x10, 0, 0, 0x25 } + message );
   isPlainMessage( bare );
   EXPECT_EQ( bare.packet.channelType, ChannelType::lspPing );
   EXPECT_TRUE( bare.packet.source.empty() );
   EXPECT_TRUE( bare.packet.destination.empty() );
   EXPECT_FALSE( bare.packet.sourcePort );
   EXPECT_FALSE( bare.packet.destinationPort );
}

TEST( Dissect, passesOverOtherChannels ) {
   EXPECT_FALSE( Dissected( 219, bottomLabel + Bytes{ 0x11, 0, 0, 0x25 } + message ).isMessage );
   EXPECT_FALSE( Dissected( 219, bottomLabel + Bytes{ 0x10, 0, 0, 0x07 } + message ).isMessage );
   EXPECT_FALSE( Dissected( 219, bottomLabel + Bytes{ 0x10, 0, 0, 0x25 } ).isMessage );
}

TEST( Dissect, tellsWhatMayBePaddingBehindABareMessage ) {
   Bytes const bare = bottomLabel + Bytes{ 0x10, 0, 0, 0x25 } + message;
   Bytes padded = ethernet( 0x8847, bare );
   padded.resize( 60 );
   Dissected result( ethernetLink, padded );
   EXPECT_TRUE( result.isMessage );
   EXPECT_EQ( result.packet.claimedLength, 38U );
   EXPECT_EQ( result.packet.possiblePadding, 30U );

   // A frame that was long enough was not padded.
   padded.resize( 65 );
   EXPECT_EQ( Dissected( ethernetLink, padded ).packet.possiblePadding, 0U );
   EXPECT_EQ( Dissected( ethernetLink, ethernet( 0x8847, bare ) ).packet.possiblePadding, 0U );
}

TEST( Dissect, takesNoPaddingForPayload ) {
   Bytes four = ethernet( 0x0800, ipv4( udp( message ) ) );
   four.resize( 60 );
   isPlainMessage( Dissected( ethernetLink, four ) );
   isPlainMessage( Dissected( ethernetLink, ethernet( 0x86dd, ipv6( 17, udp( message ) ) ) +
                                               Bytes{ 1, 2, 3, 4 } ) );
   // The UDP length ends the message also within the IP packet.
   isPlainMessage( Dissected( rawLink, ipv4( udp( message + Bytes{ 9, 9 }, 16 ) ) ) );
}

TEST( Dissect, takesNoPaddingForWhatTheUdpLengthPromises ) {
   std::vector< Problem > const problems{
      { 8, "The UDP length is 30, but the packet has 16 bytes for it" }
   };
   for( Bytes frame : { ethernet( 0x0800, ipv4( udp( message, 30 ) ) ),
                        ethernet( 0x86dd, ipv6( 17, udp( message, 30 ) ) ) } ) {
      frame.resize( frame.size() + 20 );
      Dissected result( ethernetLink, frame );
      EXPECT_TRUE( result.isMessage );
      EXPECT_EQ( result.payload(), message );
      EXPECT_EQ( result.packet.problems, problems );
   }
}

TEST( Dissect, readsIpv4WithOptions ) {
   Bytes packet = ipv4( Bytes{ 0x94, 0x04, 0, 0 } + udp( message ) );
   packet[0] = 0x46;
   isPlainMessage( Dissected( rawLink, packet ) );
}

TEST( Dissect, refusesAnIpv4HeaderOfWrongLength ) {
   Bytes packet = ipv4( udp( message ) );
   packet[0] = 0x44;
   EXPECT_FALSE( Dissected( rawLink, packet ).isMessage );
   packet[0] = 0x4f;
   EXPECT_FALSE( Dissected( rawLink, packet ).isMessage );
   // As many bytes as the header claims, but not here.
   packet[2] = 1;
   EXPECT_FALSE( Dissected( rawLink, packet ).isMessage );
   packet[0] = 0x45;
   packet[2] = 0;
   packet[3] = 19;
   EXPECT_FALSE( Dissected( rawLink, packet ).isMessage );
}

TEST( Dissect, takesAnIpLengthOfZeroForTheRest ) {
   Bytes four = ipv4( udp( message ) );
   four[3] = 0;
   isPlainMessage( Dissected( rawLink, four ) );
   Bytes six = ipv6( 17, udp( message ) );
   six[5] = 0;
   isPlainMessage( Dissected( rawLink, six ) );
}

TEST( Dissect, readsIpv6ExtensionHeaders ) {
   Bytes const datagram = udp( message );
   // A hop-by-hop header with the router alert.
   Bytes const alert = extension( 17, { 0, 5, 2, 0, 69, 1, 0 } );
   isPlainMessage( Dissected( rawLink, ipv6( 0, alert + datagram ) ) );
   Bytes const routing = extension( 17, { 1, 0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8 } );
   isPlainMessage( Dissected( rawLink, ipv6( 43, routing + datagram ) ) );
   Bytes const options = extension( 17, { 0, 1, 4, 0, 0, 0, 0 } );
   isPlainMessage( Dissected( rawLink, ipv6( 60, options + datagram ) ) );
   Bytes const fragment = extension( 17, { 0, 0, 0, 0, 0, 0, 1 } );
   isPlainMessage( Dissected( rawLink, ipv6( 44, fragment + datagram ) ) );
   Bytes const authentication =
      extension( 17, { 4, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12 } );
   isPlainMessage( Dissected( rawLink, ipv6( 51, authentication + datagram ) ) );

   Bytes chained = extension( 60, { 0, 5, 2, 0, 69, 1, 0 } ) +
                   extension( 43, { 0, 1, 4, 0, 0, 0, 0 } ) +
                   extension( 51, { 0, 0, 0, 0, 0, 0, 0 } ) + authentication;
   isPlainMessage( Dissected( rawLink, ipv6( 0, chained + datagram ) ) );
   EXPECT_FALSE( Dissected( rawLink, ipv6( 50, alert + datagram ) ).isMessage );
   EXPECT_FALSE(
      Dissected( rawLink, ipv6( 0, extension( 17, { 255, 5, 2, 0, 69, 1, 0 } ) + datagram ) )
         .isMessage );
}

TEST( Dissect, reportsTheFirstFragmentAndPassesOverTheOthers ) {
   std::vector< Problem > const problems{
      { 8, "The IP packet is a fragment with 8 of the message's 100 bytes" }
   };
   Dissected four( rawLink, ipv4( udp( message, 108 ), 0x2000 ) );
   EXPECT_TRUE( four.isMessage );
   EXPECT_EQ( four.payload(), message );
   EXPECT_EQ( four.packet.claimedLength, 100U );
   EXPECT_EQ( four.packet.problems, problems );
   EXPECT_FALSE( Dissected( rawLink, ipv4( udp( message ), 0x0001 ) ).isMessage );

   Bytes const first = extension( 17, { 0, 0, 1, 0, 0, 0, 1 } );
   Dissected six( rawLink, ipv6( 44, first + udp( message, 108 ) ) );
   EXPECT_TRUE( six.isMessage );
   EXPECT_EQ( six.packet.problems, problems );
   Bytes const second = extension( 17, { 0, 0, 8, 0, 0, 0, 1 } );
   EXPECT_FALSE( Dissected( rawLink, ipv6( 44, second + udp( message ) ) ).isMessage );
}

TEST( Dissect, reportsAUdpLengthBeyondThePacket ) {
   Dissected result( rawLink, ipv4( udp( message, 65535 ) ) );
   EXPECT_TRUE( result.isMessage );
   EXPECT_EQ( result.payload(), message );
   EXPECT_EQ( result.packet.claimedLength, 65527U );
   EXPECT_EQ( result.packet.problems,
              ( std::vector< Problem >{
                 { 8, "The UDP length is 65535, but the packet has 16 bytes for it" } } ) );
}

TEST( Dissect, reportsAUdpLengthBelowTheHeader ) {
   for( std::size_t length : { 0U, 1U, 7U } ) {
      Dissected result( rawLink, ipv4( udp( message, length ) ) );
      EXPECT_TRUE( result.isMessage );
      EXPECT_EQ( result.payload(), message );
      EXPECT_EQ( result.packet.claimedLength, 8U );
      EXPECT_EQ( result.packet.problems,
                 ( std::vector< Problem >{ { 0, "The UDP length is " + std::to_string( length ) +
                                                   ", less than the UDP header" } } ) );
   }
   EXPECT_FALSE( Dissected( rawLink, ipv4( udp( {}, 7 ) ) ).isMessage );
}

TEST( Dissect, leavesNothingOfThePacketBefore ) {
   EchoPacket packet;
   Bytes const labelled = bottomLabel + Bytes{ 0x10, 0, 0, 0x21 } + ipv4( udp( message, 99 ) );
   Bytes const plain = ipv4( udp( message ) );
   EXPECT_TRUE( dissect( 219, { labelled, labelled.size() }, packet ) );
   EXPECT_EQ( packet.problems.size(), 1U );
   EXPECT_TRUE( dissect( rawLink, { plain, plain.size() }, packet ) );
   EXPECT_TRUE( packet.labels.empty() );
   EXPECT_TRUE( packet.problems.empty() );
   EXPECT_FALSE( packet.channelType );
}

namespace {

Bytes const deepPacket =
   ethernet( 0x8100, Bytes{ 0, 5 } + word( 0x8847 ) + bottomLabel + ipv4( udp( message ) ) );
constexpr std::size_t portsEnd = 14 + 4 + 4 + 20 + 4;
constexpr std::size_t headersEnd = portsEnd + 4;

} // namespace

TEST( Dissect, reportsWhatTheCaptureCutsOffAtEveryLength ) {
   ASSERT_EQ( deepPacket.size(), headersEnd + 8 );
   for( std::size_t length = 0; length <= deepPacket.size(); ++length ) {
      SCOPED_TRACE( length );
      Bytes const bytes( deepPacket.begin(), deepPacket.begin() + static_cast< long >( length ) );
      Dissected result( ethernetLink, bytes, deepPacket.size() );
      ASSERT_EQ( result.isMessage, length >= portsEnd );
      if( !result.isMessage )
         continue;
      std::size_t const kept = length > headersEnd ? length - headersEnd : 0;
      EXPECT_EQ( result.packet.claimedLength, 8U );
      EXPECT_EQ( result.payload(),
                 Bytes( message.begin(), message.begin() + static_cast< long >( kept ) ) );
      if( kept == message.size() ) {
         EXPECT_TRUE( result.packet.problems.empty() );
      } else {
         EXPECT_EQ(
            result.packet.problems,
            ( std::vector< Problem >{ { kept, "the capture holds " + std::to_string( kept ) +
                                                 " of the message's 8 bytes" } } ) );
      }
   }
}

TEST( Dissect, reportsWhatWasShortOnTheWireAtEveryLength ) {
   for( std::size_t length = 0; length < deepPacket.size(); ++length ) {
      SCOPED_TRACE( length );
      Bytes const bytes( deepPacket.begin(), deepPacket.begin() + static_cast< long >( length ) );
      Dissected result( ethernetLink, bytes );
      ASSERT_EQ( result.isMessage, length >= headersEnd );
      if( result.isMessage ) {
         std::size_t const kept = length - headersEnd;
         EXPECT_EQ( result.packet.payload.size(), kept );
         EXPECT_EQ( result.packet.problems,
                    ( std::vector< Problem >{ { kept, "The UDP length is 16, but the packet has " +
                                                         std::to_string( kept + 8 ) +
                                                         " bytes for it" } } ) );
      }
   }
}

TEST( Dissect, saysNothingOfACutBehindTheMessage ) {
   Bytes const packet = ethernet( 0x0800, ipv4( udp( message ) ) );
   isPlainMessage( Dissected( ethernetLink, packet, packet.size() + 10 ) );
}

TEST( Dissect, reportsACutMessageWithoutIp ) {
   Dissected result( 219, bottomLabel + Bytes{ 0x10, 0, 0, 0x25 } + message, 100 );
   EXPECT_TRUE( result.isMessage );
   EXPECT_EQ( result.packet.claimedLength, 92U );
   EXPECT_EQ(
      result.packet.problems,
      ( std::vector< Problem >{ { 8, "the capture holds 8 of the message's 92 bytes" } } ) );
}

TEST( Dissect, survivesEveryShorterLengthOfEveryLayer ) {
   std::pair< int, Bytes > const packets[] = {
      { 1, ethernet( 0x86dd,
                     ipv6( 0, extension( 51, { 0, 5, 2, 0, 69, 1, 0 } ) +
                                 extension( 44, { 0, 0, 0, 0, 0, 0, 0 } ) +
                                 extension( 17, { 0, 0, 0, 0, 0, 0, 1 } ) + udp( message ) ) ) },
      { 9, Bytes{ 0xff, 0x03, 0x02, 0x81 } + bottomLabel + Bytes{ 0x10, 0, 0, 0x25 } + message },
      { 50, Bytes{ 0x0f, 0, 0x88, 0x47 } + bottomLabel + ipv6( 17, udp( message ) ) },
      { 0, Bytes{ 2, 0, 0, 0 } + ipv4( udp( message ) ) },
      { 113, Bytes( 14 ) + word( 0x0800 ) + ipv4( udp( message ) ) },
      { 276, word( 0x0800 ) + Bytes( 18 ) + ipv4( udp( message ) ) },
   };
   for( auto const & [linkType, packet] : packets ) {
      EXPECT_TRUE( Dissected( linkType, packet ).isMessage ) << linkType;
      bool wasMessage = false;
      for( std::size_t length = 0; length <= packet.size(); ++length ) {
         Bytes const bytes( packet.begin(), packet.begin() + static_cast< long >( length ) );
         Dissected result( linkType, bytes, packet.size() );
         // Once enough is there to know a message, more does not change it.
         EXPECT_TRUE( result.isMessage || !wasMessage ) << linkType << " " << length;
         wasMessage = result.isMessage;
         EXPECT_EQ( result.packet.problems.empty(), !result.isMessage || length == packet.size() )
            << linkType << " " << length;
      }
   }
}
