#include "tools/lspping/ExitStatus.h"
#include "tools/lspping/commands/Commands.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

namespace {

int run( int argc, char ** argv ) {
   CLI::App app( "Reads, checks and shows MPLS echo messages (RFC 8029)", "lspping" );
   app.require_subcommand( 1 );
   app.footer( "Exit status: 0 done, 1 malformed input was met, 2 wrong usage, 3 a file failed." );
   int status = LspPingTool::exitDone;
   LspPingTool::addDecode( app, status );
   LspPingTool::addTypes( app, status );
   LspPingTool::addView( app, status );
   LspPingTool::addValue( app, status );
   try {
      app.parse( argc, argv );
   } catch( CLI::ParseError const & error ) {
      // A request for help comes this way too.
      return app.exit( error ) == 0 ? LspPingTool::exitDone : LspPingTool::exitWrongUsage;
   }
   return status;
}

} // namespace

int main( int argc, char ** argv ) {
   try {
      return run( argc, argv );
   } catch( std::exception const & error ) {
      (void)std::fprintf( stderr, "lspping: %s\n", error.what() );
      return LspPingTool::exitFileFailed;
   }
}
