#include "examples/PcapWriter.h"

#include <ostream>

namespace Examples {

PcapWriter::PcapWriter( std::ostream & out ) : out_( out ) {
   constexpr U32 magic = 0xa1b2c3d4;
   constexpr U32 longestFrame = 262144;
   constexpr U32 ethernet = 1;
   number( magic, 4 );
   number( 2, 2 ); // version 2.4
   number( 4, 2 );
   number( 0, 4 ); // time zone
   number( 0, 4 ); // accuracy
   number( longestFrame, 4 );
   number( ethernet, 4 );
}

void PcapWriter::frame( U32 seconds, U32 microseconds, std::span< U8 const > bytes,
                        std::size_t wireLength ) {
   number( seconds, 4 );
   number( microseconds, 4 );
   number( static_cast< U32 >( bytes.size() ), 4 );
   number( static_cast< U32 >( wireLength ), 4 );
   for( U8 const byte : bytes )
      out_.put( static_cast< char >( byte ) );
}

void PcapWriter::number( U32 value, unsigned bytes ) {
   for( unsigned i = 0; i < bytes; ++i )
      out_.put( static_cast< char >( value >> ( 8 * i ) ) );
}

} // namespace Examples
