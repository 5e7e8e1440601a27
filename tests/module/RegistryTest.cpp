#include "tests/module/ExpectedTypes.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Module.h"
#include "tests/AttributeLines.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

std::string attributesText( Kiv::TypeRef type ) {
   std::string text;
   for( Kiv::Attribute const & attribute : type.attributes() )
      text += ( text.empty() ? "" : ", " ) + attributeText( attribute );
   return text;
}

std::string_view kindText( Kiv::Kind kind ) {
   static constexpr std::string_view texts[] = {
      "value", "pointer-interface", "object", "enumeration", "constant", "absent",
   };
   return texts[static_cast< std::size_t >( kind )];
}

std::vector< std::string > split( std::string_view text ) {
   std::vector< std::string > parts;
   while( !text.empty() ) {
      std::size_t const end = text.find( ", " );
      parts.emplace_back( text.substr( 0, end ) );
      text.remove_prefix( end == std::string_view::npos ? text.size() : end + 2 );
   }
   return parts;
}

// The types of the expected attributes of a view and its bases, by name, with what a parser may
// read of the opaque values' own headers.
std::map< std::string, std::string > expectedTypesOf( std::string_view view ) {
   std::map< std::string, std::string > types;
   if( view.starts_with( "LspPingOpaqueVal" ) )
      types = { { "type", "U8" }, { "length", "U16" }, { "totalLength", "U16" } };
   for( ExpectedType const & expected : expectedHdrTypes ) {
      if( expected.name != view )
         continue;
      if( !expected.base.empty() )
         types = expectedTypesOf( expected.base );
      for( std::string const & attribute : split( expected.attributes ) ) {
         std::size_t const blank = attribute.find( ' ' );
         std::string const name = attribute.substr( 0, blank );
         types[name] = attribute.substr( blank + 1, attribute.rfind( ' ' ) - blank - 1 );
         if( name.ends_with( ']' ) ) {
            std::size_t const key = name.find( '[' );
            types[name.substr( 0, key )] = name.substr( key ) + types[name];
         }
      }
   }
   return types;
}

std::string expectedAttributes( ExpectedType const & expected ) {
   std::size_t const colon = expected.attributes.find( ": " );
   if( colon == std::string_view::npos )
      return std::string( expected.attributes );
   std::string const view( expected.attributes.substr( 0, colon ) );
   std::map< std::string, std::string > const types = expectedTypesOf( view );
   std::string text =
      "pkt Velnet::Pkt^ r, offset U32 r, header " + view + "* r, handleHeader() void c";
   for( std::string const & name : split( expected.attributes.substr( colon + 2 ) ) ) {
      std::string const type = types.at( name );
      // "[U32]U8" is a collection's type: the key belongs to the name.
      std::size_t const key = type.find( ']' ) + 1;
      text += ", " + name + type.substr( 0, key ) + " " + type.substr( key ) + " r";
   }
   return text;
}

void expectModule( std::string_view name, U16 number,
                   std::span< ExpectedType const > expectedTypes ) {
   Kiv::ModuleTable const * module = nullptr;
   for( Kiv::ModuleTable const * one : Kiv::modules() )
      module = one->name == name ? one : module;
   ASSERT_NE( module, nullptr ) << name;
   EXPECT_EQ( module->id, number );
   // What was added since stands behind the told places.
   ASSERT_GE( module->count, expectedTypes.size() );
   for( U16 index = 0; index < expectedTypes.size(); ++index ) {
      ExpectedType const & expected = expectedTypes[index];
      SCOPED_TRACE( expected.name );
      ASSERT_EQ( expected.index, index );
      Kiv::TypeRef const type( module->types + index );
      EXPECT_EQ( type.id(), ( Kiv::TypeId{ number, index } ) );
      ASSERT_NE( type.kind(), Kiv::Kind::absent );
      EXPECT_EQ( type.name(), "LspPing::" + std::string( expected.name ) );
      EXPECT_EQ( kindText( type.kind() ), expected.kind );
      EXPECT_EQ( type.base() ? shortName( type.base().id() ) : "", expected.base );
      EXPECT_EQ( attributesText( type ), expectedAttributes( expected ) );
      if( expected.size != 0 ) {
         EXPECT_EQ( type.record().size, expected.size );
         EXPECT_EQ( type.record().alignment, 1u );
      }
   }
}

TEST( Registry, holdsEveryTypeAtItsPlaceWithItsAttributes ) {
   expectModule( "LspPingHdr", 16, expectedHdrTypes );
   expectModule( "LspPingTypes", 17, expectedTypesTypes );
}

// Own ids begin at 2 where nothing is above, at 130 behind a base at every level, in nodes and in
// the constants.
TEST( Registry, countsOwnIdsFromTwoOrFromOneHundredAndThirty ) {
   for( auto const & [expectedTypes, number] :
        { std::pair{ expectedHdrTypes, U16{ 16 } }, std::pair{ expectedTypesTypes, U16{ 17 } } } ) {
      for( ExpectedType const & expected : expectedTypes ) {
         Kiv::TypeRef const type( Kiv::TypeId{ number, expected.index } );
         bool const high =
            !expected.base.empty() || expected.kind == "object" || expected.kind == "constant";
         U16 id = high ? 130 : 2;
         for( Kiv::Attribute const & attribute : type.attributes() )
            EXPECT_EQ( attribute.id, id++ ) << expected.name << "." << attribute.name();
      }
   }
}

TEST( Registry, findsEveryTypeByItsName ) {
   for( Kiv::ModuleTable const * module : Kiv::modules() ) {
      for( U16 index = 0; index < module->count; ++index ) {
         Kiv::TypeRef const type( module->types + index );
         // Another module may keep a place for a class to come.
         if( type.kind() == Kiv::Kind::absent )
            continue;
         EXPECT_EQ( Kiv::typeNamed( type.name() ), type ) << type.name();
         EXPECT_EQ( Kiv::TypeRef( type.id() ), type ) << type.name();
      }
   }
}

TEST( Registry, knowsNoOtherNames ) {
   for( std::string_view const name :
        { "", "LspPingHdr", "LspPing::", "LspPing::LspPingHdr ", "LspPing::lspPingHdr",
          "LspPing::LspPingHd", "Kiv::U8", "LspPing::LspPingFecStack::KivFecInfo" } )
      EXPECT_EQ( Kiv::typeNamed( name ).kind(), Kiv::Kind::absent ) << name;
}

TEST( Registry, hasNothingBehindTheLastPlaceOrInOtherModules ) {
   EXPECT_FALSE( Kiv::TypeRef( Kiv::TypeId{ 16, LspPing::LspPingHdrTypes::size } ) );
   EXPECT_FALSE( Kiv::TypeRef( Kiv::TypeId{ 17, LspPing::LspPingTypesTypes::size } ) );
   EXPECT_FALSE( Kiv::TypeRef( Kiv::TypeId{ 18, 0 } ) );
   EXPECT_FALSE( Kiv::TypeRef( Kiv::TypeId{ 63, 0 } ) );
   EXPECT_FALSE( Kiv::TypeRef( Kiv::TypeId{ 64, 0 } ) );
   EXPECT_FALSE( Kiv::TypeRef( Kiv::TypeId{} ) );
}

TEST( Registry, givesModulesInTheOrderOfTheirNumbers ) {
   std::vector< U16 > numbers;
   for( Kiv::ModuleTable const * module : Kiv::modules() )
      numbers.push_back( module->id );
   EXPECT_TRUE( std::is_sorted( numbers.begin(), numbers.end() ) );
   EXPECT_EQ( std::set( numbers.begin(), numbers.end() ).size(), numbers.size() );
}

TEST( Registry, knowsTypesAtCompileTimeByTheSameIds ) {
   static_assert( Kiv::typeIdOf< LspPing::LspPingHdr > == Kiv::TypeId{ 16, 2 } );
   static_assert( Kiv::typeIdOf< LspPing::LspPingHdrParser > == Kiv::TypeId{ 16, 65 } );
   static_assert( Kiv::typeIdOf< LspPing::LspPingConstant > == Kiv::TypeId{ 17, 3 } );
   EXPECT_EQ( Kiv::typeOf< LspPing::LspPingHdr >(), Kiv::typeNamed( "LspPing::LspPingHdr" ) );
   EXPECT_EQ( Kiv::typeOf< LspPing::LspPingHdr >().record().tracker,
              &LspPing::LspPingHdr::memAllocationTracker_ );
}

TEST( RegistryDeathTest, takesEachModuleNumberOnce ) {
   static constexpr Kiv::ModuleTable again{ "Again", nullptr, nullptr, 16, 0, 0 };
   EXPECT_DEATH( Kiv::kivModuleIs( again ), "assertion \"modulesByNumber\\[module.id\\]" );
}

} // namespace
