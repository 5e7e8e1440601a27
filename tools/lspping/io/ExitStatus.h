#pragma once

namespace LspPingTool {

/// How the tool ends. When several things happen, the highest number wins.
enum ExitStatus : int {
   exitDone = 0,
   exitMalformedInput = 1,
   exitWrongUsage = 2,
   exitFileFailed = 3,
};

} // namespace LspPingTool
