#pragma once

#include <string>
#include <vector>

namespace LspPingTool {

class Output;

// The subcommands that know no type: they work on whatever is registered. Each returns the exit
// status that it leads to, one of ExitStatus; what is lost on the way out the output knows.

struct TypesOptions {
   std::string name; ///< one type or one module; empty for all of them
   bool json = false;
   bool markdown = false;
   bool elements = false; ///< what can stand in a message, in place of the types
};
/// The registry: modules, types, attributes, enumerators.
int runTypes( TypesOptions const & options, Output & output );

struct ObjectOptions {
   /// What stands on the command line behind the subcommand. A single "-" makes a batch of it:
   /// every line of standard input is such arguments and gives one line of JSON, an error
   /// `{"error":…}`.
   std::vector< std::string > arguments;
   bool json = false;
};
/// `TYPE[@OFFSET] HEX [NAME=VALUE]...`: a view, parser or container over the bytes.
int runView( ObjectOptions const & options, Output & output );
/// `TYPE [TEXT] [NAME=VALUE]...`: a value, from its text or the default one.
int runValue( ObjectOptions const & options, Output & output );

} // namespace LspPingTool
