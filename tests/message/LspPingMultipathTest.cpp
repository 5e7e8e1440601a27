#include "MplsUtils/LspPing/message/LspPingMultipath.h"
#include "tests/Addresses.h"
#include "tests/WireBytes.h"
#include "tests/message/MessageBytes.h"

namespace {

using namespace LspPing;
using namespace MessageBytes;
using Velnet::IpAddr;

constexpr LspPingMultipathType combined = LspPingMultipath::ipAndLabelSet;

LspPingMultipath multipathOf( WireBytes const & bytes, bool isMappingIpv6 = false ) {
   return { combined, bytes.bytes(), isMappingIpv6 };
}

bool isWellFormed( std::string_view hex, bool isMappingIpv6 = false ) {
   WireBytes const bytes( hex );
   return multipathOf( bytes, isMappingIpv6 ).isWellFormed();
}

// Two addresses, a set of labels, and a label for each address.
constexpr char const * both = "02 00 08 00 7f 00 00 01 7f 00 00 02 "
                              "09 00 08 00 00 00 04 80 50 00 00 01 "
                              "00 06 00 00 00 00 10 0f ff ff";

TEST( LspPingMultipath, showsThePartsOfAnIpAndLabelSet ) {
   WireBytes const bytes( both );
   LspPingMultipath const multipath = multipathOf( bytes );
   EXPECT_TRUE( multipath.isIpAndLabelSet() );
   EXPECT_TRUE( multipath.isWellFormed() );
   EXPECT_FALSE( multipath.isSet() || multipath.isList() || multipath.isLabels() );
   EXPECT_EQ( multipath.begin(), multipath.end() );

   EXPECT_EQ( multipath.ip().type(), LspPingMultipathType::ipMultipath );
   ASSERT_EQ( multipath.ip().addressCount(), 2u );
   EXPECT_EQ( multipath.ip().address( 1 ), IpAddr( 127, 0, 0, 2 ) );
   EXPECT_EQ( multipath.labels().type(), LspPingMultipathType::maskedLabelSetMultipath );
   EXPECT_EQ( multipath.labels().baseLabel(), 1152u );
   EXPECT_EQ( hexOf( multipath.labels().mask() ), "50 00 00 01" );
   ASSERT_EQ( multipath.associatedLabels().size(), 2u );
   EXPECT_EQ( multipath.associatedLabels()[0], 16u );
   EXPECT_EQ( multipath.associatedLabels()[1], 0x0fffffu );
}

TEST( LspPingMultipath, takesPartsThatAreLeftOut ) {
   EXPECT_TRUE( isWellFormed( "00 00 00 00 00 00 00 00 00 00 00 00" ) );
   EXPECT_TRUE( isWellFormed( "08 00 08 00 7f 00 00 00 ff 00 00 00 00 00 00 00 00 00 00 00" ) );
   EXPECT_TRUE( isWellFormed( "04 00 08 00 7f 00 00 01 7f 00 00 09 00 00 00 00 00 00 00 00" ) );
   EXPECT_TRUE( isWellFormed( "00 00 00 00 09 00 08 00 00 00 00 10 ff 00 00 00 00 03 00 00 00 00 "
                              "20" ) );
   WireBytes const bytes( "00 00 00 00 00 00 00 00 00 00 00 00" );
   EXPECT_EQ( multipathOf( bytes ).ip().type(), LspPingMultipathType::noMultipath );
   EXPECT_TRUE( multipathOf( bytes ).ip().bytes().empty() );
   EXPECT_TRUE( multipathOf( bytes ).labels().bytes().empty() );
   EXPECT_EQ( multipathOf( bytes ).associatedLabels().size(), 0u );
}

// RFC 8012 section 6 says so of the part's type and length; what must be zero is not looked at.
TEST( LspPingMultipath, asksForPartsOfTheirTypesAndLengths ) {
   auto const of = []( std::string const & ip, std::string const & labels,
                       std::string const & associated ) {
      return isWellFormed( ip + " " + labels + " " + associated );
   };
   std::string const none = "00 00 00 00";
   EXPECT_TRUE( of( "00 00 00 ff", "00 00 00 ff", "00 00 ff ff" ) );
   // Addresses.
   EXPECT_TRUE( of( "02 00 04 00 7f 00 00 01", none, none ) );
   EXPECT_FALSE( of( "00 00 04 00 7f 00 00 01", none, none ) );
   EXPECT_FALSE( of( "02 00 03 00 7f 00 00", none, none ) );
   EXPECT_FALSE( of( "04 00 04 00 7f 00 00 01", none, none ) );
   EXPECT_FALSE( of( "08 00 04 00 7f 00 00 01", none, none ) );
   EXPECT_FALSE( of( "09 00 08 00 00 00 00 10 ff 00 00 00", none, none ) );
   EXPECT_FALSE( of( "0a 00 00 00", none, none ) );
   EXPECT_FALSE( of( "0a 00 0c 00 00 00 00 00 00 00 00 00 00 00 00 00", none, none ) );
   EXPECT_FALSE( of( "4d 00 04 00 7f 00 00 01", none, none ) );
   // Labels.
   EXPECT_FALSE( of( none, "09 00 04 00 00 00 00 10", none ) );
   EXPECT_FALSE( of( none, "00 00 04 00 00 00 00 10", none ) );
   EXPECT_FALSE( of( none, "02 00 04 00 7f 00 00 01", none ) );
   // Associated ones.
   EXPECT_TRUE( of( none, none, "00 03 00 00 00 00 10" ) );
   EXPECT_FALSE( of( none, none, "00 04 00 00 00 00 00 10" ) );
   EXPECT_FALSE( of( none, none, "00 03 00 00 00 00" ) );
   EXPECT_FALSE( of( none, none, "00 03 00 00 00 00 10 00" ) );
   EXPECT_FALSE( of( none, none, none + " 00" ) );
}

// The bytes end where their heap block ends.
TEST( LspPingMultipath, readsWhatIsWholeOfAnIpAndLabelSet ) {
   Bytes const whole = bytesOf( both );
   for( std::size_t size = 1; size < whole.size(); ++size ) {
      WireBytes const bytes( std::span< U8 const >( whole ).first( size ) );
      LspPingMultipath const multipath = multipathOf( bytes );
      EXPECT_FALSE( multipath.isWellFormed() ) << size;
      EXPECT_EQ( multipath.ip().addressCount(), size < 8 ? 0u : size < 12 ? 1u : 2u ) << size;
      EXPECT_EQ( multipath.ip().type(),
                 size < 4 ? LspPingMultipathType::noMultipath : LspPingMultipathType::ipMultipath )
         << size;
      EXPECT_EQ( multipath.labels().isSet(), size > 20 ) << size;
      EXPECT_EQ( multipath.associatedLabels().size(), size < 31 ? 0u : 1u ) << size;
   }
   // A length beyond the end leaves nothing for the others.
   WireBytes const beyond( "02 ff ff 00 7f 00 00 01 7f 00 00 02 09 00 08 00" );
   EXPECT_EQ( multipathOf( beyond ).ip().addressCount(), 3u );
   EXPECT_TRUE( multipathOf( beyond ).labels().bytes().empty() );
   EXPECT_EQ( multipathOf( beyond ).associatedLabels().size(), 0u );
}

TEST( LspPingMultipath, takesTheFamilyOfTheMappingForTheAddressesOfAnIpAndLabelSet ) {
   constexpr char const * hex = "02 00 10 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 "
                                "00 00 00 00 00 00 00 00";
   WireBytes const bytes( hex );
   EXPECT_TRUE( multipathOf( bytes, true ).ip().isIpv6() );
   EXPECT_EQ( multipathOf( bytes, true ).ip().address( 0 ), address6( "2001:db8::1" ) );
   EXPECT_FALSE( multipathOf( bytes, true ).isIpv6() );
   EXPECT_FALSE( multipathOf( bytes, false ).ip().isIpv6() );
   EXPECT_EQ( multipathOf( bytes, false ).ip().addressCount(), 4u );
   EXPECT_TRUE( isWellFormed( hex, true ) );
}

TEST( LspPingMultipath, ofAnIpAndLabelSetIsWrittenAndReadBack ) {
   auto const write = []( std::string_view hex ) {
      return written( [&]( LspPingMessageWriter & writer ) {
         auto const mapping = writer.open< LspPingDdmapTlv >();
         writer.open< LspPingMultipathSubTlv >().multipath( combined, bytesOf( hex ) );
      } );
   };
   std::string const head = "00 14 00 3c 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 2c "
                            "00 01 00 26 0a 00 22 00 ";
   EXPECT_EQ( write( both ), head + both + " 00 00" );
   EXPECT_EQ( write( "00 00 00 00 00 00 00 00" ),
              "multipathWrong at 52: 00 14 00 10 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00" );
   Bytes const message = Bytes{ 0, 1, 0, 0, 1 } + Bytes( 27 ) + bytesOf( head + both + " 00 00" );
   EXPECT_EQ( problemOf( message ), "" );
   LspPingMessageReader reader;
   LspPingElementRef const element = reader.read( message ).element( 1 );
   ASSERT_TRUE( element.hasMultipath() );
   EXPECT_EQ( element.multipath().associatedLabels()[1], 0x0fffffu );
}

} // namespace
