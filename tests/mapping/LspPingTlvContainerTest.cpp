#include "tests/mapping/TlvContainers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

// What holds for the containers of both TLVs with an address type.
namespace {

using testing::HasSubstr;
using Velnet::IpAddr;
using Velnet::IpGenAddr;

template < class Tlv >
class LspPingTlvContainer : public testing::Test {
 protected:
   // A header of that address type and nothing behind it.
   static WireBytes headerOf( unsigned addrType ) {
      WireBytes bytes( Tlv::header );
      bytes.data()[Tlv::addrTypeAt] = static_cast< U8 >( addrType );
      return bytes;
   }
};

template < class Tlv >
using LspPingTlvContainerDeathTest = LspPingTlvContainer< Tlv >;

struct Names {
   template < class Tlv >
   static std::string GetName( int ) {
      return std::is_same_v< Tlv, DownstreamMapping > ? "DownstreamMapping" : "IntfAndLabelStack";
   }
};
using Tlvs = testing::Types< DownstreamMapping, IntfAndLabelStack >;
TYPED_TEST_SUITE( LspPingTlvContainer, Tlvs, Names );
TYPED_TEST_SUITE( LspPingTlvContainerDeathTest, Tlvs, Names );

TYPED_TEST( LspPingTlvContainer, isEmptyWhenNew ) {
   auto const container = TypeParam::makeInClass();
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( container->header(), nullptr );
   EXPECT_EQ( container->ipv4Tlv(), nullptr );
   EXPECT_EQ( container->ipv6Tlv(), nullptr );
   EXPECT_EQ( container->ipv4UnnumberedTlv(), nullptr );
   EXPECT_EQ( container->ipv6UnnumberedTlv(), nullptr );
   EXPECT_EQ( container->references(), 1u );
}

TYPED_TEST( LspPingTlvContainer, answersForNumberedInterfaces ) {
   WireBytes const four( TypeParam::numbered4 );
   auto const container = castTo< TypeParam >( four );
   EXPECT_TRUE( container->valid() );
   EXPECT_TRUE( container->isIpv4() );
   EXPECT_EQ( container->getAddrType(), 1 );
   EXPECT_EQ( TypeParam::addr( *container ), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );
   EXPECT_EQ( TypeParam::intfAddr( *container ), IpGenAddr( IpAddr( 10, 0, 0, 1 ) ) );
   EXPECT_EQ( TypeParam::intfId( *container ), TypeParam::noIntfId() );

   WireBytes const six( TypeParam::numbered6 );
   container->tryCastToTlv( six.data(), six.size() );
   EXPECT_TRUE( container->valid() );
   EXPECT_FALSE( container->isIpv4() );
   EXPECT_EQ( container->getAddrType(), 3 );
   EXPECT_EQ( TypeParam::addr( *container ), IpGenAddr( address6( "2001:db8::2" ) ) );
   EXPECT_EQ( TypeParam::intfAddr( *container ), IpGenAddr( address6( "2001:db8::1" ) ) );
   EXPECT_EQ( TypeParam::intfId( *container ), TypeParam::noIntfId() );
}

TYPED_TEST( LspPingTlvContainer, answersForUnnumberedInterfaces ) {
   WireBytes const four( TypeParam::unnumbered4 );
   auto const container = castTo< TypeParam >( four );
   EXPECT_TRUE( container->valid() );
   EXPECT_TRUE( container->isIpv4() );
   EXPECT_EQ( container->getAddrType(), 2 );
   EXPECT_EQ( TypeParam::addr( *container ), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );
   EXPECT_EQ( TypeParam::intfAddr( *container ), IpGenAddr() );
   EXPECT_EQ( TypeParam::intfId( *container ), TypeParam::intfIdOf( TypeParam::index4 ) );

   WireBytes const six( TypeParam::unnumbered6 );
   container->tryCastToTlv( six.data(), six.size() );
   EXPECT_TRUE( container->valid() );
   EXPECT_FALSE( container->isIpv4() );
   EXPECT_EQ( container->getAddrType(), 4 );
   EXPECT_EQ( TypeParam::addr( *container ), IpGenAddr( address6( "2001:db8::2" ) ) );
   EXPECT_EQ( TypeParam::intfAddr( *container ), IpGenAddr() );
   EXPECT_EQ( TypeParam::intfId( *container ), TypeParam::intfIdOf( TypeParam::index6 ) );
}

// Every address type with every length, in a block of exactly that length.
TYPED_TEST( LspPingTlvContainer, isValidFromTheFixedPartOfItsAddressTypeOn ) {
   U32 const ofIpv4 = TypeParam::sizeOfIpv4;
   U32 const ofIpv6 = TypeParam::sizeOfIpv6;
   U32 const ofIpv6Unnumbered = TypeParam::sizeOfIpv6Unnumbered;
   for( unsigned type = 0; type < 256; ++type ) {
      U32 const needed = type == 1 || type == 2             ? ofIpv4
                         : type == 3                        ? ofIpv6
                         : type == 4                        ? ofIpv6Unnumbered
                         : TypeParam::takesUnknownAddrTypes ? 4
                                                            : 1000;
      for( U32 len = 0; len <= 48; ++len ) {
         WireBytes const bytes( len, static_cast< U8 >( type ) );
         auto const container = castTo< TypeParam >( bytes );
         auto const at = [&]( bool set ) -> void * { return set ? bytes.data() : nullptr; };
         ASSERT_EQ( container->valid(), len >= needed ) << type << " " << len;
         ASSERT_EQ( container->header(), at( len >= 4 ) );
         ASSERT_EQ( container->ipv4Tlv(), at( type == 1 && len >= ofIpv4 ) );
         ASSERT_EQ( container->ipv4UnnumberedTlv(), at( type == 2 && len >= ofIpv4 ) );
         ASSERT_EQ( container->ipv6Tlv(), at( type == 3 && len >= ofIpv6 ) );
         ASSERT_EQ( container->ipv6UnnumberedTlv(), at( type == 4 && len >= ofIpv6Unnumbered ) );
      }
   }
}

TYPED_TEST( LspPingTlvContainer, isNoLongerValidAfterAValueWithoutAHeader ) {
   for( U32 len = 0; len < 4; ++len ) {
      WireBytes const first( TypeParam::numbered6 );
      WireBytes const headerless( len, 1 );
      auto const container = castTo< TypeParam >( first );
      ASSERT_TRUE( container->valid() );
      container->tryCastToTlv( headerless.data(), len );
      EXPECT_FALSE( container->valid() ) << len;
      EXPECT_EQ( static_cast< void * >( container->header() ), first.data() ) << len;
      EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() ) << len;
      EXPECT_EQ( container->ipv4Tlv(), nullptr ) << len;
   }
}

TYPED_TEST( LspPingTlvContainer, keepsEarlierPointersWhenItIsUsedAgain ) {
   WireBytes const first( TypeParam::numbered6 );
   WireBytes const second( TypeParam::numbered4 );
   WireBytes const tooShort(
      TypeParam::unnumbered4.substr( 0, TypeParam::unnumbered4.size() - 3 ) );
   WireBytes const headerless( 3, 4 );
   auto const container = castTo< TypeParam >( first );
   container->tryCastToTlv( second.data(), second.size() );
   EXPECT_TRUE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), second.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv4Tlv() ), second.data() );
   EXPECT_EQ( TypeParam::addr( *container ), IpGenAddr( IpAddr( 10, 0, 0, 2 ) ) );

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

TYPED_TEST( LspPingTlvContainer, keepsEarlierPointersBehindAnUnknownAddressType ) {
   WireBytes const first( TypeParam::numbered6 );
   WireBytes const second( TypeParam::unnumbered4 );
   WireBytes const unknown( TypeParam::sizeOfIpv4, 5 );
   WireBytes const headerless( 3, 1 );
   auto const container = castTo< TypeParam >( first );
   container->tryCastToTlv( second.data(), second.size() );
   EXPECT_TRUE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), second.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv4UnnumberedTlv() ), second.data() );
   EXPECT_EQ( TypeParam::intfId( *container ), TypeParam::intfIdOf( TypeParam::index4 ) );

   container->tryCastToTlv( unknown.data(), unknown.size() );
   EXPECT_EQ( container->valid(), TypeParam::takesUnknownAddrTypes );
   EXPECT_EQ( static_cast< void * >( container->header() ), unknown.data() );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), first.data() );
   EXPECT_EQ( container->getAddrType(), 5 );

   container->tryCastToTlv( headerless.data(), headerless.size() );
   EXPECT_FALSE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), unknown.data() );

   container->tryCastToTlv( second.data(), second.size() );
   EXPECT_TRUE( container->valid() );
}

// Where the cast refuses the address type, a caller may still say that the value is valid.
TYPED_TEST( LspPingTlvContainer, answersWhatNeedsNoViewForAnUnknownAddressType ) {
   for( unsigned type = 0; type < 256; type += type == 0 ? 5 : 1 ) {
      WireBytes const bytes = this->headerOf( type );
      auto const container = castTo< TypeParam >( bytes );
      ASSERT_EQ( container->valid(), TypeParam::takesUnknownAddrTypes );
      Kiv::write( *container, "valid", true );
      ASSERT_EQ( container->getAddrType(), type );
      ASSERT_EQ( TypeParam::intfAddr( *container ), IpGenAddr() );
      ASSERT_EQ( TypeParam::intfId( *container ), TypeParam::noIntfId() );
   }
}

TYPED_TEST( LspPingTlvContainerDeathTest, gettersThatNeedAViewRefuseUnknownAddressTypes ) {
   auto const refusal = HasSubstr( ": bool " + std::string( TypeParam::name ) +
                                   "::isIpv4() const: assertion "
                                   "\"0 && \"Undefined address type\"\" failed" );
   for( unsigned const type : { 0u, 5u, 9u } ) {
      WireBytes const bytes = this->headerOf( type );
      auto const container = castTo< TypeParam >( bytes );
      container->validIs( true );
      EXPECT_DEATH( container->isIpv4(), refusal );
      EXPECT_DEATH( TypeParam::addr( *container ), refusal );
   }
}

TYPED_TEST( LspPingTlvContainerDeathTest, readingByNameRunsIntoTheSameAssertion ) {
   auto const container = TypeParam::make();
   EXPECT_DEATH( Kiv::read< bool >( *container, "isIpv4" ),
                 HasSubstr( "assertion \"valid()\" failed" ) );
}

TYPED_TEST( LspPingTlvContainer, isOneObjectOfItsRegisteredType ) {
   Kiv::TypeRef const type = TypeParam::make()->fwkType();
   EXPECT_EQ( type, Kiv::typeNamed( TypeParam::name ) );
   EXPECT_EQ( type.id().module, Kiv::typeNamed( "LspPing::LspPingTlvHdr" ).id().module );
   EXPECT_EQ( type.id().index, TypeParam::place );
   EXPECT_EQ( type.kind(), Kiv::Kind::object );
   EXPECT_FALSE( type.base() );
   EXPECT_FALSE( type.hashable() );
}

TYPED_TEST( LspPingTlvContainer, isBuiltEmptyByTheTypeSystem ) {
   using Container = typename TypeParam::Container;
   Kiv::TypeRef const type = Kiv::typeOf< Container >();
   Orlo::Ptr< Orlo::Node > const node = type.operations().createEmpty();
   EXPECT_EQ( node->fwkType(), type );
   EXPECT_FALSE( static_cast< Container const & >( *node ).valid() );
   EXPECT_EQ( type.operations().create, nullptr );
}

TYPED_TEST( LspPingTlvContainer, isCounted ) {
   using Container = typename TypeParam::Container;
   Kiv::AllocationTracker const & tracker = Container::memAllocationTracker_;
   EXPECT_EQ( tracker.className(), TypeParam::name );
   U64 const live = tracker.live();
   U64 const total = tracker.total();
   auto first = TypeParam::make();
   auto second = TypeParam::makeInClass();
   EXPECT_EQ( tracker.live(), live + 2 );
   Orlo::Ptr< Container > const user = first;
   first.reset();
   second.reset();
   EXPECT_EQ( tracker.live(), live + 1 );
   EXPECT_EQ( tracker.total(), total + 2 );
}

TYPED_TEST( LspPingTlvContainer, keepsItsMembersInOrderBehindTheNode ) {
   auto const container = TypeParam::make();
   WireBytes const bytes( 5, 0 );
   auto const at = [&]( int index ) { return static_cast< void * >( bytes.data() + index ); };
   container->validIs( true );
   container->headerIs( static_cast< typename TypeParam::Header * >( at( 0 ) ) );
   container->ipv4TlvIs( static_cast< typename TypeParam::Ipv4 * >( at( 1 ) ) );
   container->ipv6TlvIs( static_cast< typename TypeParam::Ipv6 * >( at( 2 ) ) );
   container->ipv4UnnumberedTlvIs( static_cast< typename TypeParam::Ipv4Unnumbered * >( at( 3 ) ) );
   container->ipv6UnnumberedTlvIs( static_cast< typename TypeParam::Ipv6Unnumbered * >( at( 4 ) ) );
   auto const * const object = reinterpret_cast< std::byte const * >( container.get() );
   static_assert( sizeof( typename TypeParam::Container ) == 56 );
   EXPECT_EQ( object[12], std::byte{ 1 } ); // in the padding behind the node's count
   void * pointers[5];
   std::memcpy( pointers, object + 16, sizeof( pointers ) );
   EXPECT_THAT( pointers, testing::ElementsAre( at( 0 ), at( 1 ), at( 2 ), at( 3 ), at( 4 ) ) );
}

TYPED_TEST( LspPingTlvContainer, isCastThroughItsFirstAttribute ) {
   using Container = typename TypeParam::Container;
   Kiv::Attribute const & cast = Kiv::typeOf< Container >().attributes()[0];
   EXPECT_STREQ( cast.argumentNames, "value, len" );
   ASSERT_EQ( cast.signature->count, 2 );
   Kiv::BufferType const pointerToBytes{ Kiv::typeIdOf< U8 >, Kiv::Reach::pointer };
   Kiv::BufferType const number{ Kiv::typeIdOf< U32 >, Kiv::Reach::value };
   EXPECT_EQ( cast.signature->arguments[0], pointerToBytes );
   EXPECT_EQ( cast.signature->arguments[1], number );
   EXPECT_FALSE( cast.signature->result.type );

   WireBytes const bytes( TypeParam::unnumbered6 );
   auto const container = TypeParam::make();
   U8 * value = bytes.data();
   U32 len = bytes.size();
   void * const arguments[] = { &value, &len };
   Kiv::Call call{ nullptr, arguments, 2 };
   EXPECT_EQ( outcomeOf( *container, 130, Kiv::OpCode::call, call ), Kiv::Outcome::done );
   EXPECT_TRUE( Kiv::read< bool >( *container, "valid" ) );
   EXPECT_FALSE( Kiv::read< bool >( *container, "isIpv4" ) );
   EXPECT_EQ( Kiv::read< U8 >( *container, "getAddrType" ), 4 );
   using Unnumbered = typename TypeParam::Ipv6Unnumbered;
   EXPECT_EQ( Kiv::read< Unnumbered * >( *container, "ipv6UnnumberedTlv" ),
              container->ipv6UnnumberedTlv() );
   using Header = typename TypeParam::Header;
   auto * const header = Kiv::read< Header * >( *container, "header" );
   EXPECT_EQ( static_cast< void * >( header ), bytes.data() );

   WireBytes const other( TypeParam::numbered4 );
   Kiv::write( *container, "header", reinterpret_cast< Header * >( other.data() ) );
   EXPECT_EQ( container->getAddrType(), 1 );
   WireBytes const last( TypeParam::numbered6 );
   Kiv::call( *container, "tryCastToTlv", last.data(), last.size() );
   EXPECT_EQ( container->getAddrType(), 3 );
}

TYPED_TEST( LspPingTlvContainer, refusesWhatAnAttributeDoesNotOffer ) {
   using Kiv::OpCode;
   using Kiv::Outcome;
   auto const container = TypeParam::make();
   U16 const validId = TypeParam::validId;
   U16 const last = validId + 5;
   U64 buffer = 0;
   EXPECT_EQ( outcomeOf( *container, 130, OpCode::read, buffer ), Outcome::notPermitted );
   EXPECT_EQ( outcomeOf( *container, 130, OpCode::write, buffer ), Outcome::notPermitted );
   for( U16 id = 131; id < validId; ++id ) {
      EXPECT_EQ( outcomeOf( *container, id, OpCode::write, buffer ), Outcome::notPermitted );
      EXPECT_EQ( outcomeOf( *container, id, OpCode::call, buffer ), Outcome::notPermitted );
   }
   for( U16 id = validId; id <= last; ++id )
      EXPECT_EQ( outcomeOf( *container, id, OpCode::call, buffer ), Outcome::notPermitted );
   for( OpCode const op : { OpCode::read, OpCode::write, OpCode::call } )
      for( U16 const id : { U16{ 2 }, U16{ 129 }, static_cast< U16 >( last + 1 ) } )
         EXPECT_EQ( outcomeOf( *container, id, op, buffer ), Outcome::noSuchAttribute );
}

TYPED_TEST( LspPingTlvContainer, takesPointersAndValidityThroughItsAttributes ) {
   WireBytes const bytes( TypeParam::numbered4 );
   auto const container = TypeParam::make();
   U16 const validId = TypeParam::validId;
   void * pointer = bytes.data();
   bool valid = true;
   EXPECT_EQ( outcomeOf( *container, validId, Kiv::OpCode::write, valid ), Kiv::Outcome::done );
   for( U16 id = validId + 1; id <= validId + 5; ++id )
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::write, pointer ), Kiv::Outcome::done );
   EXPECT_TRUE( container->valid() );
   EXPECT_EQ( static_cast< void * >( container->header() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv4Tlv() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv6Tlv() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv4UnnumberedTlv() ), pointer );
   EXPECT_EQ( static_cast< void * >( container->ipv6UnnumberedTlv() ), pointer );
   EXPECT_EQ( TypeParam::intfAddr( *container ), IpGenAddr( IpAddr( 10, 0, 0, 1 ) ) );
   for( U16 id = validId + 1; id <= validId + 5; ++id ) {
      void * read = nullptr;
      EXPECT_EQ( outcomeOf( *container, id, Kiv::OpCode::read, read ), Kiv::Outcome::done );
      EXPECT_EQ( read, pointer );
   }
}

// The getters that a tool may read in the container's state.
template < class Container >
Lines gettersReadableNow( Container const & container ) {
   Lines names;
   for( Kiv::Attribute const & attribute : Kiv::typeOf< Container >().attributes() ) {
      std::string const name( attribute.name() );
      if( ( name.starts_with( "get" ) || name == "isIpv4" ) && readableNow( container, name ) )
         names.push_back( name );
   }
   return names;
}

TYPED_TEST( LspPingTlvContainer, tellsToolsWhatItsStateForbidsToRead ) {
   auto const container = TypeParam::make();
   EXPECT_EQ( gettersReadableNow( *container ), Lines{} );
   container->validIs( true ); // but nothing was ever cast
   EXPECT_EQ( gettersReadableNow( *container ), Lines{} );
   WireBytes const tooShort = this->headerOf( 1 );
   container->tryCastToTlv( tooShort.data(), tooShort.size() );
   EXPECT_EQ( gettersReadableNow( *container ), TypeParam::ofHeader );
   WireBytes const unknown = this->headerOf( 9 );
   container->tryCastToTlv( unknown.data(), unknown.size() );
   EXPECT_EQ( gettersReadableNow( *container ),
              TypeParam::takesUnknownAddrTypes ? TypeParam::ofUnknown : TypeParam::ofHeader );
   container->validIs( true );
   EXPECT_EQ( gettersReadableNow( *container ), TypeParam::ofUnknown );
   for( std::string_view const hex : { TypeParam::numbered4, TypeParam::unnumbered4,
                                       TypeParam::numbered6, TypeParam::unnumbered6 } ) {
      WireBytes const bytes( hex );
      EXPECT_EQ( gettersReadableNow( *castTo< TypeParam >( bytes ) ), TypeParam::ofAny );
   }
}

TYPED_TEST( LspPingTlvContainer, tellsToolsWhenTheViewIsNotThere ) {
   for( U8 const type : { U8{ 1 }, U8{ 2 }, U8{ 3 }, U8{ 4 } } ) {
      WireBytes const bytes( 4, type );
      auto const container = castTo< TypeParam >( bytes );
      container->validIs( true ); // although too short for any view
      EXPECT_EQ( gettersReadableNow( *container ), type == 1 || type == 3
                                                      ? TypeParam::withoutNumberedView
                                                      : TypeParam::withoutUnnumberedView );
   }
}

} // namespace
