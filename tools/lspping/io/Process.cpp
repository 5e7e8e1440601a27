#include "tools/lspping/io/Process.h"

#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"
#include "tools/lspping/io/Diagnostics.h"
#include "tools/lspping/io/ExitStatus.h"

#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <unistd.h>

namespace LspPingTool {

void keepStandardDescriptors() {
   for( int const descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO } ) {
      // The lowest that is free is taken, which is this one; the other way round, it fails.
      if( ::fcntl( descriptor, F_GETFD ) < 0 )
         (void)::open( "/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY );
   }
}

void endInOrderWithoutMemory() {
   Kiv::outOfMemoryHandlerIs( []( std::string_view ) {
      tellOutOfMemory();
      std::_Exit( exitFileFailed );
   } );
   static std::terminate_handler const byDefault = std::get_terminate();
   std::set_terminate( [] {
      try {
         if( std::exception_ptr const error = std::current_exception() )
            std::rethrow_exception( error );
      } catch( std::bad_alloc const & ) {
         tellOutOfMemory();
         std::_Exit( exitFileFailed );
      } catch( ... ) {
         byDefault();
      }
      byDefault();
   } );
}

} // namespace LspPingTool
