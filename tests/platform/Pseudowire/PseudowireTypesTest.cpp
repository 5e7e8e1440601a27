#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireTypes.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/Pseudowire/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

namespace {

using Pseudowire::PseudowireType;
using Pseudowire::PwPingCcType;

TEST( PseudowireType, hasTheNamesOfTheRegistryAndElseNumbers ) {
   EXPECT_EQ( stringValue( PseudowireType{} ), "0" );
   EXPECT_EQ( stringValue( PseudowireType{ 4 } ), "ethernetTagged" );
   EXPECT_EQ( stringValue( PseudowireType{ 5 } ), "ethernet" );
   EXPECT_EQ( Pseudowire::PseudowireTypeInstance( 65535 ), PseudowireType{ 65535 } );
   EXPECT_THROW( Pseudowire::PseudowireTypeInstance( 65536 ), Kiv::RangeException );
}

TEST( PseudowireType, readsBackEveryValue ) {
   for( U32 number = 0; number <= 0xFFFF; ++number ) {
      PseudowireType const value{ static_cast< U16 >( number ) };
      PseudowireType read{ 1 };
      Orlo::String const printed = stringValue( value );
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, value );
   }
}

TEST( PwPingCcType, hasTheNamesOfTheControlChannels ) {
   EXPECT_EQ( stringValue( PwPingCcType{} ), "none" );
   EXPECT_EQ( stringValue( PwPingCcType{ 1 } ), "controlWord" );
   EXPECT_EQ( stringValue( PwPingCcType{ 2 } ), "routerAlert" );
   EXPECT_EQ( stringValue( PwPingCcType{ 3 } ), "3" );
   EXPECT_EQ( stringValue( PwPingCcType{ 4 } ), "ttlExpiry" );
   EXPECT_EQ( stringValue( PwPingCcType{ 0xFFFFFFFF } ), "4294967295" );
   EXPECT_EQ( Pseudowire::PwPingCcTypeInstance( "routerAlert" ), PwPingCcType::routerAlert );
}

TEST( PseudowireTypes, areKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Pseudowire::PseudowireType" );
   ASSERT_EQ( type, Kiv::typeOf< PseudowireType >() );
   EXPECT_EQ( type.record().size, 2u );
   Kiv::TypeRef const ccType = Kiv::typeNamed( "Pseudowire::PwPingCcType" );
   ASSERT_EQ( ccType, Kiv::typeOf< PwPingCcType >() );
   EXPECT_EQ( ccType.record().size, 4u );
}

} // namespace
