#include "tests/fec/FecTesting.h"

#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <concepts>
#include <cstring>
#include <sstream>
#include <type_traits>
#include <unordered_set>

namespace {

using namespace LspPing;
using namespace FecTesting;

constexpr char const * zeros = "00000000 00000000";

// The label word of a FEC, from its four bytes.
template < class Word >
Word wordOf( std::string_view hex ) {
   Bytes const bytes = bytesOf( hex );
   EXPECT_EQ( bytes.size(), sizeof( Word ) );
   Word word;
   std::memcpy( &word, bytes.data(), sizeof word );
   return word;
}

template < class Word >
std::string hexOfWord( Word const & word ) {
   return hexOf( { reinterpret_cast< U8 const * >( &word ), sizeof word }, 4 );
}

// The bytes of a word after one setter's call.
template < class Word >
std::string hexAfterSetting( std::string_view hex, void ( Word::*setter )( U32 ), U32 value ) {
   auto word = wordOf< Word >( hex );
   ( word.*setter )( value );
   return hexOfWord( word );
}

template < class Word >
class LabelWord : public testing::Test {};

struct LabelWordNames {
   template < class Word >
   static std::string GetName( int ) {
      return std::is_same_v< Word, LspPingNilFecSubTlvLabel > ? "NilFec" : "EntropyLabelFec";
   }
};
using LabelWords = testing::Types< LspPingNilFecSubTlvLabel, LspPingEntropyLabelFecSubTlvLabel >;
TYPED_TEST_SUITE( LabelWord, LabelWords, LabelWordNames );

TYPED_TEST( LabelWord, isFourBytesOfNoAlignmentAndNoView ) {
   static_assert( sizeof( TypeParam ) == 4 && alignof( TypeParam ) == 1 );
   static_assert( std::is_trivially_copyable_v< TypeParam > );
   static_assert( !std::is_base_of_v< Kiv::NrcPtrInterface, TypeParam > );
   EXPECT_EQ( Kiv::typeOf< TypeParam >().kind(), Kiv::Kind::value );
   EXPECT_EQ( hexOfWord( TypeParam() ), "00000000" );
}

TYPED_TEST( LabelWord, readsLabelAndMustBeZeroBits ) {
   auto const word = wordOf< TypeParam >( "abcde123" );
   EXPECT_EQ( word.labelNbo(), 0xabcdeu );
   EXPECT_EQ( word.mbz(), 0x123u );
}

TYPED_TEST( LabelWord, keepsTheOtherBitsWhenTheLabelIsSet ) {
   auto const labelIs = &TypeParam::labelNboIs;
   EXPECT_EQ( hexAfterSetting( "a5a5a5a5", labelIs, 3 ), "000035a5" );
   EXPECT_EQ( hexAfterSetting( "a5a5a5a5", labelIs, 0xfffff ), "fffff5a5" );
   EXPECT_EQ( hexAfterSetting( "000035a5", labelIs, 0xfffff ), "fffff5a5" );
   EXPECT_EQ( hexAfterSetting( "ffffffff", labelIs, 0 ), "00000fff" );
}

TYPED_TEST( LabelWord, dropsLabelBitsAboveTheTwentieth ) {
   auto const labelIs = &TypeParam::labelNboIs;
   EXPECT_EQ( hexAfterSetting( "a5a5a5a5", labelIs, 0x100005 ), "000055a5" );
   EXPECT_EQ( hexAfterSetting( "000055a5", labelIs, 0xfff00000 ), "000005a5" );
}

TYPED_TEST( LabelWord, keepsTheLabelWhenMustBeZeroBitsAreSet ) {
   auto const mbzIs = &TypeParam::mbzIs;
   EXPECT_EQ( hexAfterSetting( "a5a5a5a5", mbzIs, 0x1234 ), "a5a5a234" );
   EXPECT_EQ( hexAfterSetting( "a5a5a234", mbzIs, 0xffffffff ), "a5a5afff" );
   EXPECT_EQ( hexAfterSetting( "a5a5afff", mbzIs, 0 ), "a5a5a000" );
   EXPECT_EQ( hexAfterSetting( "ffffffff", mbzIs, 0 ), "fffff000" );
}

TYPED_TEST( LabelWord, isWrittenByName ) {
   auto word = wordOf< TypeParam >( "a5a5a5a5" );
   Kiv::write( word, "labelNbo", U32{ 0x100005 } );
   EXPECT_EQ( hexOfWord( word ), "000055a5" );
   EXPECT_EQ( Kiv::read< U32 >( word, "labelNbo" ), 5u );
   Kiv::write( word, "mbz", U32{ 0x1234 } );
   EXPECT_EQ( hexOfWord( word ), "00005234" );
   EXPECT_EQ( Kiv::read< U32 >( word, "mbz" ), 0x234u );
}

TYPED_TEST( LabelWord, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< TypeParam >(), ( Lines{ "2 labelNbo U32 rw", "3 mbz U32 rw" } ) );
   EXPECT_FALSE( Kiv::typeOf< TypeParam >().base() );
}

TYPED_TEST( LabelWord, isSetWhenTheWordIsNotZero ) {
   EXPECT_FALSE( TypeParam() );
   EXPECT_TRUE( wordOf< TypeParam >( "00001000" ) );
   EXPECT_TRUE( wordOf< TypeParam >( "00000001" ) );
   EXPECT_TRUE( wordOf< TypeParam >( "80000000" ) );
   auto const isSet = Kiv::typeOf< TypeParam >().operations().isSet;
   auto const one = wordOf< TypeParam >( "00000001" );
   auto const none = TypeParam();
   EXPECT_TRUE( isSet( &one ) );
   EXPECT_FALSE( isSet( &none ) );
}

TYPED_TEST( LabelWord, isComparedByItsWord ) {
   EXPECT_EQ( wordOf< TypeParam >( "00003fff" ), wordOf< TypeParam >( "00003fff" ) );
   EXPECT_NE( wordOf< TypeParam >( "00003fff" ), wordOf< TypeParam >( "00003ffe" ) );
   EXPECT_NE( wordOf< TypeParam >( "00003fff" ), wordOf< TypeParam >( "00004fff" ) );
   auto const equal = Kiv::typeOf< TypeParam >().operations().equal;
   auto const a = wordOf< TypeParam >( "00003fff" );
   auto const b = wordOf< TypeParam >( "00003ffe" );
   EXPECT_TRUE( equal( &a, &a ) );
   EXPECT_FALSE( equal( &a, &b ) );
}

TYPED_TEST( LabelWord, isOrderedByItsWordInHostOrder ) {
   EXPECT_LT( wordOf< TypeParam >( "000000ff" ), wordOf< TypeParam >( "00000100" ) );
   EXPECT_LT( wordOf< TypeParam >( "00002fff" ), wordOf< TypeParam >( "00003000" ) );
   EXPECT_GT( wordOf< TypeParam >( "ff000000" ), wordOf< TypeParam >( "00ffffff" ) );
   EXPECT_LE( wordOf< TypeParam >( "00003fff" ), wordOf< TypeParam >( "00003fff" ) );
}

TYPED_TEST( LabelWord, hashesItsWord ) {
   Kiv::TypeRef const type = Kiv::typeOf< TypeParam >();
   ASSERT_TRUE( type.hashable() );
   auto const word = wordOf< TypeParam >( "abcde123" );
   auto const same = wordOf< TypeParam >( "abcde123" );
   EXPECT_EQ( Kiv::hashOf( type, &word ), Velnet::NetU32( 0xabcde123 ).hash() );
   EXPECT_EQ( Kiv::hashOf( type, &word ), Kiv::hashOf( type, &same ) );
   std::unordered_set< U64 > hashes;
   for( unsigned bit = 0; bit < 32; ++bit ) {
      TypeParam one;
      if( bit < 12 )
         one.mbzIs( 1u << bit );
      else
         one.labelNboIs( 1u << ( bit - 12 ) );
      hashes.insert( Kiv::hashOf( type, &one ) );
   }
   EXPECT_EQ( hashes.size(), 32u ) << "no bit of the word is left out";
}

// The generic text with the two attributes.
template < class Word >
std::string textWith( std::string_view attributes ) {
   return std::string( Kiv::typeOf< Word >().name() ).append( attributes );
}

TYPED_TEST( LabelWord, printsAndReadsBack ) {
   for( auto const & [hex, attributes] :
        { std::pair{ "00000000", "(labelNbo=0, mbz=0)" },
          std::pair{ "00003fff", "(labelNbo=3, mbz=4095)" },
          std::pair{ "fffff000", "(labelNbo=1048575, mbz=0)" },
          std::pair{ "abcde123", "(labelNbo=703710, mbz=291)" } } ) {
      auto const word = wordOf< TypeParam >( hex );
      std::ostringstream out;
      out << word;
      EXPECT_EQ( out.str(), textWith< TypeParam >( attributes ) );
      EXPECT_EQ( KivOrlo::valueToStrep( Kiv::typeOf< TypeParam >(), &word ), out.str() );

      std::string const text = out.str();
      Kiv::CharRange in( text );
      EXPECT_EQ( hexOfWord( TypeParam( in ) ), hex );
      EXPECT_TRUE( in.atEnd() );
      auto read = wordOf< TypeParam >( "a5a5a5a5" );
      KivOrlo::strepToValue( text, Kiv::typeOf< TypeParam >(), &read );
      EXPECT_EQ( read, word );
   }
}

TYPED_TEST( LabelWord, readsWithTheRulesOfItsSetters ) {
   auto word = wordOf< TypeParam >( "a5a5a5a5" );
   KivOrlo::strepToValue( textWith< TypeParam >( " ( labelNbo = 1048581 , mbz = 4660 ) " ),
                          Kiv::typeOf< TypeParam >(), &word );
   EXPECT_EQ( hexOfWord( word ), "00005234" );
}

TYPED_TEST( LabelWord, namesTheAttributeThatTextGetsWrong ) {
   for( auto const & [attributes, subject] :
        { std::pair{ "(labelNbo=x, mbz=0)", "labelNbo" },
          std::pair{ "(labelNbo=4294967296, mbz=0)", "labelNbo" },
          std::pair{ "(labelNbo=-1, mbz=0)", "labelNbo" },
          std::pair{ "(mbz=0, labelNbo=1)", "labelNbo" }, std::pair{ "(labelNbo=1)", "mbz" },
          std::pair{ "(labelNbo=1, mbz=)", "mbz" } } ) {
      auto word = wordOf< TypeParam >( "a5a5a5a5" );
      std::string const text = textWith< TypeParam >( attributes );
      try {
         KivOrlo::strepToValue( text, Kiv::typeOf< TypeParam >(), &word );
         ADD_FAILURE() << text;
      } catch( Kiv::RangeException const & e ) {
         EXPECT_EQ( e.subject(), subject ) << text;
      }
      EXPECT_EQ( hexOfWord( word ), "a5a5a5a5" ) << text;
   }
}

TEST( LabelWords, areTwoTypesThatDoNotCompare ) {
   constexpr bool comparable = []< class A, class B >( Kiv::Of< A >, Kiv::Of< B > ) {
      return requires( A const & a, B const & b ) {
         a == b;
      }
      || requires( A const & a, B const & b ) {
         a < b;
      };
   }( Kiv::Of< LspPingNilFecSubTlvLabel >{}, Kiv::Of< LspPingEntropyLabelFecSubTlvLabel >{} );
   static_assert( !comparable );
   EXPECT_EQ( textWith< LspPingNilFecSubTlvLabel >( "" ), "LspPing::LspPingNilFecSubTlvLabel" );
   EXPECT_EQ( textWith< LspPingEntropyLabelFecSubTlvLabel >( "" ),
              "LspPing::LspPingEntropyLabelFecSubTlvLabel" );
   auto nil = wordOf< LspPingNilFecSubTlvLabel >( "a5a5a5a5" );
   EXPECT_THROW(
      KivOrlo::strepToValue( "LspPing::LspPingEntropyLabelFecSubTlvLabel(labelNbo=3, mbz=0)",
                             Kiv::typeOf< LspPingNilFecSubTlvLabel >(), &nil ),
      Kiv::RangeException );
   EXPECT_EQ( hexOfWord( nil ), "a5a5a5a5" );
}

// What the two views have in common.
template < class View >
void expectFieldsInPlace() {
   using Word = decltype( View().labelField() );
   Laid< View > laid( "00000004 abcde123" );
   EXPECT_EQ( hexOfWord( laid->labelField() ), "abcde123" );
   EXPECT_EQ( laid->label(), 0xabcdeu );
   EXPECT_EQ( laid->totalLength(), 8 );
   expectSets< View >( &View::labelFieldIs, "labelField", wordOf< Word >( "00003fff" ),
                       "a5a5a5a5 00003fff" );
   expectSets< View >( &View::labelIs, "label", U32{ 3 }, "a5a5a5a5 000035a5" );

   Laid< View > tooLarge( U8{ 0xa5 } );
   tooLarge->labelIs( 0x100005 );
   EXPECT_EQ( tooLarge.hex(), "a5a5a5a5 000055a5" );
   Kiv::write( *tooLarge, "label", U32{ 0xfff00007 } );
   EXPECT_EQ( tooLarge.hex(), "a5a5a5a5 000075a5" );
}

TEST( LspPingNilFecSubTlv, readsAndWritesItsFieldsInPlace ) {
   expectFieldsInPlace< LspPingNilFecSubTlv >();
}

TEST( LspPingNilFecSubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingNilFecSubTlv >( 4 ), zeros );
   EXPECT_EQ( textOf< LspPingNilFecSubTlv >( zeros ), "Invalid NilFecSubTlv" );
}

TEST( LspPingNilFecSubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingNilFecSubTlv >(), ( Pairs{ { 16, 4 } } ) );
   EXPECT_EQ( textOf< LspPingNilFecSubTlv >( "00210004 00003000" ), "Invalid NilFecSubTlv" );
}

TEST( LspPingNilFecSubTlv, printsTheLabelWithoutTheBitsBelow ) {
   EXPECT_EQ( textOf< LspPingNilFecSubTlv >( "00100004 00003fff" ), "NilFec( '0x3' )" );
   EXPECT_EQ( textOf< LspPingNilFecSubTlv >( "00100004 abcde000" ), "NilFec( '0xabcde' )" );
   EXPECT_EQ( textOf< LspPingNilFecSubTlv >( "00100004 00000fff" ), "NilFec( '0x0' )" );
   EXPECT_EQ( textOf< LspPingNilFecSubTlv >( "00100004 ffffffff" ), "NilFec( '0xfffff' )" );
}

TEST( LspPingNilFecSubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingNilFecSubTlv >(),
              ( Lines{ "130 labelField LspPingNilFecSubTlvLabel rw", "131 label U32 rw",
                       "132 valid bool r", "133 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingNilFecSubTlv >().base(), Kiv::typeOf< LspPingTlvHdr >() );
}

TEST( LspPingEntropyLabelFecSubTlv, readsAndWritesItsFieldsInPlace ) {
   expectFieldsInPlace< LspPingEntropyLabelFecSubTlv >();
}

TEST( LspPingEntropyLabelFecSubTlv, isZeroAndInvalidWhenNew ) {
   EXPECT_EQ( hexOfNew< LspPingEntropyLabelFecSubTlv >( 4 ), zeros );
   EXPECT_EQ( textOf< LspPingEntropyLabelFecSubTlv >( zeros ), "Invailid EntropyLabelFecSubTlv" );
}

TEST( LspPingEntropyLabelFecSubTlv, isValidOfItsTypeAndLengthOnly ) {
   EXPECT_EQ( validPairs< LspPingEntropyLabelFecSubTlv >(), ( Pairs{ { 33, 4 } } ) );
   EXPECT_EQ( textOf< LspPingEntropyLabelFecSubTlv >( "00100004 00003000" ),
              "Invailid EntropyLabelFecSubTlv" );
}

TEST( LspPingEntropyLabelFecSubTlv, printsTheLabelWithoutTheBitsBelow ) {
   EXPECT_EQ( textOf< LspPingEntropyLabelFecSubTlv >( "00210004 00003fff" ),
              "EntropyLabelFec( '0x3' )" );
   EXPECT_EQ( textOf< LspPingEntropyLabelFecSubTlv >( "00210004 abcde000" ),
              "EntropyLabelFec( '0xabcde' )" );
}

TEST( LspPingEntropyLabelFecSubTlv, namesItsAttributesInOrder ) {
   EXPECT_EQ( attributeLines< LspPingEntropyLabelFecSubTlv >(),
              ( Lines{ "130 labelField LspPingEntropyLabelFecSubTlvLabel rw", "131 label U32 rw",
                       "132 valid bool r", "133 stringValue Orlo::String r" } ) );
   EXPECT_EQ( Kiv::typeOf< LspPingEntropyLabelFecSubTlv >().base(),
              Kiv::typeOf< LspPingTlvHdr >() );
}

constexpr char const * parserNames =
   "pkt, offset, header, handleHeader, label, valid, stringValue, totalLength";

TEST( LspPingNilFecSubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingNilFecSubTlvParser >(), parserNames );
   Placed< LspPingNilFecSubTlvParser >( lspPingNilFecSubTlvParserFactory, "00100004 abcdefff" )
      .forwards( "label", U32{ 0xabcde } )
      .forwards( "valid", true )
      .forwards( "totalLength", U16{ 8 } )
      .forwardsText( "NilFec( '0xabcde' )" );
}

TEST( LspPingEntropyLabelFecSubTlvParser, forwardsWhatItsViewSays ) {
   EXPECT_EQ( attributeNames< LspPingEntropyLabelFecSubTlvParser >(), parserNames );
   Placed< LspPingEntropyLabelFecSubTlvParser >( lspPingEntropyLabelFecSubTlvParserFactory,
                                                 "00210005 abcdefff" )
      .forwards( "label", U32{ 0xabcde } )
      .forwards( "valid", false )
      .forwards( "totalLength", U16{ 12 } )
      .forwardsText( "Invailid EntropyLabelFecSubTlv" );
}

} // namespace
