#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Kiv::CharRange;

/// What the range error says, with its subject in front, or "" if there was none.
Orlo::String failure( std::string_view text, std::function< void( CharRange & ) > const & read ) {
   CharRange range{ text };
   try {
      read( range );
   } catch( Kiv::RangeException const & exception ) {
      return "[" + exception.subject() + "] " + exception.problem();
   }
   return "";
}

Orlo::String openFailure( std::string_view text ) {
   return failure(
      text, []( CharRange & range ) { range.expectOpen( "LspPing::NtpTimeU64", "seconds" ); } );
}

TEST( CharRange, readsTheShapeOfAValue ) {
   CharRange text{ "LspPing::NtpTimeU64(seconds=1, fractions=2)" };
   text.expectOpen( "LspPing::NtpTimeU64", "seconds" );
   EXPECT_EQ( text.token(), "1" );
   text.expectNext( "fractions" );
   EXPECT_EQ( text.token(), "2" );
   text.expectClose();
   EXPECT_TRUE( text.atEnd() );
   EXPECT_EQ( text.position(), 43U );
}

TEST( CharRange, acceptsBlankSpaceAroundPunctuation ) {
   CharRange text{ " \tLspPing::NtpTimeU64 ( seconds\n= 1\r ,fractions =\v2\f )  " };
   text.expectOpen( "LspPing::NtpTimeU64", "seconds" );
   EXPECT_EQ( text.token(), "1" );
   text.expectNext( "fractions" );
   EXPECT_EQ( text.token(), "2" );
   text.expectClose();
   EXPECT_TRUE( text.atEnd() );
}

TEST( CharRange, tellsWhereItStands ) {
   CharRange text{ "  ab c" };
   EXPECT_EQ( text.position(), 0U );
   EXPECT_EQ( text.rest(), "  ab c" );
   EXPECT_EQ( text.peek(), 'a' );
   EXPECT_EQ( text.position(), 2U );
   EXPECT_FALSE( text.take( 'b' ) );
   EXPECT_TRUE( text.take( 'a' ) );
   EXPECT_TRUE( text.take( std::string_view{ "b c" } ) );
   EXPECT_FALSE( text.take( std::string_view{ "d" } ) );
   EXPECT_TRUE( text.atEnd() );
   EXPECT_EQ( text.peek(), '\0' );
   EXPECT_EQ( text.rest(), "" );
}

TEST( CharRange, readsWords ) {
   CharRange text{ " pw_Id2=Rsvp::RsvpSpId 7" };
   EXPECT_EQ( text.word(), "pw_Id2" );
   EXPECT_EQ( text.word(), "" );
   EXPECT_TRUE( text.take( '=' ) );
   EXPECT_EQ( text.word(), "Rsvp::RsvpSpId" );
   EXPECT_EQ( text.word(), "" );
   EXPECT_EQ( text.rest(), "7" );
}

TEST( CharRange, readsTokensUpToPunctuation ) {
   CharRange text{ "10.0.0.0/8, 2001:db8::1) a} b=c" };
   EXPECT_EQ( text.token(), "10.0.0.0/8" );
   EXPECT_EQ( text.token(), "" );
   EXPECT_TRUE( text.take( ',' ) );
   EXPECT_EQ( text.token(), "2001:db8::1" );
   EXPECT_TRUE( text.take( ')' ) );
   EXPECT_EQ( text.token(), "a" );
   EXPECT_TRUE( text.take( '}' ) );
   EXPECT_EQ( text.token(), "b" );
   EXPECT_TRUE( text.take( '=' ) );
   EXPECT_EQ( text.token(), "c" );
   EXPECT_EQ( text.token(), "" );
}

TEST( CharRange, refusesAnotherType ) {
   EXPECT_EQ( openFailure( "LspPing::NtpTime(seconds=1)" ),
              "[LspPing::NtpTimeU64] expected \"LspPing::NtpTimeU64\" at offset 0, "
              "found \"LspPing::NtpTime(seconds=1)\"" );
   EXPECT_EQ( openFailure( "" ), "[LspPing::NtpTimeU64] expected \"LspPing::NtpTimeU64\" "
                                 "at offset 0, found the end of the text" );
}

TEST( CharRange, refusesATypeWithoutItsNamespace ) {
   EXPECT_EQ( openFailure( " NtpTimeU64(seconds=1)" ),
              "[LspPing::NtpTimeU64] expected \"LspPing::NtpTimeU64\" at offset 1, "
              "found \"NtpTimeU64(seconds=1)\"" );
}

TEST( CharRange, refusesATypeWithoutItsParenthesis ) {
   EXPECT_EQ( openFailure( "LspPing::NtpTimeU64{seconds=1}" ),
              "[seconds] expected \"(\" at offset 19, found \"{seconds=1}\"" );
}

TEST( CharRange, refusesAnotherFirstAttribute ) {
   EXPECT_EQ( openFailure( "LspPing::NtpTimeU64(fractions=1)" ),
              "[seconds] expected \"seconds=\" at offset 20, found \"fractions=1)\"" );
   EXPECT_EQ( openFailure( "LspPing::NtpTimeU64(secondsX=1)" ),
              "[seconds] expected \"seconds=\" at offset 20, found \"secondsX=1)\"" );
   EXPECT_EQ( openFailure( "LspPing::NtpTimeU64(seconds 1)" ),
              "[seconds] expected \"seconds=\" at offset 20, found \"seconds 1)\"" );
}

TEST( CharRange, refusesAnotherNextAttribute ) {
   auto const readBoth = []( CharRange & text ) {
      text.expectOpen( "LspPing::NtpTimeU64", "seconds" );
      text.token();
      text.expectNext( "fractions" );
   };
   EXPECT_EQ( failure( "LspPing::NtpTimeU64(seconds=1, frac", readBoth ),
              "[fractions] expected \"fractions=\" at offset 31, found \"frac\"" );
   EXPECT_EQ( failure( "LspPing::NtpTimeU64(seconds=1 fractions=2", readBoth ),
              "[fractions] expected \",\" at offset 30, found \"fractions=2\"" );
   EXPECT_EQ( failure( "LspPing::NtpTimeU64(seconds=1,", readBoth ),
              "[fractions] expected \"fractions=\" at offset 30, found the end of the text" );
}

TEST( CharRange, refusesAValueThatIsNotClosed ) {
   EXPECT_EQ( failure(
                 ", more=1", []( CharRange & text ) { text.expectClose(); } ),
              "[] expected \")\" at offset 0, found \", more=1\"" );
   EXPECT_EQ( failure( "  ", []( CharRange & text ) { text.expectClose(); } ),
              "[] expected \")\" at offset 2, found the end of the text" );
}

TEST( CharRange, showsAtMost32CharactersOfWhatItMet ) {
   auto const close = []( CharRange & text ) { text.expectClose(); };
   EXPECT_EQ( failure( "01234567890123456789012345678901", close ),
              "[] expected \")\" at offset 0, found \"01234567890123456789012345678901\"" );
   EXPECT_EQ( failure( "012345678901234567890123456789012", close ),
              "[] expected \")\" at offset 0, found \"01234567890123456789012345678901\"..." );
}

TEST( CharRange, escapesControlBytesAndQuotesOfWhatItMet ) {
   using namespace std::string_view_literals;
   EXPECT_EQ( failure( "a\0\n\x1b\x7f\"\\"sv, []( CharRange & text ) { text.expectClose(); } ),
              "[] expected \")\" at offset 0, found \"a\\x00\\x0a\\x1b\\x7f\\\"\\\\\"" );
}

TEST( CharRange, escapesWhatIsNoUtf8AndControlsAboveAsciiOfWhatItMet ) {
   EXPECT_EQ( failure(
                 "\u00e9\xff\u009b", []( CharRange & text ) { text.expectClose(); } ),
              "[] expected \")\" at offset 0, found \"\u00e9\\xff\\xc2\\x9b\"" );
}

TEST( CharRange, showsNoHalfCharacterOfWhatItMet ) {
   EXPECT_EQ( failure(
                 "0123456789012345678901234567890\u00e9\"",
                 []( CharRange & text ) { text.expectClose(); } ),
              "[] expected \")\" at offset 0, found \"0123456789012345678901234567890\"..." );
}

} // namespace
