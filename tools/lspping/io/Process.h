#pragma once

namespace LspPingTool {

/// Opens those of the three standard descriptors that are closed, so that no file takes their
/// place. What is read or written there fails as before.
void keepStandardDescriptors();

/// Exhausted memory ends the program with one line and its status even where no exception can
/// leave, as in functions that build text.
void endInOrderWithoutMemory();

} // namespace LspPingTool
