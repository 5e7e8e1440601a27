#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

namespace {

using LspPing::LspPingFec128Ipv4SubTlv;
using LspPing::LspPingFec129Ipv4SubTlv;
using Pseudowire::PseudowireAttachmentIdentifier;
using Pseudowire::PseudowireGenId;
using Velnet::IpAddr;

static_assert( std::is_trivially_copyable_v< LspPingFec128Ipv4SubTlv > );
static_assert( std::is_trivially_copyable_v< LspPingFec129Ipv4SubTlv > );
static_assert( !LspPingFec128Ipv4SubTlv{}.valid() );

Bytes const fec128Bytes = {
   0x00, 0x0a, 0x00, 0x0e, // type 10, length 14
   0x0a, 0x00, 0x00, 0x01, // sender 10.0.0.1
   0x0a, 0x00, 0x00, 0x02, // receiver 10.0.0.2
   0x00, 0x01, 0x02, 0x03, // PW ID 66051
   0x00, 0x05, 0x00, 0x00, // Ethernet
};

TEST( LspPingFec128Ipv4SubTlv, isAllZeroWhenConstructed ) {
   EXPECT_EQ( hexOfNew< LspPingFec128Ipv4SubTlv >(),
              "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00" );
}

TEST( LspPingFec129Ipv4SubTlv, isAllZeroWhenConstructed ) {
   EXPECT_EQ( hexOfNew< LspPingFec129Ipv4SubTlv >(), "00 00 00 00 00 00 00 00 00 00 00 00 00 00" );
}

TEST( LspPingFec128Ipv4SubTlv, readsItsBytes ) {
   Bytes bytes = fec128Bytes;
   bytes[18] = 0x12;
   bytes[19] = 0x34;
   WireBytes block{ bytes };
   auto const & view = block.as< LspPingFec128Ipv4SubTlv >();
   EXPECT_EQ( view.type(), 10 );
   EXPECT_EQ( view.length(), 14 );
   EXPECT_EQ( view.senderAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( view.receiverAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( view.pwId(), 66051u );
   EXPECT_EQ( view.pwType(), 5 );
   U16 stored = 0;
   std::memcpy( &stored, &bytes[18], sizeof stored );
   EXPECT_EQ( view.mbz(), stored );
}

TEST( LspPingFec128Ipv4SubTlv, writesItsBytes ) {
   WireBytes block{ Bytes( 20, 0xa5 ) };
   auto & view = block.as< LspPingFec128Ipv4SubTlv >();
   view.pwIdIs( 66051 );
   EXPECT_EQ( block.copy(),
              ( Bytes{ 0xa5, 0xa5, 0xa5, 0xa5, 0xa5, 0xa5, 0xa5, 0xa5, 0xa5, 0xa5,
                       0xa5, 0xa5, 0x00, 0x01, 0x02, 0x03, 0xa5, 0xa5, 0xa5, 0xa5 } ) );
   view.typeIs( 10 );
   view.lengthIs( 14 );
   view.senderAddrIs( IpAddr{ 10, 0, 0, 1 } );
   view.receiverAddrIs( IpAddr{ 10, 0, 0, 2 } );
   view.pwTypeIs( 5 );
   view.mbzIs( 0 );
   EXPECT_EQ( block.copy(), fec128Bytes );
}

TEST( LspPingFec128Ipv4SubTlv, isValidForOneTypeOneLengthAndNoBitThatMustBeZero ) {
   LspPingFec128Ipv4SubTlv view;
   std::memcpy( static_cast< void * >( &view ), fec128Bytes.data(), sizeof view );
   EXPECT_TRUE( view.valid() );
   for( U32 number = 0; number <= 0xFFFF; ++number ) {
      U16 const value = static_cast< U16 >( number );
      LspPingFec128Ipv4SubTlv other = view;
      other.typeIs( value );
      ASSERT_EQ( other.valid(), value == 10 ) << value;
      other = view;
      other.lengthIs( value );
      ASSERT_EQ( other.valid(), value == 14 ) << value;
      other = view;
      other.mbzIs( value );
      ASSERT_EQ( other.valid(), value == 0 ) << value;
      other = view;
      other.pwTypeIs( value );
      ASSERT_EQ( other.valid(), value == 4 || value == 5 ) << value;
   }
}

TEST( LspPingFec128Ipv4SubTlv, printsItsFieldsWithTabs ) {
   WireBytes block{ fec128Bytes };
   auto & view = block.as< LspPingFec128Ipv4SubTlv >();
   EXPECT_EQ( view.stringValue(), "Fec128Ipv4:\tsender(10.0.0.1),\treceiver(10.0.0.2),"
                                  "\tpwId(66051),\tpwType(5)" );
   view.pwIdIs( 2147483648 );
   view.pwTypeIs( 4 );
   EXPECT_EQ( view.stringValue(), "Fec128Ipv4:\tsender(10.0.0.1),\treceiver(10.0.0.2),"
                                  "\tpwId(-2147483648),\tpwType(4)" );
   view.pwTypeIs( 6 );
   EXPECT_EQ( view.stringValue(), "Invalid Fec128Ipv4SubTlv" );
}

TEST( LspPingFec128Ipv4SubTlv, hasItsAttributesInOrder ) {
   EXPECT_EQ( attributeNames< LspPingFec128Ipv4SubTlv >(),
              "senderAddr, receiverAddr, pwId, pwType, mbz, valid, stringValue" );
   LspPingFec128Ipv4SubTlv view;
   Kiv::write< U32 >( view, "pwId", 7 );
   EXPECT_EQ( view.pwId(), 7u );
   EXPECT_EQ( Kiv::read< bool >( view, "valid" ), false );
   EXPECT_EQ( Kiv::read< Orlo::String >( view, "stringValue" ), "Invalid Fec128Ipv4SubTlv" );
}

TEST( LspPingFec128Ipv4SubTlv, isParsedInsideAPacket ) {
   Bytes packet( 3, 0xa5 );
   packet.insert( packet.end(), fec128Bytes.begin(), fec128Bytes.end() );
   auto const parser =
      LspPing::lspPingFec128Ipv4SubTlvParserFactory( Velnet::pktFactory( packet ), 3 );
   EXPECT_TRUE( parser->header()->valid() );
   EXPECT_EQ( Kiv::read< U32 >( *parser, "pwId" ), 66051u );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 20 );
   EXPECT_EQ( Kiv::read< IpAddr >( *parser, "senderAddr" ), IpAddr( 10, 0, 0, 1 ) );
}

/// A sub-TLV as it should lie on the wire, padding included, built without the view.
Bytes fec129Bytes( PseudowireGenId const & id ) {
   Bytes bytes = {
      0x00, 0x0b, 0x00, 0x00, // type 11
      0x0a, 0x00, 0x00, 0x01, // sender 10.0.0.1
      0x0a, 0x00, 0x00, 0x02, // receiver 10.0.0.2
      0x00, 0x05,             // Ethernet
   };
   for( PseudowireAttachmentIdentifier const & part : { id.agi(), id.saii(), id.taii() } ) {
      bytes.push_back( part.type() );
      bytes.push_back( part.length() );
      for( U32 index = 0; index < part.length(); ++index )
         bytes.push_back( part.value( index ) );
   }
   bytes.resize( ( bytes.size() + 3 ) / 4 * 4 );
   bytes[3] = static_cast< U8 >( bytes.size() - 4 );
   return bytes;
}

PseudowireAttachmentIdentifier identifier( U8 type, U32 length, U8 firstByte ) {
   PseudowireAttachmentIdentifier id{ type, static_cast< U8 >( length ) };
   for( U32 index = 0; index < std::min( length, 8u ); ++index )
      id.valueIs( index, static_cast< U8 >( firstByte + index ) );
   return id;
}

PseudowireGenId genId( U32 a, U32 s, U32 t ) {
   return { identifier( 1, a, 0x10 ), identifier( 2, s, 0x20 ), identifier( 3, t, 0x30 ) };
}

Bytes const fec129Example = {
   0x00, 0x0b, 0x00, 0x1c,                         // type 11, length 28
   0x0a, 0x00, 0x00, 0x01, 0x0a, 0x00, 0x00, 0x02, // sender, receiver
   0x00, 0x05,                                     // Ethernet
   0x01, 0x01, 0x10,                               // AGI
   0x02, 0x04, 0x20, 0x21, 0x22, 0x23,             // SAII
   0x03, 0x04, 0x30, 0x31, 0x32, 0x33,             // TAII
   0x00, 0x00, 0x00,                               // padding
};

TEST( LspPingFec129Ipv4SubTlv, readsItsBytes ) {
   WireBytes block{ fec129Example };
   auto const & view = block.as< LspPingFec129Ipv4SubTlv >();
   EXPECT_EQ( view.senderAddr(), IpAddr( 10, 0, 0, 1 ) );
   EXPECT_EQ( view.receiverAddr(), IpAddr( 10, 0, 0, 2 ) );
   EXPECT_EQ( view.pwType(), 5 );
   EXPECT_EQ( view.pwGenId(), genId( 1, 4, 4 ) );
   EXPECT_EQ( view.additionalTlvLength(), 9 );
   EXPECT_EQ( view.minTlvLength, 16 );
   EXPECT_TRUE( view.valid() );
   EXPECT_EQ( view.stringValue(), "Fec129Ipv4:\tsender(10.0.0.1),\treceiver(10.0.0.2),\tpwType(5),"
                                  "\tpwGenId(agi 1:10 saii 2:20212223 taii 3:30313233)" );
}

TEST( LspPingFec129Ipv4SubTlv, writesItsFixedPart ) {
   WireBytes block{ Bytes( 14, 0xa5 ) };
   auto & view = block.as< LspPingFec129Ipv4SubTlv >();
   view.typeIs( 11 );
   view.lengthIs( 28 );
   view.senderAddrIs( IpAddr{ 10, 0, 0, 1 } );
   view.receiverAddrIs( IpAddr{ 10, 0, 0, 2 } );
   view.pwTypeIs( 5 );
   EXPECT_EQ( block.copy(), Bytes( fec129Example.begin(), fec129Example.begin() + 14 ) );
}

TEST( LspPingFec129Ipv4SubTlv, needsALengthThatCoversItsIdentifiers ) {
   for( U16 length = 0; length <= 28; ++length ) {
      WireBytes block{ fec129Example };
      auto & view = block.as< LspPingFec129Ipv4SubTlv >();
      view.lengthIs( length );
      EXPECT_EQ( view.valid(), length >= 25 ) << length;
      EXPECT_EQ( view.pwGenId(), length >= 25 ? genId( 1, 4, 4 ) : PseudowireGenId{} ) << length;
      EXPECT_EQ( view.additionalTlvLength(), length >= 25 ? 9 : 0 ) << length;
      EXPECT_EQ( view.minTlvLength, 16 );
   }
}

TEST( LspPingFec129Ipv4SubTlv, isValidForOneTypeAndTwoPseudowireTypes ) {
   WireBytes block{ fec129Example };
   auto & view = block.as< LspPingFec129Ipv4SubTlv >();
   for( U32 number = 0; number <= 0xFFFF; ++number ) {
      U16 const value = static_cast< U16 >( number );
      view.typeIs( value );
      ASSERT_EQ( view.valid(), value == 11 ) << value;
      view.typeIs( 11 );
      view.pwTypeIs( value );
      ASSERT_EQ( view.valid(), value == 4 || value == 5 ) << value;
      view.pwTypeIs( 5 );
   }
   view.pwTypeIs( 6 );
   EXPECT_EQ( view.stringValue(), "Invalid Fec129Ipv4SubTlv" );
}

TEST( LspPingFec129Ipv4SubTlv, isInvalidWithAnIdentifierOfNineBytesWhateverItsLengthFieldSays ) {
   Bytes bytes( 4 + 0xFFFF );
   std::copy( fec129Example.begin(), fec129Example.end(), bytes.begin() );
   bytes[15] = 9;
   WireBytes block{ bytes };
   auto & view = block.as< LspPingFec129Ipv4SubTlv >();
   for( U32 length = 0; length <= 0xFFFF; ++length ) {
      view.lengthIs( static_cast< U16 >( length ) );
      ASSERT_EQ( view.pwGenId(), PseudowireGenId{} ) << length;
      ASSERT_FALSE( view.valid() ) << length;
   }
}

TEST( LspPingFec129Ipv4SubTlv, isInvalidWhenItsIdentifiersEqualThreeEmptyOnes ) {
   WireBytes block{ fec129Bytes( PseudowireGenId{} ) };
   auto & view = block.as< LspPingFec129Ipv4SubTlv >();
   EXPECT_EQ( view.length(), 16 );
   EXPECT_EQ( view.pwGenId(), PseudowireGenId{} );
   EXPECT_FALSE( view.valid() );
   EXPECT_EQ( view.stringValue(), "Invalid Fec129Ipv4SubTlv" );
   view.pwGenIdIs( { {}, {}, { 1, 0 } } );
   EXPECT_TRUE( view.valid() );
   EXPECT_EQ( view.additionalTlvLength(), 0 );
}

TEST( LspPingFec129Ipv4SubTlv, writesAndReadsBackIdentifiersOfEveryLength ) {
   for( U32 a = 0; a <= 8; ++a ) {
      for( U32 s = 0; s <= 8; ++s ) {
         for( U32 t = 0; t <= 8; ++t ) {
            PseudowireGenId const id = genId( a, s, t );
            Bytes const expected = fec129Bytes( id );
            Bytes before = expected;
            std::fill( before.begin() + 14, before.end(), 0xa5 );
            WireBytes block{ before };
            auto & view = block.as< LspPingFec129Ipv4SubTlv >();
            view.pwGenIdIs( id );
            ASSERT_EQ( block.copy(), expected ) << a << ' ' << s << ' ' << t;
            ASSERT_EQ( view.pwGenId(), id ) << a << ' ' << s << ' ' << t;
            ASSERT_EQ( view.additionalTlvLength(), a + s + t );
            ASSERT_TRUE( view.valid() );
         }
      }
   }
}

TEST( LspPingFec129Ipv4SubTlv, leavesBytesBehindThePaddingAlone ) {
   Bytes bytes( 48, 0xa5 );
   std::copy( fec129Example.begin(), fec129Example.begin() + 14, bytes.begin() );
   bytes[3] = 44;
   WireBytes block{ bytes };
   block.as< LspPingFec129Ipv4SubTlv >().pwGenIdIs( genId( 1, 4, 4 ) );
   Bytes expected = fec129Example;
   expected.resize( 48, 0xa5 );
   expected[3] = 44;
   EXPECT_EQ( block.copy(), expected );
}

TEST( LspPingFec129Ipv4SubTlvDeathTest, refusesIdentifiersOfMoreThanEightBytes ) {
   WireBytes block{ Bytes( 64, 0 ) };
   auto & view = block.as< LspPingFec129Ipv4SubTlv >();
   view.lengthIs( 60 );
   EXPECT_DEATH( view.pwGenIdIs( genId( 9, 9, 9 ) ),
                 "assertion \"agi.length\\(\\) <= maxLength\" failed" );
   EXPECT_DEATH( view.pwGenIdIs( genId( 8, 255, 9 ) ),
                 "assertion \"saii.length\\(\\) <= maxLength\" failed" );
   EXPECT_DEATH( view.pwGenIdIs( genId( 8, 8, 9 ) ),
                 "assertion \"taii.length\\(\\) <= maxLength\" failed" );
}

TEST( LspPingFec129Ipv4SubTlvDeathTest, refusesIdentifiersThatItsLengthDoesNotCover ) {
   WireBytes block{ fec129Example };
   auto & view = block.as< LspPingFec129Ipv4SubTlv >();
   view.pwGenIdIs( genId( 1, 4, 4 ) );
   view.lengthIs( 27 );
   EXPECT_DEATH( view.pwGenIdIs( genId( 1, 4, 4 ) ),
                 "assertion \"length\\(\\) >= tlvLength\" failed" );
   view.lengthIs( 15 );
   EXPECT_DEATH( view.pwGenIdIs( {} ), "assertion \"length\\(\\) >= tlvLength\" failed" );
}

/// Memory that ends where the next page may not be touched.
class GuardedPage {
 public:
   GuardedPage() {
      void * const pages =
         mmap( nullptr, 2 * size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0 );
      if( pages == MAP_FAILED )
         throw std::bad_alloc{};
      begin_ = static_cast< U8 * >( pages );
      if( mprotect( end(), size_, PROT_NONE ) != 0 )
         throw std::bad_alloc{};
   }
   GuardedPage( GuardedPage const & ) = delete;
   ~GuardedPage() { munmap( begin_, 2 * size_ ); }

   U8 * end() const { return begin_ + size_; }

 private:
   std::size_t size_ = static_cast< std::size_t >( sysconf( _SC_PAGESIZE ) );
   U8 * begin_;
};

TEST( LspPingFec129Ipv4SubTlvDeathTest, standsBeforeAPageThatCannotBeRead ) {
   GuardedPage const page;
   EXPECT_DEATH( static_cast< void >( *const_cast< U8 volatile * >( page.end() ) ), "" );
}

TEST( LspPingFec129Ipv4SubTlv, readsNothingThatItsLengthDoesNotCover ) {
   GuardedPage const page;
   for( U32 a = 0; a <= 9; ++a ) {
      for( U32 s = 0; s <= 9; ++s ) {
         for( U32 t = 0; t <= 9; ++t ) {
            PseudowireGenId const id = genId( a, s, t );
            Bytes whole( 14 );
            std::copy( fec129Example.begin(), fec129Example.begin() + 14, whole.begin() );
            for( auto const & part : { id.agi(), id.saii(), id.taii() } ) {
               whole.push_back( part.type() );
               whole.push_back( part.length() );
               for( U32 index = 0; index < part.length(); ++index )
                  whole.push_back( index < 8 ? part.value( index ) : 0xa5 );
            }
            whole.resize( 68, 0xa5 );
            for( U16 length = 0; length <= 64; ++length ) {
               // The view's own bytes are there in any case, and no byte behind what is covered.
               std::size_t const there = std::max( 14u, 4u + length );
               U8 * const start = page.end() - there;
               std::memcpy( start, whole.data(), there );
               auto & view = *reinterpret_cast< LspPingFec129Ipv4SubTlv * >( start );
               view.lengthIs( length );
               bool const decodes = a <= 8 && s <= 8 && t <= 8 && length >= 16 + a + s + t;
               ASSERT_EQ( view.pwGenId(), decodes ? id : PseudowireGenId{} )
                  << a << ' ' << s << ' ' << t << ' ' << length;
               ASSERT_EQ( view.valid(), decodes );
               ASSERT_EQ( view.additionalTlvLength(), decodes ? a + s + t : 0 );
            }
         }
      }
   }
}

// What the setter would end the program for, whoever writes by name can ask before.
TEST( LspPingFec129Ipv4SubTlv, tellsWhyIdentifiersAreNotTaken ) {
   Kiv::TypeRef const type = Kiv::typeOf< LspPingFec129Ipv4SubTlv >();
   Kiv::FoundAttribute const found = Kiv::attributeNamed( type, "pwGenId" );
   ASSERT_TRUE( found );
   WireBytes const bytes( 24, 0 );
   auto & view = bytes.as< LspPingFec129Ipv4SubTlv >();
   auto const refusal = [&]( U8 length, U16 viewLength ) {
      view.lengthIs( viewLength );
      Pseudowire::PseudowireAttachmentIdentifier const one{ 1, length };
      Pseudowire::PseudowireGenId const id{ one, {}, {} };
      EXPECT_EQ( view.pwGenIdRefusal( id ),
                 Kiv::writeRefusal( found.declaring.record(), *found.attribute, &view, &id ) );
      return view.pwGenIdRefusal( id );
   };
   EXPECT_EQ( refusal( 9, 20 ), "an identifier has 8 bytes" );
   EXPECT_EQ( refusal( 4, 19 ), "needs 20 bytes of value, the length is 19" );
   EXPECT_EQ( refusal( 4, 20 ), "" );
   EXPECT_EQ( refusal( 5, 20 ), "needs 24 bytes of value, the length is 20" );
   // A row without conditions refuses nothing.
   U16 const pwType = 0;
   Kiv::FoundAttribute const plain = Kiv::attributeNamed( type, "pwType" );
   EXPECT_EQ( Kiv::writeRefusal( plain.declaring.record(), *plain.attribute, &view, &pwType ), "" );
}

TEST( LspPingFec129Ipv4SubTlv, hasItsAttributesInOrder ) {
   EXPECT_EQ(
      attributeNames< LspPingFec129Ipv4SubTlv >(),
      "senderAddr, receiverAddr, pwType, pwGenId, minTlvLength, additionalTlvLength, valid, "
      "stringValue" );
   WireBytes block{ fec129Example };
   auto & view = block.as< LspPingFec129Ipv4SubTlv >();
   EXPECT_EQ( Kiv::read< PseudowireGenId >( view, "pwGenId" ), genId( 1, 4, 4 ) );
   Kiv::write< PseudowireGenId >( view, "pwGenId", genId( 4, 4, 4 ) );
   EXPECT_EQ( view.pwGenId(), genId( 4, 4, 4 ) );
   EXPECT_EQ( Kiv::read< U16 >( view, "minTlvLength" ), 16 );
   EXPECT_EQ( Kiv::read< U16 >( view, "additionalTlvLength" ), 12 );
   U16 value = 0;
   for( char const * name : { "minTlvLength", "additionalTlvLength" } ) {
      Kiv::FoundAttribute const found =
         Kiv::attributeNamed( Kiv::typeOf< LspPingFec129Ipv4SubTlv >(), name );
      EXPECT_EQ( Kiv::attributeAccess( Kiv::typeOf< LspPingFec129Ipv4SubTlv >(), &view,
                                       found.field(), Kiv::OpCode::write, &value ),
                 Kiv::Outcome::notPermitted );
   }
}

TEST( LspPingFec129Ipv4SubTlv, isParsedInsideAPacket ) {
   Bytes packet( 5, 0xa5 );
   packet.insert( packet.end(), fec129Example.begin(), fec129Example.end() );
   auto const parser =
      LspPing::lspPingFec129Ipv4SubTlvParserFactory( Velnet::pktFactory( packet ), 5 );
   EXPECT_TRUE( Kiv::read< bool >( *parser, "valid" ) );
   EXPECT_EQ( Kiv::read< PseudowireGenId >( *parser, "pwGenId" ), genId( 1, 4, 4 ) );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "pwType" ), 5 );
   EXPECT_EQ( Kiv::read< U16 >( *parser, "totalLength" ), 32 );
}

} // namespace
