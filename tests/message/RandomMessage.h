#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/ext/LspPingExt.h"
#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"
#include "tests/Bytes.h"

#include <algorithm>
#include <array>
#include <random>
#include <utility>
#include <vector>

/// Well-formed messages, made through the writer from random choices over the table of all
/// elements.
class RandomMessage {
 public:
   using Writer = LspPing::LspPingMessageWriter;
   using Row = LspPing::LspPingElementRow;

   explicit RandomMessage( U64 seed ) : random_( seed ) {}

   void write( Writer & writer ) {
      writer.header( [&]( LspPing::LspPingHdr & header ) {
         fill( { reinterpret_cast< U8 * >( &header ), sizeof( header ) } );
         header.versionIs( 1 );
         header.messageTypeIs( static_cast< U8 >( 1 + below( 2 ) ) );
      } );
      for( U32 count = below( 4 ); count > 0; --count )
         element( writer, LspPing::LspPingContext::message, 0 );
   }

   /// A given one, where it may stand.
   void element( Writer & writer, Row const & row, U32 depth );
   /// A given one of a context of `LspPingBehind::elements`, in what may stand around it.
   void elementInside( Writer & writer, Row const & row );

   U32 below( U32 end ) { return static_cast< U32 >( random_() % end ); }

 private:
   using Behind = LspPing::LspPingBehind;
   using Context = LspPing::LspPingContext;
   using Open = LspPing::LspPingOpenElement;
   // It says that its code's views describe none of such bytes.
   static bool isNone( Row const & row ) { return !row.type && row.facts.chooser != 0; }
   static bool mayHoldItself( Row const & row ) {
      return row.facts.behind == Behind::tlvs ||
             ( row.facts.behind == Behind::elements && row.facts.inside == row.facts.context );
   }
   void fill( std::span< U8 > bytes ) {
      for( U8 & byte : bytes )
         byte = static_cast< U8 >( random_() );
   }
   Bytes some( U32 count ) {
      Bytes bytes( count );
      fill( bytes );
      return bytes;
   }
   void element( Writer & writer, Context context, U32 depth );
   void children( Writer & writer, Context context, U32 depth, U32 least ) {
      // Once: what is wanted may hold others of its context.
      for( Row const *& row : wanted_ )
         if( row != nullptr && row->facts.context == context )
            element( writer, *std::exchange( row, nullptr ), depth );
      for( U32 count = least + below( 3 ); count > 0; --count )
         element( writer, context, depth );
   }
   void behind( Writer & writer, Open & open, Row const & row, U32 depth );
   void multipath( Open & open );
   // What stands behind the views that go on to the end of the value.
   void tail( Open & open, Row const & row ) {
      using namespace LspPing;
      if( row.type == Kiv::typeIdOf< LspPingReplyModeOrderTlv > ) {
         constexpr std::array< U8, 6 > modes{ 2, 5, 3, 5, 5, 4 };
         open.bytes( std::span( modes ).first( 1 + below( modes.size() ) ) );
      } else if( row.type == Kiv::typeIdOf< LspPingUpstreamNeighborAddressTlv > ||
                 row.type == Kiv::typeIdOf< LspPingDownstreamNeighborAddressTlv > ) {
         open.bytes( some( sizeof( Velnet::IpAddr ) + sizeof( Velnet::Ip6Addr ) ) );
      } else if( row.type == Kiv::typeIdOf< LspPingRelayNodeAddressStackTlv > ) {
         // The replying router, a destination, and entries without and with an address.
         open.bytes( some( sizeof( Velnet::IpAddr ) ) );
         U8 const count = static_cast< U8 >( below( 3 ) );
         open.bytes( Bytes{ 0, 0, 0, count } );
         for( U8 i = 0; i < count; ++i ) {
            open.bytes( Bytes{ i, 0x80, 0, 0 } );
            open.bytes( some( i * sizeof( Velnet::IpAddr ) ) );
         }
      } else if( row.type == Kiv::typeIdOf< LspPingP2mpPseudowireSubTlv > ) {
         // The address's length is counted in bytes or in bits.
         U32 const size = below( 2 ) == 0 ? 4 : 16;
         Bytes rest = some( count_ + 1 + size );
         rest[count_] = static_cast< U8 >( below( 2 ) == 0 ? size : 8 * size );
         open.bytes( rest );
      } else if( row.type == Kiv::typeIdOf< LspPingPeerSetSidSubTlv > ) {
         open.bytes( some( count_ * sizeof( LspPingRemotePeer ) ) );
      } else {
         open.bytes( some( below( 9 ) ) );
      }
   }
   Velnet::IpGenAddr address( bool isIpv6 ) {
      U8 const last = static_cast< U8 >( random_() );
      if( !isIpv6 )
         return Velnet::IpAddr( 127, 0, 0, last );
      return Velnet::Ip6Addr(
         Velnet::Ip6Addr::Bytes{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 127, 0, 0, last } );
   }

   // A header that views share, and what is none of them, becomes one of theirs.
   Row const & chosenInsteadOf( Row const & row ) {
      Row const * chosen = &row;
      while( chosen->facts.chooser != 0 ) {
         auto const rows = LspPing::lspPingElements();
         Row const & other = rows[below( static_cast< U32 >( rows.size() ) )];
         if( other.facts.context == row.facts.context && other.code() == row.code() )
            chosen = &other;
      }
      return *chosen;
   }
   template < class View >
   void viewed( Writer & writer, Row const & row, U32 depth );
   template < class... Ts >
   void viewedOf( Kiv::TypeList< Ts... >, Writer & writer, Row const & row, U32 depth ) {
      auto const tryOne = [&]< class T >( Kiv::Of< T > ) {
         if constexpr( LspPing::LspPingElementClass< T > ) {
            if( row.type == Kiv::typeIdOf< T > )
               viewed< T >( writer, row, depth );
         }
      };
      ( tryOne( Kiv::Of< Ts >{} ), ... );
   }

   std::mt19937_64 random_;
   std::vector< Row const * > wanted_;
   // What the view that was filled last says of its tail.
   U32 count_ = 0;
};

// A row at random that leaves enough depth for what may stand in it, or a code that nobody knows.
inline void RandomMessage::element( Writer & writer, Context context, U32 depth ) {
   constexpr U32 nobodys = 199;
   if( below( 10 ) == 0 ) {
      writer.add( context, nobodys, some( below( 9 ) ) );
      return;
   }
   std::vector< Row const * > rows;
   for( Row const & row : LspPing::lspPingElements() )
      if( row.facts.context == context && !isNone( row ) &&
          ( depth < 4 || !mayHoldItself( row ) ) &&
          ( depth < LspPing::LspPingMessageReader::deepest || !row.facts.isContainer() ) )
         rows.push_back( &row );
   element( writer, *rows[below( static_cast< U32 >( rows.size() ) )], depth );
}

inline void RandomMessage::element( Writer & writer, Row const & row, U32 depth ) {
   if( !row.type && row.facts.chooser != 0 ) {
      element( writer, chosenInsteadOf( row ), depth );
      return;
   }
   if( row.type ) {
      viewedOf( LspPing::LspPingHdrTypes{}, writer, row, depth );
      viewedOf( LspPing::LspPingExtTypes{}, writer, row, depth );
      return;
   }
   auto open = writer.open( row.facts.context, row.code() );
   U32 const least = row.facts.leastLength;
   Bytes value = some( row.facts.hasFixedLength ? least : least + below( 6 ) );
   if( row.facts.behind == Behind::nothing )
      open.bytes( value );
   behind( writer, open, row, depth );
}

inline void RandomMessage::elementInside( Writer & writer, Row const & row ) {
   for( Row const & parent : LspPing::lspPingElements() ) {
      if( parent.facts.behind != Behind::elements || parent.facts.inside != row.facts.context )
         continue;
      wanted_.push_back( &row );
      if( parent.facts.context == Context::message )
         element( writer, parent, 0 );
      else
         elementInside( writer, parent );
      wanted_.clear();
      return;
   }
}

template < class View >
void RandomMessage::viewed( Writer & writer, Row const & row, U32 depth ) {
   if constexpr( std::is_same_v< View, LspPing::LspPingPadTlv > ) {
      writer.add< View >( [&]( View & pad ) {
         pad.padTypeIs( static_cast< U8 >( 1 + below( 2 ) ) );
         for( U32 i = below( 9 ); i-- > 0; )
            pad.paddingIs( i, static_cast< U8 >( below( 256 ) ) );
      } );
   } else {
      constexpr LspPing::LspPingElement const & facts = View::element;
      constexpr std::size_t header = LspPing::lspPingHeaderSize( facts.context );
      constexpr std::size_t offset = facts.isOverValue ? header : 0;
      Row const * const target = &chosenInsteadOf( row );
      auto const fillIn = [&]( View & view ) {
         U8 * const bytes = reinterpret_cast< U8 * >( &view ) - offset;
         std::vector< U8 > const before( bytes + offset, bytes + offset + sizeof( View ) );
         fill( { bytes + offset, sizeof( View ) } );
         auto const keep = [&]( std::size_t at ) {
            if( at >= offset )
               bytes[at] = before[at - offset];
         };
         for( std::size_t i = 0; i < header; ++i )
            keep( i );
         for( std::size_t i = 0; i < facts.selectorCount; ++i )
            keep( facts.selectors[i].offset );
         if( facts.chooser != 0 ) {
            for( std::size_t i = 0; i < target->facts.selectorCount; ++i ) {
               auto const & selector = target->facts.selectors[i];
               bytes[selector.offset] = selector.values[below( selector.valueCount )];
            }
         }
         // The root's family and length.
         if( facts.behind == Behind::opaqueValues )
            for( std::size_t i = 4; i < 7; ++i )
               keep( i );
         if constexpr( requires { view.prefixLenIs( 0 ); } )
            view.prefixLenIs( static_cast< U8 >( below( 8 * sizeof( view.ipPrefix() ) + 1 ) ) );
         if constexpr( requires { view.maskLenIs( 0 ); } )
            view.maskLenIs( static_cast< U8 >( below( 8 * sizeof( view.groupAddr() ) + 1 ) ) );
         if constexpr( requires { view.rootAddr(), view.family(), view.addrLen(); } )
            view.familyIs( view.addrLen() == 4 ? 1 : 2 );
         if constexpr( requires { view.fecType(); } )
            view.fecTypeIs( static_cast< U8 >( 6 + below( 3 ) ) );
         if constexpr( requires { view.mac(); } )
            view.macLenIs( 48 );
         if constexpr( requires { view.pwId(); } )
            view.mbzIs( 0 );
         if constexpr( requires { view.addressFamilyIs( 0 ); } )
            view.addressFamilyIs( sizeof( view.root() ) == 4 ? 1 : 2 );
         if constexpr( requires { view.peerCountIs( 0 ); } )
            view.peerCountIs( static_cast< U16 >( count_ = below( 4 ) ) );
         // Of the two least significant ones, each excludes the other where there are two.
         if constexpr( requires { view.flagsIs( view.flags() ); } )
            view.flagsIs( static_cast< decltype( view.flags() ) >(
               view.flags() & ~( below( 2 ) == 0 ? 1u : 2u ) ) );
         if constexpr( requires { view.agiLengthIs( 0 ); } )
            view.agiLengthIs( static_cast< U8 >( count_ = below( 9 ) ) );
         // What `tail` writes, and no two flags that exclude each other.
         if constexpr( requires { view.neighborAddr(); } ) {
            view.neighborAddrTypeIs( 1 );
            view.localAddrTypeIs( 3 );
         }
         if constexpr( requires { view.replyAddrTypeIs( 1 ); } )
            view.replyAddrTypeIs( 1 );
         if constexpr( std::is_same_v< View, LspPing::LspPingReplyPathTlv > )
            view.flagsIs( static_cast< U16 >( below( 3 ) ) );
         if( facts.otherLength != 0 && below( 2 ) == 0 )
            bytes[3] = static_cast< U8 >( facts.otherLength );
      };
      if constexpr( facts.behind == Behind::nothing && facts.chooser == 0 ) {
         if( below( 2 ) == 0 ) {
            writer.add< View >( row.code(), fillIn );
            return;
         }
      }
      auto open = writer.open< View >( row.code(), fillIn );
      if( offset + sizeof( View ) < target->fixedSize() && facts.chooser != 0 )
         open.bytes( some( target->fixedSize() - static_cast< U32 >( offset + sizeof( View ) ) ) );
      behind( writer, open, *target, depth );
   }
}

inline void RandomMessage::behind( Writer & writer, Open & open, Row const & row, U32 depth ) {
   switch( row.facts.behind ) {
   case Behind::nothing:
   case Behind::padding:
      return;
   case Behind::tail:
      return tail( open, row );
   case Behind::counted:
      // Opaque values inside others stay short: a FEC stack change counts in a byte.
      if( row.facts.inside == row.facts.context ) {
         if( below( 2 ) == 0 )
            element( writer, row.facts.inside, LspPing::LspPingMessageReader::deepest );
         return;
      }
      [[fallthrough]];
   case Behind::elements:
      return children( writer, row.facts.inside, depth + 1, 0 );
   case Behind::tlvs:
      return children( writer, Context::message, depth + 1, 1 );
   case Behind::fecs:
      return children( writer, Context::targetFec, depth + 1, 1 );
   case Behind::subTlvs:
      return children( writer, Context::ddmap, depth + 1, 0 );
   case Behind::responderTlvs:
      return children( writer, Context::p2mpResponder, depth + 1, 0 );
   case Behind::stackChangeFec: {
      if( below( 4 ) == 0 )
         return;
      if( below( 3 ) != 0 )
         return element( writer, Context::targetFec, depth + 1 );
      auto const stack = writer.open( LspPing::LspPingTlvType::TargetFecStack );
      return element( writer, Context::targetFec, depth + 2 );
   }
   case Behind::opaqueValues:
      if( below( 2 ) == 0 )
         open.rootAddr( address( below( 2 ) == 0 ) );
      return children( writer, Context::opaqueValue, depth + 1, 0 );
   case Behind::identifiers: {
      using Id = Pseudowire::PseudowireAttachmentIdentifier;
      auto const id = [&] {
         Id made( static_cast< U8 >( 1 + below( 255 ) ), static_cast< U8 >( below( 9 ) ) );
         for( U8 i = 0; i < made.length(); ++i )
            made.valueIs( i, static_cast< U8 >( below( 256 ) ) );
         return made;
      };
      open.pwGenId( { id(), id(), id() },
                    static_cast< LspPing::LspPingPaddingCount >( below( 2 ) ) );
      return;
   }
   case Behind::multipath:
      return multipath( open );
   case Behind::mappingLabels:
      multipath( open );
      [[fallthrough]];
   case Behind::protocolLabels:
   case Behind::labelStack:
      // With a fixed length, one or none.
      for( U32 count = below( row.facts.hasFixedLength ? 2 : 4 ); count > 0; --count ) {
         open.label( below( 1 << 20 ), static_cast< U8 >( below( 8 ) ), below( 2 ) == 0,
                     static_cast< U8 >( below( 256 ) ) );
      }
      return;
   }
}

inline void RandomMessage::multipath( Open & open ) {
   bool const isIpv6 = below( 2 ) == 0;
   Bytes const mask = some( 4 + 4 * below( 3 ) );
   std::vector< Velnet::IpGenAddr > addresses;
   std::vector< LspPing::LspPingMultipath::Item > ranges;
   for( U32 count = below( 4 ); count > 0; --count ) {
      addresses.push_back( address( isIpv6 ) );
      ranges.push_back( { address( isIpv6 ), address( isIpv6 ) } );
   }
   switch( below( 7 ) ) {
   case 0:
      open.multipathAddresses( addresses );
      return;
   case 1:
      open.multipathRanges( ranges );
      return;
   case 2:
      open.multipathSet( address( isIpv6 ), mask );
      return;
   case 3:
      open.multipathLabels( below( 1 << 20 ), mask );
      return;
   case 4:
      open.multipath( LspPing::LspPingMultipathType( 77 ), mask );
      return;
   case 5: {
      // Addresses of 127/8, labels, and labels associated with them, RFC 8012 section 6.
      Bytes information{ 0, 0, 0, 0 };
      for( U32 count = below( 4 ); count > 0; --count )
         information = information + Bytes{ 127, 0, 0, static_cast< U8 >( random_() ) };
      if( information.size() > 4 ) {
         information[0] = 2;
         information[2] = static_cast< U8 >( information.size() - 4 );
      }
      if( below( 2 ) == 0 )
         information = information + Bytes{ 0, 0, 0, 0 };
      else
         information =
            information + Bytes{ 9 } + word( 4 + mask.size() ) + Bytes( 1 ) + some( 4 ) + mask;
      U32 const associated = 3 * below( 4 );
      information = information + word( associated ) + Bytes( 2 ) + some( associated );
      open.multipath( LspPing::LspPingMultipath::ipAndLabelSet, information );
      return;
   }
   default:
      return;
   }
}
