#include "tools/lspping/io/Failure.h"

#include "tools/lspping/io/Diagnostics.h"

#include <new>

namespace LspPingTool {

int told( std::function< int() > const & command ) {
   try {
      return command();
   } catch( std::bad_alloc const & ) {
      tellOutOfMemory();
   } catch( Failure const & failure ) {
      tell( failure.what() );
      return failure.status();
   } catch( std::exception const & error ) {
      tell( error.what() );
   }
   return exitFileFailed;
}

} // namespace LspPingTool
