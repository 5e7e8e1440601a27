#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "tests/AttributeLines.h"
#include "tests/record/RandomRecords.h"

#include <gtest/gtest.h>

#include <sstream>

// What holds for every record alike.
namespace LspPing {
namespace {

template < class R >
class RecordFamily : public testing::Test {
 protected:
   static Kiv::TypeRef type() { return Kiv::typeOf< R >(); }
};

using Records =
   testing::Types< LspPingPwInfo, LspPingFecInfo, LspPingFecStack, LspPingDownstreamLabelEntry,
                   LspPingDownstreamLabelStack, LspPingMultipathBitset,
                   LspPingDownstreamMappingInfo, LspPingDownstreamMappingInfoSet,
                   LspPingFecStackChangeInfo, LspPingIntfAndLabelStackInfo, LspPingPadInfo >;
TYPED_TEST_SUITE( RecordFamily, Records );

TYPED_TEST( RecordFamily, isARegisteredValue ) {
   EXPECT_EQ( this->type().kind(), Kiv::Kind::value );
   EXPECT_EQ( Kiv::typeNamed( this->type().name() ), this->type() );
   EXPECT_EQ( this->type().attributes().front().id, 2 );
}

TYPED_TEST( RecordFamily, comparesByValue ) {
   RandomRecords random( seededRandom() );
   for( int round = 0; round < 200; ++round ) {
      TypeParam const record = random.record< TypeParam >();
      TypeParam const copy = record;
      TypeParam const other = random.record< TypeParam >();
      EXPECT_TRUE( record == record );
      EXPECT_TRUE( record == copy );
      EXPECT_FALSE( record != copy );
      EXPECT_TRUE( TypeParam::isEq( &record, &record ) );
      EXPECT_TRUE( TypeParam::isEq( &record, &copy ) );
      EXPECT_EQ( TypeParam::isEq( &record, &other ), record == other );
      EXPECT_EQ( record == other, other == record );
      EXPECT_NE( record == other, record != other );
   }
}

TYPED_TEST( RecordFamily, isEmptyWhenItEqualsTheDefault ) {
   EXPECT_FALSE( TypeParam() );
   TypeParam const record = RandomRecords( std::mt19937_64{ 1 } ).record< TypeParam >();
   EXPECT_TRUE( record );
   TypeParam assigned = record;
   assigned = TypeParam();
   EXPECT_FALSE( assigned );
}

TYPED_TEST( RecordFamily, isMadeAndComparedWithoutItsClass ) {
   TypeParam const record = RandomRecords( std::mt19937_64{ 1 } ).record< TypeParam >();
   Kiv::Instance made( this->type() );
   Kiv::Instance const copied( this->type(), &record );
   Kiv::Operations const & operations = this->type().operations();
   EXPECT_EQ( made.template as< TypeParam >(), TypeParam() );
   EXPECT_FALSE( operations.isSet( made.object() ) );
   EXPECT_TRUE( operations.isSet( copied.object() ) );
   EXPECT_TRUE( operations.equal( copied.object(), &record ) );
   EXPECT_FALSE( operations.equal( made.object(), &record ) );
   operations.assign( made.object(), &record );
   EXPECT_TRUE( operations.equal( made.object(), &record ) );
}

TYPED_TEST( RecordFamily, writesItsGenericText ) {
   TypeParam const record = RandomRecords( std::mt19937_64{ 1 } ).record< TypeParam >();
   std::ostringstream out;
   out << record;
   EXPECT_EQ( out.str(), KivOrlo::valueToStrep( this->type(), &record ) );
   EXPECT_TRUE( out.str().starts_with( Orlo::String( this->type().name() ) + "(" ) );
}

TYPED_TEST( RecordFamily, hasNoHashUnlessItIsALabelWord ) {
   TypeParam const record{};
   if( this->type() == Kiv::typeOf< LspPingDownstreamLabelEntry >() ) {
      EXPECT_EQ( Kiv::hashOf( this->type(), &record ), Velnet::NetU32( 0 ).hash() );
      return;
   }
   try {
      Kiv::hashOf( this->type(), &record );
      FAIL();
   } catch( Kiv::UnhashableException const & error ) {
      EXPECT_EQ( Orlo::String( error.what() ),
                 Orlo::String( this->type().name() ) + " cannot be hashed" );
   }
}

U64 liveEntries() {
   return LspPingFecStack::KivFecInfo::memAllocationTracker_.live() +
          LspPingDownstreamMappingInfoSet::KivLspPingDownstreamMappingInfo::memAllocationTracker_
             .live();
}

TYPED_TEST( RecordFamily, leavesNoEntryNodeBehind ) {
   U64 const before = liveEntries();
   {
      RandomRecords random( std::mt19937_64{ 1 } );
      TypeParam record = random.record< TypeParam >();
      TypeParam copy = record;
      copy = random.record< TypeParam >();
      record = std::move( copy );
      TypeParam const moved = std::move( record );
      EXPECT_TRUE( moved );
   }
   EXPECT_EQ( liveEntries(), before );
}

// "name" with what can be done with the attribute: r(ead), w(rite), c(all), {} for a collection.
Orlo::String described( Kiv::TypeRef type ) {
   Orlo::String text;
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      text.append( text.empty() ? "" : ", " ).append( attribute.name() ).append( " " );
      text += accessText( attribute ) + ( attribute.collection() ? "{}" : "" );
   }
   return text;
}

TEST( RecordAttributes, standInTheirOrder ) {
   EXPECT_EQ( described( Kiv::typeOf< LspPingPwInfo >() ),
              "senderAddr r, receiverAddr r, pwId r, pwGenId r, pwType r, controlWordPresent r, "
              "activeCcType rw" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingFecInfo >() ),
              "fecTlvType rw, dstPrefix rw, rd rw, oamStandard rw, algorithm rw, mplsLabel rw, "
              "rsvpSpGroupId rw, rsvpSpId rw, rsvpSenderAddr rw, pwInfo rw, opqType rw, "
              "genericOpqVal rw, sourceAddrOpqVal rw, groupAddrOpqVal rw, peerAddr rw, "
              "fecTlvLen rw, igpProtocol rw" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingFecStack >() ), "fecInfo rw{}" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingDownstreamLabelEntry >() ),
              "v0 rw, v1 rw, v2 rw, v3 rw" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingDownstreamLabelStack >() ),
              "labelEntry rw{}, size rw, valid r" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingMultipathBitset >() ),
              "bitset rw{}, size rw, bitSize r, hasAnyBitsSet r, setBitValue c, setBit c, "
              "clearBit c, isSet c" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingDownstreamMappingInfo >() ),
              "mtu r, addrType r, dsFlags r, dsIpAddr r, dsIntfAddr r, multipathType r, "
              "depthLimit r, dsMultipathBaseAddr r, dsMultipathBitset r, labelStack r, "
              "fecStackChangeInfo r, intf r, retCode r, retSubcode r, valid r, intfIndex r, "
              "checkMultipathType c" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingDownstreamMappingInfoSet >() ),
              "lspPingDownstreamMappingInfo rw{}, mappingTlv r" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingFecStackChangeInfo >() ),
              "popTlvInfo rw, pushTlvInfo rw, valid r" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingIntfAndLabelStackInfo >() ),
              "addrType r, addr r, intfAddr r, intfId r, labelStack r, valid r" );
   EXPECT_EQ( described( Kiv::typeOf< LspPingPadInfo >() ),
              "padType r, padding rw{}, length rw, valid r" );
}

/// Reads a record from this text, with its class and without.
template < class R >
void parse( std::string_view text ) {
   Kiv::CharRange in( text );
   R const record( in );
   FAIL() << record;
}
template < class R >
void parseGenerically( std::string_view text ) {
   R record;
   KivOrlo::strepToValue( text, Kiv::typeOf< R >(), &record );
}

// The assertion's text as a regular expression.
Orlo::String noConstructor( Orlo::String const & name ) {
   return "LspPing.*: assertion \"\"No String constructor for " + name +
          " - has collection\" == nullptr\" failed";
}

TEST( RecordDeathTest, endsTheProcessWhenACollectionIsToBeReadFromText ) {
   EXPECT_DEATH( parse< LspPingFecStack >( "" ), noConstructor( "LspPingFecStack" ) );
   EXPECT_DEATH( parse< LspPingDownstreamLabelStack >( "" ),
                 noConstructor( "LspPingDownstreamLabelStack" ) );
   EXPECT_DEATH( parse< LspPingMultipathBitset >( "" ), noConstructor( "LspPingMultipathBitset" ) );
   EXPECT_DEATH( parse< LspPingDownstreamMappingInfoSet >( "" ),
                 noConstructor( "LspPingDownstreamMappingInfoSet" ) );
   EXPECT_DEATH( parse< LspPingPadInfo >( "" ), noConstructor( "LspPingPadInfo" ) );
   EXPECT_DEATH( parseGenerically< LspPingPadInfo >( "LspPing::LspPingPadInfo(padType=1" ),
                 noConstructor( "LspPingPadInfo" ) );
   EXPECT_DEATH(
      parse< LspPingFecStackChangeInfo >( "LspPing::LspPingFecStackChangeInfo(popTlvInfo=" ),
      noConstructor( "LspPingFecStack" ) );
   EXPECT_DEATH( parse< LspPingDownstreamMappingInfo >(
                    "LspPing::LspPingDownstreamMappingInfo(mtu=1500, addrType=1, dsFlags=0, "
                    "dsIpAddr=10.0.0.1, dsIntfAddr=none, multipathType=8, depthLimit=0, "
                    "dsMultipathBaseAddr=none, dsMultipathBitset=" ),
                 noConstructor( "LspPingMultipathBitset" ) );
}

TEST( RecordTextOfCollections, stillNamesWhatIsDamagedBeforeThem ) {
   EXPECT_THROW( parse< LspPingFecStackChangeInfo >( "LspPing::LspPingFecStack(fecInfo={})" ),
                 Kiv::RangeException );
   try {
      parse< LspPingDownstreamMappingInfo >( "LspPing::LspPingDownstreamMappingInfo(mtu=65536, " );
   } catch( Kiv::RangeException const & error ) {
      EXPECT_EQ( error.subject(), "mtu" );
   }
}

} // namespace
} // namespace LspPing
