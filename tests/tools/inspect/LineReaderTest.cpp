#include "tools/lspping/inspect/LineReader.h"

#include "tests/tools/inspect/Run.h"

#include <gtest/gtest.h>

namespace {

using LspPingTool::InputFile;
using LspPingTool::LineReader;
using Step = LineReader::Step;

class Lines : public testing::Test {
 protected:
   /// Asks for one step, which must be this line.
   void expectLine( LineReader & reader, std::string_view line, U64 number ) {
      ASSERT_EQ( reader.next(), Step::line );
      EXPECT_EQ( reader.line().size(), line.size() );
      EXPECT_TRUE( reader.line() == line );
      EXPECT_EQ( reader.number(), number );
   }
};

TEST_F( Lines, comeWithoutTheirEnds ) {
   InspectTest::MemoryFile const file( "a\n\nb\r\n\r\rc\r\r\nd" );
   InputFile input( "/proc/self/fd/" + std::to_string( file.descriptor() ) );
   LineReader reader( input );
   expectLine( reader, "a", 1 );
   expectLine( reader, "", 2 );
   expectLine( reader, "b", 3 );
   expectLine( reader, "\r\rc", 4 );
   expectLine( reader, "d", 5 );
   EXPECT_EQ( reader.next(), Step::end );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST_F( Lines, goOnBehindOneThatIsTooLong ) {
   std::string const longest( LineReader::maximumLength, 'x' );
   InspectTest::MemoryFile const file( longest + "\n" + longest + "x\n" + longest );
   InputFile input( "/proc/self/fd/" + std::to_string( file.descriptor() ) );
   LineReader reader( input );
   expectLine( reader, longest, 1 );
   EXPECT_EQ( reader.next(), Step::tooLong );
   EXPECT_EQ( reader.number(), 2U );
   expectLine( reader, longest, 3 );
   EXPECT_EQ( reader.next(), Step::end );
}

TEST_F( Lines, areNoneOfAnEmptyFile ) {
   InspectTest::MemoryFile const file;
   InputFile input( "/proc/self/fd/" + std::to_string( file.descriptor() ) );
   EXPECT_EQ( LineReader( input ).next(), Step::end );
}

} // namespace
