#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/message/LspPingKept.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"

namespace LspPing {

namespace {

using Kept = LspPingKept;
using Fec = LspPingTargetFecSubTlvType;

// Only where the bytes are known to be there; the types have no alignment.
template < class Value >
Value valueAt( std::span< U8 const > bytes, std::size_t offset ) noexcept {
   return *reinterpret_cast< Value const * >( bytes.data() + offset );
}

Kept setPrefix( LspPingFecInfo & info, Velnet::IpGenAddr const & address, U8 bits ) {
   if( bits > Velnet::IpGenPrefix::longest( address ) )
      return Kept::refused( "a prefix longer than its address" );
   info.dstPrefixIs( { address, bits } );
   return Kept::whole();
}

// LDP, BGP, generic, VPN and segment routing all name a prefix; some have more.
template < class View >
requires requires( View const & view ) {
   view.prefixLen();
}
Kept keep( View const & fec, LspPingElementRef, LspPingFecInfo & info ) {
   if constexpr( requires { fec.rd(); } )
      info.rdIs( fec.rd() );
   if constexpr( requires { fec.algorithm(); } ) {
      info.algorithmIs( fec.algorithm() );
      info.igpProtocolIs( static_cast< LspPingSrIgpProtocol >( fec.protocol() ) );
   }
   return setPrefix( info, fec.ipPrefix(), fec.prefixLen() );
}

template < class View >
requires requires( View const & view ) {
   view.label();
}
Kept keep( View const & fec, LspPingElementRef, LspPingFecInfo & info ) {
   info.mplsLabelIs( Velnet::MplsLabel( fec.label() ) );
   return Kept::whole();
}

Kept keep( LspPingRsvpIpv4SubTlv const & fec, LspPingElementRef, LspPingFecInfo & info ) {
   info.rsvpSpIdIs( { fec.destination(), fec.tunnelId(), fec.extendedTunnelId(), fec.lspId() } );
   info.rsvpSenderAddrIs( fec.senderAddress() );
   return Kept::whole();
}

// A FEC names no group.
Kept keep( LspPingRsvpP2mpIpv4SubTlv const & fec, LspPingElementRef, LspPingFecInfo & info ) {
   info.rsvpSpGroupIdIs(
      { fec.p2mpId(), fec.tunnelId(), fec.extendedTunnelId(), fec.lspId(), {}, 0 } );
   info.rsvpSenderAddrIs( fec.senderAddress() );
   return Kept::whole();
}

template < class View >
requires requires( View const & view ) {
   view.pwType();
}
Kept keep( View const & fec, LspPingElementRef, LspPingFecInfo & info ) {
   U32 pwId = 0;
   Pseudowire::PseudowireGenId pwGenId;
   if constexpr( requires { fec.pwId(); } )
      pwId = fec.pwId();
   else
      pwGenId = fec.pwGenId();
   info.pwInfoIs( { fec.senderAddr(), fec.receiverAddr(), pwId, pwGenId,
                    static_cast< Pseudowire::PseudowireType >( fec.pwType() ), false } );
   return Kept::whole();
}

// Multipoint LDP, RFC 6425 section 3.1.2.1, by its bytes: each size of root has its own view, both
// of which cover family and length.
Kept keepRoot( LspPingElementRef element, LspPingFecInfo & info ) {
   std::span< U8 const > const bytes = element.bytes();
   U16 const family = valueAt< Velnet::NetU16 >( bytes, 4 ).value();
   std::size_t const addressSize = family == 1 ? 4 : family == 2 ? 16 : 0;
   if( addressSize == 0 || bytes.size() < 9 + addressSize || bytes[6] != addressSize ||
       valueAt< Velnet::NetU16 >( bytes, 7 + addressSize ).value() !=
          bytes.size() - 9 - addressSize )
      return Kept::notWellFormed();
   std::size_t count = 0;
   bool isKept = false;
   for( LspPingElementRef const opaque : element.elements() ) {
      if( count++ > 0 )
         continue;
      if( auto const * generic = opaque.as< LspPingOpaqueValGenSubTlv >();
          generic != nullptr && generic->valid() ) {
         info.opqTypeIs( LspPingP2mpFecStackSubTlvType::GenericLsp );
         info.genericOpqValIs( generic->lspId() );
         isKept = true;
      } else if( auto const * group = opaque.as< LspPingOpaqueValSGSubTlv >();
                 group != nullptr && group->valid() ) {
         info.opqTypeIs( LspPingP2mpFecStackSubTlvType::SGIpv4 );
         info.sourceAddrOpqValIs( group->sourceAddr() );
         info.groupAddrOpqValIs( group->groupAddr() );
         isKept = true;
      }
   }
   if( !isKept )
      return Kept::refused( "no attribute for this opaque value" );
   if( family == 1 )
      info.peerAddrIs( valueAt< Velnet::IpAddr >( bytes, 7 ) );
   else
      info.peerAddrIs( valueAt< Velnet::Ip6Addr >( bytes, 7 ) );
   return count == 1 ? Kept::whole() : Kept::without( "further opaque values" );
}

Kept keep( LspPingP2mpFecStackSubTlv const &, LspPingElementRef element, LspPingFecInfo & info ) {
   return keepRoot( element, info );
}

// The view of the element, if it describes it and says that it is valid.
template < class View >
Kept keepView( LspPingElementRef element, LspPingFecInfo & info ) {
   View const * const view = element.as< View >();
   if( view == nullptr || !view->valid() )
      return Kept::refused( "not valid for its view" );
   return keep( *view, element, info );
}

// FECs that the record has a place for beside those of the views that it was made for, by the
// offsets of their fields.
Kept keepUnviewed( LspPingElementRef element, LspPingFecInfo & info ) {
   std::span< U8 const > const bytes = element.bytes();
   if( element.row() == nullptr )
      return Kept::refused( "no attributes for this FEC" );
   Fec const code = static_cast< Fec >( element.code() );
   if( code == Fec::P2mpFec )
      return keepRoot( element, info );
   bool const isFixed =
      code == Fec::LDPIpv6 || code == Fec::RSVPIpv6Lsp || code == Fec::L2VPNEndpoint;
   if( isFixed && element.length() != element.row()->facts.leastLength )
      return Kept::notWellFormed();
   switch( code ) {
   case Fec::LDPIpv6: // RFC 8029 section 3.2.2
      return setPrefix( info, valueAt< Velnet::Ip6Addr >( bytes, 4 ), bytes[20] );
   case Fec::RSVPIpv6Lsp: // RFC 8029 section 3.2.4
      info.rsvpSpIdIs( { valueAt< Velnet::Ip6Addr >( bytes, 4 ),
                         valueAt< Velnet::NetU16 >( bytes, 22 ).value(),
                         valueAt< Velnet::Ip6Addr >( bytes, 24 ),
                         valueAt< Velnet::NetU16 >( bytes, 58 ).value() } );
      info.rsvpSenderAddrIs( valueAt< Velnet::Ip6Addr >( bytes, 40 ) );
      return Kept::whole();
   case Fec::L2VPNEndpoint: { // RFC 8029 section 3.2.7
      info.rdIs( valueAt< Velnet::NetU64 >( bytes, 4 ).value() );
      auto const type = valueAt< Velnet::NetU16 >( bytes, 16 ).value();
      info.pwInfoIs( { {}, {}, 0, {}, static_cast< Pseudowire::PseudowireType >( type ), false } );
      return Kept::without( "the numbers of the edges" );
   }
   default:
      return Kept::refused( "no attributes for this FEC" );
   }
}

// One function for each class of a FEC, made from the list of classes.
using Keep = Kept ( * )( LspPingElementRef, LspPingFecInfo & );
struct KeepRow {
   Kiv::TypeId type;
   Keep keep;
};

template < class List >
struct KeepRows;
template < class... Ts >
struct KeepRows< Kiv::TypeList< Ts... > > {
   template < class T >
   static constexpr Keep keepOf() noexcept {
      if constexpr( requires { T::element; } ) {
         if constexpr( requires( T const & view, LspPingElementRef element,
                                 LspPingFecInfo & info ) { keep( view, element, info ); } )
            return T::element.context == LspPingContext::targetFec ? &keepView< T > : nullptr;
      }
      return nullptr;
   }
   static constexpr std::size_t size = sizeof...( Ts );
   static constexpr std::array< KeepRow, size > rows{ KeepRow{ Kiv::typeIdOf< Ts >,
                                                               keepOf< Ts >() }... };
};

Keep keepOf( Kiv::TypeId type ) noexcept {
   for( KeepRow const & row : KeepRows< LspPingHdrTypes >::rows )
      if( row.keep != nullptr && row.type == type )
         return row.keep;
   return nullptr;
}

} // namespace

LspPingKept fecInfoOf( LspPingElementRef fec, LspPingFecInfo & info ) {
   if( fec.context() != LspPingContext::targetFec || !fec.isWhole() )
      return Kept::notWellFormed();
   // The record counts the value's bytes in eight bits.
   if( fec.length() > 0xff )
      return Kept::refused( "a FEC of more than 255 bytes" );
   LspPingFecInfo result;
   result.fecTlvTypeIs( static_cast< Fec >( fec.code() ) );
   result.fecTlvLenIs( static_cast< U8 >( fec.length() ) );
   Keep const keep = fec.row() != nullptr ? keepOf( fec.row()->type ) : nullptr;
   Kept const kept = keep != nullptr ? keep( fec, result ) : keepUnviewed( fec, result );
   if( kept.isKept )
      info = result;
   return kept;
}

} // namespace LspPing
