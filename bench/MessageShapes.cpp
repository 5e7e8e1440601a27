#include "bench/Messages.h"

#include <cstdlib>

namespace Bench {

std::span< Reply const > replies() {
   static constexpr std::size_t mostLabels = 4;
   static std::array< U8, 32 > const mask = [] {
      std::array< U8, 32 > bytes{};
      bytes.fill( 0x5a );
      return bytes;
   }();
   static std::vector< Velnet::MplsLabelEntry > const labels(
      mostLabels, Velnet::MplsLabelEntry( 100704, 5, true, 3 ) );
   static std::vector< Reply > const all = [] {
      std::vector< Reply > made( 61 );
      for( std::size_t i = 0; i < made.size(); ++i ) {
         U32 const number = static_cast< U32 >( i );
         made[i].handle = 0x1a2b3c00 + number;
         made[i].sequence = number;
         made[i].prefix = Velnet::IpAddr::fromHost( 0x0a010000 + ( number << 8 ) );
         made[i].vpnPrefix = Velnet::IpAddr::fromHost( 0xc0000200 + ( number << 8 ) );
         made[i].nextHop = Velnet::IpAddr::fromHost( 0x0a000102 + number );
         made[i].interface = Velnet::IpAddr::fromHost( 0x0a000101 + number );
         made[i].multipathBase = Velnet::IpAddr::fromHost( 0x7f000000 + number );
         made[i].labels = std::span( labels ).first( 1 + i % mostLabels );
         made[i].multipathMask = std::span( mask ).first( 4 + i % 7 * 4 );
      }
      return made;
   }();
   return all;
}

std::vector< std::vector< U8 > > const & replyMessages() {
   static std::vector< std::vector< U8 > > const all = [] {
      std::vector< std::vector< U8 > > made;
      LspPing::LspPingMessageReader reader;
      ByHand found;
      for( Reply const & reply : replies() ) {
         std::vector< U8 > byHand( 1500, 0xa5 );
         byHand.resize( writeByHand( byHand, reply ) );
         std::vector< U8 > throughLibrary( 1500, 0xa5 );
         throughLibrary.resize( writeThroughLibrary( throughLibrary, reply ) );
         // Both sides do the same, or the row says nothing.
         if( byHand.empty() || byHand != throughLibrary ||
             readByHand( found, byHand ) != readThroughLibrary( reader, byHand ) ||
             !found.problems.empty() )
            std::abort();
         made.push_back( byHand );
      }
      return made;
   }();
   return all;
}

} // namespace Bench
