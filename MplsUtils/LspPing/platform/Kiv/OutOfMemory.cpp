#include "MplsUtils/LspPing/platform/Kiv/OutOfMemory.h"

#include <cstdlib>
#include <iterator>
#include <string_view>
#include <sys/uio.h>
#include <unistd.h>

namespace Kiv {

namespace {

iovec pieceOf( std::string_view text ) noexcept {
   return { const_cast< char * >( text.data() ), text.size() };
}

} // namespace

void outOfMemory( std::string_view what ) noexcept {
   iovec const line[] = { pieceOf( what ), pieceOf( ": out of memory\n" ) };
   [[maybe_unused]] ssize_t const written = writev( STDERR_FILENO, line, std::size( line ) );
   std::abort();
}

} // namespace Kiv
