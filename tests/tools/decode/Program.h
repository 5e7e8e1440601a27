#pragma once

#include "tests/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <sys/wait.h>

// The program as it is called: standard output, standard error, exit status.

/// A message, and what the program says of it.
inline std::string const requestHex =
   "0001 0000 01020000 00001234 00000001 00000000 00000000 00000000 "
   "00000000 0001000c 00010005 0a010200 18000000";

inline std::string contentsOf( std::string const & path ) {
   std::ifstream file( path, std::ios::binary );
   std::stringstream all;
   all << file.rdbuf();
   return all.str();
}

class Program : public testing::Test {
 protected:
   std::string file( std::string const & name, std::string const & contents ) const {
      return folder_.file( name, contents );
   }

   /// The shell has `$lspping`; the exit status of the last command is the answer.
   int run( std::string const & command ) {
      std::string const out = file( "out", "" );
      std::string const err = file( "err", "" );
      std::string const line = std::string( "lspping='" LSPPING_PROGRAM "'; { " ) + command +
                               "; } >'" + out + "' 2>'" + err + "'";
      int const status = std::system( line.c_str() );
      out_ = contentsOf( out );
      err_ = contentsOf( err );
      return WIFEXITED( status ) ? WEXITSTATUS( status ) : -1;
   }

   std::string const & out() const { return out_; }
   std::string const & err() const { return err_; }

 private:
   TemporaryFolder folder_;
   std::string out_;
   std::string err_;
};

inline std::string const decodedRequest =
   "1 LspPingHdr:\tver(1),\tflag(0),\tmsgType(1),\treplyMode(2),\treturnCode(0),\treturnSubcode(0),"
   "\tsenderHandle(0x1234),\tseqNum(0x1),\ttsSenSeconds(0x0),\ttsSentmSeconds(0x0),"
   "\ttsRcvdSeconds(0x0),\ttsRcvdmSeconds(0x0)\n"
   "   TargetFecStack\n"
   "      LdpIpv4( '10.1.2.0/24' )\n";
