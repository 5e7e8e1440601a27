#include "tests/WireBytes.h"
#include "tests/message/MessageBytes.h"
#include "tests/message/RandomMessage.h"
#include "tests/message/Rewrite.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <tuple>

namespace {

using namespace LspPing;
using namespace MessageBytes;
using Writer = LspPingMessageWriter;

// Every class with facts beside it can be opened or added.
template < class T >
constexpr bool isWritten() {
   if constexpr( !requires { T::element; } )
      return true;
   else if constexpr( std::is_same_v< T, LspPingPadTlv > )
      return requires( Writer & writer ) {
         writer.add< T >( []( T & ) {} );
      };
   else
      return requires( Writer & writer ) {
         writer.open< T >( []( T & ) {} );
      };
}
template < class... Ts >
constexpr bool areWritten( Kiv::TypeList< Ts... > ) {
   return ( isWritten< Ts >() && ... );
}
static_assert( areWritten( LspPingHdrTypes{} ) );
static_assert( areWritten( LspPingExtTypes{} ) );

// What became of the message: empty where reading, writing and reading gives the same.
std::string differenceOf( std::span< U8 const > bytes, LspPingMessageReader & reader,
                          Bytes & memory ) {
   LspPingMessage const & message = reader.read( bytes );
   if( !message.problems().empty() )
      return problemOf( bytes );
   memory.clear();
   Writer writer( memory );
   Rewrite::message( writer, message );
   if( writer.error() )
      return std::string( lspPingWriteErrorName( writer.error().code ) );
   if( !std::equal( memory.begin(), memory.end(), bytes.begin(), bytes.end() ) )
      return hexOf( bytes ) + "\nbecame\n" + hexOf( memory );
   return {};
}

// All that is told of an element.
auto factsOf( LspPingElementRef element ) {
   LspPingMultipath const multipath = element.multipath();
   LspPingLabels const labels = element.labels();
   return std::tuple( element.row(), element.offset(), element.length(), element.depth(),
                      element.bytes().size(), element.paddedBytes().size(), element.isDescribed(),
                      element.isValid(), element.hidesBytes(), element.isContainer(),
                      element.elements().empty(), element.hasMultipath(), multipath.type(),
                      multipath.bytes().data(), multipath.bytes().size(), multipath.isIpv6(),
                      element.hasLabels(), labels.bytes().data(), labels.bytes().size() );
}

// That more should come is nothing to a whole message, but the reader goes through it slowly then.
TEST( LspPingReadWriteRead, findsTheSameQuicklyAndSlowly ) {
   LspPingMessageReader quick;
   LspPingMessageReader slow;
   Bytes message;
   std::size_t compared = 0;
   for( U64 seed = 0; seed < 10000; ++seed ) {
      message.clear();
      Writer writer( message );
      RandomMessage( seed ).write( writer );
      LspPingMessage const & one = quick.read( message );
      LspPingMessage const & other = slow.read( message, { .possiblePadding = 0, .isCut = true } );
      ASSERT_TRUE( one.problems().empty() && other.problems().empty() ) << hexOf( message );
      ASSERT_EQ( one.elementCount(), other.elementCount() ) << hexOf( message );
      for( U32 i = 0; i < one.elementCount(); ++i, ++compared )
         ASSERT_TRUE( factsOf( one.element( i ) ) == factsOf( other.element( i ) ) )
            << "element " << i << " of " << hexOf( message );
   }
   EXPECT_GT( compared, 20000u );
}

TEST( LspPingReadWriteRead, givesTheSameBytesForRandomMessages ) {
   LspPingMessageReader reader;
   Bytes message;
   Bytes memory;
   std::set< LspPingElementRow const * > seen;
   std::size_t opened = 0;
   for( U64 seed = 0; seed < 150000; ++seed ) {
      message.clear();
      Writer writer( message );
      RandomMessage( seed ).write( writer );
      ASSERT_EQ( lspPingWriteErrorName( writer.error().code ), "none" )
         << "seed " << seed << " offset " << writer.error().offset << ": " << hexOf( message );
      ASSERT_EQ( differenceOf( message, reader, memory ), "" )
         << "seed " << seed << ": " << hexOf( message );
      for( U32 i = 0; i < reader.message().elementCount(); ++i ) {
         seen.insert( reader.message().element( i ).row() );
         opened += Rewrite::isOpened( reader.message().element( i ) ) ? 1 : 0;
      }
   }
   for( LspPingElementRow const & row : lspPingElements() ) {
      // Where the choosing byte is known, the chosen view describes the element.
      EXPECT_EQ( seen.contains( &row ), row.facts.chooser == 0 )
         << int( row.facts.context ) << ' ' << row.code();
   }
   EXPECT_GT( opened, 50000u );
}

// What a packet carries: UDP data where one of the ports is that of LSP Ping and the length fits,
// or what is behind the header of its associated channel (RFC 5586, channel type 0x25).
Bytes messageOf( std::span< U8 const > packet ) {
   auto const word = [&]( std::size_t at ) {
      return std::size_t{ packet[at] } << 8 | packet[at + 1];
   };
   for( std::size_t at = 0; at + 36 <= packet.size(); ++at ) {
      std::size_t const left = packet.size() - at;
      if( ( word( at ) == 3503 || word( at + 2 ) == 3503 ) && word( at + 4 ) >= 40 &&
          word( at + 4 ) <= left ) {
         auto const data = packet.subspan( at + 8, word( at + 4 ) - 8 );
         return { data.begin(), data.end() };
      }
      if( word( at ) == 0x1000 && word( at + 2 ) == 0x25 ) {
         auto const data = packet.subspan( at + 4 );
         return { data.begin(), data.end() };
      }
   }
   return {};
}

std::vector< Bytes > messagesOf( std::string const & path ) {
   std::ifstream file( path, std::ios::binary );
   Bytes const capture{ std::istreambuf_iterator< char >( file ), {} };
   std::vector< Bytes > messages;
   // A pcap file, little-endian: its header, and one before each packet with the size at 8.
   for( std::size_t at = 24; at + 16 <= capture.size(); ) {
      std::size_t const size = capture[at + 8] | std::size_t{ capture[at + 9] } << 8;
      messages.push_back( messageOf( std::span( capture ).subspan( at + 16, size ) ) );
      at += 16 + size;
   }
   return messages;
}

// Into a place that is not zero and ends with the message, or in the midst of it.
TEST( LspPingReadWriteRead, givesTheSameBytesInAPlaceAsInMemoryThatGrows ) {
   Bytes message;
   for( U64 seed = 0; seed < 20000; ++seed ) {
      message.clear();
      Writer grower( message );
      RandomMessage( seed ).write( grower );
      WireBytes const whole( message.size(), 0xa5 );
      Writer writer( whole.bytes() );
      RandomMessage( seed ).write( writer );
      ASSERT_EQ( lspPingWriteErrorName( writer.error().code ), "none" ) << "seed " << seed;
      ASSERT_EQ( hexOf( writer.bytes() ), hexOf( message ) ) << "seed " << seed;
      if( message.size() == 32 )
         continue;
      WireBytes const part( 32 + seed % ( message.size() - 32 ), 0xa5 );
      Writer cut( part.bytes() );
      RandomMessage( seed ).write( cut );
      ASSERT_EQ( cut.error().code, LspPingWriteErrorCode::noRoom ) << "seed " << seed;
      ASSERT_EQ( problemOf( cut.bytes() ), "" ) << "seed " << seed;
   }
}

bool hasContainerOfOtherReading( LspPingMessage const & message ) {
   for( U32 i = 0; i < message.elementCount(); ++i )
      if( auto const element = message.element( i );
          !element.reading().empty() && element.isContainer() )
         return true;
   return false;
}

TEST( LspPingReadWriteRead, givesTheSameBytesForTheSamples ) {
   LspPingMessageReader reader;
   Bytes memory;
   for( std::string const name : { "/echo", "/registry" } ) {
      std::vector< Bytes > const messages = messagesOf( LSPPING_SAMPLES + name + ".pcap" );
      std::ifstream decoded( LSPPING_SAMPLES + name + ".jsonl" ); // a line for each
      auto const lines = std::count( std::istreambuf_iterator< char >( decoded ), {}, '\n' );
      EXPECT_GT( lines, 0 );
      EXPECT_EQ( messages.size(), static_cast< std::size_t >( lines ) );
      for( Bytes const & message : messages ) {
         // Written anew, what others stand in has the length that the RFC draws, not the stated
         // one.
         bool const isSame = !hasContainerOfOtherReading( reader.read( message ) );
         EXPECT_EQ( differenceOf( message, reader, memory ).empty(), isSame ) << hexOf( message );
      }
   }
}

// Each row on its own, where it may stand.
TEST( LspPingReadWriteRead, findsEachElementOfTheTable ) {
   for( LspPingElementRow const & row : lspPingElements() ) {
      Bytes memory;
      Writer writer( memory );
      RandomMessage random( row.code() );
      writer.header( asRequest );
      auto const write = [&] { random.element( writer, row, 4 ); };
      switch( row.facts.context ) {
      case LspPingContext::message:
         write();
         break;
      case LspPingContext::targetFec: {
         auto const stack = writer.open( LspPingTlvType::TargetFecStack );
         write();
         break;
      }
      case LspPingContext::ddmap: {
         auto const mapping = writer.open< LspPingDdmapTlv >();
         write();
         break;
      }
      case LspPingContext::p2mpResponder: {
         auto const responder = writer.open( LspPingTlvType::P2mpRespId );
         // A node's address that stands first is part of the view.
         writer.add< LspPingResponderEgressIpv4SubTlv >( []( auto & ) {} );
         write();
         break;
      }
      case LspPingContext::vendorPrivate: {
         auto const vendor = writer.open< LspPingVeloraVendorPrivateTlv >( []( auto & tlv ) {
            tlv.vendorIanaIs( static_cast< U32 >( LspPingVendorIana::VeloraIana ) );
         } );
         write();
         break;
      }
      case LspPingContext::opaqueValue: {
         auto const stack = writer.open( LspPingTlvType::TargetFecStack );
         auto const fec = writer.open< LspPingP2mpFecStackSubTlv >();
         write();
         break;
      }
      default:
         random.elementInside( writer, row );
      }
      ASSERT_EQ( lspPingWriteErrorName( writer.error().code ), "none" )
         << lspPingContextName( row.facts.context ) << ' ' << row.code();
      LspPingMessageReader reader;
      LspPingMessage const & message = reader.read( memory );
      EXPECT_EQ( problemOf( memory ), "" ) << row.code();
      bool isFound = false;
      for( U32 i = 0; i < message.elementCount(); ++i ) {
         LspPingElementRef const element = message.element( i );
         isFound =
            isFound || ( element.context() == row.facts.context && element.code() == row.code() );
      }
      EXPECT_TRUE( isFound ) << row.code();
   }
}

} // namespace
