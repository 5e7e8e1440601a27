#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "tests/record/RandomRecords.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace LspPing {
namespace {

static_assert( !std::is_convertible_v< LspPingFecInfo, bool > );
static_assert( std::is_nothrow_move_constructible_v< LspPingFecStack > );
static_assert( sizeof( Kiv::IteratorStorage ) >= sizeof( LspPingFecStack::FecInfoMap::Iterator ) );

LspPingFecInfo fecOfType( U32 type ) {
   LspPingFecInfo info;
   info.fecTlvTypeIs( static_cast< LspPingTargetFecSubTlvType >( type ) );
   return info;
}

LspPingFecStack stackOf( std::initializer_list< std::pair< U8, LspPingFecInfo > > entries ) {
   LspPingFecStack stack;
   for( auto const & [key, info] : entries )
      stack.fecInfoIs( key, info );
   return stack;
}

TEST( LspPingFecInfo, hasItsDefaults ) {
   LspPingFecInfo const info;
   EXPECT_EQ( Kiv::numberOf( info.fecTlvType() ), 5U );
   EXPECT_EQ( info.dstPrefix(), Velnet::IpGenPrefix() );
   EXPECT_EQ( info.rd(), 0U );
   EXPECT_EQ( Kiv::numberOf( info.oamStandard() ), 0 );
   EXPECT_EQ( info.algorithm(), 0 );
   EXPECT_EQ( info.mplsLabel().value(), 1048576U );
   EXPECT_EQ( info.rsvpSpGroupId(), Rsvp::RsvpSpGroupId() );
   EXPECT_EQ( info.rsvpSpId(), Rsvp::RsvpSpId() );
   EXPECT_EQ( info.rsvpSenderAddr(), Velnet::IpGenAddr() );
   EXPECT_EQ( info.pwInfo(), LspPingPwInfo() );
   EXPECT_EQ( Kiv::numberOf( info.opqType() ), 1U );
   EXPECT_EQ( info.genericOpqVal(), 0U );
   EXPECT_EQ( info.sourceAddrOpqVal(), Velnet::IpGenAddr() );
   EXPECT_EQ( info.groupAddrOpqVal(), Velnet::IpGenAddr() );
   EXPECT_EQ( info.peerAddr(), Velnet::IpGenAddr() );
   EXPECT_EQ( info.fecTlvLen(), 0 );
   EXPECT_EQ( Kiv::numberOf( info.igpProtocol() ), 2U );
   EXPECT_FALSE( info );
}

TEST( LspPingFecInfo, isFilledByAnyAttributeAndEmptyWhenSetBack ) {
   LspPingFecInfo info;
   info.fecTlvTypeIs( LspPingTargetFecSubTlvType::LDPIpv4 );
   EXPECT_TRUE( info );
   info.fecTlvTypeIs( LspPingTargetFecSubTlvType::NotAssigned );
   EXPECT_FALSE( info );
   info.mplsLabelIs( Velnet::MplsLabel( 3 ) );
   EXPECT_TRUE( info );
   info.mplsLabelIs( Velnet::MplsLabel() );
   EXPECT_FALSE( info );
   info.opqTypeIs( static_cast< LspPingP2mpFecStackSubTlvType >( 0 ) );
   EXPECT_TRUE( info );
}

// Every setter, its getter, and that the attribute alone makes a difference.
template < class Getter, class Setter, class Value >
void changes( Getter getter, Setter setter, Value value ) {
   LspPingFecInfo info;
   ( info.*setter )( value );
   EXPECT_EQ( ( info.*getter )(), value );
   EXPECT_NE( info, LspPingFecInfo() );
   EXPECT_TRUE( info );
}

TEST( LspPingFecInfo, differsInEachOfItsAttributes ) {
   using Info = LspPingFecInfo;
   Velnet::IpGenAddr const addr = Velnet::IpAddr( 10, 0, 0, 1 );
   Rsvp::RsvpSpGroupId groupId;
   groupId.subGroupIdIs( 1 );
   Rsvp::RsvpSpId spId;
   spId.lspIdIs( 1 );
   LspPingPwInfo pwInfo;
   pwInfo.activeCcTypeIs( Pseudowire::PwPingCcType::controlWord );
   changes( &Info::fecTlvType, &Info::fecTlvTypeIs, LspPingTargetFecSubTlvType::LDPIpv4 );
   changes( &Info::dstPrefix, &Info::dstPrefixIs, Velnet::IpGenPrefix( addr, 8 ) );
   changes( &Info::rd, &Info::rdIs, U64{ 1 } << 63 );
   changes( &Info::oamStandard, &Info::oamStandardIs, MplsUtils::MplsOamStandard::ituT );
   changes( &Info::algorithm, &Info::algorithmIs, U8{ 1 } );
   changes( &Info::mplsLabel, &Info::mplsLabelIs, Velnet::MplsLabel( 3 ) );
   changes( &Info::rsvpSpGroupId, &Info::rsvpSpGroupIdIs, groupId );
   changes( &Info::rsvpSpId, &Info::rsvpSpIdIs, spId );
   changes( &Info::rsvpSenderAddr, &Info::rsvpSenderAddrIs, addr );
   changes( &Info::pwInfo, &Info::pwInfoIs, pwInfo );
   changes( &Info::opqType, &Info::opqTypeIs, LspPingP2mpFecStackSubTlvType::SGIpv4 );
   changes( &Info::genericOpqVal, &Info::genericOpqValIs, U32{ 1 } );
   changes( &Info::sourceAddrOpqVal, &Info::sourceAddrOpqValIs, addr );
   changes( &Info::groupAddrOpqVal, &Info::groupAddrOpqValIs, addr );
   changes( &Info::peerAddr, &Info::peerAddrIs, addr );
   changes( &Info::fecTlvLen, &Info::fecTlvLenIs, U8{ 1 } );
   changes( &Info::igpProtocol, &Info::igpProtocolIs, LspPingSrIgpProtocol::ospf );
}

TEST( LspPingFecInfo, keepsWhatItIsConstructedWith ) {
   Velnet::IpGenAddr const a = Velnet::IpAddr( 10, 0, 0, 1 ), b = Velnet::IpAddr( 10, 0, 0, 2 ),
                           c = Velnet::IpAddr( 10, 0, 0, 3 ), d = Velnet::IpAddr( 10, 0, 0, 4 );
   LspPingPwInfo const pwInfo( a, b, 7, {}, Pseudowire::PseudowireType::ethernet, true );
   LspPingFecInfo const info( LspPingTargetFecSubTlvType::P2mpFec, Velnet::IpGenPrefix( a, 32 ), 9,
                              MplsUtils::MplsOamStandard::ituT, 1, Velnet::MplsLabel( 16 ),
                              Rsvp::RsvpSpGroupId( 1, 2, a, 3, b, 4 ), Rsvp::RsvpSpId( a, 5, b, 6 ),
                              a, pwInfo, LspPingP2mpFecStackSubTlvType::SGIpv4, 8, b, c, d, 20,
                              LspPingSrIgpProtocol::ospf );
   EXPECT_EQ(
      KivOrlo::valueToStrep( Kiv::typeOf< LspPingFecInfo >(), &info ),
      "LspPing::LspPingFecInfo(fecTlvType=P2mpFec, dstPrefix=10.0.0.1/32, rd=9, oamStandard=ituT, "
      "algorithm=1, mplsLabel=16, rsvpSpGroupId=Rsvp::RsvpSpGroupId(p2mpId=1, tunnelId=2, "
      "extendedTunnelId=10.0.0.1, lspId=3, subGroupOriginatorId=10.0.0.2, subGroupId=4), "
      "rsvpSpId=Rsvp::RsvpSpId(tunnelEndPoint=10.0.0.1, tunnelId=5, extendedTunnelId=10.0.0.2, "
      "lspId=6), rsvpSenderAddr=10.0.0.1, pwInfo=LspPing::LspPingPwInfo(senderAddr=10.0.0.1, "
      "receiverAddr=10.0.0.2, pwId=7, pwGenId=agi 0: saii 0: taii 0:, pwType=ethernet, "
      "controlWordPresent=true, activeCcType=none), opqType=SGIpv4, genericOpqVal=8, "
      "sourceAddrOpqVal=10.0.0.2, groupAddrOpqVal=10.0.0.3, peerAddr=10.0.0.4, fecTlvLen=20, "
      "igpProtocol=ospf)" );
}

TEST( LspPingFecInfo, isReachedByAttribute ) {
   LspPingFecInfo info;
   Kiv::write< LspPingTargetFecSubTlvType >( info, "fecTlvType",
                                             LspPingTargetFecSubTlvType::NilFec );
   EXPECT_EQ( info.fecTlvType(), LspPingTargetFecSubTlvType::NilFec );
   Kiv::write< U64 >( info, "rd", 77 );
   EXPECT_EQ( Kiv::read< U64 >( info, "rd" ), 77U );
   EXPECT_EQ( Kiv::read< LspPingPwInfo >( info, "pwInfo" ), LspPingPwInfo() );
   EXPECT_EQ( Kiv::attributeNamed( Kiv::typeOf< LspPingFecInfo >(), "igpProtocol" ).field().id,
              18 );
}

TEST( LspPingFecStack, yieldsADefaultWhereThereIsNoEntry ) {
   LspPingFecStack stack;
   EXPECT_EQ( stack.fecInfo( 7 ), LspPingFecInfo() );
   EXPECT_EQ( stack.fecInfoDel( 7 ), LspPingFecInfo() );
   EXPECT_TRUE( stack.fecInfo().empty() );
   EXPECT_FALSE( stack );
}

TEST( LspPingFecStack, overwritesAnEntryInPlace ) {
   LspPingFecStack stack = stackOf( { { 2, fecOfType( 1 ) } } );
   auto const at = stack.fecInfoIterator();
   stack.fecInfoIs( 2, fecOfType( 3 ) );
   EXPECT_EQ( stack.fecInfo().count(), 1U );
   EXPECT_EQ( stack.fecInfo( 2 ), fecOfType( 3 ) );
   EXPECT_EQ( stack.fecInfoIterator().entry(), at.entry() );
   EXPECT_EQ( at.value(), fecOfType( 3 ) );
}

TEST( LspPingFecStack, returnsTheRemovedEntryOnce ) {
   LspPingFecStack stack = stackOf( { { 2, fecOfType( 1 ) } } );
   EXPECT_TRUE( stack );
   EXPECT_EQ( stack.fecInfoDel( 2 ), fecOfType( 1 ) );
   EXPECT_EQ( stack.fecInfoDel( 2 ), LspPingFecInfo() );
   EXPECT_FALSE( stack );
}

TEST( LspPingFecStack, removesUnderAnIterator ) {
   LspPingFecStack stack = stackOf( { { 1, fecOfType( 1 ) }, { 2, fecOfType( 2 ) } } );
   auto at = stack.fecInfoIterator();
   EXPECT_EQ( stack.fecInfoDel( at ), fecOfType( 1 ) );
   EXPECT_EQ( stack.fecInfoDel( at ), LspPingFecInfo() );
   EXPECT_EQ( at.value(), fecOfType( 1 ) );
   at.advance();
   EXPECT_EQ( at.key(), 2 );
   at.advance();
   EXPECT_FALSE( at.nonnull() );
   EXPECT_EQ( stack.fecInfoDel( at ), LspPingFecInfo() );
   EXPECT_EQ( stack.fecInfo().count(), 1U );
   stack.fecInfoDelAll();
   EXPECT_FALSE( stack );
}

TEST( LspPingFecStack, comparesWhateverTheOrderOfInsertion ) {
   LspPingFecInfo const a = fecOfType( 1 ), b = fecOfType( 2 );
   EXPECT_EQ( stackOf( { { 1, a }, { 2, b } } ), stackOf( { { 2, b }, { 1, a } } ) );
   EXPECT_NE( stackOf( { { 1, a } } ), stackOf( { { 1, a }, { 2, b } } ) );
   EXPECT_NE( stackOf( { { 1, a } } ), stackOf( { { 2, a } } ) );
   EXPECT_NE( stackOf( { { 1, a } } ), stackOf( { { 1, b } } ) );
}

TEST( LspPingFecStack, copiesItsEntries ) {
   U64 const live = LspPingFecStack::KivFecInfo::memAllocationTracker_.live();
   {
      LspPingFecStack const original = stackOf( { { 1, fecOfType( 1 ) } } );
      LspPingFecStack copy = original;
      EXPECT_EQ( LspPingFecStack::KivFecInfo::memAllocationTracker_.live(), live + 2 );
      EXPECT_NE( copy.fecInfoIterator().entry(), original.fecInfoIterator().entry() );
      copy.fecInfoIs( 1, fecOfType( 9 ) );
      copy.fecInfoIs( 2, fecOfType( 9 ) );
      EXPECT_EQ( original, stackOf( { { 1, fecOfType( 1 ) } } ) );
   }
   EXPECT_EQ( LspPingFecStack::KivFecInfo::memAllocationTracker_.live(), live );
}

TEST( LspPingFecStack, countsItsEntriesUnderTheirName ) {
   LspPingFecStack const stack = stackOf( { { 1, fecOfType( 1 ) } } );
   EXPECT_EQ( LspPingFecStack::KivFecInfo::memAllocationTracker_.className(),
              "LspPing::LspPingFecStack::KivFecInfo" );
   auto at = stack.fecInfoIterator();
   Orlo::Ptr< LspPingFecStack::KivFecInfo > const held = at.entry();
   at.advance();
   EXPECT_EQ( held->references(), 2U ); // the stack's and this one
}

TEST( LspPingFecStack, isWalkedInAscendingOrderByName ) {
   LspPingFecStack stack =
      stackOf( { { 200, fecOfType( 3 ) }, { 0, fecOfType( 1 ) }, { 7, fecOfType( 2 ) } } );
   Kiv::TypeRef const type = Kiv::typeOf< LspPingFecStack >();
   std::vector< U32 > keys;
   Kiv::CollectionIterator at( type, &stack, "fecInfo" );
   for( ; at.iterNonnull(); at.iterInc() ) {
      keys.push_back( at.iterKey() );
      if( at.iterKey() == 7 ) {
         EXPECT_EQ( *static_cast< LspPingFecInfo const * >( at.iterObj() ), fecOfType( 2 ) );
         EXPECT_EQ( at.iterDel(), Kiv::Outcome::done );
      }
   }
   EXPECT_EQ( keys, ( std::vector< U32 >{ 0, 7, 200 } ) );
   EXPECT_EQ( stack.fecInfo().count(), 2U );

   Kiv::Field const field = Kiv::attributeNamed( type, "fecInfo" ).field();
   LspPingFecInfo info = fecOfType( 6 );
   Kiv::Entry entry{ 256, &info };
   EXPECT_EQ( Kiv::attributeAccess( type, &stack, field, Kiv::OpCode::write, &entry ),
              Kiv::Outcome::notPermitted );
   entry.key = 255;
   EXPECT_EQ( Kiv::attributeAccess( type, &stack, field, Kiv::OpCode::write, &entry ),
              Kiv::Outcome::done );
   EXPECT_EQ( stack.fecInfo( 255 ), fecOfType( 6 ) );
   entry.key = 8;
   EXPECT_EQ( Kiv::attributeAccess( type, &stack, field, Kiv::OpCode::read, &entry ),
              Kiv::Outcome::done );
   EXPECT_EQ( info, LspPingFecInfo() );
}

TEST( LspPingFecStack, printsItsEntriesByPosition ) {
   LspPingFecStack const empty;
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingFecStack >(), &empty ),
              "LspPing::LspPingFecStack(fecInfo={})" );
   LspPingFecInfo const info = fecOfType( 1 );
   LspPingFecStack const stack = stackOf( { { 3, info }, { 1, info } } );
   Orlo::String const infoText = KivOrlo::valueToStrep( Kiv::typeOf< LspPingFecInfo >(), &info );
   EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< LspPingFecStack >(), &stack ),
              "LspPing::LspPingFecStack(fecInfo={1: " + infoText + ", 3: " + infoText + "})" );
}

TEST( LspPingFecStackChangeInfo, isValidWhenEitherStackHasAnEntry ) {
   LspPingFecStack const one = stackOf( { { 1, fecOfType( 1 ) } } );
   LspPingFecStackChangeInfo info;
   EXPECT_FALSE( info.valid() );
   EXPECT_FALSE( info );
   info.pushTlvInfoIs( one );
   EXPECT_TRUE( info.valid() );
   EXPECT_TRUE( info );
   info.popTlvInfoIs( one );
   EXPECT_TRUE( info.valid() );
   info.pushTlvInfoIs( LspPingFecStack() );
   EXPECT_TRUE( info.valid() );
   info.popTlvInfoIs( LspPingFecStack() );
   EXPECT_FALSE( info.valid() );
   EXPECT_FALSE( info );
}

TEST( LspPingFecStackChangeInfo, comparesBothStacks ) {
   LspPingFecStack const one = stackOf( { { 1, fecOfType( 1 ) } } );
   LspPingFecStackChangeInfo a, b;
   a.popTlvInfoIs( one );
   b.popTlvInfoIs( one );
   EXPECT_EQ( a, b );
   b.pushTlvInfoIs( one );
   EXPECT_NE( a, b );
   LspPingFecStackChangeInfo swapped;
   swapped.pushTlvInfoIs( one );
   EXPECT_NE( a, swapped );
}

TEST( LspPingFecStackChangeInfo, copiesTheStacksItIsGiven ) {
   LspPingFecStack stack = stackOf( { { 1, fecOfType( 1 ) } } );
   LspPingFecStackChangeInfo info;
   info.popTlvInfoIs( stack );
   stack.fecInfoIs( 1, fecOfType( 2 ) );
   EXPECT_EQ( info.popTlvInfo().fecInfo( 1 ), fecOfType( 1 ) );
   LspPingFecStackChangeInfo const copy = info;
   info.popTlvInfoIs( stack );
   EXPECT_EQ( copy.popTlvInfo().fecInfo( 1 ), fecOfType( 1 ) );

   Kiv::write< LspPingFecStack >( info, "pushTlvInfo", stack );
   EXPECT_EQ( Kiv::read< LspPingFecStack >( info, "pushTlvInfo" ), stack );
   EXPECT_TRUE( Kiv::read< bool >( info, "valid" ) );
}

} // namespace
} // namespace LspPing
