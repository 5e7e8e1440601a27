#pragma once

#include <string_view>
#include <unistd.h>

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
   explicit Output( int descriptor = STDOUT_FILENO );

   bool isTerminal() const noexcept { return isTerminal_; }
   State state() const noexcept { return state_; }
   /// The `errno` of what failed.
   int failure() const noexcept { return failure_; }

   /// Writes all of it. After the state has left `open` nothing is written. Once the program is
   /// interrupted, a reader that takes nothing for a second counts as one that is gone.
   void write( std::string_view text );

   /// Closes it and tells standard error if something of it was lost. The answer is the exit
   /// status, which is `status` if not. That nobody reads any more is no failure.
   int finish( int status );

 private:
   void fails();

   int descriptor_;
   bool isTerminal_;
   State state_ = State::open;
   int failure_ = 0;
};

/// Whether what is written to standard output may be coloured: a terminal, and no NO_COLOR.
bool mayColour( Output const & output );

} // namespace LspPingTool
