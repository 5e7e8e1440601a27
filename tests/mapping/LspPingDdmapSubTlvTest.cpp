#include "MplsUtils/LspPing/mapping/LspPingDdmapSubTlv.h"

#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

using Velnet::Ip6Addr;
using Velnet::IpAddr;

Orlo::Ptr< Velnet::Pkt > packetOf( std::string_view hex ) {
   WireBytes bytes( hex );
   return Velnet::pktFactory( std::span( bytes.data(), bytes.size() ) );
}

TEST( LspPingMultipathSubTlv, readsTheLengthAtItsOddPlace ) {
   WireBytes bytes( "00 01 00 0c 08 01 00 ff" );
   auto const & view = bytes.as< LspPingMultipathSubTlv >();
   EXPECT_EQ( view.type(), 1 );
   EXPECT_EQ( view.length(), 12 );
   EXPECT_EQ( view.multipathType(), 8 );
   EXPECT_EQ( view.multipathLength(), 256 );
   EXPECT_EQ( view.mbz(), 255 );
   EXPECT_TRUE( view.valid() );
}

TEST( LspPingMultipathSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingMultipathSubTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.multipathTypeIs( 9 ); } ),
              "a5 a5 a5 a5 09 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.multipathLengthIs( 0x0102 ); } ),
              "a5 a5 a5 a5 a5 01 02 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.mbzIs( 0 ); } ), "a5 a5 a5 a5 a5 a5 a5 00" );
}

TEST( LspPingMultipathSubTlv, isValidByTypeAlone ) {
   for( U8 const fill : someFills ) {
      WireBytes bytes( 8, fill );
      EXPECT_EQ( validityMismatches< LspPingMultipathSubTlv >(
                    bytes, []( unsigned type, unsigned ) { return type == 1; } ),
                 0u );
   }
}

TEST( LspPingMultipathSubTlv, namesItsAttributes ) {
   EXPECT_EQ( attributeLines< LspPingMultipathSubTlv >(),
              ( Lines{ "130 multipathType U8 rw", "131 multipathLength U16 rw", "132 mbz U8 rw",
                       "133 valid bool r" } ) );
}

TEST( LspPingMultipathSubTlv, readsAndWritesByIdInItselfFirstThenInTheHeader ) {
   WireBytes bytes( "00 01 00 0c 08 01 00 00" );
   auto & view = bytes.as< LspPingMultipathSubTlv >();
   U16 word = 0;
   EXPECT_EQ( outcomeOf( view, 131, Kiv::OpCode::read, word ), Kiv::Outcome::done );
   EXPECT_EQ( word, 256 );
   EXPECT_EQ( outcomeOf( view, 4, Kiv::OpCode::read, word ), Kiv::Outcome::done );
   EXPECT_EQ( word, 1 ); // the header's type
   word = 0x0304;
   EXPECT_EQ( outcomeOf( view, 131, Kiv::OpCode::write, word ), Kiv::Outcome::done );
   EXPECT_EQ( bytes.hex(), "00 01 00 0c 08 03 04 00" );
   bool valid = false;
   EXPECT_EQ( outcomeOf( view, 133, Kiv::OpCode::write, valid ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( view, 133, Kiv::OpCode::call, valid ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( view, 134, Kiv::OpCode::write, valid ), Kiv::Outcome::noSuchAttribute );
   EXPECT_EQ( bytes.hex(), "00 01 00 0c 08 03 04 00" );
}

TEST( LspPingFecStackChangeSubTlv, readsWhatEveryAddressTypeBeginsWith ) {
   WireBytes bytes( "00 03 00 10 02 01 0c fe" );
   auto const & view = bytes.as< LspPingFecStackChangeSubTlv >();
   EXPECT_EQ( view.type(), 3 );
   EXPECT_EQ( view.operType(), 2 );
   EXPECT_EQ( view.addrType(), 1 );
   EXPECT_EQ( view.fecTlvLen(), 12 );
   EXPECT_EQ( view.reserved(), 254 );
   EXPECT_EQ( attributeLines< LspPingFecStackChangeSubTlv >(),
              ( Lines{ "130 operType U8 rw", "131 addrType U8 rw", "132 fecTlvLen U8 rw",
                       "133 reserved U8 rw" } ) );
}

TEST( LspPingFecStackChangeSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingFecStackChangeSubTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.operTypeIs( 1 ); } ),
              "a5 a5 a5 a5 01 a5 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.addrTypeIs( 2 ); } ),
              "a5 a5 a5 a5 a5 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.fecTlvLenIs( 3 ); } ),
              "a5 a5 a5 a5 a5 a5 03 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.reservedIs( 4 ); } ),
              "a5 a5 a5 a5 a5 a5 a5 04" );
}

TEST( LspPingFecStackChangeV4SubTlv, holdsThePeersAddress ) {
   using View = LspPingFecStackChangeV4SubTlv;
   WireBytes bytes( "00 03 00 08 01 01 00 00 0a 00 00 09" );
   EXPECT_EQ( bytes.as< View >().peerAddr(), IpAddr( 10, 0, 0, 9 ) );
   EXPECT_TRUE( bytes.as< View >().valid() );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.peerAddrIs( IpAddr( 1, 2, 3, 4 ) ); } ),
              "a5 a5 a5 a5 a5 a5 a5 a5 01 02 03 04" );
   EXPECT_EQ( attributeLines< View >(),
              ( Lines{ "130 peerAddr Velnet::IpAddr rw", "131 valid bool r" } ) );
}

TEST( LspPingFecStackChangeV6SubTlv, holdsThePeersAddress ) {
   using View = LspPingFecStackChangeV6SubTlv;
   WireBytes bytes( "00 03 00 14 01 02 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 09" );
   EXPECT_EQ( bytes.as< View >().peerAddr(), Ip6Addr::fromText( "2001:db8::9" ) );
   EXPECT_TRUE( bytes.as< View >().valid() );
   EXPECT_EQ(
      hexAfter< View >( []( View & v ) { v.peerAddrIs( *Ip6Addr::fromText( "2001:db8::9" ) ); } ),
      "a5 a5 a5 a5 a5 a5 a5 a5 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 09" );
   EXPECT_EQ( attributeLines< View >(),
              ( Lines{ "130 peerAddr Velnet::Ip6Addr rw", "131 valid bool r" } ) );
}

TEST( LspPingFecStackChangeUnspecifiedSubTlv, addsNothingButItsJudgement ) {
   WireBytes bytes( "00 03 00 04 01 00 00 00" );
   EXPECT_TRUE( bytes.as< LspPingFecStackChangeUnspecifiedSubTlv >().valid() );
   EXPECT_EQ( attributeLines< LspPingFecStackChangeUnspecifiedSubTlv >(),
              Lines{ "130 valid bool r" } );
}

TEST( LspPingFecStackChangeSubTlvs, areReachedThroughTheirCommonHeaderAndTheTlvHeader ) {
   auto const type = Kiv::typeNamed( "LspPing::LspPingFecStackChangeV6SubTlv" );
   EXPECT_EQ( type.base(), Kiv::typeNamed( "LspPing::LspPingFecStackChangeSubTlv" ) );
   EXPECT_EQ( type.base().base(), Kiv::typeNamed( "LspPing::LspPingTlvHdr" ) );
   WireBytes bytes( "00 03 00 04 01 00 0c 00" );
   auto & view = bytes.as< LspPingFecStackChangeUnspecifiedSubTlv >();
   EXPECT_EQ( Kiv::read< U8 >( view, "fecTlvLen" ), 12 );
   EXPECT_EQ( Kiv::read< U16 >( view, "length" ), 4 );
   // The bare id 130 is the type's own; the header's needs its declaring type.
   bool valid = false;
   EXPECT_EQ( outcomeOf( view, 130, Kiv::OpCode::read, valid ), Kiv::Outcome::done );
   EXPECT_TRUE( valid );
   U8 operType = 0;
   EXPECT_EQ( Kiv::attributeAccess( Kiv::typeOf< LspPingFecStackChangeUnspecifiedSubTlv >(), &view,
                                    Kiv::Field( Kiv::typeIdOf< LspPingFecStackChangeSubTlv >, 130 ),
                                    Kiv::OpCode::read, &operType ),
              Kiv::Outcome::done );
   EXPECT_EQ( operType, 1 );
}

// All types and lengths with each of the 256 address types that matter and some that do not.
template < class View >
void expectValidForAddrType( U8 own ) {
   for( unsigned addrType = 0; addrType < 256; addrType += addrType < 8 ? 1 : 31 ) {
      WireBytes bytes( sizeof( View ), 0xa5 );
      bytes.as< View >().addrTypeIs( static_cast< U8 >( addrType ) );
      EXPECT_EQ(
         validityMismatches< View >(
            bytes, [&]( unsigned type, unsigned ) { return type == 3 && addrType == own; } ),
         0u )
         << addrType;
   }
}

TEST( LspPingFecStackChangeSubTlvs, areValidByTypeAndAddressTypeAlone ) {
   expectValidForAddrType< LspPingFecStackChangeV4SubTlv >( 1 );
   expectValidForAddrType< LspPingFecStackChangeV6SubTlv >( 2 );
   expectValidForAddrType< LspPingFecStackChangeUnspecifiedSubTlv >( 0 );
}

TEST( LspPingFecStackChangeSubTlvs, agreeOnOneViewForAKnownAddressTypeAndOnNoneForAnother ) {
   WireBytes bytes( 24, 0 );
   bytes.as< LspPingTlvHdr >().typeIs( 3 );
   for( unsigned addrType = 0; addrType < 256; ++addrType ) {
      bytes.data()[5] = static_cast< U8 >( addrType );
      EXPECT_EQ( bytes.as< LspPingFecStackChangeUnspecifiedSubTlv >().valid(), addrType == 0 );
      EXPECT_EQ( bytes.as< LspPingFecStackChangeV4SubTlv >().valid(), addrType == 1 );
      EXPECT_EQ( bytes.as< LspPingFecStackChangeV6SubTlv >().valid(), addrType == 2 );
   }
}

TEST( LspPingMultiLabelSubTlv, readsAndPrintsCountAndFlags ) {
   WireBytes bytes( "00 01 00 04 00 02 80 00" );
   auto const & view = bytes.as< LspPingMultiLabelSubTlv >();
   EXPECT_EQ( view.lookupLabelCount(), 2 );
   EXPECT_EQ( view.flags(), 32768 );
   EXPECT_EQ( view.stringValue(), "MultiLabel( LookupLabelCount: 2, Flags: 32768 )" );
}

TEST( LspPingMultiLabelSubTlv, writesItsOwnBytesOnly ) {
   using View = LspPingMultiLabelSubTlv;
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.lookupLabelCountIs( 0x0102 ); } ),
              "a5 a5 a5 a5 01 02 a5 a5" );
   EXPECT_EQ( hexAfter< View >( []( View & v ) { v.flagsIs( 0x0304 ); } ),
              "a5 a5 a5 a5 a5 a5 03 04" );
}

TEST( LspPingMultiLabelSubTlv, isValidWithItsTypeAndLength ) {
   for( U8 const fill : someFills ) {
      WireBytes bytes( 8, fill );
      EXPECT_EQ(
         validityMismatches< LspPingMultiLabelSubTlv >(
            bytes, []( unsigned type, unsigned length ) { return type == 1 && length == 4; } ),
         0u );
   }
}

TEST( LspPingMultiLabelSubTlv, printsThatItIsInvalid ) {
   WireBytes longer( "00 01 00 08 00 02 80 00" );
   EXPECT_FALSE( longer.as< LspPingMultiLabelSubTlv >().valid() );
   EXPECT_EQ( longer.as< LspPingMultiLabelSubTlv >().stringValue(), "Invalid Multi-label Sub-TLV" );
   EXPECT_EQ( LspPingMultiLabelSubTlv().stringValue(), "Invalid Multi-label Sub-TLV" );
}

TEST( LspPingMultiLabelSubTlv, sharesItsBytesWithTheMultipathSubTlv ) {
   WireBytes bytes( "00 01 00 04 00 02 80 00" );
   EXPECT_TRUE( bytes.as< LspPingMultiLabelSubTlv >().valid() );
   EXPECT_TRUE( bytes.as< LspPingMultipathSubTlv >().valid() );
}

TEST( LspPingMultiLabelSubTlv, namesItsAttributes ) {
   EXPECT_EQ( attributeLines< LspPingMultiLabelSubTlv >(),
              ( Lines{ "130 lookupLabelCount U16 rw", "131 flags U16 rw", "132 valid bool r",
                       "133 stringValue Orlo::String r" } ) );
}

TEST( LspPingDdmapSubTlvs, areZeroWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingMultipathSubTlv >(), "00 00 00 00 00 00 00 00" );
   EXPECT_EQ( hexOfNew< LspPingFecStackChangeSubTlv >(), "00 00 00 00 00 00 00 00" );
   EXPECT_EQ( hexOfNew< LspPingFecStackChangeV4SubTlv >(), "00 00 00 00 00 00 00 00 00 00 00 00" );
   EXPECT_EQ( hexOfNew< LspPingFecStackChangeV6SubTlv >(), WireBytes( 24, 0 ).hex() );
   EXPECT_EQ( hexOfNew< LspPingFecStackChangeUnspecifiedSubTlv >(), "00 00 00 00 00 00 00 00" );
   EXPECT_EQ( hexOfNew< LspPingMultiLabelSubTlv >(), "00 00 00 00 00 00 00 00" );
}

TEST( LspPingMultipathSubTlvParser, forwardsAllButTheMustBeZeroByte ) {
   auto const parser =
      lspPingMultipathSubTlvParserFactory( packetOf( "ff 00 01 00 0c 08 01 00 00" ), 1 );
   EXPECT_EQ(
      attributeLines( parser->fwkType() ),
      ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r", "132 header LspPingMultipathSubTlv* r",
               "133 handleHeader() void c", "134 type U16 r", "135 length U16 r",
               "136 multipathType U8 r", "137 multipathLength U16 r", "138 valid bool r" } ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "type" ), 1 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "length" ), 12 );
   EXPECT_EQ( Kiv::read< U8 >( *parser, "multipathType" ), 8 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "multipathLength" ), 256 );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_THROW( Kiv::write( *parser, "multipathType", U8{ 1 } ), Kiv::AccessException );
}

TEST( LspPingFecStackChangeSubTlvParsers, forwardHeaderPeerAndJudgement ) {
   auto const v4 = lspPingFecStackChangeV4SubTlvParserFactory(
      packetOf( "ff 00 03 00 08 01 01 0c 07 0a 00 00 09" ), 1 );
   EXPECT_EQ(
      attributeLines( v4->fwkType() ),
      ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r",
               "132 header LspPingFecStackChangeV4SubTlv* r", "133 handleHeader() void c",
               "134 type U16 r", "135 operType U8 r", "136 addrType U8 r", "137 fecTlvLen U8 r",
               "138 reserved U8 r", "139 peerAddr Velnet::IpAddr r", "140 valid bool r" } ) );
   EXPECT_EQ( Kiv::read< U8 >( *v4, "operType" ), 1 );
   EXPECT_EQ( Kiv::read< U8 >( *v4, "fecTlvLen" ), 12 );
   EXPECT_EQ( Kiv::read< U8 >( *v4, "reserved" ), 7 );
   EXPECT_EQ( Kiv::read< IpAddr >( *v4, "peerAddr" ), IpAddr( 10, 0, 0, 9 ) );
   EXPECT_TRUE( Kiv::read< bool >( *v4, "valid" ) );

   auto const v6 = lspPingFecStackChangeV6SubTlvParserFactory(
      packetOf( "ff 00 03 00 14 02 02 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 09" ), 1 );
   EXPECT_EQ( attributeLines( v6->fwkType() ).back(), "140 valid bool r" );
   EXPECT_EQ( Kiv::read< Ip6Addr >( *v6, "peerAddr" ), Ip6Addr::fromText( "2001:db8::9" ) );
   EXPECT_TRUE( Kiv::read< bool >( *v6, "valid" ) );

   auto const unspecified = lspPingFecStackChangeUnspecifiedSubTlvParserFactory(
      packetOf( "ff 00 03 00 04 02 00 00 00" ), 1 );
   EXPECT_EQ(
      attributeLines( unspecified->fwkType() ),
      ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r",
               "132 header LspPingFecStackChangeUnspecifiedSubTlv* r", "133 handleHeader() void c",
               "134 type U16 r", "135 operType U8 r", "136 addrType U8 r", "137 fecTlvLen U8 r",
               "138 reserved U8 r", "139 valid bool r" } ) );
   EXPECT_EQ( Kiv::read< U8 >( *unspecified, "operType" ), 2 );
   EXPECT_TRUE( Kiv::read< bool >( *unspecified, "valid" ) );
}

TEST( LspPingMultiLabelSubTlvParser, forwardsCountFlagsAndText ) {
   auto const parser =
      lspPingMultiLabelSubTlvParserFactory( packetOf( "ff 00 01 00 04 00 02 80 00" ), 1 );
   EXPECT_EQ( attributeLines( parser->fwkType() ),
              ( Lines{ "130 pkt Velnet::Pkt^ r", "131 offset U32 r",
                       "132 header LspPingMultiLabelSubTlv* r", "133 handleHeader() void c",
                       "134 lookupLabelCount U16 r", "135 flags U16 r", "136 valid bool r",
                       "137 stringValue Orlo::String r", "138 totalLength U16 r" } ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "lookupLabelCount" ), 2 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "flags" ), 32768 );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( *parser, "stringValue" ),
              "MultiLabel( LookupLabelCount: 2, Flags: 32768 )" );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 8 );
}

} // namespace
} // namespace LspPing
