#include "tests/memory/Allocations.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Memory that runs out while a text is built ends the process, wherever in the text it does. A
// type that is registered is tested here as soon as it is listed.
namespace {

using MemoryTest::MemoryFor;

void expectEnds( std::function< Orlo::String() > const & text ) {
   std::size_t const before = MemoryTest::blocksTaken();
   Orlo::String const whole = text();
   std::size_t const needed = MemoryTest::blocksTaken() - before;
   EXPECT_EQ( needed > 0, whole.size() > 15 ) << whole;
   for( std::size_t i = 0; i < needed; ++i ) {
      EXPECT_EXIT(
         {
            MemoryFor const memory( i );
            text();
         },
         testing::KilledBySignal( SIGABRT ), testing::Eq( "Orlo::String: out of memory\n" ) )
         << whole << ", allocation " << i;
   }
}

void numberIs( Kiv::TypeRef type, void * object, std::string_view name, U32 number ) {
   Kiv::FoundAttribute const found = Kiv::attributeNamed( type, name );
   Kiv::Instance value( found.attribute->type() );
   KivOrlo::strepToValue( std::to_string( number ), value.type(), value.object() );
   EXPECT_EQ(
      Kiv::attributeAccess( type, object, found.field(), Kiv::OpCode::write, value.object() ),
      Kiv::Outcome::done );
}

bool isValid( Kiv::TypeRef type, void * object ) {
   bool valid = false;
   Kiv::attributeAccess( type, object, Kiv::attributeNamed( type, "valid" ).field(),
                         Kiv::OpCode::read, &valid );
   return valid;
}

// What makes a view valid besides its type and its length.
std::vector< std::pair< std::string_view, U32 > > conditionsOf( Kiv::TypeRef type ) {
   static std::map< std::string_view, std::vector< std::pair< std::string_view, U32 > > > const
      conditions = {
         { "LspPing::LspPingHdr", { { "version", 1 }, { "messageType", 1 } } },
         { "LspPing::LspPingFec128Ipv4SubTlv", { { "pwType", 5 } } },
         { "LspPing::LspPingFec129Ipv4SubTlv", { { "pwType", 5 } } },
         { "LspPing::LspPingNodeAddrSubTlv", { { "subType", 3 }, { "subTypeLen", 4 } } },
         { "LspPing::LspPingPadTlv", { { "padType", 1 } } },
         { "LspPing::LspPingVeloraVendorPrivateTlv",
           { { "vendorIana", static_cast< U32 >( LspPing::LspPingVendorIana::VeloraIana ) } } },
      };
   auto const found = conditions.find( type.name() );
   return found != conditions.end() ? found->second
                                    : std::vector< std::pair< std::string_view, U32 > >();
}

// The two kinds of header, where they are no attributes.
void headerIs( Kiv::TypeRef type, void * object, U32 code, U32 length ) {
   if( Kiv::attributeNamed( type, "length" ) ) {
      numberIs( type, object, "type", code );
      numberIs( type, object, "length", length );
   } else {
      auto * const bytes = static_cast< U8 * >( object );
      bytes[0] = static_cast< U8 >( code );
      bytes[1] = static_cast< U8 >( length >> 8 );
      bytes[2] = static_cast< U8 >( length );
   }
}

// Tries every length with every type that is assigned.
bool makeValid( Kiv::TypeRef type, void * object ) {
   for( auto const & [name, value] : conditionsOf( type ) )
      numberIs( type, object, name, value );
   if( isValid( type, object ) )
      return true;
   std::vector< U32 > codes( 40 );
   std::iota( codes.begin(), codes.end(), 0u );
   codes.push_back( static_cast< U32 >( LspPing::LspPingTlvType::VeloraVendorPrivate ) );
   for( U32 length = 0; length < 60; ++length ) {
      for( U32 const code : codes ) {
         headerIs( type, object, code, length );
         if( isValid( type, object ) )
            return true;
      }
   }
   return false;
}

std::vector< Kiv::TypeRef > typesWith( std::string_view attribute ) {
   std::vector< Kiv::TypeRef > types;
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      for( U16 i = 0; i < module->count; ++i ) {
         Kiv::TypeRef const type( module->types + i );
         if( type.kind() != Kiv::Kind::absent && Kiv::attributeNamed( type, attribute ) )
            types.push_back( type );
      }
   }
   return types;
}

Orlo::String textOf( Kiv::TypeRef type, void * object ) {
   Orlo::String text;
   Kiv::attributeAccess( type, object, Kiv::attributeNamed( type, "stringValue" ).field(),
                         Kiv::OpCode::read, &text );
   return text;
}

std::string testName( testing::TestParamInfo< Kiv::TypeRef > const & info ) {
   return std::string( info.param.name().substr( info.param.name().rfind( ':' ) + 1 ) );
}

class StringValueDeathTest : public testing::TestWithParam< Kiv::TypeRef > {
 protected:
   static constexpr std::size_t room = 512; // what a view's length may cover
   Kiv::TypeRef type() const { return GetParam(); }
};

TEST_P( StringValueDeathTest, endsTheProcessWithoutMemory ) {
   std::vector< U8 > bytes( room );
   // Identifiers of a FEC 129 that are not all empty.
   bytes[14] = 1;
   auto const expectBoth = [&]( Kiv::TypeRef view, void * object ) {
      expectEnds( [&] { return textOf( view, object ); } );
      ASSERT_TRUE( makeValid( view, object ) ) << "say above what makes it valid";
      expectEnds( [&] { return textOf( view, object ); } );
   };
   if( type().operations().create != nullptr ) {
      // The view is tested on its own; here its text goes through the parser.
      Orlo::Ptr< Orlo::Node > const parser =
         type().operations().create( Velnet::pktFactory( bytes ), 0 );
      expectEnds( [&] { return textOf( type(), parser.get() ); } );
      if( type() == Kiv::typeOf< LspPing::LspPingPadTlvParser >() )
         delete static_cast< LspPing::LspPingPadTlvParser * >( parser.get() )->header();
   } else if( type().record().alignment == 1 ) {
      expectBoth( type(), bytes.data() );
   } else {
      Kiv::Instance value( type() );
      expectBoth( type(), value.object() );
   }
}

INSTANTIATE_TEST_SUITE_P( EveryType, StringValueDeathTest,
                          testing::ValuesIn( typesWith( "stringValue" ) ), testName );

TEST( StringValue, isOfferedByTheViewsAndTheirParsers ) {
   EXPECT_GE( typesWith( "stringValue" ).size(), 50u );
}

TEST( PadTextDeathTest, endsTheProcessWhereverALongTextRunsOutOfMemory ) {
   LspPing::LspPingPadTlv pad;
   pad.typeIs( 3 );
   pad.padTypeIs( 1 );
   pad.lengthIs( 2000 );
   ASSERT_GT( pad.stringValue().size(), 8000u );
   expectEnds( [&] { return pad.stringValue(); } );
}

TEST( EnumeratorTextDeathTest, endsTheProcessWithoutMemory ) {
   expectEnds( [] { return stringValue( LspPing::LspPingTlvType::DownstreamDetailedMapping ); } );
   expectEnds( [] { return stringValue( LspPing::LspPingTlvType::Pad ); } );
}

TEST( AddressTextDeathTest, endsTheProcessWithoutMemory ) {
   auto const address = Velnet::Ip6Addr::fromText( "2001:db8:1111:2222:3333:4444:5555:6666" );
   ASSERT_TRUE( address );
   expectEnds( [&] { return address->stringValue(); } );
   expectEnds( [&] { return Velnet::IpGenAddr( *address ).stringValue(); } );
}

class ValueTextDeathTest : public testing::TestWithParam< Kiv::TypeRef > {};

TEST_P( ValueTextDeathTest, endsTheProcessWithoutMemory ) {
   Kiv::Instance const value( GetParam() );
   expectEnds( [&] { return KivOrlo::valueToStrep( value.type(), value.object() ); } );
}

std::vector< Kiv::TypeRef > valueTypes() {
   std::vector< Kiv::TypeRef > types;
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      for( U16 i = 0; i < module->count; ++i )
         if( module->types[i].kind == Kiv::Kind::value )
            types.emplace_back( module->types + i );
   }
   return types;
}

INSTANTIATE_TEST_SUITE_P( EveryType, ValueTextDeathTest, testing::ValuesIn( valueTypes() ),
                          testName );

} // namespace
