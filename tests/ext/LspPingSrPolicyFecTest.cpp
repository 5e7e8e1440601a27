#include "MplsUtils/LspPing/ext/fec/LspPingSrPolicyFec.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using FecTesting::expectSets;
using Velnet::IpAddr;

constexpr char const * treeIpv4 = "00 29 00 0e 00 01 04 00 0a 00 00 01 80 00 00 07 ff fd 00 00";
constexpr char const * treeIpv6 =
   "00 29 00 1a 00 02 10 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 "
   "00 01 80 00 00 07 ff fd 00 00";

TEST( LspPingSrP2mpPolicySubTlv, readsAndPrintsTheTree ) {
   WireBytes bytes( treeIpv4 );
   auto const & fec = bytes.as< LspPingSrP2mpPolicyIpv4SubTlv >();
   EXPECT_EQ( fec.addressFamily(), 1 );
   EXPECT_EQ( fec.addressLength(), 4 );
   EXPECT_EQ( fec.root(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.treeId(), 0x80000007u );
   EXPECT_EQ( fec.instanceId(), 0xfffd );
   EXPECT_EQ( readFec( treeIpv4 ),
              "SrP2mpPolicy( root: '10.0.0.1', tree: 2147483655, instance: 65533 )" );
   EXPECT_EQ( readFec( treeIpv6 ),
              "SrP2mpPolicy( root: '2001:db8::1', tree: 2147483655, instance: 65533 )" );
}

TEST( LspPingSrP2mpPolicySubTlv, isNotWellFormedWithAnotherRoot ) {
   EXPECT_EQ( readFec( "00 29 00 0e 00 01 05 00 0a 00 00 01 80 00 00 07 ff fd 00 00" ),
              "SrP2mpPolicy: 5 at byte 2 of the value is not known" );
   EXPECT_EQ( readFec( "00 29 00 0e 00 02 04 00 0a 00 00 01 80 00 00 07 ff fd 00 00" ),
              "SrP2mpPolicy: not valid" );
   EXPECT_EQ( readFec( "00 29 00 0e 00 02 10 00 0a 00 00 01 80 00 00 07 ff fd 00 00" ),
              "SrP2mpPolicy: length 14 is too short, needed 26" );
   EXPECT_EQ( readFec( "00 29 00 02 00 02 00 00" ),
              "SrP2mpPolicy: length 2 is too short, needed 3" );
}

TEST( LspPingSrP2mpPolicySubTlv, isValidWithTypeLengthAndFamily ) {
   WireBytes bytes( 30, 0xa5 );
   auto & fec = bytes.as< LspPingSrP2mpPolicyIpv4SubTlv >();
   fec.addressFamilyIs( 1 );
   fec.addressLengthIs( 4 );
   EXPECT_EQ(
      validityMismatches< LspPingSrP2mpPolicyIpv4SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 41 && length == 14; } ),
      0u );
   fec.addressFamilyIs( 2 );
   fec.addressLengthIs( 16 );
   EXPECT_EQ(
      validityMismatches< LspPingSrP2mpPolicyIpv6SubTlv >(
         bytes, []( unsigned type, unsigned length ) { return type == 41 && length == 26; } ),
      0u );
   EXPECT_EQ( bytes.as< LspPingSrP2mpPolicyIpv6SubTlv >().stringValue(),
              "Invalid SrP2mpPolicyIpv6SubTlv" );
   fec.typeIs( 41 );
   fec.lengthIs( 14 );
   EXPECT_FALSE( fec.valid() );
   fec.addressFamilyIs( 1 );
   EXPECT_EQ( fec.stringValue(), "Invalid SrP2mpPolicyIpv4SubTlv" );
}

TEST( LspPingSrP2mpPolicySubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingSrP2mpPolicyIpv4SubTlv;
   expectSets< View >( &View::addressFamilyIs, "addressFamily", U16{ 0x0102 },
                       "a5a5a5a5 0102a5a5 a5a5a5a5 a5a5a5a5 a5a5" );
   expectSets< View >( &View::addressLengthIs, "addressLength", U8{ 3 },
                       "a5a5a5a5 a5a503a5 a5a5a5a5 a5a5a5a5 a5a5" );
   expectSets< View >( &View::reservedIs, "reserved", U8{ 4 },
                       "a5a5a5a5 a5a5a504 a5a5a5a5 a5a5a5a5 a5a5" );
   expectSets< View >( &View::rootIs, "root", IpAddr( 1, 2, 3, 4 ),
                       "a5a5a5a5 a5a5a5a5 01020304 a5a5a5a5 a5a5" );
   expectSets< View >( &View::treeIdIs, "treeId", U32{ 0x01020304 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 01020304 a5a5" );
   expectSets< View >( &View::instanceIdIs, "instanceId", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a5a5 a5a5a5a5 0102" );
}

TEST( LspPingSrP2mpPolicySubTlv, isWritten ) {
   auto const fill = []( U16 family, auto root ) {
      return [=]( auto & fec ) {
         fec.addressFamilyIs( family );
         fec.rootIs( root );
         fec.treeIdIs( 0x80000007 );
         fec.instanceIdIs( 0xfffd );
      };
   };
   EXPECT_EQ( writtenFec< LspPingSrP2mpPolicyIpv4SubTlv >( fill( 1, IpAddr( 10, 0, 0, 1 ) ) ),
              treeIpv4 );
   EXPECT_EQ( writtenFec< LspPingSrP2mpPolicyIpv6SubTlv >( fill( 2, address6( "2001:db8::1" ) ) ),
              treeIpv6 );
}

constexpr char const * policyIpv4 = "0a 00 00 01 80 00 00 64 0a 00 00 02";
constexpr char const * policyIpv6 =
   "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 80 00 00 64 20 01 0d b8 00 00 00 00 00 00 00 "
   "00 00 00 00 02";
constexpr char const * pathIpv4 =
   "1e 00 00 00 ff ff ff fe 00 00 00 00 00 00 00 00 00 00 00 00 0a 00 "
   "00 03 80 00 00 05";
constexpr char const * pathIpv6 =
   "1e 00 00 00 ff ff ff fe 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 "
   "00 03 80 00 00 05";
constexpr char const * list = "80 00 00 06";
constexpr char const * policyIpv4Text =
   "( headend: '10.0.0.1', color: 2147483748, endpoint: '10.0.0.2'";
constexpr char const * policyIpv6Text =
   "( headend: '2001:db8::1', color: 2147483748, endpoint: '2001:db8::2'";
constexpr char const * pathIpv4Text =
   ", origin: 30, originator: 4294967294 '10.0.0.3', discriminator: 2147483653";
constexpr char const * pathIpv6Text =
   ", origin: 30, originator: 4294967294 '2001:db8::3', discriminator: 2147483653";

// Header and parts.
std::string hexOfParts( std::string_view header, std::initializer_list< std::string_view > parts ) {
   std::string hex( header );
   for( std::string_view const part : parts )
      hex.append( " " ).append( part );
   return hex;
}

struct Told {
   std::string hex;
   std::string text;
};
Told const toldPolicyIpv4{ hexOfParts( "00 31 00 0c", { policyIpv4 } ),
                           std::string( "SrPolicyIpv4" ) + policyIpv4Text + " )" };
Told const toldPathIpv4{ hexOfParts( "00 32 00 28", { policyIpv4, pathIpv4 } ),
                         std::string( "SrCandidatePathIpv4" ) + policyIpv4Text + pathIpv4Text +
                            " )" };
Told const toldListIpv4{ hexOfParts( "00 33 00 2c", { policyIpv4, pathIpv4, list } ),
                         std::string( "SrSegmentListIpv4" ) + policyIpv4Text + pathIpv4Text +
                            ", segment list: 2147483654 )" };
Told const toldPolicyIpv6{ hexOfParts( "00 34 00 24", { policyIpv6 } ),
                           std::string( "SrPolicyIpv6" ) + policyIpv6Text + " )" };
Told const toldPathIpv6{ hexOfParts( "00 35 00 40", { policyIpv6, pathIpv6 } ),
                         std::string( "SrCandidatePathIpv6" ) + policyIpv6Text + pathIpv6Text +
                            " )" };
Told const toldListIpv6{ hexOfParts( "00 36 00 44", { policyIpv6, pathIpv6, list } ),
                         std::string( "SrSegmentListIpv6" ) + policyIpv6Text + pathIpv6Text +
                            ", segment list: 2147483654 )" };

TEST( LspPingSrPolicySubTlv, readsPolicyPathAndList ) {
   WireBytes bytes( toldListIpv4.hex );
   auto const & fec = bytes.as< LspPingSrSegmentListIpv4SubTlv >();
   EXPECT_EQ( fec.headend(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( fec.color(), 0x80000064u );
   EXPECT_EQ( fec.endpoint(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( fec.protocolOrigin(), 30 );
   EXPECT_EQ( fec.originatorAs(), 0xfffffffeu );
   EXPECT_EQ( fec.originatorNode(), address6( "::a00:3" ) );
   EXPECT_EQ( fec.discriminator(), 0x80000005u );
   EXPECT_EQ( fec.segmentListId(), 0x80000006u );
}

TEST( LspPingSrPolicySubTlv, isReadWithItsParts ) {
   for( Told const & told :
        { toldPolicyIpv4, toldPathIpv4, toldListIpv4, toldPolicyIpv6, toldPathIpv6, toldListIpv6 } )
      EXPECT_EQ( readFec( told.hex ), told.text );
}

template < class View >
void expectValid( unsigned expectedType, unsigned expectedLength, std::string_view text ) {
   WireBytes bytes( sizeof( View ), 0xa5 );
   EXPECT_EQ( validityMismatches< View >( bytes,
                                          [=]( unsigned type, unsigned length ) {
                                             return type == expectedType &&
                                                    length == expectedLength;
                                          } ),
              0u )
      << expectedType;
   EXPECT_EQ( bytes.as< View >().stringValue(), text );
   auto & view = bytes.as< View >();
   view.typeIs( static_cast< U16 >( expectedType ) );
   view.lengthIs( static_cast< U16 >( expectedLength ) );
   EXPECT_TRUE( view.valid() );
}

TEST( LspPingSrPolicySubTlv, isValidWithItsTypeAndLength ) {
   expectValid< LspPingSrPolicyIpv4SubTlv >( 49, 12, "Invalid SrPolicyIpv4SubTlv" );
   expectValid< LspPingSrCandidatePathIpv4SubTlv >( 50, 40, "Invalid SrCandidatePathIpv4SubTlv" );
   expectValid< LspPingSrSegmentListIpv4SubTlv >( 51, 44, "Invalid SrSegmentListIpv4SubTlv" );
   expectValid< LspPingSrPolicyIpv6SubTlv >( 52, 36, "Invalid SrPolicyIpv6SubTlv" );
   expectValid< LspPingSrCandidatePathIpv6SubTlv >( 53, 64, "Invalid SrCandidatePathIpv6SubTlv" );
   expectValid< LspPingSrSegmentListIpv6SubTlv >( 54, 68, "Invalid SrSegmentListIpv6SubTlv" );
}

TEST( LspPingSrPolicySubTlv, isNotWellFormedWithAnotherLength ) {
   EXPECT_EQ( readFec( hexOfParts( "00 31 00 10", { policyIpv4, list } ) ),
              "SrPolicyIpv4: length 16, expected 12" );
   EXPECT_EQ( readFec( hexOfParts( "00 33 00 28", { policyIpv4, pathIpv4 } ) ),
              "SrSegmentListIpv4: length 40 is too short, needed 44" );
}

// 48 bytes of 0xa5 with these from `offset` on, in groups of four.
std::string filledBut( std::size_t offset, std::string_view hex ) {
   WireBytes bytes( 48, 0xa5 );
   Bytes const other = bytesOf( hex );
   std::copy( other.begin(), other.end(), bytes.data() + offset );
   return bytes.hex( 4 );
}

TEST( LspPingSrPolicySubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingSrSegmentListIpv4SubTlv;
   IpAddr const address( 1, 2, 3, 4 );
   U32 const number = 0x01020304;
   expectSets< View >( &View::headendIs, "headend", address, filledBut( 4, "01020304" ) );
   expectSets< View >( &View::colorIs, "color", number, filledBut( 8, "01020304" ) );
   expectSets< View >( &View::endpointIs, "endpoint", address, filledBut( 12, "01020304" ) );
   expectSets< View >( &View::protocolOriginIs, "protocolOrigin", U8{ 1 }, filledBut( 16, "01" ) );
   expectSets< View >( &View::reserved0Is, "reserved0", U8{ 2 }, filledBut( 17, "02" ) );
   expectSets< View >( &View::reserved1Is, "reserved1", U16{ 0x0304 }, filledBut( 18, "0304" ) );
   expectSets< View >( &View::originatorAsIs, "originatorAs", number, filledBut( 20, "01020304" ) );
   expectSets< View >( &View::originatorNodeIs, "originatorNode", address6( "102:304::" ),
                       filledBut( 24, "01020304000000000000000000000000" ) );
   expectSets< View >( &View::discriminatorIs, "discriminator", number,
                       filledBut( 40, "01020304" ) );
   expectSets< View >( &View::segmentListIdIs, "segmentListId", number,
                       filledBut( 44, "01020304" ) );
}

template < class View >
std::string writtenPolicy( auto headend, auto endpoint, std::string_view originator ) {
   return writtenFec< View >( [&]( View & fec ) {
      fec.headendIs( headend );
      fec.colorIs( 0x80000064 );
      fec.endpointIs( endpoint );
      if constexpr(
         requires { fec.discriminator(); } ) {
         fec.protocolOriginIs( 30 );
         fec.originatorAsIs( 0xfffffffe );
         fec.originatorNodeIs( address6( originator ) );
         fec.discriminatorIs( 0x80000005 );
      }
      if constexpr(
         requires { fec.segmentListId(); } )
         fec.segmentListIdIs( 0x80000006 );
   } );
}

TEST( LspPingSrPolicySubTlv, isWritten ) {
   auto const ipv4 = []< class View >( Kiv::Of< View > ) {
      return writtenPolicy< View >( IpAddr( 10, 0, 0, 1 ), IpAddr( 10, 0, 0, 2 ), "::a00:3" );
   };
   auto const ipv6 = []< class View >( Kiv::Of< View > ) {
      return writtenPolicy< View >( address6( "2001:db8::1" ), address6( "2001:db8::2" ),
                                    "2001:db8::3" );
   };
   EXPECT_EQ( ipv4( Kiv::Of< LspPingSrPolicyIpv4SubTlv >{} ), toldPolicyIpv4.hex );
   EXPECT_EQ( ipv4( Kiv::Of< LspPingSrCandidatePathIpv4SubTlv >{} ), toldPathIpv4.hex );
   EXPECT_EQ( ipv4( Kiv::Of< LspPingSrSegmentListIpv4SubTlv >{} ), toldListIpv4.hex );
   EXPECT_EQ( ipv6( Kiv::Of< LspPingSrPolicyIpv6SubTlv >{} ), toldPolicyIpv6.hex );
   EXPECT_EQ( ipv6( Kiv::Of< LspPingSrCandidatePathIpv6SubTlv >{} ), toldPathIpv6.hex );
   EXPECT_EQ( ipv6( Kiv::Of< LspPingSrSegmentListIpv6SubTlv >{} ), toldListIpv6.hex );
}

} // namespace
