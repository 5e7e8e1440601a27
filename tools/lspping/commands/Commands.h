#pragma once

namespace CLI {
class App;
}

// One function for each subcommand: it adds the subcommand, which when it is called writes to the
// output and sets `status` to its exit status. A new one is a file here and a line in main.
namespace LspPingTool {

class Output;

void addDecode( CLI::App & app, Output & output, int & status );
void addTypes( CLI::App & app, Output & output, int & status );
void addView( CLI::App & app, Output & output, int & status );
void addValue( CLI::App & app, Output & output, int & status );

} // namespace LspPingTool
