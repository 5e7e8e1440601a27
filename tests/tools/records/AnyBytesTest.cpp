#include "tests/tools/records/RecordLines.h"

#include <random>

namespace {

// A message with each kind of record in it.
Bytes everything() {
   Bytes const multipath = tlv( 1, { 8, 0, 8, 0, 127, 2, 1, 0, 0x07, 0xff, 0x0f, 0xfc } );
   Bytes const subTlvs = multipath + tlv( 2, { 0x18, 0x96, 1, 3 } ) +
                         tlv( 3, Bytes{ 2, 1, 12, 0, 10, 0, 0, 7 } + ldp );
   Bytes const p2mp = tlv( 19, { 0, 1, 4, 10, 0, 0, 1, 0, 7, 1, 0, 4, 0, 0, 0x12, 0x67 } );
   Bytes const pseudowire = tlv(
      11, { 10, 0, 0, 1, 10, 0, 0, 9, 0, 5, 1, 2, 1, 2, 1, 2, 32, 0x21, 1, 2, 48, 0x31, 0, 0 } );
   return tlv( 1, ldp + nil + p2mp + pseudowire ) +
          tlv( 20, Bytes{ 5, 220, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } + word( subTlvs.size() ) +
                      subTlvs ) +
          tlv( 2,
               { 5, 220, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 2, 0, 0, 4, 127, 0, 0, 1, 0, 1, 1, 3 } ) +
          tlv( 7, { 1, 0, 0, 0, 10, 0, 0, 9, 10, 0, 1, 2, 0, 1, 1, 64 } ) + tlv( 3, { 2, 7 } );
}

bool has( std::string const & text, std::string_view piece ) {
   return text.find( piece ) != std::string::npos;
}

// Bytes at odd addresses in blocks of just their size: a sanitizer sees what is read too much.
TEST( AnyBytes, giveTheSameRecordsAsTextAndAsJson ) {
   constexpr unsigned seed = 8029;
   SCOPED_TRACE( seed );
   std::mt19937 random( seed );
   Bytes const whole = everything();
   ASSERT_EQ( std::ranges::count( recordLines( whole ), '\n' ), 4 );
   int withRecords = 0;
   for( int round = 0; round < 5000; ++round ) {
      Bytes bytes = whole;
      for( unsigned change = random() % 4 + 1; change > 0; --change )
         bytes[random() % bytes.size()] =
            static_cast< U8 >( random() % 2 ? random() % 24 : random() );
      if( random() % 4 == 0 )
         bytes.resize( random() % bytes.size() );
      std::string const lines = recordLines( bytes );
      std::string const json = recordsJson( bytes );
      EXPECT_EQ( has( lines, "   LspPing::LspPingFecStack(" ), has( json, R"("fecStack":)" ) );
      EXPECT_EQ( has( lines, "   LspPing::LspPingDownstreamMappingInfoSet(" ),
                 has( json, R"("downstreamMappings":)" ) );
      EXPECT_EQ( has( lines, "   LspPing::LspPingIntfAndLabelStackInfo(" ),
                 has( json, R"("intfAndLabelStack":)" ) );
      EXPECT_EQ( has( lines, "   LspPing::LspPingPadInfo(" ), has( json, R"("pad":)" ) );
      withRecords += lines.empty() ? 0 : 1;
   }
   // Most changes break an element and not its neighbours.
   EXPECT_GT( withRecords, 2500 );
}

} // namespace
