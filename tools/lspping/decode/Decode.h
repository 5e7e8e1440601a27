#pragma once

#include <string>
#include <vector>

namespace LspPingTool {

class Output;

struct DecodeOptions {
   std::vector< std::string > files;
   bool isJson = false;
   /// The files hold hexadecimal text, one message a line.
   bool isHex = false;
   /// With the records that an agent keeps of each message.
   bool hasRecords = false;
};

/// Decodes the files one after the other, and tells standard error about what is wrong with them,
/// until all is done, nobody reads any more or the program is interrupted. The answer is the exit
/// status: of all that was met, the highest of ExitStatus.
int decode( DecodeOptions const & options, Output & output );

} // namespace LspPingTool
