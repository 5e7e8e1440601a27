#include "MplsUtils/LspPing/platform/Velnet/IpGenPrefix.h"

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
using Velnet::IpGenPrefix;

constexpr IpAddr ipv4{ 10, 0, 0, 0 };
constexpr Ip6Addr ipv6{ { 0x20, 0x01, 0x0d, 0xb8 } };

static_assert( IpGenPrefix{}.address() == IpGenAddr{} && IpGenPrefix{}.length() == 0 );
static_assert( IpGenPrefix{ IpGenAddr{}, 0 } == IpGenPrefix{} );
static_assert( IpGenPrefix{ ipv4, 8 }.address() == ipv4 );
static_assert( IpGenPrefix{ ipv4, 8 }.length() == 8 );
static_assert( IpGenPrefix{ ipv4, 8 } != IpGenPrefix{ ipv4, 9 } );
static_assert( IpGenPrefix{ IpAddr{}, 0 } != IpGenPrefix{} );

TEST( IpGenPrefix, printsAddressAndLengthOrNone ) {
   EXPECT_EQ( IpGenPrefix{}.stringValue(), "none" );
   EXPECT_EQ( IpGenPrefix( ipv4, 8 ).stringValue(), "10.0.0.0/8" );
   EXPECT_EQ( IpGenPrefix( ipv6, 32 ).stringValue(), "2001:db8::/32" );
   EXPECT_EQ( IpGenPrefix( IpAddr{}, 0 ).stringValue(), "0.0.0.0/0" );
   EXPECT_EQ( IpGenPrefix( Ip6Addr{}, 128 ).stringValue(), "::/128" );
   EXPECT_EQ( IpGenPrefix( IpAddr{ 10, 1, 2, 3 }, 8 ).stringValue(), "10.1.2.3/8" );
}

TEST( IpGenPrefix, takesEveryLengthOfItsFamilyAndNoOther ) {
   for( unsigned length = 0; length < 256; ++length ) {
      U8 const bits = static_cast< U8 >( length );
      Orlo::String const behind = Kiv::_fmt( "/%d", length );
      ASSERT_EQ( IpGenPrefix::fromText( "10.0.0.0" + behind ).has_value(), length <= 32 );
      ASSERT_EQ( IpGenPrefix::fromText( "2001:db8::" + behind ).has_value(), length <= 128 );
      if( length <= 32 )
         ASSERT_EQ( IpGenPrefix::fromText( "10.0.0.0" + behind ), IpGenPrefix( ipv4, bits ) );
      else
         ASSERT_THROW( IpGenPrefix( ipv4, bits ), Kiv::RangeException );
      if( length <= 128 )
         ASSERT_EQ( IpGenPrefix::fromText( "2001:db8::" + behind ), IpGenPrefix( ipv6, bits ) );
      else
         ASSERT_THROW( IpGenPrefix( ipv6, bits ), Kiv::RangeException );
      if( length != 0 )
         ASSERT_THROW( IpGenPrefix( IpGenAddr{}, bits ), Kiv::RangeException );
   }
   try {
      IpGenPrefix const prefix{ ipv4, 33 };
      FAIL() << "the length was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(),
                    "Velnet::IpGenPrefix: no address of its family has 33 leading bits" );
   }
}

TEST( IpGenPrefix, readsBackWhatItPrints ) {
   std::mt19937 random{ 13 };
   for( int round = 0; round < 20'000; ++round ) {
      Ip6Addr::Bytes bytes;
      for( U8 & byte : bytes )
         byte = static_cast< U8 >( random() % 3 == 0 ? random() : 0 );
      IpGenPrefix const prefixes[] = { { IpAddr::fromHost( static_cast< U32 >( random() ) ),
                                         static_cast< U8 >( random() % 33 ) },
                                       { Ip6Addr{ bytes }, static_cast< U8 >( random() % 129 ) },
                                       {} };
      for( IpGenPrefix const & prefix : prefixes ) {
         Orlo::String const printed = prefix.stringValue() + ", x";
         Kiv::CharRange text{ printed };
         IpGenPrefix read{ ipv4, 1 };
         sequenceToValue( text, &read );
         ASSERT_EQ( read, prefix ) << printed;
         ASSERT_EQ( text.rest(), ", x" );
      }
   }
}

TEST( IpGenPrefix, staysAsItWasWhenTheTextIsNoPrefix ) {
   for( std::string_view const wrong :
        { "", "/", "/8", "10.0.0.0", "10.0.0.0/", "10.0.0.0/33", "10.0.0.0/-1", "10.0.0.0/+8",
          "10.0.0.0/8/8", "10.0.0.0/8x", "10.0.0.0/264", "10.0.0.0/ 8", "10.0.0/8", "::/129",
          "2001:db8::", "none/0", "None", "nonesuch", "default" } ) {
      Kiv::CharRange text{ wrong };
      IpGenPrefix prefix{ ipv6, 64 };
      EXPECT_THROW( sequenceToValue( text, &prefix ), Kiv::RangeException ) << wrong;
      EXPECT_EQ( prefix, IpGenPrefix( ipv6, 64 ) ) << wrong;
   }
   try {
      Kiv::CharRange text{ "  10.0.0.0/33)" };
      IpGenPrefix prefix;
      sequenceToValue( text, &prefix );
      FAIL() << "the prefix was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(), "expected an address and its prefix length or none at "
                                      "offset 2, found \"10.0.0.0/33)\"" );
   }
}

TEST( IpGenPrefix, isKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Velnet::IpGenPrefix" );
   ASSERT_EQ( type, Kiv::typeOf< IpGenPrefix >() );
   IpGenPrefix prefix;
   KivOrlo::strepToValue( "2001:db8::/32", type, &prefix );
   EXPECT_EQ( prefix, IpGenPrefix( ipv6, 32 ) );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &prefix ), "2001:db8::/32" );
}

} // namespace
