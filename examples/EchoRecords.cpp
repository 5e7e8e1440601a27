#include "examples/EchoRecords.h"

#include "examples/EchoBytes.h"

#include <algorithm>

namespace EchoRecords {

using namespace LspPing;

namespace {

using Fec = LspPingTargetFecSubTlvType;

constexpr Kept invalidView = notKept( "not valid for its view" );

Kept setPrefix( LspPingFecInfo & info, Velnet::IpGenAddr const & address, U8 bits ) {
   if( bits > Velnet::IpGenPrefix::longest( address ) )
      return notKept( "a prefix longer than its address" );
   info.dstPrefixIs( { address, bits } );
   return keptWhole;
}

// LDP, BGP, generic, VPN and segment routing all name a prefix; some have more.
template < class View >
Kept prefixFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< View >( bytes );
   if( view == nullptr || !view->valid() )
      return invalidView;
   if constexpr( requires { view->rd(); } )
      info.rdIs( view->rd() );
   if constexpr( requires { view->algorithm(); } ) {
      info.algorithmIs( view->algorithm() );
      info.igpProtocolIs( static_cast< LspPingSrIgpProtocol >( view->protocol() ) );
   }
   return setPrefix( info, view->ipPrefix(), view->prefixLen() );
}

template < class View >
Kept labelFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< View >( bytes );
   if( view == nullptr || !view->valid() )
      return invalidView;
   info.mplsLabelIs( Velnet::MplsLabel( view->label() ) );
   return keptWhole;
}

Kept rsvpFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< LspPingRsvpIpv4SubTlv >( bytes );
   if( view == nullptr || !view->valid() )
      return invalidView;
   info.rsvpSpIdIs(
      { view->destination(), view->tunnelId(), view->extendedTunnelId(), view->lspId() } );
   info.rsvpSenderAddrIs( view->senderAddress() );
   return keptWhole;
}

Kept rsvpP2mpFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< LspPingRsvpP2mpIpv4SubTlv >( bytes );
   if( view == nullptr || !view->valid() )
      return invalidView;
   // A FEC names no group.
   info.rsvpSpGroupIdIs(
      { view->p2mpId(), view->tunnelId(), view->extendedTunnelId(), view->lspId(), {}, 0 } );
   info.rsvpSenderAddrIs( view->senderAddress() );
   return keptWhole;
}

template < class View >
Kept pseudowireFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< View >( bytes );
   if( view == nullptr || !view->valid() )
      return invalidView;
   U32 pwId = 0;
   Pseudowire::PseudowireGenId pwGenId;
   if constexpr( requires { view->pwId(); } )
      pwId = view->pwId();
   else
      pwGenId = view->pwGenId();
   info.pwInfoIs( { view->senderAddr(), view->receiverAddr(), pwId, pwGenId,
                    static_cast< Pseudowire::PseudowireType >( view->pwType() ), false } );
   return keptWhole;
}

// Multipoint LDP, RFC 6425 section 3.1.2.1. The view knows a root of IPv4 only, so what is behind
// the root is found by its length.
Kept multipointLdpFec( Bytes value, LspPingFecInfo & info ) {
   if( value.size() < 7 )
      return notWellFormed;
   auto const family = valueAt< Velnet::NetU16 >( value, 4 ).value();
   std::size_t const addressSize = family == 1 ? 4 : family == 2 ? 16 : 0;
   if( addressSize == 0 || value.size() < 9 + addressSize || value[6] != addressSize )
      return notWellFormed;
   Bytes opaque = value.subspan( 9 + addressSize );
   if( valueAt< Velnet::NetU16 >( value, 7 + addressSize ).value() != opaque.size() )
      return notWellFormed;

   auto const * generic = laid< LspPingOpaqueValGenSubTlv >( opaque );
   auto const * sourceAndGroup = laid< LspPingOpaqueValSGSubTlv >( opaque );
   std::size_t size = 0;
   if( generic != nullptr && generic->valid() ) {
      info.opqTypeIs( LspPingP2mpFecStackSubTlvType::GenericLsp );
      info.genericOpqValIs( generic->lspId() );
      size = sizeof( *generic );
   } else if( sourceAndGroup != nullptr && sourceAndGroup->valid() ) {
      info.opqTypeIs( LspPingP2mpFecStackSubTlvType::SGIpv4 );
      info.sourceAddrOpqValIs( sourceAndGroup->sourceAddr() );
      info.groupAddrOpqValIs( sourceAndGroup->groupAddr() );
      size = sizeof( *sourceAndGroup );
   } else {
      return notKept( "no attribute for this opaque value" );
   }
   if( family == 1 )
      info.peerAddrIs( valueAt< Velnet::IpAddr >( value, 7 ) );
   else
      info.peerAddrIs( valueAt< Velnet::Ip6Addr >( value, 7 ) );
   return size == opaque.size() ? keptWhole : keptWithout( "further opaque values" );
}

// The three kinds of FEC that the library has no view for, by the offsets of their fields.
Kept ldpIpv6Fec( Bytes value, LspPingFecInfo & info ) { // RFC 8029 section 3.2.2
   if( value.size() != 4 + 17 )
      return notWellFormed;
   return setPrefix( info, valueAt< Velnet::Ip6Addr >( value, 4 ), value[20] );
}

Kept rsvpIpv6Fec( Bytes value, LspPingFecInfo & info ) { // RFC 8029 section 3.2.4
   if( value.size() != 4 + 56 )
      return notWellFormed;
   info.rsvpSpIdIs(
      { valueAt< Velnet::Ip6Addr >( value, 4 ), valueAt< Velnet::NetU16 >( value, 22 ).value(),
        valueAt< Velnet::Ip6Addr >( value, 24 ), valueAt< Velnet::NetU16 >( value, 58 ).value() } );
   info.rsvpSenderAddrIs( valueAt< Velnet::Ip6Addr >( value, 40 ) );
   return keptWhole;
}

Kept l2vpnFec( Bytes value, LspPingFecInfo & info ) { // RFC 8029 section 3.2.7
   if( value.size() != 4 + 14 )
      return notWellFormed;
   info.rdIs( valueAt< Velnet::NetU64 >( value, 4 ).value() );
   auto const type = valueAt< Velnet::NetU16 >( value, 16 ).value();
   info.pwInfoIs( { {}, {}, 0, {}, static_cast< Pseudowire::PseudowireType >( type ), false } );
   return keptWithout( "the numbers of the edges" );
}

Kept fecOfKind( Fec kind, Bytes bytes, Bytes value, LspPingFecInfo & info ) {
   switch( kind ) {
   case Fec::LDPIpv4:
      return prefixFec< LspPingLdpIpv4SubTlv >( bytes, info );
   case Fec::LDPIpv6:
      return ldpIpv6Fec( value, info );
   case Fec::RSVPIpv4Lsp:
      return rsvpFec( bytes, info );
   case Fec::RSVPIpv6Lsp:
      return rsvpIpv6Fec( value, info );
   case Fec::VPNIpv4:
      return prefixFec< LspPingVpnIpv4SubTlv >( bytes, info );
   case Fec::VPNIpv6:
      return prefixFec< LspPingVpnIpv6SubTlv >( bytes, info );
   case Fec::L2VPNEndpoint:
      return l2vpnFec( value, info );
   case Fec::FEC128Pseudowire:
      return pseudowireFec< LspPingFec128Ipv4SubTlv >( bytes, info );
   case Fec::FEC129Pseudowire:
      return pseudowireFec< LspPingFec129Ipv4SubTlv >( bytes, info );
   case Fec::BGPLabeledIpv4:
      return prefixFec< LspPingBgpLuIpv4SubTlv >( bytes, info );
   case Fec::BGPLabeledIpv6:
      return prefixFec< LspPingBgpLuIpv6SubTlv >( bytes, info );
   case Fec::GenericIpv4:
      return prefixFec< LspPingGenericIpv4SubTlv >( bytes, info );
   case Fec::GenericIpv6:
      return prefixFec< LspPingGenericIpv6SubTlv >( bytes, info );
   case Fec::NilFec:
      return labelFec< LspPingNilFecSubTlv >( bytes, info );
   case Fec::RSVPP2MPIpv4:
      return rsvpP2mpFec( bytes, info );
   case Fec::P2mpFec:
      return multipointLdpFec( value, info );
   case Fec::EntropyLabel:
      return labelFec< LspPingEntropyLabelFecSubTlv >( bytes, info );
   case Fec::SRIpv4:
   case Fec::SRIpv4Deprecated:
      return prefixFec< LspPingSrIpv4SubTlv >( bytes, info );
   case Fec::SRIpv6:
   case Fec::SRIpv6Deprecated:
      return prefixFec< LspPingSrIpv6SubTlv >( bytes, info );
   default:
      return notKept( "no attributes for this FEC" );
   }
}

} // namespace

Bytes takeElement( Bytes & left ) noexcept {
   Bytes const all = left;
   std::size_t const size = withoutPadding( all ).size();
   // A view may cover the padding; the last element may lack it.
   std::size_t const padded = std::min( ( size + 3 ) & ~std::size_t{ 3 }, all.size() );
   left = size == 0 ? Bytes{} : all.subspan( padded );
   return all.first( size == 0 ? 0 : padded );
}

Bytes valueOf( Bytes element ) noexcept {
   Bytes const whole = withoutPadding( element );
   return whole.empty() ? whole : whole.subspan( sizeof( LspPingTlvHdr ) );
}

namespace {

// Of what a message has once, the first that is well-formed.
template < class Record, Kept ( *convert )( Bytes, Record & ) >
Kept once( Bytes tlv, std::optional< Record > & record, Record empty ) {
   if( record )
      return notKept( "behind another one" );
   Kept const kept = convert( tlv, empty );
   if( kept.isKept )
      record = empty;
   return kept;
}

} // namespace

Kept fecInfo( Bytes subTlv, LspPingFecInfo & info ) {
   Bytes const value = withoutPadding( subTlv );
   if( value.empty() )
      return notWellFormed;
   // The record counts the value's bytes in eight bits.
   if( value.size() - sizeof( LspPingTlvHdr ) > 0xff )
      return notKept( "a FEC of more than 255 bytes" );
   auto const kind = static_cast< Fec >( laid< LspPingTlvHdr >( value )->type() );
   LspPingFecInfo result;
   result.fecTlvTypeIs( kind );
   result.fecTlvLenIs( static_cast< U8 >( value.size() - sizeof( LspPingTlvHdr ) ) );
   Kept const kept = fecOfKind( kind, subTlv, value, result );
   if( kept.isKept )
      info = result;
   return kept;
}

Kept intfAndLabelStack( Bytes tlv, LspPingIntfAndLabelStackInfo & info ) {
   Bytes value = withoutPadding( tlv );
   if( value.empty() )
      return notWellFormed;
   value = value.subspan( sizeof( LspPingTlvHdr ) );
   LspPingIntfAndLabelStackTlvContainer container;
   // The container is asked, not changed, through the pointer that it wants writable.
   container.tryCastToTlv( const_cast< U8 * >( value.data() ), static_cast< U32 >( value.size() ) );
   if( !container.valid() )
      return notWellFormed;
   using Length = LspPingIntfAndLabelStackTlvIpAndIntfLen;
   auto const fixedPart = container.isIpv4()             ? Length::ipv4IfLen
                          : container.getAddrType() == 3 ? Length::ipv6NumberedIfLen
                                                         : Length::ipv6UnnumberedIfLen;
   Bytes const entries = value.subspan( static_cast< std::size_t >( fixedPart ) );
   if( entries.size() % sizeof( Velnet::MplsLabelEntry ) != 0 )
      return notWellFormed;
   Velnet::MplsLabelStack labels;
   for( std::size_t at = 0; at < entries.size(); at += sizeof( Velnet::MplsLabelEntry ) )
      labels.entryAdd( valueAt< Velnet::MplsLabelEntry >( entries, at ) );
   info =
      LspPingIntfAndLabelStackInfo( container.getAddrType(), container.getAddr(),
                                    container.getIntfAddr(), container.getIntfId(), labels, true );
   return keptWhole;
}

Kept padInfo( Bytes tlv, LspPingPadInfo & info ) {
   Bytes const value = withoutPadding( tlv );
   if( value.size() <= sizeof( LspPingTlvHdr ) )
      return notWellFormed;
   U8 const type = value[4];
   if( type != static_cast< U8 >( LspPingPadType::dropPadding ) &&
       type != static_cast< U8 >( LspPingPadType::copyPadding ) )
      return notWellFormed;
   LspPingPadInfo result( type, true );
   result.lengthIs( static_cast< U32 >( value.size() - sizeof( LspPingTlvHdr ) ) );
   // From the end, so that the padding grows once.
   for( std::size_t at = value.size(); at-- > 5; )
      result.paddingIs( static_cast< U32 >( at - 5 ), value[at] );
   info = result;
   return keptWhole;
}

Kept Records::addFec( std::size_t position, Bytes subTlv ) {
   LspPingFecInfo info;
   if( position > 0xff )
      return notKept( "behind 256 FECs" );
   Kept const kept = fecInfo( subTlv, info );
   if( !kept.isKept )
      return kept;
   if( !fecStack )
      fecStack.emplace();
   fecStack->fecInfoIs( static_cast< U8 >( position ), info );
   return kept;
}

Kept Records::addMapping( LspPingDownstreamMappingType kind, Mapping const & mapping ) {
   if( !downstreamMappings )
      downstreamMappings.emplace( kind );
   std::size_t const index = downstreamMappings->lspPingDownstreamMappingInfo().count();
   if( downstreamMappings->mappingTlv() != kind )
      return notKept( "behind mappings of the other kind" );
   if( index > 0xff )
      return notKept( "behind 256 mappings" );
   downstreamMappings->lspPingDownstreamMappingInfoIs( static_cast< U8 >( index ),
                                                       mapping.record() );
   return keptWhole;
}

Kept Records::addTlv( Bytes tlv ) {
   auto const * header = laid< LspPingTlvHdr >( tlv );
   if( header == nullptr )
      return notWellFormed;
   switch( static_cast< LspPingTlvType >( header->type() ) ) {
   case LspPingTlvType::DownstreamMapping: {
      Mapping mapping;
      Kept const kept = downstreamMapping( tlv, mapping );
      if( !kept.isKept )
         return kept;
      Kept const added = addMapping( LspPingDownstreamMappingType::downstreamMap, mapping );
      return added.isKept ? kept : added;
   }
   case LspPingTlvType::IntfAndLabelStack:
      return once< LspPingIntfAndLabelStackInfo, &EchoRecords::intfAndLabelStack >(
         tlv, intfAndLabelStack, {} );
   case LspPingTlvType::Pad:
      return once< LspPingPadInfo, &padInfo >( tlv, pad, LspPingPadInfo( 0, false ) );
   default:
      return keptWhole;
   }
}

} // namespace EchoRecords
