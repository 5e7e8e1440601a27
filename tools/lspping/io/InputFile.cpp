#include "tools/lspping/io/InputFile.h"

#include "tools/lspping/io/Interruption.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace LspPingTool {

InputFile::InputFile( std::string const & path, BeforeWait beforeWait )
   : name_( path == "-" ? "standard input" : path ),
     beforeWait_( std::move( beforeWait ) ),
     descriptor_( path == "-" ? STDIN_FILENO : ::open( path.c_str(), O_RDONLY | O_CLOEXEC ) ) {
   struct stat status {};
   if( descriptor_ < 0 || ::fstat( descriptor_, &status ) != 0 )
      failure_ = errno;
   else if( S_ISDIR( status.st_mode ) )
      failure_ = EISDIR;
   else if( S_ISREG( status.st_mode ) )
      bytesTotal_ = static_cast< U64 >( status.st_size );
}

InputFile::~InputFile() {
   if( descriptor_ > STDIN_FILENO )
      ::close( descriptor_ );
}

ssize_t InputFile::read( char * buffer, std::size_t size ) noexcept {
   ssize_t count = -1;
   errno = failure_;
   while( failure_ == 0 && count < 0 ) {
      // A regular file never keeps its reader waiting.
      if( !bytesTotal_ )
         wait();
      errno = EINTR;
      count = isInterrupted() ? -1 : ::read( descriptor_, buffer, size );
      if( count < 0 && ( errno != EINTR || isInterrupted() ) )
         failure_ = errno;
   }
   bytesRead_ += count > 0 ? static_cast< U64 >( count ) : 0;
   return count;
}

/// Until there is something to read, or no need to any more. What is wrong is left to the read.
void InputFile::wait() noexcept {
   pollfd events[] = { { descriptor_, POLLIN, 0 }, { interruptionDescriptor(), POLLIN, 0 } };
   if( ::poll( events, std::size( events ), 0 ) == 0 ) {
      if( beforeWait_ )
         beforeWait_();
      (void)::poll( events, std::size( events ), -1 );
   }
}

} // namespace LspPingTool
