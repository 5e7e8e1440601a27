#include "tests/fec/FecTesting.h"

namespace {

using namespace LspPing;
using namespace FecTesting;
using Velnet::IpAddr;

constexpr char const * zeros7 = "00000000 000000";
constexpr char const * zeros11 = "00000000 00000000 000000";
constexpr char const * zeros12 = "00000000 00000000 00000000";
constexpr char const * zeros13 = "00000000 00000000 00000000 00";

// Of a view whose type takes one byte all pairs are tried.
template < class View >
Pairs allValidPairs() {
   Pairs pairs;
   View view;
   for( unsigned type = 0; type < 256; ++type ) {
      view.typeIs( static_cast< U8 >( type ) );
      for( unsigned length = 0; length < all; ++length ) {
         view.lengthIs( static_cast< U16 >( length ) );
         if( view.valid() )
            pairs.emplace_back( type, length );
      }
   }
   return pairs;
}

template < class View >
void expectRoundsUpInSixteenBits() {
   auto const total = []( U16 length ) {
      View view;
      view.lengthIs( length );
      return view.totalLength();
   };
   EXPECT_EQ( total( 0 ), 4 );
   EXPECT_EQ( total( 1 ), 4 );
   EXPECT_EQ( total( 2 ), 8 );
   EXPECT_EQ( total( 4 ), 8 );
   EXPECT_EQ( total( 5 ), 8 );
   EXPECT_EQ( total( 6 ), 12 );
   EXPECT_EQ( total( 8 ), 12 );
   EXPECT_EQ( total( 65529 ), 65532 );
   EXPECT_EQ( total( 65530 ), 0 ) << "the sum wraps";
   EXPECT_EQ( total( 65535 ), 4 );
}

TEST( LspPingP2mpFecStackSubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingP2mpFecStackSubTlv > laid( "00130010 01020403 0a000001 02" );
   EXPECT_EQ( laid->family(), 0x0102 );
   EXPECT_EQ( laid->addrLen(), 4 );
   EXPECT_EQ( laid->rootAddr(), IpAddr( 3, 10, 0, 0 ) );
   EXPECT_EQ( laid->opaqueLen(), 0x0102 );
   EXPECT_EQ( laid->totalLength(), 20 );
}

TEST( LspPingP2mpFecStackSubTlv, writesItsFieldsInPlace ) {
   using View = LspPingP2mpFecStackSubTlv;
   expectSets< View >( &View::familyIs, "family", U16{ 0x0102 }, "a5a5a5a5 0102a5a5 a5a5a5a5 a5" );
   expectSets< View >( &View::addrLenIs, "addrLen", U8{ 4 }, "a5a5a5a5 a5a504a5 a5a5a5a5 a5" );
   expectSets< View >( &View::rootAddrIs, "rootAddr", IpAddr( 10, 1, 2, 3 ),
                       "a5a5a5a5 a5a5a50a 010203a5 a5" );
   expectSets< View >( &View::opaqueLenIs, "opaqueLen", U16{ 0x0102 },
                       "a5a5a5a5 a5a5a5a5 a5a5a501 02" );
}

TEST( LspPingP2mpFecStackSubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingP2mpFecStackSubTlv >( 4 ), zeros13 );
   EXPECT_EQ( textOf< LspPingP2mpFecStackSubTlv >( zeros13 ), "Invalid LspPingP2mpFecStackSubTlv" );
}

TEST( LspPingP2mpFecStackSubTlv, isValidOfItsTypeWhateverItsLength ) {
   EXPECT_EQ( validPairs< LspPingP2mpFecStackSubTlv >(), everyLengthWith( 19 ) );
}

TEST( LspPingP2mpFecStackSubTlv, readsTheRootAsIpv4WhateverItsFamily ) {
   EXPECT_EQ( textOf< LspPingP2mpFecStackSubTlv >( "00130010 0001040a 00000100 07" ),
              "P2mpFecStackSubTlv( RootAddr: '10.0.0.1' )" );
   EXPECT_EQ( textOf< LspPingP2mpFecStackSubTlv >( "0013001c 00021020 010db800 00" ),
              "P2mpFecStackSubTlv( RootAddr: '32.1.13.184' )" );
   EXPECT_EQ( textOf< LspPingP2mpFecStackSubTlv >( "0013ffff ffffffff ffffffff ff" ),
              "P2mpFecStackSubTlv( RootAddr: '255.255.255.255' )" );
}

TEST( LspPingP2mpFecStackSubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ(
      attributeLines< LspPingP2mpFecStackSubTlv >(),
      ( Lines{ "130 family U16 rw", "131 addrLen U8 rw", "132 rootAddr Velnet::IpAddr rw",
               "133 opaqueLen U16 rw", "134 valid bool r", "135 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingP2mpFecStackSubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

TEST( LspPingOpaqueValGenSubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingOpaqueValGenSubTlv > laid( "01000401 020304" );
   EXPECT_EQ( laid->type(), 1 );
   EXPECT_EQ( laid->length(), 4 );
   EXPECT_EQ( laid->lspId(), 0x01020304u );
   EXPECT_EQ( laid->totalLength(), 8 );
}

TEST( LspPingOpaqueValGenSubTlv, writesItsFieldsInPlace ) {
   using View = LspPingOpaqueValGenSubTlv;
   expectSets< View >( &View::lspIdIs, "lspId", U32{ 0x01020304 }, "a5a5a501 020304" );
   Laid< View > laid( U8{ 0xa5 } );
   laid->typeIs( 1 );
   EXPECT_EQ( laid.hex(), "01a5a5a5 a5a5a5" );
   laid->lengthIs( 0x0203 );
   EXPECT_EQ( laid.hex(), "010203a5 a5a5a5" );
}

TEST( LspPingOpaqueValGenSubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingOpaqueValGenSubTlv >( 4 ), zeros7 );
   EXPECT_EQ( textOf< LspPingOpaqueValGenSubTlv >( zeros7 ), "Invalid LspPingOpaqueValGenSubTlv" );
}

TEST( LspPingOpaqueValGenSubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( allValidPairs< LspPingOpaqueValGenSubTlv >(), ( Pairs{ { 1, 4 } } ) );
   EXPECT_EQ( textOf< LspPingOpaqueValGenSubTlv >( "01000500 000007" ),
              "Invalid LspPingOpaqueValGenSubTlv" );
}

TEST( LspPingOpaqueValGenSubTlv, printsALargeIdentifierNegative ) {
   EXPECT_EQ( textOf< LspPingOpaqueValGenSubTlv >( "01000400 000007" ),
              "OpaqueValGenSubTlv( lspId: 7 )" );
   EXPECT_EQ( textOf< LspPingOpaqueValGenSubTlv >( "0100047f ffffff" ),
              "OpaqueValGenSubTlv( lspId: 2147483647 )" );
   EXPECT_EQ( textOf< LspPingOpaqueValGenSubTlv >( "01000480 000000" ),
              "OpaqueValGenSubTlv( lspId: -2147483648 )" );
   EXPECT_EQ( textOf< LspPingOpaqueValGenSubTlv >( "010004ff ffffff" ),
              "OpaqueValGenSubTlv( lspId: -1 )" );
}

TEST( LspPingOpaqueValGenSubTlv, takesAMultipleOfFourBytes ) {
   expectRoundsUpInSixteenBits< LspPingOpaqueValGenSubTlv >();
}

TEST( LspPingOpaqueValGenSubTlv, keepsTypeAndLengthOutOfItsAttributes ) {
   EXPECT_EQ( attributeLines< LspPingOpaqueValGenSubTlv >(),
              ( Lines{ "2 lspId U32 rw", "3 valid bool r", "4 stringValue Orlo::String r" } ) );
   Kiv::TypeRef const type = Kiv::typeOf< LspPingOpaqueValGenSubTlv >();
   EXPECT_FALSE( type.base() );
   for( std::string_view const name : { "type", "length", "totalLength" } )
      EXPECT_FALSE( Kiv::attributeNamed( type, name ) ) << name;
}

TEST( LspPingOpaqueValSGSubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingOpaqueValSGSubTlv > laid( "0300080a 000001e8 000002" );
   EXPECT_EQ( laid->type(), 3 );
   EXPECT_EQ( laid->length(), 8 );
   EXPECT_EQ( laid->sourceAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( laid->groupAddr(), IpAddr( 232, 0, 0, 2 ) );
   EXPECT_EQ( laid->totalLength(), 12 );
}

TEST( LspPingOpaqueValSGSubTlv, writesItsFieldsInPlace ) {
   using View = LspPingOpaqueValSGSubTlv;
   expectSets< View >( &View::sourceAddrIs, "sourceAddr", IpAddr( 10, 0, 0, 1 ),
                       "a5a5a50a 000001a5 a5a5a5" );
   expectSets< View >( &View::groupAddrIs, "groupAddr", IpAddr( 232, 0, 0, 2 ),
                       "a5a5a5a5 a5a5a5e8 000002" );
   Laid< View > laid( U8{ 0xa5 } );
   laid->typeIs( 3 );
   EXPECT_EQ( laid.hex(), "03a5a5a5 a5a5a5a5 a5a5a5" );
   laid->lengthIs( 0x0203 );
   EXPECT_EQ( laid.hex(), "030203a5 a5a5a5a5 a5a5a5" );
}

TEST( LspPingOpaqueValSGSubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingOpaqueValSGSubTlv >( 4 ), zeros11 );
   EXPECT_EQ( textOf< LspPingOpaqueValSGSubTlv >( zeros11 ), "Invalid LspPingOpaqueValSGSubTlv" );
}

TEST( LspPingOpaqueValSGSubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( allValidPairs< LspPingOpaqueValSGSubTlv >(), ( Pairs{ { 3, 8 } } ) );
}

TEST( LspPingOpaqueValSGSubTlv, printsTheSourceFirst ) {
   EXPECT_EQ( textOf< LspPingOpaqueValSGSubTlv >( "0300080a 000001e8 000002" ),
              "OpaqueValSGSubTlv( SourceAddr: '10.0.0.1' GroupAddr: '232.0.0.2' )" );
}

TEST( LspPingOpaqueValSGSubTlv, takesAMultipleOfFourBytes ) {
   expectRoundsUpInSixteenBits< LspPingOpaqueValSGSubTlv >();
}

TEST( LspPingOpaqueValSGSubTlv, keepsTypeAndLengthOutOfItsAttributes ) {
   EXPECT_EQ( attributeLines< LspPingOpaqueValSGSubTlv >(),
              ( Lines{ "2 sourceAddr Velnet::IpAddr rw", "3 groupAddr Velnet::IpAddr rw",
                       "4 valid bool r", "5 stringValue Orlo::String r" } ) );
   Kiv::TypeRef const type = Kiv::typeOf< LspPingOpaqueValSGSubTlv >();
   EXPECT_FALSE( type.base() );
   for( std::string_view const name : { "type", "length", "totalLength" } )
      EXPECT_FALSE( Kiv::attributeNamed( type, name ) ) << name;
}

// An opaque value begins 13 bytes behind the start of the FEC.
TEST( LspPingOpaqueValSGSubTlv, followsTheFecThatItBelongsTo ) {
   Bytes const bytes = bytesOf( "00130014 0001040a 00000100 0b03 00080a00 0001e800 0002" );
   Orlo::Ptr< Velnet::Pkt > const pkt = Velnet::pktFactory( std::span< U8 const >( bytes ) );
   auto const fec = lspPingP2mpFecStackSubTlvParserFactory( pkt, 0 );
   EXPECT_EQ( fec->header()->opaqueLen(), sizeof( LspPingOpaqueValSGSubTlv ) );
   auto const opaque = lspPingOpaqueValSGSubTlvParserFactory( pkt, 13 );
   EXPECT_EQ( opaque->header()->stringValue(),
              "OpaqueValSGSubTlv( SourceAddr: '10.0.0.1' GroupAddr: '232.0.0.2' )" );
}

TEST( LspPingNodeAddrSubTlv, readsItsFieldsInPlace ) {
   Laid< LspPingNodeAddrSubTlv > laid( "000b0008 01020304 0a000001" );
   EXPECT_EQ( laid->subType(), 0x0102 );
   EXPECT_EQ( laid->subTypeLen(), 0x0304 );
   EXPECT_EQ( laid->addr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( laid->totalLength(), 12 );
}

TEST( LspPingNodeAddrSubTlv, writesItsFieldsInPlace ) {
   using View = LspPingNodeAddrSubTlv;
   expectSets< View >( &View::subTypeIs, "subType", U16{ 0x0102 }, "a5a5a5a5 0102a5a5 a5a5a5a5" );
   expectSets< View >( &View::subTypeLenIs, "subTypeLen", U16{ 0x0304 },
                       "a5a5a5a5 a5a50304 a5a5a5a5" );
   expectSets< View >( &View::addrIs, "addr", IpAddr( 10, 0, 0, 1 ), "a5a5a5a5 a5a5a5a5 0a000001" );
}

TEST( LspPingNodeAddrSubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingNodeAddrSubTlv >( 4 ), zeros12 );
   EXPECT_EQ( textOf< LspPingNodeAddrSubTlv >( zeros12 ), "Invalid NodeAddrSubTlv" );
}

TEST( LspPingNodeAddrSubTlv, isValidWhateverItsOuterLength ) {
   LspPingNodeAddrSubTlv view;
   view.subTypeIs( 3 );
   view.subTypeLenIs( 4 );
   EXPECT_EQ( validPairs( view ), everyLengthWith( 11 ) );
   EXPECT_EQ( textOf< LspPingNodeAddrSubTlv >( "000bffff 00030004 0a000001" ),
              "NodeAddr( Addr: '10.0.0.1' )" );
}

TEST( LspPingNodeAddrSubTlv, isValidOfItsSubTypeAndSubLengthOnly ) {
   LspPingNodeAddrSubTlv view;
   view.typeIs( 11 );
   view.lengthIs( 8 );
   Pairs pairs;
   auto const tryPair = [&]( unsigned type, unsigned length ) {
      view.subTypeIs( static_cast< U16 >( type ) );
      view.subTypeLenIs( static_cast< U16 >( length ) );
      if( view.valid() )
         pairs.emplace_back( type, length );
   };
   for( unsigned const one : { 0u, 1u, 2u, 4u, 0x300u, 0x400u, 65535u } ) {
      for( unsigned other = 0; other < all; ++other ) {
         tryPair( one, other );
         if( one != 4 )
            tryPair( other, one );
      }
   }
   EXPECT_EQ( pairs, Pairs() );
   for( unsigned other = 0; other < all; ++other ) {
      tryPair( 3, other );
      if( other != 3 )
         tryPair( other, 4 );
   }
   EXPECT_EQ( pairs, ( Pairs{ { 3, 4 } } ) );
   EXPECT_EQ( textOf< LspPingNodeAddrSubTlv >( "000b0008 00010004 0a000001" ),
              "Invalid NodeAddrSubTlv" );
}

TEST( LspPingNodeAddrSubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingNodeAddrSubTlv >(),
              ( Lines{ "130 subType U16 rw", "131 subTypeLen U16 rw", "132 addr Velnet::IpAddr rw",
                       "133 valid bool r", "134 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingNodeAddrSubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

TEST( LspPingP2mpFecStackSubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingP2mpFecStackSubTlvParser >(),
              "pkt, offset, header, handleHeader, type, family, addrLen, rootAddr, opaqueLen, "
              "valid, stringValue, totalLength" );
   Placed< LspPingP2mpFecStackSubTlvParser >( lspPingP2mpFecStackSubTlvParserFactory,
                                              "00130010 0001040a 00000101 02" )
      .forwards( "type", U16{ 19 } )
      .forwards( "family", U16{ 1 } )
      .forwards( "addrLen", U8{ 4 } )
      .forwards( "rootAddr", IpAddr( 10, 0, 0, 1 ) )
      .forwards( "opaqueLen", U16{ 0x0102 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 20 } )
      .forwardsText( "P2mpFecStackSubTlv( RootAddr: '10.0.0.1' )" );
}

TEST( LspPingOpaqueValGenSubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingOpaqueValGenSubTlvParser >(),
              "pkt, offset, header, handleHeader, type, length, lspId, valid, stringValue, "
              "totalLength" );
   Placed< LspPingOpaqueValGenSubTlvParser > placed( lspPingOpaqueValGenSubTlvParserFactory,
                                                     "01000401 020304" );
   placed.forwards( "type", U8{ 1 } )
      .forwards( "length", U16{ 4 } )
      .forwards( "lspId", U32{ 0x01020304 } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 8 } )
      .forwardsText( "OpaqueValGenSubTlv( lspId: 16909060 )" );
   Placed< LspPingOpaqueValGenSubTlvParser >( lspPingOpaqueValGenSubTlvParserFactory,
                                              "01010201 020304" )
      .forwards( "length", U16{ 0x0102 } )
      .forwards( "valid", false )
      .forwards( "totalLength", U16{ 0x0108 } )
      .forwardsText( "Invalid LspPingOpaqueValGenSubTlv" );
}

TEST( LspPingOpaqueValSGSubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingOpaqueValSGSubTlvParser >(),
              "pkt, offset, header, handleHeader, type, length, sourceAddr, groupAddr, valid, "
              "stringValue, totalLength" );
   Placed< LspPingOpaqueValSGSubTlvParser >( lspPingOpaqueValSGSubTlvParserFactory,
                                             "0300080a 000001e8 000002" )
      .forwards( "type", U8{ 3 } )
      .forwards( "length", U16{ 8 } )
      .forwards( "sourceAddr", IpAddr( 10, 0, 0, 1 ) )
      .forwards( "groupAddr", IpAddr( 232, 0, 0, 2 ) )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 12 } )
      .forwardsText( "OpaqueValSGSubTlv( SourceAddr: '10.0.0.1' GroupAddr: '232.0.0.2' )" );
}

TEST( LspPingNodeAddrSubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingNodeAddrSubTlvParser >(),
              "pkt, offset, header, handleHeader, type, subType, subTypeLen, addr, valid, "
              "totalLength, stringValue" );
   Placed< LspPingNodeAddrSubTlvParser >( lspPingNodeAddrSubTlvParserFactory,
                                          "000b0008 00030004 0a000001" )
      .forwards( "type", U16{ 11 } )
      .forwards( "subType", U16{ 3 } )
      .forwards( "subTypeLen", U16{ 4 } )
      .forwards( "addr", IpAddr( 10, 0, 0, 1 ) )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 12 } )
      .forwardsText( "NodeAddr( Addr: '10.0.0.1' )" );
}

} // namespace
