#include "tools/lspping/capture/InputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace LspPingTool {

std::string systemText( int failure ) {
   return std::generic_category().message( failure );
}

InputFile::InputFile( std::string const & path )
   : name_( path == "-" ? "standard input" : path ),
     descriptor_( path == "-" ? STDIN_FILENO : ::open( path.c_str(), O_RDONLY | O_CLOEXEC ) ) {
   struct stat status {};
   if( descriptor_ < 0 || ::fstat( descriptor_, &status ) != 0 ) {
      failure_ = errno;
   } else if( S_ISDIR( status.st_mode ) ) {
      failure_ = EISDIR;
   } else if( S_ISREG( status.st_mode ) ) {
      bytesTotal_ = static_cast< U64 >( status.st_size );
   }
}

InputFile::~InputFile() {
   if( descriptor_ > STDIN_FILENO ) {
      ::close( descriptor_ );
   }
}

ssize_t InputFile::read( char * buffer, std::size_t size ) noexcept {
   if( failure_ != 0 ) {
      errno = failure_;
      return -1;
   }
   ssize_t count = -1;
   do {
      count = ::read( descriptor_, buffer, size );
   } while( count < 0 && errno == EINTR );
   if( count < 0 ) {
      failure_ = errno;
   } else {
      bytesRead_ += static_cast< U64 >( count );
   }
   return count;
}

} // namespace LspPingTool
