#include "MplsUtils/LspPing/platform/Kiv/Printable.h"
#include "tools/lspping/commands/Commands.h"
#include "tools/lspping/io/Diagnostics.h"
#include "tools/lspping/io/ExitStatus.h"
#include "tools/lspping/io/Interruption.h"
#include "tools/lspping/io/Output.h"
#include "tools/lspping/io/Process.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <new>
#include <sstream>

namespace {

using namespace LspPingTool;

// It has the arguments in it.
std::string failureText( CLI::App const * app, CLI::Error const & error ) {
   return CLI::FailureMessage::simple( app, { error.get_name(), Kiv::printable( error.what() ) } );
}

int run( int argc, char ** argv, Output & output ) {
   CLI::App app( "Reads, checks and shows MPLS echo messages (RFC 8029)", "lspping" );
   app.require_subcommand( 1 );
   app.footer( "Exit status: 0 done, 1 malformed input was met, 2 wrong usage, 3 a file failed." );
   app.failure_message( failureText );
   int status = exitDone;
   addDecode( app, output, status );
   addTypes( app, output, status );
   addView( app, output, status );
   addValue( app, output, status );
   try {
      app.parse( argc, argv );
   } catch( CLI::ParseError const & error ) {
      // A request for help comes this way too.
      std::ostringstream help;
      std::ostringstream failure;
      int const code = app.exit( error, help, failure );
      output.write( help.str() );
      (void)std::fputs( failure.str().c_str(), stderr );
      return code == 0 ? exitDone : exitWrongUsage;
   }
   return status;
}

int runGuarded( int argc, char ** argv, Output & output ) {
   try {
      return run( argc, argv, output );
   } catch( std::bad_alloc const & ) {
      tellOutOfMemory();
   } catch( std::exception const & error ) {
      tell( error.what() );
   }
   return exitFileFailed;
}

} // namespace

int main( int argc, char ** argv ) {
   keepStandardDescriptors();
   endInOrderWithoutMemory();
   noteInterruptions();
   Output output;
   int const status = output.finish( runGuarded( argc, argv, output ) );
   endIfInterrupted();
   return status;
}
