#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlvContainer.h"

#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace LspPing {
namespace {

using testing::HasSubstr;
using Velnet::Ip6Addr;
using Velnet::IpAddr;
using Velnet::IpGenAddr;
using Container = LspPingIntfAndLabelStackTlvContainer;
using Lines = std::vector< std::string >;

constexpr std::string_view numbered4 = "01 00 00 00 0a 00 00 02 0a 00 00 01";
constexpr std::string_view unnumbered4 = "02 00 00 00 0a 00 00 02 00 00 00 07";
constexpr std::string_view numbered6 =
   "03 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 20 01 0d b8 00 00 00 00 00 00 00 "
   "00 00 00 00 01";
constexpr std::string_view unnumbered6 =
   "04 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 00 00 01 00";

IpGenAddr address6( std::string_view text ) {
   return *Ip6Addr::fromText( text );
}

Orlo::Ptr< Container > castTo( WireBytes & bytes ) {
   auto container = lspPingIntfAndLabelStackTlvContainerFactory();
   container->tryCastToTlv( bytes.data(), bytes.size() );
   return container;
}

TEST( LspPingIntfAndLabelStackTlvContainer, isEmptyWhenNew ) {
   auto const container = Container::LspPingIntfAndLabelStackTlvContainerIs();
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( container->header(), nullptr );
   EXPECT_EQ( container->ipv4Tlv(), nullptr );
   EXPECT_EQ( container->ipv6Tlv(), nullptr );
   EXPECT_EQ( container->ipv4UnnumberedTlv(), nullptr );
   EXPECT_EQ( container->ipv6UnnumberedTlv(), nullptr );
   EXPECT_EQ( container->references(), 1u );
}

TEST( LspPingIntfAndLabelStackTlvContainer, answersForAnIpv4NumberedValue ) {
   WireBytes bytes( numbered4 );
   auto const container = castTo( bytes );
   EXPECT_TRUE( container->isIpv4() );
   EXPECT_EQ( container->getAddrType(), 1 );
   EXPECT_EQ( container->getAddr(), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );
   EXPECT_EQ( container->getIntfAddr(), IpGenAddr( IpAddr( 10, 0, 0, 1 ) ) );
   EXPECT_EQ( container->getIntfId(), 0u );
}

TEST( LspPingIntfAndLabelStackTlvContainer, answersForAnIpv4UnnumberedValue ) {
   WireBytes bytes( unnumbered4 );
   auto const container = castTo( bytes );
   EXPECT_TRUE( container->isIpv4() );
   EXPECT_EQ( container->getAddrType(), 2 );
   EXPECT_EQ( container->getAddr(), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );
   EXPECT_EQ( container->getIntfAddr(), IpGenAddr() );
   EXPECT_EQ( container->getIntfId(), 7u );
}

TEST( LspPingIntfAndLabelStackTlvContainer, answersForAnIpv6NumberedValue ) {
   WireBytes bytes( numbered6 );
   auto const container = castTo( bytes );
   EXPECT_FALSE( container->isIpv4() );
   EXPECT_EQ( container->getAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( container->getIntfAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( container->getIntfId(), 0u );
}

TEST( LspPingIntfAndLabelStackTlvContainer, answersForAnIpv6UnnumberedValue ) {
   WireBytes bytes( unnumbered6 );
   auto const container = castTo( bytes );
   EXPECT_FALSE( container->isIpv4() );
   EXPECT_EQ( container->getAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( container->getIntfAddr(), IpGenAddr() );
   EXPECT_EQ( container->getIntfId(), 256u );
}

// Every address type with every length, in a block of exactly that length.
TEST( LspPingIntfAndLabelStackTlvContainer, isValidForKnownAddressTypesFromTheirFixedPartOn ) {
   for( unsigned type = 0; type < 256; ++type ) {
      U32 const needed = type == 1 || type == 2 ? 12 : type == 3 ? 36 : type == 4 ? 24 : 1000;
      for( U32 len = 0; len <= 48; ++len ) {
         WireBytes bytes( len, static_cast< U8 >( type ) );
         auto const container = castTo( bytes );
         auto const at = [&]( bool set ) -> void * { return set ? bytes.data() : nullptr; };
         ASSERT_EQ( container->valid(), len >= needed ) << type << " " << len;
         ASSERT_EQ( container->header(), at( len >= 4 ) );
         ASSERT_EQ( container->ipv4Tlv(), at( type == 1 && len >= 12 ) );
         ASSERT_EQ( container->ipv4UnnumberedTlv(), at( type == 2 && len >= 12 ) );
         ASSERT_EQ( container->ipv6Tlv(), at( type == 3 && len >= 36 ) );
         ASSERT_EQ( container->ipv6UnnumberedTlv(), at( type == 4 && len >= 24 ) );
      }
   }
}

TEST( LspPingIntfAndLabelStackTlvContainer, isNoLongerValidAfterAValueWithoutAHeader ) {
   for( U32 len = 0; len < 4; ++len ) {
      WireBytes first( numbered6 );
      WireBytes headerless( len, 1 );
      auto const container = castTo( first );
      ASSERT_TRUE( container->valid() );
      container->tryCastToTlv( headerless.data(), len );
      EXPECT_FALSE( container->valid() ) << len;
      EXPECT_EQ( static_cast< void * >( container->header() ), first.data() ) << len;
      EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() ) << len;
      EXPECT_EQ( container->ipv4Tlv(), nullptr ) << len;
   }
}

TEST( LspPingIntfAndLabelStackTlvContainer, keepsEarlierPointersWhenItIsUsedAgain ) {
   WireBytes first( numbered6 );
   WireBytes second( unnumbered4 );
   WireBytes unknown( "05 00 00 00 0a 00 00 02 0a 00 00 01" );
   WireBytes headerless( "01 00 00" );
   auto const container = castTo( first );
   container->tryCastToTlv( second.data(), second.size() );
   EXPECT_TRUE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), second.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv4UnnumberedTlv() ), second.data() );
   EXPECT_EQ( container->getIntfId(), 7u );

   container->tryCastToTlv( unknown.data(), unknown.size() );
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), unknown.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() );
   EXPECT_EQ( container->getAddrType(), 5 );

   container->tryCastToTlv( headerless.data(), headerless.size() );
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), unknown.data() );

   container->tryCastToTlv( second.data(), second.size() );
   EXPECT_TRUE( container->valid() );
}

TEST( LspPingIntfAndLabelStackTlvContainer, answersWhatNeedsNoViewWhenMadeValidFromOutside ) {
   WireBytes bytes( "05 00 00 00" );
   auto const container = castTo( bytes );
   Kiv::write( *container, "valid", true );
   EXPECT_EQ( container->getIntfAddr(), IpGenAddr() );
   EXPECT_EQ( container->getIntfId(), 0u );
}

using LspPingIntfAndLabelStackTlvContainerDeathTest = testing::Test;

TEST( LspPingIntfAndLabelStackTlvContainerDeathTest, gettersOfAnInvalidContainerNameThemselves ) {
   WireBytes unknown( "05 00 00 00 0a 00 00 02 0a 00 00 01" );
   auto const container = castTo( unknown );
   EXPECT_DEATH( container->isIpv4(),
                 HasSubstr( ": bool LspPing::LspPingIntfAndLabelStackTlvContainer::isIpv4() const: "
                            "assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingIntfAndLabelStackTlvContainer::"
                            "getAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getIntfAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingIntfAndLabelStackTlvContainer::"
                            "getIntfAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getIntfId(),
                 HasSubstr( ": U32 LspPing::LspPingIntfAndLabelStackTlvContainer::getIntfId() "
                            "const: assertion \"valid()\" failed" ) );
}

TEST( LspPingIntfAndLabelStackTlvContainerDeathTest,
      gettersThatNeedAViewRefuseUnknownAddressTypes ) {
   auto const refusal =
      HasSubstr( ": bool LspPing::LspPingIntfAndLabelStackTlvContainer::isIpv4() const: assertion "
                 "\"0 && \"Undefined address type\"\" failed" );
   WireBytes bytes( "05 00 00 00" );
   auto const container = castTo( bytes );
   container->validIs( true );
   EXPECT_DEATH( container->isIpv4(), refusal );
   EXPECT_DEATH( container->getAddr(), refusal );
   bytes.data()[0] = 0;
   EXPECT_DEATH( container->isIpv4(), refusal );
}

TEST( LspPingIntfAndLabelStackTlvContainer, isOneObjectOfItsRegisteredType ) {
   auto const container = lspPingIntfAndLabelStackTlvContainerFactory();
   Kiv::TypeRef const type = container->fwkType();
   EXPECT_EQ( type, Kiv::typeNamed( "LspPing::LspPingIntfAndLabelStackTlvContainer" ) );
   EXPECT_EQ( type.id().module, Kiv::typeNamed( "LspPing::LspPingTlvHdr" ).id().module );
   EXPECT_EQ( type.id().index, 32 );
   EXPECT_EQ( type.kind(), Kiv::Kind::object );
   EXPECT_FALSE( type.base() );
   Orlo::Ptr< Orlo::Node > const node = type.operations().createEmpty();
   EXPECT_EQ( node->fwkType(), type );
   EXPECT_FALSE( static_cast< Container const & >( *node ).valid() );
}

TEST( LspPingIntfAndLabelStackTlvContainer, isCounted ) {
   Kiv::AllocationTracker const & tracker = Container::memAllocationTracker_;
   EXPECT_EQ( tracker.className(), "LspPing::LspPingIntfAndLabelStackTlvContainer" );
   U64 const live = tracker.live();
   U64 const total = tracker.total();
   auto first = lspPingIntfAndLabelStackTlvContainerFactory();
   auto second = Container::LspPingIntfAndLabelStackTlvContainerIs();
   EXPECT_EQ( tracker.live(), live + 2 );
   Orlo::Ptr< Container > const user = first;
   first.reset();
   second.reset();
   EXPECT_EQ( tracker.live(), live + 1 );
   EXPECT_EQ( tracker.total(), total + 2 );
}

TEST( LspPingIntfAndLabelStackTlvContainer, keepsItsMembersInOrderBehindTheNode ) {
   auto const container = lspPingIntfAndLabelStackTlvContainerFactory();
   WireBytes bytes( 5, 0 );
   auto const at = [&]( int index ) { return static_cast< void * >( bytes.data() + index ); };
   container->validIs( true );
   container->headerIs( static_cast< LspPingIntfAndLabelStackHdr * >( at( 0 ) ) );
   container->ipv4TlvIs( static_cast< LspPingIntfAndLabelStackIpv4Tlv * >( at( 1 ) ) );
   container->ipv6TlvIs( static_cast< LspPingIntfAndLabelStackIpv6Tlv * >( at( 2 ) ) );
   container->ipv4UnnumberedTlvIs(
      static_cast< LspPingIntfAndLabelStackIpv4UnnumberedTlv * >( at( 3 ) ) );
   container->ipv6UnnumberedTlvIs(
      static_cast< LspPingIntfAndLabelStackIpv6UnnumberedTlv * >( at( 4 ) ) );
   auto const * const object = reinterpret_cast< std::byte const * >( container.get() );
   static_assert( sizeof( Container ) == 56 );
   EXPECT_EQ( object[12], std::byte{ 1 } ); // in the padding behind the node's count
   void * pointers[5];
   std::memcpy( pointers, object + 16, sizeof( pointers ) );
   EXPECT_THAT( pointers, testing::ElementsAre( at( 0 ), at( 1 ), at( 2 ), at( 3 ), at( 4 ) ) );
}

TEST( LspPingIntfAndLabelStackTlvContainer, namesItsAttributes ) {
   EXPECT_EQ(
      attributeLines< Container >(),
      ( Lines{ "130 tryCastToTlv call", "131 isIpv4 bool read", "132 getAddrType U8 read",
               "133 getAddr Velnet::IpGenAddr read", "134 getIntfAddr Velnet::IpGenAddr read",
               "135 getIntfId U32 read", "136 valid bool read write",
               "137 header LspPing::LspPingIntfAndLabelStackHdr* read write",
               "138 ipv4Tlv LspPing::LspPingIntfAndLabelStackIpv4Tlv* read write",
               "139 ipv6Tlv LspPing::LspPingIntfAndLabelStackIpv6Tlv* read write",
               "140 ipv4UnnumberedTlv LspPing::LspPingIntfAndLabelStackIpv4UnnumberedTlv* read "
               "write",
               "141 ipv6UnnumberedTlv LspPing::LspPingIntfAndLabelStackIpv6UnnumberedTlv* read "
               "write" } ) );
   EXPECT_STREQ( Kiv::typeOf< Container >().attributes()[0].argumentNames, "value, len" );
}

TEST( LspPingIntfAndLabelStackTlvContainer, isCastAndAskedThroughItsAttributes ) {
   WireBytes bytes( unnumbered6 );
   auto const container = lspPingIntfAndLabelStackTlvContainerFactory();
   Kiv::call( *container, "tryCastToTlv", bytes.data(), bytes.size() );
   EXPECT_TRUE( Kiv::read< bool >( *container, "valid" ) );
   EXPECT_FALSE( Kiv::read< bool >( *container, "isIpv4" ) );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getAddrType" ), 4 );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getAddr" ), address6( "2001:db8::2" ) );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getIntfAddr" ), IpGenAddr() );
   EXPECT_EQ( Kiv::read< U32 >( *container, "getIntfId" ), 256u );
   auto * const header = Kiv::read< LspPingIntfAndLabelStackHdr * >( *container, "header" );
   EXPECT_EQ( static_cast< void * >( header ), bytes.data() );
   WireBytes other( numbered4 );
   Kiv::write( *container, "header",
               reinterpret_cast< LspPingIntfAndLabelStackHdr * >( other.data() ) );
   EXPECT_EQ( container->getAddrType(), 1 );
   EXPECT_THROW( Kiv::write( *container, "getIntfId", U32{ 1 } ), Kiv::AccessException );
}

TEST( LspPingIntfAndLabelStackTlvContainer, refusesWhatAnAttributeDoesNotOffer ) {
   auto const container = lspPingIntfAndLabelStackTlvContainerFactory();
   U64 buffer = 0;
   EXPECT_EQ( outcomeOf( *container, 130, Kiv::OpCode::read, buffer ), Kiv::Outcome::notPermitted );
   for( U16 id = 131; id <= 135; ++id )
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::write, buffer ),
                 Kiv::Outcome::notPermitted );
   for( Kiv::OpCode const op : { Kiv::OpCode::read, Kiv::OpCode::write, Kiv::OpCode::call } )
      EXPECT_EQ( outcomeOf( *container, 142, op, buffer ), Kiv::Outcome::noSuchAttribute );
}

// The getters that a tool may read in the container's state.
Lines gettersReadableNow( Container const & container ) {
   Lines names;
   for( Kiv::Attribute const & attribute : Kiv::typeOf< Container >().attributes() ) {
      std::string const name( attribute.name() );
      if( ( name.starts_with( "get" ) || name == "isIpv4" ) && readableNow( container, name ) )
         names.push_back( name );
   }
   return names;
}

TEST( LspPingIntfAndLabelStackTlvContainer, tellsToolsWhatItsStateForbidsToRead ) {
   Lines const all{ "isIpv4", "getAddrType", "getAddr", "getIntfAddr", "getIntfId" };
   auto const container = lspPingIntfAndLabelStackTlvContainerFactory();
   EXPECT_EQ( gettersReadableNow( *container ), Lines{} );
   container->validIs( true ); // but nothing was ever cast
   EXPECT_EQ( gettersReadableNow( *container ), Lines{} );
   WireBytes unknown( "05 00 00 00" );
   container->tryCastToTlv( unknown.data(), unknown.size() );
   EXPECT_EQ( gettersReadableNow( *container ), Lines{ "getAddrType" } );
   container->validIs( true );
   EXPECT_EQ( gettersReadableNow( *container ),
              ( Lines{ "getAddrType", "getIntfAddr", "getIntfId" } ) );
   for( std::string_view const hex : { numbered4, unnumbered4, numbered6, unnumbered6 } ) {
      WireBytes bytes( hex );
      EXPECT_EQ( gettersReadableNow( *castTo( bytes ) ), all );
   }
}

TEST( LspPingIntfAndLabelStackTlvContainer, tellsToolsWhenTheViewIsNotThere ) {
   for( U8 const type : { U8{ 1 }, U8{ 2 }, U8{ 3 }, U8{ 4 } } ) {
      WireBytes bytes( 4, type );
      auto const container = castTo( bytes );
      container->validIs( true ); // although too short for any view
      EXPECT_EQ( gettersReadableNow( *container ),
                 ( Lines{ "isIpv4", "getAddrType",
                          type == 1 || type == 3 ? "getIntfId" : "getIntfAddr" } ) );
   }
}

} // namespace
} // namespace LspPing
