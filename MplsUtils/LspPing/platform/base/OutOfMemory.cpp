#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"

#include <atomic>
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

constinit std::atomic< OutOfMemoryHandler > own = nullptr;

} // namespace

void outOfMemoryHandlerIs( OutOfMemoryHandler handler ) noexcept {
   own = handler;
}

void outOfMemory( std::string_view what ) noexcept {
   if( OutOfMemoryHandler const handler = own )
      handler( what );
   iovec const line[] = { pieceOf( what ), pieceOf( ": out of memory\n" ) };
   [[maybe_unused]] ssize_t const written = writev( STDERR_FILENO, line, std::size( line ) );
   std::abort();
}

} // namespace Kiv
