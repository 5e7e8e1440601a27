#include "tools/lspping/io/Interruption.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace LspPingTool {

namespace {

constexpr std::array signals{ SIGINT, SIGTERM, SIGHUP };

std::sig_atomic_t volatile noted = 0;
std::sig_atomic_t volatile writeEnd = -1;
int readEnd = -1;

// The byte in the pipe wakes a poll that begins only after the signal has come.
extern "C" void noteInterruption( int signal ) {
   int const failure = errno;
   noted = signal;
   (void)!::write( writeEnd, "", 1 );
   errno = failure;
}

} // namespace

void noteInterruptions() {
   int ends[2];
   if( ::pipe2( ends, O_CLOEXEC | O_NONBLOCK ) != 0 )
      return;
   readEnd = ends[0];
   writeEnd = ends[1];
   struct sigaction action {};
   action.sa_handler = noteInterruption;
   // The default is back for the next one, and what waits for its output goes on to the flag.
   action.sa_flags = static_cast< int >( SA_RESETHAND );
   for( int const signal : signals ) {
      struct sigaction before {};
      if( ::sigaction( signal, nullptr, &before ) == 0 && before.sa_handler != SIG_IGN )
         (void)::sigaction( signal, &action, nullptr );
   }
}

bool isInterrupted() noexcept {
   return noted != 0;
}

int interruptionDescriptor() noexcept {
   return readEnd;
}

void endIfInterrupted() noexcept {
   if( noted == 0 )
      return;
   (void)::signal( noted, SIG_DFL ); // NOLINT(performance-no-int-to-ptr)
   (void)::raise( noted );
}

} // namespace LspPingTool
