#include "examples/EchoRecords.h"

#include "examples/EchoBytes.h"

#include <algorithm>

namespace EchoRecords {

using namespace LspPing;

namespace {

using Fec = LspPingTargetFecSubTlvType;

bool setPrefix( LspPingFecInfo & info, Velnet::IpGenAddr const & address, U8 bits ) {
   if( bits > Velnet::IpGenPrefix::longest( address ) )
      return false;
   info.dstPrefixIs( { address, bits } );
   return true;
}

// LDP, BGP, generic, VPN and segment routing all name a prefix; some have more.
template < class View >
bool prefixFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< View >( bytes );
   if( view == nullptr || !view->valid() ||
       !setPrefix( info, view->ipPrefix(), view->prefixLen() ) )
      return false;
   if constexpr( requires { view->rd(); } )
      info.rdIs( view->rd() );
   if constexpr( requires { view->algorithm(); } ) {
      info.algorithmIs( view->algorithm() );
      info.igpProtocolIs( static_cast< LspPingSrIgpProtocol >( view->protocol() ) );
   }
   return true;
}

template < class View >
bool labelFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< View >( bytes );
   if( view == nullptr || !view->valid() )
      return false;
   info.mplsLabelIs( Velnet::MplsLabel( view->label() ) );
   return true;
}

bool rsvpFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< LspPingRsvpIpv4SubTlv >( bytes );
   if( view == nullptr || !view->valid() )
      return false;
   info.rsvpSpIdIs(
      { view->destination(), view->tunnelId(), view->extendedTunnelId(), view->lspId() } );
   info.rsvpSenderAddrIs( view->senderAddress() );
   return true;
}

bool rsvpP2mpFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< LspPingRsvpP2mpIpv4SubTlv >( bytes );
   if( view == nullptr || !view->valid() )
      return false;
   // A FEC names no group.
   info.rsvpSpGroupIdIs(
      { view->p2mpId(), view->tunnelId(), view->extendedTunnelId(), view->lspId(), {}, 0 } );
   info.rsvpSenderAddrIs( view->senderAddress() );
   return true;
}

template < class View >
bool pseudowireFec( Bytes bytes, LspPingFecInfo & info ) {
   auto const * view = laid< View >( bytes );
   if( view == nullptr || !view->valid() )
      return false;
   U32 pwId = 0;
   Pseudowire::PseudowireGenId pwGenId;
   if constexpr( requires { view->pwId(); } )
      pwId = view->pwId();
   else
      pwGenId = view->pwGenId();
   info.pwInfoIs( { view->senderAddr(), view->receiverAddr(), pwId, pwGenId,
                    static_cast< Pseudowire::PseudowireType >( view->pwType() ), false } );
   return true;
}

// Multipoint LDP, RFC 6425 section 3.1.2.1. The view knows a root of IPv4 only, so what is behind
// the root is found by its length.
bool multipointLdpFec( Bytes value, LspPingFecInfo & info ) {
   if( value.size() < 6 )
      return false;
   auto const family = valueAt< Velnet::NetU16 >( value, 4 ).value();
   std::size_t const addressSize = family == 1 ? 4 : family == 2 ? 16 : 0;
   if( addressSize == 0 || value.size() < 9 + addressSize || value[6] != addressSize )
      return false;
   Bytes opaque = value.subspan( 9 + addressSize );
   if( valueAt< Velnet::NetU16 >( value, 7 + addressSize ).value() != opaque.size() )
      return false;

   auto const * generic = laid< LspPingOpaqueValGenSubTlv >( opaque );
   auto const * sourceAndGroup = laid< LspPingOpaqueValSGSubTlv >( opaque );
   if( generic != nullptr && generic->valid() ) {
      info.opqTypeIs( LspPingP2mpFecStackSubTlvType::GenericLsp );
      info.genericOpqValIs( generic->lspId() );
   } else if( sourceAndGroup != nullptr && sourceAndGroup->valid() ) {
      info.opqTypeIs( LspPingP2mpFecStackSubTlvType::SGIpv4 );
      info.sourceAddrOpqValIs( sourceAndGroup->sourceAddr() );
      info.groupAddrOpqValIs( sourceAndGroup->groupAddr() );
   } else {
      return false;
   }
   if( family == 1 )
      info.peerAddrIs( valueAt< Velnet::IpAddr >( value, 7 ) );
   else
      info.peerAddrIs( valueAt< Velnet::Ip6Addr >( value, 7 ) );
   return true;
}

// The three kinds of FEC that the library has no view for, by the offsets of their fields.
bool ldpIpv6Fec( Bytes value, LspPingFecInfo & info ) { // RFC 8029 section 3.2.2
   return value.size() == 4 + 17 &&
          setPrefix( info, valueAt< Velnet::Ip6Addr >( value, 4 ), value[20] );
}

bool rsvpIpv6Fec( Bytes value, LspPingFecInfo & info ) { // RFC 8029 section 3.2.4
   if( value.size() != 4 + 56 )
      return false;
   info.rsvpSpIdIs(
      { valueAt< Velnet::Ip6Addr >( value, 4 ), valueAt< Velnet::NetU16 >( value, 22 ).value(),
        valueAt< Velnet::Ip6Addr >( value, 24 ), valueAt< Velnet::NetU16 >( value, 58 ).value() } );
   info.rsvpSenderAddrIs( valueAt< Velnet::Ip6Addr >( value, 40 ) );
   return true;
}

bool l2vpnFec( Bytes value, LspPingFecInfo & info ) { // RFC 8029 section 3.2.7
   if( value.size() != 4 + 14 )
      return false;
   // The two edge numbers have no attribute.
   info.rdIs( valueAt< Velnet::NetU64 >( value, 4 ).value() );
   auto const type = valueAt< Velnet::NetU16 >( value, 16 ).value();
   info.pwInfoIs( { {}, {}, 0, {}, static_cast< Pseudowire::PseudowireType >( type ), false } );
   return true;
}

bool fecOfKind( Fec kind, Bytes bytes, Bytes value, LspPingFecInfo & info ) {
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
      return false;
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

bool fecInfo( Bytes subTlv, LspPingFecInfo & info ) {
   Bytes const value = withoutPadding( subTlv );
   // The record counts the value's bytes in eight bits.
   if( value.empty() || value.size() - sizeof( LspPingTlvHdr ) > 0xff )
      return false;
   auto const kind = static_cast< Fec >( laid< LspPingTlvHdr >( value )->type() );
   LspPingFecInfo result;
   result.fecTlvTypeIs( kind );
   result.fecTlvLenIs( static_cast< U8 >( value.size() - sizeof( LspPingTlvHdr ) ) );
   if( !fecOfKind( kind, subTlv, value, result ) )
      return false;
   info = result;
   return true;
}

bool intfAndLabelStack( Bytes tlv, LspPingIntfAndLabelStackInfo & info ) {
   Bytes value = withoutPadding( tlv );
   if( value.empty() )
      return false;
   value = value.subspan( sizeof( LspPingTlvHdr ) );
   LspPingIntfAndLabelStackTlvContainer container;
   // The container is asked, not changed, through the pointer that it wants writable.
   container.tryCastToTlv( const_cast< U8 * >( value.data() ), static_cast< U32 >( value.size() ) );
   if( !container.valid() )
      return false;
   using Length = LspPingIntfAndLabelStackTlvIpAndIntfLen;
   auto const fixedPart = container.isIpv4()             ? Length::ipv4IfLen
                          : container.getAddrType() == 3 ? Length::ipv6NumberedIfLen
                                                         : Length::ipv6UnnumberedIfLen;
   Bytes const entries = value.subspan( static_cast< std::size_t >( fixedPart ) );
   if( entries.size() % sizeof( Velnet::MplsLabelEntry ) != 0 )
      return false;
   Velnet::MplsLabelStack labels;
   for( std::size_t at = 0; at < entries.size(); at += sizeof( Velnet::MplsLabelEntry ) )
      labels.entryAdd( valueAt< Velnet::MplsLabelEntry >( entries, at ) );
   info =
      LspPingIntfAndLabelStackInfo( container.getAddrType(), container.getAddr(),
                                    container.getIntfAddr(), container.getIntfId(), labels, true );
   return true;
}

bool padInfo( Bytes tlv, LspPingPadInfo & info ) {
   Bytes const value = withoutPadding( tlv );
   if( value.size() <= sizeof( LspPingTlvHdr ) )
      return false;
   U8 const type = value[4];
   if( type != static_cast< U8 >( LspPingPadType::dropPadding ) &&
       type != static_cast< U8 >( LspPingPadType::copyPadding ) )
      return false;
   LspPingPadInfo result( type, true );
   result.lengthIs( static_cast< U32 >( value.size() - sizeof( LspPingTlvHdr ) ) );
   // From the end, so that the padding grows once.
   for( std::size_t at = value.size(); at-- > 5; )
      result.paddingIs( static_cast< U32 >( at - 5 ), value[at] );
   info = result;
   return true;
}

void Records::addFec( std::size_t position, Bytes subTlv ) {
   LspPingFecInfo info;
   if( position > 0xff || !fecInfo( subTlv, info ) )
      return;
   if( !fecStack )
      fecStack.emplace();
   fecStack->fecInfoIs( static_cast< U8 >( position ), info );
}

void Records::addMapping( LspPingDownstreamMappingType kind, Mapping const & mapping ) {
   if( !downstreamMappings )
      downstreamMappings.emplace( kind );
   std::size_t const index = downstreamMappings->lspPingDownstreamMappingInfo().count();
   if( downstreamMappings->mappingTlv() == kind && index <= 0xff ) {
      downstreamMappings->lspPingDownstreamMappingInfoIs( static_cast< U8 >( index ),
                                                          mapping.record() );
   }
}

void Records::addTlv( Bytes tlv ) {
   auto const * header = laid< LspPingTlvHdr >( tlv );
   if( header == nullptr )
      return;
   switch( static_cast< LspPingTlvType >( header->type() ) ) {
   case LspPingTlvType::DownstreamMapping: {
      Mapping mapping;
      if( downstreamMapping( tlv, mapping ) )
         addMapping( LspPingDownstreamMappingType::downstreamMap, mapping );
      return;
   }
   case LspPingTlvType::IntfAndLabelStack: {
      LspPingIntfAndLabelStackInfo info;
      if( !intfAndLabelStack && EchoRecords::intfAndLabelStack( tlv, info ) )
         intfAndLabelStack = info;
      return;
   }
   case LspPingTlvType::Pad: {
      LspPingPadInfo info;
      if( !pad && padInfo( tlv, info ) )
         pad = info;
      return;
   }
   default:
      return;
   }
}

} // namespace EchoRecords
