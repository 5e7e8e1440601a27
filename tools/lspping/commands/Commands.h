#pragma once

namespace CLI {
class App;
}

// One function for each subcommand: it adds the subcommand, which when it is called sets `status`
// to its exit status. A new one is a file here and a line in main.
namespace LspPingTool {

void addDecode( CLI::App & app, int & status );
void addTypes( CLI::App & app, int & status );
void addView( CLI::App & app, int & status );
void addValue( CLI::App & app, int & status );

} // namespace LspPingTool
