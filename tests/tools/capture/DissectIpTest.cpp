#include "tests/tools/capture/Dissected.h"

using namespace LspPingTool;

// The IP headers bit by bit.
namespace {

constexpr int ipv4Link = 228;
constexpr int ipv6Link = 229;

std::string udpLengthProblem() {
   return "The UDP length is 108, but the packet has 16 bytes for it";
}
std::string fragmentProblem() {
   return "The IP packet is a fragment with 8 of the message's 100 bytes";
}

} // namespace

TEST( DissectIp, readsAnIpv4HeaderOfEveryLength ) {
   for( std::size_t words = 5; words <= 15; ++words ) {
      Bytes packet = ipv4( Bytes( 4 * ( words - 5 ) ) + udp( message ) );
      packet[0] = static_cast< U8 >( 0x40 | words );
      isPlainMessage( Dissected( ipv4Link, packet ) );
   }
}

// Whatever word of the header is taken for the UDP header, it has the port.
TEST( DissectIp, refusesAnIpv4HeaderShorterThanOneIs ) {
   Bytes packet = ipv4( udp( message ) );
   for( std::size_t const at : { 2U, 4U, 10U, 14U, 18U } ) {
      packet[at] = 3503 >> 8;
      packet[at + 1] = 3503 & 0xff;
   }
   isPlainMessage( Dissected( ipv4Link, packet ) );
   for( unsigned words = 0; words < 5; ++words ) {
      packet[0] = static_cast< U8 >( 0x40 | words );
      EXPECT_FALSE( Dissected( ipv4Link, packet ).isMessage ) << words;
   }
}

// What lies behind the captured bytes, or behind the IP packet, looks like a message.
TEST( DissectIp, refusesAnIpv4HeaderThatIsNotAllThere ) {
   Bytes packet = ipv4( Bytes( 40 ) + udp( message ) );
   packet[0] = 0x4f;
   for( std::size_t captured = 0; captured < 60; ++captured ) {
      EchoPacket result;
      Frame const frame{ std::span( packet ).first( captured ), packet.size() };
      EXPECT_FALSE( dissect( ipv4Link, frame, result ) ) << captured;
   }
   isPlainMessage( Dissected( ipv4Link, packet ) );
   for( unsigned length = 1; length < 60; ++length ) {
      packet[3] = static_cast< U8 >( length );
      EXPECT_FALSE( Dissected( ipv4Link, packet ).isMessage ) << length;
   }
}

TEST( DissectIp, refusesEveryOtherVersion ) {
   Bytes four = ipv4( udp( message ) );
   Bytes six = ipv6( 17, udp( message ) );
   for( unsigned version = 0; version < 16; ++version ) {
      four[0] = static_cast< U8 >( version << 4 | 5 );
      six[0] = static_cast< U8 >( version << 4 );
      EXPECT_EQ( Dissected( ipv4Link, four ).isMessage, version == 4 ) << version;
      EXPECT_EQ( Dissected( ipv6Link, six ).isMessage, version == 6 ) << version;
   }
}

TEST( DissectIp, refusesEveryOtherProtocol ) {
   Bytes four = ipv4( udp( message ) );
   for( unsigned protocol = 0; protocol < 256; ++protocol ) {
      four[9] = static_cast< U8 >( protocol );
      EXPECT_EQ( Dissected( ipv4Link, four ).isMessage, protocol == 17 ) << protocol;
      Bytes const six = ipv6( static_cast< U8 >( protocol ), udp( message ) );
      EXPECT_EQ( Dissected( ipv6Link, six ).isMessage, protocol == 17 ) << protocol;
   }
}

TEST( DissectIp, passesOverEveryFragmentButTheFirst ) {
   for( unsigned bit = 0; bit < 13; ++bit ) {
      std::size_t const offset = std::size_t{ 1 } << bit;
      EXPECT_FALSE( Dissected( ipv4Link, ipv4( udp( message ), offset ) ).isMessage ) << bit;
      Bytes const header = Bytes{ 17, 0 } + word( offset << 3 ) + Bytes{ 0, 0, 0, 1 };
      EXPECT_FALSE( Dissected( ipv6Link, ipv6( 44, header + udp( message ) ) ).isMessage ) << bit;
   }
}

// "Do not fragment" and the bits without a meaning do not make one.
TEST( DissectIp, takesForAFragmentOnlyWhatSaysSo ) {
   std::pair< std::size_t, std::string > const flags[] = {
      { 0x0000, udpLengthProblem() },
      { 0x2000, fragmentProblem() },
      { 0x4000, udpLengthProblem() },
      { 0x8000, udpLengthProblem() },
   };
   for( auto const & [bits, problem] : flags ) {
      Dissected const result( ipv4Link, ipv4( udp( message, 108 ), bits ) );
      EXPECT_TRUE( result.isMessage ) << bits;
      EXPECT_EQ( result.packet.problems, ( std::vector< Problem >{ { 8, problem } } ) ) << bits;
   }
   for( std::size_t bits = 0; bits < 8; ++bits ) {
      Bytes const header = Bytes{ 17, 0 } + word( bits ) + Bytes{ 0, 0, 0, 1 };
      Dissected const result( ipv6Link, ipv6( 44, header + udp( message, 108 ) ) );
      std::string const problem = ( bits & 1 ) != 0 ? fragmentProblem() : udpLengthProblem();
      EXPECT_TRUE( result.isMessage ) << bits;
      EXPECT_EQ( result.packet.problems, ( std::vector< Problem >{ { 8, problem } } ) ) << bits;
   }
}

TEST( DissectIp, keepsInMindThatAnOuterHeaderSaidSo ) {
   Bytes const both = Bytes{ 44, 0, 0, 1, 0, 0, 0, 1 } + Bytes{ 17, 0, 0, 0, 0, 0, 0, 2 };
   Dissected const result( ipv6Link, ipv6( 44, both + udp( message, 108 ) ) );
   EXPECT_EQ( result.packet.problems, ( std::vector< Problem >{ { 8, fragmentProblem() } } ) );
}
