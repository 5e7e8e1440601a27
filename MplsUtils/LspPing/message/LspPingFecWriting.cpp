#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"
#include "MplsUtils/LspPing/message/LspPingRecordAddress.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"

#include <cstring>

namespace LspPing {

namespace {

using Error = LspPingWriteErrorCode;
using Fec = LspPingTargetFecSubTlvType;
using Info = LspPingFecInfo;

// Puts what the record says into the view; none where it says all.
template < class View >
requires requires( View & view ) {
   view.prefixLenIs( 0 );
}
Error put( View & fec, Info const & info ) noexcept {
   auto address = fec.ipPrefix();
   if( !addressOf( info.dstPrefix().address(), address ) )
      return Error::recordIncomplete;
   fec.ipPrefixIs( address );
   fec.prefixLenIs( info.dstPrefix().length() );
   if constexpr( requires { fec.rdIs( 0 ); } )
      fec.rdIs( info.rd() );
   if constexpr( requires { fec.algorithmIs( 0 ); } ) {
      fec.algorithmIs( info.algorithm() );
      fec.protocolIs( static_cast< U8 >( info.igpProtocol() ) );
   }
   return Error::none;
}

template < class View >
requires requires( View & view ) {
   view.labelIs( 0 );
}
Error put( View & fec, Info const & info ) noexcept {
   if( info.mplsLabel().value() > Velnet::MplsLabel::max )
      return Error::recordIncomplete;
   fec.labelIs( info.mplsLabel().value() );
   return Error::none;
}

template < class View, class Id >
Error putTunnel( View & fec, Id const & id, Info const & info ) noexcept {
   Velnet::IpAddr extended;
   Velnet::IpAddr sender;
   if( !addressOf( id.extendedTunnelId(), extended ) ||
       !addressOf( info.rsvpSenderAddr(), sender ) )
      return Error::recordIncomplete;
   fec.tunnelIdIs( id.tunnelId() );
   fec.extendedTunnelIdIs( extended );
   fec.lspIdIs( id.lspId() );
   fec.senderAddressIs( sender );
   return Error::none;
}

Error put( LspPingRsvpIpv4SubTlv & fec, Info const & info ) noexcept {
   Velnet::IpAddr destination;
   if( !addressOf( info.rsvpSpId().tunnelEndPoint(), destination ) )
      return Error::recordIncomplete;
   fec.destinationIs( destination );
   return putTunnel( fec, info.rsvpSpId(), info );
}

Error put( LspPingRsvpP2mpIpv4SubTlv & fec, Info const & info ) noexcept {
   fec.p2mpIdIs( info.rsvpSpGroupId().p2mpId() );
   return putTunnel( fec, info.rsvpSpGroupId(), info );
}

template < class View >
requires requires( View & view ) {
   view.pwTypeIs( 0 );
}
Error put( View & fec, Info const & info ) noexcept {
   Velnet::IpAddr sender;
   Velnet::IpAddr receiver;
   if( !addressOf( info.pwInfo().senderAddr(), sender ) ||
       !addressOf( info.pwInfo().receiverAddr(), receiver ) )
      return Error::recordIncomplete;
   fec.senderAddrIs( sender );
   fec.receiverAddrIs( receiver );
   if constexpr( requires { fec.pwIdIs( 0 ); } )
      fec.pwIdIs( info.pwInfo().pwId() );
   fec.pwTypeIs( static_cast< U16 >( info.pwInfo().pwType() ) );
   return Error::none;
}

// The root is written behind the view's own fields.
Error put( LspPingP2mpFecStackSubTlv &, Info const & ) noexcept {
   return Error::none;
}

// The identifiers, and how many of the bytes behind them the record counts.
bool putBehind( LspPingMessageWriter &, LspPingOpenElement & fec, LspPingFec129Ipv4SubTlv const *,
                Info const & info ) noexcept {
   Pseudowire::PseudowireGenId const & id = info.pwInfo().pwGenId();
   U32 const length = LspPingFec129Ipv4SubTlv::minTlvLength + U32{ id.agi().length() } +
                      id.saii().length() + id.taii().length();
   U32 const told = info.fecTlvLen();
   if( told != 0 && told != length && told != lspPingPadded( length ) )
      return fec.takeBack( Error::recordContradicts );
   return fec.pwGenId( id,
                       told > length ? LspPingPaddingCount::with : LspPingPaddingCount::without );
}

bool putBehind( LspPingMessageWriter & writer, LspPingOpenElement & fec,
                LspPingP2mpFecStackSubTlv const *, Info const & info ) noexcept {
   constexpr U32 besidesRoot = 5;
   U32 const root = info.peerAddr().isIpv6() ? sizeof( Velnet::Ip6Addr ) : sizeof( Velnet::IpAddr );
   bool const isGroup = info.opqType() == LspPingP2mpFecStackSubTlvType::SGIpv4;
   U32 const opaque =
      isGroup ? sizeof( LspPingOpaqueValSGSubTlv ) : sizeof( LspPingOpaqueValGenSubTlv );
   if( !isGroup && info.opqType() != LspPingP2mpFecStackSubTlvType::GenericLsp )
      return fec.takeBack( Error::recordUnknown );
   if( info.fecTlvLen() != 0 && info.fecTlvLen() != besidesRoot + root + opaque )
      return fec.takeBack( Error::recordContradicts );
   if( !fec.rootAddr( info.peerAddr() ) )
      return false;
   if( !isGroup ) {
      return writer.add< LspPingOpaqueValGenSubTlv >(
         [&]( auto & value ) { value.lspIdIs( info.genericOpqVal() ); } );
   }
   Velnet::IpAddr source;
   Velnet::IpAddr group;
   if( !addressOf( info.sourceAddrOpqVal(), source ) ||
       !addressOf( info.groupAddrOpqVal(), group ) )
      return fec.takeBack( Error::recordIncomplete );
   return writer.add< LspPingOpaqueValSGSubTlv >( [&]( auto & value ) {
      value.sourceAddrIs( source );
      value.groupAddrIs( group );
   } );
}

template < class View >
constexpr bool hasPartsBehind = requires( LspPingMessageWriter & writer, LspPingOpenElement & fec,
                                          View const * view, Info const & info ) {
   putBehind( writer, fec, view, info );
};

template < class View >
bool putView( LspPingMessageWriter & writer, Info const & info ) noexcept {
   constexpr LspPingElement const & facts = View::element;
   Error why = Error::none;
   auto fec = writer.open< View >( info.fecTlvType(), [&]( View & view ) {
      why = put( view, info );
      if( facts.hasFixedLength && info.fecTlvLen() != 0 ) {
         if( facts.hasLength( info.fecTlvLen() ) )
            view.lengthIs( info.fecTlvLen() );
         else
            why = Error::recordContradicts;
      }
   } );
   if( why != Error::none )
      return fec.takeBack( why );
   if constexpr( hasPartsBehind< View > ) {
      if( fec && !putBehind( writer, fec, static_cast< View const * >( nullptr ), info ) )
         // The writer knows why: it keeps its first error.
         return fec.takeBack( Error::recordIncomplete );
   }
   return fec.close();
}

// The kinds that the library has no view for, field by field.
struct Fields {
   std::array< U8, 64 > bytes{};
   std::size_t size = 0;

   template < class Field >
   void add( Field const & field ) noexcept {
      std::memcpy( bytes.data() + size, &field, sizeof( field ) );
      size += sizeof( field );
   }
};

Error put( Fields & fields, Info const & info ) noexcept {
   Velnet::Ip6Addr address;
   switch( info.fecTlvType() ) {
   case Fec::LDPIpv6: // RFC 8029 section 3.2.2
      if( !addressOf( info.dstPrefix().address(), address ) )
         return Error::recordIncomplete;
      fields.add( address );
      fields.add( info.dstPrefix().length() );
      return Error::none;
   case Fec::RSVPIpv6Lsp: { // RFC 8029 section 3.2.4
      Rsvp::RsvpSpId const & id = info.rsvpSpId();
      Velnet::Ip6Addr extended;
      Velnet::Ip6Addr sender;
      if( !addressOf( id.tunnelEndPoint(), address ) ||
          !addressOf( id.extendedTunnelId(), extended ) ||
          !addressOf( info.rsvpSenderAddr(), sender ) )
         return Error::recordIncomplete;
      fields.add( address );
      fields.add( Velnet::NetU16() );
      fields.add( Velnet::NetU16( id.tunnelId() ) );
      fields.add( extended );
      fields.add( sender );
      fields.add( Velnet::NetU16() );
      fields.add( Velnet::NetU16( id.lspId() ) );
      return Error::none;
   }
   case Fec::L2VPNEndpoint: // the record has no numbers of the edges
      return Error::recordIncomplete;
   default:
      return Error::recordUnknown;
   }
}

// One function for each class of a FEC, made from the list of classes.
using Put = bool ( * )( LspPingMessageWriter &, Info const & ) noexcept;
struct PutRow {
   LspPingElement const * facts;
   Put put;
};

template < class List >
struct PutRows;
template < class... Ts >
struct PutRows< Kiv::TypeList< Ts... > > {
   template < class T >
   static constexpr PutRow rowOf() noexcept {
      if constexpr( requires { T::element; } ) {
         if constexpr( requires( T & view, Info const & info ) { put( view, info ); } ) {
            if constexpr( T::element.context == LspPingContext::targetFec )
               return { &T::element, &putView< T > };
         }
      }
      return {};
   }
   static constexpr std::array< PutRow, sizeof...( Ts ) > rows{ rowOf< Ts >()... };
};

Put putOf( Fec code ) noexcept {
   for( PutRow const & row : PutRows< LspPingHdrTypes >::rows )
      if( row.put != nullptr && row.facts->hasCode( static_cast< U32 >( code ) ) )
         return row.put;
   return nullptr;
}

} // namespace

bool LspPingMessageWriter::add( LspPingFecInfo const & fec ) noexcept {
   if( Put const put = putOf( fec.fecTlvType() ); put != nullptr )
      return put( *this, fec );
   Fields fields;
   if( Error const why = put( fields, fec ); why != Error::none )
      return refuse( why );
   if( fec.fecTlvLen() != 0 && fec.fecTlvLen() != fields.size )
      return refuse( Error::recordContradicts );
   // Where the code has a class, these are its bytes all the same.
   U32 const id =
      openCode( LspPingContext::targetFec, static_cast< U32 >( fec.fecTlvType() ), nullptr );
   LspPingOpenElement element{ *this, id, LspPingBehind::nothing, sizeof( LspPingTlvHdr ) };
   element.bytes( std::span( fields.bytes ).first( fields.size ) );
   return element.close();
}

bool LspPingMessageWriter::fecStack( LspPingFecStack const & stack ) noexcept {
   LspPingOpenElement tlv = open( LspPingTlvType::TargetFecStack );
   U32 position = 0;
   for( auto fec = stack.fecInfoIterator(); fec.nonnull(); fec.advance(), ++position ) {
      // A position that is free had a FEC that the record does not say.
      if( fec.key() != position )
         return tlv.takeBack( Error::recordIncomplete );
      if( !add( fec.value() ) )
         return tlv.takeBack( Error::recordIncomplete );
   }
   return tlv.close();
}

} // namespace LspPing
