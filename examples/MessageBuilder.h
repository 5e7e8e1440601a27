#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <cstddef>
#include <vector>

namespace Examples {

using Bytes = std::vector< U8 >;

/// Writes an echo message from its start to its end. Every element is a view of the library laid
/// over bytes that were just appended, and filled through its setters.
class MessageBuilder {
 public:
   Bytes const & bytes() const noexcept { return bytes_; }
   std::size_t size() const noexcept { return bytes_.size(); }

   /// Appends `count` zeros.
   MessageBuilder & room( std::size_t count ) {
      bytes_.resize( bytes_.size() + count );
      return *this;
   }
   /// Takes bytes away from the end.
   void cut( std::size_t count ) { bytes_.resize( bytes_.size() - count ); }

   /// A view over bytes written before; good until something is appended.
   template < class View >
   View & at( std::size_t offset ) {
      // Views have alignment 1, and `offset` is where one was appended.
      return *reinterpret_cast< View * >( bytes_.data() + offset );
   }

   /// Appends a view and has it filled by `fill( View & )`.
   template < class View, class Fill >
   MessageBuilder & view( Fill fill ) {
      std::size_t const start = size();
      room( sizeof( View ) );
      fill( at< View >( start ) );
      return *this;
   }

   /// Appends a TLV or sub-TLV whose view begins with type and length: the view, then what
   /// `content()` appends, then padding to a multiple of four. A length that `fill` sets stays, for
   /// views that end with padding; otherwise it is the bytes behind the four of the header.
   template < class View, class Code, class Fill, class Content >
   MessageBuilder & element( Code code, Fill fill, Content content ) {
      std::size_t const start = size();
      view< View >( [&]( View & filled ) {
         filled.typeIs( static_cast< U16 >( code ) );
         fill( filled );
      } );
      content();
      if( at< LspPing::LspPingTlvHdr >( start ).length() == 0 )
         at< LspPing::LspPingTlvHdr >( start ).lengthIs(
            static_cast< U16 >( size() - start - sizeof( LspPing::LspPingTlvHdr ) ) );
      return padded( start );
   }
   template < class View, class Code, class Fill >
   MessageBuilder & element( Code code, Fill fill ) {
      return element< View >(
         code, fill, [] {} );
   }

   /// A TLV that has no view but its header.
   template < class Code, class Content >
   MessageBuilder & tlv( Code code, Content content ) {
      return element< LspPing::LspPingTlvHdr >(
         code, []( auto & ) {}, content );
   }

   /// A Downstream Detailed Mapping TLV of one of its four forms; `subTlvs()` appends what follows
   /// the fixed part.
   template < class View, class Fill, class SubTlvs >
   MessageBuilder & detailedMapping( Fill fill, SubTlvs subTlvs ) {
      std::size_t const start = size();
      return element< View >( LspPing::LspPingTlvType::DownstreamDetailedMapping, fill, [&] {
         subTlvs();
         at< View >( start ).subTlvLenIs( static_cast< U16 >( size() - start - sizeof( View ) ) );
      } );
   }

   /// A Pad TLV, whose padding is held by an object and not by the message.
   MessageBuilder & pad( LspPing::LspPingPadTlv const & tlv );

   /// The FEC of an IPv4 prefix that nearly every message carries.
   MessageBuilder & ldpIpv4( Velnet::IpAddr prefix, U8 bits );

 private:
   MessageBuilder & padded( std::size_t start ) {
      return room( ( 4 - ( size() - start ) % 4 ) % 4 );
   }

   Bytes bytes_;
};

} // namespace Examples
