#include "MplsUtils/LspPing/platform/Velnet/MplsLabelStack.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/Velnet/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

using Velnet::MplsLabelEntry;
using Velnet::MplsLabelStack;

// Label 0x12345, traffic class 5, bottom of stack, TTL 0x40.
constexpr MplsLabelEntry entry{ 0x12345B40 };
static_assert( entry.label() == 0x12345 );
static_assert( entry.trafficClass() == 5 );
static_assert( entry.bottomOfStack() );
static_assert( entry.ttl() == 0x40 );
static_assert( MplsLabelEntry{}.word() == 0 );
static_assert( MplsLabelEntry{ 1 } != MplsLabelEntry{} );

TEST( MplsLabelEntry, liesInNetworkOrder ) {
   U8 const bytes[4] = { 0x12, 0x34, 0x5b, 0x40 };
   MplsLabelEntry read;
   std::memcpy( &read, bytes, sizeof bytes );
   EXPECT_EQ( read, entry );
   EXPECT_EQ( read.word(), 0x12345B40u );
}

TEST( MplsLabelEntry, setsEachFieldAndNothingElse ) {
   for( U32 const word : { 0x00000000u, 0xFFFFFFFFu, 0xA5A5A5A5u } ) {
      MplsLabelEntry set{ word };
      set.labelIs( 0x12345 );
      EXPECT_EQ( set.word(), ( word & 0x00000FFF ) | 0x12345000 );
      set.wordIs( word );
      set.trafficClassIs( 5 );
      EXPECT_EQ( set.word(), ( word & 0xFFFFF1FF ) | 0x00000A00 );
      set.wordIs( word );
      set.bottomOfStackIs( true );
      EXPECT_EQ( set.word(), word | 0x00000100 );
      set.bottomOfStackIs( false );
      EXPECT_EQ( set.word(), word & 0xFFFFFEFF );
      set.wordIs( word );
      set.ttlIs( 0x40 );
      EXPECT_EQ( set.word(), ( word & 0xFFFFFF00 ) | 0x00000040 );
   }
}

TEST( MplsLabelEntryDeathTest, takesOnlyWhatItsFieldsHold ) {
   MplsLabelEntry set;
   EXPECT_DEATH( set.labelIs( 0x100000 ), "assertion \"label <= 0xFFFFF\" failed" );
   EXPECT_DEATH( set.trafficClassIs( 8 ), "assertion \"trafficClass <= 7\" failed" );
}

TEST( MplsLabelEntry, printsLabelTrafficClassBottomAndTtl ) {
   EXPECT_EQ( MplsLabelEntry{}.stringValue(), "0/0/0/0" );
   EXPECT_EQ( MplsLabelEntry{ 0x000101FF }.stringValue(), "16/0/1/255" );
   EXPECT_EQ( MplsLabelEntry{ 0xFFFFFFFF }.stringValue(), "1048575/7/1/255" );
   EXPECT_EQ( Kiv::_fmt( "%s", entry ), "74565/5/1/64" );
}

TEST( MplsLabelEntry, readsBackWhatItPrints ) {
   std::mt19937 random{ 14 };
   for( int round = 0; round < 50'000; ++round ) {
      MplsLabelEntry const any{ static_cast< U32 >( random() ) };
      MplsLabelEntry read;
      Orlo::String const printed = any.stringValue() + "}";
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, any );
      ASSERT_EQ( text.rest(), "}" );
   }
}

TEST( MplsLabelEntry, staysAsItWasWhenTheTextIsNoEntry ) {
   for( std::string_view const wrong :
        { "", "16", "16/0", "16/0/1", "16/0/1/", "/0/1/255", "1048576/0/1/255", "16/8/1/255",
          "16/0/2/255", "16/0/1/256", "16//1/255", "16,0,1,255", "16/0/1/2x", "-1/0/1/255",
          "none" } ) {
      Kiv::CharRange text{ wrong };
      MplsLabelEntry read{ 0xA5A5A5A5 };
      EXPECT_THROW( sequenceToValue( text, &read ), Kiv::RangeException ) << wrong;
      EXPECT_EQ( read, MplsLabelEntry{ 0xA5A5A5A5 } ) << wrong;
   }
   try {
      Kiv::CharRange text{ "16/ 8/1/255" };
      MplsLabelEntry read;
      sequenceToValue( text, &read );
      FAIL() << "the entry was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(),
                    "expected a number of up to 7 at offset 4, found \"8/1/255\"" );
   }
}

TEST( MplsLabelEntry, hasADefaultThatIsSharedAndCanBeSet ) {
   U32 const before = MplsLabelEntry::defaultEntry().word();
   MplsLabelEntry const & shared = MplsLabelEntry::defaultEntry();
   MplsLabelEntry::defaultEntryIs( 0x12345B40 );
   EXPECT_EQ( shared, entry );
   EXPECT_EQ( MplsLabelStack{}.entry( 0 ), entry );
   MplsLabelEntry::defaultEntryIs( before );
   EXPECT_EQ( shared.word(), before );
}

TEST( MplsLabelStack, holdsItsEntriesFromTheTopDown ) {
   MplsLabelStack stack;
   EXPECT_TRUE( stack.empty() );
   stack.entryAdd( MplsLabelEntry{ 0x000100FF } );
   stack.entryAdd( entry );
   EXPECT_EQ( stack.size(), 2u );
   EXPECT_EQ( stack.entry( 0 ), MplsLabelEntry{ 0x000100FF } );
   EXPECT_EQ( stack.entry( 1 ), entry );
   EXPECT_EQ( stack.entry( 2 ), MplsLabelEntry::defaultEntry() );
   EXPECT_EQ( stack, ( MplsLabelStack{ MplsLabelEntry{ 0x000100FF }, entry } ) );
   EXPECT_NE( stack, ( MplsLabelStack{ entry, MplsLabelEntry{ 0x000100FF } } ) );
   EXPECT_NE( stack, MplsLabelStack{ MplsLabelEntry{ 0x000100FF } } );
   MplsLabelStack const copy = stack;
   stack.entryDelAll();
   EXPECT_EQ( stack, MplsLabelStack{} );
   EXPECT_EQ( copy.size(), 2u );
}

TEST( MplsLabelStack, printsItsEntriesInBraces ) {
   EXPECT_EQ( MplsLabelStack{}.stringValue(), "{}" );
   MplsLabelStack const stack{ MplsLabelEntry{ 0x000100FF }, MplsLabelEntry{ 0x00011140 } };
   EXPECT_EQ( stack.stringValue(), "{16/0/0/255, 17/0/1/64}" );
   EXPECT_EQ( Kiv::_fmt( "%s", MplsLabelStack{ entry } ), "{74565/5/1/64}" );
}

TEST( MplsLabelStack, readsBackWhatItPrints ) {
   std::mt19937 random{ 15 };
   for( int round = 0; round < 5'000; ++round ) {
      MplsLabelStack stack;
      for( auto count = random() % 20; count > 0; --count )
         stack.entryAdd( MplsLabelEntry{ static_cast< U32 >( random() ) } );
      MplsLabelStack read{ entry };
      Orlo::String const printed = stack.stringValue() + ")";
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, stack );
      ASSERT_EQ( text.rest(), ")" );
   }
}

TEST( MplsLabelStack, isReadWithBlanksAroundItsPunctuation ) {
   Kiv::CharRange text{ " { 16/0/0/255 ,17/0/1/64 } " };
   MplsLabelStack read;
   sequenceToValue( text, &read );
   EXPECT_EQ( read.stringValue(), "{16/0/0/255, 17/0/1/64}" );
   EXPECT_TRUE( text.atEnd() );
}

TEST( MplsLabelStack, staysAsItWasWhenTheTextIsNoStack ) {
   for( std::string_view const wrong :
        { "", "{", "}", "16/0/1/255", "{,}", "{16/0/1/255", "{16/0/1/255,}", "{16/0/1/255,,}",
          "{16/0/1/255 17/0/1/64}", "{16/0/1/255/1}", "(16/0/1/255)", "{none}", "none" } ) {
      Kiv::CharRange text{ wrong };
      MplsLabelStack stack{ entry };
      EXPECT_THROW( sequenceToValue( text, &stack ), Kiv::RangeException ) << wrong;
      EXPECT_EQ( stack, MplsLabelStack{ entry } ) << wrong;
   }
}

TEST( MplsLabelStack, isKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Velnet::MplsLabelStack" );
   ASSERT_EQ( type, Kiv::typeOf< MplsLabelStack >() );
   MplsLabelStack stack;
   KivOrlo::strepToValue( "{16/0/1/255}", type, &stack );
   EXPECT_EQ( stack, MplsLabelStack{ MplsLabelEntry{ 0x000101FF } } );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &stack ), "{16/0/1/255}" );

   Kiv::TypeRef const entryType = Kiv::typeNamed( "Velnet::MplsLabelEntry" );
   ASSERT_EQ( entryType, Kiv::typeOf< MplsLabelEntry >() );
   EXPECT_EQ( KivOrlo::valueToStrep( entryType, &entry ), "74565/5/1/64" );
}

} // namespace
