#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlvContainer.h"

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
using Velnet::NetU16;
using Container = LspPingDownstreamMappingTlvContainer;
using Lines = std::vector< std::string >;

constexpr std::string_view numbered4 = "05 dc 01 03 0a 00 00 02 0a 00 00 01 08 09 00 08";
constexpr std::string_view unnumbered4 = "05 dc 02 03 0a 00 00 02 00 00 01 00 08 09 00 08";
constexpr std::string_view numbered6 =
   "23 28 03 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 20 01 0d b8 00 00 00 00 00 00 00 "
   "00 00 00 00 01 02 07 01 00";
constexpr std::string_view unnumbered6 =
   "23 28 04 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 00 00 00 07 04 05 01 00";
constexpr std::string_view unknown = "05 dc 09 03";

IpGenAddr address6( std::string_view text ) {
   return *Ip6Addr::fromText( text );
}

Orlo::Ptr< Container > castTo( WireBytes & bytes ) {
   auto container = lspPingDownstreamMappingTlvContainerFactory();
   container->tryCastToTlv( bytes.data(), bytes.size() );
   return container;
}

TEST( LspPingDownstreamMappingTlvContainer, isEmptyWhenNew ) {
   auto const container = Container::LspPingDownstreamMappingTlvContainerIs();
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( container->header(), nullptr );
   EXPECT_EQ( container->ipv4Tlv(), nullptr );
   EXPECT_EQ( container->ipv6Tlv(), nullptr );
   EXPECT_EQ( container->ipv4UnnumberedTlv(), nullptr );
   EXPECT_EQ( container->ipv6UnnumberedTlv(), nullptr );
   EXPECT_EQ( container->references(), 1u );
}

TEST( LspPingDownstreamMappingTlvContainer, answersForAnIpv4NumberedValue ) {
   WireBytes bytes( numbered4 );
   auto const container = castTo( bytes );
   EXPECT_TRUE( container->valid() );
   EXPECT_TRUE( container->isIpv4() );
   EXPECT_EQ( container->getMtu(), NetU16( 1500 ) );
   EXPECT_EQ( container->getAddrType(), 1 );
   EXPECT_EQ( container->getDsFlags(), 3 );
   EXPECT_EQ( container->getDsIpAddr(), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );
   EXPECT_EQ( container->getDsIntfAddr(), IpGenAddr( IpAddr( 10, 0, 0, 1 ) ) );
   EXPECT_EQ( container->getDsIntfId(), Velnet::IntfId( "" ) );
   EXPECT_EQ( container->getMultipathType(), 8 );
   EXPECT_EQ( container->getDepthLimit(), 9 );
   EXPECT_EQ( std::memcmp( bytes.data() + 14, "\x00\x08", 2 ), 0 );
   NetU16 const length = container->getMultipathLength();
   EXPECT_EQ( std::memcmp( &length, bytes.data() + 14, 2 ), 0 );
   EXPECT_EQ( length.value(), 8 );
}

TEST( LspPingDownstreamMappingTlvContainer, answersForAnIpv4UnnumberedValue ) {
   WireBytes bytes( unnumbered4 );
   auto const container = castTo( bytes );
   EXPECT_TRUE( container->isIpv4() );
   EXPECT_EQ( container->getAddrType(), 2 );
   EXPECT_EQ( container->getDsIpAddr(), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );
   EXPECT_EQ( container->getDsIntfAddr(), IpGenAddr() );
   EXPECT_EQ( container->getDsIntfId(), Velnet::IntfId( 256 ) );
   EXPECT_EQ( container->getMultipathType(), 8 );
   EXPECT_EQ( container->getDepthLimit(), 9 );
   EXPECT_EQ( container->getMultipathLength().value(), 8 );
}

TEST( LspPingDownstreamMappingTlvContainer, answersForAnIpv6NumberedValue ) {
   WireBytes bytes( numbered6 );
   auto const container = castTo( bytes );
   EXPECT_FALSE( container->isIpv4() );
   EXPECT_EQ( container->getMtu().value(), 9000 );
   EXPECT_EQ( container->getAddrType(), 3 );
   EXPECT_EQ( container->getDsFlags(), 0 );
   EXPECT_EQ( container->getDsIpAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( container->getDsIntfAddr(), address6( "2001:db8::1" ) );
   EXPECT_EQ( container->getDsIntfId(), Velnet::IntfId() );
   EXPECT_EQ( container->getMultipathType(), 2 );
   EXPECT_EQ( container->getDepthLimit(), 7 );
   EXPECT_EQ( container->getMultipathLength().value(), 256 );
}

TEST( LspPingDownstreamMappingTlvContainer, answersForAnIpv6UnnumberedValue ) {
   WireBytes bytes( unnumbered6 );
   auto const container = castTo( bytes );
   EXPECT_FALSE( container->isIpv4() );
   EXPECT_EQ( container->getDsIpAddr(), address6( "2001:db8::2" ) );
   EXPECT_EQ( container->getDsIntfAddr(), IpGenAddr() );
   EXPECT_EQ( container->getDsIntfId(), Velnet::IntfId( 7 ) );
   EXPECT_EQ( container->getMultipathType(), 4 );
   EXPECT_EQ( container->getDepthLimit(), 5 );
   EXPECT_EQ( container->getMultipathLength().value(), 256 );
}

// Every address type with every length, in a block of exactly that length.
TEST( LspPingDownstreamMappingTlvContainer, isValidFromTheFixedPartOfItsAddressTypeOn ) {
   for( unsigned type = 0; type < 256; ++type ) {
      U32 const needed = type == 1 || type == 2 ? 16 : type == 3 ? 40 : type == 4 ? 28 : 4;
      for( U32 len = 0; len <= 48; ++len ) {
         WireBytes bytes( len, static_cast< U8 >( type ) );
         auto const container = castTo( bytes );
         auto const at = [&]( bool set ) -> void * { return set ? bytes.data() : nullptr; };
         ASSERT_EQ( container->valid(), len >= needed ) << type << " " << len;
         ASSERT_EQ( container->header(), at( len >= 4 ) );
         ASSERT_EQ( container->ipv4Tlv(), at( type == 1 && len >= 16 ) );
         ASSERT_EQ( container->ipv4UnnumberedTlv(), at( type == 2 && len >= 16 ) );
         ASSERT_EQ( container->ipv6Tlv(), at( type == 3 && len >= 40 ) );
         ASSERT_EQ( container->ipv6UnnumberedTlv(), at( type == 4 && len >= 28 ) );
      }
   }
}

TEST( LspPingDownstreamMappingTlvContainer, isNoLongerValidAfterAValueWithoutAHeader ) {
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

TEST( LspPingDownstreamMappingTlvContainer, keepsEarlierPointersWhenItIsUsedAgain ) {
   WireBytes first( numbered6 );
   WireBytes second( numbered4 );
   WireBytes tooShort( "05 dc 02 03 0a 00 00 02 00 00 01 00 08 09 00" );
   WireBytes headerless( "05 dc 04" );
   auto const container = castTo( first );
   container->tryCastToTlv( second.data(), second.size() );
   EXPECT_TRUE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), second.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv4Tlv() ), second.data() );
   EXPECT_EQ( container->getDsIpAddr(), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );

   container->tryCastToTlv( tooShort.data(), tooShort.size() );
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), tooShort.data() );
   EXPECT_EQ( container->ipv4UnnumberedTlv(), nullptr );
   EXPECT_EQ( static_cast< void * >( container->ipv4Tlv() ), second.data() );
   EXPECT_EQ( container->getAddrType(), 2 );

   container->tryCastToTlv( headerless.data(), headerless.size() );
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), tooShort.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() );

   container->tryCastToTlv( second.data(), second.size() );
   EXPECT_TRUE( container->valid() );
}

TEST( LspPingDownstreamMappingTlvContainer, answersWhatNeedsNoViewForAnUnknownAddressType ) {
   for( unsigned type = 0; type < 256; type += type == 0 ? 5 : 1 ) {
      WireBytes bytes( unknown );
      bytes.data()[2] = static_cast< U8 >( type );
      auto const container = castTo( bytes );
      ASSERT_TRUE( container->valid() );
      ASSERT_EQ( container->getMtu().value(), 1500 );
      ASSERT_EQ( container->getAddrType(), type );
      ASSERT_EQ( container->getDsFlags(), 3 );
      ASSERT_EQ( container->getDsIntfAddr(), IpGenAddr() );
      ASSERT_EQ( container->getDsIntfId(), Velnet::IntfId() );
   }
}

using LspPingDownstreamMappingTlvContainerDeathTest = testing::Test;

TEST( LspPingDownstreamMappingTlvContainerDeathTest, gettersOfAnInvalidContainerNameThemselves ) {
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   EXPECT_DEATH( container->isIpv4(),
                 HasSubstr( ": bool LspPing::LspPingDownstreamMappingTlvContainer::isIpv4() const: "
                            "assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDsIpAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDsIpAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDsIntfAddr(),
                 HasSubstr( ": Velnet::IpGenAddr LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDsIntfAddr() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDsIntfId(),
                 HasSubstr( ": Velnet::IntfId LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDsIntfId() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getMultipathType(),
                 HasSubstr( ": U8 LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getMultipathType() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getDepthLimit(),
                 HasSubstr( ": U8 LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getDepthLimit() const: assertion \"valid()\" failed" ) );
   EXPECT_DEATH( container->getMultipathLength(),
                 HasSubstr( ": Velnet::NetU16 LspPing::LspPingDownstreamMappingTlvContainer::"
                            "getMultipathLength() const: assertion \"valid()\" failed" ) );
}

TEST( LspPingDownstreamMappingTlvContainerDeathTest,
      gettersThatNeedAViewRefuseUnknownAddressTypes ) {
   WireBytes bytes( unknown );
   auto const container = castTo( bytes );
   auto const refusal =
      HasSubstr( ": bool LspPing::LspPingDownstreamMappingTlvContainer::isIpv4() const: assertion "
                 "\"0 && \"Undefined address type\"\" failed" );
   EXPECT_DEATH( container->isIpv4(), refusal );
   EXPECT_DEATH( container->getDsIpAddr(), refusal );
   EXPECT_DEATH( container->getMultipathType(), refusal );
   EXPECT_DEATH( container->getDepthLimit(), refusal );
   EXPECT_DEATH( container->getMultipathLength(), refusal );
   bytes.data()[2] = 0;
   EXPECT_DEATH( container->isIpv4(), refusal );
   bytes.data()[2] = 5;
   EXPECT_DEATH( container->isIpv4(), refusal );
}

TEST( LspPingDownstreamMappingTlvContainerDeathTest, readingByNameRunsIntoTheSameAssertion ) {
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   EXPECT_DEATH( Kiv::read< bool >( *container, "isIpv4" ),
                 HasSubstr( "assertion \"valid()\" failed" ) );
}

TEST( LspPingDownstreamMappingTlvContainer, isOneObjectOfItsRegisteredType ) {
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   Kiv::TypeRef const type = container->fwkType();
   EXPECT_EQ( type, Kiv::typeNamed( "LspPing::LspPingDownstreamMappingTlvContainer" ) );
   EXPECT_EQ( type.id().module, Kiv::typeNamed( "LspPing::LspPingTlvHdr" ).id().module );
   EXPECT_EQ( type.id().index, 39 );
   EXPECT_EQ( type.kind(), Kiv::Kind::object );
   EXPECT_FALSE( type.base() );
   EXPECT_FALSE( type.hashable() );
}

TEST( LspPingDownstreamMappingTlvContainer, isBuiltEmptyByTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeOf< Container >();
   Orlo::Ptr< Orlo::Node > const node = type.operations().createEmpty();
   EXPECT_EQ( node->fwkType(), type );
   EXPECT_FALSE( static_cast< Container const & >( *node ).valid() );
   EXPECT_EQ( type.operations().create, nullptr );
}

TEST( LspPingDownstreamMappingTlvContainer, isCounted ) {
   Kiv::AllocationTracker const & tracker = Container::memAllocationTracker_;
   EXPECT_EQ( tracker.className(), "LspPing::LspPingDownstreamMappingTlvContainer" );
   U64 const live = tracker.live();
   U64 const total = tracker.total();
   auto first = lspPingDownstreamMappingTlvContainerFactory();
   auto second = Container::LspPingDownstreamMappingTlvContainerIs();
   EXPECT_EQ( tracker.live(), live + 2 );
   Orlo::Ptr< Container > const user = first;
   first.reset();
   second.reset();
   EXPECT_EQ( tracker.live(), live + 1 );
   EXPECT_EQ( tracker.total(), total + 2 );
}

TEST( LspPingDownstreamMappingTlvContainer, keepsItsMembersInOrderBehindTheNode ) {
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   WireBytes bytes( 5, 0 );
   auto const at = [&]( int index ) { return static_cast< void * >( bytes.data() + index ); };
   container->validIs( true );
   container->headerIs( static_cast< LspPingDownstreamMappingHdr * >( at( 0 ) ) );
   container->ipv4TlvIs( static_cast< LspPingDownstreamMappingIpv4Tlv * >( at( 1 ) ) );
   container->ipv6TlvIs( static_cast< LspPingDownstreamMappingIpv6Tlv * >( at( 2 ) ) );
   container->ipv4UnnumberedTlvIs(
      static_cast< LspPingDownstreamMappingIpv4UnnumberedTlv * >( at( 3 ) ) );
   container->ipv6UnnumberedTlvIs(
      static_cast< LspPingDownstreamMappingIpv6UnnumberedTlv * >( at( 4 ) ) );
   auto const * const object = reinterpret_cast< std::byte const * >( container.get() );
   static_assert( sizeof( Container ) == 56 );
   EXPECT_EQ( object[12], std::byte{ 1 } ); // in the padding behind the node's count
   void * pointers[5];
   std::memcpy( pointers, object + 16, sizeof( pointers ) );
   EXPECT_THAT( pointers, testing::ElementsAre( at( 0 ), at( 1 ), at( 2 ), at( 3 ), at( 4 ) ) );
}

TEST( LspPingDownstreamMappingTlvContainer, namesItsAttributes ) {
   EXPECT_EQ(
      attributeLines< Container >(),
      ( Lines{ "130 tryCastToTlv call", "131 isIpv4 bool read", "132 getMtu Velnet::NetU16 read",
               "133 getAddrType U8 read", "134 getDsFlags U8 read",
               "135 getDsIpAddr Velnet::IpGenAddr read", "136 getDsIntfAddr Velnet::IpGenAddr read",
               "137 getDsIntfId Velnet::IntfId read", "138 getMultipathType U8 read",
               "139 getDepthLimit U8 read", "140 getMultipathLength Velnet::NetU16 read",
               "141 valid bool read write",
               "142 header LspPing::LspPingDownstreamMappingHdr* read write",
               "143 ipv4Tlv LspPing::LspPingDownstreamMappingIpv4Tlv* read write",
               "144 ipv6Tlv LspPing::LspPingDownstreamMappingIpv6Tlv* read write",
               "145 ipv4UnnumberedTlv LspPing::LspPingDownstreamMappingIpv4UnnumberedTlv* read "
               "write",
               "146 ipv6UnnumberedTlv LspPing::LspPingDownstreamMappingIpv6UnnumberedTlv* read "
               "write" } ) );
   Kiv::Attribute const & cast = Kiv::typeOf< Container >().attributes()[0];
   EXPECT_STREQ( cast.argumentNames, "value, len" );
   ASSERT_EQ( cast.signature->count, 2 );
   Kiv::BufferType const pointerToBytes{ Kiv::typeIdOf< U8 >, Kiv::Reach::pointer };
   Kiv::BufferType const number{ Kiv::typeIdOf< U32 >, Kiv::Reach::value };
   EXPECT_EQ( cast.signature->arguments[0], pointerToBytes );
   EXPECT_EQ( cast.signature->arguments[1], number );
   EXPECT_FALSE( cast.signature->result.type );
}

TEST( LspPingDownstreamMappingTlvContainer, isCastAndAskedThroughItsAttributes ) {
   WireBytes bytes( unnumbered6 );
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   U8 * value = bytes.data();
   U32 len = bytes.size();
   void * const arguments[] = { &value, &len };
   Kiv::Call call{ nullptr, arguments, 2 };
   EXPECT_EQ( outcomeOf( *container, 130, Kiv::OpCode::call, call ), Kiv::Outcome::done );
   EXPECT_TRUE( container->valid() );
   EXPECT_EQ( Kiv::read< NetU16 >( *container, "getMtu" ).value(), 9000 );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getAddrType" ), 4 );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getDsFlags" ), 0 );
   EXPECT_FALSE( Kiv::read< bool >( *container, "isIpv4" ) );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getDsIpAddr" ), address6( "2001:db8::2" ) );
   EXPECT_EQ( Kiv::read< IpGenAddr >( *container, "getDsIntfAddr" ), IpGenAddr() );
   EXPECT_EQ( Kiv::read< Velnet::IntfId >( *container, "getDsIntfId" ), Velnet::IntfId( 7 ) );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getMultipathType" ), 4 );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getDepthLimit" ), 5 );
   EXPECT_EQ( Kiv::read< NetU16 >( *container, "getMultipathLength" ).value(), 256 );
   EXPECT_EQ(
      Kiv::read< LspPingDownstreamMappingIpv6UnnumberedTlv * >( *container, "ipv6UnnumberedTlv" ),
      container->ipv6UnnumberedTlv() );
   WireBytes other( numbered4 );
   Kiv::call( *container, "tryCastToTlv", other.data(), other.size() );
   EXPECT_EQ( container->getAddrType(), 1 );
}

TEST( LspPingDownstreamMappingTlvContainer, refusesWhatAnAttributeDoesNotOffer ) {
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   U64 buffer = 0;
   EXPECT_EQ( outcomeOf( *container, 130, Kiv::OpCode::read, buffer ), Kiv::Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( *container, 130, Kiv::OpCode::write, buffer ),
              Kiv::Outcome::notPermitted );
   for( U16 id = 131; id <= 140; ++id ) {
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::write, buffer ),
                 Kiv::Outcome::notPermitted );
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::call, buffer ),
                 Kiv::Outcome::notPermitted );
   }
   for( U16 id = 141; id <= 146; ++id )
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::call, buffer ),
                 Kiv::Outcome::notPermitted );
   for( Kiv::OpCode const op : { Kiv::OpCode::read, Kiv::OpCode::write, Kiv::OpCode::call } )
      for( U16 const id : { U16{ 2 }, U16{ 129 }, U16{ 147 } } )
         EXPECT_EQ( outcomeOf( *container, id, op, buffer ), Kiv::Outcome::noSuchAttribute );
}

TEST( LspPingDownstreamMappingTlvContainer, takesPointersAndValidityThroughItsAttributes ) {
   WireBytes bytes( numbered4 );
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   void * pointer = bytes.data();
   bool valid = true;
   EXPECT_EQ( outcomeOf( *container, 141, Kiv::OpCode::write, valid ), Kiv::Outcome::done );
   for( U16 id = 142; id <= 146; ++id )
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::write, pointer ), Kiv::Outcome::done );
   EXPECT_TRUE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv4Tlv() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv4UnnumberedTlv() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv6UnnumberedTlv() ), pointer );
   EXPECT_EQ( container->getDsIntfAddr(), IpGenAddr( IpAddr( 10, 0, 0, 1 ) ) );
   for( U16 id = 142; id <= 146; ++id ) {
      void * read = nullptr;
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::read, read ), Kiv::Outcome::done );
      EXPECT_EQ( read, pointer );
   }
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

TEST( LspPingDownstreamMappingTlvContainer, tellsToolsWhatItsStateForbidsToRead ) {
   Lines const ofHeader{ "getMtu", "getAddrType", "getDsFlags" };
   Lines const ofUnknown{ "getMtu", "getAddrType", "getDsFlags", "getDsIntfAddr", "getDsIntfId" };
   Lines const all{
      "isIpv4",        "getMtu",      "getAddrType",      "getDsFlags",    "getDsIpAddr",
      "getDsIntfAddr", "getDsIntfId", "getMultipathType", "getDepthLimit", "getMultipathLength"
   };
   auto const container = lspPingDownstreamMappingTlvContainerFactory();
   EXPECT_EQ( gettersReadableNow( *container ), Lines{} );
   container->validIs( true ); // but nothing was ever cast
   EXPECT_EQ( gettersReadableNow( *container ), Lines{} );
   WireBytes tooShort( "05 dc 01 03" );
   container->tryCastToTlv( tooShort.data(), tooShort.size() );
   EXPECT_EQ( gettersReadableNow( *container ), ofHeader );
   WireBytes other( unknown );
   container->tryCastToTlv( other.data(), other.size() );
   EXPECT_EQ( gettersReadableNow( *container ), ofUnknown );
   for( std::string_view const hex : { numbered4, unnumbered4, numbered6, unnumbered6 } ) {
      WireBytes bytes( hex );
      EXPECT_EQ( gettersReadableNow( *castTo( bytes ) ), all );
   }
}

TEST( LspPingDownstreamMappingTlvContainer, tellsToolsWhenTheViewIsNotThere ) {
   Lines const numberedWithout{ "isIpv4", "getMtu", "getAddrType", "getDsFlags", "getDsIntfId" };
   Lines const unnumberedWithout{ "isIpv4", "getMtu", "getAddrType", "getDsFlags",
                                  "getDsIntfAddr" };
   for( U8 const type : { U8{ 1 }, U8{ 2 }, U8{ 3 }, U8{ 4 } } ) {
      WireBytes bytes( 4, type );
      auto const container = castTo( bytes );
      container->validIs( true ); // although too short for any view
      EXPECT_EQ( gettersReadableNow( *container ),
                 type == 1 || type == 3 ? numberedWithout : unnumberedWithout );
   }
}

} // namespace
} // namespace LspPing
