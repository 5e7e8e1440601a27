#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "tests/record/RandomRecords.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

LspPingMultipathBitset bitsetOf( U32 size, std::initializer_list< U8 > bytes ) {
   LspPingMultipathBitset bitset( size );
   U32 index = 0;
   for( U8 const byte : bytes )
      bitset.bitsetIs( index++, byte );
   return bitset;
}

/// A record that differs from the default in its first attributes only.
LspPingDownstreamMappingInfo infoOf( U16 mtu, U8 multipathType = 0,
                                     LspPingMultipathBitset const & bitset = {} ) {
   return LspPingDownstreamMappingInfo( mtu, 0, 0, {}, {}, multipathType, 0, {}, bitset, {}, {}, {},
                                        LspPingReturnCode::noRetCode, 0, false );
}

TEST( LspPingMultipathBitset, numbersBitsInTheOrderOfTheWire ) {
   LspPingMultipathBitset bitset( 2 );
   EXPECT_EQ( bitset.bitSize(), 16U );
   bitset.setBit( 0 );
   EXPECT_EQ( bitset.bitset( 0 ), 0x80 );
   bitset.setBit( 15 );
   EXPECT_EQ( bitset.bitset( 1 ), 0x01 );
   EXPECT_FALSE( bitset.isSet( 8 ) );
   for( U32 bit = 0; bit < 16; ++bit ) {
      LspPingMultipathBitset one( 2 );
      one.setBit( bit );
      EXPECT_EQ( one.bitset( 0 ) << 8 | one.bitset( 1 ), 0x8000 >> bit );
      for( U32 other = 0; other < 16; ++other )
         EXPECT_EQ( one.isSet( other ), other == bit );
      one.clearBit( bit );
      EXPECT_FALSE( one.hasAnyBitsSet() );
   }
}

TEST( LspPingMultipathBitset, keepsTheOtherBitsOfAByte ) {
   LspPingMultipathBitset bitset = bitsetOf( 1, { 0xA5 } );
   bitset.setBitValue( 1, true );
   EXPECT_EQ( bitset.bitset( 0 ), 0xE5 );
   bitset.setBitValue( 0, false );
   EXPECT_EQ( bitset.bitset( 0 ), 0x65 );
   bitset.setBit( 1 );
   EXPECT_EQ( bitset.bitset( 0 ), 0x65 );
}

TEST( LspPingMultipathBitset, growsWhenABitIsCleared ) {
   LspPingMultipathBitset bitset( 4 );
   EXPECT_FALSE( bitset.isSet( 31 ) );
   EXPECT_TRUE( bitset.bitset().empty() );
   bitset.clearBit( 31 );
   EXPECT_EQ( bitset.bitset().end(), 4U );
   for( U32 index = 0; index < 4; ++index )
      EXPECT_EQ( bitset.bitset( index ), 0 );
   EXPECT_FALSE( bitset.hasAnyBitsSet() );
   EXPECT_NE( bitset, LspPingMultipathBitset( 4 ) );
}

TEST( LspPingMultipathBitset, looksForBitsBelowItsSizeOnly ) {
   EXPECT_FALSE( bitsetOf( 0, { 0xFF } ).hasAnyBitsSet() );
   EXPECT_FALSE( bitsetOf( 2, { 0, 0, 0xFF } ).hasAnyBitsSet() );
   EXPECT_TRUE( bitsetOf( 3, { 0, 0, 0xFF } ).hasAnyBitsSet() );
   EXPECT_FALSE( LspPingMultipathBitset( 0xFFFFFFFF ).hasAnyBitsSet() );
   LspPingMultipathBitset high( 100 );
   high.bitsetIs( 99, 1 );
   EXPECT_TRUE( high.hasAnyBitsSet() );
}

TEST( LspPingMultipathBitset, reachesItsBytes ) {
   LspPingMultipathBitset bitset = bitsetOf( 2, { 0x12, 0x34 } );
   EXPECT_EQ( bitset.bitset( 2 ), 0 );
   EXPECT_EQ( bitset.bitsetDel( 2 ), 0 );
   EXPECT_EQ( bitset.bitsetDel( 1 ), 0x34 );
   EXPECT_EQ( bitset.bitsetDel( bitset.bitsetIterator() ), 0x12 );
   EXPECT_EQ( bitset.bitset().end(), 2U );
   bitset.bitsetIs( 0, 1 );
   bitset.bitsetDelAll();
   EXPECT_EQ( bitset.bitset( 0 ), 0 );
   bitset.sizeIs( 0 );
   EXPECT_TRUE( bitset ); // still holds its bytes
   EXPECT_NE( bitset, LspPingMultipathBitset() );
}

TEST( LspPingMultipathBitset, comparesSizeAndBytes ) {
   EXPECT_NE( bitsetOf( 2, {} ), bitsetOf( 2, { 0 } ) );
   EXPECT_EQ( bitsetOf( 2, { 0x80 } ), bitsetOf( 2, { 0x80, 0x00 } ) );
   EXPECT_NE( bitsetOf( 2, { 0x80 } ), bitsetOf( 3, { 0x80 } ) );
   EXPECT_NE( bitsetOf( 2, { 0x80 } ), bitsetOf( 2, { 0x80, 0x01 } ) );
   EXPECT_FALSE( LspPingMultipathBitset( 0 ) );
   EXPECT_TRUE( LspPingMultipathBitset( 1 ) );
}

TEST( LspPingMultipathBitset, isUsedByName ) {
   LspPingMultipathBitset bitset( 2 );
   Kiv::call( bitset, "setBit", U32{ 3 } );
   EXPECT_EQ( bitset.bitset( 0 ), 0x10 );
   EXPECT_TRUE( Kiv::call< bool >( bitset, "isSet", U32{ 3 } ) );
   Kiv::call( bitset, "setBitValue", U32{ 8 }, true );
   Kiv::call( bitset, "clearBit", U32{ 3 } );
   EXPECT_EQ( bitset, bitsetOf( 2, { 0x00, 0x80 } ) );
   EXPECT_TRUE( Kiv::read< bool >( bitset, "hasAnyBitsSet" ) );
   EXPECT_EQ( Kiv::read< U32 >( bitset, "bitSize" ), 16U );
   Kiv::write< U32 >( bitset, "size", 5 );
   EXPECT_EQ( bitset.bitSize(), 40U );
   EXPECT_THROW( Kiv::write< U32 >( bitset, "bitSize", 8 ), Kiv::AccessException );
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingMultipathBitset >(), &bitset ),
              "LspPing::LspPingMultipathBitset(bitset={0: 0, 1: 128}, size=5)" );
}

TEST( LspPingMultipathBitsetDeathTest, endsTheProcessForABitOutside ) {
   LspPingMultipathBitset bitset( 2 );
   char const * const outside = "assertion \"bitNum < bitSize\\(\\)\" failed";
   EXPECT_DEATH( bitset.isSet( 16 ), outside );
   EXPECT_DEATH( bitset.setBitValue( 16, false ), outside );
   EXPECT_DEATH( bitset.setBit( 16 ), outside );
   EXPECT_DEATH( bitset.clearBit( 0xFFFFFFFF ), outside );
   EXPECT_DEATH( LspPingMultipathBitset().isSet( 0 ), outside );
   bitset.sizeIs( 0x10000000 );
   EXPECT_DEATH( bitset.setBit( 2003003 * 8 ), "assertion \"newEntries < 2003004\" failed" );
}

TEST( LspPingDownstreamMappingInfo, hasItsDefaults ) {
   LspPingDownstreamMappingInfo const info;
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingDownstreamMappingInfo >(), &info ),
              "LspPing::LspPingDownstreamMappingInfo(mtu=0, addrType=0, dsFlags=0, dsIpAddr=none, "
              "dsIntfAddr=none, multipathType=0, depthLimit=0, dsMultipathBaseAddr=none, "
              "dsMultipathBitset=LspPing::LspPingMultipathBitset(bitset={}, size=0), "
              "labelStack=LspPing::LspPingDownstreamLabelStack(labelEntry={}, size=0), "
              "fecStackChangeInfo=LspPing::LspPingFecStackChangeInfo("
              "popTlvInfo=LspPing::LspPingFecStack(fecInfo={}), "
              "pushTlvInfo=LspPing::LspPingFecStack(fecInfo={})), "
              "intf=none, retCode=noRetCode, retSubcode=0, valid=false)" );
   EXPECT_EQ( info.intf().value(), 0xFFFFFFFF );
   EXPECT_FALSE( info );
}

TEST( LspPingDownstreamMappingInfo, keepsCopiesOfWhatItIsConstructedWith ) {
   LspPingMultipathBitset bitset = bitsetOf( 9, { 1, 2 } );
   LspPingDownstreamLabelStack labels;
   labels.labelEntryIs( 0, LspPingDownstreamLabelEntry( 0x100 ) );
   labels.sizeIs( 7 );
   LspPingFecStackChangeInfo change;
   LspPingFecStack stack;
   stack.fecInfoIs( 1, LspPingFecInfo() );
   change.pushTlvInfoIs( stack );
   Velnet::IpGenAddr const a = Velnet::IpAddr( 10, 0, 0, 1 ), b = Velnet::IpAddr( 10, 0, 0, 2 ),
                           c = Velnet::IpAddr( 127, 0, 0, 1 );
   LspPingDownstreamMappingInfo const info( 1500, 1, 2, a, b, 8, 3, c, bitset, labels, change,
                                            Velnet::IntfId( 42 ), LspPingReturnCode::seeDdmTlv, 4,
                                            true );
   LspPingMultipathBitset const bitsetBefore = bitset;
   LspPingDownstreamLabelStack const labelsBefore = labels;
   LspPingFecStackChangeInfo const changeBefore = change;
   bitset.bitsetIs( 0, 0xFF );
   labels.labelEntryDelAll();
   change.pushTlvInfoIs( {} );

   EXPECT_EQ( info.mtu(), 1500 );
   EXPECT_EQ( info.addrType(), 1 );
   EXPECT_EQ( info.dsFlags(), 2 );
   EXPECT_EQ( info.dsIpAddr(), a );
   EXPECT_EQ( info.dsIntfAddr(), b );
   EXPECT_EQ( info.multipathType(), 8 );
   EXPECT_EQ( info.depthLimit(), 3 );
   EXPECT_EQ( info.dsMultipathBaseAddr(), c );
   EXPECT_EQ( info.dsMultipathBitset(), bitsetBefore );
   EXPECT_EQ( info.dsMultipathBitset().size(), 9U );
   EXPECT_EQ( info.labelStack(), labelsBefore );
   EXPECT_EQ( info.labelStack().size(), 7U );
   EXPECT_EQ( info.fecStackChangeInfo(), changeBefore );
   EXPECT_EQ( info.intf().value(), 42U );
   EXPECT_EQ( info.intfIndex(), info.intf() );
   EXPECT_EQ( info.retCode(), LspPingReturnCode::seeDdmTlv );
   EXPECT_EQ( info.retSubcode(), 4 );
   EXPECT_TRUE( info.valid() );
   EXPECT_EQ( Kiv::read< Velnet::IntfId >( info, "intfIndex" ).value(), 42U );
}

TEST( LspPingDownstreamMappingInfo, differsInEachOfItsAttributes ) {
   LspPingDownstreamMappingInfo const none;
   Velnet::IpGenAddr const addr = Velnet::IpAddr( 10, 0, 0, 1 );
   LspPingDownstreamLabelStack labels;
   labels.sizeIs( 1 );
   LspPingFecStackChangeInfo change;
   LspPingFecStack stack;
   stack.fecInfoIs( 1, LspPingFecInfo() );
   change.popTlvInfoIs( stack );
   for( int which = 0; which < 15; ++which ) {
      auto const at = [which]( int index ) { return static_cast< U8 >( which == index ); };
      LspPingDownstreamMappingInfo const info(
         at( 0 ), at( 1 ), at( 2 ), which == 3 ? addr : Velnet::IpGenAddr(),
         which == 4 ? addr : Velnet::IpGenAddr(), at( 5 ), at( 6 ),
         which == 7 ? addr : Velnet::IpGenAddr(), LspPingMultipathBitset( at( 8 ) ),
         which == 9 ? labels : LspPingDownstreamLabelStack(),
         which == 10 ? change : LspPingFecStackChangeInfo(),
         which == 11 ? Velnet::IntfId( 0 ) : Velnet::IntfId(),
         which == 12 ? LspPingReturnCode::malFormEchoRequest : LspPingReturnCode::noRetCode,
         at( 13 ), which == 14 );
      EXPECT_NE( info, none ) << which;
      EXPECT_TRUE( info ) << which;
   }
}

TEST( LspPingDownstreamMappingInfo, takesNoBitsForNoMultipath ) {
   LspPingDownstreamMappingInfo info = infoOf( 1500, 8, bitsetOf( 2, { 0, 0 } ) );
   info.checkMultipathType();
   EXPECT_EQ( info.multipathType(), 0 );
   EXPECT_EQ( info.dsMultipathBitset().size(), 0U );
   EXPECT_EQ( info.dsMultipathBitset().bitset().end(), 2U );
   EXPECT_EQ( info.mtu(), 1500 );

   LspPingDownstreamMappingInfo const before = infoOf( 1500, 8, bitsetOf( 2, { 0, 1 } ) );
   LspPingDownstreamMappingInfo kept = before;
   Kiv::call( kept, "checkMultipathType" );
   EXPECT_EQ( kept, before );
}

TEST( LspPingDownstreamMappingInfo, cannotBeWrittenByName ) {
   LspPingDownstreamMappingInfo info;
   for( Kiv::Attribute const & attribute :
        Kiv::typeOf< LspPingDownstreamMappingInfo >().attributes() ) {
      U64 buffer[32] = {};
      EXPECT_EQ( Kiv::attributeAccess( Kiv::typeOf( info ), &info, attribute.id, Kiv::OpCode::write,
                                       buffer ),
                 Kiv::Outcome::notPermitted )
         << attribute.name();
   }
   EXPECT_FALSE( info );
}

TEST( LspPingDownstreamMappingInfoSet, isEmptyWithTypeZeroAndNoEntry ) {
   using Type = LspPingDownstreamMappingType;
   EXPECT_FALSE( LspPingDownstreamMappingInfoSet( Type::downstreamDetailedMap ) );
   EXPECT_TRUE( LspPingDownstreamMappingInfoSet( Type::downstreamMap ) );
   EXPECT_FALSE( LspPingDownstreamMappingInfoSet() );
   LspPingDownstreamMappingInfoSet set;
   set.lspPingDownstreamMappingInfoIs( 0, LspPingDownstreamMappingInfo() );
   EXPECT_TRUE( set );
   EXPECT_NE( LspPingDownstreamMappingInfoSet( Type::downstreamMap ),
              LspPingDownstreamMappingInfoSet( Type::downstreamDetailedMap ) );
}

TEST( LspPingDownstreamMappingInfoSet, keepsOneRecordUnderEachIndex ) {
   LspPingDownstreamMappingInfoSet set;
   EXPECT_EQ( set.lspPingDownstreamMappingInfo( 3 ), LspPingDownstreamMappingInfo() );
   set.lspPingDownstreamMappingInfoIs( 3, infoOf( 1 ) );
   auto const at = set.lspPingDownstreamMappingInfoIterator();
   set.lspPingDownstreamMappingInfoIs( 3, infoOf( 2 ) );
   EXPECT_EQ( at.value(), infoOf( 2 ) );
   set.lspPingDownstreamMappingInfoIs( 1, infoOf( 7 ) );
   EXPECT_EQ( set.lspPingDownstreamMappingInfoIterator().key(), 1 );
   EXPECT_EQ( set.lspPingDownstreamMappingInfoDel( at ), infoOf( 2 ) );
   EXPECT_EQ( set.lspPingDownstreamMappingInfoDel( at ), LspPingDownstreamMappingInfo() );
   EXPECT_EQ( set.lspPingDownstreamMappingInfoDel( 3 ), LspPingDownstreamMappingInfo() );
   EXPECT_EQ( set.lspPingDownstreamMappingInfoDel( 1 ), infoOf( 7 ) );
   EXPECT_FALSE( set );
   set.lspPingDownstreamMappingInfoIs( 1, infoOf( 7 ) );
   set.lspPingDownstreamMappingInfoDelAll();
   EXPECT_FALSE( set );
}

TEST( LspPingDownstreamMappingInfoSet, copiesItsEntries ) {
   using Entry = LspPingDownstreamMappingInfoSet::KivLspPingDownstreamMappingInfo;
   U64 const live = Entry::memAllocationTracker_.live();
   {
      LspPingDownstreamMappingInfoSet original;
      original.lspPingDownstreamMappingInfoIs( 1, infoOf( 1 ) );
      LspPingDownstreamMappingInfoSet const copy = original;
      EXPECT_EQ( Entry::memAllocationTracker_.live(), live + 2 );
      original.lspPingDownstreamMappingInfoIs( 1, infoOf( 2 ) );
      EXPECT_EQ( copy.lspPingDownstreamMappingInfo( 1 ), infoOf( 1 ) );
      EXPECT_NE( copy, original );
      auto at = original.lspPingDownstreamMappingInfoIterator();
      original.lspPingDownstreamMappingInfoDelAll();
      EXPECT_EQ( Entry::memAllocationTracker_.live(), live + 2 );
      EXPECT_EQ( at.value(), infoOf( 2 ) );
   }
   EXPECT_EQ( Entry::memAllocationTracker_.live(), live );
   EXPECT_EQ( Entry::memAllocationTracker_.className(),
              "LspPing::LspPingDownstreamMappingInfoSet::KivLspPingDownstreamMappingInfo" );
}

TEST( LspPingDownstreamMappingInfoSet, refusesAnotherMappingType ) {
   LspPingDownstreamMappingInfoSet set( LspPingDownstreamMappingType::downstreamMap );
   EXPECT_THROW( Kiv::write( set, "mappingTlv", LspPingDownstreamMappingType() ),
                 Kiv::AccessException );
   EXPECT_EQ( Kiv::read< LspPingDownstreamMappingType >( set, "mappingTlv" ),
              LspPingDownstreamMappingType::downstreamMap );
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingDownstreamMappingInfoSet >(), &set ),
              "LspPing::LspPingDownstreamMappingInfoSet(lspPingDownstreamMappingInfo={}, "
              "mappingTlv=downstreamMap)" );
}

} // namespace
} // namespace LspPing
