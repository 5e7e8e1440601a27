#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "tests/record/RandomRecords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

// The generic text of the records that can be read back: round trips and malformed text.
namespace LspPing {
namespace {

template < class R >
class RecordText : public testing::Test {
 protected:
   static Kiv::TypeRef type() { return Kiv::typeOf< R >(); }

   static Orlo::String text( R const & record ) {
      std::ostringstream out;
      out << record;
      return out.str();
   }

   /// The subject of the range error that this text raises; "" when it is read. A refused text
   /// leaves the record as it was.
   static Orlo::String refused( std::string_view text ) {
      static R const before = RandomRecords( std::mt19937_64{ 7 } ).record< R >();
      R record = before;
      try {
         KivOrlo::strepToValue( text, type(), &record );
      } catch( Kiv::RangeException const & error ) {
         EXPECT_EQ( record, before ) << text;
         EXPECT_EQ( Orlo::String( error.what() ), error.subject() + ": " + error.problem() );
         return error.subject();
      }
      return "";
   }
};

using Parsable =
   testing::Types< LspPingPwInfo, LspPingFecInfo, LspPingDownstreamLabelEntry,
                   LspPingIntfAndLabelStackInfo, Rsvp::RsvpSpId, Rsvp::RsvpSpGroupId >;
TYPED_TEST_SUITE( RecordText, Parsable );

// Where one attribute stands in the text: "name=value" from `begin` to `end`.
struct Place {
   Orlo::String name;
   std::size_t begin;
   std::size_t value;
   std::size_t end;
};

std::vector< Place > placesIn( Kiv::TypeRef type, Orlo::String const & text ) {
   std::vector< Place > places;
   std::size_t at = type.name().size() + 1;
   for( Kiv::Attribute const & attribute : type.attributes() ) {
      Orlo::String const name( attribute.name() );
      if( !places.empty() ) {
         std::size_t const next = text.find( ", " + name + "=", at );
         places.back().end = next;
         at = next + 2;
      }
      places.push_back( { name, at, at + name.size() + 1, text.size() - 1 } );
   }
   return places;
}

/// True when the error's subject is the attribute or one inside it.
bool names( Orlo::String const & subject, Orlo::String const & attribute ) {
   return subject == attribute || subject.starts_with( attribute + "." );
}

Orlo::String outOfRange( std::string_view type ) {
   if( type == "U8" || type == "MplsUtils::MplsOamStandard" )
      return "256";
   if( type == "U16" || type == "Pseudowire::PseudowireType" )
      return "65536";
   if( type == "U64" )
      return "18446744073709551616";
   if( type == "bool" )
      return "2";
   if( type == "Velnet::IpGenAddr" )
      return "256.0.0.1";
   if( type == "Velnet::IpGenPrefix" )
      return "10.0.0.0/33";
   if( type == "Velnet::MplsLabel" )
      return "1048577";
   if( type == "Velnet::MplsLabelStack" )
      return "{1048576/0/0/0}";
   if( type == "Pseudowire::PseudowireGenId" )
      return "agi 256: saii 0: taii 0:";
   if( type == "Rsvp::RsvpSpId" )
      return "Rsvp::RsvpSpId(tunnelEndPoint=none, tunnelId=65536, extendedTunnelId=none, lspId=0)";
   if( type == "Rsvp::RsvpSpGroupId" )
      return "Rsvp::RsvpSpGroupId(p2mpId=4294967296, tunnelId=0, extendedTunnelId=none, lspId=0, "
             "subGroupOriginatorId=none, subGroupId=0)";
   if( type == "LspPing::LspPingPwInfo" )
      return "LspPing::LspPingPwInfo(senderAddr=none, receiverAddr=none, pwId=4294967296, "
             "pwGenId=agi 0: saii 0: taii 0:, pwType=0, controlWordPresent=false, "
             "activeCcType=none)";
   return "4294967296"; // U32 and the enumerations of 32 bits
}

TYPED_TEST( RecordText, readsBackWhatItPrints ) {
   RandomRecords random( seededRandom() );
   for( int round = 0; round < 100'000; ++round ) {
      TypeParam const record = random.record< TypeParam >();
      Orlo::String const text = KivOrlo::valueToStrep( this->type(), &record );
      TypeParam read{};
      KivOrlo::strepToValue( text, this->type(), &read );
      ASSERT_EQ( read, record ) << text;
      ASSERT_EQ( KivOrlo::valueToStrep( this->type(), &read ), text );
   }
}

TYPED_TEST( RecordText, isReadByTheTextConstructor ) {
   TypeParam const record = RandomRecords( std::mt19937_64{ 1 } ).record< TypeParam >();
   Orlo::String const text = this->text( record );
   EXPECT_EQ( text, KivOrlo::valueToStrep( this->type(), &record ) );
   Orlo::String const followed = text + " and more";
   Kiv::CharRange in( followed );
   EXPECT_EQ( TypeParam( in ), record );
   EXPECT_EQ( in.position(), text.size() );
}

TYPED_TEST( RecordText, acceptsBlankSpaceAroundPunctuation ) {
   TypeParam const record = RandomRecords( std::mt19937_64{ 2 } ).record< TypeParam >();
   Orlo::String spaced;
   for( char const c : this->text( record ) )
      spaced += c == '(' || c == ')' || c == '=' || c == ',' ? Orlo::String( " \t" ) + c + "\n "
                                                             : Orlo::String( 1, c );
   TypeParam read{};
   KivOrlo::strepToValue( "  " + spaced, this->type(), &read );
   EXPECT_EQ( read, record );
}

TYPED_TEST( RecordText, refusesTextBehindTheRecord ) {
   EXPECT_EQ( this->refused( this->text( TypeParam() ) + " x" ), this->type().name() );
}

TYPED_TEST( RecordText, refusesAnotherType ) {
   EXPECT_EQ( this->refused( "LspPing::NtpTimeU64(seconds=1, fractions=2)" ), this->type().name() );
   EXPECT_EQ( this->refused( "" ), this->type().name() );
}

TYPED_TEST( RecordText, namesTheDamagedAttribute ) {
   RandomRecords random( std::mt19937_64{ 3 } );
   for( int round = 0; round < 20; ++round ) {
      Orlo::String const text = this->text( random.record< TypeParam >() );
      for( Place const & place : placesIn( this->type(), text ) ) {
         Orlo::String const before = text.substr( 0, place.value );
         Orlo::String const after = text.substr( place.end );
         EXPECT_TRUE( names( this->refused( before + "?" + after ), place.name ) ) << text;
         EXPECT_TRUE( names( this->refused( before + after ), place.name ) ) << text;
         Orlo::String misspelled = text;
         misspelled[place.begin] = '_';
         EXPECT_EQ( this->refused( misspelled ), place.name );
      }
   }
}

TYPED_TEST( RecordText, namesTheAttributeOutOfRange ) {
   Orlo::String const text = this->text( TypeParam() );
   std::size_t index = 0;
   for( Place const & place : placesIn( this->type(), text ) ) {
      Orlo::String const value = outOfRange( this->type().attributes()[index++].type().name() );
      Orlo::String const subject =
         this->refused( text.substr( 0, place.value ) + value + text.substr( place.end ) );
      EXPECT_TRUE( names( subject, place.name ) ) << place.name << " " << subject;
   }
   EXPECT_EQ( index, this->type().attributes().size() );
}

TYPED_TEST( RecordText, namesTheOverlongAttribute ) {
   RandomRecords random( std::mt19937_64{ 4 } );
   for( int round = 0; round < 20; ++round ) {
      Orlo::String const text = this->text( random.record< TypeParam >() );
      std::vector< Place > const places = placesIn( this->type(), text );
      for( std::size_t i = 0; i < places.size(); ++i ) {
         Orlo::String longer = text;
         longer.insert( places[i].end, Orlo::String( 25, '9' ) );
         // What has brackets has ended there: then the next attribute is missed.
         char const last = text[places[i].end - 1];
         bool const ended = last == ')' || last == '}';
         Place const & expected = places[std::min( i + ( ended ? 1 : 0 ), places.size() - 1 )];
         EXPECT_TRUE( names( this->refused( longer ), expected.name ) ) << longer;
      }
   }
}

TYPED_TEST( RecordText, namesTheMissingAttribute ) {
   RandomRecords random( std::mt19937_64{ 5 } );
   for( int round = 0; round < 20; ++round ) {
      Orlo::String const text = this->text( random.record< TypeParam >() );
      std::vector< Place > const places = placesIn( this->type(), text );
      for( Place const & place : places ) {
         bool const isLast = place.end + 1 == text.size();
         Orlo::String const shorter =
            isLast ? text.substr( 0, place.begin - 2 ) + ")"
                   : text.substr( 0, place.begin ) + text.substr( place.end + 2 );
         EXPECT_EQ( this->refused( shorter ), place.name ) << shorter;
      }
   }
}

TYPED_TEST( RecordText, namesWhatIsMissedBehindADoubledAttribute ) {
   RandomRecords random( std::mt19937_64{ 6 } );
   for( int round = 0; round < 20; ++round ) {
      Orlo::String const text = this->text( random.record< TypeParam >() );
      std::vector< Place > const places = placesIn( this->type(), text );
      for( std::size_t i = 0; i < places.size(); ++i ) {
         Orlo::String const twice = text.substr( places[i].begin, places[i].end - places[i].begin );
         Orlo::String doubled = text;
         doubled.insert( places[i].end, ", " + twice );
         EXPECT_EQ( this->refused( doubled ), places[std::min( i + 1, places.size() - 1 )].name );
      }
   }
}

TYPED_TEST( RecordText, namesTheAttributeWhereItIsCut ) {
   RandomRecords random( std::mt19937_64{ 8 } );
   for( int round = 0; round < 5; ++round ) {
      Orlo::String const text = this->text( random.record< TypeParam >() );
      std::vector< Place > const places = placesIn( this->type(), text );
      for( std::size_t length = 0; length < text.size(); ++length ) {
         Orlo::String const subject = this->refused( text.substr( 0, length ) );
         if( length < this->type().name().size() ) {
            EXPECT_EQ( subject, this->type().name() );
            continue;
         }
         // The attribute that the cut is in. When what is left of its value is a value as well,
         // the next attribute is missed, or the end behind the last one.
         std::size_t i = 0;
         while( i + 1 < places.size() && length >= places[i + 1].begin )
            ++i;
         Place const & next = places[std::min( i + 1, places.size() - 1 )];
         EXPECT_TRUE( names( subject, places[i].name ) || subject == next.name )
            << "\"" << subject << "\" " << text.substr( 0, length );
         if( length < places[i].value )
            EXPECT_EQ( subject, places[i].name );
      }
   }
}

TEST( RecordTextNesting, namesTheAttributeInsideTheNestedRecord ) {
   LspPingFecInfo info;
   Orlo::String text = KivOrlo::valueToStrep( Kiv::typeOf< LspPingFecInfo >(), &info );
   text.replace( text.find( "pwId=0" ), 6, "pwId=-1" );
   try {
      KivOrlo::strepToValue( text, Kiv::typeOf< LspPingFecInfo >(), &info );
      FAIL();
   } catch( Kiv::RangeException const & error ) {
      EXPECT_EQ( error.subject(), "pwInfo.pwId" );
   }
   EXPECT_EQ( info, LspPingFecInfo() );
}

} // namespace
} // namespace LspPing
