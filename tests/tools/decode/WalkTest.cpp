#include "tests/tools/decode/Build.h"

namespace {

TEST( Walk, findsAFecInItsStack ) {
   EXPECT_EQ( elementsOf( tlv( 1, ldp ) ), "   TargetFecStack\n"
                                           "      LdpIpv4( '10.1.2.0/24' )\n" );
}

TEST( Walk, goesOnBehindANilFec ) {
   EXPECT_EQ( elementsOf( tlv( 1, nil + ldp + nil ) ), "   TargetFecStack\n"
                                                       "      NilFec( '0x3' )\n"
                                                       "      LdpIpv4( '10.1.2.0/24' )\n"
                                                       "      NilFec( '0x3' )\n" );
}

TEST( Walk, showsTheBytesOfWhatHasNoView ) {
   EXPECT_EQ( elementsOf( tlv( 99, { 1, 2, 3 } ) + tlv( 1, tlv( 29, Bytes( 14, 1 ) ) ) ),
              "   99( Code: 99, Length: 3, Bytes: 00630003010203 )\n"
              "   TargetFecStack\n"
              "      29( Code: 29, Length: 14, Bytes: 001d000e0101010101010101010101010101 "
              ")\n" );
}

TEST( Walk, takesNothingForAMessageOfNoTlvs ) {
   EXPECT_EQ( elementsOf( {} ), "" );
}

TEST( Walk, saysWhatIsMissingOfTheHeader ) {
   EXPECT_EQ( Decoded( { 0, 1, 0 } ).text(), "1 no LspPingHdr( Bytes: 000100 )\n"
                                             "   ! offset 0: header: needed 32 bytes, had 3\n" );
   EXPECT_EQ( Decoded( {} ).problems(),
              ( std::vector< Problem >{ { 0, "header: needed 32 bytes, had 0" } } ) );
}

TEST( Walk, takesTheTlvsBehindAHeaderThatIsNotValid ) {
   Bytes unknown = request;
   unknown[4] = 6;
   EXPECT_EQ( Decoded( unknown + tlv( 1, ldp ) ).text(),
              "1 Invalid LspPingHdr\n"
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 0: header: not valid, version 1, message type 6\n" );
}

// RFC 7555 section 3: the header is that of an echo request.
TEST( Walk, takesTheHeaderOfAProxyPingForOne ) {
   Bytes proxy = request;
   proxy[4] = 3;
   Decoded const decoded( proxy + tlv( 1, ldp ) );
   EXPECT_TRUE( decoded.problems().empty() );
   EXPECT_THAT( decoded.text(), testing::StartsWith( "1 LspPingHdr:\tver(1),\tflag(0),"
                                                     "\tmsgType(3),\treplyMode(2)," ) );
   EXPECT_THAT( decoded.json(),
                testing::HasSubstr( R"("valid":true,"text":"LspPingHdr:\tver(1))" ) );
}

TEST( Walk, takesNoTlvsBehindAnotherVersionUnlessTheyComeOut ) {
   Bytes other = request;
   other[1] = 7;
   EXPECT_EQ( Decoded( other + tlv( 1, ldp ) ).elements(),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 0: header: not valid, version 7, message type 1\n" );
   EXPECT_EQ( Decoded( other + Bytes{ 1, 2, 3, 4, 5 } ).elements(),
              "   ! offset 0: header: not valid, version 7, message type 1\n"
              "   ! offset 32: 5 bytes behind the header are no TLVs\n"
              "      Bytes( 0102030405 )\n" );
}

// Every length that is too short for an address, and the next element all the same.
TEST( Walk, tellsSubTlvsThatAreTooShort ) {
   for( U8 length = 0; length < 5; ++length ) {
      Bytes const value( length, 1 );
      std::string const digits = std::to_string( length );
      std::string const hex = [&] {
         std::string text = "0001000" + digits;
         for( U8 i = 0; i < length; ++i )
            text += "01";
         return text;
      }();
      EXPECT_EQ( elementsOf( tlv( 1, tlv( 1, value ) + nil ) ),
                 "   TargetFecStack\n"
                 "      LDPIpv4( Code: 1, Length: " +
                    digits + ", Bytes: " + hex +
                    " )\n"
                    "      NilFec( '0x3' )\n"
                    "   ! offset 36: LDPIpv4: length " +
                    digits + " is too short, needed 5\n" );
   }
}

TEST( Walk, tellsAStackOfFecsWithNothingInIt ) {
   EXPECT_EQ( elementsOf( tlv( 1, {} ) + tlv( 10, { 8, 0, 0, 0 } ) ),
              "   TargetFecStack\n"
              "   ReplyTosTlv( Type Of Service: 8 )\n"
              "   ! offset 32: TargetFecStack: nothing in it\n" );
}

TEST( Walk, tellsAStackTooShortForAnyFec ) {
   for( U8 length = 1; length < 4; ++length ) {
      Decoded const decoded( request + tlv( 1, Bytes( length, 1 ) ) );
      ASSERT_EQ( decoded.problems().size(), 1u );
      EXPECT_EQ( decoded.problems()[0].offset, 36u );
      EXPECT_EQ( decoded.problems()[0].text,
                 std::to_string( length ) + ( length == 1 ? " byte" : " bytes" ) +
                    " left over after the last sub-TLV: another needs 4" );
   }
}

TEST( Walk, staysInsideATlvThatIsBeyondTheMessage ) {
   EXPECT_EQ( elementsOf( raw( 1, 20, ldp ) ),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 32: TargetFecStack: length 20 needs 24 bytes, had 16\n" );
}

TEST( Walk, goesOnBehindTheTlvOfASubTlvThatIsBeyondIt ) {
   EXPECT_EQ( elementsOf( tlv( 1, raw( 16, 8, { 0, 0, 0x30, 0 } ) ) + tlv( 12, { 0, 0, 0, 9 } ) ),
              "   TargetFecStack\n"
              "      Invalid NilFecSubTlv\n"
              "         Bytes( 0010000800003000 )\n"
              "   EchoJitterTlv( jittertime(9) )\n"
              "   ! offset 36: NilFec: length 8 needs 12 bytes, had 8\n"
              "   ! offset 36: NilFec: length 8, expected 4\n" );
}

// 4 + 65535 rounded up is 0 in 16 bits: a walk by such steps would stand still.
TEST( Walk, endsAtALengthThatWraps ) {
   for( std::size_t length : { 65529u, 65533u, 65535u } ) {
      std::string const digits = std::to_string( length );
      std::string const needed = std::to_string( length + 4 );
      EXPECT_EQ( elementsOf( raw( 1, length, ldp ) ), "   TargetFecStack\n"
                                                      "      LdpIpv4( '10.1.2.0/24' )\n"
                                                      "   ! offset 32: TargetFecStack: length " +
                                                         digits + " needs " + needed +
                                                         " bytes, had 16\n" );
      EXPECT_EQ( elementsOf( tlv( 1, raw( 99, length, {} ) ) + tlv( 12, { 0, 0, 0, 9 } ) ),
                 "   TargetFecStack\n"
                 "      99( Code: 99, Length: " +
                    digits + ", Bytes: " + "0063" +
                    ( length == 65529   ? "fff9"
                      : length == 65533 ? "fffd"
                                        : "ffff" ) +
                    " )\n"
                    "   EchoJitterTlv( jittertime(9) )\n"
                    "   ! offset 36: sub-TLV 99: length " +
                    digits + " needs " + needed + " bytes, had 4\n" );
   }
}

// A message of 65535 bytes can hold it, and the total length is told without the wrap.
TEST( Walk, takesATlvWhoseTotalLengthWraps ) {
   Decoded const decoded( request + tlv( 99, Bytes( 65529, 1 ) ) + tlv( 12, { 0, 0, 0, 9 } ) );
   ASSERT_EQ( decoded.message().elementCount(), 2u );
   EXPECT_EQ( decoded.message().element( 0 ).totalLength(), 65536u );
   EXPECT_EQ( decoded.message().element( 1 ).offset(), 32u + 65536u );
   EXPECT_TRUE( decoded.problems().empty() );
}

TEST( Walk, tellsBytesLeftOverAfterTheLastTlv ) {
   EXPECT_EQ( elementsOf( tlv( 1, ldp ) + Bytes{ 0 } ),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 48: 1 byte left over after the last TLV: another needs 4\n"
              "      Bytes( 00 )\n" );
   EXPECT_EQ( elementsOf( tlv( 1, ldp ) + Bytes( 13, 0 ) ),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   ! offset 48: 13 bytes left over after the last TLV, all zero\n" );
}

TEST( Walk, takesZerosThatMayBeTheLinksForPadding ) {
   Bytes const bytes = request + tlv( 1, nil ) + Bytes( 13, 0 );
   EXPECT_TRUE( Decoded( bytes, { 13 } ).problems().empty() );
   // The Nil FEC ends in a zero, which is its own.
   EXPECT_EQ( Decoded( bytes, { 14 } ).elements(), "   TargetFecStack\n"
                                                   "      NilFec( '0x3' )\n" );
   EXPECT_EQ( Decoded( bytes, { 12 } ).problems().size(), 1u );
}

TEST( Walk, saysWhenALengthCountsThePadding ) {
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 1, { 10, 1, 2, 0, 24, 0, 0, 0 } ) + nil ) ),
              "   TargetFecStack\n"
              "      Invalid LdpIpv4SubTlv\n"
              "         Bytes( 000100080a01020018000000 )\n"
              "      NilFec( '0x3' )\n"
              "   ! offset 36: LDPIpv4: length 8 counts the padding, expected 5; without it: "
              "LdpIpv4( '10.1.2.0/24' )\n" );
}

TEST( Walk, namesAnInvalidElementWithoutATextOfItsOwn ) {
   EXPECT_EQ( elementsOf( tlv( 1, tlv( 14, { 10, 1, 2, 0, 24, 9 } ) ) ),
              "   TargetFecStack\n"
              "      Invalid GenericIpv4SubTlv\n"
              "         Bytes( 000e00060a0102001809 )\n"
              "   ! offset 36: GenericIpv4: length 6, expected 5\n" );
}

TEST( Walk, goesOnWithoutAlignmentWhereThatComesOut ) {
   Bytes const unpadded = raw( 1, 5, { 10, 1, 2, 0, 24 } );
   EXPECT_EQ( elementsOf( tlv( 1, unpadded + nil + unpadded ) + tlv( 12, { 0, 0, 0, 9 } ) ),
              "   TargetFecStack\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "      NilFec( '0x3' )\n"
              "      LdpIpv4( '10.1.2.0/24' )\n"
              "   EchoJitterTlv( jittertime(9) )\n"
              "   ! offset 36: sub-TLVs are not aligned to 4 bytes\n" );
   EXPECT_EQ( elementsOf( raw( 3, 3, { 1, 7, 7 } ) + tlv( 12, { 0, 0, 0, 9 } ) ),
              "   PadTlv( PadType: 1, Size: 3, Padding: 0x7 0x7 )\n"
              "   EchoJitterTlv( jittertime(9) )\n"
              "   ! offset 32: TLVs are not aligned to 4 bytes\n" );
}

// The view takes twelve bytes, of which the last three are not there.
TEST( Walk, readsAViewWhosePaddingIsMissing ) {
   Decoded const decoded( request + raw( 1, 9, raw( 1, 5, { 10, 1, 2, 0, 24 } ) ) );
   EXPECT_EQ( decoded.elements(), "   TargetFecStack\n"
                                  "      LdpIpv4( '10.1.2.0/24' )\n"
                                  "   ! offset 36: LDPIpv4: 3 bytes of padding missing\n"
                                  "   ! offset 32: TargetFecStack: 3 bytes of padding missing\n" );
   EXPECT_THAT( decoded.json(), testing::HasSubstr( R"("prefixLen":24,"mbz0":0,"mbz1":0,)" ) );
}

TEST( Walk, goesIntoErroredTlvsAndNotTooDeep ) {
   EXPECT_EQ( elementsOf( tlv( 9, tlv( 1, ldp ) + tlv( 99, {} ) ) ),
              "   ErrorTlv\n"
              "      TargetFecStack\n"
              "         LdpIpv4( '10.1.2.0/24' )\n"
              "      99( Code: 99, Length: 0, Bytes: 00630000 )\n" );
   Bytes nested = tlv( 12, { 0, 0, 0, 9 } );
   for( int i = 0; i < 2000; ++i )
      nested = tlv( 9, nested );
   Decoded const decoded( request + nested );
   ASSERT_EQ( decoded.problems().size(), 1u );
   EXPECT_EQ( decoded.problems()[0].text, "nested too deeply: not decoded further" );
}

// Whatever is cut off, it is a problem, and nothing behind the end is read.
TEST( Walk, takesAMessageCutAnywhere ) {
   Bytes const opaque = { 1, 0, 4, 0, 0, 0, 7 };
   Bytes const p2mp = tlv( 19, Bytes{ 0, 1, 4, 10, 0, 0, 1, 0, 7 } + opaque );
   Bytes const multipath = tlv( 1, { 8, 0, 8, 0, 127, 2, 1, 0, 0x87, 0xff, 0x0f, 0xfc } );
   Bytes const labels = tlv( 2, { 0, 6, 0x41, 3 } );
   Bytes const change = tlv( 3, Bytes{ 1, 1, 12, 0, 10, 0, 0, 9 } + ldp );
   Bytes const subTlvs = multipath + labels + change;
   Bytes const ddmap = tlv( 20, Bytes{ 5, 0xdc, 1, 0, 10, 0, 0, 2, 10, 0, 0, 1, 8, 1 } +
                                   word( subTlvs.size() ) + subTlvs );
   Bytes const dsmap = tlv( 2, { 5, 0xdc, 1,   0, 10, 0, 0,    2,    10,   0,    0, 1, 8,    0,
                                 0, 8,    127, 2, 1,  0, 0x87, 0xff, 0x0f, 0xfc, 0, 6, 0x41, 3 } );
   Bytes const interface =
      tlv( 7, { 1, 0, 0, 0, 10, 0, 0, 1, 10, 0, 0, 2, 0x18, 0x96, 0x0f, 0xff } );
   Bytes const whole = request + tlv( 1, ldp + nil + p2mp ) + ddmap + dsmap + interface +
                       tlv( 3, { 1, 7, 7, 7, 7 } ) + tlv( 11, tlv( 3, { 10, 0, 0, 1 } ) );
   ASSERT_EQ( Decoded( whole ).problems(), std::vector< Problem >{} );
   // Where a TLV ends, so may the message.
   std::vector< std::size_t > ends;
   Decoded const decoded( whole );
   for( LspPing::LspPingElementRef const tlv : decoded.message().elements() )
      ends.push_back( tlv.offset() );
   for( std::size_t size = 0; size < whole.size(); ++size ) {
      Decoded const cut(
         Bytes( whole.begin(), whole.begin() + static_cast< std::ptrdiff_t >( size ) ) );
      bool const isWhole = std::find( ends.begin(), ends.end(), size ) != ends.end();
      EXPECT_EQ( cut.problems().empty(), isWhole ) << size;
      EXPECT_FALSE( cut.text().empty() );
      EXPECT_FALSE( cut.json().empty() );
   }
}

} // namespace
