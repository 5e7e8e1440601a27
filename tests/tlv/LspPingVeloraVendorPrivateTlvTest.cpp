#include "MplsUtils/LspPing/tlv/LspPingVeloraVendorPrivateTlv.h"

#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

// The build's to choose, so its bytes are not written out here.
constexpr U32 vendor = static_cast< U32 >( LspPingVendorIana::VeloraIana );

TEST( LspPingVeloraVendorPrivateTlv, readsTheEnterpriseNumber ) {
   WireBytes bytes( "fe ed 00 0c 01 02 03 04" );
   auto const & view = bytes.as< LspPingVeloraVendorPrivateTlv >();
   EXPECT_EQ( view.type(), 65261 );
   EXPECT_EQ( view.length(), 12 );
   EXPECT_EQ( view.vendorIana(), 0x01020304u );
}

TEST( LspPingVeloraVendorPrivateTlv, writesItsOwnBytesOnly ) {
   using View = LspPingVeloraVendorPrivateTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.vendorIanaIs( 0x01020304 ); } ),
              "a5 a5 a5 a5 01 02 03 04" );
   EXPECT_EQ( hexOfNew< View >(), "00 00 00 00 00 00 00 00" );
}

TEST( LspPingVeloraVendorPrivateTlv, isValidWithItsTypeAndVendorWhateverItsLength ) {
   WireBytes bytes( 8, 0 );
   auto & view = bytes.as< LspPingVeloraVendorPrivateTlv >();
   view.vendorIanaIs( vendor );
   EXPECT_EQ( validityMismatches< LspPingVeloraVendorPrivateTlv >(
                 bytes, []( unsigned type, unsigned ) { return type == 65261; } ),
              0u );
   for( U32 const other : { vendor + 1, vendor - 1, vendor ^ 0x80000000u, 0u, 0xffffffffu } ) {
      view.vendorIanaIs( other );
      EXPECT_EQ( validityMismatches< LspPingVeloraVendorPrivateTlv >(
                    bytes, []( unsigned, unsigned ) { return false; } ),
                 0u );
   }
}

TEST( LspPingVeloraVendorPrivateTlv, printsNothingOfItsValue ) {
   WireBytes bytes( "fe ed 00 0c 00 00 00 00" );
   auto & view = bytes.as< LspPingVeloraVendorPrivateTlv >();
   view.vendorIanaIs( vendor );
   EXPECT_EQ( view.stringValue(), "VeloraVendorPrivate()" );
   view.vendorIanaIs( vendor + 1 );
   EXPECT_FALSE( view.valid() );
   EXPECT_EQ( view.stringValue(), "Invalid Velora Vendor Private TLV" );
   EXPECT_EQ( LspPingVeloraVendorPrivateTlv().stringValue(), "Invalid Velora Vendor Private TLV" );
}

TEST( LspPingVeloraVendorPrivateTlv, readsAndWritesItsAttributes ) {
   EXPECT_EQ(
      attributeLines< LspPingVeloraVendorPrivateTlv >(),
      ( Lines{ "130 vendorIana U32 rw", "131 valid bool r", "132 stringValue Orlo::String r" } ) );
   WireBytes bytes( "fe ed 00 0c 00 00 00 09" );
   auto & view = bytes.as< LspPingVeloraVendorPrivateTlv >();
   U32 number = 0;
   EXPECT_EQ( outcomeOf( view, 130, Kiv::OpCode::read, number ), Kiv::Outcome::done );
   EXPECT_EQ( number, 9u );
   number = 0x01020304;
   EXPECT_EQ( outcomeOf( view, 130, Kiv::OpCode::write, number ), Kiv::Outcome::done );
   EXPECT_EQ( bytes.hex(), "fe ed 00 0c 01 02 03 04" );
   bool valid = true;
   EXPECT_EQ( outcomeOf( view, 131, Kiv::OpCode::read, valid ), Kiv::Outcome::done );
   EXPECT_FALSE( valid );
   EXPECT_EQ( outcomeOf( view, 131, Kiv::OpCode::write, valid ), Kiv::Outcome::notPermitted );
}

TEST( LspPingVeloraVendorPrivateTlvParser, forwardsJudgementAndText ) {
   WireBytes bytes( "ff fe ed 00 0c 00 00 00 00" );
   auto const parser = lspPingVeloraVendorPrivateTlvParserFactory(
      Velnet::pktFactory( std::span( bytes.data(), bytes.size() ) ), 1 );
   EXPECT_EQ(
      attributeLines( parser->fwkType() ),
      ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r",
               "132 header LspPingVeloraVendorPrivateTlv* r", "133 handleHeader() void c",
               "134 valid bool r", "135 stringValue Orlo::String r", "136 totalLength U16 r" } ) );
   EXPECT_FALSE( Kiv::read< bool >( *parser, "valid" ) );
   parser->header()->vendorIanaIs( vendor );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( *parser, "stringValue" ), "VeloraVendorPrivate()" );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 16 );
}

} // namespace
} // namespace LspPing
