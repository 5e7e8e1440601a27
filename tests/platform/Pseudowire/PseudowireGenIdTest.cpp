#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireGenId.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/Pseudowire/ModuleTypes.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <random>

namespace {

using Pseudowire::PseudowireAttachmentIdentifier;
using Pseudowire::PseudowireAttachmentIdentifierIndex;
using Pseudowire::PseudowireGenId;

constexpr PseudowireAttachmentIdentifier identifier( U8 type, std::initializer_list< U8 > bytes ) {
   PseudowireAttachmentIdentifier id{ type, static_cast< U8 >( bytes.size() ) };
   U32 index = 0;
   for( U8 const byte : bytes )
      id.valueIs( index++, byte );
   return id;
}

constexpr char const * rangeText =
   "Pseudowire::PseudowireAttachmentIdentifierIndex::value < "
   "Pseudowire::PseudowireAttachmentIdentifierIndex::min or > "
   "Pseudowire::PseudowireAttachmentIdentifierIndex::max not allowed";

static_assert( PseudowireAttachmentIdentifierIndex{}.value() == 0 );
static_assert( PseudowireAttachmentIdentifierIndex{ 7 }.value() == 7 );
static_assert( PseudowireAttachmentIdentifierIndex{ 6 } <
               PseudowireAttachmentIdentifierIndex{ 7 } );

TEST( PseudowireAttachmentIdentifierIndex, goesFromZeroToSeven ) {
   for( U32 const wrong : { 8u, 9u, 255u, 256u, 0xFFFFFFFFu } ) {
      try {
         PseudowireAttachmentIdentifierIndex const index{ wrong };
         FAIL() << "the index was taken";
      } catch( Kiv::RangeException const & exception ) {
         EXPECT_STREQ( exception.what(), rangeText );
      }
   }
   PseudowireAttachmentIdentifier id;
   EXPECT_THROW( id.valueIs( 8, 1 ), Kiv::RangeException );
   EXPECT_THROW( static_cast< void >( id.value( 8 ) ), Kiv::RangeException );
}

TEST( PseudowireAttachmentIdentifierIndex, isReadAndPrintedInDecimal ) {
   for( U32 value = 0; value < 20; ++value ) {
      Orlo::String const printed = std::to_string( value );
      Kiv::CharRange text{ printed };
      PseudowireAttachmentIdentifierIndex index{ 5 };
      if( value <= 7 ) {
         sequenceToValue( text, &index );
         EXPECT_EQ( index.value(), value );
         EXPECT_EQ( Kiv::_fmt( "%s", index ), printed );
      } else {
         EXPECT_THROW( sequenceToValue( text, &index ), Kiv::RangeException );
         EXPECT_EQ( index.value(), 5 );
      }
   }
}

static_assert( PseudowireAttachmentIdentifier{} == PseudowireAttachmentIdentifier{ 0, 0 } );
static_assert( identifier( 1, { 10, 0, 0, 1 } ).value( 0 ) == 10 );
static_assert( identifier( 1, { 10, 0, 0, 1 } ).length() == 4 );
static_assert( identifier( 1, { 1 } ) != identifier( 2, { 1 } ) );
static_assert( identifier( 1, { 1 } ) != identifier( 1, { 1, 0 } ) );
static_assert( identifier( 1, { 1, 2 } ) != identifier( 1, { 1, 3 } ) );

TEST( PseudowireAttachmentIdentifier, comparesOnlyTheBytesThatItsLengthCovers ) {
   for( unsigned length = 0; length < 256; ++length ) {
      for( U32 place = 0; place < 8; ++place ) {
         PseudowireAttachmentIdentifier const id{ 1, static_cast< U8 >( length ) };
         PseudowireAttachmentIdentifier other = id;
         other.valueIs( place, 0xA5 );
         ASSERT_EQ( id == other, place >= length );
      }
   }
}

TEST( PseudowireAttachmentIdentifier, printsTypeAndValue ) {
   EXPECT_EQ( PseudowireAttachmentIdentifier{}.stringValue(), "0:" );
   EXPECT_EQ( identifier( 1, { 10, 0, 0, 1 } ).stringValue(), "1:0a000001" );
   EXPECT_EQ( identifier( 255, { 0, 1, 2, 3, 0xFC, 0xFD, 0xFE, 0xFF } ).stringValue(),
              "255:00010203fcfdfeff" );
   PseudowireAttachmentIdentifier overlong = identifier( 1, { 1, 2, 3, 4, 5, 6, 7, 8 } );
   overlong.lengthIs( 9 );
   EXPECT_EQ( overlong.stringValue(), "1:0102030405060708+1" );
   overlong.lengthIs( 255 );
   EXPECT_EQ( overlong.stringValue(), "1:0102030405060708+247" );
}

PseudowireAttachmentIdentifier randomIdentifier( std::mt19937 & random, unsigned lengths ) {
   PseudowireAttachmentIdentifier id{ static_cast< U8 >( random() ),
                                      static_cast< U8 >( random() % lengths ) };
   for( U32 index = 0; index < 8; ++index )
      id.valueIs( index, static_cast< U8 >( random() ) );
   return id;
}

TEST( PseudowireAttachmentIdentifier, readsBackWhatItPrints ) {
   std::mt19937 random{ 16 };
   for( int round = 0; round < 20'000; ++round ) {
      PseudowireAttachmentIdentifier const id = randomIdentifier( random, round % 2 ? 9 : 256 );
      PseudowireAttachmentIdentifier read{ 3, 3 };
      Orlo::String const printed = id.stringValue() + ", x";
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, id ) << printed;
      ASSERT_EQ( text.rest(), ", x" );
   }
}

TEST( PseudowireAttachmentIdentifier, staysAsItWasWhenTheTextIsNone ) {
   for( std::string_view const wrong : { "",
                                         ":",
                                         "1",
                                         "256:",
                                         "1000:",
                                         "-1:",
                                         ":00",
                                         "1:0",
                                         "1:000",
                                         "1:0g",
                                         "1:g0",
                                         "1:-1",
                                         "1:00:",
                                         "1:00+1",
                                         "1:+1",
                                         "1:001122334455667788",
                                         "1:0011223344556677+",
                                         "1:0011223344556677+0",
                                         "1:0011223344556677+248",
                                         "1:0011223344556677+1000",
                                         "1:0011223344556677-1",
                                         "1:0011223344556677+1x",
                                         "a:00",
                                         "none" } ) {
      Kiv::CharRange text{ wrong };
      PseudowireAttachmentIdentifier id = identifier( 1, { 10, 0, 0, 1 } );
      EXPECT_THROW( sequenceToValue( text, &id ), Kiv::RangeException ) << wrong;
      EXPECT_EQ( id, identifier( 1, { 10, 0, 0, 1 } ) ) << wrong;
   }
}

constexpr PseudowireGenId genId{ identifier( 1, { 0, 0, 0, 100 } ),
                                 identifier( 2, { 10, 0, 0, 1 } ),
                                 identifier( 2, { 10, 0, 0, 2 } ) };

static_assert( PseudowireGenId::isEq( PseudowireGenId{}, PseudowireGenId{} ) );
static_assert( !PseudowireGenId::isEq( genId, PseudowireGenId{} ) );
static_assert( genId == genId );
static_assert( genId.agi() == identifier( 1, { 0, 0, 0, 100 } ) );

TEST( PseudowireGenId, differsWhenAnyIdentifierDoes ) {
   PseudowireGenId other = genId;
   other.agiIs( {} );
   EXPECT_FALSE( PseudowireGenId::isEq( genId, other ) );
   other = genId;
   other.saiiIs( {} );
   EXPECT_FALSE( PseudowireGenId::isEq( genId, other ) );
   other = genId;
   other.taiiIs( {} );
   EXPECT_FALSE( PseudowireGenId::isEq( genId, other ) );
   other.taiiIs( genId.taii() );
   EXPECT_TRUE( PseudowireGenId::isEq( genId, other ) );
}

TEST( PseudowireGenId, printsItsIdentifiersByName ) {
   EXPECT_EQ( PseudowireGenId{}.stringValue(), "agi 0: saii 0: taii 0:" );
   EXPECT_EQ( genId.stringValue(), "agi 1:00000064 saii 2:0a000001 taii 2:0a000002" );
}

TEST( PseudowireGenId, readsBackWhatItPrints ) {
   std::mt19937 random{ 17 };
   for( int round = 0; round < 20'000; ++round ) {
      unsigned const lengths = round % 2 ? 9 : 256;
      PseudowireGenId const id{ randomIdentifier( random, lengths ),
                                randomIdentifier( random, lengths ),
                                randomIdentifier( random, lengths ) };
      PseudowireGenId read{ genId };
      Orlo::String const printed = id.stringValue() + ", x";
      Kiv::CharRange text{ printed };
      sequenceToValue( text, &read );
      ASSERT_EQ( read, id ) << printed;
      ASSERT_EQ( text.rest(), ", x" );
   }
}

TEST( PseudowireGenId, staysAsItWasWhenTheTextIsNone ) {
   for( std::string_view const wrong :
        { "", "agi", "agi 0:", "agi 0: saii 0:", "agi 0: saii 0: taii", "agi 0: saii 0: taii 0",
          "saii 0: agi 0: taii 0:", "agi 0:, saii 0:, taii 0:", "agi 0:saii 0: taii 0:",
          "agi 0: 00 saii 0: taii 0:", "0: 0: 0:", "none" } ) {
      Kiv::CharRange text{ wrong };
      PseudowireGenId id{ genId };
      EXPECT_THROW( sequenceToValue( text, &id ), Kiv::RangeException ) << wrong;
      EXPECT_EQ( id, genId ) << wrong;
   }
   try {
      Kiv::CharRange text{ "agi 0: said 0: taii 0:" };
      PseudowireGenId id;
      sequenceToValue( text, &id );
      FAIL() << "the id was taken";
   } catch( Kiv::RangeException const & exception ) {
      EXPECT_STREQ( exception.what(), "expected \"saii\" at offset 7, found \"said 0: taii 0:\"" );
   }
}

TEST( PseudowireGenId, isKnownToTheTypeSystem ) {
   Kiv::TypeRef const type = Kiv::typeNamed( "Pseudowire::PseudowireGenId" );
   ASSERT_EQ( type, Kiv::typeOf< PseudowireGenId >() );
   PseudowireGenId id;
   KivOrlo::strepToValue( "agi 1:00000064 saii 2:0a000001 taii 2:0a000002", type, &id );
   EXPECT_EQ( id, genId );
   EXPECT_EQ( KivOrlo::valueToStrep( type, &id ), genId.stringValue() );
   EXPECT_EQ( Kiv::typeNamed( "Pseudowire::PseudowireAttachmentIdentifier" ),
              Kiv::typeOf< PseudowireAttachmentIdentifier >() );
   EXPECT_EQ( Kiv::typeNamed( "Pseudowire::PseudowireAttachmentIdentifierIndex" ),
              Kiv::typeOf< PseudowireAttachmentIdentifierIndex >() );
}

} // namespace
