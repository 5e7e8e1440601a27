#include "MplsUtils/LspPing/ext/fec/LspPingExtPseudowireFec.h"
#include "MplsUtils/LspPing/message/LspPingWords.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using namespace FecTesting;
using Pseudowire::PseudowireAttachmentIdentifier;
using Pseudowire::PseudowireGenId;
using Velnet::IpAddr;
using Velnet::IpGenAddr;

constexpr char const * l2VpnEndpoint =
   "00 08 00 0e 00 00 00 64 00 00 00 01 00 02 00 03 00 05 00 00";
constexpr char const * l2VpnEndpointText =
   "L2VpnEndpoint( 429496729601, sender: 2, receiver: 3, type: ethernet )";

TEST( LspPingL2VpnEndpointSubTlv, readsAndPrintsTheEdges ) {
   WireBytes bytes( l2VpnEndpoint );
   auto const & fec = bytes.as< LspPingL2VpnEndpointSubTlv >();
   EXPECT_EQ( fec.rd(), 0x6400000001u );
   EXPECT_EQ( fec.senderVeId(), 2 );
   EXPECT_EQ( fec.receiverVeId(), 3 );
   EXPECT_EQ( fec.pwType(), 5 );
   EXPECT_EQ( fec.stringValue(), l2VpnEndpointText );
   EXPECT_EQ( readFec( l2VpnEndpoint ), l2VpnEndpointText );
}

TEST( LspPingL2VpnEndpointSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingL2VpnEndpointSubTlv >( []( auto & fec ) {
                 fec.rdIs( 0x6400000001 );
                 fec.senderVeIdIs( 2 );
                 fec.receiverVeIdIs( 3 );
                 fec.pwTypeIs( 5 );
              } ),
              l2VpnEndpoint );
}

TEST( LspPingL2VpnEndpointSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingL2VpnEndpointSubTlv;
   expectSets< View >( &View::rdIs, "rd", U64{ 0x0102030405060708 },
                       "a5a5a5a5 01020304 05060708 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::senderVeIdIs, "senderVeId", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5 a5a5a5a5" );
   expectSets< View >( &View::receiverVeIdIs, "receiverVeId", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50102 a5a5a5a5" );
   expectSets< View >( &View::pwTypeIs, "pwType", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::mbzIs, "mbz", U16{ 0x0606 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50606" );
}

TEST( LspPingL2VpnEndpointSubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingL2VpnEndpointSubTlv >(), ( Pairs{ { 8, 14 } } ) );
   EXPECT_EQ( Laid< LspPingL2VpnEndpointSubTlv >( 0 )->stringValue(),
              "Invalid L2VpnEndpointSubTlv" );
}

constexpr char const * fec128Deprecated = "00 09 00 0a 0a 00 00 02 80 00 00 07 7f ff 00 00";
constexpr char const * fec128DeprecatedText =
   "Fec128Deprecated( receiver: '10.0.0.2', pseudowire: 2147483655, type: 32767 )";

TEST( LspPingFec128DeprecatedSubTlv, readsAndPrintsThePseudowire ) {
   WireBytes bytes( fec128Deprecated );
   auto const & fec = bytes.as< LspPingFec128DeprecatedSubTlv >();
   EXPECT_EQ( fec.receiverAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( fec.pwId(), 0x80000007u );
   EXPECT_EQ( fec.pwType(), 0x7fff );
   EXPECT_EQ( fec.stringValue(), fec128DeprecatedText );
   EXPECT_EQ( readFec( fec128Deprecated ), fec128DeprecatedText );
   EXPECT_EQ( lspPingWords( LspPingTargetFecSubTlvType( 9 ) ),
              "FEC 128 Pseudowire - IPv4 (deprecated)" );
}

TEST( LspPingFec128DeprecatedSubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingFec128DeprecatedSubTlv >( []( auto & fec ) {
                 fec.receiverAddrIs( IpAddr( 10, 0, 0, 2 ) );
                 fec.pwIdIs( 0x80000007 );
                 fec.pwTypeIs( 0x7fff );
              } ),
              fec128Deprecated );
}

TEST( LspPingFec128DeprecatedSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingFec128DeprecatedSubTlv;
   expectSets< View >( &View::receiverAddrIs, "receiverAddr", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 01020304 a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::pwIdIs, "pwId", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5" );
   expectSets< View >( &View::pwTypeIs, "pwType", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::mbzIs, "mbz", U16{ 0x0606 }, "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a50606" );
}

TEST( LspPingFec128DeprecatedSubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingFec128DeprecatedSubTlv >(), ( Pairs{ { 9, 10 } } ) );
   EXPECT_EQ( Laid< LspPingFec128DeprecatedSubTlv >( 0 )->stringValue(),
              "Invalid Fec128DeprecatedSubTlv" );
}

std::string const edges = "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 "
                          "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 ";

std::string const fec128Ipv6 = "00 18 00 26 " + edges + "80 00 00 07 00 06 00 00";
constexpr char const * fec128Ipv6Text = "Fec128Ipv6( sender: '2001:db8::1', receiver: "
                                        "'2001:db8::2', pseudowire: 2147483655, type: hdlc )";

TEST( LspPingFec128Ipv6SubTlv, readsAndPrintsThePseudowire ) {
   WireBytes bytes( fec128Ipv6 );
   auto const & fec = bytes.as< LspPingFec128Ipv6SubTlv >();
   EXPECT_EQ( fec.senderAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( fec.receiverAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( fec.pwId(), 0x80000007u );
   EXPECT_EQ( fec.pwType(), 6 );
   EXPECT_EQ( fec.stringValue(), fec128Ipv6Text );
   EXPECT_EQ( readFec( fec128Ipv6 ), fec128Ipv6Text );
   EXPECT_EQ( readFec( "00 18 00 28 " + edges + "80 00 00 07 00 06 00 00" ),
              std::string( "FEC128PseudowireIpv6: length 40 counts the padding, expected 38; "
                           "without it: " ) +
                 fec128Ipv6Text );
}

TEST( LspPingFec128Ipv6SubTlv, isWritten ) {
   EXPECT_EQ( writtenFec< LspPingFec128Ipv6SubTlv >( []( auto & fec ) {
                 fec.senderAddrIs( address6( "2001:db8::1" ) );
                 fec.receiverAddrIs( address6( "2001:db8::2" ) );
                 fec.pwIdIs( 0x80000007 );
                 fec.pwTypeIs( 6 );
              } ),
              fec128Ipv6 );
}

TEST( LspPingFec128Ipv6SubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingFec128Ipv6SubTlv;
   std::string const four = " a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5";
   std::string const set = " 00010203 00000000 00000000 00000004";
   expectSets< View >( &View::senderAddrIs, "senderAddr", address6( "1:203::4" ),
                       "a5a5a5a5" + set + four + " a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::receiverAddrIs, "receiverAddr", address6( "1:203::4" ),
                       "a5a5a5a5" + four + set + " a5a5a5a5 a5a5a5a5" );
   expectSets< View >( &View::pwIdIs, "pwId", U32{ 0x01020304 },
                       "a5a5a5a5" + four + four + " 01020304 a5a5a5a5" );
   expectSets< View >( &View::pwTypeIs, "pwType", U16{ 0x0102 },
                       "a5a5a5a5" + four + four + " a5a5a5a5 0102a5a5" );
   expectSets< View >( &View::mbzIs, "mbz", U16{ 0x0606 },
                       "a5a5a5a5" + four + four + " a5a5a5a5 a5a50606" );
}

TEST( LspPingFec128Ipv6SubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingFec128Ipv6SubTlv >(), ( Pairs{ { 24, 38 } } ) );
   EXPECT_EQ( Laid< LspPingFec128Ipv6SubTlv >( 0 )->stringValue(), "Invalid Fec128Ipv6SubTlv" );
}

std::string const identifiers = "01 04 00 00 00 64 02 01 aa 02 02 bb cc";
std::string const fec129Ipv6 = "00 19 00 2f " + edges + "00 07 " + identifiers + " 00";
constexpr char const * fec129Ipv6Text =
   "Fec129Ipv6( sender: '2001:db8::1', receiver: '2001:db8::2', type: ppp, agi 1:00000064 saii "
   "2:aa taii 2:bbcc )";

PseudowireAttachmentIdentifier identifier( U8 type, Bytes const & value ) {
   PseudowireAttachmentIdentifier id( type, static_cast< U8 >( value.size() ) );
   for( U8 i = 0; i < value.size(); ++i )
      id.valueIs( i, value[i] );
   return id;
}
PseudowireGenId const genId( identifier( 1, { 0, 0, 0, 0x64 } ), identifier( 2, { 0xaa } ),
                             identifier( 2, { 0xbb, 0xcc } ) );

TEST( LspPingFec129Ipv6SubTlv, readsAndPrintsThePseudowire ) {
   WireBytes bytes( fec129Ipv6 );
   auto const & fec = bytes.as< LspPingFec129Ipv6SubTlv >();
   EXPECT_EQ( fec.senderAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( fec.receiverAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( fec.pwType(), 7 );
   EXPECT_EQ( fec.pwGenId(), genId );
   EXPECT_EQ( fec.additionalTlvLength(), 7 );
   EXPECT_EQ( LspPingFec129Ipv6SubTlv::minTlvLength, 40 );
   EXPECT_EQ( fec.stringValue(), fec129Ipv6Text );
   EXPECT_EQ( readFec( fec129Ipv6 ), fec129Ipv6Text );
   // The length may count the padding.
   EXPECT_EQ( readFec( "00 19 00 30" + fec129Ipv6.substr( 11 ) ), fec129Ipv6Text );
}

TEST( LspPingFec129Ipv6SubTlv, isWritten ) {
   auto const writtenWith = []( PseudowireGenId const & id ) {
      return written( [&]( LspPingMessageWriter & writer ) {
         auto const stack = writer.open( LspPingTlvType::TargetFecStack );
         auto fec = writer.open< LspPingFec129Ipv6SubTlv >( []( auto & view ) {
            view.senderAddrIs( address6( "2001:db8::1" ) );
            view.receiverAddrIs( address6( "2001:db8::2" ) );
            view.pwTypeIs( 7 );
         } );
         fec.pwGenId( id );
      } );
   };
   EXPECT_EQ( writtenWith( genId ), "00 01 00 34 " + fec129Ipv6 );
   EXPECT_EQ( writtenWith( {} ), "identifiersWrong" );
}

TEST( LspPingFec129Ipv6SubTlv, writesIdentifiersAndTheZerosBehindThem ) {
   WireBytes bytes( 56, 0xa5 );
   auto & fec = bytes.as< LspPingFec129Ipv6SubTlv >();
   fec.lengthIs( 47 );
   EXPECT_EQ( fec.pwGenIdRefusal( genId ), "needs 48 bytes of value, the length is 47" );
   fec.lengthIs( 48 );
   EXPECT_EQ( fec.pwGenIdRefusal( genId ), "" );
   fec.pwGenIdIs( genId );
   std::string expected = "a5 a5 00 30";
   for( int i = 0; i < 34; ++i )
      expected += " a5";
   EXPECT_EQ( bytes.hex(), expected + " " + identifiers + " 00 a5 a5 a5 a5" );
}

std::span< U8 const > bytesUpTo( Bytes const & bytes, std::size_t count ) {
   return std::span< U8 const >( bytes ).first( count );
}

// Each byte of the value is missing once, and the block ends where the length does.
TEST( LspPingFec129Ipv6SubTlv, isValidOnlyWithAllIdentifiers ) {
   Bytes const whole = bytesOf( fec129Ipv6 );
   for( std::size_t length = 34; length <= 47; ++length ) {
      WireBytes const bytes( bytesUpTo( whole, 4 + length ) );
      bytes.data()[3] = static_cast< U8 >( length );
      auto const & fec = bytes.as< LspPingFec129Ipv6SubTlv >();
      EXPECT_EQ( fec.valid(), length == 47 ) << length;
      EXPECT_EQ( LspPingFec129Ipv6SubTlv::kivExtent( bytes.bytes() ),
                 length < 40 ? 38 : 4 + length );
   }
   EXPECT_EQ( LspPingFec129Ipv6SubTlv::kivExtent( bytesUpTo( whole, 37 ) ), 38u );
   WireBytes other( fec129Ipv6 );
   other.data()[1] = 11;
   EXPECT_EQ( other.as< LspPingFec129Ipv6SubTlv >().stringValue(), "Invalid Fec129Ipv6SubTlv" );
}

TEST( LspPingFec129Ipv6SubTlv, isNotWellFormedWithOtherIdentifiers ) {
   EXPECT_EQ( readFec( "00 19 00 28 " + edges + "00 05 00 00 00 00 00 00" ),
              "FEC129PseudowireIpv6: no attachment identifiers" );
   EXPECT_EQ( readFec( "00 19 00 28 " + edges + "00 05 01 09 00 00 00 00" ),
              "FEC129PseudowireIpv6: attachment identifier of 11 bytes, had 6" );
   EXPECT_EQ( readFec( "00 19 00 24 " + edges + "00 05 01 00" ),
              "FEC129PseudowireIpv6: length 36 is too short, needed 40" );
}

constexpr char const * p2mpInBytes = "00 25 00 0b 01 04 00 00 00 64 04 0a 00 00 01 00";
constexpr char const * p2mpInBits =
   "00 25 00 13 02 00 80 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 00";

TEST( LspPingP2mpPseudowireSubTlv, readsAndPrintsGroupAndRoot ) {
   WireBytes bytes( p2mpInBytes );
   auto const & fec = bytes.as< LspPingP2mpPseudowireSubTlv >();
   EXPECT_EQ( fec.agiType(), 1 );
   EXPECT_EQ( fec.agiLength(), 4 );
   EXPECT_EQ( hexOf( fec.agi() ), "00 00 00 64" );
   EXPECT_EQ( fec.ipAddrLen(), 4 );
   EXPECT_EQ( fec.originatingRouter(), IpGenAddr( IpAddr( 10, 0, 0, 1 ) ) );
   constexpr char const * text =
      "P2mpPseudowire( '10.0.0.1', AGI: 1:00000064, address length: 4 bytes )";
   EXPECT_EQ( fec.stringValue(), text );
   EXPECT_EQ( readFec( p2mpInBytes ), text );
}

// RFC 8339 section 3.1 says neither bytes nor bits.
TEST( LspPingP2mpPseudowireSubTlv, takesTheAddressLengthInBitsToo ) {
   WireBytes bytes( p2mpInBits );
   auto const & fec = bytes.as< LspPingP2mpPseudowireSubTlv >();
   EXPECT_TRUE( fec.agi().empty() );
   EXPECT_EQ( fec.ipAddrLen(), 128 );
   EXPECT_EQ( fec.originatingRouter(), IpGenAddr( address6( "2001:db8::1" ) ) );
   EXPECT_EQ( readFec( p2mpInBits ),
              "P2mpPseudowire( '2001:db8::1', AGI: 2:, address length: 128 bits )" );
   EXPECT_EQ( readFec( "00 25 00 07 02 00 20 0a 00 00 01 00" ),
              "P2mpPseudowire( '10.0.0.1', AGI: 2:, address length: 32 bits )" );
}

// In an exact-size block: whatever the bytes say, nothing is read beyond the length.
TEST( LspPingP2mpPseudowireSubTlv, isValidOnlyWithTheTailThatItsLengthsSay ) {
   Bytes const whole = bytesOf( p2mpInBytes );
   for( std::size_t length = 2; length <= 12; ++length ) {
      for( unsigned byte = 0; byte < 256; ++byte ) {
         WireBytes const bytes( bytesUpTo( whole, 4 + length ) );
         bytes.data()[3] = static_cast< U8 >( length );
         auto const & fec = bytes.as< LspPingP2mpPseudowireSubTlv >();
         U8 & agiLength = bytes.data()[5];
         agiLength = static_cast< U8 >( byte );
         EXPECT_EQ( fec.valid(), length == 11 && byte == 4 ) << length << ' ' << byte;
         EXPECT_EQ( fec.agi().size(), std::min< std::size_t >( byte, length - 2 ) );
         agiLength = 4;
         if( length <= 6 ) {
            EXPECT_EQ( fec.ipAddrLen(), 0 );
            continue;
         }
         bytes.data()[10] = static_cast< U8 >( byte );
         EXPECT_EQ( fec.valid(), length == 11 && ( byte == 4 || byte == 32 ) )
            << length << ' ' << byte;
      }
   }
}

TEST( LspPingP2mpPseudowireSubTlv, isNotWellFormedWithAnotherTail ) {
   EXPECT_EQ( readFec( "00 25 00 0b 01 04 00 00 00 64 10 0a 00 00 01 00" ),
              "P2mpPseudowire: not valid" );
   EXPECT_EQ( readFec( "00 25 00 01 01 00 00 00" ),
              "P2mpPseudowire: length 1 is too short, needed 2" );
   WireBytes other( p2mpInBytes );
   other.data()[1] = 36;
   EXPECT_EQ( other.as< LspPingP2mpPseudowireSubTlv >().stringValue(),
              "Invalid P2mpPseudowireSubTlv" );
}

TEST( LspPingP2mpPseudowireSubTlv, isWritten ) {
   EXPECT_EQ( written( []( LspPingMessageWriter & writer ) {
                 auto const stack = writer.open( LspPingTlvType::TargetFecStack );
                 auto fec = writer.open< LspPingP2mpPseudowireSubTlv >( []( auto & view ) {
                    view.agiTypeIs( 1 );
                    view.agiLengthIs( 4 );
                 } );
                 fec.bytes( bytesOf( "00 00 00 64 04 0a 00 00 01" ) );
              } ),
              std::string( "00 01 00 10 " ) + p2mpInBytes );
}

TEST( LspPingP2mpPseudowireSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingP2mpPseudowireSubTlv;
   EXPECT_EQ( hexAfter< View >( []( auto & fec ) { fec.agiTypeIs( 1 ); } ), "a5 a5 a5 a5 01 a5" );
   EXPECT_EQ( hexAfter< View >( []( auto & fec ) { fec.agiLengthIs( 2 ); } ), "a5 a5 a5 a5 a5 02" );
}

// By name, for whoever has no headers.
TEST( LspPingP2mpPseudowireSubTlv, givesTheRootByItsName ) {
   WireBytes bytes( p2mpInBytes );
   auto & fec = bytes.as< LspPingP2mpPseudowireSubTlv >();
   EXPECT_EQ( Kiv::read< IpGenAddr >( fec, "originatingRouter" ),
              IpGenAddr( IpAddr( 10, 0, 0, 1 ) ) );
   EXPECT_EQ( Kiv::read< U8 >( fec, "ipAddrLen" ), 4 );
   EXPECT_EQ( LspPingP2mpPseudowireSubTlv::kivExtent( bytes.bytes() ), 15u );
}

} // namespace
