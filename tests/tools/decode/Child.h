#pragma once

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "tests/tools/decode/Program.h"

/// The program running beside the test, which has the other ends of its standard input and output.
class Child {
 public:
   explicit Child( std::vector< std::string > arguments, int ignoredSignal = 0 ) {
      int in[2];
      int out[2];
      EXPECT_EQ( ::pipe( in ), 0 );
      EXPECT_EQ( ::pipe( out ), 0 );
      arguments.insert( arguments.begin(), LSPPING_PROGRAM );
      std::vector< char * > pointers;
      for( std::string & argument : arguments )
         pointers.push_back( argument.data() );
      pointers.push_back( nullptr );
      process_ = ::fork();
      if( process_ == 0 ) {
         ::dup2( in[0], STDIN_FILENO );
         ::dup2( out[1], STDOUT_FILENO );
         ::dup2( error_, STDERR_FILENO );
         for( int const end : { in[0], in[1], out[0], out[1] } )
            ::close( end );
         // Whoever runs the tests may ignore some, as nohup does.
         for( int const number : { SIGINT, SIGTERM, SIGHUP } )
            (void)::signal( number, SIG_DFL );
         if( ignoredSignal != 0 )
            (void)::signal( ignoredSignal, SIG_IGN );
         ::execv( pointers[0], pointers.data() );
         ::_exit( 127 );
      }
      ::close( in[0] );
      ::close( out[1] );
      input_ = in[1];
      output_ = out[0];
   }
   Child( Child const & ) = delete;
   Child & operator=( Child const & ) = delete;
   ~Child() {
      if( input_ >= 0 )
         ::close( input_ );
      ::close( output_ );
      ::close( error_ );
      if( process_ > 0 ) {
         ::kill( process_, SIGKILL );
         ::waitpid( process_, nullptr, 0 );
      }
   }

   template < class Bytes >
   void write( Bytes const & bytes ) {
      EXPECT_EQ( ::write( input_, bytes.data(), bytes.size() ),
                 static_cast< ssize_t >( bytes.size() ) );
   }
   void endInput() {
      ::close( input_ );
      input_ = -1;
   }

   /// What it says until that many bytes are there, or nothing comes for five seconds, or its end.
   std::string read( std::size_t size ) {
      std::string all;
      pollfd event{ output_, POLLIN, 0 };
      while( all.size() < size && ::poll( &event, 1, 5000 ) == 1 ) {
         std::string part( std::min( size - all.size(), std::size_t{ 65536 } ), '\0' );
         ssize_t const count = ::read( output_, part.data(), part.size() );
         if( count <= 0 )
            break;
         all.append( part, 0, static_cast< std::size_t >( count ) );
      }
      return all;
   }
   std::string readAll() { return read( SIZE_MAX ); }

   /// What it has said on standard error.
   std::string err() const {
      std::string all( 1000, '\0' );
      ssize_t const count = ::pread( error_, all.data(), all.size(), 0 );
      return all.substr( 0, count > 0 ? static_cast< std::size_t >( count ) : 0 );
   }

   void signal( int number ) { EXPECT_EQ( ::kill( process_, number ), 0 ); }

   /// As `waitpid` tells it, within ten seconds.
   int wait() {
      int status = 0;
      for( int tries = 0; tries < 1000; ++tries ) {
         if( ::waitpid( process_, &status, WNOHANG ) == process_ ) {
            process_ = -1;
            return status;
         }
         ::usleep( 10'000 );
      }
      ADD_FAILURE() << "it does not end";
      return status;
   }
   void endsBy( int number ) {
      int const status = wait();
      EXPECT_TRUE( WIFSIGNALED( status ) ) << status;
      EXPECT_EQ( WTERMSIG( status ), number );
      EXPECT_EQ( err(), "" );
   }
   void endsWith( int code ) {
      int const status = wait();
      EXPECT_TRUE( WIFEXITED( status ) ) << status;
      EXPECT_EQ( WEXITSTATUS( status ), code );
   }

   /// Until it sleeps, as it does where it waits for its input or its reader.
   void waitUntilItSleeps() const {
      std::string const path = "/proc/" + std::to_string( process_ ) + "/stat";
      for( int quiet = 0, tries = 0; quiet < 5 && tries < 500; ++tries ) {
         ::usleep( 10'000 );
         std::string const stat = contentsOf( path );
         quiet = stat.find( ") S " ) != std::string::npos ? quiet + 1 : 0;
      }
   }

 private:
   pid_t process_ = -1;
   int input_ = -1;
   int output_ = -1;
   int error_ = ::memfd_create( "err", MFD_CLOEXEC );
};
