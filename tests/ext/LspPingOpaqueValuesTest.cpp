#include "MplsUtils/LspPing/ext/fec/LspPingOpaqueValues.h"
#include "tests/Addresses.h"
#include "tests/ext/ExtTesting.h"

namespace {

using namespace LspPing;
using namespace ExtTesting;
using Velnet::IpAddr;

// What the reader says at a depth of the opaque values in a FEC; theirs is 2.
std::string readValues( std::string_view hex, U32 depth = 2 ) {
   Bytes const values = bytesOf( hex );
   U8 const size = static_cast< U8 >( values.size() );
   U8 const length = static_cast< U8 >( 9 + size );
   U8 const padded = static_cast< U8 >( lspPingPadded( length ) );
   Bytes tlv{ 0, 1, 0,   static_cast< U8 >( 4 + padded ), 0, 0x13, 0, length, 0, 1, 4, 10, 0, 0,
              1, 0, size };
   tlv.insert( tlv.end(), values.begin(), values.end() );
   tlv.resize( tlv.size() + padded - length );
   return readTlvs( hexOf( tlv ), depth );
}

// The opaque values that `write( writer )` writes.
template < class Write >
std::string writtenValues( Write write ) {
   std::string const hex = written( [&]( LspPingMessageWriter & writer ) {
      auto const stack = writer.open( LspPingTlvType::TargetFecStack );
      auto const fec = writer.open< LspPingP2mpFecStackSubTlv >();
      write( writer );
   } );
   Bytes const bytes = hex.starts_with( "00 01" ) ? bytesOf( hex ) : Bytes();
   return bytes.size() < 17 ? hex : hexOf( std::span( bytes ).subspan( 17, bytes[16] ) );
}

template < class View, class Fill >
std::string writtenValue( Fill fill ) {
   return writtenValues( [&]( LspPingMessageWriter & writer ) { writer.add< View >( fill ); } );
}

// The type and the least and greatest length with which the view is valid, if all that is between
// them is. Other types than that of the bytes are tried with small lengths.
template < class View >
std::string validPairs( std::string_view hex ) {
   WireBytes bytes( hex );
   auto & view = bytes.as< View >();
   unsigned const own = view.type();
   std::string text;
   for( unsigned type = 0; type < 256; ++type ) {
      unsigned count = 0, first = 0, last = 0;
      for( unsigned length = 0; length < ( type == own ? 65536 : 64 ); ++length ) {
         view.typeIs( static_cast< U8 >( type ) );
         view.lengthIs( static_cast< U16 >( length ) );
         if( !view.valid() )
            continue;
         first = count++ == 0 ? length : first;
         last = length;
      }
      if( count > 0 )
         text += std::to_string( type ) + ": " + std::to_string( first ) + " to " +
                 std::to_string( last ) + ( count == last - first + 1 ? "" : " with holes" );
   }
   return text;
}

constexpr char const * sgIpv6 =
   "04 00 20 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 ff 3e 00 00 00 00 00 00 00 00 00 00 "
   "00 00 00 07";
constexpr char const * sgIpv6Text = "OpaqueValSGIpv6( source: '2001:db8::1', group: 'ff3e::7' )";

TEST( LspPingOpaqueValSGIpv6SubTlv, readsAndPrintsSourceAndGroup ) {
   WireBytes bytes( sgIpv6 );
   auto const & value = bytes.as< LspPingOpaqueValSGIpv6SubTlv >();
   EXPECT_EQ( value.sourceAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( value.groupAddr(), address6( "ff3e::7" ) );
   EXPECT_EQ( value.stringValue(), sgIpv6Text );
   EXPECT_EQ( readValues( sgIpv6 ), sgIpv6Text );
}

TEST( LspPingOpaqueValSGIpv6SubTlv, isWritten ) {
   EXPECT_EQ( writtenValue< LspPingOpaqueValSGIpv6SubTlv >( []( auto & value ) {
                 value.sourceAddrIs( address6( "2001:db8::1" ) );
                 value.groupAddrIs( address6( "ff3e::7" ) );
              } ),
              sgIpv6 );
}

TEST( LspPingOpaqueValSGIpv6SubTlv, isValidWithItsTypeAndLength ) {
   EXPECT_EQ( validPairs< LspPingOpaqueValSGIpv6SubTlv >( sgIpv6 ), "4: 32 to 32" );
   EXPECT_EQ( LspPingOpaqueValSGIpv6SubTlv().stringValue(), "Invalid OpaqueValSGIpv6SubTlv" );
   EXPECT_EQ( readValues( "04 00 01 00" ), "SGIpv6: length 1 is too short, needed 32" );
}

constexpr char const * bidirIpv4 = "05 00 09 08 0a 00 00 01 e1 00 00 00";
constexpr char const * bidirIpv4Text = "OpaqueValBidirIpv4( group: '225.0.0.0/8', RP: '10.0.0.1' )";

TEST( LspPingOpaqueValBidirIpv4SubTlv, readsAndPrintsTheGroups ) {
   WireBytes bytes( bidirIpv4 );
   auto const & value = bytes.as< LspPingOpaqueValBidirIpv4SubTlv >();
   EXPECT_EQ( value.maskLen(), 8 );
   EXPECT_EQ( value.rpAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( value.groupAddr(), IpAddr( 225, 0, 0, 0 ) );
   EXPECT_EQ( value.stringValue(), bidirIpv4Text );
   EXPECT_EQ( readValues( bidirIpv4 ), bidirIpv4Text );
}

TEST( LspPingOpaqueValBidirIpv4SubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingOpaqueValBidirIpv4SubTlv >(
                 []( auto & value ) { value.rpAddrIs( IpAddr( 1, 2, 3, 4 ) ); } ),
              "a5 a5 a5 a5 01 02 03 04 a5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< LspPingOpaqueValBidirIpv4SubTlv >( []( auto & value ) {
                 value.maskLenIs( 9 );
                 value.groupAddrIs( IpAddr( 1, 2, 3, 4 ) );
              } ),
              "a5 a5 a5 09 a5 a5 a5 a5 01 02 03 04" );
}

TEST( LspPingOpaqueValBidirIpv4SubTlv, isValidWithAMaskOfTheAddress ) {
   EXPECT_EQ( validPairs< LspPingOpaqueValBidirIpv4SubTlv >( bidirIpv4 ), "5: 9 to 9" );
   EXPECT_EQ( readValues( "05 00 09 20 0a 00 00 01 e1 00 00 00" ),
              "OpaqueValBidirIpv4( group: '225.0.0.0/32', RP: '10.0.0.1' )" );
   EXPECT_EQ( readValues( "05 00 09 21 0a 00 00 01 e1 00 00 00" ), "BidirIpv4: not valid" );
   // There is no padding that the length could count.
   EXPECT_EQ( readValues( "05 00 0c 20 0a 00 00 01 e1 00 00 00 00 00 00" ),
              "BidirIpv4: length 12, expected 9" );
}

TEST( LspPingOpaqueValBidirIpv4SubTlv, isWritten ) {
   EXPECT_EQ( writtenValue< LspPingOpaqueValBidirIpv4SubTlv >( []( auto & value ) {
                 value.maskLenIs( 8 );
                 value.rpAddrIs( IpAddr( 10, 0, 0, 1 ) );
                 value.groupAddrIs( IpAddr( 225, 0, 0, 0 ) );
              } ),
              bidirIpv4 );
}

constexpr char const * bidirIpv6 =
   "06 00 21 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 ff 0e 00 00 00 00 00 00 00 00 00 "
   "00 00 00 00 00";
constexpr char const * bidirIpv6Text =
   "OpaqueValBidirIpv6( group: 'ff0e::/16', RP: '2001:db8::1' )";

TEST( LspPingOpaqueValBidirIpv6SubTlv, readsAndPrintsTheGroups ) {
   EXPECT_EQ( WireBytes( bidirIpv6 ).as< LspPingOpaqueValBidirIpv6SubTlv >().stringValue(),
              bidirIpv6Text );
   EXPECT_EQ( readValues( bidirIpv6 ), bidirIpv6Text );
   EXPECT_EQ( validPairs< LspPingOpaqueValBidirIpv6SubTlv >( bidirIpv6 ), "6: 33 to 33" );
   WireBytes bytes( bidirIpv6 );
   auto & value = bytes.as< LspPingOpaqueValBidirIpv6SubTlv >();
   value.maskLenIs( 129 );
   EXPECT_EQ( value.stringValue(), "Invalid OpaqueValBidirIpv6SubTlv" );
}

constexpr char const * vpnSgIpv4 = "fa 00 10 0a 00 00 01 e8 00 00 01 00 01 00 00 00 00 00 07";
constexpr char const * vpnSgIpv4Text =
   "OpaqueValVpnSGIpv4( source: '10.0.0.1', group: '232.0.0.1', RD: 281474976710663 )";

TEST( LspPingOpaqueValVpnSGIpv4SubTlv, readsAndPrintsSourceGroupAndDistinguisher ) {
   WireBytes bytes( vpnSgIpv4 );
   auto const & value = bytes.as< LspPingOpaqueValVpnSGIpv4SubTlv >();
   EXPECT_EQ( value.sourceAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( value.groupAddr(), IpAddr( 232, 0, 0, 1 ) );
   EXPECT_EQ( value.rd(), 0x0001000000000007u );
   EXPECT_EQ( value.stringValue(), vpnSgIpv4Text );
   EXPECT_EQ( readValues( vpnSgIpv4 ), vpnSgIpv4Text );
   EXPECT_EQ( validPairs< LspPingOpaqueValVpnSGIpv4SubTlv >( vpnSgIpv4 ), "250: 16 to 16" );
   EXPECT_EQ( LspPingOpaqueValVpnSGIpv4SubTlv().stringValue(), "Invalid OpaqueValVpnSGIpv4SubTlv" );
}

TEST( LspPingOpaqueValVpnSGIpv4SubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingOpaqueValVpnSGIpv4SubTlv >(
                 []( auto & value ) { value.rdIs( 0x0102030405060708 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04 05 06 07 08" );
}

constexpr char const * vpnSgIpv6 =
   "fb 00 28 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 ff 3e 00 00 00 00 00 00 00 00 00 00 "
   "00 00 00 07 00 00 00 00 00 00 00 09";

TEST( LspPingOpaqueValVpnSGIpv6SubTlv, readsAndPrintsSourceGroupAndDistinguisher ) {
   EXPECT_EQ( WireBytes( vpnSgIpv6 ).as< LspPingOpaqueValVpnSGIpv6SubTlv >().rd(), 9u );
   EXPECT_EQ( readValues( vpnSgIpv6 ),
              "OpaqueValVpnSGIpv6( source: '2001:db8::1', group: 'ff3e::7', RD: 9 )" );
   EXPECT_EQ( validPairs< LspPingOpaqueValVpnSGIpv6SubTlv >( vpnSgIpv6 ), "251: 40 to 40" );
}

constexpr char const * vpnBidirIpv4 = "09 00 11 08 0a 00 00 01 e1 00 00 00 00 00 00 00 00 00 00 09";

TEST( LspPingOpaqueValVpnBidirIpv4SubTlv, readsAndPrintsGroupsAndDistinguisher ) {
   EXPECT_EQ( WireBytes( vpnBidirIpv4 ).as< LspPingOpaqueValVpnBidirIpv4SubTlv >().rd(), 9u );
   EXPECT_EQ( readValues( vpnBidirIpv4 ),
              "OpaqueValVpnBidirIpv4( group: '225.0.0.0/8', RP: '10.0.0.1', RD: 9 )" );
   EXPECT_EQ( validPairs< LspPingOpaqueValVpnBidirIpv4SubTlv >( vpnBidirIpv4 ), "9: 17 to 17" );
   EXPECT_EQ( readValues( "09 00 11 21 0a 00 00 01 e1 00 00 00 00 00 00 00 00 00 00 09" ),
              "VpnBidirIpv4: not valid" );
}

constexpr char const * vpnBidirIpv6 =
   "0a 00 29 80 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 01 ff 0e 00 00 00 00 00 00 00 00 00 "
   "00 00 00 00 00 00 00 00 00 00 00 00 09";

TEST( LspPingOpaqueValVpnBidirIpv6SubTlv, readsAndPrintsGroupsAndDistinguisher ) {
   EXPECT_EQ( WireBytes( vpnBidirIpv6 ).as< LspPingOpaqueValVpnBidirIpv6SubTlv >().rd(), 9u );
   EXPECT_EQ( readValues( vpnBidirIpv6 ),
              "OpaqueValVpnBidirIpv6( group: 'ff0e::/128', RP: '2001:db8::1', RD: 9 )" );
   EXPECT_EQ( validPairs< LspPingOpaqueValVpnBidirIpv6SubTlv >( vpnBidirIpv6 ), "10: 41 to 41" );
}

// They follow each other without padding.
TEST( LspPingOpaqueVal, isFollowedByTheNext ) {
   EXPECT_EQ( readValues( std::string( vpnSgIpv4 ) + " " + bidirIpv4 + " 01 00 04 00 00 00 07" ),
              std::string( vpnSgIpv4Text ) + "\n" + bidirIpv4Text +
                 "\nOpaqueValGenSubTlv( lspId: 7 )" );
}

constexpr char const * recursive = "07 00 0a 06 00 01 04 0a 00 00 02 00 25";

TEST( LspPingOpaqueValRecursiveIpv4SubTlv, readsAndPrintsTheFecInside ) {
   WireBytes bytes( recursive );
   auto const & value = bytes.as< LspPingOpaqueValRecursiveIpv4SubTlv >();
   EXPECT_EQ( value.fecType(), 6 );
   EXPECT_EQ( value.family(), 1 );
   EXPECT_EQ( value.addrLen(), 4 );
   EXPECT_EQ( value.rootAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( value.opaqueLen(), 37 );
   EXPECT_EQ( value.stringValue(), "OpaqueValRecursiveIpv4( P2MP, root: '10.0.0.2' )" );
   EXPECT_EQ( validPairs< LspPingOpaqueValRecursiveIpv4SubTlv >( recursive ), "7: 10 to 65535" );
   EXPECT_EQ( LspPingOpaqueValRecursiveIpv4SubTlv().stringValue(),
              "Invalid OpaqueValRecursiveIpv4SubTlv" );
}

TEST( LspPingOpaqueValRecursiveIpv4SubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingOpaqueValRecursiveIpv4SubTlv >( []( auto & value ) {
                 value.fecTypeIs( 8 );
                 value.addrLenIs( 4 );
                 value.opaqueLenIs( 0x0102 );
              } ),
              "a5 a5 a5 08 a5 a5 04 a5 a5 a5 a5 01 02" );
   EXPECT_EQ( hexAfter< LspPingOpaqueValRecursiveIpv4SubTlv >( []( auto & value ) {
                 value.familyIs( 1 );
                 value.rootAddrIs( IpAddr( 1, 2, 3, 4 ) );
              } ),
              "a5 a5 a5 a5 00 01 a5 01 02 03 04 a5 a5" );
}

// Two levels: a value of a VPN with a root of IPv6 in one with a root of IPv4.
constexpr char const * nested =
   "07 00 32 06 00 01 04 0a 00 00 02 00 28 "
   "08 00 25 00 00 00 00 00 00 00 09 07 00 02 10 "
   "20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 03 00 07 01 00 04 00 00 00 07";

TEST( LspPingOpaqueValRecursive, isReadWithAllThatIsInside ) {
   EXPECT_EQ( readValues( nested, 2 ), "OpaqueValRecursiveIpv4( P2MP, root: '10.0.0.2' )" );
   EXPECT_EQ( readValues( nested, 3 ),
              "OpaqueValVpnRecursiveIpv6( MP2MPUpstream, root: '2001:db8::3', RD: 9 )" );
   EXPECT_EQ( readValues( nested, 4 ), "OpaqueValGenSubTlv( lspId: 7 )" );
}

TEST( LspPingOpaqueValRecursive, isWrittenWithAllThatIsInside ) {
   EXPECT_EQ( writtenValues( []( LspPingMessageWriter & writer ) {
                 auto const outer =
                    writer.open< LspPingOpaqueValRecursiveIpv4SubTlv >( []( auto & v ) {
                       v.fecTypeIs( 6 );
                       v.familyIs( 1 );
                       v.rootAddrIs( IpAddr( 10, 0, 0, 2 ) );
                    } );
                 auto const inner =
                    writer.open< LspPingOpaqueValVpnRecursiveIpv6SubTlv >( []( auto & v ) {
                       v.rdIs( 9 );
                       v.fecTypeIs( 7 );
                       v.familyIs( 2 );
                       v.rootAddrIs( address6( "2001:db8::3" ) );
                    } );
                 writer.add< LspPingOpaqueValGenSubTlv >( []( auto & v ) { v.lspIdIs( 7 ); } );
              } ),
              nested );
}

// The bytes above with one of them set.
std::string damaged( std::size_t at, U8 byte ) {
   Bytes bytes = bytesOf( nested );
   bytes.at( at ) = byte;
   return readValues( hexOf( bytes ) );
}

TEST( LspPingOpaqueValRecursive, isToldWhereDamaged ) {
   EXPECT_EQ( damaged( 2, 0x33 ), "Recursive: length 51 needs 54 bytes, had 53" );
   EXPECT_EQ( damaged( 3, 5 ), "Recursive: not valid" );
   EXPECT_EQ( damaged( 5, 2 ), "Recursive: root address of 4 bytes, expected 16" );
   EXPECT_EQ( damaged( 5, 3 ), "Recursive: address family 3 is not known" );
   EXPECT_EQ( damaged( 6, 5 ), "Recursive: 5 at byte 3 of the value is not known" );
   EXPECT_EQ( damaged( 12, 0x29 ), "Recursive: opaque value of 41 bytes, had 40" );
   EXPECT_EQ( damaged( 24, 9 ), "VpnRecursive: not valid" );
   EXPECT_EQ( damaged( 27, 0 ), "VpnRecursive: 0 at byte 11 of the value is not known" );
   EXPECT_EQ( damaged( 45, 6 ), "VpnRecursive: 1 byte left over\n"
                                "GenericLsp: length 4 needs 7 bytes, had 6" );
   EXPECT_EQ( damaged( 15, 0x24 ),
              "VpnRecursive: opaque value of 7 bytes, had 6\n"
              "GenericLsp: length 4 needs 7 bytes, had 6\n"
              "1 byte left over after the last opaque value: another needs 3" );
}

TEST( LspPingOpaqueValRecursive, isNotFollowedForEver ) {
   std::string values;
   for( U8 inside = 0; inside < 8; ++inside ) {
      U8 const length = static_cast< U8 >( 10 + 13 * inside );
      U8 const opaque = static_cast< U8 >( 13 * inside );
      Bytes const one{ 7, 0, length, 6, 0, 1, 4, 10, 0, 0, 1, 0, opaque };
      values = hexOf( one ) + " " + values;
   }
   EXPECT_EQ( readValues( values ), "nested too deeply: not decoded further" );
   // Without the outer two.
   EXPECT_EQ( readValues( values.substr( 78 ), 7 ),
              "OpaqueValRecursiveIpv4( P2MP, root: '10.0.0.1' )" );
}

constexpr char const * recursiveIpv6 =
   "07 00 16 08 00 02 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 03 00 00";
constexpr char const * vpnRecursiveIpv4 =
   "08 00 12 00 00 00 00 00 00 00 09 08 00 01 04 0a 00 00 02 00 00";
constexpr char const * vpnRecursiveIpv6 =
   "08 00 1e 00 00 00 00 00 00 00 09 06 00 02 10 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 03 "
   "00 00";

TEST( LspPingOpaqueValRecursive, hasAFormForEachRoot ) {
   EXPECT_EQ( readValues( recursiveIpv6 ),
              "OpaqueValRecursiveIpv6( MP2MPDownstream, root: '2001:db8::3' )" );
   EXPECT_EQ( validPairs< LspPingOpaqueValRecursiveIpv6SubTlv >( recursiveIpv6 ),
              "7: 22 to 65535" );
   EXPECT_EQ( readValues( vpnRecursiveIpv4 ),
              "OpaqueValVpnRecursiveIpv4( MP2MPDownstream, root: '10.0.0.2', RD: 9 )" );
   EXPECT_EQ( validPairs< LspPingOpaqueValVpnRecursiveIpv4SubTlv >( vpnRecursiveIpv4 ),
              "8: 18 to 65535" );
   EXPECT_EQ( readValues( vpnRecursiveIpv6 ),
              "OpaqueValVpnRecursiveIpv6( P2MP, root: '2001:db8::3', RD: 9 )" );
   EXPECT_EQ( validPairs< LspPingOpaqueValVpnRecursiveIpv6SubTlv >( vpnRecursiveIpv6 ),
              "8: 30 to 65535" );
}

TEST( LspPingOpaqueValVpnRecursiveIpv4SubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingOpaqueValVpnRecursiveIpv4SubTlv >( []( auto & value ) {
                 value.rdIs( 0x0102030405060708 );
                 value.familyIs( 0x0a0b );
              } ),
              "a5 a5 a5 01 02 03 04 05 06 07 08 a5 0a 0b a5 a5 a5 a5 a5 a5 a5" );
   EXPECT_EQ( hexAfter< LspPingOpaqueValVpnRecursiveIpv4SubTlv >(
                 []( auto & value ) { value.fecTypeIs( 9 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 09 a5 a5 a5 a5 a5 a5 a5 a5 a5" );
}

// The length stands behind the extended type, RFC 6388 section 2.3.
constexpr char const * extended = "ff 01 02 00 03 aa bb cc";

TEST( LspPingOpaqueValExtendedSubTlv, readsAndPrintsTypeAndData ) {
   WireBytes bytes( extended );
   auto const & value = bytes.as< LspPingOpaqueValExtendedSubTlv >();
   EXPECT_EQ( value.extendedType(), 0x0102 );
   EXPECT_EQ( value.length(), 3 );
   EXPECT_EQ( hexOf( value.data() ), "aa bb cc" );
   EXPECT_EQ( LspPingOpaqueValExtendedSubTlv::kivExtent( bytes.bytes() ), 8u );
   EXPECT_EQ( value.stringValue(), "OpaqueValExtended( type: 258, data: aabbcc )" );
   WireBytes none( "ff 01 02 00 00" );
   EXPECT_EQ( none.as< LspPingOpaqueValExtendedSubTlv >().stringValue(),
              "OpaqueValExtended( type: 258, data:  )" );
   EXPECT_EQ( LspPingOpaqueValExtendedSubTlv().stringValue(), "Invalid OpaqueValExtendedSubTlv" );
}

TEST( LspPingOpaqueValExtendedSubTlv, isValidOfItsTypeWhateverItsLength ) {
   EXPECT_EQ( validPairs< LspPingOpaqueValExtendedSubTlv >( extended ), "255: 0 to 65535" );
}

TEST( LspPingOpaqueValExtendedSubTlv, writesItsOwnBytesOnly ) {
   EXPECT_EQ( hexAfter< LspPingOpaqueValExtendedSubTlv >(
                 []( auto & value ) { value.extendedTypeIs( 0x0102 ); } ),
              "a5 01 02 a5 a5" );
   EXPECT_EQ( hexAfter< LspPingOpaqueValExtendedSubTlv >(
                 []( auto & value ) { value.lengthIs( 0x0102 ); } ),
              "a5 a5 a5 01 02" );
}

TEST( LspPingOpaqueValExtendedSubTlv, isReadAndWhatFollowsIt ) {
   EXPECT_EQ( readValues( std::string( extended ) + " 01 00 04 00 00 00 07" ),
              "OpaqueValExtended( type: 258, data: aabbcc )\nOpaqueValGenSubTlv( lspId: 7 )" );
   EXPECT_EQ( readValues( "ff 01 02 00 00 01 00 04 00 00 00 07" ),
              "OpaqueValExtended( type: 258, data:  )\nOpaqueValGenSubTlv( lspId: 7 )" );
}

TEST( LspPingOpaqueValExtendedSubTlv, isToldWhereItDoesNotFit ) {
   EXPECT_EQ( readValues( "ff 01 02 00 03 aa bb" ), "Extended: length 5 needs 8 bytes, had 7" );
   EXPECT_EQ( readValues( "ff 01 02 00" ), "Extended: length 2 needs 5 bytes, had 4" );
   EXPECT_EQ( readValues( "ff 01 02" ), "Extended: length 2 needs 5 bytes, had 3" );
   EXPECT_EQ( readValues( "ff 01 02 ff ff aa bb" ),
              "Extended: length 65537 needs 65540 bytes, had 7" );
   EXPECT_EQ( readValues( "ff 01" ),
              "2 bytes left over after the last opaque value: another needs 3" );
}

TEST( LspPingOpaqueValExtendedSubTlv, isWrittenAndCopied ) {
   auto const write = []( LspPingMessageWriter & writer ) {
      auto value = writer.open< LspPingOpaqueValExtendedSubTlv >(
         []( auto & view ) { view.extendedTypeIs( 0x0102 ); } );
      value.bytes( Bytes{ 0xaa, 0xbb, 0xcc } );
   };
   EXPECT_EQ( writtenValues( write ), extended );
   EXPECT_EQ( writtenValues( [&]( LspPingMessageWriter & writer ) {
                 Bytes memory;
                 LspPingMessageWriter first( memory );
                 first.header( []( LspPingHdr & header ) { header.messageTypeIs( 1 ); } );
                 {
                    auto const stack = first.open( LspPingTlvType::TargetFecStack );
                    auto const fec = first.open< LspPingP2mpFecStackSubTlv >();
                    write( first );
                 }
                 LspPingMessageReader reader;
                 LspPingMessage const & message = reader.read( memory );
                 writer.add( message.element( 2 ) );
              } ),
              extended );
}

} // namespace
