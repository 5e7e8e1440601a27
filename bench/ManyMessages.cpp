// Writes a long capture for the decoders to read: the sample messages over and over.
//    manyMessages FILE COUNT
#include "examples/PcapWriter.h"
#include "examples/Samples.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main( int argc, char ** argv ) {
   if( argc != 3 ) {
      std::cerr << "usage: manyMessages FILE COUNT\n";
      return 2;
   }
   std::ofstream file( argv[1], std::ios::binary );
   Examples::PcapWriter writer( file );
   std::vector< Examples::Frame > const frames = Examples::echoSamples();
   unsigned long const count = std::strtoul( argv[2], nullptr, 10 );
   for( unsigned long i = 0; i < count; ++i ) {
      Examples::Frame const & frame = frames[i % frames.size()];
      writer.frame( static_cast< U32 >( 1769860800 + i / 1000 ),
                    static_cast< U32 >( i % 1000 * 1000 ), frame.bytes, frame.wireLength );
   }
   file.close();
   return file ? 0 : 3;
}
