#pragma once

#include "tests/Bytes.h"
#include "tests/TemporaryFolder.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unistd.h>

// Packets and files put together by hand, outermost layer first.

/// Four bytes in the order of a little-endian file.
inline Bytes little( std::size_t value ) {
   return { static_cast< U8 >( value ), static_cast< U8 >( value >> 8 ),
            static_cast< U8 >( value >> 16 ), static_cast< U8 >( value >> 24 ) };
}

inline Bytes const message{ 0x00, 0x01, 0x00, 0x00, 0x01, 0x02, 0x00, 0x07 };

inline Bytes udp( Bytes const & payload, std::size_t length, std::size_t destination = 3503 ) {
   return word( 4529 ) + word( destination ) + word( length ) + word( 0 ) + payload;
}
inline Bytes udp( Bytes const & payload ) {
   return udp( payload, payload.size() + 8 );
}

inline Bytes ipv4( Bytes const & payload, std::size_t fragment = 0 ) {
   return Bytes{ 0x45, 0 } + word( 20 + payload.size() ) + word( 1 ) + word( fragment ) +
          Bytes{ 255, 17, 0, 0, 10, 0, 0, 1, 127, 0, 0, 1 } + payload;
}

inline Bytes ipv6( U8 nextHeader, Bytes const & payload ) {
   return Bytes{ 0x60, 0, 0, 0 } + word( payload.size() ) + Bytes{ nextHeader, 255 } +
          Bytes{ 0x20, 1, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 } +
          Bytes{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 127, 0, 0, 1 } + payload;
}

/// Label 100704, traffic class 7, bottom of stack, TTL 255.
inline Bytes const bottomLabel{ 0x18, 0x96, 0x0f, 0xff };

inline Bytes ethernet( std::size_t type, Bytes const & payload ) {
   return Bytes{ 2, 0, 0, 0, 0, 1, 2, 0, 0, 0, 0, 2 } + word( type ) + payload;
}

/// The header of a little-endian pcap file with nanoseconds.
inline Bytes pcapHeader( std::size_t linkType ) {
   return Bytes{ 0x4d, 0x3c, 0xb2, 0xa1, 2, 0, 4, 0 } + little( 0 ) + little( 0 ) +
          little( 65535 ) + little( linkType );
}

inline Bytes pcapRecord( Bytes const & packet, std::size_t wireLength,
                         std::size_t seconds = 1769860800, std::size_t nanoseconds = 1001 ) {
   return little( seconds ) + little( nanoseconds ) + little( packet.size() ) +
          little( wireLength ) + packet;
}
inline Bytes pcapRecord( Bytes const & packet ) {
   return pcapRecord( packet, packet.size() );
}

/// A file that goes with the test.
class TemporaryFile {
 public:
   explicit TemporaryFile( std::string_view contents )
      : path_( folder_.file( "capture", contents ) ) {}
   explicit TemporaryFile( Bytes const & contents )
      : TemporaryFile( std::string( contents.begin(), contents.end() ) ) {}

   std::string const & path() const { return path_; }

 private:
   TemporaryFolder folder_;
   std::string path_;
};

/// Standard input from a file or a pipe for as long as it lives.
class StandardInput {
 public:
   explicit StandardInput( int descriptor ) : saved_( ::dup( STDIN_FILENO ) ) {
      ::dup2( descriptor, STDIN_FILENO );
      ::close( descriptor );
   }
   ~StandardInput() {
      ::dup2( saved_, STDIN_FILENO );
      ::close( saved_ );
   }

 private:
   int saved_;
};

/// The reading end of a pipe that holds these few bytes and nothing more.
inline int pipeOf( Bytes const & bytes ) {
   int ends[2];
   EXPECT_EQ( ::pipe( ends ), 0 );
   EXPECT_EQ( ::write( ends[1], bytes.data(), bytes.size() ),
              static_cast< ssize_t >( bytes.size() ) );
   ::close( ends[1] );
   return ends[0];
}
