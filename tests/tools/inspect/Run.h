#pragma once

#include "tools/lspping/inspect/Commands.h"
#include "tools/lspping/io/Failure.h"
#include "tools/lspping/io/Output.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace InspectTest {

/// What a subcommand said and how it ended.
struct Ran {
   int status;
   std::string out;
   std::string err;
};

/// A file in memory.
class MemoryFile {
 public:
   explicit MemoryFile( std::string const & contents = "" )
      : descriptor_( ::memfd_create( "test", MFD_CLOEXEC ) ) {
      EXPECT_EQ( ::pwrite( descriptor_, contents.data(), contents.size(), 0 ),
                 static_cast< ssize_t >( contents.size() ) );
   }
   MemoryFile( MemoryFile const & ) = delete;
   MemoryFile & operator=( MemoryFile const & ) = delete;
   ~MemoryFile() { ::close( descriptor_ ); }

   int descriptor() const { return descriptor_; }
   std::string contents() const {
      std::string all( static_cast< std::size_t >( ::lseek( descriptor_, 0, SEEK_END ) ), '\0' );
      EXPECT_EQ( ::pread( descriptor_, all.data(), all.size(), 0 ),
                 static_cast< ssize_t >( all.size() ) );
      return all;
   }

 private:
   int descriptor_;
};

/// A standard descriptor is another one for as long as it lives.
class Redirected {
 public:
   Redirected( int standard, int other ) : standard_( standard ), saved_( ::dup( standard ) ) {
      ::dup2( other, standard );
   }
   Redirected( Redirected const & ) = delete;
   Redirected & operator=( Redirected const & ) = delete;
   ~Redirected() {
      ::dup2( saved_, standard_ );
      ::close( saved_ );
   }

 private:
   int standard_;
   int saved_;
};

template < class Options >
Ran run( int ( *command )( Options const &, LspPingTool::Output & ), Options const & options,
         std::string const & input = "" ) {
   MemoryFile const in( input );
   MemoryFile const out;
   MemoryFile const err;
   int status = 0;
   {
      Redirected const standardInput( STDIN_FILENO, in.descriptor() );
      Redirected const standardError( STDERR_FILENO, err.descriptor() );
      LspPingTool::Output output( out.descriptor() );
      status = LspPingTool::told( [&] { return command( options, output ); } );
   }
   return { status, out.contents(), err.contents() };
}

using Command = int ( * )( LspPingTool::ObjectOptions const &, LspPingTool::Output & );

inline Ran run( Command command, std::vector< std::string > arguments, bool json,
                std::string const & input = "" ) {
   return run( command, LspPingTool::ObjectOptions{ std::move( arguments ), json }, input );
}

inline Ran runTypes( std::string name, bool json, bool markdown = false ) {
   return run( &LspPingTool::runTypes,
               LspPingTool::TypesOptions{ std::move( name ), json, markdown } );
}

} // namespace InspectTest
