#pragma once

// SIGINT, SIGTERM and SIGHUP: a program that notes them can still write what it has.
namespace LspPingTool {

/// From here on the first of these signals is noted, and the second one ends the program at once.
/// Those that are ignored, as `nohup` has it, stay so.
void noteInterruptions();

bool isInterrupted() noexcept;

/// Becomes readable when a signal is noted, for whoever polls. -1 while none would be.
int interruptionDescriptor() noexcept;

/// Ends the program as the signal that was noted would have; does nothing where none was.
void endIfInterrupted() noexcept;

} // namespace LspPingTool
