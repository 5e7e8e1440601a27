#pragma once

#include "tools/lspping/inspect/Commands.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace InspectTest {

/// What a subcommand said and how it ended.
struct Ran {
   int status;
   std::string out;
   std::string err;
};

/// A stream into memory.
class Stream {
 public:
   Stream() : file_( open_memstream( &text_, &length_ ) ) {}
   Stream( Stream const & ) = delete;
   Stream & operator=( Stream const & ) = delete;
   ~Stream() {
      std::fclose( file_ );
      std::free( text_ );
   }
   std::FILE * file() const { return file_; }
   std::string text() const {
      std::fflush( file_ );
      return { text_, length_ };
   }

 private:
   char * text_ = nullptr;
   std::size_t length_ = 0;
   std::FILE * file_;
};

using Command = int ( * )( LspPingTool::ObjectOptions const &, std::FILE *, std::FILE *,
                           std::FILE * );

inline Ran run( Command command, std::vector< std::string > arguments, bool json,
                std::string input = " " ) {
   Stream out;
   Stream err;
   std::FILE * const in = fmemopen( input.data(), input.size(), "r" );
   int const status = command( { std::move( arguments ), json }, in, out.file(), err.file() );
   std::fclose( in );
   return { status, out.text(), err.text() };
}

inline Ran runTypes( std::string name, bool json, bool markdown = false ) {
   Stream out;
   Stream err;
   int const status =
      LspPingTool::runTypes( { std::move( name ), json, markdown }, out.file(), err.file() );
   return { status, out.text(), err.text() };
}

} // namespace InspectTest
