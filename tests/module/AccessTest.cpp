#include "tests/module/Orchard.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using Kiv::Field;
using Kiv::OpCode;
using Kiv::Outcome;
using namespace LspPing;

template < class T >
Outcome access( T & object, Field field, OpCode op, void * buffer ) {
   return Kiv::attributeAccess( Kiv::typeOf< T >(), &object, field, op, buffer );
}

template < class Failing >
std::string problemOf( Failing failing ) {
   try {
      failing();
   } catch( Kiv::AccessException const & e ) {
      return e.what();
   }
   return "no problem";
}

TEST( Access, readsWritesAndRefusesWithOutcomesZeroOneTwo ) {
   LspPingTlvHdr header;
   header.typeIs( 7 );
   U16 number = 0;
   EXPECT_EQ( access( header, 4, OpCode::read, &number ), Outcome::done );
   EXPECT_EQ( number, 7 );
   number = 258;
   EXPECT_EQ( access( header, 5, OpCode::write, &number ), Outcome::done );
   EXPECT_EQ( header.length(), 258 );
   EXPECT_EQ( access( header, 6, OpCode::write, &number ), Outcome::notPermitted );
   EXPECT_EQ( access( header, 5, OpCode::call, &number ), Outcome::notPermitted );
   EXPECT_EQ( access( header, 7, OpCode::read, &number ), Outcome::noSuchAttribute );
   EXPECT_EQ( access( header, 1, OpCode::read, &number ), Outcome::noSuchAttribute );
   EXPECT_EQ( access( header, 0, OpCode::call, &number ), Outcome::noSuchAttribute );
   EXPECT_EQ( number, 258 );
   EXPECT_EQ( static_cast< U32 >( Outcome::done ), 0u );
   EXPECT_EQ( static_cast< U32 >( Outcome::notPermitted ), 1u );
   EXPECT_EQ( static_cast< U32 >( Outcome::noSuchAttribute ), 2u );
   EXPECT_EQ( static_cast< U32 >( OpCode::read ), 0u );
   EXPECT_EQ( static_cast< U32 >( OpCode::write ), 1u );
   EXPECT_EQ( static_cast< U32 >( OpCode::call ), 10u );
}

TEST( Access, reachesTheBaseThroughItsOwnIds ) {
   LspPingLdpIpv4SubTlv view;
   U16 number = 5;
   EXPECT_EQ( access( view, 5, OpCode::write, &number ), Outcome::done );
   EXPECT_EQ( view.length(), 5 );
   U8 length = 24;
   EXPECT_EQ( access( view, 131, OpCode::write, &length ), Outcome::done );
   EXPECT_EQ( view.prefixLen(), 24 );
   EXPECT_EQ( access( view, 6, OpCode::write, &number ), Outcome::notPermitted );
   EXPECT_EQ( access( view, 136, OpCode::read, &number ), Outcome::noSuchAttribute );
   EXPECT_EQ( access( view, 7, OpCode::read, &number ), Outcome::noSuchAttribute );
}

// The same id at two levels: bare, it is the nearest level's; with its declaring type, that one's.
TEST( Access, tellsLevelsApartByTheDeclaringType ) {
   LspPingDdmapTlv view;
   Kiv::TypeId const ownType = Kiv::typeIdOf< LspPingDdmapTlv >;
   Kiv::TypeId const middle = Kiv::typeIdOf< LspPingDdmapHdr >;
   Kiv::TypeId const top = Kiv::typeIdOf< LspPingTlvHdr >;
   Velnet::IpAddr address( 10, 1, 2, 3 );
   U16 mtu = 1500;
   EXPECT_EQ( access( view, 130, OpCode::write, &address ), Outcome::done );
   EXPECT_EQ( access( view, Field( middle, 130 ), OpCode::write, &mtu ), Outcome::done );
   EXPECT_EQ( view.dsIpAddr(), Velnet::IpAddr( 10, 1, 2, 3 ) );
   EXPECT_EQ( view.mtu(), 1500 );
   EXPECT_EQ( access( view, Field( ownType, 130 ), OpCode::read, &address ), Outcome::done );
   U16 type = 20;
   EXPECT_EQ( access( view, Field( top, 4 ), OpCode::write, &type ), Outcome::done );
   EXPECT_EQ( view.type(), 20 );
   EXPECT_EQ( access( view, Field( top, 130 ), OpCode::read, &type ), Outcome::noSuchAttribute );
   EXPECT_EQ( access( view, Field( middle, 133 ), OpCode::read, &type ), Outcome::noSuchAttribute );
   EXPECT_EQ( access( view, Field( ownType, 4 ), OpCode::read, &type ), Outcome::noSuchAttribute );
   // A sibling's id is none of this type's.
   Kiv::TypeId const sibling = Kiv::typeIdOf< LspPingDdmapV6Tlv >;
   EXPECT_EQ( access( view, Field( sibling, 130 ), OpCode::read, &address ),
              Outcome::noSuchAttribute );
   EXPECT_EQ( Kiv::attributeNamed( Kiv::typeOf< LspPingDdmapTlv >(), "mtu" ).field().declaring,
              middle );
}

TEST( Access, callsTheOperationsOfTheClockAndRefusesToReadThem ) {
   NtpTime clock;
   NtpTimeU64 const start( 10, 0 );
   NtpTimeU64 const end( 11, 2147483648u );
   void * arguments[] = { const_cast< NtpTimeU64 * >( &start ),
                          const_cast< NtpTimeU64 * >( &end ) };
   U32 elapsed = 0;
   Kiv::Call call{ &elapsed, arguments, 2 };
   EXPECT_EQ( access( clock, 6, OpCode::call, &call ), Outcome::done );
   EXPECT_EQ( elapsed, 1500000u );
   EXPECT_EQ( access( clock, 6, OpCode::read, &call ), Outcome::notPermitted );
   EXPECT_EQ( access( clock, 6, OpCode::write, &call ), Outcome::notPermitted );
   EXPECT_EQ( access( clock, 8, OpCode::call, &call ), Outcome::noSuchAttribute );
   EXPECT_EQ( ( Kiv::call< U32 >( clock, "elapsedTime", start, end ) ), 1500000u );
   EXPECT_EQ( ( Kiv::call< U32 >( clock, "fractionToU32", 0.5 ) ), 2147483648u );
}

TEST( Access, readsTheConstantsAndWritesNone ) {
   Kiv::TypeRef const type = Kiv::typeOf< LspPingConstant >();
   LspPingConstant constants;
   EXPECT_EQ( constants.fwkType(), type );
   EXPECT_EQ( Kiv::read< U16 >( constants, "lspPingUdpPort" ), 3503 );
   EXPECT_EQ( Kiv::read< Orlo::String >( constants, "lspPingServiceName" ), "lspPing" );
   EXPECT_EQ( Kiv::read< U32 >( constants, "maxRxPktSize" ), 65535u );
   EXPECT_EQ( Kiv::read< U32 >( constants, "sockBufferSize" ), 1048576u );
   U16 port = 1;
   EXPECT_EQ( access( constants, 131, OpCode::write, &port ), Outcome::notPermitted );
   EXPECT_EQ( Kiv::read< U16 >( constants, "lspPingUdpPort" ), 3503 );
}

TEST( TypedAccess, readsAndWritesWithTheAttributesType ) {
   LspPingHdr header;
   Kiv::write( header, "senderHandle", U32{ 0x1234 } );
   EXPECT_EQ( Kiv::read< U32 >( header, "senderHandle" ), 0x1234u );
   EXPECT_EQ( Kiv::read< U32 >( header, "senderHandleNbo" ), 0x34120000u );
   EXPECT_FALSE( Kiv::read< bool >( header, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( header, "stringValue" ), "Invalid LspPingHdr" );
}

TEST( TypedAccess, saysWhichAttributeAndTypesMet ) {
   LspPingHdr header;
   NtpTime clock;
   EXPECT_EQ( problemOf( [&] { Kiv::read< U16 >( header, "senderHandle" ); } ),
              "LspPing::LspPingHdr.senderHandle is of type U32, not U16" );
   EXPECT_EQ( problemOf( [&] { Kiv::write( header, "version", U32{ 1 } ); } ),
              "LspPing::LspPingHdr.version is of type U16, not U32" );
   EXPECT_EQ( problemOf( [&] { Kiv::write( header, "valid", true ); } ),
              "LspPing::LspPingHdr.valid cannot be written" );
   EXPECT_EQ( problemOf( [&] { Kiv::read< U32 >( header, "colour" ); } ),
              "LspPing::LspPingHdr has no attribute \"colour\"" );
   EXPECT_EQ( problemOf( [&] { Kiv::read< U32 >( clock, "ntpSeconds" ); } ),
              "LspPing::NtpTime.ntpSeconds cannot be read" );
   EXPECT_EQ( problemOf( [&] { Kiv::call< U32 >( header, "version" ); } ),
              "LspPing::LspPingHdr.version cannot be called" );
   EXPECT_EQ( problemOf( [&] { Kiv::call< U32 >( clock, "elapsedTime", NtpTimeU64{} ); } ),
              "LspPing::NtpTime.elapsedTime takes 2 arguments, not 1" );
   EXPECT_EQ( problemOf( [&] { Kiv::call< U32 >( clock, "elapsedTime", NtpTimeU64{}, 1.0 ); } ),
              "LspPing::NtpTime.elapsedTime takes as argument 2 LspPing::NtpTimeU64, not double" );
   EXPECT_EQ( problemOf( [&] { Kiv::call( clock, "ntpSeconds" ); } ),
              "LspPing::NtpTime.ntpSeconds returns U32, not nothing" );
   EXPECT_EQ( header.version(), 0 );
}

TEST( TypedAccess, tellsValuesFromPointersAndHandles ) {
   std::vector< U8 > bytes( 33, 0 );
   auto const parser = lspPingHdrParserFactory( Velnet::pktFactory( std::move( bytes ) ), 1 );
   EXPECT_EQ( Kiv::read< LspPingHdr * >( *parser, "header" ), parser->header() );
   EXPECT_EQ( Kiv::read< Orlo::Ptr< Velnet::Pkt > >( *parser, "pkt" ).get(), parser->pkt().get() );
   EXPECT_EQ( problemOf( [&] { Kiv::read< LspPingHdr >( *parser, "header" ); } ),
              "LspPing::LspPingHdrParser.header is of type LspPing::LspPingHdr *, not "
              "LspPing::LspPingHdr" );
   EXPECT_EQ( problemOf( [&] { Kiv::read< Velnet::Pkt * >( *parser, "pkt" ); } ),
              "LspPing::LspPingHdrParser.pkt is of type Orlo::Ptr< Velnet::Pkt >, not "
              "Velnet::Pkt *" );
   EXPECT_EQ( problemOf( [&] { Kiv::read< bool >( *parser, "handleHeader" ); } ),
              "LspPing::LspPingHdrParser.handleHeader cannot be read" );
}

TEST( Hash, takesAddressesBitReversed ) {
   LspPingHdr header;
   U64 const hash = Kiv::hashOf( Kiv::typeOf< LspPingHdr >(), &header );
   U64 reversed = 0;
   for( int bit = 0; bit < 64; ++bit )
      reversed |= ( reinterpret_cast< std::uintptr_t >( &header ) >> bit & 1 ) << ( 63 - bit );
   EXPECT_EQ( hash, reversed );
   header.versionIs( 1 );
   EXPECT_EQ( Kiv::hashOf( Kiv::typeOf< LspPingHdr >(), &header ), hash );
}

TEST( Hash, takesLabelWordsByTheirValue ) {
   LspPingNilFecSubTlvLabel a;
   LspPingNilFecSubTlvLabel b;
   a.labelNboIs( 3 );
   b.labelNboIs( 3 );
   Kiv::TypeRef const type = Kiv::typeOf< LspPingNilFecSubTlvLabel >();
   EXPECT_EQ( Kiv::hashOf( type, &a ), Kiv::hashOf( type, &b ) );
   b.mbzIs( 1 );
   EXPECT_NE( Kiv::hashOf( type, &a ), Kiv::hashOf( type, &b ) );
}

TEST( Hash, isRefusedForOtherValuesByName ) {
   NtpTimeU64 const time( 1, 2 );
   EXPECT_FALSE( Kiv::typeOf< NtpTimeU64 >().hashable() );
   try {
      Kiv::hashOf( Kiv::typeOf< NtpTimeU64 >(), &time );
      FAIL();
   } catch( Kiv::UnhashableException const & e ) {
      EXPECT_STREQ( e.what(), "LspPing::NtpTimeU64 cannot be hashed" );
   }
   EXPECT_THROW( Kiv::hashOf( Kiv::typeOf< LspPingHdrParser >(), &time ),
                 Kiv::UnhashableException );
}

TEST( Conversion, goesFromAViewToItsBasesOnly ) {
   LspPingDdmapTlv view;
   Kiv::TypeRef const type = Kiv::typeOf< LspPingDdmapTlv >();
   EXPECT_EQ( Kiv::converted( type, type, &view ), &view );
   EXPECT_EQ( Kiv::converted( type, Kiv::typeOf< LspPingDdmapHdr >(), &view ), &view );
   EXPECT_EQ( Kiv::converted( type, Kiv::typeOf< LspPingTlvHdr >(), &view ), &view );
   EXPECT_EQ( Kiv::converted( type, Kiv::typeOf< LspPingHdr >(), &view ), nullptr );
   EXPECT_EQ( Kiv::converted( Kiv::typeOf< LspPingTlvHdr >(), type, &view ), nullptr );
   EXPECT_TRUE( type.isA( Kiv::typeOf< LspPingTlvHdr >() ) );
   EXPECT_FALSE( type.isA( Kiv::typeOf< LspPingDdmapV6Tlv >() ) );
}

TEST( Text, namesTheTypeAndItsStoredAttributes ) {
   Kiv::TypeRef const type = Kiv::typeOf< NtpTimeU64 >();
   NtpTimeU64 time( 1, 2 );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &time ), "LspPing::NtpTimeU64(seconds=1, fractions=2)" );
   KivOrlo::strepToValue( " LspPing::NtpTimeU64 ( seconds = 4294967295 ,fractions=7 ) ", type,
                          &time );
   EXPECT_EQ( time, NtpTimeU64( 4294967295u, 7 ) );
}

TEST( Text, thatIsDamagedNamesTheAttributeAndChangesNothing ) {
   Kiv::TypeRef const type = Kiv::typeOf< NtpTimeU64 >();
   NtpTimeU64 time( 8, 9 );
   auto const subjectOf = [&]( std::string_view text ) -> Orlo::String {
      try {
         KivOrlo::strepToValue( text, type, &time );
      } catch( Kiv::RangeException const & e ) {
         return e.subject();
      }
      return "none";
   };
   EXPECT_EQ( subjectOf( "LspPing::NtpTimeU64(seconds=x, fractions=2)" ), "seconds" );
   EXPECT_EQ( subjectOf( "LspPing::NtpTimeU64(seconds=1, fractions=4294967296)" ), "fractions" );
   EXPECT_EQ( subjectOf( "LspPing::NtpTimeU64(seconds=1)" ), "fractions" );
   EXPECT_EQ( subjectOf( "LspPing::NtpTimeU64(seconds=1, seconds=2)" ), "fractions" );
   EXPECT_EQ( subjectOf( "LspPing::NtpTimeU64(seconds=1, fractions=2) x" ), "LspPing::NtpTimeU64" );
   std::string_view const whole = "LspPing::NtpTimeU64(seconds=1, fractions=2)";
   for( std::size_t length = 0; length < whole.size(); ++length )
      EXPECT_NE( subjectOf( whole.substr( 0, length ) ), "none" ) << length;
   EXPECT_EQ( time, NtpTimeU64( 8, 9 ) );
}

TEST( Instance, holdsADefaultOrACopyOfAnyValue ) {
   Kiv::TypeRef const type = Kiv::typeOf< NtpTimeU64 >();
   NtpTimeU64 const time( 1, 2 );
   Kiv::Instance const byDefault( type );
   Kiv::Instance copy( type, &time );
   EXPECT_EQ( *static_cast< NtpTimeU64 const * >( byDefault.object() ), NtpTimeU64() );
   EXPECT_EQ( copy.as< NtpTimeU64 >(), time );
   Kiv::Instance view( Kiv::typeOf< LspPingHdr >() );
   EXPECT_EQ( std::memcmp( view.object(), std::vector< U8 >( 32, 0 ).data(), 32 ), 0 );
}

// A parser whose place of the header was never found, as a derived class can be.
class HeaderlessParser : public LspPingHdrParser {
 public:
   HeaderlessParser( Orlo::Ptr< Velnet::Pkt > const & pkt ) : LspPingHdrParser( pkt, 0 ) {
      placeIs( nullptr );
   }
};

TEST( Parser, withoutAHeaderForwardsZeroFalseAndEmpty ) {
   auto const parser =
      Orlo::Ptr< HeaderlessParser >::make( Velnet::pktFactory( std::vector< U8 >( 32, 0xff ) ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "version" ), 0 );
   EXPECT_EQ( Kiv::read< U32 >( *parser, "senderHandle" ), 0u );
   EXPECT_FALSE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< Orlo::String >( *parser, "stringValue" ), "" );
   EXPECT_EQ( Kiv::read< LspPingHdr * >( *parser, "header" ), nullptr );
   Kiv::call( *parser, "handleHeader" );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "version" ), 0xffff );
}

TEST( Parser, isBuiltFromPacketAndOffsetWithoutItsClass ) {
   std::vector< U8 > bytes( 35, 0 );
   bytes[4] = 1;
   bytes[7] = 2;
   Kiv::TypeRef const type = Kiv::typeNamed( "LspPing::LspPingHdrParser" );
   Orlo::Ptr< Orlo::Node > const node =
      type.operations().create( Velnet::pktFactory( std::move( bytes ) ), 3 );
   EXPECT_EQ( node->fwkType(), type );
   EXPECT_EQ( node->references(), 1u );
   EXPECT_EQ( Kiv::read< U32 >( *node, "offset" ), 3u );
   EXPECT_EQ( Kiv::read< U16 >( *node, "version" ), 1 );
   EXPECT_TRUE( Kiv::read< bool >( *node, "valid" ) );
   EXPECT_EQ( Kiv::read< U8 >( *node, "messageType" ), 2 );
}

class RenamedParser : public LspPingHdrParser {
 public:
   using LspPingHdrParser::LspPingHdrParser;
   Kiv::TypeRef typeData() const override { return Kiv::typeOf< LspPingEchoJitterTlvParser >(); }
};

TEST( Parser, isOfTheTypeThatADerivedClassSays ) {
   auto const parser =
      Orlo::Ptr< RenamedParser >::make( Velnet::pktFactory( std::vector< U8 >( 32, 0 ) ), 0u );
   LspPingHdrParser const & base = *parser;
   EXPECT_EQ( base.fwkType(), Kiv::typeOf< LspPingEchoJitterTlvParser >() );
   EXPECT_EQ( base.LspPingHdrParser::typeData().id(), ( Kiv::TypeId{ 16, 65 } ) );
}

} // namespace
