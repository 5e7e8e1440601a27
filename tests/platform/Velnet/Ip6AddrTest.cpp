#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

using Velnet::Ip6Addr;

Ip6Addr ofGroups( std::array< U16, 8 > const & groups ) {
   Ip6Addr::Bytes bytes{};
   for( std::size_t index = 0; index < groups.size(); ++index ) {
      bytes[2 * index] = static_cast< U8 >( groups[index] >> 8 );
      bytes[2 * index + 1] = static_cast< U8 >( groups[index] );
   }
   return Ip6Addr{ bytes };
}

Orlo::String textOfGroups( std::array< U16, 8 > const & groups ) {
   return ofGroups( groups ).stringValue();
}

constexpr Ip6Addr loopback{ Ip6Addr::Bytes{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1 } };
static_assert( loopback.group( 7 ) == 1 && loopback.group( 0 ) == 0 );
static_assert( Ip6Addr{} == Ip6Addr{ Ip6Addr::Bytes{} } && Ip6Addr{} < loopback );

TEST( Ip6Addr, printsTheLongestRunOfZeroGroupsAsTwoColons ) {
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0, 0, 0, 0 } ), "::" );
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0, 0, 0, 1 } ), "::1" );
   EXPECT_EQ( textOfGroups( { 1, 0, 0, 0, 0, 0, 0, 0 } ), "1::" );
   EXPECT_EQ( textOfGroups( { 0xfe80, 0, 0, 0, 0, 0, 0, 1 } ), "fe80::1" );
   EXPECT_EQ( textOfGroups( { 0x2001, 0xdb8, 0, 0, 1, 0, 0, 0 } ), "2001:db8:0:0:1::" );
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 1, 0, 0, 0, 0 } ), "0:0:0:1::" );
   EXPECT_EQ( textOfGroups( { 0, 0, 1, 2, 3, 4, 5, 6 } ), "::1:2:3:4:5:6" );
}

TEST( Ip6Addr, printsTheFirstOfEquallyLongRunsAsTwoColons ) {
   EXPECT_EQ( textOfGroups( { 0x2001, 0xdb8, 0, 0, 1, 0, 0, 1 } ), "2001:db8::1:0:0:1" );
   EXPECT_EQ( textOfGroups( { 0, 0, 1, 0, 0, 1, 0, 0 } ), "::1:0:0:1:0:0" );
}

TEST( Ip6Addr, printsASingleZeroGroupAsZero ) {
   EXPECT_EQ( textOfGroups( { 0x2001, 0xdb8, 0, 1, 1, 1, 1, 1 } ), "2001:db8:0:1:1:1:1:1" );
   EXPECT_EQ( textOfGroups( { 0, 1, 2, 3, 4, 5, 6, 0 } ), "0:1:2:3:4:5:6:0" );
}

TEST( Ip6Addr, printsLowerCaseWithoutLeadingZeros ) {
   EXPECT_EQ( textOfGroups( { 0xABCD, 0x0EF0, 0x00AB, 0x000C, 1, 0x10, 0x100, 0x1000 } ),
              "abcd:ef0:ab:c:1:10:100:1000" );
   EXPECT_EQ( textOfGroups( { 0xffff, 0xffff, 0xffff, 0xffff, 0xffff, 0xffff, 0xffff, 0xffff } ),
              "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff" );
}

TEST( Ip6Addr, printsOnlyIpv4MappedAddressesMixed ) {
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0, 0xffff, 0x0a00, 0x0001 } ), "::ffff:10.0.0.1" );
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0, 0xffff, 0x7f00, 0x0001 } ), "::ffff:127.0.0.1" );
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0, 0xffff, 0, 0 } ), "::ffff:0.0.0.0" );
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0, 0xffff, 0xffff, 0xffff } ), "::ffff:255.255.255.255" );
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0, 0, 0x0a00, 0x0001 } ), "::a00:1" );
   EXPECT_EQ( textOfGroups( { 0, 0, 0, 0, 0xffff, 0, 0x0a00, 0x0001 } ), "::ffff:0:a00:1" );
   EXPECT_EQ( textOfGroups( { 1, 0, 0, 0, 0, 0xffff, 0x0a00, 1 } ), "1::ffff:a00:1" );
}

TEST( Ip6Addr, printsWhereABuildersOwnBytesEnd ) {
   Ip6Addr const address =
      ofGroups( { 0xffff, 0xffff, 0xffff, 0xffff, 0xffff, 0xffff, 0xffff, 0xffff } );
   for( std::size_t before = 460; before < 515; ++before ) {
      Orlo::StringBuilder out;
      out.append( Orlo::String( before, '-' ) );
      appendText( out, address );
      ASSERT_EQ( out.view(), Orlo::String( before, '-' ) + address.stringValue() );
   }
}

TEST( Ip6Addr, readsEveryFormOfRfc4291 ) {
   EXPECT_EQ( Ip6Addr::fromText( "2001:DB8:0:0:8:800:200C:417A" ),
              ofGroups( { 0x2001, 0xdb8, 0, 0, 8, 0x800, 0x200c, 0x417a } ) );
   EXPECT_EQ( Ip6Addr::fromText( "2001:0db8::0008:800:200c:417a" ),
              ofGroups( { 0x2001, 0xdb8, 0, 0, 8, 0x800, 0x200c, 0x417a } ) );
   EXPECT_EQ( Ip6Addr::fromText( "::" ), Ip6Addr{} );
   EXPECT_EQ( Ip6Addr::fromText( "::1" ), loopback );
   EXPECT_EQ( Ip6Addr::fromText( "0:0:0:0:0:0:0:1" ), loopback );
   EXPECT_EQ( Ip6Addr::fromText( "1::" ), ofGroups( { 1, 0, 0, 0, 0, 0, 0, 0 } ) );
   EXPECT_EQ( Ip6Addr::fromText( "1:2:3:4:5:6:7::" ), ofGroups( { 1, 2, 3, 4, 5, 6, 7, 0 } ) );
   EXPECT_EQ( Ip6Addr::fromText( "::2:3:4:5:6:7:8" ), ofGroups( { 0, 2, 3, 4, 5, 6, 7, 8 } ) );
   EXPECT_EQ( Ip6Addr::fromText( "::13.1.68.3" ),
              ofGroups( { 0, 0, 0, 0, 0, 0, 0x0d01, 0x4403 } ) );
   EXPECT_EQ( Ip6Addr::fromText( "0:0:0:0:0:FFFF:129.144.52.38" ),
              ofGroups( { 0, 0, 0, 0, 0, 0xffff, 0x8190, 0x3426 } ) );
   EXPECT_EQ( Ip6Addr::fromText( "64:ff9b::192.0.2.33" ),
              ofGroups( { 0x64, 0xff9b, 0, 0, 0, 0, 0xc000, 0x0221 } ) );
}

TEST( Ip6Addr, refusesWhatIsNoAddress ) {
   for( std::string_view const wrong : { "",
                                         ":",
                                         ":::",
                                         "1",
                                         "1:",
                                         ":1",
                                         "1:2:3:4:5:6:7",
                                         "1:2:3:4:5:6:7:",
                                         "1:2:3:4:5:6:7:8:",
                                         "1:2:3:4:5:6:7:8:9",
                                         "::1:2:3:4:5:6:7:8",
                                         "1:2:3:4:5:6:7:8::",
                                         "1:2:3:4::5:6:7:8",
                                         "1::2::3",
                                         "::1::",
                                         "1:::2",
                                         "::1:",
                                         "12345::",
                                         "1:00001::",
                                         "g::",
                                         "::-1",
                                         "fe80::1%eth0",
                                         "2001:db8::/32",
                                         " ::1",
                                         "::1 ",
                                         "1.2.3.4",
                                         "::1.2.3",
                                         "::1.2.3.4.5",
                                         "::1.2.3.256",
                                         "::01.2.3.4",
                                         "::1.2.3.4:5",
                                         "1:2:3:4:5:6:7:1.2.3.4",
                                         "1:2:3:4:5:1.2.3.4",
                                         "::a.2.3.4",
                                         "1:2:3:4:5:6::1.2.3.4",
                                         "[::1]",
                                         "none" } )
      EXPECT_FALSE( Ip6Addr::fromText( wrong ) ) << wrong;
}

TEST( Ip6Addr, agreesWithTheSystemOnRandomAddresses ) {
   std::mt19937 random{ 4 };
   for( int round = 0; round < 200'000; ++round ) {
      std::array< U16, 8 > groups{};
      U32 const zeros = static_cast< U32 >( random() );
      for( std::size_t index = 0; index < groups.size(); ++index )
         if( ( zeros >> index & 1 ) == 0 )
            groups[index] = static_cast< U16 >( random() >> ( random() % 16 ) );
      if( groups[0] == 0 && groups[1] == 0 && groups[2] == 0 && groups[3] == 0 && groups[4] == 0 &&
          groups[5] == 0 )
         continue; // the system prints ::/96 mixed, RFC 5952 does not ask for it
      Ip6Addr const address = ofGroups( groups );
      char text[INET6_ADDRSTRLEN];
      ASSERT_NE( inet_ntop( AF_INET6, &address, text, sizeof text ), nullptr );
      ASSERT_EQ( address.stringValue(), text );
      ASSERT_EQ( Ip6Addr::fromText( text ), address );
   }
}

TEST( Ip6Addr, agreesWithTheSystemOnRandomTexts ) {
   std::mt19937 random{ 5 };
   constexpr std::string_view characters = "0123456789abcdefABCDEF::::::::....g";
   constexpr std::string_view seeds[] = {
      "1:2:3:4:5:6:7:8",      "::1:2", "a:b::", "1:2::1.2.3.4", "::ffff:10.0.0.1",
      "1:2:3:4:5:6:10.0.0.1", "::"
   };
   int taken = 0;
   for( int round = 0; round < 300'000; ++round ) {
      Orlo::String text{ seeds[random() % std::size( seeds )] };
      for( auto change = random() % 4; change > 0; --change ) {
         char const character = characters[random() % characters.size()];
         std::size_t const place = random() % ( text.size() + 1 );
         if( random() % 2 == 0 || place == text.size() )
            text.insert( place, 1, character );
         else
            text[place] = character;
      }
      in6_addr system{};
      bool const valid = inet_pton( AF_INET6, text.c_str(), &system ) == 1;
      std::optional< Ip6Addr > const address = Ip6Addr::fromText( text );
      ASSERT_EQ( address.has_value(), valid ) << text;
      if( valid ) {
         ++taken;
         ASSERT_EQ( std::memcmp( &system, &*address, 16 ), 0 ) << text;
      }
   }
   EXPECT_GT( taken, 50'000 );
}

TEST( Ip6Addr, isReadUpToPunctuation ) {
   Kiv::CharRange text{ " 2001:db8::1, ::)" };
   Ip6Addr first;
   Ip6Addr second = loopback;
   sequenceToValue( text, &first );
   ASSERT_TRUE( text.take( ',' ) );
   sequenceToValue( text, &second );
   EXPECT_EQ( text.rest(), ")" );
   EXPECT_EQ( Kiv::_fmt( "%s %s", first, second ), "2001:db8::1 ::" );
}

TEST( Ip6Addr, staysAsItWasWhenTheTextIsNoAddress ) {
   Kiv::CharRange text{ "1::2::3)" };
   Ip6Addr address = loopback;
   try {
      sequenceToValue( text, &address );
      FAIL() << "the address was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(), "expected an IPv6 address at offset 0, found \"1::2::3)\"" );
   }
   EXPECT_EQ( address, loopback );
}

TEST( Ip6Addr, isOrderedInNetworkOrder ) {
   EXPECT_LT( ofGroups( { 0, 0, 0, 0, 0, 0, 0, 0xff } ),
              ofGroups( { 0, 0, 0, 0, 0, 0, 0, 0x100 } ) );
   EXPECT_GT( ofGroups( { 0x100, 0, 0, 0, 0, 0, 0, 0 } ),
              ofGroups( { 0xff, 0xffff, 0xffff, 0xffff, 0, 0, 0, 0 } ) );
}

} // namespace
