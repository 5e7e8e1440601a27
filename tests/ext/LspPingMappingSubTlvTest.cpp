#include "MplsUtils/LspPing/ext/mapping/LspPingMappingSubTlv.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using FecTesting::Laid;

// A mapping with these sub-TLVs.
std::string mappingOf( std::string_view hex ) {
   Bytes const subTlvs = bytesOf( hex );
   return hexOf( Bytes{ 0, 20 } + word( 16 + subTlvs.size() ) +
                 Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } + word( subTlvs.size() ) +
                 subTlvs );
}

// The sub-TLVs of a mapping as they are written.
template < class Write >
std::string writtenInMapping( Write write ) {
   std::string const hex = written( [&]( LspPingMessageWriter & writer ) {
      auto const mapping = writer.open< LspPingDdmapTlv >();
      write( writer );
   } );
   return hex.size() > 60 ? hex.substr( 60 ) : hex;
}

constexpr char const * labels = "00 02 00 08 00 06 40 03 00 06 51 05";

TEST( LspPingLabelStackSubTlv, isReadWithItsLabels ) {
   EXPECT_EQ( readTlvs( mappingOf( labels ), 1 ), "LabelStack" );
   LspPingMessageReader reader;
   Bytes const message = Bytes{ 0, 1, 0, 0, 1 } + Bytes( 27 ) + bytesOf( mappingOf( labels ) );
   LspPingElementRef const element = reader.read( message ).element( 1 );
   ASSERT_NE( element.as< LspPingLabelStackSubTlv >(), nullptr );
   EXPECT_TRUE( element.labels().hasProtocol() );
   ASSERT_EQ( element.labels().size(), 2u );
   EXPECT_EQ( element.labels()[0].label(), 100u );
   EXPECT_EQ( element.labels()[1].ttl(), 5 );
}

TEST( LspPingLabelStackSubTlv, isWrittenByItsClassAndByItsCode ) {
   auto const write = []( auto & stack ) {
      EXPECT_TRUE( stack.label( 100, 0, false, 3 ) );
      EXPECT_TRUE( stack.label( 101, 0, true, 5 ) );
   };
   EXPECT_EQ( writtenInMapping( [&]( LspPingMessageWriter & writer ) {
                 auto stack = writer.open< LspPingLabelStackSubTlv >();
                 write( stack );
              } ),
              labels );
   EXPECT_EQ( writtenInMapping( [&]( LspPingMessageWriter & writer ) {
                 auto stack = writer.open( LspPingDDMappingSubTlvType::LabelStack );
                 write( stack );
              } ),
              labels );
   // Without labels, and in a place that has room for it only.
   EXPECT_EQ( writtenInMapping( [&]( LspPingMessageWriter & writer ) {
                 writer.open( LspPingDDMappingSubTlvType::LabelStack ).close();
              } ),
              "00 02 00 00" );
   EXPECT_EQ( writtenInMapping( [&]( LspPingMessageWriter & writer ) {
                 writer.open< LspPingLabelStackSubTlv >().close();
              } ),
              "00 02 00 00" );
}

// What the class says no more of than the header takes no bytes of its own.
TEST( LspPingLabelStackSubTlv, takesLabelsOnly ) {
   EXPECT_EQ( writtenInMapping( [&]( LspPingMessageWriter & writer ) {
                 U8 const byte[]{ 1 };
                 EXPECT_FALSE(
                    writer.open( LspPingDDMappingSubTlvType::LabelStack ).bytes( byte ) );
              } ),
              "misplaced" );
}

// Elements whose class says more are still written through it.
TEST( LspPingLocalIntfIndexSubTlv, isNotOpenedByItsCode ) {
   EXPECT_EQ( writtenInMapping( [&]( LspPingMessageWriter & writer ) {
                 writer.open( LspPingExtDDMappingSubTlvType::LocalIntfIndex ).close();
              } ),
              "needsClass" );
}

TEST( LspPingLabelStackSubTlv, isValidWithItsType ) {
   WireBytes bytes( 4, 0xa5 );
   EXPECT_EQ( validityMismatches< LspPingLabelStackSubTlv >(
                 bytes, []( unsigned type, unsigned ) { return type == 2; } ),
              0u );
   EXPECT_EQ( bytes.as< LspPingLabelStackSubTlv >().stringValue(), "Invalid LabelStackSubTlv" );
}

template < class View >
void expectIntfIndex( U8 code, std::string const & name ) {
   std::string const hex = hexOf( Bytes{ 0, code, 0, 4, 0xff, 0xff, 0xff, 0xfe } );
   EXPECT_EQ( Laid< View >( hex )->intfIndex(), 0xfffffffeu );
   EXPECT_EQ( readTlvs( mappingOf( hex ), 1 ), name + "( 4294967294 )" );
   EXPECT_EQ( writtenInMapping( []( LspPingMessageWriter & writer ) {
                 writer.add< View >( []( auto & view ) { view.intfIndexIs( 0xfffffffe ); } );
              } ),
              hex );
   expectSets< View >( &View::intfIndexIs, "intfIndex", U32{ 0x01020304 }, "a5a5a5a5 01020304" );
   WireBytes bytes( 8, 0xa5 );
   EXPECT_EQ(
      validityMismatches< View >(
         bytes, [&]( unsigned type, unsigned length ) { return type == code && length == 4; } ),
      0u );
   bytes.as< View >().typeIs( code );
   bytes.as< View >().lengthIs( 4 );
   EXPECT_TRUE( bytes.as< View >().valid() );
   bytes.as< View >().lengthIs( 5 );
   EXPECT_EQ( bytes.as< View >().stringValue(), "Invalid " + name + "SubTlv" );
   EXPECT_EQ( readTlvs( mappingOf( hexOf( Bytes{ 0, code, 0, 8 } + Bytes( 8 ) ) ), 1 ),
              name + ": length 8, expected 4" );
}

TEST( LspPingLocalIntfIndexSubTlv, isReadAndWritten ) {
   expectIntfIndex< LspPingLocalIntfIndexSubTlv >( 4, "LocalIntfIndex" );
}

TEST( LspPingRemoteIntfIndexSubTlv, isReadAndWritten ) {
   expectIntfIndex< LspPingRemoteIntfIndexSubTlv >( 5, "RemoteIntfIndex" );
}

} // namespace
