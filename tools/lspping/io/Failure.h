#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Printable.h"
#include "tools/lspping/io/ExitStatus.h"

#include <functional>
#include <stdexcept>
#include <string_view>

namespace LspPingTool {

/// What ends a command, or the answer to a line: the text that `tell` shows, and the exit status
/// that it leads to. The text is made printable, since it has in it what was given, and an
/// exception's text would end at the first NUL.
class Failure : public std::runtime_error {
 public:
   Failure( ExitStatus status, std::string_view text )
      : runtime_error( Kiv::printable( text ) ),
        status_( status ) {}

   ExitStatus status() const noexcept { return status_; }

 private:
   ExitStatus status_;
};

/// The command is not one: an unknown type, a missing argument.
class UsageError : public Failure {
 public:
   explicit UsageError( std::string_view text ) : Failure( exitWrongUsage, text ) {}
};

/// The command is one, but the bytes or values in it are not.
class InputError : public Failure {
 public:
   explicit InputError( std::string_view text ) : Failure( exitMalformedInput, text ) {}
};

/// Runs a command. What it throws is told, and gives the exit status.
int told( std::function< int() > const & command );

} // namespace LspPingTool
