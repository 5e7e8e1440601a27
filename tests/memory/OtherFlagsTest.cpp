// This file is compiled as if with the sanitizer setting that the library does not have.
#if defined( __SANITIZE_ADDRESS__ )
#undef __SANITIZE_ADDRESS__
#else
#define __SANITIZE_ADDRESS__ 1 // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
#endif

#include "tests/memory/Allocations.h"

#include "MplsUtils/LspPing/LspPingHdr.h"

#include <gtest/gtest.h>

// A caller's own `new` and the library's release, and the other way round, agree on where memory
// comes from, however the caller was built.
namespace LspPing {
namespace {

TEST( OtherFlags, giveAndTakeMemoryWhereTheLibraryDoes ) {
   auto const pkt = Velnet::pktFactory( std::vector< U8 >( 64 ) );
   auto const inAndOut = [&] {
      // The destructor is the library's: its table of virtual functions names it.
      Orlo::Ptr< LspPingHdrParser >( new LspPingHdrParser( pkt, 0 ) ).reset();
      Orlo::Ptr< Orlo::Node > fromLibrary = lspPingHdrParserFactory( pkt, 0 );
      fromLibrary.reset();
   };
   inAndOut();
   std::size_t const held = MemoryTest::blocksHeld();
   for( int i = 0; i < 100; ++i )
      inAndOut();
   EXPECT_EQ( MemoryTest::blocksHeld(), held );
}

} // namespace
} // namespace LspPing
