#include "MplsUtils/LspPing/ext/tlv/LspPingRelayTlv.h"
#include "tests/ext/TlvTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using Velnet::IpAddr;
using View = LspPingRelayNodeAddressStackTlv;
using Tlv = Whole< View >;

constexpr char const * tail = "0a 00 00 01 00 08 00 03 "
                              "01 80 00 00 0a 00 00 02 "
                              "02 01 00 02 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 03 "
                              "00 00 00 00";
std::string wholeOf( std::string_view behind ) {
   U8 const length = static_cast< U8 >( 4 + bytesOf( behind ).size() );
   return "80 00 " + hexOf( Bytes{ 0, length } ) + " c0 00 01 00 " + std::string( behind );
}

constexpr char const * text =
   "RelayNodeAddressStack( '10.0.0.1', source port: 49152, destination offset: 8, relays: "
   "'10.0.0.2' keep, '2001:db8::3' 0x1, none )";

TEST( LspPingRelayNodeAddressStackTlv, readsAndPrintsTheStack ) {
   Tlv const tlv( wholeOf( tail ) );
   EXPECT_EQ( tlv->initiatorSourcePort(), 49152 );
   EXPECT_EQ( tlv->replyAddrType(), 1 );
   EXPECT_EQ( tlv->replyAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( tlv->destinationAddrOffset(), 8 );
   EXPECT_EQ( tlv->addressCount(), 3 );
   auto entry = tlv->addresses().begin();
   EXPECT_EQ( ( *entry ).addrType, 1 );
   EXPECT_EQ( ( *entry ).flags, 0x80 );
   EXPECT_EQ( ( *entry ).address, IpAddr( 10, 0, 0, 2 ) );
   ++entry;
   EXPECT_EQ( ( *entry ).addrType, 2 );
   EXPECT_EQ( ( *entry ).flags, 1 );
   EXPECT_EQ( ( *entry ).reserved, 2 );
   EXPECT_EQ( ( *entry ).address, address6( "2001:db8::3" ) );
   ++entry;
   EXPECT_EQ( ( *entry ).addrType, 0 );
   EXPECT_EQ( ( *entry ).address, Velnet::IpGenAddr() );
   EXPECT_TRUE( ++entry == tlv->addresses().end() );
   EXPECT_EQ( tlv->stringValue(), text );
}

TEST( LspPingRelayNodeAddressStackTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.initiatorSourcePortIs( 0x0102 ); } ),
              "a5 a5 a5 a5 01 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.replyAddrTypeIs( 1 ); } ),
              "a5 a5 a5 a5 a5 a5 01 a5" );
   EXPECT_EQ( hexAfter< View >( []( auto & tlv ) { tlv.reservedIs( 1 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 01" );
}

TEST( LspPingRelayNodeAddressStackTlv, isWrittenAndReadBack ) {
   EXPECT_EQ( writtenWithTail< View >(
                 []( auto & tlv ) {
                    tlv.initiatorSourcePortIs( 49152 );
                    tlv.replyAddrTypeIs( 1 );
                 },
                 tail ),
              wholeOf( tail ) );
   EXPECT_EQ( readTlvs( wholeOf( tail ) ), text );
   EXPECT_EQ( writtenWithTail< View >( []( auto & ) {}, "" ), "tooShort" );
   EXPECT_EQ( writtenWithTail< View >( []( auto & ) {}, "00 00 00 00" ),
              "80 00 00 08 00 00 00 00 00 00 00 00" );
   EXPECT_EQ( readTlvs( "80 00 00 08 00 00 00 00 00 00 00 00" ),
              "RelayNodeAddressStack( none, source port: 0, destination offset: 0 )" );
   EXPECT_EQ( readTlvs( "80 00 00 04 00 00 00 00" ),
              "RelayNodeAddressStack: length 4 is too short, needed 8" );
   EXPECT_EQ( readTlvs( "80 00 00 08 00 00 01 00 00 00 00 00" ),
              "RelayNodeAddressStack: not valid" );
}

// With every shorter and longer tail, nothing beyond it is read, and what is there is given.
TEST( LspPingRelayNodeAddressStackTlv, isNotValidWhereTheStackIsCutOrGoesOn ) {
   Bytes const bytes = bytesOf( tail );
   for( std::size_t size = 0; size < bytes.size(); ++size ) {
      Tlv const tlv( wholeOf( hexOf( std::span( bytes ).first( size ) ) ) );
      EXPECT_FALSE( tlv->valid() ) << size;
      EXPECT_EQ( tlv->stringValue(), "Invalid RelayNodeAddressStackTlv" );
      EXPECT_EQ( tlv->replyAddr() == IpAddr( 10, 0, 0, 1 ), size >= 4 ) << size;
      EXPECT_EQ( tlv->destinationAddrOffset(), size >= 6 ? 8 : 0 ) << size;
      EXPECT_EQ( tlv->addressCount(), size >= 8 ? 3 : 0 ) << size;
      std::ptrdiff_t count = 0;
      for( auto entry = tlv->addresses().begin(); entry != tlv->addresses().end(); ++entry )
         ++count;
      EXPECT_EQ( count, size >= 36 ? 2 : size >= 16 ? 1 : 0 ) << size;
   }
   EXPECT_FALSE( Tlv( wholeOf( std::string( tail ) + " 00" ) )->valid() );
   EXPECT_FALSE( Tlv( wholeOf( std::string( tail ) + " 00 00 00 00" ) )->valid() );
}

TEST( LspPingRelayNodeAddressStackTlv, isNotValidWithAnAddressTypeThatThereIsNot ) {
   EXPECT_TRUE( Tlv( "80 00 00 08 00 00 00 00 00 00 00 00" )->valid() );
   EXPECT_FALSE( Tlv( "80 00 00 08 00 00 03 00 00 00 00 00" )->valid() );
   EXPECT_TRUE( Tlv( "80 00 00 0c 00 00 00 00 00 00 00 01 00 00 00 00" )->valid() );
   EXPECT_FALSE( Tlv( "80 00 00 0c 00 00 00 00 00 00 00 01 03 00 00 00" )->valid() );
   EXPECT_FALSE( Tlv( "80 01 00 08 00 00 00 00 00 00 00 00" )->valid() );
   EXPECT_FALSE( Tlv( "80 00 00 04 00 00 00 00" )->valid() );
}

} // namespace
