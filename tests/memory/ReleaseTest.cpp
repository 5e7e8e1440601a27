#include "tests/memory/Allocations.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

// Every block that an object takes is given back with it, to the slab or to the heap.
namespace LspPing {
namespace {

template < class Use >
void expectNothingKept( Use use ) {
   // More rounds than a magazine of the slab has places: it asks for memory seldom.
   constexpr int rounds = 500;
   use();
   std::size_t const held = MemoryTest::blocksHeld();
   for( int round = 0; round < rounds; ++round )
      use();
   EXPECT_LE( MemoryTest::blocksHeld(), held );
}

TEST( Release, givesBackWhatAPadTakes ) {
   expectNothingKept( [] {
      std::unique_ptr< LspPingPadTlv > const pad = lspPingPadTlvFactory();
      pad->paddingIs( 20, 1 );
   } );
}

TEST( Release, givesBackWhatRecordsTake ) {
   expectNothingKept( [] {
      LspPingDownstreamMappingInfoSet set;
      for( U8 key = 0; key < 30; ++key )
         set.lspPingDownstreamMappingInfoIs( key, LspPingDownstreamMappingInfo() );
      LspPingFecStack stack;
      for( U8 key = 0; key < 30; ++key )
         stack.fecInfoIs( key, LspPingFecInfo() );
   } );
}

// Of every class of the library that is made by name.
TEST( Release, givesBackWhatNodesTake ) {
   auto const pkt = Velnet::pktFactory( std::vector< U8 >( 64 ) );
   std::size_t classes = 0;
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      for( U16 i = 0; i < module->count; ++i ) {
         if( module->types[i].kind != Kiv::Kind::object )
            continue;
         Kiv::Operations const & operations = *module->types[i].operations;
         if( operations.createEmpty != nullptr ) {
            expectNothingKept( [&] { operations.createEmpty(); } );
            ++classes;
         } else if( operations.create != nullptr ) {
            expectNothingKept( [&] {
               Orlo::Ptr< Orlo::Node > const parser = operations.create( pkt, 0 );
               if( parser->fwkType() == Kiv::typeOf< LspPingPadTlvParser >() )
                  delete static_cast< LspPingPadTlvParser * >( parser.get() )->header();
            } );
            ++classes;
         }
      }
   }
   EXPECT_GE( classes, 32u );
}

} // namespace
} // namespace LspPing
