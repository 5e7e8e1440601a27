#include "tools/lspping/commands/Commands.h"
#include "tools/lspping/inspect/Commands.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace LspPingTool {

namespace {

void addObjectArguments( CLI::App * command, std::shared_ptr< ObjectOptions > const & options,
                         std::string const & what ) {
   command->add_option( "ARGUMENT", options->arguments, what )->required();
   command->add_flag( "--json", options->json, "One line of JSON" );
}

} // namespace

void addTypes( CLI::App & app, Output & output, int & status ) {
   auto options = std::make_shared< TypesOptions >();
   CLI::App * const command =
      app.add_subcommand( "types", "Show the registered types and their attributes" );
   command->add_option( "NAME", options->name, "A type or a module; all of them without it" );
   command->add_flag( "--json", options->json, "The registry as one JSON object" );
   command->add_flag( "--markdown", options->markdown, "The reference documentation" );
   command->add_flag( "--elements", options->elements, "What can stand in a message, as Markdown" );
   command->callback( [options, &output, &status] { status = runTypes( *options, output ); } );
}

void addView( CLI::App & app, Output & output, int & status ) {
   auto options = std::make_shared< ObjectOptions >();
   CLI::App * const command =
      app.add_subcommand( "view", "Lay a view, a parser or a container over bytes" );
   addObjectArguments( command, options,
                       "TYPE[@OFFSET] HEX [NAME=VALUE]..., or - for a line of them each, of "
                       "16 MiB at most, on standard input" );
   command->callback( [options, &output, &status] { status = runView( *options, output ); } );
}

void addValue( CLI::App & app, Output & output, int & status ) {
   auto options = std::make_shared< ObjectOptions >();
   CLI::App * const command = app.add_subcommand( "value", "Build a value from its text" );
   addObjectArguments( command, options,
                       "TYPE [TEXT] [NAME=VALUE]..., or - for a line of them each, of 16 MiB at "
                       "most, on standard input" );
   command->callback( [options, &output, &status] { status = runValue( *options, output ); } );
}

} // namespace LspPingTool
