#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST( OutOfMemoryDeathTest, endsTheProcessWithALine ) {
   EXPECT_EXIT( Kiv::outOfMemory( "a record" ), testing::KilledBySignal( SIGABRT ),
                "^a record: out of memory\n$" );
   EXPECT_EXIT( Kiv::orOutOfMemory( "a record", []() -> int { throw std::bad_alloc(); } ),
                testing::KilledBySignal( SIGABRT ), "^a record: out of memory\n$" );
}

TEST( OutOfMemoryDeathTest, endsItAsTheProgramLikes ) {
   auto const end = [] {
      Kiv::outOfMemoryHandlerIs( []( std::string_view what ) {
         (void)std::fprintf( stderr, "no room for %s\n", std::string( what ).c_str() );
         std::_Exit( 7 );
      } );
      Kiv::outOfMemory( "a record" );
   };
   EXPECT_EXIT( end(), testing::ExitedWithCode( 7 ), "^no room for a record\n$" );
}

TEST( OutOfMemoryDeathTest, endsItWhereTheProgramDoesNot ) {
   auto const end = [] {
      Kiv::outOfMemoryHandlerIs( []( std::string_view ) {} );
      Kiv::outOfMemory( "a record" );
   };
   EXPECT_EXIT( end(), testing::KilledBySignal( SIGABRT ), "^a record: out of memory\n$" );
}

} // namespace
