#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Velnet::Ip6Addr;
using Velnet::IpAddr;
using Velnet::IpGenAddr;

constexpr IpAddr ipv4{ 10, 0, 0, 1 };
constexpr Ip6Addr ipv6{ { 0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 } };
constexpr Ip6Addr ipv6WithTheBytesOfIpv4{ { 10, 0, 0, 1 } };

static_assert( IpGenAddr{}.family() == IpGenAddr::Family::none );
static_assert( !IpGenAddr{}.isIpv4() && !IpGenAddr{}.isIpv6() );
static_assert( IpGenAddr{ ipv4 }.isIpv4() && !IpGenAddr{ ipv4 }.isIpv6() );
static_assert( IpGenAddr{ ipv6 }.isIpv6() && !IpGenAddr{ ipv6 }.isIpv4() );
static_assert( IpGenAddr{ ipv4 }.ipAddr() == ipv4 );
static_assert( IpGenAddr{ ipv6 }.ip6Addr() == ipv6 );
static_assert( IpGenAddr{ ipv4 } != IpGenAddr{ ipv6WithTheBytesOfIpv4 } );
static_assert( IpGenAddr{ IpAddr{} } != IpGenAddr{} && IpGenAddr{ Ip6Addr{} } != IpGenAddr{} );
static_assert( IpGenAddr{} < IpGenAddr{ IpAddr{} } );
static_assert( IpGenAddr{ IpAddr{ 255, 255, 255, 255 } } < IpGenAddr{ Ip6Addr{} } );
static_assert( IpGenAddr{ IpAddr{ 9, 255, 255, 255 } } < IpGenAddr{ ipv4 } );

TEST( IpGenAddr, printsTheAddressOrNone ) {
   EXPECT_EQ( IpGenAddr{}.stringValue(), "none" );
   EXPECT_EQ( IpGenAddr{ ipv4 }.stringValue(), "10.0.0.1" );
   EXPECT_EQ( IpGenAddr{ ipv6 }.stringValue(), "2001:db8::1" );
   EXPECT_EQ( IpGenAddr{ IpAddr{} }.stringValue(), "0.0.0.0" );
   EXPECT_EQ( IpGenAddr{ Ip6Addr{} }.stringValue(), "::" );
   EXPECT_EQ( Kiv::_fmt( "%s %s %s", IpGenAddr{}, IpGenAddr{ ipv4 }, IpGenAddr{ ipv6 } ),
              "none 10.0.0.1 2001:db8::1" );
}

TEST( IpGenAddr, readsBackWhatItPrints ) {
   std::mt19937 random{ 11 };
   for( int round = 0; round < 20'000; ++round ) {
      Ip6Addr::Bytes bytes;
      for( U8 & byte : bytes )
         byte = static_cast< U8 >( random() % 3 == 0 ? random() : 0 );
      IpGenAddr const addresses[] = { IpAddr::fromHost( static_cast< U32 >( random() ) ),
                                      Ip6Addr{ bytes }, IpGenAddr{} };
      for( IpGenAddr const & address : addresses )
         ASSERT_EQ( IpGenAddr::fromText( address.stringValue() ), address );
   }
}

TEST( IpGenAddr, refusesWhatIsNoAddress ) {
   for( std::string_view const wrong :
        { "", "None", "none ", "no", "nonexistent", "1.2.3", "10.0.0.1/8", ":", "1::2::3",
          "2001:db8::1/64", "10", "1.2.3.4:" } )
      EXPECT_FALSE( IpGenAddr::fromText( wrong ) ) << wrong;
}

TEST( IpGenAddr, isReadUpToPunctuation ) {
   Kiv::CharRange text{ " none, 127.0.0.1 ,2001:db8::1)" };
   IpGenAddr addresses[3] = { ipv4, ipv4, ipv4 };
   sequenceToValue( text, &addresses[0] );
   ASSERT_TRUE( text.take( ',' ) );
   sequenceToValue( text, &addresses[1] );
   ASSERT_TRUE( text.take( ',' ) );
   sequenceToValue( text, &addresses[2] );
   EXPECT_EQ( text.rest(), ")" );
   EXPECT_EQ( addresses[0], IpGenAddr{} );
   EXPECT_EQ( addresses[1], ( IpAddr{ 127, 0, 0, 1 } ) );
   EXPECT_EQ( addresses[2], ipv6 );
}

TEST( IpGenAddr, staysAsItWasWhenTheTextIsNoAddress ) {
   Kiv::CharRange text{ " 10.0.0.256)" };
   IpGenAddr address{ ipv6 };
   try {
      sequenceToValue( text, &address );
      FAIL() << "the address was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(),
                    "expected an IP address or none at offset 1, found \"10.0.0.256)\"" );
   }
   EXPECT_EQ( address, ipv6 );
}

TEST( IpGenAddr, isKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Velnet::IpGenAddr" );
   ASSERT_TRUE( type );
   EXPECT_EQ( type, Kiv::typeOf< IpGenAddr >() );
   IpGenAddr address;
   KivOrlo::strepToValue( "2001:db8::1", type, &address );
   EXPECT_EQ( address, ipv6 );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &address ), "2001:db8::1" );
}

TEST( IpGenAddrDeathTest, givesOnlyTheFamilyItHas ) {
   EXPECT_DEATH( static_cast< void >( IpGenAddr{}.ipAddr() ), "assertion \"isIpv4\\(\\)\" failed" );
   EXPECT_DEATH( static_cast< void >( IpGenAddr{ ipv6 }.ipAddr() ),
                 "assertion \"isIpv4\\(\\)\" failed" );
   EXPECT_DEATH( static_cast< void >( IpGenAddr{ ipv4 }.ip6Addr() ),
                 "assertion \"isIpv6\\(\\)\" failed" );
}

} // namespace
