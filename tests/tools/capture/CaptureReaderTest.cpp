#include "tools/lspping/capture/CaptureReader.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/tools/capture/Build.h"

using namespace LspPingTool;
using Step = EchoSource::Step;

namespace {

Bytes const packet = ethernet( 0x0800, ipv4( udp( message ) ) );
Bytes const otherPacket = ethernet( 0x0806, Bytes( 28 ) );

/// Asks for one step, which must be an error of this kind and the last thing before the end.
void endsInError( EchoSource & source, ExitStatus status, std::string const & text ) {
   ASSERT_EQ( source.next(), Step::error );
   EXPECT_EQ( source.error().status, status );
   EXPECT_EQ( source.error().message(), text );
   EXPECT_EQ( source.next(), Step::end );
   EXPECT_EQ( source.next(), Step::end );
}

/// Runs as somebody who is not above permissions, where the tests run as root.
class WithoutPrivileges {
 public:
   WithoutPrivileges() {
      if( user_ == 0 )
         isChanged_ = ::seteuid( 65534 ) == 0;
   }
   ~WithoutPrivileges() {
      if( isChanged_ && ::seteuid( user_ ) != 0 )
         std::abort();
   }
   bool isEffective() const { return ::geteuid() != 0; }

 private:
   uid_t user_ = ::geteuid();
   bool isChanged_ = false;
};

/// Eight bytes in the order of a little-endian file.
Bytes littleLong( U64 value ) {
   return little( value & 0xffffffff ) + little( value >> 32 );
}

/// A pcapng section header, one interface of this link type with nanoseconds and this offset to its
/// clock, and one packet.
Bytes pcapng( std::size_t linkType, Bytes const & contents, U64 time = 1'769'860'800'000'001'001,
              std::int64_t offset = 0 ) {
   Bytes const section = little( 0x0a0d0d0a ) + little( 28 ) + little( 0x1a2b3c4d ) +
                         Bytes{ 1, 0, 0, 0 } + Bytes( 8, 0xff ) + little( 28 );
   Bytes const interface = little( 1 ) + little( 44 ) + little( linkType ) + little( 65535 ) +
                           Bytes{ 9, 0, 1, 0, 9, 0, 0, 0 } + Bytes{ 14, 0, 8, 0 } +
                           littleLong( static_cast< U64 >( offset ) ) + little( 0 ) + little( 44 );
   Bytes padded = contents;
   padded.resize( ( contents.size() + 3 ) / 4 * 4 );
   std::size_t const length = 32 + padded.size();
   return section + interface + little( 6 ) + little( length ) + little( 0 ) +
          little( time >> 32 ) + little( time & 0xffffffff ) + little( contents.size() ) +
          little( contents.size() ) + padded + little( length );
}

} // namespace

TEST( CaptureReader, deliversTheMessagesOfAPcapFile ) {
   TemporaryFile file( pcapHeader( 1 ) + pcapRecord( packet ) + pcapRecord( otherPacket ) +
                       pcapRecord( packet, packet.size(), 0xf0000000, 999'999'999 ) );
   CaptureReader reader( file.path() );
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.packet().number, 1U );
   EXPECT_EQ( reader.packet().time, ( TimeStamp{ 1769860800, 1001 } ) );
   EXPECT_EQ( Bytes( reader.packet().payload.begin(), reader.packet().payload.end() ), message );
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.packet().number, 3U );
   EXPECT_EQ( reader.packet().time, ( TimeStamp{ 0xf0000000, 999'999'999 } ) );
   EXPECT_EQ( reader.next(), Step::end );
   EXPECT_EQ( reader.next(), Step::end );
   EXPECT_EQ( reader.bytesTotal(), std::filesystem::file_size( file.path() ) );
   EXPECT_EQ( reader.bytesRead(), reader.bytesTotal() );
}

TEST( CaptureReader, readsMicrosecondsOfEitherByteOrder ) {
   Bytes const littleEndian = Bytes{ 0xd4, 0xc3, 0xb2, 0xa1 } + Bytes{ 2, 0, 4, 0 } + little( 0 ) +
                              little( 0 ) + little( 65535 ) + little( 1 );
   Bytes const bigEndian{ 0xa1, 0xb2, 0xc3, 0xd4, 0, 2, 0,    4,    0, 0, 0, 0,
                          0,    0,    0,    0,    0, 0, 0xff, 0xff, 0, 0, 0, 1 };
   Bytes const bigRecord = Bytes{ 0x69, 0x7d, 0xec, 0xc0, 0, 0, 0, 5 } + word( 0 ) +
                           word( packet.size() ) + word( 0 ) + word( packet.size() ) + packet;
   for( Bytes const & bytes : { littleEndian + pcapRecord( packet, packet.size(), 0x697decc0, 5 ),
                                bigEndian + bigRecord } ) {
      TemporaryFile file( bytes );
      CaptureReader reader( file.path() );
      ASSERT_EQ( reader.next(), Step::message );
      EXPECT_EQ( reader.packet().time, ( TimeStamp{ 0x697decc0, 5000 } ) );
      EXPECT_EQ( reader.next(), Step::end );
   }
}

TEST( CaptureReader, bringsAnyTimeIntoRange ) {
   Bytes header = pcapHeader( 1 );
   TemporaryFile file( header + pcapRecord( packet, packet.size(), 10, 2'000'000'007 ) +
                       pcapRecord( packet, packet.size(), 10, 0xffffffff ) );
   CaptureReader reader( file.path() );
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.packet().time, ( TimeStamp{ 12, 7 } ) );
   // libpcap takes the fraction for signed.
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.packet().time, ( TimeStamp{ 9, 999'999'999 } ) );
}

TEST( CaptureReader, deliversTheMessagesOfAPcapngFile ) {
   TemporaryFile file( pcapng( 1, packet ) );
   CaptureReader reader( file.path() );
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.packet().number, 1U );
   EXPECT_EQ( reader.packet().time, ( TimeStamp{ 1769860800, 1001 } ) );
   EXPECT_EQ( Bytes( reader.packet().payload.begin(), reader.packet().payload.end() ), message );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST( CaptureReader, readsTimesBeforeTheEpochAndAfter32Bits ) {
   auto const timeOf = []( U64 time, std::int64_t offset ) {
      TemporaryFile file( pcapng( 1, packet, time, offset ) );
      CaptureReader reader( file.path() );
      EXPECT_EQ( reader.next(), Step::message );
      return reader.packet().time;
   };
   EXPECT_EQ( timeOf( 1, -1 ), ( TimeStamp{ -1, 1 } ) );
   EXPECT_EQ( timeOf( 0, INT32_MIN ), ( TimeStamp{ INT32_MIN, 0 } ) );
   EXPECT_EQ( timeOf( 2'000'000'003, 2069983296000 ), ( TimeStamp{ 2069983296002, 3 } ) );
   EXPECT_EQ( timeOf( 0, INT64_MIN ), ( TimeStamp{ INT64_MIN, 0 } ) );
   EXPECT_EQ( timeOf( 7, INT64_MAX ), ( TimeStamp{ INT64_MAX, 7 } ) );
}

TEST( CaptureReader, readsEveryKnownLinkTypeOfAFile ) {
   std::pair< std::size_t, Bytes > const packets[] = {
      { 0, Bytes{ 2, 0, 0, 0 } + ipv4( udp( message ) ) },
      { 9, word( 0x0021 ) + ipv4( udp( message ) ) },
      { 50, word( 0xff03 ) + word( 0x0021 ) + ipv4( udp( message ) ) },
      { 101, ipv4( udp( message ) ) },
      { 104, word( 0x0f00 ) + word( 0x0800 ) + ipv4( udp( message ) ) },
      { 108, Bytes{ 0, 0, 0, 2 } + ipv4( udp( message ) ) },
      { 113, Bytes( 14 ) + word( 0x0800 ) + ipv4( udp( message ) ) },
      { 219, bottomLabel + ipv4( udp( message ) ) },
      { 228, ipv4( udp( message ) ) },
      { 229, ipv6( 17, udp( message ) ) },
      { 276, word( 0x0800 ) + Bytes( 18 ) + ipv4( udp( message ) ) },
   };
   for( auto const & [linkType, bytes] : packets ) {
      TemporaryFile file( pcapHeader( linkType ) + pcapRecord( bytes ) );
      CaptureReader reader( file.path() );
      EXPECT_EQ( reader.next(), Step::message ) << linkType;
      EXPECT_EQ( reader.packet().payload.size(), message.size() ) << linkType;
      EXPECT_EQ( reader.next(), Step::end ) << linkType;
   }
}

TEST( CaptureReader, readsStandardInputFromAPipe ) {
   StandardInput input( pipeOf( pcapHeader( 1 ) + pcapRecord( packet ) ) );
   CaptureReader reader( "-" );
   EXPECT_EQ( reader.bytesTotal(), std::nullopt );
   EXPECT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST( CaptureReader, endsWhereAFileWithoutPacketsDoes ) {
   TemporaryFile file( pcapHeader( 1 ) );
   EXPECT_EQ( CaptureReader( file.path() ).next(), Step::end );
}

TEST( CaptureReader, passesOnThatAPacketWasCut ) {
   Bytes const cut( packet.begin(), packet.end() - 3 );
   TemporaryFile file( pcapHeader( 1 ) + pcapRecord( cut, packet.size() ) + pcapRecord( packet ) );
   CaptureReader reader( file.path() );
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_EQ( reader.packet().problems,
              ( std::vector< Problem >{ { 5, "the capture holds 5 of the message's 8 bytes" } } ) );
   ASSERT_EQ( reader.next(), Step::message );
   EXPECT_TRUE( reader.packet().problems.empty() );
}

TEST( CaptureReader, deliversWhatStandsBeforeACut ) {
   Bytes const whole = pcapHeader( 1 ) + pcapRecord( packet );
   Bytes const record = pcapRecord( packet );
   for( std::size_t length = 1; length < record.size(); ++length ) {
      SCOPED_TRACE( length );
      Bytes const part( record.begin(), record.begin() + static_cast< long >( length ) );
      TemporaryFile file( whole + part );
      CaptureReader reader( file.path() );
      ASSERT_EQ( reader.next(), Step::message );
      std::size_t const expected = length < 16 ? 16 : packet.size();
      std::size_t const got = length < 16 ? length : length - 16;
      std::string const what = length < 16 ? " header bytes" : " captured bytes";
      endsInError( reader, exitMalformedInput,
                   file.path() + ": packet 2, byte " + std::to_string( whole.size() + length ) +
                      ": truncated dump file; tried to read " + std::to_string( expected ) + what +
                      ", only got " + std::to_string( got ) );
   }
}

TEST( CaptureReader, tellsWhereAPipeWasCut ) {
   Bytes const whole = pcapHeader( 1 ) + pcapRecord( packet );
   StandardInput input( pipeOf( whole + Bytes( 7 ) ) );
   CaptureReader reader( "-" );
   ASSERT_EQ( reader.next(), Step::message );
   endsInError( reader, exitMalformedInput,
                "standard input: packet 2, byte " + std::to_string( whole.size() + 7 ) +
                   ": truncated dump file; tried to read 16 header bytes, only got 7" );
}

TEST( CaptureReader, tellsWhereAPcapngFileWasCut ) {
   Bytes bytes = pcapng( 1, packet );
   bytes.resize( bytes.size() - 1 );
   TemporaryFile file( bytes );
   CaptureReader reader( file.path() );
   ASSERT_EQ( reader.next(), Step::error );
   EXPECT_EQ( reader.error().status, exitMalformedInput );
   EXPECT_EQ( reader.error().packet, 1U );
   EXPECT_EQ( reader.error().offset, bytes.size() );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST( CaptureReader, tellsWhereARecordIsDamaged ) {
   Bytes const damaged = little( 0 ) + little( 0 ) + little( 0x7fffffff ) + little( 0x7fffffff );
   TemporaryFile file( pcapHeader( 1 ) + pcapRecord( packet ) + damaged + pcapRecord( packet ) );
   CaptureReader reader( file.path() );
   ASSERT_EQ( reader.next(), Step::message );
   ASSERT_EQ( reader.next(), Step::error );
   EXPECT_EQ( reader.error().status, exitMalformedInput );
   EXPECT_EQ( reader.error().packet, 2U );
   EXPECT_EQ( reader.error().offset, 24 + 16 + packet.size() + 16 );
   EXPECT_NE( reader.error().text.find( "2147483647" ), std::string::npos );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST( CaptureReader, failsWithoutAFile ) {
   CaptureReader reader( "/nonexistent/capture.pcap" );
   endsInError( reader, exitFileFailed, "/nonexistent/capture.pcap: No such file or directory" );
}

TEST( CaptureReader, failsOnADirectory ) {
   CaptureReader reader( "/" );
   endsInError( reader, exitFileFailed, "/: Is a directory" );
}

TEST( CaptureReader, failsOnAFileWithoutPermission ) {
   TemporaryFile file( pcapHeader( 1 ) );
   ASSERT_EQ( ::chmod( file.path().c_str(), 0 ), 0 );
   WithoutPrivileges user;
   ASSERT_TRUE( user.isEffective() );
   CaptureReader reader( file.path() );
   endsInError( reader, exitFileFailed, file.path() + ": Permission denied" );
}

TEST( CaptureReader, failsOnADeviceThatCannotBeRead ) {
   StandardInput input( ::open( "/dev/null", O_WRONLY ) );
   CaptureReader reader( "-" );
   endsInError( reader, exitFileFailed, "standard input: Bad file descriptor" );
}

TEST( CaptureReader, failsWhereADeviceDoesInMidFile ) {
   Bytes bytes = pcapHeader( 1 );
   for( int i = 0; i < 2000; ++i )
      bytes = std::move( bytes ) + pcapRecord( packet );
   TemporaryFile file( bytes );
   StandardInput input( ::open( file.path().c_str(), O_RDONLY ) );
   CaptureReader reader( "-" );
   ASSERT_EQ( reader.next(), Step::message );
   StandardInput broken( ::open( "/dev/null", O_WRONLY ) );
   Step step = reader.next();
   while( step == Step::message )
      step = reader.next();
   ASSERT_EQ( step, Step::error );
   EXPECT_EQ( reader.error().status, exitFileFailed );
   EXPECT_EQ( reader.error().packet, reader.packet().number + 1 );
   EXPECT_NE( reader.error().text.find( "Bad file descriptor" ), std::string::npos );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST( CaptureReader, failsOnWhatIsNoCapture ) {
   TemporaryFile text( "This is a text, and no capture at all.\n" );
   CaptureReader reader( text.path() );
   endsInError( reader, exitFileFailed, text.path() + ": not a capture: unknown file format" );
   TemporaryFile empty( Bytes{} );
   CaptureReader emptyReader( empty.path() );
   ASSERT_EQ( emptyReader.next(), Step::error );
   EXPECT_EQ( emptyReader.error().status, exitFileFailed );
   EXPECT_EQ( emptyReader.next(), Step::end );
}

TEST( CaptureReader, failsOnAnUnknownLinkType ) {
   TemporaryFile named( pcapHeader( 127 ) + pcapRecord( packet ) );
   CaptureReader reader( named.path() );
   endsInError( reader, exitFileFailed,
                named.path() + ": unknown link type 127 (IEEE802_11_RADIO)" );
   TemporaryFile unnamed( pcapHeader( 9999 ) + pcapRecord( packet ) );
   CaptureReader other( unnamed.path() );
   endsInError( other, exitFileFailed,
                unnamed.path() + ": unknown link type 9999 (without a name)" );
}

#ifdef LSPPING_CAPTURES
TEST( CaptureReader, findsTheMessagesOfRealRouters ) {
   std::string const folder = LSPPING_CAPTURES;
   std::pair< char const *, int > const files[] = {
      { "tcpdump_lsp-ping-timestamp.pcap", 1 },
      { "tcpdump_lspping-fec-ldp.pcap", 10 },
      { "tcpdump_lspping-fec-rsvp.pcap", 10 },
      { "mpls_ospf.pcapng", 70 },
   };
   for( auto const & [name, messages] : files ) {
      CaptureReader reader( folder + "/" + name );
      int count = 0;
      Step step = reader.next();
      for( ; step == Step::message; step = reader.next() ) {
         ++count;
         EXPECT_TRUE( reader.packet().problems.empty() ) << name;
         EXPECT_GE( reader.packet().payload.size(), 32U ) << name;
      }
      EXPECT_EQ( step, Step::end ) << reader.error().message();
      EXPECT_EQ( count, messages ) << name;
   }
}
#endif
