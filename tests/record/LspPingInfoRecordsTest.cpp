#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <gtest/gtest.h>

namespace LspPing {
namespace {

TEST( LspPingIntfAndLabelStackInfo, keepsWhatItIsConstructedWith ) {
   Velnet::MplsLabelStack labels{ Velnet::MplsLabelEntry( 0x00010140 ) };
   Velnet::IpGenAddr const a = Velnet::IpAddr( 10, 0, 0, 1 ), b = Velnet::IpAddr( 10, 0, 0, 2 );
   LspPingIntfAndLabelStackInfo const info( 2, a, b, 17, labels, true );
   labels.entryDelAll();
   EXPECT_EQ( info.addrType(), 2 );
   EXPECT_EQ( info.addr(), a );
   EXPECT_EQ( info.intfAddr(), b );
   EXPECT_EQ( info.intfId(), 17U );
   EXPECT_EQ( info.labelStack().size(), 1U );
   EXPECT_TRUE( info.valid() );
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingIntfAndLabelStackInfo >(), &info ),
              "LspPing::LspPingIntfAndLabelStackInfo(addrType=2, addr=10.0.0.1, intfAddr=10.0.0.2, "
              "intfId=17, labelStack={16/0/1/64}, valid=true)" );
}

TEST( LspPingIntfAndLabelStackInfo, differsInEachOfItsAttributes ) {
   LspPingIntfAndLabelStackInfo const none;
   EXPECT_FALSE( none );
   Velnet::IpGenAddr const no, addr = Velnet::IpAddr();
   Velnet::MplsLabelStack const empty, labels{ Velnet::MplsLabelEntry() };
   LspPingIntfAndLabelStackInfo const others[] = {
      { 1, no, no, 0, empty, false },   { 0, addr, no, 0, empty, false },
      { 0, no, addr, 0, empty, false }, { 0, no, no, 1, empty, false },
      { 0, no, no, 0, labels, false },  { 0, no, no, 0, empty, true },
   };
   for( LspPingIntfAndLabelStackInfo const & other : others ) {
      EXPECT_NE( other, none );
      EXPECT_TRUE( other );
   }
   EXPECT_EQ( LspPingIntfAndLabelStackInfo( 0, no, no, 0, empty, false ), none );
}

TEST( LspPingIntfAndLabelStackInfo, cannotBeWrittenByName ) {
   LspPingIntfAndLabelStackInfo info;
   EXPECT_THROW( Kiv::write< U8 >( info, "addrType", 1 ), Kiv::AccessException );
   EXPECT_THROW( Kiv::write< bool >( info, "valid", true ), Kiv::AccessException );
   EXPECT_EQ( Kiv::read< U32 >( info, "intfId" ), 0U );
}

TEST( LspPingPadInfo, isEmptyWithTypeZeroAndNoPadding ) {
   EXPECT_FALSE( LspPingPadInfo() );
   EXPECT_FALSE( LspPingPadInfo( 0, false ) );
   EXPECT_EQ( LspPingPadInfo(), LspPingPadInfo( 0, false ) );
   EXPECT_TRUE( LspPingPadInfo( 1, false ) );
   EXPECT_TRUE( LspPingPadInfo( 0, true ) );
   LspPingPadInfo info;
   info.lengthIs( 1 );
   EXPECT_TRUE( info );
   info.lengthIs( 0 );
   EXPECT_FALSE( info );
   info.paddingIs( 0, 0 );
   EXPECT_TRUE( info );
}

TEST( LspPingPadInfo, growsOverZeroBytesAndStaysAsLong ) {
   LspPingPadInfo info;
   info.paddingIs( 3, 0xAB );
   for( U32 index = 0; index < 3; ++index )
      EXPECT_EQ( info.padding( index ), 0 );
   EXPECT_EQ( info.padding( 3 ), 0xAB );
   EXPECT_EQ( info.padding( 4 ), 0 );
   EXPECT_EQ( info.paddingDel( 3 ), 0xAB );
   EXPECT_EQ( info.paddingDel( 3 ), 0 );
   EXPECT_EQ( info.paddingDel( 100 ), 0 );
   EXPECT_EQ( info.padding().end(), 4U );
   EXPECT_EQ( info.padding( 3 ), 0 );
   EXPECT_NE( info, LspPingPadInfo() );
}

TEST( LspPingPadInfo, deletesUnderAnIteratorAndAll ) {
   LspPingPadInfo info( 1, true );
   info.paddingIs( 0, 1 );
   info.paddingIs( 1, 2 );
   EXPECT_EQ( info.paddingDel( info.paddingIterator() ), 1 );
   LspPingPadInfo const copy = info;
   info.paddingDelAll();
   EXPECT_EQ( info.padding( 1 ), 0 );
   EXPECT_EQ( copy.padding( 1 ), 2 );
}

TEST( LspPingPadInfo, comparesAllItsAttributes ) {
   LspPingPadInfo const info( 1, true );
   EXPECT_NE( info, LspPingPadInfo( 2, true ) );
   EXPECT_NE( info, LspPingPadInfo( 1, false ) );
   LspPingPadInfo other( 1, true );
   EXPECT_EQ( info, other );
   other.lengthIs( 5 );
   EXPECT_NE( info, other );
   other.lengthIs( 0 );
   other.paddingIs( 2, 0 );
   EXPECT_NE( info, other );
   LspPingPadInfo longer( 1, true );
   longer.paddingIs( 9, 0 );
   EXPECT_EQ( longer, other );
}

TEST( LspPingPadInfo, isReachedByAttribute ) {
   LspPingPadInfo info( 1, true );
   Kiv::write< U32 >( info, "length", 9 );
   EXPECT_EQ( info.length(), 9U );
   EXPECT_THROW( Kiv::write< U8 >( info, "padType", 2 ), Kiv::AccessException );
   EXPECT_THROW( Kiv::write< bool >( info, "valid", false ), Kiv::AccessException );
   info.paddingIs( 1, 7 );
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingPadInfo >(), &info ),
              "LspPing::LspPingPadInfo(padType=1, padding={1: 7}, length=9, valid=true)" );
}

TEST( LspPingPadInfoDeathTest, endsTheProcessBeyondTheArraysLimit ) {
   LspPingPadInfo info;
   EXPECT_DEATH( info.paddingIs( 2003003, 1 ), "assertion \"newEntries < 2003004\" failed" );
}

} // namespace
} // namespace LspPing
