#include "tools/lspping/decode/Progress.h"

#include "MplsUtils/LspPing/platform/Kiv/Printable.h"

#include <cstdio>
#include <unistd.h>

namespace LspPingTool {

Progress::Progress( bool isWanted ) : isWanted_( isWanted && ::isatty( STDERR_FILENO ) == 1 ) {}

void Progress::hide() {
   if( isShown_ )
      (void)std::fputs( "\r\033[K", stderr );
   isShown_ = false;
}

void Progress::draw( EchoSource const & source, std::string const & file ) {
   std::optional< U64 > const total = source.bytesTotal();
   auto const now = std::chrono::steady_clock::now();
   if( !total || *total < longInput || now - last_ < std::chrono::milliseconds( 200 ) )
      return;
   last_ = now;
   constexpr U64 width = 40;
   U64 const done = source.bytesRead() < *total ? source.bytesRead() : *total;
   std::string const bar( static_cast< std::size_t >( done * width / *total ), '#' );
   (void)std::fprintf( stderr, "\r\033[K[%-40s] %3u%% %s", bar.c_str(),
                       static_cast< unsigned >( done * 100 / *total ),
                       Kiv::printable( file ).c_str() );
   isShown_ = true;
}

} // namespace LspPingTool
