#include "MplsUtils/LspPing/platform/Kiv/System.h"

#include <gtest/gtest.h>

#include <ctime>
#include <thread>
#include <type_traits>

namespace {

using Kiv::System;

static_assert( std::is_same_v< Kiv::Seconds, double > );

TEST( System, tellsTheMachinesTime ) {
   double const before = static_cast< double >( std::time( nullptr ) );
   Kiv::Seconds const now = System::currentTimeUtc();
   double const after = static_cast< double >( std::time( nullptr ) );
   EXPECT_GE( now, before - 1 );
   EXPECT_LE( now, after + 2 );
}

TEST( System, tellsTheTimeOfTheClockThatWasSet ) {
   System::Clock const before = System::clockIs( [] { return 1234.5; } );
   EXPECT_EQ( System::currentTimeUtc(), 1234.5 );
   System::Clock const fixed = System::clockIs( [] { return 7.25; } );
   EXPECT_EQ( System::currentTimeUtc(), 7.25 );
   System::clockIs( fixed );
   EXPECT_EQ( System::currentTimeUtc(), 1234.5 );
   System::clockIs( before );
   EXPECT_GT( System::currentTimeUtc(), 1'600'000'000.0 );
}

TEST( System, letsTheClockBeSetWhileOthersReadIt ) {
   System::Clock const before = System::clockIs( [] { return 1.0; } );
   bool allKnown = true;
   std::thread reader{ [&allKnown] {
      for( int round = 0; round < 20'000; ++round ) {
         Kiv::Seconds const now = System::currentTimeUtc();
         allKnown = allKnown && ( now == 1.0 || now == 2.0 );
      }
   } };
   for( int round = 0; round < 20'000; ++round ) {
      System::clockIs( round % 2 == 0 ? System::Clock{ [] { return 2.0; } }
                                      : System::Clock{ [] { return 1.0; } } );
   }
   reader.join();
   System::clockIs( before );
   EXPECT_TRUE( allKnown );
}

} // namespace
