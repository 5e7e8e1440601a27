#include "tools/lspping/io/Diagnostics.h"

#include "MplsUtils/LspPing/platform/Kiv/Printable.h"

#include <cstdio>
#include <system_error>
#include <unistd.h>

namespace LspPingTool {

std::string systemText( int failure ) {
   return std::generic_category().message( failure );
}

void tell( std::string_view text ) {
   std::string const line = "lspping: " + Kiv::printable( text ) + '\n';
   (void)std::fwrite( line.data(), 1, line.size(), stderr );
}

void tellOutOfMemory() noexcept {
   constexpr std::string_view line = "lspping: out of memory\n";
   (void)!::write( STDERR_FILENO, line.data(), line.size() );
}

} // namespace LspPingTool
