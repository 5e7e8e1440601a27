#include "MplsUtils/LspPing/message/LspPingElements.h"
#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/ext/LspPingExt.h"
#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace LspPing;

// Elements that come to the end of module LspPingHdr need no sample, nor an RFC.
bool isOfRegistries( LspPingElementRow const & row ) {
   constexpr U16 lastOfOld = 94;
   return row.isDescribed() &&
          ( row.type.module == lspPingExtModule || row.type.index <= lastOfOld );
}

TEST( LspPingElements, haveANameAndARegisteredType ) {
   for( LspPingElementRow const & row : lspPingElements() ) {
      EXPECT_FALSE( lspPingCodeName( row.facts.context, row.code() ).empty() ) << row.code();
      EXPECT_EQ( bool( Kiv::TypeRef( row.type ) ), row.isDescribed() ) << row.code();
   }
}

TEST( LspPingElements, haveViewsThatNeedNoMoreThanThePaddedValue ) {
   for( LspPingElementRow const & row : lspPingElements() ) {
      EXPECT_LE( row.viewOffset() + row.viewSize,
                 row.headerSize() + ( row.facts.shortestLength() + 3u ) / 4 * 4 )
         << row.code();
   }
}

TEST( LspPingElements, tellWhereTheyAreDefined ) {
   for( LspPingElementRow const & row : lspPingElements() ) {
      // The vendor's own sub-TLV is in no RFC.
      bool const isDefined = row.facts.context != LspPingContext::vendorPrivate;
      if( isOfRegistries( row ) )
         EXPECT_EQ( row.facts.rfc.starts_with( "RFC " ), isDefined ) << row.code();
   }
}

TEST( LspPingElements, areSorted ) {
   LspPingElementRow const * before = nullptr;
   for( LspPingElementRow const & row : lspPingElements() ) {
      if( before != nullptr ) {
         std::pair const first{ before->facts.context, before->code() };
         std::pair const second{ row.facts.context, row.code() };
         EXPECT_LE( first, second );
         EXPECT_TRUE( first != second || before->facts.selectorCount >= row.facts.selectorCount )
            << row.code();
      }
      before = &row;
   }
}

TEST( LspPingElements, areFoundByTheirSelectors ) {
   for( LspPingElementRow const & row : lspPingElements() ) {
      std::vector< U8 > bytes( row.fixedSize(), 0 );
      if( row.facts.selectorCount == 0 && bytes.size() > 4 )
         std::fill( bytes.begin() + 4, bytes.end(), U8{ 99 } );
      for( std::size_t i = 0; i < row.facts.selectorCount; ++i )
         bytes[row.facts.selectors[i].offset] = row.facts.selectors[i].values[0];
      EXPECT_EQ( elementOf( row.facts.context, row.code(), bytes ), &row ) << row.code();
   }
}

// What is gathered for the quick walk, against what the views say: all values of each byte, among
// zeros and among others.
TEST( LspPingElements, areUsualOnlyWhereTheirViewsHaveNoMoreToSay ) {
   unsigned usualRows = 0;
   for( LspPingElementRow const & row : lspPingElements() ) {
      LspPingUsualElement const & usual = row.usual;
      if( usual.lengthCount == 0 )
         continue;
      ++usualRows;
      EXPECT_EQ( usual.fixedSize, row.fixedSize() ) << row.code();
      for( U8 const filler : { U8{ 0 }, U8{ 0x5a }, U8{ 0xff } } ) {
         for( std::size_t at = row.headerSize(); at < row.fixedSize(); ++at ) {
            for( unsigned value = 0; value < 256; ++value ) {
               std::vector< U8 > bytes( ( row.fixedSize() + 3u ) / 4 * 4, filler );
               bytes[0] = 0;
               bytes[1] = static_cast< U8 >( row.code() );
               bytes[2] = 0;
               bytes[3] = static_cast< U8 >( row.facts.leastLength );
               if( usual.prefixAt != 0 )
                  bytes[usual.prefixAt] = usual.longestPrefix;
               bytes[at] = static_cast< U8 >( value );
               for( std::size_t i = 0; i < row.facts.selectorCount; ++i )
                  bytes[row.facts.selectors[i].offset] = row.facts.selectors[i].values[0];
               LspPingVerdict verdict;
               if( row.verdict != nullptr )
                  verdict = row.verdict( bytes.data(), row.facts.leastLength );
               bool const isUsual = bytes[usual.prefixAt] <= usual.longestPrefix;
               EXPECT_EQ( verdict.isFlawed, !isUsual ) << row.code() << ", byte " << at;
               if( isUsual ) {
                  EXPECT_EQ( verdict.isValid, usual.flags.isValid )
                     << row.code() << ", byte " << at;
               }
            }
         }
      }
   }
   EXPECT_GE( usualRows, 30u );
}

// Every class with the facts beside it, under each of its codes.
TEST( LspPingElements, areTheClassesOfTheList ) {
   auto const rowsOf = []( Kiv::TypeId type ) {
      std::vector< U16 > codes;
      for( LspPingElementRow const & row : lspPingElements() )
         if( row.type == type )
            codes.push_back( row.code() );
      return codes;
   };
   EXPECT_EQ( rowsOf( Kiv::typeIdOf< LspPingSrIpv4SubTlv > ), ( std::vector< U16 >{ 34, 31744 } ) );
   EXPECT_EQ( rowsOf( Kiv::typeIdOf< LspPingNodeAddrSubTlv > ), std::vector< U16 >{ 11 } );
   EXPECT_EQ( rowsOf( Kiv::typeIdOf< LspPingPadTlv > ), std::vector< U16 >{ 3 } );
   EXPECT_EQ( rowsOf( Kiv::typeIdOf< LspPingHdr > ), std::vector< U16 >{} );
}

// Who asks for a class need not look at elements of other codes.
TEST( LspPingElements, haveTheCodesOfEveryElementThatTheyDeriveFrom ) {
   unsigned derived = 0;
   for( LspPingElementRow const & row : lspPingElements() ) {
      for( Kiv::TypeRef type( row.type ); type; type = type.base() ) {
         LspPingElement const * const facts = lspPingElementOf( type.id() );
         if( facts == nullptr )
            continue;
         EXPECT_EQ( facts->context, row.facts.context ) << type.name();
         EXPECT_TRUE( facts->hasCode( row.code() ) ) << type.name();
         derived += type.id() != row.type ? 1 : 0;
      }
   }
   EXPECT_GT( derived, 8u );
}

// What vendors defined has the codes that nobody else has, or another vendor's number.
TEST( LspPingElements, areAVendorsBehindAllOthers ) {
   auto const typeOf = []( U32 code, std::vector< U8 > const & bytes ) {
      return elementOf( LspPingContext::message, code, bytes )->type;
   };
   constexpr Kiv::TypeId anyVendors = Kiv::typeIdOf< LspPingVendorPrivateTlv >;
   EXPECT_EQ( typeOf( 64512, {} ), anyVendors );
   EXPECT_EQ( typeOf( 65535, {} ), anyVendors );
   // It need not begin with a number.
   std::vector< U8 > const withoutNumber{ 0xfc, 0x58, 0, 2, 1, 2 };
   EXPECT_EQ( elementOf( LspPingContext::message, 64600, withoutNumber ), nullptr );
   EXPECT_EQ( typeOf( 65261, { 0xfe, 0xed, 0, 4, 0, 0, 0, 9 } ), anyVendors );
   EXPECT_EQ( typeOf( 65261, { 0xfe, 0xed, 0, 4, 0, 0, 0x7e, 0xd9 } ),
              Kiv::typeIdOf< LspPingVeloraVendorPrivateTlv > );
}

// A node's address among the responders' TLVs has a view only where it is just that.
TEST( LspPingElements, fallBackWhereTheBytesAreTooFew ) {
   std::vector< U8 > bytes{ 0, 11, 0, 8, 0, 3, 0, 4, 10, 0, 0, 1 };
   EXPECT_EQ( elementOf( LspPingContext::message, 11, bytes )->type,
              Kiv::typeIdOf< LspPingNodeAddrSubTlv > );
   bytes.resize( 10 );
   EXPECT_FALSE( elementOf( LspPingContext::message, 11, bytes )->isDescribed() );
   // A mapping stays what its address type says.
   std::vector< U8 > const mapping{ 0, 20, 0, 4, 5, 0xdc, 1, 0 };
   EXPECT_EQ( elementOf( LspPingContext::message, 20, mapping )->type,
              Kiv::typeIdOf< LspPingDdmapTlv > );
}

TEST( LspPingElements, areSelectedByOneOfTheValuesOfEachByte ) {
   constexpr auto shared =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::NilFec ).chosenBy( 4, 5 );
   constexpr auto element = shared.whenOneOf( 4, { 0, 1, 4 } ).when( 5, 2 );
   auto const isSelectedBy = [=]( U8 first, U8 second ) {
      return element.isSelectedBy( std::vector< U8 >{ 0, 16, 0, 4, first, second } );
   };
   EXPECT_TRUE( isSelectedBy( 0, 2 ) );
   EXPECT_TRUE( isSelectedBy( 4, 2 ) );
   EXPECT_FALSE( isSelectedBy( 2, 2 ) );
   EXPECT_FALSE( isSelectedBy( 6, 2 ) );
   EXPECT_FALSE( isSelectedBy( 4, 0 ) );
   EXPECT_FALSE( element.isSelectedBy( std::vector< U8 >{ 0, 16, 0, 4, 4 } ) );
   EXPECT_EQ( element.chooser, 0u );
   EXPECT_EQ( element.otherChooser, 0u );
}

TEST( LspPingElements, haveTheContextOfTheirCodes ) {
   constexpr auto parent = LspPingElement::tlv( LspPingTlvType::Pad )
                              .atLeast( 4 )
                              .followedBy< LspPingDDMappingSubTlvType >();
   EXPECT_EQ( parent.context, LspPingContext::message );
   EXPECT_EQ( parent.inside, LspPingContext::ddmap );
   EXPECT_TRUE( parent.isContainer() );
   EXPECT_FALSE( parent.hasLength( 3 ) );
   EXPECT_TRUE( parent.hasLength( 5 ) );
   EXPECT_EQ( LspPingElement::subTlv( LspPingDDMappingSubTlvType::LabelStack ).context,
              LspPingContext::ddmap );
   // An enumeration that is no told context has its own name.
   constexpr LspPingContext other = lspPingContextOf< LspPingMsgType >;
   EXPECT_EQ( lspPingContextName( other ), "LspPing::LspPingMsgType" );
   EXPECT_EQ( lspPingCodeName( other, 1 ), "MplsEchoRequest" );
   EXPECT_EQ( lspPingContextName( LspPingContext::opaqueValue ), "opaqueValue" );
}

TEST( LspPingElements, areNotFoundUnderOtherCodes ) {
   EXPECT_EQ( elementOf( LspPingContext::message, 8, {} ), nullptr );
   EXPECT_EQ( elementOf( LspPingContext::message, 28, {} ), nullptr );
   EXPECT_EQ( elementOf( LspPingContext::message, 64511, {} ), nullptr );
   EXPECT_EQ( elementOf( LspPingContext::targetFec, 0, {} ), nullptr );
   EXPECT_EQ( elementOf( LspPingContext::opaqueValue, 2, {} ), nullptr );
}

std::string sample( std::string const & name ) {
   std::ifstream file( LSPPING_SAMPLES "/" + name, std::ios::binary );
   EXPECT_TRUE( file ) << name;
   return std::string( std::istreambuf_iterator< char >( file ), {} );
}

// Whether an element with the row's code is told with the row's class.
bool isTold( std::string const & json, LspPingElementRow const & row ) {
   std::string const element = "{\"code\":" + std::to_string( row.code() ) + ",\"name\":\"" +
                               std::string( lspPingCodeName( row.facts.context, row.code() ) ) +
                               "\",";
   std::string const type = "\"type\":\"" + std::string( Kiv::TypeRef( row.type ).name() ) + "\",";
   for( std::size_t at = json.find( element ); at != json.npos;
        at = json.find( element, at + 1 ) ) {
      std::string const facts = json.substr( at, json.find( "\"attributes\"", at ) - at );
      if( facts.find( type ) < facts.find( '{', 1 ) )
         return true;
   }
   return false;
}

// What the tool says of the well-formed samples, and of the damaged ones: there, nobody knows which
// of the forms stands behind a header that they share.
TEST( LspPingElements, areToldInTheSamplesWhereAClassDescribesThem ) {
   std::string const wellFormed = sample( "echo.jsonl" ) + sample( "registry.jsonl" );
   std::string const damaged = sample( "registryDamaged.jsonl" );
   for( LspPingElementRow const & row : lspPingElements() )
      if( isOfRegistries( row ) )
         EXPECT_TRUE( isTold( row.facts.chooser == 0 ? wellFormed : damaged, row ) )
            << row.code() << ' ' << Kiv::TypeRef( row.type ).name();
}

} // namespace
