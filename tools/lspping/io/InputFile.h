#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>

#include "MplsUtils/LspPing/platform/base/Integers.h"

namespace LspPingTool {

/// What is done before a read that has to wait. It must not throw.
using BeforeWait = std::function< void() >;

/// A file, or standard input when the path is "-", that counts what is read from it.
class InputFile {
 public:
   explicit InputFile( std::string const & path, BeforeWait beforeWait = {} );
   InputFile( InputFile const & ) = delete;
   InputFile & operator=( InputFile const & ) = delete;
   ~InputFile();

   /// For messages.
   std::string const & name() const noexcept { return name_; }

   /// The `errno` of the open or read that failed; 0 while all is well.
   int failure() const noexcept { return failure_; }

   /// As `read( 2 )`: the number of bytes, 0 at the end, -1 on a failure (with `errno` set too).
   /// Once the program is interrupted it fails, with EINTR.
   ssize_t read( char * buffer, std::size_t size ) noexcept;

   U64 bytesRead() const noexcept { return bytesRead_; }
   /// What a regular file holds; others have no size.
   std::optional< U64 > bytesTotal() const noexcept { return bytesTotal_; }

 private:
   void wait() noexcept;

   std::string name_;
   BeforeWait beforeWait_;
   int descriptor_ = -1;
   int failure_ = 0;
   U64 bytesRead_ = 0;
   std::optional< U64 > bytesTotal_;
};

} // namespace LspPingTool
