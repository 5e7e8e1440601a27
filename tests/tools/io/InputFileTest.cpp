#include "tools/lspping/io/InputFile.h"

#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace {

using LspPingTool::InputFile;

class InputFileOfAPipe : public testing::Test {
 protected:
   InputFileOfAPipe() {
      EXPECT_EQ( ::pipe( ends_ ), 0 );
      path_ = "/proc/self/fd/" + std::to_string( ends_[0] );
   }
   ~InputFileOfAPipe() override {
      ::close( ends_[0] );
      ::close( ends_[1] );
   }
   void put( std::string const & text ) {
      EXPECT_EQ( ::write( ends_[1], text.data(), text.size() ),
                 static_cast< ssize_t >( text.size() ) );
   }

   int ends_[2];
   std::string path_;
   char buffer_[10];
};

TEST_F( InputFileOfAPipe, callsBeforeItWaitsAndOnlyThen ) {
   int waits = 0;
   InputFile file( path_, [&] {
      ++waits;
      put( "late" );
   } );
   put( "early" );
   EXPECT_EQ( file.read( buffer_, sizeof buffer_ ), 5 );
   EXPECT_EQ( waits, 0 );
   EXPECT_EQ( file.read( buffer_, sizeof buffer_ ), 4 );
   EXPECT_EQ( waits, 1 );
   EXPECT_EQ( file.bytesRead(), 9U );
   EXPECT_EQ( file.failure(), 0 );
}

} // namespace
