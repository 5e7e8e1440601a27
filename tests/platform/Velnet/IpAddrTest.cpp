#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

using Velnet::IpAddr;

static_assert( IpAddr{} == IpAddr{ 0, 0, 0, 0 } );
static_assert( IpAddr{ 10, 0, 0, 1 }.host() == 0x0A000001 );
static_assert( IpAddr::fromHost( 0x0A000001 ) == IpAddr{ 10, 0, 0, 1 } );
static_assert( IpAddr::fromHost( 0x7F000001 ).bytes() == IpAddr::Bytes{ 127, 0, 0, 1 } );
static_assert( IpAddr{ 9, 255, 255, 255 } < IpAddr{ 10, 0, 0, 0 } );

TEST( IpAddr, printsDottedDecimal ) {
   EXPECT_EQ( IpAddr{}.stringValue(), "0.0.0.0" );
   EXPECT_EQ( IpAddr( 10, 0, 0, 1 ).stringValue(), "10.0.0.1" );
   EXPECT_EQ( IpAddr( 127, 255, 100, 9 ).stringValue(), "127.255.100.9" );
   EXPECT_EQ( IpAddr( 255, 255, 255, 255 ).stringValue(), "255.255.255.255" );
   EXPECT_EQ( Kiv::_fmt( "[%s]", IpAddr{ 192, 168, 1, 20 } ), "[192.168.1.20]" );
}

TEST( IpAddr, printsAndReadsEveryOctetInEveryPlace ) {
   for( unsigned number = 0; number < 256; ++number ) {
      U8 const octet = static_cast< U8 >( number );
      Orlo::String const text = std::to_string( number );
      IpAddr const addresses[] = {
         { octet, 1, 22, 133 }, { 1, octet, 22, 133 }, { 1, 22, octet, 133 }, { 1, 22, 133, octet }
      };
      Orlo::String const texts[] = { text + ".1.22.133", "1." + text + ".22.133",
                                     "1.22." + text + ".133", "1.22.133." + text };
      for( std::size_t place = 0; place < 4; ++place ) {
         ASSERT_EQ( addresses[place].stringValue(), texts[place] );
         ASSERT_EQ( IpAddr::fromText( texts[place] ), addresses[place] );
      }
   }
}

TEST( IpAddr, printsWhereABuildersOwnBytesEnd ) {
   for( std::size_t before = 490; before < 515; ++before ) {
      Orlo::StringBuilder out;
      out.append( Orlo::String( before, '-' ) );
      appendText( out, IpAddr{ 255, 255, 255, 255 } );
      ASSERT_EQ( out.view(), Orlo::String( before, '-' ) + "255.255.255.255" );
   }
}

TEST( IpAddr, agreesWithTheSystemOnRandomTexts ) {
   std::mt19937 random{ 3 };
   constexpr std::string_view characters = "0123456789....... a";
   for( int round = 0; round < 200'000; ++round ) {
      Orlo::String text = IpAddr::fromHost( static_cast< U32 >( random() ) ).stringValue();
      for( auto change = random() % 3; change > 0; --change )
         text[random() % text.size()] = characters[random() % characters.size()];
      in_addr system{};
      bool const taken = inet_pton( AF_INET, text.c_str(), &system ) == 1;
      std::optional< IpAddr > const address = IpAddr::fromText( text );
      ASSERT_EQ( address.has_value(), taken ) << text;
      if( taken )
         ASSERT_EQ( std::memcmp( &system, &*address, 4 ), 0 ) << text;
   }
}

TEST( IpAddr, refusesWhatIsNoAddress ) {
   for( std::string_view const wrong :
        { "",         "1",         "1.2.3",     "1.2.3.",    ".1.2.3",     "1..2.3",
          "1.2.3.4.", "1.2.3.4.5", "256.1.1.1", "1.1.1.256", "1.1.1.1000", "01.2.3.4",
          "1.2.3.00", "1.2.3.04",  "1.2.3.4 ",  " 1.2.3.4",  "1.2.3.-4",   "1.2.3.+4",
          "1.2.3.a",  "0x1.2.3.4", "1,2,3,4",   "1.2.3.4/8" } )
      EXPECT_FALSE( IpAddr::fromText( wrong ) ) << wrong;
}

TEST( IpAddr, isReadUpToPunctuation ) {
   Kiv::CharRange text{ " 10.0.0.1, 127.0.0.1)" };
   IpAddr first;
   IpAddr second;
   sequenceToValue( text, &first );
   ASSERT_TRUE( text.take( ',' ) );
   sequenceToValue( text, &second );
   EXPECT_EQ( text.rest(), ")" );
   EXPECT_EQ( first, IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( second, IpAddr( 127, 0, 0, 1 ) );
}

TEST( IpAddr, staysAsItWasWhenTheTextIsNoAddress ) {
   Kiv::CharRange text{ " 10.0.0.256)" };
   IpAddr address{ 1, 2, 3, 4 };
   try {
      sequenceToValue( text, &address );
      FAIL() << "the address was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(),
                    "expected an IPv4 address at offset 1, found \"10.0.0.256)\"" );
   }
   EXPECT_EQ( address, IpAddr( 1, 2, 3, 4 ) );
}

} // namespace
