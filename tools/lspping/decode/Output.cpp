#include "tools/lspping/decode/Output.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace LspPingTool {

Output::Output() : isTerminal_( ::isatty( STDOUT_FILENO ) == 1 ) {
   // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how the constant is made.
   (void)::signal( SIGPIPE, SIG_IGN );
}

void Output::write( std::string_view text ) {
   while( state_ == State::open && !text.empty() ) {
      ssize_t const written = ::write( STDOUT_FILENO, text.data(), text.size() );
      if( written >= 0 ) {
         text.remove_prefix( static_cast< std::size_t >( written ) );
      } else if( errno == EPIPE ) {
         state_ = State::closed;
      } else if( errno != EINTR ) {
         state_ = State::failed;
         failure_ = errno;
      }
   }
}

bool mayColour( Output const & output ) {
   // Present is enough unless empty, as no-color.org has it.
   char const * const refused = std::getenv( "NO_COLOR" ); // NOLINT(concurrency-mt-unsafe)
   return output.isTerminal() && ( refused == nullptr || *refused == '\0' );
}

} // namespace LspPingTool
