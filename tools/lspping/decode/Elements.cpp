#include "tools/lspping/decode/Elements.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/TypeRef.h"
#include "tools/lspping/generic/AttributeText.h"

#include <array>
#include <cstring>

namespace LspPingTool {

namespace {

using namespace LspPing;

// Whoever calls has checked that the view's bytes are there, and the views have no alignment.
template < class V, U8 offset >
V const & laid( U8 const * element ) noexcept {
   return *reinterpret_cast< V const * >( element + offset );
}

// A container decides about the value behind the TLV header: nothing is laid over the bytes but
// what it chooses. It is asked, not changed, through the pointer that it wants writable.
template < class Container >
bool containerValid( U8 const * element, U32 length ) {
   Container container;
   container.tryCastToTlv( const_cast< U8 * >( element ) + sizeof( LspPingTlvHdr ), length );
   return container.valid();
}

template < class V, U8 offset >
bool viewValid( U8 const * element, U32 length ) {
   if constexpr( std::is_base_of_v< LspPingDownstreamMappingHdr, V > )
      return containerValid< LspPingDownstreamMappingTlvContainer >( element, length );
   else if constexpr( std::is_base_of_v< LspPingIntfAndLabelStackHdr, V > )
      return containerValid< LspPingIntfAndLabelStackTlvContainer >( element, length );
   else if constexpr( requires( V const & v ) { v.valid(); } )
      return laid< V, offset >( element ).valid();
   else
      return true;
}

template < class V, U8 offset >
void viewText( Orlo::StringBuilder & out, U8 const * element, U32 ) {
   V const & view = laid< V, offset >( element );
   if constexpr( requires { view.stringValue(); } )
      out.append( view.stringValue() );
   else
      appendFields( out, Kiv::typeOf< V >(), Kiv::typeOf< LspPingTlvHdr >(), &view );
}

template < class V, U8 offset >
void viewVisit( U8 const * element, U32, View::Use use, void * context ) {
   use( element + offset, context );
}

template < class V, U8 offset, bool readsValue >
constexpr View viewOf{ Kiv::typeIdOf< V >,
                       sizeof( V ),
                       offset,
                       readsValue,
                       &viewValid< V, offset >,
                       &viewText< V, offset >,
                       &viewVisit< V, offset > };

// The Pad TLV is an object that holds a copy of the value.
void padOf( LspPingPadTlv & pad, U8 const * element, U32 length ) {
   pad.typeIs( laid< LspPingTlvHdr, 0 >( element ).type() );
   pad.lengthIs( static_cast< U16 >( length ) );
   pad.padTypeIs( element[4] );
   // From the end, so that the padding grows once.
   for( U32 i = length - 1; i-- > 0; )
      pad.paddingIs( i, element[5 + i] );
}
bool padValid( U8 const * element, U32 ) {
   LspPingPadTlv pad;
   padOf( pad, element, 1 );
   return pad.valid();
}
void padText( Orlo::StringBuilder & out, U8 const * element, U32 length ) {
   LspPingPadTlv pad;
   padOf( pad, element, length );
   out.append( pad.stringValue() );
}
void padVisit( U8 const * element, U32 length, View::Use use, void * context ) {
   LspPingPadTlv pad;
   padOf( pad, element, length );
   use( &pad, context );
}
constexpr View padView{
   Kiv::typeIdOf< LspPingPadTlv >, 5, 0, true, &padValid, &padText, &padVisit
};

template < class V >
constexpr bool isPrefixFec = requires( V const & view ) {
   view.prefixLen();
};

bool prefixFlaw( Orlo::StringBuilder & out, U32 bits, U32 longest ) {
   if( bits <= longest )
      return false;
   out.append( "prefix length " );
   out.appendDecimal( bits );
   out.append( ", at most " );
   out.appendDecimal( longest );
   return true;
}

bool notValid( Orlo::StringBuilder & out ) {
   out.append( "not valid" );
   return true;
}

// RFC 8029 gives more pseudowires a name than the views take for valid, and each vendor's TLV is as
// good as ours.
template < class V, U8 offset >
bool flawOf( Orlo::StringBuilder & out, U8 const * element, U32 length ) {
   if constexpr( isPrefixFec< V > ) {
      V const & fec = laid< V, offset >( element );
      if( prefixFlaw( out, fec.prefixLen(), 8 * sizeof( fec.ipPrefix() ) ) )
         return true;
   }
   if constexpr( std::is_same_v< V, LspPingVeloraVendorPrivateTlv > ) {
      return false;
   } else if constexpr( std::is_same_v< V, LspPingFec128Ipv4SubTlv > ) {
      if( laid< V, offset >( element ).mbz() == 0 )
         return false;
      out.append( "bytes that must be zero are not" );
      return true;
   } else if constexpr( std::is_same_v< V, LspPingFec129Ipv4SubTlv > ) {
      // Whether they fit is seen where they are walked. All types and lengths zero name nothing.
      static constexpr std::array< U8, 6 > nothing{};
      if( std::memcmp( element + 14, nothing.data(), nothing.size() ) != 0 )
         return false;
      out.append( "no attachment identifiers" );
      return true;
   } else {
      return !viewValid< V, offset >( element, length ) && notValid( out );
   }
}

// The root's address, RFC 6425 section 3.1.2.1.
bool rootFlaw( Orlo::StringBuilder & out, U8 const * element, U32 ) {
   auto const & fec = laid< LspPingP2mpFecStackSubTlv, 0 >( element );
   U32 const family = fec.family();
   U32 const expected = family == 1 ? 4 : 16;
   if( family != 1 && family != 2 ) {
      out.append( "address family " );
      out.appendDecimal( family );
      out.append( " is not known" );
   } else if( fec.addrLen() != expected ) {
      out.append( "root address of " );
      out.appendDecimal( fec.addrLen() );
      out.append( " bytes, expected " );
      out.appendDecimal( expected );
   } else {
      return false;
   }
   return true;
}

bool ldpIpv6Flaw( Orlo::StringBuilder & out, U8 const * element, U32 ) {
   return prefixFlaw( out, element[20], 128 );
}

constexpr ElementRow unviewed( Context context, U32 code, U16 valueLength,
                               Body body = Body::none ) {
   ElementRow row{ context, static_cast< U16 >( code ), valueLength };
   row.body = body;
   row.bodyOffset = static_cast< U8 >( headerSize( context ) );
   return row;
}

// `valueLength` is told where the view covers padding too or has a part of no fixed length.
template < class V, U8 offset = 0, bool readsValue = false >
constexpr ElementRow view( Context context, U32 code, Body body = Body::none,
                           U32 valueLength = sizeof( V ) ) {
   ElementRow row{ context, static_cast< U16 >( code ) };
   U32 const header = headerSize( context );
   row.valueLength = static_cast< U16 >(
      valueLength != sizeof( V ) ? valueLength : sizeof( V ) + offset - header );
   row.bodyOffset = static_cast< U8 >( sizeof( V ) + offset );
   row.body = body;
   row.hasFixedLength = body == Body::none;
   row.view = &viewOf< V, offset, readsValue >;
   row.flaw = &flawOf< V, offset >;
   return row;
}

constexpr ElementRow fixed( ElementRow row ) {
   row.hasFixedLength = true;
   return row;
}

constexpr ElementRow orLength( U16 otherLength, ElementRow row ) {
   row.otherLength = otherLength;
   return row;
}

constexpr ElementRow flawed( decltype( ElementRow::flaw ) flaw, ElementRow row ) {
   row.flaw = flaw;
   return row;
}

constexpr ElementRow when( U8 selectorOffset, U32 selector, ElementRow row ) {
   row.selectorOffset = selectorOffset;
   row.selector = static_cast< U8 >( selector );
   return row;
}

// What the rows before it leave: an address type that no RFC knows.
constexpr ElementRow otherwise( ElementRow row ) {
   row.isUnknownSelector = true;
   row.hasFixedLength = false;
   return row;
}

// The address type of RFC 6426 section 2.1: two interface numbers of four bytes, and behind them
// all as with IPv4.
constexpr ElementRow nonIp( U8 selectorOffset, U8 bodyOffset, ElementRow row ) {
   row = when( selectorOffset, 5, row );
   row.bodyOffset = bodyOffset;
   row.valueLength = bodyOffset - 4;
   row.isNonIp = true;
   return row;
}

constexpr auto fec = Context::targetFec;
constexpr auto message = Context::message;
constexpr auto mapping = Context::ddmap;
constexpr auto responder = Context::p2mpResponder;

template < class E >
constexpr U32 number( E value ) {
   return static_cast< U32 >( value );
}
using Tlv = LspPingTlvType;
using Fec = LspPingTargetFecSubTlvType;
using Address = LspPingAddrType;

// By context, then in the order of the enumerations; rows of one code stand together.
constexpr auto rows = [] {
   constexpr U32 dsmap = number( Tlv::DownstreamMapping );
   constexpr U32 ddmap = number( Tlv::DownstreamDetailedMapping );
   constexpr U32 intf = number( Tlv::IntfAndLabelStack );
   constexpr U32 change = number( LspPingDDMappingSubTlvType::FecStackChange );
   constexpr auto labels = Body::mappingLabels;
   constexpr auto subTlvs = Body::ddmapSubTlvs;
   constexpr auto changed = Body::stackChangeFec;
   constexpr U32 v4 = number( Address::ipv4Numbered );
   constexpr U32 v4Index = number( Address::ipv4Unnumbered );
   constexpr U32 v6 = number( Address::ipv6Numbered );
   constexpr U32 v6Index = number( Address::ipv6Unnumbered );
   return std::to_array< ElementRow >( {
      // clang-format off
      unviewed( message, number( Tlv::TargetFecStack ), 0, Body::fecs ),
      when( 6, v4, view< LspPingDownstreamMappingIpv4Tlv, 4 >( message, dsmap, labels ) ),
      when( 6, v4Index, view< LspPingDownstreamMappingIpv4UnnumberedTlv, 4 >( message, dsmap, labels ) ),
      when( 6, v6, view< LspPingDownstreamMappingIpv6Tlv, 4 >( message, dsmap, labels ) ),
      when( 6, v6Index, view< LspPingDownstreamMappingIpv6UnnumberedTlv, 4 >( message, dsmap, labels ) ),
      nonIp( 6, 20, view< LspPingDownstreamMappingHdr, 4 >( message, dsmap, labels ) ),
      otherwise( view< LspPingDownstreamMappingHdr, 4 >( message, dsmap ) ),
      [] {
         ElementRow row = unviewed( message, number( Tlv::Pad ), 1 );
         row.view = &padView;
         row.flaw = []( Orlo::StringBuilder & out, U8 const * element, U32 length ) {
            return !padValid( element, length ) && notValid( out );
         };
         return row;
      }(),
      unviewed( message, number( Tlv::VendorEnterpriseNum ), 4 ),
      when( 4, v4, view< LspPingIntfAndLabelStackIpv4Tlv, 4 >( message, intf, Body::labelStack ) ),
      when( 4, v4Index, view< LspPingIntfAndLabelStackIpv4UnnumberedTlv, 4 >( message, intf, Body::labelStack ) ),
      when( 4, v6, view< LspPingIntfAndLabelStackIpv6Tlv, 4 >( message, intf, Body::labelStack ) ),
      when( 4, v6Index, view< LspPingIntfAndLabelStackIpv6UnnumberedTlv, 4 >( message, intf, Body::labelStack ) ),
      otherwise( view< LspPingIntfAndLabelStackHdr, 4 >( message, intf ) ),
      unviewed( message, number( Tlv::ErrorTlv ), 0, Body::tlvs ),
      view< LspPingReplyTosTlv >( message, number( Tlv::ReplyTosByte ) ),
      // The one sub-TLV that has a view, when it is an IPv4 node address: 3 in its type's low byte.
      when( 5, 3, view< LspPingNodeAddrSubTlv >( message, number( Tlv::P2mpRespId ), Body::responderTlvs ) ),
      unviewed( message, number( Tlv::P2mpRespId ), 0, Body::responderTlvs ),
      view< LspPingEchoJitterTlv >( message, number( Tlv::EchoJitter ) ),
      when( 6, v4, view< LspPingDdmapTlv >( message, ddmap, subTlvs ) ),
      when( 6, v4Index, view< LspPingDdmapUnnumberedTlv >( message, ddmap, subTlvs ) ),
      when( 6, v6, view< LspPingDdmapV6Tlv >( message, ddmap, subTlvs ) ),
      when( 6, v6Index, view< LspPingDdmapV6UnnumberedTlv >( message, ddmap, subTlvs ) ),
      nonIp( 6, 20, view< LspPingDdmapHdr >( message, ddmap, subTlvs ) ),
      otherwise( view< LspPingDdmapHdr >( message, ddmap ) ),
      view< LspPingVeloraVendorPrivateTlv >( message, number( Tlv::VeloraVendorPrivate ), Body::vendorTlvs ),

      view< LspPingLdpIpv4SubTlv >( fec, number( Fec::LDPIpv4 ), Body::none, 5 ),
      flawed( &ldpIpv6Flaw, fixed( unviewed( fec, number( Fec::LDPIpv6 ), 17 ) ) ),
      view< LspPingRsvpIpv4SubTlv >( fec, number( Fec::RSVPIpv4Lsp ) ),
      fixed( unviewed( fec, number( Fec::RSVPIpv6Lsp ), 56 ) ),
      view< LspPingVpnIpv4SubTlv >( fec, number( Fec::VPNIpv4 ), Body::none, 13 ),
      view< LspPingVpnIpv6SubTlv >( fec, number( Fec::VPNIpv6 ), Body::none, 25 ),
      fixed( unviewed( fec, number( Fec::L2VPNEndpoint ), 14 ) ),
      view< LspPingFec128Ipv4SubTlv >( fec, number( Fec::FEC128Pseudowire ), Body::none, 14 ),
      view< LspPingFec129Ipv4SubTlv, 0, true >( fec, number( Fec::FEC129Pseudowire ), Body::identifiers, 16 ),
      view< LspPingBgpLuIpv4SubTlv >( fec, number( Fec::BGPLabeledIpv4 ), Body::none, 5 ),
      view< LspPingBgpLuIpv6SubTlv >( fec, number( Fec::BGPLabeledIpv6 ), Body::none, 17 ),
      view< LspPingGenericIpv4SubTlv >( fec, number( Fec::GenericIpv4 ), Body::none, 5 ),
      view< LspPingGenericIpv6SubTlv >( fec, number( Fec::GenericIpv6 ), Body::none, 17 ),
      view< LspPingNilFecSubTlv >( fec, number( Fec::NilFec ) ),
      view< LspPingRsvpP2mpIpv4SubTlv >( fec, number( Fec::RSVPP2MPIpv4 ) ),
      flawed( &rootFlaw, view< LspPingP2mpFecStackSubTlv >( fec, number( Fec::P2mpFec ), Body::opaqueValue ) ),
      view< LspPingEntropyLabelFecSubTlv >( fec, number( Fec::EntropyLabel ) ),
      orLength( 8, view< LspPingSrIpv4SubTlv >( fec, number( Fec::SRIpv4 ), Body::none, 6 ) ),
      orLength( 20, view< LspPingSrIpv6SubTlv >( fec, number( Fec::SRIpv6 ), Body::none, 18 ) ),
      orLength( 8, view< LspPingSrIpv4SubTlv >( fec, number( Fec::SRIpv4Deprecated ), Body::none, 6 ) ),
      orLength( 20, view< LspPingSrIpv6SubTlv >( fec, number( Fec::SRIpv6Deprecated ), Body::none, 18 ) ),

      view< LspPingMultipathSubTlv >( mapping, number( LspPingDDMappingSubTlvType::MultipathData ), Body::multipath ),
      unviewed( mapping, number( LspPingDDMappingSubTlvType::LabelStack ), 0, Body::protocolLabels ),
      when( 5, 1, view< LspPingFecStackChangeV4SubTlv >( mapping, change, changed ) ),
      when( 5, 2, view< LspPingFecStackChangeV6SubTlv >( mapping, change, changed ) ),
      when( 5, 0, view< LspPingFecStackChangeUnspecifiedSubTlv >( mapping, change, changed ) ),
      otherwise( view< LspPingFecStackChangeSubTlv >( mapping, change ) ),

      fixed( unviewed( responder, number( LspPingP2mpRespTlvType::EgrAddr4 ), 4 ) ),
      fixed( unviewed( responder, number( LspPingP2mpRespTlvType::EgrAddr6 ), 16 ) ),
      fixed( unviewed( responder, number( LspPingP2mpRespTlvType::NodeAddr4 ), 4 ) ),
      fixed( unviewed( responder, number( LspPingP2mpRespTlvType::NodeAddr6 ), 16 ) ),

      view< LspPingMultiLabelSubTlv >( Context::vendorPrivate, number( LspPingVeloraVendorPrivateType::MultiLabel ) ),

      view< LspPingOpaqueValGenSubTlv >( Context::opaqueValue, number( LspPingP2mpFecStackSubTlvType::GenericLsp ) ),
      view< LspPingOpaqueValSGSubTlv >( Context::opaqueValue, number( LspPingP2mpFecStackSubTlvType::SGIpv4 ) ),
      // clang-format on
   } );
}();

// The rows of a context lie in one piece.
struct Range {
   U8 begin = 0;
   U8 end = 0;
};
constexpr auto ranges = [] {
   std::array< Range, 6 > result{};
   static_assert( rows.size() <= 255 );
   for( std::size_t i = 0; i < rows.size(); ++i ) {
      Range & range = result[static_cast< std::size_t >( rows[i].context )];
      if( range.end == 0 )
         range.begin = static_cast< U8 >( i );
      range.end = static_cast< U8 >( i + 1 );
   }
   return result;
}();

template < class E >
std::string_view nameOf( U32 code ) noexcept {
   return Kiv::enumType< E >.name( code );
}

} // namespace

std::span< ElementRow const > elementRows() noexcept {
   return rows;
}

ElementRow const * elementRow( Context context, U32 code, std::span< U8 const > bytes ) noexcept {
   Range const range = ranges[static_cast< std::size_t >( context )];
   for( U32 i = range.begin; i < range.end; ++i ) {
      ElementRow const & row = rows[i];
      if( row.code != code )
         continue;
      if( row.selectorOffset == 0 ||
          ( row.selectorOffset < bytes.size() && bytes[row.selectorOffset] == row.selector ) )
         return &row;
   }
   return nullptr;
}

std::string_view codeName( Context context, U32 code ) noexcept {
   switch( context ) {
   case Context::message:
      return nameOf< LspPingTlvType >( code );
   case Context::targetFec:
      return nameOf< LspPingTargetFecSubTlvType >( code );
   case Context::ddmap:
      return nameOf< LspPingDDMappingSubTlvType >( code );
   case Context::p2mpResponder:
      return nameOf< LspPingP2mpRespTlvType >( code );
   case Context::vendorPrivate:
      return nameOf< LspPingVeloraVendorPrivateType >( code );
   case Context::opaqueValue:
      return nameOf< LspPingP2mpFecStackSubTlvType >( code );
   }
   return {};
}

void appendCodeName( Orlo::StringBuilder & out, Context context, U32 code ) noexcept {
   std::string_view const name = codeName( context, code );
   if( name.empty() )
      out.appendDecimal( code );
   else
      out.append( name );
}

} // namespace LspPingTool
