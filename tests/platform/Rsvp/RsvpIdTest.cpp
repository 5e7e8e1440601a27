#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpGroupId.h"
#include "MplsUtils/LspPing/platform/Rsvp/RsvpSpId.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace {

using Rsvp::RsvpSpGroupId;
using Rsvp::RsvpSpId;
using Velnet::Ip6Addr;
using Velnet::IpAddr;
using Velnet::IpGenAddr;

constexpr RsvpSpId id{ IpAddr{ 10, 0, 0, 1 }, 7, IpAddr{ 10, 0, 0, 2 }, 9 };
constexpr RsvpSpGroupId groupId{ 100, 7, IpAddr{ 10, 0, 0, 2 }, 9, IpAddr{ 10, 0, 0, 3 }, 11 };

static_assert( RsvpSpId{} == RsvpSpId{ {}, 0, {}, 0 } );
static_assert( RsvpSpGroupId{} == RsvpSpGroupId{ 0, 0, {}, 0, {}, 0 } );

template < class Id >
Orlo::String printed( Id const & value ) {
   std::ostringstream out;
   out << value;
   return out.str();
}

IpGenAddr randomAddress( std::mt19937 & random ) {
   switch( random() % 3 ) {
   case 0:
      return {};
   case 1:
      return IpAddr::fromHost( static_cast< U32 >( random() ) );
   default:
      return Ip6Addr{ { 0x20, 0x01, static_cast< U8 >( random() ) } };
   }
}

template < class Id, class Change >
bool differsAfter( Id const & before, Change change ) {
   Id other = before;
   bool const wasEqual = other == before;
   change( other );
   return wasEqual && other != before;
}

template < class Id >
void expectReadsBack( Id const & any ) {
   Orlo::String const text = printed( any );
   Kiv::CharRange in{ text };
   ASSERT_EQ( Id{ in }, any ) << text;
   ASSERT_TRUE( in.atEnd() );
}

TEST( RsvpSpId, printsItsAttributes ) {
   EXPECT_EQ( printed( RsvpSpId{} ), "Rsvp::RsvpSpId(tunnelEndPoint=none, tunnelId=0, "
                                     "extendedTunnelId=none, lspId=0)" );
   EXPECT_EQ( printed( id ), "Rsvp::RsvpSpId(tunnelEndPoint=10.0.0.1, tunnelId=7, "
                             "extendedTunnelId=10.0.0.2, lspId=9)" );
}

TEST( RsvpSpId, differsInEachAttribute ) {
   EXPECT_TRUE( differsAfter(
      id, []( auto & other ) { other.tunnelEndPointIs( {} ); } ) );
   EXPECT_TRUE( differsAfter(
      id, []( auto & other ) { other.tunnelIdIs( 8 ); } ) );
   EXPECT_TRUE( differsAfter(
      id, []( auto & other ) { other.extendedTunnelIdIs( {} ); } ) );
   EXPECT_TRUE( differsAfter( id, []( auto & other ) { other.lspIdIs( 10 ); } ) );
}

TEST( RsvpSpId, readsBackWhatItPrints ) {
   std::mt19937 random{ 18 };
   for( int round = 0; round < 5'000 && !HasFatalFailure(); ++round )
      expectReadsBack( RsvpSpId{ randomAddress( random ), static_cast< U16 >( random() ),
                                 randomAddress( random ), static_cast< U16 >( random() ) } );
}

TEST( RsvpSpId, namesTheAttributeThatIsWrong ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Rsvp::RsvpSpId" );
   ASSERT_EQ( type, Kiv::typeOf< RsvpSpId >() );
   RsvpSpId read = id;
   try {
      KivOrlo::strepToValue( "Rsvp::RsvpSpId(tunnelEndPoint=none, tunnelId=65536, "
                             "extendedTunnelId=none, lspId=0)",
                             type, &read );
      FAIL() << "the text was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_EQ( exception.subject(), "tunnelId" );
   }
   EXPECT_EQ( read, id );
}

TEST( RsvpSpGroupId, printsItsAttributes ) {
   EXPECT_EQ( printed( RsvpSpGroupId{} ),
              "Rsvp::RsvpSpGroupId(p2mpId=0, tunnelId=0, extendedTunnelId=none, lspId=0, "
              "subGroupOriginatorId=none, subGroupId=0)" );
   EXPECT_EQ( printed( groupId ),
              "Rsvp::RsvpSpGroupId(p2mpId=100, tunnelId=7, extendedTunnelId=10.0.0.2, lspId=9, "
              "subGroupOriginatorId=10.0.0.3, subGroupId=11)" );
}

TEST( RsvpSpGroupId, differsInEachAttribute ) {
   EXPECT_TRUE( differsAfter(
      groupId, []( auto & other ) { other.p2mpIdIs( 101 ); } ) );
   EXPECT_TRUE( differsAfter(
      groupId, []( auto & other ) { other.tunnelIdIs( 8 ); } ) );
   EXPECT_TRUE( differsAfter(
      groupId, []( auto & other ) { other.extendedTunnelIdIs( {} ); } ) );
   EXPECT_TRUE( differsAfter(
      groupId, []( auto & other ) { other.lspIdIs( 10 ); } ) );
   EXPECT_TRUE( differsAfter(
      groupId, []( auto & other ) { other.subGroupOriginatorIdIs( {} ); } ) );
   EXPECT_TRUE( differsAfter( groupId, []( auto & other ) { other.subGroupIdIs( 12 ); } ) );
}

TEST( RsvpSpGroupId, readsBackWhatItPrints ) {
   std::mt19937 random{ 19 };
   for( int round = 0; round < 5'000 && !HasFatalFailure(); ++round )
      expectReadsBack( RsvpSpGroupId{ static_cast< U32 >( random() ),
                                      static_cast< U16 >( random() ), randomAddress( random ),
                                      static_cast< U16 >( random() ), randomAddress( random ),
                                      static_cast< U16 >( random() ) } );
}

} // namespace
