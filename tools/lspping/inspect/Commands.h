#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace LspPingTool {

// The subcommands that know no type: they work on whatever is registered. Each returns the exit
// code of the program: 0 done, 1 malformed input was met, 2 wrong usage, 3 a file failed.

struct TypesOptions {
   std::string name; ///< one type or one module; empty for all of them
   bool json = false;
   bool markdown = false;
};
/// The registry: modules, types, attributes, enumerators.
int runTypes( TypesOptions const & options, std::FILE * out, std::FILE * err );

struct ObjectOptions {
   /// What stands on the command line behind the subcommand. A single "-" makes a batch of it:
   /// every line of `in` is such arguments and gives one line of JSON, an error `{"error":…}`.
   std::vector< std::string > arguments;
   bool json = false;
};
/// `TYPE[@OFFSET] HEX [NAME=VALUE]...`: a view, parser or container over the bytes.
int runView( ObjectOptions const & options, std::FILE * in, std::FILE * out, std::FILE * err );
/// `TYPE [TEXT] [NAME=VALUE]...`: a value, from its text or the default one.
int runValue( ObjectOptions const & options, std::FILE * in, std::FILE * out, std::FILE * err );

} // namespace LspPingTool
