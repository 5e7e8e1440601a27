#include "tools/lspping/io/Output.h"

#include "tools/lspping/io/Diagnostics.h"
#include "tools/lspping/io/ExitStatus.h"
#include "tools/lspping/io/Interruption.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <poll.h>

namespace LspPingTool {

namespace {

bool takesMoreSoon( int descriptor ) {
   constexpr int patience = 1000; // milliseconds
   pollfd event{ descriptor, POLLOUT, 0 };
   return ::poll( &event, 1, patience ) != 0;
}

} // namespace

Output::Output( int descriptor )
   : descriptor_( descriptor ),
     isTerminal_( ::isatty( descriptor ) == 1 ) {
   // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how the constant is made.
   (void)::signal( SIGPIPE, SIG_IGN );
}

void Output::write( std::string_view text ) {
   while( state_ == State::open && !text.empty() ) {
      std::size_t size = text.size();
      if( isInterrupted() ) {
         if( !takesMoreSoon( descriptor_ ) ) {
            state_ = State::closed;
            return;
         }
         // As much as a pipe that takes anything takes without waiting.
         size = std::min( size, std::size_t{ PIPE_BUF } );
      }
      ssize_t const written = ::write( descriptor_, text.data(), size );
      if( written >= 0 )
         text.remove_prefix( static_cast< std::size_t >( written ) );
      else if( errno == EPIPE )
         state_ = State::closed;
      else if( errno != EINTR )
         fails();
   }
}

int Output::finish( int status ) {
   // Some file systems tell only here that they have no room. Linux closes even where it is
   // interrupted.
   if( state_ == State::open && ::close( descriptor_ ) != 0 && errno != EINTR )
      fails();
   if( state_ != State::failed )
      return status;
   tell( "standard output: " + systemText( failure_ ) );
   return exitFileFailed;
}

void Output::fails() {
   failure_ = errno;
   state_ = State::failed;
}

bool mayColour( Output const & output ) {
   // Present is enough unless empty, as no-color.org has it.
   char const * const refused = std::getenv( "NO_COLOR" ); // NOLINT(concurrency-mt-unsafe)
   return output.isTerminal() && ( refused == nullptr || *refused == '\0' );
}

} // namespace LspPingTool
