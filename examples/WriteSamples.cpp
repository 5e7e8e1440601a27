// Writes the sample captures, the same bytes every time:
//    writeSamples FOLDER
#include "examples/PcapWriter.h"
#include "examples/Samples.h"

#include <fstream>
#include <iostream>
#include <string>

namespace {

bool write( std::string const & path, std::vector< Examples::Frame > const & frames ) {
   constexpr U32 start = 1769860800; // 2026-01-31 12:00:00 UTC
   std::ofstream file( path, std::ios::binary );
   Examples::PcapWriter writer( file );
   U32 milliseconds = 0;
   for( Examples::Frame const & frame : frames ) {
      writer.frame( start + milliseconds / 1000, milliseconds % 1000 * 1000, frame.bytes,
                    frame.wireLength );
      milliseconds += 10;
   }
   file.close();
   if( !file )
      std::cerr << "writeSamples: cannot write " << path << '\n';
   return file.good();
}

} // namespace

int main( int argc, char ** argv ) {
   if( argc != 2 ) {
      std::cerr << "usage: writeSamples FOLDER\n";
      return 2;
   }
   std::string const folder = argv[1];
   bool const written =
      write( folder + "/echo.pcap", Examples::echoSamples() ) &&
      write( folder + "/malformed.pcap", Examples::malformedSamples() ) &&
      write( folder + "/registry.pcap", Examples::registrySamples() ) &&
      write( folder + "/registryDamaged.pcap", Examples::registryDamagedSamples() );
   return written ? 0 : 3;
}
