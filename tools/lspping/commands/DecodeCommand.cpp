#include "tools/lspping/commands/Commands.h"
#include "tools/lspping/decode/Decode.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace LspPingTool {

void addDecode( CLI::App & app, Output & output, int & status ) {
   auto options = std::make_shared< DecodeOptions >();
   CLI::App * const command =
      app.add_subcommand( "decode", "Show the echo messages of captures (pcap, pcapng)" );
   command->add_option( "FILE", options->files, "Captures; - is standard input" )->required();
   command->add_flag( "--json", options->isJson, "One JSON object a line" );
   command->add_flag( "--hex", options->isHex,
                      "The files hold hexadecimal text, one message a line" );
   command->add_flag( "--records", options->hasRecords,
                      "Also what an agent keeps of each message" );
   command->callback( [options, &output, &status] { status = decode( *options, output ); } );
}

} // namespace LspPingTool
