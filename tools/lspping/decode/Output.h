#pragma once

#include <string_view>

namespace LspPingTool {

/// Standard output, written in the blocks that it is given.
class Output {
 public:
   enum class State {
      open,
      closed, ///< nobody reads any more: a pipe that was closed
      failed, ///< as `failure` says
   };

   /// From here on a closed pipe is an answer of `write`, not a signal.
   Output();

   bool isTerminal() const noexcept { return isTerminal_; }
   State state() const noexcept { return state_; }
   /// The `errno` of a write that failed.
   int failure() const noexcept { return failure_; }

   /// Writes all of it. After the state has left `open` nothing is written.
   void write( std::string_view text );

 private:
   bool isTerminal_;
   State state_ = State::open;
   int failure_ = 0;
};

/// Whether what is written to standard output may be coloured: a terminal, and no NO_COLOR.
bool mayColour( Output const & output );

} // namespace LspPingTool
