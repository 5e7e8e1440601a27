#include "tools/lspping/capture/CaptureReader.h"

#include <cerrno>
#include <cstdio>
#include <pcap/pcap.h>
#include <utility>

#include "tools/lspping/io/Diagnostics.h"

namespace LspPingTool {

namespace {

constexpr std::size_t bufferSize = 65536;

ssize_t readInput( void * input, char * buffer, std::size_t size ) {
   return static_cast< InputFile * >( input )->read( buffer, size );
}

/// Tells the position only, so that a pipe has one too.
int positionOfInput( void * input, off64_t * offset, int whence ) {
   if( whence != SEEK_CUR || *offset != 0 ) {
      errno = ESPIPE;
      return -1;
   }
   *offset = static_cast< off64_t >( static_cast< InputFile * >( input )->bytesRead() );
   return 0;
}

/// A stream over an input that stays its owner's.
std::FILE * streamOver( InputFile & input, char * buffer ) {
   cookie_io_functions_t functions{};
   functions.read = readInput;
   functions.seek = positionOfInput;
   std::FILE * stream = ::fopencookie( &input, "r", functions );
   if( stream != nullptr )
      static_cast< void >( std::setvbuf( stream, buffer, _IOFBF, bufferSize ) );
   return stream;
}

std::string linkTypeText( int linkType ) {
   char const * name = ::pcap_datalink_val_to_name( linkType );
   return std::to_string( linkType ) + " (" + ( name != nullptr ? name : "without a name" ) + ")";
}

/// At nanosecond precision `tv_usec` holds nanoseconds; a damaged pcap file may hold any number of
/// them. libpcap takes such a file's 32 bits of seconds for signed, which matters from 2038 on; a
/// pcapng file has 64 bits, and times before 1970 where its clock's offset is negative.
TimeStamp timeOf( pcap * capture, pcap_pkthdr const & header ) {
   constexpr std::int64_t second = 1'000'000'000;
   constexpr int pcapVersion = 2; // that of pcapng is 1
   std::int64_t seconds = header.ts.tv_sec;
   if( seconds < 0 && ::pcap_major_version( capture ) >= pcapVersion )
      seconds += std::int64_t{ 1 } << 32;
   std::int64_t nanoseconds = header.ts.tv_usec % second;
   seconds += header.ts.tv_usec / second;
   if( nanoseconds < 0 ) {
      nanoseconds += second;
      --seconds;
   }
   return { seconds, static_cast< U32 >( nanoseconds ) };
}

} // namespace

void CaptureReader::Close::operator()( pcap * capture ) const noexcept {
   ::pcap_close( capture );
}

CaptureReader::CaptureReader( std::string const & path, BeforeWait beforeWait )
   : input_( path, std::move( beforeWait ) ),
     buffer_( std::make_unique< char[] >( bufferSize ) ) {}

CaptureReader::~CaptureReader() = default;

EchoSource::Step CaptureReader::failed( ExitStatus status, std::string text ) {
   error_ = {};
   error_.status = status;
   error_.file = input_.name();
   error_.text = std::move( text );
   state_ = State::ended;
   return Step::error;
}

/// On a failure the error is set.
bool CaptureReader::open() {
   if( input_.failure() != 0 ) {
      failed( exitFileFailed, systemText( input_.failure() ) );
      return false;
   }
   std::FILE * stream = streamOver( input_, buffer_.get() );
   if( stream == nullptr ) {
      failed( exitFileFailed, systemText( errno ) );
      return false;
   }
   char text[PCAP_ERRBUF_SIZE] = "";
   capture_.reset( ::pcap_fopen_offline_with_tstamp_precision( stream, PCAP_TSTAMP_PRECISION_NANO,
                                                               static_cast< char * >( text ) ) );
   if( capture_ == nullptr ) {
      static_cast< void >( std::fclose( stream ) );
      failed( exitFileFailed, input_.failure() != 0 ? systemText( input_.failure() )
                                                    : std::string( "not a capture: " ) +
                                                         static_cast< char const * >( text ) );
      return false;
   }
   int const linkType = ::pcap_datalink( capture_.get() );
   dissector_ = dissectorOf( linkType );
   if( dissector_ == nullptr ) {
      failed( exitFileFailed, "unknown link type " + linkTypeText( linkType ) );
      return false;
   }
   state_ = State::open;
   return true;
}

EchoSource::Step CaptureReader::next() {
   if( state_ == State::ended )
      return Step::end;
   if( state_ == State::unopened && !open() )
      return Step::error;
   pcap_pkthdr * header = nullptr;
   U8 const * bytes = nullptr;
   auto const read = [&] {
      // libpcap tells exhausted memory in its text alone.
      errno = 0;
      return ::pcap_next_ex( capture_.get(), &header, &bytes );
   };
   int result = 0;
   while( ( result = read() ) == 1 ) {
      ++packets_;
      Frame const frame{ { bytes, header->caplen }, header->len };
      if( dissector_( frame, packet_ ) ) {
         packet_.number = packets_;
         packet_.time = timeOf( capture_.get(), *header );
         return Step::message;
      }
   }
   if( result == PCAP_ERROR_BREAK ) {
      state_ = State::ended;
      return Step::end;
   }
   bool const isSystems = input_.failure() != 0 || errno == ENOMEM;
   failed( isSystems ? exitFileFailed : exitMalformedInput, ::pcap_geterr( capture_.get() ) );
   error_.packet = packets_ + 1;
   off64_t const offset = ::ftello64( ::pcap_file( capture_.get() ) );
   if( offset >= 0 )
      error_.offset = static_cast< U64 >( offset );
   return Step::error;
}

} // namespace LspPingTool
